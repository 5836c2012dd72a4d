// A value that is known only when the calls before it have been made. It stands in the place of a value of any type.
#pragma once

#include <optional>
#include <string>

#include "json.h"

namespace lmqctl {

/// What stands for the value that is called `name`. Users cannot write it: it begins with a letter of private use.
inline std::string symbol(const std::string &name) { return "\xee\x80\x80" + name; }

/// The name of what stands in a value's place; nothing for a value.
inline std::optional<std::string> symbol_name(const Json &value) {
    const std::string begin = symbol("");
    if (!value.is_string() || !value.get_ref<const std::string &>().starts_with(begin)) return {};
    return value.get<std::string>().substr(begin.size());
}

}  // namespace lmqctl
