// From records to entries.
#include "trace_entry.h"

#include <exception>

#include "error.h"
#include "session.h"
#include "trace/document.h"
#include "xml_value.h"

namespace lmqctl {

namespace {

using lmq::trace::Kind;

constexpr uint64_t process_died = 502;
constexpr char multicall_name[] = "system.multicall";

void take_call(const lmq::trace::RecordView &record, TraceEntry &entry) {
    try {
        auto [method, arguments] = request_value(lmq::trace::call_document(record.call), "the call");
        entry.method = std::move(method);
        entry.arguments = std::move(arguments);
    } catch (const std::exception &) {
        entry.arguments = nullptr;
    }
}

void take_answer(const lmq::trace::RecordView &record, TraceEntry &entry) {
    const std::string document(record.answer);
    if (!document.starts_with("<?xml")) {
        entry.text = document;
        return;
    }
    try {
        entry.answer = answer_value(document, "the trace");
    } catch (const Fault &fault) {
        entry.fault = fault.code;
        entry.text = fault.what();
    } catch (const std::exception &error) {
        entry.text = error.what();
    }
}

// The calls inside one, each with its answer.
std::vector<TraceEntry> calls_in(const TraceEntry &whole) {
    std::vector<TraceEntry> entries;
    const Json &calls = whole.arguments[0];
    for (std::size_t i = 0; i < calls.size(); ++i) {
        TraceEntry entry = whole;
        entry.inner = i;
        entry.answer = entry.arguments = nullptr;
        const bool is_call = calls[i].is_object() && calls[i].contains("methodName") &&
                             calls[i]["methodName"].is_string() && calls[i].contains("params");
        entry.method = is_call ? calls[i]["methodName"].get<std::string>() : "";
        if (is_call) entry.arguments = calls[i]["params"];
        if (i > 0) entry.printed.clear();  // nobody knows which one printed it
        if (whole.answer.is_array() && i < whole.answer.size()) {
            const Json &answer = whole.answer[i];
            if (is_fault(answer)) {
                entry.fault = answer["faultCode"];
                entry.text = answer["faultString"];
            } else {
                entry.answer = answer.is_array() && answer.size() == 1 ? Json(answer[0]) : answer;
            }
        }
        entries.push_back(std::move(entry));
    }
    return entries;
}

}  // namespace

bool TraceEntry::is_lost() const { return is_call() && status == process_died; }

std::vector<TraceEntry> entries_of(const lmq::trace::RecordView &record) {
    TraceEntry entry;
    entry.kind = record.kind;
    entry.number = record.number;
    entry.time = record.time;
    entry.waited = record.waited;
    entry.took = record.took;
    entry.status = record.status;
    entry.client = record.client;
    entry.user = record.user;
    entry.method = record.method;
    entry.printed = record.printed;
    entry.pid = record.pid;
    entry.driver = record.driver;
    entry.plugin = record.plugin;
    entry.text = record.how;
    if (entry.kind == Kind::call) {
        take_call(record, entry);
        take_answer(record, entry);
        const bool has_calls = entry.method == multicall_name && entry.arguments.is_array() && !entry.arguments.empty() &&
                               entry.arguments[0].is_array() && !entry.arguments[0].empty();
        if (has_calls) return calls_in(entry);
    }
    return {std::move(entry)};
}

}  // namespace lmqctl
