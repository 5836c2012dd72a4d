/**
 * @file
 * @brief What a device keeps of multicast.
 */
#ifndef LMQ_DRIVER_MCAST_H
#define LMQ_DRIVER_MCAST_H

namespace lmq::sim {

/** @brief State of the family. */
struct Multicast {};

}  // namespace lmq::sim

#endif
