// Waiting by asking again and again, for some microseconds, before a process goes to sleep: between two processes that
// answer each other, the two wake-ups cost more than the call itself.
#ifndef LMQ_HOST_SPINNER_H
#define LMQ_HOST_SPINNER_H

#include <chrono>

namespace lmq::host {

class Spinner {
  public:
    using Clock = std::chrono::steady_clock;

    /** @param most The longest time to spin; 0 for never. On a single core spinning only keeps the other side waiting.
     */
    explicit Spinner(std::chrono::microseconds most) : most_(most), budget_(most) {}

    /**
     * Asks until the answer is yes or the time is over. Time that was spent in vain is halved for the next time, and
     * given back as soon as it would have paid: an idle process does not spin.
     * @return Whether the answer was yes.
     */
    template <class Ready>
    bool spin(Ready ready) {
        if (budget_ < std::chrono::microseconds(5)) return false;
        const auto end = Clock::now() + budget_;
        do {
            if (ready()) {
                budget_ = most_;
                return true;
            }
        } while (Clock::now() < end);
        budget_ /= 2;
        return false;
    }

    /** Tells how long the sleep lasted that followed. */
    void slept(Clock::duration time) {
        if (time < most_) budget_ = most_;
    }

  private:
    std::chrono::microseconds most_;
    std::chrono::microseconds budget_;
};

}  // namespace lmq::host

#endif
