// The words of a call become the parameters of a request.
#include "arguments.h"

#include <algorithm>

#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

// The parameter that a word like p_cfg.wd_enable=1 begins with; nullptr for a word of another kind.
const Parameter *addressed(const Method &method, const std::string &word, std::size_t &path) {
    const std::size_t equals = word.find('=');
    if (equals == std::string::npos || equals == 0 || std::string("{[\"@-").find(word[0]) != std::string::npos)
        return nullptr;
    path = word.find_first_of(".[=");
    const std::string name = word.substr(0, path);
    std::vector<std::string> names;
    for (const Parameter &parameter : method.parameters) {
        if (parameter.name == name) return &parameter;
        names.push_back(parameter.name);
    }
    throw UsageError(method.name + " has no argument " + name + did_you_mean(name, names) + "\n" + method.prototype());
}

// A method that the host tells nothing of takes JSON, or what looks like a number or a text.
Json plain_arguments(const std::vector<std::string> &words) {
    Json arguments = Json::array();
    for (const std::string &word : words) {
        const std::optional<int64_t> number = lmqctl::number(word);
        const Json parsed = Json::parse(word, nullptr, false);
        arguments.push_back(number ? Json(*number) : parsed.is_discarded() ? Json(word) : parsed);
    }
    return arguments;
}

// The arguments by their names, as a template has them: nothing if the word is no object, or one whose keys are none of
// the method's arguments.
Json named_arguments(const Method &method, const std::string &text) {
    const Json given = text.starts_with('{') ? Json::parse(text, nullptr, false, true) : Json();
    if (!given.is_object()) return {};
    std::vector<std::string> names;
    for (const Parameter &parameter : method.parameters) names.push_back(parameter.name);
    const auto is_name = [&](const std::string &key) {
        return std::find(names.begin(), names.end(), key) != names.end();
    };
    if (std::none_of(names.begin(), names.end(), [&](const std::string &name) { return given.contains(name); }))
        return {};
    for (const auto &[key, value] : given.items())
        if (!is_name(key))
            throw UsageError(method.name + " has no argument " + key + did_you_mean(key, names) + "\n" +
                             method.prototype());
    return given;
}

}  // namespace

bool is_output(const Method &method, const Parameter &parameter) {
    if (!parameter.is_pointer() || parameter.pointee() == "void") return false;
    if (const std::optional<Method::Told> told = method.told(parameter.name)) return told->is_output;
    return !method.name.ends_with("_set") && !method.name.ends_with("_add");
}

Json left_out(const Type &type, const Parameter &parameter, std::size_t count) {
    if (parameter.is_udt) {
        if (count == 0) return Json::object();
        return Json(count, Json::object());
    }
    if (type.kind != Type::array && type.kind != Type::mac) return 0;
    return Json(count ? count : type.bound ? type.bound : 1, 0);
}

Json build_arguments(const Dictionary &dictionary, Types &types, const Method &method,
                     const std::vector<std::string> &words, const ArgumentOptions &options) {
    if (!method.is_described()) return plain_arguments(words);
    const Input input(dictionary, options);
    std::vector<TypePtr> type;
    for (const Parameter &parameter : method.parameters) type.push_back(types.parameter(parameter));
    std::vector<Json> values(method.parameters.size());
    std::vector<bool> is_given(values.size());

    std::vector<std::string> in_order;
    for (const std::string &word : words) {
        std::size_t path = 0;
        const Parameter *parameter = addressed(method, word, path);
        if (!parameter) {
            in_order.push_back(word);
            continue;
        }
        const std::size_t at = static_cast<std::size_t>(parameter - method.parameters.data());
        const std::size_t equals = word.find('=');
        input.set(*type[at], values[at], word.substr(path, equals - path), word.substr(equals + 1), parameter->name);
        is_given[at] = true;
    }
    if (words.size() == 1 && in_order.size() == 1 && !values.empty()) {
        in_order[0] = text_of(in_order[0], method.parameters[0].name);
        const Json named = named_arguments(method, in_order[0]);
        if (!named.is_null()) in_order.clear();
        for (std::size_t i = 0; i < values.size(); ++i) {
            const std::string &name = method.parameters[i].name;
            if (!named.contains(name)) continue;
            values[i] = input.from_json(*type[i], named[name], name);
            is_given[i] = true;
        }
    }
    for (std::size_t i = 0; i < values.size(); ++i) input.set_flags(*type[i], values[i]);

    // In order: either all that is still open, or all of it but the outputs.
    std::vector<std::size_t> open, inputs;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (is_given[i]) continue;
        open.push_back(i);
        if (!is_output(method, method.parameters[i])) inputs.push_back(i);
    }
    if (in_order.size() > open.size())
        throw UsageError(method.name + " takes " + std::to_string(values.size()) + " arguments; " +
                         std::to_string(in_order.size() - open.size()) + " too many: " + in_order[open.size()] + "\n" +
                         method.prototype());
    const std::vector<std::size_t> &places = in_order.size() <= inputs.size() ? inputs : open;
    for (std::size_t i = 0; i < in_order.size(); ++i) {
        values[places[i]] = input.from_text(*type[places[i]], in_order[i], method.parameters[places[i]].name);
        is_given[places[i]] = true;
    }

    Json arguments = Json::array();
    for (std::size_t i = 0; i < values.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        if (!is_given[i] && !is_output(method, parameter))
            throw UsageError("missing argument " + parameter.name + ": expected " + type[i]->described() + "\n" +
                             method.prototype());
        arguments.push_back(is_given[i] ? values[i] : left_out(*type[i], parameter, options.count));
    }
    return arguments;
}

}  // namespace lmqctl
