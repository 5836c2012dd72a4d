// Between the records of a trace and calls with their outcomes.
#include "trace_calls.h"

#include "error.h"
#include "trace/document.h"
#include "trace/reader.h"
#include "trace/writer.h"
#include "xml_value.h"

namespace lmqctl {

namespace trace = lmq::trace;

namespace {

constexpr uint64_t worker_died = 502, gave_up = 499;  // statuses of a record

Outcome outcome_of(const trace::RecordView &record, const std::string &place) {
    Outcome outcome;
    outcome.document = record.answer;
    if (record.status == gave_up && record.answer.empty()) outcome.kind = Outcome::hung;
    if (record.status == worker_died) outcome.kind = Outcome::died;
    if (outcome.kind != Outcome::answered || !record.answer.starts_with("<?xml")) {
        if (outcome.kind == Outcome::answered) outcome.kind = Outcome::fault;
        outcome.text = outcome.kind == Outcome::fault ? std::string(record.answer) : "";
        return outcome;
    }
    try {
        outcome.answer = answer_value(outcome.document, place);
    } catch (const Fault &fault) {
        outcome.kind = Outcome::fault;
        outcome.code = fault.code;
        outcome.text = fault.what();
    }
    return outcome;
}

// A call, or those inside it with their answers.
void add_calls(PlayedCall call, std::vector<PlayedCall> &to) {
    const Json &parameters = call.call.parameters;
    if (call.call.method != "system.multicall" || parameters.empty() || !parameters[0].is_array()) {
        to.push_back(std::move(call));
        return;
    }
    const Json &answers = call.outcome.answer;
    for (std::size_t i = 0; i < parameters[0].size(); ++i) {
        const Json &inner = parameters[0][i];
        if (!inner.is_object() || !inner.contains("methodName") || !inner.contains("params")) continue;
        PlayedCall made{{inner["methodName"], inner["params"]}, {}, call.time};
        if (call.outcome.kind != Outcome::answered || !answers.is_array() || i >= answers.size()) {
            made.outcome = call.outcome;
        } else if (is_fault(answers[i])) {
            made.outcome = {Outcome::fault, nullptr, answers[i]["faultCode"], answers[i]["faultString"]};
        } else {
            made.outcome.answer =
                answers[i].is_array() && answers[i].size() == 1 ? Json(answers[i][0]) : Json(answers[i]);
        }
        to.push_back(std::move(made));
    }
}

}  // namespace

std::vector<PlayedCall> read_calls(const std::string &file, std::string *note) try {
    std::vector<PlayedCall> calls;
    for (const std::string &part : trace::parts_of(file)) {
        trace::Reader reader(part);
        if (note) *note = reader.head().note;
        while (const trace::RecordView *record = reader.next()) {
            if (record->kind != trace::Kind::call) continue;
            const std::string place = part + ", record " + std::to_string(record->number);
            auto [method, parameters] = request_value(trace::call_document(record->call), place);
            add_calls({{std::move(method), std::move(parameters)}, outcome_of(*record, place), record->time}, calls);
        }
        if (note && reader.end() != trace::Reader::End::whole) *note += (note->empty() ? "" : "; ") + reader.end_text();
    }
    return calls;
} catch (const trace::Error &error) {
    throw UsageError(error.what());
}

void write_calls(const std::string &file, const std::vector<PlayedCall> &calls, const std::string &fingerprint,
                 const std::string &note) try {
    trace::Record head;
    head.maker = "lmqctl " LMQCTL_VERSION;
    head.fingerprint = fingerprint;
    head.note = note;
    trace::Writer writer(file, head, trace::Writer::Mode::replace);
    for (const PlayedCall &each : calls) {
        trace::Record record;
        record.number = writer.next_number() + static_cast<uint64_t>(&each - calls.data());
        record.time = each.time;
        record.status = each.outcome.kind == Outcome::died   ? worker_died
                        : each.outcome.kind == Outcome::hung ? gave_up
                                                             : 200;
        record.method = each.call.method;
        record.call = request_xml(each.call.method, each.call.parameters);
        record.answer = each.outcome.document;
        writer.write(trace::RecordView(record));
    }
} catch (const trace::Error &error) {
    throw Error(exit_output, error.what());
}

}  // namespace lmqctl
