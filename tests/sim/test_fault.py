"""Faults on demand: LMQ_SIM_FAIL makes calls fail, and says what it cannot read."""

import unittest

from harness import SimTest


class Faults(SimTest):
    no_round_trip = "the other chip has none of the faults that this one was started with"
    environment = {"LMQ_SIM_FAIL": "lmq_init_system:VX_ERR_DEV_BUSY:1,vx_gpio_read:0x7106,vx_timer_stop:28936:2,"
                                   "lmq_dump_register:VX_ERR_DEV_BUSY:2"}

    def start(self):
        self.refused("DEV_BUSY", "lmq_init_system", {"num_dev": 1, "dev_cfg": [{"enbl": 1}]})
        super().start()

    def test_calls_fail(self):
        for pin in 0, 1:
            self.refused("DEV_HW_FAILURE", "vx_gpio_read", 0, pin, 0)
        self.ok("vx_gpio_get", 0, 0, {})
        self.ok("vx_timer_set", 0, 0, {"mode": 1, "timer_val": 1000})
        self.ok("vx_timer_stop", 0, 0)
        self.refused("DEV_BUSY", "vx_timer_stop", 0, 0)
        self.ok("vx_timer_stop", 0, 0)
        # It has no status: a count of 0 says that it has failed.
        self.assertEqual([self.call("lmq_dump_register", 0, 0, 4, 2)[0] for _ in range(3)], [2, 0, 2])


class Bad(SimTest):
    no_round_trip = "a case starts many chips, and sets nothing"
    RULES = {"vx_gpio_raed:1": "expected a driver function, which \"vx_gpio_raed\" is not",
             "printf:1": "expected a driver function, which \"printf\" is not",
             "vx_gpio_read": "expected function:status or function:status:nth",
             "vx_gpio_read:VX_SUCCESS": "and not \"VX_SUCCESS\"",
             "vx_gpio_read:BUSY": "and not \"BUSY\"",
             "vx_gpio_read:1:0": "expected which call fails, from 1, and not \"0\"",
             "vx_gpio_read:1:": "expected which call fails, from 1, and not \"\""}

    def test_what_cannot_be_read_is_told_and_nothing_fails(self):
        for rule, text in self.RULES.items():
            with self.subTest(rule):
                self.environment = {"LMQ_SIM_FAIL": f"vx_gpio_get:1,{rule}"}
                self.doCleanups()
                super().setUp()
                self.ok("vx_gpio_get", 0, 0, {})
                lines = [line for line in self.printed().splitlines() if "LMQ_SIM_FAIL" in line]
                self.assertEqual(len(lines), 1)
                self.assertIn(f'lmq: LMQ_SIM_FAIL has "{rule}": expected ', lines[0])
                self.assertIn(text, lines[0])


if __name__ == "__main__":
    unittest.main()
