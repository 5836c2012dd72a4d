// Answers for people.
#include "output.h"

#include <algorithm>
#include <cstdio>

#include "scalar_text.h"

namespace lmqctl {

namespace {

bool is_zero(const Json &value) {
    if (value.is_number()) return value == 0;
    if (value.is_string()) return value.get_ref<const std::string &>().empty();
    return value.is_structured() && std::all_of(value.begin(), value.end(), is_zero);
}

}  // namespace

bool is_success(const Dictionary &dictionary, const Method &method, const Json &result) {
    if (!method.is_described() || !result.is_number_integer()) return true;
    const std::string base = dictionary.base_type(method.result);
    return base != "int" || result == 0;
}

std::string Output::paint(const char *code, const std::string &text) const {
    return style_.color ? std::string("\033[") + code + "m" + text + "\033[0m" : text;
}

std::string Output::status(const Method &method, const Json &result) const {
    const TypePtr type = types_.scalar(method.result);
    if (method.result == "void") return "done";
    const bool success = is_success(dictionary_, method, result);
    std::string text = scalar_to_text(dictionary_, *type, result);
    const Enum *values = dictionary_.enumeration(method.result);
    const Enumerator *value = values && result.is_number_integer() ? values->numbered(result.get<int64_t>()) : nullptr;
    if (value && value->number != 0) {
        char number[48];
        std::snprintf(number, sizeof number, " (%lld = 0x%llx", static_cast<long long>(value->number),
                      static_cast<unsigned long long>(value->number));
        text += number + (value->base.empty() ? "" : ": " + value->base + " + " + std::to_string(value->told)) + ")";
    }
    return paint(success ? "32" : "31", text);
}

std::string Output::one_line(const Type &type, const Json &value) const {
    if (const std::string address = address_to_text(type, value); !address.empty()) return address;
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration: return value.is_structured() ? "" : scalar_to_text(dictionary_, type, value);
        case Type::text: return value.dump(-1, ' ', false, Json::error_handler_t::replace);
        case Type::flags: return flags_to_text(value);
        case Type::mask: {
            // Bits beyond the flags show in the other view alone.
            if (!value.is_object() || !value.contains(type.members[0].name)) return "";
            const std::string flags = flags_to_text(value[type.members[0].name]);
            const Json word = value.value(type.members[1].name, Json(0));
            return flags == "none" && word != 0 ? scalar_to_text(dictionary_, *type.members[1].type, word) : flags;
        }
        case Type::array:
        case Type::mac:
            if (!value.is_array()) return value.is_structured() ? "" : value.dump();
            if (value.empty()) return "[]";
            if (!style_.full && value.size() > 1 && is_zero(value)) return std::to_string(value.size()) + " x 0";
            if (type.element->kind != Type::integer && type.element->kind != Type::enumeration) return "";
            {
                std::string text;
                for (const Json &item : value)
                    text += (text.empty() ? "" : " ") + scalar_to_text(dictionary_, *type.element, item);
                return text;
            }
        default: return value.is_null() ? "NULL" : value.is_structured() ? "" : value.dump();
    }
}

std::string Output::value(const std::string &name, const Type &type, const Json &value, unsigned indent) const {
    const std::string margin(indent, ' ');
    std::string line = one_line(type, value);
    if (!style_.full && type.kind == Type::structure && value.is_array() && value.size() > 1 && is_zero(value))
        line = std::to_string(value.size()) + " x 0";
    if (!line.empty()) {
        const std::size_t width = name.size() < 24 ? 24 - name.size() : 1;
        return margin + paint("36", name) + std::string(width, ' ') + line + "\n";
    }
    std::string text = margin + paint("36", name) + "\n";
    if (value.is_array()) {
        const Type &element = type.element ? *type.element : type;
        std::size_t zeros = 0;
        for (std::size_t i = 0; i < value.size(); ++i) {
            if (!style_.full && is_zero(value[i]) && value.size() > 1)
                ++zeros;
            else
                text += this->value("[" + std::to_string(i) + "]", element, value[i], indent + 2);
        }
        if (zeros) text += margin + "  (" + std::to_string(zeros) + " more, all 0)\n";
        return text;
    }
    if (!value.is_object()) return text;
    for (const auto &[key, inside] : value.items()) {
        const Member *member = type.member(key);
        if (!member) {
            text += margin + "  " + key + " " + inside.dump() + "\n";
            continue;
        }
        const Type &kind = *member->type;
        if (kind.kind == Type::overlay && !kind.selector.empty() && !style_.full && value.contains(kind.selector)) {
            const Json &selector = value[kind.selector];
            const auto chosen =
                selector.is_number() ? kind.selected.find(selector.get<int64_t>()) : kind.selected.end();
            if (chosen == kind.selected.end()) {
                text +=
                    margin + "  " + paint("36", key) + " (" + kind.selector + " selects none of its alternatives)\n";
            } else if (inside.contains(chosen->second)) {
                text += this->value(key + "." + chosen->second, *kind.member(chosen->second)->type,
                                    inside[chosen->second], indent + 2);
            }
            continue;
        }
        text += this->value(key, kind, inside, indent + 2);
    }
    return text;
}

std::string Output::answer(const Method &method, const Json &answer) const {
    if (!method.is_described()) return answer.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
    std::string text = status(method, answer.is_array() && !answer.empty() ? answer[0] : answer) + "\n";
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i)
        text += value(method.parameters[i].name, *types_.parameter(method.parameters[i]), answer[i + 1]);
    return text;
}

Json Output::plain(const Type &type, const Json &value, const Dictionary *names) {
    if (value.is_number_integer()) {
        const Enum *values = names && type.kind == Type::enumeration ? names->enumeration(type.name) : nullptr;
        if (const Enumerator *named = values ? values->numbered(value.get<int64_t>()) : nullptr) return named->name;
        const int64_t number = as_declared(type, value.get<int64_t>());
        return !type.is_signed && type.width == 64 ? Json(static_cast<uint64_t>(number)) : Json(number);
    }
    if (!value.is_structured()) return value;
    Json result = value.is_array() ? Json::array() : Json::object();
    for (const auto &[key, inside] : value.items()) {
        const Member *member = value.is_object() ? type.member(key) : nullptr;
        const Type &kind = member ? *member->type : value.is_array() && type.element ? *type.element : type;
        if (value.is_array())
            result.push_back(plain(kind, inside, names));
        else
            result[key] = member ? plain(kind, inside, names) : inside;
    }
    return result;
}

}  // namespace lmqctl
