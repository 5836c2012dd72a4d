// A plug-in whose methods show what the host does with them. REGISTER_TWICE makes the registry refuse a method.
#include <lmq_xmlrpc.h>
#include <signal.h>
#include <stdlib.h>
#include <time.h>
#include <unistd.h>

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

// Ends the process by a signal, or with a status if that is negative.
static xmlrpc_value *end(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    xmlrpc_int how = 0;
    xmlrpc_decompose_value(env, params, "(i)", &how);
    if (env->fault_occurred) return NULL;
    if (how < 0) _exit(-how);
    raise(how);
    return xmlrpc_int_new(env, how);
}

static xmlrpc_value *process(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)params, (void)server, (void)call;
    return xmlrpc_int_new(env, getpid());
}

// The newest block that lose() took: a leak checker is to see it in use.
static volatile char *volatile lost;

// Takes some megabytes and does not give them back.
static xmlrpc_value *lose(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    xmlrpc_int megabytes = 0;
    xmlrpc_decompose_value(env, params, "(i)", &megabytes);
    if (env->fault_occurred) return NULL;
    const size_t size = (size_t)megabytes << 20;
    lost = malloc(size);
    for (size_t at = 0; lost != NULL && at < size; at += 4096) lost[at] = 1;
    return xmlrpc_int_new(env, megabytes);
}

// Answers as the methods of an interface do that return a status and their arguments.
static xmlrpc_value *status_get(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)params, (void)server, (void)call;
    return xmlrpc_build_value(env, "(is)", (xmlrpc_int32)-7, "argument");
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
    xmlrpc_registry_add_method2(env, registry, "test.end", end, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.process", process, "i:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.lose", lose, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.status_get", status_get, "A:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.unprintable", unprintable, "i:", "", NULL);
#ifdef REGISTER_TWICE
    xmlrpc_registry_add_method2(env, registry, "test.echo", echo, "?", "", NULL);
#endif
    return 1;
}
