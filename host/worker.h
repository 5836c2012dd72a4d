// Calls in a process of their own, the worker, so that a driver which crashes or hangs does not take the host along.
// When the worker dies another one is started.
#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "backend.h"
#include "file_descriptor.h"
#include "frame.h"
#include "output.h"
#include "spawner.h"

namespace lmq::host {

class Worker : public Backend {
  public:
    struct Options {
        /// How long the worker may spin at the most for the next call.
        std::chrono::microseconds spin{1000};
        /// The resident memory in bytes above which the worker is replaced between two calls; 0 for never.
        std::size_t recycle_rss = 0;
        /// How long a worker may take to load the driver and the plug-in.
        std::chrono::seconds load_time{60};
        /// The longest answer in bytes.
        std::size_t max_answer = std::size_t{32} << 20;
    };

    /// Starts the first worker and waits until it has loaded everything.
    /// @param spawner, output Must outlive this.
    /// @throws std::runtime_error with what went wrong in the worker, or how it died.
    Worker(Spawner &spawner, Output &output, WorkerPlan plan, const Options &options);

    /// Lets the worker end in peace, and ends it if it does not within some seconds.
    ~Worker() override;

    bool ready() const override { return phase_ == Phase::idle; }
    void begin(std::string call, std::string method) override;
    std::optional<Outcome> step() override;
    std::string take_call() override { return std::exchange(call_, {}); }
    std::optional<Death> take_death() override { return std::exchange(death_, std::nullopt); }
    std::array<pollfd, 4> waits() const override;
    int timeout() const override;
    bool alive() const override;
    State state() const override { return {pid_, restarts_, recycled_, output_.dropped()}; }

  private:
    using Clock = std::chrono::steady_clock;

    /// Loading, until due_ at the latest; waiting for a call; in a call; told to end, until due_; gone, with the next
    /// start at due_.
    enum class Phase { starting, idle, busy, ending, dead };

    void start();
    bool start_again();
    std::optional<Outcome> advance();
    bool receive();
    bool is_expected() const;
    std::optional<Outcome> take_frame();
    Death bury();
    std::optional<Outcome> replace();
    void maybe_recycle();

    Spawner &spawner_;
    Output &output_;
    WorkerPlan plan_;
    Options options_;
    Phase phase_ = Phase::dead;
    pid_t pid_ = -1;
    FileDescriptor socket_;
    /// Readable when the process has ended, whoever else still holds its end of the socket.
    FileDescriptor process_;
    /// The call in hand, and its number. It is kept at least until it is answered: if it turns out that the worker died
    /// without having read it, the next one gets it.
    std::string call_;
    std::uint64_t number_ = 0;
    bool is_unread_ = false;
    FrameWriter out_;
    FrameReader in_;
    std::string method_;
    /// Why the worker is ended, if it did not end by itself.
    std::string misdeed_;
    /// How the last one ended, until somebody asks.
    std::optional<Death> death_;
    Clock::time_point due_;
    Clock::time_point started_;
    /// Workers in a row that died before they answered a call.
    unsigned failures_ = 0;
    unsigned until_measured_ = 0;
    std::uint64_t restarts_ = 0;
    std::uint64_t recycled_ = 0;
};

}  // namespace lmq::host
