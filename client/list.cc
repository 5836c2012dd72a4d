// lmqctl list: the methods, in groups by their first words.
#include <map>

#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

// The group of a name: its first two words.
std::string group_of(const std::string &name) {
    const std::size_t first = name.find_first_of("_.");
    const std::size_t second = first == std::string::npos ? first : name.find('_', first + 1);
    return name.substr(0, name[first == std::string::npos ? 0 : first] == '.' ? first : second);
}

void list(Context &context, const std::string &pattern) {
    const Dictionary &dictionary = context.dictionary();
    const Output output = context.output();
    std::vector<std::string> order;
    std::map<std::string, std::vector<Method>> groups;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        if (!pattern.empty() && !glob(pattern, name) && !glob(pattern, dictionary.full_name(name))) continue;
        const std::string group = group_of(name);
        if (!groups.contains(group)) order.push_back(group);
        groups[group].push_back(*dictionary.method(name));
    }
    if (groups.empty())
        throw UsageError("no method matches " + pattern +
                         (pattern.find_first_of("*?") == std::string::npos
                              ? did_you_mean(pattern, dictionary.names(Dictionary::methods))
                              : ""));
    if (context.json) {
        Json json = Json::array();
        for (const std::string &group : order)
            for (const Method &method : groups[group])
                json.push_back({{"name", dictionary.full_name(method.name)},
                                {"group", group},
                                {"prototype", method.prototype()},
                                {"title", method.title()},
                                {"family", method.contract ? Json(method.contract->family) : Json()},
                                {"effect", method.contract ? Json(method.contract->effect) : Json()}});
        print(json_text(json, 2) + "\n");
        return;
    }
    for (const std::string &group : order) {
        print((group == order.front() ? "" : "\n") + output.paint("1", group) + "\n");
        for (const Method &method : groups[group]) {
            print("  " + method.prototype() + "\n");
            if (!method.title().empty()) print("      " + method.title() + "\n");
        }
    }
}

}  // namespace

void set_up_list(CLI::App &command, Context &context) {
    const auto pattern = std::make_shared<std::string>();
    command.add_option("GLOB", *pattern, "A pattern with * and ?");
    command.callback([&context, pattern] { list(context, *pattern); });
}

}  // namespace lmqctl
