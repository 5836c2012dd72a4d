// A host that a command starts for itself, on a free port of this machine, and ends.
#pragma once

#include <sys/types.h>

#include <cstdint>
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

    /// Bytes that the driver's process holds in allocated blocks, after the last call; to be asked for after each call.
    /// Nothing if the host does not say.
    std::optional<int64_t> heap();

  private:
    struct Gauge;
    pid_t pid_ = -1;
    int output_ = -1, errors_ = -1, gauge_file_ = -1;
    const Gauge *gauge_ = nullptr;
    uint64_t calls_seen_ = 0;
    std::string url_;
};

}  // namespace lmqctl
