// The memory, and what is put there.
#include "board.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <new>
#include <system_error>

namespace lmq::host {

bool Slots::put(FrameHead head, std::string_view text) {
    if (text.size() > longest) return false;
    Slot &slot = slots_[head.number % count];
    head.size = text.size();
    slot.head = head;
    std::ranges::copy(text, slot.text);
    slot.number = low(head.number);
    return true;
}

Board::Board() {
    void *memory = mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "cannot share memory");
    shared_ = new (memory) Shared;
}

Board::~Board() { munmap(shared_, sizeof(Shared)); }

void Board::keep_from_children() { madvise(shared_, sizeof(Shared), MADV_DONTFORK); }

bool Board::begin(std::uint64_t number) {
    std::uint32_t before = Slots::low(number - 1);
    return shared_->begun.compare_exchange_strong(before, Slots::low(number));
}

std::uint64_t Board::take_back(std::uint64_t answered, std::uint64_t last) {
    for (std::uint32_t begun = shared_->begun;;) {
        const std::uint32_t count = begun - Slots::low(answered);
        if (count > last - answered) return last;
        if (shared_->begun.compare_exchange_weak(begun, Slots::low(last))) return answered + count;
    }
}

void Board::reset(std::uint64_t last) { shared_->begun = Slots::low(last); }

}  // namespace lmq::host
