#!/usr/bin/env python3
"""How long a call at fifty boards at once takes, five of which take connections and never answer: with an empty cache,
when nobody knows the interface yet, and with a warm one; and a call at one of them. All are simulated hosts, on this
machine.

    bench/boards/boards.py build/release [--boards N] [--dead N] [--rounds N] [--other PROGRAM]

`--other` names a second lmqctl, whose runs take turns with those of the first.
"""

import argparse
import contextlib
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests"))
from hosting import Host, environment  # noqa: E402

CALL = ("call", "vx_watchdog_get", "0", "--columns", "wd_timer")


def write_boards(folder, urls):
    file = folder / "lmqctl" / "boards.toml"
    file.parent.mkdir()
    file.write_text("".join(f'[boards.b{number:02}]\nurl = "{url}"\n' for number, url in enumerate(urls)))


def timed(program, folder, expected, *words):
    """Seconds of one run. What it shows has to be right: `expected` boards that answered."""
    begin = time.perf_counter()
    done = subprocess.run([program, *words], text=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          env=environment(XDG_CONFIG_HOME=str(folder), XDG_CACHE_HOME=str(folder / "cache")))
    took = time.perf_counter() - begin
    answered = sum(line.split()[-1].isdigit() for line in done.stdout.splitlines())
    assert answered == expected, done.stdout
    return took


def measure(programs, folder, alive, rounds):
    """The times of each program: by what was done."""
    every = ("--on", "all", "--timeout", "1", *CALL)
    times = {program: {"empty cache": [], "warm cache": [], "one board, warm cache": []} for program in programs}
    for _ in range(rounds):
        for program in programs:
            shutil.rmtree(folder / "cache", ignore_errors=True)
            kept = times[program]
            kept["empty cache"].append(timed(program, folder, alive, *every))
            kept["warm cache"].append(timed(program, folder, alive, *every))
            kept["one board, warm cache"].append(timed(program, folder, 1, "--board", "b00", *CALL))
    return times


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("build", type=pathlib.Path)
    parser.add_argument("--boards", type=int, default=50)
    parser.add_argument("--dead", type=int, default=5)
    parser.add_argument("--rounds", type=int, default=5)
    parser.add_argument("--other", help="another lmqctl")
    options = parser.parse_args()
    programs = [str(options.build / "lmqctl")] + ([options.other] if options.other else [])
    with contextlib.ExitStack() as stack:
        folder = pathlib.Path(stack.enter_context(tempfile.TemporaryDirectory()))
        urls, step = [], options.boards // max(options.dead, 1)
        for number in range(options.boards):
            # Spread over all of them; the kernel takes the connections, and nobody reads from them.
            if number % step == 1 and number // step < options.dead:
                server = stack.enter_context(socket.create_server(("127.0.0.1", 0)))
                urls.append(f"http://127.0.0.1:{server.getsockname()[1]}/RPC2")
                continue
            urls.append(stack.enter_context(Host(program=str(options.build / "lmq-host"))).url)
        write_boards(folder, urls)
        subprocess.run([programs[0], "--on", "all", "--timeout", "5", "call", "lmq_init_system", "p_cfg.num_dev=1",
                        "p_cfg.dev_cfg[0].enbl=1"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                       env=environment(XDG_CONFIG_HOME=str(folder), XDG_CACHE_HOME=str(folder / "cache")))
        times = measure(programs, folder, options.boards - options.dead, options.rounds)
    print(f"{options.boards} boards, {options.dead} dead, --timeout 1; seconds, median of {options.rounds} (slowest), "
          f"with a load average of {os.getloadavg()[0]:.1f}")
    for program, kept in times.items():
        for what, seconds in kept.items():
            print(f"{program}  {what}: {statistics.median(seconds):.3f} ({max(seconds):.3f})")


if __name__ == "__main__":
    main()
