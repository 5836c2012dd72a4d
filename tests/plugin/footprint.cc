// What the plug-in costs a small target: its file without symbols, its private memory once its methods are registered,
// and the time that takes, which is printed and not judged.
//     footprint PLUGIN DRIVER STRIPPED MOST_FILE_KIB MOST_PRIVATE_KIB
#include <dlfcn.h>
#include <sys/stat.h>
#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

[[noreturn]] void die(const std::string &why) {
    std::fprintf(stderr, "footprint: %s\n", why.c_str());
    std::exit(EXIT_FAILURE);
}

void *load(const char *path, int flags) {
    void *library = dlopen(path, RTLD_NOW | flags);
    if (library == nullptr) die(dlerror());
    return library;
}

/// What a process has written of a file's mappings and so has for itself, in KiB. (Private_Dirty would count the pages
/// of a file that has just been linked and is not on the disk yet.) The thread's name of the list is one that no
/// emulator forges.
long private_memory(const std::string &file) {
    std::ifstream maps("/proc/thread-self/smaps");
    std::string line;
    long sum = 0;
    bool known = false, ours = false;
    while (std::getline(maps, line)) {
        if (line.find('-') < line.find(' ') && line.find(':') > line.find(' ')) {
            ours = line.ends_with("/" + file);
            known = known || ours;
        }
        if (ours && line.starts_with("Anonymous:")) sum += std::atol(line.c_str() + sizeof "Anonymous:" - 1);
    }
    if (!known) die("no mapping of " + file);
    return sum;
}

}  // namespace

int main(int count, char **arguments) {
    if (count != 6) die("usage: footprint PLUGIN DRIVER STRIPPED MOST_FILE_KIB MOST_PRIVATE_KIB");
    load(arguments[2], RTLD_GLOBAL);
    const std::string plugin = arguments[1];
    void *symbol = dlsym(load(plugin.c_str(), RTLD_LOCAL), "xrpc_init");
    if (symbol == nullptr) die("no xrpc_init");
    auto *init = reinterpret_cast<int (*)(xmlrpc_registry *, xmlrpc_env *)>(symbol);

    xmlrpc_env env;
    xmlrpc_env_init(&env);
    using Clock = std::chrono::steady_clock;
    auto best = Clock::duration::max();
    for (int round = 0; round < 5; ++round) {
        xmlrpc_registry *registry = xmlrpc_registry_new(&env);
        const auto start = Clock::now();
        init(registry, &env);
        best = std::min(best, Clock::now() - start);
        if (env.fault_occurred != 0) die(env.fault_string);
        xmlrpc_registry_free(registry);
    }
    const long memory = private_memory(plugin.substr(plugin.rfind('/') + 1));
    struct stat file {};
    if (stat(arguments[3], &file) != 0) die(std::string("no file ") + arguments[3]);
    const long most_file = std::atol(arguments[4]) * 1024, most_memory = std::atol(arguments[5]);

    std::printf("file without symbols: %ld bytes (at most %ld)\n", static_cast<long>(file.st_size), most_file);
    std::printf("private memory: %ld KiB (at most %ld)\n", memory, most_memory);
    std::printf("registration: %.2f ms\n", std::chrono::duration<double, std::milli>(best).count());
    return file.st_size <= most_file && memory > 0 && memory <= most_memory ? EXIT_SUCCESS : EXIT_FAILURE;
}
