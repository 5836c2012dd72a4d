// What the system knows of a process.
#pragma once

#include <sys/types.h>

#include <cstddef>

namespace lmq::host {

/// The memory of a process that is resident, in bytes; 0 if there is no such process.
std::size_t resident_bytes(pid_t pid);

/// The descriptors that a process has open; 0 if there is no such process.
std::size_t open_descriptors(pid_t pid);

/// Allows this process as many descriptors as it may have, and returns that number.
std::size_t raise_descriptor_limit();

}  // namespace lmq::host
