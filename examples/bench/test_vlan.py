"""Bridges, VLANs, GEM ports and the flows between them."""

import lmq
import pytest
from conftest import DEVICE, ETH0, ETH1, PON


def key(vlan):
    return {"key_s": {"mac_vlan": {"o_vid": vlan}}}


def test_a_gem_port_goes_through_its_tcont(line):
    info = line.vx_gpon_onu_gem_port_info_get(DEVICE, PON, 100)
    assert (info.tcont_id, info.alloc_id, info.direction.name) == (1, 257, "LMQ_DIR_BOTH")


def test_a_tcont_that_is_used_cannot_be_disabled(line):
    with pytest.raises(lmq.VX_ERR_DEV_BUSY):
        line.vx_gpon_onu_tcont_enable_set(DEVICE, PON, 1, False)


def test_active_gem_ports_are_listed(line):
    line.vx_gpon_onu_gem_port_add(DEVICE, PON, 200, direction="LMQ_DIR_US", tcont_id=1)
    listed = line.vx_gpon_onu_active_gem_port_get(DEVICE, PON)
    assert [each.gem_port_id for each in listed.p_info] == [100, 200]


def test_a_flow_carries_a_vlan_to_a_gem_port(line):
    flow = line.vx_flow_us_add(DEVICE, ETH0, p_key=key(100)).p_flow_id
    line.vx_flow_us_map(DEVICE, flow, sni_port_num=PON, sni_sub_port=100)
    found = line.vx_flow_us_get(DEVICE, flow)
    assert found.p_key.key_type == lmq.VX_CL_KEY_MAC_VLAN
    assert found.p_key.key_s.mac_vlan.o_vid == 100


def test_two_flows_cannot_have_the_same_key(system):
    system.vx_flow_us_add(DEVICE, ETH0, p_key=key(100))
    with pytest.raises(lmq.VX_ERR_FE_ACTION_ON_DUP_FLOW_NOT_SUPPORTED):
        system.vx_flow_us_add(DEVICE, ETH0, p_key=key(100))


def test_flows_of_a_port_are_listed(system):
    for vlan in (100, 200, 300):
        system.vx_flow_us_add(DEVICE, ETH0, p_key=key(vlan))
    system.vx_flow_us_add(DEVICE, ETH1, p_key=key(100))
    listed = system.vx_flow_us_all_get(DEVICE, ETH0, get_cnt=8)
    assert listed.p_valid_cnt == 3
    assert sorted(each.key.key_s.mac_vlan.o_vid for each in listed.p_cfg) == [100, 200, 300]


def test_a_bridge_joins_two_ethernet_ports(system):
    system.lmq_create_bridge(DEVICE, 7, brg_type="LMQ_BRG_TYPE_N_1", vlan_id=100)
    ports = [system.lmq_add_bridge_port(DEVICE, port, 7).p_brg_port_id for port in (ETH0, ETH1)]
    info = system.lmq_get_bridge_config(DEVICE, 7)
    assert info.brg_cfg.vlan_id == 100
    assert [each.brg_port_num for each in info.brg_port_info] == ports


def test_two_bridges_cannot_have_one_vlan(system):
    system.lmq_create_bridge(DEVICE, 7, brg_type="LMQ_BRG_TYPE_N_1", vlan_id=100)
    with pytest.raises(lmq.VX_ERR_FE_DUPLICATE_BRG_VLAN_ID):
        system.lmq_create_bridge(DEVICE, 8, brg_type="LMQ_BRG_TYPE_N_1", vlan_id=100)


def test_a_bridge_takes_its_ports_with_it(system):
    system.lmq_create_bridge(DEVICE, 7, brg_type="LMQ_BRG_TYPE_N_1", vlan_id=100)
    port = system.lmq_add_bridge_port(DEVICE, ETH0, 7).p_brg_port_id
    system.lmq_delete_bridge(DEVICE, 7)
    with pytest.raises(lmq.VX_ERR_FE_INVALID_BRG_PORT_ID):
        system.lmq_delete_bridge_port(DEVICE, port)


def test_membership_is_checked_in_one_direction_alone(system):
    system.vx_vlan_member_check_set(DEVICE, ETH0, "VX_ACL_VLAN_FILTER_DIR_INGRESS", enable=True)
    assert system.vx_vlan_member_check_get(DEVICE, ETH0).p_ena == lmq.VX_ACL_VLAN_FILTER_DIR_INGRESS
    assert system.vx_vlan_member_check_get(DEVICE, ETH1).p_ena == lmq.VX_ACL_VLAN_FILTER_DIR_DISABLE
