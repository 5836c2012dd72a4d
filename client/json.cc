// JSON from users and for them.
#include "json.h"

#include <algorithm>
#include <cctype>
#include <optional>
#include <set>
#include <vector>

#include "error.h"
#include "names.h"

namespace lmqctl {

namespace {

bool is_of_word(char letter) { return letter == '_' || std::isalnum(static_cast<unsigned char>(letter)); }

// The end of a string or a comment that begins here; where it begins if none does.
std::size_t passed_over(const std::string &text, std::size_t begin) {
    if (text[begin] == '"') {
        std::size_t end = begin + 1;
        while (end < text.size() && text[end] != '"') end += text[end] == '\\' ? 2 : 1;
        return std::min(end + 1, text.size());
    }
    const bool is_line = text.compare(begin, 2, "//") == 0;
    if (!is_line && text.compare(begin, 2, "/*") != 0) return begin;
    const std::size_t end = text.find(is_line ? "\n" : "*/", begin + 2);
    return end == std::string::npos ? text.size() : end + (is_line ? 1 : 2);
}

// JSON knows decimal numbers alone.
std::string with_decimal_numbers(const std::string &text) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = passed_over(text, at);
        if (end == at && is_of_word(text[at])) {
            while (end < text.size() && is_of_word(text[end])) ++end;
            const std::string word = text.substr(at, end - at);
            const std::optional<int64_t> value =
                word.size() > 2 && word[0] == '0' && word.find_first_of("xXbB") == 1 ? number(word) : std::nullopt;
            result += value ? std::to_string(*value) : word;
        } else {
            end = std::max(end, at + 1);
            result.append(text, at, end - at);
        }
        at = end;
    }
    return result;
}

}  // namespace

Json json_of_user(const std::string &text, const std::string &place) {
    std::vector<std::set<std::string>> keys;  // of the objects that are open
    std::string twice;
    const auto look = [&](int, Json::parse_event_t event, Json &value) {
        if (event == Json::parse_event_t::object_start) keys.emplace_back();
        if (event == Json::parse_event_t::object_end) keys.pop_back();
        if (event == Json::parse_event_t::key && !keys.back().insert(value.get<std::string>()).second)
            twice = value.get<std::string>();
        return true;
    };
    Json json;
    try {
        json = Json::parse(with_decimal_numbers(text), look, true, true);
    } catch (const Json::parse_error &error) {
        const std::string why = error.what();
        throw UsageError(place + ": broken JSON, " + why.substr(why.find("] ") + 2));
    }
    if (!twice.empty()) throw UsageError(place + ": " + twice + " is given twice in one object");
    return json;
}

bool is_json_of_user(const std::string &text) { return Json::accept(with_decimal_numbers(text), true); }

std::string json_text(const Json &json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

bool is_zero(const Json &json) {
    if (json.is_number()) return json == 0;
    if (json.is_string()) return json.get_ref<const std::string &>().empty();
    return json.is_structured() && std::all_of(json.begin(), json.end(), is_zero);
}

}  // namespace lmqctl
