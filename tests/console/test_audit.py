"""The accessibility of the pages, by axe-core: no serious finding, light and dark, wide and narrow.

axe-core comes from npm; where it cannot be fetched, the test is skipped. AXE names a copy of axe.min.js to use instead.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import harness
from browsing import dress
from harness import Case

VERSION = "4.10.3"
PAGES = ("", "watch", "history", "types", "family/eth_port", "method/vx_watchdog_set?wd_timer=30",
         "method/lmq_init_system?dev_cfg[0].enbl=1", "method/vx_flow_us_add?key_type=VX_CL_KEY_IPV6_LONG",
         "struct/vx_flow_us_key_t", "enum/vx_status_e", "status/VX_ERR_DEV_BUSY")


def axe():
    """The text of axe-core."""
    if named := os.environ.get("AXE"):
        return pathlib.Path(named).read_text()
    if not shutil.which("npm"):
        print("npm is not installed, so axe-core is not there")
        sys.exit(77)
    with tempfile.TemporaryDirectory() as folder:
        done = subprocess.run(["npm", "install", "--no-audit", "--no-fund", "--ignore-scripts", "--prefix", folder,
            f"axe-core@{VERSION}"],
                              capture_output=True, text=True, timeout=120)
        if done.returncode:
            print(f"axe-core cannot be fetched: {done.stderr[-300:]}")
            sys.exit(77)
        return pathlib.Path(folder, "node_modules/axe-core/axe.min.js").read_text()


class Audit(Case):
    variables = {"LMQ_SIM_TRAFFIC": "7:500"}

    def findings(self):
        self.page.script(AXE)
        return self.page.asynchronous("""
            const {violations} = await axe.run(document, {resultTypes: ["violations"]});
            return violations.map(({id, impact, nodes}) => [impact, id,
                nodes.slice(0, 3).map((each) => each.html.slice(0, 160))]);""")

    def test_all_pages(self):
        page, serious = self.page, []
        page.open("method/vx_eth_port_stats_get?port_id=3")
        page.call()
        page.open("watch")
        page.press("Ethernet ports")
        for width, dark in ((1280, False), (1280, True), (360, False)):
            dress(harness.chromium, width, 900, dark)
            for address in PAGES:
                page.open(address)
                if address.startswith("method/vx_watchdog"):
                    page.call()
                if address == "watch":
                    page.wait(lambda: page.all(".spark"))
                serious += [(width, dark, address, *each) for each in self.findings() if each[0] in ("serious",
                    "critical")]
                wide = page.script("return document.documentElement.scrollWidth")
                self.assertLessEqual(wide, width, f"{address} is wider than the screen")
        self.assertEqual(serious, [])


if __name__ == "__main__":
    AXE = axe()
    harness.main(sys.modules[__name__])
