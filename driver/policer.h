// What a device keeps of rate limits and policers: configuration, bindings and counters.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <utility>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Policers {
    struct FlowPolicer {
        vx_rate_limit_cfg_t limit;
        std::optional<vx_pol_id_t> group{};
        vx_pol_flow_stat_t counters{};
    };
    struct GroupPolicer {
        vx_rate_limit_cfg_t limit;
        vx_pol_group_stats_t counters{};
    };

    vx_global_policer_cfg_t global{20, VX_POL_PER_PORT};  ///< With the overhead of a packet in IEEE 802.3.
    vx_rate_limit_cfg_t cpu{};
    Setting<std::pair<vx_port_id_t, vx_storm_control_type_t>, vx_rate_limit_cfg_t> storm_control;
    Setting<vx_port_id_t, vx_rate_limit_cfg_t> source_port;

    Ids flow_ids{0, LMQ_MAX_NUM_FLOW_POL - 1};
    Ids group_ids{0, LMQ_MAX_NUM_GRP_POL - 1};
    std::map<vx_pol_id_t, FlowPolicer> flow_policers;
    std::map<vx_pol_id_t, GroupPolicer> group_policers;
    std::map<vx_flow_id_t, vx_flow_policing_cfg_t> policing;  ///< Of the flows that are policed.

    Setting<vx_lmq_pol_flow_type_t, vx_lmq_rate_limit_t> bucket;
    Setting<vx_port_id_t, vx_uint32> storm_control_mode;
    Setting<vx_port_id_t, vx_lmq_pol_port_shape_t> shaper;
    std::set<std::pair<vx_uint32, lmq_pol_acc_flow_type_t>> accumulating;  ///< Flows and the buckets they share.

    /// @name Counters, for whatever moves them
    /// @{

    /// Those of the traffic manager begin again at 0: all but the buffer manager's.
    void clear_counters();

    std::map<vx_port_id_t, vx_uint32> shaped;
    vx_pol_cpu_stats_t cpu_counters{};
    std::map<vx_port_id_t, vx_pol_src_port_stat_t> source_port_counters;
    lmq_bm_pkt_stats_s buffer_manager{};
    /// @}
};

}  // namespace lmq::sim
