// One thing done at many boards at once.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "boards.h"
#include "context.h"

namespace CLI {
class App;
}

namespace lmqctl {

/// What came of it at a board.
struct BoardAnswer {
    const Board *board;
    int exit_status;
    std::string output, errors;
    std::string table;  ///< packed; empty if there was none
};

/// Does `action` at each board, in a process of its own and with a context that leads there, some at a time. What it
/// prints, and hands over, is collected. `take` gets the answers as they come.
void at_each(const Context &context, const std::vector<Board> &boards, const std::function<int(Context &)> &action,
             const std::function<void(const BoardAnswer &)> &take);

/// Carries out a line at the boards that context.on names: `words` are all of it, `app` has parsed them. {board} in a
/// word stands for the board's name. Prints what came, and returns the highest exit status.
int on_many(const Context &context, const CLI::App &app, const std::vector<std::string> &words);

/// The connection to a board: what the line says counts more than the file.
Connection connection_to(const Board &board, const Connection &said);

}  // namespace lmqctl
