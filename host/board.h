// Memory that the front shares with the worker: how far the worker has come, and frames that are short, which get from
// one to the other without the system's help.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "frame.h"

namespace lmq::host {

/// Short frames on their way in one direction, each with a number of its own. The memory of all of it is the other
/// process's as well, so nothing in it is certain.
class Slots {
  public:
    /// So many of the newest frames are there.
    static constexpr std::size_t count = 16;
    /// The longest text, in bytes.
    static constexpr std::size_t longest = 8000;

    /// Puts a frame there for the other side.
    /// @return False if it is too long.
    bool put(FrameHead head, std::string_view text);

    /// After put(): whether the other side sleeps and wants to be woken. Says so once.
    bool wants_bell() { return sleeps_.load() != 0 && sleeps_.exchange(0) != 0; }

    /// Whether the other side has put the frame of this number there.
    bool has(std::uint64_t number) const { return slots_[number % count].number.load() == low(number); }

    /// The frame of this number, if has().
    FrameHead head(std::uint64_t number) const { return slots_[number % count].head; }

    /// Its text.
    /// @param size At most `longest`.
    std::string_view text(std::uint64_t number, std::size_t size) const { return {slots_[number % count].text, size}; }

    /// Before a sleep, to be woken, and after it. Between the two, has() is to be asked once more.
    void sleep(bool begins) { sleeps_ = begins ? 1 : 0; }

    static std::uint32_t low(std::uint64_t number) { return static_cast<std::uint32_t>(number); }

  private:
    using Word = std::atomic<std::uint32_t>;
    static_assert(Word::is_always_lock_free);

    struct Slot {
        /// Of the frame that is complete here, modulo the width.
        Word number{0};
        FrameHead head{};
        char text[longest];
    };

    Word sleeps_{0};
    Slot slots_[count];
};

class Board {
  public:
    /// Makes the memory. Processes that are forked from now on share it.
    /// @throws std::system_error if the system refuses.
    Board();
    ~Board();
    Board(const Board &) = delete;
    Board &operator=(const Board &) = delete;

    /// In the worker: keeps the memory from the processes that the driver may start.
    void keep_from_children();

    /// Frames to the worker, and from it.
    Slots &calls() { return shared_->calls; }
    Slots &answers() { return shared_->answers; }
    const Slots &answers() const { return shared_->answers; }

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
    struct Shared {
        /// The last call that has begun or was taken back, modulo the width.
        std::atomic<std::uint32_t> begun{0};
        Slots calls, answers;
    };

    Shared *shared_;
};

}  // namespace lmq::host
