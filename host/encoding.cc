// Translation to UTF-8, the declaration included.
#include "encoding.h"

#include <strings.h>

#include <algorithm>

namespace lmq::host {
namespace {

constexpr std::string_view mark = "\xEF\xBB\xBF";

/// The encoding that a document declares, where it stands; empty if it declares none.
std::string_view declared(std::string_view document) {
    constexpr std::string_view begin = "<?xml", end = "?>", key = "encoding";
    if (!document.starts_with(begin)) return {};
    const std::string_view text = document.substr(0, document.substr(0, 256).find(end));
    const std::size_t quote = text.find_first_of("\"'", std::min(text.find(key), text.size()));
    if (text.size() == document.size() || quote == std::string_view::npos) return {};
    const std::size_t last = text.find(text[quote], quote + 1);
    return last == std::string_view::npos ? std::string_view() : text.substr(quote + 1, last - quote - 1);
}

bool is_one_of(std::string_view name, std::initializer_list<std::string_view> names) {
    return std::any_of(names.begin(), names.end(), [&](std::string_view one) {
        return one.size() == name.size() && strncasecmp(one.data(), name.data(), one.size()) == 0;
    });
}

bool is_ascii(char c) { return static_cast<unsigned char>(c) < 0x80; }

}  // namespace

Utf8::Utf8(std::string_view document) : text_(document) {
    // Behind a second mark the parsers would disagree about what the document is, so both stay, for them to refuse.
    if (text_.starts_with(mark) && !text_.substr(mark.size()).starts_with(mark)) {
        text_.remove_prefix(mark.size());
        is_changed_ = true;
    }
    if (length_of_common_declaration(text_) > 0) return;
    const std::string_view encoding = declared(text_);
    const bool is_plain = is_one_of(encoding, {"US-ASCII", "ASCII"});
    if (!is_plain && !is_one_of(encoding, {"ISO-8859-1", "LATIN1"})) return;
    const auto others =
        static_cast<std::size_t>(std::count_if(text_.begin(), text_.end(), [](char c) { return !is_ascii(c); }));
    is_wrong_ = is_plain && others > 0;
    is_changed_ = is_translated_ = true;
    constexpr std::string_view utf8 = "UTF-8";
    translated_.reserve(text_.size() + others + utf8.size());
    translated_.append(text_, 0, static_cast<std::size_t>(encoding.data() - text_.data())).append(utf8);
    text_.remove_prefix(translated_.size() - utf8.size() + encoding.size());
    // A byte of ISO-8859-1 is a character of the same number.
    for (const char c : text_) {
        if (is_ascii(c)) {
            translated_ += c;
        } else {
            const auto code = static_cast<unsigned char>(c);
            translated_ += static_cast<char>(0xC0 | code >> 6);
            translated_ += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
}

}  // namespace lmq::host
