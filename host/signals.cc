// Signals through a signal descriptor: they are noticed between two calls and interrupt none.
#include "signals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

namespace lmq::host {

Signals::Signals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGHUP);
    if (sigprocmask(SIG_BLOCK, &signals, nullptr) == 0) {
        signals_ = FileDescriptor(signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC));
    }
    if (signals_.get() < 0) throw std::system_error(errno, std::generic_category(), "cannot catch signals");
}

Signals::Wish Signals::next() const {
    signalfd_siginfo signal{};
    if (read(signals_.get(), &signal, sizeof signal) != static_cast<ssize_t>(sizeof signal)) return Wish::none;
    return signal.ssi_signo == SIGHUP ? Wish::reload : Wish::stop;
}

}  // namespace lmq::host
