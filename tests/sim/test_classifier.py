"""The classifier: domains, rules and records from the first to the last, and what else a port holds."""

import unittest

from harness import SimTest

SNI, CPU, ETH0, ETH1, NO_PORT = 0, 1, 3, 4, 0xFFFF
UPSTREAM, DOWNSTREAM = 0, 1
IPV4_SHORT, VLAN, VLAN_E, EXT_VLAN = 1, 8, 14, 16


def domain(start, length, name=b""):
    return {"domain_name": list(name), "cl_entry_start": start, "cl_entry_length": length}


def vlan_rule(*vids):
    return {"key_type": VLAN, "entryvalid": 7,
            "cls_key": {"vlan_key": [{"vid": vid, "valid": {"mask_s": {"vid": 1}}} for vid in vids]}}


class Rules(SimTest):
    def vids(self, port, domain_id, offset):
        rule = self.ok("vx_cls_rule_get", 0, port, domain_id, offset, {})
        return rule["entryvalid"], [key["vid"] for key in rule["cls_key"]["vlan_key"] if key["valid"]["mask"]]

    def test_life(self):
        # Domains share no entry and end where the classifier does.
        self.ok("vx_cls_domain_set", 0, ETH0, 0, domain(0, 16, b"default"))
        self.ok("vx_cls_domain_set", 0, ETH0, 15, domain(16, 32))
        self.refused("FE_CLS_ENTRY_UNAVAIL", "vx_cls_domain_set", 0, ETH0, 1, domain(15, 1))
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_cls_domain_set", 0, ETH0, 15, domain(17, 32))
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_cls_domain_set", 0, ETH0, 16, domain(0, 0))
        self.ok("vx_cls_domain_set", 0, ETH1, 1, domain(15, 1))
        self.assertEqual(self.ok("vx_cls_domain_get", 0, ETH0, 0, {}),
                         domain(0, 16, b"default" + bytes(13)))

        # A rule lives in its domain, up to the last entry.
        self.ok("vx_cls_rule_set", 0, ETH0, 15, 31, vlan_rule(100, 200))
        self.assertEqual(self.vids(ETH0, 15, 31), (1, [100, 200]))
        self.assertEqual(self.vids(ETH0, 15, 30), (0, []))
        for domain_id, offset in ((15, 32), (0, 16), (2, 0)):
            self.refused("FE_CLS_ENTRY_UNAVAIL", "vx_cls_rule_set", 0, ETH0, domain_id, offset, vlan_rule(1))
            self.refused("FE_CLS_ENTRY_UNAVAIL", "vx_cls_rule_get", 0, ETH0, domain_id, offset, {})
        for key_type in (-1, 15, 20):
            self.refused("FE_CLS_INVALID_KEY_TYPE", "vx_cls_rule_set", 0, ETH0, 0, 0,
                         {"key_type": key_type, "entryvalid": 1})
        self.ok("vx_cls_rule_set", 0, ETH0, 0, 3, dict(vlan_rule(7), key_type=VLAN_E))

        # The engine's list names the entries in use, in terms of flow keys.
        status = self.ok("lmq_get_fe_cl_entry_status", 0, UPSTREAM, {})
        listed = [(entry["entry_id"], entry["key_cnt"], entry["valid_key_bitmap"]) for entry in status["entry_status"]]
        self.assertEqual((status["valid_cnt"], listed[:3]), (2, [(3, 1, 1), (47, 2, 3), (0, 0, 0)]))
        self.assertEqual({entry["entry_hit_cnt"] for entry in status["entry_status"]}, {0})
        self.assertEqual(self.ok("lmq_get_fe_cl_entry_status", 0, DOWNSTREAM, {})["valid_cnt"], 0)
        self.refused("FE_INVALID_FE_ID", "lmq_get_fe_cl_entry_status", 0, 3, {})
        self.ok("lmq_dump_cls_key_list", 0, ETH0)
        self.assertIn("port 3 entry 47: in use, key type 8, keys 0x03", self.printed())
        self.assertNotIn("entry 46", self.printed())
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_dump_cls_key", 0, ETH0, 48)

        # A domain keeps its entries while they hold rules.
        self.refused("GLBL_INVALID_OP", "vx_cls_domain_set", 0, ETH0, 15, domain(16, 31))
        self.ok("vx_cls_domain_set", 0, ETH0, 15, domain(16, 32, b"renamed"))
        self.ok("vx_cls_domain_rule_clear", 0, ETH0, 15)
        self.assertEqual(self.vids(ETH0, 15, 31), (0, []))
        self.assertEqual(self.vids(ETH0, 0, 3), (1, [7]))
        self.ok("vx_cls_domain_set", 0, ETH0, 15, domain(0, 0))
        self.ok("vx_cls_rule_set", 0, ETH0, 0, 3, dict(vlan_rule(7), entryvalid=0))
        self.assertEqual(self.vids(ETH0, 0, 3), (0, []))

        self.ok("vx_cls_init", 0)
        self.assertEqual(self.ok("vx_cls_domain_get", 0, ETH0, 0, {}), domain(0, 0, bytes(20)))

    def test_every_type_has_its_keys(self):
        """A key that compares something is found wherever a rule of its type may have it."""
        self.ok("vx_cls_domain_set", 0, ETH0, 0, domain(0, 16))
        for key_type, member, count in (
                (0, "ipv4_long_key", 0), (1, "ipv4_short_key", 4), (2, "ipv6_long_key", 0), (3, "ipv6_short_key", 0),
                (4, "mirror_key", 8), (5, "mac_vlan_key", 4), (6, "mac_etype_key", 4), (7, "ctrl_pkt_key", 4),
                (8, "vlan_key", 8), (9, "vlan_range_key", 8), (10, "proto_key", 4), (11, "mcast_key", 2),
                (12, "mac_vlan_key", 4), (13, "mac_etype_key", 4), (14, "vlan_key", 8), (16, "ext_vlan_key", 4),
                (17, "gem_mcast_key", 2), (18, "gem_ctrl_pkt_key", 4), (19, "ipv4_mcast_key", 3)):
            used = {"valid": {"mask": 1}}
            keys = [{}] * (count - 1) + [used] if count else used
            self.ok("vx_cls_rule_set", 0, ETH0, 0, 2, {"key_type": key_type, "entryvalid": 1, "cls_key": {member: keys}})
            entry = self.ok("lmq_get_fe_cl_entry_status", 0, UPSTREAM, {})["entry_status"][0]
            self.assertEqual((entry["key_cnt"], entry["valid_key_bitmap"]), (1, 1 << max(count - 1, 0)), (key_type, member))

    def test_records(self):
        self.ok("vx_cls_domain_set", 0, SNI, 3, domain(8, 2))
        record = {"permit": 9, "cos": 5, "dscp": 40, "valid": {"mask_s": {"cos_fields": 1}}}
        self.ok("vx_cls_fib_set", 0, SNI, 3, 15, record)
        self.refused("FE_CLS_ENTRY_UNAVAIL", "vx_cls_fib_set", 0, SNI, 3, 16, {})
        for member, value, flag, status in (("top_vid", 4096, "vlan_fields", "FE_INVALID_VLAN_ID"),
                                            ("dscp", 64, "dscp_fields", "FE_CLS_KEY_INVALID_DSCP_VALUE"),
                                            ("top_dot1p", 8, "dot1p_fields", "GLBL_RANGE_CHECK_FAIL"),
                                            ("dst_port_num", 6, "dst_port_fields", "PORT_NUM_OUT_OF_RANGE"),
                                            ("flow_id_sel", 5, "rate_limit_fields", "GLBL_RANGE_CHECK_FAIL")):
            record = {member: value, "valid": {"mask_s": {flag: 1}}}
            self.refused(status, "vx_cls_fib_set", 0, SNI, 3, 15, record)
            self.refused(status, "vx_cls_no_match_fib_set", 0, SNI, record)
        kept = self.ok("vx_cls_fib_get", 0, SNI, 3, 15, {})
        self.assertEqual((kept["permit"], kept["cos"], kept["dscp"], kept["valid"]["mask"]), (1, 5, 0, 0xFF))
        self.ok("vx_cls_fib_set", 0, SNI, 3, 15, {"top_vid": 4095, "valid": {"mask_s": {"vlan_fields": 1}}})
        kept = self.ok("vx_cls_fib_get", 0, SNI, 3, 15, {})
        self.assertEqual((kept["permit"], kept["cos"], kept["top_vid"]), (0, 5, 4095))
        self.ok("vx_cls_domain_rule_clear", 0, SNI, 3)
        self.assertEqual(self.ok("vx_cls_fib_get", 0, SNI, 3, 15, {})["top_vid"], 0)

        self.ok("vx_cls_type_no_match_set", 0, SNI, 1 << VLAN | 1 << EXT_VLAN, -1)
        self.ok("vx_cls_type_no_match_set", 0, SNI, 1 << VLAN, 0)
        self.assertEqual(self.ok("vx_cls_type_no_match_get", 0, SNI, 0xF7FFF, 0), 1 << EXT_VLAN)
        self.refused("FE_CLS_INVALID_KEY_TYPE", "vx_cls_type_no_match_set", 0, SNI, 1 << 15, 0)


class PortState(SimTest):
    clock = 1000

    def test_what_is_set_comes_back(self):
        pattern = {"spcl_ptn_type": 3, "spcl_ptn_cmp": 1, "spcl_ptn_key": 9, "spcl_ptn_mask": 65535}
        for name, keys, count, value in (
                ("vx_cls_l4_port_range", [2], 8, {"cmp_en": 1, "low_port": 5, "high_port": 5}),
                ("vx_cls_spcl_ptn_entry", [], 8, pattern),
                ("vx_cls_aging_timer", [], 64, {"entry_dynamic": 1, "max_limit": -1})):
            write, read = f"{name}_set", f"{name}_get"
            self.ok(write, 0, ETH0, *keys, count - 1, value)
            self.assertEqual(self.ok(read, 0, ETH0, *keys, count - 1, {}), value)
            self.assertNotEqual(self.ok(read, 0, ETH1, *keys, count - 1, {}), value)
            self.assertNotEqual(self.ok(read, 0, ETH0, *keys, count - 2, {}), value)
            self.refused("GLBL_RANGE_CHECK_FAIL", write, 0, ETH0, *keys, count, value)
            self.refused("PORT_NUM_OUT_OF_RANGE", read, 0, 6, *keys, 0, {})
        self.refused("FE_CLS_INVALID_PORT_RANGE_FOR_L4_PORT", "vx_cls_l4_port_range_set", 0, ETH0, 0, 0,
                     {"low_port": 2, "high_port": 1})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_cls_l4_port_range_set", 0, ETH0, 4, 0, {})
        value = {"spcl_hdr_mode_sel": 1, "spcl_hdr_after_l2hdr_en": 0, "spcl_hdr_after_iphdr_en": 1,
                 "spcl_hdr_after_l4hdr_en": 0, "spcl_hdr_parsing_en": 1, "spcl_glb_hdr_strt_idx": 77}
        self.ok("vx_cls_spcl_ptn_ctrl_set", 0, CPU, value)
        self.assertEqual(self.ok("vx_cls_spcl_ptn_ctrl_get", 0, CPU, {}), value)
        self.ok("vx_cls_debug_prog_count_set", 0, ETH0, {"entry_addr": 47, "hit_count": 5})
        self.assertEqual(self.ok("vx_cls_debug_status_get", 0, ETH0, {})["user_entry_hit_cnt"], 5)

    def test_control_and_aging(self):
        high, low = [2, 0, 0, 0, 0, 9], [2, 0, 0, 0, 0, 1]
        self.refused("GLBL_INVALID_PARAMS", "vx_cls_ctrl_set", 0, ETH0,
                     {"mac_da_low": high, "valid": {"mac_da_range": 1}})
        self.ok("vx_cls_ctrl_set", 0, ETH0,
                {"mac_da_low": low, "mac_da_high": high, "tos_ecn_msk_en": 1, "valid": {"mac_da_range": 1}})
        self.ok("vx_cls_aging_timer_set", 0, ETH0, 40, {"entry_dynamic": 1, "max_limit": 4})
        self.ok("vx_cls_aging_timer_set", 0, ETH0, 3, {"entry_dynamic": 1, "max_limit": 1000})
        self.assertEqual(self.call("vx_cls_mac_filter_aging_vld_status_get", 0, ETH0, 0, 0)[1][2:], [1 << 8, 1 << 3])
        self.ok("vx_cls_ctrl_set", 0, ETH0, {"mac_filter_aging_en": 1, "valid": {"mac_filter_aging_en": 1}})
        self.assertEqual(self.ok("vx_cls_mac_filter_aged_latest_entry_get", 0, ETH0, 0), 40)
        self.assertEqual(self.call("vx_cls_mac_filter_aging_vld_status_get", 0, ETH0, 0, 0)[1][2:], [0, 1 << 3])
        self.assertEqual(self.ok("vx_cls_mac_filter_aged_latest_entry_get", 0, ETH1, 0), 0xFF)
        kept = self.ok("vx_cls_ctrl_get", 0, ETH0, {})
        self.assertEqual((kept["mac_da_low"], kept["mac_da_high"], kept["tos_ecn_msk_en"]), (low, high, 0))

    def test_mirror_and_counters(self):
        self.ok("vx_port_mirror_set", 0, ETH1, 1 << ETH0, 1 << SNI)
        self.assertEqual(self.call("vx_port_mirror_get", 0, 0, 0, 0), (0, [0, ETH1, 1 << ETH0, 1 << SNI]))
        self.refused("PORT_INVALID_CFG", "vx_port_mirror_set", 0, ETH0, 1 << ETH0, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_port_mirror_set", 0, ETH0, 1 << 6, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_port_mirror_set", 0, NO_PORT, 1 << SNI, 0)
        self.refused("DEV_ID_INVALID", "vx_port_mirror_set", 256, ETH1, 1, 0)  # no byte, so that 256 is not device 0
        self.ok("vx_port_mirror_set", 0, NO_PORT, 0, 0)
        self.assertEqual(self.call("vx_port_mirror_get", 0, 0, 0, 0), (0, [0, NO_PORT, 0, 0]))
        self.assertEqual(self.call("lmq_get_fe_pkt_stats", 0, UPSTREAM, {}, 1)[1][2]["ingr_pkt_cnt"], 0)
        self.refused("FE_INVALID_FE_ID", "lmq_clear_fe_pkt_stats", 0, -1)


if __name__ == "__main__":
    unittest.main()
