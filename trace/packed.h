// How a packed call begins, and what its items are called: README.md describes the whole. The host packs calls so that
// their XML is read once, and a trace keeps them so.
#pragma once

namespace lmq::trace {

/// The first byte of a packed call. No XML document begins with it.
inline constexpr char packed_mark = '\x01';

/// `other` is a value that cannot be packed; nothing of it follows.
enum class Item : char { end, int32, int64, boolean, nil, string, array, structure, member, other };

}  // namespace lmq::trace
