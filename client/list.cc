// lmqctl list: the methods by families; of a host without a contract, in groups by their first words.
#include <algorithm>
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

// What no contract speaks of: the namespace's own methods stand together.
std::string family_of(const Dictionary &dictionary, const Method &method) {
    if (method.contract) return method.contract->family;
    if (!dictionary.has_contract() || method.name.find_first_of("_.") != std::string::npos)
        return group_of(method.name);
    const std::string &prefix = dictionary.prefix();
    return prefix.substr(0, prefix.find('.'));
}

// Methods under the names of their groups, in the host's order.
struct Groups {
    std::vector<std::string> order;
    std::map<std::string, std::vector<Method>> methods;
};

Groups grouped(const Dictionary &dictionary, const std::string &pattern) {
    Groups groups;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const Method method = *dictionary.method(name);
        const std::string group = family_of(dictionary, method);
        if (!pattern.empty() && pattern != group && !glob(pattern, name) && !glob(pattern, dictionary.full_name(name)))
            continue;
        if (!groups.methods.contains(group)) groups.order.push_back(group);
        groups.methods[group].push_back(method);
    }
    return groups;
}

void list_families(Context &context, Groups &groups) {
    Json json = Json::array();
    std::string text;
    for (const std::string &group : groups.order) {
        const std::size_t count = groups.methods[group].size();
        json.push_back({{"family", group}, {"methods", count}});
        std::string line = group;
        line.resize(std::max<std::size_t>(line.size() + 1, 24), ' ');
        text += line + std::to_string(count) + (count == 1 ? " method\n" : " methods\n");
    }
    print(context.json ? json_text(json, 2) + "\n" : text);
}

void list(Context &context, const std::string &pattern, bool families) {
    const Dictionary &dictionary = context.dictionary();
    const Output output = context.output();
    Groups all = grouped(dictionary, pattern);
    std::map<std::string, std::vector<Method>> &groups = all.methods;
    const std::vector<std::string> &order = all.order;
    if (groups.empty()) {
        std::vector<std::string> names = grouped(dictionary, "").order;
        for (const std::string &name : dictionary.names(Dictionary::methods)) names.push_back(name);
        throw UsageError("no method matches " + pattern +
                         (pattern.find_first_of("*?") == std::string::npos ? did_you_mean(pattern, names) : ""));
    }
    if (families) return list_families(context, all);
    if (context.json) {
        Json json = Json::array();
        for (const std::string &group : order)
            for (const Method &method : groups[group])
                json.push_back({{"name", dictionary.full_name(method.name)},
                                {"group", group_of(method.name)},
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
    const auto families = std::make_shared<bool>(false);
    command.add_option("GLOB|FAMILY", *pattern, "A pattern with * and ?, or the name of a family");
    command.add_flag("--families", *families, "The families alone");
    command.callback([&context, pattern, families] { list(context, *pattern, *families); });
}

}  // namespace lmqctl
