// Paths and names of members into places.
#include "place.h"

#include <algorithm>

#include "error.h"
#include "names.h"

namespace lmqctl {

const Type *walked(const Type *type, std::string_view path) {
    while (type && !path.empty()) {
        const std::size_t end = path[0] == '[' ? path.find(']') : path.find_first_of(".[", 1);
        if (path[0] == '[') {
            if (end == std::string_view::npos) return nullptr;
            const bool is_list = type->kind == Type::array || type->kind == Type::mac;
            if (!is_list && type->kind != Type::structure) return nullptr;
            if (is_list) type = type->element.get();
            path.remove_prefix(end + 1);
        } else {
            const Member *member = type->member(std::string(path.substr(1, end == path.npos ? end : end - 1)));
            type = member ? member->type.get() : nullptr;
            path.remove_prefix(std::min(end, path.size()));
        }
    }
    return type;
}

Json Place::value(const Json &answer) const {
    const Json &whole = path == "result" && !answer.is_array() ? Json::array({answer}) : answer;
    if (!whole.contains(at)) return {};
    const Json &found = whole[at];
    const bool is_single = found.is_array() && found.size() == 1 && type->kind != Type::mac && type->bound < 2;
    return is_single ? found[0] : found;
}

const Type &Place::value_type() const { return type->kind == Type::array && type->bound < 2 ? *type->element : *type; }

namespace {

// The members called so, with the way to them. What is in a list has no place of its own.
void find_named(const Type &type, const std::string &name, const std::string &path, std::vector<std::string> &to) {
    if (path.ends_with("." + name)) to.push_back(path);
    if (type.kind != Type::structure && type.kind != Type::overlay) return;
    for (const Member &member : type.members) find_named(*member.type, name, path + "." + member.name, to);
}

// Behind the argument: ".wd_timer", "[3].x".
Json::json_pointer pointer_of(std::string_view path, const std::string &place) {
    Json::json_pointer at;
    while (!path.empty()) {
        const bool is_index = path[0] == '[';
        const std::size_t end = is_index ? path.find(']') : std::min(path.find_first_of(".[", 1), path.size());
        const std::string step(path.substr(1, end - 1));
        const std::optional<int64_t> index = is_index ? number(step) : std::nullopt;
        if (is_index && (!index || *index < 0 || *index > 65535))
            throw UsageError(place + ": expected an index in brackets");
        if (is_index)
            at /= static_cast<std::size_t>(*index);
        else
            at /= step;
        path.remove_prefix(is_index ? end + 1 : end);
    }
    return at;
}

}  // namespace

Place find_place(Types &types, const Method &method, const std::string &path) {
    if (path == "result" && method.is_described()) {
        const TypePtr type = types.scalar(method.result);
        return {path, Json::json_pointer() / std::size_t{0}, type, type.get()};
    }
    const std::size_t end = std::min(path.find_first_of(".["), path.size());
    std::vector<std::string> names, found;
    for (std::size_t i = 0; i < method.parameters.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        const TypePtr type = types.parameter(parameter);
        names.push_back(parameter.name);
        if (parameter.name != path.substr(0, end)) {
            if (parameter.is_pointer()) find_named(*type, path, parameter.name, found);
            continue;
        }
        const Type *held = walked(type.get(), path.substr(end));
        if (!held) throw UsageError(method.name + " has no member " + path);
        // What comes back begins with the result.
        const std::string place = "/" + std::to_string(i + 1);
        return {path, Json::json_pointer(place) / pointer_of(path.substr(end), path), type, held};
    }
    if (found.size() == 1) return find_place(types, method, found[0]);
    std::string hint = found.empty() ? did_you_mean(path, names) + "\n" + method.prototype() : "; there are";
    for (const std::string &each : found) hint += " " + each;
    throw UsageError(method.name + (found.empty() ? " has no member " : " has several members ") + path + hint);
}

}  // namespace lmqctl
