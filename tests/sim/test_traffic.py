"""Traffic: from power-on to counters that move, each with its source, and the same ones for the same seed."""

import unittest

from harness import SimTest

SNI, MGMT, ETH0, ETH1 = 0, 2, 3, 4
GPON, ETH, GEM = 1, 4, 32  # types of ports
ARP = 9
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

    def pass_time(self, ms):
        for _ in range(ms // self.clock):
            self.ok("lmq_ctrl_interrupts", 0, 1)

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
        self.refused("GLBL_ENTRY_NOT_FOUND", "vx_gpon_onu_gem_stats_get", 0, SNI, 100, {}, 0)

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
        self.ok("vx_rate_src_port_set", 0, ETH0, {"pol_type": 1})
        self.ok("vx_rate_cpu_set", 0, {"pol_type": 1})
        self.pass_time(3000)
        self.assertGreater(self.echo("vx_rate_src_port_stat_get", 0, ETH0, {}, 0)[2]["pir_drop_pkt"], 0)
        self.assertGreater(self.echo("vx_rate_cpu_stat_get", 0, {}, 0)[1]["pir_drop_pkt"], 0)

        # A group drops of what its members let through.
        group = self.ok("vx_rate_group_policer_create", 0, {"pol_type": 1}, 0)
        self.ok("vx_rate_policer_group_member_add", 0, policer, group)
        self.pass_time(3000)
        shared = self.echo("vx_rate_group_policer_stat_get", 0, group, {}, 0)[2]
        self.assertGreater(shared["fwd_pkt"], 50 * shared["drop_pkt"])
        self.assertGreater(shared["drop_pkt"], 0)

        # A flow that is mapped to a GEM port in loopback is blocked as long as the loopback lasts.
        def policed(clear=0):
            return self.echo("vx_rate_policer_stat_get", 0, policer, {}, clear)[2]["fwd_pkt"]

        for gem, loop, moves in (103, 1, False), (103, 0, True), (100, 1, False), (102, 0, True):
            self.ok("vx_gpon_onu_gem_port_loopback_set", 0, SNI, gem, loop)
            self.ok("vx_flow_us_map", 0, flow, SNI, gem)
            before = policed()
            self.pass_time(300)
            self.assertEqual(policed() > before, moves, gem)

    def test_shapers(self):
        normal, drop_all, forward_all = range(3)
        self.bring_up()
        for mode, rate, least, most in ((normal, 0, 0, 0), (normal, 9, 1, 20), (forward_all, 9, 0, 0),
                                        (drop_all, 0, 500, 1200)):
            self.ok("vx_lmq_rate_shaper_set", 0, ETH0, {"shp_mode": mode, "rate": rate})
            before = self.ok("vx_lmq_rate_shape_stats_get", 0, ETH0, 0)
            self.pass_time(200)
            shaped = self.ok("vx_lmq_rate_shape_stats_get", 0, ETH0, 0) - before
            self.assertTrue(least <= shaped <= most, f"mode {mode}, rate {rate}: {shaped}")

    def test_traps(self):
        def trapped(port_type, port, clear=0):
            return self.echo("lmq_get_cpu_pkt_trap_stats", 0, ARP, port_type, port, 0, clear)[4]

        self.bring_up()
        add = "lmq_add_port_to_cpu_pkt_trap"
        for port_type, port, sub_port in (ETH, ETH0, 0), (ETH, ETH1, 0), (GEM, SNI, 101), (GPON, SNI, 0):
            self.ok(add, 0, ARP, port_type, port, sub_port)
        self.pass_time(300)
        eth, gem, pon = trapped(ETH, ETH0), trapped(GEM, SNI), trapped(GPON, SNI)
        self.assertGreater(eth, 5)
        self.assertEqual(trapped(ETH, ETH1), 0, "it is down")
        self.assertTrue(5 < gem < pon, "one GEM port, and all of them")
        self.assertEqual(self.echo("lmq_get_cpu_pkt_trap_stats", 0, ARP + 3, ETH, ETH0, 0, 0)[4], 0, "another type")

        stop_and_go = (("lmq_disable_cpu_pkt_trap", ARP), ("lmq_enable_cpu_pkt_trap", ARP)), \
            (("lmq_add_pkt_type_filter", ETH0, 1 << ARP), ("lmq_delete_pkt_type_filter", ETH0, 1 << ARP)), \
            (("lmq_delete_port_from_cpu_pkt_trap", ARP, ETH, ETH0, 0), (add, ARP, ETH, ETH0, 0))
        for (stop, *stop_with), (go, *go_with) in stop_and_go:
            self.ok(stop, 0, *stop_with)
            trapped(ETH, ETH0, clear=1)
            self.pass_time(300)
            self.assertEqual(trapped(ETH, ETH0), 0, stop)
            self.ok(go, 0, *go_with)
            self.pass_time(300)
            self.assertGreater(trapped(ETH, ETH0), 5, go)

    def test_management_and_hosts(self):
        self.bring_up()
        self.ok("vx_eth_port_config_set", 0, MGMT, {"admin_status": 1, "valid": {"admin_status": 1}})
        host = self.ok("lmq_create_ip_host_interface", 0, ETH0, {}, 0)
        down = self.ok("lmq_create_ip_host_interface", 0, ETH1, {}, 0)

        def counters(handle):
            status = self.ok("lmq_get_ip_host_interface_status", 0, handle, {})
            return [count for name, count in status.items() if not name.endswith("_status")]

        self.pass_time(300)
        self.assertTrue(all(counters(host)), counters(host))
        self.assertEqual(counters(down), [0] * 4)
        interface = self.ok("lmq_get_local_mgmt_if_stat", 0, {})
        self.assertGreater(min(interface.values()), 200)
        self.assertEqual(interface["rx_byte_cnt"], 64 * interface["rx_pkt_cnt"])
        self.ok("lmq_disable_local_mgmt_if", 0)
        self.ok("lmq_disable_ip_host_interface", 0, host)
        stopped = self.ok("lmq_get_local_mgmt_if_stat", 0, {}), counters(host)
        self.pass_time(300)
        self.assertEqual((self.ok("lmq_get_local_mgmt_if_stat", 0, {}), counters(host)), stopped)

    def test_engines(self):
        def packets(engine):
            stats = self.echo("lmq_get_fe_pkt_stats", 0, engine, {}, 1)[2]
            self.assertEqual(stats["ingr_pkt_cnt"], stats["egrs_pkt_cnt"] + stats["pkt_drop_cnt"])
            return stats["ingr_pkt_cnt"], stats["pkt_drop_cnt"]

        upstream, downstream, cpu = range(3)
        self.assertEqual(packets(downstream), (0, 0), "there is no GEM port")
        self.bring_up()
        self.ok("vx_rate_src_port_set", 0, ETH0, {"pol_type": 1})
        self.pass_time(1000)
        (users, dropped), pon, other = (packets(engine) for engine in (upstream, downstream, cpu))
        self.assertTrue(users > 1000 and pon[0] > 1000 and 0 < dropped < users / 50, (users, dropped, pon))
        self.assertEqual((pon[1], other), (0, (0, 0)))
        self.send([2] * 64, port_type=ETH, port_num=ETH0)
        self.assertEqual(packets(cpu), (1, 0))

    def test_a_module_that_is_reset_loses_what_it_has_come_to(self):
        def reset(module):
            self.ok("lmq_reset_device", 0, {"rst_mode": 2, "mod_id_bit_map": module})

        def state():
            return self.ok("vx_gpon_onu_port_config_get", 0, SNI, {})["onu_state"]

        pon0, serdes, uni, cpu_side, engines, traffic, buffers = 1, 4, 16, 1 << 16, 1 << 17, 1 << 18, 1 << 19
        # What shows it, where in the answer, and how much is there again after the calls in between.
        shows = {uni: (lambda: self.eth()["rx_pkts"]), engines: lambda: self.call(
                     "lmq_get_fe_pkt_stats", 0, 0, {}, 0)[1][2]["ingr_pkt_cnt"],
                 traffic: lambda: self.call("vx_rate_src_port_stat_get", 0, ETH0, {}, 0)[1][2]["fwd_pkt"],
                 buffers: lambda: self.call("vx_bm_pkt_stats_get", 0, {}, 0)[1][1]["ge_rx_pkt"],
                 cpu_side: lambda: self.call("lmq_get_cpu_pkt_trap_stats", 0, ARP, ETH, ETH0, 0, 0)[1][4],
                 pon0: lambda: self.ok("vx_gpon_onu_mac_stats_get", 0, SNI, {})["ds_gpon_frm_cnt"]}
        self.bring_up()
        self.ok("lmq_add_port_to_cpu_pkt_trap", 0, ARP, ETH, ETH0, 0)
        for module, count in shows.items():
            with self.subTest(module):
                self.pass_time(2000)
                others = sum(other for other in shows if other != module)
                reset(others & ~uni)
                kept = count()
                reset(module)
                self.assertTrue(count() < kept / 2 or module == pon0 and count() == 0, kept)
        self.assertLess(state(), 4, "the ONU activates itself again")
        self.pass_time(1000)
        self.assertEqual(state(), 4)
        reset(serdes)
        self.assertLess(state(), 4)
        self.assertEqual(self.ok("vx_gpon_onu_gem_port_info_get", 0, SNI, 100, {})["gem_status"], 1)


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
                self.refused("GLBL_INVALID_PARAMS", "lmq_init_system", {"num_dev": 1})
                self.assertIn(f'LMQ_SIM_TRAFFIC is "{value}": expected a seed', self.printed())


if __name__ == "__main__":
    unittest.main()
