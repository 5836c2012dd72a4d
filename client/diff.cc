// lmqctl diff: two snapshots, or a snapshot and the chip as it is, member by member.
#include <map>

#include "command.h"
#include "error.h"
#include "request.h"
#include "snapshot.h"

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
            throw UsageError(file + " is a damaged snapshot: an answer tells no method or no parameters");
    return json["answers"];
}

// The calls of a snapshot, made again.
Json live(Context &context, const Json &answers) {
    std::vector<Call> calls;
    for (const Json &entry : answers) calls.push_back({entry["method"], entry["parameters"]});
    return take_snapshot(context, calls);
}

void flatten(const std::string &name, const Json &value, std::map<std::string, std::string> &to) {
    if (!value.is_structured()) {
        to[name] = value.is_string() ? value.get<std::string>() : value.dump();
        return;
    }
    if (value.empty()) to[name] = value.dump();
    for (const auto &[key, inside] : value.items())
        flatten(value.is_array() ? name + "[" + key + "]" : name + "." + key, inside, to);
}

std::map<std::string, std::string> members(const Json &entry) {
    std::map<std::string, std::string> found;
    for (const char *what : {"fault", "status"})
        if (entry.contains(what)) flatten(std::string(" ") + what, entry[what], found);
    if (entry.contains("arguments"))
        for (const auto &[name, value] : entry["arguments"].items()) flatten("." + name, value, found);
    return found;
}

void diff(Context &context, const DiffOptions &options) {
    const Json before = load(options.before);
    const Json after = options.after == "live" ? live(context, before) : load(options.after);
    Json told = Json::array();
    std::string text;
    const auto tell = [&](const std::string &call, const std::string &member, const Json &a, const Json &b) {
        told.push_back({{"call", call}, {"member", member}, {"before", a}, {"after", b}});
        if (member.empty()) {
            text += call + ": only in " + (a.is_null() ? options.after : options.before) + "\n";
            return;
        }
        const auto shown = [](const Json &value) {
            return value.is_null() ? std::string("(none)") : value.get<std::string>();
        };
        text += call + member + ": " + shown(a) + " -> " + shown(b) + "\n";
    };
    for (const auto &[call, entry] : before.items()) {
        if (!after.contains(call)) {
            tell(call, "", true, nullptr);
            continue;
        }
        const auto old_members = members(entry), new_members = members(after[call]);
        for (const auto &[name, value] : old_members) {
            const auto found = new_members.find(name);
            if (found == new_members.end())
                tell(call, name, value, nullptr);
            else if (found->second != value)
                tell(call, name, value, found->second);
        }
        for (const auto &[name, value] : new_members)
            if (!old_members.contains(name)) tell(call, name, nullptr, value);
    }
    for (const auto &[call, entry] : after.items())
        if (!before.contains(call)) tell(call, "", nullptr, true);
    if (context.json)
        print(told.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
    else
        print(text);
    if (!told.empty()) context.exit_status = exit_differ;
}

}  // namespace

void set_up_diff(CLI::App &command, Context &context) {
    const auto options = std::make_shared<DiffOptions>();
    command.add_option("A", options->before, "A snapshot")->required();
    command.add_option("B", options->after, "Another; live: the same calls made now")->capture_default_str();
    command.callback([&context, options] { diff(context, *options); });
}

}  // namespace lmqctl
