#!/usr/bin/env python3
"""Says where the bytes of the built plug-in go, as the table of size.md: size.py PLUGIN [TOOL-PREFIX]

    size.py build/arm/lmq_xmlrpc.so arm-linux-gnueabihf-

The plug-in must not be stripped, since its symbols tell what a byte is for.
"""
import re
import subprocess
import sys

# Kind of bytes, and what the names of its symbols look like; the first that matches counts.
KINDS = [
    ("help texts", r"HelpText<"),
    ("names of arguments and types of the methods", r"PackedMethod<.*::strings"),
    ("arguments of the methods", r"PackedMethod<.*::arguments"),
    ("keys, types and bounds of the UDTs", r"Packed<.*::strings"),
    ("rows of the UDTs", r"Packed<.*::rows"),
    ("names of enumerators and enums", r"enum_names"),
    ("values of enumerators", r"enum_values"),
    ("defines and typedefs", r"namespace\)::(defines|typedefs)"),
    ("method descriptors and their table", r"method_|api_methods|PackedMethod<.*::udts"),
    ("UDT descriptors and their table", r"udt_|::udts|Packed<.*::inner"),
    ("handlers of the methods", r"^x_rpc_(lmq|vx)_"),
    ("typed calls of the driver", r"row_of_.*::call"),
    ("registration", r"^xrpc_init"),
]
# Sections that link the plug-in with libraries, and what they hold.
SECTIONS = [
    ("names of imported functions", r"\.(dynsym|dynstr|gnu\..*)"),
    ("jumps to imported functions", r"\.(plt|rela?\.plt|got|plt\.got|got\.plt)"),
    ("relocations of pointers", r"\.rela?\.dyn"),
    ("tables for unwinding", r"\.(eh_frame|eh_frame_hdr|ARM\.ex.*)"),
]


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def main(plugin, prefix=""):
    sizes = {name: 0 for name, _ in KINDS + SECTIONS}
    for line in run(prefix + "nm", "-SC", plugin).splitlines():
        symbol = re.match(r"\w+ (\w+) [a-zA-Z] (.*)", line)
        if not symbol:
            continue
        for name, pattern in KINDS:
            if re.search(pattern, symbol[2]):
                sizes[name] += int(symbol[1], 16)
                break
    total = 0
    for line in run(prefix + "size", "-A", plugin).splitlines():
        section = re.match(r"(\.\S+)\s+(\d+)\s+(\d+)$", line)
        if not section or section[3] == "0":  # debug information and comments are not loaded
            continue
        total += int(section[2])
        for name, pattern in SECTIONS:
            if re.fullmatch(pattern, section[1]):
                sizes[name] += int(section[2])
                break
    sizes["engine, introspection, and the rest"] = total - sum(sizes.values())
    print("| What | Bytes |\n|---|---:|")
    for name, size in sorted(sizes.items(), key=lambda item: -item[1]):
        print(f"| {name} | {size:,} |")
    print(f"| together | {total:,} |")


if __name__ == "__main__":
    main(*sys.argv[1:])
