// The macros that describe a UDT. A description becomes drafts of its rows (draft.h), and these become rows (row.h),
// all of it at compile time (pack.h).
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

#include <array>
#include <bit>
#include <cstddef>
#include <type_traits>

#include "marshal/draft.h"
#include "marshal/for_each.h"
#include "marshal/pack.h"

/// SCALAR(T, m): an integer, enum or vx_boolean. 8, 16 and 32 bits are an int on the wire, 64 bits an i8.
#define SCALAR(T, m) LMQ_ROW(m, T, #T, ::lmq::describe::scalar<decltype(S::m)>(#m, #T, offsetof(S, m)))

/// ELEMENTS(T, m, bound): an array of scalars. `bound` is spelled as the header spells it, and printed so; for an array
/// typedef such as vx_mac_addr_t, T is the typedef.
#define ELEMENTS(T, m, bound)                                                                                  \
    LMQ_ROW(m, ::lmq::describe::element_of<T>[bound], "an array of elements of " #T " with the bound " #bound, \
            ::lmq::describe::elements<decltype(S::m), T, (bound)>(#m, #T, #bound, offsetof(S, m)))

/// STRING(m, bound): a character array that travels as a string of at most `bound` characters.
#define STRING(m, bound)                           \
    LMQ_ROW(m, char[bound], "vx_char[" #bound "]", \
            ::lmq::describe::string<decltype(S::m), (bound)>(#m, #bound, offsetof(S, m)))

/// NESTED(T, m): a UDT by value.
#define NESTED(T, m) LMQ_ROW(m, T, #T, ::lmq::describe::nested<decltype(S::m)>(#m, #T, udt_##T, offsetof(S, m)))

/// UDT_ARRAY(T, m, bound): an array of UDTs, which a client may also send as a single struct.
#define UDT_ARRAY(T, m, bound) LMQ_UDT_ROW(T, #T, m, (bound), #bound, ::lmq::Kind::udt_array)

/// UDT_ARRAY_SPELLED(T, spelling, m, bound): the same where member lists and fault texts spell the type otherwise.
#define UDT_ARRAY_SPELLED(T, spelling, m, bound) LMQ_UDT_ROW(T, spelling, m, (bound), #bound, ::lmq::Kind::udt_array)

/// UDT_LIST(T, m, bound): an array of UDTs for which a single struct is refused.
#define UDT_LIST(T, m, bound) LMQ_UDT_ROW(T, #T, m, (bound), #bound, ::lmq::Kind::udt_list)

/// INLINE(m, rows...): a struct or union declared within the UDT. Fault texts of the keys inside name the UDT's own
/// member, whatever the depth: "Member addr of struct type vx_ip_addr_t: expected a vx_in_addr_t ...".
#define INLINE(m, ...)                                                                     \
    ::lmq::describe::group<decltype(S::m)>(#m, offsetof(S, m), ::lmq::Kind::inline_struct, \
                                           ::lmq::describe::join(__VA_ARGS__))

/// OVERLAID(m, rows...): the same, but fault texts of the keys inside name the alternative as the member and "inline
/// struct" as its struct: "Member mac of struct type inline struct: expected a vx_mac_addr_t ...".
#define OVERLAID(m, ...)                                                              \
    ::lmq::describe::group<decltype(S::m)>(#m, offsetof(S, m), ::lmq::Kind::overlaid, \
                                           ::lmq::describe::join(__VA_ARGS__))

/// FLAGS(m, flags...): an inline struct of bit-fields, all of them, in order from bit 0. A flag may be wider than a
/// bit.
#define FLAGS(m, ...)                                                                                               \
    (LMQ_CHECK("row " #m ": the header declares a flag that has no row",                                            \
               ::lmq::describe::members<decltype(S::m)>() == (LMQ_FOR_EACH(LMQ_FLAG_COUNT, , __VA_ARGS__))),        \
     ::lmq::describe::flags<decltype(S::m)>(#m, offsetof(S, m),                                                     \
                                            sizeof(decltype(S::m){LMQ_FOR_EACH(LMQ_FLAG_ZERO, S::m, __VA_ARGS__)}), \
                                            std::array{LMQ_FOR_EACH(LMQ_FLAG, S::m, __VA_ARGS__)}))

/// MASK(m, T, flags...): a mask in two views, `mask_s` with the flags and `mask`, the word over them, of type T. A
/// client that sends both gets `mask`, since it is read second. Where T is narrower than the flags, the last flags can
/// be reached through `mask_s` alone.
#define MASK(m, T, ...) INLINE(m, FLAGS(m.mask_s, __VA_ARGS__), SCALAR(T, m.mask))

/// UDT(T, rows...): describes T and defines udt_T. Stands in namespace lmq. Does not compile before T is named in
/// families/udts.def, or clients would not see it.
#define UDT(T, ...)                                                 \
    namespace rows_of_##T {                                         \
        using S = T;                                                \
        using declared_by_udts_def = decltype(::lmq::udt_##T);      \
        constexpr auto drafts = ::lmq::describe::join(__VA_ARGS__); \
        LMQ_UDT_CHECK(T)                                            \
    }                                                               \
    constinit const Udt udt_##T = ::lmq::describe::packed<rows_of_##T::drafts>(#T, sizeof(T));

/// The headers of this repository declare what clients see: every member has a row, and the rows stand in the header's
/// order. A real driver's own headers (LMQ_REAL_DRIVER) may declare members that clients do not see, and in any order:
/// the offsets follow. Since such members stay 0, the compiler warns of them.
#ifdef LMQ_REAL_DRIVER
#define LMQ_UDT_CHECK(T)                      \
    [[maybe_unused]] constexpr bool checked = \
        ::lmq::describe::complete(std::bool_constant<::lmq::describe::leaves_none_out<S>(drafts)>{});
#else
#define LMQ_UDT_CHECK(T)                              \
    static_assert(::lmq::describe::covers<S>(drafts), \
                  "rows of " #T ": a member has no row, or the rows are not in the header's order");
#endif

/// UDT_AS(T, Rows): T has the members of Rows under a name of its own, which its fault texts carry.
#define UDT_AS(T, Rows)                                                                                     \
    static_assert(std::is_same_v<T, Rows>, "rows of " #T ": in the header it is another type than " #Rows); \
    constinit const Udt udt_##T = ::lmq::describe::packed<rows_of_##Rows::drafts>(#T, sizeof(T));

/// An expression that holds a check, whose text can name the row; hence the function, which is never called.
#define LMQ_CHECK(text, ...) void([] { static_assert(__VA_ARGS__, text); })

/// A row whose member must have the type T in the header: `told` in words. A bound comes here as a text already, since
/// an argument that goes on to another macro is no longer as it was spelled.
#define LMQ_ROW(m, T, told, ...) \
    (LMQ_CHECK("row " #m ": the header does not declare it as " told, std::is_same_v<decltype(S::m), T>), __VA_ARGS__)
#define LMQ_UDT_ROW(T, spelling, m, count, bound, kind) \
    LMQ_ROW(m, T[count], #T "[" bound "]",              \
            ::lmq::describe::udt_array<decltype(S::m), count>(#m, spelling, bound, udt_##T, offsetof(S, m), kind))

/// What FLAGS makes of one flag. The initialiser with every flag in turn compiles in the header's order alone.
#define LMQ_FLAG_COUNT(mask, name) +1
#define LMQ_FLAG_ZERO(mask, name) .name = 0,
#define LMQ_FLAG(mask, name)                                              \
    ::lmq::describe::flag<decltype(mask)>(#name, [](auto &all) {          \
        --all.name; /* from 0 to all ones */                              \
        return std::bit_width(static_cast<unsigned long long>(all.name)); \
    }),
