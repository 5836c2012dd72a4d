// lmqctl search and lmqctl uses: where a word occurs, and who takes or holds a type.
#include <algorithm>
#include <functional>

#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

struct Hit {
    const char *kind;
    std::string name, where;
};

void show(Context &context, const std::vector<Hit> &hits) {
    const Output output = context.output();
    Json json = Json::array();
    for (const Hit &hit : hits) {
        json.push_back({{"kind", hit.kind}, {"name", hit.name}, {"where", hit.where}});
        if (!context.json)
            print(std::string(hit.kind) + std::string(10 - std::string(hit.kind).size(), ' ') +
                  output.paint("1", hit.name) + (hit.where.empty() ? "" : "  " + hit.where) + "\n");
    }
    if (context.json) print(json_text(json, 2) + "\n");
}

// The first sentence in an entry of the contract that fits.
std::string sentence_in(const Json &said, const std::function<bool(const std::string &)> &fits) {
    if (!said.is_structured()) return "";
    for (const auto &[key, inside] : said.items()) {
        const bool is_sentence = said.is_object() && inside.is_string() && (key == "brief" || key == "documentation");
        if (is_sentence && fits(inside)) return inside;
        if (std::string found = sentence_in(inside, fits); !found.empty()) return found;
    }
    return "";
}

void search(Context &context, const std::string &word) {
    const Dictionary &dictionary = context.dictionary();
    const std::string wanted = lower(word);
    const auto holds = [&](const std::string &text) { return lower(text).find(wanted) != std::string::npos; };
    std::vector<Hit> hits;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const Method method = *dictionary.method(name);
        std::string where;
        if (!holds(name)) {
            for (const std::string &line : split(method.help, '\n'))
                if (where.empty() && holds(line))
                    where = line.substr(std::min(line.find_first_not_of(' '), line.size()));
            if (method.contract) where = sentence_in(dictionary.said(Dictionary::said_of_methods, name), holds);
            for (const Parameter &parameter : method.parameters)
                if (where.empty() && holds(parameter.name)) where = parameter.type + " " + parameter.name;
        } else {
            where = method.title();
        }
        if (holds(name) || !where.empty()) hits.push_back({"method", name, where});
    }
    for (const std::string &name : dictionary.names(Dictionary::udts)) {
        std::string where;
        const Json told = *dictionary.udt(name);
        for (const Json &member : told["members"])
            if (holds(member["name"])) where += (where.empty() ? "" : ", ") + member["name"].get<std::string>();
        // Keys of structs without a name stand in the prototype alone.
        const bool is_inside = where.empty() && holds(shape(told["prototype"]));
        if (where.empty() && !is_inside) where = sentence_in(dictionary.said(Dictionary::said_of_structs, name), holds);
        if (holds(name) || !where.empty() || is_inside)
            hits.push_back({"struct", name, is_inside ? "(inside)" : where});
    }
    for (const std::string &name : dictionary.names(Dictionary::enums)) {
        std::string where;
        for (const Enumerator &value : dictionary.enumeration(name)->values)
            if (holds(value.name)) where += (where.empty() ? "" : ", ") + value.name;
        if (where.empty()) where = sentence_in(dictionary.said(Dictionary::said_of_enums, name), holds);
        if (holds(name) || !where.empty()) hits.push_back({"enum", name, where});
    }
    for (const std::string &name : dictionary.names(Dictionary::defines))
        if (holds(name)) hits.push_back({"define", name, *dictionary.define(name)});
    for (const std::string &name : dictionary.names(Dictionary::typedefs))
        if (holds(name)) hits.push_back({"typedef", name, *dictionary.behind(name)});
    if (hits.empty()) throw UsageError("nothing has " + word + " in it");
    show(context, hits);
}

// Where a type stands inside another, as a path; the named types it holds are not entered.
void find_inside(const Type &type, const std::string &wanted, const std::string &path,
                 std::vector<std::string> &found) {
    for (const Member &member : type.members) {
        const Type *inner = member.type.get();
        while (inner->element) inner = inner->element.get();
        const std::string at = path.empty() ? member.name : path + "." + member.name;
        if (inner->name == wanted)
            found.push_back(at);
        else if (inner->name.empty() || inner->kind == Type::overlay)
            find_inside(*inner, wanted, at, found);
    }
}

void uses(Context &context, const std::string &typed) {
    const Dictionary &dictionary = context.dictionary();
    const std::string type = dictionary.bare_name(typed);
    const bool is_known = dictionary.has(Dictionary::udts, type) || dictionary.has(Dictionary::enums, type) ||
                          dictionary.has(Dictionary::typedefs, type);
    std::vector<Hit> hits;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const Method method = *dictionary.method(name);
        if (method.result == type) hits.push_back({"method", name, "returns it"});
        for (const Parameter &parameter : method.parameters)
            if (parameter.pointee() == type) hits.push_back({"method", name, parameter.name});
    }
    for (const std::string &name : dictionary.names(Dictionary::udts)) {
        std::vector<std::string> found;
        find_inside(*context.types().udt(name), type, "", found);
        for (const std::string &path : found) hits.push_back({"struct", name, path});
    }
    for (const std::string &name : dictionary.names(Dictionary::typedefs))
        if (dictionary.behind(name) == type) hits.push_back({"typedef", name, ""});
    if (hits.empty() && !is_known) {
        std::vector<std::string> names;
        for (const auto kind : {Dictionary::udts, Dictionary::enums, Dictionary::typedefs})
            for (const std::string &name : dictionary.names(kind)) names.push_back(name);
        throw UsageError("no type is called " + typed + did_you_mean(type, names));
    }
    show(context, hits);
}

void set_up(CLI::App &command, Context &context, const char *name, const char *help,
            void (*run)(Context &, const std::string &)) {
    const auto word = std::make_shared<std::string>();
    command.add_option(name, *word, help)->required();
    command.callback([&context, word, run] { run(context, *word); });
}

}  // namespace

void set_up_search(CLI::App &command, Context &context) {
    set_up(command, context, "WORD", "Part of a name or a text; capitals do not matter", search);
}

void set_up_uses(CLI::App &command, Context &context) {
    set_up(command, context, "TYPE", "A struct, an enum or a typedef", uses);
}

}  // namespace lmqctl
