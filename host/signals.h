// The signals that the host obeys, as something that the event loop can wait for.
#pragma once

#include "file_descriptor.h"

namespace lmq::host {

/// Catches SIGTERM, SIGINT and SIGHUP from its construction on. Make it before any thread is started, so that every
/// thread leaves the signals to it; that goes for the threads of a driver too.
class Signals {
  public:
    enum class Wish { none, reload, stop };

    /// @throws std::system_error if the system refuses.
    Signals();

    /// A descriptor that is readable when a signal has come.
    int descriptor() const { return signals_.get(); }

    /// Takes the next signal that has come.
    Wish next() const;

  private:
    FileDescriptor signals_;
};

}  // namespace lmq::host
