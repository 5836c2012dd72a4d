"""Events that the chip raises by itself: links, timers, interrupt pins and the states of the ONU."""

import unittest

from harness import SimTest

TIMER, GPIO, LINK, ONU_STATE, ONU_ID, OMCC_PORT, OMCC_STATE = 0x002, 0x005, 0x203, 0x400, 0x401, 0x402, 0x403
ETH0, SNI = 3, 0


class Occurrences(SimTest):
    clock = 50
    device = {"gpio_cfg": {"gpio_valid_pins": 0x30, "gpio_dir": 0x10, "gpio_intr_pins": 0x20, "gpio_intr_lvl": 0x20}}

    def count(self, event, port=0):
        return self.call("vx_event_count_get", 0, event, port, 0, 0, 1)[1][4]

    def data(self, event, port=0):
        return self.ok("vx_event_status_poll", 0, event, port, 0, {})["event_data"]

    def test_links(self):
        def admin(up):
            self.ok("vx_eth_port_config_set", 0, ETH0, {"admin_status": up, "valid": {"admin_status": 1}})

        for up in 1, 1:
            admin(up)
        self.assertEqual((self.count(LINK, ETH0), self.count(LINK, ETH0 + 1)), (1, 0))
        self.assertEqual(self.data(LINK, ETH0)["link_chng_data"], {"speed": 2, "duplex": 1, "link_up": 1})
        self.ok("vx_eth_port_mode_set", 0, ETH0, 2)
        self.assertEqual(self.count(LINK, ETH0), 1)
        admin(0)
        self.ok("vx_eth_port_mode_set", 0, ETH0, 1)
        self.assertEqual(self.count(LINK, ETH0), 1)
        self.assertEqual(self.data(LINK, ETH0)["link_chng_data"], {"speed": 255, "duplex": 255, "link_up": 0})

    def test_timers(self):
        reload, rollover = 1, 2
        self.ok("lmq_register_debug_event", 0, TIMER, 0, {"all_ports": 1})
        self.ok("vx_timer_set", 0, 1, {"timer_val": 100, "mode": reload})
        self.ok("vx_timer_start", 0, 1, 1)
        self.assertEqual([self.count(TIMER) for _ in range(6)], [0, 1, 0, 1, 0, 1])
        self.assertEqual(self.printed().count("event 0x002 "), 3)
        self.ok("vx_timer_stop", 0, 1)
        self.ok("vx_timer_set", 0, 1, {"timer_val": 100, "mode": rollover})
        self.ok("vx_timer_start", 0, 1, 1)
        self.assertEqual([self.count(TIMER) for _ in range(6)], [0, 1, 0, 0, 0, 0])

    def test_pins(self):
        self.ok("vx_gpio_write", 0, 4, 1)
        self.assertEqual((self.count(GPIO), self.data(GPIO)["gpio_data"]), (1, {"gpio_pin_mask": 0x20}))
        self.ok("vx_gpio_write", 0, 4, 0)
        self.ok("vx_gpio_write", 0, 4, 1)
        self.assertEqual(self.count(GPIO), 0, "it was still latched")

    def test_states_of_the_onu(self):
        self.ok("vx_gpon_onu_port_enable_set", 0, SNI, 1)
        for _ in range(8):
            self.ok("lmq_ctrl_interrupts", 0, 1)
        self.assertEqual([self.count(event) for event in (ONU_STATE, ONU_ID, OMCC_PORT, OMCC_STATE)], [4, 1, 1, 1])
        self.assertEqual(self.data(ONU_STATE)["onu_state_data"], {"onu_state": 4})
        self.assertEqual(self.data(OMCC_STATE)["omcc_state"], {"status": 1, "gem_port_id": 1})
        self.assertEqual(self.ok("vx_gpon_onu_mac_stats_get", 0, SNI, {})["o5_state_transition"], 1)
        self.ok("vx_gpon_onu_port_enable_set", 0, SNI, 0)
        self.assertEqual(self.data(ONU_STATE)["onu_state_data"], {"onu_state": 0})
        self.assertEqual(self.data(OMCC_STATE)["omcc_state"]["status"], 0)


if __name__ == "__main__":
    unittest.main()
