// A call as code to paste: C, Python, or the XML document.
#pragma once

#include <string>

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

// `language` is one of "c", "python", "xmlrpc".
std::string call_as_code(const std::string &language, const std::string &url, const Dictionary &dictionary,
                         Types &types, const Method &method, const Json &arguments);

}  // namespace lmqctl
