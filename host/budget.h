// Bytes that the host holds for its clients: how many there are, and how many there may be, in all and for one address.
#pragma once

#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace lmq::host {

class Budget {
  public:
    /// What one address holds of a budget.
    struct Share {
        std::size_t used = 0;
    };

    explicit Budget(std::size_t limit) : limit_(limit) {}

    /// Whether there is room for so many bytes more.
    bool has_room(const Share &share, std::size_t more) const {
        return fits(used_, more, limit_) && share_has_room(share, more);
    }
    /// Whether the address may hold so many bytes more: it leaves a quarter of the budget to others.
    bool share_has_room(const Share &share, std::size_t more) const { return fits(share.used, more, limit_ / 4 * 3); }

    void take(Share &share, std::size_t bytes) {
        used_ += bytes;
        share.used += bytes;
    }
    void give_back(Share &share, std::size_t bytes) {
        used_ -= bytes;
        share.used -= bytes;
    }

  private:
    static bool fits(std::size_t used, std::size_t more, std::size_t limit) {
        return used <= limit && more <= limit - used;
    }

    std::size_t limit_;
    std::size_t used_ = 0;
};

/// A text whose memory counts in a budget for as long as it is here.
class Charged {
  public:
    /// @param budget, share Must outlive the text.
    Charged(Budget &budget, Budget::Share &share) : budget_(budget), share_(share) {}
    ~Charged() { clear(); }
    Charged(const Charged &) = delete;
    Charged &operator=(const Charged &) = delete;

    const std::string &text() const { return text_; }

    /// Appends if the budget and the memory have room for it.
    /// @param expected How long the text may become.
    bool append(std::string_view more, std::size_t expected) try {
        const std::size_t needed = text_.size() + more.size();
        if (needed > text_.capacity()) {
            std::size_t wanted = std::max(needed, std::min(2 * text_.capacity(), expected));
            if (!has_room_for(wanted)) wanted = needed;
            if (!has_room_for(wanted)) return false;
            // Left to itself, a string doubles its memory.
            std::string grown;
            grown.reserve(wanted);
            text_.swap(grown.append(text_));
            count();
        }
        text_.append(more);
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
    void replace(std::string text) {
        text_ = std::move(text);
        count();
    }
    void clear() { take(); }

    /// Gives the text away; it does not count any longer.
    std::string take() {
        std::string text = std::exchange(text_, {});
        budget_.give_back(share_, std::exchange(counted_, 0));
        return text;
    }

  private:
    bool has_room_for(std::size_t capacity) const { return budget_.has_room(share_, capacity - counted_); }
    void count() {
        budget_.give_back(share_, std::exchange(counted_, text_.capacity()));
        budget_.take(share_, counted_);
    }

    Budget &budget_;
    Budget::Share &share_;
    std::string text_;
    std::size_t counted_ = 0;
};

}  // namespace lmq::host
