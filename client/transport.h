// The way of documents to the host and back, plugged into the XML-RPC library's client: our HTTP under it, and what an
// HTTP status means to the user. The library's own transport knows neither Unix sockets nor which status was answered.
#pragma once

#include <xmlrpc-c/client.h>
#include <xmlrpc-c/transport.h>

#include <exception>
#include <memory>
#include <string>

#include "http.h"

// The library leaves this type to whoever writes a transport. One connection, kept open from call to call.
struct xmlrpc_client_transport {
    explicit xmlrpc_client_transport(const lmqctl::Connection &connection);
    xmlrpc_client_transport(const xmlrpc_client_transport &) = delete;
    xmlrpc_client_transport &operator=(const xmlrpc_client_transport &) = delete;

    // Sends a document, returns the answer's. Throws an Error that says why there is none.
    std::string exchange(const std::string &request);

    std::string last_answer;
    std::exception_ptr failure;  // what `exchange` threw, past the library's C frames

  private:
    const lmqctl::Connection connection_;
    const std::unique_ptr<lmqctl::Http> http_;
};
