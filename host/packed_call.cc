// From packed calls to values. What is read comes from this program's own pre-pass, so that it is not judged again.
#include "packed_call.h"

#include <memory>

namespace lmq::host {
namespace {

class Reader {
  public:
    explicit Reader(std::string_view bytes) : rest_(bytes) {}

    bool at_end() const { return rest_.empty(); }

    template <class Value>
    Value take() {
        Value value;
        std::memcpy(&value, rest_.data(), sizeof value);
        rest_.remove_prefix(sizeof value);
        return value;
    }

    std::string_view take_text() {
        const auto length = take<std::uint32_t>();
        const std::string_view text = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return text;
    }

  private:
    std::string_view rest_;
};

struct Drop {
    void operator()(xmlrpc_value *value) const { xmlrpc_DECREF(value); }
};

using Value = std::unique_ptr<xmlrpc_value, Drop>;

/** Takes charge of a new value. With a fault the pointer may be garbage. */
Value made(const xmlrpc_env *env, xmlrpc_value *value) { return Value(env->fault_occurred ? nullptr : value); }

Value read_text(xmlrpc_env *env, Reader &reader) {
    const std::string_view text = reader.take_text();
    return made(env, xmlrpc_string_new_lp(env, text.size(), text.data()));
}

/** Reads a value. Returns none for Item::end, and perhaps with a fault. */
Value read_value(xmlrpc_env *env, Reader &reader);

// The library's functions must not be called with a fault in hand: they would take it for their own.

Value read_array(xmlrpc_env *env, Reader &reader) {
    Value array = made(env, xmlrpc_array_new(env));
    while (!env->fault_occurred) {
        const Value item = read_value(env, reader);
        if (item == nullptr || env->fault_occurred) break;
        xmlrpc_array_append_item(env, array.get(), item.get());
    }
    return array;
}

Value read_struct(xmlrpc_env *env, Reader &reader) {
    Value structure = made(env, xmlrpc_struct_new(env));
    while (!env->fault_occurred && reader.take<Item>() == Item::member) {
        const Value name = read_text(env, reader);
        const Value member = name == nullptr ? nullptr : read_value(env, reader);
        if (!env->fault_occurred) xmlrpc_struct_set_value_v(env, structure.get(), name.get(), member.get());
    }
    return structure;
}

Value read_value(xmlrpc_env *env, Reader &reader) {
    switch (reader.take<Item>()) {
        case Item::end:
        case Item::member: break;
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

/** Behind the mark. */
Reader behind_mark(std::string_view call) { return Reader(call.substr(sizeof packed_mark)); }

}  // namespace

std::string_view packed_method(std::string_view call) { return behind_mark(call).take_text(); }

void unpack(xmlrpc_env *env, std::string_view call, xmlrpc_value *params) {
    if (call.empty()) return;
    Reader reader = behind_mark(call);
    reader.take_text();
    while (!env->fault_occurred && !reader.at_end()) {
        const Value value = read_value(env, reader);
        if (!env->fault_occurred) xmlrpc_array_append_item(env, params, value.get());
    }
}

}  // namespace lmq::host
