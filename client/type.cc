// Types out of member lists and prototypes.
#include "type.h"

#include <algorithm>

#include "names.h"

namespace lmqctl {

namespace {

TypePtr shared(Type type) { return std::make_shared<const Type>(std::move(type)); }

bool is_byte(const Type &type) { return type.kind == Type::integer && type.width == 8; }

// An address of six bytes is declared as bytes; its name says what it is.
bool is_mac_name(const std::string &name) { return lower(name).find("mac") != std::string::npos; }

TypePtr list_of(TypePtr element, std::size_t bound, const std::string &name) {
    Type type;
    type.kind = bound == 6 && is_byte(*element) && is_mac_name(name) ? Type::mac : Type::array;
    type.element = std::move(element);
    type.bound = bound;
    return shared(type);
}

// Makes an address of what looks like one: a single number called ..._addr, or bytes, halves and words laid over each
// other, 128 bits each.
void recognise_address(Type &type) {
    if (type.kind != Type::structure || type.members.size() != 1) return;
    const Member &only = type.members[0];
    if (only.type->kind == Type::integer && only.type->width == 32 && lower(only.name).ends_with("addr"))
        type.kind = Type::ipv4;
    if (only.type->kind != Type::overlay) return;
    for (const Member &view : only.type->members)
        if (view.type->kind == Type::array && view.type->bound == 16) {
            type.kind = Type::ipv6;
            type.path = {only.name, view.name};
        }
}

// How well an enumerator says the name of an alternative: 0 not at all.
std::size_t likeness(const std::string &enumerator, const std::string &alternative) {
    const std::string name = lower(enumerator);
    if (name == alternative || name.ends_with("_" + alternative)) return 1000 + alternative.size();
    if (name.ends_with(alternative)) return 500 + alternative.size();
    if (name.find("_" + alternative + "_") != std::string::npos) return alternative.size();
    const std::size_t last = alternative.rfind('_');
    // "ipv4_long_key" is IPV4_LONG.
    return last == std::string::npos ? 0 : likeness(enumerator, alternative.substr(0, last)) / 2;
}

}  // namespace

const Member *Type::member(const std::string &member_name) const {
    for (const Member &candidate : members)
        if (candidate.name == member_name) return &candidate;
    return nullptr;
}

std::vector<std::string> Type::member_names() const {
    std::vector<std::string> names;
    for (const Member &candidate : members) names.push_back(candidate.name);
    return names;
}

const Member *Type::address_overlay() const {
    if (kind != structure) return nullptr;
    for (const Member &candidate : members) {
        const Type &type = *candidate.type;
        if (type.kind != overlay || type.selector.empty() || type.members.size() != 2) continue;
        if (type.members[0].type->kind == ipv4 && type.members[1].type->kind == ipv6) return &candidate;
    }
    return nullptr;
}

bool Type::is_boolean() const {
    if (kind != integer) return false;
    return lower(name).find("bool") != std::string::npos || meaning.range == std::make_pair(int64_t{0}, int64_t{1});
}

bool Type::is_bytes() const { return kind == array && is_byte(*element) && !element->is_boolean(); }

std::string Type::described() const {
    switch (kind) {
        case integer:
            return "a whole number of " + std::to_string(width) + " bits" + (name.empty() ? "" : " (" + name + ")") +
                   (is_boolean() ? ", or one of true, false, on, off" : "");
        case enumeration:
            return (meaning.is_bits ? "enumerators with | between them, of " : "an enumerator of ") + name;
        case text: return "a text of at most " + std::to_string(bound) + " characters";
        case array:
            return "an array of " + (bound ? "at most " + std::to_string(bound) + " " : "") + element->declared() +
                   (is_bytes() ? ", or a text" : "");
        case structure: return "a struct" + (name.empty() ? "" : " (" + name + ")");
        case flags:
        case mask: return "names of flags with | between them, or a number";
        case overlay: return "a struct with one of the alternatives";
        case mac: return "a MAC address";
        case ipv4: return "an IPv4 address";
        case ipv6: return "an IPv6 address";
    }
    return "";
}

std::string Type::declared() const {
    if (!held.empty()) return held;
    if (!name.empty()) return name;
    switch (kind) {
        case array:
        case mac: return element->declared() + "[" + (bound ? std::to_string(bound) : "") + "]";
        case text: return "text[" + std::to_string(bound) + "]";
        case flags:
        case mask: return "flags";
        case overlay: return "one of";
        case structure: return "struct";
        default: return "int";
    }
}

TypePtr Types::scalar(const std::string &name) {
    Type type;
    type.name = name;
    if (dictionary_.has(Dictionary::enums, name)) {
        type.kind = Type::enumeration;
        return shared(type);
    }
    const std::string base = dictionary_.base_type(name);
    type.is_signed = base.find("unsigned") == std::string::npos && base.find('*') == std::string::npos;
    if (base.find("char") != std::string::npos) type.width = 8;
    if (base.find("short") != std::string::npos) type.width = 16;
    if (base.find("long long") != std::string::npos) type.width = 64;
    return shared(type);
}

TypePtr Types::parameter(const Parameter &parameter) {
    if (parameter.is_udt)
        if (TypePtr found = udt(parameter.pointee())) return found;
    const Meaning &meaning = parameter.said.meaning;
    if (!parameter.is_pointer() || parameter.pointee() == "void") return with_meaning(scalar(parameter.type), meaning);
    return list_of(with_meaning(scalar(parameter.pointee()), meaning), is_mac_name(parameter.name) ? 6 : 0,
                   parameter.name);
}

TypePtr Types::udt(const std::string &name) {
    const auto known = udts_.find(name);
    if (known != udts_.end()) return known->second;
    std::optional<Json> told = dictionary_.udt(name);
    if (!told) {
        udts_[name] = nullptr;  // a host may say that a type stands behind itself
        const std::optional<std::string> behind = dictionary_.behind(name);
        return udts_[name] = behind ? udt(*behind) : nullptr;
    }
    Type type;
    type.kind = Type::structure;
    type.name = name;
    udts_[name] = nullptr;  // a host may say that a struct holds itself
    const Json &prototype = (*told)["prototype"];
    for (const Json &record : (*told)["members"]) {
        const std::string declared = record["name"], key = declared.substr(0, declared.find('['));
        type.members.push_back(
            {key, member(record["type"], declared, prototype.contains(key) ? prototype[key] : Json())});
    }
    const Json said = dictionary_.said(Dictionary::said_of_structs, name);
    type.is_union = said.is_object() && said.value("kind", "") == "union";
    if (said.is_null())
        find_selectors(type);
    else
        add_meanings(type, said["members"]);
    recognise_address(type);
    return udts_[name] = shared(type);
}

TypePtr Types::member(const std::string &type, const std::string &declared, const Json &prototype) {
    const std::size_t bracket = declared.find('[');
    const std::string name = declared.substr(0, bracket);
    if (prototype.is_string()) {
        Type text;
        text.kind = Type::text;
        if (bracket != std::string::npos)
            text.bound = static_cast<std::size_t>(
                number(declared.substr(bracket + 1, declared.find(']') - bracket - 1)).value_or(0));
        return shared(text);
    }
    if (prototype.is_array())
        return list_of(member(type, name, prototype.empty() ? Json() : prototype[0]), prototype.size(), name);
    if (prototype.is_object()) {
        TypePtr found = udt(type.starts_with("struct ") ? type.substr(7) : type);
        return found ? found : unnamed(name, prototype, true);
    }
    return scalar(type);
}

TypePtr Types::unnamed(const std::string &name, const Json &prototype, bool is_member) {
    const std::string_view known = dictionary_.json(Dictionary::shapes, shape(prototype));
    const bool is_flags =
        std::all_of(prototype.begin(), prototype.end(), [](const Json &value) { return value.is_number(); }) &&
        (name.find("mask") != std::string::npos || name.find("valid") != std::string::npos);
    // What an alternative holds is often a UDT of its own, and then has the keys of it.
    if (!is_flags && !is_member && !known.empty())
        if (TypePtr found = udt(Json::parse(known))) return found;
    Type type;
    for (const auto &[key, value] : prototype.items()) {
        const Json &one = value.is_array() && !value.empty() ? value[0] : value;
        Type single;
        single.is_signed = false;
        if (value.is_array() && (value.size() == 6 || value.size() == 16)) single.width = 8;
        TypePtr inside = one.is_object() ? unnamed(key, one, false) : shared(single);
        type.members.push_back({key, value.is_array() ? list_of(inside, value.size(), key) : inside});
    }
    const bool is_mask = type.members.size() == 2 && type.members[0].type->kind == Type::flags &&
                         type.members[1].type->kind == Type::integer;
    // A member's own struct lays alternatives over each other; one inside an alternative holds what belongs together.
    type.kind = is_flags ? Type::flags : is_mask ? Type::mask : is_member ? Type::overlay : Type::structure;
    return shared(type);
}

// Of what has no name, prototypes show no width.
TypePtr Types::with_width(const TypePtr &type, const Json &entry) {
    if (type->element) {
        const TypePtr element = with_width(type->element, entry);
        if (element == type->element) return type;
        Type changed = *type;
        changed.element = element;
        return shared(changed);
    }
    const bool is_unknown = type->kind == Type::integer && type->name.empty() && !entry.value("flag", false);
    return is_unknown ? scalar(entry["type"]) : type;
}

TypePtr Types::with_meaning(const TypePtr &type, const Meaning &meaning) const {
    Type changed = *type;
    if (type->element) {
        changed.element = with_meaning(type->element, meaning);
        return shared(changed);
    }
    if (type->kind != Type::integer && type->kind != Type::enumeration) return type;
    changed.meaning = meaning;
    if (type->kind == Type::integer && dictionary_.has(Dictionary::enums, meaning.enumeration)) {
        changed.kind = Type::enumeration;
        changed.held = type->declared();
        changed.name = meaning.enumeration;
    }
    return shared(changed);
}

TypePtr Types::with_meaning(const TypePtr &type, const Json &entry) {
    if (type->kind == Type::structure || type->kind == Type::overlay) {
        if (!type->name.empty() && !entry.contains("by")) return type;
        Type changed = *type;
        if (entry.contains("members")) add_meanings(changed, entry["members"]);
        if (entry.contains("by")) select(changed, entry);
        return shared(changed);
    }
    return with_meaning(with_width(type, entry), meaning_of(entry));
}

void Types::add_meanings(Type &structure, const Json &members) {
    for (const Json &entry : members)
        for (Member &member : structure.members) {
            if (member.name != entry["name"]) continue;
            member.brief = entry.value("brief", "");
            const TypePtr known = member.type->name.empty() ? udt(entry["type"]) : nullptr;
            member.type = with_meaning(known && member.type->kind == known->kind ? known : member.type, entry);
        }
}

void Types::select(Type &overlay, const Json &entry) const {
    overlay.selector = entry["by"];
    overlay.selected.clear();
    overlay.is_selector_told = true;
    for (const Json &alternative : entry.value("members", Json::array()))
        for (const Json &name : alternative.value("if", Json::array())) {
            const Enum *values = dictionary_.enum_of(name);
            const std::optional<int64_t> value =
                values ? values->named(name.get<std::string>())->number : number(name.get<std::string>());
            if (value && overlay.member(alternative["name"])) overlay.selected.emplace(*value, alternative["name"]);
        }
}

void Types::find_selectors(Type &structure) const {
    for (Member &overlay : structure.members) {
        if (overlay.type->kind != Type::overlay) continue;
        Type best = *overlay.type;
        std::size_t named = 1;
        for (const Member &sibling : structure.members) {
            const Enum *values =
                sibling.type->kind == Type::enumeration ? dictionary_.enumeration(sibling.type->name) : nullptr;
            if (!values) continue;
            std::map<int64_t, std::string> selected;
            std::vector<std::string> used;
            for (const Enumerator &value : values->values) {
                std::size_t most = 0;
                std::string choice;
                for (const Member &alternative : overlay.type->members)
                    if (const std::size_t alike = likeness(value.name, alternative.name); alike > most)
                        most = alike, choice = alternative.name;
                if (choice.empty()) continue;
                selected.emplace(value.number, choice);
                if (std::find(used.begin(), used.end(), choice) == used.end()) used.push_back(choice);
            }
            if (used.size() > named) named = used.size(), best.selector = sibling.name, best.selected = selected;
        }
        overlay.type = shared(best);
    }
}

}  // namespace lmqctl
