// The options and their texts. Each stands in `--help`, which fits on a screen, and in the man page.
#include "options.h"

#include <sched.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <memory>

#include "process.h"

namespace lmq::host {
namespace {

constexpr std::size_t mebibyte = std::size_t{1024} * 1024;

/** Room for the files and sockets of the host itself, beside its connections. */
constexpr std::size_t own_descriptors = 64;

long long cores() {
    cpu_set_t set;
    return sched_getaffinity(0, sizeof set, &set) == 0 ? CPU_COUNT(&set) : 1;
}

/** Plain help: the options one below the other, without the types that the parser would add. */
class Help : public CLI::Formatter {
  public:
    Help() { column_width(26); }
    std::string make_option_opts(const CLI::Option *option) const override {
        return option->get_type_size() == 0 ? "" : " " + option->get_type_name();
    }
    std::string make_usage(const CLI::App *, std::string) const override { return "Usage: lmq-host [OPTIONS]\n"; }
};

/** The rules in the order in which they were given; those of a file come first, --allow before --deny. */
std::vector<MethodRule> rules_in_order(const CLI::App &app, const CLI::Option *allow, const CLI::Option *deny) {
    std::vector<MethodRule> given;
    auto allowed = allow->results();
    auto denied = deny->results();
    std::size_t next_allowed = 0, next_denied = 0;
    for (const CLI::Option *option : app.parse_order()) {
        if (option == allow && next_allowed < allowed.size()) given.push_back({true, allowed[next_allowed++]});
        if (option == deny && next_denied < denied.size()) given.push_back({false, denied[next_denied++]});
    }
    std::vector<MethodRule> rules;
    for (; next_allowed < allowed.size(); ++next_allowed) rules.push_back({true, allowed[next_allowed]});
    for (; next_denied < denied.size(); ++next_denied) rules.push_back({false, denied[next_denied]});
    rules.insert(rules.end(), given.begin(), given.end());
    return rules;
}

}  // namespace

std::optional<Options> read_options(int argc, char **argv, int &status) {
    Options options;
    options.server.max_body = 4 * mebibyte;
    options.server.max_bodies = 64 * mebibyte;
    options.server.connections = 4096;
    options.server.connections_per_address = 3072;
    long long request_seconds = 30, slow = 0, spin = 1000;

    CLI::App app("Serves the operations of a chip driver over XML-RPC, one call at a time, until SIGTERM or SIGINT.\n",
                 "lmq-host");
    app.formatter(std::make_shared<Help>());
    app.set_version_flag("--version", "lmq-host " LMQ_HOST_VERSION, "Print the version and leave");
    app.set_help_flag("-h,--help", "Print this text and leave");
    app.allow_config_extras(CLI::config_extras_mode::error);
    app.set_config("--config", "", "Read options from a file of lines NAME=VALUE")->type_name("PATH");
    const auto text = [&app](const char *name, auto &to, const char *type, const char *help) {
        return app.add_option(name, to, help)->type_name(type);
    };
    const auto size = [&](const char *name, std::size_t &to, const char *help) {
        text(name, to, "SIZE", help)->transform(CLI::AsSizeValue(false).description(""));
    };
    text("--driver", options.driver, "PATH",
         "The driver (default: " LMQ_HOST_DRIVER_NAME " beside the program or in lib/lmq)");
    text("--plugin", options.plugin, "PATH", "The plug-in (default: lmq_xmlrpc.so, looked for like the driver)");
    app.add_flag("--check", options.check, "Load everything, listen, and leave");
    app.add_flag("--in-process", options.in_process, "Call the driver in this process, for a debugger");
    size("--recycle-rss", options.worker.recycle_rss,
         "Replace the driver's process above this memory (default: never)");
    text("--spin", spin, "US", "Spin so long at most before sleeping (default: 1000; 0 on one core)")
        ->check(CLI::Range(0, 10000).description(""));

    app.option_defaults()->group("Who may call");
    text("--listen", options.listen, "ADDR:PORT", "Address to serve (default: 127.0.0.1:8080; port 0: any)");
    text("--socket", options.socket, "PATH", "Serve a Unix socket of mode 0600 instead")->excludes("--listen");
    text("--auth", options.auth, "FILE", "Users who may call: lines made by --make-user");
    text("--make-user", options.make_user, "NAME", "Ask for a password, print the user's line, and leave");
    text("--tls-cert", options.tls_certificate, "PEM", "Serve TLS with this certificate");
    text("--tls-key", options.tls_key, "PEM", "and this key");
    text("--tls-client-ca", options.tls_client_authority, "PEM", "Clients need a certificate signed by this one");
    app.add_flag("--insecure", options.insecure, "Let anybody call who reaches the address");
    text("--server-name", options.gate.names, "NAME", "A further name that a Host header may hold (repeatable)");
    text("--allow-origin", options.gate.origin, "ORIGIN", "Web pages of this origin may call");
    auto *allow = app.add_option("--allow", "Serve methods that match (repeatable; the last match wins)");
    auto *deny = app.add_option("--deny", "Refuse methods that match (repeatable)");
    for (CLI::Option *option : {allow, deny})
        option->type_name("GLOB")->expected(1)->take_all()->allow_extra_args(false);
    app.add_flag("--read-only", options.read_only, "Serve only methods whose names promise to read");

    app.option_defaults()->group("Limits");
    size("--max-body", options.server.max_body, "Bytes of a call (default: 4MB)");
    size("--max-bodies", options.server.max_bodies, "Bytes of all calls that wait (default: 64MB)");
    text("--max-depth", options.limits.depth, "N", "Values inside each other (default: 32)")
        ->check(CLI::Range(1, 64).description(""));
    text("--max-values", options.limits.values, "N", "Values of a call (default: 100000)");
    text("--max-members", options.limits.members, "N", "Members of a struct (default: 1024)");
    text("--max-calls", options.limits.calls, "N", "Calls in a system.multicall (default: 100)");
    text("--max-connections", options.server.connections, "N", "Open connections (default: 4096)")
        ->check(CLI::Range(1, 1000000).description(""));
    text("--max-per-address", options.server.connections_per_address, "N", "of them from one address (default: 3072)");
    text("--request-time", request_seconds, "S", "Seconds for a head, and again for a body (default: 30)")
        ->check(CLI::Range(1, 86400).description(""));

    app.option_defaults()->group("What to watch");
    text("--access-log", options.access_log, "FILE", "A line for each request ('-': standard error)");
    text("--log-format", options.log_format, "text|json", "Its form (default: text)")
        ->transform(CLI::CheckedTransformer(std::map<std::string, Monitor::Format>{{"text", Monitor::Format::text},
                                                                                   {"json", Monitor::Format::json}},
                                            CLI::ignore_case)
                        .description(""));
    text("--slow", slow, "MS", "Tell of calls that take longer, while they do (default: 0, never)")
        ->check(CLI::Range(0, 86400000).description(""));
    app.footer("Exit status: 0 after a signal; 1 if the start failed, and a line on standard error says why.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        status = app.exit(error) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
        return std::nullopt;
    }
    options.rules = rules_in_order(app, allow, deny);
    if (cores() == 1) spin = 0;
    options.server.spin = options.worker.spin = std::chrono::microseconds(spin);
    options.server.slow = std::chrono::milliseconds(slow);
    options.server.request_time = std::chrono::seconds(request_seconds);
    const std::size_t descriptors = raise_descriptor_limit();
    const std::size_t most = descriptors > 2 * own_descriptors ? descriptors - own_descriptors : descriptors / 2;
    options.server.connections = static_cast<unsigned>(std::min<std::size_t>(options.server.connections, most));
    options.gate.body_limit = options.server.max_body;
    options.gate.check_host = options.socket.empty();
    options.gate.client_certificates = !options.tls_client_authority.empty();
    return options;
}

}  // namespace lmq::host
