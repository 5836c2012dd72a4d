// Tables: rows under names, for people and for programs.
#pragma once

#include <string>
#include <vector>

#include "json.h"

namespace lmqctl {

struct Context;

struct Cell {
    std::string text;  ///< for people
    Json value;        ///< for programs
};

struct Table {
    std::vector<std::string> columns;  ///< their names, as members have them
    std::vector<std::vector<Cell>> rows;
};

/// The names in capitals, then the rows, in columns that are as wide as they need to be. A row that is shorter than the
/// others may end in a remark of any width.
std::string table_text(const Table &table);

/// A list with an object for each row.
Json table_json(const Table &table);

/// Between programs: nothing is lost.
std::string packed(const Table &table);
/// Throws a Json::exception for what `packed` has not made.
Table unpacked(const std::string &text);

/// Puts it out as the context wants it: for people, for programs, or for the lmqctl that makes one table of many.
void show(const Context &context, const Table &table);

}  // namespace lmqctl
