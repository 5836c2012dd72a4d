// lmq-host: an XML-RPC server in front of a chip driver. This file holds the order of the start and the exit statuses;
// what each step does is in the files beside it.
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "address.h"
#include "in_process.h"
#include "notify.h"
#include "options.h"
#include "server.h"
#include "service.h"
#include "stop.h"
#include "tls.h"
#include "users.h"
#include "worker.h"

namespace {

using namespace lmq::host;

/** Removes a Unix socket when the host ends. */
struct Remove {
    void operator()(const std::string *path) const {
        if (!path->empty()) unlink(path->c_str());
    }
};

std::unique_ptr<Backend> start_backend(const Options &options) {
    Open open = [driver = options.driver, plugin = options.plugin, limit = options.server.max_body] {
        return load_service(driver, plugin, limit);
    };
    if (options.in_process) return std::make_unique<InProcess>(open);
    return std::make_unique<Worker>(std::move(open), options.worker);
}

void run(const Options &options) {
    const StopSignals stop;
    Address address(options.listen);
    const bool guarded = !options.auth.empty() || !options.tls_client_authority.empty();
    if (options.socket.empty() && !address.is_loopback() && !guarded && !options.insecure) {
        throw std::runtime_error("whoever reaches " + address.text() +
                                 " would command the chip: give --auth, --tls-client-ca or --insecure");
    }
    const Tls tls = read_tls(options.tls_certificate, options.tls_key, options.tls_client_authority);
    const Gate gate(options.gate, options.auth.empty() ? nullptr : std::make_unique<Users>(options.auth));
    const MethodFilter filter(options.rules, options.read_only);
    Prepass prepass(options.limits);
    Monitor monitor(options.access_log, options.log_format);
    const std::unique_ptr<Backend> backend = start_backend(options);

    FileDescriptor listener = options.socket.empty() ? address.listen() : listen_at(options.socket);
    const std::unique_ptr<const std::string, Remove> socket(&options.socket);
    Server server(std::move(listener), options.server, tls, gate, prepass, filter, monitor, *backend);
    if (options.check) return;
    if (options.socket.empty()) {
        const char *scheme = tls.certificate.empty() ? "http" : "https";
        std::printf("Listening on %s://%s%s\n", scheme, address.text().c_str(), calls_path.data());
    } else {
        std::printf("Listening on %s\n", options.socket.c_str());
    }
    std::fflush(stdout);
    notify("READY=1");
    server.run(stop);
}

}  // namespace

int main(int argc, char **argv) {
    int status = EXIT_SUCCESS;
    const auto options = read_options(argc, argv, status);
    if (!options) return status;

    // A client that hangs up while its answer is being sent is not a reason to end.
    std::signal(SIGPIPE, SIG_IGN);
    try {
        if (!options->make_user.empty()) {
            std::puts(Users::line(options->make_user, ask_password()).c_str());
            return EXIT_SUCCESS;
        }
        run(*options);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "lmq-host: %s\n", error.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
