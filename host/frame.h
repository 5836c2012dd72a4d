// The frames between front and worker: a head, and a call or its answer. Neither end trusts the other with more than it
// has asked for: the worker holds the driver, which may write anywhere, to any descriptor too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lmq::host {

/// A call that is handed over alone, and what a worker says to it; a call that is handed over behind others; one that
/// was not made, since it was taken back or what was printed before is to be read first; and what wakes the other side
/// when there is something on the board.
enum class FrameKind : std::uint32_t { call, ready, failed, answer, unanswerable, next, declined, bell };

struct FrameHead {
    static constexpr std::uint32_t magic = 0x6c6d7131;

    std::uint32_t mark = magic;
    FrameKind kind;
    /// Of the call; its answer has the same. 0 before the first call.
    std::uint64_t number;
    std::uint64_t size;
    /// Of an answer: when the call began, by the steady clock in nanoseconds, and whether there is something to be read
    /// of what the driver has printed.
    std::int64_t begun = 0;
    std::uint64_t has_printed = 0;
};

/// A bell is a head, and always the same.
inline constexpr FrameHead bell{.kind = FrameKind::bell, .number = 0, .size = 0};

/// Takes a frame from the pieces in which a socket delivers it.
class FrameReader {
  public:
    enum class State { incomplete, complete, broken };

    /// @param limit The longest text in bytes. A frame that announces more is broken.
    explicit FrameReader(std::size_t limit) : limit_(limit) {}

    /// Where the next bytes go, and how many there may be; only while the frame is incomplete.
    char *space();
    std::size_t room() const;

    /// Says how many bytes have arrived there, of this frame and perhaps of those behind it.
    /// @return Whether the frame is complete. What is no frame, or is too long, is broken.
    State take(std::size_t count);

    State state() const { return state_; }

    /// Whether any byte has arrived.
    bool has_begun() const { return received_ > 0; }

    /// Of a complete frame.
    const FrameHead &head() const { return head_; }
    std::string_view text() const;

    /// Takes the text away.
    std::string take_text();

    /// Whether there was no memory for the text. It is empty then.
    bool is_lost() const { return is_lost_; }

    /// Goes on to the next frame, of which some may have arrived with this one.
    void next();

    /// Goes on to the first frame that is no bell.
    void skip_bells();

    /// Whether what has arrived may be the beginning of a bell.
    bool may_be_bell() const;

    /// Forgets all that has arrived.
    void reset();

  private:
    static constexpr std::size_t first_piece = 128 * 1024;

    /// Whether the frame is longer than one piece.
    bool is_long() const { return received_ >= sizeof head_ && whole() > first_piece; }
    std::uint64_t whole() const { return sizeof head_ + head_.size; }

    std::size_t limit_;
    /// The head and a short text, or the beginning of a long one.
    std::vector<char> piece_ = std::vector<char>(first_piece);
    std::string long_text_;
    std::size_t received_ = 0;
    FrameHead head_{};
    State state_ = State::incomplete;
    bool is_lost_ = false;
};

/// A frame on its way to the other end.
class FrameWriter {
  public:
    /// Begins a frame. Its text must last until the frame is gone.
    void begin(FrameHead head, std::string_view text) {
        head_ = head;
        head_.size = text.size();
        text_ = text;
        sent_ = 0;
    }

    /// Sends what the socket takes.
    /// @param flags Of sendmsg(2).
    /// @return False if there is nobody at the other end.
    bool send(int socket, int flags);

    bool is_done() const { return sent_ == sizeof head_ + text_.size(); }

  private:
    FrameHead head_{};
    std::string_view text_;
    std::size_t sent_ = sizeof head_;
};

}  // namespace lmq::host
