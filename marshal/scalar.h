// Scalars in memory, and arrays of scalars between a buffer and an XML-RPC array.
#pragma once

#include <xmlrpc-c/base.h>

#include <cstddef>
#include <cstdint>

namespace lmq {

// The scalar type of an element or a member, as far as memory knows it.
struct Scalar {
    uint8_t width;  // in bytes: 1, 2 or 4
    bool is_signed;
};

// Its name in C: "unsigned char" and so on. Pointers to scalars and arrays of them are told to clients by this name.
const char *c_name(Scalar scalar);

// Reads a scalar: a narrow one is extended by its sign, one of 32 bits goes through as it is.
int32_t load(const std::byte *from, Scalar scalar);

// Writes a scalar, cut to its width. Through bytes, since an array that is longer than its member runs on over the
// members behind it, and must do so under every optimiser.
void store(std::byte *to, uint8_t width, int32_t value);

// Reads an int of an XML-RPC array or struct. The caller has tested the type.
// Returns false with a fault set if the library fails.
bool read_int(xmlrpc_env *env, xmlrpc_value *value, int32_t *into);

// Reads `count` ints of an XML-RPC array into elements, each cut to the width. `type` is the element type that the
// fault text names. No bound is known here: the caller says how many elements the client sent, and all are written.
// Returns false with a fault set at the first item that is no int; the items before it stand in the buffer.
bool decode_elements(xmlrpc_env *env, std::byte *to, xmlrpc_value *array, int count, Scalar scalar, const char *type);

// Makes an array of `count` ints, or nil for a NULL buffer. Elements of one and two bytes are read unsigned.
xmlrpc_value *encode_elements(xmlrpc_env *env, const std::byte *from, int count, uint8_t width);

}  // namespace lmq
