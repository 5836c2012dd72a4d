// The process that starts workers. It is forked before the front has read a file, so that a worker, in which the driver
// may read everything, has never held a key, a password or a hash. It executes no program, for an emulated host has
// none that it could name.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <string>

#include "board.h"
#include "file_descriptor.h"
#include "output.h"

namespace lmq::host {

/// What a worker has to know.
struct WorkerPlan {
    /// The driver and the plug-in; empty for the usual places.
    std::string driver, plugin;
    /// The longest call and the longest answer, in bytes.
    std::size_t max_call = 0, max_answer = 0;
    /// How long the worker may spin for the next call, in microseconds.
    long long spin = 0;
    /// The number of its first call.
    std::uint64_t first_call = 1;
};

class Spawner {
  public:
    struct Started {
        pid_t pid;
        /// Where frames go to and fro.
        FileDescriptor socket;
    };

    /// Forks the process. Nothing else may have been done before in this one.
    /// @param begin  What a worker does; it is given its socket, and the memory that it shares with the front.
    /// @param output What it prints goes there.
    /// @throws std::system_error if the system refuses.
    Spawner(void (*begin)(int socket, Board &board, const WorkerPlan &plan), Output &output);
    ~Spawner();
    Spawner(const Spawner &) = delete;
    Spawner &operator=(const Spawner &) = delete;

    /// Starts a worker. It ends when the front does.
    /// @throws std::system_error if there is no process or descriptor left for it, std::runtime_error if the spawner
    /// has
    ///         ended.
    Started start(const WorkerPlan &plan);

    /// Ends a worker and takes its status, as waitpid(2) says it.
    /// @throws std::runtime_error if the spawner has ended, and all workers with it.
    int bury(pid_t pid);

    /// What is shared with the worker. There is one at a time.
    Board &board() { return board_; }

  private:
    [[noreturn]] void serve(void (*begin)(int, Board &, const WorkerPlan &));

    Board board_;
    FileDescriptor socket_;
    pid_t pid_ = -1;
};

}  // namespace lmq::host
