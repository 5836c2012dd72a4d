// Struct decoding: one walk over the rows of a UDT, one function for each kind of row.
//
// Decoding is partial: it looks up the keys that the rows name and never walks what the client sent. On a fault it ends
// at once and releases nothing, which is the rule of the whole interface: a faulted call's values are lost.
#include <cstring>

#include "lmq_xmlrpc.h"
#include "marshal/fault.h"
#include "marshal/scalar.h"
#include "marshal/udt.h"

namespace lmq {

namespace {

struct Decoder {
    xmlrpc_env *env;
    const Udt &udt;
    std::byte *to;  // the UDT's first byte

    std::byte *at(const Row &row) const { return to + row.offset; }
    const char *key(const Row &row) const { return udt.text(row.key); }
    const char *type(const Row &row) const { return udt.text(row.type); }
    const Udt &inner(const Row &row) const { return *udt.inner[row.inner]; }

    // How fault texts are to name the keys of a group: all as the UDT's own member that holds them, or each as itself.
    struct Naming {
        const char *member;  // NULL: the key's own name
        const char *udt;
    };

    fault::Place place(const Row &row, Naming naming) const {
        return {naming.member ? naming.member : key(row), naming.udt};
    }

    bool rows(const Row *row, const Row *end, xmlrpc_value *value, Naming naming) {
        for (; row != end; row = next(row)) {
            const char *const name = key(*row);
            if (!xmlrpc_struct_has_key(env, value, name)) continue;
            xmlrpc_value *read;
            xmlrpc_struct_read_value(env, value, name, &read);
            if (!member(*row, read, naming)) return false;
            xmlrpc_DECREF(read);
        }
        return true;
    }

    bool member(const Row &row, xmlrpc_value *value, Naming naming) {
        switch (row.kind) {
            case Kind::scalar: return scalar(row, value, naming);
            case Kind::wide: return wide(row, value, naming);
            case Kind::string: return string(row, value, naming);
            case Kind::elements: return elements(row, value, naming);
            case Kind::nested: return nested(row, value, naming);
            case Kind::udt_array: return udt_array(row, value, naming);
            case Kind::udt_list: return udt_list(row, value, naming);
            case Kind::inline_struct: return group(row, value, naming, {place(row, naming).member, naming.udt});
            case Kind::overlaid: return group(row, value, naming, {nullptr, "inline struct"});
            case Kind::flag: return flag(row, value, naming);
        }
        __builtin_unreachable();
    }

    bool read(const Row &row, xmlrpc_value *value, Naming naming, int32_t *into) {
        if (xmlrpc_value_type(value) != XMLRPC_TYPE_INT) {
            fault::member(env, place(row, naming), type(row));
            return false;
        }
        return read_int(env, value, into);
    }

    bool scalar(const Row &row, xmlrpc_value *value, Naming naming) {
        int32_t number;
        if (!read(row, value, naming, &number)) return false;
        store(at(row), row.width, number);
        return true;
    }

    // The one place where two wire types are taken: an int is extended by its sign.
    bool wide(const Row &row, xmlrpc_value *value, Naming naming) {
        xmlrpc_int64 number = 0;
        if (xmlrpc_value_type(value) == XMLRPC_TYPE_I8) {
            xmlrpc_read_i8(env, value, &number);
            if (env->fault_occurred) return false;
        } else {
            int32_t narrow;
            if (!read(row, value, naming, &narrow)) return false;
            number = narrow;
        }
        memcpy(at(row), &number, sizeof number);
        return true;
    }

    // The length counts the characters alone, so a string that fills the member puts its terminator on the byte behind.
    bool string(const Row &row, xmlrpc_value *value, Naming naming) {
        if (xmlrpc_value_type(value) != XMLRPC_TYPE_STRING) {
            fault::member(env, place(row, naming), type(row));
            return false;
        }
        const char *text = nullptr;
        xmlrpc_read_string(env, value, &text);
        // Before the carrier is tested: the copy belongs to the tracker in any case.
        __x_mm_add_ptr(const_cast<char *>(text));
        if (env->fault_occurred) return false;
        const size_t length = strlen(text);
        if (length > row.count) {
            fault::member_too_long(env, place(row, naming), row.count);
            return false;
        }
        memcpy(at(row), text, length + 1);
        return true;
    }

    bool elements(const Row &row, xmlrpc_value *value, Naming naming) {
        const Scalar element{row.width, row.is_signed};
        const xmlrpc_type form = xmlrpc_value_type(value);
        if (form == XMLRPC_TYPE_ARRAY)
            return decode_elements(env, at(row), value, xmlrpc_array_size(env, value), element, type(row));
        if (form == XMLRPC_TYPE_STRUCT) {
            fault::member_is_struct(env, place(row, naming), c_name(element));
            return false;
        }
        return scalar(row, value, naming);  // into the first element
    }

    bool nested(const Row &row, xmlrpc_value *value, Naming naming) {
        if (xmlrpc_value_type(value) != XMLRPC_TYPE_STRUCT) {
            fault::member(env, place(row, naming), type(row));
            return false;
        }
        return decode_udt(env, inner(row), at(row), value);
    }

    bool udt_array(const Row &row, xmlrpc_value *value, Naming naming) {
        const xmlrpc_type form = xmlrpc_value_type(value);
        if (form == XMLRPC_TYPE_ARRAY)
            return decode_udts(env, inner(row), at(row), value, xmlrpc_array_size(env, value), type(row));
        if (form == XMLRPC_TYPE_STRUCT) return decode_udt(env, inner(row), at(row), value);  // into the first element
        fault::member_no_udt(env, place(row, naming));
        return false;
    }

    bool udt_list(const Row &row, xmlrpc_value *value, Naming naming) {
        if (xmlrpc_value_type(value) == XMLRPC_TYPE_ARRAY)
            return decode_udts(env, inner(row), at(row), value, xmlrpc_array_size(env, value), type(row));
        fault::member_pointer(env, place(row, naming), type(row));
        return false;
    }

    bool group(const Row &row, xmlrpc_value *value, Naming naming, Naming inside) {
        if (xmlrpc_value_type(value) != XMLRPC_TYPE_STRUCT) {
            fault::member_no_inline_struct(env, place(row, naming), key(row));
            return false;
        }
        return rows(&row + 1, next(&row), value, inside);
    }

    // Takes the low bits of the value that the flag has room for; the other flags of the word are kept.
    bool flag(const Row &row, xmlrpc_value *value, Naming naming) {
        int32_t number;
        if (!read(row, value, naming, &number)) return false;
        const uint32_t mask = (row.bits < 32 ? (1u << row.bits) - 1 : ~0u) << row.count;
        const uint32_t word = static_cast<uint32_t>(load(at(row), {row.width, false}));
        const uint32_t bits = static_cast<uint32_t>(number) << row.count;
        store(at(row), row.width, static_cast<int32_t>((word & ~mask) | (bits & mask)));
        return true;
    }
};

}  // namespace

bool decode_udt(xmlrpc_env *env, const Udt &udt, std::byte *to, xmlrpc_value *value) {
    return Decoder{env, udt, to}.rows(udt.rows, udt.end(), value, {nullptr, udt.name});
}

bool decode_udts(xmlrpc_env *env, const Udt &udt, std::byte *to, xmlrpc_value *array, int count, const char *spelling) {
    for (int i = 0; i < count; ++i) {
        xmlrpc_value *item;
        xmlrpc_array_read_item(env, array, static_cast<unsigned>(i), &item);
        if (env->fault_occurred) return false;
        if (xmlrpc_value_type(item) != XMLRPC_TYPE_STRUCT) {
            fault::entry(env, spelling, udt.name);
            return false;
        }
        if (!decode_udt(env, udt, to + static_cast<size_t>(i) * udt.size, item)) return false;
        xmlrpc_DECREF(item);
    }
    return true;
}

}  // namespace lmq
