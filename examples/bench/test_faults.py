"""What the application sees when the chip fails. These run on simulated chips, whatever the others run on."""

import lmq
import pytest
from conftest import DEVICE, ETH0, start


def test_a_bus_that_fails_is_told_as_such(simulated_chip):
    chip = start(simulated_chip(fail={"vx_gpio_read": "VX_ERR_DEV_HW_FAILURE"}))
    with pytest.raises(lmq.VX_ERR_DEV_HW_FAILURE):
        chip.vx_gpio_read(DEVICE, 0)


def test_a_call_that_fails_once_succeeds_when_it_is_tried_again(simulated_chip):
    chip = start(simulated_chip(fail={("vx_watchdog_set", 1): "VX_ERR_DEV_BUSY"}))
    with pytest.raises(lmq.VX_ERR_DEV_BUSY):
        chip.vx_watchdog_set(DEVICE, wd_timer=30)
    assert chip.vx_watchdog_get(DEVICE).wd_timer != 30
    chip.vx_watchdog_set(DEVICE, wd_timer=30)
