// Reading and writing of frames.
#include "frame.h"

#include <sys/socket.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>
#include <utility>

namespace lmq::host {

// A short frame comes in one piece. The text of a long one goes to its place as it comes, behind what the first piece
// had of it.

char *FrameReader::space() {
    if (!is_long()) return piece_.data() + received_;
    return is_lost_ ? piece_.data() : long_text_.data() + (received_ - sizeof head_);
}

std::size_t FrameReader::room() const {
    if (!is_long()) return piece_.size() - received_;
    const std::size_t missing = static_cast<std::size_t>(whole()) - received_;
    return is_lost_ ? std::min(missing, piece_.size()) : missing;
}

FrameReader::State FrameReader::take(std::size_t count) {
    const bool had_head = received_ >= sizeof head_;
    received_ += count;
    if (received_ < sizeof head_) return state_;
    if (!had_head) {
        std::memcpy(&head_, piece_.data(), sizeof head_);
        if (head_.mark != FrameHead::magic || head_.kind > FrameKind::bell || head_.size > limit_) {
            return state_ = State::broken;
        }
        if (is_long()) try {
                long_text_.resize(static_cast<std::size_t>(head_.size));
                std::memcpy(long_text_.data(), piece_.data() + sizeof head_, received_ - sizeof head_);
            } catch (const std::bad_alloc &) {
                is_lost_ = true;
            }
    }
    if (received_ >= whole()) state_ = State::complete;
    return state_;
}

std::string_view FrameReader::text() const {
    if (is_long()) return long_text_;
    return {piece_.data() + sizeof head_, static_cast<std::size_t>(head_.size)};
}

std::string FrameReader::take_text() { return is_long() ? std::exchange(long_text_, {}) : std::string(text()); }

void FrameReader::next() {
    const std::size_t taken = std::min<std::size_t>(static_cast<std::size_t>(whole()), received_);
    const std::size_t rest = received_ - taken;
    reset();
    if (rest == 0) return;
    std::memmove(piece_.data(), piece_.data() + taken, rest);
    take(rest);
}

void FrameReader::skip_bells() {
    while (state_ == State::complete && head_.kind == FrameKind::bell) next();
}

bool FrameReader::may_be_bell() const {
    return received_ < sizeof bell && std::memcmp(piece_.data(), &bell, received_) == 0;
}

void FrameReader::reset() {
    received_ = 0;
    state_ = State::incomplete;
    long_text_ = {};
    is_lost_ = false;
}

bool FrameWriter::send(int socket, int flags) {
    while (!is_done()) {
        const std::size_t of_head = sent_ < sizeof head_ ? sizeof head_ - sent_ : 0;
        const std::size_t of_text = sent_ < sizeof head_ ? 0 : sent_ - sizeof head_;
        iovec parts[] = {{reinterpret_cast<char *>(&head_) + (sizeof head_ - of_head), of_head},
                         {const_cast<char *>(text_.data()) + of_text, text_.size() - of_text}};
        msghdr message{};
        message.msg_iov = parts;
        message.msg_iovlen = 2;
        const ssize_t count = sendmsg(socket, &message, flags | MSG_NOSIGNAL);
        if (count > 0) sent_ += static_cast<std::size_t>(count);
        if (count < 0 && errno == EAGAIN) return true;
        if (count < 0 && errno != EINTR) return false;
    }
    return true;
}

}  // namespace lmq::host
