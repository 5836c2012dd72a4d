#!/usr/bin/env python3
"""Where the bytes of the plug-in go, as the tables of size.md: size.py PLUGIN [TOOL-PREFIX]. The plug-in is one with its
symbols; the prefix is that of a cross compiler's tools, such as arm-linux-gnueabihf-."""

import os
import re
import subprocess
import sys
import tempfile

KINDS = [
    ("names, arguments and help texts of methods", r"PackedMethod<.*>::texts"),
    ("rows of UDTs", r"Packed<.*>::rows"),
    ("names of UDTs and members", r"Packed<.*>::strings"),
    ("descriptors (pointers)", r"lmq::(method|udt)_|Packed<.*>::inner|PackedMethod<.*>::udts"),
    ("dictionary: enums, defines, typedefs, lists", r"anonymous namespace\)::(enum|define|typedef|udts|methods)"),
    ("handlers, a function each", r"^x_rpc_|row_of_\w+::call"),
    ("registration", r"xrpc_init|lmq::api_methods"),
    ("engine and introspection", r"^lmq::|^x_dvr|^__x_mm|anonymous"),
]
SECTIONS = [
    ("code", {".text", ".plt", ".init", ".fini"}),
    ("constants", {".rodata"}),
    ("constants with pointers, private", {".data.rel.ro", ".got", ".dynamic", ".init_array", ".fini_array"}),
    ("variables, private", {".data", ".bss"}),
    ("relocations", {".rel.dyn", ".rel.plt", ".rela.dyn", ".rela.plt"}),
    ("names for the dynamic linker", {".dynsym", ".dynstr", ".gnu.hash", ".gnu.version", ".gnu.version_r"}),
]


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def row(name, size):
    print(f"| {name} | {size:,} |")


def main(plugin, prefix=""):
    with tempfile.TemporaryDirectory() as folder:
        stripped = os.path.join(folder, "stripped.so")
        run(prefix + "strip", "-o", stripped, plugin)
        whole = os.path.getsize(stripped)
        sections = dict(re.findall(r"^(\.\S+) +(\d+)", run(prefix + "size", "-A", stripped), re.M))
    print("| Part of the file | Bytes |\n|---|---:|")
    rest = whole
    for name, members in SECTIONS:
        size = sum(int(sections.get(member, 0)) for member in members)
        rest -= size - (int(sections.get(".bss", 0)) if ".bss" in members else 0)
        row(name, size)
    row("headers and padding", rest)
    row("**the file without symbols**", whole)

    sums = dict.fromkeys([name for name, _ in KINDS] + ["else"], 0)
    for line in run(prefix + "nm", "-S", "-C", plugin).splitlines():
        found = re.match(r"[0-9a-f]+ ([0-9a-f]+) [tTrRdDbBVWuvw] (.*)", line)
        if found:
            kind = next((name for name, pattern in KINDS if re.search(pattern, found[2])), "else")
            sums[kind] += int(found[1], 16)
    print("\n| Kind | Bytes |\n|---|---:|")
    for name, size in sums.items():
        row(name, size)


main(*sys.argv[1:])
