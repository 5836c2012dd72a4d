// CRC-32 by zlib, and where the processor multiplies polynomials, by that: many times as fast, which a host that traces
// large answers feels.
#include "checksum.h"

#include <zlib.h>

#ifdef __x86_64__
#include <immintrin.h>
#endif

namespace lmq::trace {
namespace {

std::uint32_t zlib_checksum(std::uint32_t before, const char *bytes, std::size_t size) {
    return static_cast<std::uint32_t>(crc32_z(before, reinterpret_cast<const unsigned char *>(bytes), size));
}

#ifdef __x86_64__

constexpr std::size_t block = 64, least = 256;

#define LMQ_FOLDS __attribute__((target("pclmul,sse4.1")))

LMQ_FOLDS __m128i load(const char *from) { return _mm_loadu_si128(reinterpret_cast<const __m128i *>(from)); }

// Moves what `sum` stands for behind `next`; the distance is in the keys.
LMQ_FOLDS __m128i fold(__m128i sum, __m128i keys, __m128i next) {
    const __m128i low = _mm_clmulepi64_si128(sum, keys, 0x00), high = _mm_clmulepi64_si128(sum, keys, 0x11);
    return _mm_xor_si128(_mm_xor_si128(low, high), next);
}

// The method of Gopal, Ozturk and others, "Fast CRC Computation for Generic Polynomials Using PCLMULQDQ Instruction"
// (2009), with its keys for this polynomial. Takes at least one block, and all of a multiple of 16 bytes.
LMQ_FOLDS std::uint32_t folded_checksum(const char *bytes, std::size_t size) {
    const __m128i far = _mm_set_epi64x(0x01c6e41596, 0x0154442bd4), near = _mm_set_epi64x(0x00ccaa009e, 0x01751997d0);
    __m128i sums[4];
    for (int i = 0; i < 4; ++i) sums[i] = load(bytes + 16 * i);
    sums[0] = _mm_xor_si128(sums[0], _mm_cvtsi32_si128(-1));
    for (bytes += block, size -= block; size >= block; bytes += block, size -= block)
        for (int i = 0; i < 4; ++i) sums[i] = fold(sums[i], far, load(bytes + 16 * i));
    __m128i sum = sums[0];
    for (int i = 1; i < 4; ++i) sum = fold(sum, near, sums[i]);
    for (; size >= 16; bytes += 16, size -= 16) sum = fold(sum, near, load(bytes));
    // To 64 bits, and by Barrett's reduction to 32.
    const __m128i halves = _mm_setr_epi32(-1, 0, -1, 0);
    sum = _mm_xor_si128(_mm_srli_si128(sum, 8), _mm_clmulepi64_si128(sum, near, 0x10));
    sum = _mm_xor_si128(_mm_srli_si128(sum, 4),
                        _mm_clmulepi64_si128(_mm_and_si128(sum, halves), _mm_cvtsi64_si128(0x0163cd6124), 0x00));
    const __m128i polynomial = _mm_set_epi64x(0x01f7011641, 0x01db710641);
    __m128i rest = _mm_clmulepi64_si128(_mm_and_si128(sum, halves), polynomial, 0x10);
    rest = _mm_clmulepi64_si128(_mm_and_si128(rest, halves), polynomial, 0x00);
    return ~static_cast<std::uint32_t>(_mm_extract_epi32(_mm_xor_si128(sum, rest), 1));
}

#endif

}  // namespace

std::uint32_t checksum(const char *bytes, std::size_t size) {
#ifdef __x86_64__
    static const bool folds = __builtin_cpu_supports("pclmul") && __builtin_cpu_supports("sse4.1");
    if (folds && size >= least) {
        const std::size_t whole = size / 16 * 16;
        return zlib_checksum(folded_checksum(bytes, whole), bytes + whole, size - whole);
    }
#endif
    return zlib_checksum(0, bytes, size);
}

}  // namespace lmq::trace
