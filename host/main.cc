// lmq-host: an XML-RPC server in front of a chip driver. This file holds the options, the order of the start and the
// exit statuses; what each step does is in the files beside it.
#include <lmq_xmlrpc.h>

#include <CLI/CLI.hpp>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "address.h"
#include "library.h"
#include "prepass.h"
#include "registry.h"
#include "server.h"
#include "stop.h"

namespace {

using namespace lmq::host;
namespace fs = std::filesystem;

/** The name that the plug-in asks the loader for. A driver must carry it, or the loader would look for another one. */
constexpr const char driver_name[] = "liblmq.so";
constexpr const char plugin_name[] = "lmq_xmlrpc.so";

/** The longest call document in bytes. The largest answer of the interface, sent back as a call, fits in with room. */
constexpr std::size_t document_limit = std::size_t{4} * 1024 * 1024;

struct Options {
    std::size_t max_body = document_limit;
    PrepassLimits limits;
    std::string plugin;
    std::string driver;
    std::string listen = "127.0.0.1:8080";
};

Library load_driver(const std::string &named) {
    Library driver("driver", named.empty() ? find_library("driver", driver_name, "--driver") : fs::path(named),
                   Library::Exports::shared);
    if (!driver.satisfies(driver_name)) {
        throw std::runtime_error("the " + driver.description() + " does not carry the name (SONAME) " + driver_name);
    }
    return driver;
}

Library load_plugin(const std::string &named) {
    return {"plug-in", named.empty() ? find_library("plug-in", plugin_name, "--plugin") : fs::path(named),
            Library::Exports::own};
}

void run(const Options &options) {
    const StopSignals stop;
    Address address(options.listen);

    load_driver(options.driver);
    const Library plugin = load_plugin(options.plugin);
    auto *init = plugin.function<decltype(xrpc_init)>("xrpc_init");
    Registry registry(options.max_body);
    Prepass prepass(options.limits);
    try {
        registry.fill(init);
    } catch (const std::exception &error) {
        throw std::runtime_error("the " + plugin.description() + " cannot register its methods: " + error.what());
    }

    Server server(address.listen(), options.max_body, [&](std::string_view call) {
        const Verdict verdict = prepass.examine(call);
        return verdict.fault ? document(*verdict.fault) : registry.call(call);
    });
    std::printf("Listening on http://%s%s\n", address.text().c_str(), Server::path);
    std::fflush(stdout);
    server.run(stop);
}

}  // namespace

int main(int argc, char **argv) {
    Options options;
    CLI::App app(
        "Serves the operations of a chip driver over XML-RPC.\n\n"
        "Loads a driver and the plug-in, prints the URL of the service on standard output once it listens, and serves\n"
        "calls one at a time until SIGTERM or SIGINT. A call under way is finished and answered first.",
        "lmq-host");
    app.set_version_flag("--version", "lmq-host " LMQ_HOST_VERSION, "Print the version and leave");
    app.set_help_flag("-h,--help", "Print this text and leave");
    app.add_option("--driver", options.driver,
                   "The chip driver: a shared library with the SONAME liblmq.so.\n"
                   "Default: liblmq.so beside the program, else in " LMQ_HOST_LIBRARIES_FROM_PROGRAM " from there")
        ->type_name("PATH");
    app.add_option("--plugin", options.plugin,
                   "The plug-in that makes the driver callable.\n"
                   "Default: lmq_xmlrpc.so, looked for like the driver")
        ->type_name("PATH");
    app.add_option("--listen", options.listen,
                   "The address and port to serve, such as [::1]:8080, or 0.0.0.0:8080\n"
                   "for every IPv4 address of the machine; port 0 picks a free one.\n"
                   "Default: 127.0.0.1:8080. There is neither encryption nor a password:\n"
                   "whoever reaches the port commands the chip")
        ->type_name("ADDR:PORT");
    app.add_option("--max-body", options.max_body, "The longest call in bytes. Default: 4MB")
        ->transform(CLI::AsSizeValue(false))
        ->type_name("SIZE");
    app.add_option("--max-depth", options.limits.depth, "Values inside each other. Default: 32")
        ->check(CLI::Range(1, 64))
        ->type_name("N");
    app.add_option("--max-values", options.limits.values, "Values of a call. Default: 100000")->type_name("N");
    app.add_option("--max-members", options.limits.members, "Members of a struct. Default: 1024")->type_name("N");
    app.add_option("--max-calls", options.limits.calls, "Calls in a system.multicall. Default: 100")->type_name("N");
    app.footer(
        "Exit status: 0 after a signal; 1 if the host is used wrongly or cannot start, and one line on\n"
        "standard error says why.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
    }

    // A client that hangs up while its answer is being sent is not a reason to end.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        run(options);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "lmq-host: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
