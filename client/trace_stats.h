// What a trace says of its methods as a whole.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "trace_entry.h"
#include "trace_interface.h"

namespace lmqctl {

class TraceStats {
  public:
    /// @param interface Tells failures from successes; nullptr if nothing does: then a status of 0 is a success.
    void add(const TraceEntry &entry, const TraceInterface *interface);

    /// A table, the methods with the most calls first. Times are in ms, and those of calls inside a system.multicall
    /// are not known.
    std::string table() const;
    Json json() const;

  private:
    struct Row {
        std::size_t calls = 0, failed = 0, faults = 0, lost = 0;
        std::vector<uint64_t> times;
    };
    /// The methods in the order of the table; the times sorted.
    std::vector<std::pair<std::string, Row>> rows() const;

    std::map<std::string, Row> by_method_;
};

}  // namespace lmqctl
