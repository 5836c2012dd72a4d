// Datagrams to the service manager.
#include "notify.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <cstring>

#include "file_descriptor.h"

namespace lmq::host {

void notify(const char *message) {
    const char *path = std::getenv("NOTIFY_SOCKET");
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path == nullptr || path[0] == '\0' || std::strlen(path) >= sizeof address.sun_path) return;
    std::strcpy(address.sun_path, path);
    // An abstract socket is written with '@' for its leading zero.
    if (path[0] == '@') address.sun_path[0] = '\0';
    const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + std::strlen(path));
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sendto(socket.get(), message, std::strlen(message), MSG_NOSIGNAL, reinterpret_cast<const sockaddr *>(&address),
           length);
}

std::chrono::milliseconds watchdog_interval() {
    const char *time = std::getenv("WATCHDOG_USEC");
    const char *pid = std::getenv("WATCHDOG_PID");
    if (time == nullptr || (pid != nullptr && std::atol(pid) != getpid())) return std::chrono::milliseconds(0);
    return std::chrono::milliseconds(std::atoll(time) / 2000);
}

}  // namespace lmq::host
