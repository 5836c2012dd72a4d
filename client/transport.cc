// The transport under the XML-RPC library's client.
#include "transport.h"

#include "error.h"

namespace {

using lmqctl::Error;

void call(xmlrpc_env *env, xmlrpc_client_transport *transport, const xmlrpc_server_info *, xmlrpc_mem_block *xml,
          xmlrpc_mem_block **response) {
    try {
        transport->exchange({static_cast<const char *>(xmlrpc_mem_block_contents(xml)), xmlrpc_mem_block_size(xml)});
        const std::string &answer = transport->last_answer;
        *response = xmlrpc_mem_block_new(env, answer.size());
        if (!env->fault_occurred) answer.copy(static_cast<char *>(xmlrpc_mem_block_contents(*response)), answer.size());
    } catch (...) {
        transport->failure = std::current_exception();
        xmlrpc_env_set_fault(env, XMLRPC_NETWORK_ERROR, "no answer");
    }
}

// The first line of a body that is meant for people.
std::string first_line(const std::string &body) {
    const std::string line = body.substr(0, body.find_first_of("\r\n"));
    return line.empty() || line.front() == '<' || line.size() > 200 ? "" : ": " + line;
}

}  // namespace

// The library's default transport by its own name. With it defined here, the linker leaves the library's out, and the
// thirty libraries under that.
xmlrpc_client_transport_ops xmlrpc_curl_transport_ops = {nullptr, nullptr, nullptr, nullptr,
                                                         nullptr, call,    nullptr, nullptr};

xmlrpc_client_transport::xmlrpc_client_transport(const lmqctl::Connection &connection)
    : connection_(connection), http_(lmqctl::make_http(connection)) {}

std::string xmlrpc_client_transport::exchange(const std::string &request) {
    const std::string &url = connection_.url;
    last_answer.clear();
    lmqctl::HttpAnswer answer = http_->post(request);
    last_answer = std::move(answer.body);
    const int status = answer.status;
    // A host that lost its driver's process answers 502 with a fault in it.
    if (status == 200 || (status == 502 && last_answer.starts_with("<?xml"))) return last_answer;
    std::string hint;
    if (status == 401)
        hint = connection_.user.empty() ? "the host asks for a user: --user NAME, with the password in LMQ_PASSWORD"
                                        : "wrong user or password";
    if (status == 403) hint = "the host does not let this client in";
    if (status == 404) hint = "there is no XML-RPC at this path; the usual one is /RPC2";
    throw Error(lmqctl::exit_connection, url + ": HTTP status " + std::to_string(status) + (hint.empty() ? "" : ", ") +
                                             hint + first_line(last_answer));
}
