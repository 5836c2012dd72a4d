// lmqctl compat: whether clients of one interface go on working with another.
#include <algorithm>

#include "command.h"
#include "contract.h"
#include "error.h"
#include "file.h"
#include "interface_diff.h"
#include "password.h"
#include "session.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

constexpr int exit_breaking = 1;

struct CompatOptions {
    std::string before, after;
};

bool is_host(const std::string &place) { return place.find("://") != place.npos || place.starts_with("unix:"); }

std::string fetch_interface(Context &context, const std::string &url) {
    Connection connection = context.connection;
    connection.url = with_path(url);
    // Asked for once, however many hosts there are.
    if (!connection.user.empty() && connection.password.empty())
        connection.password = context.connection.password = password_of(connection.user);
    const HttpAnswer answer = Session(connection).get("interface", "");
    if (answer.status == 404)
        throw Error(exit_connection, connection.url + ": this host has no description of its interface to compare");
    if (answer.status != 200)
        throw Error(exit_connection, connection.url +
                                         ": the host refuses the description of its interface (HTTP status " +
                                         std::to_string(answer.status) + ")");
    return answer.body;
}

Json load(Context &context, const std::string &place) {
    const std::string text = is_host(place) ? fetch_interface(context, place) : read_text(place);
    if (text.starts_with("\x1f\x8b"))
        throw UsageError(place + " is compressed; in the place of a file, - reads what zcat prints");
    try {
        Json interface = parsed_description(text);
        compare_interfaces(interface, interface);  // complains of what is missing
        return interface;
    } catch (const std::exception &error) {
        const std::string complaint = place + " is no description of an interface: " + error.what();
        if (is_host(place)) throw Error(exit_connection, complaint);
        throw UsageError(complaint);
    }
}

std::string shown(const Json &value) {
    if (value.is_null()) return "(none)";
    return value.is_string() ? value.get<std::string>() : json_text(value);
}

std::string line(const InterfaceChange &change) {
    std::string text =
        std::string(change.breaks ? "breaking    " : "compatible  ") + change.kind + " " + change.name + ": ";
    if (!change.place.empty()) text += change.place + ": ";
    text += change.what;
    if (!change.before.is_null() || !change.after.is_null())
        text += " " + shown(change.before) + " -> " + shown(change.after);
    return text + "\n";
}

std::string counted(std::size_t count, const std::string &thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

void compat(Context &context, const CompatOptions &options) {
    const Json before = load(context, options.before);
    const InterfaceDiff diff = compare_interfaces(before, load(context, options.after));
    const auto breaking = static_cast<std::size_t>(std::count_if(
        diff.changes.begin(), diff.changes.end(), [](const InterfaceChange &each) { return each.breaks; }));
    const std::string judgement = diff.changes.empty() ? "same" : breaking == 0 ? "compatible" : "breaking";
    Json json{{"judgement", judgement}, {"texts", diff.texts}, {"changes", Json::array()}};
    std::string text;
    for (const InterfaceChange &each : diff.changes) {
        json["changes"].push_back({{"kind", each.kind},
                                   {"name", each.name},
                                   {"place", each.place},
                                   {"what", each.what},
                                   {"before", each.before},
                                   {"after", each.after},
                                   {"breaking", each.breaks}});
        text += line(each);
    }
    text += judgement;
    if (breaking > 0)
        text += ": " + std::to_string(breaking) + " of " + counted(diff.changes.size(), "change");
    else if (!diff.changes.empty())
        text += ": " + counted(diff.changes.size(), "change");
    if (diff.texts > 0) text += "; " + counted(diff.texts, "text") + " worded differently";
    print(context.json ? json_text(json, 2) + "\n" : without_controls(text) + "\n");
    if (breaking > 0) context.exit_status = exit_breaking;
}

}  // namespace

void set_up_compat(CLI::App &command, Context &context) {
    const auto options = std::make_shared<CompatOptions>();
    command.add_option("OLD", options->before, "An interface.json, - for standard input, or the URL of a host")
        ->required();
    command.add_option("NEW", options->after, "Another")->required();
    command.callback([&context, options] { compat(context, *options); });
}

}  // namespace lmqctl
