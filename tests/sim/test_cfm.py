"""Connectivity fault management: loopback messages, continuity checks, delay measurement and the counters."""

import unittest

from harness import SimTest

OFF, ONCE, REPEAT = 0, 1, 2


class Cfm(SimTest):
    clock = 500

    def ccm(self, **change):
        """Sets the members that are given. Returns the next sequence number."""
        self.ok("vx_1ag_ccm_config_set", 0, {**change, "valid": {"mask_s": dict.fromkeys(change, 1)}})
        return self.ok("vx_1ag_ccm_config_get", 0, {})["seq_num_val"]

    def test_loopback_messages(self):
        self.ok("vx_1ag_lbm_config_set", 0, {"enbl_lbm_proc": 1, "md_level": 7, "lbr_cos": 9,
                                             "valid": {"mask_s": {"enbl_lbm_proc": 1, "md_level": 1}}})
        config = self.ok("vx_1ag_lbm_config_get", 0, {})
        self.assertEqual((config["enbl_lbm_proc"], config["md_level"], config["lbr_cos"]), (1, 7, 0))
        self.assertEqual(config["valid"]["mask"], 0x3F)
        for name, value in ("md_level", 8), ("lbr_cos", 8), ("lbr_tx_gem_port", 4096):
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_1ag_lbm_config_set", 0, {name: value, "valid": {"mask": -1}})
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_1ag_lbm_config_set", 0, {"lbr_tx_port": 6, "valid": {"mask": 8}})

    def test_continuity_checks(self):
        self.refused("GLBL_INVALID_PARAMS", "vx_1ag_ccm_config_set", 0, {"ccm_tx_mode": REPEAT, "valid": {"mask": 1}})
        self.assertEqual(self.ccm(enbl_seq_num=1, seq_num_val=10), 10)
        self.assertEqual(self.ccm(ccm_tx_mode=ONCE), 10, "there is no packet yet")

        self.ok("vx_1ag_ccm_pkt_buf_set", 0, {"port_num": 3, "gem_port_id": 9, "pkt_len": 4, "p_pkt_buff": [1, 2, 3, 4],
                                              "valid": {"mask_s": {"pkt_len": 1, "p_pkt_buff": 1}}})
        packet = self.ok("vx_1ag_ccm_pkt_buf_get", 0, {})
        self.assertEqual(packet["p_pkt_buff"], [1, 2, 3, 4] + [0] * 2044)
        self.assertEqual((packet["port_num"], packet["gem_port_id"], packet["pkt_len"]), (0, 9, 4))
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_1ag_ccm_pkt_buf_set", 0, {"pkt_len": 2049, "valid": {"mask": 4}})

        self.assertEqual(self.ccm(ccm_tx_mode=ONCE), 11)
        self.assertEqual(self.ccm(repeat_timer=250, ccm_tx_mode=REPEAT), 13, "two in the time of a call")
        self.assertEqual(self.ccm(ccm_tx_mode=OFF), 15)
        self.assertEqual(self.ccm(seq_num_offset=2044), 15)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_1ag_ccm_config_set", 0,
                     {"seq_num_offset": 2045, "valid": {"mask": 8}})

    def test_delay_measurement(self):
        def counters(clear=0):
            return list(self.call("vx_1ag_stats_get", 0, {}, clear)[1][1].values())

        self.refused("GLBL_INVALID_PARAMS", "vx_1ag_dm_config_set", 0, 3, {"enbl_rx": 1})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_1ag_dm_config_set", 0, 3, {"rx_op_code": 8})
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_1ag_dm_config_set", 0, 6, {})
        both = {"enbl_rx": 1, "enbl_tx": 1, "rx_op_code": 6}
        self.ok("vx_1ag_dm_config_set", 0, 3, both)
        self.assertEqual(self.ok("vx_1ag_dm_config_get", 0, 3, {}), both)
        self.ok("vx_1ag_dm_config_set", 0, 4, {"enbl_tx": 1})
        # A message each second from both ports, and answers to one of them.
        self.assertEqual([counters() for _ in range(2)], [[0, 1, 1], [0, 2, 3]])
        self.assertEqual([counters(clear=1) for _ in range(3)], [[0, 2, 3], [0, 1, 2], [0, 0, 0]])
        self.ok("vx_1ag_dm_config_set", 0, 4, {})
        self.ok("vx_1ag_dm_config_set", 0, 3, {})
        counters(clear=1)
        self.assertEqual([counters() for _ in range(3)], [[0, 0, 0]] * 3, "something is still sent")


if __name__ == "__main__":
    unittest.main()
