// The signals that stop the host, as something that the event loop can wait for.
#ifndef LMQ_HOST_STOP_H
#define LMQ_HOST_STOP_H

#include "file_descriptor.h"

namespace lmq::host {

/**
 * Catches SIGTERM and SIGINT from its construction on. Make it before any thread is started, so that every thread
 * leaves the signals to it; that goes for the threads of a driver too.
 */
class StopSignals {
  public:
    /** @throws std::system_error if the system refuses. */
    StopSignals();

    /** A descriptor that is readable from the first signal on. */
    int descriptor() const { return signals_.get(); }

  private:
    FileDescriptor signals_;
};

}  // namespace lmq::host

#endif
