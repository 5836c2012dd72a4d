"""Packets to and from the CPU: traps, special packets, switches and filters of a port, and sending."""

import unittest

from harness import SimTest

SNI, CPU, MGMT, ETH0 = 0, 1, 2, 3
GPON, ETH, GEM = 1, 4, 32
ARP, DHCP, GAP, BROADCAST, TYPE_MAX = 9, 12, 10, 20, 26


class CpuPackets(SimTest):
    def test_life_of_a_trap(self):
        for function in ("lmq_disable_cpu_pkt_trap", "lmq_enable_cpu_pkt_trap"):
            self.ok(function, 0, ARP)
            self.refused("GLBL_ENTRY_NOT_FOUND", function, 0, GAP)
        add, delete = "lmq_add_port_to_cpu_pkt_trap", "lmq_delete_port_from_cpu_pkt_trap"
        self.ok(add, 0, ARP, ETH, ETH0, 0)
        self.refused("PORT_EXIST", add, 0, ARP, ETH, ETH0, 0)
        self.refused("PORT_TYPE_MISMATCH", add, 0, ARP, ETH, SNI, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", add, 0, ARP, ETH, 6, 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", add, 0, ARP, GPON + ETH, ETH0, 0)
        self.ok(add, 0, ARP, GEM, SNI, 17)
        self.refused("PORT_NOT_FOUND", delete, 0, ARP, GEM, SNI, 18)
        self.ok(delete, 0, ARP, GEM, SNI, 17)

        self.assertEqual(self.call("lmq_get_cpu_pkt_trap_stats", 0, ARP, ETH, ETH0, 5, 1),
                         (0, [0, ARP, ETH, ETH0, 0, 1]))
        self.ok("lmq_deregister_cpu_pkt_trap", 0, ARP)
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_deregister_cpu_pkt_trap", 0, ARP)
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_enable_cpu_pkt_trap", 0, ARP)
        self.refused("FE_CPU_PKT_TRAP_NOT_ACTIVE", "lmq_get_cpu_pkt_trap_stats", 0, ARP, ETH, ETH0, 0, 0)

    def test_special_packets(self):
        def kept(port=ETH0):
            return self.ok("vx_l2_spcl_pkt_cfg_get", 0, port, ARP, {})

        first = kept()
        self.assertEqual((first["permit"], first["valid"]["mask"]), (1, 0x1FF))
        change = {"pri": 5, "permit": 0, "cos": 9, "flow_enbl": 3, "flow_id": 8, "mirror_before_pe": 1,
                  "valid": {"mask_s": {"pri": 1, "flow_enbl": 1}}}
        self.ok("vx_l2_spcl_pkt_cfg_set", 0, ETH0, ARP, change)
        self.assertEqual(kept(), dict(first, pri=5, flow_enbl=1, flow_id=8))
        self.assertEqual(kept(SNI), first)
        wrong_cos = dict(change, pri=6, valid={"mask": 0x21})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_l2_spcl_pkt_cfg_set", 0, ETH0, ARP, wrong_cos)
        self.assertEqual(kept()["pri"], 5)
        forward = {"fwd_op": {"fwd_enbl": 1, "dpid": 6}, "valid": {"mask": 4}}
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_l2_spcl_pkt_cfg_set", 0, ETH0, ARP, forward)
        for packet in (GAP, BROADCAST, -1):
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_l2_spcl_pkt_cfg_get", 0, ETH0, packet, {})

        self.ok("vx_l2_spcl_pkt_behavior_set", 0, ETH0, 1, BROADCAST, 2)
        self.assertEqual(self.ok("vx_l2_spcl_pkt_behavior_get", 0, ETH0, 1, BROADCAST, 9), 2)
        self.assertEqual(self.ok("vx_l2_spcl_pkt_behavior_get", 0, ETH0, 2, BROADCAST, 9), 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_l2_spcl_pkt_behavior_set", 0, ETH0, 1, ARP, 3)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_l2_spcl_pkt_behavior_set", 0, ETH0, 1, TYPE_MAX, 0)

    def test_switches_and_filters_of_a_port(self):
        for name in ("vx_l2_traffic_block", "vx_l2_pppoe_filter"):
            self.ok(f"{name}_set", 0, ETH0, 1)
            self.assertEqual([self.ok(f"{name}_get", 0, port, [7]) for port in (SNI, ETH0)], [[0], [1]])
            self.refused("PORT_NUM_OUT_OF_RANGE", f"{name}_set", 0, 6, 1)

        def filtered():
            return self.ok("lmq_get_pkt_type_filter", 0, ETH0, 0)

        self.ok("lmq_add_pkt_type_filter", 0, ETH0, 1 << ARP)
        self.ok("lmq_add_pkt_type_filter", 0, ETH0, 1 << DHCP | 1)
        self.assertEqual(filtered(), 1 << ARP | 1 << DHCP | 1, "the types add up")
        self.ok("lmq_delete_pkt_type_filter", 0, ETH0, 1 << ARP | 2)
        self.assertEqual(filtered(), 1 << DHCP | 1)
        self.refused("GLBL_ENTRY_NOT_FOUND", "lmq_delete_pkt_type_filter", 0, ETH0, 1 << ARP)
        self.refused("GLBL_INVALID_PARAMS", "lmq_add_pkt_type_filter", 0, ETH0, 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_add_pkt_type_filter", 0, ETH0, 1 << GAP)
        self.refused("PORT_TYPE_MISMATCH", "lmq_add_pkt_type_filter", 0, CPU, 1)

    def test_sending(self):
        frame, to = [0xFF] * 2001, {"port_type": ETH, "port_num": MGMT}
        self.ok("vx_cpu_packet_tx", 0, 60, frame, to)
        self.ok("vx_cpu_packet_tx", 0, 2000, frame, to)
        counted = self.ok("lmq_get_local_mgmt_if_stat", 0, {})
        self.assertEqual((counted["tx_pkt_cnt"], counted["tx_byte_cnt"], counted["rx_pkt_cnt"]), (2, 2060, 0))
        self.ok("lmq_clear_local_mgmt_if_stat", 0)
        self.assertEqual(set(self.ok("lmq_get_local_mgmt_if_stat", 0, {}).values()), {0})
        self.ok("lmq_disable_local_mgmt_if", 0)
        self.refused("PORT_INVALID_OP", "vx_cpu_packet_tx", 0, 60, frame, to)
        self.ok("lmq_enable_local_mgmt_if", 0)
        self.ok("vx_cpu_packet_tx", 0, 60, frame, to)

        for length, config, status in ((13, to, "GLBL_RANGE_CHECK_FAIL"), (2001, to, "GLBL_RANGE_CHECK_FAIL"),
                                       (60, dict(to, pkt_priority=8), "GLBL_RANGE_CHECK_FAIL"),
                                       (60, dict(to, port_num=CPU), "PORT_TYPE_MISMATCH"),
                                       (48, dict(to, is_gpon_omci=1), "PORT_TYPE_MISMATCH")):
            self.refused(status, "vx_cpu_packet_tx", 0, length, frame, config)
        # An Ethernet port counts what it sends by whom it is for.
        for first, counter in (([0xFF] * 6, "tx_bc_pkt"), ([1, 0, 0x5E, 0, 0, 1], "tx_mc_pkt"), ([2, 1, 1, 1, 1, 1], "tx_uc_pkt")):
            self.ok("vx_cpu_packet_tx", 0, 60, first + frame[6:], {"port_type": ETH, "port_num": ETH0})
            stats = self.call("vx_eth_port_stats_get", 0, ETH0, {}, 1)[1][2]
            self.assertEqual([name for name in ("tx_bc_pkt", "tx_mc_pkt", "tx_uc_pkt") if stats[name]], [counter])

        self.ok("vx_cpu_packet_tx", 0, 8, frame, {"port_type": GPON, "is_gpon_omci": 1})
        self.assertEqual(self.proxy.__getattr__("lmq.lmq_pkt_free_fnc")([]), [1, None])


if __name__ == "__main__":
    unittest.main()
