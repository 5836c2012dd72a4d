// The dynamic loader behind class Library, and the places where the libraries are looked for.
#include "library.h"

#include <dlfcn.h>

#include <stdexcept>
#include <utility>

namespace fs = std::filesystem;

namespace lmq::host {

// The loader takes a bare file name as something to search for in the system's folders. The operator means a file of
// the working folder, hence the absolute path.
Library::Library(std::string role, const fs::path &path, Exports exports)
    : role_(std::move(role)),
      path_(fs::absolute(path)),
      handle_(dlopen(path_.c_str(), RTLD_NOW | (exports == Exports::shared ? RTLD_GLOBAL : RTLD_LOCAL))) {
    if (handle_ != nullptr) return;
    std::string why = dlerror();
    const std::string prefix = path_.string() + ": ";
    if (why.starts_with(prefix)) why.erase(0, prefix.size());
    throw std::runtime_error("cannot load the " + description() + ": " + why);
}

bool Library::satisfies(const char *name) const {
    void *loaded = dlopen(name, RTLD_NOW | RTLD_NOLOAD);
    if (loaded != nullptr) dlclose(loaded);
    return loaded == handle_;
}

std::string Library::description() const { return role_ + " '" + path_.string() + "'"; }

void *Library::find(const char *name) const { return dlsym(handle_, name); }

void *Library::symbol(const char *name) const {
    void *address = find(name);
    if (address == nullptr) throw std::runtime_error("the " + description() + " does not export " + name);
    return address;
}

fs::path find_library(const std::string &role, const std::string &name, const std::string &remedy) {
    const fs::path folder = fs::read_symlink("/proc/self/exe").parent_path();
    const fs::path beside = folder / name;
    const fs::path installed = (folder / LMQ_HOST_LIBRARIES_FROM_PROGRAM / name).lexically_normal();
    for (const fs::path &place : {beside, installed}) {
        if (fs::exists(place)) return place;
    }
    throw std::runtime_error("no " + role + ": neither '" + beside.string() + "' nor '" + installed.string() +
                             "' exists (" + remedy + ")");
}

}  // namespace lmq::host
