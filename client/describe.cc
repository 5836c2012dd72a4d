// lmqctl describe: one entry of the dictionary, whatever kind it is of.
#include "arguments.h"
#include "command.h"
#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

std::string tree(const Type &type, unsigned indent);

std::string branch(const std::string &name, const Type &type, unsigned indent) {
    const Type &inner = (type.kind == Type::array) ? *type.element : type;
    std::string declared = type.declared();
    if (type.kind == Type::mac) declared = "MAC address";
    if (type.kind == Type::ipv4) declared += " (IPv4 address)";
    if (type.kind == Type::ipv6) declared += " (IPv6 address)";
    if (type.kind == Type::overlay && !type.selector.empty()) declared += ", by " + type.selector;
    std::string line = std::string(indent, ' ') + name;
    line += std::string(line.size() < 28 ? 28 - line.size() : 1, ' ') + declared + "\n";
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
    for (const Member &member : shown.members) text += branch(member.name, *member.type, indent);
    return text;
}

std::string enumerators(const Enum &values) {
    std::string text;
    for (const Enumerator &value : values.values)
        text += "  " + value.name + " = " + std::to_string(value.number) +
                (value.base.empty() ? "" : "  (" + value.base + " + " + std::to_string(value.told) + ")") + "\n";
    return text;
}

std::string of_method(Context &context, const Method &method) {
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

std::string describe(Context &context, const std::string &typed) {
    const Dictionary &dictionary = context.dictionary();
    const Output output = context.output();
    const std::string name = dictionary.bare_name(typed);
    if (const std::optional<Method> method = dictionary.method(name)) return of_method(context, *method);
    if (dictionary.has(Dictionary::udts, name))
        return output.paint("1", "struct " + name) + "\n" + tree(*context.types().udt(name), 2);
    if (const Enum *values = dictionary.enumeration(name))
        return output.paint("1", "enum " + name) + "\n" + enumerators(*values);
    if (const auto text = dictionary.define(name)) return "#define " + name + " " + *text + "\n";
    if (auto base = dictionary.behind(name)) {
        std::string text = "typedef " + name + " = " + *base;
        while ((base = dictionary.behind(*base))) text += " = " + *base;
        return text + "\n";
    }
    if (const Enum *values = dictionary.enum_of(name))
        return output.paint("1", name) + " = " + std::to_string(values->named(name)->number) + ", of enum " +
               values->type + "\n";
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
    command.callback([&context, name] {
        const std::string text = describe(context, *name);
        print(context.json ? Json{{"name", *name}, {"text", text}}.dump(2) + "\n" : text);
    });
}

}  // namespace lmqctl
