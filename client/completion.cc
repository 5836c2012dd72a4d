// lmqctl completion: the scripts for shells; lmqctl complete: what they ask.
#include "command.h"
#include "complete.h"
#include "completion_scripts.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

// For a shell: a line each, TEXT TAB DESCRIPTION; a blank behind the text of a word that is whole.
void answer(Context &context, const std::vector<std::string> &words) {
    std::string lines;
    for (const Completion &each : complete(context, words))
        lines += each.text + (each.is_whole ? " " : "") + "\t" + each.description + "\n";
    print(lines);
}

}  // namespace

void set_up_completion(CLI::App &command, Context &) {
    const auto shell = std::make_shared<std::string>();
    command.add_option("SHELL", *shell, "Which one")->required()->check(CLI::IsMember({"bash", "zsh", "fish"}));
    command.callback([shell] {
        print(*shell == "bash" ? bash_completion : *shell == "zsh" ? zsh_completion : fish_completion);
    });
}

void set_up_complete(CLI::App &command, Context &context) {
    const auto words = std::make_shared<std::vector<std::string>>();
    add_words(command, "WORD", *words, "The words behind the program's name up to the cursor, behind a --");
    command.callback([&context, words] { answer(context, *words); });
}

}  // namespace lmqctl
