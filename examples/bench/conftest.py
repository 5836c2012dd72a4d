"""What the bench starts from: a system that is up, a port that operates, a line with traffic.

The tests run on a simulated chip each, or on boards: pytest --lmq-url=http://board7:8080
"""

import lmq
import pytest

DEVICE, PON, ETH0, ETH1 = 0, 0, 3, 4


def start(chip, **device):
    """Brings a chip up afresh; one that is up already goes down first."""
    try:
        chip.lmq_shutdown_system()
    except lmq.VX_ERR_GLBL_SYS_UNINTIALIZED:
        pass
    chip.lmq_init_system(num_dev=1, dev_cfg=[{"enbl": True, **device}])
    return chip


def operate(chip):
    """Brings the GPON port into operation."""
    chip.vx_gpon_onu_port_enable_set(DEVICE, PON, enable=True)
    chip.wait_until("vx_gpon_onu_port_config_get", DEVICE, PON, onu_state="VX_GPON_STATE_OPERATION", timeout=5)
    return chip


@pytest.fixture
def system(chip):
    """A chip whose device is up."""
    return start(chip)


@pytest.fixture
def pon(system):
    """A chip whose GPON port operates."""
    return operate(system)


@pytest.fixture
def line(pon):
    """A GPON port with T-CONT 1 (Alloc-ID 257) and GEM port 100 in it, both directions."""
    pon.vx_gpon_onu_tcont_enable_set(DEVICE, PON, 1, True, alloc_id=257)
    pon.vx_gpon_onu_gem_port_add(DEVICE, PON, 100, direction="LMQ_DIR_BOTH", tcont_id=1)
    return pon
