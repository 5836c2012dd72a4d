// The check of a document's bytes. Nearly all are plain ASCII, and are looked at eight at a time.
#include "xml_text.h"

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>

namespace lmq::host {
namespace {

constexpr std::uint64_t each(std::uint64_t byte) { return byte * 0x0101010101010101; }

/// Whether eight bytes are all printable ASCII: none is 0x80 or above, and none below a blank.
bool are_plain(const char *bytes) {
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, sizeof word);
    return ((word | (word - each(0x20))) & each(0x80)) == 0;
}

/// The length of the character at the beginning of a text that is not empty; 0 if XML has none such.
std::size_t character(std::string_view text) {
    const auto byte = [text](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned char first = byte(0);
    if (first < 0x80) return first >= 0x20 || first == '\t' || first == '\n' || first == '\r' ? 1 : 0;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
    std::uint32_t code = first & (0xFFU >> (length + 1));
    for (std::size_t at = 1; at < length; ++at) {
        if ((byte(at) & 0xC0) != 0x80) return 0;
        code = code << 6 | (byte(at) & 0x3FU);
    }
    constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
    const bool is_none = code < least[length] || code > 0x10FFFF || is_surrogate || code == 0xFFFE || code == 0xFFFF;
    return is_none ? 0 : length;
}

}  // namespace

std::size_t not_xml(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        if (text.size() - at >= 8 && are_plain(text.data() + at)) {
            at += 8;
            continue;
        }
        const std::size_t length = character(text.substr(at));
        if (length == 0) return at;
        at += length;
    }
    return std::string_view::npos;
}

void check_xml(std::string_view text) {
    const std::size_t at = not_xml(text);
    if (at == std::string_view::npos) return;
    char code[8];
    std::snprintf(code, sizeof code, "0x%02X", static_cast<unsigned char>(text[at]));
    throw std::runtime_error("A text in the result holds the byte " + std::string(code) +
                             ", which XML cannot carry there.");
}

}  // namespace lmq::host
