// The time of day in UTC.
#include "time_text.h"

#include <cstdio>
#include <ctime>

namespace lmqctl {

std::string now_text() {
    timespec time{};
    clock_gettime(CLOCK_REALTIME, &time);
    tm parts{};
    gmtime_r(&time.tv_sec, &parts);
    char text[64];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &parts);
    std::snprintf(text + length, sizeof text - length, ".%03ldZ", time.tv_nsec / 1000000);
    return text;
}

}  // namespace lmqctl
