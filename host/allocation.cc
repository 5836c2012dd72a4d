// `new` by way of malloc(). The allocator that the host is linked with brings an operator of its own, which ends the
// process when there is no memory, where a request should be refused.
#include <cstdlib>
#include <new>

void *operator new(std::size_t size) {
    if (void *memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}
void *operator new[](std::size_t size) { return operator new(size); }
void *operator new(std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size == 0 ? 1 : size); }
void *operator new[](std::size_t size, const std::nothrow_t &) noexcept { return std::malloc(size == 0 ? 1 : size); }
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete[](void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void *memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void *memory, const std::nothrow_t &) noexcept { std::free(memory); }
void operator delete[](void *memory, const std::nothrow_t &) noexcept { std::free(memory); }
