// What the driver prints: the standard output and error of the spawner and of all workers are pipes, which the front
// reads. It passes the text on to its own, line by line, with the time and the method, and keeps that of the call in
// hand.
#pragma once

#include <poll.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "file_descriptor.h"

namespace lmq::host {

class Output {
  public:
    /// Makes the pipes.
    /// @throws std::system_error if the system refuses.
    Output();

    /// In the process that is to print: makes the pipes its standard output and error.
    void redirect();

    /// In the front: keeps the ends to read from alone.
    void keep_readers();

    /// Descriptors that make pump() worth calling.
    std::array<pollfd, 2> waits() const;

    /// Whether something has been printed that pump() has not read.
    bool is_waiting() const;

    /// Passes on what has been printed, a limited amount at once: whoever prints without an end does not keep the front
    /// from its other work.
    void pump();

    /// Says that a call begins. What comes from now on is its; what came between the last one and now is forgotten.
    void begin(const std::string &method);

    /// Says that the call has ended, or whoever prints between two calls.
    /// @return What was read of it. What is beyond the limit is left out: of a call the end, and the last line says so;
    /// between two calls
    ///         the beginning.
    std::string end();

    /// Bytes that could not be passed on, since nobody took them.
    std::uint64_t dropped() const { return dropped_; }

  private:
    struct Stream {
        FileDescriptor reader, writer;
        /// Where it goes to.
        int target = -1;
        /// The line that is not complete yet.
        std::string line;
    };

    bool read_some(Stream &stream);
    void pass_on(Stream &stream, std::string_view text);
    void write_line(Stream &stream);
    void keep(std::string_view text);

    std::array<Stream, 2> streams_;
    std::string method_;
    std::string kept_;
    std::size_t left_out_ = 0;
    std::uint64_t dropped_ = 0;
};

}  // namespace lmq::host
