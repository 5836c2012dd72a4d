// Waiting by asking again and again before a process goes to sleep: between two processes that answer each other, the
// two wake-ups cost more than a small call, and with a core that has been put to sleep a tenth of a large one.
#pragma once

#include <algorithm>
#include <chrono>

namespace lmq::host {

/// Waits for one kind of event. A wait is expected to last as long as the one before it: spinning goes on for twice
/// that time, and there is none if that would be too long. So an idle process does not spin, and one whose events
/// follow each other does not sleep.
class Spinner {
  public:
    using Clock = std::chrono::steady_clock;

    /// @param most The longest time to spin; 0 for never.
    explicit Spinner(std::chrono::microseconds most) : most_(most) {}

    /// Returns when the event is there or the sleep is over.
    /// @param ready Asks for the event without waiting: whether it is there.
    /// @param sleep Waits for it without asking.
    /// @param is_busy Whether several clients are at work: then a core that is free is theirs, and one wake-up is for
    ///                several events.
    template <class Ready, class Sleep>
    void wait(Ready ready, Sleep sleep, bool is_busy) {
        if (is_busy) return sleep();
        const auto start = Clock::now();
        auto now = start;
        if (last_ < most_ && now >= crowded_until_) {
            const auto end = start + std::min<Clock::duration>(most_, std::max<Clock::duration>(2 * last_, least));
            do {
                if (ready()) {
                    last_ = Clock::now() - start;
                    return;
                }
                const auto before = now;
                now = Clock::now();
                // Somebody else had the core meanwhile, perhaps the very one that is waited for.
                if (now - before > pause) crowded_until_ = now + crowded_time;
            } while (now < end && now >= crowded_until_);
        }
        sleep();
        last_ = Clock::now() - start;
    }

  private:
    /// Small calls differ by more than a factor of two.
    static constexpr std::chrono::microseconds least{100};
    /// Asking takes a microsecond or two.
    static constexpr std::chrono::microseconds pause{500};
    /// How long nobody spins after the core was wanted by others.
    static constexpr std::chrono::milliseconds crowded_time{100};

    std::chrono::microseconds most_;
    Clock::duration last_{0};
    Clock::time_point crowded_until_;
};

}  // namespace lmq::host
