"""A host with the plug-in in front of the simulated chip, and Python's own XML-RPC client in front of it.

LMQ_HOST, LMQ_PLUGIN and LMQ_DRIVER say where the three are. A test case has a chip of its own, started as `start` says,
and calls driver functions by their names.
"""

import os
import pathlib
import subprocess
import tempfile
import unittest
import xmlrpc.client

SUCCESS = 0
SYS_UNINITIALIZED, INVALID_PARAMS, ENTRY_NOT_FOUND, ENTRY_EXIST = 0x7002, 0x7004, 0x700C, 0x700D
RESOURCE_UNAVAIL, RANGE_CHECK_FAIL, NOT_SUPPORTED = 0x700E, 0x7011, 0x7013
DEV_ID_INVALID, DEV_NULL_PTR = 0x7100, 0x7101


class SimTest(unittest.TestCase):
    """One host for each test. A host that ends early, or not in order, is a failure of its own."""

    clock = None  # milliseconds that a call takes, or None for real time
    environment = {}  # variables of the simulator beyond the clock
    system = {}  # keys of the start configuration
    device = {}  # keys of the device's start configuration

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.errors = open(pathlib.Path(self.folder.name, "errors"), "w+")
        self.addCleanup(self.errors.close)
        environment = dict(os.environ)
        if self.clock is not None:
            environment["LMQ_SIM_CLOCK"] = str(self.clock)
        environment.update(self.environment)
        self.host = subprocess.Popen(
            [os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver", os.environ["LMQ_DRIVER"],
             "--listen", "127.0.0.1:0"],
            stdout=subprocess.PIPE, stderr=self.errors, text=True, env=environment)
        self.addCleanup(self.stop)
        line = self.host.stdout.readline()
        self.assertTrue(line.startswith("Listening on "), f"{line}{self.printed()}")
        self.proxy = xmlrpc.client.ServerProxy(line.split()[-1], allow_none=True)
        self.addCleanup(self.proxy("close"))
        self.start()

    def start(self):
        self.ok("lmq_init_system", dict(self.system, num_dev=1, dev_cfg=[dict(self.device, enbl=1)]))

    def stop(self):
        self.host.terminate()
        status = self.host.wait(20)
        self.host.stdout.close()
        self.assertEqual(status, 0, self.printed())

    def printed(self):
        """What the host and the driver have printed on standard error up to now."""
        return pathlib.Path(self.folder.name, "errors").read_text()

    def call(self, function, *arguments):
        """Calls a driver function. Returns its status and the echo of its arguments."""
        result, *echo = self.proxy.__getattr__(f"lmq.{function}")(*arguments)
        return result, echo

    def ok(self, function, *arguments):
        """A call that must succeed. Returns the echo of its last argument."""
        status, echo = self.call(function, *arguments)
        self.assertEqual(status, SUCCESS, f"{function}{arguments}: status 0x{status:x}\n{self.printed()}")
        return echo[-1] if echo else None

    def refused(self, status, function, *arguments):
        """A call that must be answered with this status."""
        self.assertEqual(f"0x{self.call(function, *arguments)[0]:x}", f"0x{status:x}", f"{function}{arguments}")
