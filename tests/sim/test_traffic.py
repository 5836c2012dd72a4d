"""Traffic: from power-on to counters that move, each with its source, and the same ones for the same seed."""

import unittest

from harness import INVALID_PARAMS, SimTest

SNI, ETH0, ETH1, GEM = 0, 3, 4, 32
UP, DOWN, BOTH = 1, 2, 3


class Base(SimTest):
    clock = 100
    device = {"gpon_cfg": {"auto_register": 1}}

    def eth(self, port=ETH0, clear=0):
        return self.call("vx_eth_port_stats_get", 0, port, {}, clear)[1][2]

    def gem(self, port, clear=0):
        return self.call("vx_gpon_onu_gem_stats_get", 0, SNI, port, {}, clear)[1][3]

    def tcont(self, tcont):
        return self.call("vx_gpon_onu_tcont_stats_get", 0, SNI, tcont, {}, 0)[1][3]["us_pkt_cnt"]

    def bring_up(self):
        self.ok("vx_eth_port_config_set", 0, ETH0, {"admin_status": 1, "valid": {"admin_status": 1}})
        self.ok("vx_gpon_onu_tcont_enable_set", 0, SNI, 1, 1, {"alloc_id": 256})
        for gem, direction in (100, BOTH), (101, DOWN), (102, UP), (103, BOTH):
            self.ok("vx_gpon_onu_gem_port_add", 0, SNI, gem, {"direction": direction, "tcont_id": 1})
        self.ok("vx_gpon_onu_gem_port_loopback_set", 0, SNI, 103, 1)

    def send(self, packet, **cfg):
        self.ok("vx_cpu_packet_tx", 0, len(packet), packet, cfg)


class Running(Base):
    environment = {"LMQ_SIM_TRAFFIC": "7:2000"}

    def test_counters_move(self):
        self.bring_up()
        last = self.eth()["rx_pkts"]
        for _ in range(5):
            stats = self.eth()
            self.assertGreaterEqual(stats["rx_pkts"], last + 150)
            self.assertLessEqual(stats["rx_pkts"], last + 251)
            last = stats["rx_pkts"]
        for way in "rx", "tx":
            sizes = [count for name, count in stats.items() if name.startswith(way) and name.endswith("byte_pkt")]
            casts = [stats[f"{way}_{cast}_pkt"] for cast in ("uc", "mc", "bc")]
            self.assertEqual((sum(sizes), sum(casts)), (stats[f"{way}_pkts"],) * 2)
            self.assertGreater(stats[f"{way}_bytes"], 64 * last)
        self.assertEqual(set(self.eth(ETH1).values()), {0}, "it is down")
        self.assertGreater(self.eth(clear=1)["rx_pkts"], last)
        self.assertLess(self.eth()["rx_pkts"], 300)

        both, down, up, looped = (self.gem(port) for port in (100, 101, 102, 103))
        self.assertTrue(all(both.values()), both)
        self.assertEqual((down["us_pkt_cnt"], up["ds_pkt_cnt"], up["ds_blk_cnt"]), (0, 0, 0))
        self.assertEqual(self.gem(103), looped)
        self.assertGreater(self.tcont(1), both["us_pkt_cnt"])
        frames = [self.ok("vx_gpon_onu_mac_stats_get", 0, SNI, {})["ds_gpon_frm_cnt"] for _ in range(2)]
        self.assertEqual(frames[1] - frames[0], 800, "one in 125 us")
        fec = self.call("vx_gpon_onu_fec_stats_get", 0, SNI, {}, 0)[1][2]
        self.assertEqual(fec["rx_blk_cnt"], fec["no_err_blk_cnt"] + fec["corr_blk_cnt"])
        self.assertGreater(fec["rx_blk_cnt"], 0)
        buffers = self.call("vx_bm_pkt_stats_get", 0, {}, 0)[1][1]
        for counter in "pon_rx_pkt", "pon_tx_pkt", "ge_rx_pkt", "ge_tx_pkt":
            self.assertGreater(buffers[counter], 0, counter)

        # A GEM port that is deleted counts no more, and its T-CONT neither when it was the last.
        for gem in 100, 102, 103:
            self.ok("vx_gpon_onu_gem_port_delete", 0, SNI, gem)
        self.assertEqual(self.tcont(1), self.tcont(1))
        self.assertEqual(set(self.gem(100).values()), {0})

    def test_policers(self):
        self.bring_up()
        policer = self.call("vx_rate_policer_create", 0, {"pol_type": 2, "peak_rate": 100}, 0)[1][2]
        flow = self.call("vx_flow_us_add", 0, ETH0, {"key_type": 3}, {}, 0, 0)[1][5]
        self.ok("vx_rate_flow_id_set", 0, flow, {"flow_pol_sel": 1, "flw_pol_id": policer})
        self.ok("lmq_ctrl_interrupts", 0, 1)
        counters = self.call("vx_rate_policer_stat_get", 0, policer, {}, 0)[1][2]
        self.assertGreater(counters["fwd_pkt"], 100)
        self.assertGreater(counters["pir_drop_pkt"], 0)
        source = self.call("vx_rate_src_port_stat_get", 0, ETH0, {}, 0)[1][2]
        self.assertGreater(source["fwd_pkt"], source["mc_fwd"])
        self.assertEqual(source["pir_drop_pkt"], 0, "it is not limited")


class Same(Base):
    environment = {"LMQ_SIM_TRAFFIC": "5"}

    def test_same_seed(self):
        seen = []
        for _ in range(2):
            self.bring_up()
            seen.append([self.eth(), self.gem(100), self.eth()])
            self.ok("lmq_shutdown_system")
            self.start()
        self.assertEqual(seen[0], seen[1])
        self.assertNotEqual(seen[0][0], seen[0][2])


class Off(Base):
    def test_nothing_moves_but_for_the_cpu(self):
        self.bring_up()
        self.assertEqual([set(self.eth().values()) for _ in range(3)], [{0}] * 3)
        self.send([0xFF] * 6 + [0] * 194, port_type=4, port_num=ETH0)
        stats = self.eth()
        self.assertEqual({name: count for name, count in stats.items() if count},
                         {"tx_bc_pkt": 1, "tx_128_255_byte_pkt": 1, "tx_bytes": 200, "tx_pkts": 1})
        self.send([2] * 64, port_type=GEM, port_num=SNI, sub_pid=102)
        self.assertEqual((self.gem(102)["us_pkt_cnt"], self.tcont(1)), (1, 1))
        self.send([0] * 48, port_type=1, port_num=SNI, is_gpon_omci=1)
        omcc = self.call("vx_gpon_onu_omcc_stats_get", 0, SNI, {}, 0)[1][2]
        self.assertEqual((omcc["us_pkt_cnt"], omcc["ds_pkt_cnt"]), (1, 0))


class Bad(SimTest):
    def start(self):
        pass

    def test_is_told(self):
        for value in "", "x", "1:", "1:0", "1:1000001", "-1", "1:2:3":
            with self.subTest(value):
                self.environment = {"LMQ_SIM_TRAFFIC": value}
                self.doCleanups()
                super().setUp()
                self.refused(INVALID_PARAMS, "lmq_init_system", {"num_dev": 1})
                self.assertIn(f'LMQ_SIM_TRAFFIC is "{value}": expected a seed', self.printed())


if __name__ == "__main__":
    unittest.main()
