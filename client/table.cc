// Tables as texts.
#include "table.h"

#include <algorithm>

#include "context.h"
#include "standard_output.h"

namespace lmqctl {

namespace {

// Signs, of which a byte of UTF-8 that goes on is none.
std::size_t width_of(const std::string &text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xc0) != 0x80; }));
}

std::string capitals(std::string text) {
    for (char &letter : text)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return text;
}

}  // namespace

std::string table_text(const Table &table) {
    std::vector<std::vector<std::string>> lines(1);
    for (const std::string &name : table.columns) lines[0].push_back(capitals(name));
    for (const std::vector<Cell> &row : table.rows) {
        lines.emplace_back();
        for (const Cell &cell : row) lines.back().push_back(cell.text);
    }
    std::vector<std::size_t> widths(table.columns.size());
    for (const std::vector<std::string> &line : lines) {
        // What ends a short row stands alone, and makes no column wide.
        const std::size_t counted = line.size() < widths.size() ? line.size() - 1 : line.size();
        for (std::size_t i = 0; i < counted; ++i) widths[i] = std::max(widths[i], width_of(line[i]));
    }
    std::string text;
    for (const std::vector<std::string> &line : lines) {
        std::string shown;
        for (std::size_t i = 0; i < line.size(); ++i) {
            shown += line[i];
            const std::size_t width = width_of(line[i]);
            shown.append(width < widths[i] ? widths[i] - width + 2 : 2, ' ');
        }
        shown.erase(shown.find_last_not_of(' ') + 1);
        text += shown + "\n";
    }
    return text;
}

Json table_json(const Table &table) {
    Json rows = Json::array();
    for (const std::vector<Cell> &row : table.rows) {
        Json object = Json::object();
        for (std::size_t i = 0; i < row.size(); ++i) object[table.columns[i]] = row[i].value;
        rows.push_back(std::move(object));
    }
    return rows;
}

std::string packed(const Table &table) {
    Json rows = Json::array();
    for (const std::vector<Cell> &row : table.rows) {
        Json cells = Json::array();
        for (const Cell &cell : row) cells.push_back({cell.text, cell.value});
        rows.push_back(std::move(cells));
    }
    return json_text({{"columns", table.columns}, {"rows", rows}});
}

Table unpacked(const std::string &text) {
    const Json whole = Json::parse(text);
    Table table{whole.at("columns"), {}};
    for (const Json &row : whole.at("rows")) {
        table.rows.emplace_back();
        for (const Json &cell : row) table.rows.back().push_back({cell.at(0), cell.at(1)});
    }
    return table;
}

void show(const Context &context, const Table &table) {
    if (context.hand_over && !context.json)
        context.hand_over(packed(table));
    else
        print(context.json ? json_text(table_json(table), 2) + "\n" : table_text(table));
}

}  // namespace lmqctl
