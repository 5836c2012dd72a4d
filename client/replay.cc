// lmqctl replay: the calls of a trace made again, and their answers compared with those of the trace, or of two hosts
// with each other.
#include <cstdio>
#include <thread>

#include "command.h"
#include "difference.h"
#include "error.h"
#include "interrupt.h"
#include "progress.h"
#include "standard_output.h"
#include "trace_calls.h"

namespace lmqctl {

namespace {

struct ReplayOptions {
    std::string file;
    std::vector<std::string> urls;
    DifferenceOptions difference;
    bool timing = false;
};

// A host that the calls are made on, with its ids.
struct Player {
    Connection connection;
    Session &session;
    IdMap ids;  // from those of the trace
    Outcome play(const Method &method, const PlayedCall &recorded) {
        const Outcome outcome =
            lmqctl::play(session, connection, {recorded.call.method, ids.there(method, recorded.call.parameters)});
        if (outcome.kind == Outcome::answered && recorded.outcome.kind == Outcome::answered)
            ids.learn(method, recorded.outcome.answer, outcome.answer);
        return outcome;
    }
};

class Replay {
  public:
    Replay(Context &context, const ReplayOptions &options)
        : context_(context),
          options_(options),
          dictionary_(context.dictionary()),
          first_{context.connection, context.session(), IdMap(dictionary_, context.types())} {
        first_.connection.stop = &interrupted;
        if (options.urls.size() < 2) return;
        Connection connection = context.connection;
        connection.url = options.urls[1];
        second_session_ = std::make_unique<Session>(connection);
        second_session_->call("system.listMethods");  // a host that is not there is no difference
        second_ = std::make_unique<Player>(Player{connection, *second_session_, IdMap(dictionary_, context.types())});
        second_->connection.stop = &interrupted;
        between_ = std::make_unique<IdMap>(dictionary_, context.types());
    }

    void run(const std::vector<PlayedCall> &calls) {
        Progress progress("calls", calls.size());
        const Clock::time_point begin = Clock::now();
        for (std::size_t i = 0; i < calls.size() && !interrupted; ++i) {
            const std::optional<Method> method = dictionary_.method(dictionary_.bare_name(calls[i].call.method));
            if (!method || !method->contract) {
                ++left_out_;
                continue;
            }
            if (options_.timing && calls[0].time && calls[i].time)
                std::this_thread::sleep_until(begin + std::chrono::microseconds(calls[i].time - calls[0].time));
            make(i + 1, *method, calls[i]);
            progress.reached(i + 1);
        }
    }

    void end() {
        if (context_.json) {
            print(json_text(Json{{"calls", made_}, {"left_out", left_out_}, {"differences", found_}}, 2) + "\n");
        } else {
            const std::string differ =
                differing_ == 0 ? "no difference"
                                : std::to_string(found_.size()) + " in the answers to " + std::to_string(differing_);
            print(std::to_string(made_) + (made_ == 1 ? " call" : " calls") +
                  " made again: " + (differing_ == 0 ? differ : "differences " + differ) +
                  (left_out_ ? "; " + std::to_string(left_out_) + " about the interface left out" : "") + "\n");
        }
        if (!found_.empty()) context_.exit_status = exit_driver;
    }

  private:
    void make(std::size_t number, const Method &method, const PlayedCall &recorded) {
        ++made_;
        const Outcome first = first_.play(method, recorded);
        std::vector<AnswerDifference> found;
        if (!second_) {
            found = differences(dictionary_, context_.types(), method, recorded.outcome, first, first_.ids,
                                options_.difference);
        } else {
            const Outcome second = second_->play(method, recorded);
            if (first.kind == Outcome::answered && second.kind == Outcome::answered)
                between_->learn(method, first.answer, second.answer);
            found = differences(dictionary_, context_.types(), method, first, second, *between_, options_.difference);
        }
        if (!found.empty()) ++differing_;
        for (const AnswerDifference &each : found) {
            found_.push_back({{"call", number},
                              {"method", method.name},
                              {"member", each.member},
                              {"before", each.before},
                              {"after", each.after}});
            if (!context_.json)
                print("#" + std::to_string(number) + " " + method.name + " " + each.member + ": " + each.before +
                      " -> " + each.after + "\n");
        }
    }

    Context &context_;
    const ReplayOptions &options_;
    const Dictionary &dictionary_;
    Player first_;
    std::unique_ptr<Session> second_session_;
    std::unique_ptr<Player> second_;
    std::unique_ptr<IdMap> between_;  // from the first host's ids to the second's
    Json found_ = Json::array();
    std::size_t made_ = 0, left_out_ = 0, differing_ = 0;
};

void replay(Context &context, const ReplayOptions &options) {
    const std::vector<PlayedCall> calls = read_calls(options.file);
    if (options.urls.size() > 2)
        throw UsageError("--url: two hosts can be compared, not " + std::to_string(options.urls.size()));
    if (!options.urls.empty()) context.connection.url = options.urls[0];
    const CatchInterrupt caught;
    Replay replay(context, options);
    if (!context.dictionary().has_contract())
        throw Error(exit_connection, context.connection.url + " does not describe its interface, which replay goes by");
    replay.run(calls);
    replay.end();
}

}  // namespace

void set_up_replay(CLI::App &command, Context &context) {
    const auto options = std::make_shared<ReplayOptions>();
    command.add_option("FILE", options->file, "A trace")->required();
    if (!context.in_session)
        command.add_option("--url", options->urls, "The host; given twice, two hosts are compared with each other")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->allow_extra_args(false)
            ->type_name("URL");
    command
        .add_option("--ignore", options->difference.ignored,
                    "Members not to compare: NAME, ARGUMENT.NAME, METHOD.ARGUMENT.NAME")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false)
        ->type_name("GLOB");
    command.add_flag("--counters", options->difference.with_counters, "Compare counters and clocks, too");
    command.add_flag("--timing", options->timing, "Make the calls at the pace of the trace");
    command.callback([&context, options] {
        for (std::string &url : options->urls) url = with_path(url);
        replay(context, *options);
    });
}

}  // namespace lmqctl
