// What a trace holds: records of calls, and of the processes that carried them out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace lmq::trace {

/// What a record is about. A reader passes over kinds that it does not know.
enum class Kind : std::uint8_t {
    head = 0,     ///< The first of a file: whose interface it is.
    call = 1,     ///< A call and its answer.
    started = 2,  ///< A process began to carry out calls. What the driver knew before is gone.
    died = 3,     ///< That process has ended unasked.
};

/// One record. A member that its kind does not use, or that is not known, is 0 or empty.
template <class Text>
struct BasicRecord {
    BasicRecord() = default;
    /// Copies the texts of another one, or refers to them.
    template <class Other>
    explicit BasicRecord(const BasicRecord<Other> &other)
        : kind(other.kind),
          number(other.number),
          time(other.time),
          waited(other.waited),
          took(other.took),
          status(other.status),
          pid(other.pid),
          signal(other.signal),
          exit_status(other.exit_status),
          client(other.client),
          user(other.user),
          method(other.method),
          call(other.call),
          answer(other.answer),
          printed(other.printed),
          how(other.how),
          driver(other.driver),
          plugin(other.plugin),
          maker(other.maker),
          fingerprint(other.fingerprint),
          note(other.note) {}

    Kind kind = Kind::call;
    /// Counts up within a trace. A gap is a record that was lost or left out.
    std::uint64_t number = 0;
    /// Microseconds since 1970. Of a call: when it had arrived in full.
    std::int64_t time = 0;

    // Of a call.
    /// Microseconds until it was its turn, and from then to its answer.
    std::uint64_t waited = 0, took = 0;
    /// The status of HTTP: 200; 499 if the client had gone, 500 if the answer had no form, 502 if the process died.
    std::uint64_t status = 0;

    // Of a process.
    std::uint64_t pid = 0;
    /// The signal that ended it, or else the status with which it ended.
    std::uint64_t signal = 0, exit_status = 0;

    /// The client's address, and its name if it has logged in.
    Text client, user;
    /// Of a call as it was sent; of a process that died the one that it had in hand.
    Text method;
    /// The document of the call, or the call packed; see call_document().
    Text call;
    /// The document of the answer; with status 500 what was wrong with it.
    Text answer;
    /// What the driver printed: during the call, or since the last one until it died.
    Text printed;
    /// How a process ended, in words.
    Text how;
    /// The files that a process loaded.
    Text driver, plugin;
    /// Of the head: who made the file, and the interface's fingerprint.
    Text maker, fingerprint;
    /// What whoever made the trace wants to be known.
    Text note;
};

/// A record that holds its texts.
using Record = BasicRecord<std::string>;
/// A record that refers to texts that are elsewhere.
using RecordView = BasicRecord<std::string_view>;

}  // namespace lmq::trace
