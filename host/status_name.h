// Names of the driver's statuses, for people who read a log or a metric.
#pragma once

#include <string_view>

namespace lmq::host {

/// @param status What a driver function returned.
/// @return Its name in vx_status_e; empty if it is none of them.
std::string_view status_name(int status);

}  // namespace lmq::host
