// The entry point of the plug-in: it registers every method, row by row, the introspection methods first and then the
// API methods in the order of order.def. To add a method, describe it in its family's file and name it there.
#include "frame/method.h"
#include "lmq_xmlrpc.h"

// Methods are known here by name alone, and hidden: no address of theirs stands in the global offset table.
#pragma GCC visibility push(hidden)
namespace lmq {
#define HANDLER(name) extern "C" xmlrpc_value *x_rpc_##name(xmlrpc_env *, xmlrpc_value *, void *, void *);
#define INTROSPECTION(name, signature, help) HANDLER(name)
#define API(api)                      \
    extern const Method method_##api; \
    HANDLER(api)
// The order counts.
// clang-format off
#include "introspect/methods.def"
#include "frame/order.def"
// clang-format on
#undef INTROSPECTION
#undef API
}  // namespace lmq
#pragma GCC visibility pop

// A table and a loop: a call written out for each method takes more code than the table takes constants.
constinit const lmq::Registered lmq::api_methods[] = {
#define API(api) {&method_##api, x_rpc_##api},
#include "frame/order.def"
#undef API
};

// The fault carrier is not tested between the rows: one that the registry refuses does not keep out the next.
int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    using namespace lmq;
#define INTROSPECTION(name, signature, help) \
    xmlrpc_registry_add_method2(env, registry, LMQ_PREFIX #name, x_rpc_##name, signature, help, nullptr);
#include "introspect/methods.def"
#undef INTROSPECTION
    for (const auto &[method, handler] : api_methods)
        xmlrpc_registry_add_method2(env, registry, method->full_name(), handler, method->text(method->signature),
                                    method->help(), nullptr);
    return 1;
}
