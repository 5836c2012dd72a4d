// The answer of a host, read from its XML into a list of values that decode.h walks. The XML may be anything: what is
// no XML-RPC answer is refused here, and nothing of it is written anywhere.
#pragma once

#include <expat.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "host/plain_reader.h"

namespace lmq::remote {

enum class Form : std::uint8_t { open, nil, int32, int64, string, array, structure, other };

/// A value. What is in an array or a struct stands behind it in the list.
struct Value {
    Form form = Form::open;                 ///< Open while it is being read.
    std::uint32_t count = 0;                ///< Of an array or a struct: the values in it.
    std::uint32_t next = 0;                 ///< Index of the value behind this one and all that is in it.
    std::int64_t number = 0;                ///< Of an int32 or int64.
    std::uint32_t text = 0, size = 0;       ///< Of a string: where its text stands.
    std::uint32_t name = 0, name_size = 0;  ///< In a struct: where its name stands.
};

class Document {
  public:
    /// @param reads_plain Whether an answer in the usual form is read without expat, which makes no difference but in
    ///                    time.
    explicit Document(bool reads_plain = true);
    Document(const Document &) = delete;
    Document &operator=(const Document &) = delete;

    /// Reads an answer in the place of the one before.
    /// @param xml The document, which is changed where it holds characters that XML has no form for.
    /// @return What is wrong with it, in words; "" if nothing is.
    std::string read(std::string &xml);

    /// Whether the answer is a fault: a struct of faultCode and faultString.
    bool is_fault() const { return is_fault_; }

    /// The value of an answer that read() found to be one.
    const Value &root() const { return values_.front(); }

    const Value *first_in(const Value &value) const { return &value + 1; }
    const Value *behind(const Value &value) const { return values_.data() + value.next; }
    const Value *end() const { return values_.data() + values_.size(); }
    std::string_view text(const Value &value) const { return {texts_.data() + value.text, value.size}; }
    std::string_view name(const Value &value) const { return {texts_.data() + value.name, value.name_size}; }

    /// A member of a struct.
    /// @param hint Where it is looked for first; afterwards the member behind it.
    /// @return NULL if there is none.
    const Value *find(const Value &structure, std::string_view name, const Value *&hint) const;

  private:
    enum class Tag : std::uint8_t;
    struct Element;
    struct Events;
    static const Element *element(std::string_view name);
    template <class Work>
    static void within(void *self, Work work);
    void clear();
    bool read_plain(std::string_view xml);
    bool read_any(std::string &xml);
    void begin(std::string_view name);
    void finish();
    void set_value(Tag tag, std::string_view text);
    void refuse(const std::string &why);
    Value &open_value() { return values_[open_values_.back()]; }

    bool reads_plain_;
    host::PlainReader plain_;
    std::unique_ptr<XML_ParserStruct, void (*)(XML_Parser)> parser_;  // for what the other does not know
    unsigned long salt_ = 0;
    std::vector<Value> values_;
    std::string texts_;
    std::vector<Tag> open_;                   // elements
    std::vector<std::uint32_t> open_values_;  // indices of values
    std::size_t text_begin_ = 0;              // of the innermost element
    std::uint32_t name_ = 0, name_size_ = 0;  // of the member that has begun
    bool is_fault_ = false;
    std::string wrong_;
};

}  // namespace lmq::remote
