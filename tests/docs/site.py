"""The site of the documents, built anew: site.py INTERFACE BUILDER LMQCTL HOST

Every link leads somewhere, to a section that is there where it names one; nothing is loaded from elsewhere; the reference
has a page for each method, structure and enum, which says what it is; the calls that it shows are accepted; and Chromium
finds things by the search where the site is opened as files.
"""

import collections
import html.parser
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time
import unittest
import urllib.parse

TESTS = pathlib.Path(__file__).parent.parent
sys.path[:0] = [str(TESTS), str(TESTS / "console")]
import hosting  # noqa: E402

INTERFACE, BUILDER, LMQCTL, HOST = sys.argv[1:5]
LOADS = {"script": "src", "img": "src", "iframe": "src", "source": "src", "link": "href"}
SKIPPED = 77  # what ctest takes for "skipped"


class Page(html.parser.HTMLParser):
    """What a page links to and loads, the names of its places, and the text of its article."""

    def __init__(self, text):
        super().__init__()
        self.links, self.loads, self.places, self.text, self.within = [], [], set(), "", 0
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        said = dict(attributes)
        self.places |= {said[key] for key in ("id", "name") if said.get(key)}
        if tag == "a" and "href" in said:
            self.links.append(said["href"])
        if LOADS.get(tag) in said and said.get("rel") not in ("canonical", "prev", "next"):
            self.loads.append(said[LOADS[tag]])
        self.within += tag == "article"

    def handle_endtag(self, tag):
        self.within -= tag == "article"

    def handle_data(self, data):
        if self.within:
            self.text += data


class Site(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        built = subprocess.run([sys.executable, "-B", BUILDER, INTERFACE, cls.folder.name], stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, text=True)
        assert built.returncode == 0, built.stdout
        cls.root = pathlib.Path(cls.folder.name, "site")
        cls.pages = {path: Page(path.read_text()) for path in cls.root.rglob("*.html")}
        cls.interface = json.loads(pathlib.Path(INTERFACE).read_text())

    def leads(self, page, link):
        """Whether a link of a page leads to a file and a place that are there."""
        parts = urllib.parse.urlsplit(link)
        there = page if not parts.path else (page.parent / urllib.parse.unquote(parts.path)).resolve()
        if there.is_dir():
            there /= "index.html"
        return there.is_file() and (not parts.fragment or there not in self.pages or
                                    urllib.parse.unquote(parts.fragment) in self.pages[there].places)

    def test_links_lead_somewhere(self):
        wrong = [f"{path.relative_to(self.root)}: {link}" for path, page in self.pages.items() if path.name != "404.html"
                 for link in {*page.links, *page.loads}
                 if not urllib.parse.urlsplit(link).scheme and not self.leads(path, link)]
        self.assertEqual(wrong, [])

    def test_nothing_is_loaded_from_elsewhere(self):
        loaded = {load for page in self.pages.values() for load in page.loads}
        self.assertEqual([load for load in loaded if urllib.parse.urlsplit(load).netloc], [])
        for sheet in self.root.rglob("*.css"):
            self.assertNotIn("url(http", sheet.read_text(), sheet)

    def test_every_page_says_something(self):
        for path, page in self.pages.items():
            if path.name != "404.html":
                self.assertGreater(len(page.text.split()), 20, path)
                self.assertNotIn("{ .trail }", page.text, path)

    def test_reference_is_whole(self):
        for kind in ("methods", "structs", "enums"):
            for name, said in self.interface[kind].items():
                page = self.pages[self.root / "reference" / kind / f"{name}.html"]
                words = [each["name"] for each in [*said.get("arguments", []), *said.get("members", [])]]
                for word in [*words, *said.get("values", []), *said["brief"].replace("`", "").split()]:
                    self.assertIn(word, page.text, name)

    def test_types_and_methods_lead_to_each_other(self):
        links = collections.defaultdict(set)
        for path, page in self.pages.items():
            links[path.stem] |= {pathlib.PurePosixPath(urllib.parse.urlsplit(link).path).stem for link in page.links}
        for name, said in self.interface["methods"].items():
            for each in said["arguments"]:
                if each["type"] in self.interface["structs"] or each["type"] in self.interface["enums"]:
                    self.assertIn(each["type"], links[name])
                    self.assertIn(name, links[each["type"]])

    def test_search_knows_every_entry(self):
        index = json.loads((self.root / "search" / "search_index.json").read_text())
        found = {entry["title"] for entry in index["docs"]}
        for kind in ("methods", "structs", "enums"):
            self.assertLessEqual(set(self.interface[kind]), found)

    def test_search_works_in_files(self):
        try:
            from browsing import browser
            with browser() as chromium:
                address = (self.root / "reference" / "index.html").as_uri()
                for words, page in (("watchdog", "vx_watchdog_get.html"), ("28936", "vx_status_e.html"),
                                    ("vx_wd_action_reboot", "vx_wd_action_e.html"),
                                    ("vx_gpon_onu_port_config_get", "vx_gpon_onu_port_config_get.html")):
                    chromium.get(f"{address}?q={words}")
                    self.wait(lambda: page in chromium.execute_script(
                        "return document.querySelector('.md-search-result__list').innerHTML"), words)
        except SystemExit:  # after it has said what is missing
            self.skipTest("there is no browser to try the search with")

    def wait(self, condition, what):
        deadline = time.monotonic() + 60
        while not condition():
            self.assertLess(time.monotonic(), deadline, f"the search does not find {what}")
            time.sleep(0.1)

    def test_calls_to_copy_are_accepted(self):
        lines = {name: next(line.strip() for line in self.source(name).splitlines() if f"    lmqctl call {name}" in line)
                 for name in self.interface["methods"]}
        script = "\n".join(f"{line} --dry-run > /dev/null 2>> errors || echo {name} >> refused"
                           for name, line in lines.items())
        with hosting.Host(program=HOST) as host, tempfile.TemporaryDirectory() as scratch:
            bin_folder = pathlib.Path(scratch, "bin")
            bin_folder.mkdir()
            (bin_folder / "lmqctl").symlink_to(LMQCTL)
            subprocess.run(["sh", "-c", script], cwd=scratch, check=True, env=hosting.environment(
                LMQ_URL=host.url, XDG_CACHE_HOME=scratch, PATH=f"{bin_folder}:{os.environ['PATH']}"))
            refused = pathlib.Path(scratch, "refused")
            self.assertFalse(refused.exists() and refused.read_text() + pathlib.Path(scratch, "errors").read_text())

    def source(self, name):
        return pathlib.Path(self.folder.name, "source", "reference", "methods", f"{name}.md").read_text()


if __name__ == "__main__":
    if not shutil.which("mkdocs"):
        print("mkdocs is not installed: apt-get install mkdocs mkdocs-material")
        sys.exit(SKIPPED)
    unittest.main(argv=sys.argv[:1])
