// The words of a call become the parameters of a request.
#include "arguments.h"

#include <algorithm>
#include <set>

#include "error.h"
#include "names.h"
#include "scalar_text.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

// A method that the host does not describe takes JSON, or what looks like a number or a text.
Json plain_arguments(const Method &method, const std::vector<std::string> &words) {
    Json arguments = Json::array();
    for (const std::string &word : words) {
        check_text(word, method.name + ", argument " + std::to_string(arguments.size() + 1));
        const std::optional<int64_t> number = lmqctl::number(word);
        const Json parsed = Json::parse(word, nullptr, false);
        arguments.push_back(number ? Json(*number) : parsed.is_discarded() ? Json(word) : parsed);
    }
    return arguments;
}

// The arguments by their names, as a template has them: nothing if the word is no object, or one whose keys are none of
// the method's arguments.
Json named_arguments(const Method &method, const std::string &text) {
    // A text that is broken gets its error as the argument that it is.
    if (!text.starts_with('{') || !is_json_of_user(text)) return {};
    Json given = json_of_user(text, method.name);
    std::vector<std::string> names;
    for (const Parameter &parameter : method.parameters) names.push_back(parameter.name);
    const auto is_name = [&](const std::string &key) {
        return std::find(names.begin(), names.end(), key) != names.end();
    };
    // A method without arguments has the empty object for a template.
    if (std::none_of(names.begin(), names.end(), [&](const std::string &name) { return given.contains(name); }))
        return names.empty() && given.empty() ? given : Json();
    for (const auto &[key, value] : given.items())
        if (!is_name(key))
            throw UsageError(method.name + " has no argument " + key + did_you_mean(key, names) + "\n" +
                             method.prototype());
    return given;
}

}  // namespace

bool is_output(const Method &method, const Parameter &parameter) {
    if (parameter.said.direction != Direction::unknown) return parameter.said.direction == Direction::out;
    if (!parameter.is_pointer() || parameter.pointee() == "void") return false;
    if (const std::optional<Method::Told> told = method.told(parameter.name)) return told->is_output;
    return method.only_reads();
}

const Parameter *list_of_capacity(const Method &method, const Parameter &capacity) {
    for (const Parameter &list : method.parameters)
        if (list.said.direction == Direction::out && !list.said.length.filled.empty() &&
            list.said.length.argument == capacity.name)
            return &list;
    return nullptr;
}

namespace {

constexpr std::size_t room = 64;        // for a list whose length nobody says: what the longest of the chip has
constexpr std::size_t longest = 65536;  // elements of an argument

// Whether an argument may say how long another is, by its name alone: "get_cnt", "num", "num_ports", "data_len", but
// not "port_num", which is a number of another kind.
bool looks_like_a_count(const Parameter &parameter) {
    const std::vector<std::string> words = split(lower(parameter.name), '_');
    const std::size_t first = words.size() > 1 && words[0] == "p" ? 1 : 0;
    if (words[first] == "num") return true;
    return std::any_of(words.begin(), words.end(), [](const std::string &word) {
        return word == "cnt" || word == "count" || word == "len" || word == "length" || word == "size";
    });
}

// The arguments of one call as they come together.
class Arguments {
  public:
    Arguments(const Dictionary &dictionary, Types &types, const Method &method, const ArgumentOptions &options)
        : dictionary_(dictionary), method_(method), input_(dictionary, options), options_(options) {
        std::vector<std::string> names;
        for (const Parameter &parameter : method.parameters) {
            slots_.push_back({types.parameter(parameter), {}, false});
            names.push_back(parameter.name);
            has_lists_ = has_lists_ || !parameter.said.length.argument.empty();
        }
        for (const auto &[name, count] : options.counts)
            if (std::find(names.begin(), names.end(), name) == names.end())
                throw UsageError("--count: " + method.name + " has no argument " + name + did_you_mean(name, names));
    }

    /// Takes the words that name their argument. Returns the others.
    std::vector<std::string> take_addressed(const std::vector<std::string> &words) {
        std::vector<std::string> in_order, keys;
        for (const std::string &word : words) {
            std::size_t path = 0;
            const Parameter *parameter = addressed(word, path);
            if (!parameter) {
                in_order.push_back(word);
                continue;
            }
            const std::size_t equals = word.find('=');
            refuse_repeated(keys, word.substr(0, equals));
            Slot &slot = slots_[static_cast<std::size_t>(parameter - method_.parameters.data())];
            input_.set(*slot.type, slot.value, word.substr(path, equals - path), word.substr(equals + 1),
                       parameter->name);
            slot.is_given = true;
        }
        return in_order;
    }

    /// Takes one object that stands for all arguments. False if the word is none.
    bool take_named(const std::string &word) {
        const Json named = named_arguments(method_, word);
        if (named.is_null()) return false;
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            const std::string &name = method_.parameters[i].name;
            if (!named.contains(name)) continue;
            slots_[i].value = input_.from_json(*slots_[i].type, named[name], name);
            slots_[i].is_given = true;
        }
        return true;
    }

    /// Words in order are all that is still open, or all of it but the outputs, or also but the room for lists.
    void take_in_order(const std::vector<std::string> &words) {
        std::vector<std::size_t> open, inputs, needed;
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            if (slots_[i].is_given) continue;
            open.push_back(i);
            if (may_be_left_out(method_.parameters[i])) continue;
            inputs.push_back(i);
            if (!list_of_capacity(method_, method_.parameters[i])) needed.push_back(i);
        }
        for (std::size_t i = 0; i < slots_.size() && words.size() < needed.size(); ++i)
            if (take_default(i))
                for (std::vector<std::size_t> *places : {&open, &inputs, &needed}) std::erase(*places, i);
        if (words.size() > open.size())
            throw UsageError(method_.name + " takes " + std::to_string(slots_.size()) + " arguments; " +
                             std::to_string(words.size() - open.size()) + " too many: " + words[open.size()] + "\n" +
                             method_.prototype());
        const std::vector<std::size_t> &places = words.size() <= needed.size()   ? needed
                                                 : words.size() <= inputs.size() ? inputs
                                                                                 : open;
        for (std::size_t i = 0; i < words.size(); ++i) {
            Slot &slot = slots_[places[i]];
            slot.value = input_.from_text(*slot.type, words[i], method_.parameters[places[i]].name);
            slot.is_given = true;
        }
    }

    /// The parameters of the request.
    Json all() {
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            input_.set_selectors(*slots_[i].type, slots_[i].value, method_.parameters[i].name);
            input_.set_flags(*slots_[i].type, slots_[i].value);
        }
        for (std::size_t i = 0; i < slots_.size(); ++i) fill_in_count(i);
        Json arguments = Json::array();
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            const Parameter &parameter = method_.parameters[i];
            const Slot &slot = slots_[i];
            if (!slot.is_given && !may_be_left_out(parameter))
                throw UsageError("missing argument " + parameter.name + ": expected " + slot.type->described() +
                                 (method_.contract || !parameter.is_pointer() || parameter.pointee() == "void"
                                      ? ""
                                      : ", or --count " + parameter.name + "=N if it is an output of N elements") +
                                 "\n" + method_.prototype());
            arguments.push_back(slot.is_given ? slot.value : left_out(i));
            if (!options_.force && !options_.symbols) check_length(i, arguments.back());
        }
        return arguments;
    }

  private:
    struct Slot {
        TypePtr type;
        Json value;
        bool is_given;
    };

    // The parameter that a word like p_cfg.wd_enable=1 begins with; nullptr for a word of another kind.
    const Parameter *addressed(const std::string &word, std::size_t &path) const {
        const std::size_t equals = word.find('=');
        if (equals == std::string::npos || equals == 0 || std::string("{[\"@-").find(word[0]) != std::string::npos)
            return nullptr;
        path = word.find_first_of(".[=");
        const std::string name = word.substr(0, path);
        std::vector<std::string> names;
        std::string of_a_member;
        for (std::size_t i = 0; i < slots_.size(); ++i) {
            const Parameter &parameter = method_.parameters[i];
            if (parameter.name == name) return &parameter;
            names.push_back(parameter.name);
            for (const Member &member : slots_[i].type->members)
                if (parameter.is_udt && member.name == name)
                    of_a_member = "; a member is " + parameter.name + "." + word;
        }
        throw UsageError(method_.name + " has no argument " + name +
                         (of_a_member.empty() ? did_you_mean(name, names) : of_a_member) + "\n" + method_.prototype());
    }

    // A word must not undo what another has set. One may add to it: p_cfg={...} p_cfg.enable=1.
    static void refuse_repeated(std::vector<std::string> &keys, const std::string &key) {
        const auto other = std::find_if(keys.begin(), keys.end(), [&](const std::string &each) {
            return each == key || (each.starts_with(key) && (each[key.size()] == '.' || each[key.size()] == '['));
        });
        if (other != keys.end())
            throw UsageError(*other == key ? key + " is given twice"
                                           : key + "= would undo " + *other + "=; put it in front");
        keys.push_back(key);
    }

    // The default that is meant for an argument: the first for a device, or for a port that it can be.
    bool take_default(std::size_t at) {
        const Parameter &parameter = method_.parameters[at];
        Slot &slot = slots_[at];
        for (const auto &[kind, value] : options_.defaults) {
            if (slot.is_given || defaults_taken_.contains(kind) || !is_of_kind(parameter, kind)) continue;
            const Json of_kind = dictionary_.said(Dictionary::ids, parameter.said.meaning.id);
            const Json range = of_kind.is_object() ? of_kind.value("range", Json()) : Json();
            const bool fits = range.is_null() || (value >= range[0] && value <= range[1]);
            if (!fits || !parameter.said.meaning.allows(value)) continue;
            slot.value = value;
            slot.is_given = true;
            defaults_taken_.insert(kind);
            return true;
        }
        return false;
    }

    bool is_of_kind(const Parameter &parameter, const std::string &kind) const {
        if (parameter.is_pointer()) return false;
        const std::string &id = parameter.said.meaning.id, type = lower(parameter.type);
        if (kind == "device") return method_.contract ? id == kind : type.find("dev_id") != std::string::npos;
        if (!method_.contract) return type.find("port_id") != std::string::npos;
        return id == kind || id == "eth-port" || id == "pon-port";
    }

    // An output, or what --count makes one of.
    bool may_be_left_out(const Parameter &parameter) const {
        return is_output(method_, parameter) || (parameter.is_pointer() && options_.counts.contains(parameter.name));
    }

    // What --count says of an argument; 0 if nothing. Without a name it means the lists, or without any, all outputs.
    std::size_t counted(std::size_t at) const {
        const Parameter &parameter = method_.parameters[at];
        if (const auto found = options_.counts.find(parameter.name); found != options_.counts.end())
            return found->second;
        return has_lists_ && parameter.said.length.argument.empty() ? 0 : options_.count;
    }

    Slot *slot_of(const std::string &name) {
        for (std::size_t i = 0; i < slots_.size(); ++i)
            if (method_.parameters[i].name == name) return &slots_[i];
        return nullptr;
    }

    // The count of an array that the contract knows, if it was left out: as many as are given, or as there is room for.
    void fill_in_count(std::size_t at) {
        const Parameter &parameter = method_.parameters[at];
        const Length &length = parameter.said.length;
        Slot *count = length.argument.empty() ? nullptr : slot_of(length.argument);
        if (!count || count->is_given) return;
        std::size_t number = counted(at) / std::max<std::size_t>(length.times, 1);
        if (slots_[at].is_given)
            number =
                (slots_[at].value.is_array() ? slots_[at].value.size() : 1) / std::max<std::size_t>(length.times, 1);
        else if (number == 0 && !length.filled.empty())
            number = length.if_zero ? length.if_zero : room_in(*count);
        if (number == 0) return;
        count->value = length.is_behind ? Json::array({number}) : Json(number);
        count->is_given = true;
    }

    static std::size_t room_in(const Slot &count) {
        const Type &type = count.type->element ? *count.type->element : *count.type;
        if (!type.meaning.range) return room;
        return static_cast<std::size_t>(std::clamp<int64_t>(type.meaning.range->second, 1, room));
    }

    // How many elements the contract says that an argument has.
    std::size_t needed(std::size_t at) {
        const Length &length = method_.parameters[at].said.length;
        const Slot *count = length.argument.empty() ? nullptr : slot_of(length.argument);
        if (!count) return length.count;
        const Json &value = count->value.is_array() && !count->value.empty() ? count->value[0] : count->value;
        if (!value.is_number_integer()) return 1;
        const Type &type = count->type->element ? *count->type->element : *count->type;
        const int64_t said = as_declared(type, value.get<int64_t>());
        const auto number = said == 0 ? length.if_zero : static_cast<std::size_t>(said);
        if (said < 0 || number > longest / std::max<std::size_t>(length.times, 1))
            throw UsageError(length.argument + ": " + std::to_string(said) + " elements of " +
                             method_.parameters[at].name + " are more than can be sent, which is " +
                             std::to_string(longest));
        return number * length.times;
    }

    // What is sent for an output that is left out.
    Json left_out(std::size_t at) {
        const Parameter &parameter = method_.parameters[at];
        const Type &type = *slots_[at].type;
        std::size_t count = counted(at);
        const bool is_counted = count != 0;
        if (!count && method_.contract) count = std::max<std::size_t>(needed(at), 1);
        if (!count) refuse_to_guess(at);
        if (!count) count = type.bound ? type.bound : 1;
        if (parameter.is_udt) return count == 1 && !is_counted ? Json::object() : Json(count, Json::object());
        if (type.kind != Type::array && type.kind != Type::mac) return 0;
        return Json(count, 0);
    }

    // Without a contract nobody knows what a count beside an output means. One element too few lets the driver write
    // where it should not.
    void refuse_to_guess(std::size_t at) const {
        if (looks_like_a_count(method_.parameters[at])) return;
        const auto count = std::find_if(method_.parameters.begin(), method_.parameters.end(), looks_like_a_count);
        if (count == method_.parameters.end()) return;
        const std::string &name = method_.parameters[at].name;
        throw UsageError(name + ": this host does not say how many elements " + name + " needs, and " + count->name +
                         " may decide it; --count " + name + "=N says it, or a value for " + name + "\n" +
                         method_.prototype());
    }

    // An array shorter than the contract says lets the driver read or write behind it; a longer one that it reads means
    // something else than its count. The NULL pointer is the driver's business.
    void check_length(std::size_t at, const Json &value) {
        const Parameter &parameter = method_.parameters[at];
        if (!method_.contract || !parameter.is_pointer() || (value.is_array() && value.empty())) return;
        const std::size_t expected = needed(at), size = value.is_array() ? value.size() : 1;
        const bool is_exact = parameter.said.direction != Direction::out && !parameter.said.length.argument.empty();
        if (size >= expected && (!is_exact || size == expected)) return;
        throw UsageError(
            parameter.name + ": " + std::to_string(size) + (size == 1 ? " element" : " elements") + ", but " +
            (parameter.said.length.argument.empty() ? "the driver takes " : parameter.said.length.argument + " says ") +
            std::to_string(expected) + "; --force sends them all the same");
    }

    const Dictionary &dictionary_;
    const Method &method_;
    const Input input_;
    const ArgumentOptions &options_;
    bool has_lists_ = false;
    std::vector<Slot> slots_;
    std::set<std::string> defaults_taken_;
};

}  // namespace

Json build_arguments(const Dictionary &dictionary, Types &types, const Method &method,
                     const std::vector<std::string> &words, const ArgumentOptions &options) {
    if (!method.is_described()) return plain_arguments(method, words);
    Arguments arguments(dictionary, types, method, options);
    std::vector<std::string> in_order = arguments.take_addressed(words);
    if (words.size() == 1 && in_order.size() == 1) {
        in_order[0] = text_of(in_order[0], method.parameters.empty() ? method.name : method.parameters[0].name);
        if (arguments.take_named(in_order[0])) in_order.clear();
    }
    arguments.take_in_order(in_order);
    return arguments.all();
}

}  // namespace lmqctl
