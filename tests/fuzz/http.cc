// Fuzzer of the reader of HTTP answers: any bytes at all, in pieces. However a stream is cut up, the same answers come
// out of it, and whatever is wrong with it is one of the client's own errors.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "error.h"
#include "http_answer.h"

namespace {

// The answers of a stream that comes in pieces of this size, and its end.
std::string answers(std::string_view stream, std::size_t piece) {
    lmqctl::AnswerReader reader("url", [&](std::string &to) {
        const std::string_view next = stream.substr(0, piece);
        to += next;
        stream.remove_prefix(next.size());
        return !next.empty();
    });
    std::string all;
    try {
        for (;;) {
            const lmqctl::HttpAnswer answer = reader.read();
            if (answer.status < 200 || answer.status > 999) std::abort();
            all += std::to_string(answer.status) + (answer.stays_open ? "+" : "-") + answer.body + "\n";
        }
    } catch (const lmqctl::Error &error) {
        if (error.status != lmqctl::exit_connection) std::abort();
        return all + error.what();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view stream(reinterpret_cast<const char *>(data), size);
    const std::string whole = answers(stream, size + 1);
    for (const std::size_t piece : {1, 7})
        if (answers(stream, piece) != whole) std::abort();
    return 0;
}
