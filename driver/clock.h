// The simulated chip's clock, on which everything that takes time runs.
#pragma once

#include <chrono>
#include <optional>

namespace lmq::sim {

/// Time since the system was initialised.
///
/// It runs in real time, or, with `LMQ_SIM_CLOCK=n` in the environment, stands still but for n milliseconds with each
/// call of a driver function: a script then sees the same times in every run, and need not wait for any.
class Clock {
  public:
    using Time = std::chrono::milliseconds;

    /// Starts at 0. @param step What a call takes; nothing for real time.
    explicit Clock(std::optional<Time> step) : step_(step), start_(std::chrono::steady_clock::now()) {}

    /// A call of a driver function begins.
    void begin_call() {
        now_ = step_ ? now_ + *step_ : std::chrono::duration_cast<Time>(std::chrono::steady_clock::now() - start_);
    }

    /// The time when the call began: while it lasts, none passes.
    Time now() const { return now_; }

    /// Reads LMQ_SIM_CLOCK: 0 to 1000000.
    /// @return The step, or nothing when it is not set.
    /// @throws std::invalid_argument with a text that names it when it is no such number.
    static std::optional<Time> step_from_environment();

  private:
    std::optional<Time> step_;
    Time now_{0};
    std::chrono::steady_clock::time_point start_;
};

}  // namespace lmq::sim
