// lmqctl explain: everything that a number or a name can mean.
#include <cstdio>

#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

void add(Json &meanings, const Enum &values, const Enumerator &value) {
    Json meaning{{"kind", "enumerator"}, {"name", value.name}, {"of", values.type}, {"number", value.number}};
    if (!value.base.empty()) {
        meaning["base"] = value.base;
        meaning["offset"] = value.listed;
    }
    meanings.push_back(meaning);
}

void explain(Context &context, const std::string &typed) {
    const Dictionary &dictionary = context.dictionary();
    const std::optional<int64_t> number = lmqctl::number(typed);
    Json meanings = Json::array();
    std::vector<std::string> names;
    for (const std::string &type : dictionary.names(Dictionary::enums)) {
        const Enum &values = *dictionary.enumeration(type);
        for (const Enumerator &value : values.values) {
            names.push_back(value.name);
            // The wire's ints are signed: 0xffffffff may come as -1.
            const bool same = number && (value.number == *number || static_cast<int32_t>(*number) == value.number);
            if (number ? same : value.name == typed) add(meanings, values, value);
        }
    }
    for (const std::string &name : dictionary.names(Dictionary::defines)) {
        names.push_back(name);
        const std::optional<int64_t> value = dictionary.define_number(name);
        if (number ? value == number : name == typed)
            meanings.push_back({{"kind", "define"},
                                {"name", name},
                                {"of", *dictionary.define(name)},
                                {"number", value ? Json(*value) : Json()}});
    }
    if (meanings.empty())
        throw UsageError(number ? "no enumerator and no define is " + typed
                                : "no enumerator and no define is called " + typed + did_you_mean(typed, names));
    if (context.json) {
        print(json_text(meanings, 2) + "\n");
        return;
    }
    const Output output = context.output();
    for (const Json &meaning : meanings) {
        std::string line = output.paint("1", meaning["name"]);
        if (meaning["number"].is_number()) {
            char text[48];
            const long long value = meaning["number"].get<int64_t>();
            std::snprintf(text, sizeof text, value < 0 ? " = %lld" : " = %lld (0x%llx)", value, value);
            line += text;
        }
        line += meaning["kind"] == "define" ? ", a define: " : ", of ";
        line += meaning["of"].get<std::string>();
        if (meaning.contains("base"))
            line +=
                ": " + meaning["base"].get<std::string>() + " + " + std::to_string(meaning["offset"].get<int64_t>());
        print(line + "\n");
    }
}

}  // namespace

void set_up_explain(CLI::App &command, Context &context) {
    const auto word = std::make_shared<std::string>();
    command.add_option("NUMBER|NAME", *word, "A number as it was answered, or a name")->required();
    command.callback([&context, word] { explain(context, *word); });
}

}  // namespace lmqctl
