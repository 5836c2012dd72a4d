// Loads the plug-in. This program's own xmlrpc_registry_add_method2 is found before the library's: it keeps each row
// that the plug-in registers, and passes it on.
#include "bench/plugin.h"

#include <dlfcn.h>

#include <stdexcept>

#include "lmq_xmlrpc.h"

namespace lmq::bench {

namespace {

std::vector<Row> *kept;  // NULL: nothing is kept

template <class F>
F *symbol(void *library, const char *name) {
    void *found = dlsym(library, name);
    if (!found) throw std::runtime_error(dlerror());
    return reinterpret_cast<F *>(found);
}

}  // namespace

void Env::check(const std::string &what) const {
    if (env.fault_occurred) throw std::runtime_error(what + ": " + env.fault_string);
}

Registry::Registry(const std::vector<Row> &rows) : registry_(nullptr, xmlrpc_registry_free) {
    Env env;
    registry_.reset(xmlrpc_registry_new(env));
    for (const Row &row : rows)
        xmlrpc_registry_add_method2(env, registry_.get(), row.name.c_str(), row.handler, row.signature.c_str(),
                                    row.help.c_str(), row.data);
    env.check("a registry");
}

std::string Registry::answer(const std::string &document) const {
    xmlrpc_mem_block *block = process(document);
    std::string text(XMLRPC_MEMBLOCK_CONTENTS(char, block), XMLRPC_MEMBLOCK_SIZE(char, block));
    XMLRPC_MEMBLOCK_FREE(char, block);
    return text;
}

Plugin::Plugin(const std::filesystem::path &file) {
    void *library = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) throw std::runtime_error(std::string("cannot load the plug-in: ") + dlerror());
    tracker = {symbol<void()>(library, "__x_mm_initialize"), symbol<void(void *)>(library, "__x_mm_add_ptr"),
               symbol<void()>(library, "__x_mm_free")};
    Env env;
    xmlrpc_registry *registry = xmlrpc_registry_new(env);  // adds rows of its own by the same function
    kept = &rows_;
    symbol<int(xmlrpc_registry *, xmlrpc_env *)>(library, "xrpc_init")(registry, env);
    kept = nullptr;
    xmlrpc_registry_free(registry);
    env.check("xrpc_init");
}

Handler *Plugin::handler(const std::string &method) const {
    for (const Row &row : rows_)
        if (row.name == method) return row.handler;
    throw std::runtime_error("the plug-in does not register " + method);
}

std::string call_document(const std::string &method, xmlrpc_value *parameters) {
    Env env;
    xmlrpc_mem_block *block = XMLRPC_MEMBLOCK_NEW(char, env, 0);
    xmlrpc_serialize_call(env, block, method.c_str(), parameters);
    env.check(method);
    std::string text(XMLRPC_MEMBLOCK_CONTENTS(char, block), XMLRPC_MEMBLOCK_SIZE(char, block));
    XMLRPC_MEMBLOCK_FREE(char, block);
    return text;
}

xmlrpc_value *answer_existing(xmlrpc_env *, xmlrpc_value *, void *data, void *) {
    auto *value = static_cast<xmlrpc_value *>(data);
    xmlrpc_INCREF(value);
    return value;
}

}  // namespace lmq::bench

extern "C" void xmlrpc_registry_add_method2(xmlrpc_env *env, xmlrpc_registry *registry, const char *name,
                                            xmlrpc_method2 handler, const char *signature, const char *help,
                                            void *data) {
    using Add = decltype(xmlrpc_registry_add_method2);
    static Add *const library = lmq::bench::symbol<Add>(RTLD_NEXT, "xmlrpc_registry_add_method2");
    if (lmq::bench::kept) lmq::bench::kept->push_back({name, handler, signature, help, data});
    library(env, registry, name, handler, signature, help, data);
}
