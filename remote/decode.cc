// The walk over the rows of a UDT that reads an answer.
#include "remote/decode.h"

#include <algorithm>
#include <cstring>

#include "remote/failure.h"
#include "remote/unions.h"

namespace lmq::remote {

namespace {

const char *told(Form form) {
    switch (form) {
        case Form::nil: return "nothing";
        case Form::int32: return "an int";
        case Form::int64: return "an i8";
        case Form::string: return "a text";
        case Form::array: return "an array";
        case Form::structure: return "a struct";
        case Form::open:
        case Form::other: break;
    }
    return "a value of a type that no driver function has";
}

[[noreturn]] void misfit(const std::string &text) { throw Failure(LMQ_REMOTE_MISFIT, text); }

void expect(const Value &value, Form form) {
    if (value.form != form) misfit(std::string(told(value.form)) + " came, and not " + told(form));
}

}  // namespace

// A UDT on its way: the struct of the answer that it is read from, and where it goes.
struct Decoder::Place {
    const Value &whole;
    const Udt &udt;
    std::byte *to;  // NULL: nowhere

    std::byte *at(const Row &row) const { return to ? to + row.offset : nullptr; }
};

// A number that has so many bits, signed or not: elements are sent unsigned whatever they are.
std::int64_t Decoder::number(const Value &value, unsigned bits) {
    if (value.form != Form::int32 && !(bits == 64 && value.form == Form::int64)) expect(value, Form::int32);
    if (bits < 32 && (value.number < -(std::int64_t{1} << (bits - 1)) || value.number >= std::int64_t{1} << bits))
        misfit(std::to_string(value.number) + " came, which needs more than " + std::to_string(bits) + " bits");
    is_blank_ = is_blank_ && value.number == 0;
    return value.number;
}

void Decoder::array(const Value &value, std::size_t count) const {
    expect(value, Form::array);
    if (value.count != count)
        misfit("an array of " + std::to_string(value.count) + " came, and not of " + std::to_string(count));
}

void Decoder::elements(const Value &value, std::byte *to, std::size_t count, std::size_t limit, Scalar scalar) {
    array(value, count);
    const Value *item = document_.first_in(value);
    for (std::size_t i = 0; i < count; ++i, item = document_.behind(*item)) {
        const auto read = static_cast<std::int32_t>(number(*item, 8U * scalar.width));
        if (writes_ && to && i < limit) store(to + i * scalar.width, scalar.width, read);
    }
}

void Decoder::structures(const Value &value, const Udt &udt, std::byte *to, std::size_t count, std::size_t limit) {
    array(value, count);
    const Value *item = document_.first_in(value);
    for (std::size_t i = 0; i < count; ++i, item = document_.behind(*item))
        structure(*item, udt, to && i < limit ? to + i * udt.size : nullptr);
}

void Decoder::structure(const Value &value, const Udt &udt, std::byte *to) {
    rows(value, {value, udt, to}, udt.rows, udt.end(), -1);
}

// `only` is the alternative that counts; the others are looked at all the same.
void Decoder::rows(const Value &value, const Place &place, const Row *row, const Row *end, int only) {
    expect(value, Form::structure);
    const Value *hint = document_.first_in(value);
    for (int index = 0; row != end; row = next(row), ++index) {
        const char *const key = place.udt.text(row->key);
        const Value *const found = document_.find(value, key, hint);
        if (!found) misfit(std::string("member ") + key + " of " + place.udt.name + ": it did not come");
        const bool counts = only < 0 || only == index;
        try {
            member(*found, {place.whole, place.udt, counts ? place.to : nullptr}, *row);
        } catch (const Failure &failure) {
            if (std::strncmp(failure.what(), "member ", 7) == 0) throw;
            misfit(std::string("member ") + key + " of " + place.udt.name + ": " + failure.what());
        }
    }
}

int Decoder::selected(const Place &place, const Row &group) const {
    const Union *const known = find_union(place.udt, group);
    if (!known) return -1;
    const Value *hint = document_.first_in(place.whole);
    const Value *const selector = document_.find(place.whole, known->selector, hint);
    return selector ? known->selected(selector->number) : -1;
}

void Decoder::member(const Value &value, const Place &place, const Row &row) {
    std::byte *const at = place.at(row);
    switch (row.kind) {
        case Kind::scalar: {
            const auto read = static_cast<std::int32_t>(number(value, 8U * row.width));
            if (writes_ && at) store(at, row.width, read);
            return;
        }
        case Kind::wide: {
            const std::int64_t read = number(value, 64);
            if (writes_ && at) std::memcpy(at, &read, sizeof read);
            return;
        }
        case Kind::string: return string(value, place, row);
        case Kind::elements: return elements(value, at, row.count, row.count, {row.width, row.is_signed});
        case Kind::nested: return structure(value, *place.udt.inner[row.inner], at);
        case Kind::udt_array:
        case Kind::udt_list: return structures(value, *place.udt.inner[row.inner], at, row.count, row.count);
        case Kind::inline_struct:
        case Kind::overlaid: return rows(value, place, &row + 1, next(&row), selected(place, row));
        case Kind::flag: return flag(value, place, row);
    }
    __builtin_unreachable();
}

// A text that fills its member has no terminator, and what comes then runs on into the members behind it.
void Decoder::string(const Value &value, const Place &place, const Row &row) {
    expect(value, Form::string);
    const std::string_view text = document_.text(value).substr(0, row.count);
    is_blank_ = is_blank_ && text.empty();
    char *const at = reinterpret_cast<char *>(place.at(row));
    // What stands behind the terminator is kept where the text is the same.
    if (!writes_ || !at || std::string_view(at, strnlen(at, row.count)) == text) return;
    std::memset(std::copy(text.begin(), text.end(), at), 0, row.count - text.size());
}

void Decoder::flag(const Value &value, const Place &place, const Row &row) {
    const auto read = static_cast<std::uint32_t>(number(value, row.bits));
    std::byte *const at = place.at(row);
    if (!writes_ || !at) return;
    const std::uint32_t mask = (row.bits < 32 ? (1U << row.bits) - 1 : ~0U) << row.count;
    const auto word = static_cast<std::uint32_t>(load(at, {row.width, false}));
    store(at, row.width, static_cast<std::int32_t>((word & ~mask) | (read << row.count & mask)));
}

}  // namespace lmq::remote
