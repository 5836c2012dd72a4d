"""Lines of a batch that know of each other: what is kept, expected and waited for; reports; programs."""

import json
import os
import pathlib
import re
import subprocess
import unittest
import xml.etree.ElementTree

from ctl import DRIVER, FAULT, OK, USAGE, CtlTest

FLOW = "vx_flow_us_add 0 3 p_key.key_s.mac_vlan.o_vid={} p_action={{}} priority=0 -> p_flow_id"


class Script(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def batch(self, *lines, status=OK, options=(), **variables):
        got, printed, errors = self.run_ctl("batch", *options, "-", stdin="\n".join(lines) + "\n", **variables)
        self.assertEqual((got, errors), (status, ""), printed)
        return printed.splitlines()

    def test_kept_values(self):
        printed = self.batch(FLOW.format(11) + " as first", FLOW.format(12) + " as second", "vx_flow_us_get 0 $second {} {}",
                             "vx_flow_us_map 0 ${first} 0 100", options=["--answers"])
        first, second = (int(re.search(r"p_flow_id +(\d+)", line)[1]) for line in printed if line.startswith("p_flow_id"))
        self.assertNotEqual(first, second)
        flows = [line.split()[-1] for line in printed if line.startswith("flow_id ")]
        self.assertEqual(flows, [str(second), str(first)])
        # A member, in JSON and beside other text; a whole struct; a dollar sign that is none of a name.
        printed = self.batch("vx_watchdog_set 0 p_cfg.wd_timer=77", "vx_watchdog_get 0 -> p_cfg.wd_timer -> p_cfg as whole",
                             """vx_watchdog_set 0 '{"wd_timer": $wd_timer, "wd_enable": "$wd_timer"}'""")
        self.assertEqual(printed[1], '2: vx_watchdog_get 0 -> p_cfg.wd_timer -> p_cfg as whole  VX_SUCCESS, wd_timer = 77, whole = '
                         '{"wd_enable":0,"wd_timer":77,"wd_action":0,"mask_s":{"wd_enable":1,"wd_timer":1,"wd_action":1,"reserved":0}}')
        told = json.loads("\n".join(self.batch(
            "vx_watchdog_set 0 p_cfg.wd_timer=0xfffffff0", "vx_watchdog_get 0 -> wd_timer as t", "vx_watchdog_set 0 p_cfg.wd_timer=$t",
            "vx_watchdog_get 0 -> p_cfg", "vx_watchdog_set 0 $p_cfg",
            "vx_gpon_onu_port_config_set 0 0 p_cfg.passwd=a$$b", options=["--json"])))
        self.assertEqual(told[1]["kept"], {"t": 0xfffffff0})
        self.assertEqual((told[2]["arguments"]["p_cfg"]["wd_timer"], told[4]["arguments"]["p_cfg"]), (0xfffffff0, told[3]["kept"]["p_cfg"]))
        self.assertEqual(told[5]["arguments"]["p_cfg"]["passwd"][:4], [*b"a$b", 0])

    def test_a_value_that_was_not_kept(self):
        printed = self.batch("vx_watchdog_get 9 -> p_cfg.wd_timer as t", "vx_watchdog_set 0 p_cfg.wd_timer=$t",
                             "vx_watchdog_get 0", status=DRIVER)
        self.assertEqual(printed[2], "not made: $t has no value, as its line did not succeed")
        self.assertEqual(printed[-1], "2 calls: 1 succeeded, 1 driver failure, 0 faults; 1 not made")
        # Nor one that does not fit where it is used.
        printed = self.batch("vx_watchdog_set 0 p_cfg.wd_timer=300", "vx_watchdog_get 0 -> wd_timer", "vx_watchdog_get $wd_timer",
                             status=USAGE)
        self.assertIn("dev_id: 300 is not a whole number of 8 bits", printed[3])

    def test_expectations(self):
        printed = self.batch("expect VX_ERR_DEV_ID_INVALID: vx_watchdog_get 9", "expect 0: vx_watchdog_get 0",
                             "expect fault -509: lmq.UDTMalloc", "expect fault: lmq.UDTMalloc")
        self.assertEqual(printed[-1], "4 calls: 4 succeeded, 0 driver failures, 0 faults")
        for line, status, said in (
                ("expect VX_ERR_DEV_BUSY: vx_watchdog_get 9", DRIVER, "VX_ERR_DEV_ID_INVALID (28928 = 0x7100), expected VX_ERR_DEV_BUSY"),
                ("expect VX_ERR_DEV_BUSY: vx_watchdog_get 0", DRIVER, "VX_SUCCESS, expected VX_ERR_DEV_BUSY"),
                ("expect fault -1: lmq.UDTMalloc", FAULT, "expected fault -1"), ("expect fault: vx_watchdog_get 0", DRIVER, "expected fault"),
                ("expect 0: lmq.UDTMalloc", FAULT, "expected 0")):
            printed = self.batch(line, status=status)
            self.assertIn(said, " ".join(printed))
            self.assertTrue(printed[-1].endswith("0 faults, 1 not as expected"), printed)
        # --stop ends with what is not as expected, and goes on behind an expected failure.
        printed = self.batch("expect VX_ERR_DEV_ID_INVALID: vx_watchdog_get 9", "expect VX_ERR_DEV_BUSY: vx_watchdog_get 0",
                             "vx_watchdog_get 0", status=DRIVER, options=["--stop"])
        self.assertTrue(printed[-1].endswith("1 not as expected; 1 not made"), printed)

    def test_waiting(self):
        printed = self.batch("vx_gpon_onu_port_enable_set 0 0 1",
                             "wait vx_gpon_onu_port_config_get 0 0 {} until onu_state=VX_GPON_STATE_OPERATION within 1m -> p_cfg.onu_id",
                             "vx_watchdog_set 0 p_cfg.wd_timer=4294967295",
                             "wait vx_watchdog_get 0 until p_cfg.wd_timer=0xffffffff within 0s")
        self.assertRegex(printed[1], r"VX_SUCCESS, onu_id = \d+$")
        printed = self.batch("wait vx_watchdog_get 0 until wd_timer=3 within 200ms",
                             "wait vx_watchdog_get 9 until wd_timer=3 within 0s", status=DRIVER)
        self.assertIn("p_cfg.wd_timer is still 4294967295", printed[0])
        self.assertIn("no success until the end of the time", printed[1])

    def test_wrong_lines(self):
        """They are found before anything is sent."""
        self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=5")
        for line, message in (
                ("vx_watchdog_set $timr {}", "no line before this one keeps $timr; did you mean timer? ($$ is a dollar sign)"),
                ("vx_watchdog_get 0 -> p_cfg.nobody", "has no member p_cfg.nobody"),
                ("vx_watchdog_get 0 -> nobody", "has no member nobody"), ("vx_watchdog_get 0 -> p_cfg as 1x", "1x is no name"),
                ("vx_watchdog_get 0 -> p_cfg with x", "OUTPUT as NAME"), ("-> p_cfg", "no call in front of ->"),
                ("vx_flow_us_get 0 1 {} {} -> o_vid", "has several members o_vid; there are p_key.key_s."),
                ("expect VX_ERR_DEV_BUSSY: vx_watchdog_get 0", "nothing that vx_watchdog_get answers with; did you mean VX_ERR_DEV_BUSY"),
                ("expect VX_SUCCESS vx_watchdog_get 0", "expected expect STATUS:"), ("wait vx_watchdog_get 0 until x=1", "within TIME"),
                ("wait vx_watchdog_get 0 until wd_timer=x within 1s", "wd_timer: x is not"),
                ("wait vx_watchdog_get 0 until wd_timer=1 within 5 s", "within TIME"),
                ("wait vx_watchdog_get 0 until wd_timer=1 within 5", "such as 5s, 500ms or 2m, not 5"),
                ("expect 0: wait vx_watchdog_get 0 until wd_timer=1 within 5s", "do not go together"),
                ("vx_watchdog_get 0 ${timer", "${ without its }"), ("vx_watchdog_get 0 --forse", "did you mean --force"),
                ("vx_watchdog_get 0 --count x=2", "has no argument x")):
            lines = "vx_watchdog_set 0 p_cfg.wd_timer=6\nvx_watchdog_get 0 -> wd_timer as timer\n" + line
            self.refused(USAGE, message, "batch", "-", stdin=lines)
            self.refused(USAGE, "-, line 3: ", "batch", "-", stdin=lines)
        self.assertRegex(self.ok("call", "vx_watchdog_get", "0"), r"wd_timer +5\n")

    def test_counts(self):
        def told(*words, line):
            return json.loads(self.ok("--json", "batch", *words, "-", stdin=line))[0]["arguments"]
        self.assertEqual(len(told(line="lmq_get_bridge_config_all 0 --count p_cfg=5")["p_cfg"]), 5)
        self.assertEqual(len(told("--count", "p_cfg=6", line="lmq_get_bridge_config_all 0")["p_cfg"]), 6)
        self.refused(USAGE, "--count: no call has an argument p_cgf; did you mean p_cfg", "batch", "--count", "p_cgf=1", "-",
                     stdin="vx_watchdog_get 0")

    def test_junit(self):
        path = self.folder / "report.xml"
        self.batch("vx_watchdog_get 0", "vx_watchdog_get 9 -> wd_timer", "expect 0: lmq.UDTMalloc", "lmq.UDTMalloc",
                   "vx_watchdog_set 0 p_cfg.wd_timer=$wd_timer", "vx_gpon_onu_port_config_set 0 0 'p_cfg.passwd=<&\">'",
                   status=FAULT, options=["--junit", str(path)])
        suite = xml.etree.ElementTree.parse(path).getroot()
        self.assertEqual([suite.get(name) for name in ("tests", "failures", "errors", "skipped")], ["6", "2", "1", "1"])
        cases = list(suite)
        self.assertEqual([[child.tag for child in case] for case in cases], [[], ["failure"], ["failure"], ["error"], ["skipped"], []])
        self.assertEqual(cases[5].get("name"), "6: vx_gpon_onu_port_config_set 0 0 'p_cfg.passwd=<&\">'")
        self.assertIn("VX_ERR_DEV_ID_INVALID", cases[1][0].get("message"))
        self.assertIn("dev_id", cases[1][0].text)
        self.assertIn("expected 0, not fault -509", cases[2][0].get("message"))
        # What --stop or a host that is not there leaves out is in the report too.
        self.batch("vx_watchdog_get 9", "vx_watchdog_get 0", status=DRIVER, options=["--stop", "--junit", str(path)])
        self.assertEqual(xml.etree.ElementTree.parse(path).getroot().get("skipped"), "1")
        self.refused(USAGE, "cannot write /none/file", "batch", "--junit", "/none/file", "-", stdin="vx_watchdog_get 0")

    LINES = (
        "vx_gpon_onu_port_enable_set 0 0 1",
        "wait vx_gpon_onu_port_config_get 0 0 {} until onu_state=VX_GPON_STATE_OPERATION within 60s -> p_cfg.onu_id as onu",
        FLOW.format(321) + " as flow  # this */ is /* a comment",
        "vx_flow_us_get 0 $flow {} {} -> p_key.key_s.mac_vlan.o_vid as vid", "vx_watchdog_set 0 p_cfg.wd_timer=$vid",
        "wait vx_watchdog_get 0 until wd_timer=$vid within 0s -> p_cfg as whole", "vx_watchdog_set 0 $whole",
        """vx_watchdog_set 0 '{"wd_timer": $vid}'""", "expect VX_ERR_DEV_ID_INVALID: vx_watchdog_get 9")
    WRONG = ("expect VX_ERR_DEV_BUSY: vx_watchdog_get 0", "wait vx_watchdog_get 0 until wd_timer=7 within 100ms")

    def test_as_python(self):
        for lines, status, said in ((self.LINES, OK, "9: expect VX_ERR_DEV_ID_INVALID: vx_watchdog_get 9  28928\n"),
                                    (self.WRONG, 1, "wd_timer=7 within 100ms  321, which is not as it should be\n"),
                                    (("expect fault -509: lmq.UDTMalloc",), OK, "fault -509"), (("lmq.UDTMalloc",), 1, "fault -509")):
            code = "\n".join(self.batch(*lines, options=["--as", "python"]))
            ran = subprocess.run(["python3", "-c", code], capture_output=True, text=True)
            self.assertEqual((ran.returncode, ran.stderr), (status, ""), code)
            self.assertIn(said, ran.stdout)

    def test_as_c(self):
        """The program links with the driver, and does what the lines do."""
        driver = pathlib.Path(os.environ["LMQ_DRIVER"])
        include = pathlib.Path(__file__).parents[2] / "include"
        init = "lmq_init_system p_cfg.num_dev=1 p_cfg.dev_cfg[0].enbl=1"
        for lines, status, said in ((self.LINES, OK, "10: vx_watchdog_get  28928\n"),
                                    (self.LINES + self.WRONG, 1, "11: vx_watchdog_get  0, which is not as it should be\n")):
            source, program = self.folder / "calls.c", self.folder / "calls"
            source.write_text("\n".join(self.batch(init, *lines, options=["--as", "c"])))
            built = subprocess.run(["cc", "-std=c11", "-Wall", "-Wextra", "-Werror", f"-I{include}", "-o", program, source, driver,
                                    f"-Wl,-rpath,{driver.parent}"], capture_output=True, text=True)
            # What the linker thinks of the runtime of the sanitizers, where the driver was built with them, and that the
            # program was not.
            complaints = re.sub(r"^.*ld: .*/lib[a-z]+san\.so.*\n", "", built.stderr, flags=re.MULTILINE)
            self.assertEqual((built.returncode, complaints), (0, ""), source.read_text())
            ran = subprocess.run([program], capture_output=True, text=True,
                                 env={**os.environ, "ASAN_OPTIONS": "detect_leaks=0:verify_asan_link_order=0"})
            self.assertEqual(ran.returncode, status, ran.stdout + ran.stderr)
            self.assertIn(said, ran.stdout)
        for line, message in (("system.listMethods", "no function of the driver"), ("expect fault: vx_watchdog_get 0", "no fault"),
                              ("vx_watchdog_get 0 -> wd_timer as n\nvx_i2c_read 0 0x50 0 $n", "C cannot make room for"),
                              ("vx_mac_addr_get 0 -> p_mac_addr\nvx_mac_addr_set 0 $p_mac_addr", "C cannot keep p_mac_addr, which is a MAC address")):
            self.refused(USAGE, message, "batch", "--as", "c", "-", stdin=line)


if __name__ == "__main__":
    unittest.main()
