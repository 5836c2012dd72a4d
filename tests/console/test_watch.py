"""Numbers over time, and what the page shows of its host: the board, lost hosts, new workers, rights, hostile texts."""

import csv
import json
import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest
import xmlrpc.client

import harness
from browsing import Page
from harness import UP, Case
from hosting import Host

PRESET = {"counters": {"eth0": {"rx_bytes": 9007199254740993}}}
VLAN_BRIDGE = {"brg_type": 1, "valid": {"mask_s": {"brg_type": 1}}}


class Watch(Case):
    @classmethod
    def setUpClass(cls):
        folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        (folder / "preset.json").write_text(json.dumps(PRESET))
        cls.log = folder / "access.log"
        cls.options = ("--access-log", str(cls.log))
        cls.variables = {"LMQ_SIM_TRAFFIC": "7:500", "LMQ_SIM_PRESET": str(folder / "preset.json")}
        super().setUpClass()

    def requests(self):
        return self.log.read_text().count("multicall")

    def test_a_board(self):
        page = self.page
        page.open("method/vx_eth_port_stats_get?port_id=3")
        page.call()
        self.assertGreater(int(page.value("p_stats.rx_bytes").split(" ")[0].replace("\u2009", "")), 9007199254740992)
        page.press("Pin p_stats.rx_bytes")
        page.open("watch")
        page.press("Ethernet ports")
        page.wait(lambda: len(page.all(".watch tbody tr")) == 12)
        first = page.wait(lambda: page.one(".watch td.number").text.strip("…"))
        page.wait(lambda: page.one(".watch td.number").text not in (first, "…"))
        page.wait(lambda: page.one(".watch td.number + td.number").text not in ("—", "0", ""))
        page.press("p_stats.rx_bytes")
        page.wait(lambda: page.all(".plot canvas"))
        page.wait(lambda: page.script("return document.querySelector('.plot').innerText.includes(':')"))
        # One request stands for all of them.
        line = page.script(
            "return performance.getEntriesByType('resource').filter((each) => each.name.endsWith('RPC2')).length")
        self.assertLess(line, 60)
        page.press("Pause")
        exported = page.asynchronous("""
            const made = [];
            URL.createObjectURL = (blob) => { made.push(blob); return "#/watch"; };
            [...document.querySelectorAll("button")].find((each) => each.textContent === "Export CSV").click();
            return made[0].text();""")
        rows = list(csv.reader(exported.splitlines()))
        self.assertEqual(rows[0][:2], ["time", "vx_eth_port_stats_get port 3 p_stats.rx_bytes"])
        self.assertGreater(int(rows[-1][1]), 9007199254740992)
        page.press("Unpin all")
        page.wait(lambda: not page.all(".watch"))

    def test_a_hidden_page_asks_nothing(self):
        page = self.page
        page.open("watch")
        page.press("Queues")
        page.wait(lambda: page.all(".watch td.number"))
        asked = self.requests()
        page.wait(lambda: self.requests() > asked + 1)
        page.script("Object.defineProperty(document, 'hidden', {value: true, configurable: true});"
                    "document.dispatchEvent(new Event('visibilitychange'))")
        page.asynchronous("await new Promise((done) => setTimeout(done, 500));")
        asked = self.requests()
        page.asynchronous("await new Promise((done) => setTimeout(done, 2500));")
        self.assertEqual(self.requests(), asked)
        page.script("delete document.hidden; document.dispatchEvent(new Event('visibilitychange'))")
        page.wait(lambda: self.requests() > asked)
        page.press("Unpin all")

    def test_growth(self):
        self.page.open()
        self.assertEqual(self.page.asynchronous("""
            const {growth} = await import("/console/board.js");
            const word = {bits: 32, signed: false}, long = {bits: 64, signed: false};
            return [growth(5, 9, word), growth(4294967290, 4, word), growth(4000, 3, word), growth(0, 0, word),
                    growth(18446744073709551610n, 4n, long), growth(10n, 2n, long)];"""), [4, 10, None, 0, 10, None])

    def test_overview(self):
        page = self.page
        self.chip.vx_gpon_onu_port_enable_set(0, 0, 1)
        page.open()
        page.wait(lambda: page.one(".states .current").text == "OPERATION")
        self.assertEqual(self.chip.vx_gpon_onu_tcont_enable_set(0, 0, 1, 1, {"alloc_id": 257})[0], 0)
        self.assertEqual(self.chip.vx_gpon_onu_gem_port_add(0, 0, 100, {"direction": 3, "tcont_id": 1})[0], 0)
        page.wait(lambda: "257" in page.one("main").text and "100" in page.one("main").text)
        page.wait(lambda: "UP" in page.all(".card")[1].text)


def youngest(process):
    """The worker: the last in the line of a host's children."""
    children = pathlib.Path(f"/proc/{process}/task/{process}/children").read_text().split()
    return youngest(int(children[-1])) if children else process


class Life(Case):
    def setUp(self):
        """A host of its own for each test, since these end hosts and workers."""
        self.host = Host()
        self.addCleanup(lambda: self.host.close())
        self.chip = xmlrpc.client.ServerProxy(self.host.url).lmq
        self.chip.lmq_init_system(UP)
        super().setUp()

    def tearDown(self):
        self.page.messages()  # a host that is gone leaves messages, and may

    def test_a_lost_host_comes_back(self):
        page, port = self.page, self.host.port
        page.open("method/vx_watchdog_get")
        page.wait(lambda: "device up" in page.one("#state").text)
        self.host.close()
        self.assertIn("No answer", page.call())
        page.wait(lambda: "does not answer" in page.one("#banner").text)
        self.host = Host(listen=f"127.0.0.1:{port}")
        page.wait(lambda: "back after" in page.one("#banner").text or "begun anew" in page.one("#banner").text)
        page.wait(lambda: "system down" in page.one("#state").text)
        self.assertIn("UNINTIALIZED", page.call())

    def test_a_new_worker_is_told(self):
        page = self.page
        page.open("method/vx_watchdog_get")
        page.wait(lambda: "device up" in page.one("#state").text)
        os.kill(youngest(self.host.process.pid), signal.SIGKILL)
        page.wait(lambda: "new worker" in page.one("#banner").text)


class Shared(Case):
    def test_the_lease(self):
        page = self.page
        page.open("method/vx_watchdog_set?wd_timer=30")
        page.press("Take the lease")
        page.fill("Your name", "ann")
        page.press("Take it")
        page.wait(lambda: "yours until" in page.one("#lease").text)
        self.assertIn("VX_SUCCESS", page.call())
        page.chromium.refresh()
        page.wait(lambda: "yours until" in page.one("#lease").text)
        with self.assertRaises(xmlrpc.client.ProtocolError):
            self.chip.vx_watchdog_set(0, {})
        # Another user of the page, whose tab has no token.
        token = page.script("return sessionStorage.getItem('lmq.lease')")
        page.script("sessionStorage.clear()")
        page.chromium.refresh()
        page.wait(lambda: "lease: ann until" in page.one("#lease").text)
        self.assertIn("Refused (423)", page.call())
        self.assertIn("ann holds the lease", page.answer())
        self.assertTrue(any("423" in message for message in page.messages()))
        page.script("sessionStorage.setItem('lmq.lease', arguments[0])", token)
        page.chromium.refresh()
        page.press("Give back")
        page.wait(lambda: "ann" not in page.one("#lease").text and page.button("Take the lease"))
        self.assertEqual(self.chip.vx_watchdog_set(0, {})[0], 0)

    def test_what_the_driver_printed(self):
        page = self.page
        page.open("method/lmq_dump_bridge?brg_id=1")
        self.assertEqual(self.chip.lmq_create_bridge(0, 1, VLAN_BRIDGE)[0], 0)
        page.call()
        page.press("Output")
        page.wait(lambda: "ridge" in page.one('section[aria-label="Answer"] pre').text)


class Rights(Case):
    options = ("--read-only", "--deny", "lmq.vx_jtag_id_get")

    @classmethod
    def setUpClass(cls):
        cls.host = Host(*cls.options)
        cls.addClassCleanup(cls.host.close)

    def test_what_may_not_be_called_is_shown(self):
        page = self.page
        page.open("method/vx_watchdog_set")
        page.wait(lambda: "only reads" in page.one("p.refused").text)
        page.script("location.hash = '#/family/device'")
        page.wait(lambda: "vx_jtag_id_get" in page.one("main").text)
        rows = {row.text.split()[0]: "not for you" in row.text for row in page.all("tbody tr")}
        self.assertTrue(rows["vx_mac_addr_set"])
        self.assertFalse(rows["vx_mac_addr_get"])
        page.open("method/vx_jtag_id_get")
        page.wait(lambda: "not served here" in page.one("p.refused").text)
        self.assertIn("Fault -507", page.call())
        page.open("method/vx_watchdog_get")
        self.assertIn("UNINTIALIZED", page.call())
        self.assertEqual(page.one("p.refused").text, "")


class PartlyRefused(Case):
    """The host refuses a request whole for one call in it: the page goes on with the others."""

    options = ("--deny", "lmq.vx_gpon_onu_fec_stats_get", "--deny", "lmq.vx_flow_us_all_get")

    def test_the_rest_is_shown(self):
        page = self.page
        page.open("watch")
        page.press("GPON")

        def values(method):
            return [row.find_element("css selector", "td.number").text for row in page.all(".watch tbody tr")
                    if method in row.text]
        page.wait(lambda: set(values("vx_gpon_onu_mac_stats_get")) == {"0"})
        refused = set(values("vx_gpon_onu_fec_stats_get"))
        self.assertEqual(refused, {"The method lmq.vx_gpon_onu_fec_stats_get is not served here."})
        page.press("Unpin all")
        page.open("")
        page.wait(lambda: page.all(".overview .cards"))


class Entry(Case):
    @classmethod
    def setUpClass(cls):
        folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        made = subprocess.run([os.environ["LMQ_HOST"], "--make-user", "ann"], input="secret\n", text=True, check=True,
                              capture_output=True)
        (folder / "users").write_text(made.stdout)
        cls.host = Host("--auth", str(folder / "users"))
        cls.addClassCleanup(cls.host.close)

    def test_login(self):
        page = Page(harness.chromium, self.host, user="ann:secret")
        page.open("method/vx_watchdog_get")
        self.assertIn("UNINTIALIZED", page.call())
        self.assertNotIn("secret", page.history())

    def test_another_origin_cannot_call(self):
        with Host() as other:
            page = Page(harness.chromium, other)
            page.open()
            came = page.asynchronous("""
                const body =
                    '<?xml version="1.0"?><methodCall><methodName>system.listMethods</methodName></methodCall>';
                const tries = [];
                for (const mode of ["cors", "no-cors"]) {
                  const call = {method: "POST", body, mode, credentials: "include",
                      headers: {"Content-Type": "text/xml"}};
                  await fetch(given[0], call).then((reply) => tries.push(reply.status), () => tries.push("refused"));
                }
                return tries;""", self.host.url)
            self.assertNotIn(200, came)
            page.messages()  # the browser says what it refused


class Hostile(Case):
    """An interface whose names and texts are markup and script: they are shown as they are."""

    TEXT = "<img src=x onerror='window.pwned=1'><script>window.pwned=1</script>\"'&amp;`${1}`"

    @classmethod
    def setUpClass(cls):
        folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        bad = cls.TEXT
        member = {"name": bad, "type": "vx_uint32", "brief": bad, "unit": bad, "enum": "bad_e"}
        method = {"family": bad, "brief": bad, "documentation": bad, "effect": bad, "returns": bad, "result": bad,
                  "arguments": [{"name": bad, "type": "bad_t", "pointer": True, "direction": "inout", "length": 1,
                      "brief": bad}]}
        said = {"methods": {bad: method, "__proto__x": method},
            "structs": {"bad_t": {"brief": bad, "kind": "struct", "members": [member]}},
                "enums": {"bad_e": {"brief": bad,
                    "values": {bad: {"value": 0, "brief": bad}}}}, "typedefs": {}, "ids": {}, "fingerprint": bad}
        (folder / "interface.json").write_text(json.dumps(said))
        cls.host = Host("--interface", str(folder / "interface.json"))
        cls.addClassCleanup(cls.host.close)

    def test_markup_is_text(self):
        page = self.page
        page.open()
        quoted = page.script("return encodeURIComponent(arguments[0])", self.TEXT)
        for address in (f"method/{quoted}", "struct/bad_t", "enum/bad_e", f"family/{quoted}", f"struct/{quoted}",
            "types", "history",
                        "method/__proto__", "%E0%A4%A", "?<b>=<i>", f"method/{quoted}?x={quoted}", f"nothing/{quoted}"):
            page.open(address)
            self.assertEqual(page.all("main img, main script, main b i, nav img"), [], address)
        page.open(f"method/{quoted}")
        self.assertIn("<img src=x", page.one("main h1").text)
        self.assertIn("Fault", page.call())
        box = page.field("Search")
        box.send_keys("pwned")
        page.wait(lambda: "<script>" in page.one("#found").text)
        page.open("history")
        self.assertEqual(page.script("return [window.pwned, document.querySelectorAll('main img').length]"), [None, 0])


if __name__ == "__main__":
    harness.main(sys.modules[__name__])
