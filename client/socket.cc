// Sockets that do not block, and poll.
#include "socket.h"

#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace lmqctl {

void Socket::disconnect() {
    if (socket_ >= 0) close(socket_);
    socket_ = -1;
}

// At most `milliseconds`; -1 for no limit.
bool Socket::is_ready(short event, int milliseconds) const {
    pollfd wanted{socket_, event, 0};
    int ready = 0;
    do {
        if (connection_.stop && *connection_.stop) throw_stopped();
        ready = poll(&wanted, 1, milliseconds);
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

bool Socket::is_disturbed() const { return is_ready(POLLIN, 0); }

void Socket::wait(short event) const {
    if (deadline_ == Clock::time_point::max()) {
        is_ready(event, -1);
        return;
    }
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline_ - Clock::now()).count();
    if (left <= 0 || !is_ready(event, static_cast<int>(left))) throw_timeout(connection_);
}

// Whether the connection stands; else errno says why not.
bool Socket::connect_to(const sockaddr *address, socklen_t length) {
    socket_ = socket(address->sa_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (socket_ < 0) return false;
    if (::connect(socket_, address, length) == 0) return true;
    int failure = errno;
    if (failure == EINPROGRESS) {
        wait(POLLOUT);
        socklen_t size = sizeof failure;
        getsockopt(socket_, SOL_SOCKET, SO_ERROR, &failure, &size);
    }
    if (failure != 0) disconnect();
    errno = failure;
    return failure == 0;
}

void Socket::connect_unix(const std::string &path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    if (!connect_to(reinterpret_cast<const sockaddr *>(&address), sizeof address))
        throw_cannot_connect(connection_, std::strerror(errno));
}

void Socket::connect_tcp(const std::string &host, const std::string &port) {
    addrinfo hints{}, *found = nullptr;
    hints.ai_socktype = SOCK_STREAM;
    if (const int failure = getaddrinfo(host.c_str(), port.c_str(), &hints, &found))
        throw_cannot_connect(connection_, host + ": " + gai_strerror(failure));
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, freeaddrinfo);
    for (const addrinfo *address = found; address; address = address->ai_next)
        if (connect_to(address->ai_addr, address->ai_addrlen)) {
            const int on = 1;
            setsockopt(socket_, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
            return;
        }
    throw_cannot_connect(connection_, std::strerror(errno));
}

void Socket::send(const std::string &text) {
    for (std::size_t sent = 0; sent < text.size();) {
        // No signal: it would end the program quietly, as is right for standard output alone.
        const ssize_t length = ::send(socket_, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
        if (length >= 0)
            sent += static_cast<std::size_t>(length);
        else if (errno == EAGAIN || errno == EWOULDBLOCK)
            wait(POLLOUT);
        else if (errno == EPIPE || errno == ECONNRESET)
            return;
        else if (errno != EINTR)
            throw_lost(connection_.url, std::strerror(errno));
    }
}

bool Socket::receive(std::string &to) {
    for (;;) {
        // A host that sends a little now and then has no more time than one that is silent.
        if (Clock::now() >= deadline_) throw_timeout(connection_);
        char buffer[65536];
        const ssize_t length = recv(socket_, buffer, sizeof buffer, 0);
        if (length > 0) to.append(buffer, static_cast<std::size_t>(length));
        if (length >= 0) return length > 0;
        if (errno == EAGAIN || errno == EWOULDBLOCK)
            wait(POLLIN);
        else if (errno != EINTR)
            throw_lost(connection_.url, std::strerror(errno));
    }
}

}  // namespace lmqctl
