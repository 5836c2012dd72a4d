// The row of an API method, and the frame that its handler follows. Rows are made by the macros of describe.h.
#pragma once

#include <xmlrpc-c/base.h>

#include "marshal/row.h"
#include "marshal/scalar.h"

namespace lmq {

enum class ArgumentKind : uint8_t {
    value,    ///< scalar or enum by value: an int
    element,  ///< pointer to scalars: an array of ints, or an int
    udt,      ///< pointer to a UDT: a struct, or an array of structs
    cookie,   ///< void *: a pointer value of this process, or an array of them
};

struct Argument {
    uint16_t name;  ///< string
    uint16_t type;  ///< string: declared type, as fault texts name it
    ArgumentKind kind;
    Scalar scalar;  ///< of a value or an element
    uint8_t unit;   ///< of an element: bytes allocated for each
    uint8_t udt;    ///< index into Method::udts
};

enum class Returns : uint8_t { status, int32, uint32, nothing };

/// Its name in C, as the driver's header spells it.
constexpr const char *return_type(Returns returns) {
    switch (returns) {
        case Returns::status: return "vx_status_e";
        case Returns::int32: return "vx_int32";
        case Returns::uint32: return "vx_uint32";
        case Returns::nothing: return "void";
    }
    return nullptr;
}

/// What stands before the names of methods and UDTs wherever clients see them. A macro, as literals are joined with it.
#define LMQ_PREFIX "lmq."
constexpr size_t prefix_size = sizeof LMQ_PREFIX - 1;

/// The text of a method without documentation.
inline constexpr char no_help_text[] = "No help available";

/// Two pointers a method: each costs a relocation, and a private word in every process.
struct Method {
    const void *texts;  ///< the arguments, and behind them the strings, which begin with the method's full name
    const Udt *const *udts;
    uint16_t signature;  ///< string, as the registry takes it
    uint16_t help_text;  ///< string; 0 for none
    uint8_t count;
    Returns returns;

    const Argument *arguments() const { return static_cast<const Argument *>(texts); }
    const char *text(uint16_t string) const { return reinterpret_cast<const char *>(arguments() + count) + string; }
    const char *full_name() const { return text(0); }
    const char *name() const { return text(prefix_size); }
    const char *help() const { return help_text == 0 ? no_help_text : text(help_text); }
};

/// The handler of a method, as the registry takes it.
using Handler = xmlrpc_value *(xmlrpc_env *, xmlrpc_value *, void *, void *);

struct Registered {
    const Method *method;
    Handler *handler;
};

/// The API methods in the order of order.def, without the introspection methods.
[[gnu::visibility("hidden")]] extern const Registered api_methods[];

/// An argument between decoding, driver call and echo.
struct Slot {
    int32_t value;  ///< of a value argument
    int count;      ///< items of a client's array; not set for another form
    xmlrpc_type form;
    std::byte *block;  ///< of a pointer argument; NULL if the client sent an empty array
};

constexpr unsigned most_arguments = 8;

/// Calls a driver function with the arguments in the slots, and leaves in them what it was handed.
using Call = int32_t(Slot *);

/// The frame of every method handler: counts and reads the parameters, calls the driver, answers its result and the
/// echo of each argument, and frees the call's blocks. Returns NULL with a fault set for what cannot be read; the
/// driver has not been called then.
xmlrpc_value *run_method(xmlrpc_env *env, xmlrpc_value *parameters, const Method &method, Call *call);

}  // namespace lmq
