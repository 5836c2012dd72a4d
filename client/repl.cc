// lmqctl repl: many commands over one connection, from a terminal or from a pipe.
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "command.h"
#include "error.h"
#include "interrupt.h"
#include "line_editor.h"
#include "names.h"
#include "program.h"
#include "words.h"

namespace lmqctl {

namespace {

std::string history_file() {
    namespace fs = std::filesystem;
    const char *state = std::getenv("XDG_STATE_HOME"), *home = std::getenv("HOME");
    const fs::path folder = state && *state == '/' ? fs::path(state) / "lmqctl"
                            : home && *home        ? fs::path(home) / ".local" / "state" / "lmqctl"
                                                   : fs::path();
    std::error_code failure;
    if (!folder.empty()) fs::create_directories(folder, failure);
    return folder.empty() || failure ? "" : (folder / "history").string();
}

// The words of a line as those of a shell behind lmqctl: `call` in front of a method's name, `help` as --help.
std::vector<std::string> as_command(Context &context, std::vector<std::string> words) {
    if (words[0] == "lmqctl" && words.size() > 1) words.erase(words.begin());
    if (words[0] == "help") {
        words.erase(words.begin());
        words.push_back("--help");
        return words;
    }
    const auto first =
        std::find_if(words.begin(), words.end(), [](const std::string &word) { return !word.starts_with('-'); });
    if (first == words.end()) return words;
    for (const Command &command : commands)
        if (*first == command.name) return words;
    const Dictionary &dictionary = context.dictionary();
    if (!dictionary.has(Dictionary::methods, dictionary.bare_name(*first))) {
        std::vector<std::string> names = command_names(), methods = dictionary.names(Dictionary::methods);
        names.insert(names.end(), methods.begin(), methods.end());
        throw UsageError(*first + " is neither a command nor a method" + did_you_mean(*first, names) +
                         "\nhelp lists the commands, list the methods.");
    }
    words.insert(first, "call");
    return words;
}

int carry_out_line(Context &context, const std::string &line) {
    // What a line sets by its options ends with it.
    const bool json = context.json, no_color = context.no_color, verbose = context.verbose, refresh = context.refresh;
    context.exit_status = exit_ok;
    const int status = with_errors_said(context, [&]() -> int {
        const Words split = split_words(line);
        if (split.open_quote) throw UsageError(std::string("the quote ") + split.open_quote + " is not closed");
        if (split.words.empty()) return exit_ok;
        if (std::find(split.words.begin(), split.words.end(), "--refresh") != split.words.end())
            context.forget_dictionary();
        return carry_out(context, as_command(context, split.words));
    });
    std::fflush(stdout);
    std::cin.clear();
    context.json = json, context.no_color = no_color, context.verbose = verbose, context.refresh = refresh;
    return status;
}

// What is set stands in the prompt.
std::string prompt_of(const Context &context) {
    std::string text = "lmqctl";
    for (const auto &[kind, value] : context.defaults) text += " " + kind + " " + std::to_string(value);
    return text + "> ";
}

// Whether the line ends the session.
bool is_end(const std::string &line) {
    const std::vector<std::string> words = split_words(line).words;
    return words.size() == 1 && (words[0] == "exit" || words[0] == "quit");
}

void from_terminal(Context &context) {
    const CatchInterrupt caught;
    context.connection.stop = &interrupted;
    std::printf("%s. help lists the commands, Tab completes, Ctrl-R searches earlier lines, Ctrl-D ends.\n",
                context.connection.url.c_str());
    std::fflush(stdout);
    LineEditor editor(prompt_of(context), history_file(), [&](const std::string &before) {
        Words split = split_words(before);
        if (split.ends_word) split.words.emplace_back();
        if (split.words.size() > 1 && split.words[0] == "lmqctl") split.words.erase(split.words.begin());
        return complete(context, split.words);
    });
    for (std::string line;;) {
        const LineEditor::Result result = editor.read(line);
        if (result == LineEditor::end) {
            std::printf("\n");
            return;
        }
        if (result == LineEditor::dropped) continue;
        if (is_end(line)) return;
        interrupted = 0;
        carry_out_line(context, line);
        editor.set_prompt(prompt_of(context));
    }
}

// Returns the exit status of the worst line: the highest.
int from_pipe(Context &context) {
    int worst = exit_ok;
    for (std::string line; std::getline(std::cin, line) && !is_end(line);)
        worst = std::max(worst, carry_out_line(context, line));
    return worst;
}

void repl(Context &context) {
    if (context.in_session) throw UsageError("this is a session already; exit, or Ctrl-D, ends it");
    context.in_session = true;
    if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) {
        from_terminal(context);
        context.exit_status = exit_ok;
    } else {
        context.exit_status = from_pipe(context);
    }
}

}  // namespace

void set_up_repl(CLI::App &command, Context &context) {
    command.callback([&context] { repl(context); });
}

}  // namespace lmqctl
