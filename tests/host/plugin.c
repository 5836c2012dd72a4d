// A plug-in whose methods show what the host does with them. REGISTER_TWICE makes the registry refuse a method.
#include <fcntl.h>
#include <lmq_xmlrpc.h>
#include <signal.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

int host_test_driver_id(void);
int host_test_driver_crash(const volatile int *nowhere);
int host_test_driver_recurse(volatile int *depth);

static xmlrpc_value *echo(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)env, (void)server, (void)call;
    xmlrpc_INCREF(params);
    return params;
}

// A method of the library's older kind, which the host leaves to the library.
static xmlrpc_value *old_echo(xmlrpc_env *env, xmlrpc_value *params, void *server) {
    (void)env, (void)server;
    xmlrpc_INCREF(params);
    return params;
}

// Neither a result nor a fault.
static xmlrpc_value *nothing(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)env, (void)params, (void)server, (void)call;
    return NULL;
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

// Waits until a file exists.
static xmlrpc_value *until(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    const char *path = NULL;
    xmlrpc_decompose_value(env, params, "(s)", &path);
    if (env->fault_occurred) return NULL;
    const struct timespec time = {0, 1000000L};
    while (access(path, F_OK) != 0) nanosleep(&time, NULL);
    free((void *)path);
    return xmlrpc_int_new(env, 1);
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
    if (how == -4) fputs("ending\n", stderr);
    if (how < 0) _exit(-how);
    raise(how);
    return xmlrpc_int_new(env, how);
}

// Crashes in a function of the driver: 0 reads where nothing is, 1 uses up the stack.
static xmlrpc_value *crash(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    xmlrpc_int how = 0;
    xmlrpc_decompose_value(env, params, "(i)", &how);
    if (env->fault_occurred) return NULL;
    volatile int depth = 0;
    return xmlrpc_int_new(env, (how == 0 ? host_test_driver_crash(NULL) : host_test_driver_recurse(&depth)) + depth);
}

static xmlrpc_value *process(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)params, (void)server, (void)call;
    return xmlrpc_int_new(env, getpid());
}

// Writes bytes to the worker's socket, at once or, in a process of its own, when the call is over.
static xmlrpc_value *speak(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    const unsigned char *bytes = NULL;
    size_t size = 0;
    xmlrpc_bool later = 0;
    xmlrpc_decompose_value(env, params, "(6b)", &bytes, &size, &later);
    if (env->fault_occurred) return NULL;
    if (later && fork() != 0) return xmlrpc_int_new(env, 1);
    if (later) usleep(100000);
    // Descriptors that a driver might take for its own lead nowhere.
    for (int descriptor = 3; descriptor < 2000; ++descriptor) {
        if (write(descriptor, bytes, size) == (ssize_t)size && descriptor < 100) abort();
    }
    if (later) _exit(0);
    free((void *)bytes);
    return xmlrpc_int_new(env, 0);
}

// Overwrites the memory that the worker shares with the front.
static xmlrpc_value *scribble(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    xmlrpc_int byte = 0;
    xmlrpc_decompose_value(env, params, "(i)", &byte);
    if (env->fault_occurred) return NULL;
    FILE *maps = fopen("/proc/self/maps", "r");
    int found = 0;
    char line[512];
    while (maps != NULL && fgets(line, sizeof line, maps) != NULL) {
        unsigned long begin = 0, end = 0;
        if (strstr(line, " rw-s ") == NULL || sscanf(line, "%lx-%lx", &begin, &end) != 2) continue;
        memset((void *)begin, byte, end - begin);
        ++found;
    }
    if (maps != NULL) fclose(maps);
    return xmlrpc_int_new(env, found);
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

// Answers a text of so many bytes.
static xmlrpc_value *text(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    xmlrpc_int size = 0;
    xmlrpc_decompose_value(env, params, "(i)", &size);
    char *bytes = env->fault_occurred ? NULL : malloc((size_t)size);
    if (bytes == NULL) return NULL;
    memset(bytes, 'x', (size_t)size);
    xmlrpc_value *result = xmlrpc_string_new_lp(env, (size_t)size, bytes);
    free(bytes);
    return result;
}

// Prints a text to both outputs, so many times.
static xmlrpc_value *print(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    const char *text = NULL;
    xmlrpc_int count = 0;
    xmlrpc_decompose_value(env, params, "(si)", &text, &count);
    if (env->fault_occurred) return NULL;
    for (xmlrpc_int n = 0; n < count; ++n) {
        printf("out %s", text);
        fprintf(stderr, "err %s", text);
    }
    free((void *)text);
    return xmlrpc_int_new(env, count);
}

// Makes a file.
static xmlrpc_value *touch(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    const char *path = NULL;
    xmlrpc_decompose_value(env, params, "(s)", &path);
    if (env->fault_occurred) return NULL;
    close(creat(path, 0600));
    free((void *)path);
    return xmlrpc_int_new(env, 1);
}

// Answers the bytes that it is given as a text, whatever they are.
static xmlrpc_value *raw(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)server, (void)call;
    const unsigned char *bytes = NULL;
    size_t size = 0;
    xmlrpc_decompose_value(env, params, "(6)", &bytes, &size);
    if (env->fault_occurred) return NULL;
    xmlrpc_value *result = xmlrpc_string_new_lp(env, size, (const char *)bytes);
    free((void *)bytes);
    return result;
}

// XML-RPC has no form for a pointer.
static xmlrpc_value *unprintable(xmlrpc_env *env, xmlrpc_value *params, void *server, void *call) {
    (void)params, (void)server, (void)call;
    return xmlrpc_cptr_new(env, NULL);
}

int xrpc_init(xmlrpc_registry *registry, xmlrpc_env *env) {
    xmlrpc_registry_add_method2(env, registry, "test.echo", echo, "?", "", NULL);
    xmlrpc_registry_add_method(env, registry, NULL, "test.old_echo", old_echo, NULL);
    xmlrpc_registry_add_method2(env, registry, "test.nothing", nothing, "i:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.sleep", sleep_ms, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.until", until, "i:s", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.text", text, "s:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.driver", driver, "i:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.end", end, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.crash", crash, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.process", process, "i:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.lose", lose, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.speak", speak, "i:6b", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.scribble", scribble, "i:i", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.print", print, "i:si", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.touch", touch, "i:s", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.raw", raw, "s:6", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.status_get", status_get, "A:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "test.unprintable", unprintable, "i:", "", NULL);
    // As a plug-in names its methods: one with a function of the driver behind it, and one without.
    xmlrpc_registry_add_method2(env, registry, "lmq.host_test_driver_id", driver, "i:", "", NULL);
    xmlrpc_registry_add_method2(env, registry, "lmq.dictionary", echo, "?", "", NULL);
#ifdef REGISTER_TWICE
    xmlrpc_registry_add_method2(env, registry, "test.echo", echo, "?", "", NULL);
#endif
    return 1;
}
