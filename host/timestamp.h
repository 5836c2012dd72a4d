// The time as log lines show it.
#pragma once

#include <chrono>
#include <string>

namespace lmq::host {

/// A time in UTC and to the millisecond: "2026-01-31T12:00:00.000Z".
std::string timestamp(std::chrono::system_clock::time_point time = std::chrono::system_clock::now());

}  // namespace lmq::host
