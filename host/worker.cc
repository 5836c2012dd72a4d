// The front's side of the worker: starts, feeds and buries it.
#include "worker.h"

#include <signal.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "process.h"
#include "worker_process.h"

namespace lmq::host {
namespace {

using std::chrono::milliseconds;

constexpr std::chrono::seconds time_to_end(5);
constexpr unsigned measured_every = 16;

/// Calls that are handed over before the one in hand is answered: so many, and so long in bytes. Together they fit into
/// the socket.
constexpr std::size_t most_in_hand = 16;
constexpr std::size_t longest_next = 4 * 1024;

/// A worker that loads for longer counts as absent, even if it may still come.
constexpr std::chrono::seconds usual_load_time(5);

constexpr const char loading[] = "while it loaded the driver and the plug-in";

/// The next start after so many failures in a row: at once, then later and later.
milliseconds back_off(unsigned failures) {
    if (failures < 2) return milliseconds(0);
    return std::min(milliseconds(50) * (1U << std::min(failures - 2, 10U)), milliseconds(2000));
}

std::string cause_of_death(int status) {
    if (!WIFSIGNALED(status)) return "ended with status " + std::to_string(WEXITSTATUS(status));
    const char *name = sigabbrev_np(WTERMSIG(status));
    return "was ended by SIG" + std::string(name == nullptr ? std::to_string(WTERMSIG(status)) : name);
}

}  // namespace

Worker::Worker(Spawner &spawner, Output &output, WorkerPlan plan, const Options &options)
    : spawner_(spawner), output_(output), plan_(std::move(plan)), options_(options), in_(options.max_answer) {
    plan_.max_answer = options.max_answer;
    plan_.spin = options.spin.count();
    start();
    while (phase_ == Phase::starting) {
        auto waited = waits();
        poll(waited.data(), waited.size(), timeout());
        read_output();
        if (receive()) {
            const auto loaded = take_frame();
            if (loaded) {
                bury();
                throw std::runtime_error(loaded->text);
            }
        } else if (socket_.get() < 0) {
            throw std::runtime_error("the worker " + bury().how + " " + loading);
        }
    }
    const std::size_t fresh = resident_bytes(pid_);
    if (options_.recycle_rss > 0 && options_.recycle_rss <= fresh) {
        bury();
        throw std::runtime_error("--recycle-rss is less than the " + std::to_string((fresh >> 20) + 1) +
                                 "MB that the driver's process holds from its start");
    }
}

Worker::~Worker() try {
    if (pid_ < 0) return;
    if (in_hand() > 0) {  // the call has been given up
        bury();
        return;
    }
    shutdown(socket_.get(), SHUT_WR);
    pollfd waited{process_.get() >= 0 ? process_.get() : socket_.get(), POLLIN, 0};
    poll(&waited, 1, static_cast<int>(milliseconds(time_to_end).count()));
    bury();
} catch (const std::exception &) {
    return;  // the spawner has ended, and the worker with it
}

void Worker::start() {
    Spawner::Started started = spawner_.start(plan_);
    pid_ = started.pid;
    socket_ = std::move(started.socket);
    process_ = FileDescriptor(static_cast<int>(syscall(SYS_pidfd_open, pid_, 0)));
    phase_ = Phase::starting;
    started_ = Clock::now();
    due_ = started_ + options_.load_time;
    in_.reset();
    misdeed_.clear();
    until_measured_ = measured_every;
    is_too_large_ = false;
}

/// @return Whether there is a worker now.
bool Worker::start_again() {
    if (Clock::now() < due_) return false;
    try {
        start();
        return true;
    } catch (const std::system_error &error) {
        std::fprintf(stderr, "lmq-host: %s\n", error.what());
        due_ = Clock::now() + back_off(++failures_ + 4);
        return false;
    }
}

bool Worker::ready_for_next(std::size_t size) const {
    return phase_ == Phase::idle && size <= longest_next && handed_.size() < most_in_hand &&
           in_hand() == handed_.size() && out_.is_done() && !is_too_large_;
}

void Worker::begin(std::string call, std::string method) {
    const bool is_next = in_hand() > 0;
    if (!is_next) output_.begin(method);
    handed_.push_back({++number_, std::move(call), std::move(method), is_next});
    out_.begin({.kind = is_next ? FrameKind::next : FrameKind::call, .number = number_, .size = 0},
               handed_.back().call);
    // A worker that is gone shows in step().
    out_.send(socket_.get(), MSG_DONTWAIT);
}

/// How many calls may have begun or will begin.
std::size_t Worker::in_hand() const {
    return static_cast<std::size_t>(std::ranges::count(handed_, false, &Handed::is_back));
}

/// Takes back the calls that have not begun.
void Worker::recall() {
    if (handed_.empty()) return;
    const std::uint64_t begun = spawner_.mark().take_back(handed_.front().number - 1, number_);
    for (Handed &one : handed_) {
        if (one.number <= begun || one.is_back) continue;
        one.is_back = true;
        // The last one may be on its way yet.
        back_.push_back(out_.is_done() ? std::move(one.call) : one.call);
    }
}

std::vector<std::string> Worker::take_back(bool all) {
    if (all) recall();
    return std::exchange(back_, {});
}

std::string Worker::take_call() {
    if (call_.empty() && !handed_.empty()) {
        out_ = {};
        call_ = std::move(handed_.front().call);
        handed_.pop_front();
    }
    return std::exchange(call_, {});
}

/// Reads what has been printed, if it is clear whose it is. Of several calls that have begun, all but the last have
/// been answered and printed nothing, for the worker begins none that was handed over behind a call that did.
void Worker::read_output() {
    if (in_hand() > 1) recall();
    if (in_hand() <= 1) output_.pump();
}

/// Whether the worker owes the frame that it has sent.
bool Worker::is_expected() const {
    const FrameKind kind = in_.head().kind;
    if (kind == FrameKind::ready || kind == FrameKind::failed) return phase_ == Phase::starting;
    const bool is_sent = handed_.size() > 1 || out_.is_done();
    if (handed_.empty() || in_.head().number != handed_.front().number || !is_sent) return false;
    if (kind == FrameKind::declined) return handed_.front().is_next || handed_.front().is_back;
    return (kind == FrameKind::answer || kind == FrameKind::unanswerable) && !handed_.front().is_back;
}

/// Reads what is there. Returns whether a frame is complete; closes the socket if the worker is at its end, or sends
/// what it does not owe.
bool Worker::receive() {
    const bool owes = phase_ == Phase::starting || !handed_.empty();
    while (in_.state() == FrameReader::State::incomplete && (owes || !in_.has_begun())) {
        const ssize_t count = recv(socket_.get(), in_.space(), in_.room(), MSG_DONTWAIT);
        if (count > 0) {
            in_.take(static_cast<std::size_t>(count));
            continue;
        }
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) {
            if (phase_ == Phase::starting && Clock::now() >= due_) {
                misdeed_ = "took longer than " + std::to_string(options_.load_time.count()) + " s (--load-time)";
                break;
            }
            // Somebody whom the driver started may keep the other end open. What the worker wrote has been read by now.
            pollfd ended{process_.get(), POLLIN, 0};
            if (process_.get() < 0 || poll(&ended, 1, 0) <= 0) return false;
        }
        socket_ = FileDescriptor();
        return false;
    }
    if (in_.state() == FrameReader::State::complete && is_expected()) return true;
    if (misdeed_.empty()) misdeed_ = "sent what it was not asked for";
    socket_ = FileDescriptor();
    return false;
}

/// Takes the frame that receive() has completed.
std::optional<Backend::Outcome> Worker::take_frame() {
    const FrameHead head = in_.head();
    const bool is_answer = head.kind == FrameKind::answer && !in_.is_lost();
    std::string text = in_.is_lost() ? "There is no memory for the answer." : in_.take_text();
    in_.next();
    switch (head.kind) {
        case FrameKind::failed: return Outcome{Outcome::Kind::lost, std::move(text), {}};
        case FrameKind::ready:
            phase_ = Phase::idle;
            if (methods_.empty()) methods_ = methods_of(text);
            return std::nullopt;
        case FrameKind::declined: take_declined(); return std::nullopt;
        default:
            return take_answer(head, is_answer ? Outcome::Kind::answer : Outcome::Kind::unanswerable, std::move(text));
    }
}

Backend::Outcome Worker::take_answer(const FrameHead &head, Outcome::Kind kind, std::string text) {
    failures_ = 0;
    if (head.has_printed != 0) read_output();
    Outcome outcome{kind, std::move(text), output_.end()};
    outcome.begun =
        Clock::time_point(std::chrono::duration_cast<Clock::duration>(std::chrono::nanoseconds(head.begun)));
    call_ = std::move(handed_.front().call);
    handed_.pop_front();
    if (in_hand() > 0) output_.begin(handed_.front().method);
    maybe_recycle();
    return outcome;
}

/// A call that was not made. If it was not taken back before, it is now, with those behind it.
void Worker::take_declined() {
    if (!handed_.front().is_back) recall();
    if (handed_.front().is_back) {
        handed_.pop_front();
    } else {
        misdeed_ = "declined a call that it had begun";
        socket_ = FileDescriptor();
    }
}

/// Ends a worker whose time is over, and says how it ended.
Backend::Death Worker::bury() {
    Death death;
    death.process = std::exchange(pid_, -1);
    // Whoever has closed the socket answers no more calls, even if the process lives on.
    const int status = spawner_.bury(death.process);
    socket_ = FileDescriptor();
    process_ = FileDescriptor();
    in_.reset();
    phase_ = Phase::dead;
    recall();
    std::erase_if(handed_, [](const Handed &one) { return one.is_back; });
    out_ = {};
    spawner_.mark().reset(number_);
    if (!misdeed_.empty()) {
        death.how = misdeed_ + " and was ended";
        return death;
    }
    death.how = cause_of_death(status);
    (WIFSIGNALED(status) ? death.signal : death.status) = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
    return death;
}

void Worker::maybe_recycle() {
    if (options_.recycle_rss == 0) return;
    if (!is_too_large_ && --until_measured_ > 0) return;
    until_measured_ = measured_every;
    is_too_large_ = is_too_large_ || resident_bytes(pid_) >= options_.recycle_rss;
    if (!is_too_large_) return;
    recall();
    if (in_hand() > 0) return;
    shutdown(socket_.get(), SHUT_WR);
    phase_ = Phase::ending;
    due_ = Clock::now() + time_to_end;
}

std::optional<Backend::Outcome> Worker::step() {
    auto outcome = advance();
    if (!outcome && output_.is_waiting()) read_output();
    return outcome;
}

std::optional<Backend::Outcome> Worker::advance() {
    if (phase_ == Phase::dead && !handed_.empty()) return lose({});
    if (phase_ == Phase::dead && !start_again()) return std::nullopt;
    if (phase_ == Phase::ending && Clock::now() >= due_) socket_ = FileDescriptor();
    if (socket_.get() >= 0) {
        if (!out_.is_done()) out_.send(socket_.get(), MSG_DONTWAIT);
        const bool starting = phase_ == Phase::starting;
        while (socket_.get() >= 0 && receive()) {
            auto outcome = take_frame();
            if (outcome && !starting) return outcome;
            if (!starting) continue;
            if (!outcome) return std::nullopt;
            misdeed_ = "failed to load: " + outcome->text + ",";
            return replace();
        }
        if (socket_.get() >= 0) return std::nullopt;
    }
    return replace();
}

/// Buries the worker and sees to the next one.
/// @return The outcome of the call that was lost with it.
std::optional<Backend::Outcome> Worker::replace() {
    const Phase before = phase_;
    Death death = bury();
    output_.pump();
    std::string printed = output_.end();
    due_ = Clock::now();
    if (before == Phase::ending) {
        ++recycled_;
        return std::nullopt;
    }
    ++restarts_;
    due_ += back_off(++failures_);
    const bool is_lost = !handed_.empty();
    const std::string when = is_lost                     ? "in " + handed_.front().method
                             : before == Phase::starting ? loading
                                                         : "between two calls";
    std::fprintf(stderr, "lmq-host: the worker %s %s\n", death.how.c_str(), when.c_str());
    how_ = death.how;
    if (is_lost) {
        death.method = handed_.front().method;
    } else {
        death.printed = std::exchange(printed, {});
    }
    death_ = std::move(death);
    if (!is_lost) return std::nullopt;
    return lose(std::move(printed));
}

/// The outcome of the oldest call, which was in hand when the worker died.
Backend::Outcome Worker::lose(std::string printed) {
    Handed lost = std::move(handed_.front());
    handed_.pop_front();
    call_ = std::move(lost.call);
    return {Outcome::Kind::lost,
            "The process of the driver " + how_ + " in " + lost.method +
                ". Whether the call had an effect is not known; another process follows.",
            std::move(printed)};
}

std::array<pollfd, 4> Worker::waits() const {
    const auto events = static_cast<short>(out_.is_done() ? POLLIN : POLLIN | POLLOUT);
    const auto printed = output_.waits();
    return {{{socket_.get(), events, 0}, {process_.get(), POLLIN, 0}, printed[0], printed[1]}};
}

int Worker::timeout() const {
    if (phase_ == Phase::idle) return -1;
    const auto left = std::chrono::ceil<milliseconds>(due_ - Clock::now()).count();
    return static_cast<int>(std::clamp<long long>(left, 0, 60'000));
}

bool Worker::alive() const {
    if (phase_ == Phase::starting) return Clock::now() - started_ < usual_load_time;
    return phase_ != Phase::dead;
}

}  // namespace lmq::host
