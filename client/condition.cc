// Conditions as texts, and whether calls fulfil them.
#include "condition.h"

#include "answer.h"
#include "error.h"
#include "leaves.h"
#include "names.h"

namespace lmqctl {

namespace {

struct Word {
    const char *text;
    Condition::Kind kind;
};

const Word condition_words[] = {{"died", Condition::died},   {"hung", Condition::hung},
                                {"fault", Condition::fault}, {"changed", Condition::changed},
                                {"lost", Condition::lost},   {"grows", Condition::grows}};

// A number, or an enumerator's.
std::optional<int64_t> number_of(const Dictionary &dictionary, const std::string &text) {
    if (const std::optional<int64_t> plain = number(text)) return plain;
    const Enum *values = dictionary.enum_of(text);
    const Enumerator *named = values ? values->named(text) : nullptr;
    return named ? std::optional(named->number) : std::nullopt;
}

bool is_path(const std::string &path, const std::string &wanted) {
    return path == wanted || path.ends_with("." + wanted);
}

}  // namespace

std::string Condition::text() const {
    const std::string prefix = method.empty() ? "" : method + ":";
    if (kind == status) return prefix + (value.empty() ? std::to_string(number) : value);
    if (kind == member) return prefix + path + "=" + value;
    for (const Word &word : condition_words)
        if (word.kind == kind) return prefix + word.text;
    return "";
}

Condition condition_of(const std::string &text, const Dictionary &dictionary) {
    Condition condition;
    const std::size_t colon = text.find(':');
    const std::string what = colon == std::string::npos ? text : text.substr(colon + 1);
    if (colon != std::string::npos)
        condition.method = dictionary.method_or_throw(dictionary.bare_name(text.substr(0, colon))).name;
    for (const Word &word : condition_words) {
        if (what != word.text) continue;
        condition.kind = word.kind;
        if (condition.method.empty() && word.kind != Condition::died && word.kind != Condition::hung)
            throw UsageError("--until " + text + ": which method? Expected METHOD:" + what);
        return condition;
    }
    if (condition.method.empty())
        throw UsageError("--until " + text +
                         ": expected died, hung, METHOD:STATUS, METHOD:MEMBER=VALUE, METHOD:fault, METHOD:changed, "
                         "METHOD:lost or METHOD:grows");
    const std::size_t equals = what.find('=');
    condition.value = what.substr(equals == std::string::npos ? 0 : equals + 1);
    condition.kind = equals == std::string::npos ? Condition::status : Condition::member;
    if (equals != std::string::npos) condition.path = what.substr(0, equals);
    const std::optional<int64_t> number = number_of(dictionary, condition.value);
    if (!number && condition.kind == Condition::status)
        throw UsageError("--until " + text + ": " + what + " is neither a status nor a number");
    condition.number = number.value_or(0);
    return condition;
}

bool Condition::holds(FreshHosts &hosts, const std::vector<PlayedCall> &calls) const {
    const PlayedCall &last = calls.back();
    const std::string name = hosts.dictionary().bare_name(last.call.method);
    const Outcome &outcome = last.outcome;
    if (kind == died || kind == hung)
        return outcome.kind == (kind == died ? Outcome::died : Outcome::hung) && (method.empty() || method == name);
    const Method called = hosts.dictionary().method_or_throw(name);
    if (kind == lost) {
        if (calls.size() < 2 || outcome.kind != Outcome::answered) return false;
        const PlayedCall &before = calls[calls.size() - 2];
        if (hosts.dictionary().bare_name(before.call.method) != method || before.outcome.kind != Outcome::answered)
            return false;
        const Method setter = hosts.dictionary().method_or_throw(method);
        Method getter;
        const std::optional<Json> reading = hosts.checks().reading_of(setter, before.call.parameters, getter);
        return reading && getter.name == name && *reading == last.call.parameters &&
               is_success(hosts.dictionary(), setter, result_of(before.outcome.answer)) &&
               is_success(hosts.dictionary(), getter, result_of(outcome.answer)) &&
               hosts.checks().lost_setting(setter, before.call.parameters, getter, outcome.answer);
    }
    if (name != method) return false;
    if (kind == fault) return outcome.kind == Outcome::fault;
    if (outcome.kind != Outcome::answered) return false;
    if (kind == status) return result_of(outcome.answer) == number;
    if (kind == changed) return hosts.checks().changed_input(called, last.call.parameters, outcome.answer).has_value();
    if (kind != member) return false;
    for (const Leaf &leaf : leaves_of(hosts.types(), called, outcome.answer, true))
        if (is_path(leaf.path, path) &&
            (leaf.value.is_string() ? leaf.value == value : leaf.value.is_number_integer() && leaf.value == number))
            return true;
    return false;
}

}  // namespace lmqctl
