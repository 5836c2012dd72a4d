// Traces as lists of calls: read to be made again, written to be kept.
#pragma once

#include <string>
#include <vector>

#include "player.h"

namespace lmqctl {

/// The calls in a trace, in order: those inside a system.multicall one by one. Throws a UsageError that names the file
/// if it cannot be read or is no trace.
/// @param note Is given what stands in its head; for a torn end, what is said of it.
std::vector<PlayedCall> read_calls(const std::string &file, std::string *note = nullptr);

/// Writes a trace, in the place of what is there.
/// @param fingerprint Of the interface.
/// @param note        For the head: where the calls come from.
/// Throws an Error that names the file if it cannot be written.
void write_calls(const std::string &file, const std::vector<PlayedCall> &calls, const std::string &fingerprint,
                 const std::string &note);

}  // namespace lmqctl
