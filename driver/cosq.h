// What a device keeps of the class of service: maps, queues, schedulers and shapers.
#pragma once

#include <utility>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct CosQueues {
    static constexpr vx_uint16 port_queue_count = 8;  ///< Queues of a port other than the SNI.

    /// As the hardware comes out of reset.
    CosQueues();

    struct Shaper {
        vx_boolean enable = FALSE;
        vx_shaping_rate_cfg_t rate{};
    };

    Setting<vx_port_id_t, vx_qos_cos_map_t> cos_map;
    Setting<vx_port_id_t, vx_qos_dot1p_map_t> dot1p_map;
    Setting<vx_port_id_t, vx_qos_dscp_map_t> dscp_map;
    Setting<vx_port_id_t, vx_qos_tc_map_t> tc_map;
    Setting<std::pair<vx_port_id_t, vx_uint16>, vx_queue_cfg_t> queue;
    Setting<vx_port_id_t, vx_sched_cfg_t> scheduler;
    Setting<vx_port_id_t, Shaper> ds_shaper;
    Shaper mirror_shaper;
    lmq_global_egrs_shaper_cfg_s egress_shapers;
};

}  // namespace lmq::sim
