// The frame that every method handler follows.
//
// A fault before the driver call ends the handler at once: NULL is returned, and nothing is given back, neither the
// blocks of the call nor the references of the values that were being read. That is the rule of this system; the next
// call's __x_mm_initialize forgets them. Behind the driver call nothing is tested, and no fault can come.
#include <cstdlib>

#include "frame/method.h"
#include "lmq_xmlrpc.h"
#include "marshal/fault.h"
#include "marshal/udt.h"

namespace lmq {

namespace {

// Reads one argument. The functions return false with a fault set.
struct Reader {
    xmlrpc_env *env;
    const Method &method;
    unsigned index;
    const Argument &argument;
    Slot &slot;

    unsigned position() const { return index + 1; }

    const char *type() const { return method.text(argument.type); }
    const Udt &udt() const { return *method.udts[argument.udt]; }

    bool read(xmlrpc_value *parameters) {
        xmlrpc_value *item;
        xmlrpc_array_read_item(env, parameters, index, &item);
        if (env->fault_occurred) return false;
        slot.form = xmlrpc_value_type(item);
        if (slot.form == XMLRPC_TYPE_ARRAY) slot.count = xmlrpc_array_size(env, item);
        // Values first, which most arguments are.
        if (!(argument.kind == ArgumentKind::value ? value(item) : pointer(item))) return false;
        xmlrpc_DECREF(item);
        return true;
    }

    bool pointer(xmlrpc_value *item) {
        switch (argument.kind) {
            case ArgumentKind::value: break;
            case ArgumentKind::element: return element(item);
            case ArgumentKind::udt: return udt_pointer(item);
            case ArgumentKind::cookie: return cookie(item);
        }
        __builtin_unreachable();
    }

    bool value(xmlrpc_value *item) {
        if (slot.form != XMLRPC_TYPE_INT) {
            fault::argument(env, position(), type());
            return false;
        }
        return read_int(env, item, &slot.value);
    }

    // Takes the block of a pointer argument: one unit more than the client's array has, or two for anything else. An
    // empty array has none. A form that is about to be refused costs a block too, and no allocation is tested.
    void take_block(size_t unit) {
        slot.block = nullptr;
        if (slot.form == XMLRPC_TYPE_ARRAY && slot.count == 0) return;
        const size_t units = slot.form == XMLRPC_TYPE_ARRAY ? static_cast<size_t>(slot.count) + 1 : 2;
        slot.block = static_cast<std::byte *>(calloc(units, unit));
        __x_mm_add_ptr(slot.block);
    }

    bool element(xmlrpc_value *item) {
        take_block(argument.unit);
        if (slot.form == XMLRPC_TYPE_ARRAY)
            return decode_elements(env, slot.block, item, slot.count, argument.scalar, type());
        if (slot.form == XMLRPC_TYPE_STRUCT) {
            fault::argument_is_struct(env, position(), c_name(argument.scalar));
            return false;
        }
        if (slot.form != XMLRPC_TYPE_INT) {
            fault::argument(env, position(), type());
            return false;
        }
        // A store of the whole int, whatever the element's width: it fills two elements of two bytes, and reaches
        // behind a block of two elements of one byte. Kept so on purpose.
        xmlrpc_read_int(env, item, reinterpret_cast<xmlrpc_int *>(slot.block));
        return !env->fault_occurred;
    }

    bool udt_pointer(xmlrpc_value *item) {
        take_block(udt().size);
        if (slot.form == XMLRPC_TYPE_ARRAY) return decode_udts(env, udt(), slot.block, item, slot.count, udt().name);
        if (slot.form == XMLRPC_TYPE_STRUCT) return decode_udt(env, udt(), slot.block, item);
        fault::argument_no_udt(env, position());
        return false;
    }

    // A pointer value has no form in an XML-RPC document, so over the wire only the empty array gets through here.
    // The entries of an array are stored one byte apart, each over most of the one before: a decision of this system.
    bool cookie(xmlrpc_value *item) {
        take_block(argument.unit);
        if (slot.form == XMLRPC_TYPE_ARRAY) {
            for (int i = 0; i < slot.count; ++i) {
                xmlrpc_value *entry;
                xmlrpc_array_read_item(env, item, static_cast<unsigned>(i), &entry);
                if (env->fault_occurred) return false;
                if (xmlrpc_value_type(entry) != XMLRPC_TYPE_C_PTR) {
                    fault::entry(env, type(), type());
                    return false;
                }
                if (!store_pointer(entry, slot.block + i)) return false;
                xmlrpc_DECREF(entry);
            }
            return true;
        }
        if (slot.form == XMLRPC_TYPE_STRUCT) {
            fault::argument_is_struct(env, position(), type());
            return false;
        }
        if (slot.form != XMLRPC_TYPE_C_PTR) {
            fault::argument(env, position(), type());
            return false;
        }
        return store_pointer(item, slot.block);
    }

    bool store_pointer(xmlrpc_value *value, std::byte *to) {
        void *pointer = nullptr;
        xmlrpc_read_cptr(env, value, &pointer);
        __builtin_memcpy(to, &pointer, sizeof pointer);
        return !env->fault_occurred;
    }
};

// The echo of an argument, in the form that the client used, with what the driver left. An empty array echoes nil,
// since its block is NULL.
xmlrpc_value *echo(xmlrpc_env *env, const Method &method, const Argument &argument, const Slot &slot) {
    if (argument.kind == ArgumentKind::value) return xmlrpc_int_new(env, slot.value);
    const bool array = slot.form == XMLRPC_TYPE_ARRAY;
    switch (argument.kind) {
        case ArgumentKind::value: break;
        case ArgumentKind::element:
            if (array) return encode_elements(env, slot.block, slot.count, argument.scalar.width);
            return xmlrpc_int_new(env, load(slot.block, {argument.scalar.width, false}));
        case ArgumentKind::udt:
            if (array) return encode_udts(env, *method.udts[argument.udt], slot.block, slot.count);
            return encode_udt(env, *method.udts[argument.udt], slot.block);
        case ArgumentKind::cookie:
            return array ? xmlrpc_nil_new(env) : xmlrpc_int_new(env, 1);  // constants: it does not come back
    }
    __builtin_unreachable();
}

void append(xmlrpc_env *env, xmlrpc_value *result, xmlrpc_value *item) {
    xmlrpc_array_append_item(env, result, item);
    xmlrpc_DECREF(item);
}

// The number of parameters. The registry may hand over none at all in place of an empty array.
unsigned sent(xmlrpc_env *env, xmlrpc_value *parameters) {
    return parameters ? static_cast<unsigned>(xmlrpc_array_size(env, parameters)) : 0;
}

}  // namespace

xmlrpc_value *run_method(xmlrpc_env *env, xmlrpc_value *parameters, const Method &method, Call *call) {
    const unsigned count = method.count;
    if (sent(env, parameters) != count) {
        fault::count(env, method.name(), count);
        return nullptr;
    }
    __x_mm_initialize();

    Slot slots[most_arguments];  // each is set by its reader
    const Argument *argument = method.arguments();
    for (unsigned i = 0; i < count; ++i)
        if (!Reader{env, method, i, *argument++, slots[i]}.read(parameters)) return nullptr;

    const int32_t returned = call(slots);

    xmlrpc_value *result = xmlrpc_array_new(env);
    append(env, result, xmlrpc_int_new(env, returned));
    argument = method.arguments();
    for (unsigned i = 0; i < count; ++i) append(env, result, echo(env, method, *argument++, slots[i]));
    __x_mm_free();
    return result;
}

}  // namespace lmq
