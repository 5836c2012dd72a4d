"""lmqctl as a test runs it: against one host for all tests of a case, with an environment and a cache folder of its own.
"""

import os
import pathlib
import pty
import re
import select
import subprocess
import tempfile
import time
import unittest

OK, DRIVER, FAULT, CONNECTION, USAGE, OUTPUT = 0, 1, 2, 3, 64, 74


class CtlTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        # Nothing of the caller's that lmqctl, the host or the simulated chip go by, but for what the builds that seek
        # faults are told.
        cls.environment = {name: value for name, value in os.environ.items()
                           if name in ("PATH", "TMPDIR") or name.endswith("SAN_OPTIONS") or name.startswith("MUTANT")}
        cls.environment.update(HOME=folder.name, XDG_CACHE_HOME=folder.name, LANG="C.UTF-8")
        cls.url = cls.start_host("--listen", "127.0.0.1:0")
        cls.environment["LMQ_URL"] = cls.url

    @classmethod
    def start_chip(cls):
        """Brings the system up, with its device."""
        subprocess.run([os.environ["LMQ_CTL"], "call", "lmq_init_system", "p_cfg.num_dev=1", "p_cfg.dev_cfg[0].enbl=1"],
                       env=cls.environment, check=True, stdout=subprocess.DEVNULL)

    @classmethod
    def start_host(cls, *options):
        """Starts a host that ends with the case. Returns where it says that it listens."""
        host = subprocess.Popen(
            [os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver", os.environ["LMQ_DRIVER"], *options],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=cls.environment, text=True)
        cls.addClassCleanup(host.stdout.close)
        cls.addClassCleanup(host.wait, 20)
        cls.addClassCleanup(host.terminate)
        return host.stdout.readline().split()[-1]

    def run_ctl(self, *words, stdin="", **variables):
        """Runs lmqctl without a terminal. Returns its exit status, standard output and standard error."""
        done = subprocess.run([os.environ["LMQ_CTL"], *words], input=stdin, capture_output=True, text=True, timeout=300,
                              env=dict(self.environment, **variables), errors="replace", start_new_session=True)
        return done.returncode, done.stdout, done.stderr

    def ok(self, *words, stdin="", **variables):
        """A run that must succeed. Returns what it printed."""
        status, printed, errors = self.run_ctl(*words, stdin=stdin, **variables)
        self.assertEqual((status, errors), (OK, ""), words)
        return printed

    def refused(self, status, message, *words, stdin="", **variables):
        """A run that must end with this status, and say this."""
        got, printed, errors = self.run_ctl(*words, stdin=stdin, **variables)
        self.assertEqual((got, printed), (status, ""), f"{words}: {errors}")
        self.assertIn(message, errors)


class Terminal:
    """A program on a terminal of its own."""

    def __init__(self, words, environment):
        self.pid, self.file = pty.fork()
        if self.pid == 0:
            os.execvpe(words[0], words, environment)
        self.seen = ""

    def type(self, text):
        os.write(self.file, text.encode())

    def sees(self, text, seconds):
        """Reads until the program has written the text since the last call of wait_for, or for so long."""
        end = time.monotonic() + seconds
        while text not in self.seen:
            if not select.select([self.file], [], [], max(0, end - time.monotonic()))[0]:
                return False
            try:
                # What draws the line is not of interest: colours, the cursor's ways.
                self.seen += re.sub(r"\x1b\[[0-9;?]*[a-zA-Z]|\x1b[=>]", "", os.read(self.file, 65536).decode())
            except OSError:
                raise AssertionError(f"ended without {text!r}: {self.seen!r}") from None
        return True

    def wait_for(self, text, seconds=30):
        """Reads until the program has written the text since the last call. Returns all of it up to there."""
        if not self.sees(text, seconds):
            raise AssertionError(f"no {text!r} in {self.seen!r}")
        found, self.seen = self.seen.split(text, 1)
        return found

    def end(self):
        """The exit status."""
        try:
            while os.read(self.file, 65536):
                pass
        except OSError:
            pass
        os.close(self.file)
        return os.waitstatus_to_exitcode(os.waitpid(self.pid, 0)[1])
