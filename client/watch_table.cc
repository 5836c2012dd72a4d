// Rows, sparklines, and the terminal's size.
#include "watch_table.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "names.h"

namespace lmqctl {

namespace {

constexpr std::size_t value_width = 20, rate_width = 14, most_rates = 40;
constexpr double no_rate = -1;

struct Size {
    std::size_t lines = 24, columns = 80;
};

Size terminal_size() {
    winsize window{};
    Size size;
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &window) != 0) return size;
    if (window.ws_row) size.lines = window.ws_row;
    if (window.ws_col) size.columns = window.ws_col;
    return size;
}

bool shows_utf8() {
    for (const char *name : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char *value = std::getenv(name); value && *value) {
            const std::string text = lower(value);
            return text.find("utf-8") != std::string::npos || text.find("utf8") != std::string::npos;
        }
    return false;
}

// A column for each rate, as high as it is beside the highest.
std::string sparkline(const std::deque<double> &rates, std::size_t width) {
    static constexpr const char *blocks[] = {"\u2581", "\u2582", "\u2583", "\u2584",
                                             "\u2585", "\u2586", "\u2587", "\u2588"};
    static constexpr const char *letters[] = {"_", ".", "-", ":", "=", "+", "*", "#"};
    static const bool is_utf8 = shows_utf8();
    const std::size_t shown = std::min(width, rates.size());
    const auto begin = rates.end() - static_cast<std::ptrdiff_t>(shown);
    const double highest = shown ? *std::max_element(begin, rates.end()) : 0;
    std::string text;
    for (auto rate = begin; rate != rates.end(); ++rate) {
        const auto level = static_cast<std::size_t>(highest > 0 ? std::lround(std::max(*rate, 0.0) / highest * 7) : 0);
        text += *rate < 0 ? " " : is_utf8 ? blocks[level] : letters[level];
    }
    return text;
}

// The end of a text says more than its beginning.
std::string end_of(const std::string &text, std::size_t width) {
    if (text.size() <= width) return text;
    return width < 4 ? text.substr(text.size() - width) : "..." + text.substr(text.size() - width + 3);
}

std::string left(std::string text, std::size_t width) {
    text.resize(std::max(width, text.size()), ' ');
    return text;
}

std::string right(const std::string &text, std::size_t width) {
    return (text.size() < width ? std::string(width - text.size(), ' ') : "") + text;
}

}  // namespace

std::string rate_text(double rate) {
    char text[48];
    std::snprintf(text, sizeof text, rate == std::floor(rate) && std::fabs(rate) < 1e15 ? "%.0f" : "%.1f", rate);
    return text;
}

std::string WatchTable::row(const WatchedRow &row, std::size_t name_width, std::size_t columns) const {
    std::string line = left(end_of(row.name, name_width), name_width) + " " + right(row.value, value_width) + " " +
                       right(row.rate ? rate_text(*row.rate) + "/s" : "", rate_width);
    if (line.size() > columns) {
        // A narrow terminal has no room for both; the value counts.
        line = left(end_of(row.name, name_width), name_width) + " " + right(row.value, value_width);
        return line.substr(0, columns);
    }
    const std::size_t room = columns - line.size();
    const auto rates = rates_.find(row.name);
    return line + (room > 8 && rates != rates_.end() ? "  " + sparkline(rates->second, room - 3) : "");
}

std::string WatchTable::screen(const std::string &head, const std::vector<std::string> &failures,
                               const std::vector<WatchedRow> &rows, bool full) {
    const Size size = terminal_size();
    std::vector<std::string> lines{head.substr(0, size.columns)};
    for (const std::string &failure : failures)
        if (lines.size() + 2 < size.lines) lines.push_back(failure.substr(0, size.columns));
    std::vector<const WatchedRow *> shown;
    std::size_t zeros = 0, widest = 0;
    for (const WatchedRow &row : rows) {
        std::deque<double> &rates = rates_[row.name];
        rates.push_back(row.rate.value_or(no_rate));
        if (rates.size() > most_rates) rates.pop_front();
        if (row.is_zero && !full) ++zeros;
        if (row.value.empty() || (row.is_zero && !full)) continue;
        shown.push_back(&row);
        widest = std::max(widest, row.name.size());
    }
    const std::size_t fixed = value_width + rate_width + 2;
    const std::size_t name_width = std::min(widest, size.columns > fixed + 16 ? size.columns - fixed : std::size_t{16});
    // The last line says what is not there.
    const std::size_t left_over = size.lines - std::min(size.lines, lines.size() + 1);
    const std::size_t fitting = shown.size() + (zeros ? 1 : 0) <= left_over + 1 ? shown.size() : left_over;
    for (std::size_t i = 0; i < fitting; ++i) lines.push_back(row(*shown[i], name_width, size.columns));
    std::string rest;
    if (fitting < shown.size())
        rest = std::to_string(shown.size() - fitting) + " more; --columns chooses, a larger window shows more";
    if (zeros) rest += (rest.empty() ? "" : "; ") + std::to_string(zeros) + (rest.empty() ? " more" : "") + ", all 0";
    if (!rest.empty()) lines.push_back(("(" + rest + ")").substr(0, size.columns));
    std::string text = "\033[H";
    for (std::size_t i = 0; i < lines.size(); ++i) text += (i ? "\n" : "") + lines[i] + "\033[K";
    return text + "\033[J";
}

}  // namespace lmqctl
