// Files that are begun, gone on with, and laid aside.
#include "writer.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <utility>

#include "format.h"

namespace lmq::trace {
namespace {

/// What is written by a call to the system although the file is mapped: to fill fresh pages of a file is cheaper for
/// the system than to map them.
constexpr std::size_t long_record = std::size_t{16} << 10;

}  // namespace

Writer::Writer(std::string path, Record head, Mode mode, std::uint64_t limit)
    : path_(std::move(path)),
      head_(std::move(head)),
      limit_(limit),
      maps_(mode == Mode::append),
      file_(open_file(mode)) {
    head_.kind = Kind::head;
    try {
        if (take_up(file_)) return;
        if (size_ > 0) {
            lay_aside();
        } else {
            begin();
        }
    } catch (...) {
        close(file_);
        throw;
    }
}

Writer::~Writer() {
    cut_off_room();
    close(file_);
}

/// Takes away the room behind the last record.
void Writer::cut_off_room() {
    tail_.release();
    if (std::exchange(has_room_, false)) static_cast<void>(ftruncate(file_, static_cast<off_t>(size_)) == 0);
}

void Writer::fail(const std::string &what) const {
    throw Error("cannot " + what + " the trace '" + path_ + "': " + std::strerror(errno));
}

int Writer::open_file(Mode mode) {
    const int how = mode == Mode::append ? 0 : mode == Mode::create ? O_EXCL : O_TRUNC;
    const int file = open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | how, S_IRUSR | S_IWUSR);
    if (file < 0) fail("open");
    struct stat is {};
    if (fstat(file, &is) != 0 || !S_ISREG(is.st_mode)) {
        close(file);
        throw Error("cannot write the trace '" + path_ + "': it is no file");
    }
    if (flock(file, LOCK_EX | LOCK_NB) != 0) {
        close(file);
        throw Error("cannot write the trace '" + path_ + "': another process does");
    }
    // It may have been made by somebody who did not think of what calls can hold.
    fchmod(file, S_IRUSR | S_IWUSR);
    size_ = static_cast<std::uint64_t>(is.st_size);
    return file;
}

/// Looks for the place in a file where to go on.
/// @return Whether there is one.
/// @throws Error if what is there is no trace.
bool Writer::take_up(int file) try {
    if (size_ == 0) return false;
    Reader reader(path_);
    while (const RecordView *record = reader.next()) {
        if (record->number >= next_number_) next_number_ = record->number + 1;
    }
    if (reader.head().fingerprint != head_.fingerprint) return false;
    if (size_ > reader.offset() && ftruncate(file, static_cast<off_t>(reader.offset())) != 0) fail("mend");
    size_ = reader.offset();
    return true;
} catch (const TornHead &) {
    return false;
}

/// Writes what a file begins with.
void Writer::begin() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    head_.time = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    std::string bytes(magic);
    bytes += encode(RecordView(head_));
    size_ = 0;
    write_sealed(bytes);
}

/// Goes on in a new file.
void Writer::lay_aside() {
    cut_off_room();
    const std::string aside = path_ + ".1";
    // What is renamed over another file, ext4 writes to the disk at once, which whoever renames it waits for.
    unlink(aside.c_str());
    if (std::rename(path_.c_str(), aside.c_str()) != 0) fail("lay aside");
    const int next = open_file(Mode::create);
    close(std::exchange(file_, next));
    begin();
}

void Writer::write(const RecordView &record) { write_sealed(encode(record)); }

void Writer::write_sealed(std::string_view record) {
    const bool has_records = size_ > magic.size() + size_of(RecordView(head_));
    if (limit_ > 0 && has_records && size_ + record.size() > limit_) lay_aside();
    if (maps_ && record.size() < long_record) {
        has_room_ = true;
        maps_ = tail_.reach(file_, size_, record.size(), limit_);
        if (maps_) return put(record);
        cut_off_room();
    }
    struct stat is {};
    if (fstat(file_, &is) == 0 && static_cast<std::uint64_t>(is.st_size) < size_) fail_cut_off();
    // What makes a record of it comes last: a reader sees all of it or nothing.
    const std::size_t begin = std::min(prefix_size, record.size());
    if (!write_at(size_ + begin, record.substr(begin)) || !write_at(size_, record.substr(0, begin))) {
        const int why = errno;
        tail_.release();
        has_room_ = false;
        static_cast<void>(ftruncate(file_, static_cast<off_t>(size_)) == 0);
        errno = why;
        fail("write");
    }
    size_ += record.size();
}

/// Writes all of some bytes.
bool Writer::write_at(std::uint64_t place, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = pwrite(file_, bytes.data(), bytes.size(), static_cast<off_t>(place));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        place += static_cast<std::uint64_t>(count);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

void Writer::fail_cut_off() {
    tail_.release();
    has_room_ = false;
    throw Error("the trace '" + path_ + "' has been cut off by another program");
}

/// Puts a record where there is room.
void Writer::put(std::string_view record) {
    if (!tail_.put(size_, record)) fail_cut_off();
    size_ += record.size();
}

void Writer::reopen() {
    // The lock is taken anew: the file may be the same.
    cut_off_room();
    flock(file_, LOCK_UN);
    Writer next(path_, head_, Mode::append, limit_);
    std::swap(file_, next.file_);
    std::swap(size_, next.size_);
    std::swap(has_room_, next.has_room_);
}

}  // namespace lmq::trace
