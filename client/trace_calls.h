// Traces as lists of calls: read to be made again, written to be kept.
#pragma once

#include <string>
#include <vector>

#include "player.h"

namespace lmqctl {

/// The calls in a file, in order. Throws a UsageError that names the file if it cannot be read or is none.
std::vector<PlayedCall> read_calls(const std::string &file);

/// Throws an Error that names the file if it cannot be written.
void write_calls(const std::string &file, const std::vector<PlayedCall> &calls);

}  // namespace lmqctl
