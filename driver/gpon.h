/**
 * @file
 * @brief What a device keeps of the GPON port, T-CONTs and GEM ports.
 */
#ifndef LMQ_DRIVER_GPON_H
#define LMQ_DRIVER_GPON_H

namespace lmq::sim {

/** @brief State of the family. */
struct Gpon {};

}  // namespace lmq::sim

#endif
