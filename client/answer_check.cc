// One walk over the markup of a document, without a look at its texts.
#include "answer_check.h"

#include <charconv>
#include <cstddef>
#include <cstdint>

namespace lmqctl {

namespace {

constexpr int deepest_markup = 400;       // elements within each other; a value within an array takes three
constexpr std::size_t longest_tag = 256;  // bytes; elements of XML-RPC have no attributes but for a namespace

// Behind the end of what begins at a place, or npos.
std::size_t behind(std::string_view document, std::size_t at, std::string_view end) {
    const std::size_t found = document.find(end, at);
    return found == std::string_view::npos ? found : found + end.size();
}

// Whether an <i8> that begins at a place holds a number of 64 bits and nothing else: the library does not survive
// another.
bool is_whole_number(std::string_view element) {
    constexpr std::string_view begin = "<i8>", end = "</i8>";
    if (!element.starts_with(begin)) return false;
    const char *first = element.data() + begin.size(), *const last = element.data() + element.size();
    int64_t number = 0;
    const auto [behind_number, failure] = std::from_chars(first, last, number);
    return failure == std::errc() &&
           element.substr(static_cast<std::size_t>(behind_number - element.data())).starts_with(end);
}

}  // namespace

std::string why_unsafe(std::string_view document) {
    int depth = 0;
    for (std::size_t at = 0; (at = document.find('<', at)) != std::string_view::npos;) {
        const std::string_view markup = document.substr(at);
        std::size_t next = 0;
        if (markup.starts_with("<!--")) {
            next = behind(document, at + 4, "-->");
        } else if (markup.starts_with("<![CDATA[")) {
            next = behind(document, at, "]]>");
        } else if (markup.starts_with("<?")) {
            next = behind(document, at, "?>");
        } else if (markup.starts_with("<!")) {
            return "it has a document type, which may define entities";
        } else {
            next = behind(document, at, ">");
            if (next == std::string_view::npos) return "";  // no XML, as the library will say
            if (next - at > longest_tag) return "a tag is longer than " + std::to_string(longest_tag) + " bytes";
            if (markup.starts_with("<i8") && !is_whole_number(markup)) return "an <i8> holds no number of 64 bits";
            if (markup.starts_with("</"))
                --depth;
            else if (document[next - 2] != '/' && ++depth > deepest_markup)
                return "more than " + std::to_string(deepest_markup) + " elements stand within each other";
        }
        if (next == std::string_view::npos) return "";
        at = next;
    }
    return "";
}

}  // namespace lmqctl
