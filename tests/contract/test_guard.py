"""The guard of lmq-host, with the simulated chip behind it: what is too short, too long or changes something does not
reach the driver, and everything else does.

LMQ_HOST, LMQ_PLUGIN and LMQ_DRIVER say where the three are.
"""

import os
import pathlib
import sys
import unittest
import xmlrpc.client

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent))
import hosting  # noqa: E402

REFUSED = -507
SUCCESS = 0


class Guarded(unittest.TestCase):
    def host(self, *options):
        """Starts a host with an initialised chip, if it lets that happen. Returns its methods."""
        host = hosting.Host(*options, plugin=os.environ["LMQ_PLUGIN"], driver=os.environ["LMQ_DRIVER"])
        self.addCleanup(host.close)
        self.proxy = xmlrpc.client.ServerProxy(host.url, allow_none=True)
        self.addCleanup(self.proxy("close"))
        return self.proxy.lmq

    def ready(self, *options):
        lmq = self.host(*options)
        self.assertEqual(lmq.lmq_init_system({"num_dev": 1, "dev_cfg": [{"enbl": 1}]})[0], SUCCESS)
        self.assertEqual(lmq.vx_i2c_enable_set(0, 1, 100)[0], SUCCESS)
        return lmq

    def refusal(self, function, *arguments):
        with self.assertRaises(xmlrpc.client.Fault) as raised:
            function(*arguments)
        self.assertEqual(raised.exception.faultCode, REFUSED, raised.exception.faultString)
        return raised.exception.faultString


class Lengths(Guarded):
    def test_an_array_is_as_long_as_its_count_says(self):
        lmq = self.ready()
        self.assertEqual(lmq.vx_i2c_write(0, 0x50, 0, 4, [1, 2, 3, 4])[0], SUCCESS)
        self.assertEqual(lmq.vx_i2c_read(0, 0x50, 0, 4, [0] * 4)[5], [1, 2, 3, 4])
        self.assertEqual(lmq.vx_i2c_read(0, 0x50, 0, 4, [0] * 9)[5], [1, 2, 3, 4, 0, 0, 0, 0, 0])
        text = self.refusal(lmq.vx_i2c_read, 0, 0x50, 0, 16, [0])
        self.assertEqual(text, "lmq.vx_i2c_read was not called: argument p_rx_data holds 1 element, but data_len asks "
                               "for 16.")
        self.refusal(lmq.vx_i2c_read, 0, 0x50, 0, 2, 0)  # an int is an array of one
        self.refusal(lmq.vx_i2c_write, 0, 0x50, 0, 64, [1, 2, 3, 4])
        self.refusal(lmq.lmq_get_bridge_config_all, 0, 50, [{}], 0)
        # The chip itself refuses NULL.
        self.assertNotEqual(lmq.vx_i2c_read(0, 0x50, 0, 4, [])[0], SUCCESS)

    def test_a_count_counts_as_the_driver_sees_it(self):
        lmq = self.ready()
        self.refusal(lmq.vx_i2c_read, 0, 0x50, 0, -65535 + 1, [0])  # 2 in 16 bits
        self.assertEqual(lmq.vx_i2c_read(0, 0x50, 0, 65536 + 1, [0])[0], SUCCESS)  # 1 in 16 bits
        self.refusal(lmq.vx_i2c_read, 0, 0x50, 0, -1, [0])

    def test_a_count_that_is_pointed_to(self):
        lmq = self.ready()
        text = self.refusal(lmq.vx_mcast_vlan_get, 0, 3, 8, [{}])
        self.assertIn("argument p_cfg holds 1 element, but num asks for 8", text)
        self.refusal(lmq.vx_mcast_vlan_get, 0, 3, [8, 1], [{}])
        self.assertEqual(lmq.vx_mcast_vlan_get(0, 3, [2], [{}, {}])[0], SUCCESS)
        # 0 asks for as many as there can be.
        self.refusal(lmq.vx_gpon_onu_active_gem_port_get, 0, 0, [{}] * 63, 0)
        self.assertEqual(lmq.vx_gpon_onu_active_gem_port_get(0, 0, [{}] * 64, 0)[0], SUCCESS)
        self.assertEqual(lmq.vx_gpon_onu_active_gem_port_get(0, 0, [{}] * 3, 3)[0], SUCCESS)

    def test_a_fixed_length(self):
        lmq = self.ready()
        self.assertIn("the driver takes 6", self.refusal(lmq.vx_mac_addr_get, 0, [0] * 5))
        self.assertEqual(lmq.vx_mac_addr_get(0, [0] * 6)[0], SUCCESS)

    def test_arrays_in_structs_end_within_them(self):
        lmq = self.ready()
        set_port = lmq.vx_gpon_onu_port_config_set
        # Beyond the member, but within the struct: that is what the interface allows.
        self.assertEqual(set_port(0, 0, {"vendor_id": [65] * 8})[0], SUCCESS)
        text = self.refusal(set_port, 0, 0, {"passwd": [0] * 400})
        self.assertRegex(text, r"in argument 3, member passwd holds 400 elements; the struct ends after \d+\.")
        self.refusal(set_port, 0, 0, [{}, {"passwd": [0] * 400}])
        # Structs within arrays within structs.
        ports = [{}] * 200
        self.refusal(lmq.lmq_init_system, {"num_dev": 1, "dev_cfg": [{"eth_port_cfg": ports}]})
        text = self.refusal(lmq.lmq_init_system, {"num_dev": 1, "dev_cfg": [{}] * 9 + [{"eth_port_cfg": [{}]}]})
        self.assertIn("member eth_port_cfg holds 1 element; the struct ends after 0.", text)

    def test_within_a_multicall(self):
        lmq = self.ready()
        self.assertIsNotNone(lmq)
        good = {"methodName": "lmq.vx_i2c_read", "params": [0, 0x50, 0, 1, [0]]}
        bad = {"methodName": "lmq.vx_i2c_read", "params": [0, 0x50, 0, 9, [0]]}
        self.assertEqual(len(self.proxy.system.multicall([good, good])), 2)
        self.refusal(self.proxy.system.multicall, [good, bad])
        # In front of the name, and where the library would read the XML.
        text = self.refusal(self.proxy.system.multicall,
                            [{"params": [1.5, 0x50, 0, 9, [0]], "methodName": "lmq.vx_i2c_read"}])
        self.assertIn("p_rx_data", text)

    def test_what_no_guard_leaves(self):
        lmq = self.ready("--no-guard")
        self.assertEqual(lmq.vx_i2c_read(0, 0x50, 0, 1, [0])[0], SUCCESS)
        self.assertEqual(lmq.vx_mac_addr_get(0, [0] * 5)[0], SUCCESS)


class ReadOnly(Guarded):
    def test_effects_and_flags_decide(self):
        lmq = self.host("--read-only")
        self.assertNotEqual(lmq.vx_eth_port_stats_get(0, 3, {}, 0)[0], SUCCESS)  # not initialised, but asked
        self.assertIn("may change the chip", self.refusal(lmq.vx_eth_port_stats_get, 0, 3, {}, 1))
        self.refusal(lmq.vx_eth_port_stats_get, 0, 3, {}, 257)
        lmq.vx_eth_port_stats_get(0, 3, {}, 256)  # a vx_boolean has 8 bits
        for function, *arguments in ((lmq.lmq_init_system, {}), (lmq.vx_gpon_onu_ploam_ds_get, 0, 0, [0] * 13, 1),
                                     (lmq.vx_watchdog_set, 0, {}), (lmq.lmq_read_register, 0, 0, 0),
                                     (lmq.lmq_dump_register, 0, 0, 4), (lmq.vx_i2c_read, 0, 0x50, 0, 1, [0])):
            self.refusal(function, *arguments)
        for function, *arguments in ((lmq.vx_l2_learn_port_enable_get, 0, 3, 0), (lmq.vx_gpio_read, 0, 0, 0),
                                     (lmq.vx_eth_port_flowctrl_enable_get, 0, 3, 0, 0), (lmq.capabilities,),
                                     (lmq.listUDTs,), (self.proxy.system.listMethods,)):
            function(*arguments)
        self.refusal(self.proxy.system.multicall,
                     [{"methodName": "lmq.vx_eth_port_stats_get", "params": [0, 3, {}, 1]}])

    def test_registers_when_they_are_asked_for(self):
        lmq = self.host("--read-only=registers")
        lmq.lmq_read_register(0, 0, 0)
        lmq.vx_i2c_read(0, 0x50, 0, 1, [0])
        self.refusal(lmq.lmq_write_register, 0, 0, 0)
        self.refusal(lmq.vx_i2c_read, 0, 0x50, 0, 2, [0])  # the lengths count all the same


if __name__ == "__main__":
    unittest.main()
