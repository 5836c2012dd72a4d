// Between JSON and the XML-RPC library's values.
#include "xml_value.h"

#include <xmlrpc-c/base.h>
#include <xmlrpc-c/util.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include "error.h"
#include "http_answer.h"

namespace lmqctl {

namespace {

// A library environment. What goes wrong in it is nobody's mistake but ours.
struct Environment {
    Environment() { xmlrpc_env_init(&env); }
    ~Environment() { xmlrpc_env_clean(&env); }
    Environment(const Environment &) = delete;
    Environment &operator=(const Environment &) = delete;
    void check() const {
        if (env.fault_occurred) throw std::runtime_error(env.fault_string);
    }
    xmlrpc_env env;
};

struct Release {
    void operator()(xmlrpc_value *value) const { xmlrpc_DECREF(value); }
    void operator()(xmlrpc_mem_block *block) const { xmlrpc_mem_block_free(block); }
};
using Value = std::unique_ptr<xmlrpc_value, Release>;
using Block = std::unique_ptr<xmlrpc_mem_block, Release>;

// Takes charge of what the library made. With a fault the pointer may be garbage.
Value made(const Environment &e, xmlrpc_value *value) {
    e.check();
    return Value(value);
}

std::string text_in(const Block &block) {
    return {static_cast<const char *>(xmlrpc_mem_block_contents(block.get())), xmlrpc_mem_block_size(block.get())};
}

Value to_value(const Json &json);

Value to_number(int64_t number) {
    Environment e;
    return made(e, number == static_cast<int32_t>(number) ? xmlrpc_int_new(&e.env, static_cast<int32_t>(number))
                                                          : xmlrpc_i8_new(&e.env, number));
}

Value to_text(const std::string &text) {
    check_text(text, text);
    Environment e;
    return made(e, xmlrpc_string_new_lp(&e.env, text.size(), text.data()));
}

Value to_array(const Json &items) {
    Environment e;
    Value array = made(e, xmlrpc_array_new(&e.env));
    for (const Json &item : items) {
        xmlrpc_array_append_item(&e.env, array.get(), to_value(item).get());
        e.check();
    }
    return array;
}

Value to_struct(const Json &members) {
    Environment e;
    Value structure = made(e, xmlrpc_struct_new(&e.env));
    for (const auto &[key, inside] : members.items()) {
        check_text(key, key);
        xmlrpc_struct_set_value_n(&e.env, structure.get(), key.data(), key.size(), to_value(inside).get());
        e.check();
    }
    return structure;
}

Value to_value(const Json &json) {
    Environment e;
    switch (json.type()) {
        case Json::value_t::object: return to_struct(json);
        case Json::value_t::array: return to_array(json);
        case Json::value_t::string: return to_text(json.get_ref<const std::string &>());
        case Json::value_t::boolean: return made(e, xmlrpc_bool_new(&e.env, json.get<bool>()));
        case Json::value_t::number_float: return made(e, xmlrpc_double_new(&e.env, json.get<double>()));
        case Json::value_t::number_integer:
        case Json::value_t::number_unsigned: return to_number(json.get<int64_t>());
        default: return made(e, xmlrpc_nil_new(&e.env));
    }
}

Json from_value(xmlrpc_value *value);

template <class Read, class Number>
Json from_number(xmlrpc_value *value, Read read, Number number) {
    Environment e;
    read(&e.env, value, &number);
    e.check();
    return number;
}

std::string from_text(xmlrpc_value *value) {
    Environment e;
    std::size_t length = 0;
    const char *text = nullptr;
    xmlrpc_read_string_lp(&e.env, value, &length, &text);
    e.check();
    const std::unique_ptr<const char, void (*)(const char *)> held(
        text, [](const char *held_text) { std::free(const_cast<char *>(held_text)); });
    return {text, length};
}

Json from_array(xmlrpc_value *value) {
    Environment e;
    Json items = Json::array();
    const int count = xmlrpc_array_size(&e.env, value);
    e.check();
    for (int i = 0; i < count; ++i) {
        xmlrpc_value *item = nullptr;
        xmlrpc_array_read_item(&e.env, value, static_cast<unsigned>(i), &item);
        items.push_back(from_value(made(e, item).get()));
    }
    return items;
}

Json from_struct(xmlrpc_value *value) {
    Environment e;
    Json json = Json::object();
    const int count = xmlrpc_struct_size(&e.env, value);
    e.check();
    // The keys of a struct of the wire are unequal, so none need be searched for.
    auto &members = json.get_ref<Json::object_t &>();
    for (int i = 0; i < count; ++i) {
        xmlrpc_value *key = nullptr, *inside = nullptr;
        xmlrpc_struct_read_member(&e.env, value, static_cast<unsigned>(i), &key, &inside);
        const Value held_key = made(e, key), held_inside = made(e, inside);
        members.emplace_back(from_text(key), from_value(inside));
    }
    return json;
}

Json from_base64(xmlrpc_value *value) {
    Environment e;
    std::size_t length = 0;
    const unsigned char *bytes = nullptr;
    xmlrpc_read_base64(&e.env, value, &length, &bytes);
    e.check();
    std::string text;
    for (std::size_t i = 0; i < length; ++i)
        for (const int digit : {bytes[i] >> 4, bytes[i] & 15}) text += "0123456789abcdef"[digit];
    std::free(const_cast<unsigned char *>(bytes));
    return text;
}

Json from_datetime(xmlrpc_value *value) {
    Environment e;
    const char *text = nullptr;
    xmlrpc_read_datetime_str(&e.env, value, &text);
    e.check();
    Json json = std::string(text);
    std::free(const_cast<char *>(text));
    return json;
}

Json from_value(xmlrpc_value *value) {
    switch (xmlrpc_value_type(value)) {
        case XMLRPC_TYPE_INT: return from_number(value, xmlrpc_read_int, 0);
        case XMLRPC_TYPE_I8: return from_number(value, xmlrpc_read_i8, 0ll);
        case XMLRPC_TYPE_BOOL: return from_number(value, xmlrpc_read_bool, xmlrpc_bool{0}) != 0;
        case XMLRPC_TYPE_DOUBLE: return from_number(value, xmlrpc_read_double, 0.0);
        case XMLRPC_TYPE_STRING: return from_text(value);
        case XMLRPC_TYPE_ARRAY: return from_array(value);
        case XMLRPC_TYPE_STRUCT: return from_struct(value);
        case XMLRPC_TYPE_BASE64: return from_base64(value);
        case XMLRPC_TYPE_DATETIME: return from_datetime(value);
        default: return {};
    }
}

}  // namespace

std::string request_xml(const std::string &method, const Json &parameters) {
    check_text(method, method);
    Environment e;
    const Value values = to_value(parameters);
    const Block document(xmlrpc_mem_block_new(&e.env, 0));
    e.check();
    xmlrpc_serialize_call(&e.env, document.get(), method.c_str(), values.get());
    e.check();
    return text_in(document);
}

std::pair<std::string, Json> request_value(const std::string &document, const std::string &place) {
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, largest_answer);
    Environment e;
    const char *name = nullptr;
    xmlrpc_value *parameters = nullptr;
    xmlrpc_parse_call(&e.env, document.data(), document.size(), &name, &parameters);
    if (e.env.fault_occurred) throw Error(exit_usage, place + " is no call: " + e.env.fault_string);
    const Value held(parameters);
    const std::string method = name;
    std::free(const_cast<char *>(name));
    return {method, from_value(held.get())};
}

Json answer_value(const std::string &document, const std::string &url) {
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, largest_answer);
    Environment e;
    xmlrpc_value *result = nullptr;
    int code = 0;
    const char *text = nullptr;
    xmlrpc_parse_response2(&e.env, document.data(), document.size(), &result, &code, &text);
    if (e.env.fault_occurred)
        throw Error(exit_connection, url + ": what answers there does not speak XML-RPC: " + e.env.fault_string);
    if (text) {
        const Fault fault(code, text);
        std::free(const_cast<char *>(text));
        throw fault;
    }
    return from_value(Value(result).get());
}

void check_text(const std::string &text, const std::string &place) {
    Environment e;
    xmlrpc_validate_utf8(&e.env, text.data(), text.size());
    const bool is_utf8 = !e.env.fault_occurred;
    const auto is_control = [](char letter) {
        return static_cast<unsigned char>(letter) < ' ' && letter != '\t' && letter != '\n' && letter != '\r';
    };
    const bool has_controls = std::any_of(text.begin(), text.end(), is_control);
    if (is_utf8 && !has_controls) return;
    std::string shown;
    for (const char letter : place.substr(0, 60)) {
        const auto byte = static_cast<unsigned char>(letter);
        if (byte >= ' ' && byte < 0x7f)
            shown += letter;
        else
            for (const int digit : {-1, byte >> 4, byte & 15})
                shown += digit < 0 ? std::string("\\x") : std::string(1, "0123456789abcdef"[digit]);
    }
    throw UsageError(shown + ": " + (is_utf8 ? "a control character cannot be sent" : "not a text in UTF-8"));
}

std::string base64(const std::string &bytes) {
    Environment e;
    const Block text(xmlrpc_base64_encode_without_newlines(
        &e.env, reinterpret_cast<const unsigned char *>(bytes.data()), bytes.size()));
    e.check();
    return text_in(text);
}

}  // namespace lmqctl
