// UDTs between memory and XML-RPC structs, by their rows.
#pragma once

#include <xmlrpc-c/base.h>

#include <cstddef>

#include "marshal/row.h"

namespace lmq {

/// Decodes a struct into one UDT. Members whose key is absent keep what they held; keys that the UDT does not have are
/// ignored. No bound is enforced on an array: it is written as long as the client's array is, over the members behind
/// it and over the end of the UDT. Returns false with a fault set at the first member of a wrong type; what was decoded
/// until then stays.
bool decode_udt(xmlrpc_env *env, const Udt &udt, std::byte *to, xmlrpc_value *value);

/// Decodes `count` structs of an XML-RPC array into UDTs, one behind the other. `spelling` is the type name for the
/// fault text of an item that is no struct.
bool decode_udts(xmlrpc_env *env, const Udt &udt, std::byte *to, xmlrpc_value *array, int count, const char *spelling);

/// Makes a struct of one UDT, with every key, or nil for a NULL source.
xmlrpc_value *encode_udt(xmlrpc_env *env, const Udt &udt, const std::byte *from);

/// Makes an array of `count` structs, or nil for a NULL source.
xmlrpc_value *encode_udts(xmlrpc_env *env, const Udt &udt, const std::byte *from, int count);

}  // namespace lmq
