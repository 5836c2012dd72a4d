"""Events: raised, seen, counted and cleared."""

import lmq
import pytest
from conftest import DEVICE, ETH0, PON

LOS, LINK = "VX_EVENT_GPON_ALM_LOS", "VX_EVENT_ETH_LINK_STATUS_CHNG"


@pytest.fixture
def watched(system):
    """A chip that has a handler for loss of signal, on every port."""
    system.lmq_register_debug_event(DEVICE, LOS, False, all_ports=True)
    return system


def test_an_event_is_counted_until_the_count_is_cleared(watched):
    for _ in range(3):
        watched.lmq_dbg_generate_event(DEVICE, LOS, PON)
    assert watched.vx_event_count_get(DEVICE, LOS, PON).p_count == 3
    watched.vx_event_count_clear(DEVICE, LOS, PON)
    assert watched.vx_event_count_get(DEVICE, LOS, PON).p_count == 0


def test_an_event_waits_while_interrupts_are_off(watched):
    watched.lmq_ctrl_interrupts(DEVICE, enable=False)
    watched.lmq_dbg_generate_event(DEVICE, LOS, PON)
    assert watched.vx_pending_events_get(DEVICE, LOS, PON).status
    watched.lmq_ctrl_interrupts(DEVICE, enable=True)
    assert not watched.vx_pending_events_get(DEVICE, LOS, PON).status


def test_a_handler_registers_once(watched):
    with pytest.raises(lmq.VX_ERR_GLBL_ENTRY_EXIST):
        watched.lmq_register_debug_event(DEVICE, LOS, False, all_ports=True)


def test_an_event_of_ethernet_has_no_gpon_port(system):
    with pytest.raises(lmq.VX_ERR_EVT_INVALID_PORT):
        system.vx_event_count_clear(DEVICE, LINK, PON)
    assert system.vx_event_count_get(DEVICE, LINK, ETH0).p_count >= 0
