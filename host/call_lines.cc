// From packed calls to words.
#include "call_lines.h"

#include <algorithm>
#include <utility>

#include "packed_reader.h"

namespace lmq::host {
namespace {

bool is_packed(std::string_view call) { return !call.empty() && call.front() == packed_mark; }

/// Takes a value, and says what may be said of it.
std::string value_words(PackedReader &reader) {
    const Item item = reader.take<Item>();
    switch (item) {
        case Item::int32: return std::to_string(reader.take<std::int32_t>());
        case Item::int64: return std::to_string(reader.take<std::int64_t>());
        case Item::boolean: return reader.take<bool>() ? "true" : "false";
        case Item::nil: return "nil";
        default: reader.skip(item);
    }
    return item == Item::string ? "'...'" : item == Item::array ? "[...]" : "{...}";
}

std::string line_of(std::string_view call) {
    if (!is_packed(call)) return std::string(call);
    PackedReader reader(call.substr(sizeof packed_mark));
    std::string line = std::string(reader.take_text()) + '(';
    for (const char *between = ""; !reader.at_end(); between = ", ") line += between + value_words(reader);
    return line + ')';
}

}  // namespace

void CallLines::add(std::string_view method, std::string call) {
    const bool is_kept = is_packed(call) && call.size() <= longest_kept;
    calls_[count_++ % most] = is_kept ? std::move(call) : std::string(method) + "(...)";
}

std::string CallLines::text() const {
    std::string text, before;
    std::size_t times = 0;
    const auto end = [&] {
        if (times > 1) text += " (" + std::to_string(times) + " times)";
    };
    for (std::size_t at = count_ - std::min(count_, most); at < count_; ++at) {
        std::string line = line_of(calls_[at % most]);
        if (line == before) {
            ++times;
            continue;
        }
        end();
        text += (text.empty() ? "" : ", ") + line;
        before = std::move(line);
        times = 1;
    }
    end();
    return text;
}

}  // namespace lmq::host
