// The chips that this process calls: where each is, its connection, and which one a thread has chosen. Their functions
// of remote.h, and what a failed call leaves, are here too.
#pragma once

#include <memory>
#include <mutex>
#include <string>

#include "remote/connection.h"
#include "remote/document.h"

namespace lmq::remote {

/// A chip. Its calls run one after the other, under its mutex.
struct Chip {
    explicit Chip(Options given) : options(std::move(given)) {}

    /// The connection, which is made anew in a child process: that of the parent stays the parent's.
    Connection &line();

    std::mutex mutex;
    Options options;
    Document document;  ///< Kept, as the next two are: their memory serves one call after the other.
    std::string request;
    Answer answer;
    bool is_closed = false;

  private:
    std::unique_ptr<Connection> connection_;
    int owner_ = 0;  // generation of the process that has made it
};

/// The chip that this thread has chosen. Throws a Failure if it has been closed, or if the environment says nonsense.
std::shared_ptr<Chip> chosen_chip();

/// Keeps a failure for lmq_remote_error(), and prints it unless the environment forbids it.
void tell(const char *function, const char *text);

}  // namespace lmq::remote
