// HTTP statuses in words.
#include "transport.h"

#include "error.h"

namespace lmqctl {

namespace {

// The first line of a body that is meant for people.
std::string first_line(const std::string &body) {
    const std::string line = body.substr(0, body.find_first_of("\r\n"));
    return line.empty() || line.front() == '<' || line.size() > 200 ? "" : ": " + line;
}

}  // namespace

Transport::Transport(const Connection &connection) : connection_(connection), http_(make_http(connection)) {}

std::string Transport::exchange(const std::string &request) {
    last_status_ = 0;
    HttpAnswer answer = http_->post(request);
    last_status_ = answer.status;
    // A host that lost its driver's process answers 502 with a fault in it.
    if (answer.status == 200 || (answer.status == 502 && answer.body.starts_with("<?xml")))
        return std::move(answer.body);
    std::string hint;
    if (answer.status == 401)
        hint = connection_.user.empty() ? ", the host asks for a user: --user NAME, with the password in LMQ_PASSWORD"
                                        : ", wrong user or password";
    if (answer.status == 403) hint = ", the host does not let this client in";
    if (answer.status == 404) hint = ", there is no XML-RPC at this path; the usual one is /RPC2";
    throw Error(exit_connection,
                connection_.url + ": HTTP status " + std::to_string(answer.status) + hint + first_line(answer.body));
}

}  // namespace lmqctl
