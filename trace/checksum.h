// The checksum of records.
#pragma once

#include <cstddef>
#include <cstdint>

namespace lmq::trace {

/// CRC-32 as in gzip.
std::uint32_t checksum(const char *bytes, std::size_t size);

}  // namespace lmq::trace
