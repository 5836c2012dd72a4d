// The walk over a call's document, with expat where it is not plain. A stack holds the open elements; which element may
// stand in which, and how often, is decided when it opens, and text when it closes; values are packed as they come. To
// know a further type, add it to `scalars`.
#include "prepass.h"

#include <expat.h>
#include <strings.h>

#include <algorithm>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <new>
#include <random>
#include <system_error>
#include <utility>

#include "encoding.h"
#include "packed_call.h"
#include "plain_reader.h"

namespace lmq::host {
namespace {

enum class Kind { document, call, method_name, params, param, value, scalar, array, data, structure, member, name };

/// What a method may be called. Names with blanks or signs of another alphabet could slip past a filter.
bool is_method_name(std::string_view name) {
    constexpr std::size_t most = 200;
    return !name.empty() && name.size() <= most && std::all_of(name.begin(), name.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '.' ||
               c == ':' || c == '/' || c == '-';
    });
}

bool is_blank(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
}

/// What a text is to a type.
enum class Check { good, malformed, out_of_range };

/// An optional sign and digits. The library ends the process over other text in an i8, blanks included, so that none is
/// let through in any type.
template <class Integer>
Check integer(std::string_view text, Packer &packer) {
    if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    Integer value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument || end != text.data() + text.size()) return Check::malformed;
    packer.add(value);
    return error == std::errc() ? Check::good : Check::out_of_range;
}

// Numbers with fractions, dates and bytes do not occur in the interface: they are left to the library.

void give_up(Packer &packer) {
    packer.add(Item::other);
    packer.give_up();
}

/// NaN and infinity overflow the library's stack when they are sent back.
Check real(std::string_view text, Packer &packer) {
    give_up(packer);
    if (text.starts_with('+') && text.size() > 1 && text[1] != '-') text.remove_prefix(1);
    if (text.find_first_not_of("0123456789+-.eE") != std::string_view::npos) return Check::malformed;
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument || end != text.data() + text.size()) return Check::malformed;
    return error == std::errc() && std::isfinite(value) ? Check::good : Check::out_of_range;
}

Check boolean(std::string_view text, Packer &packer) {
    packer.add(text == "1");
    return text == "0" || text == "1" ? Check::good : Check::malformed;
}

Check nothing(std::string_view text, Packer &packer) {
    packer.add(Item::nil);
    return is_blank(text) ? Check::good : Check::malformed;
}

Check string(std::string_view text, Packer &packer) {
    packer.add(text);
    return Check::good;
}

Check base64(std::string_view, Packer &packer) {
    give_up(packer);
    return Check::good;
}

/// CCYYMMDDThh:mm:ss and perhaps a fraction.
Check date(std::string_view text, Packer &packer) {
    give_up(packer);
    constexpr std::string_view pattern = "########T##:##:##";
    const auto matches = [](char c, char wanted) { return wanted == '#' ? c >= '0' && c <= '9' : c == wanted; };
    if (text.size() < pattern.size() || !std::equal(pattern.begin(), pattern.end(), text.begin(),
                                                    [&](char wanted, char c) { return matches(c, wanted); })) {
        return Check::malformed;
    }
    text.remove_prefix(pattern.size());
    const bool fraction = text.empty() || (text[0] == '.' && text.size() > 1 && text.size() < 8 &&
                                           text.find_first_not_of("0123456789", 1) == std::string_view::npos);
    return fraction ? Check::good : Check::malformed;
}

struct Scalar {
    std::string_view name;
    /// Judges the text and packs its value.
    Check (*take)(std::string_view text, Packer &packer);
};

constexpr Scalar scalars[] = {
    {"i8", integer<std::int64_t>},
    {"int", integer<std::int32_t>},
    {"i4", integer<std::int32_t>},
    {"string", string},
    {"boolean", boolean},
    {"double", real},
    {"nil", nothing},
    {"base64", base64},
    {"ex:i8", integer<std::int64_t>},
    {"ex:nil", nothing},
    {"dateTime.iso8601", date},
};

/// Whether text in it can only be blanks between elements. A value holds either.
constexpr bool holds_only_elements(Kind kind) {
    return kind != Kind::method_name && kind != Kind::value && kind != Kind::scalar && kind != Kind::name;
}

/// The part of a client's text that an answer repeats: short, and whole characters only.
std::string shortened(std::string_view text) {
    constexpr std::size_t most = 40;
    if (text.size() <= most) return std::string(text);
    std::size_t end = most;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
    return std::string(text.substr(0, end)) + "...";
}

std::string quoted(std::string_view text) { return "'" + shortened(text) + "'"; }

/// Where the struct of an inner call is: call, params, param, value, array, data, value, struct (and the document).
constexpr std::size_t inner_struct_depth = 9;

}  // namespace

/// The walks. No exception may pass through expat, so an exhausted memory is noted and told afterwards.
class Prepass::Walk {
  public:
    Walk(const PrepassLimits &limits, bool reads_plain)
        : limits_(limits), reads_plain_(reads_plain), parser_(XML_ParserCreate("UTF-8")) {
        if (parser_ == nullptr) throw std::bad_alloc();
        while (salt_ == 0) salt_ = std::random_device()();
    }

    Verdict run(std::string_view original) {
        start();
        const Utf8 utf8(original);
        const std::string_view document = utf8.text();
        if (utf8.is_wrong()) refuse(Fault::malformed, "The call is declared as US-ASCII and holds something else.");
        // Expat takes lengths as int; the HTTP side lets nothing in that is near this.
        if (document.size() > INT_MAX) refuse(Fault::limit, "The call is too long.");
        const bool wide = document.find('\0') != std::string_view::npos || document.starts_with("\xFE\xFF") ||
                          document.starts_with("\xFF\xFE");
        if (wide) refuse(Fault::malformed, "The call is not encoded in UTF-8.");
        if (!verdict_.fault && !(reads_plain_ && plain_.read(document, Plain{*this}))) read_by_expat(document);
        verdict_.packed = packer_.bytes();
        verdict_.read = packer_.read();
        if (verdict_.packed.empty() && utf8.is_changed()) verdict_.document = document;
        return std::move(verdict_);
    }

  private:
    struct Free {
        void operator()(XML_ParserStruct *parser) const { XML_ParserFree(parser); }
    };

    struct Element {
        Kind kind;
        /// Elements in it so far.
        std::size_t children;
        const Scalar *scalar;
        /// In a struct: whether the member that is open names the method of an inner call.
        bool names_method = false;
    };

    /// What the reader of plain documents reports. It ends with the first thing that is wrong, for expat to look at.
    struct Plain {
        Walk &walk;
        bool open(std::string_view name) const { return walk.open(name, false), !walk.ended_; }
        bool characters(std::string_view text) const { return walk.characters(text), !walk.ended_; }
        bool close(std::string_view name) const { return walk.close(name), !walk.ended_; }
    };

    void start() {
        verdict_ = {};
        packer_.reset();
        stack_.assign(1, {Kind::document, 0, nullptr});
        for (std::string *text : {&text_, &scalar_text_}) {
            text->clear();
            // One long text is no reason to keep its memory.
            if (text->capacity() > largest_kept) text->shrink_to_fit();
        }
        depth_ = values_ = 0;
        ended_ = out_of_memory_ = false;
    }

    void read_by_expat(std::string_view document) {
        start();
        XML_Parser parser = parser_.get();
        XML_ParserReset(parser, "UTF-8");
        // Left to itself, expat asks the kernel for a fresh salt for each document.
        XML_SetHashSalt(parser, salt_);
        XML_SetUserData(parser, this);
        XML_SetElementHandler(parser, guarded<&Walk::opened, const XML_Char *, const XML_Char **>,
                              guarded<&Walk::closed, const XML_Char *>);
        XML_SetCharacterDataHandler(parser, guarded<&Walk::more_characters, const XML_Char *, int>);
        XML_SetXmlDeclHandler(parser, guarded<&Walk::declaration, const XML_Char *, const XML_Char *, int>);
        XML_SetStartDoctypeDeclHandler(
            parser, guarded<&Walk::doctype, const XML_Char *, const XML_Char *, const XML_Char *, int>);
        if (XML_Parse(parser, document.data(), static_cast<int>(document.size()), XML_TRUE) != XML_STATUS_OK &&
            !verdict_.fault && !out_of_memory_) {
            if (XML_GetErrorCode(parser) == XML_ERROR_NO_MEMORY) throw std::bad_alloc();
            const char *what = XML_ErrorString(XML_GetErrorCode(parser));
            refuse(Fault::malformed, "The call is not well-formed XML: " + std::string(what) + " in line " +
                                         std::to_string(XML_GetCurrentLineNumber(parser)) + ".");
        }
        if (out_of_memory_) throw std::bad_alloc();
    }

    template <auto Member, class... Arguments>
    static void guarded(void *walk, Arguments... arguments) {
        auto &self = *static_cast<Walk *>(walk);
        if (self.ended_) return;
        try {
            (self.*Member)(arguments...);
        } catch (const std::bad_alloc &) {
            self.out_of_memory_ = true;
            self.end();
        }
    }

    /// Expat may go on with what it has read already.
    void end() {
        ended_ = true;
        XML_StopParser(parser_.get(), XML_FALSE);
    }

    void refuse(int code, std::string text) {
        verdict_.fault = Fault{code, std::move(text)};
        end();
    }

    void declaration(const XML_Char *, const XML_Char *encoding, int) {
        if (encoding == nullptr || strcasecmp(encoding, "UTF-8") == 0) return;
        refuse(Fault::malformed,
               "The call is encoded in " + quoted(encoding) + "; UTF-8, US-ASCII and ISO-8859-1 are accepted.");
    }

    // A few entities that stand for each other make gigabytes.
    void doctype(const XML_Char *, const XML_Char *, const XML_Char *, int) {
        refuse(Fault::malformed, "The call declares a document type; neither that nor entities are accepted.");
    }

    void opened(const XML_Char *tag, const XML_Char **attributes) { open(tag, attributes[0] != nullptr); }
    void closed(const XML_Char *tag) { close(tag); }
    void more_characters(const XML_Char *begin, int length) { characters({begin, static_cast<std::size_t>(length)}); }

    void open(std::string_view name, bool has_attributes) {
        Element &parent = stack_.back();
        // XML-RPC has none, and the library's parser looks for each among all others, which names can be made to slow.
        if (has_attributes) {
            return refuse(Fault::malformed, "The element <" + shortened(name) + "> has attributes.");
        }
        const std::size_t before = parent.children++;
        if (!is_blank(text_)) return misplaced();
        text_.clear();
        const auto go = [&](Kind kind, std::string_view wanted, bool allowed) {
            if (!allowed || name != wanted) return unexpected(name);
            stack_.push_back({kind, 0, nullptr});
            if (kind == Kind::value) count_value();
        };
        switch (parent.kind) {
            case Kind::document: return go(Kind::call, "methodCall", true);
            case Kind::call:
                if (before == 0) return go(Kind::method_name, "methodName", true);
                return go(Kind::params, "params", before == 1);
            case Kind::params: return go(Kind::param, "param", true);
            case Kind::param: return go(Kind::value, "value", before == 0);
            case Kind::value: return open_type(name, before);
            case Kind::array: return go(Kind::data, "data", before == 0);
            case Kind::data:
                if (stack_.size() == inner_struct_depth - 2 && verdict_.method == multicall &&
                    before >= limits_.calls) {
                    return refuse(Fault::limit,
                                  "The system.multicall holds more than " + std::to_string(limits_.calls) + " calls.");
                }
                return go(Kind::value, "value", true);
            case Kind::structure:
                if (before >= limits_.members) {
                    return refuse(Fault::limit,
                                  "A struct holds more than " + std::to_string(limits_.members) + " members.");
                }
                return go(Kind::member, "member", true);
            case Kind::member:
                if (before == 0) return go(Kind::name, "name", true);
                return go(Kind::value, "value", before == 1);
            case Kind::method_name:
            case Kind::scalar:
            case Kind::name: return unexpected(name);
        }
    }

    void open_type(std::string_view name, std::size_t before) {
        if (before > 0) return unexpected(name);
        if (name == "struct") {
            packer_.add(Item::structure);
            return stack_.push_back({Kind::structure, 0, nullptr});
        }
        if (name == "array") {
            packer_.add(Item::array);
            return stack_.push_back({Kind::array, 0, nullptr});
        }
        const auto *scalar = std::find_if(std::begin(scalars), std::end(scalars),
                                          [name](const Scalar &candidate) { return candidate.name == name; });
        if (scalar == std::end(scalars)) return unexpected(name);
        stack_.push_back({Kind::scalar, 0, scalar});
    }

    void count_value() {
        ++depth_;
        if (depth_ > limits_.depth) {
            return refuse(Fault::limit, "The call nests values more than " + std::to_string(limits_.depth) + " deep.");
        }
        if (++values_ > limits_.values) {
            refuse(Fault::limit, "The call holds more than " + std::to_string(limits_.values) + " values.");
        }
    }

    void characters(std::string_view text) {
        if (text_.empty() && holds_only_elements(stack_.back().kind) && is_blank(text)) return;
        text_.append(text);
    }

    void close(std::string_view tag) {
        const Element element = stack_.back();
        stack_.pop_back();
        switch (element.kind) {
            case Kind::document: break;
            case Kind::method_name:
                if (!is_method_name(text_)) return bad_method(text_);
                verdict_.method = text_;
                // The library's own methods are few and small, and system.multicall would meet its inner calls'
                // parameters.
                packer_.begin(text_);
                if (text_.starts_with("system.")) packer_.give_up();
                break;
            case Kind::name:
                stack_[stack_.size() - 2].names_method =
                    stack_.size() == inner_struct_depth + 1 && verdict_.method == multicall && text_ == "methodName";
                packer_.add_member(text_);
                break;
            case Kind::scalar:
                take(*element.scalar);
                std::swap(scalar_text_, text_);
                break;
            case Kind::value:
                --depth_;
                if (element.children > 0 && !is_blank(text_)) return misplaced();
                if (element.children == 0) packer_.add(std::string_view(text_));
                note_inner_method(element.children > 0 ? scalar_text_ : text_);
                break;
            case Kind::call:
            case Kind::param:
            case Kind::array:
            case Kind::member:
                if (element.children < (element.kind == Kind::member ? 2U : 1U)) {
                    return refuse(Fault::malformed, "The element <" + std::string(tag) + "> is not complete.");
                }
                [[fallthrough]];
            case Kind::params:
            case Kind::data:
            case Kind::structure:
                if (!is_blank(text_)) return misplaced();
                if (element.kind == Kind::structure || element.kind == Kind::array) packer_.add(Item::end);
                scalar_text_.clear();
        }
        text_.clear();
    }

    void take(const Scalar &scalar) {
        switch (scalar.take(text_, packer_)) {
            case Check::good: return;
            case Check::malformed:
                return refuse(Fault::malformed, quoted(text_) + " is not of type " + std::string(scalar.name) + ".");
            case Check::out_of_range:
                return refuse(Fault::malformed,
                              quoted(text_) + " is out of the range of type " + std::string(scalar.name) + ".");
        }
    }

    // A struct may name its method twice. Whichever the library takes, both have to pass the filters.
    void note_inner_method(const std::string &name) {
        if (stack_.size() != inner_struct_depth + 1 || verdict_.method != multicall) return;
        if (!stack_[inner_struct_depth - 1].names_method) return;
        if (!is_method_name(name)) return bad_method(name);
        if (name == multicall) return refuse(Fault::refused, "A system.multicall cannot call system.multicall.");
        verdict_.inner.push_back(name);
    }

    void bad_method(std::string_view name) { refuse(Fault::malformed, quoted(name) + " is not the name of a method."); }
    void unexpected(std::string_view name) {
        refuse(Fault::malformed, "The element <" + shortened(name) + "> has no place where it stands.");
    }
    void misplaced() { refuse(Fault::malformed, quoted(text_) + " stands beside an element, where no text can be."); }

    static constexpr std::size_t largest_kept = 1 << 20;

    PrepassLimits limits_;
    bool reads_plain_;
    PlainReader plain_;
    std::unique_ptr<XML_ParserStruct, Free> parser_;
    /// What clients cannot guess, so that they cannot choose names that collide in expat's tables. Not 0.
    unsigned long salt_ = 0;
    Verdict verdict_;
    Packer packer_;
    std::vector<Element> stack_;
    /// The text since the last element opened or closed.
    std::string text_;
    /// The text of the value's type that closed last. Empty after a struct or an array.
    std::string scalar_text_;
    std::size_t depth_ = 0;
    std::size_t values_ = 0;
    bool ended_ = false;
    bool out_of_memory_ = false;
};

Prepass::Prepass(const PrepassLimits &limits, bool reads_plain) : walk_(std::make_unique<Walk>(limits, reads_plain)) {}
Prepass::~Prepass() = default;

Verdict Prepass::examine(std::string_view document) { return walk_->run(document); }

}  // namespace lmq::host
