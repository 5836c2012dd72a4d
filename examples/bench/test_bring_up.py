"""From power-on to a port that operates."""

import lmq
import pytest
from conftest import DEVICE, ETH0, PON, operate, start


def test_nothing_works_before_the_system_is_started(system):
    system.lmq_shutdown_system()
    with pytest.raises(lmq.VX_ERR_GLBL_SYS_UNINTIALIZED):
        system.vx_watchdog_get(DEVICE)


def test_the_system_starts_once(system):
    with pytest.raises(lmq.VX_ERR_GLBL_SYS_ALRDY_INTIALIZED):
        system.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True}])


def test_a_device_that_is_not_enabled_stays_in_reset(chip):
    start(chip, enbl=False)
    with pytest.raises(lmq.VX_ERR_DEV_UNINTIALIZED):
        chip.vx_watchdog_get(DEVICE)


def test_the_mac_address_of_the_start_configuration_counts(chip):
    start(chip, dev_mac_addr="02:00:5e:10:00:01")
    assert chip.vx_mac_addr_get(DEVICE).p_mac_addr == "02:00:5e:10:00:01"


def test_the_watchdog_keeps_what_is_set(system):
    system.vx_watchdog_set(DEVICE, wd_timer=30, wd_action="VX_WD_ACTION_REBOOT")
    watchdog = system.vx_watchdog_get(DEVICE)
    assert watchdog.wd_timer == 30 and watchdog.wd_action == lmq.VX_WD_ACTION_REBOOT


def test_registers_keep_what_is_written(system):
    for number in range(16):
        system.lmq_write_register(DEVICE, 0x1000 + 4 * number, 0xDEAD0000 | number)
    with system.batch() as batch:
        words = [batch.lmq_read_register(DEVICE, 0x1000 + 4 * number) for number in range(16)]
    assert [dict(word.result()) for word in words] == [{"p_reg_data": 0xDEAD0000 | number} for number in range(16)]


def test_a_device_that_does_not_exist_is_refused(system):
    with pytest.raises(lmq.VX_ERR_DEV_ID_INVALID):
        system.unchecked.vx_watchdog_get(DEVICE + 1)


def test_the_port_finds_its_way_to_operation(system):
    assert system.vx_gpon_onu_port_config_get(DEVICE, PON).onu_state == lmq.VX_GPON_STATE_INITIAL
    operate(system)
    assert system.vx_gpon_onu_port_config_get(DEVICE, PON).onu_id == 1
    assert system.vx_gpon_signal_status_get(DEVICE, PON).p_active is True


def test_the_serial_number_is_the_one_of_the_configuration(chip):
    start(chip, gpon_cfg={"vendor_id": "MNOP", "serial_num": 0x01020304})
    config = chip.vx_gpon_onu_port_config_get(DEVICE, PON)
    assert (config.vendor_id, config.serial_num) == ("MNOP", 0x01020304)


def test_a_port_that_registers_by_itself_needs_no_call(chip):
    start(chip, gpon_cfg={"auto_register": True})
    chip.wait_until("vx_gpon_onu_port_config_get", DEVICE, PON, onu_state="VX_GPON_STATE_OPERATION", timeout=5)


def test_a_disabled_port_goes_back_to_the_beginning(pon):
    pon.vx_gpon_onu_port_enable_set(DEVICE, PON, enable=False)
    pon.wait_until("vx_gpon_onu_port_config_get", DEVICE, PON, onu_state="VX_GPON_STATE_INITIAL", timeout=5)


def test_an_ethernet_port_is_no_gpon_port(system):
    with pytest.raises(lmq.VX_ERR_PORT_TYPE_MISMATCH):
        system.unchecked.vx_gpon_onu_port_config_get(DEVICE, ETH0)
