// A bar on one line of standard error, drawn over itself.
#include "progress.h"

#include <unistd.h>

#include <cstdio>

namespace lmqctl {

Progress::Progress(std::string what, std::size_t all)
    : what_(std::move(what)), all_(all), shown_(isatty(STDERR_FILENO) != 0) {
    reached(0);
}

Progress::~Progress() {
    if (shown_) std::fputs("\r\033[K", stderr);
}

void Progress::reached(std::size_t count) {
    if (!shown_ || all_ == 0) return;
    constexpr std::size_t width = 40;
    const std::size_t filled = width * count / all_;
    std::fprintf(stderr, "\r%s [%s%s] %zu of %zu\033[K", what_.c_str(), std::string(filled, '#').c_str(),
                 std::string(width - filled, '.').c_str(), count, all_);
}

}  // namespace lmqctl
