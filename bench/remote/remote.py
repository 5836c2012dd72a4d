#!/usr/bin/env python3
"""The price of a call through the remote driver: its time beside the bare exchange of the same documents, and its
instructions beside those of Python's client, counted by callgrind as the difference of two runs.

    bench/remote/remote.py BUILD-FOLDER [--calls N] [--no-instructions]
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent.parent / "tests"))
import hosting  # noqa: E402

PYTHON = ("import sys, xmlrpc.client; lmq = xmlrpc.client.ServerProxy(sys.argv[1]).lmq; "
          "[lmq.vx_watchdog_get(0, {}) for _ in range(int(sys.argv[2]))]")


def instructions(*command, **variables):
    done = subprocess.run(["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", *map(str, command)],
                          env=hosting.environment(**variables), capture_output=True, text=True)
    return int(re.search(r"Collected : (\d+)", done.stderr)[1])


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--calls", type=int, default=20000)
    parser.add_argument("--no-instructions", action="store_true")
    options = parser.parse_args()
    program = options.build / "bench/lmq-bench-remote"
    os.environ["LMQ_HOST"] = str(options.build / "lmq-host")
    library = {"LD_LIBRARY_PATH": str(options.build / "remote")}
    with hosting.Host() as host:
        where = host.address, host.port
        subprocess.run([program, *map(str, where), str(options.calls)], env=hosting.environment(**library), check=True)
        if options.no_instructions:
            return
        few, many = 50, 250
        driver = [instructions(program, *where, calls, "only", **library) for calls in (few, many)]
        python = [instructions(sys.executable, "-c", PYTHON, host.url, calls) for calls in (few, many)]
        counts = [(each[1] - each[0]) / (many - few) for each in (driver, python)]
        print(f"instructions of a call: {counts[0]:,.0f} in the remote driver, {counts[1]:,.0f} in Python's client")


if __name__ == "__main__":
    main()
