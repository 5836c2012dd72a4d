// What makes the structs of the large UDTs, without a table: the rows of their families stand here once more, and each
// is a statement. The two together have more than 400 members, in 50 UDTs; the rows that are written already say what a
// hand would write.
#include "bench/straight.h"
#include "families/udts.h"
#include "frame/describe.h"
#include "marshal/describe.h"

namespace lmq::bench {

template <class T>
xmlrpc_value *make_number(xmlrpc_env *env, T number) {
    if constexpr (sizeof(T) == 8)
        return xmlrpc_i8_new(env, static_cast<xmlrpc_int64>(number));
    else
        return xmlrpc_int_new(env, static_cast<int>(number));
}

template <class T, size_t bound>
xmlrpc_value *make_numbers(xmlrpc_env *env, const T (&from)[bound]) {
    static_assert(std::is_unsigned_v<T>, "elements are read unsigned");
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (const T &number : from) append(env, array, xmlrpc_int_new(env, static_cast<int>(number)));
    return array;
}

template <class T, size_t bound, class Make>
xmlrpc_value *make_structs(xmlrpc_env *env, const T (&from)[bound], Make make_one) {
    xmlrpc_value *array = xmlrpc_array_new(env);
    for (const T &one : from) append(env, array, make_one(env, &one));
    return array;
}

}  // namespace lmq::bench

#undef UDT
#undef UDT_AS
#undef SCALAR
#undef ELEMENTS
#undef STRING
#undef NESTED
#undef UDT_ARRAY
#undef INLINE
#undef OVERLAID
#undef FLAGS
#undef METHOD

#define UDT(T, ...)                                                                  \
    [[maybe_unused]] static xmlrpc_value *make_##T(xmlrpc_env *env, const T *from) { \
        xmlrpc_value *value = xmlrpc_struct_new(env);                                \
        __VA_ARGS__;                                                                 \
        return value;                                                                \
    }
#define UDT_AS(T, Rows) \
    [[maybe_unused]] static xmlrpc_value *make_##T(xmlrpc_env *env, const T *from) { return make_##Rows(env, from); }
#define PUT(m, made) ::lmq::bench::put(env, value, ::lmq::bench::key(#m), made)
#define SCALAR(T, m) PUT(m, ::lmq::bench::make_number(env, from->m))
#define ELEMENTS(T, m, bound) PUT(m, ::lmq::bench::make_numbers(env, from->m))
#define STRING(m, bound) PUT(m, xmlrpc_string_new(env, from->m))
#define NESTED(T, m) PUT(m, make_##T(env, &from->m))
#define UDT_ARRAY(T, m, bound) PUT(m, ::lmq::bench::make_structs(env, from->m, make_##T))
// The rows inside stand in a scope of their own, in which `value` is the inner struct.
#define INLINE(m, ...)                                    \
    PUT(m, ({                                             \
            xmlrpc_value *value = xmlrpc_struct_new(env); \
            __VA_ARGS__;                                  \
            value;                                        \
        }))
#define OVERLAID(m, ...) INLINE(m, __VA_ARGS__)
#define FLAG(mask, name) PUT(name, xmlrpc_int_new(env, static_cast<int>(mask.name)));
#define FLAGS(m, ...) INLINE(m, LMQ_FOR_EACH(FLAG, from->m, __VA_ARGS__))
#define METHOD(...)

#pragma GCC diagnostic ignored "-Wshadow"  // the scopes of INLINE
// Inner UDTs first.
// clang-format off
#include "families/device/address.cc"
#include "families/device/device.cc"
#include "families/switch/classifier_key.cc"
#include "families/qos/flow.cc"
// clang-format on

namespace lmq::bench {

xmlrpc_value *make(xmlrpc_env *env, const vx_startup_cfg_t *from) { return make_vx_startup_cfg_t(env, from); }
xmlrpc_value *make(xmlrpc_env *env, const vx_flow_us_cfg_t *from) { return make_vx_flow_us_cfg_t(env, from); }

}  // namespace lmq::bench
