// Formatting of the time.
#include "timestamp.h"

#include <cstdio>
#include <ctime>

namespace lmq::host {

std::string timestamp(std::chrono::system_clock::time_point time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const auto rest = std::chrono::floor<std::chrono::milliseconds>(time - seconds);
    const std::time_t whole = std::chrono::system_clock::to_time_t(seconds);
    tm parts{};
    gmtime_r(&whole, &parts);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof text - length, ".%03dZ", static_cast<int>(rest.count()));
    return text;
}

}  // namespace lmq::host
