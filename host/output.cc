// Reading of the pipes. Nothing here waits: a reader of the host's own output that is slow loses lines.
#include "output.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <system_error>
#include <utility>

#include "timestamp.h"

namespace lmq::host {
namespace {

/// What is kept of a call.
constexpr std::size_t most_of_a_call = 256 * 1024;

/// What is read at once: more than a pipe holds.
constexpr int most_pieces = 8;
constexpr std::size_t piece = 16 * 1024;

/// What is shown of a line without an end.
constexpr std::size_t longest_line = 2048;

/// In the place of a method between two calls.
constexpr const char nobody[] = "driver";

}  // namespace

Output::Output() {
    streams_[0].target = STDOUT_FILENO;
    streams_[1].target = STDERR_FILENO;
    for (Stream &stream : streams_) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) < 0) throw std::system_error(errno, std::generic_category(), "cannot make a pipe");
        stream.reader = FileDescriptor(ends[0]);
        stream.writer = FileDescriptor(ends[1]);
        fcntl(stream.reader.get(), F_SETFL, O_NONBLOCK);
    }
}

void Output::redirect() {
    for (const Stream &stream : streams_) dup2(stream.writer.get(), stream.target);
}

void Output::keep_readers() {
    for (Stream &stream : streams_) stream.writer = FileDescriptor();
}

std::array<pollfd, 2> Output::waits() const {
    return {{{streams_[0].reader.get(), POLLIN, 0}, {streams_[1].reader.get(), POLLIN, 0}}};
}

bool Output::is_waiting() const {
    auto readers = waits();
    return poll(readers.data(), readers.size(), 0) > 0;
}

void Output::pump() {
    for (Stream &stream : streams_) {
        for (int count = 0; count < most_pieces && read_some(stream); ++count) continue;
    }
}

bool Output::read_some(Stream &stream) {
    char text[piece];
    const ssize_t count = read(stream.reader.get(), text, sizeof text);
    // Nobody can print any longer: the spawner has ended.
    if (count == 0) stream.reader = FileDescriptor();
    if (count <= 0) return false;
    const std::string_view printed(text, static_cast<std::size_t>(count));
    keep(printed);
    pass_on(stream, printed);
    return count == static_cast<ssize_t>(sizeof text);
}

void Output::keep(std::string_view text) {
    if (method_.empty()) {
        kept_ += text;
        if (kept_.size() > most_of_a_call) kept_.erase(0, kept_.size() - most_of_a_call / 2);
        return;
    }
    const std::string_view fits = text.substr(0, most_of_a_call - kept_.size());
    kept_ += fits;
    left_out_ += text.size() - fits.size();
}

void Output::pass_on(Stream &stream, std::string_view text) {
    while (!text.empty()) {
        const std::string_view part = text.substr(0, std::min(text.find('\n'), longest_line - stream.line.size()));
        stream.line += part;
        text.remove_prefix(part.size());
        const bool ends = text.starts_with('\n');
        if (ends) text.remove_prefix(1);
        if (ends || stream.line.size() >= longest_line) write_line(stream);
    }
}

/// Writes a line with its stamp, if that can be done at once. A pipe takes so little in one piece or not at all.
void Output::write_line(Stream &stream) {
    std::string line = timestamp() + " " + (method_.empty() ? nobody : method_) + ": " + stream.line + "\n";
    stream.line.clear();
    static_assert(longest_line <= PIPE_BUF / 2);
    pollfd writable{stream.target, POLLOUT, 0};
    const bool ready = poll(&writable, 1, 0) > 0 && writable.revents == POLLOUT;
    if (!ready || write(stream.target, line.data(), line.size()) < 0) dropped_ += line.size();
}

void Output::begin(const std::string &method) {
    method_ = method;
    kept_.clear();
}

std::string Output::end() {
    for (Stream &stream : streams_) {
        if (!stream.line.empty()) write_line(stream);
    }
    method_.clear();
    std::string text = std::exchange(kept_, {});
    if (left_out_ > 0) text += "\n[" + std::to_string(std::exchange(left_out_, 0)) + " more bytes]\n";
    return text;
}

}  // namespace lmq::host
