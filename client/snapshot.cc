// lmqctl snapshot: what all methods that only read say, in one file.
#include <algorithm>
#include <cstdio>

#include "command.h"
#include "error.h"
#include "file.h"
#include "standard_output.h"
#include "survey.h"
#include "time_text.h"

namespace lmqctl {

namespace {

struct SnapshotOptions : SurveyOptions {
    std::string file;
};

void snapshot(Context &context, const SnapshotOptions &options) {
    const bool is_output = options.file == "-";
    // Before the calls, as they take their time.
    if (!is_output) check_writable(options.file);
    const Json answers = survey(context, options);
    if (answers.empty())
        throw UsageError("no method that only reads, and that can be asked without more being known, matches " +
                         options.pattern);
    const auto succeeded = std::count_if(answers.begin(), answers.end(),
                                         [](const Json &answer) { return answer.value("success", false); });
    const Json asked{{"pattern", options.pattern},
                     {"devices", options.devices},
                     {"ports", options.ports},
                     {"registers", options.registers}};
    const Json whole{{"snapshot", 1},
                     {"host", context.session().url()},
                     {"time", now_text()},
                     {"asked", asked},
                     {"answers", answers}};
    const std::string text = json_text(whole, 1) + "\n";
    const std::string summary = options.file + ": " + std::to_string(answers.size()) +
                                (answers.size() == 1 ? " call, " : " calls, ") + std::to_string(succeeded) +
                                " answered with success\n";
    if (is_output) {
        print(text);
        std::fputs(summary.c_str(), stderr);
    } else {
        write_text(options.file, text);
        print(summary);
    }
    if (succeeded == 0) context.exit_status = exit_driver;
}

}  // namespace

void set_up_snapshot(CLI::App &command, Context &context) {
    const auto options = std::make_shared<SnapshotOptions>();
    command.add_option("FILE", options->file, "Where to write the answers, as JSON; - for standard output")->required();
    command.add_option("GLOB", options->pattern, "Methods whose answers are kept, of those that only read");
    command.add_option("--devices", options->devices, "Numbers of devices")
        ->check(CLI::Range(0, 1000000))
        ->delimiter(',')
        ->capture_default_str();
    command.add_option("--ports", options->ports, "Numbers of ports, like 0-3 or 0,2; all if not given");
    command.add_option("--registers", options->registers, "Addresses of registers to read too, like 0x1000-0x103c");
    command.callback([&context, options] { snapshot(context, *options); });
}

}  // namespace lmqctl
