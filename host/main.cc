// lmq-host: an XML-RPC server in front of a chip driver. This file holds the order of the start and the exit statuses;
// what each step does is in the files beside it.
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

#include "address.h"
#include "in_process.h"
#include "notify.h"
#include "options.h"
#include "output.h"
#include "server.h"
#include "service.h"
#include "signals.h"
#include "spawner.h"
#include "tls.h"
#include "users.h"
#include "worker.h"
#include "worker_process.h"

namespace {

using namespace lmq::host;

/// Removes a Unix socket when the host ends.
struct Remove {
    void operator()(const std::string *path) const {
        if (!path->empty()) unlink(path->c_str());
    }
};

std::unique_ptr<Backend> start_backend(const Options &options, Spawner &spawner, Output &output) {
    // A document in another encoding may grow when it is translated.
    const std::size_t longest_call = 2 * options.server.max_body;
    if (options.in_process)
        return std::make_unique<InProcess>(load_service(options.driver, options.plugin, longest_call));
    return std::make_unique<Worker>(spawner, output, WorkerPlan{options.driver, options.plugin, longest_call},
                                    options.worker);
}

/// Keeps the secrets of the front out of files: a core dump would hold keys and passwords.
void forbid_core_dumps() {
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    prctl(PR_SET_DUMPABLE, 0);
}

/// The users of --auth; null if nobody has to log in.
std::unique_ptr<Users> read_users(const std::string &file) {
    return file.empty() ? nullptr : std::make_unique<Users>(file);
}

std::map<std::string, Role> roles_of(const Users *users) {
    return users == nullptr ? std::map<std::string, Role>() : users->roles();
}

/// Reads the options again. Gives none, and says why, if there is a mistake.
using Reread = std::function<std::optional<Options>()>;

/// One step of a reload. What has a mistake stays as it was.
/// @return Whether there is none.
template <class Step>
bool attempt(Step step) try {
    step();
    return true;
} catch (const std::exception &error) {
    std::fprintf(stderr, "lmq-host: what was read before stays in force: %s\n", error.what());
    return false;
}

void run(const Options &options, const Reread &reread, Spawner &spawner, Output &output) {
    if (!options.in_process) forbid_core_dumps();
    const Signals signals;
    Address address(options.listen);
    const bool guarded = !options.auth.empty() || !options.tls_client_authority.empty();
    if (options.socket.empty() && !address.is_loopback() && !guarded && !options.insecure) {
        throw std::runtime_error("whoever reaches " + address.text() +
                                 " would command the chip: give --auth, --tls-client-ca or --insecure");
    }
    const Tls tls = read_tls(options.tls_certificate, options.tls_key, options.tls_client_authority);
    use_tls(tls);
    const Console console(options.console);
    Gate::Options entry = options.gate;
    entry.own_page = console.is_there();
    std::unique_ptr<Users> users = read_users(options.auth);
    Prepass prepass(options.limits);
    Monitor monitor(options.access_log, options.log_format);
    const std::unique_ptr<Backend> backend = start_backend(options, spawner, output);
    monitor.know(backend->methods());
    Filters filters(backend->methods(), options.role, roles_of(users.get()));
    const Guard guard(backend->methods(), options.guard);
    const InterfaceFile interface(options.interface);
    Recorder recorder(options.recorder);
    Gate gate(entry, std::move(users));

    FileDescriptor listener = options.socket.empty() ? address.listen() : listen_at(options.socket);
    const std::unique_ptr<const std::string, Remove> socket(&options.socket);
    Server server(std::move(listener), options.server, tls, gate, prepass, filters, guard, interface, console, monitor,
                  recorder, *backend);
    if (options.check) return;
    if (options.socket.empty()) {
        const char *scheme = tls.certificate.empty() ? "http" : "https";
        std::printf("Listening on %s://%s%s\n", scheme, address.text().c_str(), calls_path.data());
    } else {
        std::printf("Listening on %s\n", options.socket.c_str());
    }
    std::fflush(stdout);
    notify("READY=1");
    server.run(signals, [&] {
        bool good = attempt([&] {
            const auto now = reread();
            if (!now) throw std::runtime_error("there is a mistake in the options");
            auto others = read_users(options.auth);
            filters = Filters(backend->methods(), now->role, roles_of(others.get()));
            gate.set_users(std::move(others));
        });
        good &=
            attempt([&] { use_tls(read_tls(options.tls_certificate, options.tls_key, options.tls_client_authority)); });
        good &= attempt([&] { monitor.reopen(); });
        good &= attempt([&] { recorder.reopen(); });
        std::fprintf(stderr, "lmq-host: %s been read anew\n",
                     good ? "users, certificates, rules, the access log and the trace have" : "all else has");
    });
}

}  // namespace

int main(int argc, char **argv) try {
    // Before anything is read that a driver must not see.
    Output output;
    Spawner spawner(&work, output);
    int status = EXIT_SUCCESS;
    const auto options = read_options(argc, argv, status);
    if (!options) return status;

    // A client that hangs up while its answer is being sent is not a reason to end.
    std::signal(SIGPIPE, SIG_IGN);
    // Nor is a trace for which the system has no room.
    std::signal(SIGXFSZ, SIG_IGN);
    if (!options->make_user.empty()) {
        std::puts(Users::line(options->make_user, ask_password()).c_str());
        return EXIT_SUCCESS;
    }
    const auto reread = [argc, argv] {
        int ignored = 0;
        return read_options(argc, argv, ignored);
    };
    run(*options, reread, spawner, output);
    return EXIT_SUCCESS;
} catch (const std::exception &error) {
    std::fprintf(stderr, "lmq-host: %s\n", error.what());
    return EXIT_FAILURE;
}
