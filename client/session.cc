// Calls to a host.
#include "session.h"

#include <algorithm>

#include "error.h"
#include "safe_text.h"
#include "xml_value.h"

namespace lmqctl {

Json Session::call(const std::string &method, const Json &parameters) {
    last_xml_ = transport_.exchange(request_xml(method, parameters));
    return answer_value(last_xml_, url_);
}

bool Session::is_answered(const std::string &request) {
    try {
        transport_.exchange(request);
        return transport_.last_status() == 200;
    } catch (const Error &) {
        return false;
    }
}

std::vector<Json> Session::multicall(const std::vector<Call> &calls) {
    std::vector<Json> answers;
    for (std::size_t begin = 0; begin < calls.size(); begin += calls_in_a_request) {
        const std::size_t end = std::min(calls.size(), begin + calls_in_a_request);
        Json packed = Json::array();
        for (std::size_t i = begin; i < end; ++i)
            packed.push_back({{"methodName", calls[i].method}, {"params", calls[i].parameters}});
        const Json answered = call("system.multicall", Json::array({packed}));
        if (!answered.is_array() || answered.size() != end - begin)
            throw Error(exit_connection, url_ + ": system.multicall answered not one value for each call");
        for (const Json &answer : answered)
            answers.push_back(answer.is_array() && answer.size() == 1 ? answer[0] : answer);
    }
    return answers;
}

std::string Session::printed() {
    if (transport_.output().empty()) return "";
    const HttpAnswer answer = get(transport_.output(), "");
    // Whoever may call need not be one who may read what others print.
    if (answer.status != 200 || answer.body.empty()) return "";
    return harmless(answer.body) + (answer.body.ends_with('\n') ? "" : "\n");
}

bool is_fault(const Json &answer) {
    return answer.is_object() && answer.size() == 2 && answer.contains("faultCode") && answer.contains("faultString") &&
           answer["faultString"].is_string();
}

}  // namespace lmqctl
