// lmqctl save: what a chip is told to be, in a file.
#include <algorithm>

#include "command.h"
#include "error.h"
#include "file.h"
#include "names.h"
#include "standard_output.h"
#include "state.h"

namespace lmqctl {

namespace {

struct SaveOptions {
    std::string file;
    std::vector<std::string> patterns;  // of methods; none: all
};

void save(Context &context, const SaveOptions &options) {
    const std::string &file = options.file;
    const std::vector<std::string> &patterns = options.patterns;
    if (file != "-") check_writable(file);
    const State state = state_of_chip(context, [&](const std::string &method) {
        return patterns.empty() || std::any_of(patterns.begin(), patterns.end(),
                                               [&](const std::string &pattern) { return glob(pattern, method); });
    });
    if (state.empty() && patterns.empty()) {
        print("no setting can be read: is the system started?\n");
        context.exit_status = exit_driver;
        return;
    }
    const std::string text = state_text(context, state, patterns.empty());
    if (file == "-") return print(text);
    write_text(file, text);
    print(file + ": " + std::to_string(state.settings.size()) + " settings, " + std::to_string(state.things.size()) +
          (state.things.size() == 1 ? " thing" : " things") + " that " + (state.things.size() == 1 ? "was" : "were") +
          " made\n");
}

}  // namespace

void set_up_save(CLI::App &command, Context &context) {
    const auto options = std::make_shared<SaveOptions>();
    command.add_option("FILE", options->file, "Where to write the lines; - for standard output")->required();
    command.add_option("GLOB", options->patterns, "What these methods set and make; without it all");
    command.callback([&context, options] { save(context, *options); });
}

}  // namespace lmqctl
