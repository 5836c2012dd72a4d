// The boards that the user has given names to, in files that other programs read as well.
#pragma once

#include <string>
#include <vector>

#include "connection.h"

namespace lmqctl {

struct Board {
    std::string name;
    std::vector<std::string> groups;
    Connection connection;
};

/// Of the user's file and of the machine's behind it, each in its own order; a name that both have is the user's. Names
/// of files in a boards file are taken from its folder. Throws a UsageError that names file, line and key.
std::vector<Board> known_boards();

/// Throws a UsageError with the nearest names.
Board board_named(const std::string &name);

/// Those whose name or group matches one of the patterns that commas separate; "all" means all. Throws a UsageError for
/// a pattern that matches none.
std::vector<Board> boards_matching(const std::string &patterns);

}  // namespace lmqctl
