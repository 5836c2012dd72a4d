"""A host with the plug-in in front of the simulated chip, and Python's own XML-RPC client in front of it.

LMQ_HOST, LMQ_PLUGIN and LMQ_DRIVER say where the three are. A test case has a chip of its own, started as `start` says,
and calls driver functions by their names. No other variable of the caller's that is meant for the three reaches them.

With LMQ_CTL, where lmqctl is, each case ends with a round trip: what its calls have set and made goes into a file, from
there onto a chip that has just been started in the same way, and from that into a second file, which has to be the same.
A class for which that makes no sense says why in `no_round_trip`.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest
import xmlrpc.client

sys.path.insert(0, str(pathlib.Path(__file__).parents[2] / "interface"))

import headers

INTERFACE = headers.Headers(pathlib.Path(__file__).parents[2] / "include")
CHANGING = {name for name in INTERFACE.functions if not name.startswith(("lmq_init", "lmq_reset", "lmq_shutdown"))}

CACHE = tempfile.TemporaryDirectory()  # of lmqctl, for all cases of a file


class SimTest(unittest.TestCase):
    """One host for each test. A host that ends early, or not in order, is a failure of its own."""

    STATUS = INTERFACE.enums["vx_status_e"]  # numbers by name, as C counts them: the dictionary answers others
    EVENT = INTERFACE.enums["vx_event_type_e"]

    clock = None  # milliseconds that a call takes, or None for real time
    environment = {}  # variables of the simulator beyond the clock
    system = {}  # keys of the start configuration
    device = {}  # keys of the device's start configuration
    no_round_trip = ""  # why there is none

    def setUp(self):
        self.called = set()
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.errors = open(pathlib.Path(self.folder.name, "errors"), "w+")
        self.addCleanup(self.errors.close)
        environment = {name: value for name, value in os.environ.items() if not name.startswith("LMQ_")}
        if self.clock is not None:
            environment["LMQ_SIM_CLOCK"] = str(self.clock)
        environment.update(self.environment)
        self.host, self.url = self.start_host(environment)
        self.addCleanup(self.stop)
        self.proxy = xmlrpc.client.ServerProxy(self.url, allow_none=True)
        self.addCleanup(self.proxy("close"))
        self.start()
        if "LMQ_CTL" in os.environ and not self.no_round_trip:
            self.addCleanup(self.round_trip)

    def start_host(self, environment):
        """Starts a host. Returns it, and where it listens."""
        host = subprocess.Popen(
            [os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver", os.environ["LMQ_DRIVER"],
             "--listen", "127.0.0.1:0"],
            stdout=subprocess.PIPE, stderr=self.errors, text=True, env=environment)
        line = host.stdout.readline()
        self.assertTrue(line.startswith("Listening on "), f"{line}{self.printed()}")
        return host, line.split()[-1]

    def ctl(self, url, *words):
        """Runs lmqctl. Returns its exit status and all that it says."""
        environment = {"PATH": os.environ["PATH"], "HOME": self.folder.name, "LANG": "C.UTF-8",
                       "XDG_CACHE_HOME": CACHE.name,
                       **{name: value for name, value in os.environ.items() if name.startswith("MUTANT")}}
        done = subprocess.run([os.environ["LMQ_CTL"], "--url", url, *words], env=environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=200)
        return done.returncode, done.stdout

    def round_trip(self):
        """Save, another chip, apply, save: the two files are the same."""
        saved, again = (pathlib.Path(self.folder.name, name) for name in ("saved.conf", "again.conf"))
        chosen = sorted(self.called & CHANGING)
        if not chosen or self.call("vx_watchdog_get", 0, {})[0] != 0:
            return
        status, said = self.ctl(self.url, "save", str(saved), *chosen)
        self.assertEqual(status, 0, said)
        # What only clears, sends or raises leaves nothing to bring back.
        if all(line.startswith(("#", "all ")) or not line for line in saved.read_text().splitlines()):
            return
        host, url = self.start_host({name: value for name, value in os.environ.items() if not name.startswith("LMQ_")})
        try:
            with xmlrpc.client.ServerProxy(url, allow_none=True) as proxy:
                self.proxy, first = proxy, self.proxy
                self.start()
                self.proxy = first
            status, said = self.ctl(url, "apply", str(saved))
            self.assertEqual(status, 0, said)
            self.assertEqual(self.ctl(url, "save", str(again), *chosen)[0], 0)
        finally:
            host.terminate()
            host.wait(20)
            host.stdout.close()
        self.assertEqual(again.read_text().splitlines(), saved.read_text().splitlines(), said)

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
        self.called.add(function)
        result, *echo = self.proxy.__getattr__(f"lmq.{function}")(*arguments)
        return result, echo

    def echo(self, function, *arguments):
        """A call that must succeed. Returns the echo of each argument: item n is argument n + 1."""
        status, echo = self.call(function, *arguments)
        self.assertEqual(status, 0, f"{function}{arguments}: {self.name_of(status)}\n{self.printed()}")
        return echo

    def ok(self, function, *arguments):
        """A call that must succeed. Returns the echo of its last argument."""
        echo = self.echo(function, *arguments)
        return echo[-1] if echo else None

    def refused(self, status, function, *arguments):
        """A call that must be answered with a status, given without its VX_ERR_."""
        answer = self.call(function, *arguments)[0]
        expected = self.STATUS[f"VX_ERR_{status}"]
        self.assertEqual(self.name_of(answer), self.name_of(expected), f"{function}{arguments}")

    def name_of(self, status):
        """A status by its name. Behind the name of a base stands that of the first status, with the same number."""
        names = [name for name, number in self.STATUS.items() if number == status]
        return names[-1] if names else f"0x{status:x}"
