// What reads the structs of the large UDTs, without a table: the rows of their families as statements, as in
// straight_make.cc.
#include <cstring>

#include "bench/straight.h"
#include "families/udts.h"
#include "frame/describe.h"
#include "marshal/describe.h"

namespace lmq::bench {

static bool take_int(xmlrpc_env *env, xmlrpc_value *item, const char *refusal, xmlrpc_int *into) {
    if (xmlrpc_value_type(item) != XMLRPC_TYPE_INT) return refuse(env, refusal);
    xmlrpc_read_int(env, item, into);
    return !env->fault_occurred;
}

template <class T>
bool take_number(xmlrpc_env *env, xmlrpc_value *item, const char *refusal, T *to) {
    static_assert(sizeof(T) <= 4, "no member of these UDTs has 64 bits");
    xmlrpc_int number;
    if (!take_int(env, item, refusal, &number)) return false;
    *to = static_cast<T>(number);
    return true;
}

template <class T, size_t bound>
bool take_numbers(xmlrpc_env *env, xmlrpc_value *item, const char *refusal, T (*to)[bound]) {
    const xmlrpc_type form = xmlrpc_value_type(item);
    T *into = *to;
    if (form != XMLRPC_TYPE_ARRAY) return take_number(env, item, refusal, into);
    const unsigned count = static_cast<unsigned>(xmlrpc_array_size(env, item));
    for (unsigned i = 0; i < count; ++i) {
        xmlrpc_value *entry;
        xmlrpc_array_read_item(env, item, i, &entry);
        if (env->fault_occurred || !take_number(env, entry, refusal, into + i)) return false;
        xmlrpc_DECREF(entry);
    }
    return true;
}

static bool take_string(xmlrpc_env *env, xmlrpc_value *item, const char *refusal, char *to, size_t bound) {
    if (xmlrpc_value_type(item) != XMLRPC_TYPE_STRING) return refuse(env, refusal);
    const char *text = nullptr;
    xmlrpc_read_string(env, item, &text);
    tracker.add_ptr(const_cast<char *>(text));
    if (env->fault_occurred) return false;
    const size_t length = strlen(text);
    if (length > bound) return refuse(env, refusal);
    memcpy(to, text, length + 1);
    return true;
}

template <class T, class Take>
bool take_struct(xmlrpc_env *env, xmlrpc_value *item, const char *refusal, T *to, Take take_one) {
    if (xmlrpc_value_type(item) != XMLRPC_TYPE_STRUCT) return refuse(env, refusal);
    return take_one(env, item, to);
}

template <class T, size_t bound, class Take>
bool take_structs(xmlrpc_env *env, xmlrpc_value *item, const char *refusal, T (*to)[bound], Take take_one) {
    const xmlrpc_type form = xmlrpc_value_type(item);
    T *into = *to;
    if (form == XMLRPC_TYPE_STRUCT) return take_one(env, item, into);
    if (form != XMLRPC_TYPE_ARRAY) return refuse(env, refusal);
    const unsigned count = static_cast<unsigned>(xmlrpc_array_size(env, item));
    for (unsigned i = 0; i < count; ++i) {
        xmlrpc_value *entry;
        xmlrpc_array_read_item(env, item, i, &entry);
        if (env->fault_occurred || !take_struct(env, entry, refusal, into + i, take_one)) return false;
        xmlrpc_DECREF(entry);
    }
    return true;
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

#define UDT(T, ...)                                                                      \
    [[maybe_unused]] static bool take_##T(xmlrpc_env *env, xmlrpc_value *value, T *to) { \
        __VA_ARGS__;                                                                     \
        return true;                                                                     \
    }
#define UDT_AS(T, Rows)                                                                  \
    [[maybe_unused]] static bool take_##T(xmlrpc_env *env, xmlrpc_value *value, T *to) { \
        return take_##Rows(env, value, to);                                              \
    }
// A member that the client has sent: `taking` reads `item`, and its failure ends the function.
#define MEMBER(m, taking)                                                       \
    ({                                                                          \
        if (xmlrpc_struct_has_key(env, value, ::lmq::bench::key(#m))) {         \
            xmlrpc_value *item;                                                 \
            xmlrpc_struct_read_value(env, value, ::lmq::bench::key(#m), &item); \
            if (!(taking)) return false;                                        \
            xmlrpc_DECREF(item);                                                \
        }                                                                       \
    })
#define REFUSAL(m) "Member " #m ": something else was expected"
#define SCALAR(T, m) MEMBER(m, ::lmq::bench::take_number(env, item, REFUSAL(m), &to->m))
#define ELEMENTS(T, m, bound) MEMBER(m, ::lmq::bench::take_numbers(env, item, REFUSAL(m), &to->m))
#define STRING(m, bound) MEMBER(m, ::lmq::bench::take_string(env, item, REFUSAL(m), to->m, bound))
#define NESTED(T, m) MEMBER(m, ::lmq::bench::take_struct(env, item, REFUSAL(m), &to->m, take_##T))
#define UDT_ARRAY(T, m, bound) MEMBER(m, ::lmq::bench::take_structs(env, item, REFUSAL(m), &to->m, take_##T))
// The rows inside stand in a scope of their own, in which `value` is the inner struct.
#define INLINE(m, ...)                                                                                          \
    MEMBER(m, ({                                                                                                \
               if (xmlrpc_value_type(item) != XMLRPC_TYPE_STRUCT) return ::lmq::bench::refuse(env, REFUSAL(m)); \
               xmlrpc_value *value = item;                                                                      \
               __VA_ARGS__;                                                                                     \
               true;                                                                                            \
           }))
#define OVERLAID(m, ...) INLINE(m, __VA_ARGS__)
#define FLAG(mask, name)                                                                     \
    MEMBER(name, ({                                                                          \
               xmlrpc_int number;                                                            \
               if (!::lmq::bench::take_int(env, item, REFUSAL(name), &number)) return false; \
               mask.name = static_cast<unsigned>(number);                                    \
               true;                                                                         \
           }));
#define FLAGS(m, ...) INLINE(m, LMQ_FOR_EACH(FLAG, to->m, __VA_ARGS__))
#define METHOD(...)

#pragma GCC diagnostic ignored "-Wshadow"      // the scopes of INLINE
#pragma GCC diagnostic ignored "-Wconversion"  // a flag takes the low bits
// Inner UDTs first.
// clang-format off
#include "families/device/address.cc"
#include "families/device/device.cc"
#include "families/switch/classifier_key.cc"
#include "families/qos/flow.cc"
// clang-format on

namespace lmq::bench {

bool take(xmlrpc_env *env, xmlrpc_value *value, vx_startup_cfg_t *to) { return take_vx_startup_cfg_t(env, value, to); }
bool take(xmlrpc_env *env, xmlrpc_value *value, vx_flow_us_cfg_t *to) { return take_vx_flow_us_cfg_t(env, value, to); }

}  // namespace lmq::bench
