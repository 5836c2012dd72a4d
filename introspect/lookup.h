// The names of the dictionary: how they are put together and found, and the frame that the three methods share which
// answer a question about a name.
#pragma once

#include <xmlrpc-c/base.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string_view>
#include <utility>

#include "marshal/row.h"

namespace lmq {

/// A name made of parts. What makes the tables sees to it that each fits.
struct JoinedName {
    char text[name_room];
    JoinedName(std::initializer_list<const char *> parts) {
        char *end = text;
        for (const char *part : parts) end = stpcpy(end, part);
    }
};

/// The length of the longest of some names.
template <size_t N>
constexpr size_t longest(const char *const (&names)[N]) {
    size_t length = 0;
    for (const char *name : names) length = std::max(length, std::string_view(name).size());
    return length;
}

/// Answers what a table has for a name, or NULL if it has none.
using Answer = xmlrpc_value *(xmlrpc_env *env, const char *name);

/// Takes the one parameter, a string, and answers it. Every fault has the code -509: for another number of parameters,
/// for another type, and `not_found` for a name that has no answer.
xmlrpc_value *look_up(xmlrpc_env *env, xmlrpc_value *parameters, Answer *answer, const char *not_found);

/// What follows the prefix in a full name, or NULL for another name.
const char *bare_name(const char *name);

/// Entries of a table in the order of their names, made by the compiler: its numbers from 0 to N - 1, or what else
/// finds an entry. `name_of` tells the name of an entry.
template <size_t N, class NameOf>
constexpr std::array<uint16_t, N> sorted(const std::array<uint16_t, N> &entries, NameOf name_of) {
    // Lengths are counted once: a compiler limits the steps that it takes.
    std::array<std::pair<std::string_view, uint16_t>, N> named{};
    for (size_t i = 0; i < N; ++i) named[i] = {name_of(entries[i]), entries[i]};
    std::sort(named.begin(), named.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    std::array<uint16_t, N> in_order{};
    for (size_t i = 0; i < N; ++i) in_order[i] = named[i].second;
    return in_order;
}

template <size_t N>
constexpr std::array<uint16_t, N> sorted(const char *const (&names)[N]) {
    std::array<uint16_t, N> entries{};
    for (size_t i = 0; i < N; ++i) entries[i] = static_cast<uint16_t>(i);
    return sorted(entries, [&](uint16_t entry) { return names[entry]; });
}

/// Finds a name among sorted entries. Returns NULL if none has it.
template <size_t N, class NameOf>
const uint16_t *find(const std::array<uint16_t, N> &entries, const char *name, NameOf name_of) {
    size_t begin = 0, end = N;
    while (begin < end) {
        const size_t middle = (begin + end) / 2;
        const int order = strcmp(name, name_of(entries[middle]));
        if (order == 0) return &entries[middle];
        if (order < 0)
            end = middle;
        else
            begin = middle + 1;
    }
    return nullptr;
}

/// Appends a record to a list, which takes it over.
void append_record(xmlrpc_env *env, xmlrpc_value *list, xmlrpc_value *record);

}  // namespace lmq
