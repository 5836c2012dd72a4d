/**
 * @file
 * @brief What a device keeps of connectivity fault management (IEEE 802.1ag).
 */
#ifndef LMQ_DRIVER_CFM_H
#define LMQ_DRIVER_CFM_H

namespace lmq::sim {

/** @brief State of the family. */
struct Cfm {};

}  // namespace lmq::sim

#endif
