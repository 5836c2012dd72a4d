// What a trace holds, taken apart: calls as methods, arguments and answers, those inside a system.multicall one by one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "json.h"
#include "trace/record.h"

namespace lmqctl {

struct TraceEntry {
    lmq::trace::Kind kind = lmq::trace::Kind::call;
    uint64_t number = 0;               ///< of the record
    std::optional<std::size_t> inner;  ///< which one inside a system.multicall, from 0
    int64_t time = 0;                  ///< microseconds since 1970
    uint64_t waited = 0, took = 0;     ///< microseconds; of a call inside another one that of all
    uint64_t status = 0;               ///< of HTTP
    std::string client, user;
    std::string method;  ///< as it was sent; empty if the call was none
    Json arguments;      ///< in order; null if they cannot be read
    Json answer;         ///< what came back; null if nothing did
    int fault = 0;       ///< the code, if that was a fault
    std::string text;    ///< of a fault; else what was wrong, or how a process ended
    std::string printed;
    uint64_t pid = 0;
    std::string driver, plugin;

    bool is_call() const { return kind == lmq::trace::Kind::call; }
    /// Whether the driver's process ended over it.
    bool is_lost() const;
};

/// The entries of a record: one, or as many as there are calls inside. What is no call, such as a document that the
/// host refused, has no arguments.
std::vector<TraceEntry> entries_of(const lmq::trace::RecordView &record);

}  // namespace lmqctl
