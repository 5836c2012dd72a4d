// Answers of HTTP/1.x out of a stream of bytes: with a length, in chunks, or up to the end of the connection.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace lmqctl {

inline constexpr std::size_t largest_answer = 64 << 20;  ///< bytes

struct HttpAnswer {
    int status = 0;
    std::string body;
    std::string tag;          ///< of the document, from its ETag field
    std::string output;       ///< where what the call printed is, from its Lmq-Output field: a name for Http::send
    bool stays_open = false;  ///< the connection takes another request
};

/// Takes what is kept of a field of the header: its name in small letters, its value without blanks around it.
void keep_field(const std::string &name, const std::string &value, HttpAnswer &answer);

class AnswerReader {
  public:
    /// Appends what has arrived. False at the end of the stream. Throws what ends the waiting.
    using More = std::function<bool(std::string &to)>;

    /// `url` is for errors.
    AnswerReader(std::string url, More more) : url_(std::move(url)), more_(std::move(more)) {}

    /// The next answer. Throws an Error for a stream that ends too early, is no HTTP or says too much.
    HttpAnswer read();

    /// Whether bytes have come that belong to no answer.
    bool has_unread() const { return !unread_.empty(); }
    void forget_unread() { unread_.clear(); }

  private:
    struct Head {
        std::optional<std::size_t> length;
        bool is_chunked = false;
    };
    Head read_head(HttpAnswer &answer);
    void read_field(const std::string &field, Head &head, HttpAnswer &answer) const;
    std::string read_chunks();
    std::string read_to_the_end();
    std::string take(std::size_t length);
    std::string line();
    void fetch();
    [[noreturn]] void no_http() const;
    [[noreturn]] void too_large() const;

    const std::string url_;
    const More more_;
    std::string unread_;
};

}  // namespace lmqctl
