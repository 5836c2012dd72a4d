// Shared libraries that are loaded while the host starts: the chip driver and the plug-in. The host knows both only by
// what they export.
#pragma once

#include <filesystem>
#include <string>

namespace lmq::host {

/// A loaded library. It stays loaded until the process ends, even when this object goes: a driver may have threads of
/// its own, whose code must not be unmapped beneath them.
class Library {
  public:
    /// Whether the libraries that are loaded later may bind to the exports of this one.
    enum class Exports { shared, own };

    /// @param role What the library is to the operator, such as "driver"; every error names it.
    /// @param path The file.
    /// @throws std::runtime_error if the file cannot be loaded, or a symbol that it needs is nowhere.
    Library(std::string role, const std::filesystem::path &path, Exports exports);

    /// Whether a later library that needs the library `name` will be given this one.
    bool satisfies(const char *name) const;

    /// The exported function of that name. The type is taken on trust.
    /// @throws std::runtime_error if the library does not export it.
    template <class Function>
    Function *function(const char *name) const {
        return reinterpret_cast<Function *>(symbol(name));
    }

    /// The exported function of that name, or null. The type is taken on trust.
    template <class Function>
    Function *optional_function(const char *name) const {
        return reinterpret_cast<Function *>(find(name));
    }

    /// The library in a message: its role and its file.
    std::string description() const;

  private:
    void *find(const char *name) const;
    void *symbol(const char *name) const;

    std::string role_;
    std::filesystem::path path_;
    void *handle_;
};

/// Where a library is that the operator has not named: beside the program (a build folder), else in the library folder
/// of the installed tree.
/// @param role   What the library is to the operator.
/// @param name   The file's name.
/// @param remedy What else can be done; the error ends with it.
/// @throws std::runtime_error with the places, if the file is in none of them.
std::filesystem::path find_library(const std::string &role, const std::string &name, const std::string &remedy);

}  // namespace lmq::host
