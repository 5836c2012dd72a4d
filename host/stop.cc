// SIGTERM and SIGINT through a signal descriptor: they are noticed between two calls and interrupt none.
#include "stop.h"

#include <sys/signalfd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace lmq::host {

StopSignals::StopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    if (sigprocmask(SIG_BLOCK, &signals, nullptr) == 0) {
        signals_ = FileDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    }
    if (signals_.get() < 0) throw std::system_error(errno, std::generic_category(), "cannot catch signals");
}

}  // namespace lmq::host
