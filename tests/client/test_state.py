"""What there is on a chip, and what has changed there."""

import json
import re
import unittest

from ctl import DRIVER, OK, USAGE, CtlTest

# A session that sets up a bit of everything, and what shows each of its calls in a difference: the call that reads it,
# with a member.
STEPS = (
    ("lmq_create_bridge 0 200 p_cfg.brg_type=LMQ_BRG_TYPE_N_1 p_cfg.vlan_id=100",
     r"lmq_get_bridge_config\(0, 200\): only in live: p_cfg\{brg_id=200 .*brg_cfg\{brg_type=LMQ_BRG_TYPE_N_1 .*vlan_id=100"),
    ("lmq_add_bridge_port 0 3 200",
     r"lmq_get_bridge_config_all\(0, 64\)\.p_cfg\[0\].*brg_port_info=\{\{brg_port_num=1000 uni_port_num=3\}\}"),
    ("vx_gpon_onu_tcont_enable_set 0 0 1 1 p_cfg.alloc_id=300",
     r"vx_gpon_onu_active_tcont_get\(0, 0\)\.p_tcont_id\[0\]: \(none\) -> .*tcont_id=1 .*alloc_id=300|"
     r"vx_gpon_onu_active_tcont_get\(0, 0\)\.p_tcont_id\[0\]: \(none\) -> .*alloc_id=300 .*"),
    ("vx_gpon_onu_gem_port_add 0 0 100 p_cfg.direction=LMQ_DIR_BOTH p_cfg.tcont_id=1",
     r"vx_gpon_onu_gem_port_info_get\(0, 0, 100\): only in live: p_info\{gem_port_id=100 .*tcont_id=1"),
    ("vx_flow_us_add 0 3 p_key.key_type=VX_CL_KEY_MAC_VLAN p_key.key_s.mac_vlan.o_vid=100 p_action={} priority=0",
     r"vx_flow_us_get\(0, 1\): only in live: p_key\{key_type=VX_CL_KEY_MAC_VLAN key_s\{mac_vlan\{.*o_vid=100\}\}\}"),
    ("vx_flow_us_map 0 1 0 100", r"vx_flow_us_all_get\(0, 3, 64\)\.p_cfg\[0\].*map_sub_port=100"),
    ("vx_mcast_vlan_add 0 3 77", r"vx_mcast_vlan_config_get\(0, 3, 77\): only in live: p_cfg\{mcast_vlan=77"),
    ("vx_mcast_ip_entry_add 0 3 entry.mcast_vlan=77 entry.grp_addr=239.1.1.1",
     r"vx_mcast_ip_entry_get\(0, 3\)\.entry\[0\]: .*239\.1\.1\.1"),
    ("vx_rate_policer_create 0 {}", r"vx_rate_policer_get\(0, 0\): only in live"),
    ("vx_cosq_queue_set 0 3 0 p_cfg.weight=5", r"vx_cosq_queue_get\(0, 3, 0\)\.p_cfg\.weight: 1 -> 5"),
    ("vx_gpio_set 0 3 p_cfg.direction=VX_GPIO_DIR_OUTPUT",
     r"vx_gpio_get\(0, 3\)\.p_cfg\.direction: VX_GPIO_DIR_INPUT -> VX_GPIO_DIR_OUTPUT"),
    ("lmq_write_register 0 0x1004 5", r"lmq_read_register\(0, 4100\)\.p_reg_data\[0\]: 0 -> 5"),
)


class State(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def configure(self):
        for words, _ in STEPS:
            self.ok("call", *words.split())

    def columns(self, *words):
        """The table that a command prints, as a list of the words of each line."""
        return [line.split() for line in self.ok(*words).splitlines()]

    def test_a_session_shows(self):
        """Each step by the name and number of what it made, in lines short enough to read; then what get lists."""
        before, after = f"{self.folder}/before.json", f"{self.folder}/after.json"
        self.ok("snapshot", before, "--registers", "0x1000-0x1008")
        self.configure()
        status, printed, errors = self.run_ctl("diff", before)
        self.assertEqual((status, errors), (1, ""))
        for words, shown in STEPS:
            self.assertRegex(printed, shown, words)
        # Neither ids that other calls have found for other ports, nor what is 0, nor flags.
        self.assertNotIn("(0, 2, 77)", printed)
        self.assertLess(len(printed.splitlines()), 60)
        self.assertNotRegex(printed, r"valid\{|mask_s|=0\b")
        self.ok("snapshot", after, "--registers", "0x1000-0x1008")
        self.assertEqual(self.ok("diff", after), "")
        self.assertEqual(self.run_ctl("diff", before, after)[1], printed.replace("only in live", f"only in {after}"))
        self.assertIn(f"only in {after}", self.run_ctl("diff", after, before)[1])
        changes = json.loads(self.run_ctl("--json", "diff", before)[1])
        new = [each for each in changes if each["call"] == "lmq.lmq_get_bridge_config(0, 200)"]
        self.assertEqual((new[0]["member"], new[0]["before"], new[0]["after"]["p_cfg"]["brg_id"]), ("", None, 200))
        self.list_things()

    def list_things(self):
        kinds = [line[0] for line in self.columns("get")]
        for kind in ("flows", "bridges", "gem-ports", "tconts", "vlans", "policers", "queues", "ports", "pins"):
            self.assertIn(kind, kinds)
        flows = self.columns("get", "flows")
        self.assertEqual((len(flows), flows[1][flows[0].index("FLOW_ID")]), (2, "1"))
        self.assertIn("mac_vlan{o_vid=100}", " ".join(flows[1]))
        self.assertEqual(self.ok("get", "flows", "--port", "4", "--columns", "flow_id"), "FLOW_ID\n")
        self.assertEqual(self.run_ctl("get", "flows", "--port", "4"), (OK, "", "There are no flows.\n"))
        self.assertEqual(self.columns("get", "bridges", "--columns", "brg_id,num_brg_ports"),
                         [["BRG_ID", "NUM_BRG_PORTS"], ["200", "1"]])
        self.assertEqual(self.columns("get", "gem-port", "--columns", "gem_port_id,tcont_id,direction")[1:],
                         [["100", "1", "LMQ_DIR_BOTH"]])
        # Columns that are alike in all rows tell nothing apart, but with --full.
        queues = self.columns("get", "queues", "--port", "3")
        self.assertEqual((len(queues), queues[0]), (9, ["QUEUE_ID", "WEIGHT"]))
        weight = queues[0].index("WEIGHT")
        self.assertEqual([row[weight] for row in queues[1:3]], ["5", "1"])
        self.assertGreater(len(self.columns("get", "queues", "--port", "3", "--full")[0]), len(queues[0]))
        ports = json.loads(self.ok("--json", "get", "ports", "--full"))
        self.assertEqual([port["port_id"] for port in ports if port["port_id"] in (3, 4)], [3, 4])
        self.assertTrue({"link_status", "tx_enable"} <= set(ports[-1]))
        self.list_events_and_traps()
        self.refused(USAGE, "nothing lists bridgs; did you mean bridges?", "get", "bridgs")
        self.refused(USAGE, "no column brgid; did you mean brg_id?", "get", "bridges", "--columns", "brgid")
        self.assertEqual(self.ok("call", "lmq_get_bridge_config_all", "0", "--columns", "brg_id,brg_cfg.vlan_id"),
                         "BRG_ID  BRG_CFG.VLAN_ID\n200     100\n")
        self.ok("call", "lmq_add_bridge_port", "0", "4", "200")
        self.assertRegex(self.ok("call", "lmq_get_bridge_config_all", "0", "1"),
                         r" brg_port_info\n +\[0\]\n(.*\n){2} +\[1\]\n +brg_port_num +1001\n +uni_port_num +4\n")

    def list_events_and_traps(self):
        """A row for an enumerator, or one for each port where these differ; the data as the event has it."""
        columns = ("--columns", "event_type,port_num,status,event_data,p_count")
        for port, event in ((4, "ETH_LINK_STATUS_CHNG"), (0, "GPON_ALM_LOS"), (0, "DYING_GASP")):
            self.ok("call", "lmq_dbg_generate_event", "0", f"VX_EVENT_{event}", str(port), "0")
        events = [row for row in self.columns("get", "events", *columns)]
        told = {event: [row[1:] for row in events if row[0] == f"VX_EVENT_{event}"]
                for event in ("ETH_LINK_STATUS_CHNG", "GPON_ALM_LOS", "DYING_GASP", "WD_EXPIRED", "ETH_RX_PKT_DROP")}
        self.assertEqual(told["DYING_GASP"], [["all", "1", "0", "1"]])
        self.assertEqual(told["WD_EXPIRED"], [["all", "0", "0", "0"]])
        self.assertEqual(told["ETH_RX_PKT_DROP"], [["all", "0", "0", "0"]])
        self.assertEqual(told["GPON_ALM_LOS"], [["0", "1", "status=1", "1"]])
        self.assertEqual([row[0] for row in told["ETH_LINK_STATUS_CHNG"]], ["3", "4"])
        self.assertNotIn("VX_EVENT_ETH_MAX", [row[0] for row in events])
        traps = [row[0] for row in self.columns("get", "traps")]
        self.assertIn("VX_L2_SPCL_PKT_TYPE_ARP", traps)
        self.ok("call", "lmq_deregister_cpu_pkt_trap", "0", "9")  # that of ARP on the simulated chip
        self.assertEqual([row[0] for row in self.columns("get", "traps")],
                         [row for row in traps if row != "VX_L2_SPCL_PKT_TYPE_ARP"])

    def test_a_system_that_is_down(self):
        self.ok("call", "lmq_shutdown_system")
        self.assertEqual(self.run_ctl("get", "bridges"), (DRIVER, "VX_ERR_GLBL_SYS_UNINTIALIZED (28674 = 0x7002: VX_ERR_GLBL_BASE + 2)\n", ""))
        self.start_chip()

    def test_part_of_a_chip(self):
        """What is found by a walk is in the file once; what can be changed is not deleted and made anew."""
        part = str(self.folder / "some.conf")
        addresses = [f"02:00:00:00:00:0{number}" for number in (1, 2, 3)]
        for address in addresses:
            self.ok("call", "vx_l2_fdb_entry_add", "0", "VX_FDB_ENTRY_OP_TYPE_STATIC", f"p_mac_entry.mac_addr={address}",
                    "p_mac_entry.mac_addr_valid=1", "p_mac_entry.port_id=3")
        self.assertEqual(re.findall('"mac_addr":"(.*?)"', self.ok("save", "-", "vx_l2_fdb_entry_add")), addresses)
        self.ok("call", "vx_rate_policer_create", "0", "cfg.peak_rate=5")
        self.ok("save", part, "vx_rate_policer_create")
        self.ok("call", "vx_rate_policer_set", "0", "0", "cfg.peak_rate=6")
        self.assertEqual(self.ok("apply", "--dry-run", part),
                         "vx_rate_policer_create(policer_1).cfg.peak_rate: 6 -> 5\n"
                         "vx_rate_policer_set dev_id=0 flow_pol_id=$policer_1 cfg='{\"peak_rate\":5}'\n"
                         "1 to set; nothing was sent\n")

    def test_settings(self):
        """A file leads back, one member at a time; what it cannot say, or a chip does not take, is named."""
        saved = self.folder / "chip.conf"
        self.assertRegex(self.ok("save", str(saved)), r"chip\.conf: \d+ settings, \d+ things that were made\n")
        self.assertNotIn("onu_state\":", saved.read_text())  # a report
        self.assertIn("vx_event_throttle_set dev_id=0 event_type=VX_EVENT_DYING_GASP ", saved.read_text())
        self.assertIn("vx_lmq_rate_limit_set dev_id=0 type=VX_LMQ_CPU_PORT_BKT ", saved.read_text())
        self.assertIn("\n# Sets the members of the watchdog that the mask flags.\nvx_watchdog_set dev_id=0 p_cfg='{", saved.read_text())
        self.assertEqual(self.ok("diff", str(saved)), "")
        self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=70", "p_cfg.wd_action=VX_WD_ACTION_REBOOT")
        self.ok("call", "vx_l2_port_stp_state_set", "0", "3", "VX_L2_STP_STATE_FORWARDING")
        part = self.folder / "part.conf"
        part.write_text("vx_watchdog_set 0 p_cfg.wd_timer=5  # the rest stays\n")
        self.assertEqual(self.run_ctl("diff", str(part)), (1, "vx_watchdog_set(0).p_cfg.wd_timer: 5 -> 70\n", ""))
        printed = self.ok("apply", "--dry-run", str(part))
        self.assertEqual(printed, "vx_watchdog_set(0).p_cfg.wd_timer: 70 -> 5\n"
                                  "vx_watchdog_set dev_id=0 p_cfg='{\"wd_timer\":5}'\n1 to set; nothing was sent\n")
        self.assertTrue(self.ok("apply", str(part)).endswith("1 set, 0 not\n"))
        status, printed, _ = self.run_ctl("diff", "live", str(saved))
        self.assertEqual(status, 1)
        self.assertIn("vx_watchdog_set(0).p_cfg.wd_action: VX_WD_ACTION_REBOOT -> VX_WD_ACTION_WARNING\n", printed)
        self.assertIn("vx_l2_port_stp_state_set(0, 3).stp_state: VX_L2_STP_STATE_FORWARDING -> ", printed)
        self.ok("apply", str(saved))
        self.assertEqual(self.ok("diff", str(saved)), "")
        for line, why in (("vx_watchdog_get 0", "line 1: vx_watchdog_get is no setting"),
                          ("vx_watchdog_set 0 p_cfg.wd_tmr=1", "line 1: p_cfg: no member wd_tmr"),
                          ("\nvx_watchdog_set 0 {}\nvx_watchdog_set 0 {}", "line 3: it is set a second time")):
            part.write_text(line + "\n")
            self.refused(USAGE, why, "apply", str(part))
        snapshot = self.folder / "any.json"
        self.ok("snapshot", str(snapshot), "*watchdog*")
        self.refused(USAGE, "holds settings, and", "diff", str(saved), str(snapshot))


if __name__ == "__main__":
    unittest.main()
