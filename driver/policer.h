/**
 * @file
 * @brief What a device keeps of policers, storm control and the buffer manager.
 */
#ifndef LMQ_DRIVER_POLICER_H
#define LMQ_DRIVER_POLICER_H

namespace lmq::sim {

/** @brief State of the family. */
struct Policers {};

}  // namespace lmq::sim

#endif
