// The words of a call, put together to what a method takes: in order, by name, by path; the outputs filled in.
#pragma once

#include <string>
#include <vector>

#include "input.h"

namespace lmqctl {

struct ArgumentOptions : InputOptions {
    std::size_t count = 0;  // elements of an output that is an array; 0 for as many as its type says, else one
};

// The parameters of a request. Throws a UsageError that names the argument.
Json build_arguments(const Dictionary &dictionary, Types &types, const Method &method,
                     const std::vector<std::string> &words, const ArgumentOptions &options);

// What is sent for an argument that is left out.
Json left_out(const Type &type, const Parameter &parameter, std::size_t count);

// Whether an argument may be left out: a pointer that the driver writes to, by the help text or the method's name.
bool is_output(const Method &method, const Parameter &parameter);

}  // namespace lmqctl
