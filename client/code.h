// A call as code to paste: C, Python, or the XML document.
#pragma once

#include <set>
#include <string>

#include "connection.h"
#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// `language` is one of "c", "python", "xmlrpc". The Python code reaches the host as `connection` does, with the
/// password from LMQ_PASSWORD.
std::string call_as_code(const std::string &language, const Connection &connection, const Dictionary &dictionary,
                         Types &types, const Method &method, const Json &arguments);

/// A call in C: the variables that it needs, a line each, and the call itself.
struct CallInC {
    std::string declarations, expression;
};
CallInC call_in_c(const Dictionary &dictionary, Types &types, const Method &method, const Json &arguments);

/// What a symbol (symbol.h) is called in code.
std::string variable_name(const std::string &symbol);

/// Python that makes `host`, a server proxy, as `connection` reaches it. `imports` are further modules.
std::string python_host(const Connection &connection, std::set<std::string> imports);
/// The arguments of a call in Python.
std::string python_arguments(const Json &arguments);

}  // namespace lmqctl
