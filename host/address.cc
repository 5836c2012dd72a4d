// Parsing, binding and printing of the listen address. The system's resolver does the reading, so that IPv6 scopes
// ("[fe80::1%eth0]:8080") work.
#include "address.h"

#include <netdb.h>
#include <netinet/in.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <system_error>

namespace lmq::host {
namespace {

constexpr int backlog = 1024;

[[noreturn]] void refuse(const std::string &text, const std::string &why) {
    throw std::runtime_error("bad listen address '" + text + "': " + why);
}

bool is_port(const std::string &text) {
    std::uint16_t port = 0;
    const char *end = text.data() + text.size();
    auto [stop, error] = std::from_chars(text.data(), end, port);
    return error == std::errc() && stop == end;
}

}  // namespace

Address::Address(const std::string &text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos) refuse(text, "no port (ADDR:PORT is wanted)");
    std::string host = text.substr(0, colon);
    const std::string port = text.substr(colon + 1);

    const bool bracketed = host.size() >= 2 && host.front() == '[' && host.back() == ']';
    if (bracketed) host = host.substr(1, host.size() - 2);
    if (!bracketed && host.find(':') != std::string::npos) refuse(text, "an IPv6 address stands in brackets");
    if (!is_port(port)) refuse(text, "the port is a number from 0 to 65535");

    addrinfo hints{};
    hints.ai_family = bracketed ? AF_INET6 : AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
    addrinfo *found = nullptr;
    if (host.empty() || getaddrinfo(host.c_str(), port.c_str(), &hints, &found) != 0) {
        refuse(text, "'" + host + "' is not an " + (bracketed ? "IPv6" : "IPv4") + " address");
    }
    std::memcpy(&storage_, found->ai_addr, found->ai_addrlen);
    length_ = found->ai_addrlen;
    freeaddrinfo(found);
}

FileDescriptor Address::listen() {
    FileDescriptor listener(socket(storage_.ss_family, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    // A host that is started again takes its port back at once, while old connections are still in TIME_WAIT.
    const int on = 1;
    if (listener.get() < 0 || setsockopt(listener.get(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) < 0 ||
        bind(listener.get(), generic(), length_) < 0 || ::listen(listener.get(), backlog) < 0 ||
        getsockname(listener.get(), generic(), &length_) < 0) {
        const std::string why = std::generic_category().message(errno);
        throw std::runtime_error("cannot listen on " + text() + ": " + why);
    }
    return listener;
}

bool Address::is_loopback() const {
    if (storage_.ss_family == AF_INET) {
        return ntohl(reinterpret_cast<const sockaddr_in &>(storage_).sin_addr.s_addr) >> 24 == IN_LOOPBACKNET;
    }
    return IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<const sockaddr_in6 &>(storage_).sin6_addr) != 0;
}

std::string Address::text() const {
    char host[NI_MAXHOST] = "";
    char port[NI_MAXSERV] = "";
    getnameinfo(generic(), length_, host, sizeof host, port, sizeof port, NI_NUMERICHOST | NI_NUMERICSERV);
    std::string result = host;
    if (storage_.ss_family == AF_INET6) result.insert(0, 1, '[').push_back(']');
    return result.append(":").append(port);
}

FileDescriptor listen_at(const std::string &path) {
    const auto fail = [&path](const std::string &why) {
        throw std::runtime_error("cannot listen on '" + path + "': " + why);
    };
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) fail("the path is too long");
    path.copy(address.sun_path, path.size());
    const auto *generic = reinterpret_cast<const sockaddr *>(&address);

    struct stat found {};
    if (lstat(path.c_str(), &found) == 0 && S_ISSOCK(found.st_mode)) {
        const FileDescriptor probe(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        if (connect(probe.get(), generic, sizeof address) == 0) fail("somebody serves there already");
        if (errno == ECONNREFUSED) unlink(path.c_str());
    }
    FileDescriptor listener(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
    const mode_t before = umask(0177);
    const bool bound = listener.get() >= 0 && bind(listener.get(), generic, sizeof address) == 0;
    const int error = errno;
    umask(before);
    if (!bound) fail(std::generic_category().message(error));
    if (::listen(listener.get(), backlog) < 0) fail(std::generic_category().message(errno));
    return listener;
}

}  // namespace lmq::host
