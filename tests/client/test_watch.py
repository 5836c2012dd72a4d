"""watch on a terminal of some size, with members that were chosen, and while its host restarts."""

import csv
import fcntl
import io
import os
import pty
import re
import signal
import struct
import subprocess
import termios
import unittest

from ctl import OK, USAGE, CtlTest

STATS = "vx_eth_port_stats_get 0 4 clear=0"


class Watch(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def screens(self, lines, columns, *words, count=3, **variables):
        """What a terminal of this size has shown: the lines of each screen."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", lines, columns, 0, 0))
        process = subprocess.Popen([os.environ["LMQ_CTL"], "watch", "--every", "0.02", "--samples", str(count), *words],
                                   stdout=theirs, stderr=subprocess.PIPE, env=dict(self.environment, NO_COLOR="1", **variables))
        os.close(theirs)
        shown = b""
        try:
            while part := os.read(ours, 65536):
                shown += part
        except OSError:  # its end is closed
            pass
        os.close(ours)
        with process.stderr:
            self.assertEqual((process.wait(20), process.stderr.read()), (OK, b""))
        # Between the way home and what is cleared below.
        screens = re.findall(r"\x1b\[H(.*?)\x1b\[J", shown.decode().replace("\r\n", "\n"), re.S)
        self.assertEqual(len(screens), count)
        return [screen.replace("\x1b[K", "").split("\n") for screen in screens]

    def test_table_fits_the_terminal(self):
        for lines, columns in ((24, 80), (6, 40), (200, 300), (3, 10)):
            for screen in self.screens(lines, columns, "--full", STATS, "vx_gpon_onu_port_config_get 0 0 {}"):
                self.assertLessEqual(len(screen), lines)
                self.assertLessEqual(max(map(len, screen)), columns)
        self.assertRegex(screen[-1], r"^\(\d+ more")
        whole = self.screens(200, 300, "--full", STATS)[-1]
        self.assertTrue(any("p_stats.rx_pkts " in line for line in whole))
        few = self.screens(8, 100, "--full", STATS)[-1]
        self.assertEqual((len(few), few[-1]), (8, f"({len(whole) - 7} more; --columns chooses, a larger window shows more)"))

    def test_sparkline(self):
        """A column for each rate; the height of the timer's is that of what others have set meanwhile."""
        lines = self.screens(24, 120, "--full", "--columns", "wd_timer", "vx_watchdog_get 0", count=6)[-1]
        self.assertEqual(len(lines), 2)
        self.assertTrue(lines[1].endswith("0/s   " + "\u2581" * 5), lines)
        lines = self.screens(24, 120, "--full", "--columns", "wd_timer", "vx_watchdog_get 0", count=6, LANG="C")[-1]
        self.assertTrue(lines[1].endswith("0/s   _____"), lines)

    def test_members_to_choose(self):
        printed = self.ok("watch", "--samples", "1", "--columns", "wd_timer,*.wd_e*", "vx_watchdog_get 0")
        self.assertEqual(next(csv.reader(io.StringIO(printed))),
                         ["time", "p_cfg.wd_enable", "p_cfg.wd_enable/s", "p_cfg.wd_timer", "p_cfg.wd_timer/s"])
        printed = self.ok("watch", "--samples", "1", "--columns", "p_stats.rx_pkts", "--columns", "wd_timer", STATS, "vx_watchdog_get 0")
        self.assertEqual(next(csv.reader(io.StringIO(printed)))[1::2], [f"{STATS} p_stats.rx_pkts", "vx_watchdog_get 0 p_cfg.wd_timer"])
        self.refused(USAGE, "--columns: no number is called wd_tymer; did you mean wd_timer?", "watch", "--columns", "wd_tymer",
                     "vx_watchdog_get 0")

    def test_counts(self):
        for words in (["--count", "p_cfg=2", "lmq_get_bridge_config_all 0"], ["lmq_get_bridge_config_all 0 --count p_cfg=2"]):
            header = self.ok("watch", "--samples", "1", *words).splitlines()[0]
            self.assertIn("p_cfg[0].brg_id", header)
            self.assertIn("p_cfg[1].brg_id", header)
            self.assertNotIn("p_cfg[2]", header)
        self.refused(USAGE, "--count: no call has an argument x", "watch", "--count", "x=2", "vx_watchdog_get 0")

    def test_a_host_that_restarts(self):
        url = f"unix:{self.folder}/socket"
        environment = dict(self.environment, LMQ_URL=url)

        def start():
            host = subprocess.Popen([os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver",
                                     os.environ["LMQ_DRIVER"], "--socket", url.removeprefix("unix:")], stdout=subprocess.PIPE, env=self.environment)
            self.addCleanup(host.wait, 20)
            self.addCleanup(host.terminate)
            self.addCleanup(host.stdout.close)
            host.stdout.readline()
            return host

        def next_row(has_value):
            for line in watch.stdout:
                if bool(line.rstrip("\n").split(",")[1]) == has_value:
                    return True
            return False

        host = start()
        self.ok("call", "lmq_init_system", "p_cfg.num_dev=1", "p_cfg.dev_cfg[0].enbl=1", LMQ_URL=url)
        watch = subprocess.Popen([os.environ["LMQ_CTL"], "watch", "--every", "0.05", "--columns", "wd_timer", "vx_watchdog_get 0"],
                                 env=environment, stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True)
        self.addCleanup(watch.stderr.close)
        self.addCleanup(watch.stdout.close)
        self.addCleanup(watch.kill)
        watch.stdout.readline()
        self.assertTrue(next_row(has_value=True))
        host.terminate()
        host.wait(20)
        self.assertTrue(next_row(has_value=False))
        start()
        self.ok("call", "lmq_init_system", "p_cfg.num_dev=1", "p_cfg.dev_cfg[0].enbl=1", LMQ_URL=url)
        self.assertTrue(next_row(has_value=True))
        watch.send_signal(signal.SIGINT)
        watch.stdout.read()
        self.assertEqual(watch.wait(20), OK)
        # Between its start and its being up the chip refuses, and each sample says so.
        said = [line for line in watch.stderr.read().splitlines() if line.endswith("; trying again")]
        self.assertTrue(said)
        self.assertEqual(len(said), len({*said}), "what is wrong is said once")


if __name__ == "__main__":
    unittest.main()
