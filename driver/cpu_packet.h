// What a device keeps of the packet path to and from the CPU.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <tuple>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// A port as packets to and from the CPU name it.
struct CpuPort {
    vx_port_type_t type;
    vx_uint16 port;
    vx_uint16 sub_port;

    auto operator<=>(const CpuPort &) const = default;
};

/// A trap of one type of packet.
struct CpuTrap {
    bool enabled = true;
    std::set<CpuPort> ports;
};

/// State of the family.
struct CpuPackets {
    CpuPackets();

    std::map<vx_uint32, CpuTrap> traps;  ///< By handle, which is the type of packet.
    std::map<std::tuple<vx_l2_spcl_pkt_type_t, vx_port_type_t, vx_uint16>, Counter<vx_uint32>> trapped;

    std::map<std::tuple<vx_port_id_t, vx_l2_spcl_pkt_type_t>, lmq_fe_spcl_pkt_ctrl_t> control;
    Setting<std::tuple<vx_port_id_t, vx_uint16, vx_l2_spcl_pkt_type_t>, vx_l2_spcl_pkt_action_t> behavior;
    Setting<vx_port_id_t, vx_boolean> traffic_block;
    Setting<vx_port_id_t, vx_boolean> pppoe_filter;
    Setting<vx_port_id_t, vx_l2_spcl_pkt_type_bitmap_t> filter;
};

}  // namespace lmq::sim
