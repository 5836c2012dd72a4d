// lmqctl watch: the numbers that methods answer, again and again, with their rates. A table on a terminal, else CSV, or
// with --json an object a line.
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdio>

#include "answer.h"
#include "command.h"
#include "error.h"
#include "interrupt.h"
#include "prepare.h"
#include "readings.h"
#include "standard_output.h"
#include "time_text.h"
#include "words.h"

namespace lmqctl {

namespace {

struct WatchOptions {
    std::vector<std::string> calls;
    double every = 1;
    std::size_t count = 0;
    bool full = false;
};

// No cursor while the table is drawn over itself.
class HiddenCursor {
  public:
    explicit HiddenCursor(bool is_terminal) : is_terminal_(is_terminal) { say("\033[?25l\033[2J"); }
    ~HiddenCursor() { say("\033[?25h"); }
    HiddenCursor(const HiddenCursor &) = delete;
    HiddenCursor &operator=(const HiddenCursor &) = delete;

  private:
    void say(const char *codes) const {
        if (!is_terminal_) return;
        std::fputs(codes, stdout);
        std::fflush(stdout);
    }
    bool is_terminal_;
};

std::string rate_text(double rate) {
    char text[48];
    std::snprintf(text, sizeof text, rate == std::floor(rate) && std::fabs(rate) < 1e15 ? "%.0f" : "%.1f", rate);
    return text;
}

// A name in a CSV file.
std::string csv(const std::string &text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted;
    for (const char letter : text) quoted += letter == '"' ? std::string("\"\"") : std::string(1, letter);
    return "\"" + quoted + "\"";
}

// One number of a sample. Without a value if its call failed, without a rate if there is nothing to compare with.
struct Reading {
    std::optional<int64_t> value;
    std::optional<double> rate;
};

class Watch {
  public:
    Watch(Context &context, const WatchOptions &options, bool is_terminal)
        : context_(context), options_(options), is_terminal_(is_terminal) {
        for (const std::string &call : options.calls) {
            prepared_.push_back(prepare_words(context, split_words(call).words));
            const PreparedCall &prepared = prepared_.back();
            const std::string prefix = options.calls.size() == 1 ? "" : prepared.text + " ";
            columns_.push_back(columns_of(context.types(), prepared.method, prepared.call.parameters));
            for (Column &column : columns_.back()) column.name = prefix + column.name;
        }
    }

    void sample() {
        std::vector<Call> calls;
        for (const PreparedCall &prepared : prepared_) calls.push_back(prepared.call);
        const std::vector<Json> answers = context_.session().multicall(calls);
        const auto now = Clock::now();
        const double seconds = std::chrono::duration<double>(now - before_at_).count();
        before_at_ = now;
        context_.exit_status = exit_ok;
        std::vector<std::string> failures;
        std::vector<std::vector<Reading>> readings;
        for (std::size_t i = 0; i < answers.size(); ++i) {
            const int status = exit_status_of(context_.dictionary(), prepared_[i].method, answers[i]);
            context_.exit_status = std::max(context_.exit_status, status);
            if (status != exit_ok) failures.push_back(failure(prepared_[i], answers[i]));
            readings.push_back(read(i, status == exit_ok ? answers[i] : Json(), seconds));
        }
        if (is_terminal_) {
            table(readings, failures);
        } else {
            for (const std::string &text : failures) std::fprintf(stderr, "lmqctl: %s\n", text.c_str());
            context_.json ? object(readings) : row(readings);
        }
        flush();  // a sample is read when it is made
        before_ = std::move(readings);
    }

  private:
    std::string failure(const PreparedCall &prepared, const Json &answer) const {
        return prepared.text + ": " +
               (is_fault(answer)
                    ? answer["faultString"].get<std::string>()
                    : Output(context_.dictionary(), context_.types(), {}).status(prepared.method, result_of(answer)));
    }

    std::vector<Reading> read(std::size_t call, const Json &answer, double seconds) const {
        std::vector<Reading> readings;
        for (const Column &column : columns_[call]) {
            Reading reading{column.value(answer), {}};
            const Reading last = before_.empty() ? Reading() : before_[call][readings.size()];
            if (reading.value && last.value) reading.rate = column.growth(*last.value, *reading.value) / seconds;
            readings.push_back(reading);
        }
        return readings;
    }

    template <class Do>
    void for_each(const std::vector<std::vector<Reading>> &readings, Do action) const {
        for (std::size_t call = 0; call < columns_.size(); ++call)
            for (std::size_t i = 0; i < columns_[call].size(); ++i) action(columns_[call][i], readings[call][i]);
    }

    void table(const std::vector<std::vector<Reading>> &readings, const std::vector<std::string> &failures) const {
        const Output output = context_.output();
        std::string text = "\033[H" + now_text() + ", every " + rate_text(options_.every) + " s, Ctrl-C ends\033[K\n";
        for (const std::string &each : failures) text += output.paint("31", each) + "\033[K\n";
        std::size_t zeros = 0;
        for_each(readings, [&](const Column &column, const Reading &reading) {
            if (!reading.value) return;
            if (*reading.value == 0 && !options_.full) {
                ++zeros;
                return;
            }
            char line[256];
            std::snprintf(line, sizeof line, "%-48s %20s %14s\033[K\n", column.name.c_str(),
                          column.shown(*reading.value).c_str(),
                          reading.rate ? (rate_text(*reading.rate) + "/s").c_str() : "");
            text += line;
        });
        if (zeros) text += "(" + std::to_string(zeros) + " more, all 0)\033[K\n";
        print(text + "\033[J");
    }

    void row(const std::vector<std::vector<Reading>> &readings) const {
        std::string names = "time", values = now_text();
        for_each(readings, [&](const Column &column, const Reading &reading) {
            names += "," + csv(column.name) + "," + csv(column.name + "/s");
            values += "," + (reading.value ? column.shown(*reading.value) : "") + "," +
                      (reading.rate ? rate_text(*reading.rate) : "");
        });
        print((before_.empty() ? names + "\n" : "") + values + "\n");
    }

    void object(const std::vector<std::vector<Reading>> &readings) const {
        Json json{{"time", now_text()}, {"readings", Json::object()}};
        for_each(readings, [&](const Column &column, const Reading &reading) {
            json["readings"][column.name] = {{"value", reading.value ? column.json(*reading.value) : Json()},
                                             {"rate", reading.rate ? Json(*reading.rate) : Json()}};
        });
        print(json_text(json) + "\n");
    }

    Context &context_;
    const WatchOptions &options_;
    const bool is_terminal_;
    std::vector<PreparedCall> prepared_;
    std::vector<std::vector<Column>> columns_;  // of each call
    std::vector<std::vector<Reading>> before_;
    Clock::time_point before_at_{};
};

void watch(Context &context, const WatchOptions &options) {
    const bool is_terminal = isatty(STDOUT_FILENO) != 0 && !context.json;
    Watch watch(context, options, is_terminal);
    const CatchInterrupt caught;
    const HiddenCursor hidden(is_terminal);
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
    add_words(command, "CALL", options->calls, "A method with its arguments, as one word: 'METHOD 0 1'")->required();
    command.add_option("--every", options->every, "Seconds between two samples")
        ->check(CLI::Range(0.01, 86400.0))
        ->capture_default_str()
        ->type_name("S");
    command.add_option("--samples", options->count, "End after so many; 0: with Ctrl-C")
        ->check(CLI::Range(0, 1000000000))
        ->capture_default_str()
        ->type_name("N");
    command.add_flag("--full", options->full, "Show the zeros too");
    command.callback([&context, options] { watch(context, *options); });
}

}  // namespace lmqctl
