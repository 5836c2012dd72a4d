"""Checks what the built plug-in shows and needs: exports.py NM READELF PLUGIN DRIVER_NAME.

It exports its entry point, the tracker, the record builders and nothing else, needs the C library, the XML-RPC libraries and the driver, and
does no work when it is loaded.
"""
import re
import subprocess
import sys

EXPORTS = {"xrpc_init", "__x_mm_initialize", "__x_mm_add_ptr", "__x_mm_free",
           "x_dvr_dvar", "x_dvr_svar", "x_dvr_evar", "x_dvr_var"}
NEEDS = {"libc.so.6", "libxmlrpc.so.3", "libxmlrpc_util.so.3", "libxmlrpc_server.so.3"}


def main(nm_tool, readelf, plugin, driver):
    nm = subprocess.run([nm_tool, "-D", "--defined-only", plugin], check=True, capture_output=True, text=True).stdout
    exports = {line.split()[-1] for line in nm.splitlines()}
    dynamic = subprocess.run([readelf, "-dW", plugin], check=True, capture_output=True, text=True).stdout
    needs = set(re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic))
    sections = subprocess.run([readelf, "-SW", plugin], check=True, capture_output=True, text=True).stdout
    constructors = re.search(r"\.init_array\s+\S+\s+\S+\s+\S+\s+(\S+)", sections)
    # The compiler's own start code brings one entry, frame_dummy.
    entries = int(constructors.group(1), 16) // (8 if "ELF64" in header(readelf, plugin) else 4) if constructors else 0

    wrong = []
    if exports != EXPORTS:
        wrong.append(f"exports: missing {sorted(EXPORTS - exports)}, unexpected {sorted(exports - EXPORTS)}")
    if not needs <= NEEDS | {driver} or driver not in needs:
        wrong.append(f"needs: {sorted(needs)}")
    symbols = subprocess.run([nm_tool, "-C", plugin], check=True, capture_output=True, text=True).stdout
    wrong += [f"constructed at load time: {line}" for line in symbols.splitlines()
              if re.search(r"_GLOBAL__sub_I|global constructors keyed to|__static_initialization", line)]
    if entries > 1:
        wrong.append(f"{entries} entries in .init_array: something is constructed at load time")
    for line in wrong:
        print(line)
    return 1 if wrong else 0


def header(readelf, path):
    return subprocess.run([readelf, "-h", path], check=True, capture_output=True, text=True).stdout


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
