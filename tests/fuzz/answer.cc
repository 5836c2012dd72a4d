// Fuzzer of what a host answers: whatever it is, a call of the remote driver writes within the caller's buffers and
// nowhere else, and changes nothing if it fails. The input is the answer to each of a few calls, which stand for the
// forms that arguments have; a connection made of this file takes the place of the sockets. Both readers of XML that
// the remote driver has must have found the same in it.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <utility>

#include "lmq/lmq.h"
#include "lmq/remote.h"
#include "remote/connection.h"
#include "remote/document.h"

namespace {

std::string answer;

class Canned : public lmq::remote::Connection {
  public:
    void connect() override {}
    lmq::remote::Answer post(const std::string &) override { return {200, answer}; }
    lmq::remote::Answer get(const std::string &) override { return {404, ""}; }
};

void compare_readers() {
    static lmq::remote::Document any(false), usual(true);
    std::string first = answer, second = answer;
    const std::string wrong = any.read(first);
    if (wrong != usual.read(second) || (wrong.empty() && any.is_fault() != usual.is_fault())) std::abort();
    if (!wrong.empty()) return;
    const lmq::remote::Value *other = &usual.root();
    for (const auto *each = &any.root(); each != any.end(); ++each, ++other) {
        const bool same = other != usual.end() && each->form == other->form && each->count == other->count &&
                          each->next == other->next && each->number == other->number &&
                          any.text(*each) == usual.text(*other) && any.name(*each) == usual.name(*other);
        if (!same) std::abort();
    }
}

bool failed(std::int64_t status) { return status >= LMQ_REMOTE_NOT_SENT && status <= LMQ_REMOTE_MISFIT; }

// A buffer between guards, which are looked at when it goes.
template <class T, std::size_t count = 1>
struct Guarded {
    static constexpr unsigned char pattern = 0xA5;
    unsigned char before[64];
    T buffer[count];
    unsigned char after[64];

    Guarded() { std::memset(static_cast<void *>(this), pattern, sizeof *this); }

    void check(std::int64_t status) const {
        const auto untouched = [](const void *from, std::size_t size) {
            for (std::size_t i = 0; i < size; ++i)
                if (static_cast<const unsigned char *>(from)[i] != pattern) return false;
            return true;
        };
        if (!untouched(before, sizeof before) || !untouched(after, sizeof after)) std::abort();
        if (failed(status) && !untouched(buffer, sizeof buffer)) std::abort();
    }
};

}  // namespace

std::unique_ptr<lmq::remote::Connection> lmq::remote::make_connection(const Options &) {
    return std::make_unique<Canned>();
}

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t room);

namespace {

// Where a value begins and ends that stands behind a place chosen by chance; nothing if there is none.
std::pair<std::size_t, std::size_t> some_value(const std::string &text, std::size_t from) {
    const std::size_t begin = text.find("<value>", from % (text.size() + 1));
    if (begin == std::string::npos) return {0, 0};
    int depth = 0;
    for (std::size_t at = begin; at != std::string::npos; at = text.find("value>", at + 1)) {
        depth += text[at] == '<' || text[at - 1] == '<' ? 1 : -1;
        if (text[at] == '<') ++at;
        if (depth == 0) return {begin, at + std::strlen("value>") - begin};
    }
    return {0, 0};
}

}  // namespace

// Bytes changed at random hardly ever leave XML: every other time a value is doubled, dropped or put in another's
// place.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t room, unsigned seed) {
    if (seed % 2 == 0 || size == 0) return LLVMFuzzerMutate(data, size, room);
    std::string text(reinterpret_cast<const char *>(data), size);
    const auto [at, length] = some_value(text, seed / 8);
    const auto [other, other_length] = some_value(text, seed / 8 * 31);
    switch (seed / 2 % 4) {
        case 0: text.insert(at, text.substr(at, length)); break;
        case 1: text.erase(at, length); break;
        default: text.replace(at, length, text.substr(other, other_length));
    }
    size = std::min(text.size(), room);
    std::memcpy(data, text.data(), size);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const int quiet = setenv("LMQ_REMOTE_QUIET", "1", 1);
    if (quiet != 0) std::abort();
    // The first byte chooses the call.
    if (size == 0) return 0;
    answer.assign(reinterpret_cast<const char *>(data) + 1, size - 1);
    compare_readers();
    switch (data[0] % 6) {
        case 0: {
            Guarded<vx_uint8, 6> mac;
            mac.check(vx_mac_addr_get(0, mac.buffer));
            break;
        }
        case 1: {
            Guarded<vx_watchdog_cfg_t> config;
            config.check(vx_watchdog_get(0, config.buffer));
            break;
        }
        case 2: {
            Guarded<vx_eth_port_stats_t> stats;
            stats.check(vx_eth_port_stats_get(0, 3, stats.buffer, 0));
            break;
        }
        case 3: {
            Guarded<vx_flow_us_cfg_t, 2> flows;
            Guarded<vx_uint16> filled;
            const auto status = vx_flow_us_all_get(0, 3, 2, flows.buffer, filled.buffer);
            flows.check(status);
            filled.check(status);
            break;
        }
        case 4: {
            Guarded<vx_gem_port_info_t, 3> ports;
            vx_uint16 count = 3;
            ports.check(vx_gpon_onu_active_gem_port_get(0, 0, ports.buffer, &count));
            break;
        }
        default: {
            Guarded<vx_uint32> value;
            value.check(lmq_read_register(0, 0x1000, value.buffer));
        }
    }
    return 0;
}
