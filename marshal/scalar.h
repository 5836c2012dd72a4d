// Scalars in memory, and arrays of scalars between a buffer and an XML-RPC array.
#pragma once

#include <xmlrpc-c/base.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace lmq {

/// The scalar type of an element or a member, as far as memory knows it.
struct Scalar {
    uint8_t width;  ///< in bytes: 1, 2 or 4
    bool is_signed;
};

/// Its name in C: "unsigned char" and so on. Pointers to scalars and arrays of them are told to clients by this name.
const char *c_name(Scalar scalar);

// The functions for a single scalar are inline: a call of each would be a good part of what a member costs here.

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

/// Reads a scalar: a narrow one is extended by its sign, one of 32 bits goes through as it is.
inline int32_t load(const std::byte *from, Scalar scalar) {
    switch (scalar.width) {
        case 1: return scalar.is_signed ? load_as<int8_t>(from) : load_as<uint8_t>(from);
        case 2: return scalar.is_signed ? load_as<int16_t>(from) : load_as<uint16_t>(from);
        default: return load_as<int32_t>(from);
    }
}

/// Writes a scalar, cut to its width. Through bytes, since an array that is longer than its member runs on over the
/// members behind it, and must do so under every optimiser.
inline void store(std::byte *to, uint8_t width, int32_t value) {
    switch (width) {
        case 1: return store_as<uint8_t>(to, value);
        case 2: return store_as<uint16_t>(to, value);
        default: return store_as<int32_t>(to, value);
    }
}

/// Reads an int of an XML-RPC array or struct. The caller has tested the type.
/// Returns false with a fault set if the library fails.
inline bool read_int(xmlrpc_env *env, xmlrpc_value *value, int32_t *into) {
    xmlrpc_read_int(env, value, into);
    return !env->fault_occurred;
}

/// Reads `count` ints of an XML-RPC array into elements, each cut to the width. `type` is the element type that the
/// fault text names. No bound is known here: the caller says how many elements the client sent, and all are written.
/// Returns false with a fault set at the first item that is no int; the items before it stand in the buffer.
bool decode_elements(xmlrpc_env *env, std::byte *to, xmlrpc_value *array, int count, Scalar scalar, const char *type);

/// Makes an array of `count` ints, or nil for a NULL buffer. Elements of one and two bytes are read unsigned.
xmlrpc_value *encode_elements(xmlrpc_env *env, const std::byte *from, int count, uint8_t width);

}  // namespace lmq
