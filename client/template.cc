// lmqctl template: the inputs of a method with zeros, as `call` takes them. The flags of valid masks are not among
// them: `call` sets them for the members that are left in the text, and zeros there would make an edit vain.
#include <algorithm>

#include "arguments.h"
#include "command.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

// An enumerator by its name; a number that is in range. What alternatives hold is 0, which says that they are not
// meant.
Json plain_number(const Dictionary &dictionary, const Type &type, bool is_alternative) {
    if (is_alternative) return 0;
    const int64_t value =
        type.meaning.range ? std::clamp<int64_t>(0, type.meaning.range->first, type.meaning.range->second) : 0;
    const Enum *values = type.kind == Type::enumeration ? dictionary.enumeration(type.name) : nullptr;
    const Enumerator *named = values ? values->numbered(value) : nullptr;
    return named ? Json(named->name) : Json(value);
}

Json zeros(const Dictionary &dictionary, const Type &type, bool is_alternative = false) {
    const auto inside = [&](const Type &inner) {
        return zeros(dictionary, inner, is_alternative || type.kind == Type::overlay);
    };
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration: return plain_number(dictionary, type, is_alternative);
        case Type::text: return "";
        case Type::mac: return "00:00:00:00:00:00";
        case Type::ipv4: return "0.0.0.0";
        case Type::ipv6: return "::";
        case Type::array: return Json(type.bound ? type.bound : 1, inside(*type.element));
        case Type::mask: return Json{{type.members[0].name, inside(*type.members[0].type)}};
        default: break;
    }
    Json value = Json::object();
    for (const Member &member : type.members)
        if (!is_valid_mask(type, member)) value[member.name] = inside(*member.type);
    return value;
}

// A count that `call` takes from the array it is of, or from the room that it makes.
bool is_filled_in(const Method &method, const Parameter &count) {
    return std::any_of(method.parameters.begin(), method.parameters.end(), [&](const Parameter &list) {
        return list.said.length.argument == count.name &&
               (list.said.direction == Direction::in || !list.said.length.filled.empty());
    });
}

}  // namespace

void set_up_template(CLI::App &command, Context &context) {
    const auto name = std::make_shared<std::string>();
    command.add_option("METHOD", *name, "Its name, with or without the namespace")->required();
    command.footer(
        command.get_footer() +
        "\n  lmqctl call METHOD @args.json\n"
        "Delete the members that are to stay as they are: the flags of valid masks are set for those that are\n"
        "given. Of alternatives in one place, those that are all zeros are not sent.");
    command.callback([&context, name] {
        const Method method = context.dictionary_for(*name).method_or_throw(*name);
        Json json = Json::object();
        for (const Parameter &parameter : method.parameters) {
            if (parameter.said.direction == Direction::out || is_filled_in(method, parameter)) continue;
            const TypePtr type = context.types().parameter(parameter);
            const std::size_t count = parameter.said.length.count;
            const Json value = zeros(context.dictionary(), *type);
            json[parameter.name] = count > 1 && type->kind != Type::mac
                                       ? Json(count, value.is_array() && !value.empty() ? value[0] : value)
                                       : value;
        }
        print(json_text(json, 2) + "\n");
    });
}

}  // namespace lmqctl
