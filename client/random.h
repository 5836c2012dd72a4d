// Random numbers that are the same for a seed on every machine: those of the standard library are not.
#pragma once

#include <cstdint>
#include <vector>

namespace lmqctl {

/// SplitMix64. Good enough to choose by, and its whole state is one number.
class Random {
  public:
    explicit Random(uint64_t seed) : state_(seed) {}

    uint64_t next() {
        uint64_t z = state_ += 0x9e3779b97f4a7c15U;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9U;
        z = (z ^ (z >> 27)) * 0x94d049bb133111ebU;
        return z ^ (z >> 31);
    }

    /// From 0 to `count` - 1; `count` is at least 1.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(next() % count); }

    /// Ends included.
    int64_t between(int64_t low, int64_t high) {
        const uint64_t span = static_cast<uint64_t>(high) - static_cast<uint64_t>(low) + 1;
        return static_cast<int64_t>(static_cast<uint64_t>(low) + (span ? next() % span : next()));
    }

    bool percent(std::size_t chance) { return below(100) < chance; }

    template <class T>
    const T &one_of(const std::vector<T> &items) {
        return items[below(items.size())];
    }

  private:
    uint64_t state_;
};

}  // namespace lmqctl
