// What the families keep their state in: tables, settings, ids, counters and flagged members.
//
// Nothing here knows a device or a status. A family checks its arguments first, so that keys are always within the
// bounds of its operations, and translates what it hears from here into the status that fits.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
#include <set>
#include <type_traits>
#include <utility>

namespace lmq::sim {

/// How an insertion into a Table went.
enum class Insert { ok, exists, full };

/// Entries by key, in the order of their keys, up to a capacity: what the chip has a table of.
template <typename Key, typename Value>
class Table {
  public:
    using Entries = std::map<Key, Value>;

    explicit Table(std::size_t capacity) : capacity_(capacity) {}

    /// Adds an entry. A key that is there answers `exists`, even in a full table, and keeps its value.
    Insert insert(const Key &key, Value value) {
        if (entries_.contains(key)) return Insert::exists;
        if (entries_.size() >= capacity_) return Insert::full;
        entries_.emplace(key, std::move(value));
        return Insert::ok;
    }

    /// @return The value, good until its entry is erased, or nullptr.
    Value *find(const Key &key) {
        const auto entry = entries_.find(key);
        return entry == entries_.end() ? nullptr : &entry->second;
    }

    /// @return Whether the entry was there.
    bool erase(const Key &key) { return entries_.erase(key) != 0; }

    /// Erases each entry for which `condition(key, value)` holds. @return How many.
    template <typename Condition>
    std::size_t erase_if(Condition condition) {
        return std::erase_if(entries_, [&](const auto &entry) { return condition(entry.first, entry.second); });
    }

    void clear() { entries_.clear(); }

    std::size_t size() const { return entries_.size(); }

    typename Entries::iterator begin() { return entries_.begin(); }
    typename Entries::iterator end() { return entries_.end(); }

    /// The first entry behind a key, which need not be there (any more): a walk that keeps no state.
    typename Entries::iterator after(const Key &key) { return entries_.upper_bound(key); }

  private:
    std::size_t capacity_;
    Entries entries_;
};

/// A configuration that exists for every key: what was set last, or else the initial value.
template <typename Key, typename Value>
class Setting {
  public:
    explicit Setting(Value initial = {}) : initial_(std::move(initial)) {}

    const Value &get(const Key &key) const {
        const auto entry = set_.find(key);
        return entry == set_.end() ? initial_ : entry->second;
    }

    void set(const Key &key, Value value) { set_.insert_or_assign(key, std::move(value)); }

    /// Every key has the initial value again.
    void clear() { set_.clear(); }

  private:
    Value initial_;
    std::map<Key, Value> set_;
};

/// Gives out ids from a range, each to one holder at a time.
///
/// Ids go upward and start again at the end of the range, so that an id that was taken back stays invalid as long as
/// possible: a client that still uses it is told so.
class Ids {
  public:
    Ids(std::uint32_t first, std::uint32_t last) : first_(first), last_(last), next_(first) {}

    /// @return An id that nobody holds, or nothing when all are held.
    std::optional<std::uint32_t> give() {
        if (held_.size() > last_ - first_) return std::nullopt;
        while (!held_.insert(next_).second) advance();
        const std::uint32_t id = next_;
        advance();
        return id;
    }

    /// @return Whether the id was held.
    bool take_back(std::uint32_t id) { return held_.erase(id) != 0; }

    bool held(std::uint32_t id) const { return held_.contains(id); }

  private:
    void advance() { next_ = next_ == last_ ? first_ : next_ + 1; }

    std::uint32_t first_;
    std::uint32_t last_;
    std::uint32_t next_;
    std::set<std::uint32_t> held_;
};

/// A counter of the width in which it is read. It stops at its maximum, so that an overflow shows.
template <typename T>
class Counter {
    static_assert(std::is_unsigned_v<T>);

  public:
    void add(T n) {
        value_ = n > std::numeric_limits<T>::max() - value_ ? std::numeric_limits<T>::max() : T(value_ + n);
    }

    /// Reads, and with `clear` begins again at 0.
    T read(bool clear = false) { return clear ? std::exchange(value_, T{0}) : value_; }

  private:
    T value_ = 0;
};

/// Reads a structure of counters, and with `clear` lets all of them begin again at 0.
template <typename Counters>
void read_counters(Counters &counters, Counters *to, bool clear) {
    *to = counters;
    if (clear) counters = {};
}

/// Takes a given member over when its flag is set. Works for array members too.
template <typename T>
void merge(bool flagged, T &kept, const T &given) {
    if (!flagged) return;
    if constexpr (std::is_array_v<T>) {
        std::copy(std::begin(given), std::end(given), std::begin(kept));
    } else {
        kept = given;
    }
}

}  // namespace lmq::sim
