"""The documents of the repository as pages of the site, each at the path that it has in the tree, so that their links lead
to the same places in both. A link to a folder leads to its README or to a list of its files, one to a source file to a
page that shows it. Nothing is copied by hand: what exists is taken.

The README of a folder is the page about.md there, since the theme takes an index for the first page of its section.
"""

import os
import re
import subprocess
import sys

# What stands where in the navigation. A document that does not exist is left out, one that is not named here comes last.
SECTIONS = [
    ("Start", [("README.md", "Overview"), ("docs/start.md", "Getting started"), ("docs/tour.md", "A tour of lmqctl"),
               ("docs/wire.md", "How a call looks"), ("docs/troubles.md", "When it goes wrong"),
               ("CHANGELOG.md", "Changes")]),
    ("Guides", [("docs/console.md", "The console"), ("docs/python.md", "Python"), ("client/README.md", "lmqctl"),
                ("remote/README.md", "C and C++ programs"), ("docs/lab.md", "A lab of boards"),
                ("docs/trace.md", "Traces"), ("trace/README.md", "Traces"), ("driver/README.md", "The simulated chip")]),
    ("Boards", [("host/README.md", "The host"), ("docs/target.md", "The target"), ("docs/drivers.md", "A real driver"),
                ("packaging/README.md", "Packages and services"), ("docs/size.md", "Size of the plug-in")]),
    ("Inside", [("CONTRIBUTING.md", "Contributing"), ("tests/README.md", "Tests"), ("bench/README.md", "Benchmarks"),
                ("docs/fuzz.md", "Fuzzing"), ("console/README.md", "The console's code")]),
]
# Folders whose files have pages of their own, even if no document names them.
SHOWN = ("include", "examples")
MANUALS = "Manual pages"
IGNORED = ("build", "dist", "third_party", "node_modules")
FENCE = re.compile(r"(^ *```.*?^ *```$)", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\((?!https?:|#|mailto:)([^)#\s]+)(#[^)\s]*)?\)")
LANGUAGES = {".h": "c", ".c": "c", ".cc": "cpp", ".def": "c", ".py": "python", ".sh": "sh", ".cmake": "cmake",
             ".toml": "toml", ".json": "json", ".yml": "yaml"}


class Chapters:
    """All pages by path, in `pages`; files that go along as they are, in `copies`; the navigation, in `navigation`."""

    def __init__(self, root):
        self.root = root
        self.pages, self.copies = {}, set()
        self.wanted = set()  # what documents link to: files and folders
        self.sources = set()  # pages that show a file or a folder
        documents = self.documents()
        for path in documents:
            self.pages[page_of(path)] = self.document(path)
        self.manuals = self.manual_pages()
        self.wanted |= {str(path.relative_to(root)) for path in root.glob("include/**/*.h")}
        while self.wanted:
            self.follow(self.wanted.pop())
        self.navigation = self.navigate(documents)

    def documents(self):
        """Every document of the tree that is for readers."""
        found = [*self.root.glob("*.md"), *self.root.glob("docs/*.md"), *self.root.glob("*/README.md")]
        return sorted(str(path.relative_to(self.root)) for path in found
                      if path.relative_to(self.root).parts[0] not in IGNORED)

    def navigate(self, documents):
        listed = [(title, [(page_of(path), name) for path, name in entries if path in documents])
                  for title, entries in SECTIONS]
        named = {path for _, entries in listed for path, _ in entries}
        rest = [(path, re.search(r"^# (.+)$", self.pages[path], re.MULTILINE)[1].replace("`", ""))
                for path in map(page_of, documents) if path not in named]
        listed[-1][1].extend(rest)
        return [*listed, (MANUALS, self.manuals)]

    def manual_pages(self):
        """Makes a page of each manual page, as a terminal shows it."""
        found = []
        for path in sorted(self.root.glob("packaging/*.[1-8]")):
            shown = subprocess.run(["groff", "-man", "-Tutf8", "-rLL=84n", "-P-cbou", str(path)], stdout=subprocess.PIPE,
                                   text=True, check=True).stdout
            name = f"{path.stem}({path.suffix[1:]})"
            self.pages[f"packaging/{path.name}.md"] = f"# {name}\n\n````text\n{shown.strip()}\n````\n"
            found.append((f"packaging/{path.name}.md", name))
        return found

    def document(self, path):
        parts = FENCE.split((self.root / path).read_text())
        for at in range(0, len(parts), 2):
            # Markdown of the site nests by four blanks.
            parts[at] = re.sub(r"^ {2,3}(?=\S)", "    ", parts[at], flags=re.MULTILINE)
            parts[at] = LINK.sub(lambda found: self.link(path, found[1], found[2] or ""), parts[at])
        return "".join(parts)

    def link(self, path, target, section):
        """A link of a document, to the page of what it leads to; ends the program if there is no such file."""
        there = os.path.normpath(os.path.join(os.path.dirname(path), target))
        if not (self.root / there).exists():
            sys.exit(f"{path} has a link to {target}: there is no {there}")
        if (self.root / there).is_dir():
            self.wanted.add(there)
            return f"]({page_of(os.path.join(target, 'README.md'))}{section})"
        if target.endswith(".md"):
            return f"]({page_of(target)}{section})"
        self.wanted.add(there)
        return f"]({target}{'' if is_copied(target) else '.md'}{section})"

    def follow(self, path):
        """Makes the page of a file or folder that something links to."""
        there = self.root / path
        if is_copied(path):
            self.copies.add(path)
        elif there.is_dir():
            if f"{path}/about.md" not in self.pages:
                self.pages[f"{path}/about.md"] = self.folder(path)
                self.sources.add(f"{path}/about.md")
        else:
            language = LANGUAGES.get(there.suffix, "text")
            self.sources.add(f"{path}.md")
            self.pages[f"{path}.md"] = f"# {path}\n\n````{language}\n{there.read_text()}````\n"

    def folder(self, path):
        """A list of a folder's files, each with the first sentence of what it says of itself."""
        rows = ""
        for file in sorted((self.root / path).rglob("*")):
            if file.is_file() and "__pycache__" not in file.parts and not file.name.startswith("."):
                name = str(file.relative_to(self.root / path))
                whole = f"{path}/{name}"
                if whole.startswith(SHOWN) and file.suffix in LANGUAGES and f"{whole}.md" not in self.pages:
                    self.wanted.add(whole)
                has_page = not is_copied(whole) and (whole in self.wanted or f"{whole}.md" in self.pages)
                shown = f"[`{name}`]({name}.md)" if has_page else f"[`{name}`]({name})" if whole in self.pages else f"`{name}`"
                rows += f"| {shown} | {opening(file)} |\n"
        return f"# {path}/\n\n| File | What it holds |\n| --- | --- |\n{rows}"


def page_of(path):
    """The page that a document becomes."""
    folder, name = os.path.split(path)
    return os.path.join(folder, "about.md") if name == "README.md" and folder.strip("./") else path


def is_copied(path):
    """Whether a file goes along as it is: pictures, and data that nobody reads as a page."""
    return path.endswith((".webp", ".png", ".svg", ".json"))


def opening(file):
    """The first sentence of the comment that a file begins with, or nothing."""
    try:
        text = file.read_text()
    except UnicodeDecodeError:
        return ""
    text = re.sub(r"\A#!.*\n", "", text)
    if file.suffix == ".md":
        return re.match(r"#* *(.*)", text)[1]
    found = re.match(r'\s*(?:/\*(.*?)\*/|"""(.*?)"""|((?:(?://|#(?= |\n))[^\n]*\n)+))', text, re.DOTALL)
    if not found:
        return ""
    words = re.split(r"\n\W*\n", next(filter(None, found.groups())))[0]  # the first paragraph
    words = " ".join(re.sub(r"^\s*(?://|#|\*)? ?|@file|@brief", " ", words, flags=re.MULTILINE).split())
    sentence = re.match(r".*?[.:](?= [A-Z]|$)", words)
    return re.sub(r"([|<*_\[\]])", r"\\\1", sentence[0] if sentence else words)
