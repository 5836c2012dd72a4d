// The words of a call, put together to what a method takes: in order, by name, by path; the outputs filled in.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "input.h"

namespace lmqctl {

struct ArgumentOptions : InputOptions {
    std::size_t count = 0;                      ///< elements of each list; 0 for as many as it takes
    std::map<std::string, std::size_t> counts;  ///< of single arguments
    std::map<std::string, int64_t> defaults;    ///< of arguments that are left out: the "device", the "port"
};

/// The parameters of a request. Throws a UsageError that names the argument.
Json build_arguments(const Dictionary &dictionary, Types &types, const Method &method,
                     const std::vector<std::string> &words, const ArgumentOptions &options);

/// Whether an argument may be left out: a pointer that the driver writes to, by the contract, else by the help text or
/// the method's name.
bool is_output(const Method &method, const Parameter &parameter);

/// An argument that says how much room a list has: it may be left out, too. nullptr if it is none.
const Parameter *list_of_capacity(const Method &method, const Parameter &capacity);

}  // namespace lmqctl
