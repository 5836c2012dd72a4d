// The contract out of a host's description of its interface. Whoever answers may be anybody: everything that is used
// later is checked here for its type and size.
#include "contract.h"

#include <algorithm>
#include <stdexcept>

#include "dictionary.h"
#include "safe_text.h"

namespace lmqctl {

namespace {

constexpr std::size_t largest_description = 8 << 20;  // bytes
constexpr int deepest = 24;                           // objects and arrays in each other
constexpr int64_t most_elements = 65536;              // of an argument

[[noreturn]] void wrong(const std::string &place, const std::string &what) {
    throw std::runtime_error(place + ": " + what);
}

bool is_name(const std::string &text) {
    return !text.empty() && text.size() <= 200 && std::all_of(text.begin(), text.end(), [](unsigned char letter) {
        return letter == '_' || letter == '-' || letter == ' ' || (letter < 0x80 && std::isalnum(letter));
    });
}

void make_harmless(Json &json) {
    if (json.is_string()) json = harmless(json.get<std::string>());
    if (json.is_structured())
        for (Json &inside : json) make_harmless(inside);
}

using Check = void (*)(const Json &, const std::string &);

void check_text(const Json &json, const std::string &place) {
    if (!json.is_string()) wrong(place, "is no text");
}

void check_name(const Json &json, const std::string &place) {
    if (!json.is_string() || !is_name(json)) wrong(place, "is no name");
}

// A member that is declared without a name has an empty one.
void check_member_name(const Json &json, const std::string &place) {
    if (!json.is_string() || !json.get_ref<const std::string &>().empty()) check_name(json, place);
}

void check_number(const Json &json, const std::string &place) {
    if (!json.is_number_integer() || (json.is_number_unsigned() && json.get<uint64_t>() > INT64_MAX))
        wrong(place, "is no whole number");
}

void check_size(const Json &json, const std::string &place) {
    check_number(json, place);
    if (json < 0 || json > most_elements) wrong(place, "is no number of elements");
}

void check_flag(const Json &json, const std::string &place) {
    if (!json.is_boolean()) wrong(place, "is neither true nor false");
}

void check_numbers(const Json &json, const std::string &place) {
    if (!json.is_array()) wrong(place, "is no list");
    for (const Json &number : json) check_number(number, place);
}

void check_range(const Json &json, const std::string &place) {
    check_numbers(json, place);
    if (json.size() != 2 || json[0] > json[1]) wrong(place, "is no range");
}

void check_names(const Json &json, const std::string &place) {
    if (!json.is_array()) wrong(place, "is no list");
    for (const Json &name : json) check_name(name, place);
}

void check_length(const Json &json, const std::string &place) {
    if (json.is_null()) return;
    if (json.is_number()) return check_size(json, place);
    if (!json.is_string()) wrong(place, "is neither a number nor an argument");
    const std::string text = json;
    if (!is_name(text.starts_with('*') ? text.substr(1) : text)) wrong(place, "is no argument");
}

void check_direction(const Json &json, const std::string &place) {
    if (json != "in" && json != "out" && json != "inout") wrong(place, "is no direction");
}

bool is_place(const std::string &text) {
    return !text.empty() && text.size() <= 400 && std::all_of(text.begin(), text.end(), [](unsigned char letter) {
        return std::string("_.[]{}#").find(static_cast<char>(letter)) != std::string::npos ||
               (letter < 0x80 && std::isalnum(letter));
    });
}

// A number, a place, or an object of them.
void check_source(const Json &json, const std::string &place) {
    if (json.is_object()) {
        for (const auto &[name, source] : json.items()) check_source(source, place + "." + harmless(name));
    } else if (json.is_string()) {
        if (!is_place(json)) wrong(place, "is no place");
    } else {
        check_number(json, place);
    }
}

void check_sources(const Json &json, const std::string &place) {
    if (!json.is_object()) wrong(place, "is no object");
    check_source(json, place);
}

// Numbers of arguments, by methods.
void check_numbers_by_name(const Json &json, const std::string &place) {
    if (!json.is_object()) wrong(place, "is no object");
    for (const auto &[method, arguments] : json.items()) {
        if (!arguments.is_object()) wrong(place, "is no object of objects");
        for (const Json &number : arguments) check_number(number, place);
    }
}

void check_condition(const Json &json, const std::string &place) {
    if (!json.is_array() || json.size() != 3 || !json[0].is_string() || (json[1] != "=" && json[1] != "!="))
        wrong(place, "is no condition");
    check_source(json[0], place);
    check_number(json[2], place);
}

void check_read_back(const Json &json, const std::string &place);
void check_way(const Json &json, const std::string &place);
void check_members(const Json &json, const std::string &place);
void check_arguments(const Json &json, const std::string &place);
void check_values(const Json &json, const std::string &place);

// The keys that are used. Others are passed over and not kept.
struct Key {
    const char *name;
    Check check;
    bool is_needed = false;
};

const Key meaning_keys[] = {{"name", check_member_name, true},
                            {"type", check_text, true},
                            {"brief", check_text},
                            {"enum", check_name},
                            {"bits_of", check_name},
                            {"range", check_range},
                            {"or", check_numbers},
                            {"unit", check_text},
                            {"id", check_name},
                            {"ipv4", check_flag},
                            {"counter", check_flag},
                            {"report", check_flag},
                            {"text", check_flag},
                            {"mac", check_flag},
                            {"pointer", check_flag},
                            {"direction", check_direction},
                            {"length", check_length},
                            {"times", check_size},
                            {"length_if_zero", check_size},
                            {"filled", check_length},
                            {"flag", check_flag},
                            {"by", check_name},
                            {"if", check_names},
                            {"members", check_members}};
const Key method_keys[] = {{"family", check_name, true},
                           {"brief", check_text, true},
                           {"documentation", check_text},
                           {"effect", check_text, true},
                           {"clears_if", check_name},
                           {"result", check_text},
                           {"arguments", check_arguments, true},
                           {"read_back", check_read_back},
                           {"undone_by", check_way},
                           {"changed_by", check_way}};
const Key read_back_keys[] = {{"by", check_name, true},
                              {"with", check_sources},
                              {"walk", check_sources},
                              {"arguments", check_sources, true},
                              {"if", check_condition}};
const Key way_keys[] = {{"by", check_name, true}, {"keys", check_names}, {"arguments", check_sources, true}};
const Key struct_keys[] = {{"brief", check_text, true}, {"kind", check_name}, {"members", check_members, true}};
const Key enum_keys[] = {{"brief", check_text, true}, {"values", check_values, true}};
const Key value_keys[] = {{"brief", check_text}};
const Key typedef_keys[] = {{"brief", check_text}};
const Key id_keys[] = {{"brief", check_text},
                       {"range", check_range},
                       {"lists", check_names},
                       {"with", check_numbers_by_name},
                       {"each", check_name}};

template <std::size_t count>
void check_object(const Json &json, const Key (&keys)[count], const std::string &place) {
    if (!json.is_object()) wrong(place, "is no object");
    for (const Key &key : keys) {
        if (json.contains(key.name))
            key.check(json[key.name], place + "." + key.name);
        else if (key.is_needed)
            wrong(place, std::string("has no ") + key.name);
    }
}

void check_read_back(const Json &json, const std::string &place) {
    check_object(json, read_back_keys, place);
    for (const Json &number : json.value("with", Json::object())) check_number(number, place + ".with");
    for (const Json &name : json.value("walk", Json::object())) check_name(name, place + ".walk");
}

void check_way(const Json &json, const std::string &place) { check_object(json, way_keys, place); }

void check_members(const Json &json, const std::string &place) {
    if (!json.is_array()) wrong(place, "is no list");
    for (const Json &member : json) check_object(member, meaning_keys, place);
}

void check_arguments(const Json &json, const std::string &place) {
    check_members(json, place);
    for (const Json &argument : json)
        if (!argument.contains("direction")) wrong(place, "one has no direction");
}

void check_values(const Json &json, const std::string &place) {
    if (!json.is_object()) wrong(place, "is no object");
    for (const auto &[name, value] : json.items()) check_object(value, value_keys, place + "." + harmless(name));
}

// The entries under a key, as lines.
template <std::size_t count>
std::string lines_of(const Json &interface, const char *key, Dictionary::Kind kind, const Key (&keys)[count]) {
    if (!interface.contains(key) || !interface[key].is_object()) wrong(key, "are missing");
    std::string text;
    for (const auto &[name, entry] : interface[key].items()) {
        const std::string place = std::string(key) + "." + harmless(name);
        if (!is_name(name)) wrong(place, "is no name");
        check_object(entry, keys, place);
        Json kept = Json::object();
        for (const Key &each : keys)
            if (entry.contains(each.name)) kept[each.name] = entry[each.name];
        make_harmless(kept);
        text += Dictionary::line(kind, name, json_text(kept));
    }
    return text;
}

Length length_of(const Json &entry) {
    Length length;
    const Json said = entry.value("length", Json());
    if (said.is_number()) length.count = said;
    if (said.is_string()) {
        length.argument = said;
        length.is_behind = length.argument.starts_with('*');
        if (length.is_behind) length.argument.erase(0, 1);
    }
    length.times = entry.value("times", std::size_t{1});
    length.if_zero = entry.value("length_if_zero", std::size_t{0});
    if (const Json filled = entry.value("filled", Json()); filled.is_string()) {
        length.filled = filled;
        if (length.filled.starts_with('*')) length.filled.erase(0, 1);
    }
    return length;
}

ReadBack read_back_of(const Json &entry) {
    return {entry["by"], entry.value("with", std::map<std::string, int64_t>{}),
            entry.value("walk", std::map<std::string, std::string>{}), entry["arguments"], entry.value("if", Json())};
}

Way way_of(const Json &entry) {
    return {entry["by"], entry.value("keys", std::vector<std::string>{}), entry["arguments"]};
}

}  // namespace

bool Meaning::allows(int64_t value) const {
    return !range || (value >= range->first && value <= range->second) ||
           std::find(also.begin(), also.end(), value) != also.end();
}

std::string Meaning::range_text() const {
    std::string text = range->first == range->second
                           ? std::to_string(range->first)
                           : std::to_string(range->first) + " to " + std::to_string(range->second);
    for (const int64_t value : also) text += " or " + std::to_string(value);
    return text;
}

std::string Meaning::text() const {
    std::string text = range ? range_text() : "";
    if (!unit.empty()) text += (range ? " " : "in ") + unit;
    if (!id.empty()) text += (text.empty() ? "" : ", ") + ("id of a " + id);
    return text;
}

Meaning meaning_of(const Json &entry) {
    Meaning meaning;
    meaning.is_bits = entry.contains("bits_of");
    meaning.enumeration = entry.value(meaning.is_bits ? "bits_of" : "enum", "");
    meaning.is_ipv4 = entry.value("ipv4", false);
    meaning.is_counter = entry.value("counter", false);
    meaning.is_text = entry.value("text", false);
    if (entry.contains("range")) meaning.range = {entry["range"][0], entry["range"][1]};
    if (entry.contains("or")) meaning.also = entry["or"].get<std::vector<int64_t>>();
    meaning.unit = entry.value("unit", "");
    meaning.id = entry.value("id", "");
    return meaning;
}

std::string Length::said() const {
    if (argument.empty()) return std::to_string(count);
    return (is_behind ? "*" : "") + argument + (times > 1 ? " * " + std::to_string(times) : "");
}

MethodContract method_contract(const Json &entry) {
    MethodContract method{entry["family"],
                          entry["brief"],
                          entry.value("documentation", ""),
                          entry["effect"],
                          entry.value("clears_if", ""),
                          entry.value("result", ""),
                          {}};
    if (entry.contains("read_back")) method.read_back = read_back_of(entry["read_back"]);
    if (entry.contains("undone_by")) method.undone_by = way_of(entry["undone_by"]);
    if (entry.contains("changed_by")) method.changed_by = way_of(entry["changed_by"]);
    for (const Json &said : entry["arguments"]) {
        const std::string direction = said["direction"];
        method.arguments.push_back({direction == "in"    ? Direction::in
                                    : direction == "out" ? Direction::out
                                                         : Direction::inout,
                                    length_of(said), meaning_of(said), said["name"], said["type"],
                                    said.value("brief", "")});
    }
    return method;
}

Json parsed_description(const std::string &description) {
    if (description.size() > largest_description) wrong("it", "is too large");
    bool is_too_deep = false;
    const auto look = [&](int depth, Json::parse_event_t, Json &) {
        is_too_deep = is_too_deep || depth > deepest;
        return !is_too_deep;
    };
    Json interface = Json::parse(description, look, false);
    if (is_too_deep) wrong("it", "is nested too deep");
    if (!interface.is_object()) wrong("it", "is no JSON object");
    return interface;
}

std::string contract_lines(const std::string &description, const std::string &tag) {
    const Json interface = parsed_description(description);
    const Json fingerprint = interface.value("fingerprint", Json(""));
    return Dictionary::line(Dictionary::contract, "tag", Json(harmless(tag)).dump(-1, ' ', true)) +
           Dictionary::line(Dictionary::contract, "fingerprint",
                            Json(fingerprint.is_string() ? harmless(fingerprint) : "").dump(-1, ' ', true)) +
           lines_of(interface, "methods", Dictionary::said_of_methods, method_keys) +
           lines_of(interface, "structs", Dictionary::said_of_structs, struct_keys) +
           lines_of(interface, "enums", Dictionary::said_of_enums, enum_keys) +
           lines_of(interface, "typedefs", Dictionary::said_of_typedefs, typedef_keys) +
           lines_of(interface, "ids", Dictionary::ids, id_keys);
}

}  // namespace lmqctl
