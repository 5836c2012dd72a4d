"""lmqctl as a test runs it: against one host for all tests of a case, with a cache folder of its own."""

import os
import pathlib
import subprocess
import tempfile
import unittest

OK, DRIVER, FAULT, CONNECTION, USAGE = 0, 1, 2, 3, 64


class CtlTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        cls.url = cls.start_host("--listen", "127.0.0.1:0")
        cls.environment = dict(os.environ, LMQ_URL=cls.url, XDG_CACHE_HOME=folder.name)

    @classmethod
    def start_host(cls, *options):
        """Starts a host that ends with the case. Returns where it says that it listens."""
        host = subprocess.Popen(
            [os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver", os.environ["LMQ_DRIVER"], *options],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        cls.addClassCleanup(host.stdout.close)
        cls.addClassCleanup(host.wait, 20)
        cls.addClassCleanup(host.terminate)
        return host.stdout.readline().split()[-1]

    def run_ctl(self, *words, stdin="", **variables):
        """Runs lmqctl. Returns its exit status, standard output and standard error."""
        done = subprocess.run([os.environ["LMQ_CTL"], *words], input=stdin, capture_output=True, text=True, timeout=60,
                              env=dict(self.environment, **variables))
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
