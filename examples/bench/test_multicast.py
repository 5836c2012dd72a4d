"""Multicast VLANs, groups and who may join them."""

import lmq
import pytest
from conftest import DEVICE, ETH0, ETH1


@pytest.fixture
def television(system):
    """Ethernet port 0 with multicast VLAN 500."""
    system.vx_mcast_vlan_add(DEVICE, ETH0, 500)
    return system


def test_a_multicast_vlan_is_of_one_port(television):
    assert [each.mcast_vlan for each in television.vx_mcast_vlan_get(DEVICE, ETH0).p_cfg] == [500]
    assert television.vx_mcast_vlan_get(DEVICE, ETH1).p_cfg == []


def test_a_group_needs_its_vlan(system):
    with pytest.raises(lmq.VX_ERR_FE_MCAST_VLAN_NOT_CONFIGURED):
        system.vx_mcast_ip_entry_add(DEVICE, ETH0, mcast_vlan=500, grp_addr="239.1.1.1")


@pytest.mark.parametrize("group", ["239.1.1.1", "ff0e::1:1"])
def test_a_group_is_found_as_it_was_added(television, group):
    television.vx_mcast_ip_entry_add(DEVICE, ETH0, mcast_vlan=500, grp_addr=group)
    (entry,) = television.vx_mcast_ip_entry_get(DEVICE, ETH0).entry
    assert group in str(entry.grp_addr)


def test_an_address_that_is_no_group_is_refused(television):
    with pytest.raises(lmq.VX_ERR_GLBL_INVALID_PARAMS):
        television.vx_mcast_ip_entry_add(DEVICE, ETH0, mcast_vlan=500, grp_addr="10.0.0.1")


def test_sixty_four_groups_fit(television):
    with television.batch() as batch:
        added = [batch.vx_mcast_l2_entry_add(DEVICE, ETH0, mcast_vlan=500, mac_addr=f"01:00:5e:00:00:{number:02x}")
                 for number in range(65)]
    assert all(each.exception() is None for each in added[:64])
    with pytest.raises(lmq.VX_ERR_GLBL_SW_RESOURCE_UNAVAIL):
        added[64].result()


def test_a_vlan_takes_its_groups_with_it(television):
    television.vx_mcast_l2_entry_add(DEVICE, ETH0, mcast_vlan=500, mac_addr="01:00:5e:00:00:01")
    television.vx_mcast_vlan_delete(DEVICE, ETH0, 500)
    assert television.vx_mcast_l2_entry_get(DEVICE, ETH0).entry == []
