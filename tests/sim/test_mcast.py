"""Multicast: VLANs with their groups, the access list, and joins that need both and snooping."""

import unittest

from harness import SimTest

ETH0, ETH1 = 3, 4
EXCLUDE, INCLUDE = 0, 1


def v4(text):
    number = int.from_bytes(bytes(map(int, text.split("."))), "big", signed=True)
    return {"addr": {"v4": {"s_addr": number}}, "ip_ver": 0}


def v6(*first):
    return {"addr": {"v6": {"in6_u": {"u6_addr8": list(first)}}}, "ip_ver": 1}


def ip_group(vlan, address, mode=EXCLUDE, *sources):
    return {"mcast_vlan": vlan, "grp_addr": address, "filter_mode": mode, "src_num": len(sources),
            "src_list": list(sources)}


class Multicast(SimTest):
    def listed(self, function, room):
        status, echo = self.call(function, 0, ETH0, room, [{}] * room)
        self.assertEqual(status, 0)
        return echo[3][:echo[2]]

    def test_vlans_and_groups(self):
        for vlan in range(1, 65):
            self.ok("vx_mcast_vlan_add", 0, ETH0, vlan)
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "vx_mcast_vlan_add", 0, ETH0, 65)
        self.refused("GLBL_ENTRY_EXIST", "vx_mcast_vlan_add", 0, ETH0, 64)
        self.refused("FE_INVALID_VLAN_ID", "vx_mcast_vlan_add", 0, ETH0, 4095)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_mcast_vlan_add", 0, 6, 1)
        self.assertEqual([cfg["mcast_vlan"] for cfg in self.listed("vx_mcast_vlan_get", 2)], [1, 2])
        self.assertEqual(len(self.listed("vx_mcast_vlan_get", 80)), 64)

        self.ok("vx_mcast_vlan_config_set", 0, ETH0, 5, {"ds_vlan_cmd": 2, "uni_vlan_id": 77})
        self.assertEqual(self.ok("vx_mcast_vlan_config_get", 0, ETH0, 5, {}),
                         {"mcast_vlan": 5, "ds_vlan_cmd": 2, "uni_vlan_id": 77})
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_vlan_config_set", 0, ETH0, 5, {"mcast_vlan": 6})
        self.refused("FE_INVALID_VLAN_ACTION", "vx_mcast_vlan_config_set", 0, ETH0, 5, {"ds_vlan_cmd": 4})
        self.refused("FE_MCAST_VLAN_NOT_CONFIGURED", "vx_mcast_vlan_config_get", 0, ETH1, 5, {})

        group = {"mcast_vlan": 5, "mac_addr": [1, 0, 0x5E, 0, 0, 1]}
        for last in range(64):
            self.ok("vx_mcast_l2_entry_add", 0, ETH0, dict(group, mac_addr=[1, 0, 0x5E, 0, 0, last]))
        self.refused("GLBL_ENTRY_EXIST", "vx_mcast_l2_entry_add", 0, ETH0, group)
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "vx_mcast_l2_entry_add", 0, ETH0, dict(group, sub_port=1))
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_l2_entry_add", 0, ETH0, dict(group, mac_addr=[2, 0, 0, 0, 0, 1]))
        self.refused("FE_MCAST_VLAN_NOT_CONFIGURED", "vx_mcast_l2_entry_add", 0, ETH0, dict(group, mcast_vlan=65))
        self.ok("vx_mcast_l2_entry_delete", 0, ETH0, group)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_mcast_l2_entry_delete", 0, ETH0, group)

        entry = ip_group(5, v4("239.0.0.1"), INCLUDE, v4("10.0.0.1"), v4("10.0.0.2"))
        self.ok("vx_mcast_ip_entry_add", 0, ETH0, entry)
        self.refused("GLBL_ENTRY_EXIST", "vx_mcast_ip_entry_add", 0, ETH0, entry)
        self.refused("FE_MCAST_SRC_FILTER_PRESENT", "vx_mcast_ip_entry_add", 0, ETH0, ip_group(5, v4("239.0.0.1")))
        self.ok("vx_mcast_ip_entry_add", 0, ETH0, ip_group(6, v6(0xFF, 2)))
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_ip_entry_add", 0, ETH0, ip_group(5, v4("223.255.255.255")))
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_ip_entry_add", 0, ETH0, ip_group(5, v6(0xFE, 0x80)))
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_ip_entry_add", 0, ETH0,
                     ip_group(5, v4("224.0.0.9"), INCLUDE, v6(0x20)))
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_mcast_ip_entry_add", 0, ETH0, dict(entry, src_num=3))
        self.assertEqual([listed["src_num"] for listed in self.listed("vx_mcast_ip_entry_get", 9)], [2, 0])
        self.ok("lmq_dbg_print_mc_db", 0)
        self.assertIn("group 239.0.0.1 vlan 5 sub-port 0", self.printed())

        # A VLAN takes its groups with it.
        self.ok("vx_mcast_vlan_delete", 0, ETH0, 5)
        self.assertEqual(self.listed("vx_mcast_l2_entry_get", 9), [])
        self.assertEqual([listed["mcast_vlan"] for listed in self.listed("vx_mcast_ip_entry_get", 9)], [6])
        self.ok("vx_mcast_vlan_clear", 0, ETH0)
        self.assertEqual(self.listed("vx_mcast_ip_entry_get", 9), [])

    def test_access_and_joins(self):
        entry = {"mcast_vlan": 5, "grp_start": v4("239.0.0.1"), "grp_end": v4("239.0.0.9"), "mcast_grp_cnt": 1,
                 "mcast_grp": [{"addr_type": 0, "mc_mac_addr": [1, 0, 0x5E, 0, 0, 1]}]}
        self.ok("vx_mcast_acl_add", 0, ETH0, entry)
        self.refused("GLBL_ENTRY_EXIST", "vx_mcast_acl_add", 0, ETH0, entry)
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_acl_add", 0, ETH0, dict(entry, grp_end=v4("239.0.0.0")))
        self.refused("GLBL_INVALID_PARAMS", "vx_mcast_acl_add", 0, ETH0, {})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_mcast_acl_add", 0, ETH0, dict(entry, mcast_grp_cnt=3))
        self.ok("lmq_dbg_print_mc_grp_acl", 0, ETH0)
        self.assertIn("vlan 5 sub-port 0: 239.0.0.1 to 239.0.0.9", self.printed())

        def join(status, group, vlan=5, **host):
            wanted = {"mcast_vlan": vlan, "mcast_grp_addr": group, "src_filter_list": {"filter_mode": INCLUDE}}
            arguments = "lmq_dbg_set_mcast_filter_config", 0, ETH0, host, wanted
            self.refused(status, *arguments) if status else self.ok(*arguments)

        allowed = {"addr_type": 1, "mc_ip_addr": v4("239.0.0.9")}
        join("GLBL_INVALID_OP", allowed)
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_enable_port_igmp_snooping", 0, ETH0, 3)
        self.ok("lmq_enable_port_igmp_snooping", 0, ETH0, 1)
        join("FE_MCAST_VLAN_NOT_CONFIGURED", allowed)
        self.ok("vx_mcast_vlan_add", 0, ETH0, 5)
        join(None, allowed)
        join(None, allowed, host_vid_cnt=10)
        join(None, {"addr_type": 0, "mc_mac_addr": [1, 0, 0x5E, 0, 0, 1]})
        join("IGMP_VALIDATION_FAILED", {"addr_type": 1, "mc_ip_addr": v4("239.0.0.10")})
        join("IGMP_VALIDATION_FAILED", {"addr_type": 2, "mc_ip_addr": v6(0xFF, 2)})
        join("GLBL_RANGE_CHECK_FAIL", allowed, host_vid_cnt=11)
        join("GLBL_RANGE_CHECK_FAIL", {"addr_type": 3})
        self.ok("vx_mcast_acl_delete", 0, ETH0, entry)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_mcast_acl_delete", 0, ETH0, entry)
        self.assertEqual(self.listed("vx_mcast_acl_get", 2), [])
        join(None, {"addr_type": 1, "mc_ip_addr": v4("239.0.0.10")})
        join("GLBL_INVALID_PARAMS", {"addr_type": 1, "mc_ip_addr": v4("10.0.0.10")})
        join("GLBL_INVALID_PARAMS", {"addr_type": 0, "mc_mac_addr": [2, 1, 0x5E, 0, 0, 1]})
        self.ok("lmq_dbg_print_mc_db", 0)
        self.assertEqual(self.printed().count("join "), 3)
        self.ok("lmq_disable_port_igmp_snooping", 0, ETH0)
        self.ok("lmq_dbg_print_mc_db", 0)
        self.assertEqual(self.printed().count("join "), 3)

    def test_tags_of_messages(self):
        tags = {"us_vlan_cmd": 5, "us_vid_src": 2, "us_igmp_tci": 0xE064, "ds_vlan_cmd": 3, "ds_igmp_tci": 9}
        self.ok("lmq_set_port_igmp_vlan_config", 0, ETH0, tags)
        self.assertEqual(self.ok("lmq_get_port_igmp_vlan_config", 0, ETH0, {}), tags)
        self.assertNotEqual(self.ok("lmq_get_port_igmp_vlan_config", 0, ETH1, {}), tags)
        for key, value in (("us_vlan_cmd", 6), ("ds_vlan_cmd", -1), ("us_vid_src", 3)):
            self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_set_port_igmp_vlan_config", 0, ETH0, {key: value})
        self.ok("lmq_print_port_igmp_vlan_config", 0, ETH0)
        self.assertIn("upstream: command 5, VID source 2, TCI 0xe064", self.printed())


if __name__ == "__main__":
    unittest.main()
