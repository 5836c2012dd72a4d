"""Events: raised, polled, held over, throttled, counted and cleared, on a clock that each call moves by 10 ms."""

import unittest

from harness import SimTest

TIMER, GPIO, THROTTLED, LINK, LOS, LOF, LEARNED = 0x002, 0x005, 0x00D, 0x203, 0x406, 0x407, 0x606
SNI, ETH0 = 0, 3


class Events(SimTest):
    clock = 10

    def setUp(self):
        super().setUp()
        self.ok("lmq_register_debug_event", 0, LOS, 0, {"all_ports": 1})

    def occur(self, event=LOS, port=SNI, sub_port=0):
        self.ok("lmq_dbg_generate_event", 0, event, port, sub_port)

    def pending(self, event=LOS, port=SNI, sub_port=0):
        return self.ok("vx_pending_events_get", 0, event, port, sub_port, {})["status"]

    def active(self, event=LOS, port=SNI):
        return self.ok("vx_event_status_poll", 0, event, port, 0, {})["status"]

    def count(self, event=LOS, port=SNI, clear=0):
        return self.call("vx_event_count_get", 0, event, port, 0, 0, clear)[1][4]

    def notified(self):
        return self.printed().count("event 0x406 port 0")

    def wait(self, ms):
        """Lets the simulated time go by, and then what has fallen due be noticed."""
        for _ in range(ms // self.clock):
            self.ok("lmq_ctrl_interrupts", 0, 1)

    def test_life(self):
        self.assertEqual((self.active(), self.count()), (0, 0))
        self.occur()
        status = self.ok("vx_event_status_poll", 0, LOS, SNI, 77, {})
        self.assertEqual((status["status"], status["event_data"]["gpon_alm_data"]["status"]), (1, 1))
        self.occur()
        self.assertEqual((self.notified(), self.pending(), self.count()), (2, 0, 2))
        self.ok("vx_event_status_clear", 0, LOS, SNI, 0, {})
        self.assertEqual((self.active(), self.count()), (0, 2))
        self.assertEqual((self.count(clear=1), self.count()), (2, 0))

        self.occur(LINK, ETH0)
        self.assertEqual((self.count(LINK, ETH0), self.count(LINK, ETH0 + 1)), (1, 0))
        self.ok("lmq_dump_event_db", 0, LINK)
        self.assertIn("port 3 sub-port 0: count 1, active", self.printed())
        self.ok("lmq_dump_event_db", 0, LOS)
        self.assertIn("handler in user space, port 0xffff, user data 0\n", self.printed())
        self.ok("vx_event_count_clear", 0, LINK, ETH0, 0)
        self.assertEqual(self.count(LINK, ETH0), 0)
        self.occur()
        self.ok("vx_event_count_clear_all", 0)
        self.assertEqual(self.count(), 0)

    def test_holdover(self):
        holdover = {"enable": 1, "holdover_time": 5}  # 50 ms
        self.ok("vx_event_holdover_set", 0, LOS, holdover)
        self.assertEqual(self.ok("vx_event_holdover_get", 0, LOS, SNI, 0, {})["holdover_time"], 5)
        self.occur()
        self.assertEqual((self.active(), self.pending(), self.count(), self.notified()), (1, 1, 1, 0))
        self.wait(50)
        self.assertEqual((self.pending(), self.notified()), (0, 1))

        self.occur()
        self.ok("vx_event_status_clear", 0, LOS, SNI, 0, {})
        self.wait(100)
        self.assertEqual(self.notified(), 1, "it did not persist")
        self.occur()
        self.ok("vx_event_holdover_set", 0, LOS, dict(holdover, enable=0))
        self.assertEqual((self.pending(), self.notified()), (0, 2), "it was active and not notified")

        self.ok("vx_event_holdover_set", 0, LEARNED, {"enable": 1, "sub_port": 7, "holdover_time": 1})
        self.ok("vx_event_holdover_set", 0, LEARNED, {"enable": 1, "sub_port": 0xFFFF, "holdover_time": 9})
        for sub_port in (7, 8):
            kept = self.ok("vx_event_holdover_get", 0, LEARNED, SNI, sub_port, {})
            self.assertEqual((kept["sub_port"], kept["holdover_time"]), (sub_port, 9))
        self.ok("vx_event_holdover_set", 0, LEARNED, {"enable": 0, "sub_port": 8})
        self.occur(LEARNED, SNI, 7)
        self.occur(LEARNED, SNI, 8)
        self.assertEqual((self.pending(LEARNED, SNI, 7), self.pending(LEARNED, SNI, 8)), (1, 0))

    def test_holdover_of_a_condition_that_has_gone(self):
        def admin(up):
            self.ok("vx_eth_port_config_set", 0, ETH0, {"admin_status": up, "valid": {"admin_status": 1}})

        self.ok("lmq_register_debug_event", 0, LINK, 0, {"all_ports": 1})
        self.ok("vx_event_holdover_set", 0, LINK, {"enable": 1, "port_num": ETH0, "holdover_time": 20})
        link = "event 0x203 port 3"
        admin(1)
        admin(0)
        self.assertEqual((self.pending(LINK, ETH0), self.count(LINK, ETH0)), (0, 2))
        self.wait(300)
        self.assertEqual(self.printed().count(link), 0, "the link came and went")
        for up in 1, 0, 1:
            admin(up)
        self.wait(300)
        self.assertEqual(self.printed().count(link), 1, "the link has stayed")

        # The same of interrupts that are cleared, and of an FDB that has room again.
        self.ok("lmq_register_debug_event", 0, GPIO, 0, {"all_ports": 1})
        for notified, cleared in (0, 1), (1, 0):
            self.ok("vx_event_holdover_set", 0, GPIO, {"enable": 1, "holdover_time": 20})
            self.ok("vx_gpio_set", 0, 0, {"direction": 2, "intr_en": 1})
            self.assertEqual(self.pending(GPIO), 1)
            if cleared:
                self.ok("lmq_clear_gpio_intr", 0, 0, 1)
            self.wait(300)
            self.assertEqual(self.printed().count("event 0x005"), notified)

    def test_throttling(self):
        throttle = {"enable": 1, "count": 2, "interval": 20}  # 200 ms
        self.ok("vx_event_throttle_set", 0, LOS, throttle)
        for _ in range(3):
            self.occur()
        self.assertEqual((self.pending(), self.notified(), self.count()), (1, 2, 3))
        data = self.ok("vx_event_status_poll", 0, THROTTLED, 0, 0, {})["event_data"]["thrtl_data"]
        self.assertEqual(data, {"thrtld_event": LOS, "thrtl_type": 1, "thrtl_cnt": 2})
        self.wait(200)
        self.assertEqual((self.pending(), self.notified()), (0, 3))

        self.ok("vx_event_global_throttle_set", 0, dict(throttle, count=4))
        for event in (LOF, TIMER, LOF, LOS, LOS, LOS):
            self.occur(event)
        self.assertEqual((self.notified(), self.pending()), (5, 1), "the global throttle takes precedence")
        self.assertEqual(self.ok("vx_event_global_throttle_get", 0, {}), dict(throttle, count=4))
        self.ok("vx_event_global_throttle_set", 0, {})
        self.assertEqual((self.notified(), self.pending()), (6, 0))
        self.assertEqual(self.ok("vx_event_throttle_get", 0, LOS, {}), dict(throttle, per_port=0))

    def test_interrupts_and_handlers(self):
        self.ok("lmq_ctrl_interrupts", 0, 0)
        self.occur()
        self.assertEqual((self.pending(), self.active(), self.count(), self.notified()), (1, 1, 1, 0))
        self.ok("lmq_ctrl_interrupts", 0, 1)
        self.assertEqual((self.pending(), self.notified()), (0, 1))

        # Neither is the throttling notice notified, and a holdover goes on meanwhile.
        self.ok("lmq_register_debug_event", 0, THROTTLED, 0, {"all_ports": 1})
        self.ok("vx_event_throttle_set", 0, LOF, {"enable": 1, "count": 1, "interval": 1})
        self.ok("vx_event_holdover_set", 0, LOS, {"enable": 1, "holdover_time": 20})
        self.ok("lmq_ctrl_interrupts", 0, 0)
        self.occur(LOF)
        self.occur()
        self.assertEqual((self.printed().count("event 0x00d"), self.pending(THROTTLED)), (0, 1))
        self.ok("lmq_ctrl_interrupts", 0, 1)
        self.assertEqual((self.printed().count("event 0x00d"), self.notified()), (1, 1))
        self.wait(200)
        self.assertEqual(self.notified(), 2)
        self.ok("vx_event_holdover_set", 0, LOS, {})

        self.refused("GLBL_ENTRY_EXIST", "lmq_register_debug_event", 0, LOS, 0, {"all_ports": 1})
        self.refused("EVT_NOT_REGISTERED", "lmq_deregister_debug_event", 0, LOS, 1, {"all_ports": 1})
        self.ok("lmq_deregister_debug_event", 0, LOS, 0, {"all_ports": 1})
        self.occur()
        self.assertEqual(self.notified(), 2)

    def test_what_is_refused(self):
        for event in (-1, 0x015, 0x1FF, 0x418, 0x608, 0x902):
            self.refused("EVT_INVALID_EVT_TYPE", "lmq_dbg_generate_event", 0, event, 0, 0)
            self.refused("EVT_INVALID_EVT_TYPE", "vx_event_count_get", 0, event, 0, 0, 0, 0)
        self.refused("EVT_INVALID_PORT", "vx_event_count_clear", 0, LINK, SNI, 0)
        self.refused("PORT_NUM_OUT_OF_RANGE", "vx_event_status_poll", 0, LINK, 6, 0, {})
        self.refused("EVT_POLLING_NOT_SUPPORTED", "vx_event_status_poll", 0, TIMER, 0, 0, {})
        self.refused("EVT_HOLDOVER_NOT_SUPPORTED", "vx_event_holdover_set", 0, TIMER, {})
        self.refused("EVT_THROTTLE_NOT_SUPPORTED", "vx_event_throttle_set", 0, TIMER, {})
        self.refused("EVT_INVALID_CFG", "vx_event_throttle_set", 0, LOS, {"enable": 1, "count": 1})
        self.refused("EVT_INVALID_CFG", "vx_event_global_throttle_set", 0, {"enable": 1, "interval": 1})


if __name__ == "__main__":
    unittest.main()
