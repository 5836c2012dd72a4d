"""Policers of ports and flows, and what they count."""

import lmq
import pytest
from conftest import DEVICE, ETH0, ETH1, operate, start

LIMIT = {"pol_type": "VX_RATE_LIMIT_BPS_MODE", "peak_rate": 1000, "commited_burst": 64}


def test_a_policer_keeps_its_limit(system):
    policer = system.vx_rate_policer_create(DEVICE, LIMIT).flow_pol_id
    found = system.vx_rate_policer_get(DEVICE, policer)
    assert (found.pol_type.name, found.peak_rate, found.commited_burst) == tuple(LIMIT.values())


def test_sixty_four_policers_fit(system):
    with system.batch() as batch:
        made = [batch.vx_rate_policer_create(DEVICE, LIMIT) for _ in range(65)]
    assert len({each.result().flow_pol_id for each in made[:64]}) == 64
    with pytest.raises(lmq.VX_ERR_TM_POLICER_UNAVAIL):
        made[64].result()


def test_a_policer_that_polices_cannot_be_deleted(system):
    policer = system.vx_rate_policer_create(DEVICE, LIMIT).flow_pol_id
    flow = system.vx_flow_us_add(DEVICE, ETH0, p_key={"key_s": {"mac_vlan": {"o_vid": 100}}}).p_flow_id
    system.vx_rate_flow_id_set(DEVICE, flow, flow_pol_sel=1, flw_pol_id=policer)
    with pytest.raises(lmq.VX_ERR_DEV_BUSY):
        system.vx_rate_policer_delete(DEVICE, policer)
    system.lmq_disable_flow_policing(DEVICE, policer)
    system.vx_rate_policer_delete(DEVICE, policer)


def test_a_limit_of_one_port_leaves_the_other_alone(system):
    system.vx_rate_src_port_set(DEVICE, ETH0, LIMIT)
    assert system.vx_rate_src_port_get(DEVICE, ETH0).peak_rate == 1000
    assert system.vx_rate_src_port_get(DEVICE, ETH1).peak_rate == 0


def test_settings_go_back_to_what_they_were(system):
    before = system.snapshot("vx_rate_src_port_set")
    system.vx_rate_src_port_set(DEVICE, ETH0, LIMIT)
    (restored,) = before.restore()
    assert restored[:2] == ("vx_rate_src_port_set", (DEVICE, ETH0))
    assert system.vx_rate_src_port_get(DEVICE, ETH0).peak_rate == 0


def test_a_port_with_a_limit_drops_packets(simulated_chip):
    chip = operate(start(simulated_chip(traffic=(1, 10000), clock=1000)))
    for port in (ETH0, ETH1):
        chip.vx_eth_port_config_set(DEVICE, port, admin_status="VX_ADMIN_STATUS_UP")
    chip.vx_rate_src_port_set(DEVICE, ETH0, LIMIT)
    chip.wait_until("vx_rate_src_port_stat_get", DEVICE, ETH0, pir_drop_pkt=lambda packets: packets > 100, timeout=5)
    assert chip.vx_rate_src_port_stat_get(DEVICE, ETH1).pir_drop_pkt == 0
