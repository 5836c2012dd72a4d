// The rows that the coders walk: what a UDT looks like on the wire and in memory.
//
// Rows are made by the macros of describe.h from a readable description, at compile time. A row holds no pointer, only
// offsets into the strings of its UDT: tables without pointers need no relocation and stay shared between processes.
#pragma once

#include <cstdint>

namespace lmq {

/// Room for any name that clients are told, with what stands around it: a prefix, a bound, " *" and the terminator.
constexpr unsigned name_room = 128;

enum class Kind : uint8_t {
    scalar,         ///< integer, enum, vx_boolean: an int
    wide,           ///< 64-bit integer: an i8, read from an int too
    string,         ///< vx_char array: a string
    elements,       ///< array of scalars: an array of ints, read from an int too
    nested,         ///< UDT by value: a struct
    udt_array,      ///< array of UDTs: an array of structs, read from a struct too
    udt_list,       ///< array of UDTs that is not read from a struct
    inline_struct,  ///< struct or union declared within the UDT; fault texts inside name the UDT's own member
    overlaid,       ///< the same; fault texts inside name the alternative, and "inline struct" as its struct
    flag,           ///< bit-field of a mask: an int
};

struct Row {
    uint16_t key;     ///< string: wire key
    uint16_t type;    ///< string: declared type, as fault texts and member lists name it
    uint16_t bound;   ///< string: declared bound of an array as the header spells it, or empty
    uint16_t offset;  ///< of the member, in bytes
    uint16_t count;  ///< elements of an array; rows of the keys inside an inline struct or overlay; first bit of a flag
    uint8_t width;   ///< of a scalar, an element or the word of a flag, in bytes
    uint8_t bits;    ///< of a flag
    bool is_signed;
    uint8_t inner;  ///< nested, udt_array, udt_list: index into Udt::inner
    Kind kind;
};

constexpr bool is_group(Kind kind) { return kind == Kind::inline_struct || kind == Kind::overlaid; }

/// The row behind this one and all that it holds.
constexpr const Row *next(const Row *row) { return row + 1 + (is_group(row->kind) ? row->count : 0); }

/// A structure type of the driver interface.
struct Udt {
    const char *name;
    const char *strings;
    const Row *rows;  ///< in order of declaration; the keys of an inline struct follow it
    const Udt *const *inner;
    uint32_t size;  ///< in bytes
    uint16_t count;

    const Row *end() const { return rows + count; }
    const char *text(uint16_t string) const { return strings + string; }
};

}  // namespace lmq
