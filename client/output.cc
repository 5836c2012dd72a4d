// Answers for people.
#include "output.h"

#include <algorithm>
#include <cstdio>

#include "answer.h"
#include "arguments.h"
#include "scalar_text.h"

namespace lmqctl {

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
        text += number + (value->base.empty() ? "" : ": " + value->base + " + " + std::to_string(value->listed)) + ")";
    }
    return paint(success ? "32" : "31", text);
}

std::string Output::scalar(const Type &type, const Json &value) const {
    if (!style_.hex || type.kind != Type::integer || !value.is_number_integer())
        return scalar_to_text(dictionary_, type, value);
    const uint64_t bits = static_cast<uint64_t>(value.get<int64_t>()) & (~uint64_t{0} >> (64 - type.width));
    char text[24];
    std::snprintf(text, sizeof text, "0x%0*llx", static_cast<int>(type.width / 4),
                  static_cast<unsigned long long>(bits));
    return text;
}

std::string Output::one_line(const Type &type, const Json &value) const {
    if (std::string address = address_to_text(type, value); !address.empty()) return address;
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration: return value.is_structured() ? "" : scalar(type, value);
        case Type::text: return json_text(value);
        case Type::flags: return flags_to_text(value);
        case Type::mask: {
            // Bits beyond the flags show in the other view alone.
            if (!value.is_object() || !value.contains(type.members[0].name)) return "";
            const std::string flags = flags_to_text(value[type.members[0].name]);
            const Json word = value.value(type.members[1].name, Json(0));
            return flags == "none" && word != 0 ? scalar(*type.members[1].type, word) : flags;
        }
        case Type::array:
        case Type::mac:
            if (!value.is_array()) return value.is_structured() ? "" : scalar(*type.element, value);
            if (value.empty()) return "[]";
            if (type.element->meaning.is_text)
                if (const std::optional<std::string> text = characters_to_text(value)) return *text;
            if (!style_.full && value.size() > 1 && is_zero(value)) return std::to_string(value.size()) + " x 0";
            if (type.element->kind != Type::integer && type.element->kind != Type::enumeration) return "";
            {
                std::string text;
                for (const Json &item : value) text += (text.empty() ? "" : " ") + scalar(*type.element, item);
                return text;
            }
        default: return value.is_null() ? "NULL" : value.is_structured() ? "" : value.dump();
    }
}

std::string Output::in_a_cell(const Type &type, const Json &value) const {
    if (value.is_array() && value.size() == 1) return in_a_cell(type.element ? *type.element : type, value[0]);
    if (const std::string line = one_line(type, value); !line.empty()) return line;
    if (value.is_object()) return members_in_a_cell(type, value);
    std::string text;
    for (const Json &item : value) {
        if (is_zero(item)) continue;
        const std::string inside = in_a_cell(type.element ? *type.element : type, item);
        text += (text.empty() ? "" : " ") + (item.is_object() ? "{" + inside + "}" : inside);
    }
    return text.empty() ? "0" : text;
}

std::string Output::members_in_a_cell(const Type &type, const Json &object) const {
    std::string text;
    for (const Member &member : type.members) {
        if (!object.contains(member.name) || is_valid_mask(type, member)) continue;
        const Type *held = member.type.get();
        const Json *inside = &object[member.name];
        std::string name = member.name;
        if (held->kind == Type::overlay) {
            const Member *chosen = selected(*held, object);
            if (!chosen || !inside->contains(chosen->name)) continue;
            name = chosen->name;
            held = chosen->type.get();
            inside = &(*inside)[name];
        }
        if (is_zero(*inside)) continue;
        const std::string shown = in_a_cell(*held, *inside);
        text += (text.empty() ? "" : " ") + name +
                (inside->is_object() && one_line(*held, *inside).empty() ? "{" + shown + "}" : "=" + shown);
    }
    return text.empty() ? "0" : text;
}

std::string Output::value(const std::string &name, const Type &type, const Json &value, unsigned indent) const {
    const std::string margin(indent, ' ');
    std::string line = one_line(type, value);
    if (!style_.full && type.kind == Type::structure && value.is_array() && value.size() > 1 && is_zero(value))
        line = std::to_string(value.size()) + " x 0";
    if (value.is_array() && value.empty()) line = "[]";
    if (!line.empty()) {
        const std::size_t width = name.size() < 24 ? 24 - name.size() : 1;
        return margin + paint("36", name) + std::string(width, ' ') + line + "\n";
    }
    const std::string head = margin + paint("36", name) + "\n";
    if (value.is_array()) return head + elements(type.element ? *type.element : type, value, indent + 2);
    return value.is_object() ? head + members(type, value, indent + 2) : head;
}

std::string Output::elements(const Type &element, const Json &items, unsigned indent) const {
    std::string text;
    std::size_t zeros = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (!style_.full && is_zero(items[i]) && items.size() > 1)
            ++zeros;
        else
            text += value("[" + std::to_string(i) + "]", element, items[i], indent);
    }
    if (zeros) text += std::string(indent, ' ') + "(" + std::to_string(zeros) + " more, all 0)\n";
    return text;
}

std::string Output::members(const Type &type, const Json &object, unsigned indent) const {
    std::string text;
    for (const auto &[key, inside] : object.items()) {
        const Member *member = type.member(key);
        if (!member)
            text += std::string(indent, ' ') + key + " " + inside.dump() + "\n";
        else if (member->type->kind == Type::overlay && !style_.full && object.contains(member->type->selector))
            text += alternative(*member, inside, object[member->type->selector], indent);
        else
            text += value(key, *member->type, inside, indent);
    }
    return text;
}

std::string Output::alternative(const Member &overlay, const Json &all, const Json &selector, unsigned indent) const {
    const Type &type = *overlay.type;
    const auto chosen = selector.is_number() ? type.selected.find(selector.get<int64_t>()) : type.selected.end();
    if (chosen == type.selected.end())
        return std::string(indent, ' ') + paint("36", overlay.name) + " (" + type.selector +
               " selects none of its alternatives)\n";
    const std::string &name = chosen->second;
    return all.contains(name) ? value(overlay.name + "." + name, *type.member(name)->type, all[name], indent) : "";
}

Json Output::given(const Type &type, const Json &value) const {
    if (!value.is_structured()) return value;
    Json kept = value.is_array() ? Json::array() : Json::object();
    std::vector<std::pair<const Type *, Json>> masks;
    for (const Member &member : type.members)
        if (value.is_object() && value.contains(member.name) && is_valid_mask(type, member)) {
            const bool two_views = member.type->kind == Type::mask;
            const Type &bits = two_views ? *member.type->members[0].type : *member.type;
            masks.emplace_back(
                &bits, two_views ? value[member.name].value(member.type->members[0].name, Json()) : value[member.name]);
        }
    const auto is_given = [&](const std::string &key) {
        return std::all_of(masks.begin(), masks.end(), [&](const auto &mask) {
            const Member *flag = flag_of(*mask.first, key);
            return !flag || !mask.second.is_object() || mask.second.value(flag->name, Json(1)) != 0;
        });
    };
    for (const auto &[key, inside] : value.items()) {
        const Member *member = value.is_object() ? type.member(key) : nullptr;
        if (value.is_array())
            kept.push_back(given(type.element ? *type.element : type, inside));
        else if (is_given(key))
            kept[key] = member ? given(*member->type, inside) : inside;
    }
    return kept;
}

std::string Output::answer(const Method &method, const Json &answer) const {
    if (!method.is_described()) return json_text(answer, 2) + "\n";
    std::string text = status(method, result_of(answer)) + "\n";
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        const TypePtr type = types_.parameter(parameter);
        Json shown = answer[i + 1];
        if (!style_.full) shown = filled(method, i, answer);
        if (!style_.full && parameter.is_pointer() && parameter.said.direction != Direction::inout &&
            !is_output(method, parameter))
            shown = given(*type, shown);
        text += value(parameter.name, *type, shown);
    }
    return text;
}

}  // namespace lmqctl
