"""lmqctl fuzz, shrink and replay: faults that are planted in the simulated chip, and traces on chips that differ.

LMQ_PLANTED_DRIVER is the driver with the faults; the variable LMQ_PLANTED, for the host, says which one is there.
"""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import unittest

import ctl

TOUR = pathlib.Path(__file__).resolve().parents[2] / "docs" / "tour.md"
FIRST = ("lmq_init_system", "p_cfg.num_dev=1", "p_cfg.dev_cfg[0].enbl=1")


class OwnHosts(ctl.CtlTest):
    """Commands that start hosts of their own."""

    def command(self, driver="LMQ_PLANTED_DRIVER"):
        return f"{os.environ['LMQ_HOST']} --plugin {os.environ['LMQ_PLUGIN']} --driver {os.environ[driver]}"

    def json(self, status, *words, **variables):
        done = subprocess.run([os.environ["LMQ_CTL"], "--json", *words], capture_output=True, text=True, timeout=600,
                              env=dict(self.environment, **variables), stdin=subprocess.DEVNULL)
        self.assertEqual((done.returncode, done.stderr), (status, ""), words)
        return json.loads(done.stdout)

    def fuzz(self, fault, *words):
        return self.json(ctl.DRIVER if fault else ctl.OK, "fuzz", "--hang", "3", "--out", str(self.folder),
                          "--host-command", self.command(), *words, LMQ_PLANTED=fault, LMQ_SIM_CLOCK="1")

    def record(self, name, *calls, **variables):
        """A trace of these calls to a host of its own."""
        trace = self.folder / name
        with self.host("--trace", str(trace), **variables) as url:
            for words in (FIRST, *calls):
                self.run_ctl("call", *words, LMQ_URL=url)
        return str(trace)

    def host(self, *options, **variables):
        return RunningHost(dict(self.environment, **variables), options)


class RunningHost:
    """A host with the simulated chip, or with the driver that LMQ_DRIVER names, for a with statement."""

    def __init__(self, environment, options):
        driver = environment.pop("driver", os.environ["LMQ_DRIVER"])
        self.process = subprocess.Popen(
            [os.environ["LMQ_HOST"], "--plugin", os.environ["LMQ_PLUGIN"], "--driver", driver, "--listen", "127.0.0.1:0",
             *options], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, env=environment, text=True)

    def __enter__(self):
        return self.process.stdout.readline().split()[-1]

    def __exit__(self, *_):
        self.process.send_signal(signal.SIGTERM)
        self.process.communicate(timeout=30)


class PlantedFaults(OwnHosts):
    def test_each_is_found_and_shrunk(self):
        for fault, condition, most_calls, methods in (
                ("crash", "vx_eth_port_status_get:died", 4, ["vx_eth_port_*"]),
                ("hang", "vx_timer_start:hung", 3, ["vx_timer_*"]),
                ("overrun", "vx_mdio_read:changed", 3, ["vx_mdio_*", "lmq_*able_mdio"]),
                ("lost", "vx_l2_learn_port_enable_set:lost", 5, ["vx_l2_port_*", "vx_l2_learn_*"]),
                ("leak", "vx_cosq_queue_get:grows", 1, ["vx_cosq_*"])):
            with self.subTest(fault):
                found = self.fuzz(fault, "--seed", "7", "--calls", "3000", "--check", *methods)["findings"]
                self.assertEqual([each["condition"] for each in found], [condition])
                self.assertTrue(found[0]["again"])
                self.assertLessEqual(found[0]["calls"], most_calls)

    def test_the_mended_driver(self):
        """The trace of a crash says on a sound driver that it is one no more, and fuzz finds nothing there."""
        words = ["--seed", "3", "--calls", "1500", "vx_eth_port_*"]
        found = self.fuzz("crash", *words)["findings"][0]
        with self.host(driver=os.environ["LMQ_PLANTED_DRIVER"]) as url:
            status, printed, _ = self.run_ctl("replay", found["file"], LMQ_URL=url)
        self.assertEqual(status, ctl.DRIVER)
        self.assertIn("vx_eth_port_status_get status: the worker died -> VX_SUCCESS\n", printed)
        self.assertEqual(self.fuzz("", *words)["findings"], [])

    def test_a_seed_gives_the_same_calls(self):
        def before(seed):
            found = self.fuzz("crash", "--seed", seed, "--calls", "1500", "vx_eth_port_*")["findings"][0]
            return found["before"], found["calls"]
        self.assertEqual(before("3"), before("3"))
        self.assertGreater(len({before(seed) for seed in ("3", "4", "5", "6")}), 1)


class Beside(OwnHosts):
    def test_a_host_beside_is_taken_before_one_of_the_path(self):
        path = {}
        for name in "beside", "path":
            path[name] = self.folder / name
            path[name].mkdir()
            (path[name] / "lmq-host").write_text(f"#!/bin/sh\necho {name} >&2\n")
            (path[name] / "lmq-host").chmod(0o755)
        program = shutil.copy(os.environ["LMQ_CTL"], path["beside"])
        for name in "beside", "path":
            done = subprocess.run([program, "fuzz"], capture_output=True, text=True, timeout=60,
                                  env=dict(self.environment, PATH=f"{path['path']}:{os.environ['PATH']}"))
            self.assertEqual(done.returncode, ctl.CONNECTION)
            self.assertIn(f" ended before it listened: {name}\n", done.stderr)
            (path["beside"] / "lmq-host").unlink(missing_ok=True)


class Shrink(OwnHosts):
    def test_status_and_member(self):
        calls = [("vx_watchdog_set", "0", "p_cfg.wd_enable=1", "p_cfg.wd_timer=9"), ("vx_mac_addr_get", "0"),
                 ("vx_watchdog_get", "0"), ("vx_mac_addr_get", "1"), ("vx_watchdog_get", "0")]
        trace = self.record("night.trace", *calls)
        shrunk = lambda until: self.json(ctl.OK, "shrink", trace, "--until", until,  # noqa: E731
                                         "--host-command", self.command())["calls"]
        self.assertEqual(shrunk("vx_watchdog_get:p_cfg.wd_timer=9"), 3)
        self.assertEqual(shrunk("vx_mac_addr_get:VX_ERR_DEV_ID_INVALID"), 2)
        printed = self.ok("shrink", trace, "--until", "vx_watchdog_get:wd_timer=9", "--out", f"{self.folder}/few.trace",
                          "--host-command", self.command())
        self.assertEqual(printed.splitlines()[-1], f"{self.folder}/few.trace")
        # Only the flag and the member that count are left.
        self.assertIn('vx_watchdog_set 0 {"wd_timer":9,"mask_s":{"wd_timer":1}}\n', printed)

    def test_growth(self):
        trace = self.record("leak.trace", ("vx_mac_addr_get", "0"), ("vx_cosq_queue_get", "0", "2", "1"))
        shrink = ["shrink", trace, "--until", "vx_cosq_queue_get:grows", "--host-command", self.command()]
        self.assertEqual(self.json(ctl.OK, *shrink, LMQ_PLANTED="leak")["calls"], 1)
        self.refused(ctl.DRIVER, "do not come to", *shrink)

    def test_what_cannot_be(self):
        trace = self.record("short.trace", ("vx_watchdog_get", "0"))
        for until, message in (("lost", "which method"), ("vx_watchdog_gte:died", "did you mean vx_watchdog_get"),
                               ("vx_watchdog_get:VX_ERR_NO", "neither a status nor a number"), ("soon", "expected died")):
            self.refused(ctl.USAGE, message, "shrink", trace, "--until", until, "--host-command", self.command())
        self.refused(ctl.DRIVER, "do not come to died", "shrink", trace, "--until", "died", "--host-command", self.command())
        self.refused(ctl.CONNECTION, "ended before it listened", "shrink", trace, "--until", "died", "--host-command",
                     self.command() + " --no-such-option")
        with self.host("--trace", f"{self.folder}/empty.trace"):
            pass
        self.refused(ctl.USAGE, "holds no call that changes or reads the chip", "shrink", f"{self.folder}/empty.trace",
                     "--until", "died", "--host-command", self.command())
        (self.folder / "none.trace").write_text("no trace\n")
        self.refused(ctl.USAGE, "none.trace", "shrink", f"{self.folder}/none.trace", "--until", "died")


class Replay(OwnHosts):
    def replay(self, status, trace, *words, **variables):
        with self.host(**variables) as url:
            return self.json(status, "replay", trace, *words, LMQ_URL=url)

    def test_ids_are_translated(self):
        """A policer that the other chip gives out as another number is asked for by that one."""
        calls = [("vx_rate_policer_create", "0", "cfg.cir=1000"), ("vx_rate_policer_get", "0", "0")]
        trace = self.record("ids.trace", *calls)
        with self.host() as url:
            for words in (FIRST, calls[0]):
                self.run_ctl("call", *words, LMQ_URL=url)
            found = self.json(ctl.DRIVER, "replay", trace, LMQ_URL=url)["differences"]
        # The system is up already; nothing else differs.
        self.assertEqual({each["method"] for each in found}, {"lmq_init_system"})

    def test_two_hosts(self):
        trace = self.record("two.trace", ("vx_watchdog_get", "0"), ("vx_mac_addr_get", "0"))
        with self.host() as one, self.host(LMQ_SIM_FAIL="vx_mac_addr_get:VX_ERR_DEV_BUSY") as other:
            both = ["replay", trace, "--url", one, "--url", other]
            found = self.json(ctl.DRIVER, *both)["differences"]
            self.assertEqual([(each["method"], each["member"], each["before"]) for each in found],
                             [("vx_mac_addr_get", "status", "VX_SUCCESS")])
            self.refused(ctl.USAGE, "two hosts can be compared, not 3", *both, "--url", one)
        self.refused(ctl.CONNECTION, "cannot connect", "replay", trace, "--url", self.url, "--url", one)

    def test_members_and_what_is_ignored(self):
        trace = self.record("member.trace", ("vx_watchdog_set", "0", "p_cfg.wd_timer=9"), ("vx_watchdog_get", "0"))
        with self.host() as url:
            self.run_ctl("call", *FIRST, LMQ_URL=url)
            self.run_ctl("call", "vx_watchdog_set", "0", "p_cfg.wd_enable=1", LMQ_URL=url)
            seen = lambda *words: [each["member"] for each in self.json(  # noqa: E731
                ctl.DRIVER, "replay", trace, *words, LMQ_URL=url)["differences"]]
            self.assertEqual(seen(), ["status", "p_cfg.wd_enable"])
            self.assertEqual(seen("--ignore", "wd_enable"), ["status"])
            self.assertEqual(seen("--ignore", "vx_watchdog_get.*"), ["status"])

    def test_the_tour(self):
        """Its trace shows no difference on a fresh chip, and exactly that one on a chip with a fault."""
        variables = {"LMQ_SIM_CLOCK": "1000", "LMQ_SIM_TRAFFIC": "1:1000"}
        trace = self.folder / "tour.trace"
        blocks = re.findall(r"^```console\n(\$ lmqctl .*?)^```$", TOUR.read_text(), re.MULTILINE | re.DOTALL)
        path = f"{pathlib.Path(os.environ['LMQ_CTL']).parent}:{os.environ['PATH']}"
        with self.host("--trace", str(trace), **variables) as url:
            for line in re.findall(r"^\$ (.*)$", "\n".join(blocks), re.MULTILINE):
                subprocess.run(["bash", "-c", line], stdin=subprocess.DEVNULL, capture_output=True, timeout=60,
                               env=dict(self.environment, LMQ_URL=url, PATH=path), cwd=self.folder)
        same = self.replay(ctl.OK, str(trace), "--counters", **variables)
        self.assertGreater(same["calls"], 20)
        self.assertEqual(same["differences"], [])
        # A call that only reads: nothing behind it goes another way.
        failed = self.replay(ctl.DRIVER, str(trace), "--counters", LMQ_SIM_FAIL="vx_mac_addr_get:VX_ERR_DEV_BUSY:1",
                             **variables)
        self.assertEqual([(each["method"], each["member"], each["before"], each["after"])
                          for each in failed["differences"]],
                         [("vx_mac_addr_get", "status", "VX_SUCCESS", "VX_ERR_DEV_BUSY")])


if __name__ == "__main__":
    unittest.main()
