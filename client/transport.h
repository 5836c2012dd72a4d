// The way of documents to the host and back: HTTP with libcurl, over TCP, TLS or a Unix socket, plugged into the
// XML-RPC library's client. The library's own transport knows neither Unix sockets nor which HTTP status was answered.
#pragma once

#include <curl/curl.h>
#include <xmlrpc-c/client.h>
#include <xmlrpc-c/transport.h>

#include <csignal>
#include <exception>
#include <string>

namespace lmqctl {

// Where the host is and how to reach it.
struct Connection {
    std::string url;  // http://..., https://... or unix:PATH
    std::string user, password;
    double timeout = 30;  // seconds for a call; 0 for no limit
    std::string cacert, cert, key;
    const volatile std::sig_atomic_t *stop = nullptr;  // a call ends when it is not 0
};

}  // namespace lmqctl

// The library leaves this type to whoever writes a transport. One connection, kept open from call to call.
struct xmlrpc_client_transport {
    explicit xmlrpc_client_transport(const lmqctl::Connection &connection);
    ~xmlrpc_client_transport();
    xmlrpc_client_transport(const xmlrpc_client_transport &) = delete;
    xmlrpc_client_transport &operator=(const xmlrpc_client_transport &) = delete;

    // Sends a document, returns the answer's. Throws an Error that says why there is none.
    std::string exchange(const std::string &request);

    std::string last_answer;
    std::exception_ptr failure;  // what `exchange` threw, past the library's C frames
    static const xmlrpc_client_transport_ops operations;

  private:
    lmqctl::Connection connection_;
    CURL *curl_;
    curl_slist *headers_;
};
