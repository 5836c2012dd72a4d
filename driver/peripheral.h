/**
 * @file
 * @brief What a device keeps of timers, pins, LEDs and the serial buses.
 */
#ifndef LMQ_DRIVER_PERIPHERAL_H
#define LMQ_DRIVER_PERIPHERAL_H

namespace lmq::sim {

/** @brief State of the family. */
struct Peripherals {};

}  // namespace lmq::sim

#endif
