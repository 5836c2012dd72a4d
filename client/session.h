// Calls to a host, one at a time or many in one request.
#pragma once

#include <string>
#include <vector>

#include "json.h"
#include "transport.h"

namespace lmqctl {

/// Calls that go in one request: what a host takes at least.
inline constexpr std::size_t calls_in_a_request = 100;

struct Call {
    std::string method;
    Json parameters = Json::array();
};

class Session {
  public:
    /// Connects with the first call. Throws a UsageError for a URL that is none.
    explicit Session(const Connection &connection) : url_(connection.url), transport_(connection) {}

    /// Calls a method. Throws a Fault, or an Error for a host that cannot be reached or speaks something else.
    Json call(const std::string &method, const Json &parameters = Json::array());

    /// Sends a document that calls a method. Whether there was an answer, which is not looked at.
    bool is_answered(const std::string &request);

    /// Many calls in as few requests as the host takes (100 calls each). One answer for each call: what it returned,
    /// or an object with faultCode and faultString (see is_fault).
    std::vector<Json> multicall(const std::vector<Call> &calls);

    /// A document that the host serves beside its calls, with any status; 304 for the version with this tag.
    HttpAnswer get(const std::string &name, const std::string &tag) { return document({"GET", name, "", tag}); }
    /// The same for any request.
    HttpAnswer document(const HttpRequest &request) { return transport_.document(request); }
    /// Throws an Error that says in words what an answer without a document means.
    [[noreturn]] void refuse(const HttpAnswer &answer) const { transport_.refuse(answer); }

    /// What the driver printed during the last request, harmless to a terminal, each line whole; empty if it printed
    /// nothing, or the host does not say.
    std::string printed();

    /// The token of the lease that requests show from now on; empty for none.
    void show_lease(const std::string &token) { transport_.show_lease(token); }

    /// The document that the last call was answered with.
    /// Whether the last call ended with the driver's process: the host answers 502 then.
    bool lost_worker() const { return transport_.last_status() == 502; }

    const std::string &last_xml() const { return last_xml_; }
    const std::string &url() const { return url_; }

  private:
    const std::string url_;
    Transport transport_;
    std::string last_xml_;
};

bool is_fault(const Json &answer);

}  // namespace lmqctl
