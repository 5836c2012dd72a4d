// Finding what a terminal obeys in UTF-8.
#include "safe_text.h"

#include <cstdio>

namespace lmqctl {

namespace {

struct Sign {
    char32_t code;
    std::size_t length;  // bytes
};

// The sign at a place, as far as those go that are looked for: up to three bytes. A byte that begins none stands for
// itself.
Sign sign_at(const std::string &text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
    const auto follows = [&](std::size_t i) { return (byte(i) & 0xc0) == 0x80; };
    const unsigned first = byte(at);
    if ((first & 0xe0) == 0xc0 && follows(at + 1)) return {(first & 0x1f) << 6 | (byte(at + 1) & 0x3f), 2};
    if ((first & 0xf0) == 0xe0 && follows(at + 1) && follows(at + 2))
        return {(first & 0x0f) << 12 | (byte(at + 1) & 0x3f) << 6 | (byte(at + 2) & 0x3f), 3};
    if ((first & 0xf8) == 0xf0 && follows(at + 1) && follows(at + 2) && follows(at + 3)) return {0x10000, 4};
    return {first, 1};
}

bool is_obeyed(const Sign &sign) {
    const char32_t code = sign.code;
    if (code < 0x20) return code != '\n' && code != '\t';
    // A lone byte of the upper half is C1 to a terminal that knows no UTF-8, or no text at all.
    if (code >= 0x7f && (code < 0xa0 || sign.length == 1)) return true;
    return (code >= 0x200b && code <= 0x200f) || (code >= 0x2028 && code <= 0x202e) ||
           (code >= 0x2060 && code <= 0x206f) || code == 0x61c || code == 0xfeff;
}

// The length of a sequence ESC [ NUMBERS LETTER that paints, clears or moves to a place; 0 if there is none.
std::size_t painting_at(const std::string &text, std::size_t at) {
    if (text.compare(at, 2, "\033[") != 0) return 0;
    const std::size_t letter = text.find_first_not_of("0123456789;?", at + 2);
    const bool is_known =
        letter != std::string::npos && std::string("mHJKABCDhl").find(text[letter]) != std::string::npos;
    return is_known ? letter + 1 - at : 0;
}

std::string cleaned(const std::string &text, bool keeps_painting) {
    std::string kept;
    kept.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        Sign sign = sign_at(text, at);
        const std::size_t painting = keeps_painting ? painting_at(text, at) : 0;
        if (painting) sign.length = painting;
        if (painting || !is_obeyed(sign)) {
            kept.append(text, at, sign.length);
        } else {
            char shown[16];
            std::snprintf(shown, sizeof shown, "\\u%04x", static_cast<unsigned>(sign.code));
            kept += shown;
        }
        at += sign.length;
    }
    return kept;
}

}  // namespace

std::string harmless(const std::string &text) { return cleaned(text, false); }

std::string harmless_but_painted(const std::string &text) { return cleaned(text, true); }

}  // namespace lmqctl
