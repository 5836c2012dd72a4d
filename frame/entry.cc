// The entry point of the plug-in: it registers every method, row by row, in the order of order.def. To add a method,
// describe it in its family's file and name it there.
#include "frame/method.h"
#include "lmq_xmlrpc.h"

// Which families are part of the plug-in yet. The methods of the others are passed over.
#define LANDED(...) __VA_ARGS__
#define LEFT_OUT(...)
#define API_lifecycle LANDED
#define API_management LEFT_OUT
#define API_event LEFT_OUT
#define API_cpu_packet LEFT_OUT
#define API_peripheral LEFT_OUT
#define API_time LEFT_OUT
#define API_eth_port LEFT_OUT
#define API_l2 LEFT_OUT
#define API_vlan_bridge LEFT_OUT
#define API_classifier LEFT_OUT
#define API_acl LEFT_OUT
#define API_mcast LEFT_OUT
#define API_flow LEFT_OUT
#define API_cosq LEFT_OUT
#define API_policer LEFT_OUT
#define API_onu LEFT_OUT
#define API_tm LEFT_OUT
#define API_cfm LEFT_OUT

// Methods are known here by name alone.
namespace lmq {
#define API(family, api)                \
    API_##family(                       \
        extern const Method method_##api; \
        extern "C" xmlrpc_value *x_rpc_##api(xmlrpc_env *, xmlrpc_value *, void *, void *);)
#include "frame/order.def"
#undef API
} // namespace lmq

// The fault carrier is not tested between the rows: one that the registry refuses does not keep out the next.
int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    using namespace lmq;
#define API(family, api) \
    API_##family(        \
        xmlrpc_registry_add_method2(env, registry, "lmq." #api, x_rpc_##api, method_##api.signature, method_##api.help, nullptr);)
#include "frame/order.def"
#undef API
    return 1;
}
