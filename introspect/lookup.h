// The frame that the three methods share which answer a question about a name.
#pragma once

#include <xmlrpc-c/base.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace lmq {

// The namespace of all names that clients are told: "lmq." before a method, a UDT.
constexpr char name_prefix[] = "lmq.";

// "lmq.NAME", for names of the interface.
struct FullName {
    char text[128];
    explicit FullName(const char *name);
};

// Answers what a table has for a name, or NULL if it has none.
using Answer = xmlrpc_value *(xmlrpc_env *env, const char *name);

// Takes the one parameter, a string, and answers it. Every fault has the code -509: for another number of parameters,
// for another type, and `not_found` for a name that has no answer.
xmlrpc_value *look_up(xmlrpc_env *env, xmlrpc_value *parameters, Answer *answer, const char *not_found);

// What follows "lmq." in a full name, or NULL for another name.
const char *bare_name(const char *name);

// Entries of a table in the order of their names, made by the compiler: its numbers from 0 to N - 1, or what else finds
// an entry. `name_of` tells the name of an entry.
template <size_t N, class NameOf>
constexpr std::array<uint16_t, N> sorted(std::array<uint16_t, N> entries, NameOf name_of) {
    std::sort(entries.begin(), entries.end(),
              [&](uint16_t a, uint16_t b) { return std::string_view(name_of(a)) < std::string_view(name_of(b)); });
    return entries;
}

template <size_t N>
constexpr std::array<uint16_t, N> sorted(const char *const (&names)[N]) {
    std::array<uint16_t, N> entries{};
    for (size_t i = 0; i < N; ++i) entries[i] = static_cast<uint16_t>(i);
    return sorted(entries, [&](uint16_t entry) { return names[entry]; });
}

// Finds a name among sorted entries. Returns NULL if none has it.
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

// Appends a record to a list, which takes it over.
void append_record(xmlrpc_env *env, xmlrpc_value *list, xmlrpc_value *record);

}  // namespace lmq
