// The entry point of the plug-in: it registers every method, row by row, the introspection methods first and then the
// API methods in the order of order.def. To add a method, describe it in its family's file and name it there.
#include "frame/methods.h"
#include "introspect/lookup.h"
#include "lmq_xmlrpc.h"

namespace lmq {

#define INTROSPECTION(name, signature, help) \
    extern "C" xmlrpc_value *x_rpc_##name(xmlrpc_env *, xmlrpc_value *, void *, void *);
#include "introspect/methods.def"
#undef INTROSPECTION

// A table and a loop: a call written out for each of the methods is three times as large.
constinit const Registered api_methods[] = {
#define API(api) {&method_##api, x_rpc_##api},
#include "frame/order.def"
#undef API
};
constinit const unsigned api_method_count = std::size(api_methods);

}  // namespace lmq

// The fault carrier is not tested between the rows: one that the registry refuses does not keep out the next.
int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    using namespace lmq;
#define INTROSPECTION(name, signature, help) \
    xmlrpc_registry_add_method2(env, registry, "lmq." #name, x_rpc_##name, signature, help, nullptr);
#include "introspect/methods.def"
#undef INTROSPECTION
    // The registry copies what it is handed.
    for (const auto &[method, handler] : api_methods)
        xmlrpc_registry_add_method2(env, registry, FullName(method->strings).text, handler, method->signature,
                                    method->help, nullptr);
    return 1;
}
