// What the contract says of a function's arguments: the directions and lengths that C does not tell. The build makes a
// table of them from the headers' comments (interface/remote_table.py), one constant terms_FUNCTION for each function.
#pragma once

#include <cstdint>

namespace lmq::remote {

enum class Direction : std::uint8_t { in, out, inout };

/// Where the number of elements that a pointer stands for comes from.
enum class Length : std::uint8_t {
    number,  ///< It is fixed.
    value,   ///< Another argument says it.
    pointee  ///< Another argument points to it.
};

/// Stands for no argument.
inline constexpr std::uint8_t none = 0xFF;

/// One argument. What follows the direction is of pointers alone.
struct Terms {
    Direction direction = Direction::in;
    Length length = Length::number;
    std::uint8_t from = none;    ///< The argument that says the length, counted from 0.
    std::uint16_t number = 1;    ///< The length, or what the other argument is multiplied with.
    std::uint16_t if_zero = 0;   ///< The length when the other argument is 0.
    std::uint32_t most = ~0U;    ///< The largest number that the driver takes in that argument.
    std::uint8_t filled = none;  ///< The argument that points to the number of elements that the driver has filled.
};

#include "remote_terms.inc"

}  // namespace lmq::remote
