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

constexpr const char unasked[] = "sent what it was not asked for";
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
        if (auto frame = receive(true)) {
            const auto loaded = take_frame(*std::move(frame));
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
    plan_.first_call = number_ + 1;
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
    return phase_ == Phase::idle && size <= Slots::longest && handed_.size() + 1 < Slots::count &&
           in_hand() == handed_.size() && out_.is_done() && !is_too_large_;
}

void Worker::begin(std::string call, const std::string &method) {
    const bool is_next = in_hand() > 0;
    if (!is_next) output_.begin(method);
    handed_.push_back({++number_, std::move(call), method, is_next});
    const FrameHead head{.kind = is_next ? FrameKind::next : FrameKind::call, .number = number_, .size = 0};
    Slots &calls = spawner_.board().calls();
    if (calls.put(head, handed_.back().call)) {
        if (!calls.wants_bell()) return;
        out_number_ = 0;
        out_.begin(bell, {});
    } else {
        out_number_ = number_;
        out_.begin(head, handed_.back().call);
    }
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
    const std::uint64_t begun = spawner_.board().take_back(handed_.front().number - 1, number_);
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

/// Whether the worker owes a frame like this.
bool Worker::is_expected(const FrameHead &head) const {
    if (head.mark != FrameHead::magic) return false;
    if (head.kind == FrameKind::ready || head.kind == FrameKind::failed) return phase_ == Phase::starting;
    if (handed_.empty() || head.number != handed_.front().number) return false;
    if (!out_.is_done() && out_number_ == head.number) return false;
    if (head.kind == FrameKind::declined) return handed_.front().is_next || handed_.front().is_back;
    return (head.kind == FrameKind::answer || head.kind == FrameKind::unanswerable) && !handed_.front().is_back;
}

bool Worker::is_there() const { return !handed_.empty() && spawner_.board().answers().has(handed_.front().number); }

/// Reads the socket until a frame is complete or there is nothing more.
/// @return Whether to look at the frame. Closes the socket if the worker is at its end.
bool Worker::read_socket() {
    const bool owes = phase_ == Phase::starting || !handed_.empty();
    while (in_.state() == FrameReader::State::incomplete && (owes || in_.may_be_bell())) {
        const ssize_t count = recv(socket_.get(), in_.space(), in_.room(), MSG_DONTWAIT);
        if (count > 0) {
            in_.take(static_cast<std::size_t>(count));
            in_.skip_bells();
            continue;
        }
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) {
            if (phase_ == Phase::starting && Clock::now() >= due_) {
                misdeed_ = "took longer than " + std::to_string(options_.load_time.count()) + " s (--load-time)";
                return true;
            }
            // Somebody whom the driver started may keep the other end open. What the worker wrote has been read by now.
            pollfd ended{process_.get(), POLLIN, 0};
            if (process_.get() < 0 || poll(&ended, 1, 0) <= 0) return false;
        }
        socket_ = FileDescriptor();
        return false;
    }
    return true;
}

/// The next frame, if it is there. Closes the socket if the worker is at its end, or sends what it does not owe.
std::optional<Worker::Frame> Worker::receive(bool moved) {
    const bool speaks = !is_there() && moved && socket_.get() >= 0 && read_socket();
    // The worker may have answered before its end, and before it sent what has been read now.
    Frame frame;
    if (is_there()) {
        frame = take_from_board();
    } else if (!speaks) {
        return std::nullopt;
    } else if (misdeed_.empty() && in_.state() == FrameReader::State::complete) {
        frame = take_from_socket();
    }
    if (misdeed_.empty() && is_expected(frame.head)) return frame;
    if (misdeed_.empty()) misdeed_ = unasked;
    socket_ = FileDescriptor();
    return std::nullopt;
}

Worker::Frame Worker::take_from_board() {
    const Slots &answers = spawner_.board().answers();
    const std::uint64_t number = handed_.front().number;
    Frame frame{answers.head(number), {}};
    if (frame.head.size > std::min(Slots::longest, options_.max_answer)) return {};
    try {
        frame.text = answers.text(number, static_cast<std::size_t>(frame.head.size));
    } catch (const std::bad_alloc &) {
        frame.is_lost = true;
    }
    return frame;
}

Worker::Frame Worker::take_from_socket() {
    Frame frame{in_.head(), {}, in_.is_lost()};
    try {
        frame.text = in_.take_text();
    } catch (const std::bad_alloc &) {
        frame.is_lost = true;
    }
    in_.next();
    // Behind an answer may come the bell for the next one, which is on the board.
    in_.skip_bells();
    return frame;
}

/// Takes a frame that the worker owes.
std::optional<Backend::Outcome> Worker::take_frame(Frame frame) {
    const bool is_answer = frame.head.kind == FrameKind::answer && !frame.is_lost;
    if (frame.is_lost) frame.text = "There is no memory for the answer.";
    switch (frame.head.kind) {
        case FrameKind::failed: return Outcome{Outcome::Kind::lost, std::move(frame.text)};
        case FrameKind::ready:
            phase_ = Phase::idle;
            if (methods_.empty()) methods_ = methods_of(frame.text);
            return std::nullopt;
        case FrameKind::declined: take_declined(); return std::nullopt;
        default:
            return take_answer(frame.head, is_answer ? Outcome::Kind::answer : Outcome::Kind::unanswerable,
                               std::move(frame.text));
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
    if (handed_.empty() && in_.has_begun() && !in_.may_be_bell()) misdeed_ = unasked;
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
    spawner_.board().reset(number_);
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

std::optional<Backend::Outcome> Worker::step(bool moved) {
    auto outcome = advance(moved);
    if (moved && !outcome && output_.is_waiting()) read_output();
    return outcome;
}

std::optional<Backend::Outcome> Worker::advance(bool moved) {
    if (phase_ == Phase::dead && !handed_.empty()) return lose({});
    if (phase_ == Phase::dead && !start_again()) return std::nullopt;
    if (phase_ == Phase::ending && Clock::now() >= due_) socket_ = FileDescriptor();
    if (!out_.is_done() && socket_.get() >= 0) out_.send(socket_.get(), MSG_DONTWAIT);
    const bool starting = phase_ == Phase::starting;
    while (auto frame = receive(moved)) {
        auto outcome = take_frame(*std::move(frame));
        if (outcome && starting) misdeed_ = "failed to load: " + outcome->text + ",";
        if (starting && !outcome) return std::nullopt;
        if (starting) break;
        if (outcome) return outcome;
    }
    if (socket_.get() >= 0 && misdeed_.empty()) return std::nullopt;
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
    if (phase_ == Phase::idle) return misdeed_.empty() ? -1 : 0;
    const auto left = std::chrono::ceil<milliseconds>(due_ - Clock::now()).count();
    return static_cast<int>(std::clamp<long long>(left, 0, 60'000));
}

bool Worker::alive() const {
    if (phase_ == Phase::starting) return Clock::now() - started_ < usual_load_time;
    return phase_ != Phase::dead;
}

}  // namespace lmq::host
