// Calls that a line or a JSON value describes, checked and ready to be sent, and their answers for programs.
#pragma once

#include <string>
#include <vector>

#include "arguments.h"
#include "context.h"

namespace lmqctl {

struct Request {
    Method method;
    Call call;
    std::string text;  // as people write it: "vx_watchdog_get 0"
};

// The method's name and its arguments, as behind `lmqctl call`. Throws a UsageError that names what is wrong.
Request request_of_words(Context &context, const std::vector<std::string> &words);

// {"method": NAME, "arguments": [...] or {NAME: VALUE}}, or [NAME, ARGUMENT...].
Request request_of_json(Context &context, const Json &json);

// An answer as --json shows it. A fault is an object under "fault".
Json json_answer(Context &context, const Method &method, const Json &answer);

// The status that the program ends with after an answer.
int exit_status_of(Context &context, const Method &method, const Json &answer);

// A whole file, or standard input for "-". Throws a UsageError for one that cannot be read.
std::string read_text(const std::string &file);

}  // namespace lmqctl
