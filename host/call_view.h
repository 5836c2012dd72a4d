// A packed call as its parts: the method, and each argument as the bytes of its value. A system.multicall is the calls
// within it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>

#include "packed_call.h"

namespace lmq::host {

/// An argument: a value of a packed call.
class ArgumentView {
  public:
    ArgumentView() = default;
    explicit ArgumentView(std::string_view bytes) : bytes_(bytes) {}

    Item form() const { return static_cast<Item>(bytes_.front()); }

    /// The value behind its Item.
    std::string_view content() const { return bytes_.substr(1); }

    /// Items of an array; 1 for every other value.
    std::size_t elements() const;

    /// The number that a driver reads through a pointer to it: an int, or the first one in an array.
    std::optional<std::int32_t> number() const;

  private:
    std::string_view bytes_;
};

struct CallView {
    std::string_view method;
    /// No driver function has more arguments.
    std::array<ArgumentView, 8> arguments;
    /// How many the client sent; those beyond the eighth are not kept.
    std::size_t count = 0;
};

/// Shows each call that a document is about.
/// @param packed What a Packer made, also of a call that it could not pack whole.
/// @param look   Gets a call; returns whether to go on.
void for_each_call(std::string_view packed, const std::function<bool(const CallView &)> &look);

}  // namespace lmq::host
