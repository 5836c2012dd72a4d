// The XML-RPC side of the host: a method registry that a plug-in fills, and that turns a call into the
// document of its answer. Nothing here knows HTTP.
#pragma once

#include <xmlrpc-c/base.h>
#include <xmlrpc-c/server.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "methods.h"

namespace lmq::host {

/// The process-wide set-up of the XML-RPC library.
class XmlrpcLibrary {
  public:
    /// @throws std::runtime_error if the library cannot be set up.
    XmlrpcLibrary();
    ~XmlrpcLibrary();
    XmlrpcLibrary(const XmlrpcLibrary &) = delete;
    XmlrpcLibrary &operator=(const XmlrpcLibrary &) = delete;
};

class Registry {
  public:
    /// What a plug-in exports to register its methods.
    using Init = int(xmlrpc_registry *registry, xmlrpc_env *env);

    /// An empty registry.
    /// @param document_limit The longest call document in bytes; a longer one is answered with a fault. The XML-RPC
    ///                       library keeps one limit for the whole process.
    /// @throws std::runtime_error if there is no memory for it.
    explicit Registry(std::size_t document_limit);

    /// Lets a plug-in register its methods.
    /// @throws std::runtime_error with the fault's text if a method was refused.
    void fill(Init *init);

    /// The names of all methods, the XML-RPC library's own included.
    /// @throws std::runtime_error if there is no memory for them.
    std::vector<std::string> methods();

    /// Carries out a call. Handlers have no locks: one call at a time.
    /// @param call A document in UTF-8, or a packed call. Whatever is wrong with it comes back as a fault in the
    /// answer.
    /// @return The answer.
    /// @throws std::runtime_error if the result of the method cannot be written as XML, or was written as what is none.
    std::string call(std::string_view call);

  private:
    struct Free {
        void operator()(xmlrpc_registry *registry) const { xmlrpc_registry_free(registry); }
    };

    std::string call_method(MethodEntry &method, std::string_view packed);
    std::string process(std::string_view document);

    XmlrpcLibrary library_;
    std::unique_ptr<xmlrpc_registry, Free> registry_;
    Methods methods_;
    /// The packed call that the library carries out; empty if it is a document.
    std::string_view packed_;
};

}  // namespace lmq::host
