// Calls to a host.
#include "session.h"

#include <algorithm>

#include "error.h"
#include "xml_value.h"

namespace lmqctl {

Session::Session(const Connection &connection) : url_(connection.url), transport_(connection) {
    Environment e;
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, largest_answer);
    xmlrpc_client_setup_global_const(&e.env);
    e.check();
    xmlrpc_clientparms parameters{};
    parameters.transportOpsP = &xmlrpc_curl_transport_ops;
    parameters.transportP = &transport_;
    xmlrpc_client_create(&e.env, XMLRPC_CLIENT_NO_FLAGS, "lmqctl", LMQCTL_VERSION, &parameters,
                         XMLRPC_CPSIZE(transportP), &client_);
    e.check();
    server_ = xmlrpc_server_info_new(&e.env, url_.c_str());
    e.check();
}

Session::~Session() {
    if (server_) xmlrpc_server_info_free(server_);
    if (client_) xmlrpc_client_destroy(client_);
    xmlrpc_client_teardown_global_const();
}

Json Session::call(const std::string &method, const Json &parameters) {
    Environment e;
    xmlrpc_value *result = nullptr;
    const Value values = to_value(parameters);
    transport_.failure = nullptr;
    xmlrpc_client_call2(&e.env, client_, server_, method.c_str(), values.get(), &result);
    if (transport_.failure) std::rethrow_exception(transport_.failure);
    if (e.env.fault_occurred) {
        if (transport_.last_answer.find("<methodResponse") == std::string::npos)
            throw Error(exit_connection, url_ + ": what answers there does not speak XML-RPC");
        // The library says that it was the server, and then what the server said.
        std::string text = e.env.fault_string;
        for (const std::string_view before : {"RPC failed at server.  "})
            if (text.starts_with(before)) text.erase(0, before.size());
        throw Fault(e.env.fault_code, text);
    }
    return from_value(Value(result).get());
}

std::vector<Json> Session::multicall(const std::vector<Call> &calls) {
    std::vector<Json> answers;
    for (std::size_t begin = 0; begin < calls.size(); begin += calls_in_a_packet) {
        const std::size_t end = std::min(calls.size(), begin + calls_in_a_packet);
        Json packet = Json::array();
        for (std::size_t i = begin; i < end; ++i)
            packet.push_back({{"methodName", calls[i].method}, {"params", calls[i].parameters}});
        const Json packed = call("system.multicall", Json::array({packet}));
        if (!packed.is_array() || packed.size() != end - begin)
            throw Error(exit_connection, url_ + ": system.multicall answered not one value for each call");
        for (const Json &answer : packed)
            answers.push_back(answer.is_array() && answer.size() == 1 ? answer[0] : answer);
    }
    return answers;
}

bool is_fault(const Json &answer) { return answer.is_object() && answer.size() == 2 && answer.contains("faultCode"); }

}  // namespace lmqctl
