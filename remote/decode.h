// Values of an answer into C's memory, by the rows. Each function is called twice: once to look at everything, once to
// write it, so that an answer that does not fit changes nothing.
#pragma once

#include <cstddef>
#include <cstdint>

#include "marshal/row.h"
#include "marshal/scalar.h"
#include "remote/document.h"

namespace lmq::remote {

class Decoder {
  public:
    /// @param document The answer.
    /// @param writes   Whether it writes, or only looks.
    Decoder(const Document &document, bool writes) : document_(document), writes_(writes) {}

    /// Reads an array of scalars, which must hold `count`. `limit` of them are written, if `to` is not NULL.
    /// Throws a Failure for what does not fit, as the other functions do.
    void elements(const Value &value, std::byte *to, std::size_t count, std::size_t limit, Scalar scalar);

    /// Reads a struct. `to` may be NULL.
    void structure(const Value &value, const Udt &udt, std::byte *to);

    /// Reads an array of structs; as elements().
    void structures(const Value &value, const Udt &udt, std::byte *to, std::size_t count, std::size_t limit);

    /// Whether everything that has been read was 0, or an empty text.
    bool is_blank() const { return is_blank_; }

  private:
    struct Place;
    void rows(const Value &value, const Place &place, const Row *row, const Row *end, int only);
    void member(const Value &value, const Place &place, const Row &row);
    void string(const Value &value, const Place &place, const Row &row);
    void flag(const Value &value, const Place &place, const Row &row);
    int selected(const Place &place, const Row &group) const;
    std::int64_t number(const Value &value, unsigned bits);
    void array(const Value &value, std::size_t count) const;

    const Document &document_;
    const bool writes_;
    bool is_blank_ = true;
};

}  // namespace lmq::remote
