// Mapping of one part of a file after the other.
#include "mapped_tail.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>

#include "format.h"

namespace lmq::trace {
namespace {

/// What is mapped at once: a thousand small records.
constexpr std::uint64_t step = std::uint64_t{1} << 20;

// For the signal handler.
std::atomic<char *> mapped{nullptr};
std::atomic<std::size_t> mapped_size{0};
std::atomic<bool> is_cut_off{false};

/// Where a file has been cut off, its memory is none any longer. Puts other memory there, so that the program goes on.
void on_bus_error(int number, siginfo_t *info, void *) {
    char *const begin = mapped;
    const auto *address = static_cast<const char *>(info->si_addr);
    const bool is_ours = begin != nullptr && address >= begin && address < begin + mapped_size;
    if (!is_ours || mmap(begin, mapped_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) ==
                        MAP_FAILED) {
        signal(number, SIG_DFL);
        return;
    }
    is_cut_off = true;
}

}  // namespace

bool MappedTail::reach(int file, std::uint64_t at, std::size_t bytes, std::uint64_t limit) {
    if (begin_ != nullptr && at + bytes <= to_) return true;
    release();
    const auto page = static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
    const std::uint64_t from = at / page * page;
    const std::uint64_t wanted = limit > 0 ? std::min(at + step, limit) : at + step;
    const std::uint64_t to = std::max(at + bytes, wanted);
    if (fallocate(file, 0, static_cast<off_t>(at), static_cast<off_t>(to - at)) != 0) return false;
    const auto size = static_cast<std::size_t>(to - from);
    void *const memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, static_cast<off_t>(from));
    if (memory == MAP_FAILED) return false;
#ifdef MADV_POPULATE_WRITE
    // All pages at once cost less than one by one, and a file system that cannot keep its word says so now.
    if (madvise(memory, size, MADV_POPULATE_WRITE) != 0 && errno == EFAULT) {
        munmap(memory, size);
        return false;
    }
#endif
    begin_ = static_cast<char *>(memory);
    from_ = from;
    to_ = to;
    is_cut_off = false;
    mapped_size = size;
    mapped = begin_;
    struct sigaction action {};
    action.sa_sigaction = on_bus_error;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGBUS, &action, nullptr);
    return true;
}

bool MappedTail::put(std::uint64_t at, std::string_view record) {
    char *const to = begin_ + (at - from_);
    std::memcpy(to + prefix_size, record.data() + prefix_size, record.size() - prefix_size);
    // Length and checksum come last: without them there is no record.
    std::atomic_thread_fence(std::memory_order_release);
    std::memcpy(to, record.data(), prefix_size);
    return !is_cut_off;
}

void MappedTail::release() {
    if (begin_ == nullptr) return;
    mapped = nullptr;
    munmap(begin_, mapped_size);
    begin_ = nullptr;
}

}  // namespace lmq::trace
