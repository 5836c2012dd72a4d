// What the host knows of the driver interface: for each method what it does to the chip and how long its arrays must
// be. It is read from the headers' comments when the host is built (interface/contract.py). Names are kept as hashes
// alone: a method that is none of the interface may be taken for one, but the registry knows it not.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lmq::host::contract {

/// What a function does to the chip.
enum class Effect : std::uint8_t { reads, reads_registers, clears, changes, resets };

/// Where the length of an array argument comes from.
enum class Source : std::uint8_t {
    number,  ///< It is fixed.
    value,   ///< Another argument says it.
    pointee  ///< Another argument points to it.
};

/// Stands for no argument and no struct.
inline constexpr std::uint8_t none = 0xFF;

/// The length of a pointer argument that stands for more than one element.
struct LengthRow {
    std::uint8_t argument;  ///< Counted from 0, as all arguments here.
    Source source;
    std::uint8_t from;        ///< The argument that says the length.
    std::uint8_t width;       ///< Bytes of that argument, to which the driver cuts what a client sends.
    std::uint16_t number;     ///< The length, or what the other argument is multiplied with.
    std::uint16_t if_zero;    ///< The length when the other argument is 0.
    std::uint16_t name;       ///< Of the argument: text() of it.
    std::uint16_t from_name;  ///< Of the one that says the length.
};

/// An argument that points to a struct in which a client's array can run over the end.
struct StructArgument {
    std::uint8_t argument;
    std::uint8_t structure;  ///< Index for structure().
};

/// A member that is an array or has one within.
struct MemberRow {
    std::uint32_t name;      ///< hash() of it.
    std::uint16_t offset;    ///< In bytes, from the beginning of the named struct that it stands in.
    std::uint16_t element;   ///< Bytes of an element; 0 if it is no array.
    std::uint8_t structure;  ///< What a value or an element is, or none.
};

struct StructRow {
    std::uint16_t size;  ///< In bytes; 0 for a struct or union declared in place, which is part of another.
    std::uint16_t members, count;
};

struct MethodRow {
    std::uint32_t name;  ///< hash() of it, without "lmq.".
    Effect effect;
    std::uint8_t flag;  ///< The argument that must not be 0 for Effect::clears; none if it always clears.
    std::uint8_t lengths, length_count;
    std::uint16_t structs;
    std::uint8_t struct_count;
};

/// FNV-1a with 32 bits.
constexpr std::uint32_t hash(std::string_view name) {
    std::uint32_t value = 0x811C9DC5;
    for (const char c : name) value = (value ^ static_cast<unsigned char>(c)) * 0x01000193;
    return value;
}

/// Finds a method.
/// @param name With "lmq." in front.
/// @return NULL if the interface has no such driver function.
const MethodRow *find(std::string_view name);

std::span<const LengthRow> lengths(const MethodRow &method);
std::span<const StructArgument> structs(const MethodRow &method);
const StructRow &structure(std::uint8_t index);

/// Finds a member.
/// @return NULL if the struct has no array in a member of that name.
const MemberRow *find(const StructRow &structure, std::string_view name);

/// The name at a place that a row says.
const char *text(std::uint16_t place);

/// A number over all names, types and values of the interface, in hexadecimal digits.
std::string_view fingerprint();

/// Bytes of all these tables.
std::size_t size();

}  // namespace lmq::host::contract
