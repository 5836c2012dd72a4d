/**
 * @file
 * @brief What a device keeps of layer 2 forwarding.
 */
#ifndef LMQ_DRIVER_L2_H
#define LMQ_DRIVER_L2_H

namespace lmq::sim {

/** @brief State of the family. */
struct Layer2 {};

}  // namespace lmq::sim

#endif
