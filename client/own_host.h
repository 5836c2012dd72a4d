// A host that a command starts for itself, on a free port of this machine, and ends.
#pragma once

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace lmqctl {

/// The words of --host-command; of an empty text, the lmq-host beside this program, or else the one in PATH.
std::vector<std::string> host_command(const std::string &text);

class OwnHost {
  public:
    /// Starts the command with `--listen` on a free port, in the caller's environment. Does not wait for it.
    explicit OwnHost(const std::vector<std::string> &command);
    ~OwnHost();  ///< ends it, whatever it does
    OwnHost(const OwnHost &) = delete;
    OwnHost &operator=(const OwnHost &) = delete;

    /// Where it listens; waits until it does. Throws an Error with what it printed if it ended instead.
    const std::string &url();

    /// What host and driver have printed on standard error.
    std::string printed() const;

    /// How the last worker ended, in the host's words: "was killed by signal 11 (SIGSEGV) ..."; may be empty.
    std::string last_words() const;

    /// Bytes that the process that holds the driver has written to and nobody else has; nothing if the system does not
    /// say.
    std::optional<std::size_t> worker_memory() const;

    /// Pages that the same process has touched for the first time: a cheap and exact sign of growth.
    std::size_t worker_faults();

  private:
    pid_t worker() const;
    pid_t pid_ = -1, known_worker_ = -1;
    int output_ = -1, errors_ = -1;
    std::string url_;
};

}  // namespace lmqctl
