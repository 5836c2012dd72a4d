// Between JSON and the XML-RPC library's values.
#pragma once

#include <xmlrpc-c/base.h>

#include <string>

#include "json.h"

namespace lmqctl {

// A library environment that turns the library's errors into a Fault.
struct Environment {
    Environment() { xmlrpc_env_init(&env); }
    ~Environment() { xmlrpc_env_clean(&env); }
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;
    void check() const;
    xmlrpc_env env;
};

struct Release {
    void operator()(xmlrpc_value *value) const { xmlrpc_DECREF(value); }
};
using Value = std::unique_ptr<xmlrpc_value, Release>;

// A whole number of 32 bits becomes an int, a larger one an i8.
Value to_value(const Json &json);

// A base64 becomes a text of hexadecimal digits, a date its text.
Json from_value(xmlrpc_value *value);

// The document of a call.
std::string request_xml(const std::string &method, const Json &parameters);

}  // namespace lmqctl
