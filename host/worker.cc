// Both ends of the socket pair: the loop of the worker, and class Worker, which starts, feeds and buries it.
#include "worker.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/wait.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "process.h"
#include "spinner.h"

namespace lmq::host {
namespace {

using std::chrono::milliseconds;

enum class FrameKind : std::uint32_t { call, ready, failed, answer, unanswerable };

struct FrameHead {
    std::uint32_t size;
    FrameKind kind;
};

constexpr std::size_t first_buffer = 128 * 1024;
constexpr int worker_socket = 3;
constexpr std::chrono::seconds time_to_end(5);
constexpr unsigned measured_every = 16;

/** The next start after so many failures in a row: at once, then later and later. */
milliseconds back_off(unsigned failures) {
    if (failures < 2) return milliseconds(0);
    return std::min(milliseconds(50) * (1U << std::min(failures - 2, 10U)), milliseconds(2000));
}

/** Writes a frame, in one piece if the socket takes it. Returns false if nobody is at the other end. */
bool write_frame(int fd, FrameKind kind, std::string_view text) {
    FrameHead head{static_cast<std::uint32_t>(text.size()), kind};
    iovec parts[] = {{&head, sizeof head}, {const_cast<char *>(text.data()), text.size()}};
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = 2;
    while (message.msg_iovlen > 0) {
        const ssize_t count = sendmsg(fd, &message, MSG_NOSIGNAL);
        if (count < 0 && errno != EINTR) return false;
        std::size_t gone = count < 0 ? 0 : static_cast<std::size_t>(count);
        while (message.msg_iovlen > 0 && gone >= message.msg_iov->iov_len) {
            gone -= message.msg_iov->iov_len;
            ++message.msg_iov;
            --message.msg_iovlen;
        }
        if (message.msg_iovlen > 0) {
            message.msg_iov->iov_base = static_cast<char *>(message.msg_iov->iov_base) + gone;
            message.msg_iov->iov_len -= gone;
        }
    }
    return true;
}

/**
 * Reads a frame into a buffer, which grows with it. Nothing follows a frame: the other end waits for the answer.
 * @param spinner Asks for the first bytes before the process goes to sleep over them.
 * @return The call; nothing if nobody is at the other end.
 */
std::optional<std::string_view> read_frame(int fd, std::vector<char> &buffer, Spinner &spinner) {
    std::size_t received = 0;
    /** Returns whether there is still somebody at the other end. */
    const auto take = [&](int flags) {
        const ssize_t count = recv(fd, buffer.data() + received, buffer.size() - received, flags);
        if (count > 0) received += static_cast<std::size_t>(count);
        return count > 0 || (count < 0 && (errno == EAGAIN || errno == EINTR));
    };
    bool open = true;
    const auto look = [&] {
        open = take(MSG_DONTWAIT);
        return received > 0 || !open;
    };
    spinner.wait(look, [&] {
        while (open && received == 0) open = take(0);
    });
    while (open) {
        FrameHead head{};
        if (received >= sizeof head) {
            std::memcpy(&head, buffer.data(), sizeof head);
            const std::size_t whole = sizeof head + head.size;
            if (received == whole) return std::string_view(buffer.data() + sizeof head, head.size);
            if (buffer.size() < whole) buffer.resize(whole);
        }
        open = take(0);
    }
    return std::nullopt;
}

/** The life of a worker: it loads everything, then answers until the host closes the socket. */
void work(int fd, const Open &open, std::chrono::microseconds spin) {
    Call call;
    try {
        call = open();
    } catch (const std::exception &error) {
        write_frame(fd, FrameKind::failed, error.what());
        return;
    }
    if (!write_frame(fd, FrameKind::ready, "")) return;
    Spinner spinner(spin);
    std::vector<char> buffer(first_buffer);
    while (const auto received = read_frame(fd, buffer, spinner)) {
        bool there = false;
        try {
            there = write_frame(fd, FrameKind::answer, call(*received));
        } catch (const std::exception &error) {
            there = write_frame(fd, FrameKind::unanswerable, error.what());
        }
        if (!there) return;
    }
}

std::string cause_of_death(int status) {
    if (!WIFSIGNALED(status)) return "ended with status " + std::to_string(WEXITSTATUS(status));
    const char *name = sigabbrev_np(WTERMSIG(status));
    return "was ended by SIG" + std::string(name == nullptr ? std::to_string(WTERMSIG(status)) : name);
}

}  // namespace

Worker::Worker(Open open, const Options &options) : open_(std::move(open)), options_(options), in_(first_buffer) {
    start();
    while (phase_ == Phase::starting) {
        auto waited = waits();
        poll(waited.data(), waited.size(), -1);
        if (receive()) {
            const auto loaded = take_frame();
            if (loaded) {
                bury();
                throw std::runtime_error(loaded->text);
            }
        } else if (socket_.get() < 0) {
            throw std::runtime_error("the worker " + bury() + " while it loaded the driver and the plug-in");
        }
    }
}

Worker::~Worker() {
    if (pid_ < 0) return;
    shutdown(socket_.get(), SHUT_WR);
    pollfd waited{process_.get() >= 0 ? process_.get() : socket_.get(), POLLIN, 0};
    poll(&waited, 1, static_cast<int>(milliseconds(time_to_end).count()));
    bury();
}

void Worker::start() {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) < 0) {
        throw std::system_error(errno, std::generic_category(), "cannot make the worker's socket");
    }
    FileDescriptor here(ends[0]), there(ends[1]);
    fcntl(here.get(), F_SETFL, O_NONBLOCK);
    std::fflush(stdout);
    const pid_t front = getpid();
    pid_ = fork();
    if (pid_ < 0) throw std::system_error(errno, std::generic_category(), "cannot start a worker");
    if (pid_ == 0) {
        // A worker without a host would keep the chip from the next one.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        prctl(PR_SET_NAME, "lmq-host-worker");
        if (getppid() != front) _exit(EXIT_FAILURE);
        // Neither the clients' sockets nor the listening one may live on in a worker or in what a driver starts.
        if (dup2(there.get(), worker_socket) < 0) _exit(EXIT_FAILURE);
        fcntl(worker_socket, F_SETFD, FD_CLOEXEC);
        closefrom(worker_socket + 1);
        here.release();
        there.release();
        work(worker_socket, open_, options_.spin);
        std::exit(EXIT_SUCCESS);  // the driver's own clean-up runs
    }
    socket_ = std::move(here);
    process_ = FileDescriptor(static_cast<int>(syscall(SYS_pidfd_open, pid_, 0)));
    phase_ = Phase::starting;
    received_ = 0;
    until_measured_ = measured_every;
}

void Worker::begin(std::string call, const std::string &method) {
    method_ = method;
    phase_ = Phase::busy;
    sent_ = 0;
    FrameHead head{static_cast<std::uint32_t>(call.size()), FrameKind::call};
    out_ = std::move(call);
    iovec parts[] = {{&head, sizeof head}, {out_.data(), out_.size()}};
    msghdr message{};
    message.msg_iov = parts;
    message.msg_iovlen = 2;
    // An empty socket has room for the head at least; a worker that is gone shows in step().
    const ssize_t count = sendmsg(socket_.get(), &message, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count >= static_cast<ssize_t>(sizeof head)) sent_ = static_cast<std::size_t>(count) - sizeof head;
    if (count < 0) unsent_ = std::move(out_);
    if (count < 0 || sent_ == out_.size()) out_.clear();
}

void Worker::send_rest() {
    if (out_.empty()) return;
    const ssize_t count = send(socket_.get(), out_.data() + sent_, out_.size() - sent_, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (count > 0) sent_ += static_cast<std::size_t>(count);
    const bool gone = count < 0 && errno != EAGAIN && errno != EINTR;
    if (gone || sent_ == out_.size()) out_.clear();
}

/** Reads what is there. Returns whether a frame is complete; closes the socket if the worker is at its end. */
bool Worker::receive() {
    for (;;) {
        FrameHead head{};
        if (received_ >= sizeof head) {
            std::memcpy(&head, in_.data(), sizeof head);
            const std::size_t whole = sizeof head + head.size;
            if (received_ == whole) return true;
            if (in_.size() < whole) in_.resize(whole);
        }
        const ssize_t count = recv(socket_.get(), in_.data() + received_, in_.size() - received_, MSG_DONTWAIT);
        if (count > 0) {
            received_ += static_cast<std::size_t>(count);
            continue;
        }
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) {
            // Somebody whom the driver started may keep the other end open. What the worker wrote has been read by now.
            pollfd ended{process_.get(), POLLIN, 0};
            if (process_.get() < 0 || poll(&ended, 1, 0) <= 0) return false;
        }
        socket_ = FileDescriptor();
        return false;
    }
}

/** Takes the frame that receive() has completed. */
std::optional<Backend::Outcome> Worker::take_frame() {
    FrameHead head{};
    std::memcpy(&head, in_.data(), sizeof head);
    std::string text(in_.data() + sizeof head, head.size);
    received_ = 0;
    if (in_.size() > 8 * first_buffer) std::vector<char>(first_buffer).swap(in_);
    switch (head.kind) {
        case FrameKind::call: break;
        case FrameKind::ready:
            phase_ = Phase::idle;
            if (!unsent_.empty()) begin(std::exchange(unsent_, {}), method_);
            break;
        case FrameKind::failed: return Outcome{Outcome::Kind::lost, std::move(text)};
        case FrameKind::answer:
        case FrameKind::unanswerable:
            phase_ = Phase::idle;
            failures_ = 0;
            maybe_recycle();
            return Outcome{head.kind == FrameKind::answer ? Outcome::Kind::answer : Outcome::Kind::unanswerable,
                           std::move(text)};
    }
    return std::nullopt;
}

/** Takes leave of a worker that is at its end, and says how it ended. */
std::string Worker::bury() {
    // Whoever has closed the socket answers no more calls, even if the process lives on. A dying one keeps its status.
    kill(pid_, SIGKILL);
    int status = 0;
    while (waitpid(pid_, &status, 0) < 0 && errno == EINTR) continue;
    pid_ = -1;
    socket_ = FileDescriptor();
    process_ = FileDescriptor();
    out_.clear();
    received_ = 0;
    phase_ = Phase::dead;
    return cause_of_death(status);
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
    if (phase_ == Phase::dead) {
        if (Clock::now() < due_) return std::nullopt;
        try {
            start();
        } catch (const std::exception &error) {
            std::fprintf(stderr, "lmq-host: %s\n", error.what());
            due_ = Clock::now() + back_off(++failures_ + 4);
            return std::nullopt;
        }
    }
    if (phase_ == Phase::ending && Clock::now() >= due_) socket_ = FileDescriptor();
    send_rest();
    std::string reason;
    if (socket_.get() >= 0) {
        if (receive()) {
            const bool starting = phase_ == Phase::starting;
            auto outcome = take_frame();
            if (!starting || !outcome) return outcome;
            reason = outcome->text;
        } else if (socket_.get() >= 0) {
            return std::nullopt;
        }
    }
    const Phase before = phase_;
    const std::string ended = bury();
    due_ = Clock::now();
    if (before == Phase::ending) {
        ++recycled_;
        return std::nullopt;
    }
    ++restarts_;
    due_ += back_off(++failures_);
    const bool in_hand = before == Phase::busy && unsent_.empty();
    const std::string when = in_hand                     ? "in " + method_
                             : before == Phase::starting ? "while it loaded the driver and the plug-in"
                                                         : "between two calls";
    std::fprintf(stderr, "lmq-host: the worker %s %s%s%s\n", ended.c_str(), when.c_str(), reason.empty() ? "" : ": ",
                 reason.c_str());
    if (!in_hand) return std::nullopt;
    return Outcome{Outcome::Kind::lost, "The process of the driver " + ended + " in " + method_ +
                                            ". Whether the call had an effect is not known; another process follows."};
}

std::array<pollfd, 2> Worker::waits() const {
    const auto events = static_cast<short>(out_.empty() ? POLLIN : POLLIN | POLLOUT);
    return {{{socket_.get(), events, 0}, {process_.get(), POLLIN, 0}}};
}

int Worker::timeout() const {
    if (phase_ != Phase::dead && phase_ != Phase::ending) return -1;
    const auto left = std::chrono::ceil<milliseconds>(due_ - Clock::now()).count();
    return static_cast<int>(std::max<long long>(left, 0));
}

}  // namespace lmq::host
