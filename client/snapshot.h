// Answers of many methods, kept in a file or in memory to be compared.
#pragma once

#include <string>
#include <vector>

#include "context.h"

namespace lmqctl {

// Makes the calls. The answers, with enumerators by name, in an object: "METHOD(ARGUMENTS)" to
// {"method", "parameters", "status", "arguments"} or {"method", "parameters", "fault"}.
Json take_snapshot(Context &context, const std::vector<Call> &calls);

}  // namespace lmqctl
