// The end of a file in memory: what is put there is in the file, without a call to the system, and stays there if this
// process is killed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace lmq::trace {

/// At most one in a process: it takes SIGBUS, which tells that somebody has cut off the file, for itself.
class MappedTail {
  public:
    MappedTail() = default;
    ~MappedTail() { release(); }
    MappedTail(const MappedTail &) = delete;
    MappedTail &operator=(const MappedTail &) = delete;

    /// Sees to it that there is room, with zeros in it and of which the disk is sure.
    /// @param file  Open to be read and written.
    /// @param at    Where the next record goes; the same as ever but behind what has been put.
    /// @param bytes How much must have room.
    /// @param limit How long the file may become for the sake of further records; 0 for no limit.
    /// @return False if this file or this system cannot do that: there is no room then, and the file may have got
    /// longer.
    bool reach(int file, std::uint64_t at, std::size_t bytes, std::uint64_t limit);

    /// Puts a record where reach() has made room. A reader sees all of it or nothing.
    /// @return False if the file is not there any longer: somebody has cut it off.
    bool put(std::uint64_t at, std::string_view record);

    /// Lets go of the file, which keeps what has been put.
    void release();

  private:
    char *begin_ = nullptr;
    /// The part of the file that is mapped.
    std::uint64_t from_ = 0, to_ = 0;
};

}  // namespace lmq::trace
