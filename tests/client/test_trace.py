"""lmqctl trace: what a host has kept, shown, counted, and made into scripts that run."""

import json
import os
import pathlib
import re
import subprocess
import sys
import unittest
import xmlrpc.client

from ctl import OK, USAGE, CtlTest

sys.path.insert(0, str(pathlib.Path(__file__).parents[1]))
from hosting import Host  # noqa: E402

ROOT = pathlib.Path(__file__).parents[2]
LIBRARIES = pathlib.Path(os.environ["LMQ_DRIVER"]).parent
FLOW = ({"key_type": 4, "key_s": {"mac_vlan": {"o_vid": 100, "valid": {"mask_s": {"o_vid": 1}}}}}, {})


class Trace(CtlTest):
    """One host makes the trace, and is gone when it is read: with the dictionary in the cache nobody is asked."""

    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()
        cls.file = cls.folder / "calls.trace"
        with Host("--trace", str(cls.file), plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"]) as host:
            lmq = xmlrpc.client.ServerProxy(host.url).lmq
            lmq.lmq_init_system({"num_dev": 1, "dev_cfg": [{"enbl": 1}]})
            lmq.vx_watchdog_set(0, {"wd_timer": 60, "wd_action": 1, "mask_s": {"wd_timer": 1, "wd_action": 1}})
            lmq.vx_watchdog_get(0, {})
            # The first flow is there so that the one that is used has no number that another chip would give it too.
            lmq.vx_flow_us_add(0, 3, *FLOW, 0, 0)
            cls.flow = lmq.vx_flow_us_add(0, 3, {"key_type": 4, "key_s": {"mac_vlan": {"o_vid": 101, "valid": {
                "mask_s": {"o_vid": 1}}}}}, {}, 0, 0)[6]
            lmq.vx_flow_us_map(0, cls.flow, 0, 100)
            lmq.vx_flow_us_get(0, cls.flow, {}, {})
            lmq.vx_flow_us_get(0, 9999, {}, {})
            try:
                lmq.vx_reset(0)
            except xmlrpc.client.Fault:
                pass
            xmlrpc.client.ServerProxy(host.url).system.multicall([
                {"methodName": "lmq.lmq_write_register", "params": [0, 4096, 42]},
                {"methodName": "lmq.lmq_read_register", "params": [0, 4096, 0]}])
            lmq.vx_flow_us_delete(0, cls.flow)
        cls.environment["LMQ_URL"] = "http://127.0.0.1:1/RPC2"

    def lines(self, *words):
        return self.ok("trace", str(self.file), *words).splitlines()

    def names(self, *words):
        """The methods that are shown."""
        return [json.loads(line).get("method", "").removeprefix("lmq.") for line in self.ok("--json", "trace", str(self.file), *words).splitlines()]

    def test_a_line_for_each_call_as_people_write_it(self):
        lines = [re.sub(r"^\S+Z  ", "", line) for line in self.lines()]
        lines = [re.sub(r"  [\d.e+]+ ms$", "", line) for line in lines]
        self.assertRegex(lines[0], r"the driver's process \d+ starts with /")
        self.assertEqual(lines[1:4], [
            "127.0.0.1  lmq_init_system p_cfg.num_dev=1 p_cfg.dev_cfg[0].enbl=1  VX_SUCCESS",
            "127.0.0.1  vx_watchdog_set 0 p_cfg.wd_timer=60 p_cfg.wd_action=VX_WD_ACTION_REBOOT  VX_SUCCESS",
            "127.0.0.1  vx_watchdog_get 0  VX_SUCCESS"])
        self.assertIn("127.0.0.1  vx_flow_us_get 0 9999  VX_ERR_FE_INVALID_FLOW_ID (29952 = 0x7500)", lines)
        self.assertTrue(any("vx_reset 0  fault -509: Input argument size mismatch" in line for line in lines))
        self.assertIn("127.0.0.1  lmq_write_register 0 4096 42  VX_SUCCESS", lines)
        full = self.ok("trace", str(self.file), "vx_watchdog_get", "--full")
        self.assertIn("\n  wd_action               VX_WD_ACTION_REBOOT\n", full)

    def test_chosen(self):
        for words, names in (
                (("*watchdog*",), ["vx_watchdog_set", "vx_watchdog_get"]),
                (("lmq.vx_reset", "*_register"), ["vx_reset", "lmq_write_register", "lmq_read_register"]),
                (("--status", "failed"), ["vx_flow_us_get"]), (("--status", "VX_ERR_FE_*"), ["vx_flow_us_get"]),
                (("--status", "VX_SUCCESS", "lmq_init*"), ["lmq_init_system"]),
                (("--status", "29952"), ["vx_flow_us_get"]), (("--fault",), ["vx_reset"]), (("--fault=-509",), ["vx_reset"]),
                (("--fault=-1",), []), (("--client", "10.*"), []), (("--slower-than", "86400000"), []),
                (("--until", "2001-01-01"), []), (("--since", "2001-01-01T00:00:00Z", "vx_watchdog_get"), ["vx_watchdog_get"]),
                (("--since", "1d", "--until", "0s", "vx_watchdog_get"), ["vx_watchdog_get"])):
            with self.subTest(words):
                self.assertEqual(self.names(*words), names)
        self.refused(USAGE, "--since: expected a time such as", "trace", str(self.file), "--since", "yesterday")
        self.refused(USAGE, "is no trace", "trace", str(ROOT / "README.md"))
        self.refused(USAGE, "No such file", "trace", str(self.folder / "none"))

    def test_for_programs(self):
        call = json.loads(self.ok("--json", "trace", str(self.file), "vx_watchdog_set"))
        self.assertEqual((call["event"], call["status"], call["sent"]["p_cfg"]["wd_timer"], call["http"], call["client"]),
                         ("call", "VX_SUCCESS", 60, 200, "127.0.0.1"))
        self.assertRegex(call["time"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z$")
        stats = {row["method"]: row for row in json.loads(self.ok("--json", "trace", str(self.file), "--stats"))}
        self.assertEqual({name: stats["lmq.vx_flow_us_get"][name] for name in ("calls", "failed", "faults", "died")},
                         {"calls": 2, "failed": 1, "faults": 0, "died": 0})
        self.assertEqual(stats["lmq.vx_reset"]["faults"], 1)
        ms = stats["lmq.vx_flow_us_get"]["ms"]
        self.assertTrue(0 < ms["p50"] <= ms["p99"] == ms["max"])
        self.assertNotIn("ms", stats["lmq.lmq_read_register"])
        self.assertIn("lmq.vx_flow_us_get\n", self.ok("trace", str(self.file), "--stats"))

    def test_without_names(self):
        status, printed, errors = self.run_ctl("trace", str(self.file), XDG_CACHE_HOME=str(self.folder / "empty"))
        self.assertEqual(status, OK)
        self.assertIn("numbers have no names", errors)
        self.assertIn("lmq.vx_watchdog_get 0 {}  [0,", printed)
        call = json.loads(self.run_ctl("--json", "trace", str(self.file), "*watchdog_get", XDG_CACHE_HOME=str(self.folder / "empty"))[1])
        self.assertEqual((call["result"][0], call["result"][2]["wd_timer"]), (0, 60))
        kept = str(next((self.folder / "lmqctl").glob("*.dict")))
        self.assertIn("vx_watchdog_get 0  VX_SUCCESS", self.ok("trace", str(self.file), "--interface", kept, XDG_CACHE_HOME=str(self.folder / "empty")))
        self.refused(USAGE, "nor a dictionary", "trace", str(self.file), "--interface", str(ROOT / "README.md"))

    def test_a_description_of_the_interface_gives_the_same_names(self):
        empty = {"XDG_CACHE_HOME": str(self.folder / "empty")}
        # Not --as c: a description knows types by names that the dictionary of a host has not.
        for words in ((), ("--full",), ("--json",), ("--stats",), ("--status", "VX_ERR*"), ("--as", "python"),
                      ("--as", "batch")):
            with self.subTest(words):
                known = self.ok("trace", str(self.file), *words)
                self.assertEqual(self.ok("trace", str(self.file), *words, "--interface", os.environ["LMQ_INTERFACE"], **empty), known)
        damaged = self.folder / "damaged.json"
        interface = json.loads(pathlib.Path(os.environ["LMQ_INTERFACE"]).read_text())
        for damage in ({"methods": {}, "structs": {}}, {"typedefs": {"vx_port_id_t": {"type": "vx_port_id_t"}}}, {"enums": {"vx_status_e": 1}},
                       {"structs": {"one": {"brief": "", "members": [{"name": "one", "type": "one"}]}}}):
            damaged.write_text(json.dumps({**interface, **damage} if len(damage) == 1 else damage))
            with self.subTest(damage):
                self.refused(USAGE, "is neither", "trace", str(self.file), "--interface", str(damaged), **empty)

    def test_a_torn_end_is_told(self):
        torn = self.folder / "torn.trace"
        torn.write_bytes(self.file.read_bytes()[:-3])
        status, printed, errors = self.run_ctl("trace", str(torn))
        self.assertEqual((status, printed.splitlines()), (OK, self.lines()[:-1]))
        self.assertIn(f"the end of the trace '{torn}' is torn", errors)

    def test_scripts_run_on_a_chip_that_gives_out_other_ids(self):
        # All but the first flow: on a new chip the second one gets its number.
        chosen = ("lmq_init_system", "*watchdog*", "*flow_us_map", "*flow_us_get", "*flow_us_delete", "*_register", "*flow_us_add")
        script = self.ok("trace", str(self.file), *chosen, "--as", "batch")
        self.assertIn(" -> p_flow_id as flow1\n", script)
        self.assertIn("vx_flow_us_map 0 $flow1 0 100\n", script)
        self.assertIn("vx_flow_us_get 0 9999\n", script)
        self.assertEqual(len(script.splitlines()), 12)
        program = self.folder / "again.c"
        program.write_text(self.ok("trace", str(self.file), *chosen, "--as", "c"))
        built = subprocess.run(["cc", "-Wall", "-Wextra", "-Werror", "-I", ROOT / "include", program, os.environ["LMQ_DRIVER"],
                                f"-Wl,-rpath,{LIBRARIES}", "-o", self.folder / "again"], capture_output=True, text=True)
        self.assertEqual(built.returncode, 0, built.stderr)
        printed = subprocess.run([self.folder / "again"], capture_output=True, text=True, check=True, env=self.environment).stdout
        found = re.findall(r"(\w+): (-?\d+)\n", printed)
        self.assertEqual(found[-3:], [("lmq_write_register", "0"), ("lmq_read_register", "0"), ("vx_flow_us_delete", "0")])
        self.assertEqual([status for name, status in found if name == "vx_flow_us_get"], ["0", "29952"])
        with Host(plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"]) as host:
            lmq = xmlrpc.client.ServerProxy(host.url).lmq
            lmq.lmq_init_system({"num_dev": 1, "dev_cfg": [{"enbl": 1}]})
            for vid in (200, 201, 202):  # flows that the recorded chip did not have
                lmq.vx_flow_us_add(0, 3, {"key_type": 4, "key_s": {"mac_vlan": {"o_vid": vid, "valid": {"mask_s": {"o_vid": 1}}}}}, {}, 0, 0)
            python = self.ok("--url", host.url, "trace", str(self.file), *chosen[1:], "--as", "python")
            done = subprocess.run([sys.executable, "-c", python], capture_output=True, text=True)
            self.assertEqual((done.returncode, done.stderr), (0, ""))
            answers = re.findall(r"^lmq\.(\w+) \[(\d+), ([^\]]*)", done.stdout, re.M)
            self.assertEqual([status for _, status, _ in answers], ["0"] * 6 + ["29952"] + ["0"] * 3)
            flow = int(next(rest for name, _, rest in reversed(answers) if name == "vx_flow_us_map").split(", ")[1])
            self.assertNotEqual(flow, self.flow)
            # The first flow alone is left of those in the script.
            self.assertEqual(lmq.vx_flow_us_get(0, flow, {}, {})[0], 29952)

    def test_it_goes_on_with_what_comes(self):
        file = self.folder / "growing.trace"
        with Host("--trace", str(file), "--trace-limit", "4KB", plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"]) as host:
            lmq = xmlrpc.client.ServerProxy(host.url).lmq
            with subprocess.Popen([os.environ["LMQ_CTL"], "trace", file, "--follow", "*_register"], stdout=subprocess.PIPE,
                                  text=True, env=self.environment) as follower:
                # Slow enough to see each file: some 13 calls fill one.
                for number in range(40):
                    lmq.lmq_write_register(0, 4096, number)
                    self.assertIn(f"lmq_write_register 0 4096 {number}  ", follower.stdout.readline())
                follower.send_signal(2)
                self.assertEqual(follower.wait(20), 0)
            self.assertTrue(pathlib.Path(f"{file}.1").exists())


if __name__ == "__main__":
    unittest.main()
