// lmqctl: calls the methods of a host from a command line. This file holds the options before the command and the exit.
#include <signal.h>

#include <algorithm>
#include <cstdio>
#include <exception>

#include "command.h"
#include "error.h"
#include "program.h"

namespace lmqctl {

namespace {

// Adds the path that hosts serve to a URL that names none. Returns no error.
std::string with_path(std::string &url) {
    const std::size_t scheme = url.find("://");
    const bool bare = url.starts_with("http") && scheme != std::string::npos && scheme + 3 < url.size() &&
                      url.find('/', scheme + 3) == std::string::npos;
    if (bare) url += "/RPC2";
    return {};
}

void set_up_connection(CLI::App &app, Context &context) {
    app.set_version_flag("--version", "lmqctl " LMQCTL_VERSION);
    app.add_option("--url", context.connection.url, "The host: http://HOST:PORT/RPC2, https://..., unix:PATH")
        ->transform(CLI::Validator(with_path, ""))
        ->envname("LMQ_URL")
        ->capture_default_str()
        ->type_name("URL");
    app.add_option("--user", context.connection.user, "User; the password from LMQ_PASSWORD, or asked for")
        ->type_name("NAME");
    app.add_option("--timeout", context.connection.timeout, "Seconds to wait for an answer; 0: for ever")
        ->check(CLI::Range(0.0, 86400.0))
        ->capture_default_str()
        ->type_name("S");
    app.add_option("--cacert", context.connection.cacert, "Certificates to trust, PEM")->type_name("FILE");
    app.add_option("--cert", context.connection.cert, "Own certificate, PEM")->type_name("FILE");
    app.add_option("--key", context.connection.key, "Key of the own certificate, PEM")->type_name("FILE");
}

}  // namespace

void set_up_options(CLI::App &app, Context &context) {
    if (!context.in_session) set_up_connection(app, context);
    app.add_flag("--json", context.json, "Stable JSON for programs");
    app.add_flag("--no-color", context.no_color, "No colours, as with NO_COLOR set");
    app.add_flag("--refresh", context.refresh, "Fetch the dictionary anew");
    app.add_flag("-v,--verbose", context.verbose, "Say what is done");
}

void set_up_commands(CLI::App &app, Context &context) {
    for (const Command &command : commands) {
        CLI::App *sub = app.add_subcommand(command.name, command.summary);
        if (!*command.summary) sub->group("");
        sub->footer(std::string("Example:\n  ") + command.example);
        // Options of the program may stand behind the command as well.
        sub->fallthrough();
        command.set_up(*sub, context);
    }
}

int with_errors_said(const Context &context, const std::function<int()> &action) {
    try {
        return action();
    } catch (const Fault &fault) {
        std::fflush(stdout);
        std::fprintf(stderr, "lmqctl: fault %d: %s\n", fault.code, fault.what());
        return exit_fault;
    } catch (const Error &error) {
        std::fflush(stdout);
        std::fprintf(stderr, "lmqctl: %s\n", error.what());
        return error.status;
    } catch (const std::exception &error) {
        std::fflush(stdout);
        std::fprintf(stderr, "lmqctl: %s: the host answered something unexpected (%s)\n",
                     context.connection.url.c_str(), error.what());
        return exit_connection;
    }
}

int carry_out(Context &context, const std::vector<std::string> &words) {
    CLI::App app("Calls the methods of a chip's XML-RPC host, and tells what there is to call.", "lmqctl");
    set_up_options(app, context);
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 success, 1 the driver failed, 2 fault, 3 no connection, 64 bad usage.\n"
        "lmqctl COMMAND --help shows a command's options and an example.");
    return with_errors_said(context, [&] {
        try {
            set_up_commands(app, context);
            // The library takes the last word first.
            app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
        } catch (const CLI::CallForHelp &) {
            for (const CLI::App *sub : app.get_subcommands()) {
                print(sub->help("lmqctl"));
                return static_cast<int>(exit_ok);
            }
            print(app.help());
            return static_cast<int>(exit_ok);
        } catch (const CLI::Success &success) {
            return app.exit(success);
        } catch (const CLI::ParseError &error) {
            std::fflush(stdout);
            std::fprintf(stderr, "lmqctl: %s\nlmqctl --help lists the commands, lmqctl COMMAND --help their options.\n",
                         error.what());
            return static_cast<int>(exit_usage);
        }
        return context.exit_status;
    });
}

}  // namespace lmqctl

int main(int argc, char **argv) {
    // A reader that has seen enough ends the program, quietly, as it does any other.
    signal(SIGPIPE, SIG_DFL);
    lmqctl::Context context;
    context.connection.url = "http://127.0.0.1:8080/RPC2";
    return lmqctl::carry_out(context, {argv + std::min(argc, 1), argv + argc});
}
