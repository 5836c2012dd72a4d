// Documents to a host and back, over one connection that is kept. http: and unix: go over plain sockets; https: with
// libcurl, which is loaded for it and not before.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "remote/failure.h"

namespace lmq::remote {

/// Where a host is, and how it is called.
struct Options {
    std::string url, user, password, cacert, cert, key;
    std::string lease;    ///< The token of the host's lease; empty for none.
    double timeout = 30;  ///< Seconds for a call; 0 for no end.
};

struct Answer {
    int status = 0;  ///< Of HTTP.
    std::string body;
    std::string output;  ///< Where the host keeps what the call printed, a name for get(); empty if it printed nothing.
};

/// Takes what is kept of a line of an answer's header.
void keep_field(std::string_view line, Answer &answer);

class Connection {
  public:
    Connection() = default;
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;
    virtual ~Connection() = default;

    /// Makes the connection, if there is none or it broke since the last answer. Throws a Failure if that fails.
    virtual void connect() = 0;

    /// Sends a document and reads the answer. Nothing is ever sent twice. Throws a Failure if there is no answer.
    virtual Answer post(const std::string &document) = 0;

    /// Reads a document that the host serves beside the one that calls go to. Throws as post() does.
    virtual Answer get(const std::string &name) = 0;
};

/// @throws Failure The URL cannot be used.
std::unique_ptr<Connection> make_connection(const Options &options);

/// The same for https.
std::unique_ptr<Connection> make_tls_connection(const Options &options);

constexpr std::size_t largest_answer = 64 << 20;  ///< bytes

}  // namespace lmq::remote
