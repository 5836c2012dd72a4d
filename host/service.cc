// Loading, in the order that matters: the driver first and with shared symbols, since the plug-in asks the loader for
// it.
#include "service.h"

#include <lmq_xmlrpc.h>

#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string_view>

#include "fault.h"
#include "library.h"
#include "registry.h"

namespace fs = std::filesystem;

namespace lmq::host {
namespace {

/// The name that the plug-in asks the loader for. A driver must carry it, or the loader would look for another one.
constexpr const char driver_name[] = LMQ_HOST_DRIVER_NAME;
constexpr const char plugin_name[] = "lmq_xmlrpc.so";

#ifdef LMQ_REAL_DRIVER
constexpr const char driver_remedy[] = "--driver names another file";
#else
constexpr const char driver_remedy[] = "--driver names another file; the package lmq-sim has a simulated one";
#endif

Library load_driver(const std::string &named) {
    Library driver("driver", named.empty() ? find_library("driver", driver_name, driver_remedy) : fs::path(named),
                   Library::Exports::shared);
    if (!driver.satisfies(driver_name)) {
        throw std::runtime_error("the " + driver.description() + " does not carry the name (SONAME) " + driver_name);
    }
    return driver;
}

/// Says of each method what is behind it. The plug-in names its methods `lmq.` and then as the function of the driver.
std::vector<Method> described(const std::vector<std::string> &names, const Library &driver) {
    constexpr std::string_view prefix = "lmq.";
    std::vector<Method> methods;
    for (const std::string &name : names) {
        const bool own = name.starts_with("system.");
        const bool without_function =
            name.starts_with(prefix) && driver.optional_function<void()>(name.c_str() + prefix.size()) == nullptr;
        methods.push_back({name, own || without_function});
    }
    return methods;
}

}  // namespace

Service load_service(const std::string &driver, const std::string &plugin_file, std::size_t max_body) {
    const Library loaded_driver = load_driver(driver);
    const Library plugin("plug-in",
                         plugin_file.empty() ? find_library("plug-in", plugin_name, "--plugin names another file")
                                             : fs::path(plugin_file),
                         Library::Exports::own);
    auto *init = plugin.function<decltype(xrpc_init)>("xrpc_init");
    const auto registry = std::make_shared<Registry>(max_body);
    try {
        registry->fill(init);
    } catch (const std::exception &error) {
        throw std::runtime_error("the " + plugin.description() + " cannot register its methods: " + error.what());
    }
    // A plug-in without a tracker loses nothing.
    auto *give_back = plugin.optional_function<decltype(__x_mm_free)>("__x_mm_free");
    const auto call = [registry, give_back](std::string_view document) {
        std::string answer = registry->call(document);
        if (give_back != nullptr && fault_code(answer) != 0) give_back();
        return answer;
    };
    return {call, described(registry->methods(), loaded_driver)};
}

}  // namespace lmq::host
