/**
 * @file
 * @brief What a device keeps of time distribution: PTP, and the 1PPS and time of day outputs.
 */
#ifndef LMQ_DRIVER_TIME_H
#define LMQ_DRIVER_TIME_H

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/** @brief State of the family. The configurations are kept as they are read, with all members flagged. */
struct TimeDistribution {
    TimeDistribution();

    vx_ptp_cfg_t ptp{};
    Setting<vx_port_id_t, vx_ptp_port_cfg_t> ptp_port;
    vx_1pps_tod_cfg_t outputs{};
};

}  // namespace lmq::sim

#endif
