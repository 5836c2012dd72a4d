// Texts and JSON into values of the wire.
#include "input.h"

#include <arpa/inet.h>

#include <algorithm>

#include "error.h"
#include "file.h"
#include "names.h"
#include "scalar_text.h"
#include "symbol.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

std::string trimmed(const std::string &text) {
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

// What stands for an element that is not given.
Json empty_of(const Type &element) {
    switch (element.kind) {
        case Type::integer:
        case Type::enumeration: return 0;
        case Type::array:
        case Type::mac: return Json::array();
        case Type::text: return "";
        default: return Json::object();
    }
}

// Names in a row, for people.
std::string joined(const std::vector<std::string> &names) {
    std::string text;
    for (const std::string &name : names) text += (text.empty() ? "" : ", ") + name;
    return text;
}

[[noreturn]] void refuse_unknown(const Type &type, const std::string &key, const std::string &place) {
    const std::string what = type.kind == Type::flags ? "flag" : type.kind == Type::overlay ? "alternative" : "member";
    std::string hint = did_you_mean(key, type.member_names());
    if (type.members.empty()) hint = ": it is " + type.described();
    if (hint.empty()) hint = "; there are " + joined(type.member_names());
    throw UsageError(place + ": no " + what + " " + key + (type.name.empty() ? "" : " in " + type.name) + hint);
}

// A value as people wrote it.
std::string written(const Json &json) { return json.is_string() ? json.get<std::string>() : json_text(json); }

}  // namespace

const Type &bits_of(const Type &mask) { return mask.kind == Type::mask ? *mask.members[0].type : mask; }

const Member *flag_of(const Type &flags, const std::string &member) {
    if (const Member *same = flags.member(member)) return same;
    for (const Member &flag : flags.members)
        if (flag.name.ends_with("_range") && member.starts_with(flag.name.substr(0, flag.name.size() - 5)))
            return &flag;
    return nullptr;
}

std::string text_of(const std::string &word, const std::string &place) {
    if (word != "-" && (!word.starts_with('@') || word.size() == 1)) return word;
    try {
        return trimmed(read_text(word == "-" ? word : word.substr(1)));
    } catch (const UsageError &error) {
        throw UsageError(place + ": " + error.what());
    }
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
    if (!options_.force && !type.meaning.allows(as_declared(type, value)))
        throw UsageError(place + ": " + std::to_string(value) + " is out of range, which is " +
                         type.meaning.range_text() + (type.meaning.unit.empty() ? "" : " " + type.meaning.unit) +
                         "; --force sends it all the same");
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

Json Input::flags_of_text(const Type &type, const std::string &text, const std::string &place) const {
    const Type &bits = bits_of(type);
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

Json Input::members(const Type &type, const Json &json, const std::string &place) const {
    Json value = Json::object();
    for (const auto &[key, inside] : json.items()) {
        const Member *member = type.member(key);
        if (!member) refuse_unknown(type, key, place);
        std::string inside_place = place;
        inside_place.append(".").append(key);
        value[key] = from_json(*member->type, inside, inside_place);
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
    check_text(text, place);
    if (options_.symbols && symbol_name(text)) return text;
    if (const std::string held = text_of(text, place); held != text) {
        check_text(held, place);
        return held == "-" || held.starts_with('@') ? from_json(type, held, place) : from_text(type, held, place);
    }
    if (type.is_bytes() && text.find_first_of("{[\"") != 0) return bytes_of_word(type, text, place);
    if (text.starts_with('{') || text.starts_with('[') || text.starts_with('"'))
        return from_json(type, json_of_user(text, place), place);
    return from_json(type, text, place);
}

Json Input::from_json(const Type &type, const Json &json, const std::string &place) const {
    if (options_.symbols && symbol_name(json)) return json;
    switch (type.kind) {
        case Type::integer:
        case Type::enumeration: return scalar(type, json, place);
        case Type::text: return text(type, json, place);
        case Type::flags:
        case Type::mask: return flags(type, json, place);
        case Type::array: return array(type, json, place);
        case Type::mac: return mac(type, json, place);
        case Type::ipv4:
        case Type::ipv6: return ip(type, json, place);
        case Type::overlay: return overlay(type, json, place);
        case Type::structure: return structure(type, json, place);
    }
    return json;
}

Json Input::scalar(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_boolean()) return number(type, json.get<bool>(), place);
    if (json.is_number_integer()) return number(type, json.get<int64_t>(), place);
    const std::string given = written(json);
    if (!json.is_string()) wrong(type, given, place);
    if (const std::optional<int64_t> plain = lmqctl::number(given)) return number(type, *plain, place);
    if (const std::string word = lower(given); type.is_boolean()) {
        if (word == "true" || word == "on") return number(type, 1, place);
        if (word == "false" || word == "off") return number(type, 0, place);
    }
    in_addr address;
    if (type.meaning.is_ipv4 && inet_pton(AF_INET, given.c_str(), &address) == 1)
        return number(type, ntohl(address.s_addr), place);
    return named(type, given, place);
}

Json Input::text(const Type &type, const Json &json, const std::string &place) const {
    const std::string given = written(json);
    if (!json.is_string() && !json.is_number()) wrong(type, given, place);
    if (type.bound && given.size() > type.bound && !options_.force) wrong(type, "\"" + given + "\"", place);
    check_text(given, place);
    return given;
}

Json Input::flags(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_object()) return members(type, json, place);
    if (!json.is_string() && !json.is_number_integer()) wrong(type, written(json), place);
    return flags_of_text(type, written(json), place);
}

Json Input::bytes(const Type &type, const std::string &text, const std::string &place) const {
    std::optional<Json> items = bytes_from_hex(text);
    if (!items) {
        items = Json::array();
        for (const char letter : text) items->push_back(static_cast<unsigned char>(letter));
    }
    if (type.bound && items->size() > type.bound && !options_.force)
        throw UsageError(place + ": \"" + text + "\" is " + std::to_string(items->size()) + " bytes, but at most " +
                         std::to_string(type.bound) + " fit; --force sends them all the same");
    return list(type, *items, place);
}

// Characters, or numbers with commas between them as of any array: what can be no number is characters.
Json Input::bytes_of_word(const Type &type, const std::string &text, const std::string &place) const {
    const std::optional<int64_t> single = lmqctl::number(text);
    const bool is_list =
        text.empty() || text.find(',') != std::string::npos || single || dictionary_.define_number(text);
    if (type.element->meaning.is_text || bytes_from_hex(text) || !is_list) return bytes(type, text, place);
    if (single && *single > 255)
        wrong(*type.element, text, place, R"(; a text of digits stands in double quotes: '"12345"')");
    return comma_list(type, text, place);
}

Json Input::comma_list(const Type &type, const std::string &text, const std::string &place) const {
    Json items = Json::array();
    if (!text.empty())
        for (const std::string &item : split(text, ',')) items.push_back(trimmed(item));
    return list(type, items, place);
}

Json Input::array(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_array()) return list(type, json, place);
    const std::string given = written(json);
    if (json.is_object() || type.element->kind == Type::structure) wrong(type, given, place);
    return json.is_string() && type.is_bytes() ? bytes(type, given, place) : comma_list(type, given, place);
}

Json Input::mac(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_array()) return list(type, json, place);
    if (std::optional<Json> address = mac_from_text(written(json))) return *address;
    wrong(type, written(json), place, ", such as 00:11:22:33:44:55");
}

Json Input::ip(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_object()) return members(type, json, place);
    const std::string given = written(json);
    if (std::optional<Json> address = ip_from_text(type, given)) return *address;
    if (type.kind == Type::ipv4)
        if (const std::optional<int64_t> plain = lmqctl::number(given))
            return Json{{type.members[0].name, number(*type.members[0].type, *plain, place)}};
    wrong(type, given, place, type.kind == Type::ipv4 ? ", such as 192.0.2.1" : ", such as 2001:db8::1");
}

Json Input::overlay(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_object()) {
        if (json.size() < 2) return members(type, json, place);
        // A template shows all alternatives. They share their place, and the zeros of one must not undo the edit of
        // another, whether they are in range or not.
        InputOptions lenient = options_;
        lenient.force = true;
        const Json given = Input(dictionary_, lenient).members(type, json, place);
        Json edited = Json::object();
        for (const auto &[key, inside] : given.items())
            if (!is_zero(inside)) edited[key] = json[key];
        return members(type, edited, place);
    }
    // An address says by its form which alternative it is.
    if (json.is_string())
        for (const Member &alternative : type.members) {
            std::optional<Json> address = ip_from_text(*alternative.type, written(json));
            if (!address && alternative.type->kind == Type::mac) address = mac_from_text(written(json));
            if (address) return Json{{alternative.name, *address}};
        }
    wrong(type, written(json), place, "; the alternatives: " + joined(type.member_names()));
}

Json Input::structure(const Type &type, const Json &json, const std::string &place) const {
    if (json.is_object()) return members(type, json, place);
    // A pointer to structs takes several.
    if (json.is_array()) {
        Json items = Json::array();
        for (const Json &item : json)
            items.push_back(from_json(type, item, place + "[" + std::to_string(items.size()) + "]"));
        return items;
    }
    const Member *overlay = json.is_string() ? type.address_overlay() : nullptr;
    if (!overlay) wrong(type, written(json), place, "; lmqctl describe " + type.name + " shows its members");
    const Json address = from_json(*overlay->type, json, place);
    Json value{{overlay->name, address}};
    for (const auto &[number, name] : overlay->type->selected)
        if (!value.contains(overlay->type->selector) && address.contains(name)) value[overlay->type->selector] = number;
    return value;
}

void Input::set(const Type &type, Json &value, const std::string &path, const std::string &text,
                const std::string &place) const {
    if (path.empty())
        value = from_text(type, text, place);
    else if (path[0] == '[')
        set_element(type, value, path, text, place);
    else
        set_member(type, value, path, text, place);
}

void Input::set_element(const Type &type, Json &value, const std::string &path, const std::string &text,
                        const std::string &place) const {
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
    while (value.size() <= at) value.push_back(empty_of(element));
    set(element, value[at], path.substr(end + 1), text, place + path.substr(0, end + 1));
}

void Input::set_member(const Type &type, Json &value, const std::string &path, const std::string &text,
                       const std::string &place) const {
    const std::size_t end = path.find_first_of(".[", 1);
    const std::string key = path.substr(1, end == std::string::npos ? end : end - 1);
    const Member *member = path[0] == '.' ? type.member(key) : nullptr;
    if (!member) refuse_unknown(type, key, place);
    if (!value.is_object()) value = Json::object();
    if (!value.contains(key)) value[key] = nullptr;
    set(*member->type, value[key], end == std::string::npos ? "" : path.substr(end), text, place + "." + key);
}

namespace {

// An object with one more member, in front of the others.
Json with_first(const std::string &key, const Json &value, const Json &object) {
    Json result{{key, value}};
    result.update(object);
    return result;
}

void check_selected(const Type &overlay, const std::string &alternative, const Json &selector,
                    const std::string &place) {
    const bool is_told = std::any_of(overlay.selected.begin(), overlay.selected.end(),
                                     [&](const auto &each) { return each.second == alternative; });
    if (!is_told || !selector.is_number_integer()) return;
    const auto chosen = overlay.selected.find(selector.get<int64_t>());
    if (chosen != overlay.selected.end() && chosen->second == alternative) return;
    throw UsageError(place + ": " + alternative + " is given, but " + overlay.selector + " selects " +
                     (chosen == overlay.selected.end() ? "no alternative" : chosen->second) + "; leave " +
                     overlay.selector + " out, or --force sends them all the same");
}

}  // namespace

std::optional<int64_t> Input::selecting(const Type &structure, const Member &overlay, const std::string &alternative,
                                        const std::string &place) const {
    std::vector<int64_t> numbers;
    for (const auto &[number, name] : overlay.type->selected)
        if (name == alternative) numbers.push_back(number);
    if (numbers.size() < 2) return numbers.empty() ? std::nullopt : std::optional(numbers[0]);
    const std::string &selector = overlay.type->selector;
    std::vector<std::string> choices;
    for (const int64_t number : numbers)
        choices.push_back(scalar_to_text(dictionary_, *structure.member(selector)->type, number));
    throw UsageError(place + ": " + selector + " is missing, and " + alternative +
                     " stands for several: " + joined(choices));
}

void Input::set_selectors(const Type &type, Json &value, const std::string &place) const {
    if (value.is_array()) {
        const Type &element = type.element ? *type.element : type;
        for (std::size_t i = 0; i < value.size(); ++i)
            set_selectors(element, value[i], place + "[" + std::to_string(i) + "]");
    }
    if (!value.is_object()) return;
    for (const Member &member : type.members) {
        if (!value.contains(member.name)) continue;
        Json &inside = value[member.name];
        set_selectors(*member.type, inside, place + "." + member.name);
        const Type &overlay = *member.type;
        if (overlay.kind != Type::overlay || !inside.is_object() || inside.size() != 1 ||
            !type.member(overlay.selector))
            continue;
        const std::string alternative = inside.begin().key();
        if (!value.contains(overlay.selector)) {
            const auto number = selecting(type, member, alternative, place + "." + member.name);
            if (number) value = with_first(overlay.selector, *number, value);
        } else if (overlay.is_selector_told && !options_.force) {
            check_selected(overlay, alternative, value[overlay.selector], place + "." + member.name);
        }
    }
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
            if (const Member *flag = flag_of(bits_of(*mask.type), key)) set[flag->name] = 1;
        if (!set.empty()) value[mask.name] = two_views ? Json{{mask.type->members[0].name, set}} : set;
    }
}

}  // namespace lmqctl
