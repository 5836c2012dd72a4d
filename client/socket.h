// A stream socket to a host, over TCP or of the Unix kind, on which nothing waits longer than a call may take.
#pragma once

#include <sys/socket.h>

#include <string>

#include "connection.h"

namespace lmqctl {

class Socket {
  public:
    /// `connection` says when to stop and is named in errors.
    explicit Socket(const Connection &connection) : connection_(connection) {}
    ~Socket() { disconnect(); }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;

    /// From now on, whatever waits throws an Error at this time.
    void set_deadline(Clock::time_point deadline) { deadline_ = deadline; }

    void connect_unix(const std::string &path);
    void connect_tcp(const std::string &host, const std::string &port);
    void disconnect();
    bool is_connected() const { return socket_ >= 0; }
    /// Whether the host has sent or closed something without being asked.
    bool is_disturbed() const;

    /// Sends all of it. A host that does not listen to the end is no error: it may say why.
    void send(const std::string &text);

    /// Appends what comes next. False at the end of the connection.
    bool receive(std::string &to);

  private:
    bool is_ready(short event, int milliseconds) const;
    void wait(short event) const;
    bool connect_to(const sockaddr *address, socklen_t length);

    const Connection &connection_;
    int socket_ = -1;
    Clock::time_point deadline_ = Clock::time_point::max();
};

}  // namespace lmqctl
