"""Class of service: maps that take the arrays of their mask, queues, schedulers and shapers."""

import unittest

from harness import SimTest

SNI, ETH0, ETH1 = 0, 3, 4


class ClassOfService(SimTest):
    def test_maps_take_the_arrays_of_their_mask(self):
        # Of each map: two arrays with their bits, and a value that the first of them refuses.
        for kind, size, first, second in (("dot1p", 8, ("dot1p_to_dscp", 2, 64), ("dot1p_to_policer", 16)),
                                          ("dscp", 64, ("dscp_to_cos", 4, 8), ("dscp_to_policer", 8)),
                                          ("tc", 64, ("tc_to_dot1p", 1, 8), ("tc_to_policer", 8))):
            with self.subTest(kind):
                setter, getter = f"vx_cosq_{kind}_map_set", f"vx_cosq_{kind}_map_get"
                before = self.echo(getter, 0, ETH0, {})[2]
                self.assertEqual(before["mask"], 0x1f)
                self.assertEqual(before[second[0]], [255] * size)
                given = {first[0]: [5] * size, second[0]: list(range(size)), "mask": second[1]}
                self.ok(setter, 0, ETH0, given)
                after = self.echo(getter, 0, ETH0, {})[2]
                self.assertEqual(after, {**before, second[0]: list(range(size))})
                self.assertEqual(self.echo(getter, 0, ETH1, {})[2], before, "another port has changed")

                given["mask"] |= first[1]
                given[first[0]][size - 1] = first[2]
                self.refused("GLBL_RANGE_CHECK_FAIL", setter, 0, ETH0, given)
                self.refused("GLBL_RANGE_CHECK_FAIL", setter, 0, ETH0, {"mask": 32})
                self.assertEqual(self.echo(getter, 0, ETH0, {})[2], after)

        gems = [{"dscp_to_gemid": n, "dscp_to_gemid_valid": 7} for n in range(64)]
        self.ok("vx_cosq_dscp_map_set", 0, ETH0, {"mask": 16, "dscp_to_gemid": gems})
        self.assertEqual(self.echo("vx_cosq_dscp_map_get", 0, ETH0, {})[2]["dscp_to_gemid"][63],
                         {"dscp_to_gemid": 63, "dscp_to_gemid_valid": 1})
        self.ok("vx_cosq_cos_map_set", 0, ETH0, {"cos_to_policer": [3] * 8})
        self.assertEqual(self.echo("vx_cosq_cos_map_get", 0, ETH0, {})[2], {"cos_to_policer": [3] * 8})
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_cosq_cos_map_get", 0, 6, {})

    def test_queues_and_schedulers(self):
        self.ok("vx_cosq_queue_set", 0, ETH0, 2, {"weight": 7, "max_buff_size": 9, "back_press_set_thresh": 80,
                                                  "valid": {"mask_s": {"weight": 1, "back_press_set_thresh": 1}}})
        queue = self.echo("vx_cosq_queue_get", 0, ETH0, 2, {})[3]
        self.assertEqual((queue["weight"], queue["max_buff_size"], queue["back_press_set_thresh"]), (7, 256, 80))
        self.assertEqual(queue["valid"]["mask"], 0x3f)
        self.assertEqual(self.echo("vx_cosq_queue_get", 0, ETH1, 2, {})[3]["weight"], 1)
        status = self.echo("vx_bm_queue_status_get", 0, ETH0, {})[2]
        self.assertEqual([(q["dwrr_ratio"], q["buf_limit"]) for q in status["bm_que_status"][1:3]],
                         [(1, 256), (7, 256)])
        self.assertEqual((status["valid_que_bitmap"], status["ebm_que_status"][2]["dwrr_ratio"]), (0xff, 0))

        self.ok("vx_cosq_queue_get", 0, SNI, 31, {})
        for port, last in (SNI, 31), (ETH0, 7):
            self.refused("TM_INVALID_QUEUE_ID", "vx_cosq_queue_set", 0, port, last + 1, {})
        self.ok("vx_cosq_sched_set", 0, ETH0, {"sched_mode": 2, "num_sp_queues": 8})
        self.assertEqual(self.echo("vx_cosq_sched_get", 0, ETH0, {})[2], {"sched_mode": 2, "num_sp_queues": 8})
        for bad in {"sched_mode": 3}, {"num_sp_queues": 9}:
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_cosq_sched_set", 0, ETH0, bad)

    def test_queues_in_external_memory_are_told_in_bytes(self):
        self.ok("lmq_shutdown_system")
        self.device = {"pkt_mem_mode": 1}
        self.start()
        for size, set_at, size_told, set_at_told in (100, 80, 4800, 3840), (1 << 30, 0, -1, 0):
            self.ok("vx_cosq_queue_set", 0, ETH0, 2, {"max_buff_size": size, "back_press_set_thresh": set_at,
                                                      "back_press_clr_thresh": 10, "valid": {"mask": 0x3f}})
            queue = self.echo("vx_bm_queue_status_get", 0, ETH0, {})[2]["ebm_que_status"][2]
            self.assertEqual((queue["que_size"], queue["high_thresh"], queue["low_thresh"]),
                             (size_told, set_at_told, 480))

    def test_shapers(self):
        rate = {"shaping_rate": 1000, "cbs": 64}
        self.ok("vx_cosq_ds_shaping_set", 0, ETH0, 5, rate)
        self.ok("vx_cosq_mirror_pkt_shaping_set", 0, 1, rate)
        self.assertEqual(self.echo("vx_cosq_ds_shaping_get", 0, ETH0, 0, {})[2:], [1, rate])
        self.assertEqual(self.echo("vx_cosq_ds_shaping_get", 0, ETH1, 0, {})[2:], [0, {"shaping_rate": 0, "cbs": 0}])
        self.assertEqual(self.echo("vx_cosq_mirror_pkt_shaping_get", 0, 0, {})[1:], [1, rate])
        self.refused("DEV_NULL_PTR", "vx_cosq_ds_shaping_get", 0, ETH0, [], {})
        self.refused("DEV_NULL_PTR", "vx_cosq_mirror_pkt_shaping_set", 0, 0, [])

        for overhead in {"ipg_ovrhd_bytes": 20}, {"ipg_ovrhd_bytes": 24}:
            self.assertEqual(self.echo("lmq_get_global_egress_shaper_config", 0, {})[1], overhead)
            self.ok("lmq_set_global_egress_shaper_config", 0, {"ipg_ovrhd_bytes": 24})


if __name__ == "__main__":
    unittest.main()
