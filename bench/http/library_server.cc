// The XML-RPC library's own HTTP server with the methods of the plug-in, to measure lmq-host against:
//     library-server PORT PLUGIN DRIVER
// The server runs a thread for each connection and the plug-in's handlers are not made for that, so they run under one
// lock. Reading and writing XML stays outside of it: the server is measured at its best.
#include <dlfcn.h>
#include <netinet/in.h>
#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>
#include <xmlrpc-c/server_abyss.h>

#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <mutex>

namespace {

struct Method {
    xmlrpc_method2 call;
    void *server_info;
};

std::mutex one_call;
std::deque<Method> methods;

xmlrpc_value *locked(xmlrpc_env *env, xmlrpc_value *arguments, void *method, void *call_info) {
    const auto &inner = *static_cast<const Method *>(method);
    const std::lock_guard guard(one_call);
    return inner.call(env, arguments, inner.server_info, call_info);
}

[[noreturn]] void die(const char *what, const char *why) {
    std::fprintf(stderr, "library-server: %s: %s\n", what, why);
    std::exit(EXIT_FAILURE);
}

void check(const xmlrpc_env &env, const char *what) {
    if (env.fault_occurred != 0) die(what, env.fault_string);
}

void *load(const char *path, int flags) {
    void *library = dlopen(path, RTLD_NOW | flags);
    if (library == nullptr) die(path, dlerror());
    return library;
}

}  // namespace

// The program's own function of this name goes before the library's: what the plug-in registers gets the lock.
extern "C" __attribute__((visibility("default"))) void xmlrpc_registry_add_method2(
    xmlrpc_env *env, xmlrpc_registry *registry, const char *name, xmlrpc_method2 call, const char *signature,
    const char *help, void *server_info) {
    static const auto real =
        reinterpret_cast<decltype(&xmlrpc_registry_add_method2)>(dlsym(RTLD_NEXT, "xmlrpc_registry_add_method2"));
    methods.push_back({call, server_info});
    real(env, registry, name, locked, signature, help, &methods.back());
}

int main(int count, char **arguments) {
    if (count != 4) die("usage", "library-server PORT PLUGIN DRIVER");
    load(arguments[3], RTLD_GLOBAL);
    void *init = dlsym(load(arguments[2], RTLD_LOCAL), "xrpc_init");
    if (init == nullptr) die(arguments[2], "does not export xrpc_init");

    std::signal(SIGPIPE, SIG_IGN);
    xmlrpc_env env;
    xmlrpc_env_init(&env);
    xmlrpc_init(&env);
    check(env, "the library");
    xmlrpc_limit_set(XMLRPC_XML_SIZE_LIMIT_ID, INT_MAX);
    xmlrpc_registry *registry = xmlrpc_registry_new(&env);
    check(env, "the registry");
    reinterpret_cast<int (*)(xmlrpc_registry *, xmlrpc_env *)>(init)(registry, &env);
    check(env, "the plug-in");

    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<in_port_t>(std::atoi(arguments[1])));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);

    // With the defaults, fifteen idle connections would keep everybody else waiting.
    xmlrpc_server_abyss_parms parameters{};
    parameters.registryP = registry;
    parameters.sockaddr_p = reinterpret_cast<sockaddr *>(&address);
    parameters.sockaddrlen = sizeof address;
    parameters.keepalive_timeout = 3600;
    parameters.keepalive_max_conn = INT_MAX;
    parameters.max_conn = 2000;
    parameters.max_conn_backlog = 2000;
    parameters.timeout = 3600;
    parameters.uri_path = "/RPC2";
    xmlrpc_server_abyss_global_init(&env);
    check(env, "the server");
    xmlrpc_server_abyss_t *server = nullptr;
    xmlrpc_server_abyss_create(&env, &parameters, XMLRPC_APSIZE(max_conn_backlog), &server);
    check(env, "the server");
    xmlrpc_server_abyss_run_server(&env, server);
    check(env, "the server");
    return EXIT_SUCCESS;
}
