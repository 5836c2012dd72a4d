// What a device keeps of the local management interface, its addresses and IP hosts.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// An IP address, so that addresses compare by what counts of them.
using AddressKey = std::pair<vx_ip_ver_t, std::array<vx_uint8, 16>>;

/// Addresses and gateways of the device.
struct DeviceAddresses {
    Table<AddressKey, lmq_dev_ip_addr_cfg_s> addresses{LMQ_MAX_IP_ADDR};
    Table<AddressKey, lmq_dev_gateway_cfg_s> gateways{LMQ_MAX_IP_GATEWAY};
};

/// An IP host channel. A layer 3 interface is one that began without a port.
struct IpHost {
    vx_ip_host_if_cfg_t config{};
    bool enabled = true;
    std::set<std::pair<vx_port_id_t, vx_uint16>> ports;  ///< With the sub-port, or VX_INVALID_PORT_ID.
    std::optional<vx_uint16> inband_tci;                 ///< Set while in-band management runs over it.
    Counter<vx_uint32> rx_packets, tx_packets, rx_bytes, tx_bytes;
};

/// State of the family.
struct Management {
    static constexpr std::uint32_t max_handle = 0xFFFF;

    bool enabled = true;  ///< The local management interface.
    Counter<vx_uint32> rx_packets, rx_bytes, tx_packets, tx_bytes;
    std::optional<DeviceAddresses> addresses;  ///< Empty until first used: then from the start configuration.
    Ids handles{1, max_handle};
    Table<std::uint32_t, IpHost> hosts{LMQ_MAX_NUM_NET_IFS};
};

}  // namespace lmq::sim
