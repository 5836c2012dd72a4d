// Arguments along their types.
#include "call_words.h"

#include "arguments.h"
#include "scalar_text.h"

namespace lmqctl {

namespace {

class Wording {
  public:
    Wording(const Dictionary &dictionary, const NameOf &name_of) : dictionary_(dictionary), name_of_(name_of) {}

    std::string scalar(const Type &type, const Json &value) const {
        if (!value.is_number_integer()) return json_text(value);
        const Type &own = type.element ? *type.element : type;
        const std::string name = name_of_ ? name_of_(own, as_declared(own, value.get<int64_t>())) : "";
        if (!name.empty()) return name;
        const std::string text = scalar_to_text(dictionary_, own, value);
        return text.find(' ') == std::string::npos ? text : value.dump();
    }

    /// PATH=VALUE for all that is not 0 in a value. Flags follow from what is given.
    void add_paths(const Type &type, const Json &value, const std::string &path, std::vector<std::string> &to) const {
        if (is_zero(value) || type.kind == Type::flags || type.kind == Type::mask) return;
        if (const std::string address = address_to_text(type, value); !address.empty()) {
            to.push_back(path + "=" + address);
        } else if (value.is_object()) {
            for (const auto &[key, inside] : value.items())
                if (const Member *member = type.member(key)) add_paths(*member->type, inside, path + "." + key, to);
        } else if (value.is_array() && !value.empty() && value[0].is_object()) {
            for (std::size_t i = 0; i < value.size(); ++i)
                add_paths(type.element ? *type.element : type, value[i], path + "[" + std::to_string(i) + "]", to);
        } else {
            to.push_back(path + "=" + (value.is_array() ? value_text(type, value, name_of_) : scalar(type, value)));
        }
    }

  private:
    const Dictionary &dictionary_;
    const NameOf &name_of_;
};

}  // namespace

std::string value_text(const Type &type, const Json &value, const NameOf &name_of) {
    if (value.is_number_integer() && name_of) {
        const Type &own = type.element ? *type.element : type;
        const std::string name = name_of(own, as_declared(own, value.get<int64_t>()));
        if (!name.empty()) return name;
    }
    if (!value.is_structured()) return json_text(value);
    std::string text;
    for (const auto &[key, inside] : value.items()) {
        const Member *member = value.is_object() ? type.member(key) : nullptr;
        const Type &kind = member ? *member->type : type.element ? *type.element : type;
        text += (text.empty() ? "" : ", ") + (value.is_object() ? json_text(Json(key)) + ": " : "") +
                value_text(kind, inside, name_of);
    }
    return value.is_object() ? "{" + text + "}" : "[" + text + "]";
}

std::vector<std::string> call_words(const Dictionary &dictionary, Types &types, const Method &method,
                                    const Json &arguments, const NameOf &name_of) {
    const Wording wording(dictionary, name_of);
    std::vector<std::string> words{method.name};
    bool is_in_order = true;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (i >= method.parameters.size()) {
            words.push_back(json_text(arguments[i]));
            continue;
        }
        const Parameter &parameter = method.parameters[i];
        const TypePtr type = types.parameter(parameter);
        const bool is_plain = !arguments[i].is_structured();
        if (is_plain && is_in_order) {
            words.push_back(wording.scalar(*type, arguments[i]));
        } else if (is_plain && !is_output(method, parameter)) {
            words.push_back(parameter.name + "=" + wording.scalar(*type, arguments[i]));
        } else {
            is_in_order = false;
            if (!is_output(method, parameter)) wording.add_paths(*type, arguments[i], parameter.name, words);
        }
        is_in_order = is_in_order && !parameter.is_pointer();
    }
    return words;
}

std::vector<std::string> full_call_words(const Dictionary &dictionary, Types &types, const Method &method,
                                         const Json &arguments, const NameOf &name_of) {
    static_cast<void>(dictionary);
    std::vector<std::string> words{method.name};
    for (std::size_t i = 0; i < arguments.size() && i < method.parameters.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        words.push_back(parameter.name + "=" + value_text(*types.parameter(parameter), arguments[i], name_of));
    }
    return words;
}

std::string line_of(const std::vector<std::string> &words) {
    std::string line;
    for (const std::string &word : words) {
        const bool is_plain = word.find_first_of(" \t\"'\\#") == std::string::npos && !word.empty();
        std::string quoted = word;
        if (!is_plain) {
            quoted = "'";
            for (const char letter : word) quoted += letter == '\'' ? "'\"'\"'" : std::string(1, letter);
            quoted += "'";
        }
        line += (line.empty() ? "" : " ") + quoted;
    }
    return line;
}

}  // namespace lmqctl
