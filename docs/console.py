#!/usr/bin/env python3
"""Takes the pictures of docs/console.md in Chromium, light and dark, from a host of its own with the simulated chip:

    LMQ_HOST=build/release/lmq-host docs/console.py

It needs what the console's tests need.
"""

import base64
import pathlib
import sys
import time
import xmlrpc.client

ROOT = pathlib.Path(__file__).parent.parent
sys.path[:0] = [str(ROOT / "tests"), str(ROOT / "tests" / "console")]
from browsing import Page, browser, dress  # noqa: E402
from harness import UP  # noqa: E402
from hosting import Host  # noqa: E402

VLAN_100 = {"key_type": 3, "key_s": {"mac_vlan": {"o_vid": 100, "valid": {"mask_s": {"o_vid": 1}}}}}


def bring_up(chip):
    """What the tour does: a GPON port in operation with a T-CONT, a GEM port and a flow."""
    chip.lmq_init_system(UP)
    chip.vx_gpon_onu_port_enable_set(0, 0, 1)
    while chip.vx_gpon_onu_port_config_get(0, 0, {})[3]["onu_state"] != 4:
        time.sleep(0.1)
    chip.vx_gpon_onu_tcont_enable_set(0, 0, 1, 1, {"alloc_id": 257})
    chip.vx_gpon_onu_gem_port_add(0, 0, 100, {"direction": 3, "tcont_id": 1})
    chip.vx_flow_us_add(0, 3, VLAN_100, {}, 0, 0)


def take(page, name):
    shot = page.chromium.execute_cdp_cmd("Page.captureScreenshot", {"format": "webp", "quality": 80})
    (ROOT / "docs" / "images" / f"console-{name}.webp").write_bytes(base64.b64decode(shot["data"]))


def pictures(page, suffix):
    page.open()
    page.wait(lambda: page.all(".card .rate"))
    time.sleep(3)  # for the rates
    take(page, f"overview-{suffix}")
    page.open("method/vx_watchdog_set?wd_timer=30&wd_action=VX_WD_ACTION_REBOOT")
    page.call()
    take(page, f"form-{suffix}")
    page.open("method/vx_eth_port_stats_get?port_id=3")
    page.call()
    page.call()
    take(page, f"answer-{suffix}")
    page.open("watch")
    page.press("Ethernet ports")
    page.press("p_stats.rx_bytes")
    time.sleep(12)  # for something to plot
    take(page, f"watch-{suffix}")
    page.field("Search").send_keys("vlan tag")
    page.wait(lambda: page.all("#found [role=option]"))
    take(page, f"search-{suffix}")
    page.chromium.execute_script("localStorage.clear()")


def main():
    (ROOT / "docs" / "images").mkdir(exist_ok=True)
    with Host(LMQ_SIM_TRAFFIC="7:500") as host, browser() as chromium:
        bring_up(xmlrpc.client.ServerProxy(host.url).lmq)
        page = Page(chromium, host)
        for dark in (False, True):
            dress(chromium, 1280, 800, dark)
            pictures(page, "dark" if dark else "light")
        dress(chromium, 360, 740)
        page.open("method/vx_watchdog_set?wd_timer=30")
        page.call()
        take(page, "narrow")


if __name__ == "__main__":
    main()
