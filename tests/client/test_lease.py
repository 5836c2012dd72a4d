"""lmqctl lock, unlock and who, and what a call printed."""

import json
import os
import pathlib
import stat
import time
import unittest

from ctl import FAULT, OK, USAGE, CtlTest

CHANGE = ("call", "vx_watchdog_set", "0", "p_cfg.wd_enable=1")


class Lease(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    def setUp(self):
        # Two people, each with a login of his own.
        self.ann, self.bob = ({"XDG_RUNTIME_DIR": str(self.folder / name)} for name in ("ann", "bob"))
        self.addCleanup(self.ok, "unlock", **self.ann)

    def test_who_holds_it(self):
        self.assertEqual(self.ok("who", **self.bob), "Nobody holds the lease.\n")
        self.assertRegex(self.ok("lock", "--for", "2h", "--name", "ann's test", **self.ann),
                         r"\AYou hold the lease until \S+Z, for 2 h\. lmqctl unlock gives it back\.\n\Z")
        self.assertRegex(self.ok("who", **self.bob), r"\Aann's test holds the lease until \S+Z, for 2 h\.\n\Z")
        self.assertLessEqual({"held": True, "name": "ann's test"}.items(), json.loads(self.ok("--json", "who")).items())
        # It is used by all that follows, in a session too, and by nobody else.
        self.assertTrue(self.ok(*CHANGE, **self.ann).startswith("VX_SUCCESS"))
        self.refused(FAULT, "ann's test holds the lease until", *CHANGE, **self.bob)
        self.assertTrue(self.ok("call", "vx_watchdog_get", "0", **self.bob).startswith("VX_SUCCESS"))
        self.refused(FAULT, "it cannot be taken before", "lock", **self.bob)
        self.refused(FAULT, "only its holder can give it back", "unlock", **self.bob)
        self.assertRegex(self.ok("lock", "--for", "90", **self.ann), r", for 2 min\.")  # prolonged, or cut short
        self.assertEqual(self.ok("unlock", **self.ann), "The lease is given back.\n")
        self.assertTrue(self.ok(*CHANGE, **self.bob).startswith("VX_SUCCESS"))
        self.assertEqual(self.ok("unlock", **self.bob), "Nobody held the lease.\n")

    def test_a_session_and_a_program(self):
        """A session uses the lease that it takes; a program that is run uses it too."""
        lines = "lock\nvx_watchdog_set 0 p_cfg.wd_enable=1\nunlock\n"
        self.assertIn("VX_SUCCESS", self.ok("repl", stdin=lines, **self.ann))
        self.ok("lock", **self.ann)
        if not (pathlib.Path(os.environ["LMQ_CTL"]).parent / "remote" / "liblmq.so").exists():
            self.skipTest("the remote driver is not built")
        program = ("python3", "-c", "import ctypes; print(ctypes.CDLL('liblmq.so').lmq_dbg_set_log_level(1, 1))")
        self.assertEqual(self.ok("run", "--", *program, **self.ann), "0\n")
        self.assertIn("holds the lease", self.run_ctl("run", "--", *program, **self.bob)[2])

    def test_where_the_token_is(self):
        os.umask(0)
        self.addCleanup(os.umask, 0o022)
        self.ok("lock", **self.ann)
        kept, = (self.folder / "ann" / "lmqctl").iterdir()
        self.assertEqual(stat.S_IMODE(kept.stat().st_mode), 0o600)
        # What others can write to may be theirs.
        kept.chmod(0o666)
        self.refused(FAULT, "holds the lease", *CHANGE, **self.ann)
        kept.chmod(0o600)
        self.ok(*CHANGE, **self.ann)
        # Another host has another.
        other = self.start_host("--listen", "127.0.0.1:0")
        self.assertEqual(self.ok("--url", other, "who", **self.ann), "Nobody holds the lease.\n")

    def test_it_ends_by_itself(self):
        self.ok("lock", "--for", "1s", **self.ann)
        end = time.monotonic() + 30
        while self.run_ctl(*CHANGE, **self.bob)[0] != OK:
            self.assertLess(time.monotonic(), end)

    def test_wrong_times(self):
        for text in ("0", "25h", "5x", "soon", "-1"):
            self.refused(USAGE, "--for", "lock", "--for", text)


class Printed(CtlTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.start_chip()

    dump = ("lmq_dump_register", "0", "0x1000", "0", "2")

    def test_under_the_answer(self):
        call = self.ok("call", *self.dump)
        self.assertRegex(call, r"(?s)\A2\n.*\nprinted by the driver\n(  0x00100[04]: 0x[0-9a-f]{8}\n){2}\Z")
        self.assertRegex(json.loads(self.ok("--json", "call", *self.dump))["printed"], r"\A(0x00100[04]: 0x[0-9a-f]{8}\n){2}\Z")
        self.assertNotIn("printed", self.ok("call", "--raw", *self.dump))
        self.assertNotIn("printed", self.ok("call", "vx_watchdog_get", "0"))
        lines = " ".join(self.dump) + "\nvx_watchdog_get 0\n"
        self.assertRegex(self.ok("batch", "-", stdin=lines), r"(?s)\A1: .*\n2: .*\nprinted by the driver\n  0x001000: .*\n2 calls")
        self.assertRegex(json.loads(self.ok("--json", "batch", "-", stdin=lines))[1]["printed"], r"\A0x001000: ")
        self.assertRegex(self.ok("repl", stdin=lines), r"(?s)printed by the driver\n  0x001000: .*\nVX_SUCCESS")



if __name__ == "__main__":
    unittest.main()
