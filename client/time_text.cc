// Times in UTC, written and read.
#include "time_text.h"

#include <charconv>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace lmqctl {

namespace {

constexpr int64_t second = 1'000'000, day = 86'400 * second;

// "90s", "1.5h".
std::optional<int64_t> duration_of(const std::string &text) {
    double count = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), count);
    const std::string unit(end, text.data() + text.size());
    const int64_t each = unit == "s"   ? second
                         : unit == "m" ? 60 * second
                         : unit == "h" ? 3600 * second
                         : unit == "d" ? day
                                       : 0;
    if (failure != std::errc() || each == 0 || count < 0 || count > 1e6) return {};
    return static_cast<int64_t>(count * static_cast<double>(each));
}

// "12:00", "12:00:07.5", perhaps with a Z behind it.
std::optional<int64_t> time_of_day(std::string text) {
    if (text.ends_with('Z')) text.pop_back();
    int hour = 0, minute = 0, used = 0;
    if (std::sscanf(text.c_str(), "%2d:%2d%n", &hour, &minute, &used) != 2 || hour > 23 || minute > 59 || hour < 0 ||
        minute < 0)
        return {};
    double seconds = 0;
    const std::string rest = text.substr(static_cast<std::size_t>(used));
    if (!rest.empty()) {
        const auto [end, failure] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), seconds);
        if (rest[0] != ':' || failure != std::errc() || end != rest.data() + rest.size() || seconds < 0 ||
            seconds >= 61)
            return {};
    }
    return (hour * 60 + minute) * 60 * second + static_cast<int64_t>(seconds * static_cast<double>(second));
}

}  // namespace

std::string time_text(int64_t microseconds) {
    const std::time_t seconds = microseconds / second;
    tm parts{};
    gmtime_r(&seconds, &parts);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof text - length, ".%03dZ", static_cast<int>(microseconds / 1000 % 1000));
    return text;
}

int64_t now_microseconds() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

std::string now_text() { return time_text(now_microseconds()); }

std::optional<int64_t> time_of(const std::string &text) {
    if (const auto ago = duration_of(text)) return now_microseconds() - *ago;
    if (const auto time = time_of_day(text)) return now_microseconds() / day * day + *time;
    tm parts{};
    int used = 0;
    if (std::sscanf(text.c_str(), "%4d-%2d-%2d%n", &parts.tm_year, &parts.tm_mon, &parts.tm_mday, &used) != 3)
        return {};
    if (parts.tm_mon < 1 || parts.tm_mon > 12 || parts.tm_mday < 1 || parts.tm_mday > 31) return {};
    parts.tm_year -= 1900;
    parts.tm_mon -= 1;
    const std::string rest = text.substr(static_cast<std::size_t>(used));
    const auto time = rest.empty() ? std::optional<int64_t>(0) : time_of_day(rest.substr(1));
    if (!time || (!rest.empty() && rest[0] != 'T' && rest[0] != ' ')) return {};
    return timegm(&parts) * second + *time;
}

}  // namespace lmqctl
