// Which calls of a trace are wanted.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "dictionary.h"
#include "trace_entry.h"

namespace lmqctl {

struct TraceFilter {
    std::vector<std::string> methods;  ///< patterns, with or without the namespace; empty for all
    std::string status;                ///< a pattern for the name of the driver's status, its number, or "failed"
    std::string fault;                 ///< the code of a fault, or "any"
    std::string client;                ///< a pattern for the client's address or user
    std::optional<int64_t> since, until;
    double slower_than_ms = 0;

    /// Whether only calls can be meant.
    bool is_about_calls() const;

    /// @param dictionary Knows the names; nullptr for none.
    bool takes(const TraceEntry &entry, const Dictionary *dictionary) const;
};

}  // namespace lmqctl
