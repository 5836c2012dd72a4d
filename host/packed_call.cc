// From packed calls to values.
#include "packed_call.h"

#include <memory>

#include "packed_reader.h"

namespace lmq::host {
namespace {

struct Drop {
    void operator()(xmlrpc_value *value) const { xmlrpc_DECREF(value); }
};

using Value = std::unique_ptr<xmlrpc_value, Drop>;

/// Takes charge of a new value. With a fault the pointer may be garbage.
Value made(const xmlrpc_env *env, xmlrpc_value *value) { return Value(env->fault_occurred ? nullptr : value); }

Value read_text(xmlrpc_env *env, PackedReader &reader) {
    const std::string_view text = reader.take_text();
    return made(env, xmlrpc_string_new_lp(env, text.size(), text.data()));
}

/// Reads a value. Returns none for Item::end, and perhaps with a fault.
Value read_value(xmlrpc_env *env, PackedReader &reader);

// The library's functions must not be called with a fault in hand: they would take it for their own.

Value read_array(xmlrpc_env *env, PackedReader &reader) {
    Value array = made(env, xmlrpc_array_new(env));
    while (!env->fault_occurred) {
        const Value item = read_value(env, reader);
        if (item == nullptr || env->fault_occurred) break;
        xmlrpc_array_append_item(env, array.get(), item.get());
    }
    return array;
}

Value read_struct(xmlrpc_env *env, PackedReader &reader) {
    Value structure = made(env, xmlrpc_struct_new(env));
    while (!env->fault_occurred && reader.take<Item>() == Item::member) {
        const Value name = read_text(env, reader);
        const Value member = name == nullptr ? nullptr : read_value(env, reader);
        if (!env->fault_occurred) xmlrpc_struct_set_value_v(env, structure.get(), name.get(), member.get());
    }
    return structure;
}

Value read_value(xmlrpc_env *env, PackedReader &reader) {
    switch (reader.take<Item>()) {
        case Item::end:
        case Item::member:
        case Item::other: break;
        case Item::int32: return made(env, xmlrpc_int_new(env, reader.take<std::int32_t>()));
        case Item::int64: return made(env, xmlrpc_i8_new(env, reader.take<std::int64_t>()));
        case Item::boolean: return made(env, xmlrpc_bool_new(env, reader.take<bool>()));
        case Item::nil: return made(env, xmlrpc_nil_new(env));
        case Item::string: return read_text(env, reader);
        case Item::array: return read_array(env, reader);
        case Item::structure: return read_struct(env, reader);
    }
    return nullptr;
}

/// Behind the mark.
PackedReader behind_mark(std::string_view call) { return PackedReader(call.substr(sizeof packed_mark)); }

}  // namespace

void PackedReader::skip(Item item) {
    for (std::size_t depth = 0;; item = take<Item>()) {
        switch (item) {
            case Item::end: --depth; break;
            case Item::int32: take<std::int32_t>(); break;
            case Item::int64: take<std::int64_t>(); break;
            case Item::boolean: take<bool>(); break;
            case Item::string: take_text(); break;
            case Item::member: take_text(); continue;
            case Item::array:
            case Item::structure: ++depth; break;
            case Item::nil:
            case Item::other: break;
        }
        if (depth == 0) return;
    }
}

std::string_view packed_method(std::string_view call) { return behind_mark(call).take_text(); }

void unpack(xmlrpc_env *env, std::string_view call, xmlrpc_value *params) {
    if (call.empty()) return;
    PackedReader reader = behind_mark(call);
    reader.take_text();
    while (!env->fault_occurred && !reader.at_end()) {
        const Value value = read_value(env, reader);
        if (!env->fault_occurred) xmlrpc_array_append_item(env, params, value.get());
    }
}

}  // namespace lmq::host
