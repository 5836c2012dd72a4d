/**
 * @file
 * @brief What a device keeps of the packet path to the CPU.
 */
#ifndef LMQ_DRIVER_CPU_PACKET_H
#define LMQ_DRIVER_CPU_PACKET_H

namespace lmq::sim {

/** @brief State of the family. */
struct CpuPackets {};

}  // namespace lmq::sim

#endif
