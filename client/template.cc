// lmqctl template: the arguments of a method with zeros, as `call` takes them. The flags of valid masks are not among
// them: `call` sets them for the members that are left in the text, and zeros there would make an edit vain.
#include "arguments.h"
#include "command.h"

namespace lmqctl {

namespace {

Json zeros(const Type &type) {
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration: return 0;
        case Type::text: return "";
        case Type::mac: return "00:00:00:00:00:00";
        case Type::ipv4: return "0.0.0.0";
        case Type::ipv6: return "::";
        case Type::array: return Json(type.bound ? type.bound : 1, zeros(*type.element));
        case Type::mask: return Json{{type.members[0].name, zeros(*type.members[0].type)}};
        default: break;
    }
    Json value = Json::object();
    for (const Member &member : type.members)
        if (!is_valid_mask(type, member)) value[member.name] = zeros(*member.type);
    return value;
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
        for (const Parameter &parameter : method.parameters)
            json[parameter.name] = zeros(*context.types().parameter(parameter));
        print(json.dump(2) + "\n");
    });
}

}  // namespace lmqctl
