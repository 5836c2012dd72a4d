/**
 * @file
 * @brief What a device keeps of VLANs, bridges and the software VLAN layer.
 */
#ifndef LMQ_DRIVER_VLAN_BRIDGE_H
#define LMQ_DRIVER_VLAN_BRIDGE_H

namespace lmq::sim {

/** @brief State of the family. */
struct VlanBridge {};

}  // namespace lmq::sim

#endif
