"""A Prometheus exporter for many boards: /probe?target=BOARD&module=NAME makes a module's calls and answers metrics.

    python3 -m lmq.exporter --listen 127.0.0.1:9786 [--modules FILE]

What a module reads is said in TOML; exporter.toml beside this file holds those that come with it, and tells the form.
The names, types and texts of the metrics come from the interface.
"""

import argparse
import collections
import fnmatch
import http.server
import itertools
import json
import pathlib
import re
import socket
import sys
import threading
import time
import urllib.parse

import prometheus_client
from prometheus_client.core import CounterMetricFamily, GaugeMetricFamily, StateSetMetricFamily

import lmq
from lmq import boards
from lmq.errors import did_you_mean

KEYS = {"method": str, "arguments": dict, "labels": dict, "name": str, "counters": list, "gauges": list,
        "states": list, "each": str, "index": str, "absent": list}
FAMILIES = {"counters": CounterMetricFamily, "gauges": GaugeMetricFamily, "states": StateSetMetricFamily}
WORDS = {"us": "upstream", "ds": "downstream"}  # which a reader of metrics takes for microseconds
TARGETS_IN_MIND = 1000  # connections that are kept; boards that have not been asked for longest go first


class BadModule(lmq.Error):
    """A module says something that the interface does not know: a mistake in its file, not one of the board."""


def load_modules(paths):
    """The modules of TOML files by name; a later file replaces those of an earlier one."""
    modules = {}
    for path in paths:
        said = boards.load_toml(path).get("modules", {})
        for name, calls in said.items():
            for number, call in enumerate(calls if isinstance(calls, list) else [calls], 1):
                where = f"{path}: call {number} of module {name}"
                if not isinstance(call, dict) or "method" not in call:
                    raise BadModule(f"{where} names no method")
                for key, value in call.items():
                    if key not in KEYS or not isinstance(value, KEYS[key]):
                        raise BadModule(f"{where}: {key} is no key, or no {KEYS[key].__name__}" if key in KEYS else
                                        f"{where}: there is no key {key}{did_you_mean(key, KEYS)}")
                for label in [*call.get("labels", {}), call.get("index", "index")]:
                    if not re.fullmatch(r"[a-zA-Z_]\w*", label):
                        raise BadModule(f"{where}: {label!r} is no name of a label")
        modules.update(said)
    return modules


def reading(chip, name):
    """The method of a call, if it takes nothing away from the chip."""
    try:
        method = chip._method(name)
    except KeyError:
        raise BadModule(f"{name} is no method{did_you_mean(name, chip.interface.methods)}") from None
    effect = method.said["effect"]
    if effect not in ("reads", "reads registers") and "clears_if" not in method.said:
        raise BadModule(f"{name} {effect}: an exporter only reads")
    return method


class Families:
    """The metrics of a probe by name. What two calls of a module measure alike is there once."""

    def __init__(self):
        self.known, self.seen = {}, set()

    def add(self, kind, name, text, labels, value):
        labels = {key: str(getattr(each, "name", each)) for key, each in labels.items()}
        if (name, *labels.items()) in self.seen:
            return
        self.seen.add((name, *labels.items()))
        if name not in self.known:
            self.known[name] = FAMILIES[kind](name, text, labels=list(labels))
        self.known[name].add_metric(list(labels.values()), value)

    def collect(self):
        return list(self.known.values())


class Call:
    """A call of a module, as the interface of a board has it."""

    def __init__(self, chip, said):
        self.chip, self.said, self.method = chip, said, reading(chip, said["method"])
        self.name = "lmq_" + said.get("name", said["method"].replace("vx_", "").replace("_get", ""))
        said_struct = self.method.arguments[self.method.sole] if self.method.sole else None
        self.members = {each["name"]: each for each in (
            chip.interface.structs[said_struct["type"]]["members"] if said_struct else
            [self.method.arguments[name] for name, *_ in self.method.outputs])}
        each = said.get("each")
        if each:
            if self.members.get(each, {}).get("type") not in chip.interface.structs:
                raise BadModule(f"{self.method.name} answers no list of structs {each}"
                                + did_you_mean(each, self.members))
            self.members = {member["name"]: member
                            for member in chip.interface.structs[self.members[each]["type"]]["members"]}
        self.chosen = dict(self.choose())
        self.names = {member: "_".join(WORDS.get(word, word) for word in f"{self.name}_{member}".split("_"))
                      for member in self.chosen}
        unknown = set(said.get("arguments", {})) - set(self.method.inputs)
        if unknown:
            raise BadModule(f"{self.method.name} has no argument {sorted(unknown)[0]}"
                            f"{did_you_mean(sorted(unknown)[0], self.method.inputs)}")
        if "clears_if" in self.method.said and said.get("arguments", {}).get(self.method.said["clears_if"]):
            raise BadModule(f"{self.method.name} would clear what it reads")

    def choose(self):
        """(member, kind of metric) of what becomes a metric."""
        patterns = {kind: self.said.get(kind, []) for kind in FAMILIES}
        if not any(patterns.values()):
            yield from ((name, "counters") for name, member in self.members.items() if member.get("counter"))
        for kind, wanted in patterns.items():
            for pattern in wanted:
                found = fnmatch.filter(self.members, pattern)
                if not found:
                    raise BadModule(f"{self.method.name} answers no {pattern}{did_you_mean(pattern, self.members)}")
                for name in found:
                    member = self.members[name]
                    is_array = "count" in member or member.get("length") not in (None, 1)
                    shape = "struct" if "members" in member else self.chip.interface.shape(member, is_array)
                    if shape in ("struct", "string", "mac"):
                        raise BadModule(f"{name} of {self.method.name} is no number")
                    if kind == "states" and "enum" not in self.members[name]:
                        raise BadModule(f"{name} of {self.method.name} is no enumerator, so it is no state")
                    yield name, kind

    def choices(self, lists):
        """The arguments of each call that is to be made."""
        names = list(self.said.get("arguments", {}))
        values = [self.values(value, lists) for value in self.said.get("arguments", {}).values()]
        return [dict(zip(names, each)) for each in itertools.product(*values)]

    @staticmethod
    def values(value, lists):
        if isinstance(value, dict):
            return lists[key_of(value)]
        if isinstance(value, str) and (match := re.fullmatch(r"(\d+)\.\.(\d+)", value)):
            return range(int(match[1]), int(match[2]) + 1)
        return value if isinstance(value, list) else [value]

    def measure(self, families, arguments, result):
        """Adds the metrics of an answer."""
        labels = {}
        for label, source in self.said.get("labels", {}).items():
            if source not in arguments and source not in result:
                raise BadModule(f"{self.method.name} has no argument or member {source} for the label {label}")
            labels[label] = arguments[source] if source in arguments else result[source]
        elements = [(labels, result)]
        if self.said.get("each"):
            index = self.said.get("index", "index")
            elements = [({**labels, index: number}, each) for number, each in enumerate(result[self.said["each"]])]
        for at, values in elements:
            for member, kind in self.chosen.items():
                said, value = self.members[member], values[member]
                numbered = [(at, value)]
                if isinstance(value, list):
                    index = self.said.get("index", "index")
                    numbered = [({**at, index: number}, each) for number, each in enumerate(value)]
                for place, each in numbered:
                    if kind == "states":
                        each = {known.name: each == known for known in self.chip.enums[said["enum"]]}
                    families.add(kind, self.names[member], said["brief"], place, each)


def key_of(value):
    """The list that an argument is taken from, as a key."""
    return value["method"], tuple(sorted(value.get("arguments", {}).items())), value["list"]


class Target:
    """A board that is probed. Its connection stays open from one probe to the next."""

    def __init__(self, name):
        self.name, self.lock, self.chip = name, threading.Lock(), None
        self.calls = {}  # by module, made when it is first probed

    def probe(self, module, said, timeout):
        """The metrics of a probe. What is wrong with the board shows in them; what is wrong with the module raises."""
        families, begin = Families(), time.monotonic()
        with self.lock:
            try:
                if self.chip is None:
                    self.chip = lmq.connect(self.name, timeout=timeout).unchecked
                self.chip._transport.set_timeout(timeout)
                if module not in self.calls:
                    self.calls[module] = [Call(self.chip, each) for each in said]
                self.measure(families, self.calls[module])
                success = 1
            except (lmq.HostError, lmq.Fault, OSError) as error:
                print(f"{self.name}: {error}", file=sys.stderr, flush=True)
                families = Families()
                self.chip, self.calls, success = None, {}, 0  # another host may stand there next time
        families.add("gauges", "lmq_probe_success", "Whether the board answered.", {}, success)
        families.add("gauges", "lmq_probe_duration_seconds", "How long the probe took.", {}, time.monotonic() - begin)
        return families

    def measure(self, families, calls):
        lists = self.lists(calls)
        made = [(call, arguments) for call in calls for arguments in call.choices(lists)]
        with self.chip.batch() as batch:
            futures = [getattr(batch, call.method.name)(**arguments) for call, arguments in made]
        failed = collections.Counter()
        for (call, arguments), future in zip(made, futures):
            error = future.exception()
            if error is None:
                call.measure(families, arguments, future.result())
            elif not isinstance(error, lmq.StatusError):
                raise error
            elif type(error).__name__ not in call.said.get("absent", ()):
                failed[call.method.name, type(error).__name__] += 1
        for (method, status), count in failed.items():
            families.add("gauges", "lmq_probe_failed_calls", "Calls that the driver did not answer with success.",
                         {"method": method, "status": status}, count)

    def lists(self, calls):
        """What arguments are taken from: the lists by their keys."""
        wanted = {key_of(value): value for call in calls for value in call.said.get("arguments", {}).values()
                  if isinstance(value, dict)}
        with self.chip.batch() as batch:
            futures = {}
            for key, value in wanted.items():
                reading(self.chip, value["method"])
                futures[key] = getattr(batch, value["method"])(**value.get("arguments", {}))
        found = {}
        for key, future in futures.items():
            name, _, member = key[2].partition(".")
            try:
                found[key] = [each[member] if member else each for each in future.result()[name]]
            except lmq.StatusError:
                found[key] = []
            except (KeyError, TypeError):
                raise BadModule(f"{key[0]} answers no list {key[2]}") from None
        return found


class Exporter(http.server.ThreadingHTTPServer):
    daemon_threads = True
    request_queue_size = 256  # one round of a Prometheus with many targets

    def __init__(self, address, modules, timeout, boards_only):
        self.address_family = socket.AF_INET6 if ":" in address[0] else socket.AF_INET
        super().__init__(address, Handler)
        self.modules, self.timeout_of_boards, self.boards_only = modules, timeout, boards_only
        self.targets, self.lock = collections.OrderedDict(), threading.Lock()

    def target(self, name):
        with self.lock:
            known = self.targets.setdefault(name, Target(name))
            self.targets.move_to_end(name)
            if len(self.targets) > TARGETS_IN_MIND:
                self.targets.popitem(last=False)
            return known


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        parts = urllib.parse.urlsplit(self.path)
        query = {key: values[-1] for key, values in urllib.parse.parse_qs(parts.query).items()}
        if parts.path == "/probe":
            self.probe(query)
        elif parts.path == "/metrics":
            self.answer(200, prometheus_client.generate_latest(), prometheus_client.CONTENT_TYPE_LATEST)
        elif parts.path == "/":
            names = ", ".join(sorted(self.server.modules))
            self.answer(200, f"/probe?target=BOARD&module=NAME, NAME one of {names}; /metrics\n".encode())
        else:
            self.answer(404, b"/probe, /metrics\n")

    def probe(self, query):
        server = self.server
        target, names = query.get("target", ""), query.get("module", "ethernet").split(",")
        unknown = [name for name in names if name not in server.modules]
        if not target or unknown:
            self.answer(400, (f"no module {unknown[0]}{did_you_mean(unknown[0], server.modules)}\n" if unknown else
                              "which board? /probe?target=...\n").encode())
            return
        try:
            if server.boards_only and target not in boards.known():
                self.answer(403, f"{target} is no board of the boards file\n".encode())
                return
            asked = float(self.headers.get("X-Prometheus-Scrape-Timeout-Seconds") or server.timeout_of_boards)
            said = [call for name in names for call in server.modules[name]]
            families = server.target(target).probe(",".join(names), said,
                                                   max(0.1, min(asked - 0.2, server.timeout_of_boards)))
            self.answer(200, prometheus_client.generate_latest(families), prometheus_client.CONTENT_TYPE_LATEST)
        except (lmq.Error, ValueError) as error:  # the module, or the name of the board
            self.answer(400, f"{error}\n".encode())

    def answer(self, status, body, kind="text/plain; charset=utf-8"):
        self.send_response(status)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        pass


def main():
    parser = argparse.ArgumentParser(prog="python3 -m lmq.exporter",
                                     description="Answers Prometheus with metrics of many boards.")
    parser.add_argument("--listen", default="127.0.0.1:9786", metavar="ADDR:PORT",
                        help="port 0: any (default: %(default)s)")
    parser.add_argument("--modules", action="append", default=[], metavar="FILE",
                        help="more modules, TOML (repeatable)")
    parser.add_argument("--timeout", type=float, default=5.0, metavar="S",
                        help="seconds for a board's answer (default: 5)")
    parser.add_argument("--targets", action="store_true",
                        help="print the boards of the boards file for Prometheus' file discovery, and leave")
    parser.add_argument("--boards-only", action="store_true", help="probe only what the boards file names")
    options = parser.parse_args()
    address, _, port = options.listen.rpartition(":")
    try:
        if options.targets:
            print(json.dumps([{"targets": [name], "labels": {"groups": ",".join(board.groups)}}
                              for name, board in boards.known().items()], indent=1))
            return
        modules = load_modules([pathlib.Path(__file__).with_suffix(".toml"), *options.modules])
        server = Exporter((address.strip("[]"), int(port)), modules, options.timeout, options.boards_only)
    except (lmq.Error, OSError, ValueError) as error:
        sys.exit(f"lmq.exporter: {error}")
    print(f"Listening on http://{address}:{server.server_port}", flush=True)
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        pass


if __name__ == "__main__":
    main()
