// The handler of SIGINT.
#include "interrupt.h"

#include <ctime>

namespace lmqctl {

volatile std::sig_atomic_t interrupted = 0;

CatchInterrupt::CatchInterrupt() {
    interrupted = 0;
    struct sigaction action {};
    action.sa_handler = [](int) { interrupted = 1; };
    sigaction(SIGINT, &action, &before_);
}

CatchInterrupt::~CatchInterrupt() { sigaction(SIGINT, &before_, nullptr); }

void sleep_until(std::chrono::steady_clock::time_point end) {
    while (!interrupted && std::chrono::steady_clock::now() < end) {
        const auto left =
            std::chrono::duration_cast<std::chrono::nanoseconds>(end - std::chrono::steady_clock::now()).count();
        const timespec time{left / 1000000000, left % 1000000000};
        if (left > 0) nanosleep(&time, nullptr);
    }
}

}  // namespace lmqctl
