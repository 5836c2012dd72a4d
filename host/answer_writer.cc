// The walk over a result. The library's functions for reading values that are used here leave their reference counts
// alone, each change of which takes a lock.
#include "answer_writer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

#include "answer.h"
#include "env.h"
#include "xml_text.h"

namespace lmq::host {
namespace {

constexpr std::string_view end_of_answer = "</param>\r\n</params>\r\n</methodResponse>\r\n";

/// A text that grows, with room ahead for what is put to its end.
class Text {
  public:
    /// @param length How long it is likely to become.
    explicit Text(std::size_t length) : text_(length + 64, '\0') {}

    void put(std::string_view piece) {
        piece.copy(room(piece.size()), piece.size());
        size_ += piece.size();
    }

    // What is of a length that the compiler knows takes it a few moves.
    template <std::size_t size>
    void put(const char (&literal)[size]) {
        std::memcpy(room(size - 1), literal, size - 1);
        size_ += size - 1;
    }

    template <std::size_t begin_size, std::size_t end_size>
    void put(const char (&begin)[begin_size], std::int64_t number, const char (&end)[end_size]) {
        char *at = room(begin_size + longest_number + end_size);
        std::memcpy(at, begin, begin_size - 1);
        at = std::to_chars(at + begin_size - 1, at + begin_size - 1 + longest_number, number).ptr;
        std::memcpy(at, end, end_size - 1);
        size_ = static_cast<std::size_t>(at - text_.data()) + end_size - 1;
    }

    std::string take() {
        text_.resize(size_);
        // Clients that are slow to read hold it for long.
        if (text_.capacity() - size_ > size_ / 4) text_.shrink_to_fit();
        return std::move(text_);
    }

  private:
    static constexpr std::size_t longest_number = std::numeric_limits<std::int64_t>::digits10 + 2;

    /// The end of the text, with room for so many bytes.
    char *room(std::size_t bytes) {
        if (text_.size() - size_ < bytes) grow(bytes);
        return text_.data() + size_;
    }

    [[gnu::noinline]] void grow(std::size_t bytes) { text_.resize(2 * (size_ + bytes)); }

    std::string text_;
    std::size_t size_ = 0;
};

/// Whether a byte stands in a document as it is, whatever is around it.
constexpr auto is_plain = [] {
    std::array<bool, 256> plain{};
    for (unsigned char c = ' '; c < 0x7f; ++c) plain[c] = c != '<' && c != '>' && c != '&';
    plain['\t'] = plain['\n'] = true;
    return plain;
}();

class Writer {
  public:
    explicit Writer(std::size_t length) : text_(length) {}

    std::string answer(xmlrpc_value *result) {
        text_.put(begin_of_answer);
        value(result);
        text_.put(end_of_answer);
        return text_.take();
    }

  private:
    void value(xmlrpc_value *value) {
        switch (xmlrpc_value_type(value)) {
            case XMLRPC_TYPE_INT: {
                xmlrpc_int number = 0;
                xmlrpc_read_int(env_, value, &number);
                return text_.put("<value><i4>", number, "</i4></value>");
            }
            case XMLRPC_TYPE_I8: {
                xmlrpc_int64 number = 0;
                xmlrpc_read_i8(env_, value, &number);
                return text_.put("<value><i8>", number, "</i8></value>");
            }
            case XMLRPC_TYPE_BOOL: {
                xmlrpc_bool truth = 0;
                xmlrpc_read_bool(env_, value, &truth);
                return text_.put("<value><boolean>", truth != 0 ? 1 : 0, "</boolean></value>");
            }
            case XMLRPC_TYPE_STRING: return string("<value><string>", value, "</string></value>");
            case XMLRPC_TYPE_ARRAY: return array(value);
            case XMLRPC_TYPE_STRUCT: return structure(value);
            case XMLRPC_TYPE_NIL: return text_.put("<value><nil/></value>");
            default: return by_library(value);
        }
    }

    void array(xmlrpc_value *array) {
        text_.put("<value><array><data>\r\n");
        const int count = xmlrpc_array_size(env_, array);
        for (int at = 0; at < count; ++at) {
            value(xmlrpc_array_get_item(env_, array, at));
            text_.put("\r\n");
        }
        text_.put("</data></array></value>");
    }

    void structure(xmlrpc_value *structure) {
        text_.put("<value><struct>\r\n");
        const int count = xmlrpc_struct_size(env_, structure);
        for (int at = 0; at < count; ++at) {
            xmlrpc_value *name = nullptr;
            xmlrpc_value *member = nullptr;
            xmlrpc_struct_get_key_and_value(env_, structure, at, &name, &member);
            string("<member><name>", name, "</name>\r\n");
            value(member);
            text_.put("</member>\r\n");
        }
        text_.put("</struct></value>");
    }

    template <std::size_t begin_size, std::size_t end_size>
    void string(const char (&begin)[begin_size], xmlrpc_value *value, const char (&end)[end_size]) {
        std::size_t length = 0;
        const char *characters = nullptr;
        xmlrpc_read_string_lp(env_, value, &length, &characters);
        env_.check();
        const std::unique_ptr<const char, void (*)(const char *)> owner(
            characters, [](const char *text) { std::free(const_cast<char *>(text)); });
        const std::string_view text(characters, length);
        text_.put(begin);
        if (std::all_of(text.begin(), text.end(), [](unsigned char c) { return is_plain[c]; })) {
            text_.put(text);
        } else {
            check_xml(text);
            escape(text);
        }
        text_.put(end);
    }

    void escape(std::string_view text) {
        for (const char &c : text) {
            switch (c) {
                case '<': text_.put("&lt;"); break;
                case '>': text_.put("&gt;"); break;
                case '&': text_.put("&amp;"); break;
                case '\r': text_.put("&#x0d;"); break;
                default: text_.put({&c, 1}); break;
            }
        }
    }

    /// Fractions, dates and bytes, which do not occur in the interface.
    void by_library(xmlrpc_value *value) {
        const MemoryBlock block(env_);
        xmlrpc_serialize_value(env_, block.get(), value);
        env_.check();
        text_.put(block.text());
    }

    Env env_;
    Text text_;
};

}  // namespace

std::string answer_document(xmlrpc_value *result, std::size_t length) { return Writer(length).answer(result); }

}  // namespace lmq::host
