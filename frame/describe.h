// The macros that describe an API method: a driver function, its arguments and its help text.
//
//     METHOD(vx_watchdog_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_watchdog_cfg_t, p_cfg))
//
// defines the method handler x_rpc_vx_watchdog_get and the description method_vx_watchdog_get. The arguments are
// compared with the prototype in the header: another type, number or order does not compile. Widths, narrowing and the
// signature string follow from the prototype. Stands in namespace lmq.
#pragma once

#include <type_traits>
#include <utility>

#include "frame/draft.h"
#include "frame/method.h"
#include "frame/pack.h"
#include "marshal/describe.h"

namespace lmq {

/// VALUE(T, name): a scalar or enum by value.
#define VALUE(T, name) ::lmq::describe::value<T>(#T, #name)

/// ELEMENT_PTR(T, name): a pointer to scalars or enums of type T. For an array typedef such as vx_mac_addr_t it points
/// to the elements, and memory is taken in units of the whole array.
#define ELEMENT_PTR(T, name) ::lmq::describe::element_pointer<T>(#T, #name)

/// UDT_PTR(T, name): a pointer to a UDT.
#define UDT_PTR(T, name) ::lmq::describe::udt_pointer<T>(#T, #name, udt_##T)

/// COOKIE(name): the void * that the driver is handed the call's block for.
#define COOKIE(name) ::lmq::describe::cookie(#name)

#define METHOD(api, help_parts, ...)                                                                          \
    namespace row_of_##api {                                                                                  \
        constexpr auto draft =                                                                                \
            ::lmq::describe::method<decltype(::api)>(LMQ_PREFIX #api, help_parts __VA_OPT__(, ) __VA_ARGS__); \
        static_assert(draft.fits, "row of " #api ": the header declares another prototype");                  \
        static int32_t call(Slot *slots) { return typed_call(::api, slots); }                                 \
    }                                                                                                         \
    extern constinit const Method method_##api;                                                               \
    constinit const Method method_##api = ::lmq::describe::packed_method<row_of_##api::draft>();              \
    extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *);          \
    extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *) {         \
        return run_method(env, parameters, method_##api, row_of_##api::call);                                 \
    }

/// Takes an argument from its slot, narrowed to the parameter's type. The narrowed value replaces the one that was
/// read, so that the echo shows what the driver got.
template <class T>
inline T take(Slot &slot) {
    if constexpr (std::is_pointer_v<T>)
        return reinterpret_cast<T>(slot.block);
    else {
        const T narrowed = static_cast<T>(slot.value);
        slot.value = static_cast<int32_t>(narrowed);
        return narrowed;
    }
}

/// Unpacks the slots for a function. It is inlined into a local function for each method: an instance for each method
/// would take the driver function's visibility, and its address would come from the global offset table.
template <class R, class... P>
[[gnu::always_inline]] inline int32_t typed_call(R (*function)(P...), [[maybe_unused]] Slot *slots) {
    return [&]<size_t... I>(std::index_sequence<I...>) __attribute__((always_inline)) {
        if constexpr (std::is_void_v<R>)
            return function(take<P>(slots[I])...), 1;  ///< a constant in place of a result
        else
            return static_cast<int32_t>(function(take<P>(slots[I])...));
    }
    (std::index_sequence_for<P...>{});
}

}  // namespace lmq
