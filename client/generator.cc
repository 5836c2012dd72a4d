// Values for arguments and members. What has succeeded comes again: what was added can be read, changed and deleted.
#include "generator.h"

#include <algorithm>

#include "answer.h"
#include "scalar_text.h"

namespace lmqctl {

namespace {

constexpr std::size_t domain_size = 3;  // values that a number without a range has in the end
constexpr std::size_t most_known = 40;  // ids of a kind
constexpr std::size_t most_kept = 20;   // calls of a family that came to pass
constexpr std::size_t most_elements = 64;

// Enumerators that close or count a list, and are no value.
bool is_real(const Enumerator &value) {
    for (const char *end : {"_MAX", "_END", "_INVALID", "_NUM", "_COUNT"})
        if (value.name.ends_with(end)) return false;
    return true;
}

// By what an argument of another call stands for the same thing.
std::string key_of(const Parameter &parameter) {
    if (parameter.is_udt) return parameter.pointee();
    return parameter.said.meaning.id.empty() ? parameter.name : "id " + parameter.said.meaning.id;
}

int64_t least(const Type &type) { return type.is_signed ? -(int64_t{1} << (std::min(type.width, 63U) - 1)) : 0; }

int64_t greatest(const Type &type) {
    return (int64_t{1} << (std::min(type.width, 62U) - (type.is_signed ? 1 : 0))) - 1;
}

}  // namespace

bool is_truth(const Member &member) {
    return member.type->kind == Type::integer && !member.type->meaning.range && member.type->meaning.id.empty() &&
           (member.brief.starts_with("TRUE") || member.brief.starts_with("Whether "));
}

std::size_t elements_of(const Method &method, std::size_t at, const Json &parameters) {
    const Length &length = method.parameters[at].said.length;
    if (length.argument.empty()) return length.count * std::max<std::size_t>(length.times, 1);
    for (std::size_t i = 0; i < method.parameters.size() && i < parameters.size(); ++i) {
        if (method.parameters[i].name != length.argument) continue;
        const Json &said = parameters[i].is_array() && !parameters[i].empty() ? parameters[i][0] : parameters[i];
        const std::size_t number = said.is_number_integer() && said > 0 ? said.get<std::size_t>() : 0;
        return (number ? number : length.if_zero) * std::max<std::size_t>(length.times, 1);
    }
    return 1;
}

Json Generator::arguments(const Method &method) {
    family_ = method.contract ? method.contract->family : "";
    const Values *before = recalled(method);
    Json parameters = Json::array();
    const auto is_count = [&](const std::string &name) {
        return std::any_of(method.parameters.begin(), method.parameters.end(),
                           [&](const Parameter &each) { return each.said.length.argument == name; });
    };
    for (const Parameter &parameter : method.parameters) {
        const TypePtr type = types_.parameter(parameter);
        if (is_count(parameter.name)) {
            const int64_t made = count(type->element ? *type->element : *type);
            parameters.push_back(parameter.is_pointer() ? Json::array({made}) : Json(made));
        } else if (parameter.is_pointer()) {
            parameters.push_back(nullptr);  // its length may be said by one that comes later
        } else {
            const auto found = before ? before->find(key_of(parameter)) : Values::const_iterator();
            const bool again = before && found != before->end() && random_.percent(85);
            parameters.push_back(again ? found->second : value(*type, parameter.name));
        }
    }
    for (std::size_t i = 0; i < method.parameters.size(); ++i)
        if (parameters[i].is_null()) parameters[i] = pointer(method, i, parameters, before);
    return parameters;
}

Json Generator::pointer(const Method &method, std::size_t at, const Json &parameters, const Values *before) {
    const Parameter &parameter = method.parameters[at];
    if (parameter.pointee() == "void") return 0;
    const TypePtr type = types_.parameter(parameter);
    const Type &element = parameter.is_udt || !type->element ? *type : *type->element;
    const std::size_t told = std::min(elements_of(method, at, parameters), most_elements);
    const auto found = before ? before->find(key_of(parameter)) : Values::const_iterator();
    const bool again = before && found != before->end() && random_.percent(40);
    Json elements = Json::array();
    for (std::size_t i = 0; i < told; ++i) {
        if (parameter.said.direction == Direction::out)
            elements.push_back(parameter.is_udt ? Json::object() : Json(0));
        else
            elements.push_back(i == 0 && again ? found->second : value(element, parameter.name));
    }
    const std::size_t guards = random_.percent(40) ? 1 + random_.below(2) : 0;
    for (std::size_t i = 0; i < guards; ++i) elements.push_back(value(element, parameter.name));
    return elements;
}

// The arguments of an earlier call of the same family, more often than not.
const Generator::Values *Generator::recalled(const Method &method) {
    const auto kept = accepted_.find(method.contract ? method.contract->family : "");
    if (kept == accepted_.end() || !random_.percent(70)) return nullptr;
    return &random_.one_of(kept->second);
}

// The one of a kind that a family's calls are mostly about, so that they meet at it.
std::optional<int64_t> Generator::favourite(const std::string &kind) {
    const auto found = favourites_.find(family_ + " " + kind);
    return found == favourites_.end() ? std::nullopt : std::optional(found->second);
}

int64_t Generator::count(const Type &type) {
    const auto range = type.meaning.range.value_or(std::pair<int64_t, int64_t>(1, 4));
    const int64_t low = std::max<int64_t>(range.first, 1);
    return random_.between(low, std::max(low, std::min(low + 3, range.second)));
}

Json Generator::value(const Type &type, const std::string &name) {
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration: return number(type, name);
        case Type::text: {
            std::string text(random_.below(std::max<std::size_t>(type.bound, 1)), ' ');
            for (char &letter : text) letter = static_cast<char>('a' + random_.below(26));
            return text;
        }
        case Type::array:
        case Type::mac: return array(type, name);
        case Type::flags: return flags(type);
        case Type::mask: return Json{{type.members[0].name, flags(*type.members[0].type)}};
        case Type::overlay: return overlay(type, Json::object());
        default: return structure(type);
    }
}

Json Generator::number(const Type &type, const std::string &name) {
    if (hostile_ && random_.percent(12)) return hostile_number(type);
    if (type.name == "vx_boolean") return random_.below(2);
    if (type.kind == Type::enumeration) return enumerator(type);
    const Meaning &meaning = type.meaning;
    if (!meaning.id.empty()) {
        if (const std::optional<int64_t> id = favourite(meaning.id); id && random_.percent(50)) return *id;
        const auto known = known_.find(meaning.id);
        if (known != known_.end() && random_.percent(85)) return random_.one_of(known->second);
    }
    if (!meaning.also.empty() && random_.percent(10)) return random_.one_of(meaning.also);
    // Few values come again and again, so that calls that belong together meet.
    std::vector<int64_t> &domain = domains_[type.declared() + " " + name];
    if (domain.size() < domain_size || random_.percent(10)) {
        const int64_t made = fresh_number(type);
        if (domain.size() < domain_size) domain.push_back(made);
        return made;
    }
    return random_.one_of(domain);
}

int64_t Generator::enumerator(const Type &type) {
    const Enum *values = dictionary_.enumeration(type.name);
    if (!values || values->values.empty()) return 0;
    std::vector<int64_t> numbers;
    for (const Enumerator &each : values->values)
        if (is_real(each)) numbers.push_back(each.number);
    if (numbers.empty()) numbers.push_back(values->values[0].number);
    const int64_t chosen = random_.one_of(numbers);
    if (!type.meaning.is_bits || random_.percent(50)) return as_declared(type, chosen);
    return as_declared(type, chosen | random_.one_of(numbers));
}

int64_t Generator::fresh_number(const Type &type) {
    const Meaning &meaning = type.meaning;
    std::optional<std::pair<int64_t, int64_t>> range = meaning.range;
    if (!range && !meaning.id.empty())
        if (const Json kind = dictionary_.said(Dictionary::ids, meaning.id); kind.is_object() && kind.contains("range"))
            range = {kind["range"][0], kind["range"][1]};
    if (range) {
        const auto [low, high] = *range;
        const int64_t chosen[] = {low, high, random_.between(low, high), std::min(high, low + 1),
                                  std::min(high, low + 3)};
        return chosen[random_.below(5)];
    }
    // Of a host, of a group.
    if (meaning.is_ipv4)
        return random_.percent(50) ? 0x0a000000 + random_.between(1, 3) : 0xef010100 + random_.between(1, 3);
    const int64_t chosen[] = {0, 1, 1, 2, 3, 10, 100, random_.between(0, 0xffff), random_.between(0, 0x7fffffff)};
    return std::min(chosen[random_.below(9)], greatest(type));
}

int64_t Generator::hostile_number(const Type &type) {
    const Meaning &meaning = type.meaning;
    std::vector<int64_t> chosen{least(type), greatest(type), random_.between(least(type), greatest(type)), -1};
    if (meaning.range) chosen.insert(chosen.end(), {meaning.range->first - 1, meaning.range->second + 1});
    return as_declared(type, std::clamp(random_.one_of(chosen), least(type), greatest(type)));
}

Json Generator::structure(const Type &type) {
    if (type.kind == Type::ipv6) {
        Json bytes = Json::array({0x20, 0x01, 0x0d, 0xb8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, random_.between(1, 3)});
        if (random_.percent(30)) bytes[0] = 0xff;
        return Json{{type.path[0], Json{{type.path[1], bytes}}}};
    }
    if (type.is_union) return overlay(type, Json::object());
    Json made = Json::object();
    // What selects an alternative comes first, wherever it stands.
    for (const Member &member : type.members)
        if (type.member(member.name + "_s"))
            continue;  // the word over the flags that this one holds
        else if (is_truth(member))
            made[member.name] = hostile_ ? random_.below(3) : random_.below(2);
        else if (member.type->kind != Type::overlay)
            made[member.name] = value(*member.type, member.name);
    for (const Member &member : type.members)
        if (member.type->kind == Type::overlay) made[member.name] = overlay(*member.type, made);
    return made;
}

Json Generator::overlay(const Type &type, const Json &siblings) {
    if (type.members.empty()) return Json::object();
    const Member *chosen = &random_.one_of(type.members);
    if (siblings.contains(type.selector) && siblings[type.selector].is_number_integer())
        if (const auto found = type.selected.find(siblings[type.selector].get<int64_t>()); found != type.selected.end())
            if (const Member *named = type.member(found->second)) chosen = named;
    return Json{{chosen->name, value(*chosen->type, chosen->name)}};
}

Json Generator::flags(const Type &type) {
    Json made = Json::object();
    const bool all = random_.percent(60);
    for (const Member &member : type.members)
        if (!member.name.starts_with("reserved")) made[member.name] = all || random_.percent(50) ? 1 : 0;
    return made;
}

Json Generator::array(const Type &type, const std::string &name) {
    const std::size_t bound = std::max<std::size_t>(type.bound, 1);
    Json made = Json::array();
    if (type.kind == Type::mac) {
        // Stations that come again, and now and then a group.
        made = {random_.percent(15) ? 1 : 0, 0x11, 0x22, 0x33, 0x44, random_.between(1, 3)};
        return made;
    }
    std::size_t size = bound <= 16 || random_.percent(10) ? bound : 1 + random_.below(4);
    const bool is_text = type.element->meaning.is_text;
    if (is_text) size = random_.below(bound);
    for (std::size_t i = 0; i < size; ++i)
        made.push_back(is_text ? Json(random_.between('a', 'z')) : value(*type.element, name));
    return made;
}

void Generator::accept(const Method &method, const Json &sent, const Json &answer) {
    Values kept;
    for (std::size_t i = 0; i < method.parameters.size() && i < sent.size(); ++i) {
        const Parameter &parameter = method.parameters[i];
        const TypePtr type = types_.parameter(parameter);
        if (i + 1 < answer.size() && parameter.pointee() != "void") learn(*type, filled(method, i, answer));
        if (parameter.said.direction != Direction::in) continue;
        const Json &one = sent[i].is_array() && !sent[i].empty() ? sent[i][0] : sent[i];
        if (!one.is_array()) kept[key_of(parameter)] = one;
        const std::string &kind = parameter.said.meaning.id;
        if (kind.empty() || !one.is_number_integer()) continue;
        const std::string key = (method.contract ? method.contract->family : "") + " " + kind;
        if (!favourites_.contains(key) || random_.percent(2)) favourites_[key] = one.get<int64_t>();
    }
    std::vector<Values> &all = accepted_[method.contract ? method.contract->family : ""];
    if (all.size() >= most_kept) all.erase(all.begin());
    all.push_back(std::move(kept));
}

// The ids in an answer; of alternatives, in all, for one that selects nothing has no harm in it.
void Generator::learn(const Type &type, const Json &value) {
    if (value.is_array())
        for (const Json &each : value) learn(type.element ? *type.element : type, each);
    if (value.is_object())
        for (const Member &member : type.members)
            if (value.contains(member.name) && member.type->kind != Type::flags)
                learn(*member.type, value[member.name]);
    if (!value.is_number_integer() || type.meaning.id.empty()) return;
    std::vector<int64_t> &known = known_[type.meaning.id];
    const int64_t id = as_declared(type, value.get<int64_t>());
    if (std::find(known.begin(), known.end(), id) != known.end()) return;
    if (known.size() >= most_known) known.erase(known.begin());
    known.push_back(id);
}

}  // namespace lmqctl
