"""An installed tree, wherever it is put: installed.py CMAKE BUILD. What names a file in it names one that is there."""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

CMAKE, BUILD = sys.argv[1:3]


class Installed(unittest.TestCase):
    def install(self, prefix, **variables):
        """Returns the texts of the unit and of the init script."""
        root = variables.get("DESTDIR", "")
        subprocess.run([CMAKE, "--install", BUILD, "--prefix", prefix], check=True, stdout=subprocess.DEVNULL, env=variables)
        script = pathlib.Path(f"{root}{prefix}/share/lmq-host/lmq-host.init")
        self.assertTrue(script.stat().st_mode & 0o100)
        return pathlib.Path(f"{root}{prefix}/lib/systemd/system/lmq-host.service").read_text(), script.read_text()

    def test_services_follow_the_prefix(self):
        with tempfile.TemporaryDirectory() as folder:
            unit, script = self.install(folder)
            self.assertIn(f"\nExecStart={folder}/bin/lmq-host --config {folder}/etc/lmq-host.conf\n", unit)
            self.assertIn(f"\nprogram={folder}/bin/lmq-host\nconfig={folder}/etc/lmq-host.conf\n", script)
            for path in re.findall(rf"{folder}/bin/\S+", unit + script):
                self.assertTrue(pathlib.Path(path).is_file(), path)

    def test_staged_for_a_package(self):
        with tempfile.TemporaryDirectory() as root:
            for text in self.install("/usr", DESTDIR=root):
                self.assertIn("/usr/bin/lmq-host", text)
                self.assertIn(" /etc/lmq-host.conf" if "ExecStart" in text else "=/etc/lmq-host.conf", text)
                self.assertNotIn(root, text)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
