"""The life of flows: added, listed, modified, mapped, policed and deleted, in both directions."""

import unittest

from harness import SimTest

SNI, CPU, MGMT, ETH0, ETH1 = range(5)
MAC_VLAN, EXT_VLAN_DSCP, GEM_CTRL_PKT = 3, 14, 16
PUSH = 1


def key(vid, key_type=MAC_VLAN):
    return {"key_type": key_type, "key_s": {"mac_vlan": {"o_vid": vid}}}


class Base(SimTest):
    def add(self, direction, port, vid, action=None, priority=0):
        return self.echo(f"vx_flow_{direction}_add", 0, port, key(vid), action or {}, priority, 0)[5]

    def listed(self, direction, port, room):
        cfgs, count = self.echo(f"vx_flow_{direction}_all_get", 0, port, room, [{}] * room, 0)[3:]
        self.assertTrue(all(cfg["flow_id"] == 0 for cfg in cfgs[count:]), "a record past the count was written")
        return cfgs[:count]

    def action(self, flow):
        return self.echo("vx_flow_us_get", 0, flow, {}, {})[3]


class Flow(Base):
    def test_life_of_flows(self):
        for direction in "us", "ds":
            flows = [self.add(direction, ETH0, vid, priority=4) for vid in (1, 2, 3)]
            self.add(direction, ETH1, 1)
            self.assertEqual([cfg["flow_id"] for cfg in self.listed(direction, ETH0, 5)], flows)
            first = self.listed(direction, ETH0, 2)
            self.assertEqual([(cfg["flow_id"], cfg["pri"], cfg["key"]["key_s"]["mac_vlan"]["o_vid"], cfg["map_port"])
                              for cfg in first], [(flows[0], 4, 1, 0xffff), (flows[1], 4, 2, 0xffff)])

            self.refused("FE_ACTION_ON_DUP_FLOW_NOT_SUPPORTED", f"vx_flow_{direction}_add", 0, ETH0, key(2), {}, 4, 0)
            self.refused("FE_ACTION_ON_DUP_FLOW_NOT_SUPPORTED", f"vx_flow_{direction}_modify", 0, flows[0], key(2), {})
            self.add(direction, ETH0, 2, priority=5)
            self.ok(f"vx_flow_{direction}_delete", 0, flows[1])
            for api, rest in ("delete", ()), ("get", ({}, {})), ("modify", ({}, {})):
                self.refused("FE_INVALID_FLOW_ID", f"vx_flow_{direction}_{api}", 0, flows[1], *rest)
            self.assertNotIn(self.add(direction, ETH0, 2), flows, "the id of a deleted flow was given out at once")

        self.refused("FE_INVALID_FLOW_ID", "vx_flow_us_delete", 0, self.listed("ds", ETH0, 1)[0]["flow_id"])

    def test_an_action_takes_its_flagged_members(self):
        push = {"vlan_tag_act": PUSH, "vid": 100}
        flow = self.add("us", ETH0, 1, {"o_vlan_act": push, "i_vlan_act": push, "queue_id": 3,
                                        "valid": {"mask_s": {"o_vlan_act": 1, "queue_id": 1}}})
        kept = self.action(flow)
        self.assertEqual((kept["o_vlan_act"]["vid"], kept["i_vlan_act"]["vid"], kept["queue_id"]), (100, 0, 3))
        self.assertEqual(kept["valid"]["mask"], 1 | 1 << 6)

        self.ok("vx_flow_us_modify", 0, flow, {}, {"queue_id": 9, "dsbl_mac_learn": 5, "valid": {"mask": 1 << 7}})
        kept = self.action(flow)
        self.assertEqual((kept["queue_id"], kept["dsbl_mac_learn"], kept["valid"]["mask"]), (3, 1, 1 | 3 << 6))
        self.assertEqual(self.echo("vx_flow_us_get", 0, flow, {}, {})[2]["key_s"]["mac_vlan"]["o_vid"], 1)

        for status, member, value in (("FE_INVALID_VLAN_ACTION", "o_vlan_act", {"vlan_tag_act": 6}),
                                      ("FE_INVALID_TPID_ACTION", "i_vlan_act", {"tpid_act": -1}),
                                      ("FE_INVALID_PBIT_ACTION", "o_dot1p_act", {"pbit_act": 7}),
                                      ("FE_INVALID_VLAN_ID", "i_vlan_act", {"vid": 4096}),
                                      ("GLBL_RANGE_CHECK_FAIL", "dscp_act", {"dscp_val": 64}),
                                      ("GLBL_RANGE_CHECK_FAIL", "cos_act", {"cos_act": 5}),
                                      ("GLBL_RANGE_CHECK_FAIL", "egrs_vlan_chk_sel", 3),
                                      ("TM_INVALID_QUEUE_ID", "queue_id", 32)):
            bad = {member: value}
            self.ok("vx_flow_us_modify", 0, flow, {}, bad)
            self.refused(status, "vx_flow_us_modify", 0, flow, {}, {**bad, "valid": {"mask_s": {member: 1}}})
        self.assertEqual(self.action(flow), kept)

    def test_each_flag_takes_its_members_alone(self):
        vlan, dot1p = {"vlan_tag_act": PUSH, "vid": 9, "pbit": 3}, {"pbit_act": 1, "pbit": 5}
        given = {"o_vlan_act": vlan, "i_vlan_act": vlan, "o_dot1p_act": dot1p, "i_dot1p_act": dot1p,
                 "cos_act": {"cos_act": 1, "cos_val": 2}, "dscp_act": {"dscp_act": 1, "dscp_val": 3}, "queue_id": 4,
                 "dsbl_mac_learn": 1, "lrn_limit_act": 1, "egrs_vlan_chk_sel": 2,
                 "enbl_pkt_mirror": 1, "mirror_port": ETH1, "mirror_mode": 1}
        together = {"dsbl_mac_learn": ["lrn_limit_act"], "enbl_pkt_mirror": ["mirror_port", "mirror_mode"]}
        untouched = self.action(self.add("us", ETH0, 1))
        for number, flag in enumerate(name for name in given if name not in sum(together.values(), [])):
            kept = self.action(self.add("us", ETH0, number + 2, {**given, "valid": {"mask_s": {flag: 1}}}))
            taken = [name for name in given if kept[name] != untouched[name]]
            self.assertEqual(taken, [flag, *together.get(flag, [])])

    def test_mapping_overrides_a_fixed_queue(self):
        for gem, queue in (20, 3), (21, 5):
            self.ok("vx_gpon_onu_gem_us_queue_map_set", 0, 0, gem, {"pri_q_id": queue})
        flow = self.add("us", ETH0, 1, {"queue_id": 3, "valid": {"mask_s": {"queue_id": 1}}})
        for gem, queue, fixed in (20, 3, 1), (21, 5, 1), (22, 0, 0):
            self.ok("vx_flow_us_map", 0, flow, SNI, gem)
            kept = self.action(flow)
            self.assertEqual((kept["queue_id"], kept["valid"]["mask_s"]["queue_id"]), (queue, fixed))
        cfg = self.listed("us", ETH0, 1)[0]
        self.assertEqual((cfg["map_port"], cfg["map_sub_port"]), (SNI, 22))

        self.refused("GPON_INVALID_GEM_PORT", "vx_flow_us_map", 0, flow, SNI, 4096)
        self.refused("PORT_TYPE_MISMATCH", "vx_flow_us_map", 0, flow, ETH0, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_flow_us_map", 0, flow, 6, 0)
        down = self.add("ds", SNI, 1)
        self.ok("vx_flow_ds_map", 0, down, ETH1)
        self.assertEqual(self.listed("ds", SNI, 1)[0]["map_port"], ETH1)

    def test_bounds(self):
        self.refused("FE_CLS_INVALID_PRIORITY", "vx_flow_us_add", 0, ETH0, key(1), {}, 12, 0)
        self.refused("FE_CLS_INVALID_KEY_TYPE", "vx_flow_us_add", 0, ETH0, {}, {}, 0, 0)
        self.refused("FE_CLS_INVALID_KEY_TYPE", "vx_flow_us_add", 0, ETH0, key(1, GEM_CTRL_PKT), {}, 0, 0)
        self.refused("FE_CLS_INVALID_KEY_TYPE", "vx_flow_ds_add", 0, SNI, key(1, EXT_VLAN_DSCP), {}, 0, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_flow_us_add", 0, 6, key(1), {}, 0, 0)
        self.refused("DEV_NULL_PTR", "vx_flow_us_all_get", 0, ETH0, 1, [], 0)
        self.refused("DEV_NULL_PTR", "vx_flow_us_all_get", 0, ETH0, 1, [{}], [])
        self.refused("DEV_ID_INVALID", "vx_flow_us_delete", 1, 1)

        flows = [self.add("us", ETH0, vid, priority=0xff) for vid in range(64)]
        self.refused("FE_CLS_ENTRY_UNAVAIL", "vx_flow_us_add", 0, ETH0, key(64), {}, 0, 0)
        self.assertEqual([cfg["flow_id"] for cfg in self.listed("us", ETH0, 70)], flows)
        self.ok("vx_flow_us_delete", 0, flows[9])
        self.add("us", ETH0, 64)


class Epon(Base):
    device = {"dev_mode": 1}

    def test_mapping_overrides_a_fixed_queue(self):
        flow = self.add("us", ETH0, 1, {"queue_id": 2, "valid": {"mask_s": {"queue_id": 1}}})
        free = self.add("us", ETH0, 2)
        for llid, queue in (0, 2), (7, 28), (1, 4), (1, 4):
            self.ok("vx_flow_us_map", 0, flow, SNI, llid)
            kept = self.action(flow)
            self.assertEqual((kept["queue_id"], kept["valid"]["mask_s"]["queue_id"]), (queue, 1))
            self.ok("vx_flow_us_map", 0, free, SNI, llid)
            self.assertEqual(self.action(free)["valid"]["mask_s"]["queue_id"], 0)
        self.assertEqual(self.listed("us", ETH0, 1)[0]["map_sub_port"], 1)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_flow_us_map", 0, flow, SNI, 8)
        self.ok("vx_flow_us_map", 0, flow, CPU, 8)


if __name__ == "__main__":
    unittest.main()
