"""Events that the chip raises by itself, each from what it is: links, buses, timers, pins, tables that age, the ONU."""

import json
import os
import pathlib
import tempfile
import unittest

from harness import SimTest

SNI, ETH0, ETH1 = 0, 3, 4
ADMIN = {"admin_status": 1}


class Base(SimTest):
    def count(self, event, port=0):
        """How often an event has occurred since the last time."""
        return self.echo("vx_event_count_get", 0, self.EVENT[f"VX_EVENT_{event}"], port, 0, 0, 1)[4]

    def data(self, event, member, port=0):
        status = self.ok("vx_event_status_poll", 0, self.EVENT[f"VX_EVENT_{event}"], port, 0, {})
        return status["event_data"][member]

    def wait(self, ms):
        for _ in range(ms // self.clock):
            self.ok("lmq_ctrl_interrupts", 0, 1)


class Occurrences(Base):
    clock = 50
    device = {"gpio_cfg": {"gpio_valid_pins": 0x30, "gpio_dir": 0x10, "gpio_intr_pins": 0x20, "gpio_intr_lvl": 0x20}}

    def admin(self, up, port=ETH0):
        self.ok("vx_eth_port_config_set", 0, port, {"admin_status": up, "valid": ADMIN})

    def test_links(self):
        link, mode = "ETH_LINK_STATUS_CHNG", "ETH_PHY_MODE_CHNG"
        for up in 1, 1:
            self.admin(up)
        self.assertEqual([self.count(link, port) for port in (ETH0, ETH1)], [1, 0])
        self.assertEqual(self.data(link, "link_chng_data", ETH0), {"speed": 2, "duplex": 1, "link_up": 1})
        self.assertEqual(self.count(mode, ETH0), 0)
        self.ok("vx_eth_port_mode_set", 0, ETH0, 2)
        self.assertEqual([self.count(event, ETH0) for event in (link, mode)], [1, 1])
        self.assertEqual(self.data(mode, "phy_mode_data", ETH0), {"speed": 1, "duplex": 1})
        self.ok("vx_eth_port_mode_set", 0, ETH0, 64)  # what came of the last mode
        self.assertEqual([self.count(event, ETH0) for event in (link, mode)], [0, 0])
        self.admin(0)
        self.ok("vx_eth_port_mode_set", 0, ETH0, 1)
        self.assertEqual([self.count(event, ETH0) for event in (link, mode)], [1, 0])
        self.assertEqual(self.data(link, "link_chng_data", ETH0), {"speed": 255, "duplex": 255, "link_up": 0})

    def test_negotiation_takes_the_link_for_a_while(self):
        def link():
            return self.ok("vx_eth_port_status_get", 0, ETH0, {})["link_status"]

        self.admin(1)
        self.count("ETH_LINK_STATUS_CHNG", ETH0)
        self.ok("vx_eth_port_auto_nego_restart", 0, ETH0)
        self.assertEqual([link() for _ in range(3)], [0, 1, 1])
        self.assertEqual(self.count("ETH_LINK_STATUS_CHNG", ETH0), 2, "down and up")

    def test_energy_efficient_ethernet(self):
        sleep = "EEE_SLEEP_STATE_CHNG"
        self.ok("vx_eth_port_eee_cfg_set", 0, ETH0, {"enbl_eee": 1, "valid": {"enbl_eee": 1}})
        self.assertEqual(self.count(sleep, ETH0), 0)
        self.ok("vx_eth_port_eee_sleep_ctrl_set", 0, ETH0, {"sleep_cmd": 0})
        self.assertEqual((self.count(sleep, ETH0), self.data(sleep, "eee_data", ETH0)),
                         (1, {"eee_dir": 0, "eee_state": 1}))
        self.ok("vx_eth_port_eee_cfg_set", 0, ETH0, {"valid": {"enbl_eee": 1}})
        self.assertEqual((self.count(sleep, ETH0), self.data(sleep, "eee_data", ETH0)["eee_state"]), (1, 0))

        levels = {"queue_low_thresh_sel": [0, 255] * 4, "valid": {"queue_low_thresh_sel": 1}}
        for _ in range(2):
            self.ok("vx_eth_port_eee_tx_q_threshold_set", 0, ETH0, levels)
        self.assertEqual(self.count("EEE_QUEUE_STATUS_CHNG", ETH0), 1)
        self.assertEqual(self.data("EEE_QUEUE_STATUS_CHNG", "eee_queue_status", ETH0),
                         {"low_thresh": 0b01010101, "high_thresh": 0})

    def test_buses(self):
        self.ok("vx_i2c_enable_set", 0, 1, 400)
        self.ok("vx_i2c_write", 0, 3, 0, 2, [1, 2])
        self.ok("vx_i2c_read", 0, 3, 0, 2, [0, 0])
        self.assertEqual(self.count("I2C_INTR"), 2)
        self.ok("lmq_enable_mdio", 0)
        self.ok("vx_mdio_write", 0, 3, 0, 1, [7])
        self.ok("eth_port_phy_mdio_read", 0, 3, 0, 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_mdio_read", 0, 3, 32, 1, [0])
        self.assertEqual(self.count("MDIO_INTR_OP_DONE"), 2)
        for interrupt, counts in (0, [0, 0]), (1, [1, 1]):
            self.ok("vx_spi_enable_set", 0, 1, interrupt)
            self.ok("vx_spi_byte_write", 0, 1, 5)
            self.ok("vx_spi_byte_read", 0, 1, 0)
            self.assertEqual([self.count("SPI_INTR_WR_DONE"), self.count("SPI_INTR_OP_DONE")], counts)
        self.ok("vx_spi_set", 0, 1, {"data_length": 8})
        self.ok("vx_spi_write", 0, 1, {"data": [1]})
        self.ok("vx_spi_read", 0, 1, {})
        self.assertEqual([self.count("SPI_INTR_WR_DONE"), self.count("SPI_INTR_OP_DONE")], [1, 1])

    def test_timers(self):
        reload, rollover = 1, 2
        timer = self.EVENT["VX_EVENT_TMR_EXPIRED"]
        self.ok("lmq_register_debug_event", 0, timer, 0, {"all_ports": 1})
        self.ok("vx_timer_set", 0, 1, {"timer_val": 100, "mode": reload})
        self.ok("vx_timer_start", 0, 1, 1)
        self.assertEqual([self.count("TMR_EXPIRED") for _ in range(6)], [0, 1, 0, 1, 0, 1])
        self.assertEqual(self.printed().count("event 0x002 "), 3)
        self.ok("vx_timer_stop", 0, 1)
        self.ok("vx_timer_set", 0, 1, {"timer_val": 100, "mode": rollover})
        self.ok("vx_timer_start", 0, 1, 1)
        self.assertEqual([self.count("TMR_EXPIRED") for _ in range(6)], [0, 1, 0, 0, 0, 0])

    def test_pins(self):
        self.ok("vx_gpio_write", 0, 4, 1)
        self.assertEqual((self.count("GPIO_INTR"), self.data("GPIO_INTR", "gpio_data")), (1, {"gpio_pin_mask": 0x20}))
        self.ok("vx_gpio_write", 0, 4, 0)
        self.ok("vx_gpio_write", 0, 4, 1)
        self.assertEqual(self.count("GPIO_INTR"), 0, "it was still latched")

    def test_tables_that_age_and_fill(self):
        def mac(number):
            return {"mac_addr": [2, 0, 0, 0, number >> 8, number & 255], "mac_addr_valid": 1, "port_id": ETH0}

        dynamic, static = 1, 2
        self.ok("vx_l2_aging_timer_set", 0, 1)
        for number in range(2):
            self.ok("vx_l2_fdb_entry_add", 0, dynamic, mac(number), 0)
        self.ok("vx_l2_fdb_entry_add", 0, static, mac(2), 0)
        self.wait(1000)
        self.assertEqual(self.count("FE_L2_ENTRY_AGEOUT"), 2)

        self.ok("vx_l2_aging_timer_set", 0, 0)
        for number in range(3, 3 + 1022):
            self.ok("vx_l2_fdb_entry_add", 0, static, mac(number), 0)
        self.assertEqual(self.count("FE_DYNAMIC_L2_ENTRY_FULL"), 0)
        full = self.EVENT["VX_EVENT_FE_DYNAMIC_L2_ENTRY_FULL"]
        self.ok("vx_event_holdover_set", 0, full, {"enable": 1, "holdover_time": 1000})
        for kind, count in (static, 0), (dynamic, 1):
            handle = self.ok("vx_l2_fdb_entry_add", 0, kind, mac(0), 0)
            self.assertEqual(self.count("FE_DYNAMIC_L2_ENTRY_FULL"), count)
            self.assertEqual(self.ok("vx_pending_events_get", 0, full, 0, 0, {})["status"], count)
            self.ok("vx_l2_fdb_entry_delete", 0, kind, handle, {})
            self.assertEqual(self.ok("vx_pending_events_get", 0, full, 0, 0, {})["status"], 0, "there is room again")

        self.ok("vx_cls_ctrl_set", 0, ETH0, {"mac_filter_aging_en": 1, "valid": {"mac_filter_aging_en": 1}})
        for _ in range(2):
            self.ok("vx_cls_aging_timer_set", 0, ETH0, 9, {"entry_dynamic": 1, "max_limit": 1})
            self.assertEqual(self.count("FE_MAC_FILTER_AGEOUT", ETH0), 0)
            self.wait(1000)
            self.assertEqual([self.count("FE_MAC_FILTER_AGEOUT", ETH0) for _ in range(2)], [1, 0])

    def test_states_of_the_onu(self):
        self.ok("vx_gpon_onu_port_enable_set", 0, SNI, 1)
        self.wait(400)
        self.assertEqual([self.count(f"GPON_{event}") for event in ("ONU_STATE_CHNG", "ONU_ID", "OMCC_GEM_PORT_ID",
                                                                     "OMCC_STATE")], [4, 1, 1, 1])
        self.assertEqual(self.data("GPON_ONU_STATE_CHNG", "onu_state_data"), {"onu_state": 4})
        self.assertEqual(self.data("GPON_ONU_ID", "onu_id_data"), {"onu_id": 1})
        self.assertEqual(self.data("GPON_OMCC_GEM_PORT_ID", "omcc_gem_data"), {"gem_port_id": 1})
        self.assertEqual(self.data("GPON_OMCC_STATE", "omcc_state"), {"status": 1, "gem_port_id": 1})
        self.assertEqual(self.ok("vx_gpon_onu_mac_stats_get", 0, SNI, {})["o5_state_transition"], 1)
        self.ok("vx_gpon_onu_ploam_us_set", 0, SNI, [1, 9] + [0] * 11, 13)
        self.assertEqual(self.count("GPON_PLOAMU_TX_DONE"), 1)

        self.ok("vx_gpon_onu_state_set", 0, SNI, 6)
        self.assertEqual(self.data("GPON_ALM_DIS", "gpon_alm_data"), {"status": 1})
        self.assertEqual(self.data("GPON_OMCC_STATE", "omcc_state")["status"], 0)
        self.ok("vx_gpon_onu_port_enable_set", 0, SNI, 0)
        self.assertEqual(self.data("GPON_ALM_DIS", "gpon_alm_data"), {"status": 0})
        self.assertEqual(self.data("GPON_ONU_STATE_CHNG", "onu_state_data"), {"onu_state": 0})
        self.assertEqual(self.count("GPON_ALM_DIS"), 2)


class GreatCounters(Base):
    clock = 1000000
    environment = {"LMQ_SIM_TRAFFIC": "1:1000000"}
    device = {"eth_port_cfg": [{"add_port": 1, "admin_status": 1}]}

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        preset = pathlib.Path(folder.name, "preset.json")
        preset.write_text(json.dumps({"counters": {"eth0": {"rx_pkts": (1 << 63) - 2}}}))
        self.environment = dict(self.environment, LMQ_SIM_PRESET=os.fspath(preset))
        super().setUp()

    def test_the_most_significant_bit_is_told_once(self):
        self.wait(2000000)
        self.assertEqual([self.count("ETH_MIB_MSB_CHNG", port) for port in (ETH0, ETH1)], [1, 0])
        self.wait(4000000)
        self.assertEqual(self.count("ETH_MIB_MSB_CHNG", ETH0), 0)
        self.assertGreater(self.count("MIB_MSB_CHNG"), 0)


if __name__ == "__main__":
    unittest.main()
