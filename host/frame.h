// The frames between front and worker: a head, and a call or its answer. Neither end trusts the other with more than it
// has asked for: the worker holds the driver, which may write anywhere, to any descriptor too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lmq::host {

enum class FrameKind : std::uint32_t { call, ready, failed, answer, unanswerable };

struct FrameHead {
    static constexpr std::uint32_t magic = 0x6c6d7131;

    std::uint32_t mark = magic;
    FrameKind kind;
    /// Of the call; its answer has the same. 0 before the first call.
    std::uint64_t number;
    std::uint64_t size;
};

/// Takes a frame from the pieces in which a socket delivers it.
class FrameReader {
  public:
    enum class State { incomplete, complete, broken };

    /// @param limit The longest text in bytes. A frame that announces more is broken.
    explicit FrameReader(std::size_t limit) : limit_(limit) {}

    /// Where the next bytes go, and how many there may be; only while the frame is incomplete.
    char *space();
    std::size_t room() const;

    /// Says how many bytes have arrived there.
    /// @return Whether the frame is complete. What is no frame, is too long, or goes on behind its end, is broken.
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

    /// Makes room for the next frame.
    void reset();

  private:
    static constexpr std::size_t first_piece = 128 * 1024;

    /// Whether the frame is longer than one piece.
    bool is_long() const { return received_ >= sizeof head_ && sizeof head_ + head_.size > first_piece; }

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
    void begin(FrameKind kind, std::uint64_t number, std::string_view text) {
        head_ = {FrameHead::magic, kind, number, text.size()};
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
