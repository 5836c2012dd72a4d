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

/// What --count was given: "8" for all lists, "p_cfg=8" for one. Throws a UsageError.
void take_count(const std::string &text, ArgumentOptions &to);

/// The method's name and its arguments, as behind `lmqctl call`, with its options --count, --force and --no-valid among
/// them. Counts of `options` for arguments that the method does not have are passed over. Throws a UsageError that
/// names what is wrong.
PreparedCall prepare_words(Context &context, const std::vector<std::string> &words,
                           const ArgumentOptions &options = {});

/// Throws a UsageError if a count is for an argument that none of the calls has.
void refuse_unused_counts(const ArgumentOptions &options, const std::vector<PreparedCall> &calls);

/// The words of {"method": NAME, "arguments": [...] or {NAME: VALUE}}, or of [NAME, ARGUMENT...].
std::vector<std::string> words_of_json(const Json &json);

}  // namespace lmqctl
