// What a device keeps of the Ethernet ports: configuration and counters of each.
#pragma once

#include <map>
#include <optional>

#include "driver/clock.h"
#include "driver/result.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// A port. Its structures are kept as the get of each answers it, mask included.
struct EthPort {
    vx_eth_port_cfg_t config{};
    vx_eth_port_mode_t mode = VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_AUTO;
    vx_eth_port_loopback_t loopback = VX_ETH_PORT_LPBK_DISABLED;
    vx_eth_port_eee_cfg_t eee{};
    vx_eth_port_eee_sleep_ctrl_t sleep_ctrl{VX_EEE_CMD_WAKE_UP};
    vx_eth_port_eee_tx_q_thresh_cfg_t thresholds{};
    vx_flow_control_cfg_t flow_control{};
    vx_boolean rx_pause = FALSE;
    vx_boolean tx_pause = FALSE;
    vx_eth_port_stats_t stats{};
    std::optional<Clock::Time> negotiates_until;  ///< While rate and duplex are negotiated again, there is no link.
};

/// State of the family.
struct EthPorts {
    std::map<vx_port_id_t, EthPort> ports;  ///< Those that were used so far.
};

struct Device;

/// A port, for the other families. Refuses one that is none, or no Ethernet port.
Result<EthPort &> eth_port(Device &device, vx_port_id_t port_id);

/// The state of a port's link.
vx_eth_port_status_t link_of(const EthPort &port);

/// Ends the negotiations that have had their time.
void pass_time(Device &device, EthPorts &ports);

/// Resets the MACs: their counters begin again, and links that are there are negotiated again.
void reset(Device &device, EthPorts &ports);

/// Takes a port up or down, as vx_eth_port_config_set() does.
void set_admin_status(Device &device, vx_port_id_t port_id, vx_admin_status_t status);

}  // namespace lmq::sim
