// What keeps the calls and their answers: the last ones in memory, until the driver's process dies over them, and all
// of them in a trace.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "backend.h"
#include "call_lines.h"
#include "exchange.h"
#include "recent_calls.h"
#include "trace/writer.h"

namespace lmq::host {

class Recorder {
  public:
    struct Options {
        /// The trace; empty for none. Bytes of it before it is laid aside; 0 for no limit.
        std::string trace;
        std::size_t trace_limit = 0;
        /// Where the last calls go when the driver's process has died; empty for nowhere.
        std::string post_mortem;
        /// Bytes of the last calls.
        std::size_t last_calls = std::size_t{4} << 20;
        /// What the driver's process loads, as the options name it.
        std::string driver, plugin;
    };

    /// What came of a call.
    struct Call {
        std::string_view client, user, method;
        unsigned status;
        std::string_view answer, printed;
        Clock::time_point arrived, begun;
        /// Whether it calls nothing of the driver. It is none of the last calls then: there may be megabytes of them,
        /// and they do nothing to a driver.
        bool is_introspection = false;
    };

    /// @throws trace::Error if the trace cannot be written.
    /// @throws std::runtime_error if there is no folder for the last calls.
    explicit Recorder(Options options);
    ~Recorder();
    Recorder(const Recorder &) = delete;
    Recorder &operator=(const Recorder &) = delete;

    /// Whether the last calls are kept, in full or as lines.
    bool keeps_last() const { return options_.last_calls > 0 || !options_.post_mortem.empty(); }

    /// Keeps a call that the backend has carried out.
    /// @param document As it was handed to the backend.
    /// @param process  What it was carried out in.
    void called(const Call &call, std::string document, pid_t process);

    /// Keeps a call that was answered without the backend.
    void refused(const Call &call, std::string_view document);

    /// Keeps that the driver's process has died, after the call that it had in hand: the last calls go to a file, or as
    /// lines to standard error.
    void died(const Backend::Death &death);

    /// Whether flush() has something to do.
    bool has_unwritten() const { return unwritten_ != nullptr; }

    /// Writes the newest record to the trace. That is left for when there is nothing else to do, and done before the
    /// next record at the latest.
    void flush();

    /// Opens the trace anew, which somebody may have moved away, also if it has stopped.
    /// @throws trace::Error if that cannot be done.
    void reopen();

  private:
    /// What a record is of the last calls: one of them, one that counts only while it is the newest, or nothing.
    enum class Among { last, newest, none };

    trace::Record head() const;
    trace::RecordView record_of(const Call &call, std::string_view document);
    void keep(const trace::RecordView &record, Among among);
    void started(pid_t process);
    bool write_post_mortem(const trace::RecordView &death);
    void tell_last() const;

    Options options_;
    std::unique_ptr<trace::Writer> writer_;
    RecentCalls last_;
    CallLines lines_;
    /// The process that the last calls are of, and the record of its start.
    pid_t process_ = 0;
    trace::Record start_;
    std::uint64_t number_ = 1;
    /// A record that the trace does not have yet: in last_ or in spare_.
    char *unwritten_ = nullptr;
    std::size_t unwritten_size_ = 0;
    std::string spare_;
    /// Whether the newest of the last calls is there, since it is longer than all of last_, or is introspection.
    bool newest_is_spare_ = false;
};

}  // namespace lmq::host
