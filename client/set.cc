// lmqctl set: what arguments that a line of a session leaves out stand for.
#include "command.h"
#include "error.h"
#include "names.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

void show(const Context &context) {
    if (context.json) return print(json_text(Json(context.defaults), 2) + "\n");
    if (context.defaults.empty()) print("nothing is set; set device N, set port N\n");
    for (const auto &[kind, value] : context.defaults) print(kind + " " + std::to_string(value) + "\n");
}

void set(Context &context, const std::string &kind, const std::string &text) {
    if (!context.in_session) throw UsageError("set is for the lines of a session: lmqctl repl");
    if (kind.empty()) return show(context);
    if (text.empty()) throw UsageError("set " + kind + ": expected a number, or none");
    if (text == "none") {
        context.defaults.erase(kind);
        return;
    }
    const std::optional<int64_t> value = number(text);
    if (!value) throw UsageError("set " + kind + ": " + text + " is neither a number nor none");
    const Json told = context.dictionary().said(Dictionary::ids, kind);
    if (told.is_object() && told.contains("range") && (*value < told["range"][0] || *value > told["range"][1]))
        throw UsageError("set " + kind + ": " + text + " is out of range, which is " + told["range"][0].dump() +
                         " to " + told["range"][1].dump());
    context.defaults[kind] = *value;
}

}  // namespace

void set_up_set(CLI::App &command, Context &context) {
    const auto kind = std::make_shared<std::string>(), value = std::make_shared<std::string>();
    command.add_option("KIND", *kind, "What of")->check(CLI::IsMember({"device", "port"}));
    command.add_option("VALUE", *value, "A number; none for no default");
    command.callback([&context, kind, value] { set(context, *kind, *value); });
}

}  // namespace lmqctl
