"""The pytest plug-in, run by pytest on small suites and on the bench of the examples."""

import json
import os
import re
import subprocess
import sys

import conftest
import lmq
import pytest

ROOT = conftest.HERE.parents[1]


@pytest.fixture
def run(tmp_path):
    """Runs pytest on a suite: run(text of a test file or None, options) -> (outcomes by name, output)."""
    def run(suite, *options, folder=tmp_path):
        if suite is not None:
            (folder / "test_suite.py").write_text("import lmq, pytest\n\n" + suite)
        done = subprocess.run([sys.executable, "-B", "-m", "pytest", "-p", "lmq.pytest_plugin", "-p",
                               "no:cacheprovider", "-rA", *options],
                              cwd=folder, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=200,
                              env=dict(os.environ, PYTHONPATH=str(ROOT / "python")))
        outcomes = re.findall(r"(\d+) (passed|failed|errors?|skipped)", (done.stdout.splitlines() or [""])[-1])
        return {name: int(count) for count, name in outcomes}, done.stdout
    return run


FRESH = """
def test_first(chip):
    chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True}])

def test_second(chip):
    with pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
        chip.vx_watchdog_get(0)
"""


def test_each_test_has_a_fresh_chip(run):
    outcomes, output = run(FRESH)
    assert outcomes == {"passed": 2}, output
    assert "a simulated chip for each test" in output


def test_simulated_chips_are_as_they_are_asked_for(run):
    outcomes, output = run("""
def test_all(simulated_chip):
    chip = simulated_chip(preset={"ports": {"eth0": "up"}, "counters": {"eth0": {"rx_pkts": 7}}},
                          clock=100, traffic=(3, 10),
                          fail={"vx_gpio_read": "VX_ERR_DEV_HW_FAILURE", ("vx_mac_addr_get", 2): "VX_ERR_DEV_BUSY"})
    chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True}])
    assert chip.vx_eth_port_stats_get(0, 3).rx_pkts >= 7
    assert chip.vx_eth_port_stats_get(0, 3).rx_pkts > chip.vx_eth_port_stats_get(0, 4).rx_pkts
    with pytest.raises(lmq.VX_ERR_DEV_HW_FAILURE):
        chip.vx_gpio_read(0, 0)
    chip.vx_mac_addr_get(0)
    with pytest.raises(lmq.VX_ERR_DEV_BUSY):
        chip.vx_mac_addr_get(0)
    other = simulated_chip()
    with pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
        other.vx_watchdog_get(0)
""")
    assert outcomes == {"passed": 1}, output


def test_a_failed_test_leaves_its_calls_and_a_passed_one_none(run, tmp_path):
    outcomes, output = run("""
def test_fails(chip):
    chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True}])
    with chip.batch() as batch:
        batch.vx_watchdog_set(0, wd_timer=5)
    assert chip.vx_watchdog_get(0).wd_timer == 6

def test_passes(chip):
    pass
""", "--lmq-trace=traces")
    assert outcomes == {"passed": 1, "failed": 1}
    place, = (tmp_path / "traces").glob("*.jsonl")
    calls = [json.loads(line) for line in place.read_text().splitlines()]
    assert [call["method"] for call in calls] == ["lmq_init_system", "vx_watchdog_set", "vx_watchdog_get"]
    assert calls[1]["arguments"] == [0, {"wd_timer": 5, "mask_s": {"wd_timer": 1}}]
    assert calls[2]["answer"][2]["wd_timer"] == 5
    assert "== 6" in place.with_suffix(".txt").read_text() and f"3 calls in traces/{place.name}" in output


@pytest.fixture
def two_boards():
    with conftest.serve() as first, conftest.serve() as second:
        yield [first.url, second.url]


def test_each_worker_has_a_board_of_its_own(run, two_boards, own_folders, tmp_path):
    suite = """
import os, pathlib, time
@pytest.mark.parametrize("number", range(6))
def test_where(chip, number):
    time.sleep(0.2)
    port = chip.url.rpartition(":")[2]
    pathlib.Path(f"{os.environ.get('PYTEST_XDIST_WORKER', 'alone')}-{port}").touch()
"""
    outcomes, output = run(suite, "-n", "auto", f"--lmq-url={','.join(two_boards)}")
    assert outcomes == {"passed": 6}, output
    ports = [re.search(r":(\d+)", url)[1] for url in two_boards]
    assert {path.name for path in tmp_path.glob("*-*") if path.is_file()} == {f"gw{n}-{ports[n]}" for n in (0, 1)}

    outcomes, output = run(suite, "-n", "3", f"--lmq-url={','.join(two_boards)}")
    assert not outcomes and "3 workers need a board each, and there are 2" in output

    boards = own_folders / "config" / "lmqctl" / "boards.toml"
    boards.parent.mkdir(parents=True, exist_ok=True)
    try:
        boards.write_text("".join(f'[boards.rack2-{n}]\nurl = "{url}"\n' for n, url in enumerate(two_boards)))
        outcomes, output = run(suite, "--lmq-boards=rack2-*")
        assert outcomes == {"passed": 6} and "lmq: rack2-0, rack2-1" in output
        outcomes, output = run(suite, "--lmq-boards=rack3-*")
        assert not outcomes and "no board matches 'rack3-*'" in output
    finally:
        boards.unlink()


def test_a_board_gets_its_settings_back(run, two_boards):
    with lmq.connect(two_boards[0]) as chip:
        chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True}])
        suite = "def test_it(chip):\n    chip.vx_watchdog_set(0, wd_timer=99)\n"
        assert run(suite, f"--lmq-url={two_boards[0]}", "--lmq-restore")[0] == {"passed": 1}
        assert chip.vx_watchdog_get(0).wd_timer == 0
        assert run(suite, f"--lmq-url={two_boards[0]}")[0] == {"passed": 1}
        assert chip.vx_watchdog_get(0).wd_timer == 99


def test_the_bench_passes_on_simulated_chips_and_on_boards(run, two_boards):
    bench = ROOT / "examples" / "bench"
    outcomes, output = run(None, "-n", "2", folder=bench)
    assert outcomes["passed"] >= 40 and len(outcomes) == 1, output
    # One test after the other on the same board: none depends on what another left.
    outcomes, output = run(None, f"--lmq-url={two_boards[0]}", folder=bench)
    assert outcomes["passed"] >= 40 and len(outcomes) == 1, output
