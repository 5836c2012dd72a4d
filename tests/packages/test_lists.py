"""What is said in several places: the version, the packages that a build needs, and which package a file goes into.

    test_lists.py SOURCE BUILD CMAKE
"""

import fnmatch
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

SOURCE, BUILD, CMAKE = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
DEBIAN = SOURCE / "debian"


def first(pattern, file):
    return re.search(pattern, (SOURCE / file).read_text(), re.MULTILINE).group(1)


class Lists(unittest.TestCase):
    def test_versions(self):
        version = (SOURCE / "VERSION").read_text().strip()
        self.assertEqual(first(r"^lmq-xmlrpc \((.*?)\)", "debian/changelog"), version)
        self.assertEqual(first(r"^## (\S+)", "CHANGELOG.md"), version)
        self.assertEqual((SOURCE / "python/lmq/VERSION").read_text().strip(), version)
        fingerprint = json.loads((BUILD / "interface.json").read_text())["fingerprint"]
        for program in ("lmq-host", "lmqctl"):
            said = subprocess.run([BUILD / program, "--version"], check=True, capture_output=True, text=True).stdout
            self.assertRegex(said, rf"\A{program} {re.escape(version)} \((commit [0-9a-f]{{12}}\+?, )?"
                                   rf"interface {fingerprint}\)\n\Z")

    def test_what_a_build_needs(self):
        """A library in scripts/packages.sh is in Build-Depends too."""
        libraries = first(r'^packages_of_libraries="(.*?)"', "scripts/packages.sh").split()
        control = (DEBIAN / "control").read_text()
        depends = re.search(r"^Build-Depends:\n((?: .*\n)+)", control, re.MULTILINE).group(1)
        self.assertEqual(set(libraries) - set(re.findall(r"^ ([a-z0-9.+-]+)", depends, re.MULTILINE)), set())

    def test_each_file_has_its_package(self):
        """What is installed is in one package, or known to be in none."""
        rows = {path: [line.split()[0] for line in path.read_text().splitlines() if line and not line.startswith("#")]
                for path in [*DEBIAN.glob("*.install"), DEBIAN / "not-installed"]}
        # A package has its libraries in the folder of the architecture.
        rows = {path.name: [pattern.replace("usr/lib/*/", "usr/lib/") for pattern in patterns]
                for path, patterns in rows.items()}
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([CMAKE, "--install", BUILD, "--prefix", "/usr"], check=True, stdout=subprocess.DEVNULL,
                           env=dict(os.environ, DESTDIR=folder))
            for path in pathlib.Path(folder).rglob("*"):
                name = str(path.relative_to(folder))
                owners = [owner for owner, patterns in rows.items()
                          if any(fnmatch.fnmatch(name, pattern) or name.startswith(pattern + "/") for pattern in patterns)]
                if not path.is_dir():
                    self.assertEqual(len(owners), 1, f"{name} goes into: {owners}")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
