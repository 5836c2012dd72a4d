"""Alters the headers, makes a driver's library of them, and builds host, plug-in and probe driver against both, as who has
a real driver does.

Usage: build.py BUILD COMPILER OPTION... -- OPTION OF CMAKE...; LMQ_CMAKE, LMQ_SOURCE and LMQ_ALTERED say where CMake and
the sources are, and where the altered headers go.
"""

import os
import pathlib
import shutil
import subprocess
import sys

import alter

SONAME = "libchip.so.2"


def main(build, *arguments):
    compiler, options = arguments[:arguments.index("--")], arguments[arguments.index("--") + 1:]
    cmake, source, altered = (os.environ[name] for name in ("LMQ_CMAKE", "LMQ_SOURCE", "LMQ_ALTERED"))
    source, altered, build = map(pathlib.Path, (source, altered, build))
    probe = source / "tests" / "probe"

    shutil.rmtree(altered, ignore_errors=True)
    alter.main(source / "include", altered)

    library = altered.parent / "libchip-2.7.so"
    functions = altered.parent / "functions.c"
    subprocess.run([sys.executable, "-B", probe / "generate.py", altered, functions, altered.parent / "layout.c"],
                   check=True)
    subprocess.run([*compiler, "-shared", "-fPIC", f"-Wl,-soname,{SONAME}", f"-I{altered}", f"-I{probe}",
                    probe / "probe.c", functions, "-o", library], check=True)

    subprocess.run([cmake, "-S", source, "-B", build, *options,
                    f"-DLMQ_DRIVER_INCLUDE={altered}", f"-DLMQ_DRIVER_LIBRARY={library}"], check=True)
    targets = ["lmq-host", "lmq_plugin", "lmq_probe", "lmq_layout_json"]
    subprocess.run([cmake, "--build", build, "--parallel", "2", "--target", *targets], check=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
