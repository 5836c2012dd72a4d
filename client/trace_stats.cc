// Counting and sorting.
#include "trace_stats.h"

#include <algorithm>
#include <cstdio>

#include "answer.h"

namespace lmqctl {

namespace {

// The least time that so many hundredths of the calls do not exceed, in ms.
double percentile(const std::vector<uint64_t> &sorted, std::size_t hundredths) {
    const std::size_t rank = (sorted.size() * hundredths + 99) / 100;
    return static_cast<double>(sorted[std::max<std::size_t>(rank, 1) - 1]) / 1000;
}

bool is_failure(const TraceEntry &entry, const TraceInterface *interface) {
    const Json &result = result_of(entry.answer);
    const auto method = interface ? interface->dictionary.method(interface->dictionary.bare_name(entry.method))
                                  : std::optional<Method>();
    if (method) return !is_success(interface->dictionary, *method, result);
    return !interface && result.is_number_integer() && result != 0;
}

}  // namespace

void TraceStats::add(const TraceEntry &entry, const TraceInterface *interface) {
    if (!entry.is_call()) return;
    Row &row = by_method_[entry.method.empty() ? "?" : entry.method];
    ++row.calls;
    if (entry.is_lost())
        ++row.lost;
    else if (entry.fault != 0)
        ++row.faults;
    else if (is_failure(entry, interface))
        ++row.failed;
    if (!entry.inner) row.times.push_back(entry.took);
}

std::vector<std::pair<std::string, TraceStats::Row>> TraceStats::rows() const {
    std::vector<std::pair<std::string, Row>> rows(by_method_.begin(), by_method_.end());
    for (auto &[name, row] : rows) std::sort(row.times.begin(), row.times.end());
    std::stable_sort(rows.begin(), rows.end(),
                     [](const auto &one, const auto &other) { return one.second.calls > other.second.calls; });
    return rows;
}

std::string TraceStats::table() const {
    char line[256];
    std::snprintf(line, sizeof line, "%8s %7s %7s %5s %9s %9s %9s %9s  %s\n", "calls", "failed", "faults", "died",
                  "p50", "p90", "p99", "max ms", "method");
    std::string text = line;
    for (const auto &[name, row] : rows()) {
        std::snprintf(line, sizeof line, "%8zu %7zu %7zu %5zu", row.calls, row.failed, row.faults, row.lost);
        text += line;
        for (const std::size_t hundredths : {50U, 90U, 99U, 100U}) {
            if (row.times.empty())
                std::snprintf(line, sizeof line, " %9s", "-");
            else
                std::snprintf(line, sizeof line, " %9.3f", percentile(row.times, hundredths));
            text += line;
        }
        text += "  " + name + "\n";
    }
    return text;
}

Json TraceStats::json() const {
    Json all = Json::array();
    for (const auto &[name, row] : rows()) {
        Json json{
            {"method", name}, {"calls", row.calls}, {"failed", row.failed}, {"faults", row.faults}, {"died", row.lost}};
        if (!row.times.empty())
            json["ms"] = {{"p50", percentile(row.times, 50)},
                          {"p90", percentile(row.times, 90)},
                          {"p99", percentile(row.times, 99)},
                          {"max", percentile(row.times, 100)}};
        all.push_back(json);
    }
    return all;
}

}  // namespace lmqctl
