/**
 * @file
 * @brief What a device keeps of the Ethernet ports.
 */
#ifndef LMQ_DRIVER_ETH_PORT_H
#define LMQ_DRIVER_ETH_PORT_H

namespace lmq::sim {

/** @brief State of the family. */
struct EthPorts {};

}  // namespace lmq::sim

#endif
