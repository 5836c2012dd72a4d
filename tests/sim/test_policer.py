"""Policers: created up to the limit and one beyond, grouped, bound to flows and deleted; limits, buckets, counters."""

import unittest

from harness import SimTest

ETH0, ETH1 = 3, 4
NOBODY = 0xffffffff - (1 << 32)  # LMQ_INVALID_POL_ID, as an int of the wire
LIMIT = {"pol_type": 1, "peak_rate": 1000, "commited_burst": 64}
OTHER = {"pol_type": 2, "peak_rate": 5, "commited_burst": 6}


class Policer(SimTest):
    def test_tables_to_the_limit_and_beyond(self):
        for api, capacity in ("vx_rate_policer", 64), ("vx_rate_group_policer", 4):
            ids = [self.echo(api + "_create", 0, LIMIT, 0)[2] for _ in range(capacity)]
            self.assertEqual(ids, list(range(capacity)))
            self.refused("TM_POLICER_UNAVAIL", api + "_create", 0, LIMIT, 0)
            self.ok(api + "_set", 0, ids[1], OTHER)
            self.assertEqual([self.echo(api + "_get", 0, i, {})[2] for i in ids[:3]], [LIMIT, OTHER, LIMIT])
            self.refused("GLBL_RANGE_CHECK_FAIL", api + "_set", 0, ids[1], {"pol_type": 3})
            self.ok(api + "_delete", 0, ids[2])
            self.assertEqual(self.echo(api + "_create", 0, LIMIT, 0)[2], ids[2])
            self.refused("TM_INVALID_POLICER_ID", api + "_delete", 0, capacity)

        info = self.echo("lmq_get_flow_policer_info", 0, {})[1]
        self.assertEqual((info["grp_pol_bitmap"], info["flow_pol_bitmap"]), (15, -1))

    def test_groups_and_flows_hold_their_policers(self):
        policers = [self.echo("vx_rate_policer_create", 0, LIMIT, 0)[2] for _ in range(2)]
        groups = [self.echo("vx_rate_group_policer_create", 0, LIMIT, 0)[2] for _ in range(2)]
        add, delete = "vx_rate_policer_group_member_add", "vx_rate_policer_group_member_delete"
        self.ok(add, 0, policers[1], groups[1])
        self.refused("GLBL_ENTRY_EXIST", add, 0, policers[1], groups[1])
        self.refused("GLBL_INVALID_OP", add, 0, policers[1], groups[0])
        self.refused("GLBL_ENTRY_NOT_FOUND", delete, 0, policers[0], groups[1])
        self.refused("TM_INVALID_POLICER_ID", add, 0, policers[0], 3)
        self.refused("DEV_BUSY", "vx_rate_group_policer_delete", 0, groups[1])
        info = self.echo("lmq_get_flow_policer_info", 0, {})[1]
        self.assertEqual((info["grp_pol_mem_bitmap"][1], info["flow_pol_mem_bitmap"][:2]), (2, [0, 2]))
        self.ok(delete, 0, policers[1], groups[1])
        self.ok(add, 0, policers[1], groups[0])
        self.ok(delete, 0, policers[1], groups[0])
        self.ok(add, 0, policers[1], groups[1])

        def status(flow):
            return tuple(self.echo("vx_rate_policer_status_get", 0, flow, {})[2].values())

        flow = self.echo("vx_flow_us_add", 0, ETH0, {"key_type": 3}, {}, 0, 0)[5]
        self.assertEqual(status(flow), (0, NOBODY, NOBODY))
        self.refused("TM_INVALID_POLICER_ID", "vx_rate_flow_id_set", 0, flow, {"flow_pol_sel": 1, "flw_pol_id": 9})
        self.refused("FE_INVALID_FLOW_ID", "vx_rate_flow_id_set", 0, flow + 1, {})
        bind = {"flow_pol_sel": 1, "flw_pol_id": policers[1]}
        self.ok("vx_rate_flow_id_set", 0, flow, bind)
        self.assertEqual(status(flow), (1, policers[1], groups[1]))
        self.refused("DEV_BUSY", "vx_rate_policer_delete", 0, policers[1])

        self.ok("lmq_disable_flow_policing", 0, policers[1])
        self.assertEqual(status(flow), (0, NOBODY, NOBODY))
        self.ok("vx_rate_flow_id_set", 0, flow, bind)
        self.ok("vx_flow_us_delete", 0, flow)
        self.refused("FE_INVALID_FLOW_ID", "vx_rate_policer_status_get", 0, flow, {})
        self.ok("vx_rate_policer_delete", 0, policers[1])
        self.ok("vx_rate_group_policer_delete", 0, groups[1])

    def test_limits_and_buckets_come_back_by_their_keys(self):
        for api, key, another in (("vx_rate_cpu", (), None), ("vx_rate_src_port", (ETH0,), (ETH1,)),
                                  ("vx_rate_storm_control", (ETH0, 2), (ETH0, 1))):
            self.ok(api + "_set", 0, *key, LIMIT)
            self.assertEqual(self.echo(api + "_get", 0, *key, {})[-1], LIMIT)
            if another:
                self.assertEqual(self.echo(api + "_get", 0, *another, {})[-1]["peak_rate"], 0)
            self.refused("GLBL_RANGE_CHECK_FAIL", api + "_set", 0, *key, {"pol_type": -1})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_rate_storm_control_set", 0, ETH0, 3, LIMIT)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_rate_src_port_set", 0, 6, LIMIT)

        bucket = {"rl_mode": 2, "cbs": 3, "rate": 4}
        self.ok("vx_lmq_rate_limit_set", 0, 80, bucket)
        self.assertEqual(self.echo("vx_lmq_rate_limit_get", 0, 80, {})[2], bucket)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_lmq_rate_limit_set", 0, 81, bucket)
        self.ok("vx_lmq_rate_storm_ctrl_mode_set", 0, ETH0, {"mask_s": {"bc": 1, "un_mc": 1}})
        self.assertEqual(self.echo("vx_lmq_rate_storm_ctrl_mode_get", 0, ETH0, {})[2]["mask"], 0b1010)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_lmq_rate_storm_ctrl_mode_set", 0, ETH0, {"mask": 32})
        shaper = {"shp_mode": 1, "cbs": 3, "rate": 4}
        self.ok("vx_lmq_rate_shaper_set", 0, ETH0, shaper)
        self.assertEqual(self.echo("vx_lmq_rate_shaper_get", 0, ETH0, {})[2], shaper)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_lmq_rate_shaper_set", 0, ETH0, {"shp_mode": 3})

        member = "vx_lmq_rate_group_member_"
        self.ok(member + "add", 0, 63, 3)
        self.refused("GLBL_ENTRY_EXIST", member + "add", 0, 63, 3)
        self.ok(member + "add", 0, 5, 3)
        info = self.echo("lmq_get_flow_policer_info", 0, {})[1]
        self.assertEqual((info["grp_pol_mem_bitmap"], info["flow_pol_mem_bitmap"][5], info["flow_pol_mem_bitmap"][63]),
                         ([0, 0, 0, 1 << 5], 8, 8))
        self.refused("FE_INVALID_FLOW_ID", member + "add", 0, 64, 3)
        self.ok(member + "delete", 0, 63, 3)
        self.refused("GLBL_ENTRY_NOT_FOUND", member + "delete", 0, 63, 3)
        self.assertEqual(self.echo("lmq_get_flow_policer_info", 0, {})[1]["flow_pol_mem_bitmap"][63], 0)

    def test_what_has_no_policer_has_no_counters(self):
        capability = self.echo("vx_rate_global_policer_capability_get", 0, {})[1]
        self.assertEqual(capability["num_flow_pol"], 64)
        self.ok("vx_rate_global_policer_set", 0, {"ipg_ovrhd_bytes": 8, "tail_drp_sel": 1})
        self.assertEqual(self.echo("vx_rate_global_policer_get", 0, {})[1], {"ipg_ovrhd_bytes": 8, "tail_drp_sel": 1})
        for policer in "policer", "group_policer":
            self.refused("TM_INVALID_POLICER_ID", f"vx_rate_{policer}_stat_get", 0, 0, {}, 1)
            self.refused("TM_INVALID_POLICER_ID", f"vx_rate_{policer}_stat_clear", 0, 0)
            self.ok(f"vx_rate_{policer}_create", 0, LIMIT, 0)
            self.assertEqual(set(self.echo(f"vx_rate_{policer}_stat_get", 0, 0, {"fwd_pkt": 5}, 1)[2].values()), {0})
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_rate_src_port_stat_get", 0, 6, {}, 0)


if __name__ == "__main__":
    unittest.main()
