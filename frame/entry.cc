// The entry point of the plug-in: it registers every method, row by row, in the order of order.def. To add a method,
// describe it in its family's file and name it there.
#include "frame/method.h"
#include "lmq_xmlrpc.h"

// Methods are known here by name alone.
namespace lmq {
#define API(api)                      \
    extern const Method method_##api; \
    extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *, xmlrpc_value *, void *, void *);
#include "frame/order.def"
#undef API
} // namespace lmq

// The fault carrier is not tested between the rows: one that the registry refuses does not keep out the next.
int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    using namespace lmq;
#define API(api) \
    xmlrpc_registry_add_method2(env, registry, "lmq." #api, x_rpc_##api, method_##api.signature, method_##api.help, nullptr);
#include "frame/order.def"
#undef API
    return 1;
}
