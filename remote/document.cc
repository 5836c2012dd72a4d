// Reads the XML of an answer: one table says which element may stand in which. What answers look like as a rule is read
// by a reader of the host's, in a fifth of the time; the rest, and whatever is wrong, by expat.
#include "remote/document.h"

#include <charconv>
#include <limits>
#include <random>

namespace lmq::remote {

enum class Document::Tag : std::uint8_t {
    none,
    response,
    params,
    param,
    fault,
    value,
    int32,
    int64,
    string,
    other,
    nil,
    array,
    data,
    structure,
    member,
    name
};

struct Document::Element {
    std::string_view name;
    Tag tag;
    std::uint32_t parents;  // one bit for each tag
};

const Document::Element *Document::element(std::string_view name) {
    constexpr auto in = [](auto... tags) { return ((1U << static_cast<unsigned>(tags)) | ...); };
    static constexpr Element elements[] = {
        {"value", Tag::value, in(Tag::param, Tag::fault, Tag::data, Tag::member)},
        {"i4", Tag::int32, in(Tag::value)},
        {"member", Tag::member, in(Tag::structure)},
        {"name", Tag::name, in(Tag::member)},
        {"struct", Tag::structure, in(Tag::value)},
        {"array", Tag::array, in(Tag::value)},
        {"data", Tag::data, in(Tag::array)},
        {"i8", Tag::int64, in(Tag::value)},
        {"string", Tag::string, in(Tag::value)},
        {"nil", Tag::nil, in(Tag::value)},
        {"int", Tag::int32, in(Tag::value)},
        {"boolean", Tag::other, in(Tag::value)},
        {"double", Tag::other, in(Tag::value)},
        {"dateTime.iso8601", Tag::other, in(Tag::value)},
        {"base64", Tag::other, in(Tag::value)},
        {"methodResponse", Tag::response, in(Tag::none)},
        {"params", Tag::params, in(Tag::response)},
        {"param", Tag::param, in(Tag::params)},
        {"fault", Tag::fault, in(Tag::response)},
    };
    for (const Element &each : elements)
        if (each.name == name) return &each;
    return nullptr;
}

namespace {

constexpr std::size_t deepest = 200;  // elements; the interface needs a quarter of it

bool is_text(std::string_view text) { return text.find_first_not_of(" \t\r\n") != std::string_view::npos; }

// The XML-RPC library sends control characters as they are, which no reader of XML takes: each becomes a character for
// private use, and what stood there again when the text is read.
constexpr bool has_no_form(char c) { return c > 0 && c < ' ' && c != '\t' && c != '\n' && c != '\r'; }
constexpr std::string_view private_use = "\xEE\x80";  // U+E000 to U+E03F but for the last byte

void give_form(std::string &xml) {
    std::string given;
    std::size_t from = 0;
    for (std::size_t at = 0; at < xml.size(); ++at) {
        if (!has_no_form(xml[at])) continue;
        given.append(xml, from, at - from).append(private_use) += static_cast<char>(0x80 | xml[at]);
        from = at + 1;
    }
    if (from > 0) xml = given.append(xml, from);
}

void take_form(std::string &text, std::size_t from) {
    while ((from = text.find(private_use, from)) != std::string::npos) {
        const char c = static_cast<char>(text[from + 2] & 0x3F);
        if (has_no_form(c)) text.replace(from, 3, 1, c);
        ++from;
    }
}

}  // namespace

Document::Document(bool reads_plain) : reads_plain_(reads_plain), parser_(XML_ParserCreate("UTF-8"), &XML_ParserFree) {
    if (!parser_) throw std::bad_alloc();
    std::random_device random;
    salt_ = random() | 1U;
}

// Nothing is thrown through expat, which is C.
template <class Work>
void Document::within(void *self, Work work) {
    auto &document = *static_cast<Document *>(self);
    try {
        if (document.wrong_.empty()) work(document);
    } catch (const std::exception &) {
        document.refuse("no memory");
    }
}

// What the plain reader reports.
struct Document::Events {
    Document &document;

    bool open(std::string_view name) const {
        document.begin(name);
        return document.wrong_.empty();
    }
    bool characters(std::string_view text) const {
        document.texts_.append(text);
        return true;
    }
    bool close(std::string_view) const {
        document.finish();
        return document.wrong_.empty();
    }
};

void Document::clear() {
    values_.clear();
    texts_.clear();
    open_.assign(1, Tag::none);
    open_values_.clear();
    is_fault_ = false;
    wrong_.clear();
    text_begin_ = name_size_ = 0;
}

bool Document::read_plain(std::string_view xml) {
    clear();
    try {
        return plain_.read(xml, Events{*this});
    } catch (const std::bad_alloc &) {
        return false;
    }
}

std::string Document::read(std::string &xml) {
    if (xml.size() > std::numeric_limits<int>::max()) return "it is too long";
    const bool is_xml = (reads_plain_ && read_plain(xml)) || read_any(xml);
    if (!wrong_.empty()) return wrong_;
    if (!is_xml) return std::string("it is no XML: ") + XML_ErrorString(XML_GetErrorCode(parser_.get()));
    if (values_.empty()) return "it holds no value";
    return {};
}

bool Document::read_any(std::string &xml) {
    clear();
    give_form(xml);
    XML_ParserReset(parser_.get(), "UTF-8");
    // Of its own, since expat would ask the kernel for one with each document.
    XML_SetHashSalt(parser_.get(), salt_);
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(
        parser_.get(),
        [](void *self, const char *name, const char **) {
            within(self, [=](Document &document) { document.begin(name); });
        },
        [](void *self, const char *) { within(self, [](Document &document) { document.finish(); }); });
    XML_SetCharacterDataHandler(parser_.get(), [](void *self, const char *text, int size) {
        within(self, [=](Document &document) { document.texts_.append(text, static_cast<std::size_t>(size)); });
    });
    XML_SetStartDoctypeDeclHandler(parser_.get(), [](void *self, const char *, const char *, const char *, int) {
        within(self, [](Document &document) { document.refuse("it has a document type"); });
    });
    return XML_Parse(parser_.get(), xml.data(), static_cast<int>(xml.size()), XML_TRUE) == XML_STATUS_OK;
}

void Document::refuse(const std::string &why) {
    wrong_ = why;
    XML_StopParser(parser_.get(), XML_FALSE);  // which starts anew if it is not the one at work
}

void Document::begin(std::string_view name) {
    const Element *const found = element(name);
    const Tag around = open_.back();
    if (!found || !(found->parents >> static_cast<unsigned>(around) & 1))
        return refuse("an element <" + std::string(name.substr(0, 40)) + "> stands where none may");
    if (is_text(std::string_view(texts_).substr(text_begin_))) return refuse("a text stands where none may");
    if (open_.size() > deepest) return refuse("its values stand too deep in each other");
    // A value holds one thing.
    if (around == Tag::value && open_value().form != Form::open) return refuse("a value holds two");
    if (found->tag == Tag::value) {
        if (open_values_.empty() && !values_.empty()) return refuse("it holds two values");
        if (around == Tag::member && name_size_ == 0) return refuse("a member has no name");
        if (!open_values_.empty()) ++open_value().count;
        is_fault_ = is_fault_ || around == Tag::fault;
        open_values_.push_back(static_cast<std::uint32_t>(values_.size()));
        values_.push_back({.name = name_, .name_size = around == Tag::member ? name_size_ : 0});
        name_size_ = 0;
    } else if (found->tag == Tag::member) {
        name_size_ = 0;
    } else if (found->tag == Tag::array) {
        open_value().form = Form::array;
    } else if (found->tag == Tag::structure) {
        open_value().form = Form::structure;
    }
    open_.push_back(found->tag);
    text_begin_ = texts_.size();
}

void Document::finish() {
    const Tag tag = open_.back();
    open_.pop_back();
    const std::string_view text = std::string_view(texts_).substr(text_begin_);
    if (tag == Tag::name) {
        name_ = static_cast<std::uint32_t>(text_begin_);
        name_size_ = static_cast<std::uint32_t>(text.size());
    } else if (tag == Tag::value) {
        Value &value = open_value();
        // A string without an element of its own.
        if (value.form == Form::open) set_value(Tag::string, text);
        value.next = static_cast<std::uint32_t>(values_.size());
        open_values_.pop_back();
    } else if (tag == Tag::int32 || tag == Tag::int64 || tag == Tag::string || tag == Tag::other || tag == Tag::nil) {
        set_value(tag, text);
    } else if (is_text(text)) {
        refuse("a text stands where none may");
    }
    text_begin_ = texts_.size();
}

void Document::set_value(Tag tag, std::string_view text) {
    Value &value = open_value();
    if (tag == Tag::int32 || tag == Tag::int64) {
        value.form = tag == Tag::int32 ? Form::int32 : Form::int64;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value.number);
        if (error != std::errc() || end != text.data() + text.size() ||
            (tag == Tag::int32 && value.number != static_cast<std::int32_t>(value.number)))
            refuse("a number is none, or too large for its type");
    } else if (tag == Tag::string) {
        value.form = Form::string;
        take_form(texts_, text_begin_);
        value.text = static_cast<std::uint32_t>(text_begin_);
        value.size = static_cast<std::uint32_t>(texts_.size() - text_begin_);
    } else {
        value.form = tag == Tag::nil ? Form::nil : Form::other;
    }
}

const Value *Document::find(const Value &structure, std::string_view name, const Value *&hint) const {
    // Members come in the order in which they are asked for, or nearly so.
    const Value *const stop = behind(structure);
    const Value *at = hint;
    for (std::uint32_t tried = 0; tried < structure.count; ++tried, at = behind(*at)) {
        if (at == stop) at = first_in(structure);
        if (this->name(*at) == name) {
            hint = behind(*at);
            return at;
        }
    }
    return nullptr;
}

}  // namespace lmq::remote
