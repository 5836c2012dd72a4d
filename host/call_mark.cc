// The one word of the memory.
#include "call_mark.h"

#include <sys/mman.h>

#include <cerrno>
#include <new>
#include <system_error>

namespace lmq::host {
namespace {

std::uint32_t low(std::uint64_t number) { return static_cast<std::uint32_t>(number); }

}  // namespace

CallMark::CallMark() {
    void *memory = mmap(nullptr, sizeof(Word), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) throw std::system_error(errno, std::generic_category(), "cannot share memory");
    word_ = new (memory) Word(0);
}

CallMark::~CallMark() { munmap(word_, sizeof(Word)); }

bool CallMark::begin(std::uint64_t number) {
    std::uint32_t before = low(number - 1);
    return word_->compare_exchange_strong(before, low(number));
}

std::uint64_t CallMark::take_back(std::uint64_t answered, std::uint64_t last) {
    for (std::uint32_t begun = *word_;;) {
        const std::uint32_t count = begun - low(answered);
        if (count > last - answered) return last;
        if (word_->compare_exchange_weak(begun, low(last))) return answered + count;
    }
}

void CallMark::reset(std::uint64_t last) { *word_ = low(last); }

}  // namespace lmq::host
