// Lines and objects.
#include "trace_view.h"

#include <cstdio>

#include "answer.h"
#include "call_words.h"
#include "time_text.h"

namespace lmqctl {

namespace {

using lmq::trace::Kind;

// What a line shows of a call.
constexpr std::size_t longest_call = 160;

double milliseconds(uint64_t microseconds) { return static_cast<double>(microseconds) / 1000; }

// Each line behind a margin.
std::string with_margin(const std::string &text) {
    std::string result;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        result += "    | " + text.substr(begin, end - begin) + "\n";
        begin = end + 1;
    }
    return result;
}

std::string process_text(const TraceEntry &entry) {
    const std::string who = "the driver's process " + std::to_string(entry.pid);
    if (entry.kind == Kind::died) return who + " " + entry.text + (entry.method.empty() ? "" : " in " + entry.method);
    return who + " starts" + (entry.driver.empty() ? "" : " with " + entry.driver);
}

}  // namespace

std::optional<Method> TraceView::method_of(const TraceEntry &entry) const {
    if (!interface_) return {};
    return interface_->dictionary.method(interface_->dictionary.bare_name(entry.method));
}

std::string TraceView::painted(const char *code, const std::string &text) const {
    return style_.color ? std::string("\033[") + code + "m" + text + "\033[0m" : text;
}

std::string TraceView::call_text(const TraceEntry &entry) const {
    if (!entry.arguments.is_array()) return (entry.method.empty() ? "?" : entry.method) + " (no call that can be read)";
    std::vector<std::string> words{entry.method};
    const auto method = method_of(entry);
    if (method && method->is_described()) {
        words = call_words(interface_->dictionary, interface_->types, *method, entry.arguments);
    } else {
        for (const Json &argument : entry.arguments) words.push_back(json_text(argument));
    }
    return line_of(words);
}

std::string TraceView::outcome(const TraceEntry &entry) const {
    if (entry.is_lost()) return painted("31", entry.text.empty() ? "the driver's process died" : entry.text);
    if (entry.fault != 0) return painted("31", "fault " + std::to_string(entry.fault) + ": " + entry.text);
    if (entry.answer.is_null()) return entry.text.empty() ? "no answer" : entry.text;
    const auto method = method_of(entry);
    if (!method || !method->is_described()) {
        std::string text = json_text(entry.answer);
        return text.size() > longest_call ? text.substr(0, longest_call) + "..." : text;
    }
    return Output(interface_->dictionary, interface_->types, style_).status(*method, result_of(entry.answer));
}

std::string TraceView::line(const TraceEntry &entry) const {
    std::string text = time_text(entry.time) + "  ";
    if (!entry.is_call()) return text + painted("1", process_text(entry)) + "\n" + with_margin(entry.printed);
    std::string call = call_text(entry);
    if (call.size() > longest_call) call = call.substr(0, longest_call) + "...";
    text += (entry.user.empty() ? "" : entry.user + "@") + entry.client + "  " + call + "  " + outcome(entry);
    char took[64];
    std::snprintf(took, sizeof took, "  %.3g ms", milliseconds(entry.took));
    text += entry.inner ? "" : took;
    if (entry.status == 499) text += "  (the client had gone)";
    return text + "\n" + (entry.is_lost() ? with_margin(entry.printed) : "");
}

std::string TraceView::full(const TraceEntry &entry) const {
    if (!entry.is_call()) return line(entry);
    std::string text = painted("1", "#" + std::to_string(entry.number) + "  ") + line(entry);
    if (!entry.is_lost()) text += with_margin(entry.printed);
    const auto method = method_of(entry);
    if (!entry.answer.is_null()) {
        if (method)
            text += Output(interface_->dictionary, interface_->types, style_).answer(*method, entry.answer);
        else
            text += json_text(entry.answer, 2) + "\n";
    }
    return text + "\n";
}

Json TraceView::json(const TraceEntry &entry) const {
    Json json{{"number", entry.number}, {"time", time_text(entry.time)}};
    if (entry.kind != Kind::call) {
        json["event"] = entry.kind == Kind::died ? "died" : "started";
        json["pid"] = entry.pid;
        if (!entry.text.empty()) json["how"] = entry.text;
        if (!entry.method.empty()) json["method"] = entry.method;
        if (!entry.driver.empty()) json["driver"] = entry.driver;
        if (!entry.plugin.empty()) json["plugin"] = entry.plugin;
        if (!entry.printed.empty()) json["printed"] = entry.printed;
        return json;
    }
    json["event"] = "call";
    if (entry.inner) json["inner"] = *entry.inner;
    json["client"] = entry.client;
    if (!entry.user.empty()) json["user"] = entry.user;
    json["http"] = entry.status;
    json["waited_ms"] = milliseconds(entry.waited);
    json["ms"] = milliseconds(entry.took);
    json["method"] = entry.method;
    const auto method = method_of(entry);
    json["sent"] = entry.arguments;
    if (method && method->is_described() && entry.arguments.is_array()) {
        json["sent"] = Json::object();
        for (std::size_t i = 0; i < method->parameters.size() && i < entry.arguments.size(); ++i)
            json["sent"][method->parameters[i].name] =
                plain(*interface_->types.parameter(method->parameters[i]), entry.arguments[i]);
    }
    if (entry.fault != 0)
        json["fault"] = {{"code", entry.fault}, {"text", entry.text}};
    else if (method && !entry.answer.is_null())
        json.update(json_answer(interface_->dictionary, interface_->types, *method, entry.answer));
    else if (!entry.answer.is_null())
        json["result"] = entry.answer;
    else
        json["wrong"] = entry.text;
    if (!entry.printed.empty()) json["printed"] = entry.printed;
    return json;
}

}  // namespace lmqctl
