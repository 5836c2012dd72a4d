// JSON as XML-RPC documents and back, with the XML-RPC library.
#pragma once

#include <string>
#include <utility>

#include "json.h"

namespace lmqctl {

/// The document of a call. A whole number of 32 bits becomes an int, a larger one an i8. Throws a UsageError for a text
/// that a document cannot hold.
std::string request_xml(const std::string &method, const Json &parameters);

/// The method's name and the parameters in the document of a call. Throws an Error that names `place` if it is none.
std::pair<std::string, Json> request_value(const std::string &document, const std::string &place);

/// The value in the document of an answer; a base64 becomes a text of hexadecimal digits, a date its text. Throws a
/// Fault if the answer is one, and an Error that names `url` if it is no answer at all.
Json answer_value(const std::string &document, const std::string &url);

/// Throws a UsageError if a document cannot hold the text: it is not UTF-8, or has control characters in it. `place` is
/// for the error.
void check_text(const std::string &text, const std::string &place);

/// Without line breaks.
std::string base64(const std::string &bytes);

}  // namespace lmqctl
