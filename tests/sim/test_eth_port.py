"""The life of an Ethernet port: brought up, its mode and link, loopback, PHY registers, EEE, flow control, counters."""

import unittest

from harness import SimTest

SNI, CPU, MGMT, ETH0, ETH1, VOIP = range(6)
RGMII, GIGE = 3, 7
DOWN = {"link_status": 0, "speed": 255, "duplex": 255}
INVALID_THRESHOLD = 0xFF


class Port(SimTest):
    device = {"eth_port_cfg": [{"add_port": 1, "admin_status": 1, "phy_type": RGMII}, {"add_port": 1}],
              "dev_mac_addr": [2, 0, 0, 0, 0, 9]}

    def link(self, port):
        return self.ok("vx_eth_port_status_get", 0, port, {})

    def test_configuration(self):
        before = self.ok("vx_eth_port_config_get", 0, ETH1, {})
        self.assertEqual((before["admin_status"], before["port_type"]), (0, 1))
        self.assertEqual(set(before["valid"].values()), {1})
        self.ok("vx_eth_port_config_set", 0, ETH1,
                {"admin_status": 1, "tx_ipg": 20, "crc_bypass": 7, "rx_ipg": 99, "phy_type": GIGE, "port_type": 0,
                 "valid": {"admin_status": 1, "tx_ipg": 1, "crc_bypass": 1}})
        after = self.ok("vx_eth_port_config_get", 0, ETH1, {})
        self.assertEqual(after, dict(before, admin_status=1, tx_ipg=20, crc_bypass=1))
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_eth_port_config_set", 0, ETH1,
                     {"mdix_mode": 3, "tx_ipg": 1, "valid": {"mdix_mode": 1, "tx_ipg": 1}})
        self.assertEqual(self.ok("vx_eth_port_config_get", 0, ETH1, {}), after, "a refused set has changed something")

    def test_link(self):
        self.assertEqual(self.link(ETH0), {"link_status": 1, "speed": 2, "duplex": 1})
        self.assertEqual(self.link(ETH1), DOWN)
        for mode, link in ((83, (1, 0)), (17, (0, 0)), (64, (1, 1)), (84, (2, 1)), (20, (1, 0))):
            self.ok("vx_eth_port_mode_set", 0, ETH0, mode)
            self.assertEqual(self.ok("vx_eth_port_mode_get", 0, ETH0, 0), mode)
            now = self.link(ETH0)
            self.assertEqual((now["speed"], now["duplex"]), link, f"mode {mode}")
        self.ok("vx_eth_port_auto_nego_restart", 0, ETH0)
        self.ok("vx_eth_port_mode_set", 0, ETH0, 80)
        self.refused("PORT_INVALID_OP", "vx_eth_port_auto_nego_restart", 0, ETH0)
        for mode in (5, 96, -1):
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_eth_port_mode_set", 0, ETH0, mode)
        self.refused("PORT_INVALID_CFG", "vx_eth_port_mode_set", 0, ETH1, 3)
        self.ok("vx_eth_port_config_set", 0, ETH0, {"valid": {"admin_status": 1}})
        self.assertEqual(self.link(ETH0), DOWN)

    def test_loopback(self):
        self.ok("vx_eth_port_loopback_set", 0, ETH0, 4)
        self.assertEqual(self.ok("vx_eth_port_loopback_get", 0, ETH0, 0), 4)
        self.assertEqual(self.ok("vx_eth_port_loopback_get", 0, ETH1, 9), 0)
        self.refused("PORT_LOOP_BACK_ALRDY_ENABLED", "vx_eth_port_loopback_set", 0, ETH0, 1)
        self.ok("vx_eth_port_loopback_set", 0, ETH0, 0)
        self.ok("vx_eth_port_loopback_set", 0, ETH0, 1)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_eth_port_loopback_set", 0, ETH0, 5)

    def test_phy_registers(self):
        self.ok("eth_port_phy_mdio_write", 0, 31, 4, 65537)
        self.assertEqual(self.ok("eth_port_phy_mdio_read", 0, 31, 4, 0), 1)
        self.assertEqual(self.ok("eth_port_phy_mdio_read", 0, 30, 4, [7, 7]), [0, 7])
        self.ok("eth_port_phy_mdio_write", 0, 0, 31, 9)
        self.assertEqual(self.ok("eth_port_phy_mdio_read", 0, 0, 31, 0), 9, "the last register")
        self.ok("lmq_enable_mdio", 0)
        self.assertEqual(self.ok("vx_mdio_read", 0, 31, 3, 2, [9, 9]), [0, 1], "the slaves of the MDIO bus are others")
        self.ok("vx_mdio_write", 0, 30, 4, 1, [77])
        self.assertEqual(self.ok("eth_port_phy_mdio_read", 0, 30, 4, 0), 77)
        self.refused("GLBL_RANGE_CHECK_FAIL", "eth_port_phy_mdio_write", 0, 32, 0, 1)
        self.refused("GLBL_RANGE_CHECK_FAIL", "eth_port_phy_mdio_read", 0, 0, 32, 0)

    def test_energy_efficient_ethernet(self):
        self.refused("PORT_INVALID_OP", "vx_eth_port_eee_sleep_ctrl_set", 0, ETH0, {"sleep_cmd": 0})
        self.ok("vx_eth_port_eee_cfg_set", 0, ETH0, {"enbl_eee": 1, "min_tx_wake_time": 5, "valid": {"enbl_eee": 1}})
        self.assertEqual(self.ok("vx_eth_port_eee_cfg_get", 0, ETH0, {})["min_tx_wake_time"], 0)
        self.ok("vx_eth_port_eee_sleep_ctrl_set", 0, ETH0, {"sleep_cmd": 0})
        state = self.ok("vx_eth_port_eee_state_get", 0, ETH0, {})
        self.assertEqual((state["eee_state"], state["hw_sm_state"]), (1, 2))
        self.ok("vx_eth_port_eee_cfg_set", 0, ETH0, {"valid": {"enbl_eee": 1}})
        self.assertEqual(self.ok("vx_eth_port_eee_sleep_ctrl_get", 0, ETH0, {}), {"sleep_cmd": 1})
        self.assertEqual(self.ok("vx_eth_port_eee_state_get", 0, ETH0, {})["eee_state"], 0)

        self.ok("vx_eth_port_eee_tx_q_threshold_set", 0, ETH0,
                {"low_thresh": [10, 20], "high_thresh": [9, 9, 9],
                 "queue_low_thresh_sel": [2, INVALID_THRESHOLD, 0, 0, 0, 0, 0, INVALID_THRESHOLD],
                 "valid": {"low_thresh": 1, "queue_low_thresh_sel": 1}})
        kept = self.ok("vx_eth_port_eee_tx_q_threshold_get", 0, ETH0, {})
        self.assertEqual((kept["low_thresh"], kept["high_thresh"]), ([10, 20, 0], [0, 0, 0]))
        self.assertEqual(self.ok("vx_eth_port_eee_tx_q_status_get", 0, ETH0, {}),
                         {"tx_fifo_empty": 1, "queue_below_low_thresh_bitmap": 0b01111101,
                          "queue_above_high_thresh_bitmap": 0})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_eth_port_eee_tx_q_threshold_set", 0, ETH0,
                     {"queue_high_thresh_sel": [3], "valid": {"queue_high_thresh_sel": 1}})
        self.refused("PORT_EEE_NOT_SUPPORTED", "vx_eth_port_eee_cfg_get", 0, MGMT, {})

    def test_flow_control(self):
        self.assertEqual(self.ok("vx_eth_port_flowctrl_config_get", 0, ETH0, {})["mac_sa"], [2, 0, 0, 0, 0, 9])
        self.ok("vx_eth_port_flowctrl_config_set", 0, ETH0,
                {"flow_control_mode": 1, "high_water_mark": 9, "pause_time": 3, "mac_sa": [2, 3, 4, 5, 6, 7],
                 "valid": {"high_water_mark": 1, "mac_sa": 1}})
        kept = self.ok("vx_eth_port_flowctrl_config_get", 0, ETH0, {})
        self.assertEqual((kept["flow_control_mode"], kept["high_water_mark"], kept["pause_time"], kept["mac_sa"]),
                         (1, 9, 0, [2, 3, 4, 5, 6, 7]))
        self.refused("PORT_INVALID_CFG", "vx_eth_port_flowctrl_config_set", 0, ETH0,
                     {"low_water_mark": 10, "valid": {"low_water_mark": 1}})
        self.assertEqual(self.ok("vx_eth_port_flowctrl_config_get", 0, ETH0, {}), kept)
        self.ok("vx_eth_port_flowctrl_enable_set", 0, ETH0, 0, 2)
        self.assertEqual(self.call("vx_eth_port_flowctrl_enable_get", 0, ETH0, 5, [5, 5]), (0, [0, ETH0, 0, [1, 5]]))

    def test_counters_and_guards(self):
        self.ok("vx_eth_port_stats_clear", 0, ETH0)
        _, (_, _, stats, clear) = self.call("vx_eth_port_stats_get", 0, ETH0, {"rx_pkts": 5}, 1)
        self.assertEqual((len(stats), set(stats.values()), clear), (40, {0}, 1))
        for port, status in ((CPU, "PORT_TYPE_MISMATCH"), (SNI, "PORT_TYPE_MISMATCH"), (VOIP, "PORT_TYPE_MISMATCH"),
                             (6, "PORT_NUM_OUT_OF_RANGE"), (0xFFFF, "PORT_NUM_OUT_OF_RANGE")):
            self.refused(status, "vx_eth_port_config_get", 0, port, {})
        self.ok("vx_eth_port_config_get", 0, MGMT, {})
        self.refused("DEV_ID_INVALID", "vx_eth_port_config_get", 1, ETH0, {})
        self.refused("DEV_NULL_PTR", "vx_eth_port_config_get", 0, ETH0, [])
        self.refused("DEV_NULL_PTR", "vx_eth_port_flowctrl_enable_get", 0, ETH0, 0, [])


if __name__ == "__main__":
    unittest.main()
