// Declares what METHOD defines for every API method: its description method_API and its handler x_rpc_API. Methods are
// known here by name alone.
#pragma once

#include "frame/method.h"
#include "lmq_xmlrpc.h"

// Hidden, so that the compiler takes their addresses without a word in the global offset table.
#pragma GCC visibility push(hidden)

namespace lmq {

#define API(api)                      \
    extern const Method method_##api; \
    extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *, xmlrpc_value *, void *, void *);
#include "frame/order.def"
#undef API

// The API methods with their handlers, in the order of registration.
struct Registered {
    const Method *method;
    xmlrpc_method2 handler;
};
extern const Registered api_methods[];
extern const unsigned api_method_count;

}  // namespace lmq

#pragma GCC visibility pop
