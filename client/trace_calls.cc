// Traces as lists of calls.
#include "trace_calls.h"

#include "error.h"
#include "file.h"

namespace lmqctl {

std::vector<PlayedCall> read_calls(const std::string &file) {
    std::vector<PlayedCall> calls;
    for (const Json &each : json_of_user(read_text(file), file))
        calls.push_back({{each["method"], each["parameters"]},
                         {each["kind"].get<Outcome::Kind>(), each["answer"], each["code"], each["text"]}});
    return calls;
}

void write_calls(const std::string &file, const std::vector<PlayedCall> &calls) {
    Json all = Json::array();
    for (const PlayedCall &each : calls)
        all.push_back({{"method", each.call.method},
                       {"parameters", each.call.parameters},
                       {"kind", each.outcome.kind},
                       {"answer", each.outcome.answer},
                       {"code", each.outcome.code},
                       {"text", each.outcome.text}});
    write_text(file, json_text(all, 1) + "\n");
}

}  // namespace lmqctl
