// The handler of SIGINT.
#include "interrupt.h"

namespace lmqctl {

volatile std::sig_atomic_t interrupted = 0;

CatchInterrupt::CatchInterrupt() {
    interrupted = 0;
    struct sigaction action {};
    action.sa_handler = [](int) { interrupted = 1; };
    sigaction(SIGINT, &action, &before_);
}

CatchInterrupt::~CatchInterrupt() { sigaction(SIGINT, &before_, nullptr); }

}  // namespace lmqctl
