// lmqctl watch: the numbers that methods answer, again and again, with their rates. A table on a terminal, else CSV, or
// with --json an object a line. A host that goes away is waited for.
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>

#include "answer.h"
#include "command.h"
#include "error.h"
#include "interrupt.h"
#include "names.h"
#include "prepare.h"
#include "readings.h"
#include "standard_output.h"
#include "time_text.h"
#include "watch_table.h"
#include "words.h"

namespace lmqctl {

namespace {

struct WatchOptions {
    std::vector<std::string> calls, counts, columns;
    double every = 1;
    std::size_t count = 0;
    bool full = false;
};

// No cursor while the table is drawn over itself.
class HiddenCursor {
  public:
    explicit HiddenCursor(bool is_terminal) : is_terminal_(is_terminal) { say("\033[?25l\033[2J"); }
    ~HiddenCursor() { say("\n\033[?25h"); }
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

// Whether a column is called so: all of its name, or the member at its end.
bool is_called(const Column &column, const std::string &pattern) {
    return glob(pattern, column.name) || glob(pattern, column.name.substr(column.name.find_last_of('.') + 1));
}

class Watch {
  public:
    Watch(Context &context, const WatchOptions &options, bool is_terminal)
        : context_(context), options_(options), is_terminal_(is_terminal) {
        ArgumentOptions arguments;
        for (const std::string &count : options.counts) take_count(count, arguments);
        for (const std::string &call : options.calls) {
            prepared_.push_back(prepare_words(context, split_words(call).words, arguments));
            columns_.push_back(columns_of(context.types(), prepared_.back().method, prepared_.back().call.parameters));
        }
        refuse_unused_counts(arguments, prepared_);
        if (!options.columns.empty()) choose_columns();
        for (std::size_t i = 0; options.calls.size() > 1 && i < prepared_.size(); ++i)
            for (Column &column : columns_[i]) column.name = prepared_[i].text + " " + column.name;
    }

    void sample() {
        std::vector<std::string> failures;
        const std::vector<Json> answers = answered(failures);
        const auto now = Clock::now();
        const double seconds = std::chrono::duration<double>(now - before_at_).count();
        before_at_ = now;
        std::vector<std::vector<Reading>> readings;
        if (answers.empty())
            for (std::size_t i = 0; i < prepared_.size(); ++i) readings.push_back(read(i, Json(), seconds));
        else
            context_.exit_status = exit_ok;
        for (std::size_t i = 0; i < answers.size(); ++i) {
            const int status = exit_status_of(context_.dictionary(), prepared_[i].method, answers[i]);
            context_.exit_status = std::max(context_.exit_status, status);
            if (status != exit_ok) failures.push_back(failure(prepared_[i], answers[i]));
            readings.push_back(read(i, status == exit_ok ? answers[i] : Json(), seconds));
        }
        if (is_terminal_) {
            table(readings, failures);
        } else {
            // Why there is no host is said once.
            if (!answers.empty() || failures != said_)
                for (const std::string &text : failures) complain(text);
            said_ = failures;
            context_.json ? object(readings) : row(readings);
        }
        flush();  // a sample is read when it is made
        before_ = std::move(readings);
    }

  private:
    void choose_columns() {
        std::vector<std::string> names;
        for (const std::vector<Column> &columns : columns_)
            for (const Column &column : columns) names.push_back(column.name.substr(column.name.find_last_of('.') + 1));
        for (const std::string &pattern : options_.columns) {
            const auto is_there = [&](const std::vector<Column> &columns) {
                return std::any_of(columns.begin(), columns.end(),
                                   [&](const Column &column) { return is_called(column, pattern); });
            };
            if (std::none_of(columns_.begin(), columns_.end(), is_there))
                throw UsageError("--columns: no number is called " + pattern + did_you_mean(pattern, names));
        }
        for (std::vector<Column> &columns : columns_)
            std::erase_if(columns, [&](const Column &column) {
                return std::none_of(options_.columns.begin(), options_.columns.end(),
                                    [&](const std::string &pattern) { return is_called(column, pattern); });
            });
    }

    // The answers; none while the host is away, which the first sample must not find.
    std::vector<Json> answered(std::vector<std::string> &failures) {
        std::vector<Call> calls;
        for (const PreparedCall &prepared : prepared_) calls.push_back(prepared.call);
        try {
            return context_.session().multicall(calls);
        } catch (const Error &error) {
            const bool is_away = error.status == exit_connection || error.status == exit_fault;
            if (before_.empty() || !is_away || interrupted) throw;
            context_.exit_status = error.status;
            failures.push_back(std::string(error.what()) + "; trying again");
            return {};
        }
    }

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

    void table(const std::vector<std::vector<Reading>> &readings, const std::vector<std::string> &failures) {
        std::vector<WatchedRow> rows;
        for_each(readings, [&](const Column &column, const Reading &reading) {
            rows.push_back({column.name, reading.value ? column.shown(*reading.value) : "", reading.rate,
                            reading.value && *reading.value == 0});
        });
        print(table_.screen(now_text() + ", every " + rate_text(options_.every) + " s, Ctrl-C ends", failures, rows,
                            options_.full));
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
    std::vector<std::string> said_;  // the last failures
    WatchTable table_;
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
    command.add_option("--columns", options->columns, "Which numbers: names of members, or patterns with * and ?")
        ->delimiter(',')
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false)
        ->type_name("NAME,...");
    add_count(command, options->counts);
    command.add_flag("--full", options->full, "Show the zeros too");
    command.callback([&context, options] { watch(context, *options); });
}

}  // namespace lmqctl
