// Struct encoding: one walk over the rows of a UDT. Encoding is complete: every key, whatever was sent and whatever a
// mask or a selector says, and arrays at their declared bound. It has no error path.
#include <cstring>

#include "marshal/scalar.h"
#include "marshal/udt.h"

namespace lmq {

namespace {

struct Encoder {
    xmlrpc_env *env;
    const Udt &udt;
    const std::byte *from;  // the UDT's first byte

    // Not inlined: an optimiser would unroll the recursion into thousands of bytes and gain nothing.
    [[gnu::noinline]] xmlrpc_value *rows(const Row *row, const Row *end) {
        xmlrpc_value *value = xmlrpc_struct_new(env);
        for (; row != end; row = next(row)) {
            xmlrpc_value *made = member(*row);
            xmlrpc_struct_set_value(env, value, udt.text(row->key), made);
            xmlrpc_DECREF(made);
        }
        return value;
    }

    xmlrpc_value *member(const Row &row) {
        const std::byte *at = from + row.offset;
        switch (row.kind) {
            case Kind::scalar: return xmlrpc_int_new(env, load(at, {row.width, row.is_signed}));
            case Kind::wide: return wide(at);
            case Kind::string: return string(reinterpret_cast<const char *>(at));
            case Kind::elements: return encode_elements(env, at, row.count, row.width);
            case Kind::nested: return encode_udt(env, *udt.inner[row.inner], at);
            case Kind::udt_array:
            case Kind::udt_list: return encode_udts(env, *udt.inner[row.inner], at, row.count);
            case Kind::inline_struct:
            case Kind::overlaid: return rows(&row + 1, next(&row));
            case Kind::flag: return flag(row, at);
        }
        __builtin_unreachable();
    }

    // The text up to its terminator, which may lie behind the member (see the decoder). The bytes there need not be
    // UTF-8, which the library refuses with a fault and no value: then the text ends before them, as no fault may
    // follow a driver call.
    xmlrpc_value *string(const char *text) {
        size_t length = strlen(text);
        xmlrpc_value *value = xmlrpc_string_new(env, text);
        while (env->fault_occurred && length > 0) {
            xmlrpc_env_clean(env);
            xmlrpc_env_init(env);
            value = xmlrpc_string_new_lp(env, --length, text);
        }
        return value;
    }

    xmlrpc_value *wide(const std::byte *at) {
        xmlrpc_int64 number;
        memcpy(&number, at, sizeof number);
        return xmlrpc_i8_new(env, number);
    }

    xmlrpc_value *flag(const Row &row, const std::byte *at) {
        const uint32_t word = static_cast<uint32_t>(load(at, {row.width, false})) >> row.count;
        return xmlrpc_int_new(env, static_cast<int>(row.bits < 32 ? word & ((1u << row.bits) - 1) : word));
    }
};

}  // namespace

xmlrpc_value *encode_udt(xmlrpc_env *env, const Udt &udt, const std::byte *from) {
    if (!from) return xmlrpc_nil_new(env);
    return Encoder{env, udt, from}.rows(udt.rows, udt.end());
}

xmlrpc_value *encode_udts(xmlrpc_env *env, const Udt &udt, const std::byte *from, int count) {
    if (!from) return xmlrpc_nil_new(env);
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (int i = 0; i < count; ++i) {
        xmlrpc_value *item = encode_udt(env, udt, from + static_cast<size_t>(i) * udt.size);
        xmlrpc_array_append_item(env, array, item);
        xmlrpc_DECREF(item);
    }
    return array;
}

}  // namespace lmq
