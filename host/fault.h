// Faults that the host itself answers with: what went wrong, and the document that says it.
#pragma once

#include <string>
#include <string_view>

namespace lmq::host {

/// Why a call is not carried out. The codes are those that the XML-RPC library uses for the same matters.
struct Fault {
    static constexpr int internal = -500;
    static constexpr int malformed = -503;
    static constexpr int refused = -507;
    static constexpr int limit = -509;

    int code;
    /// A sentence or two in UTF-8.
    std::string text;
};

/// The answer that carries a fault.
/// @throws std::bad_alloc if there is no memory for it.
std::string document(const Fault &fault);

/// The fault code in the document of an answer.
/// @return 0 if the answer is not a fault.
int fault_code(std::string_view answer);

}  // namespace lmq::host
