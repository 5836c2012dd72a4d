// libedit, loaded when it is needed.
#include "line_editor.h"

#include <dlfcn.h>
#include <histedit.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iostream>

#include "words.h"

namespace lmqctl {

namespace {

constexpr int lines_kept = 1000;
constexpr std::size_t most_shown = 120;

struct Library {
    decltype(&::el_init) init;
    decltype(&::el_end) end;
    decltype(&::el_set) set;
    decltype(&::el_get) get;
    decltype(&::el_gets) gets;
    decltype(&::el_line) line;
    decltype(&::el_insertstr) insert;
    decltype(&::el_source) source;
    decltype(&::history) history;
    decltype(&::history_init) history_init;
    decltype(&::history_end) history_end;
};

template <class Function>
bool find(void *library, const char *name, Function &function) {
    function = reinterpret_cast<Function>(dlsym(library, name));
    return function != nullptr;
}

const Library *library() {
    static Library functions;
    void *handle = dlopen("libedit.so.2", RTLD_NOW | RTLD_LOCAL);
    if (!handle) return nullptr;
    const bool is_whole = find(handle, "el_init", functions.init) && find(handle, "el_end", functions.end) &&
                          find(handle, "el_set", functions.set) && find(handle, "el_get", functions.get) &&
                          find(handle, "el_gets", functions.gets) && find(handle, "el_line", functions.line) &&
                          find(handle, "el_insertstr", functions.insert) &&
                          find(handle, "el_source", functions.source) && find(handle, "history", functions.history) &&
                          find(handle, "history_init", functions.history_init) &&
                          find(handle, "history_end", functions.history_end);
    return is_whole ? &functions : nullptr;
}

// What all the candidates begin with.
std::string common(const std::vector<Completion> &candidates) {
    std::string begin = candidates[0].text;
    for (const Completion &each : candidates) {
        std::size_t same = 0;
        while (same < begin.size() && same < each.text.size() && begin[same] == each.text[same]) ++same;
        begin.resize(same);
    }
    return begin;
}

// The candidates side by side, without the part of the word that is settled: "wd_enable= wd_timer=".
void show(const std::vector<Completion> &candidates, const std::string &typed) {
    const std::size_t settled = typed.find_last_of(".=|,") + 1;
    winsize window{};
    const std::size_t columns = ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) == 0 && window.ws_col ? window.ws_col : 80;
    std::size_t widest = 0;
    for (const Completion &each : candidates) widest = std::max(widest, each.text.size() - settled + 2);
    const std::size_t across = std::max<std::size_t>(1, columns / widest);
    std::string text = "\n";
    const std::size_t shown = std::min(candidates.size(), most_shown);
    for (std::size_t i = 0; i < shown; ++i) {
        std::string cell = candidates[i].text.substr(settled);
        const bool is_last = (i + 1) % across == 0 || i + 1 == shown;
        if (!is_last) cell.resize(widest, ' ');
        text += cell + (is_last ? "\n" : "");
    }
    if (shown < candidates.size()) text += "and " + std::to_string(candidates.size() - shown) + " more\n";
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}

}  // namespace

struct LineEditor::State {
    std::string prompt, history_file;
    Completer completer;
    const Library *edit = library();
    EditLine *editor = nullptr;
    History *history = nullptr;
    HistEvent event{};
    bool is_dropped = false;

    static State &of(EditLine *editor) {
        void *state = nullptr;
        library()->get(editor, EL_CLIENTDATA, &state);
        return *static_cast<State *>(state);
    }

    static char *prompt_of(EditLine *editor) { return of(editor).prompt.data(); }

    static unsigned char drop(EditLine *editor, int) {
        of(editor).is_dropped = true;
        std::fputs("^C\n", stdout);
        return CC_NEWLINE;
    }

    static unsigned char tab(EditLine *editor, int) {
        State &state = of(editor);
        const LineInfo *info = state.edit->line(editor);
        const std::string before(info->buffer, static_cast<std::size_t>(info->cursor - info->buffer));
        const Words words = split_words(before);
        const std::string typed = words.ends_word ? "" : words.words.back();
        const std::vector<Completion> candidates = state.completer(before);
        if (candidates.empty()) return CC_REFRESH_BEEP;
        std::string more = common(candidates).substr(typed.size());
        if (candidates.size() == 1 && candidates[0].is_whole) {
            if (words.open_quote) more += words.open_quote;
            more += ' ';
        }
        if (!more.empty()) return state.edit->insert(editor, more.c_str()) == 0 ? CC_REFRESH : CC_ERROR;
        show(candidates, typed);
        return CC_REDISPLAY;
    }
};

LineEditor::LineEditor(const std::string &prompt, const std::string &history, Completer completer)
    : state_(std::make_unique<State>()) {
    State &state = *state_;
    state.prompt = prompt;
    state.history_file = history;
    state.completer = std::move(completer);
    if (!state.edit) return;
    state.editor = state.edit->init("lmqctl", stdin, stdout, stderr);
    if (!state.editor) return;
    const auto set = state.edit->set;
    set(state.editor, EL_CLIENTDATA, &state);
    set(state.editor, EL_PROMPT, State::prompt_of);
    set(state.editor, EL_EDITOR, "emacs");
    set(state.editor, EL_ADDFN, "lmqctl-complete", "Complete the word", State::tab);
    set(state.editor, EL_ADDFN, "lmqctl-drop", "Drop the line", State::drop);
    set(state.editor, EL_BIND, "^I", "lmqctl-complete", nullptr);
    // While a line is edited, Ctrl-C is a key; while a command runs, a signal.
    set(state.editor, EL_SETTY, "-d", "-isig", nullptr);
    set(state.editor, EL_BIND, "^C", "lmqctl-drop", nullptr);
    set(state.editor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
    state.history = state.edit->history_init();
    if (state.history) {
        state.edit->history(state.history, &state.event, H_SETSIZE, lines_kept);
        state.edit->history(state.history, &state.event, H_SETUNIQUE, 1);
        if (!history.empty()) state.edit->history(state.history, &state.event, H_LOAD, history.c_str());
        set(state.editor, EL_HIST, state.edit->history, state.history);
    }
    state.edit->source(state.editor, nullptr);
}

LineEditor::~LineEditor() {
    if (state_->history) state_->edit->history_end(state_->history);
    if (state_->editor) state_->edit->end(state_->editor);
}

void LineEditor::set_prompt(const std::string &prompt) { state_->prompt = prompt; }

LineEditor::Result LineEditor::read(std::string &line) {
    State &state = *state_;
    if (!state.editor) {
        std::fputs(state.prompt.c_str(), stdout);
        std::fflush(stdout);
        return std::getline(std::cin, line) ? a_line : end;
    }
    int length = 0;
    state.is_dropped = false;
    // Before the prompt: whoever types at once is no longer in the mode in which Ctrl-C is a signal.
    state.edit->set(state.editor, EL_PREP_TERM, 1);
    const char *text = state.edit->gets(state.editor, &length);
    if (state.is_dropped) return dropped;
    if (!text || length <= 0) return end;
    line.assign(text, static_cast<std::size_t>(length));
    while (line.ends_with('\n') || line.ends_with('\r')) line.pop_back();
    // A line that begins with a blank is not remembered.
    if (state.history && !line.empty() && line[0] != ' ') {
        state.edit->history(state.history, &state.event, H_ENTER, line.c_str());
        // Saved with each line: a session may end in any way. The file is for its owner's eyes.
        const mode_t before = umask(077);
        if (!state.history_file.empty())
            state.edit->history(state.history, &state.event, H_SAVE, state.history_file.c_str());
        umask(before);
    }
    return a_line;
}

}  // namespace lmqctl
