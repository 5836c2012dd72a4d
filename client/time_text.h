// Points of time as texts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace lmqctl {

/// "2024-05-01T12:00:00.123Z", of microseconds since 1970.
std::string time_text(int64_t microseconds);

/// The same of now.
std::string now_text();

/// Microseconds since 1970.
int64_t now_microseconds();

/// The time that a text names: "2024-05-01T12:00:00.5Z" or the beginning of it down to the day, with a blank for the T
/// too; a time of today, "03:10" or "03:10:07"; or how long ago, "90s", "10m", "2h", "1d". All in UTC. Nothing for
/// another text.
/// @return Microseconds since 1970.
std::optional<int64_t> time_of(const std::string &text);

}  // namespace lmqctl
