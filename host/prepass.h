// The pre-pass: reads the document of a call once, before the XML-RPC library does, and refuses what the library cannot
// bear. Some numbers that are none end its process, entities make it work for hours, and so on; prepass.cc says which
// rule is there for what. It also says which methods a call is about, for filters, logs and metrics, and hands on what
// it has read, so that a call is read once.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fault.h"

namespace lmq::host {

/// The method that carries out a list of other calls.
inline constexpr std::string_view multicall = "system.multicall";

/// What a call may hold at the most. The largest answer of the interface, sent back as a call, passes the defaults.
struct PrepassLimits {
    /// Values inside each other. The XML-RPC library itself ends at 64.
    std::size_t depth = 32;
    std::size_t values = 100'000;
    /// Members of one struct. The library looks each up in all that came before it.
    std::size_t members = 1'024;
    /// Calls in one system.multicall.
    std::size_t calls = 1'000;
};

/// What the pre-pass found.
struct Verdict {
    /// Why the call must not reach the library; none if it may.
    std::optional<Fault> fault;
    /// The method, as far as the document was read.
    std::string method;
    /// The methods that a system.multicall calls, in their order. Empty for every other method.
    std::vector<std::string> inner;
    /// The call as packed_call.h describes it, so that its XML need not be read again; empty if the XML-RPC library has
    /// to do that, and of no meaning if there is a fault. Lasts until the next document is read.
    std::string_view packed;
    /// What was read, for the guard: the call packed, also where the library reads the XML. Lasts as long.
    std::string_view read;
    /// The document for the library, if the call cannot be packed and came in another encoding or with a byte order
    /// mark.
    std::string document;
};

class Prepass {
  public:
    /// @param reads_plain Whether documents in the usual form are read without expat, which makes no difference but
    /// time.
    /// @throws std::bad_alloc if there is no memory for the XML parser.
    explicit Prepass(const PrepassLimits &limits, bool reads_plain = true);
    ~Prepass();

    /// Reads one document. What it was told before has no influence.
    Verdict examine(std::string_view document);

  private:
    class Walk;

    std::unique_ptr<Walk> walk_;
};

}  // namespace lmq::host
