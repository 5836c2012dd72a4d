"""What lmqctl makes of a host's contract, what it does without one, and with one that is meant to harm."""

import http.server
import json
import os
import pathlib
import threading
import unittest
import urllib.request

from ctl import CtlTest, OK, USAGE

INIT = ("call", "lmq_init_system", "p_cfg.num_dev=1", "p_cfg.dev_cfg[0].enbl=1")


class Contract(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def request(self, *words):
        return json.loads(self.ok("call", "--dry-run", *words).split(" ", 1)[1])

    def test_sizes(self):
        """Outputs and counts that are left out are as large as they have to be."""
        self.assertEqual(self.request("vx_i2c_read", "0", "0x50", "0", "16")[-1], [0] * 16)
        self.assertEqual(self.request("vx_acl_custom_pkt_field_table_get", "0", "3")[-1], [{}] * 8)
        self.assertEqual(self.request("vx_mcast_vlan_get", "0", "3")[2:], [[64], [{}] * 64])
        self.assertEqual(self.request("vx_mcast_vlan_get", "0", "3", "5")[2:], [[5], [{}] * 5])
        self.assertEqual(self.request("--count", "3", "vx_mcast_vlan_get", "0", "3")[2:], [[3], [{}] * 3])
        self.assertEqual(self.request("lmq_get_bridge_config_all", "0", "50")[1:], [50, [{}] * 50, [0]])
        self.assertEqual(self.request("--count", "p_cfg=7", "lmq_get_bridge_config_all", "0")[1:], [7, [{}] * 7, [0]])
        self.assertEqual(self.request("vx_i2c_write", "0", "0x50", "0", "p_tx_data=1,2,3")[3:], [3, [1, 2, 3]])

    def test_refused_before_it_is_sent(self):
        for message, words in (
                ("p_tx_data: 4 elements, but data_len says 64", ["vx_i2c_write", "0", "0x50", "0", "64", "1,2,3,4"]),
                ("p_rx_data: 1 element, but data_len says 16", ["vx_i2c_read", "0", "0x50", "0", "16", "[0]"]),
                ("missing argument data_len", ["vx_i2c_read", "0", "0x50", "0"]),
                ("slave_addr: 128 is out of range, which is 0 to 127", ["vx_i2c_read", "0", "128", "0", "16"]),
                ("has no argument p_cgf; did you mean p_cfg", ["--count", "p_cgf=2", "vx_watchdog_get", "0"])):
            self.refused(USAGE, message, "call", *words)
        self.assertEqual(self.request("--force", "vx_i2c_write", "0", "128", "0", "64", "1,2"), [0, 128, 0, 64, [1, 2]])

    def test_answers(self):
        """Lists show what was filled, numbers their enumerators, sets what they set; JSON has all."""
        for bridge in range(55):
            self.ok("call", "lmq_create_bridge", "0", str(bridge + 1), "p_cfg.brg_type=1")
        printed = self.ok("call", "lmq_get_bridge_config_all", "0", "60")
        self.assertIn("p_valid_cnt             55\n", printed)
        self.assertEqual((printed.count("brg_id "), "[54]" in printed, "[55]" in printed), (55, True, False))
        answer = json.loads(self.ok("--json", "call", "lmq_get_bridge_config_all", "0", "60"))
        self.assertEqual(len(answer["arguments"]["p_cfg"]), 60)
        self.ok("--refresh", "list", "system*")  # the host is whole
        self.ok("call", "vx_l2_port_stp_state_set", "0", "3", "VX_L2_STP_STATE_FORWARDING")
        self.assertIn("VX_L2_STP_STATE_FORWARDING", self.ok("call", "vx_l2_port_stp_state_get", "0", "3"))
        printed = self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=0")
        self.assertIn("wd_timer", printed)
        self.assertNotIn("wd_action ", printed)

    def test_describe(self):
        printed = self.ok("describe", "vx_mdio_write")
        self.assertIn("Effect: changes\n", printed)
        self.assertRegex(printed, r"p_write_data .*\(in, \[write_cnt\]\)\n +What to write")
        self.assertRegex(printed, r"write_cnt .*\(1 to 32\)")
        listed = json.loads(self.ok("--json", "list"))
        self.assertEqual([entry["name"] for entry in listed if entry["effect"] and not entry["title"]], [])
        self.assertIn("vx_watchdog_cfg_t", self.ok("search", "strobes it"))
        self.assertEqual(set(json.loads(self.ok("template", "vx_i2c_write"))), {"dev_id", "slave_addr", "slave_offset", "p_tx_data"})
        self.assertNotIn("p_rx_data", self.ok("template", "vx_i2c_read"))

    def test_snapshot(self):
        """What is configured shows in a snapshot's difference, each thing by the method and number that name it."""
        before = str(self.folder / "before.json")
        self.ok("snapshot", before, "--registers", "0x1000-0x1008")
        for words in ("lmq_create_bridge 0 200 p_cfg.brg_type=1", "vx_mcast_vlan_add 0 3 77", "vx_rate_policer_create 0 {}",
                      "lmq_write_register 0 0x1004 5"):
            self.ok("call", *words.split())
        status, printed, _ = self.run_ctl("diff", before)
        self.assertEqual(status, 1)
        for shown in ("lmq.lmq_get_bridge_config(0, 200): only in live", "lmq.vx_mcast_vlan_config_get(0, 3, 77): only in live",
                      "lmq.vx_rate_policer_get(0, 0): only in live", "lmq.lmq_read_register(0, 4100).p_reg_data"):
            self.assertIn(shown, printed)


class Relay(CtlTest):
    """A server that hands calls on to a host, and tells of the interface what it likes."""

    told = None

    def setUp(self):
        case = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_POST(self):
                body = self.rfile.read(int(self.headers["Content-Length"]))
                request = urllib.request.Request(case.url, body, {"Content-Type": "text/xml"})
                with urllib.request.urlopen(request) as answer:
                    self.reply(answer.read())

            def do_GET(self):
                self.reply(case.told) if case.told is not None else self.send_error(404)

            def reply(self, body):
                self.send_response(200)
                self.send_header("Content-Length", str(len(body)))
                self.end_headers()
                self.wfile.write(body)

            def log_message(self, *_):
                pass

        server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        threading.Thread(target=server.serve_forever, daemon=True).start()
        self.addCleanup(server.server_close)
        self.addCleanup(server.shutdown)
        self.relay = f"http://127.0.0.1:{server.server_port}/RPC2"
        self.interface = json.loads(pathlib.Path(os.environ["LMQ_INTERFACE"]).read_text())

class Without(Relay):
    """A host that has no contract to offer."""

    def test_no_guessing(self):
        with_relay = {"LMQ_URL": self.relay}
        self.refused(USAGE, "--count p_cfg=N", "call", "vx_mcast_vlan_get", "0", "3", **with_relay)
        self.refused(USAGE, "--count p_rx_data=N", "call", "vx_i2c_read", "0", "0x50", "0", "16", **with_relay)
        sent = self.ok("call", "--dry-run", "--count", "p_rx_data=16", "vx_i2c_read", "0", "0x50", "0", "16", **with_relay)
        self.assertEqual(json.loads(sent.split(" ", 1)[1])[-1], [0] * 16)
        self.ok(*INIT, **with_relay)
        self.ok("call", "vx_watchdog_get", "0", **with_relay)
        self.ok("snapshot", str(self.folder / "s"), **with_relay)
        printed = (self.folder / "s").read_text()
        self.assertIn("lmq.vx_watchdog_get(0)", printed)
        self.assertNotIn("vx_eth_port_stats_get", printed)  # it may clear


class Hostile(Relay):
    """One that tells what it likes."""

    def test_what_is_not_used(self):
        def edited(change):
            interface = json.loads(json.dumps(self.interface))
            change(interface["methods"]["vx_watchdog_get"])
            return json.dumps(interface).encode()

        for told, why in ((b"[]", "is no JSON object"), (b"\xff{", "is no JSON object"), (b"[" * 100000, "too deep"),
                          (edited(lambda method: method.pop("effect")), "has no effect"),
                          (edited(lambda method: method.update(arguments={"a": 1})), "is no list"),
                          (edited(lambda method: method["arguments"][1].update(length=1 << 40)), "number of elements"),
                          (edited(lambda method: method["arguments"][1].update(range=[2, 1])), "is no range"),
                          (edited(lambda method: method["arguments"][1].update(name="\x1b[2J")), "is no name")):
            self.told = told
            status, printed, errors = self.run_ctl("--url", self.relay, "call", "--dry-run", "vx_watchdog_get", "0")
            self.assertEqual((status, json.loads(printed.split(" ", 1)[1])), (OK, [0, {}]), errors)
            self.assertIn(why, errors)
            self.assertNotIn("\x1b", errors)

    def test_what_must_do_no_harm(self):
        """Escape sequences are shown as what they are; a struct that holds itself, and an enormous room, end."""
        method = self.interface["methods"]["vx_watchdog_get"]
        method["brief"] = "Reads\x1b]0;x\x07 the\u009b2J \u202ewatchdog."
        self.interface["structs"]["vx_watchdog_cfg_t"]["members"][3]["type"] = "vx_watchdog_cfg_t"
        self.interface["methods"]["vx_mcast_vlan_get"]["arguments"][3]["times"] = 65536
        self.told = json.dumps(self.interface).encode()
        printed = self.ok("--url", self.relay, "describe", "vx_watchdog_get")
        self.assertIn(r"Reads\u001b]0;x\u0007 the\u009b2J \u202ewatchdog.", printed)
        self.refused(USAGE, "more than can be sent", "--url", self.relay, "call", "--dry-run", "vx_mcast_vlan_get", "0", "3")


if __name__ == "__main__":
    unittest.main()
