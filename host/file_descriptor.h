// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace lmq::host {

/// Owns one file descriptor, or none (-1).
class FileDescriptor {
  public:
    explicit FileDescriptor(int fd = -1) : fd_(fd) {}
    FileDescriptor(FileDescriptor &&other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&other) noexcept {
        std::swap(fd_, other.fd_);
        return *this;
    }
    ~FileDescriptor() {
        if (fd_ >= 0) close(fd_);
    }

    int get() const { return fd_; }

    /// Gives the descriptor away: the caller closes it.
    int release() { return std::exchange(fd_, -1); }

  private:
    int fd_;
};

}  // namespace lmq::host
