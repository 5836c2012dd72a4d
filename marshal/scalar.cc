// Scalars in memory, and arrays of scalars between a buffer and an XML-RPC array.
#include "marshal/scalar.h"

#include <cstring>

#include "marshal/fault.h"

namespace lmq {

namespace {

template <class T>
int32_t load_as(const std::byte *from) {
    T value;
    memcpy(&value, from, sizeof value);
    return static_cast<int32_t>(value);
}

template <class T>
void store_as(std::byte *to, int32_t value) {
    const T cut = static_cast<T>(value);
    memcpy(to, &cut, sizeof cut);
}

}  // namespace

const char *c_name(Scalar scalar) {
    switch (scalar.width) {
        case 1: return scalar.is_signed ? "signed char" : "unsigned char";
        case 2: return scalar.is_signed ? "short" : "unsigned short";
        default: return scalar.is_signed ? "int" : "unsigned int";
    }
}

int32_t load(const std::byte *from, Scalar scalar) {
    switch (scalar.width) {
        case 1: return scalar.is_signed ? load_as<int8_t>(from) : load_as<uint8_t>(from);
        case 2: return scalar.is_signed ? load_as<int16_t>(from) : load_as<uint16_t>(from);
        default: return load_as<int32_t>(from);
    }
}

void store(std::byte *to, uint8_t width, int32_t value) {
    switch (width) {
        case 1: return store_as<uint8_t>(to, value);
        case 2: return store_as<uint16_t>(to, value);
        default: return store_as<int32_t>(to, value);
    }
}

bool read_int(xmlrpc_env *env, xmlrpc_value *value, int32_t *into) {
    xmlrpc_int read = 0;
    xmlrpc_read_int(env, value, &read);
    *into = read;
    return !env->fault_occurred;
}

// An item that fails keeps its reference: after a fault nothing is released, here and in all decoding.
bool decode_elements(xmlrpc_env *env, std::byte *to, xmlrpc_value *array, int count, Scalar scalar, const char *type) {
    for (int i = 0; i < count; ++i) {
        xmlrpc_value *item;
        xmlrpc_array_read_item(env, array, static_cast<unsigned>(i), &item);
        if (env->fault_occurred) return false;
        if (xmlrpc_value_type(item) != XMLRPC_TYPE_INT) {
            fault::entry(env, c_name(scalar), type);
            return false;
        }
        int32_t value;
        if (!read_int(env, item, &value)) return false;
        store(to + static_cast<size_t>(i) * scalar.width, scalar.width, value);
        xmlrpc_DECREF(item);
    }
    return true;
}

xmlrpc_value *encode_elements(xmlrpc_env *env, const std::byte *from, int count, uint8_t width) {
    if (!from) return xmlrpc_nil_new(env);
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (int i = 0; i < count; ++i) {
        xmlrpc_value *item = xmlrpc_int_new(env, load(from + static_cast<size_t>(i) * width, {width, false}));
        xmlrpc_array_append_item(env, array, item);
        xmlrpc_DECREF(item);
    }
    return array;
}

}  // namespace lmq
