// Documents in other encodings than UTF-8, which some clients send.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lmq::host {

/// How long the XML declaration of a document is, if it is one that most clients write, which leaves the text in UTF-8;
/// 0 for all else.
inline std::size_t length_of_common_declaration(std::string_view document) {
    using namespace std::string_view_literals;
    for (const std::string_view declaration :
         {"<?xml version=\"1.0\"?>"sv, "<?xml version='1.0'?>"sv, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"sv,
          "<?xml version=\"1.0\" encoding=\"utf-8\"?>"sv}) {
        if (document.starts_with(declaration)) return declaration.size();
    }
    return 0;
}

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
