// Calls in a process of their own, the worker, so that a driver which crashes or hangs does not take the host along.
// When the worker dies another one is started.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

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

    bool ready() const override {
        return phase_ == Phase::idle && in_hand() == 0 && out_.is_done() && handed_.size() < Slots::count &&
               misdeed_.empty();
    }
    bool ready_for_next(std::size_t size) const override;
    void begin(std::string call, const std::string &method) override;
    std::optional<Outcome> step(bool moved) override;
    bool is_there() const override;
    void sleep(bool begins) override { spawner_.board().answers().sleep(begins); }
    std::vector<std::string> take_back(bool all) override;
    std::string take_call() override;
    std::optional<Death> take_death() override { return std::exchange(death_, std::nullopt); }
    std::array<pollfd, 4> waits() const override;
    int timeout() const override;
    bool alive() const override;
    State state() const override { return {pid_, restarts_, recycled_, output_.dropped()}; }

  private:
    using Clock = std::chrono::steady_clock;

    /// Loading, until due_ at the latest; there for calls; told to end, until due_; gone, with the next start at due_.
    enum class Phase { starting, idle, ending, dead };

    /// What a worker has sent.
    struct Frame {
        FrameHead head;
        std::string text;
        /// Whether there was no memory for the text.
        bool is_lost = false;
    };

    /// A call for which the worker owes a frame.
    struct Handed {
        std::uint64_t number;
        std::string call, method;
        /// Whether it was behind others.
        bool is_next;
        /// Whether it was taken back: the worker will decline it.
        bool is_back = false;
    };

    void start();
    bool start_again();
    std::optional<Outcome> advance(bool moved);
    std::optional<Frame> receive(bool moved);
    bool read_socket();
    Frame take_from_board();
    Frame take_from_socket();
    bool is_expected(const FrameHead &head) const;
    std::optional<Outcome> take_frame(Frame frame);
    Outcome take_answer(const FrameHead &head, Outcome::Kind kind, std::string text);
    void take_declined();
    Outcome lose(std::string printed);
    std::size_t in_hand() const;
    void recall();
    void read_output();
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
    /// The calls, oldest first; the last one may be on its way yet. All that are taken back stand behind those that may
    /// have begun.
    std::deque<Handed> handed_;
    std::uint64_t number_ = 0;
    /// What has come back, oldest first, until somebody takes it.
    std::vector<std::string> back_;
    /// The call that was answered last, until somebody takes it.
    std::string call_;
    /// On its way to the worker: a call that is too long for the board, or what wakes it (0).
    FrameWriter out_;
    std::uint64_t out_number_ = 0;
    FrameReader in_;
    /// Why the worker is ended, if it did not end by itself.
    std::string misdeed_;
    /// How the last one ended, until somebody asks.
    std::optional<Death> death_;
    std::string how_;
    Clock::time_point due_;
    Clock::time_point started_;
    /// Workers in a row that died before they answered a call.
    unsigned failures_ = 0;
    unsigned until_measured_ = 0;
    bool is_too_large_ = false;
    std::uint64_t restarts_ = 0;
    std::uint64_t recycled_ = 0;
};

}  // namespace lmq::host
