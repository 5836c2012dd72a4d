// Points of time as texts.
#pragma once

#include <string>

namespace lmqctl {

/// "2024-05-01T12:00:00.123Z"
std::string now_text();

}  // namespace lmqctl
