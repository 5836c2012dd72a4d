"""Clients of other makers get in: each sends and reads a number, an array, a struct, a fault and a multicall, with a
password and without. What a client makes of a value is its own affair; that the host takes its documents is ours.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import xmlrpc.client

HERE = pathlib.Path(__file__).resolve().parent
sys.path.insert(0, str(HERE.parent))
import hosting  # noqa: E402

# The program, what shows that the client is installed, and how it is called.
CLIENTS = {
    "python.py": ([sys.executable], ["-c", "import xmlrpc.client"], []),
    "rpcxml.pl": (["perl"], ["-MRPC::XML::Client", "-e1"], []),
    "xmlrpclite.pl": (["perl"], ["-MXMLRPC::Lite", "-e1"], []),
    "frontier.pl": (["perl"], ["-MFrontier::Client", "-e1"], []),
    "ruby.rb": (["ruby"], ["-rxmlrpc/client", "-e1"], []),
    "php.php": (["php"], ["-r", "exit(function_exists('xmlrpc_decode') ? 0 : 1);"], []),
    "node.js": (["node"], ["-e", "require('xmlrpc')"], []),
    "emacs.el": (["emacs", "--batch", "-q"], ["--eval", "(require 'xml-rpc)"], ["-l"]),
}
EXPECTED = ["number 305419896", "array 4", "struct 77", "fault -506", "multicall 305419896 305419896 305419896"]


def run(*command, folder=None):
    """A program with nothing of this machine's but where it finds its libraries. Returns what it printed."""
    return subprocess.run(command, env=hosting.environment(HOME=folder or "/nonexistent"), cwd=folder, capture_output=True,
                          text=True, timeout=120)


class Clients(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = folder.name
        users = pathlib.Path(cls.folder, "users")
        users.touch(0o600)
        users.write_text(subprocess.run([os.environ["LMQ_HOST"], "--make-user", "anna"], input="secret\n", text=True,
                                        check=True, capture_output=True, start_new_session=True).stdout)
        open_host, asking = (cls.enterClassContext(hosting.Host(*options, plugin=os.environ["LMQ_PLUGIN"],
                                                                driver=os.environ["LMQ_DRIVER"]))
                             for options in ((), ("--auth", str(users))))
        cls.urls = [open_host.url, asking.url.replace("://", "://anna:secret@")]
        for url in cls.urls:
            with xmlrpc.client.ServerProxy(url) as proxy:
                proxy.lmq.lmq_init_system({"num_dev": 1, "dev_cfg": [{"enbl": 1}]})

    def client(self, name):
        program, probe, words = CLIENTS[name]
        if not shutil.which(program[0]) or run(*program, *probe, folder=self.folder).returncode != 0:
            self.skipTest(f"the client of {name} is not installed")
        for url in self.urls:
            done = run(*program, *words, str(HERE / name), url, folder=self.folder)
            self.assertEqual(done.stdout.splitlines(), EXPECTED, done.stderr)

    def test_tools_of_the_library(self):
        """They ask for the signature and the help of all methods in one multicall."""
        if not shutil.which("xml-rpc-api2txt"):
            self.skipTest("the XML-RPC library's tools are not installed")
        done = run("xml-rpc-api2txt", self.urls[0])
        self.assertIn("int lmq.vx_watchdog_get (int, struct)", done.stdout, done.stderr)
        done = run("xml-rpc-api2cpp", self.urls[0], "lmq", "Chip")
        self.assertIn("vx_watchdog_get (", done.stdout, done.stderr)

    def test_caller_of_the_library(self):
        """Its command-line program, with a password."""
        if not shutil.which("xmlrpc"):
            self.skipTest("the XML-RPC library's command-line program is not installed")
        url = self.urls[1].replace("anna:secret@", "")
        done = run("xmlrpc", url, "-username=anna", "-password=secret", "lmq.lmq_write_register", "i/0",
                   "i/4096", "i/7")
        self.assertRegex(done.stdout, r"(?s)Array of 4 items:.*4096", done.stderr)
        done = run("xmlrpc", url, "-username=anna", "-password=secret", "lmq.nobody")
        self.assertIn("-506", done.stderr)


for each in CLIENTS:
    setattr(Clients, "test_" + each.split(".")[0], lambda self, name=each: self.client(name))


if __name__ == "__main__":
    unittest.main()
