// boards.toml, read and checked.
#include "boards.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#define TOML_HEADER_ONLY 1
#include <toml++/toml.h>

#include "error.h"
#include "file.h"
#include "names.h"

namespace lmqctl {

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> files() {
    const char *config = std::getenv("XDG_CONFIG_HOME"), *home = std::getenv("HOME");
    std::vector<fs::path> found;
    if (config && *config == '/')
        found.push_back(fs::path(config) / "lmqctl/boards.toml");
    else if (home && *home)
        found.push_back(fs::path(home) / ".config/lmqctl/boards.toml");
    found.emplace_back("/etc/lmqctl/boards.toml");
    return found;
}

[[noreturn]] void wrong(const fs::path &file, const toml::source_region &where, const std::string &what) {
    throw UsageError(file.string() + ":" + std::to_string(where.begin.line) + ": " + what);
}

bool is_before(const toml::node &a, const toml::node &b) {
    const toml::source_position &first = a.source().begin, &second = b.source().begin;
    return first.line < second.line || (first.line == second.line && first.column < second.column);
}

// One [boards.NAME].
class Reader {
  public:
    Reader(const fs::path &file, std::string name) : file_(file) { board_.name = std::move(name); }

    Board board(const toml::node &said) {
        const toml::table *table = said.as_table();
        if (!table) fail(said, "is no table; expected [boards." + board_.name + "] with a url");
        for (const auto &[key, value] : *table) take(std::string(key.str()), value);
        if (board_.connection.url.empty()) fail(said, "has no url");
        return board_;
    }

  private:
    [[noreturn]] void fail(const toml::node &at, const std::string &what) const {
        wrong(file_, at.source(), "board " + board_.name + " " + what);
    }

    void take(const std::string &key, const toml::node &value) {
        Connection &to = board_.connection;
        if (key == "groups") return take_groups(value);
        const std::pair<const char *, std::string *> texts[] = {
            {"url", &to.url},   {"user", &to.user}, {"cacert", &to.cacert},
            {"cert", &to.cert}, {"key", &to.key},   {"password-command", &to.password_command}};
        std::vector<std::string> keys{"groups"};
        for (const auto &[name, text] : texts) {
            keys.emplace_back(name);
            if (key != name) continue;
            *text = text_of(key, value);
            if (key == "url") to.url = with_path(to.url);
            if (text == &to.cacert || text == &to.cert || text == &to.key) *text = path_of(*text);
            return;
        }
        if (key == "password") fail(value, "has a password, which no file should hold; password-command prints it");
        fail(value, "has an unknown key " + key + did_you_mean(key, keys));
    }

    std::string text_of(const std::string &key, const toml::node &value) const {
        const toml::value<std::string> *text = value.as_string();
        if (!text || text->get().empty()) fail(value, "has no text for " + key);
        return text->get();
    }

    void take_groups(const toml::node &value) {
        const toml::array *list = value.as_array();
        if (!list) fail(value, R"(has no list for groups; expected ["NAME", ...])");
        for (const toml::node &group : *list) board_.groups.push_back(text_of("a group", group));
    }

    std::string path_of(const std::string &text) const {
        const char *home = std::getenv("HOME");
        if (home && text.starts_with("~/")) return (fs::path(home) / text.substr(2)).string();
        return (file_.parent_path() / text).string();
    }

    const fs::path &file_;
    Board board_;
};

void add_boards(const fs::path &file, std::vector<Board> &to) {
    toml::table whole;
    try {
        whole = toml::parse(read_text(file.string()), file.string());
    } catch (const toml::parse_error &error) {
        wrong(file, error.source(), std::string(error.description()));
    }
    for (const auto &[key, value] : whole)
        if (key != "boards")
            wrong(file, value.source(), std::string(key.str()) + " is not known; expected [boards.NAME]");
    if (whole.empty()) return;
    const toml::table *named = whole["boards"].as_table();
    if (!named) wrong(file, whole["boards"].node()->source(), "boards is no table; expected [boards.NAME]");
    std::vector<std::pair<std::string, const toml::node *>> entries;
    for (const auto &[name, said] : *named) entries.emplace_back(name.str(), &said);
    // The library keeps them by name.
    std::stable_sort(entries.begin(), entries.end(),
                     [](const auto &a, const auto &b) { return is_before(*a.second, *b.second); });
    for (const auto &[name, said] : entries) {
        if (name == "all" || name.empty() || name.find(',') != std::string::npos)
            wrong(file, said->source(), "a board cannot be called \"" + name + "\"");
        const Board board = Reader(file, name).board(*said);
        if (std::none_of(to.begin(), to.end(), [&](const Board &each) { return each.name == board.name; }))
            to.push_back(board);
    }
}

std::string no_such(const std::string &what, const std::string &typed, const std::vector<std::string> &names) {
    if (names.empty()) return typed + ": there are no boards; " + files()[0].string() + " names them";
    return typed + what + files()[0].string() + did_you_mean(typed, names);
}

}  // namespace

std::vector<Board> known_boards() {
    std::vector<Board> boards;
    std::error_code ignored;
    for (const fs::path &file : files())
        if (fs::exists(file, ignored)) add_boards(file, boards);
    return boards;
}

Board board_named(const std::string &name) {
    std::vector<std::string> names;
    for (const Board &board : known_boards()) {
        if (board.name == name) return board;
        names.push_back(board.name);
    }
    throw UsageError(no_such(" is no board of ", name, names));
}

std::vector<Board> boards_matching(const std::string &patterns) {
    const std::vector<Board> boards = known_boards();
    std::vector<std::string> names;
    for (const Board &board : boards) {
        names.push_back(board.name);
        names.insert(names.end(), board.groups.begin(), board.groups.end());
    }
    std::vector<bool> is_meant(boards.size());
    for (const std::string &pattern : split(patterns, ',')) {
        bool has_any = false;
        for (std::size_t i = 0; i < boards.size(); ++i) {
            const std::vector<std::string> &groups = boards[i].groups;
            if (pattern != "all" && !glob(pattern, boards[i].name) &&
                std::none_of(groups.begin(), groups.end(), [&](const auto &group) { return glob(pattern, group); }))
                continue;
            is_meant[i] = has_any = true;
        }
        if (!has_any) throw UsageError(no_such(" matches no board or group of ", pattern, names));
    }
    std::vector<Board> found;
    for (std::size_t i = 0; i < boards.size(); ++i)
        if (is_meant[i]) found.push_back(boards[i]);
    return found;
}

}  // namespace lmqctl
