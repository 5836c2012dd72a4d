// Where a host is, how to reach it, and how long to wait for it.
#pragma once

#include <chrono>
#include <csignal>
#include <string>

namespace lmqctl {

using Clock = std::chrono::steady_clock;

struct Connection {
    std::string url;  ///< http://..., https://... or unix:PATH
    std::string user, password;
    double timeout = 30;  ///< seconds for a call; 0 for no limit
    /// All calls end by then, whatever `timeout` says.
    Clock::time_point until = Clock::time_point::max();
    std::string cacert, cert, key;
    const volatile std::sig_atomic_t *stop = nullptr;  ///< a call ends when it is not 0

    /// When a call that begins now must have its answer.
    Clock::time_point deadline() const;
};

/// A URL with the path that hosts serve, if it names none.
std::string with_path(std::string url);

/// What every way to a host says of a failure.
[[noreturn]] void throw_stopped();
[[noreturn]] void throw_timeout(const Connection &connection);
[[noreturn]] void throw_cannot_connect(const Connection &connection, const std::string &why);
[[noreturn]] void throw_bad_url(const Connection &connection);
[[noreturn]] void throw_lost(const std::string &url, const std::string &why);

}  // namespace lmqctl
