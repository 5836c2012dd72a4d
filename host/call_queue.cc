// From calls to their replies, one after the other.
#include "call_queue.h"

#include <microhttpd.h>
#include <poll.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <new>
#include <utility>

#include "fault.h"
#include "gate.h"
#include "monitor.h"
#include "recorder.h"

namespace lmq::host {
namespace {

using std::chrono::milliseconds;

/// What the log shows for a client that has hung up before its answer. Nobody is sent it.
constexpr unsigned client_has_gone = 499;

/// The header that says where to find what a call has printed.
constexpr const char output_header[] = "Lmq-Output";

/// A call that lasts no longer is a short one.
constexpr milliseconds short_time(1);

/// For how long calls that have not begun stay with the driver behind one that lasts longer. Then they wait here again,
/// where it shows whether their clients have gone.
constexpr milliseconds patience(5);

/// Whether the client has closed its end. One that means to read an answer leaves it open.
bool is_gone(const Exchange &exchange) {
    pollfd peer{exchange.peer->socket, POLLRDHUP, 0};
    return poll(&peer, 1, 0) > 0;
}

void drop(Exchange &exchange) {
    exchange.body.clear();
    exchange.is_logged = true;
    exchange.reply = Reply{client_has_gone, "", "text/plain"};
}

}  // namespace

/// Makes the reply of a call.
/// @param process What the call was carried out in.
void CallQueue::settle(Exchange &exchange, Backend::Outcome outcome, pid_t process, Clock::time_point begun) try {
    std::string call = backend_.take_call();
    switch (outcome.kind) {
        case Backend::Outcome::Kind::answer: {
            exchange.result = result_of(outcome.text);
            if (!exchange.inner.empty()) exchange.inner_results = inner_results(outcome.text, exchange.inner.size());
            exchange.reply = xml(MHD_HTTP_OK, std::move(outcome.text));
            break;
        }
        case Backend::Outcome::Kind::unanswerable:
            std::fprintf(stderr, "lmq-host: a call could not be answered: %s\n", outcome.text.c_str());
            exchange.reply =
                refusal(MHD_HTTP_INTERNAL_SERVER_ERROR, "The call was made, but cannot be answered: " + outcome.text);
            break;
        case Backend::Outcome::Kind::lost:
            exchange.result = {Fault::internal};
            exchange.reply = xml(MHD_HTTP_BAD_GATEWAY, document(Fault{Fault::internal, std::move(outcome.text)}));
            break;
    }
    recorder_.called({exchange.peer->address, exchange.user, exchange.method, exchange.reply->status,
                      exchange.reply->body, outcome.printed, exchange.arrived, begun, exchange.is_introspection},
                     std::move(call), process);
    if (outcome.printed.empty()) return;
    exchange.reply->headers.emplace_back(
        output_header, std::string(output_path) + std::to_string(printed_.add(std::move(outcome.printed))));
} catch (const std::bad_alloc &) {
    exchange.reply = no_memory(MHD_HTTP_INTERNAL_SERVER_ERROR);
}

void CallQueue::carry_out(Exchange &exchange) {
    const auto begun = Clock::now();
    backend_.begin(exchange.body.take(), exchange.method);
    settle(exchange, *backend_.step(true), backend_.state().pid, begun);
    recorder_.flush();  // a driver that crashes takes this process along
}

const std::vector<Exchange *> &CallQueue::advance(bool moved) {
    replied_.clear();
    moved = moved || backend_.timeout() == 0;
    if (moved || backend_.is_there()) take_outcomes(moved);
    if (is_held_up()) take_back(true);
    while (!waiting_.empty()) {
        const bool may_begin =
            handed_.empty() ? backend_.ready()
                            : are_short_ && backend_.ready_for_next(waiting_.front().exchange->body.text().size());
        if (!may_begin) break;
        begin_next();
    }
    report_slow();
    return replied_;
}

void CallQueue::take_outcomes(bool moved) {
    for (bool more = true; more;) {
        auto outcome = backend_.step(moved);
        const auto death = backend_.take_death();
        take_back(false);
        more = outcome && !handed_.empty();
        if (more) take_outcome(*std::move(outcome), death ? death->process : backend_.state().pid);
        if (death) recorder_.died(*death);
        more = more && !handed_.empty();
    }
}

/// Takes the outcome of the oldest call.
void CallQueue::take_outcome(Backend::Outcome outcome, pid_t process) {
    std::list<Place> ended;
    ended.splice(ended.begin(), handed_, handed_.begin());
    Place &place = ended.front();
    const auto now = Clock::now();
    if (outcome.begun) place.begun = std::clamp(*outcome.begun, place.handed, now);
    are_short_ = now - place.begun < short_time;
    reported_ = false;
    if (!handed_.empty()) handed_.front().begun = now;
    if (place.exchange == nullptr) return take_lost(place, outcome, process);
    settle(*place.exchange, std::move(outcome), process, place.begun);
    replied_.push_back(place.exchange);
}

/// Takes back calls that have not begun, to hand them over again.
/// @param all Whether all of them, or else those that the backend wants to give back.
void CallQueue::take_back(bool all) {
    for (auto calls = backend_.take_back(all); !calls.empty() && !handed_.empty(); calls.pop_back()) {
        const auto last = std::prev(handed_.end());
        are_short_ = false;
        if (last->exchange == nullptr) {
            monitor_.served({last->address,
                             last->user,
                             last->method,
                             "",
                             client_has_gone,
                             {},
                             std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - last->arrived)});
            handed_.erase(last);
        } else {
            last->exchange->body.replace(std::move(calls.back()));
            waiting_.splice(waiting_.begin(), handed_, last);
        }
    }
}

/// Whether the call in hand has kept others waiting that were handed over behind it.
bool CallQueue::is_held_up() const { return handed_.size() > 1 && Clock::now() > handed_.front().begun + patience; }

/// Takes the outcome of a call whose client has gone.
void CallQueue::take_lost(const Place &place, const Backend::Outcome &outcome, pid_t process) {
    std::string call = backend_.take_call();
    const Result result =
        outcome.kind == Backend::Outcome::Kind::answer ? result_of(outcome.text) : Result{Fault::internal};
    recorder_.called({place.address, place.user, place.method, client_has_gone, outcome.text, outcome.printed,
                      place.arrived, place.begun, place.is_introspection},
                     std::move(call), process);
    monitor_.served({place.address, place.user, place.method, "", client_has_gone, result,
                     std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - place.begun)});
}

/// Hands the call that has waited longest to the backend, unless its client has gone.
void CallQueue::begin_next() {
    Place &place = waiting_.front();
    Exchange &next = *place.exchange;
    const auto now = Clock::now();
    // Who has sent a request just now is still there.
    if (now - next.arrived > milliseconds(1) && is_gone(next)) {
        give_up(next);
        replied_.push_back(&next);
        waiting_.pop_front();
        return;
    }
    place.method = next.method;
    place.is_introspection = next.is_introspection;
    place.address = next.peer->address;
    place.user = next.user;
    place.arrived = next.arrived;
    place.handed = place.begun = now;
    are_many_ = !handed_.empty();
    if (!are_many_) reported_ = false;
    handed_.splice(handed_.end(), waiting_, waiting_.begin());
    backend_.begin(next.body.take(), place.method);
}

const std::vector<Exchange *> &CallQueue::drop_gone() {
    replied_.clear();
    if (handed_.size() > 1) take_back(true);
    std::vector<pollfd> clients;
    for (const Place &place : waiting_) clients.push_back({place.exchange->peer->socket, POLLRDHUP, 0});
    poll(clients.data(), clients.size(), 0);
    auto client = clients.begin();
    std::erase_if(waiting_, [&](const Place &place) {
        if ((client++)->revents == 0) return false;
        give_up(*place.exchange);
        replied_.push_back(place.exchange);
        return true;
    });
    for (Place &place : handed_) {
        if (place.exchange == nullptr || !is_gone(*place.exchange)) continue;
        drop(*place.exchange);
        replied_.push_back(std::exchange(place.exchange, nullptr));
    }
    return replied_;
}

const std::vector<Exchange *> &CallQueue::stop(bool all) {
    replied_.clear();
    if (handed_.size() > 1) take_back(true);
    for (const Place &place : std::exchange(waiting_, {})) {
        place.exchange->body.clear();
        place.exchange->reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "The host is being stopped.");
        replied_.push_back(place.exchange);
    }
    for (Place &place : handed_) {
        if (!all || place.exchange == nullptr) continue;
        settle(*place.exchange,
               {Backend::Outcome::Kind::lost,
                "The host has been stopped during " + place.method + ". Whether the call had an effect is not known."},
               backend_.state().pid, place.begun);
        replied_.push_back(std::exchange(place.exchange, nullptr));
    }
    return replied_;
}

/// Gives up a call that has not begun. The HTTP library may not come back to it.
void CallQueue::give_up(Exchange &exchange) {
    monitor_.served({exchange.peer->address,
                     exchange.user,
                     exchange.method,
                     "",
                     client_has_gone,
                     {},
                     std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - exchange.arrived)});
    drop(exchange);
}

void CallQueue::report_slow() {
    if (handed_.empty() || slow_.count() == 0 || reported_) return;
    const Place &place = handed_.front();
    if (Clock::now() < place.begun + slow_) return;
    reported_ = true;
    std::fprintf(stderr, "lmq-host: %s for %s has been in the driver for more than %lld ms\n", place.method.c_str(),
                 place.address.c_str(), static_cast<long long>(slow_.count()));
}

std::chrono::milliseconds CallQueue::age() const {
    if (handed_.empty()) return milliseconds(0);
    return std::chrono::duration_cast<milliseconds>(Clock::now() - handed_.front().begun);
}

long long CallQueue::timeout() const {
    long long least = backend_.timeout();
    const auto consider = [&](Clock::time_point when) {
        const long long left = std::max<long long>(std::chrono::ceil<milliseconds>(when - Clock::now()).count(), 0);
        least = least < 0 ? left : std::min(least, left);
    };
    if (!handed_.empty() && slow_.count() > 0 && !reported_) consider(handed_.front().begun + slow_);
    if (handed_.size() > 1) consider(handed_.front().begun + patience);
    return least;
}

Reply CallQueue::output(std::string_view number) const {
    std::uint64_t wanted = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), wanted);
    const bool is_number = error == std::errc() && end == number.data() + number.size();
    const std::string *text = is_number ? printed_.find(wanted) : nullptr;
    if (text == nullptr) return refusal(MHD_HTTP_NOT_FOUND, "There is no output of that number, or not any longer.");
    // What the driver printed is no promise of any encoding.
    return {MHD_HTTP_OK, *text, "text/plain"};
}

Reply CallQueue::health() const {
    if (!backend_.alive()) return refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "no worker");
    if (handed_.empty()) return {MHD_HTTP_OK, "ok\n"};
    return {MHD_HTTP_OK, "ok, in a call for " + std::to_string(age().count()) + " ms\n"};
}

}  // namespace lmq::host
