"""Builds the site of the documents: build.py INTERFACE OUTPUT [VERSION]

INTERFACE is the interface.json of a build. OUTPUT gets `source`, the pages as Markdown, `mkdocs.yml`, and `site`, which is
what a browser opens, from a web server or as files. A link that leads nowhere ends it with an error.
"""

import json
import pathlib
import shutil
import subprocess
import sys

import chapters
import reference

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
LISTS = [("methods", "Methods"), ("structs", "Structures"), ("enums", "Enums"), ("types", "Basic types"),
         ("constants", "Constants"), ("ids", "Ids")]


def navigation(documents, made):
    """The navigation: chapters, then the reference by family. hooks.py adds the entries of the family that is open."""
    listed = [{title: [{name: path} for path, name in entries]} for title, entries in documents.navigation if entries]
    families = [{reference.TITLES.get(family, family): [f"reference/families/{family}.md"]} for family in made.families()]
    lists = [{title: f"reference/{kind}/README.md"} for kind, title in LISTS]
    return [*listed, {"Reference": ["reference/README.md", *lists, *families]}]


def configuration(output, documents, made, version):
    """mkdocs' configuration. It reads YAML, of which JSON is a part."""
    return {
        "site_name": "lmq-xmlrpc",
        "site_description": f"The chip driver over XML-RPC, {version}".rstrip(", "),
        "site_url": "",
        "docs_dir": str(output / "source"),
        "site_dir": str(output / "site"),
        "use_directory_urls": False,
        "copyright": f"lmq-xmlrpc {version}".strip(),
        "theme": {
            "name": "material", "language": "en", "font": False, "favicon": "assets/icon.svg", "logo": "assets/icon.svg",
            "features": ["navigation.tabs", "navigation.tabs.sticky", "navigation.indexes", "navigation.top",
                         "navigation.tracking", "search.highlight", "search.suggest"],
            "palette": [palette("default", "dark", "weather-night"), palette("slate", "light", "weather-sunny")]},
        "extra": {"generator": False, "sources": [path.removesuffix(".md") + ".html" for path in sorted(documents.sources)]},
        "extra_css": ["assets/site.css"],
        "extra_javascript": [],
        "plugins": [{"search": {"lang": "en", "separator": r"[\s\-_,.:()]+"}}],
        "hooks": [str(HERE / "hooks.py")],
        "markdown_extensions": [
            "tables", "attr_list", "md_in_html", {"toc": {"permalink": True, "toc_depth": 3}}, "pymdownx.superfences",
            {"pymdownx.highlight": {"anchor_linenums": False}}, {"pymdownx.tabbed": {"alternate_style": True}}],
        "nav": navigation(documents, made),
    }


def palette(scheme, other, icon):
    media = "(prefers-color-scheme: " + ("light" if scheme == "default" else "dark") + ")"
    return {"media": media, "scheme": scheme, "primary": "teal", "accent": "teal",
            "toggle": {"icon": f"material/{icon}", "name": f"Switch to {other}"}}


def write(source, documents, made):
    """Writes the pages, and removes those of an earlier build."""
    shutil.rmtree(source, ignore_errors=True)
    for path, text in (documents.pages | made.pages).items():
        (source / path).parent.mkdir(parents=True, exist_ok=True)
        (source / path).write_text(text)
    for path, copied in [*((path, ROOT / path) for path in documents.copies), ("assets/icon.svg", ROOT / "console/icon.svg"),
                         ("assets/site.css", HERE / "site.css"), ("assets/search.js", HERE / "search.js")]:
        (source / path).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(copied, source / path)


def main(interface, output, version=""):
    if not shutil.which("mkdocs"):
        sys.exit("The site needs mkdocs and its material theme: apt-get install mkdocs mkdocs-material")
    output = pathlib.Path(output).resolve()
    documents = chapters.Chapters(ROOT)
    made = reference.Reference(json.loads(pathlib.Path(interface).read_text()), ROOT / "include")
    write(output / "source", documents, made)
    (output / "mkdocs.yml").write_text(json.dumps(configuration(output, documents, made, version), indent=1))
    built = subprocess.run(["mkdocs", "build", "--strict", "--clean", "-f", str(output / "mkdocs.yml")],
                           stderr=subprocess.PIPE, text=True)
    if built.returncode:
        wrong = [line for line in built.stderr.splitlines() if not line.startswith(("INFO", "  - "))]
        sys.exit("\n".join(wrong) + f"\nThe site was not built: mkdocs ended with status {built.returncode}")
    print(f"{output / 'site' / 'index.html'}: {len(documents.pages)} chapters and sources, {len(made.pages)} pages of reference")


if __name__ == "__main__":
    main(*sys.argv[1:])
