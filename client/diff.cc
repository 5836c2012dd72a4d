// lmqctl diff: two snapshots, or a snapshot and the chip as it is, member by member.
#include <map>

#include "command.h"
#include "error.h"
#include "file.h"
#include "standard_output.h"
#include "survey.h"

namespace lmqctl {

namespace {

constexpr int exit_differ = 1;

struct DiffOptions {
    std::string before, after = "live";
};

Json load(const std::string &file) {
    const Json json = Json::parse(read_text(file), nullptr, false);
    if (!json.is_object() || json.value("snapshot", 0) != 1 || !json.contains("answers") ||
        !json["answers"].is_object())
        throw UsageError(file + " is no snapshot; lmqctl snapshot FILE makes one");
    for (const Json &entry : json["answers"])
        if (!entry.is_object() || !entry.contains("method") || !entry["method"].is_string() ||
            !entry.contains("parameters") || !entry["parameters"].is_array())
            throw UsageError(file + " is a damaged snapshot: an answer has no method or no parameters");
    return json;
}

// The same asked again, and so about what has come since. A snapshot that does not say what was asked has its calls
// made again.
Json live(Context &context, const std::string &file, const Json &snapshot) {
    if (!snapshot.contains("asked")) {
        std::vector<Call> calls;
        for (const Json &entry : snapshot["answers"]) calls.push_back({entry["method"], entry["parameters"]});
        return take_answers(context, calls);
    }
    try {
        const Json &asked = snapshot["asked"];
        return survey(context, {asked.at("pattern"), asked.at("devices"), asked.at("ports"), asked.at("registers")});
    } catch (const Json::exception &) {
        throw UsageError(file + " is a damaged snapshot: it does not say what was asked");
    }
}

using Members = std::map<std::string, Json>;

void flatten(const std::string &name, const Json &value, Members &to) {
    if (!value.is_structured() || value.empty()) {
        to[name] = value;
        return;
    }
    for (const auto &[key, inside] : value.items())
        flatten(value.is_array() ? name + "[" + key + "]" : name + "." + key, inside, to);
}

Members members_of(const Json &entry) {
    Members found;
    for (const char *what : {"fault", "status"})
        if (entry.contains(what)) flatten(std::string(" ") + what, entry[what], found);
    if (entry.contains("arguments"))
        for (const auto &[name, value] : entry["arguments"].items()) flatten("." + name, value, found);
    return found;
}

// A member that differs; without a member, a call that only one side has, for which that side is true. What a side does
// not have is null.
struct Difference {
    std::string call, member;
    Json before, after;
};

void compare(const std::string &call, const Members &before, const Members &after, std::vector<Difference> &to) {
    for (const auto &[name, value] : before) {
        const auto found = after.find(name);
        const Json now = found == after.end() ? Json() : found->second;
        if (now != value) to.push_back({call, name, value, now});
    }
    for (const auto &[name, value] : after)
        if (!before.contains(name)) to.push_back({call, name, nullptr, value});
}

std::vector<Difference> differences(const Json &before, const Json &after) {
    std::vector<Difference> found;
    for (const auto &[call, entry] : before.items()) {
        if (after.contains(call))
            compare(call, members_of(entry), members_of(after[call]), found);
        else
            found.push_back({call, "", true, nullptr});
    }
    for (const auto &[call, entry] : after.items())
        if (!before.contains(call)) found.push_back({call, "", nullptr, true});
    return found;
}

std::string shown(const Json &value) {
    if (value.is_null()) return "(none)";
    return value.is_string() ? value.get<std::string>() : json_text(value);
}

void diff(Context &context, const DiffOptions &options) {
    const Json old = load(options.before), before = old["answers"];
    const Json after = options.after == "live" ? live(context, options.before, old) : load(options.after)["answers"];
    const std::vector<Difference> found = differences(before, after);
    Json json = Json::array();
    std::string text;
    for (const Difference &each : found) {
        json.push_back({{"call", each.call}, {"member", each.member}, {"before", each.before}, {"after", each.after}});
        if (each.member.empty())
            text += each.call + ": only in " + (each.before.is_null() ? options.after : options.before) + "\n";
        else
            text += each.call + each.member + ": " + shown(each.before) + " -> " + shown(each.after) + "\n";
    }
    print(context.json ? json_text(json, 2) + "\n" : text);
    if (!found.empty()) context.exit_status = exit_differ;
}

}  // namespace

void set_up_diff(CLI::App &command, Context &context) {
    const auto options = std::make_shared<DiffOptions>();
    command.add_option("A", options->before, "A snapshot")->required();
    command.add_option("B", options->after, "Another; live: the same calls made now")->capture_default_str();
    command.callback([&context, options] { diff(context, *options); });
}

}  // namespace lmqctl
