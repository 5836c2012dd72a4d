// Straight-line handlers: for each measured method the handler that somebody would write for that one method alone.
// They stand beside the plug-in's handlers as their measure: the same answers, and the same calls of the XML-RPC
// library, the driver and the heap in the same order, but no table that anything is read from.
#pragma once

#include <xmlrpc-c/base.h>

#include "lmq/lmq.h"

namespace lmq::bench {

/// The call memory tracker of the plug-in, by its exports. To be set before a handler is called.
struct Tracker {
    void (*initialize)();
    void (*add_ptr)(void *);
    void (*free)();
};
extern Tracker tracker;

using Handler = xmlrpc_value *(xmlrpc_env *env, xmlrpc_value *parameters, void *, void *);
Handler straight_vx_reset, straight_vx_watchdog_set, straight_vx_eth_port_stats_get, straight_lmq_init_system,
    straight_vx_flow_us_all_get, straight_methodSignature, straight_listEnums;

/// The method that straight_methodSignature describes.
inline constexpr char told_method[] = "lmq.vx_eth_port_stats_get";

/// Makes the struct of one UDT.
xmlrpc_value *make(xmlrpc_env *env, const vx_startup_cfg_t *from);
xmlrpc_value *make(xmlrpc_env *env, const vx_flow_us_cfg_t *from);

/// Reads a struct into one UDT. Returns false with a fault set for a member of a wrong type.
bool take(xmlrpc_env *env, xmlrpc_value *value, vx_startup_cfg_t *to);
bool take(xmlrpc_env *env, xmlrpc_value *value, vx_flow_us_cfg_t *to);

/// The key of a member, which is the last part of its path, when the program is compiled.
consteval const char *key(const char *path) {
    const char *last = path;
    for (; *path; ++path)
        if (*path == '.') last = path + 1;
    return last;
}

/// Sets a member of a struct, or appends to an array, a value that is handed over.
inline void put(xmlrpc_env *env, xmlrpc_value *into, const char *name, xmlrpc_value *made) {
    xmlrpc_struct_set_value(env, into, name, made);
    xmlrpc_DECREF(made);
}
inline void append(xmlrpc_env *env, xmlrpc_value *into, xmlrpc_value *made) {
    xmlrpc_array_append_item(env, into, made);
    xmlrpc_DECREF(made);
}

inline bool refuse(xmlrpc_env *env, const char *text) {
    xmlrpc_env_set_fault(env, XMLRPC_TYPE_ERROR, text);
    return false;
}

}  // namespace lmq::bench
