"""Simulated chips: hosts of this machine with the simulated driver, one for each that is asked for."""

import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile

from .errors import Error


def program():
    """The host: what LMQ_HOST names, or lmq-host in PATH."""
    found = os.environ.get("LMQ_HOST") or shutil.which("lmq-host")
    if not found:
        raise Error("a simulated chip needs lmq-host in PATH, or LMQ_HOST")
    return found


class SimulatedChip:
    """A running host with a fresh simulated chip. `url` is where it is."""

    def __init__(self, preset=None, fail=None, traffic=None, clock=None, options=()):
        """preset: the chip's start: a dict, or a file with one (ports, counters, events, faults)
        fail: what is to fail: {"vx_gpio_read": "VX_ERR_DEV_HW_FAILURE"}, with (function, 3) as a key for the third call
        traffic: a seed, or (seed, packets per second): makes counters move
        clock: milliseconds by which time goes on with each call; by default time is real
        options: more for lmq-host
        """
        self.folder = tempfile.TemporaryDirectory(prefix="lmq-")
        variables = {"LMQ_SIM_CLOCK": clock, "LMQ_SIM_PRESET": preset, "LMQ_SIM_FAIL": None, "LMQ_SIM_TRAFFIC": traffic}
        if isinstance(preset, dict):
            variables["LMQ_SIM_PRESET"] = pathlib.Path(self.folder.name, "preset.json")
            variables["LMQ_SIM_PRESET"].write_text(json.dumps(preset))
        if isinstance(traffic, (list, tuple)):
            variables["LMQ_SIM_TRAFFIC"] = ":".join(map(str, traffic))
        if fail:
            variables["LMQ_SIM_FAIL"] = ",".join(
                f"{key[0]}:{status}:{key[1]}" if isinstance(key, tuple) else f"{key}:{status}"
                for key, status in fail.items())
        kept = {name: value for name, value in os.environ.items() if not name.startswith("LMQ_SIM_")}
        self.errors = open(pathlib.Path(self.folder.name, "printed"), "w+")
        command = [program(), "--listen", "127.0.0.1:0", *options]
        self.process = subprocess.Popen(
            command, stdout=subprocess.PIPE, stderr=self.errors, text=True,
            env={**kept, **{name: str(value) for name, value in variables.items() if value is not None}})
        line = self.process.stdout.readline()
        match = re.match(r"Listening on (https?://.*)/RPC2\n", line)
        if not match:
            said = self.printed()
            self.close()
            raise Error(f"{command[0]} did not start: {said.strip() or line}")
        self.url = match[1]

    def printed(self):
        """What host and driver have printed on standard error up to now."""
        return pathlib.Path(self.errors.name).read_text(errors="replace")

    def close(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
        self.process.stdout.close()
        self.errors.close()
        self.folder.cleanup()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
