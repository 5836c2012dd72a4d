"""Compares what a driver library exports with the functions that the headers declare; the remote driver has those of
remote.h too.

Usage: exports.py NM LIBRARY HEADER-FOLDER [--remote]
"""

import pathlib
import re
import subprocess
import sys

nm, library, folder, *remote = sys.argv[1:]

declared = set()
for header in pathlib.Path(folder).glob("*.h"):
    if header.name != "remote.h" or remote:
        declared.update(re.findall(r"^(?:void|int|const char|vx_\w+)\s+\*?(\w+)\(", header.read_text(), re.MULTILINE))

listing = subprocess.run([nm, "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
exported = {line.split()[-1] for line in listing.splitlines()}

for name in sorted(declared - exported):
    print(f"declared, but not exported: {name}")
for name in sorted(exported - declared):
    print(f"exported, but not declared: {name}")
if not declared:
    print(f"no function is declared in {folder}")
sys.exit(exported != declared or not declared)
