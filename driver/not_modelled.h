/**
 * @file
 * @brief The answer of the functions whose behaviour is not simulated.
 */
#ifndef LMQ_DRIVER_NOT_MODELLED_H
#define LMQ_DRIVER_NOT_MODELLED_H

#include "lmq/status.h"

namespace lmq::sim {

/** @brief "Not supported", whatever the arguments and the state of the chip: never success. */
inline constexpr vx_status_e kNotModelled = VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW;

}  // namespace lmq::sim

#endif
