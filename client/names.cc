// Patterns, nearest names, numbers.
#include "names.h"

#include <fnmatch.h>

#include <algorithm>
#include <charconv>
#include <numeric>

namespace lmqctl {

namespace {

// How many letters must be changed, added, left out or swapped with their neighbour.
std::size_t distance(std::string_view a, std::string_view b) {
    std::vector<std::vector<std::size_t>> rows(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
    for (std::size_t i = 0; i <= a.size(); ++i) rows[i][0] = i;
    std::iota(rows[0].begin(), rows[0].end(), std::size_t{0});
    for (std::size_t i = 1; i <= a.size(); ++i)
        for (std::size_t j = 1; j <= b.size(); ++j) {
            rows[i][j] =
                std::min({rows[i - 1][j] + 1, rows[i][j - 1] + 1, rows[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                rows[i][j] = std::min(rows[i][j], rows[i - 2][j - 2] + 1);
        }
    return rows.back().back();
}

}  // namespace

std::string lower(std::string_view text) {
    std::string result(text);
    for (char &letter : result)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return result;
}

bool glob(std::string_view pattern, std::string_view name) {
    return fnmatch(lower(pattern).c_str(), lower(name).c_str(), 0) == 0;
}

std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string> &names) {
    const std::string wanted = lower(typed);
    const std::size_t limit = std::max<std::size_t>(2, wanted.size() / 3);
    std::vector<std::pair<std::size_t, std::string>> found;
    for (const std::string &name : names) {
        const std::string candidate = lower(name);
        std::size_t off = distance(wanted, candidate);
        // A piece of a name is as good a sign as a slip of the finger.
        if (wanted.size() >= 3 && candidate.find(wanted) != std::string::npos) off = std::min(off, limit);
        if (off <= limit) found.emplace_back(off, name);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::vector<std::string> result;
    for (const auto &[off, name] : found)
        if (result.size() < 3 && std::find(result.begin(), result.end(), name) == result.end()) result.push_back(name);
    return result;
}

std::string did_you_mean(std::string_view typed, const std::vector<std::string> &names) {
    const std::vector<std::string> near = nearest(typed, names);
    std::string text;
    for (std::size_t i = 0; i < near.size(); ++i)
        text += (i == 0 ? "" : i + 1 == near.size() ? " or " : ", ") + near[i];
    return text.empty() ? text : "; did you mean " + text + "?";
}

std::optional<int64_t> number(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) base = 16;
    if (text.starts_with("0b") || text.starts_with("0B")) base = 2;
    if (base != 10) text.remove_prefix(2);
    uint64_t value = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (failure != std::errc() || end != text.data() + text.size()) return {};
    if (negative && value > uint64_t{1} << 63) return {};
    return static_cast<int64_t>(negative ? 0 - value : value);
}

std::vector<std::string> split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

}  // namespace lmqctl
