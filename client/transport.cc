// The transport on libcurl.
#include "transport.h"

#include <new>

#include "error.h"

namespace {

using lmqctl::Error;

std::size_t store(char *data, std::size_t, std::size_t length, void *text) {
    static_cast<std::string *>(text)->append(data, length);
    return length;
}

int is_stopped(void *stop, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return *static_cast<const volatile std::sig_atomic_t *>(stop) != 0;
}

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

const xmlrpc_client_transport_ops xmlrpc_client_transport::operations = {nullptr, nullptr, nullptr, nullptr,
                                                                         nullptr, call,    nullptr, nullptr};

xmlrpc_client_transport::xmlrpc_client_transport(const lmqctl::Connection &connection)
    : connection_(connection), headers_(nullptr) {
    const bool is_tls = connection.url.starts_with("https:");
    curl_global_init(is_tls ? CURL_GLOBAL_ALL : CURL_GLOBAL_NOTHING);
    curl_ = curl_easy_init();
    if (!curl_) throw std::bad_alloc();
    headers_ = curl_slist_append(headers_, "Content-Type: text/xml");
    headers_ = curl_slist_append(headers_, "Expect:");
    curl_easy_setopt(curl_, CURLOPT_HTTPHEADER, headers_);
    curl_easy_setopt(curl_, CURLOPT_USERAGENT, "lmqctl/" LMQCTL_VERSION);
    curl_easy_setopt(curl_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl_, CURLOPT_WRITEFUNCTION, store);
    curl_easy_setopt(curl_, CURLOPT_TIMEOUT_MS, static_cast<long>(connection.timeout * 1000));
    curl_easy_setopt(curl_, CURLOPT_PROTOCOLS_STR, "http,https");
    if (connection.url.starts_with("unix:")) {
        curl_easy_setopt(curl_, CURLOPT_UNIX_SOCKET_PATH, connection.url.c_str() + 5);
        curl_easy_setopt(curl_, CURLOPT_URL, "http://localhost/RPC2");
    } else {
        curl_easy_setopt(curl_, CURLOPT_URL, connection.url.c_str());
    }
    if (!connection.user.empty()) {
        curl_easy_setopt(curl_, CURLOPT_HTTPAUTH, CURLAUTH_BASIC);
        curl_easy_setopt(curl_, CURLOPT_USERNAME, connection.user.c_str());
        curl_easy_setopt(curl_, CURLOPT_PASSWORD, connection.password.c_str());
    }
    if (connection.stop) {
        curl_easy_setopt(curl_, CURLOPT_NOPROGRESS, 0L);
        curl_easy_setopt(curl_, CURLOPT_XFERINFOFUNCTION, is_stopped);
        curl_easy_setopt(curl_, CURLOPT_XFERINFODATA, connection.stop);
    }
    if (!connection.cacert.empty()) curl_easy_setopt(curl_, CURLOPT_CAINFO, connection.cacert.c_str());
    if (!connection.cert.empty()) curl_easy_setopt(curl_, CURLOPT_SSLCERT, connection.cert.c_str());
    if (!connection.key.empty()) curl_easy_setopt(curl_, CURLOPT_SSLKEY, connection.key.c_str());
}

xmlrpc_client_transport::~xmlrpc_client_transport() {
    curl_easy_cleanup(curl_);
    curl_slist_free_all(headers_);
}

std::string xmlrpc_client_transport::exchange(const std::string &request) {
    const std::string &url = connection_.url;
    last_answer.clear();
    curl_easy_setopt(curl_, CURLOPT_WRITEDATA, &last_answer);
    curl_easy_setopt(curl_, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.size()));
    curl_easy_setopt(curl_, CURLOPT_POSTFIELDS, request.data());
    const CURLcode result = curl_easy_perform(curl_);
    if (result == CURLE_OPERATION_TIMEDOUT)
        throw Error(lmqctl::exit_connection, url + ": no answer in time; --timeout SECONDS waits longer");
    if (result == CURLE_COULDNT_CONNECT || result == CURLE_COULDNT_RESOLVE_HOST)
        throw Error(lmqctl::exit_connection, url + ": cannot connect (" + curl_easy_strerror(result) +
                                                 "). Is the host running? --url names another");
    if (result == CURLE_URL_MALFORMAT || result == CURLE_UNSUPPORTED_PROTOCOL)
        throw lmqctl::UsageError(url +
                                 ": no URL that can be used; expected http://HOST:PORT/RPC2, https://... or unix:PATH");
    if (result == CURLE_ABORTED_BY_CALLBACK)
        throw Error(lmqctl::exit_connection, "interrupted; the host goes on with the call");
    if (result != CURLE_OK) throw Error(lmqctl::exit_connection, url + ": " + curl_easy_strerror(result));

    long status = 0;
    curl_easy_getinfo(curl_, CURLINFO_RESPONSE_CODE, &status);
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
