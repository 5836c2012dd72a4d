// Answers compared with what was sent.
#include "checks.h"

#include <algorithm>
#include <set>

#include "answer.h"
#include "difference.h"
#include "generator.h"
#include "input.h"
#include "names.h"
#include "scalar_text.h"

namespace lmqctl {

namespace {

// "p_cfg" and "cfg" are the same thing to a setter and a getter.
std::string bare(const std::string &name) { return name.starts_with("p_") ? name.substr(2) : name; }

// The argument of a setter that stands for one of its getter.
std::optional<std::size_t> counterpart(const Method &setter, const Parameter &wanted) {
    std::vector<std::size_t> of_type;
    for (std::size_t i = 0; i < setter.parameters.size(); ++i) {
        const Parameter &parameter = setter.parameters[i];
        if (parameter.said.direction != Direction::in) continue;
        // As the headers have it: the dictionary names a pointer to a number by what is behind its type.
        const bool is_same_type = parameter.said.type == wanted.said.type;
        if (is_same_type && bare(parameter.name) == bare(wanted.name)) return i;
        if (is_same_type && parameter.is_udt) of_type.push_back(i);
    }
    return of_type.size() == 1 ? std::optional(of_type[0]) : std::nullopt;
}

// Whether a member leaves open what of a struct was set: flags in an enum, which says by its names alone what they
// mean, or a switch that says that the entry is none.
bool may_be_unsaid(const Member &member, const Json &value) {
    const std::string name = lower(member.name);
    if (member.type->meaning.is_bits) return name.find("mask") != std::string::npos;
    return name.find("valid") != std::string::npos && value == 0;
}

// Whether what is read need not be what was set: a number of the call that is not read says what becomes of the others,
// or only the bits are meant that another argument has.
bool is_partial(const Method &setter, const Method &getter) {
    std::set<std::size_t> read;
    for (const Parameter &parameter : getter.parameters) {
        if (const auto from = counterpart(setter, parameter)) read.insert(*from);
        if (parameter.said.direction != Direction::out && parameter.said.meaning.unit == "bits") return true;
    }
    for (std::size_t i = 0; i < setter.parameters.size(); ++i)
        if (!setter.parameters[i].is_pointer() && !read.contains(i)) return true;
    return false;
}

// Without the members that stand for what an argument of the call says already.
Json without_arguments(const Method &method, Json value) {
    if (value.is_object())
        for (const Parameter &parameter : method.parameters)
            if (!parameter.is_pointer()) value.erase(parameter.name);
    return value;
}

const Json &first_of(const Json &value) { return value.is_array() && !value.empty() ? value[0] : value; }

}  // namespace

bool Checks::is_no_status(const Method &method, const Json &answer) const {
    const Enum *values = dictionary_.enumeration(method.result);
    const Json &result = result_of(answer);
    return values && result.is_number_integer() && !values->numbered(result.get<int64_t>());
}

std::optional<std::string> Checks::changed_input(const Method &method, const Json &sent, const Json &answer) const {
    for (std::size_t i = 0; i < method.parameters.size() && i + 1 < answer.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        if (parameter.said.direction == Direction::unknown || parameter.pointee() == "void") continue;
        const bool is_input = parameter.said.direction == Direction::in;
        const TypePtr type = types_.parameter(parameter);
        const Type &element = parameter.is_udt || !type->element ? *type : *type->element;
        if (!sent[i].is_array()) {
            if (!is_input) continue;
            if (const auto found = difference(element, sent[i], first_of(answer[i + 1]), parameter.name, false))
                return found->place + ": " + json_text(found->sent) + " became " + json_text(found->got);
            continue;
        }
        for (std::size_t at = is_input ? 0 : elements_of(method, i, sent); at < sent[i].size(); ++at) {
            if (!answer[i + 1].is_array() || at >= answer[i + 1].size()) break;
            const std::string place = parameter.name + "[" + std::to_string(at) + "]";
            if (const auto found = difference(element, sent[i][at], answer[i + 1][at], place, false))
                return found->place + ": " + json_text(found->sent) + " became " + json_text(found->got);
        }
    }
    return {};
}

std::optional<Checks::Difference> Checks::difference(const Type &type, const Json &sent, const Json &got,
                                                     const std::string &place, bool only_flagged) const {
    if (sent.is_number_integer()) {
        if (!got.is_number_integer()) return {};
        const int64_t before = as_declared(type, sent.get<int64_t>()), after = as_declared(type, got.get<int64_t>());
        const bool is_same = type.name == "vx_boolean" ? (before != 0) == (after != 0) : before == after;
        // Another part of the call may have ended what was set, and then it reads as none.
        const std::vector<int64_t> &none = type.meaning.also;
        if (only_flagged && (runs_by_itself(type, place) || std::find(none.begin(), none.end(), after) != none.end()))
            return {};
        return is_same ? std::nullopt : std::optional(Difference{place, before, after});
    }
    if (sent.is_string())
        return got == sent || !got.is_string() ? std::nullopt : std::optional(Difference{place, sent, got});
    if (sent.is_array()) {
        if (!got.is_array()) return {};
        for (std::size_t i = 0; i < sent.size() && i < got.size(); ++i)
            if (const auto found = difference(type.element ? *type.element : type, sent[i], got[i],
                                              place + "[" + std::to_string(i) + "]", only_flagged))
                return found;
        return {};
    }
    return sent.is_object() && got.is_object() ? member_difference(type, sent, got, place, only_flagged) : std::nullopt;
}

std::optional<Checks::Difference> Checks::member_difference(const Type &type, const Json &sent, const Json &got,
                                                            const std::string &place, bool only_flagged) const {
    // Under which members the flags of a mask say that they count; without a mask all do. Which of them an enum of
    // flags means, its names alone say.
    const Json *flags = nullptr;
    const Type *flags_type = nullptr;
    for (const Member &member : type.members) {
        if (!only_flagged || !sent.contains(member.name)) continue;
        const bool is_mask = member.type->kind == Type::flags || member.type->kind == Type::mask;
        if (!is_mask && !may_be_unsaid(member, sent[member.name])) continue;
        if (!is_mask || !is_valid_mask(type, member)) return {};
        flags = &sent[member.name];
        flags_type = member.type.get();
        if (flags_type->kind == Type::mask) {
            if (!flags->contains(flags_type->members[0].name)) return {};
            flags = &(*flags)[flags_type->members[0].name];
            flags_type = flags_type->members[0].type.get();
        }
    }
    for (const auto &[name, value] : sent.items()) {
        const Member *member = type.member(name);
        if (!member || !got.contains(name)) continue;
        const bool is_mask = member->type->kind == Type::flags || member->type->kind == Type::mask;
        if (only_flagged && is_mask) continue;
        if (flags) {
            // What no flag stands for is reported, or a key.
            const Member *flag = flag_of(*flags_type, name);
            if (!flag || !flags->contains(flag->name) || (*flags)[flag->name] == 0) continue;
        }
        if (is_truth(*member) && value.is_number_integer() && got[name].is_number_integer() &&
            (value != 0) == (got[name] != 0))
            continue;
        if (const auto found = difference(*member->type, value, got[name], place + "." + name, only_flagged))
            return found;
    }
    return {};
}

const std::string &Checks::getter_of(const Method &setter) const {
    const auto known = getters_.find(setter.name);
    return known != getters_.end() ? known->second : getters_.emplace(setter.name, find_getter(setter)).first->second;
}

std::string Checks::find_getter(const Method &setter) const {
    if (!setter.contract || setter.contract->effect != "changes") return "";
    std::vector<std::string> words = split(setter.name, '_');
    const auto set = std::find(words.begin(), words.end(), "set");
    if (set == words.end()) return "";
    *set = "get";
    std::string name;
    for (const std::string &word : words) name += (name.empty() ? "" : "_") + word;
    const std::optional<Method> getter = dictionary_.method(name);
    if (!getter || !getter->contract || getter->contract->effect != "reads") return "";
    bool gives_something = false;
    for (const Parameter &parameter : getter->parameters) {
        const bool is_asked = parameter.said.direction != Direction::out;
        const bool is_set = counterpart(setter, parameter).has_value();
        // A list of all is compared with nothing, and so is a getter that takes more than its setter.
        if ((is_asked && !is_set) || !parameter.said.length.argument.empty()) return "";
        gives_something = gives_something || (!is_asked && is_set);
    }
    return gives_something ? name : "";
}

std::optional<Json> Checks::reading_of(const Method &setter, const Json &sent, Method &getter) const {
    const std::string &name = getter_of(setter);
    if (name.empty()) return {};
    getter = *dictionary_.method(name);
    Json parameters = Json::array();
    for (const Parameter &parameter : getter.parameters) {
        const auto from = counterpart(setter, parameter);
        if (parameter.said.direction != Direction::out)
            parameters.push_back(sent[*from]);
        else
            parameters.push_back(Json(std::max<std::size_t>(parameter.said.length.count, 1),
                                      parameter.is_udt ? Json::object() : Json(0)));
    }
    return parameters;
}

std::optional<std::string> Checks::lost_setting(const Method &setter, const Json &sent, const Method &getter,
                                                const Json &answer) const {
    if (is_partial(setter, getter)) return {};
    for (std::size_t i = 0; i < getter.parameters.size() && i + 1 < answer.size(); ++i) {
        const Parameter &parameter = getter.parameters[i];
        const auto from = counterpart(setter, parameter);
        if (parameter.said.direction != Direction::out || !from) continue;
        const Parameter &source = setter.parameters[*from];
        if (source.is_pointer() && parameter.said.length.count != source.said.length.count) continue;
        const TypePtr type = types_.parameter(source);
        const bool is_list = parameter.said.length.count > 1;
        const Type &element = source.is_udt || !type->element ? *type : *type->element;
        const auto found = is_list ? difference(*type, sent[*from], answer[i + 1], parameter.name, true)
                                   : difference(element, without_arguments(setter, first_of(sent[*from])),
                                                first_of(answer[i + 1]), parameter.name, true);
        if (found)
            return found->place + ": " + json_text(found->sent) + " was set, " + json_text(found->got) + " was read";
    }
    return {};
}

}  // namespace lmqctl
