// Between JSON and the XML-RPC library's values.
#include "xml_value.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

#include "error.h"

namespace lmqctl {

void Environment::check() const {
    if (env.fault_occurred) throw Fault(env.fault_code, env.fault_string);
}

Value to_value(const Json &json) {
    Environment e;
    Value value;
    switch (json.type()) {
        case Json::value_t::object:
            value.reset(xmlrpc_struct_new(&e.env));
            for (const auto &[key, inside] : json.items())
                xmlrpc_struct_set_value_n(&e.env, value.get(), key.data(), key.size(), to_value(inside).get());
            break;
        case Json::value_t::array:
            value.reset(xmlrpc_array_new(&e.env));
            for (const Json &item : json) xmlrpc_array_append_item(&e.env, value.get(), to_value(item).get());
            break;
        case Json::value_t::string: {
            const auto &text = json.get_ref<const std::string &>();
            value.reset(xmlrpc_string_new_lp(&e.env, text.size(), text.data()));
            break;
        }
        case Json::value_t::boolean: value.reset(xmlrpc_bool_new(&e.env, json.get<bool>())); break;
        case Json::value_t::number_float: value.reset(xmlrpc_double_new(&e.env, json.get<double>())); break;
        case Json::value_t::number_integer:
        case Json::value_t::number_unsigned: {
            const int64_t number = json.get<int64_t>();
            value.reset(number == static_cast<int32_t>(number) ? xmlrpc_int_new(&e.env, static_cast<int32_t>(number))
                                                               : xmlrpc_i8_new(&e.env, number));
            break;
        }
        default: value.reset(xmlrpc_nil_new(&e.env));
    }
    e.check();
    return value;
}

Json from_value(xmlrpc_value *value) {
    Environment e;
    Json json;
    switch (xmlrpc_value_type(value)) {
        case XMLRPC_TYPE_INT: {
            int number = 0;
            xmlrpc_read_int(&e.env, value, &number);
            json = number;
            break;
        }
        case XMLRPC_TYPE_I8: {
            long long number = 0;
            xmlrpc_read_i8(&e.env, value, &number);
            json = static_cast<int64_t>(number);
            break;
        }
        case XMLRPC_TYPE_BOOL: {
            xmlrpc_bool flag = 0;
            xmlrpc_read_bool(&e.env, value, &flag);
            json = flag != 0;
            break;
        }
        case XMLRPC_TYPE_DOUBLE: {
            double number = 0;
            xmlrpc_read_double(&e.env, value, &number);
            json = number;
            break;
        }
        case XMLRPC_TYPE_STRING: {
            std::size_t length = 0;
            const char *text = nullptr;
            xmlrpc_read_string_lp(&e.env, value, &length, &text);
            e.check();
            json = std::string(text, length);
            std::free(const_cast<char *>(text));
            break;
        }
        case XMLRPC_TYPE_ARRAY: {
            json = Json::array();
            const int count = xmlrpc_array_size(&e.env, value);
            for (int i = 0; i < count; ++i) {
                xmlrpc_value *item = nullptr;
                xmlrpc_array_read_item(&e.env, value, static_cast<unsigned>(i), &item);
                json.push_back(from_value(Value(item).get()));
            }
            break;
        }
        case XMLRPC_TYPE_STRUCT: {
            json = Json::object();
            const int count = xmlrpc_struct_size(&e.env, value);
            // The keys of a struct of the wire are unequal, so none need be searched for.
            auto &members = json.get_ref<Json::object_t &>();
            for (int i = 0; i < count; ++i) {
                xmlrpc_value *key = nullptr, *inside = nullptr;
                xmlrpc_struct_read_member(&e.env, value, static_cast<unsigned>(i), &key, &inside);
                const Value held_key(key), held_inside(inside);
                members.emplace_back(from_value(key).get<std::string>(), from_value(inside));
            }
            break;
        }
        case XMLRPC_TYPE_BASE64: {
            std::size_t length = 0;
            const unsigned char *bytes = nullptr;
            xmlrpc_read_base64(&e.env, value, &length, &bytes);
            e.check();
            std::string text;
            for (std::size_t i = 0; i < length; ++i)
                for (const int digit : {bytes[i] >> 4, bytes[i] & 15}) text += "0123456789abcdef"[digit];
            std::free(const_cast<unsigned char *>(bytes));
            json = text;
            break;
        }
        case XMLRPC_TYPE_DATETIME: {
            const char *text = nullptr;
            xmlrpc_read_datetime_str(&e.env, value, &text);
            e.check();
            json = std::string(text);
            std::free(const_cast<char *>(text));
            break;
        }
        default: break;
    }
    e.check();
    return json;
}

std::string request_xml(const std::string &method, const Json &parameters) {
    Environment e;
    xmlrpc_mem_block *document = xmlrpc_mem_block_new(&e.env, 0);
    e.check();
    const Value values = to_value(parameters);
    xmlrpc_serialize_call(&e.env, document, method.c_str(), values.get());
    std::string text(static_cast<const char *>(xmlrpc_mem_block_contents(document)), xmlrpc_mem_block_size(document));
    xmlrpc_mem_block_free(document);
    e.check();
    return text;
}

}  // namespace lmqctl
