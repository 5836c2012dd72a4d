"""Calls whose arrays are shorter than what the driver writes, with host, plug-in and driver in one process under valgrind:
the guard refuses them by name, those that fit get all of their data, and no byte beyond an array is touched.

LMQ_HOST, LMQ_PLUGIN, LMQ_DRIVER and LMQCTL say where everything is.
"""

import os
import pathlib
import subprocess
import sys
import unittest
import xmlrpc.client

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import hosting  # noqa: E402

BRIDGES = 55


class UnderValgrind(unittest.TestCase):
    def setUp(self):
        # What a call loses is lost by design, so only invalid accesses and values count.
        self.host = hosting.Host("--error-exitcode=9", "--quiet", "--leak-check=no", os.environ["LMQ_HOST"],
                                 "--in-process", program="valgrind", plugin=os.environ["LMQ_PLUGIN"],
                                 driver=os.environ["LMQ_DRIVER"])
        self.addCleanup(self.host.close)
        server = xmlrpc.client.ServerProxy(self.host.url)
        self.addCleanup(server("close"))
        self.lmq = server.lmq
        self.assertEqual(self.lmq.lmq_init_system({"num_dev": 1, "dev_cfg": [{"enbl": 1}]})[0], 0)

    def refusal(self, method, *arguments):
        with self.assertRaises(xmlrpc.client.Fault) as raised:
            getattr(self.lmq, method)(*arguments)
        return raised.exception.faultString

    def lmqctl(self, *words):
        return subprocess.run([os.environ["LMQCTL"], "--url", self.host.url, *words], env=hosting.environment(), text=True,
                              capture_output=True, check=True).stdout

    def test_short_arrays(self):
        for number in range(1, BRIDGES + 1):
            config = {"brg_type": 1, "valid": {"mask_s": {"brg_type": 1}}}
            self.assertEqual(self.lmq.lmq_create_bridge(0, number, config)[0], 0)
        self.assertEqual(self.lmq.vx_i2c_enable_set(0, 1, 100)[0], 0)
        self.assertIn("argument p_cfg holds 1 element", self.refusal("lmq_get_bridge_config_all", 0, 50, [{}], 0))
        self.assertIn("argument p_rx_data holds 1 element", self.refusal("vx_i2c_read", 0, 0x50, 0, 16, [0]))
        self.assertIn("argument p_tx_data holds 4 elements", self.refusal("vx_i2c_write", 0, 0x50, 0, 64, [1, 2, 3, 4]))

        whole = self.lmq.lmq_get_bridge_config_all(0, BRIDGES, [{}] * BRIDGES, 0)
        self.assertEqual(sorted(each["brg_id"] for each in whole[3]), list(range(1, BRIDGES + 1)))
        self.assertEqual(self.lmq.vx_i2c_write(0, 0x50, 0, 64, list(range(64)))[0], 0)
        self.assertEqual(self.lmq.vx_i2c_read(0, 0x50, 0, 64, [0] * 64)[5], list(range(64)))

        # lmqctl sizes what is left out by the contract.
        self.assertEqual(self.lmqctl("call", "lmq_get_bridge_config_all", "0", "50").count("brg_id"), 50)
        self.assertIn("15", self.lmqctl("call", "vx_i2c_read", "0", "0x50", "0", "16"))
        self.lmqctl("--refresh", "list", "system*")


if __name__ == "__main__":
    unittest.main()
