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
        output_.pump();
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
    if (phase_ == Phase::busy) {  // the call has been given up
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

void Worker::begin(std::string call, std::string method) {
    method_ = std::move(method);
    call_ = std::move(call);
    is_unread_ = false;
    phase_ = Phase::busy;
    output_.begin(method_);
    out_.begin(FrameKind::call, ++number_, call_);
    // A worker that is gone shows in step().
    if (!out_.send(socket_.get(), MSG_DONTWAIT)) is_unread_ = true;
}

/// Whether the worker owes the frame that it has sent.
bool Worker::is_expected() const {
    const FrameHead &head = in_.head();
    switch (head.kind) {
        case FrameKind::call: return false;
        case FrameKind::ready:
        case FrameKind::failed: return phase_ == Phase::starting;
        case FrameKind::answer:
        case FrameKind::unanswerable: return phase_ == Phase::busy && head.number == number_;
    }
    return false;
}

/// Reads what is there. Returns whether a frame is complete; closes the socket if the worker is at its end, or sends
/// what it does not owe.
bool Worker::receive() {
    while (in_.state() == FrameReader::State::incomplete) {
        const ssize_t count = recv(socket_.get(), in_.space(), in_.room(), MSG_DONTWAIT);
        if (count > 0) {
            in_.take(static_cast<std::size_t>(count));
            if (phase_ == Phase::starting || phase_ == Phase::busy) continue;
            break;
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
        // The system says so if the other end was closed with something unread in it.
        if (count < 0 && errno == ECONNRESET) is_unread_ = true;
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
    const FrameKind kind = in_.is_lost() ? FrameKind::unanswerable : in_.head().kind;
    std::string text = in_.is_lost() ? "There is no memory for the answer." : in_.take_text();
    in_.reset();
    if (kind == FrameKind::failed) return Outcome{Outcome::Kind::lost, std::move(text), {}};
    phase_ = Phase::idle;
    if (kind == FrameKind::ready) {
        if (methods_.empty()) methods_ = methods_of(text);
        if (is_unread_) begin(std::exchange(call_, {}), std::exchange(method_, {}));
        return std::nullopt;
    }
    failures_ = 0;
    maybe_recycle();
    return Outcome{kind == FrameKind::answer ? Outcome::Kind::answer : Outcome::Kind::unanswerable, std::move(text),
                   output_.end()};
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
    if (!misdeed_.empty()) {
        death.how = misdeed_ + " and was ended";
        return death;
    }
    death.how = cause_of_death(status);
    (WIFSIGNALED(status) ? death.signal : death.status) = WIFSIGNALED(status) ? WTERMSIG(status) : WEXITSTATUS(status);
    return death;
}

void Worker::maybe_recycle() {
    if (options_.recycle_rss == 0 || --until_measured_ > 0) return;
    until_measured_ = measured_every;
    if (resident_bytes(pid_) < options_.recycle_rss) return;
    shutdown(socket_.get(), SHUT_WR);
    phase_ = Phase::ending;
    due_ = Clock::now() + time_to_end;
}

std::optional<Backend::Outcome> Worker::step() {
    auto outcome = advance();
    if (!outcome) output_.pump();
    return outcome;
}

std::optional<Backend::Outcome> Worker::advance() {
    if (phase_ == Phase::dead && !start_again()) return std::nullopt;
    if (phase_ == Phase::ending && Clock::now() >= due_) socket_ = FileDescriptor();
    if (socket_.get() >= 0) {
        if (phase_ == Phase::busy && !out_.is_done()) out_.send(socket_.get(), MSG_DONTWAIT);
        if (receive()) {
            const bool starting = phase_ == Phase::starting;
            auto outcome = take_frame();
            if (!starting || !outcome) return outcome;
            misdeed_ = "failed to load: " + outcome->text + ",";
        } else if (socket_.get() >= 0) {
            return std::nullopt;
        }
    }
    return replace();
}

/// Buries the worker and sees to the next one.
/// @return The outcome of the call that was lost with it.
std::optional<Backend::Outcome> Worker::replace() {
    const Phase before = phase_;
    // A call that has not been sent in full cannot have begun.
    if (before == Phase::busy && !out_.is_done()) is_unread_ = true;
    Death death = bury();
    std::string printed = output_.end();
    due_ = Clock::now();
    if (before == Phase::ending) {
        ++recycled_;
        return std::nullopt;
    }
    ++restarts_;
    due_ += back_off(++failures_);
    const bool in_hand = before == Phase::busy && !is_unread_;
    const std::string when = in_hand ? "in " + method_ : before == Phase::starting ? loading : "between two calls";
    std::fprintf(stderr, "lmq-host: the worker %s %s\n", death.how.c_str(), when.c_str());
    if (in_hand) {
        death.method = method_;
    } else {
        death.printed = std::exchange(printed, {});
    }
    death_ = std::move(death);
    if (!in_hand) return std::nullopt;
    return Outcome{Outcome::Kind::lost,
                   "The process of the driver " + death_->how + " in " + method_ +
                       ". Whether the call had an effect is not known; another process follows.",
                   std::move(printed)};
}

std::array<pollfd, 4> Worker::waits() const {
    const bool writes = phase_ == Phase::busy && !out_.is_done();
    const auto events = static_cast<short>(writes ? POLLIN | POLLOUT : POLLIN);
    const auto printed = output_.waits();
    return {{{socket_.get(), events, 0}, {process_.get(), POLLIN, 0}, printed[0], printed[1]}};
}

int Worker::timeout() const {
    if (phase_ == Phase::idle || phase_ == Phase::busy) return -1;
    const auto left = std::chrono::ceil<milliseconds>(due_ - Clock::now()).count();
    return static_cast<int>(std::clamp<long long>(left, 0, 60'000));
}

bool Worker::alive() const {
    if (phase_ == Phase::starting) return Clock::now() - started_ < usual_load_time;
    return phase_ != Phase::dead;
}

}  // namespace lmq::host
