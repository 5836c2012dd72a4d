#!/usr/bin/python3
"""Changes the program in one small place at a time, and counts how many of these mutants a test catches.

One build holds all mutants of the sample, each behind a switch (mutant.h). A first run of the tests records which
mutants each test reaches; then each mutant is given to the tests that reach it, the quickest first, up to the first
that fails. ../README.md says more.
"""
import argparse
import collections
import concurrent.futures
import itertools
import json
import math
import os
import pathlib
import random
import re
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import threading
import time

import sites

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parents[1]
FOLDERS = ["marshal", "frame", "host", "driver", "client", "trace"]
# Those that measure, build, or take at random what they send; and those whose case is the size of the build.
LEFT_OUT = r"^(bench|docs|fuzz|real-driver|host\.soak|plugin_footprint)"
LOG_SIZE = 1 << 20  # as in mutant.h


def run(*command, text=True, **more):
    return subprocess.run(command, check=True, capture_output=True, text=text, **more).stdout


class Tree:
    """A copy of the commit, its build, and what is known of its sites, in a folder that later runs take up again."""

    def __init__(self, work, jobs):
        self.work, self.jobs, self.tree, self.build = work, jobs, work / "tree", work / "build"
        self.head = run("git", "-C", ROOT, "rev-parse", "HEAD").strip()
        sources = run("git", "-C", ROOT, "rev-parse", *(f"HEAD:{folder}" for folder in FOLDERS)).split()
        sources.append(run("git", "hash-object", HERE / "sites.py").strip())
        known = self.load("sites.json", {})
        if known.get("sources") != sources:
            shutil.rmtree(work, ignore_errors=True)
            work.mkdir(parents=True)
        if known.get("head") != self.head or not self.build.exists():
            self.copy()
        if known.get("sources") == sources:
            self.sites, self.bad = known["sites"], known["bad"]
        else:
            self.sites, self.bad = self.find(), []
        self.save("sites.json", {"head": self.head, "sources": sources, "sites": self.sites, "bad": self.bad})

    def load(self, name, default):
        path = self.work / name
        return json.loads(path.read_text()) if path.exists() else default

    def save(self, name, value):
        (self.work / name).write_text(json.dumps(value))

    def copy(self):
        print("Copying the commit", flush=True)
        shutil.rmtree(self.tree, ignore_errors=True)
        self.tree.mkdir()
        archive = run("git", "-C", ROOT, "archive", "HEAD", text=False)
        subprocess.run(["tar", "-x", "-m", "-C", self.tree], input=archive, check=True)
        # Without what costs time to build and is not used. What a switch does to warnings is nobody's concern.
        run("cmake", "-S", self.tree, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Release", "-DLMQ_BENCH=OFF",
            "-DLMQ_CLANG=OFF", f"-DCMAKE_CXX_FLAGS=-w -Wno-narrowing -include {HERE}/mutant.h")
        # What is made for others to include has to be there before they are looked at.
        run("cmake", "--build", self.build, "--target", "lmq_contract", "lmq_version")

    def find(self):
        print("Looking for sites", flush=True)
        commands = json.loads((self.build / "compile_commands.json").read_text())
        found = {}
        with concurrent.futures.ProcessPoolExecutor(self.jobs) as pool:
            paths = [path for folder in FOLDERS for path in sorted((self.tree / folder).glob("*.cc"))]
            tasks = [pool.submit(find_in, path, self.flags(path, commands), self.tree) for path in paths]
            for site in itertools.chain.from_iterable(task.result() for task in tasks):
                site["file"] = os.path.relpath(site["file"], self.tree)
                found[site["file"], site["start"], site["end"], site["operator"]] = site
        # The number of a site is its place in this list, from 1 on.
        return [dict(found[key], number=number) for number, key in enumerate(sorted(found), 1)]

    def flags(self, path, commands):
        # A file that is compiled together with others has no entry of its own, but the flags of its folder.
        together = f"{self.build.name}/{path.parent.name}/"
        entries = [one for one in commands if one["file"] == str(path)]
        entries = entries or [one for one in commands if together in one["file"]]
        first, *others = ([*itertools.dropwhile(lambda word: word[0] != "-", shlex.split(one["command"]))]
                          for one in entries)
        sources = {one["file"] for one in entries}
        words = [word for word in first if word[:2] in ("-D", "-I", "-i", "-s", "-f")
                 or word[0] == "/" and word not in sources]
        # Several programs of a folder may each look for headers in places of their own.
        return words + [word for other in others for word in other if word[:2] in ("-D", "-I") and word not in words]

    def original(self, file):
        return run("git", "-C", ROOT, "show", f"{self.head}:{file}", text=False)

    def sample(self, seed, count):
        """Sites of each folder in proportion to their number, but a twentieth of all from each at least."""
        left, chosen = count, []
        by_folder = {folder: [site for site in self.sites if site["file"].startswith(f"{folder}/")]
                     for folder in FOLDERS}
        for folder, total in zip(sorted(FOLDERS, key=lambda one: len(by_folder[one])), range(len(FOLDERS), 0, -1)):
            mine = by_folder.pop(folder)
            share = left * len(mine) // (len(mine) + sum(map(len, by_folder.values())))
            share = left if total == 1 else max(share, count // 20)
            random.Random(f"{seed} {folder}").shuffle(mine)
            chosen += [site for site in mine if site["number"] not in self.bad][:share]
            left -= share
        return chosen

    def make(self, seed, count):
        """Builds the tree with a sample of mutants, and returns it. Those that do not compile are exchanged."""
        while True:
            sample = self.sample(seed, count)
            by_file = collections.defaultdict(list)
            for site in sample:
                by_file[site["file"]].append(site)
            for file in sorted({site["file"] for site in self.sites}):
                text, path = sites.rewritten(self.original(file), by_file[file]), self.tree / file
                if path.read_bytes() != text:
                    path.write_bytes(text)
            print(f"Building {len(sample)} mutants of {len(self.sites)} possible ones", flush=True)
            done = subprocess.run(["cmake", "--build", self.build, f"-j{self.jobs}", "--", "-k", "0"],
                                  capture_output=True, text=True)
            if done.returncode == 0:
                return sample
            bad = self.at_lines(by_file, r"(?:fatal )?error:", done.stdout) or self.at_lines(by_file, "", done.stdout)
            if not bad:
                sys.exit(done.stdout[-5000:] + "the build fails, and not by a mutant")
            print(f"{len(bad)} of them do not compile", flush=True)
            self.bad += bad
            self.save("sites.json", dict(self.load("sites.json", {}), bad=self.bad))

    def at_lines(self, by_file, what, messages):
        """The numbers of the sites that stand on lines of which the compiler says this."""
        lines = set(re.findall(rf"/{self.tree.name}/(\S+?):(\d+):(?:\d+:)? +{what}", messages))
        return [site["number"] for file, line in lines for site in by_file[file]
                if 0 <= int(line) - site["line"] <= self.original(file)[site["start"]:site["end"]].count(b"\n")]


def find_in(path, flags, tree):
    sys.setrecursionlimit(10000)
    ours = tuple(f"{tree}/{folder}/" for folder in FOLDERS)
    return sites.find(str(path), flags, lambda name: name.startswith(ours))


class Tests:
    """CTest's tests, run one by one."""

    def __init__(self, tree, left_out):
        listed = json.loads(run("ctest", "--show-only=json-v1", cwd=tree.build))["tests"]
        self.tests = {one["name"]: one for one in listed if not re.search(left_out, one["name"])}
        self.own = {key: value for key, value in os.environ.items() if not key.startswith("LMQ_")}
        self.runs = itertools.count()

    def run(self, name, limit, **variables):
        """Runs a test to its end or for this many seconds. Returns whether it passed, and how long it took."""
        properties = {one["name"]: one["value"] for one in self.tests[name]["properties"]}
        mark = f"{os.getpid()}.{next(self.runs)}"
        with tempfile.TemporaryDirectory(prefix="mut", ignore_cleanup_errors=True) as folder:
            os.chmod(folder, 0o755)  # for a host that has become another user
            environment = dict(self.own, TMPDIR=folder, MUTANT_RUN=mark, **variables)
            environment.update(one.split("=", 1) for one in properties.get("ENVIRONMENT", []))
            start = time.monotonic()
            process = subprocess.Popen(self.tests[name]["command"], env=environment, preexec_fn=bounded,
                                       cwd=properties["WORKING_DIRECTORY"], start_new_session=True,
                                       stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            try:
                passed = process.wait(limit) == 0
            except subprocess.TimeoutExpired:
                passed = False
            took = time.monotonic() - start
            end_all(f"MUTANT_RUN={mark}".encode())
            process.wait()
        return passed, took

    def record(self, sample, jobs):
        """Runs each test as it is. Returns [name, seconds, numbers of the mutants it reaches] of those that pass."""
        def one(name):
            with tempfile.NamedTemporaryFile() as log:
                log.truncate(LOG_SIZE)
                os.chmod(log.name, 0o666)  # likewise
                passed, took = self.run(name, 600, MUTANT_LOG=log.name)
                reached = log.read()
            print(f"{took:7.1f} s  {name}{'' if passed else ': FAILS without a mutant, and is left out'}", flush=True)
            return passed, [name, took, [site["number"] for site in sample if reached[site["number"]]]]
        with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
            return [recorded for passed, recorded in pool.map(one, self.tests) if passed]


def sobered(recorded, sample):
    """What each test reaches. The plug-in of host.worker overwrites all that its worker shares, the log included, and so
    seems to reach everything: it is there for the host."""
    of_the_host = [site["number"] for site in sample if site["file"].startswith("host/")]
    return [[name, took, reached if len(reached) < len(sample) else of_the_host] for name, took, reached in recorded]


def bounded():
    """In the child: a mutant must not take the machine."""
    resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
    resource.setrlimit(resource.RLIMIT_FSIZE, (1 << 30, 1 << 30))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def end_all(mark):
    """Ends all that a test has left behind. It may have sessions of its own, but it has the test's mark."""
    for path in pathlib.Path("/proc").glob("[0-9]*/environ"):
        try:
            if mark in path.read_bytes().split(b"\0"):
                os.kill(int(path.parent.name), signal.SIGKILL)
        except (OSError, ProcessLookupError):
            pass  # it has gone, or is somebody else's


def judge(site, tests, recorded, patience):
    """Gives a mutant to the tests, the quickest first, while they take less than so many seconds together. Returns what
    catches it."""
    reaching = sorted((took, name) for name, took, reached in recorded if site["number"] in reached)
    given = [test for test, spent in zip(reaching, itertools.accumulate(took for took, _ in reaching)) if spent <= patience]
    for took, name in given:
        limit = 5 * took + 10
        for _ in range(2):  # a machine under load can make a test fail once; a mutant does so again
            passed, took = tests.run(name, limit, MUTANT=str(site["number"]))
            if passed or took >= limit:
                break
        if not passed:
            return "caught", name
    most = "" if len(given) == len(reaching) else f", {len(given)} were tried"
    return "survived", f"{len(reaching) or 'no'} tests reach it{most}"


def table(title, rows):
    print(f"\n{title:<20} mutants  caught  survived  share")
    total = collections.Counter()
    for name, results in sorted(rows.items()):
        total.update(results)
        line(name, collections.Counter(results))
    line("all", total)


def line(name, counts):
    every = counts["caught"] + counts["survived"]
    share = counts["caught"] / max(every, 1)
    print(f"{name:<20} {every:7}  {counts['caught']:6}  {counts['survived']:8}  {share:5.0%}")


def report(tree, sample, results):
    judged = [(site, results[site["number"]]) for site in sample if site["number"] in results]
    print(f"\n{len(judged)} of {len(sample)} mutants tried at {tree.head[:10]}")
    for title, key in (("folder", lambda site: site["file"].split("/")[0]),
                       ("operator", lambda site: site["operator"])):
        rows = collections.defaultdict(list)
        for site, one in judged:
            rows[key(site)].append(one["result"])
        table(title, rows)
    print("\nThe survivors:")
    for site, one in judged:
        if one["result"] != "survived":
            continue
        text = tree.original(site["file"])
        before, after = (re.sub(r"\s+", " ", part) for part in sites.mutated(site, text))
        print(f"{site['file']}:{site['line']}: {site['operator']} (mutant {site['number']}, {one['by']})\n"
              f"    {text.splitlines()[site['line'] - 1].decode().strip()}\n    {before}  ->  {after or '(nothing)'}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=300, help="how many mutants (default %(default)s)")
    parser.add_argument("--seed", default="1", help="which ones (default %(default)s)")
    parser.add_argument("--minutes", type=float, default=90,
                        help="start no mutant after this time (default %(default)s)")
    parser.add_argument("-j", "--jobs", type=int, default=2, help="how many at a time (default %(default)s)")
    parser.add_argument("--patience", type=float, default=math.inf,
                        help="how many seconds of tests a mutant is given to at most (default: all that reach it)")
    parser.add_argument("--left-out", default=LEFT_OUT, help="tests that are not used, a regular expression")
    parser.add_argument("--work", type=pathlib.Path, default=ROOT / "build" / "mutation",
                        help="folder that a later run takes up again (default build/mutation)")
    options = parser.parse_args()
    end = time.monotonic() + options.minutes * 60

    tree = Tree(options.work.resolve(), options.jobs)
    sample = tree.make(options.seed, options.count)
    tests = Tests(tree, options.left_out)
    plan = [tree.head, options.left_out, sorted(site["number"] for site in sample)]
    record = tree.load("record.json", {})
    if record.get("plan") != plan:
        print("Recording what each test reaches", flush=True)
        record = {"plan": plan, "tests": tests.record(sample, options.jobs)}
        tree.save("record.json", record)

    recorded = sobered(record["tests"], sample)

    # What is caught stays caught. A survivor is tried anew when the tests have changed.
    path, results = options.work / "results.jsonl", {}
    for one in map(json.loads, path.read_text().splitlines() if path.exists() else ()):
        if one["result"] == "caught" or one["head"] == tree.head:
            results[one["number"]] = one
    todo = [site for site in sample if site["number"] not in results]
    random.Random(options.seed).shuffle(todo)  # so that a run that is cut short has seen all folders
    lock = threading.Lock()

    def one(site):
        if time.monotonic() > end:
            return
        start = time.monotonic()
        result, by = judge(site, tests, recorded, options.patience)
        done = {"number": site["number"], "result": result, "by": by, "head": tree.head}
        with lock, open(path, "a") as file:
            results[site["number"]] = done
            file.write(json.dumps(done) + "\n")
            print(f"[{len(results)}/{len(sample)}] {site['file']}:{site['line']}: {site['operator']}: {result}, {by} "
                  f"({time.monotonic() - start:.1f} s)", flush=True)

    with concurrent.futures.ThreadPoolExecutor(options.jobs) as pool:
        list(pool.map(one, todo))
    report(tree, sample, results)


if __name__ == "__main__":
    main()
