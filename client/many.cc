// A process for each board: what is said of one stays with it, and one that hangs holds up nobody.
#include "many.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>

#include "error.h"
#include "file.h"
#include "password.h"
#include "program.h"
#include "progress.h"
#include "standard_output.h"
#include "table.h"

namespace lmqctl {

namespace {

constexpr std::size_t most_at_once = 32;

void write_all(int to, const std::string &text) {
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t count = write(to, text.data() + done, text.size() - done);
        if (count <= 0) return;
        done += static_cast<std::size_t>(count);
    }
}

class Child {
  public:
    /// Pipes from it.
    static constexpr std::size_t streams = 3;

    Child(const Context &context, const Board &board, const std::function<int(Context &)> &action) : board_(board) {
        std::array<std::array<int, 2>, streams> pipes{};
        for (auto &each : pipes)
            if (pipe2(each.data(), O_CLOEXEC) != 0)
                throw Error(exit_output, std::string("pipe: ") + std::strerror(errno));
        process_ = fork();
        if (process_ < 0) throw Error(exit_output, std::string("fork: ") + std::strerror(errno));
        if (process_ == 0) {
            dup2(pipes[output][1], STDOUT_FILENO);
            dup2(pipes[errors][1], STDERR_FILENO);
            be_one(context, board, action, pipes[tables][1]);
        }
        for (std::size_t stream = 0; stream < streams; ++stream) {
            close(pipes[stream][1]);
            from_[stream] = pipes[stream][0];
        }
    }
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    ~Child() {
        for (const int descriptor : from_)
            if (descriptor >= 0) close(descriptor);
    }

    void add_to(std::vector<pollfd> &waiting) const {
        for (const int descriptor : from_) waiting.push_back({descriptor, POLLIN, 0});
    }

    /// Takes what has come. True at the end of all streams.
    bool is_done(const pollfd *found) {
        for (std::size_t stream = 0; stream < streams; ++stream) {
            if (from_[stream] < 0 || !found[stream].revents) continue;
            char buffer[65536];
            const ssize_t count = read(from_[stream], buffer, sizeof buffer);
            if (count > 0) {
                said_[stream].append(buffer, static_cast<std::size_t>(count));
            } else if (count == 0 || errno != EINTR) {
                close(from_[stream]);
                from_[stream] = -1;
            }
        }
        return std::all_of(from_.begin(), from_.end(), [](int descriptor) { return descriptor < 0; });
    }

    BoardAnswer answer() {
        int status = 0;
        while (waitpid(process_, &status, 0) < 0 && errno == EINTR) continue;
        const int exit_status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
        return {&board_, exit_status, said_[output], said_[errors], said_[tables]};
    }

  private:
    enum Stream { output, errors, tables };

    [[noreturn]] static void be_one(const Context &context, const Board &board,
                                    const std::function<int(Context &)> &action, int tables_to) {
        Context own;
        own.json = context.json;
        own.verbose = context.verbose;
        own.refresh = context.refresh;
        own.connection = connection_to(board, context.connection);
        own.one_of_many = &board;
        own.hand_over = [tables_to](const std::string &table) { write_all(tables_to, table); };
        const int status = with_errors_said(own, [&] { return action(own); });
        std::fflush(nullptr);
        _exit(status);
    }

    const Board &board_;
    pid_t process_ = -1;
    std::array<int, streams> from_{};
    std::array<std::string, streams> said_;
};

}  // namespace

Connection connection_to(const Board &board, const Connection &said) {
    Connection merged = board.connection;
    for (std::string Connection::*member :
         {&Connection::user, &Connection::password, &Connection::cacert, &Connection::cert, &Connection::key})
        if (!(said.*member).empty()) merged.*member = said.*member;
    merged.timeout = said.timeout;
    return merged;
}

void at_each(const Context &context, const std::vector<Board> &boards, const std::function<int(Context &)> &action,
             const std::function<void(const BoardAnswer &)> &take) {
    // A password that has to be typed is typed once for a user.
    std::vector<Board> known = boards;
    std::map<std::string, std::string> typed;
    for (Board &board : known) {
        Connection connection = connection_to(board, context.connection);
        if (!is_asked_for(connection)) continue;
        if (!typed.contains(connection.user)) typed[connection.user] = password_of(connection);
        board.connection.password = typed[connection.user];
    }
    Progress progress("boards", boards.size());
    std::vector<std::unique_ptr<Child>> children;
    std::size_t next = 0, done = 0;
    flush();
    while (done < known.size()) {
        while (next < known.size() && children.size() < most_at_once)
            children.push_back(std::make_unique<Child>(context, known[next++], action));
        std::vector<pollfd> waiting;
        for (const auto &child : children) child->add_to(waiting);
        if (poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
            throw Error(exit_output, std::string("poll: ") + std::strerror(errno));
        std::size_t at = 0;
        const auto ended = [&](const std::unique_ptr<Child> &child) {
            return child->is_done(&waiting[Child::streams * at++]);
        };
        const auto first = std::stable_partition(children.begin(), children.end(),
                                                 [&](const std::unique_ptr<Child> &child) { return !ended(child); });
        for (auto child = first; child != children.end(); ++child) {
            BoardAnswer answer = (*child)->answer();
            answer.board = &boards[static_cast<std::size_t>(answer.board - known.data())];
            progress.reached(++done);
            take(answer);
        }
        children.erase(first, children.end());
    }
}

namespace {

// Why a board is not in the table.
std::string remark(const BoardAnswer &answer) {
    if (answer.exit_status == exit_connection) return "(no connection)";
    std::string line = answer.output.empty() ? answer.errors : answer.output;
    line = line.substr(0, line.find('\n'));
    if (line.starts_with("lmqctl: ")) line.erase(0, 8);
    if (line.empty()) line = "ended with status " + std::to_string(answer.exit_status);
    return "(" + line + ")";
}

std::string with_margin(const std::string &text, const std::string &margin) {
    std::string result;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        result += margin + text.substr(begin, end - begin);
        begin = end;
    }
    return result;
}

void say_errors(const BoardAnswer &answer) {
    std::fputs(with_margin(answer.errors, answer.board->name + ": ").c_str(), stderr);
}

// What a line leaves at each board, shown as the line wants it.
class Answers {
  public:
    enum Form { blocks, lines_of_json, table };

    Answers(Form form, const std::vector<Board> &boards) : form_(form), boards_(boards), got_(boards.size()) {}

    void take(const BoardAnswer &answer) {
        worst_ = std::max(worst_, answer.exit_status);
        got_[static_cast<std::size_t>(answer.board - boards_.data())] = answer;
        if (form_ == blocks) print_block(answer);
        // In the order of the file, as soon as it is known.
        for (; form_ == lines_of_json && next_ < got_.size() && got_[next_]; ++next_) print_json(*got_[next_]);
        flush();
    }

    int finish() {
        if (form_ != table) return worst_;
        print_table();
        flush();
        for (const auto &answer : got_) say_errors(*answer);
        return worst_;
    }

  private:
    static void print_block(const BoardAnswer &answer) {
        if (answer.output.empty() && answer.exit_status != exit_ok)
            print(answer.board->name + "  " + remark(answer) + "\n");
        else
            print(answer.board->name + "\n" + with_margin(answer.output, "  ") +
                  (answer.output.empty() || answer.output.ends_with('\n') ? "" : "\n"));
        flush();
        say_errors(answer);
    }

    static void print_json(const BoardAnswer &answer) {
        const Json parsed = Json::parse(answer.output, nullptr, false);
        Json line{{"board", answer.board->name}, {"exit", answer.exit_status}};
        if (!answer.output.empty()) line["answer"] = parsed.is_discarded() ? Json(answer.output) : parsed;
        if (!answer.errors.empty()) line["error"] = answer.errors.substr(0, answer.errors.find_last_not_of('\n') + 1);
        print(json_text(line) + "\n");
    }

    void print_table() const {
        Table all{{"board"}, {}};
        bool has_columns = false;
        for (const auto &answer : got_) {
            const Cell name{answer->board->name, answer->board->name};
            if (answer->table.empty()) {
                all.rows.push_back({name, {remark(*answer), nullptr}});
                continue;
            }
            const Table one = unpacked(answer->table);
            if (!has_columns) all.columns.insert(all.columns.end(), one.columns.begin(), one.columns.end());
            has_columns = true;
            for (const std::vector<Cell> &row : one.rows) {
                all.rows.push_back({name});
                all.rows.back().insert(all.rows.back().end(), row.begin(), row.end());
            }
        }
        // So that a remark stands behind the names.
        all.columns.resize(std::max<std::size_t>(all.columns.size(), 2));
        print(table_text(all));
    }

    const Form form_;
    const std::vector<Board> &boards_;
    std::vector<std::optional<BoardAnswer>> got_;
    std::size_t next_ = 0;
    int worst_ = exit_ok;
};

bool replace_board(std::string &word, const std::string &name) {
    bool found = false;
    for (std::size_t at = 0; (at = word.find("{board}", at)) != std::string::npos; at += name.size(), found = true)
        word.replace(at, 7, name);
    return found;
}

// A file that each board would write in its turn, or standard input that each would read, and commands without an end.
void refuse_what_cannot_be(const CLI::App &command, const std::vector<std::string> &words) {
    const std::string name = command.get_name();
    for (const char *single : {"repl", "watch", "run", "boards"})
        if (name == single) throw UsageError("--on: " + name + " is for one board at a time; --board names it");
    if (std::find(words.begin(), words.end(), "-") != words.end())
        throw UsageError("--on: standard input and output cannot be shared out among boards; name a file");
    const CLI::Option *file = command.get_option_no_throw("FILE");
    const bool writes = name == "snapshot" || name == "save";
    if (std::string board = file && writes ? file->results()[0] : "{board}"; !replace_board(board, ""))
        throw UsageError("--on: all boards would write " + board + "; {board} in it stands for a board's name");
}

}  // namespace

int on_many(const Context &context, const CLI::App &app, const std::vector<std::string> &words) {
    const CLI::App &command = *app.get_subcommands().at(0);
    refuse_what_cannot_be(command, words);
    const CLI::Option *columns = command.get_option_no_throw("--columns");
    const bool is_table = columns && (columns->count() > 0 || command.get_name() == "get");
    const std::vector<Board> boards = boards_matching(context.on);
    Answers answers(context.json ? Answers::lines_of_json : is_table ? Answers::table : Answers::blocks, boards);
    const auto line = [&](Context &own) {
        std::vector<std::string> its = words;
        for (std::string &word : its) replace_board(word, own.one_of_many->name);
        return carry_out(own, its);
    };
    at_each(context, boards, line, [&](const BoardAnswer &answer) { answers.take(answer); });
    return answers.finish();
}

}  // namespace lmqctl
