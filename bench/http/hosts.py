#!/usr/bin/env python3
"""Calls a second over loopback: lmq-host with and without a process for the driver, the XML-RPC library's own HTTP
server with the same methods, and Python's threading server with methods that are alike.

The servers take turns within one run, second by second, so that what else the machine does meets all of them; what is
printed are ratios, each the median over the rounds. The load comes from wrk."""

import argparse
import json
import os
import re
import resource
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time
import xmlrpc.client
from pathlib import Path

HERE = Path(__file__).resolve().parent
SMALL, ECHO = "lmq.vx_reset", "lmq.lmq_init_system"
CASES = [("small call, 1 client", SMALL, 1), ("small call, 8 clients", SMALL, 8), ("50 kB echo, 1 client", ECHO, 1)]


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


class Server:
    def __init__(self, name, command):
        self.name = name
        self.port = free_port()
        command = [str(word).replace("PORT", str(self.port)) for word in command]
        # In a session of its own, as a service is: the scheduler shares the cores out by sessions first.
        self.process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                        start_new_session=True)
        for _ in range(100):
            try:
                socket.create_connection(("127.0.0.1", self.port)).close()
                return
            except OSError:
                if self.process.poll() is not None:
                    sys.exit(f"{name} ended at its start: {' '.join(command)}")
                time.sleep(0.05)
        sys.exit(f"{name} does not listen")

    def proxy(self):
        return xmlrpc.client.ServerProxy(f"http://127.0.0.1:{self.port}/RPC2", allow_none=True)

    def stop(self):
        self.process.kill()
        self.process.wait()


def idle_connections(port, count):
    return [socket.create_connection(("127.0.0.1", port)) for _ in range(count)]


def rate(server, body, clients, seconds):
    done = subprocess.run(["wrk", "-t1", f"-c{clients}", f"-d{seconds}", "-s", HERE / "call.lua",
                           f"http://127.0.0.1:{server.port}"],
                          env={**os.environ, "BODY": str(body)}, capture_output=True, text=True, check=False)
    found = re.search(r"Requests/sec:\s*([0-9.]+)", done.stdout)
    if done.returncode != 0 or not found or "wrong answer" in done.stdout or "Non-2xx" in done.stdout:
        sys.exit(f"{server.name}: {done.stdout}{done.stderr}")
    return float(found[1])


def arguments():
    parse = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parse.add_argument("--build", type=Path, default=HERE.parent.parent / "build/release", help="the build folder")
    parse.add_argument("--rounds", type=int, default=5)
    parse.add_argument("--seconds", type=int, default=1, help="of each server in each round")
    parse.add_argument("--idle", type=int, default=1000,
                       help="idle connections to each server beside, in half of a round; 0 leaves it out")
    parse.add_argument("--only", help="comma-separated: two,traced,in-process,library,python")
    parse.add_argument("--host-options", default="", help="more options of lmq-host")
    parse.add_argument("--json", type=Path, metavar="FILE", help="where to write the numbers")
    options = parse.parse_args()
    if shutil.which("wrk") is None:
        sys.exit("hosts.py: there is no wrk (apt-get install wrk)")
    if not (options.build / "library-server").exists():
        sys.exit(f"hosts.py: {options.build} holds no library-server (cmake --build --preset release)")
    return options


def commands(options, folder):
    """The name and the command of each server, by the word that --only knows it by."""
    build = options.build
    # The driver of the tests takes no time: what is measured is all that is around it.
    libraries = ["--plugin", build / "lmq_xmlrpc.so", "--driver", build / "probe/liblmq.so"]
    host = [build / "lmq-host", "--listen", "127.0.0.1:PORT", *libraries, *options.host_options.split()]
    return {
        "two": ("lmq-host", host),
        "traced": ("lmq-host --trace", [*host, "--trace", folder / "trace", "--trace-limit", "64MB"]),
        "in-process": ("lmq-host --in-process", [*host, "--in-process"]),
        "library": ("the library's server", [build / "library-server", "PORT", *libraries[1::2]]),
        "python": ("Python's server", [sys.executable, HERE / "python_server.py", "PORT"]),
    }


def measure(servers, options, folder):
    """The rates of each server in each case, round by round."""
    _, whole = getattr(next(iter(servers.values())).proxy(), ECHO)({})
    bodies = {}
    for method, sent in ((SMALL, (0, 0)), (ECHO, (whole,))):
        bodies[method] = folder / method
        bodies[method].write_text(xmlrpc.client.dumps(sent, method))
    rates = {}
    for _ in range(options.rounds):
        for idle in [0] + ([options.idle] if options.idle else []):
            sockets = [one for server in servers.values() for one in idle_connections(server.port, idle)]
            # Python's server starts a thread for each, which the first to be measured would feel.
            time.sleep(2 if idle else 0)
            for title, method, clients in CASES:
                for key, server in servers.items():
                    value = rate(server, bodies[method], clients, options.seconds)
                    rates.setdefault((title, idle), {}).setdefault(key, []).append(value)
            for one in sockets:
                one.close()
    return rates


def ratio(of, over):
    return statistics.median(a / b for a, b in zip(of, over))


def report(rates, names):
    """Prints the table. Returns the numbers for --json."""
    print("| | " + " | ".join(names.values()) + " |")
    print("|---" * (len(names) + 1) + "|")
    result = []
    base = "library" if "library" in names else next(iter(names))
    for (title, idle), measured in sorted(rates.items(), key=lambda item: item[0][1]):
        label = title + (f", {idle} idle connections" if idle else "")
        cells = []
        for key, name in names.items():
            median = statistics.median(measured[key])
            if key == base:
                cells.append(f"1 ({median:,.0f} calls/s)")
            else:
                cell = f"{ratio(measured[key], measured[base]):.2f}"
                if "python" in names and key != "python":
                    cell += f" ({ratio(measured[key], measured['python']):.1f} of Python's)"
                cells.append(cell)
            result.append({"case": title, "idle": idle, "server": name, "calls_per_second": median,
                           "ratio": ratio(measured[key], measured[base])})
        print(f"| {label} | " + " | ".join(cells) + " |")
    return result


def main():
    options = arguments()
    # Each idle connection is a descriptor here, and one in its server.
    most = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
    resource.setrlimit(resource.RLIMIT_NOFILE, (min(most, 5 * options.idle + 1000), most))
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        known = commands(options, folder)
        chosen = {key: known[key] for key in (options.only.split(",") if options.only else known)}
        # The driver of the tests writes down what it is handed into this file.
        os.environ["LMQ_PROBE"] = str(folder / "probe")
        with open(os.environ["LMQ_PROBE"], "wb") as probe:
            probe.truncate(64 << 20)
        servers = {key: Server(*command) for key, command in chosen.items()}
        try:
            rates = measure(servers, options, folder)
        finally:
            for server in servers.values():
                server.stop()
    result = report(rates, {key: name for key, (name, _) in chosen.items()})
    if options.json:
        options.json.write_text(json.dumps(result, indent=1) + "\n")


main()
