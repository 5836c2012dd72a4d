// Settings found by the contract, read, written as text and read back.
#include "state.h"

#include <algorithm>

#include "answer.h"
#include "arguments.h"
#include "error.h"
#include "file.h"
#include "words.h"

namespace lmqctl {

namespace {

// The method that reads what another sets, by its name; empty if it cannot be one that sets.
std::string getter_of(const std::string &setter) {
    if (setter.ends_with("_set")) return setter.substr(0, setter.size() - 4) + "_get";
    if (setter.starts_with("lmq_set_")) return "lmq_get_" + setter.substr(8);
    return "";
}

// A range that is wider numbers things of which few are there, such as GEM ports.
constexpr int64_t most_ids = 64;

// Whether all ids of a kind are known beforehand: things that are made and deleted are no settings.
bool is_fixed(const Dictionary &dictionary, const Parameter &id) {
    const Meaning &meaning = id.said.meaning;
    if (id.is_pointer()) return false;
    if (meaning.id.empty()) return meaning.range || !meaning.enumeration.empty();
    const Json kind = dictionary.said(Dictionary::ids, meaning.id);
    if (!meaning.range && !kind.contains("range")) return false;
    const int64_t first = meaning.range ? meaning.range->first : kind["range"][0].get<int64_t>();
    const int64_t last = meaning.range ? meaning.range->second : kind["range"][1].get<int64_t>();
    return first >= 0 && last - first < most_ids;
}

bool reads_what_it_sets(const Dictionary &dictionary, Setting &setting) {
    const std::vector<Parameter> &set = setting.setter.parameters, &get = setting.getter.parameters;
    if (set.size() != get.size()) return false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const ArgumentContract &read = get[i].said;
        if (set[i].said.direction != Direction::in || set[i].said.type != read.type) return false;
        if (read.direction == Direction::in) {
            if (setting.ids != i || !is_fixed(dictionary, set[i])) return false;
            ++setting.ids;
        } else if (read.direction != Direction::out || !read.length.argument.empty() || !read.length.filled.empty() ||
                   (set[i].is_pointer() && set[i].said.length.count != read.length.count)) {
            return false;
        }
    }
    return setting.ids < set.size();
}

// A value without the flags that say which of its members count.
Json without_flags(const Type &type, const Json &value) {
    if (!value.is_structured()) return value;
    Json kept = value.is_array() ? Json::array() : Json::object();
    for (const auto &[key, inside] : value.items()) {
        if (value.is_array()) {
            kept.push_back(without_flags(type.element ? *type.element : type, inside));
            continue;
        }
        const Member *member = type.member(key);
        if (!member || !is_valid_mask(type, *member))
            kept[key] = member ? without_flags(*member->type, inside) : inside;
    }
    return kept;
}

Json as_set(Context &context, const Parameter &parameter, const Json &value) {
    const TypePtr type = context.types().parameter(parameter);
    // One element behind a pointer comes as a list of one, unless it is a struct.
    const bool is_one = parameter.said.length.count == 1 && value.is_array() && value.size() == 1;
    const Json &held = is_one ? value[0] : value;
    return without_flags(*type, comparable(context, *type, held));
}

std::vector<int64_t> ids_of(const Setting &setting, const Json &parameters) {
    std::vector<int64_t> ids;
    for (std::size_t i = 0; i < setting.ids; ++i) ids.push_back(parameters[i].get<int64_t>());
    return ids;
}

std::string quoted(const std::string &text) {
    if (text.find_first_of(" \t'\"\\#{}[]|") == std::string::npos && !text.empty()) return text;
    std::string result = "'";
    for (const char letter : text) result += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    return result + "'";
}

void add_line(Context &context, const std::map<std::string, Setting> &settings, const std::vector<std::string> &words,
              State &to) {
    const Method method = context.dictionary().method_or_throw(words[0]);
    const auto found = settings.find(method.name);
    if (found == settings.end()) throw UsageError(method.name + " is no setting: nothing reads what it sets");
    ArgumentOptions options;
    options.force = true;
    const Json sent =
        build_arguments(context.dictionary(), context.types(), method, {words.begin() + 1, words.end()}, options);
    Json values = Json::object();
    for (std::size_t i = found->second.ids; i < sent.size(); ++i)
        values[method.parameters[i].name] = as_set(context, method.parameters[i], sent[i]);
    if (!to.emplace(std::make_pair(method.name, ids_of(found->second, sent)), values).second)
        throw UsageError("it is set a second time");
}

}  // namespace

std::map<std::string, Setting> settings_of(const Dictionary &dictionary) {
    if (!dictionary.has_contract()) throw UsageError("this host does not say what its settings are");
    std::map<std::string, Setting> found;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const std::optional<Method> getter = dictionary.method(getter_of(name));
        Setting setting{dictionary.method_or_throw(name), {}, 0};
        if (!getter || !getter->contract || !setting.setter.contract) continue;
        setting.getter = *getter;
        const bool fits = setting.setter.contract->effect == "changes" && getter->contract->effect == "reads";
        if (fits && reads_what_it_sets(dictionary, setting)) found.emplace(name, std::move(setting));
    }
    return found;
}

State state_of_chip(Context &context, const SurveyOptions &options) {
    const std::map<std::string, Setting> settings = settings_of(context.dictionary());
    SurveyOptions asked = options;
    std::map<std::string, const Setting *> by_getter;
    for (const auto &[name, setting] : settings) {
        asked.only.push_back(setting.getter.name);
        by_getter[setting.getter.name] = &setting;
    }
    State state;
    for (const Reading &reading : read_all(context, asked)) {
        if (is_fault(reading.answer) || !is_success(context.dictionary(), reading.method, result_of(reading.answer)))
            continue;
        const Setting &setting = *by_getter.at(reading.method.name);
        Json values = Json::object();
        for (std::size_t i = setting.ids; i < setting.setter.parameters.size(); ++i)
            values[setting.setter.parameters[i].name] =
                as_set(context, setting.setter.parameters[i], reading.answer[i + 1]);
        state[{setting.setter.name, ids_of(setting, reading.call.parameters)}] = values;
    }
    return state;
}

State state_of_file(Context &context, const std::string &file) {
    const std::map<std::string, Setting> settings = settings_of(context.dictionary());
    const std::string text = read_text(file);
    State state;
    std::size_t number = 0;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const Words split = split_words(text.substr(begin, end - begin));
        begin = end + 1;
        ++number;
        if (split.words.empty()) continue;
        try {
            if (split.open_quote) throw UsageError(std::string("the quote ") + split.open_quote + " is not closed");
            add_line(context, settings, split.words, state);
        } catch (const UsageError &error) {
            throw UsageError(file + ", line " + std::to_string(number) + ": " + error.what());
        }
    }
    return state;
}

std::string setting_line(Context &context, const State::value_type &setting) {
    const Method method = context.dictionary().method_or_throw(setting.first.first);
    std::string line = method.name;
    for (std::size_t i = 0; i < setting.first.second.size(); ++i)
        line += " " + method.parameters[i].name + "=" + std::to_string(setting.first.second[i]);
    for (const auto &[name, value] : setting.second.items())
        line += " " + name + "=" + quoted(value.is_string() ? value.get<std::string>() : json_text(value));
    return line;
}

std::string state_text(Context &context, const State &state) {
    std::string text =
        "# Settings of a chip. \"lmqctl diff FILE\" shows what differs on a chip, \"lmqctl apply FILE\" sets it.\n"
        "# Things that are made and deleted, such as bridges and flows, are not among them.\n";
    std::string last;
    for (const State::value_type &setting : state) {
        const std::string &name = setting.first.first;
        if (name != last) text += "\n# " + context.dictionary().method_or_throw(name).contract->brief + "\n";
        last = name;
        text += setting_line(context, setting) + "\n";
    }
    return text;
}

Json state_answers(const State &state) {
    Json answers = Json::object();
    for (const auto &[key, values] : state) {
        std::string call = key.first + "(";
        for (const int64_t id : key.second) call += (call.ends_with('(') ? "" : ", ") + std::to_string(id);
        answers[call + ")"] = {{"success", true}, {"arguments", values}};
    }
    return answers;
}

Json members_in(const Json &value, const Json &wanted) {
    if (!value.is_object() || !wanted.is_object()) return value;
    Json kept = Json::object();
    for (const auto &[key, inside] : wanted.items())
        if (value.contains(key)) kept[key] = members_in(value[key], inside);
    return kept;
}

State restricted(const State &state, const State &wanted) {
    State kept;
    for (const auto &[key, values] : wanted)
        if (const auto found = state.find(key); found != state.end()) kept[key] = members_in(found->second, values);
    return kept;
}

}  // namespace lmqctl
