// Reads from the environment how the clock runs.
#include "driver/clock.h"

#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace lmq::sim {

std::optional<Clock::Time> Clock::step_from_environment() {
    const char *value = std::getenv("LMQ_SIM_CLOCK");
    if (value == nullptr) return std::nullopt;

    const std::string_view text = value;
    unsigned step = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), step);
    if (error != std::errc{} || end != text.data() + text.size() || step > 1000000) {
        throw std::invalid_argument("LMQ_SIM_CLOCK is \"" + std::string(text) +
                                    "\": expected the milliseconds that a call takes, 0 to 1000000");
    }
    return Time(step);
}

}  // namespace lmq::sim
