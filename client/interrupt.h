// Ctrl-C as a flag.
#pragma once

#include <signal.h>

#include <chrono>
#include <csignal>

namespace lmqctl {

/// Not 0 since Ctrl-C was pressed.
extern volatile std::sig_atomic_t interrupted;

/// While it lives, Ctrl-C sets the flag and ends nothing.
class CatchInterrupt {
  public:
    CatchInterrupt();
    ~CatchInterrupt();
    CatchInterrupt(const CatchInterrupt &) = delete;
    CatchInterrupt &operator=(const CatchInterrupt &) = delete;

  private:
    struct sigaction before_ {};
};

/// Sleeps until then, or Ctrl-C.
void sleep_until(std::chrono::steady_clock::time_point end);

}  // namespace lmqctl
