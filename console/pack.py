"""Packs the console into the one file that the host serves: its own files, and the plots' library if it is installed.

    pack.py OUT [--dygraphs FOLDER]

The file opens with the line "lmq-console 1" and a line for each file, "PATH TYPE ETAG BYTES"; behind an empty line stand the
files, compressed, in the same order.
"""

import argparse
import gzip
import hashlib
import pathlib

TYPES = {".html": "text/html;charset=utf-8", ".js": "text/javascript;charset=utf-8", ".css": "text/css;charset=utf-8",
         ".svg": "image/svg+xml"}


def files(own, dygraphs):
    """The files by path. The page names its modules, so that a browser fetches them all at once."""
    found = {path.name: path.read_bytes() for path in sorted(own.iterdir()) if path.suffix in TYPES}
    modules = (f'<link rel="modulepreload" href="{name}">' for name in found if name.endswith(".js") and name != "theme.js")
    found["index.html"] = found["index.html"].replace(b"<!-- modules -->", "\n".join(modules).encode())
    for suffix in (".js", ".css"):
        library = dygraphs / f"dygraph.min{suffix}"
        if library.exists():
            lines = library.read_text().splitlines()
            kept = [line for line in lines if "sourceMappingURL=" not in line]
            found[f"dygraph{suffix}"] = "\n".join(kept).encode()
    return found


def main():
    parser = argparse.ArgumentParser(description="Packs the console into one file.")
    parser.add_argument("out")
    parser.add_argument("--dygraphs", default="/usr/share/javascript/dygraphs", type=pathlib.Path)
    options = parser.parse_args()
    index, bodies = ["lmq-console 1"], []
    for name, content in files(pathlib.Path(__file__).parent, options.dygraphs).items():
        body = gzip.compress(content, mtime=0)
        tag = hashlib.sha256(body).hexdigest()[:16]
        index.append(f'{name} {TYPES[pathlib.Path(name).suffix]} "{tag}" {len(body)}')
        bodies.append(body)
    pathlib.Path(options.out).write_bytes("\n".join([*index, "", ""]).encode() + b"".join(bodies))


if __name__ == "__main__":
    main()
