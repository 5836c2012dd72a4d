// lmqctl diff: two snapshots or files of settings, or one and the chip as it is, member by member.
#include "command.h"
#include "differences.h"
#include "error.h"
#include "file.h"
#include "standard_output.h"
#include "state.h"
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

// One of the two sides: a snapshot or a file of settings.
struct Side {
    std::string name;
    Json snapshot;  // null for settings
    State state;
};

bool is_snapshot(const std::string &file) {
    const std::string text = read_text(file);
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string::npos && text[first] == '{';
}

Side side_of(Context &context, const std::string &file) {
    if (is_snapshot(file)) return {file, load(file), {}};
    return {file, nullptr, state_of_file(context, file)};
}

// The chip, asked for what the other side has.
Json live_answers(Context &context, const Side &other) {
    if (!other.snapshot.is_null()) return live(context, other.name, other.snapshot);
    return state_answers(restricted(state_of_chip(context, {}), other.state));
}

Json answers_of(const Side &side) {
    return side.snapshot.is_null() ? state_answers(side.state) : side.snapshot["answers"];
}

void diff(Context &context, const DiffOptions &options) {
    const bool is_reversed = options.before == "live", with_live = is_reversed || options.after == "live";
    const Side first = side_of(context, is_reversed ? options.after : options.before);
    Json before = answers_of(first), after;
    if (with_live) {
        after = live_answers(context, first);
        if (is_reversed) std::swap(before, after);
    } else {
        const Side second = side_of(context, options.after);
        if (first.snapshot.is_null() != second.snapshot.is_null())
            throw UsageError((first.snapshot.is_null() ? first : second).name + " holds settings, and " +
                             (first.snapshot.is_null() ? second : first).name + " is a snapshot");
        after = answers_of(second);
    }
    const std::vector<Difference> found = differences(before, after);
    print(context.json ? json_text(differences_json(found), 2) + "\n"
                       : differences_text(found, options.before, options.after));
    if (!found.empty()) context.exit_status = exit_differ;
}

}  // namespace

void set_up_diff(CLI::App &command, Context &context) {
    const auto options = std::make_shared<DiffOptions>();
    command.add_option("A", options->before, "A snapshot, or settings that save has written; or live")->required();
    command.add_option("B", options->after, "Another; live: the chip, asked the same now")->capture_default_str();
    command.callback([&context, options] { diff(context, *options); });
}

}  // namespace lmqctl
