// From calls to their replies, one at a time.
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
void CallQueue::settle(Exchange &exchange, Backend::Outcome outcome, pid_t process) try {
    const std::string call = backend_.take_call();
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
    recorder_.called({exchange.peer->address, exchange.user, exchange.method, call, exchange.reply->status,
                      exchange.reply->body, outcome.printed, exchange.arrived, begun_},
                     process);
    if (outcome.printed.empty()) return;
    exchange.reply->headers.emplace_back(
        output_header, std::string(output_path) + std::to_string(printed_.add(std::move(outcome.printed))));
} catch (const std::bad_alloc &) {
    exchange.reply = no_memory(MHD_HTTP_INTERNAL_SERVER_ERROR);
}

void CallQueue::carry_out(Exchange &exchange) {
    begun_ = Clock::now();
    backend_.begin(exchange.body.take(), exchange.method);
    settle(exchange, *backend_.step(), backend_.state().pid);
    recorder_.flush();  // a driver that crashes takes this process along
}

const std::vector<Exchange *> &CallQueue::advance(bool moved) {
    replied_.clear();
    if (moved || backend_.timeout() == 0) take_outcome();
    while (!is_busy_ && !waiting_.empty() && backend_.ready() && !begin_next()) continue;
    report_slow();
    return replied_;
}

void CallQueue::take_outcome() {
    auto outcome = backend_.step();
    const auto death = backend_.take_death();
    if (outcome && is_busy_) {
        is_busy_ = false;
        const pid_t process = death ? death->process : backend_.state().pid;
        if (current_ != nullptr) {
            settle(*current_, *std::move(outcome), process);
            replied_.push_back(std::exchange(current_, nullptr));
        } else {
            take_lost(*outcome, process);
        }
    }
    if (death) recorder_.died(*death);
}

/// Takes the outcome of a call whose client has gone.
void CallQueue::take_lost(const Backend::Outcome &outcome, pid_t process) {
    const std::string call = backend_.take_call();
    const Result result =
        outcome.kind == Backend::Outcome::Kind::answer ? result_of(outcome.text) : Result{Fault::internal};
    recorder_.called({address_, user_, method_, call, client_has_gone, outcome.text, outcome.printed, arrived_, begun_},
                     process);
    monitor_.served({address_, user_, method_, "", client_has_gone, result,
                     std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - begun_)});
}

/// Hands the call that has waited longest to the backend, unless its client has gone.
/// @return Whether a call has begun.
bool CallQueue::begin_next() {
    Exchange &next = *waiting_.front();
    // Who has sent a request just now is still there.
    if (Clock::now() - next.arrived > milliseconds(1) && is_gone(next)) {
        give_up(next);
        replied_.push_back(&next);
        waiting_.pop_front();
        return false;
    }
    method_ = next.method;
    address_ = next.peer->address;
    user_ = next.user;
    std::string method = method_;
    waiting_.pop_front();
    current_ = &next;
    is_busy_ = true;
    arrived_ = next.arrived;
    begun_ = Clock::now();
    reported_ = false;
    backend_.begin(next.body.take(), std::move(method));
    return true;
}

const std::vector<Exchange *> &CallQueue::drop_gone() {
    replied_.clear();
    std::vector<pollfd> clients;
    for (const Exchange *call : waiting_) clients.push_back({call->peer->socket, POLLRDHUP, 0});
    poll(clients.data(), clients.size(), 0);
    auto client = clients.begin();
    std::erase_if(waiting_, [&](Exchange *call) {
        if ((client++)->revents == 0) return false;
        give_up(*call);
        replied_.push_back(call);
        return true;
    });
    if (current_ != nullptr && is_gone(*current_)) {
        drop(*current_);
        replied_.push_back(std::exchange(current_, nullptr));
    }
    return replied_;
}

const std::vector<Exchange *> &CallQueue::stop(bool all) {
    replied_.clear();
    for (Exchange *call : std::exchange(waiting_, {})) {
        call->body.clear();
        call->reply = refusal(MHD_HTTP_SERVICE_UNAVAILABLE, "The host is being stopped.");
        replied_.push_back(call);
    }
    if (all && current_ != nullptr) {
        settle(*current_,
               {Backend::Outcome::Kind::lost,
                "The host has been stopped during " + method_ + ". Whether the call had an effect is not known.",
                {}},
               backend_.state().pid);
        replied_.push_back(std::exchange(current_, nullptr));
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
    if (!is_busy_ || slow_.count() == 0 || reported_ || Clock::now() < begun_ + slow_) return;
    reported_ = true;
    std::fprintf(stderr, "lmq-host: %s for %s has been in the driver for more than %lld ms\n", method_.c_str(),
                 address_.c_str(), static_cast<long long>(slow_.count()));
}

std::chrono::milliseconds CallQueue::age() const {
    return is_busy_ ? std::chrono::duration_cast<milliseconds>(Clock::now() - begun_) : milliseconds(0);
}

long long CallQueue::timeout() const {
    long long least = backend_.timeout();
    if (is_busy_ && slow_.count() > 0 && !reported_) {
        const long long slow =
            std::max<long long>(std::chrono::ceil<milliseconds>(begun_ + slow_ - Clock::now()).count(), 0);
        least = least < 0 ? slow : std::min(least, slow);
    }
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
    if (!is_busy_) return {MHD_HTTP_OK, "ok\n"};
    return {MHD_HTTP_OK, "ok, in a call for " + std::to_string(age().count()) + " ms\n"};
}

}  // namespace lmq::host
