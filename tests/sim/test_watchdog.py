"""The watchdog: it expires when its period is too short for the driver to strobe it, and says so."""

import unittest

from harness import SimTest

EXPIRED = 0x001
ALL = {"wd_enable": 1, "wd_timer": 1, "wd_action": 1}


class Watchdog(SimTest):
    clock = 1000
    system = {"enbl_wd": 1, "wd_time": 3}

    def expired(self):
        return self.call("vx_event_count_get", 0, EXPIRED, 0, 0, 0, 0)[1][4]

    def test_life(self):
        self.assertEqual([self.expired() for _ in range(5)], [0, 0, 1, 1, 1])
        self.assertEqual(self.printed().count("the watchdog has expired\n"), 1)

        # A set strobes it; the action is told, and nothing is rebooted.
        reboot = {"wd_enable": 1, "wd_timer": 2, "wd_action": 1, "mask_s": ALL}
        for _ in range(3):
            self.ok("vx_watchdog_set", 0, reboot)
        self.assertEqual([self.expired() for _ in range(3)], [1, 2, 2])
        self.assertIn("expired, which would reboot the system\n", self.printed())

        for harmless in dict(reboot, wd_timer=20), dict(reboot, wd_enable=0), dict(reboot, wd_timer=0):
            self.ok("vx_watchdog_set", 0, harmless)
            self.assertEqual([self.expired() for _ in range(30)][-1], 2, harmless)


if __name__ == "__main__":
    unittest.main()
