// lmqctl describe: one entry of the dictionary, whatever kind it is of.
#include "arguments.h"
#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

std::string tree(const Type &type, unsigned indent);

// " (enum X, 0 to 7 ms)": what the contract says of a number, or of the numbers in an array.
std::string meaning_of(const Type &type) {
    const Type &number = type.element ? *type.element : type;
    std::string text = number.meaning.text();
    if (!number.held.empty())
        text = (number.meaning.is_bits ? "bits of " : "enum ") + number.name + (text.empty() ? "" : ", " + text);
    if (number.meaning.is_ipv4) text = "IPv4 address";
    if (number.meaning.is_text) text = "characters";
    return text.empty() ? "" : " (" + text + ")";
}

std::string branch(const std::string &name, const Type &type, unsigned indent, const std::string &brief = "") {
    const Type &inner = (type.kind == Type::array) ? *type.element : type;
    std::string declared = type.declared();
    if (type.kind == Type::mac) declared = "MAC address";
    if (type.kind == Type::ipv4) declared += " (IPv4 address)";
    if (type.kind == Type::ipv6) declared += " (IPv6 address)";
    if (type.kind == Type::overlay && !type.selector.empty()) declared += ", by " + type.selector;
    std::string line = std::string(indent, ' ') + name;
    line += std::string(line.size() < 28 ? 28 - line.size() : 1, ' ') + declared + meaning_of(type) +
            (brief.empty() ? "" : "  " + brief) + "\n";
    return line + tree(inner, indent + 2);
}

std::string tree(const Type &type, unsigned indent) {
    const Type &shown = type.kind == Type::mask ? *type.members[0].type : type;
    std::string text;
    if (shown.kind == Type::flags) {
        for (const Member &flag : shown.members) text += (text.empty() ? "" : "|") + flag.name;
        return std::string(indent, ' ') + text + "\n";
    }
    if (shown.kind != Type::structure && shown.kind != Type::overlay) return "";
    for (const Member &member : shown.members) text += branch(member.name, *member.type, indent, member.brief);
    return text;
}

// The sentence of an entry or of one of an enum's values; empty without a contract.
std::string brief_of(const Dictionary &dictionary, Dictionary::Kind kind, const std::string &name,
                     const std::string &value = "") {
    Json said = dictionary.said(kind, name);
    if (said.is_object() && !value.empty()) said = said["values"].value(value, Json());
    return said.is_object() ? said.value("brief", "") : "";
}

std::string line_of(const std::string &text) { return text.empty() ? "" : text + "\n"; }

std::string enumerators(const Dictionary &dictionary, const Enum &values) {
    std::string text;
    for (const Enumerator &value : values.values) {
        text += "  " + value.name + " = " + std::to_string(value.number) +
                (value.base.empty() ? "" : "  (" + value.base + " + " + std::to_string(value.listed) + ")");
        const std::string brief = brief_of(dictionary, Dictionary::said_of_enums, values.type, value.name);
        text += (brief.empty() ? "" : "  " + brief) + "\n";
    }
    return text;
}

const char *direction_of(const Parameter &parameter) {
    switch (parameter.said.direction) {
        case Direction::in: return "in";
        case Direction::out: return "out";
        case Direction::inout: return "in and out";
        case Direction::unknown: break;
    }
    return "";
}

std::string of_contract(Context &context, const Method &method) {
    const MethodContract &contract = *method.contract;
    std::string text = context.output().paint("1", method.prototype()) + "\n" + contract.brief + "\n";
    if (!contract.documentation.empty()) text += "\n" + contract.documentation + "\n";
    text += "\nEffect: " + contract.effect + (contract.clears_if.empty() ? "" : " if " + contract.clears_if) + "\n";
    for (const Parameter &parameter : method.parameters) {
        const Length &length = parameter.said.length;
        std::string how = direction_of(parameter);
        if (!length.argument.empty() || length.count > 1) how += ", [" + length.said() + "]";
        if (!length.filled.empty()) how += ", *" + length.filled + " filled";
        const std::string branches = branch(parameter.name, *context.types().parameter(parameter), 2);
        const std::size_t end = branches.find('\n');
        text += "\n" + branches.substr(0, end) + "  (" + how + ")\n" +
                line_of(parameter.said.brief.empty() ? "" : "      " + parameter.said.brief) + branches.substr(end + 1);
    }
    return text + (contract.result.empty() ? "" : "\nReturns: " + contract.result + "\n");
}

std::string of_method(Context &context, const Method &method) {
    if (method.contract) return of_contract(context, method);
    const Output output = context.output();
    std::string text = output.paint("1", method.prototype()) + "\n";
    for (const Parameter &parameter : method.parameters) {
        const TypePtr type = context.types().parameter(parameter);
        const auto told = method.told(parameter.name);
        text += "\n" + branch(parameter.name, *type, 2);
        if (is_output(method, parameter)) text.insert(text.size() - 1, parameter.is_udt ? "" : "  (output)");
        if (told && !told->text.empty()) text += "      " + told->text + "\n";
    }
    return text +
           (method.help.find('\n') == std::string::npos && method.is_described() ? "" : "\n" + method.help + "\n");
}

const char *kind_of(const Type &type) {
    switch (type.kind) {
        case Type::integer: return "integer";
        case Type::enumeration: return "enum";
        case Type::text: return "text";
        case Type::array: return "array";
        case Type::structure: return "struct";
        case Type::flags:
        case Type::mask: return "flags";
        case Type::overlay: return "overlay";
        case Type::mac: return "mac";
        case Type::ipv4: return "ipv4";
        case Type::ipv6: return "ipv6";
    }
    return "";
}

// A type for programs: "kind", and what such a type has.
Json json_of(const Type &type) {
    Json json{{"kind", kind_of(type)}};
    if (!type.name.empty()) json["type"] = type.name;
    if (type.meaning.range) json["range"] = {type.meaning.range->first, type.meaning.range->second};
    if (!type.meaning.also.empty()) json["or"] = type.meaning.also;
    if (!type.meaning.unit.empty()) json["unit"] = type.meaning.unit;
    if (!type.meaning.id.empty()) json["id"] = type.meaning.id;
    if (!type.held.empty()) json["held"] = type.held, json["bits_of"] = type.meaning.is_bits;
    if (type.kind == Type::integer) json["bits"] = type.width, json["signed"] = type.is_signed;
    if (type.bound) json["bound"] = type.bound;
    if (type.kind == Type::array) json["element"] = json_of(*type.element);
    const Type &shown = type.kind == Type::mask ? *type.members[0].type : type;
    if (shown.kind == Type::flags) json["flags"] = shown.member_names();
    if (type.kind == Type::overlay) {
        json["selector"] = type.selector.empty() ? Json() : Json(type.selector);
        json["selected"] = Json::array();
        for (const auto &[number, alternative] : type.selected)
            json["selected"].push_back({{"number", number}, {"alternative", alternative}});
    }
    if (type.kind != Type::structure && type.kind != Type::overlay) return json;
    Json &members = json[type.kind == Type::overlay ? "alternatives" : "members"] = Json::array();
    for (const Member &member : type.members) {
        Json entry{{"name", member.name}};
        if (!member.brief.empty()) entry["brief"] = member.brief;
        entry.update(json_of(*member.type));
        members.push_back(entry);
    }
    return json;
}

Json json_of(Context &context, const Method &method) {
    Json json{{"kind", "method"},
              {"name", context.dictionary().full_name(method.name)},
              {"prototype", method.prototype()},
              {"title", method.title()},
              {"help", method.help},
              {"result", method.result},
              {"effect", method.contract ? Json(method.contract->effect) : Json()},
              {"arguments", Json::array()}};
    for (const Parameter &parameter : method.parameters) {
        const auto told = method.told(parameter.name);
        json["arguments"].push_back({{"name", parameter.name},
                                     {"declared", parameter.type},
                                     {"output", is_output(method, parameter)},
                                     {"direction", direction_of(parameter)},
                                     {"length", method.contract ? Json(parameter.said.length.said()) : Json()},
                                     {"help", method.contract ? parameter.said.brief
                                              : told          ? told->text
                                                              : ""},
                                     {"value", json_of(*context.types().parameter(parameter))}});
    }
    return json;
}

Json json_of(const Enum &values) {
    Json json{{"kind", "enum"}, {"name", values.type}, {"enumerators", Json::array()}};
    for (const Enumerator &value : values.values) {
        Json entry{{"name", value.name}, {"number", value.number}};
        if (!value.base.empty()) entry["base"] = value.base, entry["offset"] = value.listed;
        json["enumerators"].push_back(entry);
    }
    return json;
}

// The same as `describe`, for programs. Null if there is nothing of the name.
Json described(Context &context, const std::string &name) {
    const Dictionary &dictionary = context.dictionary();
    if (const std::optional<Method> method = dictionary.method(name)) return json_of(context, *method);
    if (dictionary.has(Dictionary::udts, name)) {
        Json json = json_of(*context.types().udt(name));
        json["name"] = name;
        return json;
    }
    if (const Enum *values = dictionary.enumeration(name)) return json_of(*values);
    if (const auto text = dictionary.define(name)) {
        const std::optional<int64_t> number = dictionary.define_number(name);
        return {{"kind", "define"}, {"name", name}, {"value", *text}, {"number", number ? Json(*number) : Json()}};
    }
    if (dictionary.behind(name)) return {{"kind", "typedef"}, {"name", name}, {"behind", dictionary.chain(name)}};
    if (const Enum *values = dictionary.enum_of(name))
        return {{"kind", "enumerator"}, {"name", name}, {"of", values->type}, {"number", values->named(name)->number}};
    return {};
}

std::string describe(Context &context, const std::string &typed) {
    const Dictionary &dictionary = context.dictionary();
    const Output output = context.output();
    const std::string name = dictionary.bare_name(typed);
    if (context.json)
        if (const Json json = described(context, name); !json.is_null()) return json_text(json, 2) + "\n";
    if (const std::optional<Method> method = dictionary.method(name)) return of_method(context, *method);
    if (dictionary.has(Dictionary::udts, name))
        return output.paint("1", "struct " + name) + "\n" +
               line_of(brief_of(dictionary, Dictionary::said_of_structs, name)) + tree(*context.types().udt(name), 2);
    if (const Enum *values = dictionary.enumeration(name))
        return output.paint("1", "enum " + name) + "\n" +
               line_of(brief_of(dictionary, Dictionary::said_of_enums, name)) + enumerators(dictionary, *values);
    if (const auto text = dictionary.define(name)) return "#define " + name + " " + *text + "\n";
    if (dictionary.behind(name)) {
        std::string text = "typedef " + name;
        for (const std::string &base : dictionary.chain(name)) text.append(" = ").append(base);
        return text + "\n" + line_of(brief_of(dictionary, Dictionary::said_of_typedefs, name));
    }
    if (const Enum *values = dictionary.enum_of(name))
        return output.paint("1", name) + " = " + std::to_string(values->named(name)->number) + ", of enum " +
               values->type + "\n" + line_of(brief_of(dictionary, Dictionary::said_of_enums, values->type, name));
    std::vector<std::string> names;
    for (const auto kind :
         {Dictionary::methods, Dictionary::udts, Dictionary::enums, Dictionary::defines, Dictionary::typedefs})
        for (const std::string &each : dictionary.names(kind)) names.push_back(each);
    throw UsageError("nothing is called " + typed + did_you_mean(name, names));
}

}  // namespace

void set_up_describe(CLI::App &command, Context &context) {
    const auto name = std::make_shared<std::string>();
    command.add_option("NAME", *name, "Of a method, struct, enum, enumerator, define or typedef")->required();
    command.callback([&context, name] { print(describe(context, *name)); });
}

}  // namespace lmqctl
