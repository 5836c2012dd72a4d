#!/usr/bin/env python3
"""Instructions of a call in lmq-host --in-process on the emulated target, in user space. QEMU counts them, with the
plug-in count.c, in a run with the calls and in one without."""

import argparse
import http.client
import re
import shutil
import subprocess
import sys
import tempfile
import xmlrpc.client
from pathlib import Path

HERE = Path(__file__).resolve().parent
RECORDS = 16
START = ("lmq.lmq_init_system", {"num_dev": 1, "dev_cfg": {"enbl": 1, "eth_port_cfg": {"add_port": 1}}})
MAC_VLAN = 1  # VX_CL_KEY_MAC_VLAN


class Host:
    """A host under emulation, and a connection that is kept."""

    def __init__(self, emulator, build, plugin):
        command = [*emulator, "-plugin", plugin, build / "lmq-host", "--in-process", "--spin", "0", "--no-console",
                   "--listen", "127.0.0.1:0"]
        self.errors = tempfile.TemporaryFile("w+")
        self.process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=self.errors, text=True)
        port = re.search(r":(\d+)/", self.process.stdout.readline())
        if not port:
            sys.exit(f"lmq-host does not start: {self.end()}")
        self.connection = http.client.HTTPConnection("127.0.0.1", int(port[1]))

    def call(self, document):
        self.connection.request("POST", "/RPC2", document, {"Content-Type": "text/xml"})
        answer = self.connection.getresponse()
        text = answer.read()
        if answer.status != 200 or b"<fault>" in text:
            sys.exit(f"lmq-host answers {answer.status} {text[:500]}")
        return xmlrpc.client.loads(text)[0][0]

    def end(self):
        self.process.terminate()
        self.process.wait()
        self.errors.seek(0)
        return self.errors.read()


def dumps(method, *arguments):
    return xmlrpc.client.dumps(arguments, method)


def run(options, plugin, calls, extra=None, count=0):
    """All instructions of a host that is prepared, gets each call twice, and one of them so often in addition."""
    host = Host(options.emulator.split(), options.build, plugin)
    startup = host.call(dumps(*START))[1]
    for number in range(RECORDS):
        key = {"key_type": MAC_VLAN, "key_s": {"mac_vlan": {"o_vid": number + 1}}}
        host.call(dumps("lmq.vx_flow_us_add", 0, 3, key, {}, 0, 0))
    calls["57 kB echo"] = dumps("lmq.lmq_init_system", startup)
    for document in calls.values():
        for _ in range(2):
            host.call(document)
    for _ in range(count):
        host.call(calls[extra])
    printed = host.end()
    found = re.search(r"^instructions: (\d+)$", printed, re.M)
    if not found:
        sys.exit(f"QEMU has counted nothing: {printed}")
    return int(found[1])


def main():
    parse = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parse.add_argument("build", type=Path, nargs="?", default=HERE.parent.parent / "build/arm", help="the build folder")
    parse.add_argument("--emulator", help="the emulator with its options; by default for the sysroot beside the build")
    options = parse.parse_args()
    if options.emulator is None:
        options.emulator = f"qemu-arm -L {options.build.resolve().parent / 'arm-sysroot'}"
    if shutil.which(options.emulator.split()[0]) is None:
        sys.exit("instructions.py: there is no qemu-arm (apt-get install qemu-user)")
    calls = {
        "small call": dumps("lmq.vx_watchdog_get", 0, {}),
        "refused call": dumps("lmq.vx_reset", 0, 7),
        "57 kB echo": None,  # what the start of the system echoes
        f"{RECORDS} flow records": dumps("lmq.vx_flow_us_all_get", 0, 3, RECORDS, [{}] * RECORDS, 0),
    }
    with tempfile.TemporaryDirectory() as folder:
        plugin = Path(folder) / "count.so"
        subprocess.run(["cc", "-O2", "-shared", "-fPIC", HERE / "count.c", "-o", plugin], check=True)
        start = run(options, plugin, calls)
        print("| Call | Instructions |\n|---|---:|")
        for name, count in zip(calls, (200, 200, 10, 4)):
            print(f"| {name} | {(run(options, plugin, calls, name, count) - start) / count:,.0f} |", flush=True)


main()
