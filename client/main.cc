// lmqctl: calls the methods of a host from a command line. This file holds the options before the command and the exit.
#include <signal.h>

#include <algorithm>
#include <cstdio>
#include <exception>

#include "command.h"
#include "error.h"
#include "names.h"
#include "program.h"
#include "standard_output.h"
#include "version.h"

namespace lmqctl {

namespace {

// Returns no error.
std::string add_path(std::string &url) {
    url = with_path(url);
    return {};
}

void set_up_connection(CLI::App &app, Context &context) {
    app.set_version_flag("--version", std::string("lmqctl ") + version);
    app.add_option("--url", context.connection.url, "The host: http://HOST:PORT/RPC2, https://..., unix:PATH")
        ->transform(CLI::Validator(add_path, ""))
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

namespace {

// The library takes a word like [1,2] for a list of words. With this behind it, it does not.
constexpr char mark = '\1';

bool is_bracketed(const std::string &word) { return word.starts_with('[') && word.ends_with(']'); }

std::string without_mark(std::string &word) {
    if (word.starts_with('[') && word.ends_with(mark)) word.pop_back();
    return {};
}

// Takes the mark off every argument and every value of an option. Few lines need it.
void take_marks_off(const CLI::App &app) {
    for (const CLI::App *command : app.get_subcommands(nullptr))
        for (CLI::Option *option : const_cast<CLI::App *>(command)->get_options())
            if (option->get_items_expected_max() > 0) option->transform(CLI::Validator(without_mark, ""));
}

// The library takes the last word first.
void parse(CLI::App &app, const std::vector<std::string> &words) {
    std::vector<std::string> reversed(words.rbegin(), words.rend());
    if (std::any_of(words.begin(), words.end(), is_bracketed)) {
        for (std::string &word : reversed)
            if (is_bracketed(word)) word += mark;
        take_marks_off(app);
    }
    app.parse(std::move(reversed));
}

std::string help(const CLI::App &app) {
    const std::vector<CLI::App *> chosen = app.get_subcommands();
    return chosen.empty() ? app.help() : chosen[0]->help("lmqctl");
}

// What is wrong with the words; for a command that there is not, the nearest that there are.
std::string complaint(const CLI::App &app, const CLI::ParseError &error) {
    std::string text = error.what();
    const std::vector<std::string> left = app.get_subcommands().empty() ? app.remaining() : std::vector<std::string>();
    const auto word =
        std::find_if(left.begin(), left.end(), [](const std::string &each) { return !each.starts_with('-'); });
    if (word != left.end()) text = *word + " is no command" + did_you_mean(*word, command_names());
    return text + "\nlmqctl --help lists the commands, lmqctl COMMAND --help their options.";
}

int carry_out_words(CLI::App &app, Context &context, const std::vector<std::string> &words) {
    try {
        set_up_commands(app, context);
        parse(app, words);
    } catch (const CLI::CallForHelp &) {
        print(help(app));
    } catch (const CLI::CallForVersion &version) {
        print(std::string(version.what()) + "\n");
    } catch (const CLI::ParseError &error) {
        throw UsageError(complaint(app, error));
    }
    flush();
    return context.exit_status;
}

}  // namespace

int carry_out(Context &context, const std::vector<std::string> &words) {
    CLI::App app("Calls the methods of a chip's XML-RPC host, and describes what there is to call.", "lmqctl");
    set_up_options(app, context);
    app.require_subcommand(1);
    app.footer(
        "Exit status: 0 success, 1 the driver failed, 2 fault, 3 no connection, 64 bad usage, 74 cannot write.\n"
        "lmqctl COMMAND --help shows a command's options and an example.");
    return with_errors_said(context, [&] { return carry_out_words(app, context, words); });
}

}  // namespace lmqctl

int main(int argc, char **argv) {
    // A reader that has seen enough ends the program, quietly, as it does any other.
    signal(SIGPIPE, SIG_DFL);
    lmqctl::hold_standard_descriptors();
    lmqctl::Context context;
    context.connection.url = "http://127.0.0.1:8080/RPC2";
    return lmqctl::carry_out(context, {argv + std::min(argc, 1), argv + argc});
}
