/**
 * @file
 * @brief What a device keeps of the flows.
 */
#ifndef LMQ_DRIVER_FLOW_H
#define LMQ_DRIVER_FLOW_H

namespace lmq::sim {

/** @brief State of the family. */
struct Flows {};

}  // namespace lmq::sim

#endif
