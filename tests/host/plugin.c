// A plug-in whose methods show what the host does with them. REGISTER_TWICE makes the registry refuse a method.
#include <lmq_xmlrpc.h>
#include <time.h>

int host_test_driver_id(void);

static xmlrpc_value *echo(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)env, (void)server, (void)call;
    xmlrpc_INCREF(params);
    return params;
}

// Sleeps for some milliseconds and returns them.
static xmlrpc_value *sleep_ms(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    xmlrpc_int ms = 0;
    xmlrpc_decompose_value(env, params, "(i)", &ms);
    if (env->fault_occurred) return NULL;
    const struct timespec time = {ms / 1000, ms % 1000 * 1000000L};
    nanosleep(&time, NULL);
    return xmlrpc_int_new(env, ms);
}

static xmlrpc_value *driver(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)params, (void)server, (void)call;
    return xmlrpc_int_new(env, host_test_driver_id());
}

// XML-RPC has no form for a pointer.
static xmlrpc_value *unprintable(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)params, (void)server, (void)call;
    return xmlrpc_cptr_new(env, NULL);
}

int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    xmlrpc_registry_add_method2(env, registry, "test.echo", echo, "?", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.sleep", sleep_ms, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.driver", driver, "i:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.unprintable", unprintable, "i:", "", NULL);
#ifdef REGISTER_TWICE
    xmlrpc_registry_add_method2(env, registry, "test.echo", echo, "?", "", NULL);
#endif
    return 1;
}
