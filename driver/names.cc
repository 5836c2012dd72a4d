// Looks names up in the tables that the build makes of the enums in the headers.
#include "driver/names.h"

#include <charconv>
#include <limits>

namespace lmq::sim {

namespace {

template <typename Enum>
struct Name {
    std::string_view name;
    Enum value;
};

constexpr Name<vx_status_e> status_names[] = {
#define xx(name) {#name, name},
#include "status_names.inc"
};

constexpr Name<vx_event_type_e> event_names[] = {
#include "event_names.inc"
#undef xx
};

template <typename Enum, std::size_t n>
std::optional<Enum> find(const Name<Enum> (&names)[n], std::string_view name) {
    for (const auto &known : names) {
        if (known.name == name) return known.value;
    }
    return std::nullopt;
}

}  // namespace

std::optional<int> number_of(std::string_view text) {
    const bool hexadecimal = text.starts_with("0x");
    if (hexadecimal) text.remove_prefix(2);
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, hexadecimal ? 16 : 10);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0) return std::nullopt;
    return number;
}

std::optional<vx_status_e> status_of(std::string_view name) { return find(status_names, name); }

std::optional<vx_event_type_e> event_of(std::string_view name) { return find(event_names, name); }

}  // namespace lmq::sim
