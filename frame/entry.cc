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

namespace {

// Not inlined: four hundred calls of two arguments take a third of the code that four hundred of six would.
[[gnu::noinline]] void add(xmlrpc_env *env, xmlrpc_registry *registry, const lmq::Method &method,
                           xmlrpc_method2 handler) {
    xmlrpc_registry_add_method2(env, registry, method.full_name(), handler, method.text(method.signature),
                                method.help(), nullptr);
}

}  // namespace

// The fault carrier is not tested between the rows: one that the registry refuses does not keep out the next.
int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    using namespace lmq;
#define INTROSPECTION(name, signature, help) \
    xmlrpc_registry_add_method2(env, registry, "lmq." #name, x_rpc_##name, signature, help, nullptr);
#define API(api) add(env, registry, method_##api, x_rpc_##api);
    // The order counts.
    // clang-format off
#include "introspect/methods.def"
#include "frame/order.def"
    // clang-format on
#undef INTROSPECTION
#undef API
    return 1;
}
