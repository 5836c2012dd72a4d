"""The commands of lmqctl that make many calls: batch, watch, snapshot and diff."""

import csv
import io
import json
import os
import pathlib
import pty
import re
import signal
import subprocess
import unittest

from ctl import CONNECTION, DRIVER, FAULT, OK, OUTPUT, USAGE, CtlTest

DOWN = "http://127.0.0.1:1/RPC2"


class ManyTest(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def file(self, name, text):
        path = self.folder / name
        path.write_text(text)
        return str(path)


class Batch(ManyTest):
    def test_lines(self):
        calls = self.file("calls", "# the watchdog\nvx_watchdog_set 0 p_cfg.wd_timer=30 # seconds\n\n"
                          "vx_watchdog_set 0 '{\"wd_action\": \"VX_WD_ACTION_REBOOT\"}'\nvx_watchdog_get 0\n")
        printed = self.ok("batch", calls)
        self.assertEqual(printed.splitlines()[0], "2: vx_watchdog_set 0 p_cfg.wd_timer=30  VX_SUCCESS")
        self.assertEqual(printed.splitlines()[-1], "3 calls: 3 succeeded, 0 driver failures, 0 faults")
        self.assertRegex(self.ok("batch", "--answers", calls), r"wd_timer +30\n +wd_action +VX_WD_ACTION_REBOOT\n")
        self.assertEqual(self.ok("batch", "-", stdin="# nothing\n"), "0 calls: 0 succeeded, 0 driver failures, 0 faults\n")

    def test_json_in_and_out(self):
        calls = json.dumps([["vx_watchdog_get", 0], {"method": "lmq.vx_watchdog_get", "arguments": {"dev_id": 99}}])
        status, printed, errors = self.run_ctl("--json", "batch", "-", stdin=calls)
        self.assertEqual((status, errors), (DRIVER, ""))
        first, second = json.loads(printed)
        self.assertEqual((first["line"], first["status"], second["line"], second["status"]),
                         (1, "VX_SUCCESS", 2, "VX_ERR_DEV_ID_INVALID"))

    def test_failures_and_more_than_a_packet(self):
        status, printed, _ = self.run_ctl("batch", "-", stdin="vx_watchdog_get 0\n" * 150 + "vx_watchdog_get 9\n")
        self.assertEqual((status, printed.splitlines()[-1]),
                         (DRIVER, "151 calls: 150 succeeded, 1 driver failure, 0 faults"))
        status, printed, _ = self.run_ctl("batch", "--stop", "-", stdin="vx_watchdog_get 9\nvx_watchdog_get 0\n")
        self.assertEqual((status, printed.splitlines()[-1]),
                         (DRIVER, "1 call: 0 succeeded, 1 driver failure, 0 faults; 1 not made"))
        # A fault weighs more than a failure. system.methodHelp is described by nothing but its letters.
        status, printed, _ = self.run_ctl("batch", "-", stdin="vx_watchdog_get 9\nsystem.methodHelp none\n")
        self.assertEqual(status, FAULT)
        self.assertIn("fault -", printed)

    def test_nothing_is_sent_if_a_line_is_wrong(self):
        self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=5")
        for line, message in (("vx_watchdog_gt 0", "did you mean vx_watchdog_get"), ("vx_watchdog_get 'x", "not closed"),
                              ("vx_watchdog_set 0 p_cfg.wd_timr=1", "wd_timer")):
            self.refused(USAGE, message, "batch", "-", stdin=f"vx_watchdog_set 0 p_cfg.wd_timer=6\n{line}\n")
            self.refused(USAGE, "-, line 2: ", "batch", "-", stdin=f"vx_watchdog_set 0 p_cfg.wd_timer=6\n{line}\n")
        self.assertRegex(self.ok("call", "vx_watchdog_get", "0"), r"wd_timer +5\n")
        self.refused(USAGE, "-: broken JSON", "batch", "-", stdin="[1,")
        self.refused(USAGE, "a call is {", "batch", "-", stdin='[{"name": 1}]')
        self.refused(USAGE, "cannot read /none: No such file", "batch", "/none")
        self.refused(USAGE, "cannot read /: Is a directory", "batch", "/")
        self.refused(CONNECTION, "127.0.0.1:1", "--url", DOWN, "batch", "-", stdin="vx_watchdog_get 0\n")

    def test_progress_is_for_a_terminal(self):
        self.assertEqual(self.run_ctl("batch", "-", stdin="vx_watchdog_get 0\n")[2], "")
        ours, theirs = pty.openpty()
        subprocess.run([os.environ["LMQ_CTL"], "batch", "-"], input=b"vx_watchdog_get 0\n" * 3, stderr=theirs,
                       stdout=subprocess.DEVNULL, env=self.environment, check=True)
        os.close(theirs)
        shown = b""
        while b"] 3 of 3" not in shown:  # until there is no more to read, which is an error
            shown += os.read(ours, 10000)
        os.close(ours)


class Watch(ManyTest):
    COUNTERS = "vx_eth_port_stats_get 0 4 clear=0"

    def test_csv(self):
        printed = self.ok("watch", "--samples", "3", "--every", "0.05", self.COUNTERS)
        rows = list(csv.DictReader(io.StringIO(printed)))
        self.assertEqual(len(rows), 3)
        self.assertRegex(rows[0]["time"], r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z$")
        self.assertEqual((rows[0]["p_stats.rx_pkts/s"], rows[1]["p_stats.rx_pkts/s"]), ("", "0"))
        told = [json.loads(line) for line in
                self.ok("--json", "watch", "--samples", "2", "--every", "0.05", self.COUNTERS).splitlines()]
        self.assertEqual([one["readings"]["p_stats.rx_pkts"]["rate"] for one in told], [None, 0])
        # Two calls are told apart by what was typed.
        printed = self.ok("watch", "--samples", "1", "vx_watchdog_get 0", self.COUNTERS)
        self.assertIn(",vx_watchdog_get 0 p_cfg.wd_timer,", printed)
        self.assertIn(f",{self.COUNTERS} p_stats.rx_pkts/s", printed)

    def test_failed_calls_have_no_numbers(self):
        """Neither zeros nor fewer columns: the next call's numbers stay in their places."""
        calls = ["vx_watchdog_get 9", "lmq.UDTMalloc", 'vx_eth_port_stats_get 0 4 {"rx_pkts": "0"} clear=0']
        words = ["watch", "--samples", "1", *calls[:2], calls[2].replace("{", "'{").replace("}", "}'")]
        status, printed, errors = self.run_ctl(*words)
        self.assertEqual((status, errors.count("\n")), (FAULT, 2))
        self.assertIn("vx_watchdog_get 9: VX_ERR_DEV_ID_INVALID", errors)
        (row,) = csv.DictReader(io.StringIO(printed))
        self.assertNotIn(None, row)
        self.assertEqual((row[calls[0] + " p_cfg.wd_timer"], row[calls[2] + " p_stats.rx_pkts"]), ("", "0"))
        told = json.loads(self.run_ctl("--json", *words)[1])["readings"]
        self.assertEqual(told[calls[0] + " p_cfg.wd_timer"], {"value": None, "rate": None})
        self.assertEqual(told[calls[2] + " p_stats.rx_pkts"], {"value": 0, "rate": None})

    def test_failure_between_two_samples(self):
        process = subprocess.Popen([os.environ["LMQ_CTL"], "watch", "--every", "0.3", "--samples", "100", "vx_watchdog_get 0"],
                                   env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.addCleanup(process.stdout.close)
        self.addCleanup(process.wait)
        self.addCleanup(process.terminate)
        at = process.stdout.readline().split(",").index("p_cfg.wd_timer")

        def first(has_value):
            """The rate in the first row whose call succeeded, or failed."""
            for line in process.stdout:
                value, rate = line.rstrip("\n").split(",")[at:at + 2]
                if bool(value) == has_value:
                    return rate
            return "no such row"

        self.assertEqual(first(has_value=True), "")
        self.assertNotEqual(first(has_value=True), "")
        self.ok("call", "lmq_shutdown_system")
        self.assertEqual(first(has_value=False), "")
        self.start_chip()
        # There is nothing to compare it with.
        self.assertEqual(first(has_value=True), "")
        self.assertNotEqual(first(has_value=True), "")

    def rate_of(self, *values):
        """The rates of wd_timer, an unsigned 32-bit number, while it takes these values, times the seconds between."""
        process = subprocess.Popen([os.environ["LMQ_CTL"], "watch", "--every", "0.3", "--samples", str(len(values)),
                                    "vx_watchdog_get 0"], env=self.environment, stdout=subprocess.PIPE, text=True)
        process.stdout.readline()
        rows = []
        for value in (*values[1:], None):
            rows.append(process.stdout.readline().rstrip("\n").split(","))
            if value is not None:
                self.ok("call", "vx_watchdog_set", "0", f"p_cfg.wd_timer={value}")
        process.stdout.close()
        self.assertEqual(process.wait(), OK)
        return rows

    def test_wrap_and_clearing(self):
        header = self.ok("watch", "--samples", "1", "vx_watchdog_get 0").splitlines()[0].split(",")
        at = header.index("p_cfg.wd_timer")
        self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=0xfffffff0")
        rows = self.rate_of(0xfffffff0, 16, 7)
        self.assertEqual([row[at] for row in rows], ["4294967280", "16", "7"])
        # 32 over the end of the range; then set back, and 7 since: never a negative rate nor one of billions.
        wrapped, cleared = float(rows[1][at + 1]), float(rows[2][at + 1])
        self.assertAlmostEqual(wrapped / cleared, 32 / 7, delta=3)
        self.assertTrue(0 < cleared < wrapped < 1000, rows)

    def test_table_on_a_terminal(self):
        ours, theirs = pty.openpty()
        process = subprocess.Popen([os.environ["LMQ_CTL"], "watch", "--full", "--every", "0.05", "vx_watchdog_get 0"],
                                   stdout=theirs, env=self.environment)
        os.close(theirs)
        shown = b""
        while shown.count(b"wd_timer") < 2:
            shown += os.read(ours, 10000)
        process.send_signal(signal.SIGINT)
        self.assertEqual(process.wait(20), OK)
        while b"\x1b[?25h" not in shown:  # the cursor is back
            shown += os.read(ours, 10000)
        os.close(ours)
        self.assertIn(b"\x1b[?25l", shown)

    def test_wrong_use(self):
        self.refused(USAGE, "unknown method", "watch", "none")
        self.refused(USAGE, "--every", "watch", "--every", "0", self.COUNTERS)
        self.refused(USAGE, "--samples: Value -1 not in range", "watch", "--samples", "-1", self.COUNTERS)
        status, _, errors = self.run_ctl("watch", "--samples", "1", "vx_watchdog_get 9")
        self.assertEqual(status, DRIVER)
        self.assertIn("VX_ERR_DEV_ID_INVALID", errors)
        self.refused(CONNECTION, "127.0.0.1:1", "--url", DOWN, "watch", self.COUNTERS)
        process = subprocess.Popen([os.environ["LMQ_CTL"], "watch", "--every", "0.01", "vx_watchdog_get 0"],
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=self.environment)
        process.stdout.readline()
        process.stdout.close()
        with process.stderr:
            self.assertEqual((process.wait(20), process.stderr.read()), (-signal.SIGPIPE, b""))


class Snapshot(ManyTest):
    def test_snapshot_and_diff(self):
        self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=30", "p_cfg.wd_action=VX_WD_ACTION_WARNING")
        before, after = str(self.folder / "before.json"), str(self.folder / "after.json")
        printed = self.ok("snapshot", before)
        calls, answered = re.fullmatch(r".*: (\d+) calls, (\d+) answered with success\n", printed).groups()
        self.assertGreater(int(answered), 50)
        answers = json.loads((self.folder / "before.json").read_text())["answers"]
        self.assertEqual(len(answers), int(calls))
        self.assertEqual(answers["lmq.vx_watchdog_get(0)"]["arguments"]["p_cfg"]["wd_action"], "VX_WD_ACTION_WARNING")
        self.assertEqual(self.run_ctl("diff", before), (OK, "", ""))

        self.ok("call", "vx_watchdog_set", "0", "p_cfg.wd_timer=60", "p_cfg.wd_action=VX_WD_ACTION_REBOOT")
        changed = ("lmq.vx_watchdog_get(0).p_cfg.wd_timer: 30 -> 60\n"
                   "lmq.vx_watchdog_get(0).p_cfg.wd_action: VX_WD_ACTION_WARNING -> VX_WD_ACTION_REBOOT\n")
        self.assertEqual(self.run_ctl("diff", before), (DRIVER, changed, ""))
        self.ok("snapshot", after)
        # Two files need no host.
        self.assertEqual(self.run_ctl("--url", DOWN, "diff", before, after), (DRIVER, changed, ""))
        told = json.loads(self.run_ctl("--json", "diff", before, after)[1])
        self.assertEqual(told[0], {"call": "lmq.vx_watchdog_get(0)", "member": ".p_cfg.wd_timer", "before": 30,
                                   "after": 60})
        self.ok("snapshot", after, "*watchdog*")
        status, printed, _ = self.run_ctl("diff", before, after)
        self.assertEqual(status, DRIVER)
        self.assertIn(f": only in {before}: ", printed)

    def test_snapshot_on_standard_output(self):
        before = self.folder / "printed.json"
        status, printed, errors = self.run_ctl("snapshot", "-", "*watchdog*")
        self.assertEqual((status, errors), (OK, "-: 1 call, 1 answered with success\n"))
        before.write_text(printed)
        self.assertEqual(self.run_ctl("diff", str(before)), (OK, "", ""))
        self.assertFalse(pathlib.Path("-").exists())

    def test_snapshot_without_a_success(self):
        path = self.folder / "failed.json"
        self.assertEqual(self.run_ctl("snapshot", str(path), "*watchdog*", "--devices", "9"),
                         (DRIVER, f"{path}: 1 call, 0 answered with success\n", ""))
        # A link stays one.
        link = self.folder / "link.json"
        link.symlink_to(path)
        self.ok("snapshot", str(link), "*watchdog*")
        self.assertTrue(link.is_symlink())
        self.assertIn("VX_SUCCESS", path.read_text())

    def test_ports_are_chosen(self):
        path = self.folder / "ports.json"
        self.ok("snapshot", str(path), "vx_eth_port_*", "--ports", "0,2")
        ports = {entry["parameters"][1] for entry in json.loads(path.read_text())["answers"].values()
                 if "port" in entry["method"]}
        self.assertEqual(ports & {0, 1, 2, 3}, {0, 2})

    def test_wrong_use(self):
        other = self.file("other.json", "{}")
        self.refused(USAGE, "other.json is no snapshot", "diff", other)
        self.refused(USAGE, "cannot read /none", "diff", "/none")
        self.refused(USAGE, "cannot read /: Is a directory", "diff", "/")
        self.refused(USAGE, "damaged", "diff", self.file("bad.json", '{"snapshot": 1, "answers": {"x": {}}}'))
        self.refused(USAGE, "matches none*", "snapshot", other, "none*")
        self.refused(USAGE, "neither a number nor a range", "snapshot", other, "--ports", "1-x")
        self.refused(USAGE, "cannot write /none/file: No such file", "snapshot", "/none/file")
        self.refused(USAGE, "--devices: Value -1 not in range", "snapshot", other, "--devices", "-1")
        self.refused(OUTPUT, "cannot write /dev/full: No space left on device", "snapshot", "/dev/full", "*watchdog*")
        self.assertTrue(pathlib.Path("/dev/full").is_char_device())
        self.refused(CONNECTION, "127.0.0.1:1", "--url", DOWN, "snapshot", other)
        self.assertEqual((self.folder / "other.json").read_text(), "{}")


if __name__ == "__main__":
    unittest.main()
