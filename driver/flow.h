/**
 * @file
 * @brief What a device keeps of the flows: a table for each direction, and the ids of both.
 */
#ifndef LMQ_DRIVER_FLOW_H
#define LMQ_DRIVER_FLOW_H

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/** @brief State of the family. */
struct Flows {
    /** @brief Flows of a direction. Each can have a bucket of its own. */
    static constexpr std::size_t kCapacity = VX_LMQ_MAX_FLOW_CNT + 1;

    struct Downstream {
        vx_port_id_t port;
        vx_flow_ds_cfg_t cfg;
    };

    /** @brief Whether a flow of either direction has this id. */
    bool exists(vx_flow_id_t id) { return upstream.find(id) != nullptr || downstream.find(id) != nullptr; }

    Ids ids{1, LMQ_INVALID_FLOW_ID - 1}; /**< Of both directions: an id names one flow. */
    Table<vx_flow_id_t, vx_flow_us_cfg_t> upstream{kCapacity};
    Table<vx_flow_id_t, Downstream> downstream{kCapacity};
};

}  // namespace lmq::sim

#endif
