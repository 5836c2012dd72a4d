// Documents in other encodings than UTF-8, which some clients send.
#pragma once

#include <string>
#include <string_view>

namespace lmq::host {

/// A document in UTF-8.
class Utf8 {
  public:
    /// Takes a byte order mark off, and translates what is declared as US-ASCII or ISO-8859-1. All other encodings stay
    /// as they are, with their declaration, for the parser to refuse.
    /// @param document Must outlive this.
    explicit Utf8(std::string_view document);

    std::string_view text() const { return is_translated_ ? std::string_view(translated_) : text_; }

    /// Whether the text is another one than the document.
    bool is_changed() const { return is_changed_; }

    /// Whether the document holds what its encoding has not.
    bool is_wrong() const { return is_wrong_; }

  private:
    std::string_view text_;
    std::string translated_;
    bool is_translated_ = false;
    bool is_changed_ = false;
    bool is_wrong_ = false;
};

}  // namespace lmq::host
