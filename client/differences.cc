// Differences found and shown.
#include "differences.h"

namespace lmqctl {

namespace {

// What only one side has stays whole: it is new or gone.
void compare(const std::string &call, const std::string &member, const Json &before, const Json &after,
             std::vector<Difference> &to) {
    const bool are_objects = before.is_object() && after.is_object();
    if (!are_objects && !(before.is_array() && after.is_array())) {
        if (before != after) to.push_back({call, member, before, after});
        return;
    }
    const auto look = [&](const std::string &key, const Json *old, const Json *now) {
        compare(call, are_objects ? member + "." + key : member + "[" + key + "]", old ? *old : Json(),
                now ? *now : Json(), to);
    };
    for (const auto &[key, value] : before.items()) {
        const bool has = are_objects ? after.contains(key) : std::stoul(key) < after.size();
        look(key, &value, !has ? nullptr : are_objects ? &after[key] : &after[std::stoul(key)]);
    }
    for (const auto &[key, value] : after.items())
        if (are_objects ? !before.contains(key) : std::stoul(key) >= before.size()) look(key, nullptr, &value);
}

// A call that fails for a thing says no more than that there is none.
bool has_succeeded(const Json &entry) { return entry.value("success", false); }

Json arguments_of(const Json &entry) { return entry.value("arguments", Json::object()); }

// Zero, also as an address.
bool is_nothing(const Json &value) {
    for (const char *zero : {"00:00:00:00:00:00", "0.0.0.0", "::"})
        if (value == zero) return true;
    return is_zero(value);
}

// In one line: of a struct the members that are not 0, without the flags that say which count.
std::string shown_value(const Json &value) {
    if (value.is_null()) return "(none)";
    if (value.is_string()) return value.get<std::string>();
    if (!value.is_structured()) return json_text(value);
    std::string text;
    const auto is_flags = [](const std::string &key, const Json &inside) {
        return inside.is_object() && (key == "valid" || inside.contains("mask_s") || key == "mask_s");
    };
    for (const auto &[key, inside] : value.items()) {
        if (is_nothing(inside) || (value.is_object() && is_flags(key, inside))) continue;
        const std::string one = inside.is_structured() ? "{" + shown_value(inside) + "}" : shown_value(inside);
        text += (text.empty() ? "" : " ") + (value.is_object() ? key + (inside.is_object() ? "" : "=") + one : one);
    }
    return text.empty() ? "0" : text;
}

}  // namespace

std::vector<Difference> differences(const Json &before, const Json &after) {
    std::vector<Difference> found;
    for (const auto &[call, entry] : before.items()) {
        if (after.contains(call)) {
            for (const char *what : {"fault", "status"})
                compare(call, std::string(" ") + what, entry.value(what, Json()), after[call].value(what, Json()),
                        found);
            // What a driver leaves in its outputs when it fails means nothing.
            if (has_succeeded(entry) || has_succeeded(after[call]))
                compare(call, "", has_succeeded(entry) ? arguments_of(entry) : Json::object(),
                        has_succeeded(after[call]) ? arguments_of(after[call]) : Json::object(), found);
        } else if (has_succeeded(entry)) {
            found.push_back({call, "", arguments_of(entry), nullptr});
        }
    }
    for (const auto &[call, entry] : after.items())
        if (!before.contains(call) && has_succeeded(entry)) found.push_back({call, "", nullptr, arguments_of(entry)});
    return found;
}

std::string differences_text(const std::vector<Difference> &found, const std::string &old, const std::string &now) {
    std::string text;
    for (const Difference &each : found)
        text += each.member.empty() ? each.call + ": only in " + (each.before.is_null() ? now : old) + ": " +
                                          shown_value(each.before.is_null() ? each.after : each.before) + "\n"
                                    : each.call + each.member + ": " + shown_value(each.before) + " -> " +
                                          shown_value(each.after) + "\n";
    return text;
}

Json differences_json(const std::vector<Difference> &found) {
    Json json = Json::array();
    for (const Difference &each : found)
        json.push_back({{"call", each.call}, {"member", each.member}, {"before", each.before}, {"after", each.after}});
    return json;
}

}  // namespace lmqctl
