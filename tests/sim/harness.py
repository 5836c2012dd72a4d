"""A host with the simulated chip behind the plug-in, and Python's own XML-RPC client in front of it.

LMQ_HOST, LMQ_PLUGIN and LMQ_DRIVER say where the three are. Each test begins with a system that has just started.
"""

import os
import pathlib
import re
import subprocess
import tempfile
import unittest
import xmlrpc.client


def statuses():
    """Numbers of vx_status_e by name, counted as C counts them: the dictionary answers others."""
    header = pathlib.Path(__file__).resolve().parents[2] / "include" / "lmq" / "status.h"
    values, last = {}, -1
    body = re.search(r"typedef enum vx_status_e.*?\{(.*)\}", header.read_text(), re.S)[1]
    for name, value in re.findall(r"^\s*(\w+)(?: = (\w+))?,", body, re.M):
        last = last + 1 if not value else values[value] if value in values else int(value, 0)
        values[name] = last
    return values


class SimTest(unittest.TestCase):
    """Scenarios that share one host. A host that ends early, or not in order, is a failure of its own."""

    STATUS = statuses()
    START = {"num_dev": 1, "dev_cfg": [{"enbl": 1}]}

    @classmethod
    def setUpClass(cls):
        cls.errors = tempfile.TemporaryFile("w+")
        cls.addClassCleanup(cls.errors.close)
        # A faulted call's values are lost: that is a rule of the interface, not a leak to report.
        environment = dict(os.environ, ASAN_OPTIONS="detect_leaks=0")
        cls.host = subprocess.Popen(
            [os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver", os.environ["LMQ_DRIVER"],
             "--listen", "127.0.0.1:0"],
            stdout=subprocess.PIPE, stderr=cls.errors, text=True, env=environment)
        cls.addClassCleanup(cls.host.stdout.close)
        cls.addClassCleanup(cls.stop)
        line = cls.host.stdout.readline()
        if not line.startswith("Listening on "):
            cls.errors.seek(0)
            raise AssertionError(f"the host did not start: {cls.errors.read()}")
        cls.proxy = xmlrpc.client.ServerProxy(line.split()[-1], allow_none=True)
        cls.addClassCleanup(cls.proxy("close"))

    @classmethod
    def stop(cls):
        cls.host.terminate()
        try:
            status = cls.host.wait(20)
        except subprocess.TimeoutExpired:
            cls.host.kill()
            status = cls.host.wait()
        if status != 0:
            cls.errors.seek(0)
            raise AssertionError(f"the host ended with {status}: {cls.errors.read()}")

    def setUp(self):
        self.ok("lmq_init_system", self.START)

    def tearDown(self):
        self.call("lmq_shutdown_system")

    def call(self, api, *arguments):
        """The whole answer: the driver's result, then the echo of each argument."""
        return getattr(self.proxy.lmq, api)(*arguments)

    def ok(self, api, *arguments):
        """The echo of a call that must succeed: item n is argument n + 1."""
        result, *echo = self.call(api, *arguments)
        self.assertEqual(result, 0, f"{api}{arguments}: {self.name(result)}")
        return echo

    def refused(self, status, api, *arguments):
        """A call that must be answered with a status, given without its VX_ERR_."""
        result = self.call(api, *arguments)[0]
        self.assertEqual(self.name(result), "VX_ERR_" + status, f"{api}{arguments}")

    @classmethod
    def name(cls, status):
        return next((name for name, value in cls.STATUS.items() if value == status and not name.endswith("_BASE")),
                    status)
