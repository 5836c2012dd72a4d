// lmqctl boards: which there are, and what answers at each.
#include "boards.h"
#include "command.h"
#include "error.h"
#include "many.h"
#include "standard_output.h"
#include "table.h"

namespace lmqctl {

namespace {

// How many methods of the interface the host offers to this user: by then name, way, login and worker are all right.
int probe(Context &own) {
    const Json names = own.session().call("system.listMethods");
    std::size_t count = 0;
    for (const Json &name : names) count += !name.get<std::string>().starts_with("system.");
    print(std::to_string(count) + " methods");
    return exit_ok;
}

std::string with_commas(const std::vector<std::string> &words) {
    std::string text;
    for (const std::string &word : words) text += (text.empty() ? "" : ", ") + word;
    return text;
}

// What stands behind the URL in an error of the connection, without the hints.
std::string reason(const BoardAnswer &answer) {
    std::string text = answer.errors.substr(0, answer.errors.find_first_of(";\n"));
    const std::string head = "lmqctl: " + answer.board->connection.url + ": ";
    return text.starts_with(head) ? text.substr(head.size()) : text;
}

void list_boards(Context &context, const std::string &patterns) {
    const std::vector<Board> boards = boards_matching(patterns);
    Table table{{"board", "url", "groups", "answer"}, {}};
    for (const Board &board : boards) {
        const std::string groups = with_commas(board.groups);
        table.rows.push_back(
            {{board.name, board.name}, {board.connection.url, board.connection.url}, {groups, board.groups}, {}});
    }
    at_each(context, boards, probe, [&](const BoardAnswer &answer) {
        const std::string text = answer.exit_status == exit_ok ? answer.output : "(" + reason(answer) + ")";
        table.rows[static_cast<std::size_t>(answer.board - boards.data())].back() = {
            text, answer.exit_status == exit_ok ? Json(text) : Json()};
        context.exit_status = std::max(context.exit_status, answer.exit_status);
    });
    show(context, table);
}

}  // namespace

void set_up_boards(CLI::App &command, Context &context) {
    const auto patterns = std::make_shared<std::string>("all");
    command.add_option("BOARDS", *patterns, "Patterns of names and groups, with commas between")->capture_default_str();
    command.callback([&context, patterns] { list_boards(context, *patterns); });
}

}  // namespace lmqctl
