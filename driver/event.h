/**
 * @file
 * @brief What a device keeps of the events.
 */
#ifndef LMQ_DRIVER_EVENT_H
#define LMQ_DRIVER_EVENT_H

namespace lmq::sim {

/** @brief State of the family. */
struct Events {};

}  // namespace lmq::sim

#endif
