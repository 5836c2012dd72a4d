"""GPON traffic management: schedulers, queue maps, traffic descriptors with the limits that use them, and counters."""

import unittest

from harness import INTERFACE, SimTest

SNI, CPU, ETH0 = 0, 1, 3
NO_QUEUE = 0xffff
# The functions of the family, by the names that others do not have.
HERE = {name for name in INTERFACE.functions
        if name.startswith("vx_gpon_onu_") and any(part in name for part in (
            "_tm_info", "_sched", "_queue_map", "_traffic_desc", "_rate_limit", "_stats_", "_queue_status"))
        or name.endswith("_gpon_ploam_stats")}


class GponTm(SimTest):
    clock = 100  # as long as the ONU stays in a state on its way

    def queues(self, tcont):
        return self.echo("vx_gpon_onu_tcont_queue_status_get", 0, SNI, {})[2]["que_bitmap"][tcont]

    def tconts(self, room=8):
        infos, count = self.echo("vx_gpon_onu_tcont_tm_info_get", 0, room, [{}] * room, 0)[2:]
        return [tuple(info.values()) for info in infos[:count]]

    def test_queues_go_from_gem_ports_to_tconts(self):
        info = self.echo("vx_gpon_onu_tm_info_get", 0, {})[1]
        self.assertEqual((info["num_tcont"], info["num_us_pri_q"], info["num_ds_pri_q"]), (8, 32, 16))
        self.assertEqual(self.tconts(), [(0, 1)])
        scheduler = {"sched_mode": 2, "num_sp_queues": 4}
        self.ok("vx_gpon_onu_tcont_sched_set", 0, 0, 2, scheduler)
        self.assertEqual(self.ok("vx_gpon_onu_tcont_sched_get", 0, 0, 2, {}), scheduler)
        self.assertEqual((self.tconts(), self.tconts(1)), ([(0, 1), (2, 0)], [(0, 1)]))
        for bad in {"sched_mode": 3}, {"num_sp_queues": 9}:
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpon_onu_tcont_sched_set", 0, 0, 2, bad)

        def to_tcont(tcont):
            return {"map_id": {"tcont_id": {"pon_id": 0, "tcont_id": tcont}}}

        set_map, get_map = "vx_gpon_onu_tcont_queue_map_set", "vx_gpon_onu_tcont_queue_map_get"
        self.assertEqual(self.queues(2), 0xf00)
        for queue in range(4):
            self.ok(set_map, 0, queue, to_tcont(2))
        self.assertEqual((self.queues(0), self.queues(2)), (0, 0xf0f))
        self.refused("TM_QUEUE_UNAVAIL", set_map, 0, 4, to_tcont(2))
        self.ok(set_map, 0, 3, to_tcont(2))
        self.ok(set_map, 0, 3, {"map_id": {"uni_port": ETH0}})
        self.assertEqual(self.echo(get_map, 0, 3, {})[2]["map_id"]["uni_port"], ETH0)
        self.assertEqual(self.queues(2), 0xf07)
        self.refused("GPON_INVALID_TCONT", set_map, 0, 3, to_tcont(8))
        self.refused("PORT_NUM_OUT_OF_RANGE", set_map, 0, 3, {"map_id": {"uni_port": 6}})
        self.refused("GPON_INVALID_Q_NUMBER", get_map, 0, 32, {})

        for direction, last in ("us", 31), ("ds", 15):
            set_map, get_map = (f"vx_gpon_onu_gem_{direction}_queue_map_{verb}" for verb in ("set", "get"))
            self.refused("GPON_GEM_NOT_MAPPED_TO_PRIQ", get_map, 0, 0, 100, {})
            for gem, queue in (100, 1), (4095, last):
                self.ok(set_map, 0, 0, gem, {"pri_q_id": queue})
            self.assertEqual(self.echo(get_map, 0, 0, 4095, {})[3], {"pri_q_id": last})
            self.refused("GPON_INVALID_Q_NUMBER", set_map, 0, 0, 100, {"pri_q_id": last + 1})
            self.refused("GPON_INVALID_GEM_PORT", set_map, 0, 0, 4096, {"pri_q_id": 1})
            self.refused("PORT_TYPE_MISMATCH", set_map, 0, CPU, 100, {"pri_q_id": 1})

        def active(queue):
            return self.echo("vx_gpon_onu_us_queue_status_get", 0, 0, queue, 0)[3]

        self.assertEqual((active(1), active(2)), (1, 0))
        self.ok("vx_gpon_onu_gem_us_queue_map_set", 0, 0, 100, {"pri_q_id": NO_QUEUE})
        self.assertEqual(active(1), 0)

    def test_traffic_descriptors_and_the_limits_that_use_them(self):
        td = "vx_gpon_onu_gem_traffic_desc_"
        rates = {"pol_mode": 4, "cir_rate": 10, "pir_rate": 20, "commit_burst": 3, "peak_burst": 4}
        for td_id in range(100, 164):
            self.ok(td + "create", 0, td_id, rates)
        self.refused("TM_PROFILE_UNAVAIL", td + "create", 0, 1, rates)
        self.refused("GLBL_ENTRY_EXIST", td + "create", 0, 100, rates)
        self.refused("GLBL_RANGE_CHECK_FAIL", td + "set", 0, 100, {"pol_mode": 3})
        self.refused("TM_PIR_CIR_CHECK_FAIL", td + "set", 0, 100, {**rates, "pir_rate": 9})
        self.ok(td + "set", 0, 100, {**rates, "pir_rate": 30})
        self.assertEqual(self.echo(td + "get", 0, 100, {})[2], {**rates, "pir_rate": 30})
        self.assertEqual(self.echo(td + "get", 0, 101, {})[2], rates)

        limit = {"enbl_us_rate_limit": 1, "us_gem_td_id": 100, "enbl_ds_rate_limit": 0, "ds_gem_td_id": 7}
        self.ok("vx_gpon_onu_gem_rate_limit_set", 0, 0, 200, limit)
        self.assertEqual(self.echo("vx_gpon_onu_gem_rate_limit_get", 0, 0, 200, {})[3], limit)
        self.ok("vx_gpon_onu_gem_rate_limit_set", 0, 0, 200, {**limit, "enbl_us_rate_limit": 2})
        self.assertEqual(self.echo("vx_gpon_onu_gem_rate_limit_get", 0, 0, 200, {})[3], limit)
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_gpon_onu_gem_rate_limit_set", 0, 0, 200,
                     {**limit, "enbl_ds_rate_limit": 1})
        self.refused("DEV_BUSY", td + "delete", 0, 100)
        self.ok("vx_gpon_onu_gem_rate_limit_set", 0, 0, 200, {})
        self.ok(td + "delete", 0, 100)
        for call, rest in ("delete", ()), ("get", ({},)), ("set", (rates,)):
            self.refused("GLBL_ENTRY_NOT_FOUND", td + call, 0, 100, *rest)
        self.ok(td + "create", 0, 1, rates)

    def test_a_gem_port_that_is_deleted_is_detached(self):
        gem, descriptor, bridge = 100, 5, 7
        self.ok("vx_gpon_onu_gem_port_add", 0, 0, gem, {"direction": 2})
        for way in "us", "ds":
            self.ok(f"vx_gpon_onu_gem_{way}_queue_map_set", 0, 0, gem, {"pri_q_id": 3})
        self.ok("vx_gpon_onu_gem_traffic_desc_create", 0, descriptor, {})
        limit = {"enbl_ds_rate_limit": 1, "ds_gem_td_id": descriptor}
        self.ok("vx_gpon_onu_gem_rate_limit_set", 0, 0, gem, limit)
        self.ok("lmq_create_bridge", 0, bridge, {"brg_type": 1, "valid": {"mask_s": {"brg_type": 1}}})
        self.ok("vx_gpon_onu_gem_port_add_to_bridge", 0, 0, gem, bridge)

        self.ok("vx_gpon_onu_gem_port_delete", 0, 0, gem)
        for way in "us", "ds":
            self.refused("GPON_GEM_NOT_MAPPED_TO_PRIQ", f"vx_gpon_onu_gem_{way}_queue_map_get", 0, 0, gem, {})
        self.assertEqual(self.echo("vx_gpon_onu_gem_rate_limit_get", 0, 0, gem, {})[3]["enbl_ds_rate_limit"], 0)
        self.ok("vx_gpon_onu_gem_traffic_desc_delete", 0, descriptor)
        self.ok("vx_gpon_onu_gem_port_add_to_bridge", 0, 0, gem, bridge)

    def test_counters_belong_to_what_is_there(self):
        tcont, gem = 7, 4095
        for status, block, key in (("GPON_TCONT_NOT_ENABLED", "tcont", tcont), ("GLBL_ENTRY_NOT_FOUND", "gem", gem)):
            self.refused(status, f"vx_gpon_onu_{block}_stats_get", 0, SNI, key, {}, 0)
            self.refused(status, f"vx_gpon_onu_{block}_stats_clear", 0, SNI, key)
        self.ok("vx_gpon_onu_tcont_stats_get", 0, SNI, 0, {}, 0)
        self.ok("vx_gpon_onu_tcont_enable_set", 0, SNI, tcont, 1, {"alloc_id": 256})
        self.ok("vx_gpon_onu_gem_port_add", 0, SNI, gem, {"direction": 2})
        for block in "mac", "fec", "ploam", "omcc", "tcont", "gem":
            key = {"tcont": [tcont], "gem": [gem]}.get(block, [])
            clear = [] if block == "mac" else [1]
            with self.subTest(block):
                self.ok(f"vx_gpon_onu_{block}_stats_get", 0, SNI, *key, {}, *clear)
                for status, port in ("PORT_TYPE_MISMATCH", ETH0), ("PORT_NUM_OUT_OF_RANGE", 6):
                    self.refused(status, f"vx_gpon_onu_{block}_stats_get", 0, port, *key, {}, *clear)
                    self.refused(status, f"vx_gpon_onu_{block}_stats_clear", 0, port, *key)
                self.refused("DEV_NULL_PTR", f"vx_gpon_onu_{block}_stats_get", 0, SNI, *key, [], *clear)
        self.refused("GPON_INVALID_TCONT", "vx_gpon_onu_tcont_stats_clear", 0, SNI, 8)
        self.refused("GPON_INVALID_GEM_PORT", "vx_gpon_onu_gem_stats_clear", 0, SNI, 4096)

    def test_messages_are_counted_by_type(self):
        def counted():
            self.ok("vx_gpon_onu_port_enable_set", 0, SNI, 1)
            for _ in range(4):
                self.ok("vx_gpon_onu_port_config_get", 0, SNI, {})
            self.ok("vx_gpon_onu_ploam_us_set", 0, SNI, [1, 9] + [0] * 11, 13)
            self.ok("vx_gpon_onu_port_enable_set", 0, SNI, 0)
            stats = self.echo("vx_gpon_onu_ploam_stats_get", 0, SNI, {}, 0)[2]
            return [{n: count for n, count in enumerate(stats[key]) if count}
                    for key in ("rx_ploamd_cnt", "tx_ploamu_cnt")]

        # Upstream_Overhead, Assign_ONU-ID and Ranging_Time come on the way to operation.
        enable, disable = (f"lmq_{switch}_gpon_ploam_stats" for switch in ("enable", "disable"))
        self.assertEqual(counted(), [{}, {}])
        self.ok(enable, 0, SNI, 0, 2, [1, 4, 3])
        self.assertEqual(counted(), [{1: 1, 4: 1}, {}])
        self.ok(enable, 0, SNI, 1, 0, [])
        self.assertEqual(counted(), [{1: 2, 3: 1, 4: 2}, {9: 1}])
        self.ok(disable, 0, SNI, 0, 2, [1, 9])
        self.assertEqual(counted(), [{3: 2, 4: 3}, {}])
        self.ok(disable, 0, SNI, 1, 0, [])
        self.assertEqual(counted(), [{}, {}])
        for switch in enable, disable:
            self.refused("DEV_NULL_PTR", switch, 0, SNI, 0, 2, [])
            self.refused("PORT_TYPE_MISMATCH", switch, 0, ETH0, 1, 0, [])


class Epon(SimTest):
    device = {"dev_mode": 1}

    def test_has_no_pon(self):
        signatures = {name: function for name, function in INTERFACE.functions.items() if name in HERE}
        self.assertEqual(len(signatures), 32)
        for name, function in signatures.items():
            arguments = [[{}] if argument.pointer and argument.type in INTERFACE.records else 0
                         for argument in function.arguments]
            self.refused("PORT_TYPE_MISMATCH", name, *arguments)


if __name__ == "__main__":
    unittest.main()
