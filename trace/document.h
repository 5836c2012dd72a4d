// The XML of calls that a trace holds packed.
#pragma once

#include <string>
#include <string_view>

namespace lmq::trace {

/// The document of a call.
/// @param call As a record holds it: a document, which is returned as it is, or packed.
/// @return Empty if the bytes are neither, as a file can only hold them if its writer was wrong.
std::string call_document(std::string_view call);

}  // namespace lmq::trace
