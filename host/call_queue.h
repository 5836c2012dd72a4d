// The calls that wait for the driver, and those that it has been handed: the one in hand and, while calls are short,
// some behind it, so that it finds the next one when it is done.
#pragma once

#include <chrono>
#include <cstddef>
#include <list>
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
        replied_.reserve(waiting_.size() + handed_.size() + 2);
        waiting_.emplace_back().exchange = &exchange;
    }

    /// Carries out a call at once. For a backend that is synchronous.
    void carry_out(Exchange &exchange);

    /// Takes the outcomes of calls if there may be some, and hands over the next calls.
    /// @param moved Whether a descriptor of the backend is ready.
    /// @return The calls that have their replies now; lasts until the next one.
    const std::vector<Exchange *> &advance(bool moved);

    /// Gives up the calls whose clients have gone. What the driver has in hand goes on all the same.
    /// @return Those calls, with replies that nobody will read.
    const std::vector<Exchange *> &drop_gone();

    /// Gives up the calls that have not begun, or all of them, since the host is being stopped.
    /// @return Those calls, with their replies.
    const std::vector<Exchange *> &stop(bool all);

    bool has_call_in_hand() const { return !handed_.empty(); }
    /// Whether calls come so fast that the last one was handed over behind another.
    bool are_many() const { return are_many_; }
    /// How long the call in hand has been there; 0 if there is none.
    std::chrono::milliseconds age() const;
    /// The calls behind the one in hand.
    std::size_t waiting() const { return waiting_.size() + handed_.size() - (handed_.empty() ? 0 : 1); }

    /// In how many milliseconds advance() is worth calling; -1 for never.
    long long timeout() const;

    /// The reply to a question for what a call has printed.
    /// @param number As the header of the call's answer gave it.
    Reply output(std::string_view number) const;

    /// The reply to a question for the state.
    Reply health() const;

  private:
    struct Place {
        /// Null if its client went while it was in hand. The texts are for the log then.
        Exchange *exchange = nullptr;
        std::string method, address, user;
        bool is_introspection = false;
        Clock::time_point arrived;
        /// When it was handed over, and when it began, as far as that is known.
        Clock::time_point handed, begun;
    };

    void settle(Exchange &exchange, Backend::Outcome outcome, pid_t process, Clock::time_point begun);
    void take_lost(const Place &place, const Backend::Outcome &outcome, pid_t process);
    void begin_next();
    void give_up(Exchange &exchange);
    void take_outcomes(bool moved);
    void take_outcome(Backend::Outcome outcome, pid_t process);
    void take_back(bool all);
    bool is_held_up() const;
    void report_slow();

    Backend &backend_;
    Monitor &monitor_;
    Recorder &recorder_;
    std::chrono::milliseconds slow_;
    RecentOutput printed_;
    /// The oldest first. A place goes from one list to the other, and perhaps back.
    std::list<Place> waiting_, handed_;
    /// Has room for all of both.
    std::vector<Exchange *> replied_;
    /// Whether the last call was short, so that the next one may be handed over before this one is answered.
    bool are_short_ = false;
    bool are_many_ = false;
    /// Whether the call in hand has been reported.
    bool reported_ = false;
};

}  // namespace lmq::host
