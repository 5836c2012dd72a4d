// The Ethernet ports.
//
// Choices, each for want of a rule:
// - Ethernet ports are VX_PORT_MGMT and the LMQ_PORT_ETH_NUM ports from VX_PORT_ETH0, and VX_PORT_SNI0 in active
//   Ethernet mode. Another port that exists is VX_ERR_PORT_TYPE_MISMATCH.
// - A port starts as the start configuration has it if add_port is set there, else down. It can be used in either
//   case.
// - A port whose PHY type is GMII, RGMII, SGMII or GIGE is a Gigabit port; it can do half duplex up to 100 Mbit/s.
// - A port that is up has a link: the partner takes the best that the mode allows. A port that is down has none, and
//   speed and duplex are INVALID.
// - A mode that is beyond a Fast Ethernet port is VX_ERR_PORT_INVALID_CFG.
// - A negotiation that is restarted takes 100 ms of the simulator's clock, in which there is no link. In a forced
//   mode it is VX_ERR_PORT_INVALID_OP.
// - A loopback that is on has to be switched off before another, or the same, is switched on.
// - EEE is there on the ports from VX_PORT_ETH0 alone. Sleep is refused while EEE is off, and ends with it.
// - Queues are empty: each that selects a level is below its low one, and none above its high one. No pause is seen.
// - A low water mark above the high one is VX_ERR_PORT_INVALID_CFG.
// - The registers of the PHYs are those of the MDIO slaves, which can be reached here while the bus is disabled too.
// - Gaps, times, rates and levels have no unit here: they are kept. Gaps begin as 12.
// - A change of the link of a port from VX_PORT_ETH0 raises VX_EVENT_ETH_LINK_STATUS_CHNG, and
//   VX_EVENT_ETH_PHY_MODE_CHNG too if there is a link before and behind it. A link that is there from the start is no
//   change. So do the state of EEE and the levels of its queues raise VX_EVENT_EEE_SLEEP_STATE_CHNG and
//   VX_EVENT_EEE_QUEUE_STATUS_CHNG.
#include "driver/eth_port.h"

#include <algorithm>
#include <iterator>

#include "driver/chip.h"
#include "driver/store.h"

namespace lmq::sim {

namespace {

using namespace std::chrono_literals;

constexpr vx_uint8 least_gap = 12;
constexpr Clock::Time negotiation_time = 100ms;

bool has_eee(vx_port_id_t port_id) { return port_id >= VX_PORT_ETH0; }

const vx_eth_port_init_cfg_t *start_config(const Device &device, vx_port_id_t port_id) {
    if (port_id == VX_PORT_MGMT) return &device.config.lcl_mgmt_port_cfg;
    if (port_id >= VX_PORT_ETH0) return &device.config.eth_port_cfg[port_id - VX_PORT_ETH0];
    return nullptr;
}

EthPort start(const Device &device, vx_port_id_t port_id) {
    EthPort port;
    const vx_eth_port_init_cfg_t *given = start_config(device, port_id);
    const bool added = given && given->add_port;
    port.config = {.admin_status = added ? given->admin_status : VX_ADMIN_STATUS_DOWN,
                   .port_type = VX_ETH_TYPE_GE,
                   .phy_mode = added ? given->phy_mode : VX_ETH_PHY_MODE_MAC,
                   .phy_type = added ? given->phy_type : VX_ETH_PHY_TYPE_GMII,
                   .tx_ipg = least_gap,
                   .rx_ipg = least_gap,
                   .tx_enable = TRUE,
                   .rx_enable = TRUE,
                   .crc_bypass = FALSE,
                   .drop_under_sized_pkt = TRUE,
                   .mdix_mode = VX_EPHY_MDI_MODE_AUTO,
                   .valid = {1, 1, 1, 1, 1, 1, 1, 1}};
    switch (port.config.phy_type) {
        case VX_ETH_PHY_TYPE_GMII:
        case VX_ETH_PHY_TYPE_RGMII:
        case VX_ETH_PHY_TYPE_SGMII:
        case VX_ETH_PHY_TYPE_GIGE: break;
        default: port.config.port_type = VX_ETH_TYPE_FE;
    }
    port.eee.valid = {1, 1, 1, 1, 1};
    port.thresholds.valid = {1, 1, 1, 1};
    port.flow_control.valid = {1, 1, 1, 1, 1};
    std::copy(device.lifecycle.mac.begin(), device.lifecycle.mac.end(), port.flow_control.mac_sa);
    return port;
}

}  // namespace

Result<EthPort &> eth_port(Device &device, vx_port_id_t port_id) {
    if (port_id >= VX_PORT_ETH0 + LMQ_PORT_ETH_NUM && port_id != VX_PORT_VOIP0) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    if (port_id == VX_PORT_VOIP0 || port_id == VX_PORT_CPU) return VX_ERR_PORT_TYPE_MISMATCH;
    if (port_id == VX_PORT_SNI0 && device.config.dev_mode != LMQ_DEV_MODE_AE) return VX_ERR_PORT_TYPE_MISMATCH;
    auto &ports = device.eth_port.ports;
    const auto known = ports.find(port_id);
    return known != ports.end() ? known->second : ports.emplace(port_id, start(device, port_id)).first->second;
}

namespace {

/// The link that a mode comes to.
struct Link {
    vx_speed_t speed;
    vx_duplex_t duplex;
};

Result<Link> link(vx_eth_port_mode_t mode, vx_eth_cap_t type) {
    const vx_speed_t best = type == VX_ETH_TYPE_GE ? VX_SPEED_1000MBPS : VX_SPEED_100MBPS;
    switch (mode) {
        case VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_AUTO:
        case VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_FULL: return Link{best, VX_DUPLEX_FULL};
        case VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_HALF: return Link{VX_SPEED_100MBPS, VX_DUPLEX_HALF};
        case VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_FULL:
        case VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_AUTO:
        case VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_FULL: return Link{VX_SPEED_10MBPS, VX_DUPLEX_FULL};
        case VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_HALF:
        case VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_HALF: return Link{VX_SPEED_10MBPS, VX_DUPLEX_HALF};
        case VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_FULL:
        case VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_AUTO:
        case VX_ETH_PORT_MODE_AUTO_RATE_10_100_DUPLEX_AUTO:
        case VX_ETH_PORT_MODE_FORCE_RATE_100_DUPLEX_FULL: return Link{VX_SPEED_100MBPS, VX_DUPLEX_FULL};
        case VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_HALF:
        case VX_ETH_PORT_MODE_FORCE_RATE_100_DUPLEX_HALF: return Link{VX_SPEED_100MBPS, VX_DUPLEX_HALF};
        case VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_FULL:
        case VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_AUTO:
        case VX_ETH_PORT_MODE_FORCE_RATE_1000_DUPLEX_FULL: return Link{VX_SPEED_1000MBPS, VX_DUPLEX_FULL};
        case VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_HALF: return Link{VX_SPEED_1000MBPS, VX_DUPLEX_HALF};
        case VX_ETH_PORT_MODE_RSVED: break;
    }
    return VX_ERR_GLBL_RANGE_CHECK_FAIL;
}

bool sleeps(const EthPort &port) { return port.sleep_ctrl.sleep_cmd == VX_EEE_CMD_SLEEP; }

/// The queues that are below their low level, as bits: all that select one, as they are empty.
vx_uint8 below_low_level(const EthPort &port) {
    unsigned queues = 0;
    for (std::size_t queue = 0; queue < LMQ_MAX_COS; ++queue) {
        if (port.thresholds.queue_low_thresh_sel[queue] != VX_INVALID_QUEUE_THRESH_INDX) queues |= 1U << queue;
    }
    return static_cast<vx_uint8>(queues);
}

/// What the events of a port tell of, as their data.
struct Condition {
    lmq_event_data_u link{}, mode{}, sleep{}, queues{};

    explicit Condition(const EthPort &port) {
        const vx_eth_port_status_t now = link_of(port);
        link.link_chng_data = {now.speed, now.duplex, as_boolean(now.link_status == VX_LINK_UP)};
        mode.phy_mode_data = {now.speed, now.duplex};
        sleep.eee_data = {VX_EEE_TX_DIR, sleeps(port) ? VX_EEE_STATE_SLEEP : VX_EEE_STATE_NORMAL};
        queues.eee_queue_status = {below_low_level(port), 0};
    }
};

/// Raises the events that tell how a port has changed.
void report(Device &device, vx_port_id_t port_id, const Condition &before, const Condition &now) {
    const auto &old_link = before.link.link_chng_data, &link = now.link.link_chng_data;
    const bool same_mode = link.speed == old_link.speed && link.duplex == old_link.duplex;
    if (link.link_up != old_link.link_up || !same_mode) {
        raise_change(device, {VX_EVENT_ETH_LINK_STATUS_CHNG, port_id, 0}, before.link, now.link);
    }
    if (link.link_up && old_link.link_up && !same_mode) {
        raise_change(device, {VX_EVENT_ETH_PHY_MODE_CHNG, port_id, 0}, before.mode, now.mode);
    }
    if (now.sleep.eee_data.eee_state != before.sleep.eee_data.eee_state) {
        raise_change(device, {VX_EVENT_EEE_SLEEP_STATE_CHNG, port_id, 0}, before.sleep, now.sleep);
    }
    if (now.queues.eee_queue_status.low_thresh != before.queues.eee_queue_status.low_thresh) {
        raise_change(device, {VX_EVENT_EEE_QUEUE_STATUS_CHNG, port_id, 0}, before.queues, now.queues);
    }
}

/// Changes a port, and raises the events that tell of it.
template <typename Body>
vx_status_e change(Device &device, vx_port_id_t port_id, Body body) {
    const Result<EthPort &> port = eth_port(device, port_id);
    if (!port) return port.status();
    const Condition before(*port);
    if (const vx_status_e refused = run(body, *port)) return refused;
    if (port_id >= VX_PORT_ETH0) report(device, port_id, before, Condition(*port));
    return VX_SUCCESS;
}

/// Runs an operation on an Ethernet port, as on_device() on a device.
template <typename Body>
vx_status_e on_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id,
                    std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) { return change(device, port_id, body); });
}

/// The same, for an operation of EEE.
template <typename Body>
vx_status_e on_eee_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, const void *pointer,
                        Body body) noexcept {
    return on_port(function, dev_id, port_id, {pointer}, [&](EthPort &port) {
        if (!has_eee(port_id)) return VX_ERR_PORT_EEE_NOT_SUPPORTED;
        return run(body, port);
    });
}

/// Whether each queue has the index of a level, or "no level".
bool are_levels(const vx_uint8 (&queues)[LMQ_MAX_COS]) {
    return std::all_of(std::begin(queues), std::end(queues), [](vx_uint8 index) {
        return index == VX_INVALID_QUEUE_THRESH_INDX || is_in_range(index, 0, VX_EEE_THRES_MAX_NUM - 1);
    });
}

}  // namespace

vx_eth_port_status_t link_of(const EthPort &port) {
    if (port.config.admin_status == VX_ADMIN_STATUS_DOWN || port.negotiates_until) {
        return {VX_LINK_DOWN, VX_SPEED_INVALID, VX_DUPLEX_INVALID};
    }
    const Result<Link> now = link(port.mode, port.config.port_type);
    return {VX_LINK_UP, now->speed, now->duplex};
}

void pass_time(Device &device, EthPorts &ports) {
    for (const auto &[port_id, port] : ports.ports) {
        if (!port.negotiates_until || *port.negotiates_until > device.system.clock.now()) continue;
        change(device, port_id, [](EthPort &done) { done.negotiates_until.reset(); });
    }
}

void reset(Device &device, EthPorts &ports) {
    for (const auto &[port_id, port] : ports.ports) {
        change(device, port_id, [&](EthPort &changed) {
            changed.stats = {};
            changed.negotiates_until = device.system.clock.now() + negotiation_time;
        });
    }
}

void set_admin_status(Device &device, vx_port_id_t port_id, vx_admin_status_t status) {
    change(device, port_id, [&](EthPort &port) { port.config.admin_status = status; });
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_eth_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) {
        const auto &flags = p_cfg->valid;
        if (flags.admin_status && !is_in_range(p_cfg->admin_status, VX_ADMIN_STATUS_DOWN, VX_ADMIN_STATUS_UP))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.mdix_mode && !is_in_range(p_cfg->mdix_mode, VX_EPHY_MDI_MODE_AUTO, VX_EPHY_MDI_MODE_MDIX))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;

        vx_eth_port_cfg_t &kept = port.config;
        merge(flags.admin_status, kept.admin_status, p_cfg->admin_status);
        merge(flags.tx_ipg, kept.tx_ipg, p_cfg->tx_ipg);
        merge(flags.rx_ipg, kept.rx_ipg, p_cfg->rx_ipg);
        merge(flags.tx_enable, kept.tx_enable, as_boolean(p_cfg->tx_enable));
        merge(flags.rx_enable, kept.rx_enable, as_boolean(p_cfg->rx_enable));
        merge(flags.crc_bypass, kept.crc_bypass, as_boolean(p_cfg->crc_bypass));
        merge(flags.drop_under_sized_pkt, kept.drop_under_sized_pkt, as_boolean(p_cfg->drop_under_sized_pkt));
        merge(flags.mdix_mode, kept.mdix_mode, p_cfg->mdix_mode);
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) { *p_cfg = port.config; });
}

vx_status_e vx_eth_port_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) {
        const Result<Link> wanted = link(*p_cfg, port.config.port_type);
        if (!wanted) return wanted.status();
        const bool fast = port.config.port_type == VX_ETH_TYPE_FE;
        if (wanted->speed == VX_SPEED_1000MBPS && (fast || wanted->duplex == VX_DUPLEX_HALF))
            return VX_ERR_PORT_INVALID_CFG;
        port.mode = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) { *p_cfg = port.mode; });
}

vx_status_e vx_eth_port_auto_nego_restart(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        return change(device, port_id, [&](EthPort &port) {
            if (port.mode >= VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_FULL) return VX_ERR_PORT_INVALID_OP;
            port.negotiates_until = device.system.clock.now() + negotiation_time;
            return VX_SUCCESS;
        });
    });
}

vx_status_e vx_eth_port_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_status_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) { *p_cfg = link_of(port); });
}

vx_status_e vx_eth_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t lpbk_mode) {
    return on_port(__func__, dev_id, port_id, {}, [&](EthPort &port) {
        if (!is_in_range(lpbk_mode, VX_ETH_PORT_LPBK_DISABLED, VX_ETH_PORT_LPBK_PHY_REMOTE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (lpbk_mode != VX_ETH_PORT_LPBK_DISABLED && port.loopback != VX_ETH_PORT_LPBK_DISABLED)
            return VX_ERR_PORT_LOOP_BACK_ALRDY_ENABLED;
        port.loopback = lpbk_mode;
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_loopback_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t *p_lpbk_mode) {
    return on_port(__func__, dev_id, port_id, {p_lpbk_mode}, [&](EthPort &port) { *p_lpbk_mode = port.loopback; });
}

vx_status_e eth_port_phy_mdio_write(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 phy_reg_val) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_mdio(phy_addr, reg_addr, 1)) return refused;
        device.peripheral.mdio_registers.set({phy_addr, reg_addr}, phy_reg_val);
        report_mdio(device);
        return VX_SUCCESS;
    });
}

vx_status_e eth_port_phy_mdio_read(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 *p_phy_reg_val) {
    return on_device(__func__, dev_id, {p_phy_reg_val}, [&](Device &device) {
        if (const vx_status_e refused = check_mdio(phy_addr, reg_addr, 1)) return refused;
        *p_phy_reg_val = device.peripheral.mdio_registers.get({phy_addr, reg_addr});
        report_mdio(device);
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_eee_cfg_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg) {
    return on_eee_port(__func__, dev_id, port_id, p_cfg, [&](EthPort &port) {
        const auto &flags = p_cfg->valid;
        vx_eth_port_eee_cfg_t &kept = port.eee;
        merge(flags.enbl_eee, kept.enbl_eee, as_boolean(p_cfg->enbl_eee));
        merge(flags.min_tx_sleep_time, kept.min_tx_sleep_time, p_cfg->min_tx_sleep_time);
        merge(flags.pre_tx_sleep_timeout_delay, kept.pre_tx_sleep_timeout_delay, p_cfg->pre_tx_sleep_timeout_delay);
        merge(flags.min_tx_wake_time, kept.min_tx_wake_time, p_cfg->min_tx_wake_time);
        merge(flags.pre_tx_wake_timeout_delay, kept.pre_tx_wake_timeout_delay, p_cfg->pre_tx_wake_timeout_delay);
        if (!kept.enbl_eee) port.sleep_ctrl.sleep_cmd = VX_EEE_CMD_WAKE_UP;
    });
}

vx_status_e vx_eth_port_eee_cfg_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg) {
    return on_eee_port(__func__, dev_id, port_id, p_cfg, [&](EthPort &port) { *p_cfg = port.eee; });
}

vx_status_e vx_eth_port_eee_sleep_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                           vx_eth_port_eee_sleep_ctrl_t *p_cfg) {
    return on_eee_port(__func__, dev_id, port_id, p_cfg, [&](EthPort &port) {
        if (!is_in_range(p_cfg->sleep_cmd, VX_EEE_CMD_SLEEP, VX_EEE_CMD_WAKE_UP)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (p_cfg->sleep_cmd == VX_EEE_CMD_SLEEP && !port.eee.enbl_eee) return VX_ERR_PORT_INVALID_OP;
        port.sleep_ctrl = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_eee_sleep_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                           vx_eth_port_eee_sleep_ctrl_t *p_cfg) {
    return on_eee_port(__func__, dev_id, port_id, p_cfg, [&](EthPort &port) { *p_cfg = port.sleep_ctrl; });
}

vx_status_e vx_eth_port_eee_tx_q_threshold_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                               vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg) {
    return on_eee_port(__func__, dev_id, port_id, p_cfg, [&](EthPort &port) {
        const auto &flags = p_cfg->valid;
        if ((flags.queue_low_thresh_sel && !are_levels(p_cfg->queue_low_thresh_sel)) ||
            (flags.queue_high_thresh_sel && !are_levels(p_cfg->queue_high_thresh_sel)))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        vx_eth_port_eee_tx_q_thresh_cfg_t &kept = port.thresholds;
        merge(flags.low_thresh, kept.low_thresh, p_cfg->low_thresh);
        merge(flags.high_thresh, kept.high_thresh, p_cfg->high_thresh);
        merge(flags.queue_low_thresh_sel, kept.queue_low_thresh_sel, p_cfg->queue_low_thresh_sel);
        merge(flags.queue_high_thresh_sel, kept.queue_high_thresh_sel, p_cfg->queue_high_thresh_sel);
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_eee_tx_q_threshold_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                               vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg) {
    return on_eee_port(__func__, dev_id, port_id, p_cfg, [&](EthPort &port) { *p_cfg = port.thresholds; });
}

vx_status_e vx_eth_port_eee_tx_q_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                            vx_eth_port_eee_tx_q_status_t *p_status) {
    return on_eee_port(__func__, dev_id, port_id, p_status, [&](EthPort &port) {
        *p_status = {TRUE, below_low_level(port), 0};
    });
}

vx_status_e vx_eth_port_eee_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_state_t *p_state) {
    return on_eee_port(__func__, dev_id, port_id, p_state, [&](EthPort &port) {
        const bool asleep = sleeps(port);
        *p_state = {asleep ? VX_EEE_STATE_SLEEP : VX_EEE_STATE_NORMAL,
                    asleep ? VX_EEE_SM_STATE_LOW_POWER : VX_EEE_SM_STATE_NORMAL, FALSE, FALSE};
    });
}

vx_status_e vx_eth_port_flowctrl_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) {
        const auto &flags = p_cfg->valid;
        if (!is_in_range(p_cfg->flow_control_mode, VX_FLOW_CTL_MODE_BUFFER_LEVEL, VX_FLOW_CTL_MODE_RATE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        vx_flow_control_cfg_t changed = port.flow_control;
        changed.flow_control_mode = p_cfg->flow_control_mode;
        merge(flags.high_water_mark, changed.high_water_mark, p_cfg->high_water_mark);
        merge(flags.low_water_mark, changed.low_water_mark, p_cfg->low_water_mark);
        merge(flags.pause_time, changed.pause_time, p_cfg->pause_time);
        merge(flags.traffic_rate, changed.traffic_rate, p_cfg->traffic_rate);
        merge(flags.mac_sa, changed.mac_sa, p_cfg->mac_sa);
        if (changed.low_water_mark > changed.high_water_mark) return VX_ERR_PORT_INVALID_CFG;
        port.flow_control = changed;
        return VX_SUCCESS;
    });
}

vx_status_e vx_eth_port_flowctrl_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](EthPort &port) { *p_cfg = port.flow_control; });
}

vx_status_e vx_eth_port_flowctrl_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean rx_pause,
                                            vx_boolean tx_pause) {
    return on_port(__func__, dev_id, port_id, {}, [&](EthPort &port) {
        port.rx_pause = as_boolean(rx_pause);
        port.tx_pause = as_boolean(tx_pause);
    });
}

vx_status_e vx_eth_port_flowctrl_enable_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_rx_pause,
                                            vx_boolean *p_tx_pause) {
    return on_port(__func__, dev_id, port_id, {p_rx_pause, p_tx_pause}, [&](EthPort &port) {
        *p_rx_pause = port.rx_pause;
        *p_tx_pause = port.tx_pause;
    });
}

vx_status_e vx_eth_port_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_stats_t *p_stats,
                                  vx_boolean clear) {
    return on_port(__func__, dev_id, port_id, {p_stats},
                   [&](EthPort &port) { read_counters(port.stats, p_stats, clear != FALSE); });
}

vx_status_e vx_eth_port_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_port(__func__, dev_id, port_id, {}, [&](EthPort &port) { port.stats = {}; });
}

}  // extern "C"
