// Documents to a host and back. Two ways: http: and unix: on plain sockets, https: with libcurl. libcurl brings thirty
// libraries, which take the dynamic loader longer than a whole call takes; so it is loaded when a URL is https: and not
// before.
#pragma once

#include <csignal>
#include <memory>
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

struct HttpAnswer {
    int status = 0;
    std::string body;
};

class Http {
  public:
    Http() = default;
    Http(const Http &) = delete;
    Http &operator=(const Http &) = delete;
    virtual ~Http() = default;

    // Posts a document. The connection stays open for the next one. Nothing is ever sent twice: a call may have been
    // carried out although its answer was lost. Throws an Error if there is no answer.
    virtual HttpAnswer post(const std::string &document) = 0;
};

// Throws a UsageError for a URL that is none.
std::unique_ptr<Http> make_http(const Connection &connection);
std::unique_ptr<Http> make_https(const Connection &connection);

// What both say of a failure.
[[noreturn]] void throw_stopped();
[[noreturn]] void throw_timeout(const Connection &connection);
[[noreturn]] void throw_cannot_connect(const Connection &connection, const std::string &why);
[[noreturn]] void throw_bad_url(const Connection &connection);

constexpr std::size_t largest_answer = 64 << 20;  // bytes

}  // namespace lmqctl
