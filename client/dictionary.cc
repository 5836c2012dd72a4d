// The dictionary's lines, and what is read of them.
#include "dictionary.h"

#include <algorithm>
#include <charconv>

#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

// A call looks up some dozens of entries: an index of two thousand takes longer than that many searches.
constexpr std::size_t most_searches = 100;

constexpr std::string_view mark = "lmqctl dictionary 3 ";

// Reads [["NAME",1],...] as it is kept, without a tree of it: the statuses are five hundred. Nothing for another form.
std::optional<std::vector<Enumerator>> plain_enumerators(std::string_view json) {
    std::vector<Enumerator> values;
    if (!json.starts_with('[') || !json.ends_with(']') || json.find('\\') != std::string_view::npos) return {};
    json = json.substr(1, json.size() - 2);
    while (!json.empty()) {
        if (json.starts_with(',')) json.remove_prefix(1);
        const std::size_t end = json.find("\",");
        if (!json.starts_with("[\"") || end == std::string_view::npos) return {};
        Enumerator value{std::string(json.substr(2, end - 2)), 0, 0, ""};
        const char *const begin = json.data() + end + 2, *const last = json.data() + json.size();
        const auto [behind, failure] = std::from_chars(begin, last, value.listed);
        if (failure != std::errc() || behind == last || *behind != ']') return {};
        value.number = value.listed;
        json.remove_prefix(static_cast<std::size_t>(behind + 1 - json.data()));
        values.push_back(std::move(value));
    }
    return values;
}

std::vector<Enumerator> enumerators(std::string_view json) {
    if (std::optional<std::vector<Enumerator>> values = plain_enumerators(json)) return std::move(*values);
    std::vector<Enumerator> values;
    for (const Json &item : Json::parse(json)) values.push_back({item[0], item[1], item[1], ""});
    return values;
}

}  // namespace

std::string shape(const Json &value) {
    std::string text;
    if (value.is_object()) {
        for (const auto &[key, inside] : value.items()) text += (text.empty() ? "" : ",") + key + shape(inside);
        return "{" + text + "}";
    }
    if (!value.is_array()) return "";
    return "[" + std::to_string(value.size()) + "]" + (value.empty() || !value[0].is_object() ? "" : shape(value[0]));
}

bool Method::only_reads(bool registers) const {
    if (contract) {
        if (contract->effect == "reads registers") return registers;
        return contract->effect == "reads" || (contract->effect == "reads and clears" && !contract->clears_if.empty());
    }
    return name.ends_with("_get") && std::none_of(parameters.begin(), parameters.end(), [](const Parameter &each) {
               return lower(each.name).find("clear") != std::string::npos;
           });
}

std::string Method::title() const {
    if (contract) return contract->brief;
    for (const std::string &line : split(help, '\n')) {
        if (line.empty() || line.find('(') != std::string::npos) continue;
        return is_described() && help.find('\n') == std::string::npos ? "" : line;
    }
    return "";
}

std::string Method::prototype() const {
    std::string text;
    for (const Parameter &parameter : parameters) {
        text += text.empty() ? "" : ", ";
        text += parameter.is_pointer() ? parameter.pointee() + " *" + parameter.name
                                       : parameter.type + " " + parameter.name;
    }
    if (is_described()) return result + " " + name + "(" + text + ")";
    for (std::size_t i = 1; i < letters.size(); ++i) text += (i > 1 ? ", " : "") + letters[i];
    return (letters.empty() ? "" : letters[0] + " ") + name + "(" + text + ")";
}

std::optional<Method::Told> Method::told(const std::string &parameter) const {
    bool is_output = false;
    std::optional<Told> found;
    for (const std::string &line : split(help, '\n')) {
        if (line.starts_with("OUTPUTS:")) is_output = true;
        if (line.starts_with("Returns:")) break;
        const std::size_t colon = line.find(" : ") != std::string::npos ? line.find(" : ") : line.find(':');
        if (colon == std::string::npos) continue;
        std::string word = line.substr(0, colon), text = line.substr(colon + 1);
        word.erase(0, word.find_first_not_of(' '));
        word.erase(word.find_last_not_of(' ') + 1);
        if (word != parameter) continue;
        text.erase(0, std::min(text.find_first_not_of(" :"), text.size()));
        // A text that names it in both places fills it in.
        if (!found) found = Told{text, is_output};
        found->is_output = found->is_output || is_output;
    }
    return found;
}

const Enumerator *Enum::named(std::string_view name) const {
    for (const Enumerator &value : values)
        if (value.name == name) return &value;
    return nullptr;
}

const Enumerator *Enum::numbered(int64_t number) const {
    const Enumerator *found = nullptr;
    for (const Enumerator &value : values) {
        if (value.number != number) continue;
        // A base or a least number and the first follower have one number; the follower says more.
        if (!found) found = &value;
        if (!value.name.ends_with("_BASE") && !value.name.ends_with("_MIN")) return &value;
    }
    return found;
}

Dictionary::Dictionary(std::string text) : text_(std::move(text)) {
    std::string_view rest = text_;
    const std::size_t head_end = rest.find('\n');
    if (!rest.starts_with(mark) || head_end == std::string_view::npos || !rest.ends_with('\n'))
        throw std::runtime_error("not a dictionary");
    prefix_ = rest.substr(mark.size(), head_end - mark.size());
    rest.remove_prefix(head_end + 1);
    lines_.reserve(4096);
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n'), name_end = rest.find('\t', 2);
        if (name_end >= end) throw std::runtime_error("not a dictionary");
        const Kind kind = static_cast<Kind>(rest[0]);
        order_.emplace_back(kind, rest.substr(2, name_end - 2));
        lines_.emplace_back(rest.substr(0, name_end), rest.substr(name_end + 1, end - name_end - 1));
        rest.remove_prefix(end + 1);
    }
}

std::string Dictionary::head(const std::string &prefix) { return std::string(mark) + prefix + "\n"; }

std::string Dictionary::line(Kind kind, const std::string &name, const std::string &json) {
    return std::string(1, kind) + "\t" + name + "\t" + json + "\n";
}

std::string Dictionary::full_name(const std::string &name) const {
    return name.starts_with(prefix_) || name.starts_with("system.") ? name : prefix_ + name;
}

std::string Dictionary::bare_name(const std::string &name) const {
    return name.starts_with(prefix_) ? name.substr(prefix_.size()) : name;
}

std::vector<std::string> Dictionary::names(Kind kind) const {
    std::vector<std::string> result;
    for (const auto &[of, name] : order_)
        if (of == kind) result.emplace_back(name);
    return result;
}

const std::string_view *Dictionary::find(Kind kind, const std::string &name) const {
    const std::string key = std::string(1, kind) + "\t" + name;
    if (searches_ < most_searches) {
        ++searches_;
        const auto line =
            std::find_if(lines_.begin(), lines_.end(), [&](const auto &each) { return each.first == key; });
        return line == lines_.end() ? nullptr : &line->second;
    }
    if (entries_.empty()) {
        entries_.reserve(lines_.size());
        for (const auto &[name_of, json] : lines_) entries_.emplace(name_of, json);
    }
    const auto entry = entries_.find(key);
    return entry == entries_.end() ? nullptr : &entry->second;
}

std::string_view Dictionary::json(Kind kind, const std::string &name) const {
    const std::string_view *entry = find(kind, name);
    return entry ? *entry : std::string_view();
}

std::optional<Method> Dictionary::method(const std::string &name) const {
    const std::string bare = bare_name(name);
    const auto known = parsed_methods_.find(bare);
    if (known != parsed_methods_.end()) return known->second;
    const std::string_view *entry = find(methods, bare);
    if (!entry) return {};
    return parsed_methods_.emplace(bare, parsed(bare, *entry)).first->second;
}

Method Dictionary::parsed(const std::string &name, std::string_view entry) const {
    const Json json = Json::parse(entry);
    Method method{name, "", "", {}, json["help"], json["letters"]};
    for (const Json &record : json["signature"]) {
        if (method.result.empty()) {
            method.result = record.at("application_type");
            method.result_base = record.at("primative_type");
            continue;
        }
        method.parameters.push_back({record.at("application_type"), record.at("primative_type"),
                                     record.at("declaration_name"), record.at("isUDT")});
    }
    if (Json said = this->said(said_of_methods, method.name); said.is_object()) {
        MethodContract told = method_contract(said);
        // Of another version, it says nothing that can be relied on.
        bool fits = told.arguments.size() == method.parameters.size();
        for (std::size_t i = 0; fits && i < method.parameters.size(); ++i)
            fits = told.arguments[i].name == method.parameters[i].name;
        if (!fits) return method;
        for (std::size_t i = 0; i < method.parameters.size(); ++i) method.parameters[i].said = told.arguments[i];
        method.contract = std::move(told);
    }
    return method;
}

Method Dictionary::method_or_throw(const std::string &name) const {
    if (std::optional<Method> found = method(name)) return *found;
    throw UsageError("unknown method " + name + did_you_mean(bare_name(name), names(methods)));
}

std::optional<Json> Dictionary::udt(const std::string &name) const {
    const std::string_view *entry = find(udts, bare_name(name));
    if (!entry) return {};
    return Json::parse(*entry);
}

const Enum *Dictionary::enumeration(const std::string &type) const {
    const auto parsed = parsed_enums_.find(type);
    if (parsed != parsed_enums_.end()) return &parsed->second;
    const std::string_view *entry = find(enums, type);
    if (!entry) return nullptr;
    Enum result{type, enumerators(*entry)};
    const Enumerator *base = nullptr;
    for (Enumerator &value : result.values) {
        // Behind a base that is listed whole, the numbers are offsets from it.
        if (base && value.listed >= 0 && value.listed < base->number) {
            value.number += base->number;
            value.base = base->name;
        }
        if (value.name.ends_with("_BASE") && value.base.empty()) base = &value;
    }
    // The dictionary lists an enum that a macro makes without its enumerators; the contract has them.
    const Json its_own = result.values.empty() ? said(said_of_enums, type) : Json();
    if (its_own.contains("values"))
        for (const auto &[name, value] : its_own["values"].items())
            result.values.push_back({name, value["value"], value["value"], ""});
    return &parsed_enums_.emplace(type, std::move(result)).first->second;
}

std::optional<std::string> Dictionary::define(const std::string &name) const {
    const std::string_view *entry = find(defines, name);
    if (!entry) return {};
    return Json::parse(*entry).get<std::string>();
}

std::optional<std::string> Dictionary::behind(const std::string &type) const {
    const std::string_view *entry = find(typedefs, type);
    if (!entry) return {};
    return Json::parse(*entry).get<std::string>();
}

std::vector<std::string> Dictionary::chain(const std::string &type) const {
    std::vector<std::string> steps;
    // No chain is longer; a longer one is a ring.
    constexpr std::size_t longest = 32;
    for (auto next = behind(type); next && steps.size() < longest; next = behind(*next)) steps.push_back(*next);
    return steps;
}

std::string Dictionary::base_type(const std::string &type) const {
    std::string base = type;
    if (has(enums, base)) return "int";
    for (const std::string &step : chain(type)) {
        if (has(enums, step)) return "int";
        base = step;
    }
    return base;
}

Json Dictionary::said(Kind kind, const std::string &name) const {
    const std::string_view *entry = find(kind, name);
    return entry ? Json::parse(*entry) : Json();
}

std::string Dictionary::contract_tag() const {
    const Json tag = said(contract, "tag");
    return tag.is_string() ? tag.get<std::string>() : "";
}

std::string Dictionary::fingerprint() const {
    const Json tag = said(contract, "fingerprint");
    return tag.is_string() ? tag.get<std::string>() : "";
}

std::string Dictionary::text_with_contract(const std::string &lines) const {
    std::string text;
    for (std::string_view rest = text_; !rest.empty();) {
        const std::string_view line = rest.substr(0, rest.find('\n') + 1);
        // The first line is the head, and has no kind.
        if (text.empty() || std::string_view("cmueti").find(line[0]) == std::string_view::npos) text += line;
        rest.remove_prefix(line.size());
    }
    return text + lines;
}

const Enum *Dictionary::enum_of(const std::string &enumerator) const {
    const std::string quoted = "[\"" + enumerator + "\",";
    for (const auto &[kind, name] : order_)
        if (kind == enums && json(enums, std::string(name)).find(quoted) != std::string_view::npos)
            return enumeration(std::string(name));
    return nullptr;
}

std::optional<int64_t> Dictionary::define_number(const std::string &name) const {
    std::optional<std::string> text = define(name);
    if (!text) return {};
    for (;;) {
        if (text->starts_with('(') && text->ends_with(')')) {
            *text = text->substr(1, text->size() - 2);
            // What remains of ((type)8).
            const std::size_t cast = text->find(')');
            if (text->starts_with('(') && cast != std::string::npos && cast + 1 < text->size())
                *text = text->substr(cast + 1);
        } else {
            return number(*text);
        }
    }
}

}  // namespace lmqctl
