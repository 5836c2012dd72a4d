// What a device keeps of multicast.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Multicast {
    /// VLAN, sub-port and address, the address with its kind in front.
    using Group = std::tuple<vx_uint16, vx_uint16, std::array<vx_uint8, 17>>;

    static constexpr std::size_t max_acl_entries = 64;
    static constexpr std::size_t max_joins = LMQ_MC_GID_PER_SUB_PORT;

    struct Join {
        vx_mcast_host_info_dbg_t host;
        lmq_mcast_filter_cfg_dbg_s filter;
    };
    struct Port {
        Table<vx_uint16, vx_mcast_vlan_cfg_t> vlans{MAX_MCAST_VLAN_NUM};
        Table<Group, vx_mcast_l2_entry_t> l2{MAX_MCAST_L2_NUM};
        Table<Group, vx_mcast_ip_entry_t> ip{MAX_MCAST_IP_NUM};
        Table<Group, Join> joins{max_joins};
        std::vector<vx_mcast_acl_t> acl;  ///< In the order of their addition.
        std::optional<lmq_igmp_proto_type_e> snooping;
        lmq_igmp_vlan_cfg_s igmp_vlan{};
    };
    std::map<vx_port_id_t, Port> ports;
};

}  // namespace lmq::sim
