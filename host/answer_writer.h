// Writing of answers: the bytes that the XML-RPC library would write, without its locks, copies and formats.
#pragma once

#include <xmlrpc-c/base.h>

#include <cstddef>
#include <string>

namespace lmq::host {

/// The document of an answer.
/// @param result What the method returned.
/// @param length How long the document will be in bytes, as far as that is known.
/// @throws std::runtime_error if the result has no form in XML.
std::string answer_document(xmlrpc_value *result, std::size_t length);

}  // namespace lmq::host
