"""What the Python package costs: a call beside xmlrpc.client's, the start, and a round of probes of fifty boards.

    python.py HOST-PROGRAM [--calls N] [--boards N] [--rounds N]

It prints tables. Run it on an idle machine, with a Python that has prometheus_client for the last of them.
"""

import argparse
import concurrent.futures
import os
import pathlib
import statistics
import subprocess
import sys
import tempfile
import time
import urllib.request
import xmlrpc.client

ROOT = pathlib.Path(__file__).resolve().parents[1]
sys.path[:0] = [str(ROOT / "python")]
import lmq  # noqa: E402
from lmq.simulation import SimulatedChip  # noqa: E402

WATCHDOG = {"wd_timer": 30, "mask_s": {"wd_timer": 1}}


def calls(count):
    """Times of calls through both, taken in turns: what else the machine does then hits both alike."""
    with SimulatedChip() as simulated, lmq.connect(simulated.url) as chip:
        raw = xmlrpc.client.ServerProxy(simulated.url).lmq
        chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True}])
        for vlan in range(16):
            chip.vx_flow_us_add(0, 3, p_key={"key_s": {"mac_vlan": {"o_vid": 100 + vlan}}})
        cases = {
            "lmq_read_register": (lambda: raw.lmq_read_register(0, 0x1000, 0), lambda: chip.lmq_read_register(0, 0x1000)),
            "vx_watchdog_set": (lambda: raw.vx_watchdog_set(0, WATCHDOG), lambda: chip.vx_watchdog_set(0, wd_timer=30)),
            "vx_watchdog_get": (lambda: raw.vx_watchdog_get(0, {}), lambda: chip.vx_watchdog_get(0)),
            "vx_eth_port_stats_get": (lambda: raw.vx_eth_port_stats_get(0, 3, {}, 0),
                                      lambda: chip.vx_eth_port_stats_get(0, 3)),
            "vx_flow_us_all_get": (lambda: raw.vx_flow_us_all_get(0, 3, 16, [{}] * 16, 0),
                                   lambda: chip.vx_flow_us_all_get(0, 3, 16)),
        }
        print("| call | xmlrpc.client, us | lmq, us | ratio |\n|---|---:|---:|---:|")
        for name, ways in cases.items():
            times = [[], []]
            for _ in range(max(10, count // 20 if "all" in name else count)):
                for way, kept in zip(ways, times):
                    begin = time.perf_counter()
                    way()
                    kept.append(time.perf_counter() - begin)
            plain, ours = (statistics.median(each) * 1e6 for each in times)
            print(f"| {name} | {plain:.0f} | {ours:.0f} | {ours / plain:.2f} |")


START = """
import time
begin, worked = time.perf_counter(), time.process_time()
import lmq
imported = time.perf_counter()
chip = lmq.connect({url!r})
connected = time.perf_counter()
try:
    chip.vx_watchdog_get(0)
except lmq.StatusError:
    pass
print(imported - begin, connected - imported, time.perf_counter() - connected, time.perf_counter() - begin,
      time.process_time() - worked)
"""


def start(count):
    """Times of the start of a program, with and without a copy of the interface."""
    with SimulatedChip() as simulated, tempfile.TemporaryDirectory() as cache:
        environment = dict(os.environ, XDG_CACHE_HOME=cache, PYTHONPATH=str(ROOT / "python"))
        environment.pop("PYTHONDONTWRITEBYTECODE", None)  # an installed package is compiled already

        def once():
            done = subprocess.run([sys.executable, "-c", START.format(url=simulated.url)], env=environment, check=True,
                                  stdout=subprocess.PIPE, text=True)
            return [1000 * float(each) for each in done.stdout.split()]

        first = once()
        rest = [statistics.median(each) for each in zip(*(once() for _ in range(count)))]
        print("\n| start, ms | import | connect | first call | in all | of it CPU |\n|---|---:|---:|---:|---:|---:|")
        for name, times in (("nothing kept", first), ("interface kept", rest)):
            print(f"| {name} | " + " | ".join(f"{each:.1f}" for each in times) + " |")


def probes(boards, rounds):
    """Times of rounds of probes, all boards at once, and the memory of the exporter after each."""
    running = [SimulatedChip(traffic=(number + 1, 1000)) for number in range(boards)]
    exporter = subprocess.Popen([sys.executable, "-m", "lmq.exporter", "--listen", "127.0.0.1:0"], text=True,
                                stdout=subprocess.PIPE, env=dict(os.environ, PYTHONPATH=str(ROOT / "python")))
    try:
        url = exporter.stdout.readline().split()[-1]
        for each in running:
            with lmq.connect(each.url) as chip:
                chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True, "gpon_cfg": {"auto_register": True}}])

        def probe(board):
            path = f"/probe?target={board.url}&module=ethernet,gpon,policers,queues,state"
            return b"lmq_probe_success 1.0" in urllib.request.urlopen(url + path, timeout=60).read()

        memory = pathlib.Path(f"/proc/{exporter.pid}/statm")
        print(f"\n| round of {boards} probes | s | answered | exporter's memory, MB |\n|---|---:|---:|---:|")
        for number in range(1, rounds + 1):
            begin = time.perf_counter()
            with concurrent.futures.ThreadPoolExecutor(boards) as threads:
                answered = sum(threads.map(probe, running))
            seconds = time.perf_counter() - begin
            if number in (1, 2, 3, 10, 30, 100, rounds):
                resident = int(memory.read_text().split()[1]) * os.sysconf("SC_PAGE_SIZE") / 1e6
                print(f"| {number} | {seconds:.2f} | {answered} | {resident:.1f} |")
    finally:
        exporter.terminate()
        exporter.wait()
        for each in running:
            each.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("host", help="lmq-host")
    parser.add_argument("--calls", type=int, default=2000)
    parser.add_argument("--starts", type=int, default=20)
    parser.add_argument("--boards", type=int, default=50)
    parser.add_argument("--rounds", type=int, default=30)
    options = parser.parse_args()
    os.environ["LMQ_HOST"] = options.host
    calls(options.calls)
    start(options.starts)
    probes(options.boards, options.rounds)


if __name__ == "__main__":
    main()
