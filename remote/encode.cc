// The walk over the rows of a UDT that writes XML.
#include "remote/encode.h"

#include <charconv>
#include <cstring>

#include "remote/failure.h"
#include "remote/unions.h"

namespace lmq::remote {
namespace {

/// The bytes of a character in UTF-8, from its first one; 0 if it is none that XML can hold.
std::size_t character(const unsigned char *at, std::size_t left) {
    if (*at < 0x80) return *at >= ' ' || *at == '\t' || *at == '\n' || *at == '\r' ? 1 : 0;
    const std::size_t size = *at >= 0xC2 && *at < 0xE0 ? 2 : *at >= 0xE0 && *at < 0xF0 ? 3 : 0;
    if (size == 0 || size > left) return 0;  // the library takes nothing beyond three bytes
    for (std::size_t i = 1; i < size; ++i)
        if ((at[i] & 0xC0) != 0x80) return 0;
    const unsigned code = size == 2 ? 0x80 : (at[0] & 0x0FU) << 12 | (at[1] & 0x3FU) << 6 | (at[2] & 0x3FU);
    return code < (size == 3 ? 0x800U : 0U) || (code >= 0xD800 && code < 0xE000) || code >= 0xFFFE ? 0 : size;
}

}  // namespace

void Encoder::number(std::int64_t value, const char *begin, const char *end) {
    char digits[24];
    const auto written = std::to_chars(digits, digits + sizeof digits, value);
    to_.append(begin).append(digits, written.ptr).append(end);
}

void Encoder::integer(std::int32_t value) { number(value, "<value><i4>", "</i4></value>"); }

void Encoder::elements(const std::byte *from, std::size_t count, Scalar scalar) {
    to_ += "<value><array><data>";
    for (std::size_t i = 0; i < count; ++i) integer(from ? load(from + i * scalar.width, scalar) : 0);
    to_ += "</data></array></value>";
}

void Encoder::structures(const Udt &udt, const std::byte *from, std::size_t count) {
    to_ += "<value><array><data>";
    for (std::size_t i = 0; i < count; ++i) structure(udt, from ? from + i * udt.size : nullptr);
    to_ += "</data></array></value>";
}

void Encoder::structure(const Udt &udt, const std::byte *from) {
    if (from)
        rows(udt, from, udt.rows, udt.end(), -1);
    else
        to_ += "<value><struct></struct></value>";
}

void Encoder::rows(const Udt &udt, const std::byte *from, const Row *row, const Row *end, int only) {
    to_ += "<value><struct>";
    for (int index = 0; row != end; row = next(row), ++index) {
        if (only >= 0 && index != only) continue;
        to_.append("<member><name>").append(udt.text(row->key)) += "</name>";
        member(udt, from, *row);
        to_ += "</member>";
    }
    to_ += "</struct></value>";
}

void Encoder::member(const Udt &udt, const std::byte *from, const Row &row) {
    const std::byte *const at = from + row.offset;
    switch (row.kind) {
        case Kind::scalar: return integer(load(at, {row.width, row.is_signed}));
        case Kind::wide: {
            std::int64_t value;
            std::memcpy(&value, at, sizeof value);
            return number(value, "<value><i8>", "</i8></value>");
        }
        case Kind::string: return string(udt, row, reinterpret_cast<const char *>(at));
        case Kind::elements: return elements(at, row.count, {row.width, row.is_signed});
        case Kind::nested: return structure(*udt.inner[row.inner], at);
        case Kind::udt_array:
        case Kind::udt_list: return structures(*udt.inner[row.inner], at, row.count);
        case Kind::inline_struct:
        case Kind::overlaid: {
            const Union *const known = find_union(udt, row);
            return rows(udt, from, &row + 1, next(&row), known ? known->selected_in(from) : -1);
        }
        case Kind::flag: {
            const std::uint32_t word = static_cast<std::uint32_t>(load(at, {row.width, false})) >> row.count;
            return integer(static_cast<std::int32_t>(row.bits < 32 ? word & ((1U << row.bits) - 1) : word));
        }
    }
    __builtin_unreachable();
}

// The text up to its terminator, or all of the member.
void Encoder::string(const Udt &udt, const Row &row, const char *from) {
    const std::size_t length = strnlen(from, row.count);
    to_ += "<value><string>";
    for (std::size_t at = 0, size; at < length; at += size) {
        size = character(reinterpret_cast<const unsigned char *>(from) + at, length - at);
        if (size == 0)
            throw Failure(LMQ_REMOTE_NOT_SENT, std::string("member ") + udt.text(row.key) + " of " + udt.name +
                                                   " holds bytes that are no text in UTF-8");
        switch (from[at]) {
            case '&': to_ += "&amp;"; break;
            case '<': to_ += "&lt;"; break;
            case '>': to_ += "&gt;"; break;
            case '\r': to_ += "&#13;"; break;  // a reader makes a line feed of a bare one
            default: to_.append(from + at, size);
        }
    }
    to_ += "</string></value>";
}

}  // namespace lmq::remote
