// The macros that describe a UDT, and what turns a description into rows (row.h) at compile time.
//
//     UDT(vx_watchdog_cfg_t,
//         SCALAR(vx_boolean,     wd_enable),
//         SCALAR(vx_uint32,      wd_timer),
//         SCALAR(vx_wd_action_e, wd_action),
//         FLAGS(mask_s, wd_enable, wd_timer, wd_action, reserved))
//
// A row names the declared type and the member. The compiler supplies offset, width, sign and element count from the
// header, and a row that disagrees with it does not compile: another type, another order, a member or flag without a
// row, a wrong bound. The rows of a UDT stand in order of declaration. A member inside an inline struct is written with
// its path (`addr.v4`); its wire key is the last part.
//
// What the compiler cannot see is the name of a typedef (vx_boolean and vx_uint8 are one type): a test compares the
// names with the text of the headers.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <string_view>
#include <type_traits>
#include <utility>

#include "marshal/for_each.h"
#include "marshal/row.h"

// SCALAR(T, m): an integer, enum or vx_boolean. 8, 16 and 32 bits are an int on the wire, 64 bits an i8.
#define SCALAR(T, m) LMQ_ROW(m, T, #T, ::lmq::describe::scalar<decltype(S::m)>(#m, #T, offsetof(S, m)))

// ELEMENTS(T, m, bound): an array of scalars. `bound` is spelled as the header spells it, and printed so; for an array
// typedef such as vx_mac_addr_t, T is the typedef.
#define ELEMENTS(T, m, bound)                                                                                  \
    LMQ_ROW(m, ::lmq::describe::element_of<T>[bound], "an array of elements of " #T " with the bound " #bound, \
            ::lmq::describe::elements<decltype(S::m), T, (bound)>(#m, #T, #bound, offsetof(S, m)))

// STRING(m, bound): a character array that travels as a string of at most `bound` characters.
#define STRING(m, bound)                           \
    LMQ_ROW(m, char[bound], "vx_char[" #bound "]", \
            ::lmq::describe::string<decltype(S::m), (bound)>(#m, #bound, offsetof(S, m)))

// NESTED(T, m): a UDT by value.
#define NESTED(T, m) LMQ_ROW(m, T, #T, ::lmq::describe::nested<decltype(S::m)>(#m, #T, udt_##T, offsetof(S, m)))

// UDT_ARRAY(T, m, bound): an array of UDTs, which a client may also send as a single struct.
#define UDT_ARRAY(T, m, bound) LMQ_UDT_ROW(T, #T, m, (bound), #bound, ::lmq::Kind::udt_array)

// UDT_ARRAY_SPELLED(T, spelling, m, bound): the same where member lists and fault texts spell the type otherwise.
#define UDT_ARRAY_SPELLED(T, spelling, m, bound) LMQ_UDT_ROW(T, spelling, m, (bound), #bound, ::lmq::Kind::udt_array)

// UDT_LIST(T, m, bound): an array of UDTs for which a single struct is refused.
#define UDT_LIST(T, m, bound) LMQ_UDT_ROW(T, #T, m, (bound), #bound, ::lmq::Kind::udt_list)

// INLINE(m, rows...): a struct or union declared within the UDT. Fault texts of the keys inside name the UDT's own
// member, whatever the depth: "Member addr of struct type vx_ip_addr_t: expected a vx_in_addr_t ...".
#define INLINE(m, ...)                                                                     \
    ::lmq::describe::group<decltype(S::m)>(#m, offsetof(S, m), ::lmq::Kind::inline_struct, \
                                           ::lmq::describe::join(__VA_ARGS__))

// OVERLAID(m, rows...): the same, but fault texts of the keys inside name the alternative as the member and "inline
// struct" as its struct: "Member mac of struct type inline struct: expected a vx_mac_addr_t ...".
#define OVERLAID(m, ...)                                                              \
    ::lmq::describe::group<decltype(S::m)>(#m, offsetof(S, m), ::lmq::Kind::overlaid, \
                                           ::lmq::describe::join(__VA_ARGS__))

// FLAGS(m, flags...): an inline struct of bit-fields, all of them, in order from bit 0. A flag may be wider than a bit.
#define FLAGS(m, ...)                                                                                               \
    (LMQ_CHECK("row " #m ": the header declares a flag that has no row",                                            \
               ::lmq::describe::members<decltype(S::m)>() == (LMQ_FOR_EACH(LMQ_FLAG_COUNT, , __VA_ARGS__))),        \
     ::lmq::describe::flags<decltype(S::m)>(#m, offsetof(S, m),                                                     \
                                            sizeof(decltype(S::m){LMQ_FOR_EACH(LMQ_FLAG_ZERO, S::m, __VA_ARGS__)}), \
                                            std::array{LMQ_FOR_EACH(LMQ_FLAG, S::m, __VA_ARGS__)}))

// MASK(m, T, flags...): a mask in two views, `mask_s` with the flags and `mask`, the word over them, of type T. A
// client that sends both gets `mask`, since it is read second. Where T is narrower than the flags, the last flags can
// be reached through `mask_s` alone.
#define MASK(m, T, ...) INLINE(m, FLAGS(m.mask_s, __VA_ARGS__), SCALAR(T, m.mask))

// UDT(T, rows...): describes T and defines udt_T. Stands in namespace lmq. Does not compile before T is named in
// families/udts.def, or clients would not be told of it.
#define UDT(T, ...)                                                 \
    namespace rows_of_##T {                                         \
        using S = T;                                                \
        using declared_by_udts_def = decltype(::lmq::udt_##T);      \
        constexpr auto drafts = ::lmq::describe::join(__VA_ARGS__); \
        LMQ_UDT_CHECK(T)                                            \
    }                                                               \
    constinit const Udt udt_##T = ::lmq::describe::packed<rows_of_##T::drafts>(#T, sizeof(T));

// The headers of this repository declare what clients see: every member has a row, and the rows stand in the header's
// order. A real driver's own headers (LMQ_REAL_DRIVER) may declare members that clients do not see, and in any order:
// the offsets follow. Since such members stay 0, the compiler warns of them.
#ifdef LMQ_REAL_DRIVER
#define LMQ_UDT_CHECK(T)                      \
    [[maybe_unused]] constexpr bool checked = \
        ::lmq::describe::complete(std::bool_constant<::lmq::describe::leaves_none_out<S>(drafts)>{});
#else
#define LMQ_UDT_CHECK(T)                              \
    static_assert(::lmq::describe::covers<S>(drafts), \
                  "rows of " #T ": a member has no row, or the rows are not in the header's order");
#endif

// UDT_AS(T, Rows): T has the members of Rows under a name of its own, which its fault texts carry.
#define UDT_AS(T, Rows)                                                                                     \
    static_assert(std::is_same_v<T, Rows>, "rows of " #T ": in the header it is another type than " #Rows); \
    constinit const Udt udt_##T = ::lmq::describe::packed<rows_of_##Rows::drafts>(#T, sizeof(T));

// An expression that holds a check, whose text can name the row; hence the function, which is never called.
#define LMQ_CHECK(text, ...) void([] { static_assert(__VA_ARGS__, text); })

// A row whose member must have the type T in the header: `told` in words. A bound comes here as a text already, since
// an argument that goes on to another macro is no longer as it was spelled.
#define LMQ_ROW(m, T, told, ...) \
    (LMQ_CHECK("row " #m ": the header does not declare it as " told, std::is_same_v<decltype(S::m), T>), __VA_ARGS__)
#define LMQ_UDT_ROW(T, spelling, m, count, bound, kind) \
    LMQ_ROW(m, T[count], #T "[" bound "]",              \
            ::lmq::describe::udt_array<decltype(S::m), count>(#m, spelling, bound, udt_##T, offsetof(S, m), kind))

// What FLAGS makes of one flag. The initialiser with every flag in turn compiles in the header's order alone.
#define LMQ_FLAG_COUNT(mask, name) +1
#define LMQ_FLAG_ZERO(mask, name) .name = 0,
#define LMQ_FLAG(mask, name)                                              \
    ::lmq::describe::flag<decltype(mask)>(#name, [](auto &all) {          \
        --all.name; /* from 0 to all ones */                              \
        return std::bit_width(static_cast<unsigned long long>(all.name)); \
    }),

namespace lmq::describe {

// A row as the macros make it, with pointers, before it is packed.
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

// A vx_uint8 array typedef counts as its element.
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

// The wire key of a member: the last part of its path.
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

// How many initialisers an aggregate takes: its members, an anonymous union counting as one.
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

// Whether every member has a row. Rows over one another, of an anonymous union, stand for one member.
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

// Whether the rows stand in order and leave no member out: each begins where the one before ends, or over it.
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

// The call of a deprecated function is a warning.
constexpr bool complete(std::true_type) { return true; }
[[deprecated("rows: the header declares a member without a row; it stays 0")]] constexpr bool complete(
    std::false_type) {
    return false;
}

// The strings of a UDT or a method, each once, one behind the other. The empty string stands first.
template <size_t capacity>
struct Strings {
    std::array<char, capacity> text{};
    size_t size = 1;

    constexpr uint16_t add(std::string_view string) {
        for (size_t at = 0; at < size; at += std::string_view(&text[at]).size() + 1)
            if (std::string_view(&text[at]) == string) return uint16_t(at);
        const size_t at = size;
        std::copy(string.begin(), string.end(), text.begin() + ptrdiff_t(at));
        size += string.size() + 1;
        return uint16_t(at);
    }
};

// Cuts a table to its size, which is known only when it is filled.
template <size_t size, class T, size_t N>
constexpr std::array<T, size> first(const std::array<T, N> &all) {
    std::array<T, size> part{};
    std::copy_n(all.begin(), size, part.begin());
    return part;
}

constexpr size_t string_capacity = 16384;

constexpr bool has_inner(Kind kind) {
    return kind == Kind::nested || kind == Kind::udt_array || kind == Kind::udt_list;
}

template <const auto &drafts>
struct Packed {
    static_assert(std::all_of(drafts.begin(), drafts.end(),
                              [](const Draft &d) { return d.offset < 65536 && d.count < 65536; }),
                  "rows: an offset or a count needs more than 16 bits");
    struct Result {
        Strings<string_capacity> strings;
        std::array<Row, drafts.size()> rows{};
        std::array<const Udt *, drafts.size()> inner{};
        size_t inner_count = 0;
    };
    static constexpr Result pack() {
        Result result;
        for (size_t i = 0; i < drafts.size(); ++i) {
            const Draft &draft = drafts[i];
            Row &row = result.rows[i];
            row = Row{.key = result.strings.add(draft.key),
                      .type = result.strings.add(draft.type),
                      .bound = result.strings.add(draft.bound),
                      .offset = uint16_t(draft.offset),
                      .count = uint16_t(draft.count),
                      .width = uint8_t(draft.width),
                      .bits = uint8_t(draft.bits),
                      .is_signed = draft.is_signed,
                      .inner = 0,
                      .kind = draft.kind};
            if (!has_inner(draft.kind)) continue;
            // Told apart by name: under the sanitizers the comparison of two addresses is no constant.
            const auto same = [&](const Draft &other) {
                return has_inner(other.kind) && std::string_view(other.type) == draft.type;
            };
            const auto first = std::find_if(drafts.begin(), drafts.begin() + ptrdiff_t(i), same);
            if (first != drafts.begin() + ptrdiff_t(i)) {
                row.inner = result.rows[size_t(first - drafts.begin())].inner;
            } else {
                row.inner = uint8_t(result.inner_count);
                result.inner[result.inner_count++] = draft.inner;
            }
        }
        return result;
    }
    static constexpr auto strings = first<pack().strings.size>(pack().strings.text);
    static constexpr auto rows = pack().rows;
    static constexpr auto inner = first<pack().inner_count>(pack().inner);
};

template <const auto &drafts>
constexpr Udt packed(const char *name, size_t size) {
    using P = Packed<drafts>;
    return Udt{name, P::strings.data(), P::rows.data(), P::inner.data(), uint32_t(size), uint16_t(P::rows.size())};
}

}  // namespace lmq::describe
