// Both ends of the spawner: questions and answers are messages over a socket pair, and a worker's socket travels along
// with the answer.
#include "spawner.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace lmq::host {
namespace {

/// What the spawner is asked. The texts of a plan follow: driver, a zero, plug-in, a zero.
struct Question {
    /// The worker to bury; 0 to start one.
    pid_t pid;
    std::size_t max_call, max_answer;
    long long spin;
    std::uint64_t first_call;
};

struct Answer {
    /// Of the new worker; negative if there is none.
    pid_t pid;
    /// Why there is none, or how the old one ended.
    int status;
};

constexpr const char spawner_gone[] = "the process that starts workers has ended";

constexpr std::size_t longest_question = sizeof(Question) + 2 * PATH_MAX;

/// Sends one message, perhaps with a descriptor.
bool send_message(int socket, std::string_view text, int descriptor) {
    iovec part{const_cast<char *>(text.data()), text.size()};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    if (descriptor >= 0) {
        message.msg_control = control;
        message.msg_controllen = sizeof control;
        cmsghdr *head = CMSG_FIRSTHDR(&message);
        head->cmsg_level = SOL_SOCKET;
        head->cmsg_type = SCM_RIGHTS;
        head->cmsg_len = CMSG_LEN(sizeof descriptor);
        std::memcpy(CMSG_DATA(head), &descriptor, sizeof descriptor);
    }
    ssize_t count = 0;
    while ((count = sendmsg(socket, &message, MSG_NOSIGNAL)) < 0 && errno == EINTR) continue;
    return count == static_cast<ssize_t>(text.size());
}

/// Receives one message and its descriptor, if there is one.
/// @return Its length; 0 if nobody is at the other end.
std::size_t receive_message(int socket, void *text, std::size_t room, FileDescriptor &descriptor) {
    iovec part{text, room};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(int))] = {};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    ssize_t count = 0;
    while ((count = recvmsg(socket, &message, MSG_CMSG_CLOEXEC)) < 0 && errno == EINTR) continue;
    const cmsghdr *head = count > 0 ? CMSG_FIRSTHDR(&message) : nullptr;
    if (head != nullptr && head->cmsg_type == SCM_RIGHTS) {
        int received = -1;
        std::memcpy(&received, CMSG_DATA(head), sizeof received);
        descriptor = FileDescriptor(received);
    }
    return count < 0 ? 0 : static_cast<std::size_t>(count);
}

/// Moves a socket to a high number, where no descriptor is that a driver means, and closes all that this process has
/// inherited but the standard ones.
int keep_only(int socket) {
    constexpr rlim_t wanted = 1000;
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    const int high = fcntl(socket, F_DUPFD_CLOEXEC, static_cast<int>(std::min(wanted, limit.rlim_cur - 1)));
    const int kept = high >= 0 ? high : socket;
    close_range(STDERR_FILENO + 1, static_cast<unsigned>(kept) - 1, 0);
    close_range(static_cast<unsigned>(kept) + 1, UINT_MAX, 0);
    return kept;
}

/// Makes this process one that ends with its parent.
void follow(pid_t parent, const char *name) {
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    prctl(PR_SET_NAME, name);
    if (getppid() != parent) _exit(EXIT_FAILURE);
}

/// Gives the driver, and what it starts, signals as a program expects them.
void reset_signals() {
    for (int number = 1; number < NSIG; ++number) signal(number, SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

int end_and_wait(pid_t pid) {
    // A process that is dying already keeps its status.
    kill(pid, SIGKILL);
    int status = 0;
    while (waitpid(pid, &status, 0) < 0 && errno == EINTR) continue;
    return status;
}

/// Reads a question.
WorkerPlan plan_of(const Question &question, std::string_view texts) {
    const std::size_t end = texts.find('\0');
    return {std::string(texts.substr(0, end)),
            std::string(texts.substr(end + 1, texts.size() - end - 2)),
            question.max_call,
            question.max_answer,
            question.spin,
            question.first_call};
}

}  // namespace

Spawner::Spawner(void (*begin)(int, Board &, const WorkerPlan &), Output &output) {
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) < 0) {
        throw std::system_error(errno, std::generic_category(), "cannot make a socket");
    }
    socket_ = FileDescriptor(ends[0]);
    FileDescriptor there(ends[1]);
    const pid_t front = getpid();
    pid_ = fork();
    if (pid_ < 0) throw std::system_error(errno, std::generic_category(), "cannot start a process");
    if (pid_ > 0) {
        output.keep_readers();
        return;
    }
    // A Ctrl-C is for the front, which lets the call under way come to its end.
    setpgid(0, 0);
    follow(front, "lmq-host-spawn");
    output.redirect();
    socket_ = FileDescriptor(keep_only(there.release()));
    serve(begin);
}

Spawner::~Spawner() {
    socket_ = FileDescriptor();
    while (waitpid(pid_, nullptr, 0) < 0 && errno == EINTR) continue;
}

void Spawner::serve(void (*begin)(int, Board &, const WorkerPlan &)) {
    char text[longest_question];
    FileDescriptor none;
    const pid_t spawner = getpid();
    while (const std::size_t length = receive_message(socket_.get(), text, sizeof text, none)) {
        Question question{};
        std::memcpy(&question, text, sizeof question);
        if (question.pid > 0) {
            const Answer answer{question.pid, end_and_wait(question.pid)};
            send_message(socket_.get(), {reinterpret_cast<const char *>(&answer), sizeof answer}, -1);
            continue;
        }
        int ends[2] = {-1, -1};
        Answer answer{-1, 0};
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) == 0) answer.pid = fork();
        answer.status = errno;
        FileDescriptor here(ends[0]), there(ends[1]);
        if (answer.pid == 0) {
            follow(spawner, "lmq-host-worker");
            setpgid(0, 0);
            reset_signals();
            const int socket = keep_only(there.release());
            socket_.release();
            here.release();
            begin(socket, board_, plan_of(question, {text + sizeof question, length - sizeof question}));
            std::exit(EXIT_SUCCESS);  // the driver's own clean-up runs
        }
        send_message(socket_.get(), {reinterpret_cast<const char *>(&answer), sizeof answer}, here.get());
    }
    _exit(EXIT_SUCCESS);
}

Spawner::Started Spawner::start(const WorkerPlan &plan) {
    const Question question{0, plan.max_call, plan.max_answer, plan.spin, plan.first_call};
    std::string text(reinterpret_cast<const char *>(&question), sizeof question);
    text.append(plan.driver).append(1, '\0').append(plan.plugin).append(1, '\0');
    Answer answer{};
    FileDescriptor socket;
    if (text.size() > longest_question || !send_message(socket_.get(), text, -1) ||
        receive_message(socket_.get(), &answer, sizeof answer, socket) != sizeof answer) {
        throw std::runtime_error(spawner_gone);
    }
    if (answer.pid < 0) throw std::system_error(answer.status, std::generic_category(), "cannot start a worker");
    fcntl(socket.get(), F_SETFL, O_NONBLOCK);
    return {answer.pid, std::move(socket)};
}

int Spawner::bury(pid_t pid) {
    const Question question{pid, 0, 0, 0, 0};
    Answer answer{};
    FileDescriptor none;
    if (!send_message(socket_.get(), {reinterpret_cast<const char *>(&question), sizeof question}, -1) ||
        receive_message(socket_.get(), &answer, sizeof answer, none) != sizeof answer) {
        throw std::runtime_error(spawner_gone);
    }
    return answer.status;
}

}  // namespace lmq::host
