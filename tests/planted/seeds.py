#!/usr/bin/env python3
"""In how many calls `lmqctl fuzz` finds each planted fault, over all methods and for ten seeds.

    tests/planted/seeds.py build/release

It takes an hour, and so is no part of ./test. `--fault` and `--seeds` choose a part of it. Each run ends when the fault is
found and shrunk, or after `--calls` calls. What else a run finds is a false finding, for the chip is sound otherwise.
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

FAULTS = {
    "crash": "vx_eth_port_status_get:died",
    "hang": "vx_timer_start:hung",
    "overrun": "vx_mdio_read:changed",
    "lost": "vx_l2_learn_port_enable_set:lost",
    "leak": "vx_cosq_queue_get:grows",
}
LEFT = re.compile(r"\.trace: (\d+) calls? of (\d+) are left$", re.MULTILINE)


class Run:
    """One seed against one fault."""

    def __init__(self, build, fault, seed, calls):
        self.found, self.at, self.left, self.others = False, 0, 0, []
        # A crash, a hang or a leak are the same with --check and without.
        with tempfile.TemporaryDirectory() as folder:
            process = subprocess.Popen(
                [f"{build}/lmqctl", "fuzz", "--check", "--seed", str(seed), "--calls", str(calls), "--hang", "15",
                 "--out", folder, "--host-command", f"{build}/lmq-host --driver {build}/planted/liblmq.so"],
                stdout=subprocess.PIPE, text=True, stdin=subprocess.DEVNULL,
                env=dict(os.environ, LMQ_PLANTED=fault, LMQ_SIM_CLOCK="1"))
            lines = []
            for line in process.stdout:
                lines.append(line)
                if " calls, until " in line:
                    self.take(fault, line.split()[-1], lines)
                    lines = []
                    if self.found:
                        process.terminate()
            process.wait()

    def take(self, fault, condition, lines):
        if condition != FAULTS[fault]:
            self.others.append(condition)
            return
        self.found = True
        text = "".join(lines)
        left = LEFT.search(text)
        self.left = int(left[1]) if left else 0
        self.at = int(re.search(r"after (\d+) calls", text)[1])


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path, help="the folder of a build")
    parser.add_argument("--fault", choices=FAULTS, nargs="+", default=list(FAULTS))
    parser.add_argument("--seeds", type=int, nargs="+", default=list(range(1, 11)))
    parser.add_argument("--calls", type=int, default=20000)
    options = parser.parse_args()
    build = options.build.resolve()
    print("| Fault | Found | After calls | Calls left |\n|---|---|---|---|")
    worst, others = len(options.seeds), set()
    for fault in options.fault:
        runs = [Run(build, fault, seed, options.calls) for seed in options.seeds]
        found = [run for run in runs if run.found]
        others.update(other for run in runs for other in run.others)
        worst = min(worst, len(found))
        missed = [seed for seed, run in zip(options.seeds, runs) if not run.found]
        print(f"| {fault} | {len(found)} of {len(runs)}{f', not {missed}' if missed else ''} | "
              f"{', '.join(str(run.at) for run in found)} | {', '.join(str(run.left) for run in found)} |", flush=True)
    if others:
        print("Found beside them: " + ", ".join(sorted(others)))
    return 0 if worst * 10 >= len(options.seeds) * 9 and not others else 1


if __name__ == "__main__":
    sys.exit(main())
