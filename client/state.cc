// Settings and things found by the contract, and read from chips and files.
#include "state.h"

#include <algorithm>

#include "answer.h"
#include "arguments.h"
#include "error.h"
#include "file.h"
#include "script.h"
#include "symbol.h"
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
constexpr int64_t most_ids = 128;

// Whether it is known which ids there are: all of a range, or those that lists and makers name.
bool is_known(const Dictionary &dictionary, const Makers &makers, const Parameter &id) {
    const Meaning &meaning = id.said.meaning;
    if (id.is_pointer()) return false;
    const Json kind = meaning.id.empty() ? Json::object() : dictionary.said(Dictionary::ids, meaning.id);
    if (kind.contains("lists") || makers.gives_out(meaning.id)) return true;
    if (meaning.id.empty() && !meaning.enumeration.empty()) return true;
    if (!meaning.range && !kind.contains("range")) return false;
    const int64_t first = meaning.range ? meaning.range->first : kind["range"][0].get<int64_t>();
    const int64_t last = meaning.range ? meaning.range->second : kind["range"][1].get<int64_t>();
    return first >= 0 && last - first < most_ids;
}

bool reads_what_it_sets(const Dictionary &dictionary, const Makers &makers, Setting &setting) {
    const std::vector<Parameter> &set = setting.setter.parameters, &get = setting.getter.parameters;
    if (set.size() != get.size()) return false;
    for (std::size_t i = 0; i < set.size(); ++i) {
        const ArgumentContract &read = get[i].said;
        if (set[i].said.direction != Direction::in || set[i].said.type != read.type) return false;
        if (read.direction == Direction::in) {
            if (setting.ids != i || !is_known(dictionary, makers, set[i])) return false;
            ++setting.ids;
        } else if (read.direction != Direction::out || !read.length.argument.empty() || !read.length.filled.empty() ||
                   (set[i].is_pointer() && set[i].said.length.count != read.length.count)) {
            return false;
        }
    }
    return setting.ids < set.size();
}

// The members of a struct that a chip reports, and nobody sets.
std::set<std::string> reports_of(const Dictionary &dictionary, const Type &type) {
    std::set<std::string> reports;
    // Most have none, and are not worth parsing.
    if (dictionary.json(Dictionary::said_of_structs, type.name).find("\"report\":true") == std::string_view::npos)
        return reports;
    const Json said = dictionary.said(Dictionary::said_of_structs, type.name);
    for (const Json &member : said["members"])
        if (member.value("report", false)) reports.insert(member["name"]);
    return reports;
}

// A value without the flags that say which of its members count, and without what is only reported.
Json what_is_set(const Dictionary &dictionary, const Type &type, const Json &value) {
    if (!value.is_structured()) return value;
    Json kept = value.is_array() ? Json::array() : Json::object();
    const std::set<std::string> reports = value.is_object() ? reports_of(dictionary, type) : std::set<std::string>();
    for (const auto &[key, inside] : value.items()) {
        if (value.is_array()) {
            kept.push_back(what_is_set(dictionary, type.element ? *type.element : type, inside));
            continue;
        }
        const Member *member = type.member(key);
        if (reports.contains(key) || (member && is_valid_mask(type, *member))) continue;
        kept[key] = member ? what_is_set(dictionary, *member->type, inside) : inside;
    }
    return kept;
}

Json as_set(Context &context, const Parameter &parameter, const Json &value) {
    const TypePtr type = context.types().parameter(parameter);
    // One element behind a pointer comes as a list of one, unless it is a struct.
    const bool is_one = parameter.said.length.count == 1 && value.is_array() && value.size() == 1;
    const Json &held = is_one ? value[0] : value;
    return what_is_set(context.dictionary(), *type, comparable(context, *type, held));
}

// What a setting is about: ids, with enumerators by name.
std::vector<Json> ids_of(Context &context, const Setting &setting, const Json &parameters, const Names &names = {}) {
    std::vector<Json> ids;
    for (std::size_t i = 0; i < setting.ids; ++i) {
        const TypePtr type = context.types().parameter(setting.setter.parameters[i]);
        ids.push_back(plain(*type, named(*type, parameters[i], names), &context.dictionary()));
    }
    return ids;
}

// "CALL -> OUTPUT as NAME"
bool keeps_name(const std::vector<std::string> &words) {
    return words.size() > 4 && words.end()[-4] == "->" && words.end()[-2] == "as";
}

// The lines of a file, put into a state.
class StateReader {
  public:
    explicit StateReader(Context &context)
        : context_(context), makers_(context), settings_(settings_of(context, makers_)) {}

    /// Lines may name what comes further down.
    void expect_name(const std::vector<std::string> &words) {
        if (keeps_name(words) && !names_.insert(words.back()).second)
            throw UsageError("something else is called " + words.back());
    }

    void take(std::vector<std::string> words) {
        if (words[0] == "all" && words.size() == 2) {
            const Method *maker = makers_.find(words[1]);
            if (!maker || !maker->contract->undone_by)
                throw UsageError("all: " + words[1] + " makes nothing that can be read back and undone");
            state_.complete.insert(words[1]);
            return;
        }
        const std::string name = keeps_name(words) ? words.back() : "";
        if (!name.empty()) words.resize(words.size() - 4);
        const Method method = context_.dictionary().method_or_throw(words[0]);
        const auto setting = settings_.find(method.name);
        if (setting == settings_.end() && !makers_.find(method.name))
            throw UsageError(method.name + " is no setting: nothing reads what it sets");
        const Json sent = parameters(method, words);
        if (setting == settings_.end()) return add_thing(method, sent, name);
        Json values = Json::object();
        for (std::size_t i = setting->second.ids; i < sent.size(); ++i)
            values[method.parameters[i].name] = as_set(context_, method.parameters[i], sent[i]);
        if (!state_.settings.emplace(std::make_pair(method.name, ids_of(context_, setting->second, sent)), values)
                 .second)
            throw UsageError("it is set a second time");
    }

    State state() {
        std::vector<Thing> sorted;
        for (const Method &maker : makers_.all())
            for (const Thing &thing : state_.things)
                if (thing.maker == maker.name) sorted.push_back(thing);
        state_.things = std::move(sorted);
        return std::move(state_);
    }

  private:
    Json parameters(const Method &method, const std::vector<std::string> &words) const {
        ArgumentOptions options;
        options.force = true;
        options.symbols = true;
        const std::vector<std::string> with_symbols = expanded_words(words, [&](const std::string &used) -> Json {
            if (!names_.contains(used)) throw UsageError("no line of the file keeps $" + used);
            return symbol(used);
        });
        return build_arguments(context_.dictionary(), context_.types(), method,
                               {with_symbols.begin() + 1, with_symbols.end()}, options);
    }

    void add_thing(const Method &method, const Json &sent, const std::string &name) {
        if (!name.empty() && !Makers::output_of(method)) throw UsageError(method.name + " answers no id to keep");
        Thing thing{method.name, Json::object(), name};
        for (std::size_t i = 0; i < sent.size(); ++i)
            if (method.parameters[i].said.direction == Direction::in)
                thing.arguments[method.parameters[i].name] = as_made(context_, method.parameters[i], sent[i]);
        state_.things.push_back(std::move(thing));
    }

    Context &context_;
    const Makers makers_;
    const std::map<std::string, Setting> settings_;
    std::set<std::string> names_;
    State state_;
};

// What has to be read for things.
void ask_for_things(const Makers &makers, State &state, SurveyOptions &asked) {
    for (const Method &maker : makers.all()) {
        const ReadBack &read_back = *maker.contract->read_back;
        if (maker.contract->undone_by) state.complete.insert(maker.name);
        if (!read_back.walk.empty()) continue;
        asked.only.push_back(read_back.by);
        if (!read_back.with.empty()) asked.fixed[read_back.by] = read_back.with;
    }
}

}  // namespace

std::map<std::string, Setting> settings_of(Context &context, const Makers &makers) {
    const Dictionary &dictionary = context.dictionary();
    if (!dictionary.has_contract()) throw UsageError("this host does not say what its settings are");
    std::map<std::string, Setting> found;
    for (const std::string &name : dictionary.names(Dictionary::methods)) {
        const std::optional<Method> getter = dictionary.method(getter_of(name));
        Setting setting{dictionary.method_or_throw(name), {}, 0};
        if (!getter || !getter->contract || !setting.setter.contract || makers.concerns(name)) continue;
        setting.getter = *getter;
        const bool fits = setting.setter.contract->effect == "changes" && getter->contract->effect == "reads";
        if (fits && reads_what_it_sets(dictionary, makers, setting)) found.emplace(name, std::move(setting));
    }
    return found;
}

State state_of_chip(Context &context, const Chosen &chosen) {
    Makers makers(context);
    std::map<std::string, Setting> settings = settings_of(context, makers);
    std::set<std::string> read;
    for (const Method &maker : makers.all())
        if (chosen(maker.name)) read.insert(maker.name);
    for (const auto &[name, setting] : settings)
        if (chosen(name)) read.insert(name);
    read = makers.with_makers(context, std::move(read));
    makers.keep(read);
    std::erase_if(settings, [&](const auto &setting) { return !read.contains(setting.first); });
    SurveyOptions asked;
    State state;
    std::map<std::string, const Setting *> by_getter;
    for (const auto &[name, setting] : settings) {
        asked.only.push_back(setting.getter.name);
        by_getter[setting.getter.name] = &setting;
    }
    ask_for_things(makers, state, asked);
    std::vector<Reading> readings;
    if (!asked.only.empty()) readings = read_all(context, asked);
    std::erase_if(readings, [&](const Reading &reading) {
        return is_fault(reading.answer) || !is_success(context.dictionary(), reading.method, result_of(reading.answer));
    });
    Names names;
    state.things = things_of(context, makers, readings, names);
    for (const Reading &reading : readings) {
        const auto found = by_getter.find(reading.method.name);
        if (found == by_getter.end()) continue;
        const Setting &setting = *found->second;
        Json values = Json::object();
        for (std::size_t i = setting.ids; i < setting.setter.parameters.size(); ++i) {
            const Parameter &parameter = setting.setter.parameters[i];
            const Json value = named(*context.types().parameter(parameter), reading.answer[i + 1], names);
            values[parameter.name] = as_set(context, parameter, value);
        }
        state.settings[{setting.setter.name, ids_of(context, setting, reading.call.parameters, names)}] = values;
    }
    return state;
}

Chosen spoken_of(const State &state) {
    std::set<std::string> methods = state.complete;
    for (const Thing &thing : state.things) methods.insert(thing.maker);
    for (const Settings::value_type &setting : state.settings) methods.insert(setting.first.first);
    return [methods](const std::string &method) { return methods.contains(method); };
}

State state_of_file(Context &context, const std::string &file) {
    const std::string text = read_text(file);
    StateReader reader(context);
    for (const bool is_first : {true, false}) {
        std::size_t number = 0;
        for (std::size_t begin = 0; begin < text.size();) {
            const std::size_t end = std::min(text.find('\n', begin), text.size());
            const Words split = split_words(text.substr(begin, end - begin));
            begin = end + 1;
            ++number;
            if (split.words.empty()) continue;
            try {
                if (split.open_quote) throw UsageError(std::string("the quote ") + split.open_quote + " is not closed");
                is_first ? reader.expect_name(split.words) : reader.take(split.words);
            } catch (const UsageError &error) {
                throw UsageError(file + ", line " + std::to_string(number) + ": " + error.what());
            }
        }
    }
    return reader.state();
}

Json members_in(const Json &value, const Json &wanted) {
    if (!value.is_object() || !wanted.is_object()) return value;
    Json kept = Json::object();
    for (const auto &[key, inside] : wanted.items())
        if (value.contains(key)) kept[key] = members_in(value[key], inside);
    return kept;
}

State restricted(const State &state, const State &wanted, const std::map<std::size_t, std::size_t> &same) {
    State kept;
    kept.complete = wanted.complete;
    for (const auto &[key, values] : wanted.settings)
        if (const auto found = state.settings.find(key); found != state.settings.end())
            kept.settings[key] = members_in(found->second, values);
    std::set<std::size_t> spoken_of;
    for (const auto &[one, other] : same) spoken_of.insert(other);
    for (std::size_t i = 0; i < state.things.size(); ++i)
        if (spoken_of.contains(i) || wanted.complete.contains(state.things[i].maker))
            kept.things.push_back(state.things[i]);
    return kept;
}

}  // namespace lmqctl
