"""What mkdocs does besides, while it builds the site: the reference in the navigation, and a search that works in files.

The navigation of a page holds the entries of its own family alone. With all of them, each of the pages would carry links
to all the others, and the site would be ten times as large.
"""

import json
import pathlib
import re
import shutil

from mkdocs.structure.nav import Section

KINDS = (("methods", ""), ("structs", "Structures"), ("enums", "Enums"))
families = {}  # the section of each, by the path of its page
members = {}  # of each, by kind, its pages in the order of its own page


def on_nav(nav, config, files):
    """Finds the families' sections, and gives each page of the reference its place below one."""
    pages = {file.src_uri: file.page for file in files.documentation_pages()}
    for section in nav.items[-1].children:
        if not isinstance(section, Section):
            continue
        section.children[0].file.name = "index"  # the theme lets the name of the section lead to its index
        uri = section.children[0].file.src_uri
        families[uri] = section
        text = pathlib.Path(section.children[0].file.abs_src_path).read_text()
        members[uri] = {kind: [pages[f"reference/{kind}/{name}.md"] for name in
                               re.findall(rf"^\| \[`\w+`\]\(\.\./{kind}/(\w+)\.md\) \|", text, re.MULTILINE)]
                        for kind, _ in KINDS}
        for kind, title in KINDS:
            chain(members[uri][kind])
            for page in members[uri][kind]:
                page.parent = section
    return nav


def chain(pages):
    """The links to the previous and the next page."""
    for page, following in zip(pages, pages[1:]):
        page.next_page, following.previous_page = following, page


def on_env(env, config, files):
    """Leaves out the blank lines of the theme's templates, which are a third of each page."""
    env.trim_blocks = env.lstrip_blocks = True
    return env


def on_page_context(context, page, config, nav):
    """Shows the entries of the page's family, and of no other."""
    for uri, section in families.items():
        index = section.children[0]
        section.children = [index]
        if page is not index and page.parent is not section:
            continue
        for kind, title in KINDS:
            if title and members[uri][kind]:
                group = Section(title, members[uri][kind])
                group.active = page in members[uri][kind]  # before it has a parent, which would follow
                group.parent = section
                section.children.append(group)
            else:
                section.children += members[uri][kind]
    return context


def on_post_page(output, page, config):
    """Puts the script that the theme's search looks for before the theme's own, and lets the search find the words that it
    takes for too common: `get` is one."""
    script = '<script src="' + "../" * page.url.count("/") + 'assets/search.js"></script>'
    # Long names break where their words end.
    output = re.sub(r'((?:class="md-nav__link|<h1)[^>]*>\s*)(\w+)(?=\s*<)',
                    lambda it: it[1] + it[2].replace("_", "_<wbr>"), output)
    return output.replace("</head>", script + "</head>", 1).replace('"trimmer, stopWordFilter"', '"trimmer"', 1)


def on_post_build(config):
    """Takes the pages that only show a source file out of the search. A browser reads no JSON from files, but scripts: the
    index of the search stands there as one too. What nobody loads goes: other languages, what developers of the theme
    need, and the list of pages for search engines, which names none where the site's address is not known."""
    site = pathlib.Path(config["site_dir"])
    shutil.rmtree(site / "assets" / "javascripts" / "lunr")
    for path in [*site.glob("sitemap.xml*"), *site.rglob("*.map")]:
        path.unlink()
    folder = site / "search"
    index = json.loads((folder / "search_index.json").read_text())
    left_out = set(config["extra"]["sources"])
    index["docs"] = [entry for entry in index["docs"] if entry["location"].split("#")[0] not in left_out]
    (folder / "search_index.json").write_text(json.dumps(index, separators=(",", ":")))
    (folder / "search_index.js").write_text("lmqSearchIndex(" + json.dumps(index, separators=(",", ":")) + ");\n")
