#!/usr/bin/env python3
"""Calls a second over loopback: lmq-host with and without a process for the driver, the XML-RPC library's own HTTP
server with the same methods, Python's threading server with methods that are alike, and nginx, which sends the answer to
the small call without looking at it.

The servers take turns within one run, second by second, so that what else the machine does meets all of them; what is
printed are ratios, each the median over the rounds, and how the seconds spread. The load comes from wrk."""

import argparse
import http.client
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
SMALL, ECHO = "lmq.vx_watchdog_get", "lmq.lmq_init_system"
CASES = [("small call, 1 client", SMALL, 1), ("small call, 8 clients", SMALL, 8), ("50 kB echo, 1 client", ECHO, 1)]


def free_port():
    with socket.socket() as probe:
        probe.bind(("127.0.0.1", 0))
        return probe.getsockname()[1]


# One process, like the others, which keeps its connections, writes no log, and answers from its memory.
NGINX = """
daemon off; master_process off; pid FOLDER/nginx.pid; error_log stderr crit;
events { worker_connections 8192; }
http {
    access_log off; keepalive_requests 1000000000; default_type "text/xml; charset=utf-8";
    client_body_temp_path FOLDER/1; proxy_temp_path FOLDER/2; fastcgi_temp_path FOLDER/3;
    uwsgi_temp_path FOLDER/4; scgi_temp_path FOLDER/5;
    server { listen 127.0.0.1:PORT; location /RPC2 { return 200 'ANSWER'; } }
}
"""


class Server:
    def __init__(self, name, command):
        self.name = name
        self.port = free_port()
        command = [word(self.port) if callable(word) else str(word).replace("PORT", str(self.port)) for word in command]
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


def post(server, body):
    """The answer to a document."""
    connection = http.client.HTTPConnection("127.0.0.1", server.port)
    connection.request("POST", "/RPC2", body, {"Content-Type": "text/xml"})
    answer = connection.getresponse()
    text = answer.read()
    if answer.status != 200 or b"<fault>" in text:
        sys.exit(f"{server.name}: {answer.status} {text[:500]}")
    return text


def idle_connections(port, count):
    return [socket.create_connection(("127.0.0.1", port)) for _ in range(count)]


def rate(server, body, clients, seconds):
    done = subprocess.run(["wrk", "-t1", f"-c{clients}", f"-d{seconds}", "-s", HERE / "call.lua",
                           f"http://127.0.0.1:{server.port}"],
                          env={**os.environ, "BODY": str(body)}, capture_output=True, text=True, check=False)
    found = re.search(r"Requests/sec:\s*([0-9.]+)", done.stdout)
    if done.returncode != 0 or not found or "Non-2xx" in done.stdout:
        sys.exit(f"{server.name}: {done.stdout}{done.stderr}")
    return float(found[1])


def arguments():
    parse = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parse.add_argument("--build", type=Path, default=HERE.parent.parent / "build/release", help="the build folder")
    parse.add_argument("--rounds", type=int, default=5)
    parse.add_argument("--seconds", type=int, default=1, help="of each server in each round")
    parse.add_argument("--idle", type=int, default=1000,
                       help="idle connections to each server beside, in half of a round; 0 leaves it out")
    parse.add_argument("--only", help="comma-separated: two,traced,in-process,library,python,nginx; by default all, "
                       "and nginx if it is installed")
    parse.add_argument("--instructions", action="store_true", help="count the instructions of calls as well (lmq-bench)")
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
        "nginx": ("nginx", None),
    }


def nginx(folder, answer):
    """The command of nginx that sends an answer."""
    def configuration(port):
        file = folder / "nginx.conf"
        file.write_text(NGINX.replace("FOLDER", str(folder)).replace("PORT", str(port))
                        .replace("ANSWER", answer.decode()))
        return str(file)

    return ["nginx", "-c", configuration, "-p", folder]


def start(chosen, folder):
    """The servers, and the document of each method."""
    servers = {}
    try:
        for key, (name, command) in chosen.items():
            if key != "nginx":
                servers[key] = Server(name, command)
        first = next(iter(servers.values()))
        _, whole = getattr(first.proxy(), ECHO)({})
        bodies = {}
        for method, sent in ((SMALL, (0, {})), (ECHO, (whole,))):
            bodies[method] = folder / method
            bodies[method].write_text(xmlrpc.client.dumps(sent, method))
            for server in servers.values():
                post(server, bodies[method].read_bytes())
            if method == SMALL and "nginx" in chosen:
                nginx_server = Server("nginx", nginx(folder, post(first, bodies[SMALL].read_bytes())))
        if "nginx" in chosen:
            servers["nginx"] = nginx_server
        return servers, bodies
    except BaseException:
        for server in servers.values():
            server.stop()
        raise


def measure(servers, bodies, options):
    """The rates of each server in each case, round by round."""
    rates = {}
    for _ in range(options.rounds):
        for idle in [0] + ([options.idle] if options.idle else []):
            sockets = [one for server in servers.values() for one in idle_connections(server.port, idle)]
            # Python's server starts a thread for each, which the first to be measured would feel.
            time.sleep(2 if idle else 0)
            for title, method, clients in CASES:
                for key, server in servers.items():
                    if key == "nginx" and method != SMALL:
                        continue
                    value = rate(server, bodies[method], clients, options.seconds)
                    rates.setdefault((title, idle), {}).setdefault(key, []).append(value)
            for one in sockets:
                one.close()
    return rates


def ratio(of, over):
    return statistics.median(a / b for a, b in zip(of, over))


def report(rates, names):
    """Prints the tables. Returns the numbers for --json."""
    result, spreads = [], []
    base = "library" if "library" in names else next(iter(names))
    print_row("", names.values())
    print("|---" * (len(names) + 1) + "|")
    for (title, idle), measured in sorted(rates.items(), key=lambda item: item[0][1]):
        label = title + (f", {idle} idle connections" if idle else "")
        cells, spread = [], []
        for key in names:
            if key not in measured:
                cells.append("")
                spread.append("")
                continue
            median, worst = statistics.median(measured[key]), min(measured[key])
            cell = f"{median:,.0f} calls/s"
            if key != base:
                others = [f"{ratio(measured[key], measured[other]):.2f} of {names[other]}"
                          for other in (base, "nginx") if other in measured and other != key]
                cell = ", ".join(others) + f" ({cell})"
            cells.append(cell)
            spread.append(f"{worst / median:.2f}")
            result.append({"case": title, "idle": idle, "server": names[key], "calls_per_second": median,
                           "ratio": ratio(measured[key], measured[base]), "worst": worst / median,
                           "to_nginx": ratio(measured[key], measured["nginx"]) if "nginx" in measured else None})
        print_row(label, cells)
        spreads.append((label, spread))
    print(f"\nThe slowest of the {len(next(iter(measured.values())))} measurements, as a part of the median:\n")
    print_row("", names.values())
    print("|---" * (len(names) + 1) + "|")
    for label, spread in spreads:
        print_row(label, spread)
    return result


def print_row(label, cells):
    print(f"| {label} | " + " | ".join(cells) + " |", flush=True)


def instructions(options, folder):
    """Prints the instructions of calls in lmq-host. Returns them."""
    counts = folder / "counts.json"
    subprocess.run([options.build / "lmq-bench", "--instructions", "--json", counts], stdout=subprocess.DEVNULL,
                   check=True)
    found = json.loads(counts.read_text())["instructions in the host"]
    print("\nInstructions of a call in lmq-host --in-process, in user space:\n\n| call | instructions |\n|---|---:|")
    for call, count in found.items():
        print(f"| {call} | {count:,.0f} |")
    return found


def choice(options, known):
    """The words of the servers that are to be measured."""
    wanted = options.only.split(",") if options.only else [key for key in known if key != "nginx" or shutil.which(key)]
    if wrong := [key for key in wanted if key not in known]:
        sys.exit(f"hosts.py: --only knows no '{wrong[0]}'")
    if wanted == ["nginx"]:
        sys.exit("hosts.py: nginx sends the answer of another server, so that it cannot be measured alone")
    return wanted


def main():
    options = arguments()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        known = commands(options, folder)
        chosen = {key: known[key] for key in choice(options, known)}
        # Each idle connection is a descriptor here, and one in its server.
        most = resource.getrlimit(resource.RLIMIT_NOFILE)[1]
        resource.setrlimit(resource.RLIMIT_NOFILE, (min(most, len(chosen) * options.idle + 1000), most))
        # The driver of the tests writes down what it is handed into this file.
        os.environ["LMQ_PROBE"] = str(folder / "probe")
        with open(os.environ["LMQ_PROBE"], "wb") as probe:
            probe.truncate(64 << 20)
        servers, bodies = start(chosen, folder)
        try:
            rates = measure(servers, bodies, options)
        finally:
            for server in servers.values():
                server.stop()
        result = {"servers": report(rates, {key: name for key, (name, _) in chosen.items()})}
        if options.instructions:
            result["instructions"] = instructions(options, folder)
    if options.json:
        options.json.write_text(json.dumps(result, indent=1) + "\n")


main()
