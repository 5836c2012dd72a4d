// Fuzzer of the pre-pass and the guard: any bytes at all. A document that the pre-pass accepts must be accepted again,
// name a method, be readable for the guard, and be the same call where expat alone has read it; what is refused must be
// refused for the same reason.
#include "prepass.h"

#include <cstdint>
#include <cstdlib>

#include "guard.h"

namespace {

bool are_alike(const lmq::host::Verdict &one, const lmq::host::Verdict &other) {
    if (one.fault.has_value() != other.fault.has_value()) return false;
    if (one.fault && (one.fault->code != other.fault->code || one.fault->text != other.fault->text)) return false;
    return one.method == other.method && one.inner == other.inner && one.packed == other.packed &&
           one.read == other.read && one.document == other.document;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static lmq::host::Prepass prepass({8, 200, 16, 4});
    static lmq::host::Prepass by_expat({8, 200, 16, 4}, false);
    const std::string_view document(reinterpret_cast<const char *>(data), size);
    const auto first = prepass.examine(document);
    if (!are_alike(first, by_expat.examine(document))) std::abort();
    const std::string packed(first.packed);
    static const std::vector<lmq::host::Method> methods;
    static const lmq::host::Guard guard(methods, true);
    if (!first.fault) {
        static_cast<void>(guard.judge(first.read, lmq::host::ReadOnly::strict));
        static_cast<void>(guard.judge(first.read, lmq::host::ReadOnly::off));
    }
    const auto second = prepass.examine(document);
    if (first.fault.has_value() != second.fault.has_value() || first.method != second.method) std::abort();
    if (!first.fault && packed != second.packed) std::abort();
    if (!first.fault && (first.method.empty() || first.inner.size() > 4)) std::abort();
    if (first.fault && lmq::host::fault_code(lmq::host::document(*first.fault)) != first.fault->code) std::abort();
    return 0;
}
