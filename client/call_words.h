// A call that was made as the words in which people write it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// What stands for a number of a type, such as "$flow1"; empty for the number itself.
using NameOf = std::function<std::string(const Type &type, int64_t number)>;

/// The words behind `lmqctl call`: outputs and what is 0 left out.
std::vector<std::string> call_words(const Dictionary &dictionary, Types &types, const Method &method,
                                    const Json &arguments, const NameOf &name_of = {});

/// The same with every argument in full, as JSON.
std::vector<std::string> full_call_words(const Dictionary &dictionary, Types &types, const Method &method,
                                         const Json &arguments, const NameOf &name_of = {});

/// A value as JSON in which names may stand for numbers.
std::string value_text(const Type &type, const Json &value, const NameOf &name_of);

/// Words as one line, with quotes where a word needs them.
std::string line_of(const std::vector<std::string> &words);

}  // namespace lmqctl
