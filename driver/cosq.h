/**
 * @file
 * @brief What a device keeps of the class of service queues.
 */
#ifndef LMQ_DRIVER_COSQ_H
#define LMQ_DRIVER_COSQ_H

namespace lmq::sim {

/** @brief State of the family. */
struct CosQueues {};

}  // namespace lmq::sim

#endif
