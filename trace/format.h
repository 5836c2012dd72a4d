// Records as bytes; README.md describes them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "record.h"

namespace lmq::trace {

/// What a file begins with.
inline constexpr std::string_view magic("LMQTRACE\x01\0\0\0", 12);

/// Bytes in front of a record: checksum and length.
inline constexpr std::size_t prefix_size = 8;

/// How many bytes a record takes.
std::size_t size_of(const RecordView &record);

/// Writes a record, without its checksum.
/// @param to Has room for size_of(record) bytes.
/// @return The end of it.
char *put(const RecordView &record, char *to);

/// Puts in the checksum of a record that put() has written.
/// @param record All of its bytes.
void seal(char *record, std::size_t size);

/// The bytes of a record that put() has written.
std::size_t size_at(const char *record);

/// A record, complete.
std::string encode(const RecordView &record);

/// What a piece of a file holds at its beginning.
struct Decoded {
    enum class Is {
        record,      ///< A record.
        room,        ///< Zeros: room for one that has not been written.
        incomplete,  ///< The beginning of one.
        damaged      ///< What cannot be one: its checksum or its length is wrong.
    };
    Is is;
    /// The bytes of the record; of an incomplete one what it needs, as far as is known.
    std::size_t size = prefix_size;
    /// Refers to the piece.
    RecordView record = {};
};

/// Reads the record at the beginning of a piece. Fields that are not known are passed over.
Decoded decode(std::string_view piece);

}  // namespace lmq::trace
