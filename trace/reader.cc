// Reading in large pieces; a record is looked at where it lies.
#include "reader.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "format.h"

namespace lmq::trace {
namespace {

constexpr std::size_t piece = std::size_t{256} << 10;

}  // namespace

Reader::Reader(std::string path)
    : path_(std::move(path)), file_(path_ == "-" ? STDIN_FILENO : open(path_.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (file_ < 0) throw Error("cannot read '" + path_ + "': " + std::strerror(errno));
    try {
        const bool has_magic = fill(magic.size());
        const std::string_view begin(buffer_.data(), std::min(filled_, magic.size()));
        constexpr std::size_t name_size = 8;
        if (begin.substr(0, name_size) != magic.substr(0, name_size).substr(0, begin.size()) || begin.empty()) {
            throw Error("'" + path_ + "' is no trace");
        }
        if (has_magic && begin != magic) throw Error("'" + path_ + "' is a trace of a version that is not known here");
        offset_ = begin_ = begin.size();
        const RecordView *first = next();
        if (first == nullptr || first->kind != Kind::head)
            throw TornHead("the head of the trace '" + path_ + "' is torn");
        head_ = Record(*first);
    } catch (...) {
        if (file_ != STDIN_FILENO) close(file_);
        throw;
    }
}

Reader::~Reader() {
    if (file_ != STDIN_FILENO) close(file_);
}

/// Reads until there are so many bytes.
/// @return Whether there are.
bool Reader::fill(std::size_t wanted) {
    if (filled_ - begin_ >= wanted) return true;
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(begin_),
              buffer_.begin() + static_cast<std::ptrdiff_t>(filled_), buffer_.begin());
    filled_ -= std::exchange(begin_, 0);
    while (filled_ < wanted) {
        // A damaged length is no reason to ask for memory: the buffer grows as the file turns out to have the bytes.
        if (buffer_.size() - filled_ < piece) buffer_.resize(std::max(2 * filled_, filled_ + piece));
        const ssize_t count = read(file_, buffer_.data() + filled_, buffer_.size() - filled_);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw Error("cannot read '" + path_ + "': " + std::strerror(errno));
        if (count == 0) return false;
        filled_ += static_cast<std::size_t>(count);
    }
    return true;
}

const RecordView *Reader::next() {
    std::size_t wanted = prefix_size;
    while (fill(wanted)) {
        const Decoded found = decode({buffer_.data() + begin_, filled_ - begin_});
        if (found.is == Decoded::Is::damaged) {
            end_ = End::damaged;
            return nullptr;
        }
        if (found.is == Decoded::Is::room) break;
        wanted = found.size;
        if (found.is == Decoded::Is::incomplete) continue;
        begin_ += found.size;
        offset_ += found.size;
        record_ = found.record;
        return &record_;
    }
    const std::string_view rest(buffer_.data() + begin_, filled_ - begin_);
    end_ = rest.empty() || decode(rest).is == Decoded::Is::room ? End::whole : End::incomplete;
    // By the next time a record may be where there was room.
    if (end_ == End::whole && lseek(file_, static_cast<off_t>(offset_), SEEK_SET) >= 0) filled_ = begin_;
    return nullptr;
}

std::string Reader::end_text() const {
    if (end_ == End::whole) return "";
    return "the end of the trace '" + path_ + "' is torn: behind byte " + std::to_string(offset_) +
           (end_ == End::incomplete ? " a record begins that has not been written to its end"
                                    : " there is no record, or one with a wrong checksum");
}

std::vector<std::string> parts_of(const std::string &path) {
    const std::string older = path + ".1";
    if (path == "-" || access(older.c_str(), F_OK) != 0) return {path};
    return {older, path};
}

}  // namespace lmq::trace
