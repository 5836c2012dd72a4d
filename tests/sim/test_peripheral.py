"""The low-speed peripherals: pins and their interrupts, I2C, MDIO, SPI, timers and LEDs."""

import unittest

from harness import SimTest

OUTPUT, INPUT, INTERRUPT = 0, 1, 2


class Peripherals(SimTest):
    clock = 10
    device = {"spi_speed": 400, "gpio_cfg": {"gpio_valid_pins": 0x70, "gpio_dir": 0x10, "gpio_output_val": 0x50,
                                             "gpio_intr_pins": 0x60, "gpio_intr_lvl": 0x20}}

    def level(self, pin):
        return self.ok("vx_gpio_read", 0, pin, 0)

    def interrupts(self):
        return [self.ok(f"lmq_get_gpio_intr_{kind}_status", 0, 0, 0) for kind in ("active", "latched")]

    def test_pins(self):
        # Pin 4 drives its neighbour, pin 5, high. Pin 6 waits for a low level, and nothing drives it.
        self.assertEqual([self.level(pin) for pin in (4, 5, 6)], [1, 1, 0])
        self.assertEqual(self.interrupts(), [0x60, 0x60])
        self.ok("vx_gpio_write", 0, 4, 0)
        self.assertEqual((self.level(5), self.interrupts()), (0, [0x40, 0x60]))
        self.ok("lmq_clear_gpio_intr", 0, 0, 0x60)
        self.assertEqual(self.interrupts(), [0, 0])
        self.assertEqual(self.ok("vx_gpio_get", 0, 5, {}),
                         {"direction": INTERRUPT, "intr_level": 1, "intr_edge": 0, "intr_en": 0})

        # By edge it is latched once; by level it comes again as long as it is active.
        for edge, latched in (1, 0), (0, 0x20):
            self.ok("vx_gpio_set", 0, 5, {"direction": INTERRUPT, "intr_level": 1, "intr_edge": edge, "intr_en": 1})
            self.ok("vx_gpio_write", 0, 4, 1)
            self.assertEqual(self.interrupts(), [0x20, 0x20])
            self.ok("vx_gpio_write", 0, 4, 0)
            self.ok("lmq_clear_gpio_intr", 0, 0, 0x20)
            self.ok("vx_gpio_intr_enable", 0, 5, 1)
            self.assertEqual(self.interrupts(), [0, 0])
        self.ok("lmq_dump_gpio_db", 0, 5)
        self.assertIn("gpio 5: interrupt, level 0, intr_level 1, intr_edge 0, intr_en 1\n", self.printed())

        # 20 ms from one change to the next, and 10 ms a call.
        self.ok("vx_gpio_rollover_set", 0, 4, 1, 2)
        self.assertEqual([self.level(5) for _ in range(6)], [0, 1, 1, 0, 0, 1])
        self.ok("vx_gpio_rollover_set", 0, 4, 0, 0)
        self.assertEqual(len({self.level(4) for _ in range(4)}), 1)

        self.refused("GLBL_INVALID_DIRECTION", "vx_gpio_write", 0, 5, 1)
        self.refused("GLBL_INVALID_DIRECTION", "vx_gpio_rollover_set", 0, 0, 1, 1)
        self.refused("GLBL_INVALID_DIRECTION", "vx_gpio_intr_enable", 0, 4, 1)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpio_rollover_set", 0, 4, 1, 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpio_write", 0, 4, 2)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpio_set", 0, 4, {"direction": 3})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_gpio_read", 0, 32, 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", "lmq_clear_gpio_intr", 0, 1, 0)
        self.refused("DEV_NULL_PTR", "vx_gpio_read", 0, 0, [])

    def test_register_files(self):
        for write, read, switch, last in (("vx_i2c_write", "vx_i2c_read", ("vx_i2c_enable_set", 0, 1, 400), 255),
                                          ("vx_mdio_write", "vx_mdio_read", ("lmq_enable_mdio", 0), 31)):
            self.refused("DEV_STATE_INVALID", write, 0, 3, 0, 1, [1])
            self.ok(*switch)
            self.ok(write, 0, 3, last - 2, 3, [7, 8, 9])
            self.assertEqual(self.ok(read, 0, 3, last - 3, 4, [1] * 4), [0, 7, 8, 9])
            self.assertEqual(self.ok(read, 0, 4, last, 1, [1]), [0], "another slave")
            for slave, first, count in (128, 0, 1), (3, last, 2), (3, 0, 0):
                self.refused("GLBL_RANGE_CHECK_FAIL", read, 0, slave, first, count, [0] * 2)
            self.refused("DEV_NULL_PTR", read, 0, 3, 0, 1, [])
        self.ok("lmq_disable_mdio", 0)
        self.refused("DEV_STATE_INVALID", "vx_mdio_read", 0, 3, 0, 1, [0])
        self.ok("vx_mdio_speed_set", 0, 1000)
        self.assertEqual(self.ok("vx_mdio_speed_get", 0, 0), 1000)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_i2c_enable_set", 0, 1, 0)

    def test_spi_echoes(self):
        self.refused("DEV_STATE_INVALID", "vx_spi_byte_write", 0, 2, 1)
        self.ok("vx_spi_enable_set", 0, 1, 0)
        self.refused("DEV_STATE_INVALID", "vx_spi_write", 0, 2, {"data": [1, 2]})
        config = dict(self.ok("vx_spi_get", 0, 2, {}), mode=1, cmd_length=8, data_length=36)
        self.assertEqual(config["speed"], 400)
        self.ok("vx_spi_set", 0, 2, config)
        self.assertEqual(self.ok("vx_spi_get", 0, 2, {}), config)
        self.ok("vx_spi_write", 0, 2, {"cmd": [5], "data": [-1, 0x127]})
        self.ok("vx_spi_byte_write", 0, 2, 0xA5)
        self.assertEqual(self.ok("vx_spi_read", 0, 2, {"cmd": [6]}), {"cmd": [6, 0, 0], "data": [-1, 7]})
        self.assertEqual(self.ok("vx_spi_byte_read", 0, 2, 0), 0xA5)
        self.assertEqual(self.ok("vx_spi_byte_read", 0, 1, 9), 0, "another line")
        for bad in {"mode": 2}, {"cmd_length": 97}, {"data_length": 65}, {"ssp_mode": 4}:
            self.refused("GLBL_RANGE_CHECK_FAIL", "vx_spi_set", 0, 2, bad)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_spi_get", 0, 3, {})

    def test_timers(self):
        def timer(number=4):
            return list(self.ok("vx_timer_get", 0, number, {}).values())

        inactive, disabled, enabled, stopped = range(4)
        disable, reload, rollover = range(3)
        self.assertEqual(timer(), [inactive, 0, 0, 0])
        self.refused("GLBL_INVALID_OP", "vx_timer_start", 0, 4, 0)
        self.ok("vx_timer_set", 0, 4, {"timer_val": 30, "mode": reload})
        self.assertEqual(timer(), [stopped, reload, 30, 30])
        self.ok("vx_timer_start", 0, 4, 0)
        self.assertEqual([timer()[3] for _ in range(4)], [20, 10, 30, 20])
        self.ok("vx_timer_stop", 0, 4)
        self.assertEqual([timer() for _ in range(2)], [[stopped, reload, 30, 10]] * 2)
        self.ok("vx_timer_start", 0, 4, 0)
        self.assertEqual(timer(), [enabled, reload, 30, 30], "it goes on with the time left")
        self.ok("vx_timer_start", 0, 4, 1)
        self.assertEqual(timer()[3], 20)
        self.ok("vx_timer_set", 0, 0, {"timer_val": 15, "mode": rollover})
        self.ok("vx_timer_start", 0, 0, 0)
        self.assertEqual([timer(0)[3] for _ in range(2)], [5, -5])
        self.ok("vx_timer_set", 0, 0, {"timer_val": 0, "mode": disable})
        self.assertEqual(timer(0)[0], disabled)
        self.refused("GLBL_INVALID_OP", "vx_timer_stop", 0, 0)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_timer_set", 0, 0, {"timer_val": 0, "mode": reload})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_timer_set", 0, 5, {"timer_val": 1, "mode": reload})

    def test_reset_of_the_block(self):
        self.ok("vx_timer_set", 0, 4, {"timer_val": 100, "mode": 1})
        self.ok("vx_timer_start", 0, 4, 1)
        self.ok("vx_spi_enable_set", 0, 1, 0)
        self.ok("vx_spi_byte_write", 0, 2, 7)
        # An interrupt by edge does not come again by itself.
        self.ok("vx_gpio_write", 0, 4, 0)
        self.ok("vx_gpio_set", 0, 5, {"direction": INTERRUPT, "intr_level": 1, "intr_edge": 1, "intr_en": 1})
        self.ok("vx_gpio_set", 0, 6, {"direction": INPUT})
        self.ok("vx_gpio_write", 0, 4, 1)
        self.ok("vx_gpio_write", 0, 4, 0)
        self.assertEqual(self.interrupts()[1] & 0x20, 0x20)
        self.ok("lmq_reset_device", 0, {"rst_mode": 2, "mod_id_bit_map": 1 << 21})
        self.assertEqual(self.interrupts()[1], 0)
        self.assertEqual(len({self.ok("vx_timer_get", 0, 4, {})["cur_time"] for _ in range(3)}), 1, "the timer runs")
        self.assertEqual(self.ok("vx_spi_byte_read", 0, 2, 9), 0)
        self.assertEqual(self.ok("vx_gpio_get", 0, 5, {})["intr_en"], 1)

    def test_leds(self):
        off, colour, blink = 1, 3, 4
        config = dict(self.ok("vx_led_get", 0, 5, {}), led_type=2, on_val=1, blink_on_time=500)
        self.ok("vx_led_set", 0, 5, config)
        self.assertEqual(self.ok("vx_led_get", 0, 5, {}), config)
        self.assertEqual(self.ok("vx_led_status_get", 0, 5, 0), off)
        self.ok("vx_led_trigger", 0, 5, blink)
        self.assertEqual(self.ok("vx_led_status_get", 0, 5, 0), blink)
        self.refused("GLBL_INVALID_OP", "vx_led_trigger", 0, 5, colour)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_led_trigger", 0, 5, 5)
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_led_set", 0, 5, {"led_type": 4})
        self.refused("GLBL_RANGE_CHECK_FAIL", "vx_led_status_get", 0, 6, 0)


if __name__ == "__main__":
    unittest.main()
