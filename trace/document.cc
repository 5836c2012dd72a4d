// From the items of a packed call to XML. A checksum says that they are what was written, not that the writer was
// right: nothing is read behind the end.
#include "document.h"

#include <cstddef>
#include <cstdint>
#include <optional>

#include "packed.h"

namespace lmq::trace {
namespace {

/// Deeper than any host takes.
constexpr int most_depth = 256;

class Unpacker {
  public:
    explicit Unpacker(std::string_view bytes) : rest_(bytes) {}

    std::optional<std::string> document() {
        rest_.remove_prefix(1);
        xml_ = "<?xml version=\"1.0\"?>\n<methodCall><methodName>";
        put_text();
        xml_ += "</methodName><params>";
        while (good_ && !rest_.empty()) {
            xml_ += "<param>";
            put_value(take(), 0);
            xml_ += "</param>";
        }
        xml_ += "</params></methodCall>\n";
        if (!good_) return std::nullopt;
        return std::move(xml_);
    }

  private:
    template <class Number>
    Number number() {
        Number value = 0;
        if (rest_.size() < sizeof value) return fail(), value;
        using Bits = std::make_unsigned_t<Number>;
        Bits bits = 0;
        for (std::size_t byte = 0; byte < sizeof value; ++byte) {
            bits |= static_cast<Bits>(static_cast<Bits>(static_cast<unsigned char>(rest_[byte])) << (8 * byte));
        }
        rest_.remove_prefix(sizeof value);
        return static_cast<Number>(bits);
    }

    Item take() {
        if (rest_.empty()) return fail(), Item::end;
        const Item item = static_cast<Item>(rest_.front());
        rest_.remove_prefix(1);
        return item;
    }

    void fail() {
        good_ = false;
        rest_ = {};
    }

    void put_text() {
        const std::size_t length = number<std::uint32_t>();
        if (length > rest_.size()) return fail();
        for (const char c : rest_.substr(0, length)) {
            switch (c) {
                case '<': xml_ += "&lt;"; break;
                case '>': xml_ += "&gt;"; break;
                case '&': xml_ += "&amp;"; break;
                case '\r': xml_ += "&#13;"; break;  // a parser would make a line feed of it
                default: xml_ += c;
            }
        }
        rest_.remove_prefix(length);
    }

    template <class Number>
    void put_number(const char *element) {
        xml_.append("<").append(element).append(">").append(std::to_string(number<Number>()));
        xml_.append("</").append(element).append(">");
    }

    void put_value(Item item, int depth) {
        if (depth > most_depth) return fail();
        xml_ += "<value>";
        switch (item) {
            case Item::int32: put_number<std::int32_t>("i4"); break;
            case Item::int64: put_number<std::int64_t>("i8"); break;
            case Item::boolean: xml_ += take() == Item{1} ? "<boolean>1</boolean>" : "<boolean>0</boolean>"; break;
            case Item::nil: xml_ += "<nil/>"; break;
            case Item::string:
                xml_ += "<string>";
                put_text();
                xml_ += "</string>";
                break;
            case Item::array: put_array(depth); break;
            case Item::structure: put_structure(depth); break;
            default: fail();
        }
        xml_ += "</value>";
    }

    void put_array(int depth) {
        xml_ += "<array><data>";
        for (Item item = take(); good_ && item != Item::end; item = take()) put_value(item, depth + 1);
        xml_ += "</data></array>";
    }

    void put_structure(int depth) {
        xml_ += "<struct>";
        for (Item item = take(); good_ && item != Item::end; item = take()) {
            if (item != Item::member) return fail();
            xml_ += "<member><name>";
            put_text();
            xml_ += "</name>";
            put_value(take(), depth + 1);
            xml_ += "</member>";
        }
        xml_ += "</struct>";
    }

    std::string_view rest_;
    std::string xml_;
    bool good_ = true;
};

}  // namespace

std::string call_document(std::string_view call) {
    if (call.empty() || call.front() != packed_mark) return std::string(call);
    return Unpacker(call).document().value_or("");
}

}  // namespace lmq::trace
