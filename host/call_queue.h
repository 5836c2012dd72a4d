// The calls that wait for the driver, and the one that it has in hand.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "backend.h"
#include "exchange.h"
#include "recent_output.h"

namespace lmq::host {

class Monitor;
class Recorder;

class CallQueue {
  public:
    /// @param backend, monitor, recorder Must outlive the queue.
    /// @param slow A call that takes longer is reported while it lasts; 0 for never.
    CallQueue(Backend &backend, Monitor &monitor, Recorder &recorder, std::chrono::milliseconds slow)
        : backend_(backend), monitor_(monitor), recorder_(recorder), slow_(slow) {}

    /// Lets a call wait for its turn.
    void add(Exchange &exchange) {
        replied_.reserve(waiting_.size() + 2);
        waiting_.push_back(&exchange);
    }

    /// Carries out a call at once. For a backend that is synchronous.
    void carry_out(Exchange &exchange);

    /// Takes the outcome of the call in hand if there may be one, and starts the next call.
    /// @param moved Whether a descriptor of the backend is ready.
    /// @return The calls that have their replies now; lasts until the next one.
    const std::vector<Exchange *> &advance(bool moved);

    /// Gives up the calls whose clients have gone. What the driver has in hand goes on all the same.
    /// @return Those calls, with replies that nobody will read.
    const std::vector<Exchange *> &drop_gone();

    /// Gives up the calls that have not begun, or all of them, since the host is being stopped.
    /// @return Those calls, with their replies.
    const std::vector<Exchange *> &stop(bool all);

    bool has_call_in_hand() const { return is_busy_; }
    /// How long the call in hand has been there; 0 if there is none.
    std::chrono::milliseconds age() const;
    std::size_t waiting() const { return waiting_.size(); }

    /// In how many milliseconds advance() is worth calling; -1 for never.
    long long timeout() const;

    /// The reply to a question for what a call has printed.
    /// @param number As the header of the call's answer gave it.
    Reply output(std::string_view number) const;

    /// The reply to a question for the state.
    Reply health() const;

  private:
    void settle(Exchange &exchange, Backend::Outcome outcome, pid_t process);
    void take_lost(const Backend::Outcome &outcome, pid_t process);
    bool begin_next();
    void give_up(Exchange &exchange);
    void take_outcome();
    void report_slow();

    Backend &backend_;
    Monitor &monitor_;
    Recorder &recorder_;
    std::chrono::milliseconds slow_;
    RecentOutput printed_;
    std::deque<Exchange *> waiting_;
    /// Has room for all that wait, and the one in hand.
    std::vector<Exchange *> replied_;
    /// Whether there is a call in hand; its exchange is null if its client has gone. The rest is for the log.
    bool is_busy_ = false;
    Exchange *current_ = nullptr;
    std::string method_, address_, user_;
    Clock::time_point arrived_, begun_;
    bool reported_ = false;
};

}  // namespace lmq::host
