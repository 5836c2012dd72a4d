// Which alternative of a union counts, as far as a member of the same struct says it. The others are the same bytes
// read as something else: they do not travel, since host and program may lay them out differently.
#pragma once

#include <cstddef>
#include <cstdint>

#include "marshal/row.h"
#include "marshal/scalar.h"

namespace lmq::remote {

struct Union {
    const Udt *udt;
    const char *key;            ///< Of the union, as its row has it.
    const char *selector;       ///< The member that selects, by its key.
    std::uint16_t offset;       ///< Of that member, in bytes.
    std::uint8_t width;         ///< Of that member, in bytes.
    std::uint8_t first, count;  ///< Its part of the table of alternatives.

    /// The alternative that a value of the selector stands for, counted from 0; -1 if it stands for none. Then all
    /// count.
    int selected(std::int64_t value) const;

    /// The same for the selector in memory.
    int selected_in(const std::byte *udt_begin) const { return selected(load(udt_begin + offset, {width, false})); }
};

/// Finds the union that a group of rows is; NULL if it is another group, or nothing selects.
const Union *find_union(const Udt &udt, const Row &group);

}  // namespace lmq::remote
