#!/usr/bin/env python3
"""How long the console takes to show its first view in Chromium: cold, with a profile that has never seen it, and warm,
when browser and host agree that what was kept still holds. The host and its simulated chip are its own.

    LMQ_HOST=build/release/lmq-host bench/console.py

A view is there with its first frame in which the page has its heading, counted from the beginning of the navigation.
"""

import argparse
import pathlib
import statistics
import sys
import xmlrpc.client

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path[:0] = [str(ROOT / "tests"), str(ROOT / "tests" / "console")]
from browsing import Page, browser  # noqa: E402
from harness import UP  # noqa: E402
from hosting import Host  # noqa: E402

VIEWS = {"overview": "", "form": "method/vx_watchdog_set?wd_timer=30", "structure": "struct/vx_flow_us_key_t"}

WATCH = """
function look() {
  if (!document.querySelector("main h1")) return requestAnimationFrame(look);
  requestAnimationFrame(() => { window.lmqShown = performance.now(); });
}
requestAnimationFrame(look);
"""


def shown(page, view):
    """Milliseconds until the view is there, and how many bytes came over the wire for it."""
    page.open(view)
    milliseconds = page.wait(lambda: page.script("return window.lmqShown"))
    sizes = page.script("return performance.getEntries().map((each) => each.transferSize ?? 0)")
    return milliseconds, sum(sizes)


def new_page(chromium, host):
    chromium.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": WATCH})
    return Page(chromium, host)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--rounds", type=int, default=9)
    options = parser.parse_args()
    times = {(view, kind): [] for view in VIEWS for kind in ("cold", "warm")}
    size = {"cold": 0, "warm": 0}
    with Host() as host:
        assert xmlrpc.client.ServerProxy(host.url).lmq.lmq_init_system(UP)[0] == 0
        for view, address in VIEWS.items():
            for _ in range(options.rounds):
                with browser() as chromium:
                    page = new_page(chromium, host)
                    for kind in ("cold", "warm"):
                        milliseconds, size[kind] = shown(page, address)
                        times[view, kind].append(milliseconds)
    print(f"Median of {options.rounds}, ms; over the wire {size['cold']:,} bytes cold, {size['warm']:,} warm\n")
    print("| view | cold | warm |\n|---|---:|---:|")
    for view in VIEWS:
        cold, warm = (statistics.median(times[view, kind]) for kind in ("cold", "warm"))
        print(f"| {view} | {cold:.0f} | {warm:.0f} |")


if __name__ == "__main__":
    main()
