"""What the tests of the console share: one Chromium, and a host with the simulated chip for each class."""

import os
import pathlib
import sys
import unittest
import xmlrpc.client

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent))

from browsing import Page, browser  # noqa: E402
from hosting import Host  # noqa: E402

UP = {"num_dev": 1, "dev_cfg": [{"enbl": 1, "eth_port_cfg": [{"add_port": 1, "admin_status": 1}] * 2}]}

chromium = None
opened = None


def setUpModule():
    global chromium, opened
    opened = browser()
    chromium = opened.__enter__()


def tearDownModule():
    opened.__exit__(None, None, None)


class Case(unittest.TestCase):
    """A host for the class, whose chip is up; no test may leave a message in the browser's log."""

    maxDiff = None
    options = ()
    variables = {}

    @classmethod
    def setUpClass(cls):
        cls.host = Host(*cls.options, **cls.variables)
        cls.addClassCleanup(cls.host.close)
        cls.chip = xmlrpc.client.ServerProxy(cls.host.url).lmq
        assert cls.chip.lmq_init_system(UP)[0] == 0

    def setUp(self):
        self.page = Page(chromium, self.host)
        self.page.messages()

    def tearDown(self):
        self.assertEqual(self.page.messages(), [])


def main(module):
    module.setUpModule, module.tearDownModule = setUpModule, tearDownModule
    unittest.main(module=module, verbosity=2 if os.environ.get("VERBOSE") else 1)
