// What the commands for registers and buses have in common: the host's methods for them, and their answers.
#pragma once

#include <string>

#include "context.h"

namespace lmqctl {

/// The method that serves a bus: the shortest name that fits the pattern. Throws an Error if there is none, or it takes
/// another number of arguments.
Method bus_method(Context &context, const char *pattern, std::size_t arguments);

/// Throws a Fault, or an Error with exit_driver for a status that is no success.
void check_answer(Context &context, const Method &method, const Json &answer);

/// With as many digits as so many bits need, and 0x in front.
std::string hexadecimal(uint64_t value, unsigned bits, bool with_prefix = true);

}  // namespace lmqctl
