/**
 * @file
 * @brief What a device keeps of the local management interface, its addresses, IP hosts and NAT.
 */
#ifndef LMQ_DRIVER_MANAGEMENT_H
#define LMQ_DRIVER_MANAGEMENT_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/** @brief An IP address, so that addresses compare by what counts of them. */
using AddressKey = std::pair<vx_ip_ver_t, std::array<vx_uint8, 16>>;

/** @brief Addresses and gateways of the device. */
struct DeviceAddresses {
    Table<AddressKey, lmq_dev_ip_addr_cfg_s> addresses{LMQ_MAX_IP_ADDR};
    Table<AddressKey, lmq_dev_gateway_cfg_s> gateways{LMQ_MAX_IP_GATEWAY};
};

/** @brief An IP host channel. A layer 3 interface is one that began without a port. */
struct IpHost {
    vx_ip_host_if_cfg_t config{};
    bool enabled = true;
    std::set<std::pair<vx_port_id_t, vx_uint16>> ports; /**< With the sub-port, or VX_INVALID_PORT_ID. */
    std::optional<vx_uint16> inband_tci;                /**< Set while in-band management runs over it. */
    Counter<vx_uint32> rx_packets, tx_packets, rx_bytes, tx_bytes;
};

/** @brief What tells one translation from another: addresses, L4 ports, protocol and direction. */
using NatKey = std::tuple<vx_uint32, vx_uint32, vx_uint16, vx_uint16, vx_uint8, vx_uint8>;

/** @brief State of the family. */
struct Management {
    static constexpr std::size_t kMaxNatEntries = 64;
    static constexpr std::uint32_t kMaxHandle = 0xFFFF;

    bool enabled = true; /**< The local management interface. */
    Counter<vx_uint32> rx_packets, rx_bytes, tx_packets, tx_bytes;
    std::optional<DeviceAddresses> addresses; /**< Empty until first used: then from the start configuration. */
    Ids handles{1, kMaxHandle};
    Table<std::uint32_t, IpHost> hosts{LMQ_MAX_NUM_NET_IFS};
    Table<NatKey, vx_nat_entry_t> nat{kMaxNatEntries};
};

}  // namespace lmq::sim

#endif
