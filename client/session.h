// Calls to a host: the XML-RPC library's client with our transport under it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "json.h"
#include "transport.h"

namespace lmqctl {

// Calls that go in one packet: what a host takes at least.
inline constexpr std::size_t calls_in_a_packet = 100;

struct Call {
    std::string method;
    Json parameters = Json::array();
};

class Session {
  public:
    // Connects with the first call. Throws a UsageError for a URL that is none.
    explicit Session(const Connection &connection);
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    // Calls a method. Throws a Fault, or an Error for a host that cannot be reached or speaks something else.
    Json call(const std::string &method, const Json &parameters = Json::array());

    // Many calls in as few documents as the host takes (100 calls each). One answer for each call: what it returned, or
    // an object with faultCode and faultString (see is_fault).
    std::vector<Json> multicall(const std::vector<Call> &calls);

    // The document that the last call was answered with.
    const std::string &last_xml() const { return transport_.last_answer; }
    const std::string &url() const { return url_; }

  private:
    std::string url_;
    xmlrpc_client_transport transport_;
    xmlrpc_client *client_ = nullptr;
    xmlrpc_server_info *server_ = nullptr;
};

bool is_fault(const Json &answer);

}  // namespace lmqctl
