"""The rules of the package, a case each: how arguments are given, what is refused before anything is sent, how answers
look, and what happens when the host fails."""

import ast
import copy
import enum
import http.server
import inspect
import json
import os
import pathlib
import subprocess
import sys
import threading

import conftest
import lmq
import pytest
from lmq.values import Structs


def python(code):
    """What another Python prints."""
    return subprocess.run([sys.executable, "-B", "-c", code], check=True, text=True, stdout=subprocess.PIPE,
                          env=dict(os.environ, PYTHONPATH=str(conftest.HERE.parents[1] / "python"))).stdout


# How arguments are given.

def test_members_as_keywords_set_their_flags(up):
    up.vx_watchdog_set(0, wd_timer=30)
    up.vx_watchdog_set(0, wd_action="VX_WD_ACTION_REBOOT")
    watchdog = up.vx_watchdog_get(0)
    assert (watchdog.wd_timer, watchdog.wd_action.name, watchdog.wd_enable) == (30, "VX_WD_ACTION_REBOOT", False)
    # Flags that are given are left as they are.
    up.vx_watchdog_set(0, wd_timer=40, wd_action=0, mask_s={"wd_action": 1})
    assert up.vx_watchdog_get(0).wd_timer == 30


def test_flags_are_set_at_every_depth_and_alternatives_select_themselves(up):
    flow = up.vx_flow_us_add(0, 3, p_key={"key_s": {"mac_vlan": {"o_vid": 100}}}).p_flow_id
    key = up.vx_flow_us_get(0, flow).p_key
    assert key.key_type == lmq.VX_CL_KEY_MAC_VLAN
    assert list(key.key_s) == ["mac_vlan"] and key.key_s.mac_vlan.o_vid == 100
    assert key.key_s.mac_vlan.valid.flags() == ["o_vid"]


def test_what_was_read_can_be_changed_and_sent(up):
    watchdog = up.vx_watchdog_get(0)
    watchdog.wd_timer += 5
    up.vx_watchdog_set(0, watchdog)
    assert up.vx_watchdog_get(0) == watchdog


@pytest.mark.parametrize("address, kind, alternative", [
    ("239.1.1.1", "VX_IPV4", {"v4": {"s_addr": "239.1.1.1"}}),
    ("ff0e::1", "VX_IPV6", {"v6": {"in6_u": {"u6_addr8": "ff0e::1"}}}),
])
def test_an_address_is_text(idle, address, kind, alternative):
    codec = idle._codecs.struct("vx_ip_addr_t")
    sent = codec.encode(address)
    assert sent == codec.encode({"ip_ver": kind, "addr": alternative})
    shown = codec.decode({"ip_ver": sent["ip_ver"], "addr": codec.fields["addr"].encode(alternative)})
    assert shown.ip_ver.name == kind


def test_numbers_of_every_width_come_back(up):
    for register in (0, 1, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF):
        up.lmq_write_register(0, 0x1000, register)
        assert list(up.lmq_read_register(0, 0x1000).values()) == [register]


def test_bytes_and_text_go_into_arrays_of_characters(up):
    up.vx_gpon_onu_port_config_set(0, 0, vendor_id="VNDR", passwd=b"\x01\x02", serial_num=7)
    config = up.vx_gpon_onu_port_config_get(0, 0)
    assert config.vendor_id == "VNDR"
    assert config.passwd == [1, 2, *[0] * 8]
    up.vx_mac_addr_set(0, b"\x02\x00\x5e\x10\x00\x01")
    assert up.vx_mac_addr_get(0).p_mac_addr == "02:00:5e:10:00:01"


def test_counts_follow_what_they_count(up):
    up.vx_l2_mac_addr_filter_add(0, 3, p_mac_addr_list=[{"mac_addr": "02:00:00:00:00:07"}])
    listed = up.vx_l2_mac_addr_filter_get(0, 3)
    assert isinstance(listed.p_mac_addr_list, Structs) and listed.p_valid_cnt == len(listed.p_mac_addr_list) == 1
    assert listed.p_mac_addr_list[0].mac_addr == "02:00:00:00:00:07"
    assert up.vx_l2_mac_addr_filter_get(0, 4).p_mac_addr_list == []
    with pytest.raises(lmq.ArgumentError, match="num_mac_addr: 3, but p_mac_addr_list has 1"):
        up.vx_l2_mac_addr_filter_add(0, 3, 3, [{}])


def test_none_is_a_null_pointer(up):
    with pytest.raises(lmq.VX_ERR_DEV_NULL_PTR):
        up.unchecked.vx_watchdog_set(0, None)


# What is refused.

@pytest.mark.parametrize("call, message", [
    ("vx_watchdog_set(0, wd_tmer=1)", "no argument wd_tmer; did you mean wd_timer"),
    ("vx_watchdog_set(0, {'wd_tmer': 1})", "p_cfg: vx_watchdog_cfg_t has no member wd_tmer; did you mean wd_timer"),
    ("vx_watchdog_set(0, wd_action='REBOOT')",
     "p_cfg.wd_action: REBOOT is no enumerator of vx_wd_action_e; did you mean "
                                               "VX_WD_ACTION_REBOOT"),
    ("vx_watchdog_set(0, wd_action=77)", "p_cfg.wd_action: 77 is no value of vx_wd_action_e"),
    ("vx_watchdog_set(0, wd_action=chip.enums.vx_reset_mode_t(1))", "is an enumerator of vx_reset_mode_t, not of"),
    ("vx_watchdog_set(0, wd_timer=-1)", "p_cfg.wd_timer: -1 is no vx_uint32"),
    ("vx_watchdog_set(0, wd_timer='soon')", "p_cfg.wd_timer: a number was expected, not 'soon'"),
    ("vx_watchdog_set(0, wd_timer=1.5)", "a number was expected"),
    ("vx_watchdog_set(0, 5)", "p_cfg: a dict with members of vx_watchdog_cfg_t was expected, not 5"),
    ("vx_watchdog_set(0, {}, 1)", "takes 2 arguments, not 3"),
    ("vx_watchdog_set(0, dev_id=0)", "dev_id is given twice"),
    ("vx_watchdog_set(9)", "dev_id: 9 is not within 0..0"),
    ("vx_watchdog_get(0, p_cfg={})", "p_cfg is an output"),
    ("vx_watchdog_get()", "dev_id: it is missing: vx_status_e vx_watchdog_get("),
    ("vx_i2c_read(0, 0x50, 0)", "data_len: it is missing"),
    ("vx_i2c_read(0, 0x50, 0, 300)", "data_len: 300 is not within 1..256 bytes"),
    ("vx_i2c_read(0, 0x50, 0, 'x')", "data_len: a number was expected"),
    ("vx_mac_addr_set(0, '02:00')", "p_mac_addr: a MAC address"),
    ("lmq_init_system(dev_cfg=[{'dev_if_name': 'x' * 16}])",
     "p_cfg.dev_cfg[0].dev_if_name: 'xxxxxxxxxxxxxxxx' is longer"),
    ("lmq_init_system(dev_cfg=[{}] * 9)", "9 elements are more than"),
    ("lmq_init_system(dev_cfg={'enbl': 1})", "p_cfg.dev_cfg: a list was expected"),
    ("lmq_add_pkt_type_filter(0, 0, 'LMQ_NOTHING')", "LMQ_NOTHING is no enumerator of lmq_pkt_type_bitmap_e"),
])
def test_a_wrong_argument_is_named_and_not_sent(idle, call, message):
    sent = []
    idle.on_call(lambda *about: sent.append(about))
    with pytest.raises(lmq.ArgumentError) as refused:
        eval(f"chip.{call}", {"chip": idle})
    assert message in str(refused.value)
    assert str(refused.value).startswith(call.partition("(")[0]) and not sent


def test_unchecked_sends_what_is_out_of_range(up):
    with pytest.raises(lmq.VX_ERR_DEV_ID_INVALID):
        up.unchecked.vx_watchdog_get(9)
    with pytest.raises(lmq.ArgumentError, match="256 is no vx_dev_id_t"):
        up.unchecked.vx_watchdog_get(256)


def test_an_unknown_name_is_an_attribute_error_with_the_nearest(idle):
    with pytest.raises(AttributeError, match="vx_watchdog_get"):
        idle.vx_watchdg_get
    with pytest.raises(AttributeError, match="vx_wd_action_e"):
        idle.enums.vx_wd_acton_e
    with pytest.raises(AttributeError, match="VX_WD_ACTION_REBOOT"):
        lmq.VX_WD_ACTON_REBOOT
    assert not hasattr(idle, "__wrapped__") and not hasattr(lmq, "__wrapped__")


# How answers look.

def test_a_status_is_an_exception_of_its_own(idle):
    with pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED) as failed:
        idle.vx_watchdog_get(0)
    error = failed.value
    assert isinstance(error, lmq.StatusError) and isinstance(error, lmq.Error)
    assert (error.status, error.status.name, error.method) == (28674, "VX_ERR_GLBL_SYS_UNINTIALIZED", "vx_watchdog_get")
    assert error.output is None
    # A base has the number of the first of its family, which is the one to catch.
    assert lmq.VX_ERR_FE_BASE is lmq.VX_ERR_FE_INVALID_FLOW_ID


def test_a_function_without_a_status_answers_what_it_returned(up):
    assert up.lmq_dump_register(0, 0, cnt=4).returned == 4
    assert up.vx_watchdog_get(0).returned is None


def test_a_result_is_a_dict_with_attributes(up):
    watchdog = up.vx_watchdog_get(0)
    assert dict(watchdog)["wd_timer"] == watchdog["wd_timer"] == watchdog.wd_timer == watchdog.p_cfg.wd_timer
    assert isinstance(watchdog.wd_action, enum.IntEnum) and watchdog.wd_enable is False
    assert "wd_timer" in dir(watchdog) and json.loads(json.dumps(watchdog))["wd_action"] == 0
    with pytest.raises(AttributeError, match="vx_watchdog_cfg_t has no member wd_tmer; did you mean wd_timer"):
        watchdog.wd_tmer
    assert repr(watchdog) == ("vx_watchdog_cfg_t(wd_enable=False, wd_timer=0, wd_action=VX_WD_ACTION_WARNING, "
                              "mask_s=wd_enable|wd_timer|wd_action)")
    assert str(watchdog).splitlines()[1] == "wd_timer   0"
    assert "<th>wd_timer</th><td>0</td>" in watchdog._repr_html_()
    copied = copy.deepcopy(watchdog)
    copied.wd_timer = 5
    assert watchdog.wd_timer == 0 and copied.wd_action is watchdog.wd_action


def test_bits_of_an_enum_are_flags(up):
    kind = up.enums.lmq_pkt_type_bitmap_e
    first, second = list(kind)[:2]
    assert issubclass(kind, enum.IntFlag) and issubclass(up.enums.vx_wd_action_e, enum.IntEnum)
    codec = up._method("lmq_add_pkt_type_filter").codec["pkt_type_bitmap"]
    both = codec.encode(first | second)
    assert codec.encode(f"{first.name}|{second.name}") == codec.encode([first, second.name]) == both
    assert codec.decode(first | second) == first | second and isinstance(codec.decode(1 << 30), int)


def test_a_number_that_an_enum_does_not_have_stays_a_number(idle):
    assert idle._codecs.struct("vx_watchdog_cfg_t").decode({"wd_action": 99, "wd_enable": 7}) == {
        "wd_action": 99, "wd_enable": 7}


def test_help_and_completion_know_the_methods(idle):
    assert "vx_watchdog_set" in dir(idle)
    assert list(inspect.signature(idle.vx_watchdog_set).parameters) == [
        "dev_id", "p_cfg", "wd_enable", "wd_timer", "wd_action", "mask_s"]
    text = idle.vx_watchdog_set.__doc__
    assert "Sets the members of the watchdog" in text and "Effect: changes." in text
    assert "wd_timer: Time after which it expires" in text


# Many calls, and waiting.

def test_a_batch_is_one_request_and_its_results_are_futures(up, host):
    with up.batch() as batch:
        batch.vx_watchdog_set(0, wd_timer=77)
        watchdog, flow = batch.vx_watchdog_get(0), batch.vx_flow_us_get(0, 99)
        with pytest.raises(lmq.Error, match="not made yet"):
            watchdog.result()
        with pytest.raises(lmq.ArgumentError):
            batch.vx_watchdog_set(0, wd_tmer=1)
    assert watchdog.result().wd_timer == 77 and watchdog.exception() is None
    with pytest.raises(lmq.VX_ERR_FE_INVALID_FLOW_ID):
        flow.result()
    with up.batch() as batch:
        many = [batch.lmq_write_register(0, 4 * index, index) for index in range(250)]
    assert all(each.exception() is None for each in many)
    assert list(up.lmq_read_register(0, 996).values()) == [249]


def test_an_exception_keeps_a_batch_from_being_made(up):
    with pytest.raises(ZeroDivisionError), up.batch() as batch:
        batch.vx_watchdog_set(0, wd_timer=77)
        1 // 0
    assert up.vx_watchdog_get(0).wd_timer != 77


def test_waiting_ends_when_the_members_are_as_given(up):
    result = up.wait_until("vx_watchdog_get", 0, wd_action="VX_WD_ACTION_WARNING", wd_timer=lambda seconds: seconds < 5)
    assert result.wd_timer == 0
    with pytest.raises(lmq.WaitTimeout, match=r"no wd_timer=5 within 0 s; last was wd_timer=0") as late:
        up.wait_until("vx_watchdog_get", 0, wd_timer=5, timeout=0)
    assert late.value.last.wd_timer == 0 and isinstance(late.value, TimeoutError)
    with pytest.raises(AttributeError, match="answers no wd_tmer; did you mean wd_timer"):
        up.wait_until("vx_watchdog_get", 0, wd_tmer=5, timeout=0)
    with pytest.raises(lmq.WaitTimeout, match="VX_ERR_FE_INVALID_FLOW_ID"):
        up.wait_until("vx_flow_us_get", 0, 99, timeout=0)


def test_a_snapshot_puts_back_what_was_changed(up):
    before = up.snapshot("vx_watchdog*")
    up.vx_watchdog_set(0, wd_timer=99, wd_action="VX_WD_ACTION_REBOOT")
    assert up.snapshot("vx_watchdog*") != before
    assert [name for name, *_ in before.restore()] == ["vx_watchdog_set"]
    assert up.snapshot("vx_watchdog*") == before and before.restore() == []


# Hosts, and what they do wrong.

def test_the_description_of_the_interface_is_fetched_once(host, own_folders, tmp_path, monkeypatch):
    monkeypatch.setenv("XDG_CACHE_HOME", str(tmp_path))
    def run():
        return python(f"import lmq; print(len(lmq.connect('{host.url}').interface.methods))")

    assert run() == "426\n"
    (kept,) = (tmp_path / "lmq").glob("*.json")
    written = kept.stat().st_mtime_ns
    assert run() == "426\n" and kept.stat().st_mtime_ns == written
    kept.write_text("{")  # spoiled: another one comes
    assert run() == "426\n" and json.loads(kept.read_bytes())["methods"]


class Fake(http.server.BaseHTTPRequestHandler):
    """A host that answers what a test wants."""

    protocol_version = "HTTP/1.1"

    def answer(self):
        self.rfile.read(int(self.headers.get("Content-Length") or 0))
        status, headers, body = self.server.replies[self.path]
        self.send_response(status)
        for name, value in {"Content-Length": str(len(body)), **headers}.items():
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(body)
        self.server.seen.append(self.path)

    do_GET = do_POST = answer

    def log_message(self, *_):
        pass


@pytest.fixture
def fake():
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), Fake) as server:
        server.url, server.seen = f"http://127.0.0.1:{server.server_port}", []
        threading.Thread(target=server.serve_forever, daemon=True).start()
        answer = "<?xml version='1.0'?>\n<methodResponse><params><param><value><array><data>{}</data></array></value>" \
                 "</param></params></methodResponse>"
        server.replies = {
            "/interface": (200, {"ETag": '"fake"'}, pathlib.Path(os.environ["LMQ_INTERFACE_JSON"]).read_bytes()),
            "/RPC2": (200, {"Lmq-Output": "/output/3"}, answer.format("<value><i4>0</i4></value>" * 3).encode()),
            "/output/3": (200, {}, "3 pieces\n".encode()),
        }
        yield server
        server.shutdown()


def test_what_the_driver_printed_is_fetched_when_it_is_wanted(fake):
    chip = lmq.connect(fake.url)
    result = chip.vx_mac_addr_set(0, "02:00:00:00:00:01")
    assert "/output/3" not in fake.seen
    assert result.output == result.output == "3 pieces\n" and fake.seen.count("/output/3") == 1


DIED = (b"<?xml version='1.0'?><methodResponse><fault><value><struct>"
        b"<member><name>faultCode</name><value><i4>-1</i4></value></member>"
        b"<member><name>faultString</name><value>the worker died</value></member>"
        b"</struct></value></fault></methodResponse>")


@pytest.mark.parametrize("path, reply, message", [
    ("/interface", (404, {}, b"no such page"), "does not serve its interface; name a file"),
    ("/interface", (401, {}, b"who?"), "HTTP status 401: who\\?"),
    ("/interface", (200, {"ETag": '"other"'}, b"[]"), "its description of the interface is none"),
    ("/RPC2", (503, {}, b"too busy"), "HTTP status 503: too busy"),
    ("/RPC2", (200, {}, b"<?xml version='1.0'?><methodResponse>"), "an answer that is no XML-RPC"),
    ("/RPC2", (502, {}, DIED), "vx_watchdog_get: the worker died"),
])
def test_a_host_that_does_not_answer_as_it_should_is_a_host_error(fake, path, reply, message, monkeypatch):
    monkeypatch.setattr(lmq, "_interfaces", {})
    fake.replies[path] = reply
    with pytest.raises(lmq.HostError, match=message):
        lmq.connect(fake.url).vx_watchdog_get(0)


def test_a_file_describes_the_interface_of_a_host_without_one(fake):
    fake.replies["/interface"] = 404, {}, b""
    chip = lmq.connect(fake.url, interface=os.environ["LMQ_INTERFACE_JSON"])
    assert "vx_watchdog_set" in dir(chip)
    with pytest.raises(lmq.Error, match="README.md: this describes no interface"):
        lmq.connect(fake.url, interface=conftest.HERE.parents[1] / "README.md")


def test_a_fault_says_that_the_driver_was_not_called():
    with conftest.serve("--deny", "lmq.vx_reset*", "--interface", os.environ["LMQ_INTERFACE_JSON"]) as host:
        with pytest.raises(lmq.Fault) as refused:
            lmq.connect(host.url).vx_reset(0)
        assert refused.value.code == -507 and refused.value.method == "vx_reset"


def test_a_call_after_a_restart_goes_to_the_new_host():
    options = "--interface", os.environ["LMQ_INTERFACE_JSON"]
    with conftest.serve(*options) as first:
        chip = lmq.connect(first.url)
        chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": 1}])
    with pytest.raises(lmq.HostError, match="refused"):
        chip.vx_watchdog_get(0)
    with conftest.hosting.Host(*options, plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"],
                               listen=f"127.0.0.1:{first.port}"), pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
        chip.vx_watchdog_get(0)


def test_a_unix_socket_serves_too(tmp_path):
    with conftest.hosting.Host("--socket", str(tmp_path / "s"), "--interface", os.environ["LMQ_INTERFACE_JSON"],
                               listen=None,
                               plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"]):
        with lmq.connect(f"unix:{tmp_path / 's'}") as chip, pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
            chip.vx_watchdog_get(0)


def test_certificates_and_passwords(tmp_path, monkeypatch):
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", "key.pem", "-out",
                    "cert.pem", "-days",
                    "2", "-subj", "/CN=localhost", "-addext", "subjectAltName=IP:127.0.0.1,DNS:localhost"],
                   cwd=tmp_path,
                   check=True, stderr=subprocess.DEVNULL)
    line = subprocess.run([os.environ["LMQ_HOST"], "--make-user", "bench"], input="secret\nsecret\n", text=True,
                          check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout
    (tmp_path / "users").write_text(line)
    (tmp_path / "users").chmod(0o600)
    files = {"cacert": tmp_path / "cert.pem", "cert": tmp_path / "cert.pem", "key": tmp_path / "key.pem"}
    with conftest.serve("--tls-cert", str(files["cert"]), "--tls-key", str(files["key"]), "--tls-client-ca",
                        str(files["cacert"]),
                        "--auth", str(tmp_path / "users"), "--interface", os.environ["LMQ_INTERFACE_JSON"]) as host:
        with pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
            lmq.connect(host.url, user="bench", password="secret", **files).vx_watchdog_get(0)
        with pytest.raises(lmq.HostError, match="401"):
            lmq.connect(host.url, user="bench", password="wrong", **files)
        with pytest.raises(lmq.HostError, match="certificate"):
            lmq.connect(host.url, user="bench", password="secret")
        # The same by the name of a board. Files beside the boards file need no path.
        monkeypatch.setenv("XDG_CONFIG_HOME", str(tmp_path))
        monkeypatch.setenv("LMQ_BOARD", "rack2-01")
        (tmp_path / "lmqctl").mkdir()
        (tmp_path / "lmqctl" / "boards.toml").write_text(
            f'[boards.rack2-01]\nurl = "{host.url}"\nuser = "bench"\npassword-command = "echo secret"\n'
            'cacert = "../cert.pem"\ncert = "../cert.pem"\nkey = "../key.pem"\ngroups = ["rack2"]\n'
            '[boards.rack2-02]\nurl = "http://elsewhere:1"\n[boards.broken]\n')
        with pytest.raises(lmq.Error, match="board broken has no url"):
            lmq.connect("rack2-01")
        text = (tmp_path / "lmqctl" / "boards.toml").read_text()
        (tmp_path / "lmqctl" / "boards.toml").write_text(text.replace("[boards.broken]\n", ""))
        with pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
            lmq.connect().vx_watchdog_get(0)
        assert [board.name for board in lmq._boards.matching("rack2*")] == ["rack2-01", "rack2-02"]
        with pytest.raises(lmq.Error, match="did you mean rack2-01"):
            lmq.connect("rack2-1")


def test_the_package_is_written_for_the_oldest_python_that_it_promises():
    for path in (conftest.HERE.parents[1] / "python" / "lmq").glob("*.py"):
        ast.parse(path.read_text(), feature_version=(3, 9))
