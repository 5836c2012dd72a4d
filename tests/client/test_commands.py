"""Every command of lmqctl, with what people get wrong."""

import http.server
import json
import os
import pathlib
import pty
import re
import subprocess
import threading
import unittest

from ctl import CONNECTION, DRIVER, FAULT, OK, OUTPUT, USAGE, CtlTest


class Commands(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def request(self, *words, stdin=""):
        """The arguments that a call would send."""
        return json.loads(self.ok("call", "--dry-run", *words, stdin=stdin).split(" ", 1)[1])

    def test_call(self):
        printed = self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_action=VX_WD_ACTION_REBOOT", "p_cfg.wd_timer=0x10")
        self.assertTrue(printed.startswith("VX_SUCCESS\n"), printed)
        printed = self.ok("call", "lmq.vx_watchdog_get", "0")
        self.assertRegex(printed, r"wd_timer +16\n +wd_action +VX_WD_ACTION_REBOOT\n")
        told = json.loads(self.ok("--json", "call", "vx_watchdog_get", "dev_id=0"))
        self.assertEqual((told["method"], told["result"], told["status"]), ("lmq.vx_watchdog_get", 0, "VX_SUCCESS"))
        self.assertEqual(told["arguments"]["p_cfg"]["wd_timer"], 16)
        self.assertIn("<methodResponse>", self.ok("call", "--raw", "vx_watchdog_get", "0"))
        self.assertIn("system.listMethods", self.ok("call", "system.listMethods"))

    def test_input(self):
        flags = {"wd_enable": 1, "wd_action": 1}
        for words, expected in (
                (("p_cfg.wd_enable=1", "p_cfg.wd_action=1"), {"wd_enable": 1, "wd_action": 1, "mask_s": flags}),
                (("--no-valid", "p_cfg.wd_timer=0b101"), {"wd_timer": 5}),
                (("p_cfg.wd_timer=0xffffffff", "p_cfg.mask_s=none"), {"wd_timer": -1, "mask_s": {}}),
                (('{"wd_action": "VX_WD_ACTION_REBOOT"}',), {"wd_action": 1, "mask_s": {"wd_action": 1}}),
                (("p_cfg.mask_s=wd_enable|wd_action",), {"mask_s": flags}),
                # A number is its bits, the first flag the lowest.
                (("p_cfg.mask_s=0b0110",), {"mask_s": {"wd_enable": 0, "wd_timer": 1, "wd_action": 1, "reserved": 0}}),
                (('{"mask_s": 1}',), {"mask_s": {"wd_enable": 1, "wd_timer": 0, "wd_action": 0, "reserved": 0}}),
                # What comes behind adds to what stands in front.
                (('p_cfg={"wd_timer": 3}', "p_cfg.wd_enable=1"),
                 {"wd_timer": 3, "mask_s": {"wd_timer": 1, "wd_enable": 1}, "wd_enable": 1})):
            self.assertEqual(self.request("vx_watchdog_set", "0", *words), [0, expected], words)
        self.assertEqual(self.request("vx_watchdog_set", "0", "-", stdin='{"wd_timer": 3}\n')[1]["wd_timer"], 3)
        # An array or an object is one word, whatever it is like.
        for word, sent in (("[2,0,0,0,0,1]", [2, 0, 0, 0, 0, 1]), ("[]", [])):
            self.assertEqual(self.request("vx_mac_addr_set", "0", word), [0, sent])
            self.assertEqual(self.request("vx_mac_addr_set", "0", f"p_mac_addr={word}"), [0, sent])
        self.assertEqual(self.request("vx_gpon_onu_ploam_us_set", "0", "0", "[7,1]"), [0, 0, [7, 1], 2])
        self.assertEqual(self.request("vx_watchdog_set", "0", "{}"), [0, {}])
        self.assertEqual(self.request("lmq_init_system", "{}"), [{}])
        self.assertEqual(self.request("lmq_shutdown_system", "{}"), [])
        path = self.folder / "cfg.json"
        path.write_text('{"wd_timer": 4}')
        self.assertEqual(self.request("vx_watchdog_set", "0", f"@{path}")[1]["wd_timer"], 4)

    def test_template(self):
        """What template prints, call takes whole, and an edit has effect."""
        for entry in json.loads(self.ok("--json", "list", "vx_*_set"))[::4]:
            method, arguments = entry["name"], entry["prototype"].count(",") + 1
            printed = self.ok("template", method)
            self.assertEqual(len(self.request(method, "-", stdin=printed)), arguments, method)
        template = json.loads(self.ok("template", "vx_watchdog_set"))
        self.assertEqual(template, {"dev_id": 0, "p_cfg": {"wd_enable": 0, "wd_timer": 0, "wd_action": "VX_WD_ACTION_WARNING"}})
        template["p_cfg"] = {"wd_timer": 77}
        path = self.folder / "template.json"
        path.write_text(json.dumps(template))
        self.ok("call", "vx_watchdog_set", f"@{path}")
        self.assertRegex(self.ok("call", "vx_watchdog_get", "0"), r"wd_timer +77\n")
        self.refused(USAGE, "has no argument wd_timer; a member is p_cfg.wd_timer=30", "call", "vx_watchdog_set", "0",
                     "wd_timer=30")
        self.refused(USAGE, "vx_watchdog_set has no argument p_cgf; did you mean p_cfg", "call", "vx_watchdog_set",
                     '{"dev_id": 0, "p_cgf": {}}')
        self.refused(USAGE, "missing argument p_cfg", "call", "vx_watchdog_set", '{"dev_id": 0}')

    def test_json(self):
        """Structures for programs, of whatever is described."""
        def told(*words):
            return json.loads(self.ok("--json", *words))
        method = told("describe", "vx_watchdog_get")
        self.assertEqual([(each["name"], each["output"]) for each in method["arguments"]], [("dev_id", False), ("p_cfg", True)])
        members = {each["name"]: each for each in told("describe", "vx_watchdog_cfg_t")["members"]}
        self.assertEqual(members["mask_s"]["flags"], ["wd_enable", "wd_timer", "wd_action", "reserved"])
        self.assertEqual((members["wd_timer"]["bits"], members["wd_timer"]["signed"]), (32, False))
        self.assertIn({"name": "VX_WD_ACTION_REBOOT", "number": 1}, told("describe", "vx_wd_action_e")["enumerators"])
        self.assertEqual(told("describe", "LMQ_MAX_COS")["number"], 8)
        self.assertEqual(told("describe", "vx_dev_id_t")["behind"], ["vx_uint8", "unsigned char"])
        self.assertEqual(told("describe", "VX_WD_ACTION_REBOOT")["of"], "vx_wd_action_e")
        self.assertEqual(told("explain", "0x7002")[0]["offset"], 2)
        self.assertIn({"kind": "method", "name": "vx_watchdog_set", "where": "p_cfg"}, told("uses", "vx_watchdog_cfg_t"))

    def test_wrong_input(self):
        call = "vx_watchdog_set"
        for message, words in (
                ("unknown method vx_watchdog_gte; did you mean vx_watchdog_get", ["vx_watchdog_gte", "0"]),
                ("missing argument dev_id: expected a whole number of 8 bits", ["vx_watchdog_get"]),
                ("vx_watchdog_get takes 2 arguments; 1 too many: 2", ["vx_watchdog_get", "0", "{}", "2"]),
                ("p_cfg.wd_action: VX_WD_ACTION_REBOT is not an enumerator of vx_wd_action_e; did you mean VX_WD_ACTION_REBOOT",
                 [call, "0", "p_cfg.wd_action=VX_WD_ACTION_REBOT"]),
                ("no member wd_enabel in vx_watchdog_cfg_t; did you mean wd_enable?", [call, "0", "p_cfg.wd_enabel=1"]),
                ("p_cfg: broken JSON, parse error at line 1", [call, "0", '{"wd_enable": ']),
                ("dev_id: 256 is not a whole number of 8 bits (vx_dev_id_t): it goes from 0 to 255", [call, "256", "{}"]),
                ("p_cfg: cannot read /nowhere: No such file", [call, "0", "@/nowhere"]),
                ("p_cfg.dev_cfg[1]: the last element is [0]", ["lmq_init_system", "p_cfg.dev_cfg[1].enbl=1"]),
                ("p_cfg.dev_cfg: 2 elements, but at most 1 fit", ["lmq_init_system", '{"dev_cfg": [{}, {}]}']),
                ("p_cfg.wd_timer is given twice", [call, "0", "p_cfg.wd_timer=1", "p_cfg.wd_timer=2"]),
                ("p_cfg= would undo p_cfg.wd_timer=", [call, "0", "p_cfg.wd_timer=1", "p_cfg={}"]),
                ("p_cfg: wd_timer is given twice", [call, "0", '{"wd_timer": 1, "wd_timer": 2}']),
                ("dev_id is given twice", [call, '{"dev_id": 0, "p_cfg": {}, "dev_id": 0}']),
                ("p_cfg: cannot read /: Is a directory", [call, "0", "@/"]),
                ("--count: expected N or NAME=N", ["--count", "-1", "vx_watchdog_get", "0"]),
                ("p_mac_addr: not a text in UTF-8", ["vx_mac_addr_set", "0", "\udcff"]),
                ("p_mac_addr: a control character cannot be sent", ["vx_mac_addr_set", "0", "\x07"]),
                ("system.methodHelp, argument 1: not a text in UTF-8", ["--dry-run", "system.methodHelp", "a\udcff"]),
                ("lmq.\\xff: not a text in UTF-8", ["\udcff"]),
        ):
            self.refused(USAGE, message, "call", *words)
        self.refused(USAGE, "p_cfg.wd_action: not a text in UTF-8", "call", call, "0", "p_cfg.wd_timer=1", "p_cfg.wd_action=\udcff")
        self.refused(USAGE, "cal is no command; did you mean call?\nlmqctl --help", "--json", "cal", "vx_watchdog_get", "0")
        self.refused(USAGE, "frobnicate is no command\n", "frobnicate")
        self.refused(USAGE, "A subcommand is required")

    def test_failures(self):
        status, printed, errors = self.run_ctl("call", "vx_watchdog_get", "7")
        self.assertEqual((status, errors), (DRIVER, ""))
        self.assertRegex(printed, r"^VX_ERR_DEV_\w+ \(\d+ = 0x71..(: VX_ERR_DEV_BASE \+ \d+)?\)\n")
        self.refused(FAULT, "fault -509: Expected one and only one parameter", "call", "lmq.UDTMalloc")
        self.refused(CONNECTION, "cannot connect", "--url", "http://127.0.0.1:1/RPC2", "list")
        self.refused(CONNECTION, "HTTP status 404", "--url", self.url.replace("RPC2", "else"), "list")
        self.refused(CONNECTION, "cannot connect", "--url", f"unix:{self.folder}/nobody", "list")

    def test_another_server(self):
        class Pages(http.server.BaseHTTPRequestHandler):
            def do_POST(self):
                self.send_response(200)
                self.end_headers()
                self.wfile.write(b"<html>welcome</html>")

            def log_message(self, *_):
                pass

        with http.server.HTTPServer(("127.0.0.1", 0), Pages) as server:
            threading.Thread(target=server.serve_forever, daemon=True).start()
            self.refused(CONNECTION, "does not speak XML-RPC", "--url", f"http://127.0.0.1:{server.server_port}/RPC2", "list")
            server.shutdown()

    def test_dictionary(self):
        self.assertIn("vx_status_e vx_watchdog_get(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg)\n",
                      self.ok("list", "*watchdog*"))
        for name, expected in (("vx_watchdog_get", "wd_timer"), ("vx_watchdog_cfg_t", "wd_enable|wd_timer|wd_action"),
                               ("vx_status_e", "= 28674  (VX_ERR_GLBL_BASE + 2)"), ("LMQ_MAX_COS", "((vx_uint8)8)"),
                               ("vx_dev_id_t", "= vx_uint8 = unsigned char"), ("vx_flow_us_key_t", "one of, by key_type")):
            self.assertIn(expected, self.ok("describe", name), name)
        self.refused(USAGE, "did you mean vx_watchdog_cfg_t", "describe", "vx_watchdog_cfg")
        self.assertIn("VX_WD_ACTION_REBOOT", self.ok("search", "wd_action"))
        self.refused(USAGE, "nothing has xyzzy", "search", "xyzzy")
        self.assertRegex(self.ok("uses", "vx_watchdog_cfg_t"), r"method +vx_watchdog_set  p_cfg\n")
        self.refused(USAGE, "no type is called", "uses", "vx_watchdog_cfg")
        for word in ("0x7002", "28674", "VX_ERR_GLBL_SYS_UNINTIALIZED"):
            self.assertIn("28674 (0x7002), of vx_status_e: VX_ERR_GLBL_BASE + 2\n", self.ok("explain", word))
        self.refused(USAGE, "no enumerator and no define", "explain", "VX_NOBODY")

    def test_families(self):
        families = json.loads(self.ok("--json", "list", "--families"))
        listed = json.loads(self.ok("--json", "list"))
        self.assertEqual(sum(each["methods"] for each in families), len(listed))
        self.assertIn({"family": "flow", "methods": sum(each["family"] == "flow" for each in listed)}, families)
        self.assertRegex(self.ok("list", "--families"), r"(?m)^flow +\d+ methods$")
        (flow,) = {each["family"] for each in json.loads(self.ok("--json", "list", "flow"))}
        self.assertEqual(flow, "flow")
        self.assertTrue(self.ok("list", "flow").startswith("flow\n  vx_status_e vx_flow_"))
        self.refused(USAGE, "did you mean flow", "list", "flwo")

    def test_code(self):
        words = ("vx_watchdog_set", "0", "p_cfg.wd_enable=1")
        self.assertIn("<methodName>lmq.vx_watchdog_set</methodName>", self.ok("call", "--as", "xmlrpc", *words))
        # The Python code is what the call is.
        code = self.ok("call", "--as", "python", "vx_watchdog_set", "0", "p_cfg.wd_timer=91")
        ran = subprocess.run(["python3", "-c", code], capture_output=True, text=True)
        self.assertEqual((ran.returncode, ran.stderr, ran.stdout[:2]), (0, "", "[0"))
        self.assertRegex(self.ok("call", "vx_watchdog_get", "0"), r"wd_timer +91\n")

    def test_code_in_c(self):
        """The C code of every method is of the interface, and two of them go into one function."""
        self.assertIn("vx_watchdog_cfg_t p_cfg = {.wd_action = VX_WD_ACTION_REBOOT, .mask_s = {.wd_action = 1}};\n"
                      "    vx_status_e result = vx_watchdog_set(0, &p_cfg);\n}\n",
                      self.ok("call", "--as", "c", "vx_watchdog_set", "0", "p_cfg.wd_action=VX_WD_ACTION_REBOOT"))
        methods = [entry["name"] for pattern in ("lmq_*", "vx_*")
                   for entry in json.loads(self.ok("--json", "list", pattern))]
        templates = self.ok("repl", stdin="".join(f"template {method}\n" for method in methods))
        templates = [" ".join(each.split()) for each in re.findall(r"(?ms)^\{(?:\}|.*?^\})$", templates)]
        self.assertEqual(len(templates), len(methods))
        code = self.ok("repl", stdin="".join(f"call --as c {method} '{template}'\n"
                                             for method, template in zip(methods, templates)))
        include = pathlib.Path(__file__).parents[2] / "include"
        source = "#include <stddef.h>\n#include <lmq/lmq.h>\nvoid calls(void);\nvoid calls(void) {\n" + code + "}\n"
        built = subprocess.run(["cc", "-x", "c", "-fsyntax-only", "-Werror", f"-I{include}", "-"], input=source,
                               capture_output=True, text=True)
        self.assertEqual((built.returncode, code.count("result = ")), (0, len(methods) - code.count("\n    lmq_pkt_free_fnc")),
                         built.stderr)

    def test_addresses(self):
        self.assertIn("p_mac_addr              02:00:5e:10:00:01\n", self.ok("call", "vx_mac_addr_set", "0", "02-00-5E-10-00-01"))
        self.assertIn("02:00:5e:10:00:01", self.ok("call", "vx_mac_addr_get", "0"))
        for address in ("02:00:5e:10:00", "2:0:5e:10:0:1:7", "zz:00:00:00:00:00"):
            self.refused(USAGE, "is not a MAC address, such as 00:11:22:33:44:55", "call", "vx_mac_addr_set", "0", address)
        method = "lmq_delete_dev_ip_addr"
        for given, selected, place, sent, shown in (
                ("192.0.2.1", 0, "v4", {"s_addr": 0xc0000201 - (1 << 32)}, "192.0.2.1"),
                ("2001:DB8::1", 1, "v6", {"in6_u": {"u6_addr8": [0x20, 1, 0xd, 0xb8] + [0] * 11 + [1]}}, "2001:db8::1")):
            request = self.request(method, "0", given)
            self.assertIn({place: sent}, request[1].values(), given)
            self.assertIn(selected, request[1].values(), given)
            self.assertIn(shown, self.run_ctl("call", method, "0", given)[1])
            # As a member, and as a number.
            self.assertEqual(self.request(method, "0", f"p_ip_addr.addr.{place}={given}")[1]["addr"], {place: sent})
        self.assertEqual(self.request(method, "0", "p_ip_addr.addr.v4=0x7f000001")[1]["addr"], {"v4": {"s_addr": 0x7f000001}})
        for place, example in (("v4", "192.0.2.1"), ("v6", "2001:db8::1")):
            self.refused(USAGE, f"such as {example}", "call", method, "0", f"p_ip_addr.addr.{place}=1.2.3")
        self.refused(USAGE, "the alternatives: v4, v6", "call", method, "0", "p_ip_addr.addr=1.2.3")

    def test_force_and_count(self):
        self.assertEqual(len(self.request("--force", "lmq_init_system", '{"dev_cfg": [{}, {}]}')[0]["dev_cfg"]), 2)
        self.assertEqual(self.request("--force", "vx_watchdog_get", "256"), [256, {}])
        self.assertEqual(self.request("--count", "3", "vx_watchdog_get", "0"), [0, [{}, {}, {}]])

    def test_colours(self):
        """Colours on a terminal alone, and not where they are refused."""
        def on_terminal(*words, **variables):
            ours, theirs = pty.openpty()
            with os.fdopen(ours, "rb") as reader:
                subprocess.run([os.environ["LMQ_CTL"], *words, "describe", "vx_watchdog_cfg_t"], stdout=theirs, check=True,
                               env=dict(self.environment, **variables))
                os.close(theirs)
                return os.read(reader.fileno(), 4096)

        self.assertIn(b"\033[1m", on_terminal(NO_COLOR=""))
        for printed in (on_terminal(NO_COLOR="1"), on_terminal("--no-color", NO_COLOR=""), on_terminal("--json", NO_COLOR="")):
            self.assertNotIn(b"\033", printed)
        self.assertNotIn("\033", self.ok("describe", "vx_watchdog_cfg_t"))

    def test_cache(self):
        """A damaged cache is fetched anew, and a folder that cannot be written is no error."""
        for file in (self.folder / "lmqctl").glob("*.dict"):
            file.write_text(file.read_text()[:1000])
        self.ok("call", "vx_watchdog_get", "0")
        self.ok("call", "vx_watchdog_get", "0", XDG_CACHE_HOME="/proc/nowhere")
        # It is fetched once.
        for home, fetches in ((self.folder / "new", True), (self.folder / "new", False), ("/proc/nowhere", True)):
            errors = self.run_ctl("-v", "call", "vx_watchdog_get", "0", XDG_CACHE_HOME=str(home))[2]
            self.assertEqual("fetching the dictionary" in errors, fetches, errors)
            self.assertEqual("the dictionary is not kept" in errors, home == "/proc/nowhere", errors)
        # What the host tells otherwise than the cache is noticed.
        for file in (self.folder / "lmqctl").glob("*.dict"):
            file.write_text(file.read_text().replace('"wd_timer"', '"wd_tymer"'))
        self.assertEqual(self.request("vx_watchdog_set", "0", "p_cfg.wd_timer=1")[1]["wd_timer"], 1)

        # A list is of the methods that there are, whichever were there before.
        for file in (self.folder / "lmqctl").glob("*.dict"):
            file.write_text("".join(line for line in file.read_text().splitlines(True)
                                    if not line.startswith("M\tvx_watchdog_get\t")))
        self.assertIn("vx_watchdog_get", self.ok("list", "vx_watchdog_*"))

    def test_output_that_cannot_be_written(self):
        full = open("/dev/full", "w")
        self.addCleanup(full.close)
        for words in (["list"], ["--json", "call", "vx_watchdog_get", "0"], ["template", "vx_watchdog_set"],
                      ["completion", "bash"], ["--help"], ["watch", "--samples", "3", "vx_watchdog_get 0"]):
            run = subprocess.run([os.environ["LMQ_CTL"], *words], stdout=full, stderr=subprocess.PIPE, text=True,
                                 env=self.environment)
            self.assertEqual((run.returncode, run.stderr),
                             (OUTPUT, "lmqctl: cannot write to standard output: No space left on device\n"), words)
        # A closed standard output is no place for the connection.
        for closed in (">&-", ">&- <&-", ">&- 2>&-"):
            run = subprocess.run(f"{os.environ['LMQ_CTL']} call vx_watchdog_get 0 {closed}", shell=True, text=True,
                                 stderr=subprocess.PIPE, env=self.environment)
            self.assertEqual(run.returncode, OUTPUT, closed)

    def test_closed_pipe(self):
        run = subprocess.run(f"{os.environ['LMQ_CTL']} list | head -1", shell=True, capture_output=True, text=True,
                             env=self.environment)
        self.assertEqual((run.returncode, run.stderr, run.stdout.count("\n")), (OK, "", 1))

    def test_help(self):
        for command in ("list", "describe", "search", "uses", "template", "call", "explain"):
            printed = self.ok(command, "--help")
            self.assertIn(f"Example:\n  lmqctl {command}", printed)
            self.assertLess(printed.count("\n"), 45)


if __name__ == "__main__":
    unittest.main()
