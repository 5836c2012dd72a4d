// Reading of a trace, record by record, up to an end that may be torn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "record.h"

namespace lmq::trace {

/// A file that cannot be read or written, or that is no trace; what() names it.
class Error : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// A trace whose head has not been written to its end, so that nothing of it can be read.
class TornHead : public Error {
  public:
    using Error::Error;
};

class Reader {
  public:
    /// What is behind the last record.
    enum class End {
        whole,       ///< Nothing, or room for more.
        incomplete,  ///< A record that has not been written to its end.
        damaged      ///< Bytes that are no record: the checksum is wrong.
    };

    /// Opens a trace and reads its head.
    /// @param path The file; `-` for the standard input.
    /// @throws Error if it cannot be read, is no trace, or is one of a version that is not known; TornHead.
    explicit Reader(std::string path);
    ~Reader();
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;

    /// The first record: maker, fingerprint and note.
    const Record &head() const { return head_; }

    /// The next record. At the end it may be asked again later: there may be more by then, unless the end is damaged.
    /// @return NULL at the end. The record lasts until the next call.
    /// @throws Error if the system cannot read.
    const RecordView *next();

    /// After next() has returned NULL.
    End end() const { return end_; }

    /// The end in words, for messages: "its end is torn: ..."; empty if it is whole.
    std::string end_text() const;

    /// Bytes up to the end of the record that next() has returned last.
    std::uint64_t offset() const { return offset_; }

    const std::string &path() const { return path_; }

  private:
    bool fill(std::size_t wanted);

    std::string path_;
    int file_;
    std::vector<char> buffer_;
    /// What has been read and not been taken: [begin_, filled_) of the buffer.
    std::size_t begin_ = 0, filled_ = 0;
    std::uint64_t offset_ = 0;
    End end_ = End::whole;
    Record head_;
    RecordView record_;
};

/// The files of a trace in their order: FILE.1, which the writer has laid aside, if it is there, and FILE.
/// @param path FILE; any other name, and `-`, stand for themselves.
std::vector<std::string> parts_of(const std::string &path);

}  // namespace lmq::trace
