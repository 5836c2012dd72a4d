// What recent calls have printed, for those who ask for it afterwards.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <utility>

namespace lmq::host {

class RecentOutput {
  public:
    /// Keeps a text; the oldest ones make room for it.
    /// @return Its number.
    std::uint64_t add(std::string text) {
        bytes_ += text.size();
        texts_.push_back(std::move(text));
        while (texts_.size() > most_texts || bytes_ > most_bytes) {
            bytes_ -= texts_.front().size();
            texts_.pop_front();
            ++first_;
        }
        return first_ + texts_.size() - 1;
    }

    /// @return The text; null if it is not kept, or not any longer.
    const std::string *find(std::uint64_t number) const {
        return number >= first_ && number - first_ < texts_.size() ? &texts_[static_cast<std::size_t>(number - first_)]
                                                                   : nullptr;
    }

  private:
    static constexpr std::size_t most_texts = 256, most_bytes = std::size_t{4} << 20;

    std::deque<std::string> texts_;
    std::uint64_t first_ = 1;
    std::size_t bytes_ = 0;
};

}  // namespace lmq::host
