// XML-RPC values written as JSON, for tests.
#include "tests/engine/values.h"

#include <xmlrpc-c/json.h>

#include <cstdint>
#include <nlohmann/json.hpp>
#include <stdexcept>

namespace {

// The library's own reader makes an i8 of every number.
Value make(Env &env, const nlohmann::json &json) {
    if (json.is_null()) return Value(xmlrpc_nil_new(env));
    if (json.is_boolean()) return Value(xmlrpc_bool_new(env, json.get<bool>()));
    if (json.is_number_integer()) {
        const auto number = json.get<int64_t>();
        return Value(number == static_cast<int32_t>(number) ? xmlrpc_int_new(env, static_cast<int>(number))
                                                            : xmlrpc_i8_new(env, number));
    }
    if (json.is_number()) return Value(xmlrpc_double_new(env, json.get<double>()));
    if (json.is_string()) return Value(xmlrpc_string_new(env, json.get<std::string>().c_str()));
    if (json.is_array()) {
        Value array(xmlrpc_array_new(env));
        for (const auto &item : json) xmlrpc_array_append_item(env, array.get(), make(env, item).get());
        return array;
    }
    Value object(xmlrpc_struct_new(env));
    for (const auto &[key, member] : json.items())
        xmlrpc_struct_set_value(env, object.get(), key.c_str(), make(env, member).get());
    return object;
}

}  // namespace

Value from_json(const std::string &json) {
    Env env;
    Value value = make(env, nlohmann::json::parse(json));
    if (!env.fault().empty()) throw std::runtime_error(json + ": " + env.fault());
    return value;
}

std::string to_json(xmlrpc_value *value) {
    Env env;
    xmlrpc_mem_block *block = xmlrpc_mem_block_new(env, 0);
    xmlrpc_serialize_json(env, value, block);
    std::string text(static_cast<const char *>(xmlrpc_mem_block_contents(block)), xmlrpc_mem_block_size(block));
    xmlrpc_mem_block_free(block);
    if (!env.fault().empty()) throw std::runtime_error(env.fault());
    std::erase_if(text, [](char c) { return c == ' ' || c == '\n'; });
    return text;
}
