// The table of chips, the environment, and the functions of remote.h.
#include "remote/chips.h"

#include <pthread.h>

#include <atomic>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

namespace lmq::remote {
namespace {

struct Chips {
    std::mutex mutex;
    std::map<int, std::shared_ptr<Chip>> known;
    int last = 0;
};

// Never destroyed: a program may call the driver while it ends.
Chips &chips() {
    static Chips &made = *new Chips;
    return made;
}

thread_local int chosen = 0;
thread_local std::string last_error;

std::string variable(const char *name, const char *given, const char *otherwise = "") {
    if (given) return given;
    const char *const value = std::getenv(name);
    return value ? value : otherwise;
}

double seconds(const std::string &text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !(value >= 0 && value <= 86400))
        throw Failure(LMQ_REMOTE_NOT_SENT, "LMQ_TIMEOUT: " + text + " is no number of seconds from 0 to 86400");
    return value;
}

Options effective(const lmq_remote_options_t *given) {
    const lmq_remote_options_t options = given ? *given : lmq_remote_options_t{};
    Options made;
    made.url = variable("LMQ_URL", options.url, "http://127.0.0.1:8080/RPC2");
    // Without a path, the one that a host serves.
    const std::size_t scheme = made.url.find("://");
    if (scheme != std::string::npos && made.url.find('/', scheme + 3) == std::string::npos) made.url += "/RPC2";
    made.user = variable("LMQ_USER", options.user);
    made.password = variable("LMQ_PASSWORD", options.password);
    made.cacert = variable("LMQ_CACERT", options.cacert);
    made.cert = variable("LMQ_CERT", options.cert);
    made.key = variable("LMQ_KEY", options.key);
    made.lease = variable("LMQ_LEASE", nullptr);
    made.timeout = options.timeout > 0 ? options.timeout : seconds(variable("LMQ_TIMEOUT", nullptr, "30"));
    return made;
}

// Runs one of the functions of remote.h: what it throws is told, and answered as a status.
template <class Function>
int guarded(const char *name, Function function) noexcept {
    try {
        return function();
    } catch (const std::exception &failure) {
        tell(name, failure.what());
    }
    return LMQ_REMOTE_NOT_SENT;
}

std::shared_ptr<Chip> chip(int number) {
    Chips &all = chips();
    const std::lock_guard lock(all.mutex);
    const auto found = all.known.find(number);
    if (found != all.known.end()) return found->second;
    if (number != 0) throw Failure(LMQ_REMOTE_NOT_SENT, "there is no chip " + std::to_string(number));
    return all.known[0] = std::make_shared<Chip>(effective(nullptr));
}

}  // namespace

Connection &Chip::line() {
    // A child process counts on; asking the kernel for the process with each call would take a system call.
    static std::atomic<int> generation = 1;
    [[maybe_unused]] static const int counts = pthread_atfork(nullptr, nullptr, [] { ++generation; });
    if (owner_ != generation) {
        // Not destroyed: the end of a TLS connection would be the parent's too.
        if (connection_) [[maybe_unused]]
            auto *const left = connection_.release();
        connection_ = make_connection(options);
        owner_ = generation;
    }
    return *connection_;
}

std::shared_ptr<Chip> chosen_chip() { return chip(chosen); }

void tell(const char *function, const char *text) {
    last_error = std::string(function) + ": " + text;
    const char *const quiet = std::getenv("LMQ_REMOTE_QUIET");
    if (!quiet || std::strcmp(quiet, "1") != 0) std::fprintf(stderr, "liblmq: %s\n", last_error.c_str());
}

}  // namespace lmq::remote

using namespace lmq::remote;

int lmq_remote_connect(const lmq_remote_options_t *options) {
    return guarded(__func__, [&] {
        const auto made = std::make_shared<Chip>(effective(options));
        {
            const std::lock_guard lock(chips().mutex);
            chips().known[0] = made;
        }
        const std::lock_guard lock(made->mutex);
        made->line().connect();
        return 0;
    });
}

int lmq_remote_open(const lmq_remote_options_t *options) {
    int number = 0;
    guarded(__func__, [&] {
        const auto made = std::make_shared<Chip>(effective(options));
        made->line();
        const std::lock_guard lock(chips().mutex);
        chips().known[chips().last + 1] = made;
        return number = ++chips().last;
    });
    return number;
}

int lmq_remote_use(int number) {
    return guarded(__func__, [&] {
        if (number != 0) chip(number);
        chosen = number;
        return 0;
    });
}

int lmq_remote_close(int number) {
    return guarded(__func__, [&] {
        if (number == 0) throw Failure(LMQ_REMOTE_NOT_SENT, "chip 0 cannot be closed");
        const auto closed = chip(number);
        {
            const std::lock_guard lock(chips().mutex);
            chips().known.erase(number);
        }
        // A call of another thread that has found the chip already is either over now or comes to nothing.
        const std::lock_guard lock(closed->mutex);
        closed->is_closed = true;
        return 0;
    });
}

const char *lmq_remote_error(void) { return last_error.c_str(); }
