// Drafts of rows: what the macros of describe.h make of a description, with what the compiler knows of each member, and
// the checks that compare a whole description with the header.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <type_traits>
#include <utility>

#include "marshal/row.h"

namespace lmq::describe {

/// A row as the macros make it, with pointers, before it is packed.
struct Draft {
    const char *key = "", *type = "", *bound = "";
    size_t offset = 0, size = 0, align = 1;
    size_t count = 1, width = 0, bits = 0;
    bool is_signed = false;
    const Udt *inner = nullptr;
    Kind kind = Kind::scalar;
};

struct Flag {
    const char *key;
    int bits;
};

template <class Mask, class Width>
constexpr Flag flag(const char *key, Width width) {
    Mask mask{};
    return {key, static_cast<int>(width(mask))};
}

/// A vx_uint8 array typedef counts as its element.
template <class T>
using element_of = std::remove_extent_t<T>;

template <class T>
constexpr bool is_scalar = std::is_integral_v<T> || std::is_enum_v<T>;

template <class T>
constexpr bool is_signed() {
    if constexpr (std::is_enum_v<T>)
        return std::is_signed_v<std::underlying_type_t<T>>;
    else
        return std::is_signed_v<T>;
}

/// The wire key of a member: the last part of its path.
constexpr const char *key_of(const char *path) {
    const char *key = path;
    for (; *path; ++path)
        if (*path == '.') key = path + 1;
    return key;
}

template <class Actual>
constexpr std::array<Draft, 1> scalar(const char *path, const char *type, size_t offset) {
    static_assert(is_scalar<Actual>, "rows: the member is no scalar");
    return {Draft{.key = key_of(path),
                  .type = type,
                  .offset = offset,
                  .size = sizeof(Actual),
                  .align = alignof(Actual),
                  .width = sizeof(Actual),
                  .is_signed = is_signed<Actual>(),
                  .kind = sizeof(Actual) == 8 ? Kind::wide : Kind::scalar}};
}

template <class Actual, class T, size_t bound>
constexpr std::array<Draft, 1> elements(const char *path, const char *type, const char *spelled, size_t offset) {
    using Element = element_of<T>;
    static_assert(is_scalar<Element> && sizeof(Element) <= 4, "rows: the elements are no scalars of 8, 16 or 32 bits");
    return {Draft{.key = key_of(path),
                  .type = type,
                  .bound = spelled,
                  .offset = offset,
                  .size = sizeof(Actual),
                  .align = alignof(Actual),
                  .count = bound,
                  .width = sizeof(Element),
                  .is_signed = is_signed<Element>(),
                  .kind = Kind::elements}};
}

template <class Actual, size_t bound>
constexpr std::array<Draft, 1> string(const char *path, const char *spelled, size_t offset) {
    return {Draft{.key = key_of(path),
                  .type = "vx_char *",
                  .bound = spelled,
                  .offset = offset,
                  .size = sizeof(Actual),
                  .count = bound,
                  .width = 1,
                  .kind = Kind::string}};
}

template <class Actual>
constexpr std::array<Draft, 1> nested(const char *path, const char *type, const Udt &udt, size_t offset) {
    static_assert(std::is_class_v<Actual> || std::is_union_v<Actual>, "rows: the member is no UDT");
    return {Draft{.key = key_of(path),
                  .type = type,
                  .offset = offset,
                  .size = sizeof(Actual),
                  .align = alignof(Actual),
                  .inner = &udt,
                  .kind = Kind::nested}};
}

template <class Actual, size_t bound>
constexpr std::array<Draft, 1> udt_array(const char *path, const char *type, const char *spelled, const Udt &udt,
                                         size_t offset, Kind kind) {
    return {Draft{.key = key_of(path),
                  .type = type,
                  .bound = spelled,
                  .offset = offset,
                  .size = sizeof(Actual),
                  .align = alignof(Actual),
                  .count = bound,
                  .inner = &udt,
                  .kind = kind}};
}

template <size_t... N>
constexpr auto join(const std::array<Draft, N> &...parts) {
    std::array<Draft, (N + ...)> rows{};
    size_t at = 0;
    (
        [&] {
            for (const Draft &draft : parts) rows[at++] = draft;
        }(),
        ...);
    return rows;
}

template <class Actual, size_t N>
constexpr std::array<Draft, N + 1> group(const char *path, size_t offset, Kind kind,
                                         const std::array<Draft, N> &inside) {
    const Draft head{.key = key_of(path),
                     .type = "inline struct",
                     .offset = offset,
                     .size = sizeof(Actual),
                     .align = alignof(Actual),
                     .count = N,
                     .kind = kind};
    return join(std::array{head}, inside);
}

/// How many initialisers an aggregate takes: its members, an anonymous union counting as one.
template <size_t>
struct Any {
    template <class T>
    constexpr operator T() const noexcept;
};
template <class S, size_t... I>
constexpr bool takes(std::index_sequence<I...>) {
    return requires { S{{Any<I>{}}...}; };
}
template <class S, size_t N = 1>
constexpr size_t members() {
    if constexpr (takes<S>(std::make_index_sequence<N>{}))
        return members<S, N + 1>();
    else
        return N - 1;
}

template <class Mask, size_t N>
constexpr std::array<Draft, N + 1> flags(const char *path, size_t offset, size_t size,
                                         const std::array<Flag, N> &names) {
    std::array<Draft, N> rows{};
    size_t bit = 0;
    for (size_t i = 0; i < N; ++i) {
        rows[i] = Draft{.key = names[i].key,
                        .type = "vx_uint32",
                        .offset = offset,
                        .count = bit,
                        .width = size,
                        .bits = size_t(names[i].bits),
                        .kind = Kind::flag};
        bit += rows[i].bits;
    }
    return group<Mask>(path, offset, Kind::inline_struct, rows);
}

constexpr const Draft *next(const Draft *draft) { return draft + 1 + (is_group(draft->kind) ? draft->count : 0); }

constexpr size_t aligned(size_t offset, size_t align) { return (offset + align - 1) / align * align; }

/// Whether every member has a row. Rows over one another, of an anonymous union, stand for one member.
template <class S, size_t N>
constexpr bool leaves_none_out(const std::array<Draft, N> &drafts) {
    size_t places = 0;
    const Draft *previous = nullptr;
    for (const Draft *draft = drafts.begin(); draft != drafts.end(); draft = describe::next(draft)) {
        if (!previous || draft->offset != previous->offset) ++places;
        previous = draft;
    }
    return std::is_union_v<S> || places == members<S>();
}

/// Whether the rows stand in order and leave no member out: each begins where the one before ends, or over it.
template <class S, size_t N>
constexpr bool covers(const std::array<Draft, N> &drafts) {
    size_t end = 0, previous = 0;
    for (const Draft *draft = drafts.begin(); draft != drafts.end(); draft = describe::next(draft)) {
        const bool over = draft != drafts.begin() && draft->offset == previous;
        if (!over && draft->offset != aligned(end, draft->align)) return false;
        previous = draft->offset;
        end = std::max(end, draft->offset + draft->size);
    }
    return aligned(end, alignof(S)) == sizeof(S) && leaves_none_out<S>(drafts);
}

/// The call of a deprecated function is a warning.
constexpr bool complete(std::true_type) { return true; }
[[deprecated("rows: the header declares a member without a row; it stays 0")]] constexpr bool complete(
    std::false_type) {
    return false;
}

}  // namespace lmq::describe
