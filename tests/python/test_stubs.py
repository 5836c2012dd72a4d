"""The stubs under mypy --strict: what is right passes, and each slip is found in its line."""

import os
import pathlib
import re
import shutil
import subprocess
import sys

import conftest
import lmq
import pytest

PROGRAM = '''
import lmq

chip = lmq.connect("http://board7:8080")
chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True, "dev_mac_addr": "02:00:5e:10:00:01"}])
chip.vx_watchdog_set(0, wd_timer=30, wd_action="VX_WD_ACTION_REBOOT")
watchdog = chip.vx_watchdog_get(0)
seconds: int = watchdog.wd_timer + watchdog.p_cfg.wd_timer
flow: int = chip.vx_flow_us_add(0, 3, p_key={"key_s": {"mac_vlan": {"o_vid": 100}}}).p_flow_id
try:
    print(chip.vx_flow_us_get(0, flow).p_key.key_s.mac_vlan.o_vid)
except lmq.VX_ERR_FE_INVALID_FLOW_ID as error:
    print(error.status.name, error.method, error.output)
with chip.batch() as batch:
    future = batch.vx_watchdog_get(0)
seconds = future.result().wd_timer
chip.vx_mcast_ip_entry_add(0, 3, mcast_vlan=500, grp_addr="239.1.1.1")
chip.vx_watchdog_set(0, watchdog)
chip.lmq_create_bridge(0, 7, brg_type="LMQ_BRG_TYPE_N_1|LMQ_BRG_TYPE_MC")
tag: str = chip.vx_gpon_onu_port_config_get(0, 0).vendor_id
data: bytes = chip.vx_i2c_read(0, 0x50, 0, 16).p_rx_data
gems: list[int] = [each.gem_port_id for each in chip.vx_gpon_onu_active_gem_port_get(0, 0).p_info]
is_reboot: bool = watchdog.wd_action == lmq.VX_WD_ACTION_REBOOT
chip.wait_until("vx_watchdog_get", 0, wd_timer=30, timeout=5)
before = chip.unchecked.snapshot()

chip.vx_watchdog_set(0, wd_tmer=30)  # wrong
chip.vx_watchdog_set(0, {"wd_tmer": 30})  # wrong
chip.vx_watchdog_set(0, wd_action="REBOOT")  # wrong
chip.vx_watchdg_set(0)  # wrong
print(watchdog.wd_tmer)  # wrong
print(lmq.VX_WD_ACTON_REBOOT)  # wrong
print(future.wd_timer)  # wrong
chip.vx_flow_us_add(0, 3, p_key={"key_s": {"mac_vlan": {"ovid": 100}}})  # wrong
chip.vx_mac_addr_set(0, 5)  # wrong
chip.vx_watchdog_get()  # wrong
chip.vx_i2c_read(0, 0x50, 0, 16).p_rx_data.wd_timer  # wrong
'''


def make(source, out):
    subprocess.run([sys.executable, "-B", "-m", "lmq.stubs", source, "--out", str(out)], check=True,
                   stdout=subprocess.DEVNULL,
                   env=dict(os.environ, PYTHONPATH=str(conftest.HERE.parents[1] / "python")))
    return {path.name: path.read_text() for path in pathlib.Path(out, "lmq").iterdir()}


def test_a_host_and_its_file_make_the_same_stubs(host, tmp_path):
    made = make(host.url, tmp_path / "host")
    assert made == make(os.environ["LMQ_INTERFACE_JSON"], tmp_path / "file")
    for name in lmq.__all__:
        assert re.search(rf"^(class |def |){name}\b", made["__init__.pyi"], re.MULTILINE), name
    chip = lmq.connect(host.url)
    for name in [each for each in dir(lmq.Chip) if not each.startswith("_")]:
        assert re.search(rf"^    (def |){name}\b", made["__init__.pyi"], re.MULTILINE), name
    assert set(chip.interface.methods) <= set(re.findall(r"^    def (\w+)\(", made["__init__.pyi"], re.MULTILINE))


@pytest.mark.skipif(not shutil.which("mypy"), reason="mypy is not installed")
def test_mypy_finds_each_slip_and_nothing_else(tmp_path):
    make(os.environ["LMQ_INTERFACE_JSON"], tmp_path / "typings")
    (tmp_path / "program.py").write_text(PROGRAM)
    said = subprocess.run(["mypy", "--strict", "--cache-dir", str(tmp_path / "cache"), "program.py"], cwd=tmp_path,
                          text=True,
                          stdout=subprocess.PIPE, env=dict(os.environ, MYPYPATH="typings")).stdout
    assert "typings" not in re.sub(r".*: note: .*", "", said), said
    found = {int(line) for line in re.findall(r"^program.py:(\d+): error", said, re.MULTILINE)}
    assert found == {number for number, line in enumerate(PROGRAM.split("\n"), 1) if line.endswith("# wrong")}, said


def test_a_source_that_describes_nothing_is_named(tmp_path):
    (tmp_path / "other.json").write_text("{}")
    for source in (str(tmp_path / "other.json"), str(tmp_path / "none.json"), "http://127.0.0.1:1"):
        done = subprocess.run([sys.executable, "-B", "-m", "lmq.stubs", source], cwd=tmp_path, text=True,
                              stderr=subprocess.PIPE,
                              env=dict(os.environ, PYTHONPATH=str(conftest.HERE.parents[1] / "python")))
        assert done.returncode == 1 and done.stderr.startswith(f"lmq.stubs: {source}: ")
        assert done.stderr.count("\n") == 1
