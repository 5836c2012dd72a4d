// How far a worker has come, in memory that it shares with the front. So the front can hand it calls before the one in
// hand is answered, and take back those that have not begun.
#pragma once

#include <atomic>
#include <cstdint>

namespace lmq::host {

class CallMark {
  public:
    /// Makes the memory. Processes that are forked from now on share it.
    /// @throws std::system_error if the system refuses.
    CallMark();
    ~CallMark();
    CallMark(const CallMark &) = delete;
    CallMark &operator=(const CallMark &) = delete;

    /// In the worker: begins a call, if all before it have begun or were taken back.
    /// @return False if it was taken back itself, or it is not its turn.
    bool begin(std::uint64_t number);

    /// In the front: takes back all calls that have not begun.
    /// @param answered, last The last call whose answer has been taken, and the last one that was handed over.
    /// @return The last one that may have begun. A driver can write anywhere: what cannot be is taken for `last`.
    std::uint64_t take_back(std::uint64_t answered, std::uint64_t last);

    /// In the front, between two workers: goes on behind this call.
    void reset(std::uint64_t last);

  private:
    using Word = std::atomic<std::uint32_t>;
    static_assert(Word::is_always_lock_free);

    /// The last call that has begun or was taken back, modulo the width.
    Word *word_;
};

}  // namespace lmq::host
