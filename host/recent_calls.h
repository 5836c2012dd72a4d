// The last calls, in memory of a fixed size: records as a trace holds them, the newest in the place of the oldest.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

#include "trace/format.h"

namespace lmq::host {

class RecentCalls {
  public:
    /// @param bytes What there is room for; 0 for nothing.
    explicit RecentCalls(std::size_t bytes)
        : bytes_(bytes > 0 ? std::make_unique_for_overwrite<char[]>(bytes) : nullptr), capacity_(bytes) {}

    /// Makes room for a record, which has to be put there at once.
    /// @return NULL if it is longer than all the room there is.
    char *make_room(std::size_t size) {
        if (size > capacity_) return nullptr;
        while (!has_room(size)) {
            if (!is_wrapped_) {
                end_ = std::exchange(next_, 0);
                is_wrapped_ = true;
            } else {
                drop_oldest();
            }
        }
        next_ += size;
        return bytes_.get() + next_ - size;
    }

    void clear() {
        first_ = next_ = 0;
        is_wrapped_ = false;
    }

    /// The records in their order, in two pieces.
    std::array<std::span<char>, 2> records() {
        const auto piece = [this](std::size_t from, std::size_t to) {
            return std::span(bytes_.get() + from, bytes_.get() + to);
        };
        if (!is_wrapped_) return {piece(first_, next_), {}};
        return {piece(first_, end_), piece(0, next_)};
    }

  private:
    bool has_room(std::size_t size) const { return next_ + size <= (is_wrapped_ ? first_ : capacity_); }

    /// Drops the record at first_, which lies above the newest ones.
    void drop_oldest() {
        if (first_ < end_) first_ += trace::size_at(bytes_.get() + first_);
        if (first_ < end_) return;
        first_ = 0;
        is_wrapped_ = false;
    }

    std::unique_ptr<char[]> bytes_;
    std::size_t capacity_;
    /// Where the oldest record begins, and where the next one goes. When the newest ones have begun anew at the front,
    /// the oldest are behind them, up to end_.
    std::size_t first_ = 0, next_ = 0, end_ = 0;
    bool is_wrapped_ = false;
};

}  // namespace lmq::host
