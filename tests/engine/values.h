// XML-RPC values written as JSON, for tests: an object is a struct, a number beyond 32 bits an i8, null a nil.
#pragma once

#include <xmlrpc-c/base.h>

#include <memory>
#include <string>

// A fault carrier that cleans up after itself.
struct Env {
    xmlrpc_env env;
    Env() { xmlrpc_env_init(&env); }
    ~Env() { xmlrpc_env_clean(&env); }
    Env(const Env &) = delete;
    operator xmlrpc_env *() { return &env; }

    // "CODE TEXT" of the fault, or "" if there is none.
    std::string fault() const {
        return env.fault_occurred ? std::to_string(env.fault_code) + " " + env.fault_string : std::string();
    }
};

struct Drop {
    void operator()(xmlrpc_value *value) const { xmlrpc_DECREF(value); }
};
using Value = std::unique_ptr<xmlrpc_value, Drop>;

Value from_json(const std::string &json);
std::string to_json(xmlrpc_value *value);  ///< without blanks
