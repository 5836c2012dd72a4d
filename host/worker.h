// Calls in a process of their own, the worker, so that a driver which crashes or hangs does not take the host along.
// The two talk over a socket pair: a frame is a length, a kind and a call or its answer. When the worker dies another
// one is started.
#ifndef LMQ_HOST_WORKER_H
#define LMQ_HOST_WORKER_H

#include <chrono>
#include <cstddef>
#include <vector>

#include "backend.h"
#include "file_descriptor.h"

namespace lmq::host {

class Worker : public Backend {
  public:
    struct Options {
        /** How long the worker may spin at the most for the next call. */
        std::chrono::microseconds spin{0};
        /** The resident memory in bytes above which the worker is replaced between two calls; 0 for never. */
        std::size_t recycle_rss = 0;
    };

    /**
     * Starts the first worker and waits until it has loaded everything.
     * @param open Called in the worker only.
     * @throws std::runtime_error with what open() threw, or how the worker died.
     */
    Worker(Open open, const Options &options);

    /** Lets the worker end in peace, and ends it if it does not within some seconds. */
    ~Worker() override;

    bool ready() const override { return phase_ == Phase::idle; }
    void begin(std::string call, const std::string &method) override;
    std::optional<Outcome> step() override;
    std::array<pollfd, 2> waits() const override;
    int timeout() const override;
    bool alive() const override { return phase_ != Phase::dead; }
    State state() const override { return {pid_, restarts_, recycled_}; }

  private:
    using Clock = std::chrono::steady_clock;

    /** Loading; waiting for a call; in a call; told to end; gone, with the next start at due_. */
    enum class Phase { starting, idle, busy, ending, dead };

    void start();
    void send_rest();
    bool receive();
    std::optional<Outcome> take_frame();
    std::string bury();
    void maybe_recycle();

    Open open_;
    Options options_;
    Phase phase_ = Phase::dead;
    pid_t pid_ = -1;
    FileDescriptor socket_;
    /** Readable when the process has ended, whoever else still holds its end of the socket. */
    FileDescriptor process_;
    /** The frame under way to the worker, and how much of it is gone. */
    std::string out_;
    std::size_t sent_ = 0;
    /** The frame under way from the worker: the first received_ bytes count. */
    std::vector<char> in_;
    std::size_t received_ = 0;
    std::string method_;
    /** A call that met a worker that had just died: the next one gets it. */
    std::string unsent_;
    Clock::time_point due_;
    /** Workers in a row that died before they answered a call. */
    unsigned failures_ = 0;
    unsigned until_measured_ = 0;
    std::uint64_t restarts_ = 0;
    std::uint64_t recycled_ = 0;
};

}  // namespace lmq::host

#endif
