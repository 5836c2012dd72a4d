// Texts and JSON into values of the wire.
#include "input.h"

#include <algorithm>
#include <fstream>
#include <iostream>
#include <iterator>

#include "error.h"
#include "names.h"
#include "scalar_text.h"

namespace lmqctl {

namespace {

std::string contents(const std::string &source, const std::string &place) {
    if (source == "-") return {std::istreambuf_iterator<char>(std::cin), {}};
    std::ifstream file(source.substr(1), std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(file), {});
    if (!file) throw UsageError(place + ": cannot read the file " + source.substr(1));
    return text;
}

Json parsed(const std::string &text, const std::string &place) {
    try {
        return Json::parse(text, nullptr, true, true);
    } catch (const Json::parse_error &error) {
        std::string why = error.what();
        why = why.substr(why.find("] ") + 2);
        throw UsageError(place + ": broken JSON, " + why);
    }
}

std::string trimmed(const std::string &text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

// The flag that says a member is given: named like it, or like the beginning of a range's two ends.
const Member *flag_of(const Type &flags, const std::string &member) {
    if (const Member *same = flags.member(member)) return same;
    for (const Member &flag : flags.members)
        if (flag.name.ends_with("_range") && member.starts_with(flag.name.substr(0, flag.name.size() - 5)))
            return &flag;
    return nullptr;
}

const Type &bits_of(const Type &flags) { return flags.kind == Type::mask ? *flags.members[0].type : flags; }

bool is_zero(const Json &value) {
    if (value.is_number()) return value == 0;
    if (value.is_structured()) return std::all_of(value.begin(), value.end(), is_zero);
    return value.is_string() && value.get_ref<const std::string &>().empty();
}

}  // namespace

std::string text_of(const std::string &word, const std::string &place) {
    return word == "-" || (word.starts_with('@') && word.size() > 1) ? trimmed(contents(word, place)) : word;
}

bool is_valid_mask(const Type &structure, const Member &member) {
    if (member.type->kind != Type::mask && member.type->kind != Type::flags) return false;
    return std::any_of(structure.members.begin(), structure.members.end(), [&](const Member &other) {
        return &other != &member && flag_of(bits_of(*member.type), other.name);
    });
}

void Input::wrong(const Type &type, const std::string &given, const std::string &place, const std::string &hint) const {
    throw UsageError(place + ": " + (given.size() > 60 ? given.substr(0, 60) + "..." : given) + " is not " +
                     type.described() + hint);
}

Json Input::number(const Type &type, int64_t value, const std::string &place) const {
    if (type.width < 64 && !options_.force) {
        const int64_t highest =
            (int64_t{1} << (type.is_signed && type.kind == Type::integer ? type.width - 1 : type.width)) - 1;
        const int64_t lowest = type.is_signed || type.width == 32 ? -(int64_t{1} << (type.width - 1)) : 0;
        if (value < lowest || value > highest)
            wrong(type, std::to_string(value), place,
                  ": it goes from " + std::to_string(type.is_signed ? lowest : 0) + " to " + std::to_string(highest));
    }
    // The wire's int is signed, whatever the member is.
    return type.width <= 32 ? Json(static_cast<int32_t>(value)) : Json(value);
}

Json Input::named(const Type &type, const std::string &text, const std::string &place) const {
    int64_t bits = 0;
    for (const std::string &part : split(text, '|')) {
        const std::string name = trimmed(part);
        const Enum *values =
            type.kind == Type::enumeration ? dictionary_.enumeration(type.name) : dictionary_.enum_of(name);
        const Enumerator *value = values ? values->named(name) : nullptr;
        const std::optional<int64_t> plain = lmqctl::number(name), define = dictionary_.define_number(name);
        if (!value && !plain && !define) {
            std::vector<std::string> names = dictionary_.names(Dictionary::defines);
            if (type.kind == Type::enumeration && values) {
                names.clear();
                for (const Enumerator &each : values->values) names.push_back(each.name);
            }
            std::string hint = did_you_mean(name, names);
            if (hint.empty() && type.kind == Type::enumeration && !names.empty())
                hint = ", for example " + names[0] + "; lmqctl describe " + type.name + " lists them";
            wrong(type, name.empty() ? "an empty text" : name, place, hint);
        }
        bits |= value ? value->number : plain ? *plain : *define;
    }
    return number(type, bits, place);
}

Json Input::flags(const Type &type, const std::string &text, const std::string &place) const {
    const Type &bits = type.kind == Type::mask ? *type.members[0].type : type;
    Json value = Json::object();
    if (const std::optional<int64_t> plain = lmqctl::number(text)) {
        if (type.kind == Type::mask) return Json{{type.members[1].name, static_cast<int32_t>(*plain)}};
        for (std::size_t i = 0; i < bits.members.size() && i < 64; ++i) value[bits.members[i].name] = (*plain >> i) & 1;
    } else if (text != "none") {
        for (const std::string &part : split(text, '|')) {
            const std::string name = trimmed(part);
            if (!bits.member(name))
                wrong(type, name, place, ": no such flag" + did_you_mean(name, bits.member_names()));
            value[name] = 1;
        }
    }
    return type.kind == Type::mask ? Json{{type.members[0].name, value}} : value;
}

Json Input::structure(const Type &type, const Json &json, const std::string &place) const {
    Json value = Json::object();
    for (const auto &[key, inside] : json.items()) {
        const Member *member = type.member(key);
        if (!member) {
            const std::string what = type.kind == Type::flags     ? "flag"
                                     : type.kind == Type::overlay ? "alternative"
                                                                  : "member";
            throw UsageError(place + ": no " + what + " " + key + (type.name.empty() ? "" : " in " + type.name) +
                             did_you_mean(key, type.member_names()));
        }
        value[key] = from_json(*member->type, inside, place + "." + key);
    }
    // A template shows all alternatives. They share their place, and the zeros of one must not undo the edit of
    // another.
    if (type.kind == Type::overlay && value.size() > 1) {
        Json edited = Json::object();
        for (const auto &[key, inside] : value.items())
            if (!is_zero(inside)) edited[key] = inside;
        return edited;
    }
    return value;
}

Json Input::list(const Type &type, const Json &json, const std::string &place) const {
    if (type.bound && json.size() > type.bound && !options_.force)
        throw UsageError(place + ": " + std::to_string(json.size()) + " elements, but at most " +
                         std::to_string(type.bound) + " fit; --force sends them all the same");
    Json value = Json::array();
    for (const Json &item : json)
        value.push_back(from_json(*type.element, item, place + "[" + std::to_string(value.size()) + "]"));
    return value;
}

Json Input::from_text(const Type &type, const std::string &text, const std::string &place) const {
    if (const std::string held = text_of(text, place); held != text) {
        return held == "-" || held.starts_with('@') ? from_json(type, held, place) : from_text(type, held, place);
    }
    if (text.starts_with('{') || text.starts_with('[') || text.starts_with('"'))
        return from_json(type, parsed(text, place), place);
    return from_json(type, text, place);
}

Json Input::from_json(const Type &type, const Json &json, const std::string &place) const {
    const bool is_text = json.is_string();
    const std::string text =
        is_text ? json.get<std::string>() : json.dump(-1, ' ', false, Json::error_handler_t::replace);
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration:
            if (json.is_boolean()) return number(type, json.get<bool>(), place);
            if (json.is_number_integer()) return number(type, json.get<int64_t>(), place);
            if (!is_text) wrong(type, text, place);
            if (const std::optional<int64_t> plain = lmqctl::number(text)) return number(type, *plain, place);
            return named(type, text, place);
        case Type::text:
            if (!is_text && !json.is_number()) wrong(type, text, place);
            if (type.bound && text.size() > type.bound && !options_.force) wrong(type, "\"" + text + "\"", place);
            return text;
        case Type::flags:
        case Type::mask:
            if (is_text || json.is_number_integer()) return flags(type, text, place);
            if (!json.is_object()) wrong(type, text, place);
            return structure(type, json, place);
        case Type::mac:
            if (json.is_array()) return list(type, json, place);
            if (std::optional<Json> address = mac_from_text(text)) return *address;
            wrong(type, text, place, ", such as 00:11:22:33:44:55");
        case Type::array: {
            if (json.is_array()) return list(type, json, place);
            if (json.is_object() || type.element->kind == Type::structure) wrong(type, text, place);
            Json items = Json::array();
            if (!text.empty())
                for (const std::string &item : split(text, ',')) items.push_back(trimmed(item));
            return list(type, items, place);
        }
        case Type::ipv4:
        case Type::ipv6:
            if (json.is_object()) return structure(type, json, place);
            if (std::optional<Json> address = ip_from_text(type, text)) return *address;
            if (type.kind == Type::ipv4)
                if (const std::optional<int64_t> plain = lmqctl::number(text))
                    return Json{{type.members[0].name, number(*type.members[0].type, *plain, place)}};
            wrong(type, text, place, type.kind == Type::ipv4 ? ", such as 192.0.2.1" : ", such as 2001:db8::1");
        case Type::overlay:
            if (json.is_object()) return structure(type, json, place);
            // An address says by its form which alternative it is.
            if (is_text)
                for (const Member &alternative : type.members) {
                    std::optional<Json> address = ip_from_text(*alternative.type, text);
                    if (!address && alternative.type->kind == Type::mac) address = mac_from_text(text);
                    if (address) return Json{{alternative.name, *address}};
                }
            wrong(
                type, text, place, "; the alternatives: " + [&] {
                    std::string names;
                    for (const Member &alternative : type.members)
                        names += (names.empty() ? "" : ", ") + alternative.name;
                    return names;
                }());
        case Type::structure: {
            if (json.is_object()) {
                Json value = structure(type, json, place);
                if (options_.set_flags) set_flags(type, value);
                return value;
            }
            // A pointer to structs takes several.
            if (json.is_array()) {
                Json items = Json::array();
                for (const Json &item : json)
                    items.push_back(from_json(type, item, place + "[" + std::to_string(items.size()) + "]"));
                return items;
            }
            const Member *overlay = is_text ? type.address_overlay() : nullptr;
            if (overlay) {
                const Json address = from_json(*overlay->type, json, place);
                Json value{{overlay->name, address}};
                for (const auto &[number, name] : overlay->type->selected)
                    if (!value.contains(overlay->type->selector) && address.contains(name))
                        value[overlay->type->selector] = number;
                return value;
            }
            wrong(type, text, place, "; lmqctl describe " + type.name + " shows its members");
        }
    }
    return json;
}

void Input::set(const Type &type, Json &value, const std::string &path, const std::string &text,
                const std::string &place) const {
    if (path.empty()) {
        value = from_text(type, text, place);
        return;
    }
    if (path[0] == '[') {
        const std::size_t end = path.find(']');
        const std::optional<int64_t> index =
            end == std::string::npos ? std::nullopt : lmqctl::number(path.substr(1, end - 1));
        const bool is_list = type.kind == Type::array || type.kind == Type::mac;
        if (!index || *index < 0) throw UsageError(place + path + ": expected an index in brackets");
        if (!is_list && type.kind != Type::structure)
            throw UsageError(place + " is " + type.described() + " and has no elements");
        const std::size_t at = static_cast<std::size_t>(*index);
        if ((type.bound && at >= type.bound && !options_.force) || at > 65535)
            throw UsageError(place + path.substr(0, end + 1) + ": the last element is [" +
                             std::to_string(type.bound ? type.bound - 1 : 65535) + "]");
        const Type &element = is_list ? *type.element : type;
        if (!value.is_array()) value = Json::array();
        while (value.size() <= at)
            value.push_back(element.kind == Type::integer || element.kind == Type::enumeration ? Json(0)
                            : element.kind == Type::array || element.kind == Type::mac         ? Json::array()
                            : element.kind == Type::text                                       ? Json("")
                                                                                               : Json::object());
        set(element, value[at], path.substr(end + 1), text, place + path.substr(0, end + 1));
        return;
    }
    const std::size_t end = path.find_first_of(".[", 1);
    const std::string key = path.substr(1, end == std::string::npos ? end : end - 1);
    const Member *member = path[0] == '.' ? type.member(key) : nullptr;
    if (!member)
        throw UsageError(place + ": no member " + key + (type.name.empty() ? "" : " in " + type.name) +
                         did_you_mean(key, type.member_names()));
    if (!value.is_object()) value = Json::object();
    if (!value.contains(key)) value[key] = nullptr;
    set(*member->type, value[key], end == std::string::npos ? "" : path.substr(end), text, place + "." + key);
}

void Input::set_flags(const Type &type, Json &value) const {
    if (value.is_array()) {
        const Type &element = type.element ? *type.element : type;
        for (Json &item : value) set_flags(element, item);
    }
    if (!value.is_object() || !options_.set_flags) return;
    for (const Member &member : type.members)
        if (value.contains(member.name)) set_flags(*member.type, value[member.name]);
    if (type.kind != Type::structure) return;
    for (const Member &mask : type.members) {
        const bool two_views = mask.type->kind == Type::mask;
        if ((!two_views && mask.type->kind != Type::flags) || value.contains(mask.name)) continue;
        Json set = Json::object();
        for (const auto &[key, given] : value.items())
            if (const Member *flag = flag_of(two_views ? *mask.type->members[0].type : *mask.type, key))
                set[flag->name] = 1;
        if (!set.empty()) value[mask.name] = two_views ? Json{{mask.type->members[0].name, set}} : set;
    }
}

}  // namespace lmqctl
