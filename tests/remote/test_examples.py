"""The programs of examples/ print the same with the driver itself, with the remote driver in its place, and through a
gateway, a host that serves a chip which another host serves. They are the same programs, and built from an installed tree
too.

LMQ_EXAMPLES names the programs, LMQ_CTL lmqctl, LMQ_INSTALL how the tree is installed, without the folder.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import hosting  # noqa: E402

CHIP = {"LMQ_SIM_CLOCK": "10", "LMQ_SIM_TRAFFIC": "1:1000"}
REMOTE, DRIVER = os.environ["LMQ_REMOTE"], os.environ["LMQ_DRIVER"]


def output(program, library, **variables):
    """What a program prints with this library as its driver."""
    folder = str(pathlib.Path(library).parent)
    done = subprocess.run([program], env=hosting.environment(LD_LIBRARY_PATH=folder, **variables), capture_output=True,
                          text=True, timeout=60)
    if done.returncode:
        raise AssertionError(f"{program} ended with status {done.returncode} and said:\n{done.stdout}{done.stderr}")
    return done.stdout


def host(driver, **variables):
    return hosting.Host(plugin=os.environ["LMQ_PLUGIN"], driver=driver, **variables)


class Examples(unittest.TestCase):
    maxDiff = None

    def compare(self, program):
        here = output(program, DRIVER, **CHIP)
        self.assertGreater(len(here.splitlines()), 10)
        with host(DRIVER, **CHIP) as chip:
            self.assertEqual(output(program, REMOTE, LMQ_URL=chip.url), here)
        with host(DRIVER, **CHIP) as chip, host(REMOTE, LMQ_URL=chip.url) as gateway:
            self.assertEqual(output(program, REMOTE, LMQ_URL=gateway.url), here)

    def test_same_output(self):
        for program in os.environ["LMQ_EXAMPLES"].split():
            with self.subTest(program):
                self.compare(program)

    def test_run(self):
        """lmqctl run puts the remote driver into a program's place of the driver, wherever it was linked with."""
        program = os.environ["LMQ_EXAMPLES"].split()[0]
        with host(DRIVER, **CHIP) as chip:
            done = subprocess.run([os.environ["LMQ_CTL"], "--url", chip.url, "run", "--", "sh", "-c", "exec $0 --any",
                                   program], env=hosting.environment(), capture_output=True, text=True, timeout=60)
            self.assertEqual((done.returncode, done.stdout), (0, output(program, DRIVER, **CHIP)), done.stderr)
        done = subprocess.run([os.environ["LMQ_CTL"], "run", "--", "/no/such/program"], capture_output=True, text=True,
                              env=hosting.environment(), timeout=60)
        self.assertEqual((done.returncode, done.stderr),
                         (64, "lmqctl: run: cannot start /no/such/program: No such file or directory\n"))

    def test_built_from_an_installed_tree(self):
        with tempfile.TemporaryDirectory() as folder:
            subprocess.run([*os.environ["LMQ_INSTALL"].split(), folder], check=True, capture_output=True)
            pc = next(pathlib.Path(folder).glob("lib*/**/lmq.pc"))
            flags = subprocess.run(["pkg-config", "--cflags", "--libs", "lmq"], check=True, capture_output=True, text=True,
                                   env=dict(os.environ, PKG_CONFIG_PATH=str(pc.parent))).stdout.split()
            for compiler, source in (("cc", "bring_up.c"), ("c++", "bring_up.cc")):
                program = f"{folder}/{source}.out"
                source = next(pathlib.Path(folder).glob(f"share/lmq/examples/{source}"))
                standard = "-std=c11" if compiler == "cc" else "-std=c++20"
                subprocess.run([compiler, standard, source, *flags, "-o", program], check=True)
                remote = next(pathlib.Path(folder).glob("lib*/**/remote/liblmq.so"))
                with host(DRIVER, **CHIP) as chip:
                    self.assertEqual(output(program, remote, LMQ_URL=chip.url), output(program, DRIVER, **CHIP))


if __name__ == "__main__":
    unittest.main()
