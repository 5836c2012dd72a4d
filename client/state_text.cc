// States as text: lines that batch takes too, and what a difference calls them.
#include <algorithm>

#include "error.h"
#include "state.h"
#include "symbol.h"

namespace lmqctl {

namespace {

constexpr std::size_t widest_comment = 110;

std::string quoted_word(const std::string &text) {
    if (text.find_first_of(" \t'\"\\#{}[]|") == std::string::npos && !text.empty()) return text;
    std::string result = "'";
    for (const char letter : text) result += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return result + "'";
}

std::string with_dollars(const std::string &text) {
    std::string result;
    for (const char letter : text) result += letter == '$' ? std::string("$$") : std::string(1, letter);
    return result;
}

// JSON with $NAME in the places of symbols, as batch takes it.
std::string text_with_names(const Json &value) {
    if (const auto name = symbol_name(value)) return "$" + *name;
    if (!value.is_structured()) return with_dollars(json_text(value));
    std::string text;
    for (const auto &[key, inside] : value.items())
        text += (text.empty() ? "" : ",") + (value.is_object() ? json_text(Json(key)) + ":" : std::string()) +
                text_with_names(inside);
    return value.is_object() ? "{" + text + "}" : "[" + text + "]";
}

std::string word_of(const Json &value) {
    if (const auto name = symbol_name(value)) return "$" + *name;
    return quoted_word(value.is_string() ? with_dollars(value.get<std::string>()) : text_with_names(value));
}

// For people, without the sign of a symbol.
std::string shown_id(const Json &value) {
    const auto name = symbol_name(value);
    return name ? *name : value.is_string() ? value.get<std::string>() : json_text(value);
}

// Whether a change replaces an argument.
bool may_change(const std::optional<Way> &change, const std::string &argument) {
    return change && std::find(change->keys.begin(), change->keys.end(), argument) == change->keys.end() &&
           std::any_of(change->arguments.begin(), change->arguments.end(),
                       [&](const Json &source) { return source == argument; });
}

// What changes something and cannot be read back. Much of that clears or sends, and leaves nothing to be read.
std::string what_is_missing(Context &context, const Makers &makers) {
    const Dictionary &dictionary = context.dictionary();
    const std::map<std::string, Setting> settings = settings_of(context, makers);
    std::string text = "\n# Nothing reads back what these methods do, so that it is not in here:", line;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const Method method = dictionary.method_or_throw(name);
        if (!method.contract || method.contract->effect != "changes" || settings.contains(name) ||
            makers.concerns(name))
            continue;
        if (line.empty() || line.size() + name.size() > widest_comment) {
            text += line;
            line = "\n#";
        }
        line += " " + name;
    }
    return text + line + "\n";
}

}  // namespace

std::string call_line(const std::string &method, const Json &arguments) {
    std::string line = method;
    for (const auto &[name, value] : arguments.items()) line += " " + name + "=" + word_of(value);
    return line;
}

std::string setting_line(Context &context, const Settings::value_type &setting) {
    const Method method = context.dictionary().method_or_throw(setting.first.first);
    Json arguments = Json::object();
    for (std::size_t i = 0; i < setting.first.second.size(); ++i)
        arguments[method.parameters[i].name] = setting.first.second[i];
    arguments.update(setting.second);
    return call_line(method.name, arguments);
}

std::string thing_line(const Makers &makers, const Thing &thing) {
    const std::string line = call_line(thing.maker, thing.arguments);
    if (thing.name.empty()) return line;
    return line + " -> " + Makers::output_of(*makers.find(thing.maker))->name + " as " + thing.name;
}

std::string thing_call(const Makers &makers, const Thing &thing) {
    std::string text;
    for (const auto &[name, value] : thing.arguments.items())
        if (!value.is_structured() && !may_change(makers.find(thing.maker)->contract->changed_by, name))
            text += (text.empty() ? "" : ", ") + shown_id(value);
    if (!thing.name.empty()) text += (text.empty() ? "" : ", ") + thing.name;
    return thing.maker + "(" + text + ")";
}

std::string state_text(Context &context, const State &state, bool is_whole) {
    const Makers makers(context);
    std::string text =
        "# What a chip is told to be. \"lmqctl diff FILE\" shows what differs on a chip, \"lmqctl apply FILE\" makes\n"
        "# it so. \"all METHOD\" says that the lines with METHOD are all that there is to be: apply deletes what else\n"
        "# it has made.\n";
    for (const Method &maker : makers.all()) {
        std::string lines = state.complete.contains(maker.name) ? "all " + maker.name + "\n" : "";
        for (const Thing &thing : state.things)
            if (thing.maker == maker.name) lines += thing_line(makers, thing) + "\n";
        if (!lines.empty()) text += "\n# " + maker.contract->brief + "\n" + lines;
    }
    std::string last;
    for (const Settings::value_type &setting : state.settings) {
        const std::string &name = setting.first.first;
        if (name != last) text += "\n# " + context.dictionary().method_or_throw(name).contract->brief + "\n";
        last = name;
        text += setting_line(context, setting) + "\n";
    }
    return is_whole ? text + what_is_missing(context, makers) : text;
}

Json state_answers(const Makers &makers, const State &state) {
    Json answers = Json::object();
    for (const Thing &thing : state.things) {
        Json others = Json::object();
        for (const auto &[name, value] : thing.arguments.items())
            if (value.is_structured() || may_change(makers.find(thing.maker)->contract->changed_by, name))
                others[name] = value;
        const std::string number = thing.number ? " #" + std::to_string(thing.number + 1) : "";
        answers[thing_call(makers, thing) + number] = {{"success", true}, {"arguments", others}};
    }
    for (const auto &[key, values] : state.settings) {
        std::string call = key.first + "(";
        for (const Json &id : key.second) call += (call.ends_with('(') ? "" : ", ") + shown_id(id);
        answers[call + ")"] = {{"success", true}, {"arguments", values}};
    }
    return answers;
}

}  // namespace lmqctl
