// What a device keeps of the flows: a table for each direction, and the ids of both.
#pragma once

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Flows {
    /// Flows of a direction. Each can have a bucket of its own.
    static constexpr std::size_t max_flows = VX_LMQ_MAX_FLOW_CNT + 1;

    struct Downstream {
        vx_port_id_t port;
        vx_flow_ds_cfg_t cfg;
    };

    /// Whether a flow of either direction has this id.
    bool exists(vx_flow_id_t id) { return upstream.find(id) != nullptr || downstream.find(id) != nullptr; }

    Ids ids{1, LMQ_INVALID_FLOW_ID - 1};  ///< Of both directions: an id names one flow.
    Table<vx_flow_id_t, vx_flow_us_cfg_t> upstream{max_flows};
    Table<vx_flow_id_t, Downstream> downstream{max_flows};
};

}  // namespace lmq::sim
