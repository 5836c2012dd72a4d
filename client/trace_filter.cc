// One test after the other, those that cost least first.
#include "trace_filter.h"

#include <algorithm>

#include "answer.h"
#include "names.h"

namespace lmqctl {

namespace {

bool has_method(const std::vector<std::string> &patterns, const std::string &name) {
    const std::string bare = name.substr(name.find('.') + 1);
    return patterns.empty() || std::any_of(patterns.begin(), patterns.end(), [&](const std::string &pattern) {
               return glob(pattern, name) || glob(pattern, bare);
           });
}

bool has_status(const std::string &wanted, const TraceEntry &entry, const Dictionary *dictionary) {
    if (!entry.answer.is_array() || entry.answer.empty() || !entry.answer[0].is_number_integer()) return false;
    const int64_t status = entry.answer[0].get<int64_t>();
    const std::optional<Method> method =
        dictionary ? dictionary->method(dictionary->bare_name(entry.method)) : std::optional<Method>();
    if (wanted == "failed") return method ? !is_success(*dictionary, *method, entry.answer[0]) : status != 0;
    if (const std::optional<int64_t> given = number(wanted)) return *given == status;
    const Enum *values = method ? dictionary->enumeration(method->result) : nullptr;
    const Enumerator *value = values ? values->numbered(status) : nullptr;
    return value && glob(wanted, value->name);
}

}  // namespace

bool TraceFilter::is_about_calls() const {
    return !methods.empty() || !status.empty() || !fault.empty() || !client.empty() || slower_than_ms > 0;
}

bool TraceFilter::takes(const TraceEntry &entry, const Dictionary *dictionary) const {
    if ((since && entry.time < *since) || (until && entry.time >= *until)) return false;
    if (!entry.is_call()) return !is_about_calls();
    if (!client.empty() && !glob(client, entry.client) && !glob(client, entry.user)) return false;
    if (static_cast<double>(entry.took) <= slower_than_ms * 1000 && slower_than_ms > 0) return false;
    if (!has_method(methods, entry.method)) return false;
    if (!fault.empty() && (entry.fault == 0 || (fault != "any" && std::to_string(entry.fault) != fault))) return false;
    return status.empty() || has_status(status, entry, dictionary);
}

}  // namespace lmqctl
