// Starting and ending a host, and what it says of its worker.
#include "own_host.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "connection.h"
#include "error.h"
#include "words.h"

namespace lmqctl {

namespace {

constexpr auto start_time = std::chrono::seconds(60);
constexpr int gauge_tries = 1000;

std::string said_by(const std::vector<std::string> &command, const std::string &printed) {
    std::string text = "--host-command " + command[0];
    const std::size_t end = printed.find_last_not_of('\n');
    return text + " ended before it listened" + (end == std::string::npos ? "" : ": " + printed.substr(0, end + 1));
}

}  // namespace

// What a host keeps in the file that LMQ_HEAP_GAUGE names.
struct OwnHost::Gauge {
    std::atomic<uint64_t> calls, bytes;
};

std::vector<std::string> host_command(const std::string &text) {
    const Words split = split_words(text);
    if (split.open_quote)
        throw UsageError("--host-command: the quote " + std::string(1, split.open_quote) + " is open");
    if (!split.words.empty()) return split.words;
    std::error_code ignored;
    const std::filesystem::path beside = std::filesystem::canonical("/proc/self/exe").parent_path() / "lmq-host";
    return {std::filesystem::exists(beside, ignored) ? beside.string() : "lmq-host"};
}

OwnHost::OwnHost(const std::vector<std::string> &command) {
    int pipe[2];
    errors_ = memfd_create("host", MFD_CLOEXEC);
    if (errors_ < 0 || pipe2(pipe, O_CLOEXEC) != 0)
        throw Error(exit_connection, std::string("cannot start a host: ") + std::strerror(errno));
    gauge_file_ = memfd_create("gauge", MFD_CLOEXEC);
    if (gauge_file_ >= 0 && ftruncate(gauge_file_, sizeof(Gauge)) == 0) {
        void *mapped = mmap(nullptr, sizeof(Gauge), PROT_READ, MAP_SHARED, gauge_file_, 0);
        if (mapped != MAP_FAILED) gauge_ = static_cast<const Gauge *>(mapped);
    }
    // The host opens it by the name that it has here: the descriptor is not for it.
    const std::string gauge_name = "/proc/" + std::to_string(getpid()) + "/fd/" + std::to_string(gauge_file_);
    std::vector<std::string> words = command;
    words.insert(words.end(), {"--listen", "127.0.0.1:0"});
    std::vector<char *> arguments;
    for (std::string &word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const pid_t parent = getpid();
    pid_ = fork();
    if (pid_ == 0) {
        // Whatever becomes of this program, the host ends with it.
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent) _exit(127);
        setpgid(0, 0);  // a Ctrl-C is for the one who started it
        setenv("LMQ_HEAP_GAUGE", gauge_name.c_str(), 1);
        dup2(pipe[1], STDOUT_FILENO);
        dup2(errors_, STDERR_FILENO);
        execvp(arguments[0], arguments.data());
        dprintf(STDERR_FILENO, "cannot start it: %s\n", std::strerror(errno));
        _exit(127);
    }
    close(pipe[1]);
    output_ = pipe[0];
    if (pid_ < 0) throw Error(exit_connection, std::string("cannot start a host: ") + std::strerror(errno));
}

OwnHost::~OwnHost() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    close(output_);
    close(errors_);
    if (gauge_) munmap(const_cast<Gauge *>(gauge_), sizeof(Gauge));
    close(gauge_file_);
}

const std::string &OwnHost::url() {
    const Clock::time_point end = Clock::now() + start_time;
    std::string line;
    while (url_.empty()) {
        pollfd ready{output_, POLLIN, 0};
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
        char text[512];
        const ssize_t length =
            left > 0 && poll(&ready, 1, static_cast<int>(left)) > 0 ? read(output_, text, sizeof text) : 0;
        if (length < 0 && errno == EINTR) continue;
        if (length <= 0) throw Error(exit_connection, said_by({"lmq-host"}, printed()));
        line.append(text, static_cast<std::size_t>(length));
        const std::size_t begin = line.find("Listening on ");
        const std::size_t last = begin == std::string::npos ? begin : line.find('\n', begin);
        if (last != std::string::npos) url_ = line.substr(begin + 13, last - begin - 13);
    }
    return url_;
}

std::string OwnHost::printed() const {
    std::string text(1 << 16, '\0');
    const off_t size = lseek(errors_, 0, SEEK_CUR);
    const off_t begin = size > static_cast<off_t>(text.size()) ? size - static_cast<off_t>(text.size()) : 0;
    const ssize_t length = pread(errors_, text.data(), text.size(), begin);
    text.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return text;
}

std::string OwnHost::last_words() const {
    const std::string mark = "lmq-host: the worker ";
    const std::string text = printed();
    const std::size_t begin = text.rfind(mark);
    if (begin == std::string::npos) return "";
    return text.substr(begin + mark.size(), text.find('\n', begin) - begin - mark.size());
}

std::optional<int64_t> OwnHost::heap() {
    if (!gauge_) return {};
    // The answer may be here before the process has given back what belonged to it.
    for (int i = 0; i < gauge_tries; ++i) {
        const uint64_t calls = gauge_->calls.load(std::memory_order_acquire);
        if (calls > calls_seen_) {
            calls_seen_ = calls;
            return static_cast<int64_t>(gauge_->bytes.load(std::memory_order_relaxed));
        }
        if (calls == 0 && i > gauge_tries / 10) break;
        usleep(i < 100 ? 10U : 1000U);
    }
    return {};
}

}  // namespace lmqctl
