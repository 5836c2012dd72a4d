// From calls to records, and from records to files.
#include "recorder.h"

#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <new>
#include <stdexcept>
#include <system_error>
#include <utility>
#include <vector>

#include "contract.h"
#include "timestamp.h"
#include "trace/format.h"

namespace fs = std::filesystem;

namespace lmq::host {
namespace {

using std::chrono::microseconds;
using std::chrono::system_clock;

static_assert(std::endian::native == std::endian::little, "a trace has packed calls with the lowest byte first");

/// A driver that dies at each call must not fill the disk: so many files are kept.
constexpr std::size_t most_files = 32;
constexpr std::string_view file_prefix = "lmq-host-", file_suffix = ".trace";

/// What is kept of the memory for a long record.
constexpr std::size_t most_spare = std::size_t{1} << 20;

std::int64_t since_1970(system_clock::time_point time) {
    return std::chrono::duration_cast<microseconds>(time.time_since_epoch()).count();
}

std::uint64_t between(Clock::time_point from, Clock::time_point to) {
    return static_cast<std::uint64_t>(
        std::max<long long>(std::chrono::duration_cast<microseconds>(to - from).count(), 0));
}

/// A name that sorts by time: lmq-host-20260131T120000.000Z-PID.trace.
std::string file_name(pid_t process) {
    std::string time = timestamp();
    std::erase_if(time, [](char c) { return c == '-' || c == ':'; });
    return std::string(file_prefix) + time + "-" + std::to_string(process) + std::string(file_suffix);
}

/// Removes the oldest files until there are few enough.
void thin_out(const fs::path &folder) {
    std::vector<fs::path> files;
    std::error_code ignored;
    for (const auto &entry : fs::directory_iterator(folder, ignored)) {
        const std::string name = entry.path().filename();
        if (name.starts_with(file_prefix) && name.ends_with(file_suffix)) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (std::size_t at = 0; at + most_files < files.size(); ++at) fs::remove(files[at], ignored);
}

}  // namespace

Recorder::Recorder(Options options)
    : options_(std::move(options)), last_(options_.post_mortem.empty() ? 0 : options_.last_calls) {
    if (!options_.post_mortem.empty() && access(options_.post_mortem.c_str(), W_OK | X_OK) != 0) {
        throw std::runtime_error("cannot write to the folder '" + options_.post_mortem +
                                 "' (--post-mortem): " + std::strerror(errno));
    }
    if (!options_.trace.empty()) reopen();
}

Recorder::~Recorder() { flush(); }

trace::Record Recorder::head() const {
    trace::Record head;
    head.maker = "lmq-host " LMQ_HOST_VERSION;
    head.fingerprint = contract::fingerprint();
    return head;
}

void Recorder::reopen() {
    if (options_.trace.empty()) return;
    flush();
    if (writer_ != nullptr) return writer_->reopen();
    writer_ =
        std::make_unique<trace::Writer>(options_.trace, head(), trace::Writer::Mode::append, options_.trace_limit);
    number_ = std::max(number_, writer_->next_number());
}

trace::RecordView Recorder::record_of(const Call &call, std::string_view document) {
    const auto now = Clock::now();
    trace::RecordView record;
    record.number = number_++;
    record.time = since_1970(system_clock::now()) - static_cast<std::int64_t>(between(call.arrived, now));
    record.waited = between(call.arrived, call.begun);
    record.took = between(call.begun, now);
    record.status = call.status;
    record.client = call.client;
    record.user = call.user;
    record.method = call.method;
    record.call = document;
    record.answer = call.answer;
    record.printed = call.printed;
    return record;
}

/// Keeps a record in memory, for the trace and perhaps among the last ones.
void Recorder::keep(const trace::RecordView &record, Among among) try {
    flush();
    if (spare_.size() > most_spare) std::string().swap(spare_);
    const std::size_t size = trace::size_of(record);
    char *room = among == Among::last ? last_.make_room(size) : nullptr;
    newest_is_spare_ = room == nullptr && among != Among::none && !options_.post_mortem.empty();
    if (room == nullptr) {
        if (writer_ == nullptr && !newest_is_spare_) return;
        spare_.resize(size);
        room = spare_.data();
    }
    trace::put(record, room);
    if (writer_ == nullptr) return;
    unwritten_ = room;
    unwritten_size_ = size;
} catch (const std::bad_alloc &) {
    newest_is_spare_ = false;  // the gap in the numbers shows that there was one
}

void Recorder::flush() {
    if (unwritten_ == nullptr) return;
    const std::string_view record(std::exchange(unwritten_, nullptr), unwritten_size_);
    try {
        trace::seal(const_cast<char *>(record.data()), record.size());
        writer_->write_sealed(record);
    } catch (const trace::Error &error) {
        std::fprintf(stderr, "lmq-host: %s; nothing is traced until SIGHUP\n", error.what());
        writer_.reset();
    }
}

/// Keeps that there is another process: what the last calls did is gone with the one before.
void Recorder::started(pid_t process) {
    process_ = process;
    last_.clear();
    lines_.clear();
    start_ = {};
    start_.kind = trace::Kind::started;
    start_.number = number_++;
    start_.time = since_1970(system_clock::now());
    start_.pid = static_cast<std::uint64_t>(process);
    start_.driver = options_.driver;
    start_.plugin = options_.plugin;
    keep(trace::RecordView(start_), Among::none);
}

void Recorder::called(const Call &call, std::string document, pid_t process) {
    if (writer_ == nullptr && !keeps_last()) return;
    flush();
    if (process != process_) started(process);
    if (writer_ != nullptr || !options_.post_mortem.empty()) {
        keep(record_of(call, document), call.is_introspection ? Among::newest : Among::last);
    }
    if (options_.last_calls > 0 && !call.is_introspection) lines_.add(call.method, std::move(document));
}

void Recorder::refused(const Call &call, std::string_view document) {
    if (writer_ != nullptr) keep(record_of(call, document), Among::none);
}

void Recorder::died(const Backend::Death &death) {
    flush();
    trace::RecordView record;
    record.kind = trace::Kind::died;
    record.number = number_++;
    record.time = since_1970(system_clock::now());
    record.pid = static_cast<std::uint64_t>(death.process);
    record.signal = static_cast<std::uint64_t>(death.signal);
    record.exit_status = static_cast<std::uint64_t>(death.status);
    record.how = death.how;
    record.method = death.method;
    record.printed = death.printed;
    // A process that has carried out nothing leaves nothing to be looked into, and may be one of a long row.
    if (death.process == process_ && (options_.post_mortem.empty() || !write_post_mortem(record))) tell_last();
    keep(record, Among::none);
    flush();
    last_.clear();
    lines_.clear();
}

/// Says what is known of the last calls where no file has them.
void Recorder::tell_last() const {
    if (lines_.is_empty()) return;
    const char *advice = options_.post_mortem.empty() ? "; --post-mortem keeps more of them" : "";
    std::fprintf(stderr, "lmq-host: the last calls to it: %s%s\n", lines_.text().c_str(), advice);
}

/// @return Whether there is a file now.
bool Recorder::write_post_mortem(const trace::RecordView &death) {
    const fs::path path = fs::path(options_.post_mortem) / file_name(process_);
    try {
        trace::Writer file(path, head(), trace::Writer::Mode::create);
        file.write(trace::RecordView(start_));
        for (const auto piece : last_.records()) {
            for (std::size_t at = 0; at < piece.size();) {
                const std::size_t size = trace::size_at(&piece[at]);
                trace::seal(&piece[at], size);
                at += size;
            }
            if (!piece.empty()) file.write_sealed({piece.data(), piece.size()});
        }
        if (newest_is_spare_) {
            trace::seal(spare_.data(), spare_.size());
            file.write_sealed(spare_);
        }
        file.write(death);
        std::fprintf(stderr, "lmq-host: the last calls to it are in %s\n", path.c_str());
    } catch (const std::exception &error) {
        std::fprintf(stderr, "lmq-host: the last calls to it are in no file: %s\n", error.what());
        std::error_code ignored;
        fs::remove(path, ignored);
        return false;
    }
    thin_out(options_.post_mortem);
    return true;
}

}  // namespace lmq::host
