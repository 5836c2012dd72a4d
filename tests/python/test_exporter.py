"""The exporter against boards of all kinds, and a lab under the real Prometheus."""

import concurrent.futures
import json
import os
import re
import shutil
import socket
import subprocess
import sys
import time
import urllib.error
import urllib.parse
import urllib.request

import conftest
import lmq
import pytest

pytest.importorskip("prometheus_client")
ROOT = conftest.HERE.parents[1]
PACKAGED = ROOT / "packaging" / "prometheus"
ALL = "ethernet,gpon,policers,queues,state"


class Exporter:
    def __init__(self, *options):
        self.process = subprocess.Popen([sys.executable, "-B", "-m", "lmq.exporter", "--listen", "127.0.0.1:0",
                                         *options],
                                        stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                                        env=dict(os.environ, PYTHONPATH=str(ROOT / "python")))
        self.url = self.process.stdout.readline().split()[-1]

    def get(self, path):
        """(status, text) of a page."""
        try:
            with urllib.request.urlopen(self.url + path, timeout=20) as reply:
                return reply.status, reply.read().decode()
        except urllib.error.HTTPError as error:
            return error.code, error.read().decode()

    def probe(self, target, module):
        """The samples of a probe by name and labels."""
        status, text = self.get("/probe?" + urllib.parse.urlencode({"target": target, "module": module}))
        assert status == 200, text
        return {name: float(value) for name, value in re.findall(r"^([^#].*) (\S+)$", text, re.MULTILINE)}

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        self.process.stdout.close()


def start(url):
    """Brings a board up: the ONU operates, Ethernet port 3 has a link, T-CONT 1, GEM port 100, and a policer."""
    with lmq.connect(url) as chip:
        chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True, "gpon_cfg": {"auto_register": True}}])
        chip.vx_eth_port_config_set(0, 3, admin_status="VX_ADMIN_STATUS_UP")
        chip.vx_gpon_onu_tcont_enable_set(0, 0, 1, True, alloc_id=257)
        chip.vx_gpon_onu_gem_port_add(0, 0, 100, direction="LMQ_DIR_BOTH", tcont_id=1)
        chip.vx_rate_policer_create(0, pol_type="VX_RATE_LIMIT_BPS_MODE", peak_rate=100)
        chip.wait_until("vx_gpon_onu_port_config_get", 0, 0, onu_state="VX_GPON_STATE_OPERATION")


@pytest.fixture
def board():
    with conftest.serve(LMQ_SIM_CLOCK="1000", LMQ_SIM_TRAFFIC="1:1000") as host:
        start(host.url)
        yield host


@pytest.fixture
def exporter():
    with Exporter() as running:
        yield running


def test_every_module_measures_what_the_chip_counts(board, exporter):
    chip = lmq.connect(board.url)
    before = chip.vx_eth_port_stats_get(0, 3)
    found = exporter.probe(board.url, ALL)
    after = chip.vx_eth_port_stats_get(0, 3)
    assert before.rx_pkts < found['lmq_ethernet_rx_pkts_total{port="3"}'] < after.rx_pkts
    assert found['lmq_gpon_onu_state{lmq_gpon_onu_state="VX_GPON_STATE_OPERATION"}'] == 1
    assert sum(value for name, value in found.items() if name.startswith("lmq_gpon_onu_state{")) == 1
    assert found['lmq_ethernet_link_status{lmq_ethernet_link_status="VX_LINK_UP",port="3"}'] == 1
    assert found['lmq_gpon_gem_downstream_pkt_cnt_total{gem="100"}'] > 0
    assert [name for name in found if name.startswith("lmq_policer_fwd")] == ['lmq_policer_fwd_pkt_total{policer="0"}']
    assert found['lmq_buffer_queue_buf_limit{port="3",queue="7"}'] >= 0
    assert found["lmq_probe_success"] == 1 and not [name for name in found if "failed" in name]
    # Nothing was cleared.
    again = exporter.probe(board.url, ALL)
    assert all(again[name] >= value for name, value in found.items() if "_total" in name)


@pytest.mark.skipif(not shutil.which("promtool"), reason="Prometheus is not installed")
def test_names_and_rules_are_as_prometheus_wants_them(board, exporter):
    text = exporter.get(f"/probe?target={board.url}&module={ALL}")[1]
    for command, given in ((["promtool", "check", "metrics"], text),
                           (["promtool", "test", "rules", "lmq.rules.test.yml"], ""),
                           (["promtool", "check", "config", "--syntax-only", "prometheus.yml"], "")):
        done = subprocess.run(command, input=given, cwd=PACKAGED, text=True, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT)
        assert done.returncode == 0, done.stdout
    # Rules name metrics that there are.
    rules = (PACKAGED / "lmq.rules.yml").read_text()
    told = set(re.findall(r"# TYPE (\w+)", text)) | {"lmq_probe_failed_calls"}
    assert {name for name in re.findall(r"(?<!:)\blmq_\w+", re.sub(r"record: .*", "", rules))} <= told


def test_a_board_that_does_not_answer_costs_its_own_probe_alone(board, exporter):
    with socket.create_server(("127.0.0.1", 0)) as deaf:
        dead = f"http://127.0.0.1:{deaf.getsockname()[1]}"
        request = urllib.request.Request(f"{exporter.url}/probe?target={dead}&module=state",
                                         headers={"X-Prometheus-Scrape-Timeout-Seconds": "2"})
        with concurrent.futures.ThreadPoolExecutor() as threads:
            pending = threads.submit(lambda: urllib.request.urlopen(request, timeout=30).read().decode())
            assert exporter.probe(board.url, "state")["lmq_probe_success"] == 1
            said = pending.result()
    assert "lmq_probe_success 0.0" in said and "onu_state" not in said
    assert exporter.probe("http://127.0.0.1:1", "state") == {
        "lmq_probe_success": 0.0, "lmq_probe_duration_seconds": pytest.approx(0, abs=20)}


def test_a_board_that_comes_back_is_measured_again(exporter):
    with conftest.serve() as host:
        start(host.url)
        assert exporter.probe(host.url, "state")["lmq_probe_success"] == 1
    assert exporter.probe(host.url, "state")["lmq_probe_success"] == 0
    with conftest.hosting.Host(plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"],
                               listen=f"127.0.0.1:{host.port}"):
        found = exporter.probe(host.url, "state")
        assert found["lmq_probe_success"] == 1
        # Its system was not started, which is no fault of the line.
        status = "VX_ERR_GLBL_SYS_UNINTIALIZED"
        assert found[f'lmq_probe_failed_calls{{method="vx_eth_port_status_get",status="{status}"}}'] == 2


@pytest.mark.parametrize("module, message", [
    ('method = "vx_eth_port_stat_get"', "vx_eth_port_stat_get is no method; did you mean vx_eth_port_stats_get"),
    ('method = "vx_watchdog_set"', "vx_watchdog_set changes: an exporter only reads"),
    ('method = "vx_eth_port_stats_get"\narguments = { clear = 1, port_id = 3, dev_id = 0 }',
     "would clear what it reads"),
    ('method = "vx_eth_port_stats_get"\narguments = { prt_id = 3 }', "no argument prt_id; did you mean port_id"),
    ('method = "vx_eth_port_stats_get"\narguments = { port_id = 3 }', "dev_id: it is missing"),
    ('method = "vx_watchdog_get"\narguments = { dev_id = 0 }\ngauges = ["wd_tmer"]',
     "answers no wd_tmer; did you mean wd_timer"),
    ('method = "vx_watchdog_get"\narguments = { dev_id = 0 }\nstates = ["wd_timer"]',
     "wd_timer of vx_watchdog_get is no enumerator"),
    ('method = "vx_mac_addr_get"\narguments = { dev_id = 0 }\ngauges = ["p_mac_addr"]',
     "p_mac_addr of vx_mac_addr_get is no number"),
    ('method = "vx_watchdog_get"\narguments = { dev_id = 0 }\ngauges = ["wd_timer"]\nlabels = { x = "y" }',
     "no argument or member y"),
    ('method = "vx_watchdog_get"\narguments = { dev_id = 0 }\neach = "p_cfg"', "answers no list of structs p_cfg"),
])
def test_a_module_that_cannot_work_is_told_what_is_wrong(board, tmp_path, module, message):
    (tmp_path / "more.toml").write_text(f"[[modules.mine]]\n{module}\n")
    with Exporter("--modules", str(tmp_path / "more.toml")) as exporter:
        status, text = exporter.get(f"/probe?target={board.url}&module=mine")
        assert status == 400 and message in text
        # Those that come with it work on.
        assert exporter.probe(board.url, "state")["lmq_probe_success"] == 1


def test_a_module_of_ones_own(board, tmp_path):
    (tmp_path / "more.toml").write_text("""
[[modules.mine]]
method = "vx_watchdog_get"
arguments = { dev_id = 0 }
labels = { device = "dev_id", action = "wd_action" }
name = "dog"
gauges = ["wd_t*", "wd_enable"]
""")
    with Exporter("--modules", str(tmp_path / "more.toml")) as exporter:
        found = exporter.probe(board.url, "mine")
        assert found['lmq_dog_wd_timer{action="VX_WD_ACTION_WARNING",device="0"}'] == 0 and len(found) == 4


@pytest.mark.parametrize("text, message", [
    ("[[modules.a]]\nname = 'x'\n", "call 1 of module a names no method"),
    ("[[modules.a]]\nmethod = 'x'\ngauge = []\n", "there is no key gauge; did you mean gauges"),
    ("[[modules.a]]\nmethod = 'x'\ngauges = 'y'\n", "gauges is no key, or no list"),
    ("[[modules.a]]\nmethod = 'x'\nlabels = { 'a-b' = 'c' }\n", "'a-b' is no name of a label"),
    ("[[", "more.toml: "),
])
def test_a_file_of_modules_that_is_wrong_ends_the_start(tmp_path, text, message):
    (tmp_path / "more.toml").write_text(text)
    done = subprocess.run([sys.executable, "-B", "-m", "lmq.exporter", "--modules", str(tmp_path / "more.toml")],
                          text=True,
                          stderr=subprocess.PIPE, env=dict(os.environ, PYTHONPATH=str(ROOT / "python")))
    assert done.returncode == 1 and message in done.stderr and done.stderr.count("\n") == 1


def test_pages_and_boards(board, exporter, own_folders):
    assert exporter.get("/probe?target=x&module=nothing") [0] == 400
    assert exporter.get("/probe?module=state")[0] == 400 and exporter.get("/other")[0] == 404
    assert "process_resident_memory_bytes" in exporter.get("/metrics")[1] and "state" in exporter.get("/")[1]
    assert "is no URL and no board" in exporter.get("/probe?target=rack9&module=state")[1]
    file = own_folders / "config" / "lmqctl" / "boards.toml"
    file.parent.mkdir(parents=True, exist_ok=True)
    file.write_text(f'[boards.rack2-01]\nurl = "{board.url}"\ngroups = ["rack2", "all"]\n')
    try:
        listed = subprocess.run([sys.executable, "-B", "-m", "lmq.exporter", "--targets"], text=True,
                                stdout=subprocess.PIPE,
                                env=dict(os.environ, PYTHONPATH=str(ROOT / "python")))
        assert json.loads(listed.stdout) == [{"targets": ["rack2-01"], "labels": {"groups": "rack2,all"}}]
        with Exporter("--boards-only") as strict:
            assert strict.probe("rack2-01", "state")["lmq_probe_success"] == 1
            assert strict.get(f"/probe?target={board.url}&module=state")[0] == 403
    finally:
        file.unlink()


class Prometheus:
    """The real one, with the packaged configuration, sped up."""

    def __init__(self, folder, exporter, boards):
        with socket.create_server(("127.0.0.1", 0)) as free:
            self.port = free.getsockname()[1]
        (folder / "boards.json").write_text(json.dumps([{"targets": boards}]))
        text = (PACKAGED / "prometheus.yml").read_text().replace("15s", "1s")
        text = text.replace("/etc/prometheus/lmq-boards.json", str(folder / "boards.json"))
        (folder / "prometheus.yml").write_text(text.replace("127.0.0.1:9786", exporter.url[7:]))
        (folder / "lmq.rules.yml").write_text(re.sub(r"for: \d+m", "for: 3s", (PACKAGED / "lmq.rules.yml").read_text()))
        self.process = subprocess.Popen(
            ["prometheus", f"--config.file={folder}/prometheus.yml", f"--storage.tsdb.path={folder}/data",
             f"--web.listen-address=127.0.0.1:{self.port}"], stdout=subprocess.DEVNULL,
             stderr=open(folder / "log", "w"))

    def get(self, path, **query):
        url = f"http://127.0.0.1:{self.port}/api/v1/{path}?{urllib.parse.urlencode(query)}"
        try:
            return json.loads(urllib.request.urlopen(url, timeout=10).read())["data"]
        except OSError:  # it has not begun to serve
            return {}

    def query(self, text):
        """Values by board, of a query."""
        return {each["metric"].get("instance"): float(each["value"][1])
                for each in self.get("query", query=text).get("result", [])}

    def until(self, what, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            found = what()
            if found:
                return found
            time.sleep(0.3)
        raise AssertionError("it did not come")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()


@pytest.mark.skipif(not shutil.which("prometheus"), reason="Prometheus is not installed")
def test_a_lab_under_prometheus(tmp_path, exporter):
    hosts = [conftest.serve(LMQ_SIM_TRAFFIC=f"{seed}:1000") for seed in (1, 2, 3)]
    try:
        boards = [re.sub("/RPC2$", "", host.url) for host in hosts]
        for url in boards:
            start(url)
        with Prometheus(tmp_path, exporter, boards) as prometheus:
            prometheus.until(lambda: set(prometheus.query("lmq_probe_success == 1")) == set(boards), 60)
            up = dict.fromkeys([*boards, exporter.url[7:]], "up")
            prometheus.until(lambda: up == {each["labels"]["instance"]: each["health"]
                                            for each in prometheus.get("targets")["activeTargets"]}, 60)
            state = 'lmq_gpon_onu_state{lmq_gpon_onu_state="VX_GPON_STATE_OPERATION"}'
            prometheus.until(lambda: prometheus.query(f"{state} == 1").keys() == set(boards), 20)
            # A minute of traffic, a thousand packets a second, give or take a quarter.
            counter = 'lmq_ethernet_rx_pkts_total{port="3"}'
            prometheus.until(lambda: len(prometheus.query(f"count_over_time({counter}[1m]) > 55")) == 3, 150)
            rates = prometheus.query(f"rate({counter}[1m])")
            assert set(rates) == set(boards) and all(700 < rate < 1300 for rate in rates.values()), rates
            bits = prometheus.query('instance_port:lmq_ethernet_receive_bits:rate1m{port="3"}')
            assert set(bits) == set(boards) and min(bits.values()) > 8 * 64 * 700

            hosts[0].process.kill()
            hosts[0].status = -9
            firing = prometheus.until(lambda: [each for each in prometheus.get("alerts").get("alerts", [])
                                               if each["labels"]["alertname"] == "LmqBoardDown"
                                               and each["state"] == "firing"], 60)
            assert [each["labels"]["instance"] for each in firing] == [boards[0]]
            assert firing[0]["annotations"]["summary"] == f"{boards[0]} does not answer."
            assert set(prometheus.query("lmq_probe_success == 1")) == set(boards[1:])
    finally:
        for host in hosts:
            host.close()
