/**
 * @file
 * @brief What a device keeps of GPON traffic management and statistics.
 */
#ifndef LMQ_DRIVER_GPON_TM_H
#define LMQ_DRIVER_GPON_TM_H

namespace lmq::sim {

/** @brief State of the family. */
struct GponTm {};

}  // namespace lmq::sim

#endif
