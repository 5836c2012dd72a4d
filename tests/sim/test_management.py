"""The device on the network: its addresses, IP hosts from creation to deletion, and layer 3 interfaces."""

import unittest

from harness import SimTest

SNI, CPU, ETH0, ANY = 0, 1, 3, 0xFFFF


def v4(number):
    return {"addr": {"v4": {"s_addr": number}}, "ip_ver": 0}


def v6(last):
    return {"addr": {"v6": {"in6_u": {"u6_addr8": [0xFE, 0x80] + [0] * 13 + [last]}}}, "ip_ver": 1}


class Addresses(SimTest):
    device = {"dev_ip_addr": v4(0x0A000001), "dev_ip_mask": v4(-256), "dev_gw_ip": v4(0x0A0000FE)}

    def listed(self):
        """The addresses: an IPv4 address as its number, an IPv6 address as its last byte; with the prefix."""
        config = self.ok("lmq_get_dev_ip_config", 0, {})
        entries = config["ip_cfg"][:config["num_ip_addr"]]
        self.assertFalse(any(entry["prefix"] for entry in config["ip_cfg"][len(entries):]))
        return [(entry["ip_addr"]["addr"]["v6"]["in6_u"]["u6_addr8"][15] if entry["ip_addr"]["ip_ver"]
                 else entry["ip_addr"]["addr"]["v4"]["s_addr"], entry["prefix"]) for entry in entries]

    def test_life(self):
        self.assertEqual(self.listed(), [(0x0A000001, 24)])
        self.ok("lmq_add_dev_ip_addr", 0, {"ip_addr": v4(0x0A000002), "net_mask": v4(-65536), "prefix": 16})
        self.assertEqual(self.listed(), [(0x0A000002, 16)], "a second IPv4 address takes the place of the first")

        for last in range(1, 8):
            self.ok("lmq_add_dev_ip_addr", 0, {"ip_addr": v6(last), "prefix": 64})
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "lmq_add_dev_ip_addr", 0, {"ip_addr": v6(8), "prefix": 64})
        self.refused("GLBL_ENTRY_EXIST", "lmq_add_dev_ip_addr", 0, {"ip_addr": v6(7), "prefix": 64})
        self.ok("lmq_add_dev_ip_addr", 0, {"ip_addr": v4(0x0A000003), "prefix": 8})
        self.assertEqual(self.listed(), [(0x0A000003, 8)] + [(last, 64) for last in range(1, 8)])

        self.refused("GLBL_INVALID_PARAMS", "lmq_add_dev_ip_addr", 0, {})
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_add_dev_ip_addr", 0, {"ip_addr": v4(1), "prefix": 33})
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_add_dev_ip_addr", 0, {"ip_addr": dict(v4(1), ip_ver=2)})
        self.ok("lmq_delete_dev_ip_addr", 0, v6(3))
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_delete_dev_ip_addr", 0, v6(3))
        self.ok("lmq_set_dev_ip_config_apish", 0, 1, 1, 2, 0x0A000003, 0, 0, 0)
        self.ok("lmq_set_dev_ip_config_apish", 0, 0, 1, 1, -25165824, 0, 0, 9)  # fe80::9
        self.assertEqual(self.listed(), [(last, 64) for last in (1, 2, 4, 5, 6, 7, 9)])
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_set_dev_ip_config_apish", 0, 1, 3, 1, 1, 0, 0, 0)

        self.refused("GLBL_ENTRY_EXIST", "lmq_add_dev_ip_gateway", 0, {"ip_addr": v4(0x0A0000FE)})
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "lmq_add_dev_ip_gateway", 0, {"ip_addr": v6(1)})
        self.ok("lmq_print_dev_ip_config", 0)
        self.ok("lmq_delete_dev_ip_gateway", 0, {"ip_addr": v4(0x0A0000FE)})
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_delete_dev_ip_gateway", 0, {"ip_addr": v4(0x0A0000FE)})
        self.ok("lmq_add_dev_ip_gateway", 0, {"ip_addr": v6(1)})
        self.assertEqual(self.ok("lmq_get_dev_ip_config", 0, {})["num_ip_gw"], 1)
        self.assertIn("fe80::9/64", self.printed())
        self.assertIn("gateway 10.0.0.254", self.printed())


class IpHosts(SimTest):
    def status(self, handle):
        status = self.ok("lmq_get_ip_host_interface_status", 0, handle, {})
        return status["admin_status"], status["oper_status"]

    def test_life(self):
        config = {"ip_addr": v4(0x0A000001), "ip_mask": v4(-256), "gw_ip": v4(0x0A0000FE), "enable_gw": 1}
        for port, status in ((CPU, "PORT_TYPE_MISMATCH"), (6, "PORT_NUM_OUT_OF_RANGE")):
            self.refused(status, "lmq_create_ip_host_interface", 0, port, config, 0)
        host = self.ok("lmq_create_ip_host_interface", 0, ETH0, config, 0)
        interface = self.ok("vx_l3_intf_create", 0, {}, [0])[0]
        self.assertNotEqual(host, interface)
        self.assertEqual((self.status(host), self.status(interface)), ((1, 1), (1, 0)))

        self.ok("lmq_disable_ip_host_interface", 0, host)
        self.assertEqual(self.status(host), (0, 0))
        self.assertEqual(self.ok("vx_l3_intf_get", 0, host, {})["gw_ip"]["addr"]["v4"]["s_addr"], 0x0A0000FE)
        self.ok("lmq_enable_ip_host_interface", 0, host)
        self.ok("lmq_clear_ip_host_interface_stats", 0, host)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_l3_intf_set", 0, interface, {"ip_addr": {"ip_ver": 3}})
        self.ok("vx_l3_intf_set", 0, interface, config)
        self.assertEqual(self.ok("lmq_get_ip_host_interface_config", 0, interface, {})["enable_gw"], 1)

        self.ok("vx_l3_intf_port_add", 0, interface, SNI, 100)
        self.refused("PORT_EXIST", "vx_l3_intf_port_add", 0, interface, SNI, 100)
        self.assertEqual(self.status(interface), (1, 1))
        self.ok("vx_inband_mgnt_set", 0, interface, 0x2064, 1)
        self.ok("lmq_print_ip_host_interface_config", 0, interface)
        self.assertIn("in-band management, tag 0x2064", self.printed())
        self.ok("vx_l3_ipintf_port_del", 0, interface, SNI, 100)
        self.refused("PORT_NOT_FOUND", "vx_l3_ipintf_port_del", 0, interface, SNI, 100)

        for _ in range(6):
            self.ok("lmq_create_ip_host_interface", 0, SNI, {}, 0)
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "vx_l3_intf_create", 0, {}, 0)
        self.ok("lmq_delete_ip_host_interface", 0, host)
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_delete_ip_host_interface", 0, host)
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_clear_ip_host_interface_stats", 0, host)
        self.assertNotIn(self.ok("vx_l3_intf_create", 0, {}, 0), (host, interface))

    def test_translations_are_not_there(self):
        for function in "lmq_add_nat_entry", "lmq_del_nat_entry":
            self.refused("GLBL_OP_NO_SUPPORTED_BY_SW", function, 0, {"src_ip": 1, "dst_ip": 2})
            self.refused("DEV_NULL_PTR", function, 0, [])


if __name__ == "__main__":
    unittest.main()
