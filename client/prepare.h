// Calls that a line or a JSON value describes, checked and ready to be sent.
#pragma once

#include <string>
#include <vector>

#include "arguments.h"
#include "context.h"

namespace lmqctl {

struct PreparedCall {
    Method method;
    Call call;
    std::string text;  ///< as people write it: "vx_watchdog_get 0"
};

/// The method's name and its arguments, as behind `lmqctl call`. Throws a UsageError that names what is wrong.
PreparedCall prepare_words(Context &context, const std::vector<std::string> &words);

/// {"method": NAME, "arguments": [...] or {NAME: VALUE}}, or [NAME, ARGUMENT...].
PreparedCall prepare_json(Context &context, const Json &json);

}  // namespace lmqctl
