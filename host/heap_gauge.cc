// What the allocators know of the memory that is in use.
#include "heap_gauge.h"

#include <fcntl.h>
#include <sys/mman.h>

#include <cstddef>
#include <cstdlib>

#include "file_descriptor.h"

#if defined(__SANITIZE_ADDRESS__)
// Of the sanitizers' run-time library; GCC does not install the header that declares it.
extern "C" std::size_t __sanitizer_get_current_allocated_bytes();
#elif defined(LMQ_HOST_MIMALLOC)
#include <mimalloc.h>
#else
#include <malloc.h>
#endif

namespace lmq::host {
namespace {

std::size_t bytes_in_use() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#elif defined(LMQ_HOST_MIMALLOC)
    // Of this thread: the one that makes the calls.
    std::size_t bytes = 0;
    const auto add = [](const mi_heap_t *, const mi_heap_area_t *area, void *, std::size_t, void *sum) {
        *static_cast<std::size_t *>(sum) += area->used * area->block_size;
        return true;
    };
    mi_heap_visit_blocks(mi_heap_get_default(), false, add, &bytes);
    return bytes;
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

}  // namespace

HeapGauge::HeapGauge() {
    const char *path = std::getenv("LMQ_HEAP_GAUGE");
    if (path == nullptr) return;
    const FileDescriptor file(open(path, O_RDWR | O_CLOEXEC));
    if (file.get() < 0) return;
    void *mapped = mmap(nullptr, sizeof(Page), PROT_READ | PROT_WRITE, MAP_SHARED, file.get(), 0);
    if (mapped != MAP_FAILED) page_ = static_cast<Page *>(mapped);
}

HeapGauge::~HeapGauge() {
    if (page_ != nullptr) munmap(page_, sizeof(Page));
}

void HeapGauge::note() {
    if (page_ == nullptr) return;
    page_->bytes.store(bytes_in_use(), std::memory_order_relaxed);
    page_->calls.fetch_add(1, std::memory_order_release);
}

}  // namespace lmq::host
