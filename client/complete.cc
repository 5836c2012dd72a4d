// Completion: which place of the line the word stands in, and what fits there. What a command takes there is known by
// the names of its arguments, METHOD, NAME, TYPE; a new command that uses them needs nothing here.
#include "complete.h"

#include <algorithm>
#include <filesystem>
#include <set>

#include "arguments.h"
#include "boards.h"
#include "names.h"
#include "place.h"
#include "program.h"
#include "words.h"

namespace lmqctl {

namespace {

constexpr std::size_t most_titles = 200;  // a title is looked up in a method's help, which has to be parsed

class Candidates {
  public:
    explicit Candidates(std::string typed) : typed_(std::move(typed)) {}
    void add(const std::string &text, const std::string &description = "", bool is_whole = true) {
        if (text.starts_with(typed_) && seen_.insert(text).second) found.push_back({text, description, is_whole});
    }
    void add(const std::vector<std::string> &texts, const std::string &description) {
        for (const std::string &text : texts) add(text, description);
    }
    std::vector<Completion> found;

  private:
    std::string typed_;
    std::set<std::string> seen_;
};

// The words that an option or argument is confined to: "TEXT:{bash,zsh}".
std::vector<std::string> choices(const CLI::Option &option) {
    const std::string type = option.get_type_name();
    const std::size_t begin = type.find('{'), end = type.find('}');
    return begin == std::string::npos || end == std::string::npos ? std::vector<std::string>()
                                                                  : split(type.substr(begin + 1, end - begin - 1), ',');
}

const CLI::Option *option_of(const CLI::App *app, const std::string &name) {
    return app ? app->get_option_no_throw(name) : nullptr;
}

const CLI::App *command_of(const CLI::App &app, const std::string &name) {
    for (const CLI::App *command : app.get_subcommands(nullptr))
        if (command->get_name() == name) return command;
    return nullptr;
}

// The words up to the one at the cursor, sorted.
struct Line {
    const CLI::App *command = nullptr;
    std::vector<std::string> places;       // words that are no options
    std::vector<std::string> connection;   // options of the program with their values
    const CLI::Option *waiting = nullptr;  // the option whose value comes next
    bool is_known = true;
};

Line sorted(const CLI::App &app, const std::vector<std::string> &words, bool in_session) {
    Line line;
    bool only_places = false;
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
        const std::string &word = words[i];
        if (line.waiting) {
            if (option_of(&app, line.waiting->get_name()) == line.waiting) line.connection.push_back(word);
            line.waiting = nullptr;
        } else if (word == "--") {
            only_places = true;
        } else if (!only_places && word.size() > 1 && word[0] == '-' && !number(word)) {
            const std::size_t equals = word.find('=');
            const std::string name = word.substr(0, equals);
            const CLI::Option *mine = option_of(line.command, name), *option = mine ? mine : option_of(&app, name);
            if (!option || option->get_items_expected_max() == 0) continue;
            if (!mine) line.connection.push_back(word);
            if (equals == std::string::npos) line.waiting = option;
        } else if (line.command) {
            line.places.push_back(word);
        } else if (const CLI::App *command = command_of(app, word)) {
            line.command = command;
        } else if (in_session) {
            line.command = command_of(app, "call");
            line.places.push_back(word);
        } else {
            line.is_known = false;
        }
    }
    return line;
}

// Names, and where many can be meant their groups.
void add_boards(Candidates &candidates, const std::string &kind) {
    for (const Board &board : known_boards()) {
        candidates.add(board.name, board.connection.url);
        for (const std::string &group : board.groups)
            if (kind == "BOARDS") candidates.add(group, "a group");
    }
    if (kind == "BOARDS") candidates.add("all", "all boards");
}

void add_options(Candidates &candidates, const CLI::App *app) {
    if (app)
        for (const CLI::Option *option : app->get_options())
            for (const std::string &name : option->get_lnames())
                candidates.add("--" + name, split(option->get_description(), '\n')[0]);
}

void add_methods(Candidates &candidates, const Dictionary &dictionary, const std::string &typed) {
    const std::size_t before = candidates.found.size();
    const bool is_full = !dictionary.prefix().empty() && typed.starts_with(dictionary.prefix());
    for (const std::string &name : dictionary.names(Dictionary::methods))
        candidates.add(is_full ? dictionary.full_name(name) : name, "");
    if (candidates.found.size() - before > most_titles) return;
    for (std::size_t i = before; i < candidates.found.size(); ++i)
        if (const auto method = dictionary.method(dictionary.bare_name(candidates.found[i].text)))
            candidates.found[i].description = method->title();
}

void add_types(Candidates &candidates, const Dictionary &dictionary) {
    candidates.add(dictionary.names(Dictionary::udts), "struct");
    candidates.add(dictionary.names(Dictionary::enums), "enum");
    candidates.add(dictionary.names(Dictionary::typedefs), "typedef");
}

void add_numbers(Candidates &candidates, const Dictionary &dictionary) {
    for (const std::string &type : dictionary.names(Dictionary::enums))
        if (const Enum *values = dictionary.enumeration(type))
            for (const Enumerator &value : values->values) candidates.add(value.name, type);
    candidates.add(dictionary.names(Dictionary::defines), "define");
}

// What follows a key of this type.
std::string behind(const Type &type) {
    if (type.kind == Type::structure || type.kind == Type::overlay) return ".";
    if (type.kind == Type::array && behind(*type.element) == ".") return "[0].";
    return "=";
}

// `stem` is the word up to the value.
void add_values(Candidates &candidates, const Dictionary &dictionary, const Type &type, const std::string &stem,
                const std::string &value) {
    if (type.kind == Type::array) {
        const std::size_t last = value.rfind(',') + 1;
        add_values(candidates, dictionary, *type.element, stem + value.substr(0, last), value.substr(last));
        return;
    }
    const std::size_t last = value.rfind('|') + 1;
    const std::string before = stem + value.substr(0, last);
    if (type.is_boolean()) {
        candidates.add(stem + "on", "1");
        candidates.add(stem + "off", "0");
    } else if (type.kind == Type::enumeration) {
        if (const Enum *values = dictionary.enumeration(type.name))
            for (const Enumerator &each : values->values)
                candidates.add(before + each.name, std::to_string(each.number));
    } else if (type.kind == Type::flags || type.kind == Type::mask) {
        const std::vector<std::string> given = split(value.substr(0, last), '|');
        const Type &bits = type.kind == Type::mask ? *type.members[0].type : type;
        for (const std::string &name : bits.member_names())
            if (std::find(given.begin(), given.end(), name) == given.end()) candidates.add(before + name, "flag");
        if (!last) candidates.add(before + "none", "no flag");
    }
}

// The files that a path may become, behind `stem`.
void add_files(Candidates &candidates, const std::string &stem, const std::string &path) {
    namespace fs = std::filesystem;
    const std::size_t slash = path.rfind('/') + 1;
    const std::string folder = path.substr(0, slash), before = stem + folder;
    std::error_code failure;
    std::vector<std::string> names;
    fs::directory_iterator entries(folder.empty() ? "." : folder, failure);
    for (; !failure && entries != fs::directory_iterator(); entries.increment(failure)) {
        const std::string name = entries->path().filename().string();
        // Hidden files are for those who ask for them.
        if (name.starts_with('.') && slash == path.size()) continue;
        names.push_back(name + (entries->is_directory(failure) ? "/" : ""));
    }
    std::sort(names.begin(), names.end());
    for (const std::string &name : names) {
        const bool is_folder = name.ends_with('/');
        candidates.add(before + name, is_folder ? "folder" : "file", !is_folder);
    }
}

// Where the path begins in @FILE or KEY=@FILE; nothing in another word.
std::optional<std::size_t> file_in(const std::string &word) {
    if (word.starts_with('@')) return 1;
    const std::size_t equals = word.find("=@");
    return equals == std::string::npos ? std::nullopt : std::optional(equals + 2);
}

bool is_addressed(const std::string &word) {
    const std::size_t equals = word.find('=');
    return equals != std::string::npos && equals != 0 && std::string("{[\"@-").find(word[0]) == std::string::npos;
}

// The alternative of an overlay that another word has selected; empty if none has. `stem` is "p_key.key_s.".
std::string selected(const Dictionary &dictionary, const Type &type, const std::string &stem,
                     const std::vector<std::string> &places) {
    if (type.kind != Type::overlay || type.selector.empty() || stem.size() < 2) return "";
    const std::string key = stem.substr(0, stem.rfind('.', stem.size() - 2) + 1) + type.selector + "=";
    for (const std::string &word : places) {
        if (!word.starts_with(key)) continue;
        const std::string given = word.substr(key.size());
        const Enum *values = dictionary.enum_of(given);
        const std::optional<int64_t> value = values ? values->named(given)->number : number(given);
        const auto found = value ? type.selected.find(*value) : type.selected.end();
        if (found != type.selected.end()) return found->second;
    }
    return "";
}

void add_arguments(Candidates &candidates, const Dictionary &dictionary, const std::vector<std::string> &places,
                   const std::string &typed) {
    const std::optional<Method> method = dictionary.method(dictionary.bare_name(places[0]));
    if (!method || !method->is_described()) return;
    Types types(dictionary);
    const auto is_given = [&](const std::string &key) {
        return std::any_of(places.begin() + 1, places.end(),
                           [&](const std::string &word) { return word.starts_with(key); });
    };
    const auto add_key = [&](const std::string &stem, const Member &member) {
        const std::string end = behind(*member.type);
        if (end != "=" || !is_given(stem + end)) candidates.add(stem + end, member.type->declared(), false);
    };

    const std::size_t inside = typed.find_first_of(".[=");
    if (inside != std::string::npos) {
        const auto parameter =
            std::find_if(method->parameters.begin(), method->parameters.end(),
                         [&](const Parameter &each) { return each.name == typed.substr(0, inside); });
        if (parameter == method->parameters.end()) return;
        const TypePtr type = types.parameter(*parameter);
        const std::size_t equals = typed.find('=');
        if (equals != std::string::npos) {
            if (const Type *held = walked(type.get(), typed.substr(inside, equals - inside)))
                add_values(candidates, dictionary, *held, typed.substr(0, equals + 1), typed.substr(equals + 1));
            return;
        }
        const std::size_t dot = typed.rfind('.');
        const Type *held = dot == std::string::npos ? nullptr : walked(type.get(), typed.substr(inside, dot - inside));
        if (!held) return;
        const std::string stem = typed.substr(0, dot + 1), only = selected(dictionary, *held, stem, places);
        for (const Member &member : held->members)
            if (only.empty() || member.name == only) add_key(stem + member.name, member);
        return;
    }

    // Words in order take the inputs that are not addressed, the first ones first.
    const auto in_order = static_cast<std::size_t>(
        std::count_if(places.begin() + 1, places.end(), [](const std::string &word) { return !is_addressed(word); }));
    std::vector<Member> open, outputs;
    std::size_t passed = 0;
    for (const Parameter &parameter : method->parameters) {
        const Member member{parameter.name, types.parameter(parameter)};
        const bool addressed =
            is_given(parameter.name + ".") || is_given(parameter.name + "[") || is_given(parameter.name + "=");
        if (is_output(*method, parameter))
            outputs.push_back(member);
        else if (addressed || passed++ >= in_order)
            open.push_back(member);
    }
    if (!open.empty()) add_values(candidates, dictionary, *open[0].type, "", typed);
    for (const Member &member : open) add_key(member.name, member);
    if (candidates.found.empty() && !typed.empty())
        for (const Member &member : outputs) add_key(member.name, member);
}

// A word that holds a whole call: its last word goes on. A blank or the quote behind it is the user's.
void add_call(Candidates &candidates, const Dictionary &dictionary, const std::string &typed) {
    Words split = split_words(typed);
    if (split.ends_word) split.words.emplace_back();
    const std::string last = split.words.back();
    if (!typed.ends_with(last)) return;
    const std::string before = typed.substr(0, typed.size() - last.size());
    split.words.pop_back();
    Candidates inner(last);
    if (split.words.empty())
        add_methods(inner, dictionary, last);
    else
        add_arguments(inner, dictionary, split.words, last);
    for (const Completion &each : inner.found) candidates.add(before + each.text, each.description, false);
}

void add_families(Candidates &candidates, const Dictionary &dictionary) {
    for (const std::string &name : dictionary.names(Dictionary::said_of_methods))
        if (const auto method = dictionary.method(name); method && method->contract)
            candidates.add(method->contract->family, "family");
}

// The argument that the next word of a command is.
const CLI::Option *argument(const CLI::App &command, std::size_t place) {
    for (const CLI::Option *option : command.get_options()) {
        if (!option->get_positional()) continue;
        if (option->get_items_expected_max() > 1 || place-- == 0) return option;
    }
    return nullptr;
}

std::vector<Completion> completed(Context &context, const std::vector<std::string> &words) {
    const std::string typed = words.empty() ? "" : words.back();
    Candidates candidates(typed);
    CLI::App app;
    set_up_options(app, context);
    set_up_commands(app, context);
    const Line line = sorted(app, words, context.in_session);
    if (!line.is_known) return {};
    if (line.waiting) {
        candidates.add(choices(*line.waiting), "");
        if (line.waiting->get_type_name().starts_with("BOARD")) add_boards(candidates, line.waiting->get_type_name());
        return candidates.found;
    }
    if (typed.starts_with('-')) {
        add_options(candidates, line.command);
        add_options(candidates, &app);
        return candidates.found;
    }
    if (!context.in_session) {
        CLI::App options;
        set_up_options(options, context);
        options.parse(std::vector<std::string>(line.connection.rbegin(), line.connection.rend()));
        choose_host(options, context);
    }
    const CLI::Option *place = line.command ? argument(*line.command, line.places.size()) : nullptr;
    const std::string kind = place ? place->get_name(true) : "";
    if (place) candidates.add(choices(*place), "");
    if (!line.command)
        for (const CLI::App *command : app.get_subcommands(nullptr))
            if (!command->get_group().empty()) candidates.add(command->get_name(), command->get_description());

    if (const auto path = file_in(typed); path && kind == "ARG") {
        add_files(candidates, typed.substr(0, *path), typed.substr(*path));
        return candidates.found;
    }
    // A shell knows other files by itself.
    if (kind == "FILE" && context.in_session) add_files(candidates, "", typed);
    const bool begins_session_line = !line.command && context.in_session && !typed.empty();
    if (!begins_session_line && kind.empty()) return candidates.found;
    const Dictionary *dictionary = context.dictionary_at_hand();
    if (!dictionary) return candidates.found;
    if (kind == "GLOB|FAMILY") add_families(candidates, *dictionary);
    if (kind == "CALL") add_call(candidates, *dictionary, typed);
    if (begins_session_line || kind == "METHOD" || kind.starts_with("GLOB") || kind == "NAME")
        add_methods(candidates, *dictionary, typed);
    if (kind == "TYPE" || kind == "NAME") add_types(candidates, *dictionary);
    if (kind == "NUMBER|NAME" || (kind == "NAME" && !typed.empty())) add_numbers(candidates, *dictionary);
    if (kind == "ARG" && !line.places.empty()) add_arguments(candidates, *dictionary, line.places, typed);
    return candidates.found;
}

}  // namespace

std::vector<Completion> complete(Context &context, const std::vector<std::string> &words) {
    try {
        return completed(context, words);
    } catch (const std::exception &) {
        return {};
    }
}

}  // namespace lmqctl
