"""Chromium in front of a console, for the tests and for the pictures in docs/console.md.

    with browser() as chromium:
        page = Page(chromium, host)
        page.open("method/vx_watchdog_get")
"""

import contextlib
import sys
import tempfile
import time

try:
    from selenium import webdriver
    from selenium.webdriver.common.by import By
    from selenium.webdriver.common.keys import Keys
    from selenium.webdriver.support.ui import Select
except ImportError:
    print("selenium is not installed (python3-selenium)")
    sys.exit(77)

PATIENCE = 30
FLAGS = ("--headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking "
         "--disable-component-update --disable-sync --hide-scrollbars --password-store=basic").split()


@contextlib.contextmanager
def browser(width=1280, height=900):
    """A Chromium of its own, without a window."""
    with tempfile.TemporaryDirectory(ignore_cleanup_errors=True) as profile:
        options = webdriver.ChromeOptions()
        for flag in (*FLAGS, f"--user-data-dir={profile}", f"--window-size={width},{height}"):
            options.add_argument(flag)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        try:
            made = webdriver.Chrome(options=options)
        except Exception as error:  # whatever keeps Chromium from starting here is no fault of the console
            print(f"Chromium cannot be started: {error}")
            sys.exit(77)
        try:
            made.set_script_timeout(120)
            yield made
        finally:
            made.quit()


def dress(chromium, width=1280, height=900, dark=False):
    """Gives the page a size and colours."""
    chromium.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                             {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": width < 500})
    scheme = [{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}]
    chromium.execute_cdp_cmd("Emulation.setEmulatedMedia", {"features": scheme})


class Page:
    """What a user sees and does."""

    def __init__(self, chromium, host, user=""):
        self.chromium = chromium
        self.root = host.url.replace("/RPC2", "/console/")
        self.entry = self.root.replace("://", f"://{user}@") if user else self.root
        self.chromium.get("about:blank")

    def open(self, address=""):
        """Opens an address of the console anew, as a shared link does."""
        self.chromium.get("about:blank")
        self.chromium.get(f"{self.entry}#/{address}")
        self.wait(lambda: self.all("main h1"))

    def all(self, css):
        return self.chromium.find_elements(By.CSS_SELECTOR, css)

    def one(self, css):
        return self.wait(lambda: self.all(css))[0]

    def wait(self, condition):
        """What the condition gives once it is true; it is asked again until then."""
        deadline = time.monotonic() + PATIENCE
        while True:
            try:
                found = condition()
            except Exception as error:  # the page may replace an element while it is looked at
                found, last = None, error
            else:
                last = None
            if found:
                return found
            if time.monotonic() > deadline:
                seen = self.script("return document.querySelector('main')?.innerText ?? ''")[:400]
                raise AssertionError(f"not within {PATIENCE} s on {self.chromium.current_url}; {last or ''}\n{seen}")
            time.sleep(0.05)

    def field(self, path):
        return self.one(f'[aria-label="{path}"]')

    def fill(self, path, text):
        field = self.field(path)
        if field.tag_name == "select":
            Select(field).select_by_visible_text(text)
        else:
            field.clear()
            field.send_keys(text)

    def button(self, name):
        named = f"//button[normalize-space()='{name}' or @aria-label='{name}']"
        return self.wait(lambda: [each for each in self.chromium.find_elements(By.XPATH,
            named) if each.is_displayed()])[0]

    def press(self, name):
        self.button(name).click()

    def call(self):
        """Presses Call and waits for the answer; returns its status."""
        before = self.history()
        self.press("Call")
        self.wait(lambda: self.history() != before)
        return self.status()

    def history(self):
        return self.script("return localStorage.getItem('lmq.history')")

    def status(self):
        return self.one('[role="status"]').text

    def answer(self):
        return self.one('section[aria-label="Answer"]').text

    def value(self, path):
        """A value of the answer, as it is written there."""
        return self.one(f'section[aria-label="Answer"] [data-path="{path}"] .value').text

    def script(self, text, *arguments):
        return self.chromium.execute_script(text, *arguments)

    def asynchronous(self, text, *arguments):
        """Runs a module's code: `text` is the body of an asynchronous function."""
        made = self.chromium.execute_async_script(
            "const done = arguments[arguments.length - 1], given = arguments;"
            f"(async () => {{ {text} }})().then(done, (error) => done({{error: String(error.stack)}}));", *arguments)
        if isinstance(made, dict) and "error" in made:
            raise AssertionError(made["error"])
        return made

    def address(self):
        return self.chromium.current_url.partition("#/")[2]

    def messages(self):
        """What the browser complains about."""
        return [each["message"] for each in self.chromium.get_log("browser")]
