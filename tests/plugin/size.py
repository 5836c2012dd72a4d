"""Guards the size of the built plug-in and of its private memory: size.py STRIP READELF PLUGIN [LMQ-START...].

The target has little flash and little memory, so what grows is to be seen when it grows. LMQ-START is the program that
loads the plug-in and registers its methods, with its arguments; without it the private memory is bounded from the file alone,
since under emulation the memory map of the process is the emulator's.
"""
import os
import re
import subprocess
import sys
import tempfile

PAGE = 4096
# Most bytes of the stripped file and of private memory. 32 bits: what the target allows. 64 bits: measured and a little
# more, so that growth shows on every machine that builds.
MOST = {"ELF32": (400 * 1024, 128 * 1024), "ELF64": (536 * 1024, 64 * 1024)}


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def writable_pages(readelf, plugin):
    """Bytes of all pages of the writable segments, as if each page were written: by the loader's relocations or later."""
    total = 0
    for line in run(readelf, "-lW", plugin).splitlines():
        fields = line.split()
        if fields[:1] == ["LOAD"] and "W" in "".join(fields[6:-1]):
            address, size = int(fields[2], 16), int(fields[5], 16)
            total += (address + size + PAGE - 1) // PAGE * PAGE - address // PAGE * PAGE
    return total


def main(strip, readelf, plugin, *start):
    kind = re.search(r"Class:\s+(\S+)", run(readelf, "-h", plugin)).group(1)
    most_file, most_private = MOST[kind]
    with tempfile.TemporaryDirectory() as folder:
        stripped = os.path.join(folder, "stripped.so")
        run(strip, "-o", stripped, plugin)
        size = os.path.getsize(stripped)
    private, how = writable_pages(readelf, plugin), "bounded from the file"
    if start:
        told = run(*start)
        private = int(re.search(r"private memory of the plug-in: (\d+) bytes", told).group(1))
        how = "measured"
    print(f"stripped: {size} bytes, at most {most_file}")
    print(f"private memory: {private} bytes ({how}), at most {most_private}")
    return 0 if size <= most_file and private <= most_private else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
