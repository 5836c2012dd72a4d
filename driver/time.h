/**
 * @file
 * @brief What a device keeps of PTP, 1PPS and time of day.
 */
#ifndef LMQ_DRIVER_TIME_H
#define LMQ_DRIVER_TIME_H

namespace lmq::sim {

/** @brief State of the family. */
struct TimeDistribution {};

}  // namespace lmq::sim

#endif
