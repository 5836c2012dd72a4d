// Reading of packed calls (packed_call.h): by the guard, which looks at lengths, and by the registry, which makes
// values of them. What is read comes from this program's own pre-pass, so that it is not judged again.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>

#include "packed_call.h"

namespace lmq::host {

class PackedReader {
  public:
    /// @param bytes Values, one after the other.
    explicit PackedReader(std::string_view bytes) : rest_(bytes) {}

    bool at_end() const { return rest_.empty(); }

    /// What has not been read.
    std::string_view rest() const { return rest_; }

    template <class Value>
    Value take() {
        Value value;
        std::memcpy(&value, rest_.data(), sizeof value);
        rest_.remove_prefix(sizeof value);
        return value;
    }

    std::string_view take_text() {
        const auto length = take<std::uint32_t>();
        const std::string_view text = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return text;
    }

    /// Passes over what belongs to an item whose Item has been taken.
    void skip(Item item);

    /// Passes over a value.
    void skip() { skip(take<Item>()); }

  private:
    std::string_view rest_;
};

}  // namespace lmq::host
