// Where a member is in the answers of a method.
#pragma once

#include <string>
#include <string_view>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// The type that a path such as ".dev_cfg[0].enbl" leads to; nullptr if it leads nowhere.
const Type *walked(const Type *type, std::string_view path);

struct Place {
    std::string path;  ///< "p_cfg.wd_timer"; "result" for what the function returns
    Json::json_pointer at;
    TypePtr held;  ///< keeps `type` alive
    const Type *type = nullptr;

    /// In an answer: of a pointer to one element, the element. Null if the answer has another form.
    Json value(const Json &answer) const;
    /// The type of that value.
    const Type &value_type() const;
};

/// The place of a path that begins with an argument, of a member that has its name alone among those of the method's
/// pointers, or of "result". Throws a UsageError that says what there is.
Place find_place(Types &types, const Method &method, const std::string &path);

}  // namespace lmqctl
