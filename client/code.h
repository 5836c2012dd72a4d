// A call as code to paste: C, Python, or the XML document.
#pragma once

#include <string>

#include "connection.h"
#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// `language` is one of "c", "python", "xmlrpc". The Python code reaches the host as `connection` does, with the
/// password from LMQ_PASSWORD.
std::string call_as_code(const std::string &language, const Connection &connection, const Dictionary &dictionary,
                         Types &types, const Method &method, const Json &arguments);

}  // namespace lmqctl
