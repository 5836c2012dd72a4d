// What a service manager is told: that the host is ready, that it stops, and that it is alive. The protocol is a
// datagram to the socket that NOTIFY_SOCKET names, so that no library is needed. Without the variable nothing happens.
#pragma once

#include <chrono>

namespace lmq::host {

/// Sends one message, such as "READY=1".
void notify(const char *message);

/// How often to send "WATCHDOG=1": half of what the manager asks for in WATCHDOG_USEC; 0 for never.
std::chrono::milliseconds watchdog_interval();

}  // namespace lmq::host
