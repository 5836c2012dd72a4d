// The functions that stand before the XML-RPC library's, which the dynamic linker finds second.
#include "methods.h"

#include <dlfcn.h>

#include <cstdlib>

namespace lmq::host {
namespace {

/// Where to note what is added; null for nowhere.
Methods *recorded = nullptr;

/// The library's function of that name.
template <class Function>
Function *of_library(const char *name) {
    void *found = dlsym(RTLD_NEXT, name);
    if (found == nullptr) std::abort();  // the host is linked with it
    return reinterpret_cast<Function *>(found);
}

}  // namespace

Methods::Recording::Recording(Methods &methods) { recorded = &methods; }
Methods::Recording::~Recording() { recorded = nullptr; }

}  // namespace lmq::host

using lmq::host::recorded;

extern "C" __attribute__((visibility("default"))) void xmlrpc_registry_add_method2(
    xmlrpc_env *env, xmlrpc_registry *registry, const char *name, xmlrpc_method2 function, const char *signature,
    const char *help, void *server_info) {
    static auto *const add = lmq::host::of_library<decltype(xmlrpc_registry_add_method2)>(__func__);
    add(env, registry, name, function, signature, help, server_info);
    if (recorded != nullptr && !env->fault_occurred) recorded->add(name, {function, server_info});
}

// The answers are then written in another way than the host's.
extern "C" __attribute__((visibility("default"))) void xmlrpc_registry_set_dialect(xmlrpc_env *env,
                                                                                   xmlrpc_registry *registry,
                                                                                   xmlrpc_dialect dialect) {
    static auto *const set = lmq::host::of_library<decltype(xmlrpc_registry_set_dialect)>(__func__);
    set(env, registry, dialect);
    if (recorded != nullptr) recorded->clear();
    recorded = nullptr;
}
