// How much memory a worker has allocated, for whoever started the host and looks for leaks.
#pragma once

#include <atomic>
#include <cstdint>

namespace lmq::host {

class HeapGauge {
  public:
    /// Maps the file that the environment names (LMQ_HEAP_GAUGE). Without the variable, or when the file cannot be
    /// mapped, nothing is kept.
    HeapGauge();
    ~HeapGauge();
    HeapGauge(const HeapGauge &) = delete;
    HeapGauge &operator=(const HeapGauge &) = delete;

    /// Says that a call is over and all that belongs to it given back.
    void note();

  private:
    /// What the file holds, in the machine's order of bytes.
    struct Page {
        std::atomic<std::uint64_t> calls;  ///< that are over, by all workers
        std::atomic<std::uint64_t> bytes;  ///< in blocks that have been allocated and not given back
    };
    Page *page_ = nullptr;
};

}  // namespace lmq::host
