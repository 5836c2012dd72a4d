// lmqctl fuzz: rounds of calls by contract on hosts of its own; what is found is shrunk and kept.
#include <unistd.h>

#include <filesystem>

#include "arguments.h"
#include "command.h"
#include "error.h"
#include "fuzzer.h"
#include "interrupt.h"
#include "progress.h"
#include "shrinker.h"
#include "standard_output.h"
#include "trace_calls.h"
#include "words.h"

namespace lmqctl {

namespace {

struct FuzzCommand {
    FuzzOptions options;
    std::vector<std::string> first{"lmq_init_system p_cfg.num_dev=1 p_cfg.dev_cfg[0].enbl=1"};
    std::string host, folder = ".";
    double hang = 5;
};

// The calls that each round begins with. The ones that are built in may be unknown to a host.
std::vector<Call> first_calls(FreshHosts &hosts, const std::vector<std::string> &lines, bool is_given) {
    std::vector<Call> calls;
    for (const std::string &line : lines) {
        const std::vector<std::string> words = split_words(line).words;
        if (words.empty() || (!is_given && !hosts.dictionary().method(words[0]))) continue;
        const Method method = hosts.dictionary().method_or_throw(words[0]);
        calls.push_back(
            {hosts.dictionary().full_name(method.name),
             build_arguments(hosts.dictionary(), hosts.types(), method, {words.begin() + 1, words.end()}, {})});
    }
    return calls;
}

// "fuzz-7-vx_flow_get-died.trace"
std::string file_name(const FuzzCommand &command, const Condition &condition) {
    std::string name = "fuzz-" + std::to_string(command.options.seed) + "-" + condition.text() + ".trace";
    for (char &letter : name)
        if (letter == ':' || letter == '/') letter = '-';
    return (std::filesystem::path(command.folder) / name).string();
}

class FuzzReport {
  public:
    FuzzReport(Context &context, FreshHosts &hosts, const FuzzCommand &command)
        : context_(context), hosts_(hosts), command_(command) {}

    // Shrinks what was found and keeps it.
    void take(const Finding &finding) {
        const std::string file = file_name(command_, finding.condition);
        Shrinker shrinker(hosts_, finding.condition,
                          [&](const std::string &text) { context_.note("shrinking: " + text); });
        const std::optional<std::vector<PlayedCall>> shrunk = shrinker.shrink(finding.calls);
        const std::vector<PlayedCall> &kept = shrunk ? *shrunk : finding.calls;
        write_calls(file, kept, hosts_.dictionary().fingerprint(),
                    "lmqctl fuzz --seed " + std::to_string(command_.options.seed) + ": " + finding.text + "; until " +
                        finding.condition.text());
        const std::string calls = std::to_string(kept.size()) + (kept.size() == 1 ? " call" : " calls");
        if (!context_.json)
            print(finding.text + "\n  " + file + ": " +
                  (shrunk ? calls + " of " + std::to_string(finding.calls.size()) + " are left"
                          : "all " + calls + " of the round; made again, they do not show it") +
                  "\n  after " + std::to_string(finding.after) + " calls, until " + finding.condition.text() + "\n");
        flush();
        findings_.push_back({{"condition", finding.condition.text()},
                             {"text", finding.text},
                             {"file", file},
                             {"calls", kept.size()},
                             {"before", finding.calls.size()},
                             {"after", finding.after},
                             {"again", shrunk.has_value()}});
    }

    void end(const Fuzzer &fuzzer) const {
        if (context_.json) {
            print(json_text(Json{{"seed", command_.options.seed},
                                 {"calls", fuzzer.made()},
                                 {"probes", fuzzer.probes()},
                                 {"rounds", fuzzer.rounds()},
                                 {"methods", fuzzer.methods()},
                                 {"methods_that_succeeded", fuzzer.methods_that_succeeded()},
                                 {"left_out", fuzzer.left_out()},
                                 {"findings", findings_}},
                            2) +
                  "\n");
        } else {
            const std::size_t made_up = std::max<std::size_t>(fuzzer.made_up(), 1);
            print("Seed " + std::to_string(command_.options.seed) + ": " + std::to_string(fuzzer.made()) +
                  " calls in " + std::to_string(fuzzer.rounds()) + " rounds, and " + std::to_string(fuzzer.probes()) +
                  " more to look at memory; " + std::to_string(fuzzer.methods_that_succeeded()) + " of " +
                  std::to_string(fuzzer.methods()) + " methods succeeded, and " +
                  std::to_string(100 * fuzzer.succeeded() / made_up) + " % of the calls. " +
                  (findings_.empty() ? "Nothing found." : "Found: " + std::to_string(findings_.size()) + ".") + "\n");
        }
        if (!findings_.empty()) context_.exit_status = exit_driver;
    }

  private:
    Context &context_;
    FreshHosts &hosts_;
    const FuzzCommand &command_;
    Json findings_ = Json::array();
};

void fuzz(Context &context, const FuzzCommand &command, bool is_first_given) {
    if (!std::filesystem::is_directory(command.folder)) throw UsageError("--out: there is no folder " + command.folder);
    const CatchInterrupt caught;
    FreshHosts hosts(host_command(command.host), command.hang);
    Fuzzer fuzzer(hosts, command.options, first_calls(hosts, command.first, is_first_given));
    FuzzReport report(context, hosts, command);
    try {
        Progress progress("calls", command.options.calls);
        while (!fuzzer.is_done() && !interrupted) {
            fuzzer.round([&](const Finding &finding) { report.take(finding); });
            progress.reached(std::min(fuzzer.made(), command.options.calls));
        }
    } catch (const Error &) {
        // Ctrl-C ends the call under way; what was found until then counts.
        if (!interrupted) throw;
    }
    report.end(fuzzer);
}

}  // namespace

void set_up_fuzz(CLI::App &command, Context &context) {
    const auto options = std::make_shared<FuzzCommand>();
    const auto patterns = [&](const char *name, std::vector<std::string> &to, const char *text) {
        command.add_option(name, to, text)
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->allow_extra_args(false)
            ->type_name("GLOB");
    };
    command.add_option("GLOB", options->options.patterns, "Methods to call; all but those that reset");
    command.add_option("--seed", options->options.seed, "The same seed gives the same calls")->capture_default_str();
    command.add_option("--calls", options->options.calls, "How many")->capture_default_str();
    command.add_flag("--hostile", options->options.hostile, "Leave the ranges, too, but not the lengths");
    command.add_flag("--check", options->options.check, "Read what was set, and compare");
    patterns("--skip", options->options.skip, "Methods not to call, beside those that reset or shut down");
    patterns("--also", options->options.also, "Methods to call although they reset or shut down");
    CLI::Option *first =
        command.add_option("--first", options->first, "A call that each round begins with, as behind lmqctl call")
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
            ->allow_extra_args(false)
            ->type_name("CALL")
            ->capture_default_str();
    add_host_options(command, options->host, options->hang);
    command.add_option("--out", options->folder, "Folder for the traces of what is found")->capture_default_str();
    command.callback([&context, options, first] { fuzz(context, *options, first->count() > 0); });
}

}  // namespace lmqctl
