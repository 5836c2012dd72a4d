// The guard: refuses calls in which the driver would read or write beyond what the client sent, and, for --read-only,
// calls that change the chip. It goes by the contract of each function, not by names.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "backend.h"
#include "call_view.h"
#include "fault.h"
#include "prepass.h"

namespace lmq::host {

/// What --read-only leaves, the strictest last.
enum class ReadOnly {
    off,
    /// What changes nothing, and reading of registers and buses, where some change when they are read.
    registers,
    /// What changes nothing.
    strict
};

class Guard {
  public:
    /// @param methods All methods. Must outlive the guard.
    /// @param lengths Whether to look at lengths.
    Guard(const std::vector<Method> &methods, bool lengths) : methods_(methods), lengths_(lengths) {}

    /// Judges all calls of a document.
    /// @param packed    What the pre-pass has read (Verdict::read).
    /// @param read_only Which calls may pass.
    /// @return Why it must not be carried out, or none.
    std::optional<Fault> judge(std::string_view packed, ReadOnly read_only) const;

    /// Whether all calls of a document read only; reading of registers and buses counts as reading.
    bool reads(std::string_view packed) const;

    /// Whether a call, or each call in a system.multicall, tells about the interface and calls nothing of the driver.
    bool is_introspection(const Verdict &call) const;

  private:
    /// Whether a call reads only.
    /// @param registers Whether reading of registers and buses counts as reading.
    bool reads(const CallView &call, bool registers) const;
    bool is_introspection(std::string_view method) const;

    const std::vector<Method> &methods_;
    bool lengths_;
};

}  // namespace lmq::host
