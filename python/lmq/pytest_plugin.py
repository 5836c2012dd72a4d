"""The pytest plug-in: a chip for each test, on a board or simulated, and a trace of each test that fails.

With pytest-xdist each worker has a board of its own: `pytest -n auto --lmq-url=A,B,C` runs a suite on three.
"""

import collections
import itertools
import json
import pathlib
import re

import pytest

import lmq
from lmq import boards, simulation

CALLS_IN_A_TRACE = 100000  # so that a test that polls for a night still fits into memory


def pytest_addoption(parser):
    group = parser.getgroup("lmq", "the chip behind the fixture `chip`")
    group.addoption("--lmq-url", metavar="URL[,URL...]",
                    help="boards: URLs or names of the boards file; none: simulated chips")
    group.addoption("--lmq-boards", metavar="PATTERN", help="the boards of the boards file whose name or group matches")
    group.addoption("--lmq-trace", metavar="DIR",
                    help="keep the calls of each test that fails there, beside its report")
    group.addoption("--lmq-restore", action="store_true", help="put a board's settings back after each test")


def boards_of(config):
    """The boards that were asked for; none means simulated chips."""
    if config.getoption("lmq_boards"):
        return [board.name for board in boards.matching(config.getoption("lmq_boards"))]
    return [each for each in (config.getoption("lmq_url") or "").split(",") if each]


def pytest_configure(config):
    try:
        known = boards_of(config)
    except lmq.Error as error:
        raise pytest.UsageError(str(error)) from None
    workers = getattr(config.option, "numprocesses", None)
    if known and isinstance(workers, int) and workers > len(known):
        raise pytest.UsageError(f"{workers} workers need a board each, and there are {len(known)}: {', '.join(known)}")


@pytest.hookimpl(optionalhook=True)
def pytest_xdist_auto_num_workers(config):
    return len(boards_of(config)) or None


def pytest_report_header(config):
    return f"lmq: {', '.join(boards_of(config)) or 'a simulated chip for each test'}"


@pytest.fixture(scope="session")
def lmq_board(request):
    """The board of this process, or None if chips are simulated."""
    known = boards_of(request.config)
    worker = getattr(request.config, "workerinput", {}).get("workerid", "gw0")
    return known[int(worker[2:])] if known else None


@pytest.fixture(scope="session")
def lmq_connection(lmq_board):
    """The chip of the board of this process."""
    with lmq.connect(lmq_board) as chip:
        yield chip


@pytest.fixture
def simulated_chip(request):
    """Makes simulated chips: simulated_chip(preset=..., fail=..., traffic=..., clock=...), all of them optional."""
    running = []

    def make(**how):
        simulated = simulation.SimulatedChip(**how)
        running.append(simulated)
        chip = lmq.connect(simulated.url)
        chip.simulated = simulated
        record(request, chip)
        return chip

    yield make
    for each in running:
        each.close()


@pytest.fixture
def chip(request, lmq_board):
    """The chip: of the board that this process has, or a fresh simulated one."""
    if lmq_board is None:
        yield request.getfixturevalue("simulated_chip")()
        return
    chip = request.getfixturevalue("lmq_connection")
    forget = record(request, chip)
    before = chip.snapshot() if request.config.getoption("lmq_restore") else None
    yield chip
    if before is not None:
        before.restore()
    forget()


def record(request, chip):
    """Notes the calls of a test, if traces are wanted."""
    if not request.config.getoption("lmq_trace"):
        return lambda: None
    calls = request.node.stash.setdefault(TRACE, collections.deque(maxlen=CALLS_IN_A_TRACE))

    def heard(method, arguments, outcome, seconds):
        kind = "error" if isinstance(outcome, Exception) else "answer"
        calls.append({"url": chip.url, "method": method, "arguments": list(arguments), "seconds": round(seconds, 6),
                      kind: str(outcome) if kind == "error" else outcome[0]})

    return chip.on_call(heard)


TRACE = pytest.StashKey()


@pytest.hookimpl(hookwrapper=True)
def pytest_runtest_makereport(item):
    outcome = yield
    report = outcome.get_result()
    calls = item.stash.get(TRACE, None)
    if not report.failed or calls is None:
        return
    folder = pathlib.Path(item.config.getoption("lmq_trace"))
    folder.mkdir(parents=True, exist_ok=True)
    name = re.sub(r"[^\w.\[\]-]+", "_", item.nodeid)
    place = folder / f"{name}.jsonl"
    if len(name) > 200:  # names of files have an end
        place = next(path for path in (folder / f"{name[:190]}-{number}.jsonl" for number in itertools.count())
                     if not path.exists())
    place.write_text("".join(json.dumps(call) + "\n" for call in calls))
    place.with_suffix(".txt").write_text(f"{item.nodeid} ({report.when})\n\n{report.longreprtext}\n")
    report.sections.append(("lmq trace", f"{len(calls)} calls in {place}"))
