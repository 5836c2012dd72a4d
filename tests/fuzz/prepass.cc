// Fuzzer of the pre-pass alone: any bytes at all. A document that it accepts must be accepted again, and name a method.
#include "prepass.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static lmq::host::Prepass prepass({8, 200, 16, 4});
    const std::string_view document(reinterpret_cast<const char *>(data), size);
    const auto first = prepass.examine(document);
    const std::string packed(first.packed);
    const auto second = prepass.examine(document);
    if (first.fault.has_value() != second.fault.has_value() || first.method != second.method) std::abort();
    if (!first.fault && packed != second.packed) std::abort();
    if (!first.fault && (first.method.empty() || first.inner.size() > 4)) std::abort();
    if (first.fault && lmq::host::fault_code(lmq::host::document(*first.fault)) != first.fault->code) std::abort();
    return 0;
}
