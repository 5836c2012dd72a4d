// The address that the host listens on: from the text of the option to a listening socket, and back to a text for
// the operator. Addresses are numbers: a name could stand for several, and the host binds exactly one.
#pragma once

#include <sys/socket.h>

#include <string>

#include "file_descriptor.h"

namespace lmq::host {

class Address {
  public:
    /// Reads "ADDR:PORT": an IPv4 address or an IPv6 address in brackets, and a port of 0 to 65535, where 0 stands for
    /// any free port.
    /// @throws std::runtime_error with the text and what is wrong with it.
    explicit Address(const std::string &text);

    /// Binds the address and listens on it.
    /// @return The listening socket, which does not block. The address takes over the port that the system has picked.
    /// @throws std::runtime_error with the address and the system's reason.
    FileDescriptor listen();

    /// Whether only this machine reaches the address.
    bool is_loopback() const;

    /// The address as it stands in a URL: "127.0.0.1:8080" or "[::1]:8080".
    std::string text() const;

  private:
    sockaddr *generic() { return reinterpret_cast<sockaddr *>(&storage_); }
    const sockaddr *generic() const { return reinterpret_cast<const sockaddr *>(&storage_); }

    sockaddr_storage storage_{};
    socklen_t length_ = 0;
};

/// Listens on a Unix socket that only its owner may use. A socket that a dead host has left there is replaced.
/// @throws std::runtime_error with the path and the reason, such as a host that serves there already.
FileDescriptor listen_at(const std::string &path);

}  // namespace lmq::host
