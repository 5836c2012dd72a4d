"""VLAN policy and tables of ports, bridges from creation to deletion, and packets through the software VLAN layer."""

import unittest

from harness import SimTest

SNI, CPU, ETH0, ETH1, NO_PORT = 0, 1, 3, 4, 6
ADD, DELETE, MODIFY = range(3)
INGRESS, EGRESS, BOTH = 1, 2, 3
CTAG, STAG = 0x8100, 0x88A8


def flagged(**members):
    """A table entry or a configuration with its flags: those of the members, but for the pairs that share one."""
    flags = {{"vid_lo": "vid", "vid_high": "vid", "vid_from": "vid", "vid_to": "vid", "uni_port_bitmap": "port_bitmap",
              "member_uni_port_bitmap": "member_port_bitmap"}.get(key, key) for key in members}
    return {**members, "valid": {"mask_s": dict.fromkeys(flags, 1)}}


class Policy(SimTest):
    def test_tag_types_and_checks(self):
        self.assertEqual(self.call("vx_vlan_tag_policy_get", 0, ETH0, 0, 0), (0, [0, ETH0, 7, 1]))
        self.ok("vx_vlan_tag_policy_set", 0, ETH0, 5, 0)
        self.assertEqual(self.call("vx_vlan_tag_policy_get", 0, ETH0, 0, 9)[1][2:], [5, 0])
        self.assertEqual(self.call("vx_vlan_tag_policy_get", 0, ETH1, 0, 9)[1][2:], [7, 1])
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_vlan_tag_policy_set", 0, ETH0, 8, 1)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_vlan_tag_policy_set", 0, NO_PORT, 1, 1)

        for name, first in (("vx_vlan_member_check", 0), ("vx_vlan_member_check_default", BOTH)):
            self.assertEqual(self.ok(f"{name}_get", 0, ETH0, 9), first)
            for direction, switch, left in ((BOTH, 0, 0), (INGRESS, 1, INGRESS), (EGRESS, 1, BOTH),
                                            (INGRESS, 0, EGRESS)):
                self.ok(f"{name}_set", 0, ETH0, direction, switch)
                self.assertEqual(self.ok(f"{name}_get", 0, ETH0, 9), left)
            self.assertEqual(self.ok(f"{name}_get", 0, ETH1, 9), first)
            self.refused("GLBL_RANGE_CHECK_FAIL", f"{name}_set", 0, ETH0, 4, 1)

    def test_tables_share_their_indices(self):
        member = flagged(member_uni_port_bitmap=3, vid_lo=10, vid_high=20, ingr_valid=1)
        mapping = flagged(uni_port_bitmap=1, vid_from=10, vid_to=11, egrs_valid=1)
        for index in range(0, 32, 2):
            self.ok("vx_vlan_member_table_set", 0, ETH0, index, ADD, member)
            self.ok("vx_vlan_mapping_table_set", 0, ETH0, index + 1, ADD, mapping)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_vlan_member_table_set", 0, ETH0, 32, ADD, member)
        self.refused("GLBL_ENTRY_EXIST", "vx_vlan_member_table_set", 0, ETH0, 30, ADD, member)
        for operation in (ADD, MODIFY, DELETE):
            self.refused("GLBL_DUPLICATE_REQ", "vx_vlan_mapping_table_set", 0, ETH0, 30, operation, mapping)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_vlan_mapping_table_get", 0, ETH0, 30, {})

        self.ok("vx_vlan_member_table_set", 0, ETH0, 30, MODIFY, dict(flagged(egrs_valid=1), vid_lo=1, ingr_valid=0))
        kept = self.ok("vx_vlan_member_table_get", 0, ETH1, 30, {})
        self.assertEqual([kept[key] for key in ("vid_lo", "vid_high", "ingr_valid", "egrs_valid")], [10, 20, 1, 1])
        self.assertEqual(kept["valid"]["mask"], 15)
        for bad, status in ((flagged(vid_lo=20, vid_high=10), "FE_INVALID_VLAN_ID"),
                            (flagged(vid_high=4096), "FE_INVALID_VLAN_ID"),
                            (flagged(member_uni_port_bitmap=4), "FE_INVALID_VLAN_MEMBER")):
            self.refused(status, "vx_vlan_member_table_set", 0, ETH0, 30, MODIFY, bad)
        self.assertEqual(self.ok("vx_vlan_member_table_get", 0, ETH0, 30, {}), kept)

        self.ok("vx_vlan_member_table_set", 0, ETH0, 30, DELETE, [])
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_vlan_member_table_set", 0, ETH0, 30, DELETE, [])
        self.refused("DEV_NULL_PTR", "vx_vlan_mapping_table_set", 0, ETH0, 30, ADD, [])
        self.ok("vx_vlan_mapping_table_set", 0, ETH0, 30, ADD, mapping)
        self.assertEqual(self.ok("vx_vlan_mapping_table_get", 0, ETH0, 30, {})["vid_to"], 11)


class Bridges(SimTest):
    def create(self, bridge, vlan, kind=1):
        self.ok("lmq_create_bridge", 0, bridge, flagged(brg_type=kind, vlan_id=vlan))

    def test_life(self):
        self.create(7, 100)
        self.create(-2, 200, 4)
        self.refused("GLBL_ENTRY_EXIST", "lmq_create_bridge", 0, 7, flagged(brg_type=1))
        self.refused("FE_DUPLICATE_BRG_VLAN_ID", "lmq_create_bridge", 0, 8, flagged(brg_type=1, vlan_id=200))
        self.refused("FE_DUPLICATE_BRG_VLAN_ID", "lmq_set_bridge_config", 0, 7, flagged(vlan_id=200))
        self.refused("FE_INVALID_BRG_ID", "lmq_create_bridge", 0, -1, flagged(brg_type=1))
        self.refused("FE_INVALID_BRG_ID", "lmq_set_bridge_config", 0, 8, flagged(brg_type=1))
        for bad in (flagged(vlan_id=1), flagged(brg_type=0), flagged(brg_type=16)):
            self.refused("FE_INVALID_BRG_PARAMS", "lmq_create_bridge", 0, 8, bad)
        self.ok("lmq_set_bridge_config", 0, 7, dict(flagged(enbl_local_fwd=1, vlan_id=100), brg_type=8))

        ports = [self.ok("lmq_add_bridge_port", 0, port, 7, 0) for port in (ETH0, ETH1)]
        self.assertEqual(ports, [1000, 1001])
        self.refused("GLBL_ENTRY_EXIST", "lmq_add_bridge_port", 0, ETH0, 7, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "lmq_add_bridge_port", 0, SNI, 7, 0)
        other = self.ok("lmq_add_bridge_port", 0, ETH0, -2, 0)
        for gem in range(64):
            self.ok("vx_gpon_onu_gem_port_add_to_bridge", 0, 0, gem, 7)
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "vx_gpon_onu_gem_port_add_to_bridge", 0, 0, 64, 7)
        self.refused("GLBL_ENTRY_EXIST", "vx_gpon_onu_gem_port_add_to_bridge", 0, 0, 63, 7)
        self.refused("GPON_INVALID_GEM_PORT", "vx_gpon_onu_gem_port_add_to_bridge", 0, 0, 4096, -2)
        for _ in range(2):
            self.ok("vx_gpon_onu_gem_port_delete_from_bridge", 0, 0, 0, 7)
        self.refused("FE_INVALID_BRG_ID", "vx_gpon_onu_gem_port_delete_from_bridge", 0, 0, 0, 8)

        info = self.ok("lmq_get_bridge_config", 0, 7, {})
        self.assertEqual((info["brg_id"], info["num_brg_ports"], info["num_sub_ports"]), (7, 2, 63))
        self.assertEqual(info["brg_port_info"], [{"brg_port_num": 1000, "uni_port_num": ETH0},
                                                 {"brg_port_num": 1001, "uni_port_num": ETH1}])
        self.assertEqual([gem["sub_port"] for gem in info["gem_info"]], list(range(1, 64)) + [0])
        config = info["brg_cfg"]
        self.assertEqual((config["brg_type"], config["vlan_id"], config["enbl_local_fwd"]), (1, 100, 1))
        for count, ids in ((1, [7]), (3, [7, -2])):
            _, (_, _, found, valid) = self.call("lmq_get_bridge_config_all", 0, count, [{}, {}, {}], 0)
            self.assertEqual([bridge["brg_id"] for bridge in found[:valid]], ids)

        self.ok("lmq_dump_bridge", 0, 7)
        self.ok("lmq_dump_bridge_port", 0, other)
        self.ok("lmq_dump_bridge_cvlan_svlan_list", 0)
        for text in ("GEM port 63", f"bridge port {other}: bridge 4294967294, UNI port 3", "svlan 200"):
            self.assertIn(text, self.printed())

        self.ok("lmq_delete_bridge_port", 0, 1000)
        self.refused("FE_INVALID_BRG_PORT_ID", "lmq_delete_bridge_port", 0, 1000)
        self.ok("lmq_delete_bridge", 0, 7)
        self.refused("FE_INVALID_BRG_PORT_ID", "lmq_dump_bridge_port", 0, 1001)
        self.refused("FE_INVALID_BRG_ID", "lmq_get_bridge_config", 0, 7, {})
        self.create(7, 100)
        self.assertEqual(self.ok("lmq_get_bridge_config", 0, 7, {})["num_sub_ports"], 0)
        self.assertEqual(self.ok("lmq_add_bridge_port", 0, ETH0, 7, 0), other + 1)

    def test_capacity(self):
        for number in range(64):
            self.create(number, 100 + number)
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "lmq_create_bridge", 0, 64, flagged(brg_type=1))


ANY = {"inner_pri": 8, "inner_vid": 4096, "outer_pri": 8, "outer_vid": 4096}
NO_TAG = {"inner_pri": 15, "outer_pri": 15}


def treat(remove, **tags):
    return {**NO_TAG, "tag_to_remove": remove, **tags}


class SoftwareVlan(SimTest):
    def packet(self, *tags, port=ETH0):
        """A packet with tags, given as (TPID, TCI), the outer one first."""
        (stpid, svlan), (ctpid, cvlan) = (*tags, (0, 0), (0, 0))[:2]
        return {"port": port, "stpid": stpid, "svlan": svlan, "ctpid": ctpid, "cvlan": cvlan, "tag_num": len(tags),
                "eth_type": 0x0800, "data": [0x45]}

    def passed(self, filter, *arguments):
        """The tags of the packet behind a filter, and its GEM port."""
        packet = self.ok(filter, *arguments)
        self.assertEqual(packet["data"], [0x45])
        return [(packet["stpid"], packet["svlan"]), (packet["ctpid"], packet["cvlan"])][:packet["tag_num"]]

    def up(self, *tags, **more):
        return self.passed("vlan_ingress_filter", self.packet(*tags, **more))

    def down(self, *tags):
        return self.passed("vlan_egress_filter", ETH0, self.packet(*tags))

    def test_operation(self):
        self.assertEqual(self.up((CTAG, 5)), [(CTAG, 5)])
        operation = {"us_mode": 1, "us_tci": 0x6064, "ds_mode": 1}
        self.ok("vx_sw_vlan_opr_create", 0, ETH0, operation, 0, 1)
        self.refused("GLBL_ENTRY_EXIST", "vx_sw_vlan_opr_create", 0, ETH0, operation, 0, 1)
        self.assertEqual((self.up(), self.up((STAG, 5))), ([(CTAG, 0x6064)], [(STAG, 0x6064)]))
        self.assertEqual(self.up(port=ETH1), [])
        self.assertEqual((self.down((CTAG, 9), (CTAG, 5)), self.down()), ([(CTAG, 5)], []))
        self.ok("vx_sw_vlan_opr_delete", 0, ETH0, 0, 1)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_sw_vlan_opr_delete", 0, ETH0, 0, 1)
        self.ok("vx_sw_vlan_opr_create", 0, ETH0, dict(operation, us_mode=2), 0, 1)
        self.assertEqual(self.up((STAG, 5)), [(CTAG, 0x6064), (STAG, 5)])
        self.refused("FE_INVALID_VLAN_ACTION", "vlan_ingress_filter", self.packet((STAG, 5), (CTAG, 6)))
        self.refused("GLBL_INVALID_PARAMS", "vlan_ingress_filter", dict(self.packet(), tag_num=3))

    def test_extended_rules(self):
        untagged = treat(0, inner_pri=3, inner_vid=100)
        translated = treat(1, inner_pri=8, inner_vid=200)
        wrapped = treat(0, outer_pri=8, outer_vid=4096)
        outer = treat(1, outer_pri=9, outer_vid=300, outer_tpid_dei=4)
        self.ok("vx_sw_vlan_param_set", 0, ETH0, CTAG, STAG, 0)
        self.ok("vx_sw_untag_vlan_add", 0, ETH0, NO_TAG, untagged, 0, 1)
        self.ok("vx_sw_single_vlan_add", 0, ETH0, {"inner_pri": 14, "inner_vid": 4096, "outer_pri": 15}, wrapped, 0, 1)
        self.ok("vx_sw_single_vlan_add", 0, ETH0, {"inner_pri": 8, "inner_vid": 20, "outer_pri": 15}, translated, 0, 1)
        self.ok("vx_sw_single_vlan_add", 0, ETH0, {"inner_pri": 7, "inner_vid": 21, "outer_pri": 15}, treat(3), 0, 2)
        self.ok("vx_sw_double_vlan_add", 0, ETH0, dict(ANY, outer_vid=30), outer, 0, 2)
        self.refused("GLBL_ENTRY_EXIST", "vx_sw_untag_vlan_add", 0, ETH0, NO_TAG, untagged, 0, 1)
        self.refused("FE_INVALID_VLAN_ACTION", "vx_sw_untag_vlan_add", 0, ETH0, ANY, treat(1), 0, 1)
        self.refused("DEV_ID_INVALID", "vx_sw_untag_vlan_add", 256, ETH0, NO_TAG, untagged, 0, 1)
        self.refused("DEV_NULL_PTR", "vx_sw_untag_vlan_add", 0, ETH0, NO_TAG, [], 0, 1)

        for before, after in (([], [(STAG, 0x6064)]),
                              ([(CTAG, 0xA014)], [(STAG, 0xA0C8)]),
                              ([(CTAG, 0xA016)], [(STAG, 0xA016), (CTAG, 0xA016)]),
                              ([(CTAG, 0x401E), (CTAG, 5)], [(CTAG, 0x412C), (CTAG, 5)])):
            self.assertEqual(self.up(*before), after)
            self.assertEqual(self.down(*after), before)
        self.assertEqual(self.up((STAG, 20)), [(STAG, 20)], "a tag with another TPID than that of input")
        self.refused("FE_INVALID_VLAN_MEMBER", "vlan_ingress_filter", self.packet((CTAG, 0xE015)))
        self.assertEqual(self.up((CTAG, 20), port=CPU), [(CTAG, 20)])

        self.ok("vx_sw_vlan_param_set", 0, ETH0, CTAG, STAG, 1)
        self.assertEqual(self.down((STAG, 0xA0C8)), [(STAG, 0xA0C8)])
        self.ok("vx_sw_vlan_del", 0, ETH0, 0, 1)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_sw_vlan_del", 0, ETH0, 0, 1)
        self.assertEqual(self.up((CTAG, 20)), [(CTAG, 20)])
        self.ok("vx_sw_single_vlan_add", 0, ETH0, dict(ANY, inner_vid=20), translated, 1, 1)
        self.assertEqual(self.up((CTAG, 20)), [(CTAG, 20)])
        self.assertEqual(self.up((CTAG, 20), port=CPU), [(STAG, 200)])
        self.ok("vx_sw_vlan_mib_reset")
        self.assertEqual(self.up((CTAG, 20), port=CPU), [(CTAG, 20)])

    def test_ways(self):
        way = {"eth_port": ETH0, "vid": 100, "pri": 3, "gem_port": 500}
        self.ok("vx_sw_tci_gem_add", 0, way, 1)
        self.ok("vx_sw_tci_gem_add", 0, dict(way, mode=1, gem_port=600), 2)
        self.ok("vx_sw_tci_gem_add", 0, dict(way, eth_port=ETH1, mode=2, tagged_action=1), 3)
        self.refused("GLBL_ENTRY_EXIST", "vx_sw_tci_gem_add", 0, way, 1)
        for tci, gem in ((0x6064, 500), (0x2064, 600)):
            self.assertEqual(self.ok("vx_vid_pbit_2gem_get", ETH0, tci, 0), gem)
            passed = self.ok("vlan_ingress_filter_ioctl", {"pkt": self.packet((CTAG, tci))})["pkt"]
            self.assertEqual(passed["sub_port"], gem)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_vid_pbit_2gem_get", ETH0, 0x6065, 0)
        self.refused("FE_INVALID_VLAN_MEMBER", "vlan_ingress_filter", self.packet((CTAG, 0x6001), port=ETH1))
        self.assertEqual(self.ok("vlan_ingress_filter", dict(self.packet(), sub_port=9))["sub_port"], 9)
        self.ok("vx_vid_pbit_2gem_dump")
        self.assertIn("way 2: port 3, mode 1, vlan 100, priority 3: GEM port 600", self.printed())
        self.ok("vx_sw_tci_gem_del", 0, 1)
        self.assertEqual(self.ok("vx_vid_pbit_2gem_get", ETH0, 0x6064, 0), 600)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_sw_tci_gem_del", 0, 1)
        self.refused("DEV_NULL_PTR", "vlan_ingress_filter", [])
        self.refused("DEV_NULL_PTR", "vlan_egress_filter_ioctl", ETH0, [])


if __name__ == "__main__":
    unittest.main()
