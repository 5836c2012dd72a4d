// lmq-start DRIVER PLUGIN [RUNS]: loads a driver and the plug-in and registers the methods in a registry of the XML-RPC
// library, as a host does. Prints how long loading and xrpc_init take, the best of RUNS registrations (20), and how
// much of the plug-in's memory is private to the process afterwards.
#include <dlfcn.h>
#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

double milliseconds_since(Clock::time_point begin) {
    return std::chrono::duration<double, std::milli>(Clock::now() - begin).count();
}

void *load(const char *path, int mode) {
    void *library = dlopen(path, RTLD_NOW | mode);
    if (library) return library;
    std::fprintf(stderr, "lmq-start: %s\n", dlerror());
    std::exit(1);
}

// The sum of Private_Dirty over all mappings of the file, and of the unnamed one that follows (.bss), in bytes.
long private_memory(const std::string &file) {
    std::ifstream maps("/proc/self/smaps");
    bool counts = false;
    long sum = 0;
    for (std::string line; std::getline(maps, line);) {
        const size_t path = line.find('/');
        if (line.find('-') < line.find(' ') && line.find(':') > line.find(' ')) {
            const bool unnamed = path == std::string::npos && line.find('[') == std::string::npos;
            counts = unnamed ? counts : path != std::string::npos && line.substr(path) == file;
        } else if (counts && line.rfind("Private_Dirty:", 0) == 0) {
            sum += std::atol(line.c_str() + sizeof "Private_Dirty:") * 1024;
        }
    }
    return sum;
}

using Init = int(xmlrpc_registry *, xmlrpc_env *);

// What the library takes for as many rows of the same length: it copies each and looks for its name among all others.
int register_rows_alike(xmlrpc_registry *registry, xmlrpc_env *env) {
    const auto handler = [](xmlrpc_env *, xmlrpc_value *, void *, void *) -> xmlrpc_value * { return nullptr; };
    char name[] = "lmq.lmq_an_api_method_with_number_000";
    for (int row = 0; row < 434; ++row) {
        std::snprintf(name + sizeof name - 4, 4, "%03d", row);
        xmlrpc_registry_add_method2(env, registry, name, handler, "i:iS", "No help available", nullptr);
    }
    return 1;
}

struct Times {  // in milliseconds
    double first = 0, best = 1e9;
};

Times times(xmlrpc_env &env, int runs, Init *init) {
    Times times;
    for (int run = 0; run < runs; ++run) {
        xmlrpc_registry *registry = xmlrpc_registry_new(&env);
        const auto begin = Clock::now();
        init(registry, &env);
        const double taken = milliseconds_since(begin);
        if (run == 0) times.first = taken;
        times.best = std::min(times.best, taken);
        xmlrpc_registry_free(registry);
    }
    return times;
}

}  // namespace

int main(int argc, char **argv) {
    if (argc < 3) {
        std::fprintf(stderr, "Usage: lmq-start DRIVER PLUGIN [RUNS]\n");
        return 2;
    }
    load(argv[1], RTLD_GLOBAL);
    const auto before = Clock::now();
    void *plugin = load(argv[2], RTLD_LOCAL);
    const double loading = milliseconds_since(before);
    const auto init = reinterpret_cast<Init *>(dlsym(plugin, "xrpc_init"));
    if (!init) {
        std::fprintf(stderr, "lmq-start: %s has no xrpc_init\n", argv[2]);
        return 1;
    }

    xmlrpc_env env;
    xmlrpc_env_init(&env);
    const int runs = argc > 3 ? std::max(1, std::atoi(argv[3])) : 20;
    const Times whole = times(env, runs, init);
    const Times library = times(env, runs, register_rows_alike);
    if (env.fault_occurred) {
        std::fprintf(stderr, "lmq-start: %s\n", env.fault_string);
        return 1;
    }
    char *path = realpath(argv[2], nullptr);
    std::printf("loading: %.2f ms\n", loading);
    std::printf("xrpc_init: %.2f ms the first time, %.2f ms at best\n", whole.first, whole.best);
    std::printf("as many rows in the library alone: %.2f ms the first time, %.2f ms at best\n", library.first,
                library.best);
    std::printf("private memory of the plug-in: %ld bytes\n", private_memory(path));
    std::free(path);
    xmlrpc_env_clean(&env);
}
