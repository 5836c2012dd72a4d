// C's memory as the XML of a call, by the rows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "marshal/row.h"
#include "marshal/scalar.h"

namespace lmq::remote {

/// Appends to a document. The functions throw a Failure for what has no form in XML.
class Encoder {
  public:
    /// @param to Where the document goes.
    explicit Encoder(std::string &to) : to_(to) {}

    void integer(std::int32_t value);

    /// Appends an array of scalars; of zeros if `from` is NULL.
    void elements(const std::byte *from, std::size_t count, Scalar scalar);

    /// Appends a struct with all members, of unions the alternative that counts; one without members if `from` is NULL.
    void structure(const Udt &udt, const std::byte *from);

    /// Appends an array of structs, likewise.
    void structures(const Udt &udt, const std::byte *from, std::size_t count);

  private:
    void rows(const Udt &udt, const std::byte *from, const Row *row, const Row *end, int only);
    void member(const Udt &udt, const std::byte *from, const Row &row);
    void string(const Udt &udt, const Row &row, const char *from);
    void number(std::int64_t value, const char *begin, const char *end);

    std::string &to_;
};

}  // namespace lmq::remote
