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

// Two states in the same words. Of the chip counts what the file speaks of.
std::pair<Json, Json> state_pair(Context &context, State &one, State &other, bool is_live) {
    const Makers makers(context);
    const std::map<std::size_t, std::size_t> same = align(makers, one, other);
    return {state_answers(makers, one), state_answers(makers, is_live ? restricted(other, one, same) : other)};
}

void diff(Context &context, const DiffOptions &options) {
    const bool is_reversed = options.before == "live", with_live = is_reversed || options.after == "live";
    Side first = side_of(context, is_reversed ? options.after : options.before);
    Side second = with_live ? Side{"live", nullptr, {}} : side_of(context, options.after);
    const bool are_states = first.snapshot.is_null();
    if (!with_live && are_states != second.snapshot.is_null())
        throw UsageError((are_states ? first : second).name + " holds settings, and " +
                         (are_states ? second : first).name + " is a snapshot");
    if (are_states && with_live) second.state = state_of_chip(context, spoken_of(first.state));
    std::pair<Json, Json> sides =
        are_states ? state_pair(context, first.state, second.state, with_live)
                   : std::make_pair(first.snapshot["answers"],
                                    with_live ? live(context, first.name, first.snapshot) : second.snapshot["answers"]);
    if (is_reversed) std::swap(sides.first, sides.second);
    const std::vector<Difference> found = differences(sides.first, sides.second);
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
