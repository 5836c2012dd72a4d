"""Layer 2: the forwarding database filled, walked, aged and cleared, filter lists, and the settings of ports."""

import unittest

from harness import SimTest

DYNAMIC, STATIC, BOTH = 1, 2, 3
SNI, ETH0, ETH1, ALL_PORTS = 0, 3, 4, 0xFFFF


def entry(last, port=ETH0, **more):
    return {"mac_addr": [2, 0, 0, 0, last >> 8, last & 255], "mac_addr_valid": 1, "port_id": port, **more}


class Fdb(SimTest):
    clock = 100

    def add(self, kind, what):
        return self.ok("vx_l2_fdb_entry_add", 0, kind, what, 0)

    def walk(self, port=ALL_PORTS, mode=BOTH):
        """The entries in the order of the walk, by handle."""
        entries, handle = {}, 0
        while True:
            status, echo = self.call("vx_l2_fdb_entry_get_next", 0, port, handle, mode, {}, 0)
            if status:
                self.assertEqual(self.name_of(status), "VX_ERR_FE_FDB_ENTRY_NOT_FOUND")
                return entries
            self.assertEqual(echo[2], handle)
            handle = echo[5]
            self.assertNotIn(handle, entries, "the walk goes round")
            entries[handle] = echo[4]

    def test_life(self):
        self.assertEqual(self.walk(), {})
        first = self.add(STATIC, entry(1))
        second = self.add(DYNAMIC, entry(2, ETH1, vid_valid=1, vlan_id=100))
        third = self.add(DYNAMIC, entry(2, ETH0, vid_valid=1, vlan_id=101))
        self.assertEqual(len({0, first, second, third}), 4)
        for double in (entry(1, ETH1), entry(2, ETH0, vid_valid=9, vlan_id=100, p_bit=3)):
            self.refused("GLBL_ENTRY_EXIST", "vx_l2_fdb_entry_add", 0, STATIC, double, 0)

        self.assertEqual(list(self.walk()), [first, second, third])
        self.assertEqual(list(self.walk(mode=DYNAMIC)), [second, third])
        self.assertEqual(list(self.walk(port=ETH0)), [first, third])
        static = self.walk()[first]
        self.assertEqual((static["mac_addr"], static["is_static"], static["aging_time"], static["vid_valid"]),
                         ([2, 0, 0, 0, 0, 1], 1, 0, 0))
        self.assertEqual(self.walk()[second]["vlan_id"], 100)

        self.refused("FE_FDB_ENTRY_NOT_FOUND", "vx_l2_fdb_entry_delete", 0, DYNAMIC, first, {})
        self.ok("vx_l2_fdb_entry_delete", 0, STATIC, first, [])
        self.refused("FE_FDB_ENTRY_NOT_FOUND", "vx_l2_fdb_entry_delete", 0, BOTH, first, {})
        self.refused("DEV_NULL_PTR", "vx_l2_fdb_entry_delete", 0, BOTH, 0, [])
        self.ok("vx_l2_fdb_entry_delete", 0, BOTH, 0, entry(2, vid_valid=1, vlan_id=100))
        _, echo = self.call("vx_l2_fdb_entry_get_next", 0, ALL_PORTS, second, BOTH, {}, 0)
        self.assertEqual(echo[5], third, "a walk stops where an entry was deleted")

        self.add(STATIC, entry(5, ETH1))
        self.ok("vx_l2_fdb_entry_port_clear", 0, ETH1, DYNAMIC)
        self.assertEqual(len(self.walk()), 2)
        self.ok("vx_l2_fdb_entry_port_clear", 0, ETH1, BOTH)
        self.assertEqual(list(self.walk()), [third])
        self.ok("vx_l2_fdb_entry_clear", 0, BOTH)
        self.assertEqual(self.walk(), {})

    def test_ageing(self):
        self.ok("vx_l2_aging_timer_set", 0, 3)
        self.add(DYNAMIC, entry(1))
        static = self.add(STATIC, entry(2))
        left = [list(self.walk(mode=DYNAMIC).values()) for _ in range(20)]
        times = [entries[0]["aging_time"] for entries in left if entries]
        self.assertEqual((times[0], times[-1], left[-1]), (3, 1, []))
        self.assertEqual(times, sorted(times, reverse=True))
        self.assertEqual(list(self.walk()), [static])
        self.ok("vx_l2_learn_set", 0, {"dsbl_hw_aging": 1, "valid": {"mask_s": {"dsbl_hw_aging": 1}}})
        self.add(DYNAMIC, entry(1))
        for _ in range(20):
            self.assertEqual(len(self.walk()), 2)

    def test_reset_of_the_engine(self):
        static = self.add(STATIC, entry(1))
        self.add(DYNAMIC, entry(2))
        self.ok("lmq_reset_device", 0, {"rst_mode": 2, "mod_id_bit_map": 1 << 17})
        self.assertEqual(list(self.walk()), [static])

    def test_capacity(self):
        for number in range(1024):
            last = self.add(DYNAMIC, entry(number))
        self.refused("FE_FDB_ENTRY_UNAVAIL", "vx_l2_fdb_entry_add", 0, DYNAMIC, entry(1024), 0)
        self.refused("GLBL_ENTRY_EXIST", "vx_l2_fdb_entry_add", 0, DYNAMIC, entry(0), 0)
        self.ok("vx_l2_fdb_entry_delete", 0, BOTH, last, {})
        self.assertGreater(self.add(DYNAMIC, entry(1024)), last, "a handle is given out again at once")

    def test_bad_entries(self):
        for status, kind, what in (("GLBL_RANGE_CHECK_FAIL", BOTH, entry(1)), ("GLBL_RANGE_CHECK_FAIL", 0, entry(1)),
                                   ("PORT_NUM_OUT_OF_RANGE", STATIC, entry(1, 6)),
                                   ("GLBL_INVALID_PARAMS", STATIC, {"port_id": ETH0}),
                                   ("FE_INVALID_VLAN_ID", STATIC, entry(1, vid_valid=1, vlan_id=4096)),
                                   ("GLBL_RANGE_CHECK_FAIL", STATIC, entry(1, p_bit_valid=1, p_bit=8))):
            self.refused(status, "vx_l2_fdb_entry_add", 0, kind, what, 0)
        self.refused("DEV_NULL_PTR", "vx_l2_fdb_entry_get_next", 0, ETH0, 0, BOTH, [], 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_l2_fdb_entry_get_next", 0, 6, 0, BOTH, {}, 0)
        self.assertEqual(self.walk(), {})


class Filter(SimTest):
    def macs(self, *lasts):
        return [{"mac_addr": [2, 0, 0, 0, 1, last]} for last in lasts]

    def test_life(self):
        self.ok("vx_l2_mac_addr_filter_config_set", 0, ETH0, {"filter_type": 1})
        self.ok("vx_l2_mac_addr_filter_add", 0, ETH0, 3, self.macs(1, 2, 3))
        _, echo = self.call("vx_l2_mac_addr_filter_get", 0, ETH0, 2, [{}, {}, {}], 0)
        self.assertEqual(echo[3:], [self.macs(1, 2) + [{"mac_addr": [0] * 6}], 2])
        self.refused("GLBL_ENTRY_EXIST", "vx_l2_mac_addr_filter_add", 0, ETH0, 2, self.macs(4, 1))
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_l2_mac_addr_filter_delete", 0, ETH0, 0, 2, self.macs(1, 4))
        self.assertEqual(self.ok("vx_l2_mac_addr_filter_get", 0, ETH0, 9, [{}] * 9, 0), 3, "half of a list was taken")
        self.refused("GLBL_SW_RESOURCE_UNAVAIL", "vx_l2_mac_addr_filter_add", 0, ETH0, 14, self.macs(*range(10, 24)))
        self.refused("GLBL_INVALID_PARAMS", "vx_l2_mac_addr_filter_add", 0, ETH0, 9, self.macs(7) + [{}] * 8)
        self.refused("GLBL_INVALID_PARAMS", "vx_l2_mac_addr_filter_add", 0, ETH0, 1, [{"mac_addr": [255] * 6}])
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_l2_mac_addr_filter_add", 0, ETH0, 17, self.macs(*range(10, 27)))
        self.refused("DEV_NULL_PTR", "vx_l2_mac_addr_filter_delete", 0, ETH0, 0, 1, [])

        self.refused("FE_MAC_FILTER_MODE_CONFILCT", "vx_l2_mac_addr_filter_config_set", 0, ETH0, {"filter_type": 2})
        self.assertEqual(self.ok("vx_l2_mac_addr_filter_config_get", 0, ETH0, {}), {"filter_type": 1})
        self.ok("vx_l2_mac_addr_filter_delete", 0, ETH0, 0, 1, self.macs(2))
        _, echo = self.call("vx_l2_mac_addr_filter_get", 0, ETH0, 2, [{}, {}], 0)
        self.assertEqual(echo[3], self.macs(1, 3))
        self.assertEqual(self.ok("vx_l2_mac_addr_filter_get", 0, ETH1, 1, {}, 9), 0)
        self.ok("vx_l2_mac_addr_filter_delete", 0, ETH0, 1, 99, [])
        self.ok("vx_l2_mac_addr_filter_config_set", 0, ETH0, {"filter_type": 2})


class Settings(SimTest):
    # Of each: the operations but for _set and _get, its keys, what is set with its flags, and a value that is refused.
    MASKED = (
        ("vx_l2_learn", (0,), {"dsbl_hw_lrn": 1, "stn_mv_act": 1, "loop_det_timer": 500}, "GLBL_RANGE_CHECK_FAIL",
         {"loop_det_act": 2}),
        ("vx_l2_learn_port", (0, ETH0), {"lrn_lmt": 9, "lrn_vid_sel": 3, "enbl_vid_lrn": 1}, "FE_FDB_INVALID_TBL_SZ",
         {"lrn_lmt": 1025}),
        ("vx_l2_learn_port", (0, ETH0), {"dsbl_cpu_pkt_lrn": 1}, "FE_FDB_INVALID_VLAN_LRN_OP", {"lrn_vid_sel": 4}),
        ("vx_l2_learn_port", (0, ETH1), {"lrn_lmt_pkt_act": 1}, "FE_FDB_INVALID_LRN_LMT_PKT_ACT",
         {"lrn_lmt_pkt_act": 2}),
        ("vx_l2_learn_port", (0, ETH1), {"lrn_lmt_lrn_act": 1}, "FE_FDB_INVALID_LRN_LMT_LRN_ACT",
         {"lrn_lmt_lrn_act": -1}),
        ("vx_l2_mtu", (0, ETH0), {"max_pkt_size": 2000, "exclude_tag": 1}, "GLBL_RANGE_CHECK_FAIL",
         {"max_pkt_size": 63}),
        ("vx_l2_port_tpid", (0, ETH0), {"ingr_outer_tpid4": 0x9100, "tpid_deny_filter_bitmap": 5}, None, None),
        ("vx_l2_port_config", (0, ETH0), {"dft_pvid": 4095, "dft_dscp": 63, "egrs_pvid_vlan_op": 1},
         "FE_INVALID_VLAN_ID", {"dft_pvid": 4096}),
        ("vx_l2_port_static_pkt_fwd_config", (0, SNI), {"bc_pkt_dpid": ETH0, "uuc_pkt_dpid": ETH1},
         "PORT_NUM_OUT_OF_RANGE", {"mc_pkt_dpid": 6}),
    )
    # The same without flags.
    PLAIN = (
        ("vx_l2_tpid", (0, ETH0, 0x88A8), {"mode": 2, "admit_outer_tag": 1, "admit_inner_tag": 0}, {"mode": 4}),
        ("vx_l2_port_flood_ctrl", (0, ETH0), {"bcast_drop": 1, "unknown_unicast_drop": 0, "unknown_mcast_drop": 1,
                                              "rsvd": 9}, None),
        ("vx_l2_port_oam_lpbk", (0, ETH0), {"enbl_lpbk": 1, "enbl_da_sa_swap": 1}, None),
        ("vx_l2_port_stp_state", (0, ETH0), 4, 6),
    )

    def test_masked(self):
        for name, key, values, status, bad in self.MASKED:
            with self.subTest(name, key=key):
                before = self.ok(f"{name}_get", *key, {})
                flags = before["valid"]["mask_s"]
                self.assertTrue(all(flags[member] for member in before if member in flags), "a get fills all members")
                self.ok(f"{name}_set", *key, values)
                self.assertEqual(self.ok(f"{name}_get", *key, {}), before, "set without flags")
                self.ok(f"{name}_set", *key, dict(values, valid={"mask_s": dict.fromkeys(values, 1)}))
                after = self.ok(f"{name}_get", *key, {})
                self.assertEqual(after, dict(before, **values))
                if bad:
                    self.refused(status, f"{name}_set", *key,
                                 {**bad, "valid": {"mask_s": dict.fromkeys([*values, *bad], 1)}})
                    self.assertEqual(self.ok(f"{name}_get", *key, {}), after, "a refused set has changed something")

    def test_plain(self):
        for name, key, value, bad in self.PLAIN:
            with self.subTest(name):
                empty = {} if isinstance(value, dict) else 0
                self.ok(f"{name}_set", *key, value)
                self.assertEqual(self.ok(f"{name}_get", *key, empty), value)
                self.assertNotEqual(self.ok(f"{name}_get", 0, ETH1, *key[2:], empty), value, "another port has it too")
                if bad is not None:
                    self.refused("GLBL_RANGE_CHECK_FAIL", f"{name}_set", *key, bad)
                self.refused("PORT_NUM_OUT_OF_RANGE", f"{name}_get", 0, 6, *key[2:], empty)
        self.ok("vx_l2_port_isolation_set", 0, 7)
        self.assertEqual(self.ok("vx_l2_port_isolation_get", 0, 0), 1)
        self.ok("vx_l2_learn_port_enable_set", 0, ETH0, 0)
        self.assertEqual(self.ok("vx_l2_learn_port_get", 0, ETH0, {})["enbl_mac_lrn"], 0)
        self.assertEqual(self.ok("vx_l2_learn_port_enable_get", 0, ETH1, 0), 1)
        self.assertEqual(self.ok("vx_l2_aging_timer_get", 0, 0), 300)


if __name__ == "__main__":
    unittest.main()
