// Answers for programs.
#include "answer.h"

#include <algorithm>

#include "error.h"
#include "names.h"
#include "scalar_text.h"
#include "session.h"

namespace lmqctl {

namespace {

// The enumerators in a value, in its shape: null for what has none.
Json names_in(const Dictionary &dictionary, const Type &type, const Json &value) {
    if (value.is_number_integer() && type.element) return names_in(dictionary, *type.element, value);
    if (value.is_number_integer()) {
        const Enum *values = type.kind == Type::enumeration ? dictionary.enumeration(type.name) : nullptr;
        if (!values) return {};
        if (const Enumerator *named = values->numbered(value.get<int64_t>())) return named->name;
        return type.meaning.is_bits && value != 0 ? Json(scalar_to_text(dictionary, type, value)) : Json();
    }
    Json names;
    if (!value.is_structured()) return names;
    for (const auto &[key, inside] : value.items()) {
        const Member *member = value.is_object() ? type.member(key) : nullptr;
        if (value.is_object() && !member) continue;
        const Json name = names_in(dictionary, member ? *member->type : type.element ? *type.element : type, inside);
        if (value.is_array())
            names.push_back(name);
        else if (!name.is_null())
            names[key] = name;
    }
    const bool is_empty = std::all_of(names.begin(), names.end(), [](const Json &name) { return name.is_null(); });
    return is_empty ? Json() : names;
}

}  // namespace

bool is_success(const Dictionary &dictionary, const Method &method, const Json &result) {
    if (!method.is_described() || !result.is_number_integer()) return true;
    const std::string base = dictionary.base_type(method.result);
    return base != "int" || result == 0;
}

int exit_status_of(const Dictionary &dictionary, const Method &method, const Json &answer) {
    if (is_fault(answer)) return exit_fault;
    return is_success(dictionary, method, result_of(answer)) ? exit_ok : exit_driver;
}

const Json &result_of(const Json &answer) { return answer.is_array() && !answer.empty() ? answer[0] : answer; }

Json json_answer(const Dictionary &dictionary, Types &types, const Method &method, const Json &answer) {
    Json json{{"method", dictionary.full_name(method.name)}};
    if (is_fault(answer)) {
        json["fault"] = {{"code", answer["faultCode"]}, {"text", answer["faultString"]}};
        return json;
    }
    if (!method.is_described() || !answer.is_array() || answer.empty()) {
        json["result"] = answer;
        return json;
    }
    json["result"] = plain(*types.scalar(method.result), answer[0]);
    const Enum *values = dictionary.enumeration(method.result);
    const Enumerator *named =
        values && answer[0].is_number_integer() ? values->numbered(answer[0].get<int64_t>()) : nullptr;
    if (values) json["status"] = named ? Json(named->name) : Json();
    json["arguments"] = Json::object();
    json["names"] = Json::object();
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
        const std::string &name = method.parameters[i].name;
        const TypePtr type = types.parameter(method.parameters[i]);
        json["arguments"][name] = plain(*type, answer[i + 1]);
        if (Json names = names_in(dictionary, *type, answer[i + 1]); !names.is_null())
            json["names"][name] = std::move(names);
    }
    return json;
}

const Member *selected(const Type &overlay, const Json &structure) {
    const Json selector = structure.is_object() ? structure.value(overlay.selector, Json()) : Json();
    if (!selector.is_number_integer()) return nullptr;
    const auto chosen = overlay.selected.find(selector.get<int64_t>());
    return chosen == overlay.selected.end() ? nullptr : overlay.member(chosen->second);
}

Json filled(const Method &method, std::size_t parameter, const Json &answer) {
    const std::string &counter = method.parameters[parameter].said.length.filled;
    Json value = answer[parameter + 1];
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
        if (counter.empty() || method.parameters[i].name != counter || !value.is_array()) continue;
        const Json &count = answer[i + 1].is_array() && !answer[i + 1].empty() ? answer[i + 1][0] : answer[i + 1];
        if (count.is_number_integer() && count >= 0 && count < value.size())
            value.erase(value.begin() + count.get<std::ptrdiff_t>(), value.end());
    }
    return value;
}

Json plain(const Type &type, const Json &value, const Dictionary *names) {
    // Behind a pointer may be one element.
    if (value.is_number_integer() && type.element) return plain(*type.element, value, names);
    if (value.is_number_integer()) {
        if (names && type.meaning.is_bits) return scalar_to_text(*names, type, value);
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

Json with_printed(Json answer, const std::string &printed) {
    if (!printed.empty()) answer["printed"] = printed;
    return answer;
}

std::string printed_text(const std::string &printed) {
    if (printed.empty()) return "";
    std::string text = "printed by the driver\n";
    for (const std::string &line : split(printed.substr(0, printed.size() - 1), '\n'))
        text.append(line.empty() ? "" : "  ").append(line).append("\n");
    return text;
}

}  // namespace lmqctl
