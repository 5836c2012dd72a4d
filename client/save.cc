// lmqctl save: the settings of a chip in a file.
#include "command.h"
#include "error.h"
#include "file.h"
#include "standard_output.h"
#include "state.h"

namespace lmqctl {

namespace {

void save(Context &context, const std::string &file) {
    if (file != "-") check_writable(file);
    const State state = state_of_chip(context, {});
    if (state.empty()) {
        print("no setting can be read: is the system started?\n");
        context.exit_status = exit_driver;
        return;
    }
    const std::string text = state_text(context, state);
    if (file == "-") return print(text);
    write_text(file, text);
    print(file + ": " + std::to_string(state.size()) + " settings\n");
}

}  // namespace

void set_up_save(CLI::App &command, Context &context) {
    const auto file = std::make_shared<std::string>();
    command.add_option("FILE", *file, "Where to write the lines; - for standard output")->required();
    command.callback([&context, file] { save(context, *file); });
}

}  // namespace lmqctl
