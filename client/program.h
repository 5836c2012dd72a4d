// A line of lmqctl, from a shell or from a session: its options, its command, and what its errors look like.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "context.h"

namespace lmqctl {

/// Adds what the words of a line may hold. A session has no options of the connection: it keeps the one it has.
void set_up_options(CLI::App &app, Context &context);
void set_up_commands(CLI::App &app, Context &context);

/// Takes what the options, the environment and the boards file say of where the host is.
void choose_host(const CLI::App &app, Context &context);

/// Carries out the words behind the program's name. Returns the exit status; errors are said on standard error.
int carry_out(Context &context, const std::vector<std::string> &words);

/// Does `action`; an error of it is said on standard error, and becomes the exit status.
int with_errors_said(const Context &context, const std::function<int()> &action);

}  // namespace lmqctl
