// The methods that a plug-in registers, by name, for calls that need no document: the library's registry can be asked
// for a method by XML alone.
#pragma once

#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace lmq::host {

/// What was registered.
struct MethodEntry {
    xmlrpc_method2 function;
    /// Handed to the function as its third argument.
    void *server_info;
    /// The length of the last answer in bytes: the next one is likely to be as long.
    std::size_t answer_length = 0;
};

class Methods {
  public:
    /// Notes what xmlrpc_registry_add_method2 adds while this lives, successfully and from whatever library: the
    /// program's own function of that name stands before the XML-RPC library's. What is registered by another of its
    /// functions is not seen.
    class Recording {
      public:
        explicit Recording(Methods &methods);
        ~Recording();
        Recording(const Recording &) = delete;
        Recording &operator=(const Recording &) = delete;
    };

    /// The method of that name; null if it has not been seen.
    MethodEntry *find(std::string_view name) {
        const auto found = by_name_.find(name);
        return found == by_name_.end() ? nullptr : &found->second;
    }

    void add(const char *name, const MethodEntry &entry) { by_name_.emplace(name, entry); }

    /// Forgets all: they are to be called by way of the library.
    void clear() { by_name_.clear(); }

  private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    };

    std::unordered_map<std::string, MethodEntry, Hash, std::equal_to<>> by_name_;
};

}  // namespace lmq::host
