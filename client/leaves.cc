// The way through a value along its type.
#include "leaves.h"

#include "answer.h"
#include "scalar_text.h"

namespace lmqctl {

namespace {

void add_leaves(const TypePtr &type, const Json &value, const std::string &path, bool is_flag, std::vector<Leaf> &to) {
    if (value.is_array()) {
        for (std::size_t i = 0; i < value.size(); ++i)
            add_leaves(type->element ? type->element : type, value[i], path + "[" + std::to_string(i) + "]", is_flag,
                       to);
    } else if (value.is_object()) {
        for (const auto &[name, inside] : value.items()) {
            const Member *member = type->member(name);
            const bool is_mask = type->kind == Type::flags || type->kind == Type::mask;
            add_leaves(member ? member->type : type, inside, path + "." + name, is_flag || is_mask, to);
        }
    } else {
        to.push_back(
            {path, type, value.is_number_integer() ? Json(as_declared(*type, value.get<int64_t>())) : value, is_flag});
    }
}

}  // namespace

std::vector<Leaf> leaves_of(Types &types, const Method &method, const Json &answer, bool with_inputs) {
    std::vector<Leaf> found;
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        if (!with_inputs && parameter.said.direction == Direction::in) continue;
        const TypePtr type = types.parameter(parameter);
        Json value = filled(method, i, answer);
        if (value.is_array() && value.size() == 1) value = Json(value[0]);
        add_leaves(value.is_array() || parameter.is_udt || !type->element ? type : type->element, value, parameter.name,
                   false, found);
    }
    return found;
}

void change_numbers(const Type &type, Json &value, const std::function<Json(const Type &, int64_t)> &change) {
    if (value.is_array())
        for (Json &each : value) change_numbers(type.element ? *type.element : type, each, change);
    if (value.is_object())
        for (auto &[name, inside] : value.items())
            if (const Member *member = type.member(name)) change_numbers(*member->type, inside, change);
    if (value.is_number_integer()) {
        const Type &own = type.element ? *type.element : type;
        const int64_t before = as_declared(own, value.get<int64_t>());
        if (const Json after = change(own, before); after != before) value = after;
    }
}

}  // namespace lmqctl
