// Writing and reading of a record's bytes. All numbers have their lowest byte first, whatever the machine.
#include "format.h"

#include <algorithm>
#include <cstring>

#include "checksum.h"

namespace lmq::trace {
namespace {

/// The names of fields in a file. Numbers once given stay.
enum class Tag : std::uint8_t {
    waited = 1,
    took = 2,
    status = 3,
    pid = 4,
    signal = 5,
    exit_status = 6,
    client = 16,
    user = 17,
    method = 18,
    call = 19,
    answer = 20,
    printed = 21,
    how = 22,
    driver = 23,
    plugin = 24,
    maker = 25,
    fingerprint = 26,
    note = 27,
};

constexpr std::size_t number_size = 8;
/// Kind, number and time.
constexpr std::size_t fixed_size = 1 + 2 * number_size;
/// Tag and length.
constexpr std::size_t field_prefix = 1 + 4;

template <class Number>
char *put_number(char *to, Number value) {
    for (std::size_t byte = 0; byte < sizeof value; ++byte) *to++ = static_cast<char>(value >> (8 * byte));
    return to;
}

template <class Number>
Number take_number(const char *from) {
    Number value = 0;
    for (std::size_t byte = 0; byte < sizeof value; ++byte) {
        value |= static_cast<Number>(static_cast<Number>(static_cast<unsigned char>(from[byte])) << (8 * byte));
    }
    return value;
}

/// Shows each field with its tag to one of two functions: numbers to one, texts to the other.
template <class Record, class OnNumber, class OnText>
void each_field(Record &record, OnNumber on_number, OnText on_text) {
    on_number(Tag::waited, record.waited);
    on_number(Tag::took, record.took);
    on_number(Tag::status, record.status);
    on_number(Tag::pid, record.pid);
    on_number(Tag::signal, record.signal);
    on_number(Tag::exit_status, record.exit_status);
    on_text(Tag::client, record.client);
    on_text(Tag::user, record.user);
    on_text(Tag::method, record.method);
    on_text(Tag::call, record.call);
    on_text(Tag::answer, record.answer);
    on_text(Tag::printed, record.printed);
    on_text(Tag::how, record.how);
    on_text(Tag::driver, record.driver);
    on_text(Tag::plugin, record.plugin);
    on_text(Tag::maker, record.maker);
    on_text(Tag::fingerprint, record.fingerprint);
    on_text(Tag::note, record.note);
}

bool take_field(RecordView &record, Tag tag, std::string_view text) {
    bool good = true;
    each_field(
        record,
        [&](Tag known, std::uint64_t &value) {
            if (known != tag) return;
            good = text.size() == number_size;
            if (good) value = take_number<std::uint64_t>(text.data());
        },
        [&](Tag known, std::string_view &value) {
            if (known == tag) value = text;
        });
    return good;
}

}  // namespace

std::size_t size_of(const RecordView &record) {
    std::size_t size = prefix_size + fixed_size;
    each_field(
        record,
        [&](Tag, std::uint64_t value) {
            if (value != 0) size += field_prefix + number_size;
        },
        [&](Tag, std::string_view text) {
            if (!text.empty()) size += field_prefix + text.size();
        });
    return size;
}

char *put(const RecordView &record, char *to) {
    char *const begin = to;
    to += prefix_size;
    *to++ = static_cast<char>(record.kind);
    to = put_number(to, record.number);
    to = put_number(to, static_cast<std::uint64_t>(record.time));
    const auto put_prefix = [&](Tag tag, std::size_t size) {
        *to++ = static_cast<char>(tag);
        to = put_number(to, static_cast<std::uint32_t>(size));
    };
    each_field(
        record,
        [&](Tag tag, std::uint64_t value) {
            if (value == 0) return;
            put_prefix(tag, number_size);
            to = put_number(to, value);
        },
        [&](Tag tag, std::string_view text) {
            if (text.empty()) return;
            put_prefix(tag, text.size());
            std::memcpy(to, text.data(), text.size());
            to += text.size();
        });
    put_number(begin, std::uint32_t{0});
    put_number(begin + 4, static_cast<std::uint32_t>(to - begin - static_cast<std::ptrdiff_t>(prefix_size)));
    return to;
}

void seal(char *record, std::size_t size) { put_number(record, checksum(record + 4, size - 4)); }

std::size_t size_at(const char *record) { return prefix_size + take_number<std::uint32_t>(record + 4); }

std::string encode(const RecordView &record) {
    std::string bytes(size_of(record), '\0');
    put(record, bytes.data());
    seal(bytes.data(), bytes.size());
    return bytes;
}

Decoded decode(std::string_view piece) {
    if (piece.find_first_not_of('\0') >= std::min(piece.size(), prefix_size)) return {Decoded::Is::room};
    if (piece.size() < prefix_size) return {Decoded::Is::incomplete};
    const std::size_t length = take_number<std::uint32_t>(piece.data() + 4);
    if (length < fixed_size) return {Decoded::Is::damaged};
    Decoded decoded{Decoded::Is::incomplete, prefix_size + length};
    if (piece.size() < decoded.size) return decoded;
    decoded.is = Decoded::Is::damaged;
    if (checksum(piece.data() + 4, decoded.size - 4) != take_number<std::uint32_t>(piece.data())) return decoded;
    std::string_view rest = piece.substr(prefix_size, length);
    decoded.record.kind = static_cast<Kind>(rest[0]);
    decoded.record.number = take_number<std::uint64_t>(rest.data() + 1);
    decoded.record.time = static_cast<std::int64_t>(take_number<std::uint64_t>(rest.data() + 1 + number_size));
    rest.remove_prefix(fixed_size);
    while (!rest.empty()) {
        if (rest.size() < field_prefix) return decoded;
        const auto tag = static_cast<Tag>(rest[0]);
        const std::size_t size = take_number<std::uint32_t>(rest.data() + 1);
        rest.remove_prefix(field_prefix);
        if (size > rest.size() || !take_field(decoded.record, tag, rest.substr(0, size))) return decoded;
        rest.remove_prefix(size);
    }
    decoded.is = Decoded::Is::record;
    return decoded;
}

}  // namespace lmq::trace
