// Packs drafts of rows (draft.h) into the tables that the coders walk (row.h): strings, rows, and pointers to other
// UDTs.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include "marshal/draft.h"
#include "marshal/row.h"

namespace lmq::describe {

/// The strings of a UDT or a method, each once, one behind the other. The empty string stands first.
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

/// Cuts a table to its size, which is known only when it is filled.
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
    static_assert(std::all_of(drafts.begin(), drafts.end(),
                              [](const Draft &d) {
                                  return std::string_view(d.key).size() + sizeof "[]" +
                                             std::string_view(d.bound).size() <=
                                         name_room;
                              }),
                  "rows: a name and its bound are longer than introspection has room for");
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
            /// Told apart by name: under the sanitizers the comparison of two addresses is no constant.
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
