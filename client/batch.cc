// lmqctl batch: many calls from a file, all checked before the first is sent, many in one request.
#include <time.h>

#include <algorithm>
#include <map>

#include "answer.h"
#include "command.h"
#include "error.h"
#include "file.h"
#include "junit.h"
#include "progress.h"
#include "scalar_text.h"
#include "script.h"
#include "script_code.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

struct BatchOptions {
    std::string file, junit, as;
    std::vector<std::string> counts;
    ArgumentOptions arguments;
    bool stop = false, answers = false, full = false;
};

// How a call went.
struct StepOutcome {
    Json answer;  // null if it was not made
    int status = exit_ok;
    std::string why;  // what is wrong, if it is not just the driver's status
    bool is_unexpected = false;
    double seconds = 0;
    std::map<std::string, Json> kept = {};
    bool is_made() const { return !answer.is_null(); }
};

std::string fault_text(const Json &fault) {
    return "fault " + fault["faultCode"].dump() + ": " + fault["faultString"].get<std::string>();
}

void nap() {
    constexpr timespec while_waiting{0, 100000000};
    nanosleep(&while_waiting, nullptr);
}

class Batch {
  public:
    Batch(Context &context, const BatchOptions &options)
        : context_(context), options_(options), steps_(read_script(context, options.file, options.arguments)) {}

    const std::vector<Step> &steps() const { return steps_; }

    void run() {
        JunitReport report(options_.file);
        try {
            Progress progress("calls", steps_.size());
            while (done_ < steps_.size() && !(options_.stop && context_.exit_status != exit_ok)) {
                go_on(report);
                progress.reached(done_);
            }
        } catch (const Error &error) {
            keep_report(report, JunitReport::broken, error.what());
            throw;
        }
        keep_report(report, JunitReport::skipped, "not made");
        if (context_.json)
            print(json_text(answers_, 2) + "\n");
        else
            print(summary());
    }

  private:
    // Makes the next calls: as many as go into a request and do not wait for each other's answers.
    void go_on(JunitReport &report) {
        std::vector<std::size_t> sent;
        std::vector<Call> calls;
        std::vector<std::string> coming;
        // Each alone, where the time of each is told or what comes next depends on it.
        const std::size_t most = options_.stop || !options_.junit.empty() ? 1 : calls_in_a_request;
        std::string text;
        while (done_ < steps_.size() && calls.size() < most) {
            const Step &step = steps_[done_];
            const bool depends = std::any_of(step.uses.begin(), step.uses.end(), [&](const std::string &name) {
                return std::find(coming.begin(), coming.end(), name) != coming.end();
            });
            if (!calls.empty() && (depends || step.awaited)) break;
            std::optional<StepOutcome> outcome = not_made(step);
            if (!outcome && step.awaited) outcome = wait(step);
            if (!outcome) {
                try {
                    calls.push_back(prepared_with(context_, step, options_.arguments, value_of()).call);
                } catch (const UsageError &error) {
                    outcome = StepOutcome{{}, exit_usage, error.what()};
                }
            }
            if (outcome && !calls.empty()) break;  // in the order of the file
            ++done_;
            if (outcome) {
                print(taken(step, *outcome, report));
                return;
            }
            sent.push_back(done_ - 1);
            for (const Kept &kept : step.kept) coming.push_back(kept.name);
        }
        const auto begin = Clock::now();
        const std::vector<Json> answers = context_.session().multicall(calls);
        const double seconds = std::chrono::duration<double>(Clock::now() - begin).count();
        for (std::size_t i = 0; i < answers.size(); ++i) {
            StepOutcome outcome = judged(steps_[sent[i]], answers[i]);
            outcome.seconds = seconds;
            text += taken(steps_[sent[i]], outcome, report);
        }
        // The calls of a request print into one text.
        const std::string printed = context_.session().printed();
        if (context_.json && !answers_.empty()) answers_.back() = with_printed(answers_.back(), printed);
        print(text + (context_.json ? "" : printed_text(printed)));
    }

    ValueOf value_of() const {
        return [this](const std::string &name) { return values_.at(name); };
    }

    // Without a value that an earlier line was to keep, there is nothing to send.
    std::optional<StepOutcome> not_made(const Step &step) const {
        for (const std::string &name : step.uses)
            if (!values_.contains(name))
                return StepOutcome{
                    {}, exit_driver, "not made: $" + name + " has no value, as its line did not succeed"};
        return {};
    }

    StepOutcome judged(const Step &step, const Json &answer) const {
        StepOutcome outcome{answer, exit_status_of(context_.dictionary(), step.prepared.method, answer), ""};
        const bool succeeded = outcome.status == exit_ok;
        if (step.expected) {
            const Expected &expected = *step.expected;
            const Json &number = is_fault(answer) ? answer["faultCode"] : result_of(answer);
            const bool is_so = is_fault(answer) == expected.is_fault &&
                               (!expected.number || (number.is_number_integer() && number == *expected.number));
            outcome.status = is_so ? exit_ok : std::max<int>(outcome.status, exit_driver);
            outcome.is_unexpected = !is_so;
            if (!is_so) outcome.why = "expected " + expected.text;
        }
        if (!succeeded) return outcome;
        for (const Kept &kept : step.kept) {
            const Json value = kept.place.value(answer);
            if (value.is_null()) {
                outcome.status = exit_driver;
                outcome.why = "the answer has no " + kept.place.path;
            } else {
                outcome.kept[kept.name] = plain(kept.place.value_type(), value);
            }
        }
        return outcome;
    }

    // Calls until the member has the value, or the time is over. Failures of the driver are waited out.
    StepOutcome wait(const Step &step) {
        const Awaited &awaited = *step.awaited;
        const auto begin = Clock::now();
        const auto seconds = [&] { return std::chrono::duration<double>(Clock::now() - begin).count(); };
        try {
            const Call call = prepared_with(context_, step, options_.arguments, value_of()).call;
            const Type &type = awaited.place.value_type();
            const Json wanted = plain(type, awaited_value(context_, awaited, value_of()));
            for (;;) {
                if (context_.connection.stop && *context_.connection.stop) throw_stopped();
                const Json answer = context_.session().multicall({call})[0];
                StepOutcome outcome = judged(step, answer);
                const Json value = is_fault(answer) ? Json() : awaited.place.value(answer);
                outcome.seconds = seconds();
                if (outcome.status == exit_fault || (outcome.status == exit_ok && plain(type, value) == wanted))
                    return outcome;
                if (outcome.seconds >= awaited.seconds) return too_late(awaited, value, outcome);
                nap();
            }
        } catch (const UsageError &error) {
            return {{}, exit_usage, error.what()};
        }
    }

    StepOutcome too_late(const Awaited &awaited, const Json &value, StepOutcome outcome) {
        const Type &type = awaited.place.value_type();
        if (outcome.status == exit_ok)
            outcome.why = awaited.place.path + " is still " +
                          (value.is_structured() ? json_text(plain(type, value))
                                                 : scalar_to_text(context_.dictionary(), type, value));
        else
            outcome.why = "no success until the end of the time";
        outcome.status = exit_driver;
        outcome.is_unexpected = true;
        outcome.kept.clear();
        return outcome;
    }

    // Counts, reports and keeps what came of a step. Returns what there is to print.
    std::string taken(const Step &step, const StepOutcome &outcome, JunitReport &report) {
        context_.exit_status = std::max(context_.exit_status, outcome.status);
        for (const Kept &kept : step.kept) values_.erase(kept.name);
        values_.insert(outcome.kept.begin(), outcome.kept.end());
        if (!outcome.is_made())
            ++not_made_;
        else if (outcome.is_unexpected)
            ++unexpected_;
        else
            ++counts_[std::min<int>(outcome.status, exit_fault)];
        if (!options_.junit.empty()) add_case(step, outcome, report);
        if (!context_.json) return shown(step, outcome);
        Json json{{"line", step.line}};
        if (outcome.is_made())
            json.update(json_answer(context_.dictionary(), context_.types(), step.prepared.method, outcome.answer));
        if (!outcome.why.empty()) json["wrong"] = outcome.why;
        if (!outcome.kept.empty()) json["kept"] = outcome.kept;
        answers_.push_back(json);
        return "";
    }

    void add_case(const Step &step, const StepOutcome &outcome, JunitReport &report) {
        const Method &method = step.prepared.method;
        const Output output(context_.dictionary(), context_.types(), {});
        std::string why = outcome.why, at_length;
        if (outcome.is_made() && is_fault(outcome.answer)) {
            why += (why.empty() ? "" : ", not ") + fault_text(outcome.answer);
        } else if (outcome.is_made()) {
            at_length = output.answer(method, outcome.answer);
            if (method.is_described())
                why += (why.empty() ? "" : "; ") + output.status(method, result_of(outcome.answer));
        }
        const JunitReport::Outcome kind = outcome.status == exit_ok ? JunitReport::passed
                                          : !outcome.is_made()      ? JunitReport::skipped
                                          : outcome.status == exit_fault && !outcome.is_unexpected
                                              ? JunitReport::broken
                                              : JunitReport::failed;
        report.add(std::to_string(step.line) + ": " + step.text, kind, outcome.seconds, why, at_length);
    }

    void keep_report(JunitReport &report, JunitReport::Outcome left, const std::string &why) const {
        if (options_.junit.empty()) return;
        for (std::size_t i = done_; i < steps_.size(); ++i)
            report.add(std::to_string(steps_[i].line) + ": " + steps_[i].text, left, 0, why, "");
        write_text(options_.junit, report.text());
    }

    std::string shown(const Step &step, const StepOutcome &outcome) {
        const Output output = context_.output(options_.full);
        const std::string head = std::to_string(step.line) + ": " + step.text;
        const Method &method = step.prepared.method;
        const std::string wrong = outcome.why.empty() ? "" : output.paint("31", outcome.why);
        if (!outcome.is_made()) return head + "\n" + wrong + "\n";
        if (is_fault(outcome.answer))
            return head + "\n" + output.paint(outcome.status == exit_ok ? "32" : "31", fault_text(outcome.answer)) +
                   (wrong.empty() ? "" : ", " + wrong) + "\n";
        if (options_.answers || options_.full)
            return output.paint("1", head) + "\n" + output.answer(method, outcome.answer) +
                   (wrong.empty() ? "" : wrong + "\n");
        std::string text =
            head + "  " + (method.is_described() ? output.status(method, result_of(outcome.answer)) : "done");
        for (const auto &[name, value] : outcome.kept) text += ", " + name + " = " + json_text(value);
        return text + (wrong.empty() ? "" : ", " + wrong) + "\n";
    }

    std::string summary() const {
        const auto counted = [](std::size_t count, const char *one, const char *more) {
            return std::to_string(count) + " " + (count == 1 ? one : more);
        };
        const std::size_t left = steps_.size() - done_ + not_made_;
        return counted(done_ - not_made_, "call", "calls") + ": " + std::to_string(counts_[exit_ok]) + " succeeded, " +
               counted(counts_[exit_driver], "driver failure", "driver failures") + ", " +
               counted(counts_[exit_fault], "fault", "faults") +
               (unexpected_ ? ", " + std::to_string(unexpected_) + " not as expected" : "") +
               (left ? "; " + std::to_string(left) + " not made" : "") + "\n";
    }

    Context &context_;
    const BatchOptions &options_;
    const std::vector<Step> steps_;
    std::map<std::string, Json> values_;
    std::size_t done_ = 0, counts_[3] = {}, unexpected_ = 0, not_made_ = 0;
    Json answers_ = Json::array();
};

void batch(Context &context, BatchOptions &options) {
    for (const std::string &count : options.counts) take_count(count, options.arguments);
    if (!options.junit.empty()) check_writable(options.junit);
    Batch batch(context, options);
    std::vector<PreparedCall> calls;
    for (const Step &step : batch.steps()) calls.push_back(step.prepared);
    refuse_unused_counts(options.arguments, calls);
    if (options.as.empty()) return batch.run();
    print(script_as_code(options.as, options.file, context.connection, context.dictionary(), context.types(),
                         batch.steps()));
}

}  // namespace

void set_up_batch(CLI::App &command, Context &context) {
    const auto options = std::make_shared<BatchOptions>();
    command
        .add_option("FILE", options->file,
                    "Lines METHOD ARG..., as behind `lmqctl call` (# begins a comment), or a JSON array\n"
                    "of {\"method\": NAME, \"arguments\": [...]} or [NAME, ARG...]; - for standard input")
        ->required();
    command.add_flag("--stop", options->stop, "End with the first call that fails; sends one call at a time");
    command.add_flag("--answers", options->answers, "Show the whole answers, not the statuses alone");
    command.add_flag("--full", options->full, "The same with all alternatives and all zeros");
    command.add_option("--junit", options->junit, "Write how the calls went as JUnit XML; sends one call at a time")
        ->type_name("FILE");
    command.add_option("--as", options->as, "Show a program that makes the calls, and send nothing")
        ->check(CLI::IsMember({"c", "python"}));
    add_count(command, options->counts);
    command.footer(command.get_footer() +
                   "\nLines that know of each other:\n"
                   "  METHOD ARG... -> OUTPUT as NAME             keeps an output; $NAME uses it\n"
                   "  expect STATUS: METHOD ARG...                fails if it answers with another one\n"
                   "  wait METHOD ARG... until MEMBER=VALUE within 5s");
    command.callback([&context, options] { batch(context, *options); });
}

}  // namespace lmqctl
