// The table of commands. A new one is a file with a `set_up_NAME`, its declaration below and its row in command.cc.
#pragma once

#include <CLI/CLI.hpp>
#include <vector>

#include "context.h"

namespace lmqctl {

struct Command {
    const char *name;
    const char *summary;  ///< empty for one that --help does not show
    const char *example;  ///< shown under --help
    /// Adds the options and the callback that carries the command out. The callback sets context.exit_status if it is
    /// not 0, and throws an Error for what the user has to know.
    void (*set_up)(CLI::App &command, Context &context);
};

extern const std::vector<Command> commands;

/// Those that --help shows.
std::vector<std::string> command_names();

/// An argument that takes all words that are left, each as it is.
CLI::Option *add_words(CLI::App &command, const std::string &name, std::vector<std::string> &words,
                       const std::string &description);

/// The option --count [NAME=]N, as often as one likes.
CLI::Option *add_count(CLI::App &command, std::vector<std::string> &counts);

/// --host-command and --hang, of commands that start hosts of their own.
void add_host_options(CLI::App &command, std::string &host, double &hang);

void set_up_apply(CLI::App &command, Context &context);
void set_up_batch(CLI::App &command, Context &context);
void set_up_boards(CLI::App &command, Context &context);
void set_up_call(CLI::App &command, Context &context);
void set_up_compat(CLI::App &command, Context &context);
void set_up_complete(CLI::App &command, Context &context);
void set_up_completion(CLI::App &command, Context &context);
void set_up_describe(CLI::App &command, Context &context);
void set_up_diff(CLI::App &command, Context &context);
void set_up_doctor(CLI::App &command, Context &context);
void set_up_explain(CLI::App &command, Context &context);
void set_up_fuzz(CLI::App &command, Context &context);
void set_up_get(CLI::App &command, Context &context);
void set_up_i2c(CLI::App &command, Context &context);
void set_up_list(CLI::App &command, Context &context);
void set_up_lock(CLI::App &command, Context &context);
void set_up_mdio(CLI::App &command, Context &context);
void set_up_reg(CLI::App &command, Context &context);
void set_up_repl(CLI::App &command, Context &context);
void set_up_replay(CLI::App &command, Context &context);
void set_up_run(CLI::App &command, Context &context);
void set_up_save(CLI::App &command, Context &context);
void set_up_search(CLI::App &command, Context &context);
void set_up_set(CLI::App &command, Context &context);
void set_up_shrink(CLI::App &command, Context &context);
void set_up_snapshot(CLI::App &command, Context &context);
void set_up_spi(CLI::App &command, Context &context);
void set_up_template(CLI::App &command, Context &context);
void set_up_trace(CLI::App &command, Context &context);
void set_up_unlock(CLI::App &command, Context &context);
void set_up_uses(CLI::App &command, Context &context);
void set_up_watch(CLI::App &command, Context &context);
void set_up_who(CLI::App &command, Context &context);

}  // namespace lmqctl
