// Names of scalars, and arrays of scalars between a buffer and an XML-RPC array.
#include "marshal/scalar.h"

#include "marshal/fault.h"

namespace lmq {

const char *c_name(Scalar scalar) {
    switch (scalar.width) {
        case 1: return scalar.is_signed ? "signed char" : "unsigned char";
        case 2: return scalar.is_signed ? "short" : "unsigned short";
        default: return scalar.is_signed ? "int" : "unsigned int";
    }
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
