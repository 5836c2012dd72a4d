// The numbers and texts in an answer, each by the path that leads to it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

struct Leaf {
    std::string path;  ///< "p_cfg.rate", "p_list[2].vid"
    TypePtr type;
    Json value;  ///< a number as its type has it, or a text
    bool is_flag = false;
};

/// Of all arguments that the driver may have written, or of all arguments. Of a list what the driver filled. An array
/// that a pointer of one element stands for has no index.
std::vector<Leaf> leaves_of(Types &types, const Method &method, const Json &answer, bool with_inputs);

/// Changes each number in a value of a type; `change` gets the type and the number, and answers what stands there then.
void change_numbers(const Type &type, Json &value, const std::function<Json(const Type &, int64_t)> &change);

}  // namespace lmqctl
