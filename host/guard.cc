// How long arrays have to be, worked out for one call. A number counts as the driver will see it: cut to the width of
// its argument. An empty array is the NULL pointer, which the driver refuses by itself.
#include "guard.h"

#include <algorithm>
#include <string>

#include "contract.h"
#include "packed_reader.h"

namespace lmq::host {
namespace {

std::string elements(std::size_t count) { return std::to_string(count) + (count == 1 ? " element" : " elements"); }

Fault refused(const CallView &call, const std::string &why) {
    return {Fault::refused, std::string(call.method) + " was not called: " + why};
}

/// How many elements an argument needs; none if that cannot be told.
std::optional<std::size_t> needed(const CallView &call, const contract::LengthRow &row) {
    if (row.source == contract::Source::number) return row.number;
    if (row.from >= call.count) return std::nullopt;
    const auto sent = call.arguments[row.from].number();
    if (!sent) return std::nullopt;
    const std::uint32_t cut = static_cast<std::uint32_t>(*sent) & (row.width < 4 ? (1U << 8 * row.width) - 1 : ~0U);
    return cut == 0 ? row.if_zero : std::size_t{cut} * row.number;
}

std::optional<Fault> check_length(const CallView &call, const contract::LengthRow &row) {
    if (row.argument >= call.count) return std::nullopt;
    const std::size_t sent = call.arguments[row.argument].elements();
    const auto least = needed(call, row);
    if (!least || sent == 0 || sent >= *least) return std::nullopt;
    std::string why = "argument " + std::string(contract::text(row.name)) + " holds " + elements(sent) + ", but ";
    if (row.source == contract::Source::number) {
        why += "the driver takes " + std::to_string(*least) + ".";
    } else {
        why += std::string(contract::text(row.from_name)) + " asks for " + std::to_string(*least) + ".";
    }
    return refused(call, why);
}

/// The walk over a struct, looking for arrays that run over its end.
class Overrun {
  public:
    /// @param size Bytes of the struct that the argument points to.
    explicit Overrun(std::size_t size) : size_(size) {}

    /// Walks one struct.
    /// @param reader Stands behind Item::structure.
    /// @param base   Where the named struct begins, in bytes.
    /// @return Whether all arrays end within.
    bool walk(PackedReader &reader, const contract::StructRow &structure, std::size_t base) {
        bool fits = true;
        while (reader.take<Item>() == Item::member) {
            const std::string_view name = reader.take_text();
            const contract::MemberRow *row = contract::find(structure, name);
            if (row == nullptr) {
                reader.skip();
            } else if (!member(reader, *row, base + row->offset) && fits) {
                fits = false;
                if (member_.empty()) member_ = name;
            }
        }
        return fits;
    }

    /// What did not fit, in words.
    std::string text() const {
        return "member " + std::string(member_) + " holds " + elements(count_) + "; the struct ends after " +
               std::to_string(room_) + ".";
    }

  private:
    bool member(PackedReader &reader, const contract::MemberRow &row, std::size_t at) {
        const Item item = reader.take<Item>();
        if (item == Item::structure && row.structure != contract::none) {
            return walk(reader, contract::structure(row.structure), at);
        }
        if (item != Item::array || row.element == 0) {
            reader.skip(item);
            return true;
        }
        bool fits = true;
        std::size_t count = 0;
        for (Item inner = reader.take<Item>(); inner != Item::end; inner = reader.take<Item>(), ++count) {
            if (inner == Item::structure && row.structure != contract::none) {
                fits = walk(reader, contract::structure(row.structure), at + count * row.element) && fits;
            } else {
                reader.skip(inner);
            }
        }
        if (at + count * row.element <= size_) return fits;
        if (member_.empty()) {
            count_ = count;
            room_ = at < size_ ? (size_ - at) / row.element : 0;
        }
        return false;
    }

    std::size_t size_;
    std::string_view member_;
    std::size_t count_ = 0;
    std::size_t room_ = 0;
};

std::optional<Fault> check_struct(const CallView &call, const contract::StructArgument &row) {
    if (row.argument >= call.count) return std::nullopt;
    const ArgumentView &argument = call.arguments[row.argument];
    const contract::StructRow &structure = contract::structure(row.structure);
    PackedReader reader(argument.content());
    Overrun overrun(structure.size);
    bool fits = true;
    if (argument.form() == Item::structure) {
        fits = overrun.walk(reader, structure, 0);
    } else if (argument.form() == Item::array) {
        for (Item item = reader.take<Item>(); fits && item != Item::end; item = reader.take<Item>()) {
            if (item == Item::structure) {
                fits = overrun.walk(reader, structure, 0);
            } else {
                reader.skip(item);
            }
        }
    }
    if (fits) return std::nullopt;
    return refused(call, "in argument " + std::to_string(row.argument + 1) + ", " + overrun.text());
}

std::optional<Fault> check(const CallView &call) {
    const contract::MethodRow *method = contract::find(call.method);
    if (method == nullptr) return std::nullopt;
    for (const contract::LengthRow &row : contract::lengths(*method)) {
        if (auto fault = check_length(call, row)) return fault;
    }
    for (const contract::StructArgument &row : contract::structs(*method)) {
        if (auto fault = check_struct(call, row)) return fault;
    }
    return std::nullopt;
}

}  // namespace

bool Guard::reads(const CallView &call, bool registers) const {
    const contract::MethodRow *method = contract::find(call.method);
    if (method == nullptr) return is_introspection(call.method);
    switch (method->effect) {
        case contract::Effect::reads: return true;
        case contract::Effect::reads_registers: return registers;
        case contract::Effect::clears: {
            // A flag is a vx_boolean: the driver sees its low eight bits.
            if (method->flag >= call.count) return false;
            const auto flag = call.arguments[method->flag].number();
            return flag && static_cast<std::uint8_t>(*flag) == 0;
        }
        case contract::Effect::changes:
        case contract::Effect::resets: return false;
    }
    return false;
}

bool Guard::is_introspection(std::string_view method) const {
    return contract::find(method) == nullptr && std::any_of(methods_.begin(), methods_.end(), [&](const Method &one) {
               return one.name == method && one.is_introspection;
           });
}

bool Guard::is_introspection(const Verdict &call) const {
    if (call.method != multicall) return is_introspection(call.method);
    return std::ranges::all_of(call.inner, [this](const std::string &inner) { return is_introspection(inner); });
}

bool Guard::reads(std::string_view packed) const {
    bool all = true;
    for_each_call(packed, [&](const CallView &call) { return all = reads(call, true); });
    return all;
}

std::optional<Fault> Guard::judge(std::string_view packed, ReadOnly read_only) const {
    if (!lengths_ && read_only == ReadOnly::off) return std::nullopt;
    std::optional<Fault> fault;
    for_each_call(packed, [&](const CallView &call) {
        if (read_only != ReadOnly::off && !reads(call, read_only == ReadOnly::registers)) {
            fault = Fault{Fault::refused,
                          "The method " + std::string(call.method) + " may change the chip, and this host only reads."};
        } else if (lengths_) {
            fault = check(call);
        }
        return !fault;
    });
    return fault;
}

}  // namespace lmq::host
