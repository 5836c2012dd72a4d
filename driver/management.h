/**
 * @file
 * @brief What a device keeps of the local management interface, IP hosts and NAT.
 */
#ifndef LMQ_DRIVER_MANAGEMENT_H
#define LMQ_DRIVER_MANAGEMENT_H

namespace lmq::sim {

/** @brief State of the family. */
struct Management {};

}  // namespace lmq::sim

#endif
