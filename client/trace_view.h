// Entries of a trace for people and for programs.
#pragma once

#include <string>

#include "output.h"
#include "trace_entry.h"
#include "trace_interface.h"

namespace lmqctl {

class TraceView {
  public:
    /// @param interface Knows the names; nullptr for none. It must outlive this.
    TraceView(TraceInterface *interface, Style style) : interface_(interface), style_(style) {}

    /// One line; for a call over which the process died also what it printed.
    std::string line(const TraceEntry &entry) const;

    /// The line, what was printed, and the answer as `call` shows it.
    std::string full(const TraceEntry &entry) const;

    /// An object for programs.
    Json json(const TraceEntry &entry) const;

  private:
    std::optional<Method> method_of(const TraceEntry &entry) const;
    std::string call_text(const TraceEntry &entry) const;
    std::string outcome(const TraceEntry &entry) const;
    std::string painted(const char *code, const std::string &text) const;

    TraceInterface *interface_;
    Style style_;
};

}  // namespace lmqctl
