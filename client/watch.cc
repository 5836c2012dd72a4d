// lmqctl watch: the numbers that methods answer, again and again, with their rates. A table on a terminal, else CSV, or
// with --json an object a line.
#include <signal.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "command.h"
#include "error.h"
#include "request.h"
#include "scalar_text.h"
#include "words.h"

namespace lmqctl {

namespace {

using Clock = std::chrono::steady_clock;

struct WatchOptions {
    std::vector<std::string> calls;
    double every = 1;
    std::size_t count = 0;
    bool full = false;
};

// A number at a place in an answer.
struct Reading {
    std::string name;
    bool is_signed;
    unsigned width;
    int64_t value;
    std::string shown() const {
        return is_signed ? std::to_string(value) : std::to_string(static_cast<uint64_t>(value));
    }
};

volatile std::sig_atomic_t interrupted = 0;
void interrupt(int) { interrupted = 1; }

// Ctrl-C ends the watching and not the program, and the cursor comes back.
class Terminal {
  public:
    explicit Terminal(bool is_terminal) : is_terminal_(is_terminal) {
        interrupted = 0;
        struct sigaction action {};
        action.sa_handler = interrupt;
        sigaction(SIGINT, &action, &before_);
        if (is_terminal_) print("\033[?25l\033[2J");
    }
    ~Terminal() {
        sigaction(SIGINT, &before_, nullptr);
        if (is_terminal_) print("\033[?25h");
        std::fflush(stdout);
    }
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

  private:
    bool is_terminal_;
    struct sigaction before_ {};
};

void collect(const std::string &name, const Type &type, const Json &value, std::vector<Reading> &to) {
    if (type.kind == Type::integer && value.is_number_integer()) {
        to.push_back({name, type.is_signed, type.width, as_declared(type, value.get<int64_t>())});
        return;
    }
    if (type.kind == Type::array && value.is_array() && type.element) {
        for (std::size_t i = 0; i < value.size(); ++i)
            collect(name + "[" + std::to_string(i) + "]", *type.element, value[i], to);
        return;
    }
    if (type.kind == Type::structure && value.is_array()) {
        for (std::size_t i = 0; i < value.size(); ++i)
            collect(name + "[" + std::to_string(i) + "]", type, value[i], to);
        return;
    }
    if (type.kind != Type::structure || !value.is_object()) return;
    for (const Member &member : type.members)
        if (value.contains(member.name)) collect(name + "." + member.name, *member.type, value[member.name], to);
}

std::vector<Reading> readings(Context &context, const Request &request, const std::string &prefix, const Json &answer) {
    std::vector<Reading> found;
    const Method &method = request.method;
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i)
        if (method.parameters[i].is_pointer())
            collect(prefix + method.parameters[i].name, *context.types().parameter(method.parameters[i]), answer[i + 1],
                    found);
    return found;
}

// The growth of a counter between two readings. One that ran over its width begins at 0 again; if that would be more
// than half of its range, it was set back instead, and what it shows is what has come since.
double growth(const Reading &before, const Reading &now) {
    if (now.is_signed) return static_cast<double>(now.value) - static_cast<double>(before.value);
    const auto old_count = static_cast<uint64_t>(before.value), count = static_cast<uint64_t>(now.value);
    const uint64_t range = now.width >= 64 ? ~uint64_t{0} : (uint64_t{1} << now.width) - 1;
    const uint64_t moved = (count - old_count) & range;
    return static_cast<double>(count >= old_count || moved <= range / 2 ? moved : count);
}

std::string rate_text(double rate) {
    char text[48];
    std::snprintf(text, sizeof text, rate == std::floor(rate) && std::fabs(rate) < 1e15 ? "%.0f" : "%.1f", rate);
    return text;
}

std::string now_text() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    tm parts{};
    gmtime_r(&time.tv_sec, &parts);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof text - length, ".%03ldZ", time.tv_nsec / 1000000);
    return text;
}

// A name in a CSV file; it may hold commas.
std::string csv(const std::string &text) {
    return text.find_first_of(",\"") == std::string::npos ? text : "\"" + text + "\"";
}

void sleep_until(Clock::time_point end) {
    while (!interrupted && Clock::now() < end) {
        const auto left = std::chrono::duration_cast<std::chrono::nanoseconds>(end - Clock::now()).count();
        const timespec time{left / 1000000000, left % 1000000000};
        if (left > 0) nanosleep(&time, nullptr);
    }
}

struct Watch {
    Context &context;
    const WatchOptions &options;
    std::vector<Request> requests;
    bool is_terminal;
    bool header_done = false;
    std::vector<Reading> before{};
    Clock::time_point before_at{};

    void table(const std::vector<Reading> &now, const std::vector<std::string> &failures, double seconds) {
        const Output output = context.output();
        char line[256];
        std::string text = "\033[H" + now_text() + ", every " + rate_text(options.every) + " s, Ctrl-C ends\033[K\n";
        for (const std::string &failure : failures) text += output.paint("31", failure) + "\033[K\n";
        std::size_t zeros = 0;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i].value == 0 && !options.full) {
                ++zeros;
                continue;
            }
            const bool comparable = seconds > 0 && before.size() == now.size();
            std::snprintf(line, sizeof line, "%-48s %20s %14s\033[K\n", now[i].name.c_str(), now[i].shown().c_str(),
                          comparable ? (rate_text(growth(before[i], now[i]) / seconds) + "/s").c_str() : "");
            text += line;
        }
        if (zeros) text += "(" + std::to_string(zeros) + " more, all 0)\033[K\n";
        print(text + "\033[J");
    }

    void row(const std::vector<Reading> &now, double seconds) {
        std::string text;
        if (!header_done && !now.empty()) {
            text = "time";
            for (const Reading &reading : now) text += "," + csv(reading.name) + "," + csv(reading.name + "/s");
            text += "\n";
            header_done = true;
        }
        text += now_text();
        const bool comparable = seconds > 0 && before.size() == now.size();
        for (std::size_t i = 0; i < now.size(); ++i)
            text += "," + now[i].shown() + "," + (comparable ? rate_text(growth(before[i], now[i]) / seconds) : "");
        print(text + "\n");
    }

    void object(const std::vector<Reading> &now, double seconds) {
        Json json{{"time", now_text()}, {"readings", Json::object()}};
        const bool comparable = seconds > 0 && before.size() == now.size();
        for (std::size_t i = 0; i < now.size(); ++i) {
            const Json value = now[i].is_signed ? Json(now[i].value) : Json(static_cast<uint64_t>(now[i].value));
            json["readings"][now[i].name] = {{"value", value},
                                             {"rate", comparable ? Json(growth(before[i], now[i]) / seconds) : Json()}};
        }
        print(json.dump() + "\n");
    }

    void sample() {
        std::vector<Call> calls;
        for (const Request &request : requests) calls.push_back(request.call);
        const std::vector<Json> answers = context.session().multicall(calls);
        const auto at = Clock::now();
        std::vector<Reading> now;
        std::vector<std::string> failures;
        context.exit_status = exit_ok;
        for (std::size_t i = 0; i < answers.size(); ++i) {
            const int status = exit_status_of(context, requests[i].method, answers[i]);
            context.exit_status = std::max(context.exit_status, status);
            if (status == exit_fault)
                failures.push_back(requests[i].text + ": " + answers[i]["faultString"].get<std::string>());
            else if (status == exit_driver)
                failures.push_back(
                    requests[i].text + ": " +
                    Output(context.dictionary(), context.types(), {}).status(requests[i].method, answers[i][0]));
            if (status == exit_fault) continue;
            const std::string prefix = requests.size() == 1 ? "" : requests[i].text + " ";
            for (Reading &reading : readings(context, requests[i], prefix, answers[i])) now.push_back(reading);
        }
        const double seconds = before.empty() ? 0 : std::chrono::duration<double>(at - before_at).count();
        if (is_terminal) {
            table(now, failures, seconds);
        } else {
            for (const std::string &failure : failures) std::fprintf(stderr, "lmqctl: %s\n", failure.c_str());
            context.json ? object(now, seconds) : row(now, seconds);
        }
        std::fflush(stdout);  // a sample is read when it is made
        before = std::move(now);
        before_at = at;
    }
};

void watch(Context &context, const WatchOptions &options) {
    Watch watch{context, options, {}, isatty(STDOUT_FILENO) != 0 && !context.json};
    for (const std::string &call : options.calls)
        watch.requests.push_back(request_of_words(context, split_words(call).words));
    const Terminal terminal(watch.is_terminal);
    auto next = Clock::now();
    for (std::size_t n = 0; !interrupted && (options.count == 0 || n < options.count); ++n) {
        if (n > 0) {
            next += std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(options.every));
            sleep_until(next);
            if (interrupted) break;
        }
        watch.sample();
    }
}

}  // namespace

void set_up_watch(CLI::App &command, Context &context) {
    const auto options = std::make_shared<WatchOptions>();
    command.add_option("CALL", options->calls, "A method with its arguments, as one word: 'METHOD 0 1'")->required();
    command.add_option("--every", options->every, "Seconds between two samples")
        ->check(CLI::Range(0.01, 86400.0))
        ->capture_default_str()
        ->type_name("S");
    command.add_option("--samples", options->count, "End after so many; 0: with Ctrl-C")
        ->capture_default_str()
        ->type_name("N");
    command.add_flag("--full", options->full, "Show the zeros too");
    command.callback([&context, options] { watch(context, *options); });
}

}  // namespace lmqctl
