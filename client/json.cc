// JSON from users and for them.
#include "json.h"

#include <algorithm>
#include <set>
#include <vector>

#include "error.h"

namespace lmqctl {

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
        json = Json::parse(text, look, true, true);
    } catch (const Json::parse_error &error) {
        const std::string why = error.what();
        throw UsageError(place + ": broken JSON, " + why.substr(why.find("] ") + 2));
    }
    if (!twice.empty()) throw UsageError(place + ": " + twice + " is given twice in one object");
    return json;
}

std::string json_text(const Json &json, int indent) {
    return json.dump(indent, ' ', false, Json::error_handler_t::replace);
}

bool is_zero(const Json &json) {
    if (json.is_number()) return json == 0;
    if (json.is_string()) return json.get_ref<const std::string &>().empty();
    return json.is_structured() && std::all_of(json.begin(), json.end(), is_zero);
}

}  // namespace lmqctl
