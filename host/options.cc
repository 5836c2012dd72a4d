// The options: a row for each, whose default is what its variable holds. Each stands in `--help`, which fits on a
// screen, and in the man page.
#include "options.h"

#include <sched.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

#include "config_file.h"
#include "process.h"
#include "version.h"

namespace lmq::host {
namespace {

/// Room for the files and sockets of the host itself, beside its connections.
constexpr std::size_t own_descriptors = 64;

long long cores() {
    cpu_set_t set;
    return sched_getaffinity(0, sizeof set, &set) == 0 ? CPU_COUNT(&set) : 1;
}

/// Plain help: the options one below the other, with their defaults, without the types that the parser would add.
class Help : public CLI::Formatter {
  public:
    Help() { column_width(26); }
    std::string make_option_opts(const CLI::Option *option) const override {
        return option->get_type_size() == 0 ? "" : " " + option->get_type_name();
    }
    std::string make_option_desc(const CLI::Option *option) const override {
        const std::string standard = option->get_default_str();
        return option->get_description() + (standard.empty() ? "" : " (default: " + standard + ")");
    }
    std::string make_group(std::string name, bool is_positional, std::vector<const CLI::Option *> rows) const override {
        const std::string group = Formatter::make_group(std::move(name), is_positional, std::move(rows));
        return group.starts_with('\n') ? group.substr(1) : group;
    }
    std::string make_usage(const CLI::App *, std::string) const override { return "Usage: lmq-host [OPTIONS]\n"; }
};

struct Unit {
    const char *name;
    std::size_t bytes;
};
constexpr Unit units[] = {{"GB", std::size_t{1} << 30}, {"MB", std::size_t{1} << 20}, {"KB", std::size_t{1} << 10}};

std::string size_text(std::size_t size) {
    for (const Unit &unit : units) {
        if (size >= unit.bytes && size % unit.bytes == 0) return std::to_string(size / unit.bytes) + unit.name;
    }
    return std::to_string(size);
}

/// The bytes that a text like "4MB", "64k" or "100" stands for; none if it is no size.
std::optional<std::size_t> size_of(const std::string &text) {
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    std::string unit(end, text.data() + text.size());
    std::transform(unit.begin(), unit.end(), unit.begin(), [](unsigned char c) { return std::toupper(c); });
    if (error != std::errc()) return std::nullopt;
    if (unit.empty() || unit == "B") return number;
    for (const Unit &candidate : units) {
        const bool same = unit == candidate.name || unit == std::string(1, candidate.name[0]);
        if (same && number <= std::numeric_limits<std::size_t>::max() / candidate.bytes) {
            return number * candidate.bytes;
        }
    }
    return std::nullopt;
}

/// The table of options: one call a row.
class Table {
  public:
    explicit Table(CLI::App &app) : app_(app) {}

    void group(const char *title) { app_.option_defaults()->group(title); }

    template <class Target>
    CLI::Option *text(const char *name, Target &to, const char *type, const char *help) {
        return app_.add_option(name, to, help)->type_name(type)->capture_default_str();
    }
    void flag(const char *name, bool &to, const char *help) { app_.add_flag(name, to, help); }

    template <class Number>
    void number(const char *name, Number &to, long long least, long long most, const char *type, const char *help) {
        text(name, to, type, help)->check(whole(least, most));
    }
    template <class Duration>
    void time(const char *name, Duration &to, long long least, long long most, const char *type, const char *help) {
        app_.add_option_function<long long>(
                name, [&to](long long count) { to = Duration(count); }, help)
            ->type_name(type)
            ->default_str(std::to_string(to.count()))
            ->check(whole(least, most));
    }
    void size(const char *name, std::size_t &to, std::size_t least, std::size_t most, const char *help) {
        app_.add_option(name, to, help)
            ->type_name("SIZE")
            ->default_str(to == 0 ? "" : size_text(to))
            ->transform(CLI::Validator(
                [least, most](std::string &given) -> std::string {
                    const auto bytes = size_of(given);
                    if (!bytes || *bytes < least || *bytes > most) {
                        return "'" + given + "' is no size from " + size_text(least) + " to " + size_text(most);
                    }
                    given = std::to_string(*bytes);
                    return "";
                },
                ""));
    }

  private:
    static CLI::Validator whole(long long least, long long most) {
        return {[least, most](const std::string &given) -> std::string {
                    long long number = 0;
                    const auto [end, error] = std::from_chars(given.data(), given.data() + given.size(), number);
                    const bool good =
                        error == std::errc() && end == given.data() + given.size() && number >= least && number <= most;
                    return good ? ""
                                : "'" + given + "' is no number from " + std::to_string(least) + " to " +
                                      std::to_string(most);
                },
                ""};
    }

    CLI::App &app_;
};

std::string check_origin(const std::string &given) {
    const std::size_t colon = given.find("://");
    const bool has_scheme = colon != std::string::npos && colon > 0 && given[0] >= 'a' && given[0] <= 'z' &&
                            given.find_first_not_of("abcdefghijklmnopqrstuvwxyz0123456789+.-") == colon;
    const std::size_t place = colon + 3;
    const bool good = has_scheme && place < given.size() && given.find_first_of("/ \t?#@", place) == std::string::npos;
    return good ? "" : "'" + given + "' is no origin (SCHEME://HOST or SCHEME://HOST:PORT)";
}

/// The largest of any size: a frame's length has 32 bits, and the XML parser's 31.
constexpr std::size_t most_bytes = std::size_t{1} << 30;

void add_programs(Table &table, Options &options) {
    table.text("--driver", options.driver, "PATH",
               "The driver (" LMQ_HOST_DRIVER_NAME " beside the program or in lib/lmq)");
    table.text("--plugin", options.plugin, "PATH", "The plug-in (lmq_xmlrpc.so, looked for like the driver)");
    table.text("--interface", options.interface, "PATH",
               "What /interface answers (interface.json beside the program or in share/lmq)");
    table.flag("!--no-console", options.console, "Serve no web page");
    table.flag("--check", options.check, "Load everything, listen, and leave");
    table.flag("--in-process", options.in_process, "Call the driver in this process, for a debugger");
    table.size("--recycle-rss", options.worker.recycle_rss, 1, most_bytes,
               "Replace the driver's process above this memory");
    table.time("--load-time", options.worker.load_time, 1, 86400, "S",
               "Seconds for the driver and the plug-in to load");
    table.time("--spin", options.worker.spin, 0, 10000, "US", "Spin so long at most before sleeping; not on one core");
}

/// @return --allow and --deny.
std::array<CLI::Option *, 2> add_entry(Table &table, CLI::App &app, Options &options) {
    table.group("Who may call");
    CLI::Option *listen = table.text("--listen", options.listen, "ADDR:PORT", "Address to serve; port 0: any");
    table.text("--socket", options.socket, "PATH", "Serve a Unix socket of mode 0600 instead")->excludes(listen);
    table.text("--auth", options.auth, "FILE", "Users who may call: lines made by --make-user");
    table.text("--make-user", options.make_user, "NAME", "Ask for a password, print the user's line, and leave")
        ->configurable(false);
    table.text("--tls-cert", options.tls_certificate, "PEM", "Serve TLS with this certificate");
    table.text("--tls-key", options.tls_key, "PEM", "and this key");
    table.text("--tls-client-ca", options.tls_client_authority, "PEM", "Clients need a certificate signed by this one");
    table.flag("--insecure", options.insecure, "Let anybody call who reaches the address");
    table.text("--server-name", options.gate.names, "NAME", "A further name that a Host header may hold (repeatable)")
        ->default_str("");
    table.text("--allow-origin", options.gate.origin, "ORIGIN", "Web pages of this origin may call")
        ->check(CLI::Validator(check_origin, ""));
    CLI::Option *allow = app.add_option("--allow", "Serve methods that match (repeatable; the last match wins)");
    CLI::Option *deny = app.add_option("--deny", "Refuse methods that match (repeatable)");
    for (CLI::Option *option : {allow, deny}) {
        option->type_name("GLOB")->expected(1)->take_all()->allow_extra_args(false);
    }
    app.add_option_function<std::string>(
           "--read-only",
           [&options](const std::string &given) {
               options.role.read_only = given == "registers" ? ReadOnly::registers : ReadOnly::strict;
           },
           "Serve only calls that change nothing; 'registers': with reads of registers")
        ->type_name("[=registers]")
        ->expected(0, 1)
        ->default_str("")
        ->check(CLI::Validator(
            [](const std::string &given) {
                return given.empty() || given == "true" || given == "registers" ? ""
                                                                                : "'" + given + "' is not 'registers'";
            },
            ""));
    app.add_flag("!--no-guard", options.guard, "Let arrays pass that are shorter than the driver takes them for");
    return {allow, deny};
}

void add_limits(Table &table, Options &options) {
    constexpr long long many = 100'000'000;
    table.group("Limits");
    table.size("--max-body", options.server.max_body, 1024, most_bytes, "Bytes of a call");
    table.size("--max-bodies", options.server.max_bodies, 1024, most_bytes, "Bytes of all calls that wait");
    table.size("--max-answers", options.server.max_answers, 1024, most_bytes,
               "Bytes of all answers that are being sent");
    table.size("--max-answer", options.worker.max_answer, 1024, most_bytes, "Bytes of an answer");
    table.number("--max-depth", options.limits.depth, 1, 64, "N", "Values inside each other");
    table.number("--max-values", options.limits.values, 1, many, "N", "Values of a call");
    table.number("--max-members", options.limits.members, 1, many, "N", "Members of a struct");
    table.number("--max-calls", options.limits.calls, 1, many, "N", "Calls in a system.multicall");
    table.number("--max-connections", options.server.connections, 1, 1'000'000, "N", "Open connections");
    table.number("--max-per-address", options.server.connections_per_address, 1, 1'000'000, "N",
                 "of them from one address");
    table.time("--request-time", options.server.request_time, 1, 86400, "S",
               "Seconds for a head, and again for a body");
    table.time("--stop-time", options.server.stop_time, 0, 86400, "S", "Seconds for the call under way at the end");
}

void add_watching(Table &table, CLI::App &app, Options &options) {
    table.group("What to watch");
    table.text("--access-log", options.access_log, "FILE", "A line for each request ('-': standard error)");
    table.text("--log-format", options.log_format, "text|json", "Its form")
        ->default_str("text")
        ->transform(CLI::CheckedTransformer(std::map<std::string, Monitor::Format>{{"text", Monitor::Format::text},
                                                                                   {"json", Monitor::Format::json}},
                                            CLI::ignore_case)
                        .description(""));
    table.text("--trace", options.recorder.trace, "FILE", "Every call and its answer, for lmqctl trace");
    table.size("--trace-limit", options.recorder.trace_limit, 4096, std::numeric_limits<std::size_t>::max() / 4 + 1,
               "Lay it aside as FILE.1 when it would be longer");
    CLI::Option *post_mortem =
        table.text("--post-mortem", options.recorder.post_mortem, "DIR", "The last calls to a driver that died");
    post_mortem->excludes(app.get_option("--in-process"));
    table.size("--last-calls", options.recorder.last_calls, 0, most_bytes, "Bytes of them");
    table.time("--slow", options.server.slow, 0, 86'400'000, "MS",
               "Report calls that take longer, while they do; 0: none");
}

/// The rules in the order in which they were given; those of a file come first, --allow before --deny.
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

/// A mistake in one line. What stands in a file is named with its line; the command line goes before the file.
std::string message(const CLI::ParseError &error, const ConfigFile &file, const std::vector<std::string> &words) {
    const std::string what = error.what();
    const std::string option = what.substr(0, what.find(':'));
    const bool given = std::any_of(words.begin(), words.end(), [&](const std::string &word) {
        return word == option || word.starts_with(option + "=");
    });
    return (given ? "" : file.place(option)) + what;
}

/// What follows from the options that were read.
void complete(Options &options) {
    if (cores() == 1) options.worker.spin = std::chrono::microseconds(0);
    options.server.spin = options.worker.spin;
    options.recorder.driver = options.driver;
    options.recorder.plugin = options.plugin;
    // A driver that dies there takes them along.
    if (options.in_process) options.recorder.last_calls = 0;
    const std::size_t descriptors = raise_descriptor_limit();
    const std::size_t most = descriptors > 2 * own_descriptors ? descriptors - own_descriptors : descriptors / 2;
    options.server.connections = static_cast<unsigned>(std::min<std::size_t>(options.server.connections, most));
    options.gate.body_limit = options.server.max_body;
    options.gate.check_host = options.socket.empty();
    options.gate.client_certificates = !options.tls_client_authority.empty();
}

}  // namespace

std::optional<Options> read_options(int argc, char **argv, int &status) {
    Options options;
    CLI::App app("Serves the operations of a chip driver over XML-RPC, one call at a time, until SIGTERM or SIGINT.\n",
                 "lmq-host");
    const auto file = std::make_shared<ConfigFile>(app);
    app.formatter(std::make_shared<Help>());
    app.config_formatter(file);
    app.set_version_flag("--version", std::string("lmq-host ") + version, "Print the version and leave")
        ->configurable(false);
    app.set_help_flag("-h,--help", "Print this text and leave")->configurable(false);
    app.set_config("--config", "", "Read options from a file of lines NAME=VALUE")
        ->type_name("PATH")
        ->default_str("")
        ->configurable(false);
    Table table(app);
    add_programs(table, options);
    const auto [allow, deny] = add_entry(table, app, options);
    add_limits(table, options);
    add_watching(table, app, options);
    app.footer("Exit status: 0 after a signal; 1 if the start failed, and a line on standard error says why.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success &wanted) {
        status = app.exit(wanted);
        return std::nullopt;
    } catch (const CLI::ParseError &error) {
        const std::string line = message(error, *file, {argv + 1, argv + argc});
        std::fprintf(stderr, "lmq-host: %s\n", line.c_str());
        status = EXIT_FAILURE;
        return std::nullopt;
    }
    options.role.rules = rules_in_order(app, allow, deny);
    complete(options);
    return options;
}

}  // namespace lmq::host
