/**
 * @file
 * @brief What a device keeps of the access control lists.
 */
#ifndef LMQ_DRIVER_ACL_H
#define LMQ_DRIVER_ACL_H

namespace lmq::sim {

/** @brief State of the family. */
struct Acl {};

}  // namespace lmq::sim

#endif
