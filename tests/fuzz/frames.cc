// Fuzzer of what the front takes from a worker: frames, one behind the other and in pieces of any length, and the
// answers in them. A frame is never longer than the limit, and of what has arrived nothing is lost.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "answer.h"
#include "frame.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using lmq::host::FrameReader;
    constexpr std::size_t limit = 300'000;
    static FrameReader reader(limit);
    reader.reset();
    const std::size_t piece = size == 0 ? 1 : data[0] * std::size_t{7} + 1;
    std::size_t begin = 0;  // of the frame that is being read
    for (std::size_t at = 0; at < size && reader.state() == FrameReader::State::incomplete;) {
        const std::size_t count = std::min({piece, reader.room(), size - at});
        if (reader.room() == 0) std::abort();
        std::memcpy(reader.space(), data + at, count);
        reader.take(count);
        at += count;
        for (; reader.state() == FrameReader::State::complete; reader.next()) {
            const std::string_view text = reader.text();
            if (text.size() != reader.head().size || text.size() > limit) std::abort();
            begin += sizeof reader.head();
            if (begin + text.size() > at || std::memcmp(text.data(), data + begin, text.size()) != 0) std::abort();
            begin += text.size();
        }
    }
    const std::string_view text(reinterpret_cast<const char *>(data), size);
    lmq::host::result_of(text);
    if (lmq::host::inner_results(text, 3).size() > 3) std::abort();
    return 0;
}
