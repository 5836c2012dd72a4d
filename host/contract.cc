// The tables that the build makes of the headers' comments, and how they are searched.
#include "contract.h"

#include <algorithm>
#include <iterator>

#include "lmq/lmq.h"

namespace lmq::host::contract {
namespace {

template <class T>
constexpr std::uint8_t width_of = sizeof(T);

#include "contract_table.inc"

static_assert(std::size(struct_rows) < none, "a struct's index is a byte");

}  // namespace

const MethodRow *find(std::string_view name) {
    constexpr std::string_view prefix = "lmq.";
    if (!name.starts_with(prefix)) return nullptr;
    const std::uint32_t wanted = hash(name.substr(prefix.size()));
    const auto *found = std::lower_bound(std::begin(method_rows), std::end(method_rows), wanted,
                                         [](const MethodRow &row, std::uint32_t value) { return row.name < value; });
    return found != std::end(method_rows) && found->name == wanted ? found : nullptr;
}

std::span<const LengthRow> lengths(const MethodRow &method) {
    return std::span(length_rows).subspan(method.lengths, method.length_count);
}

std::span<const StructArgument> structs(const MethodRow &method) {
    return std::span(struct_arguments).subspan(method.structs, method.struct_count);
}

const StructRow &structure(std::uint8_t index) { return struct_rows[index]; }

const MemberRow *find(const StructRow &structure, std::string_view name) {
    const auto rows = std::span(member_rows).subspan(structure.members, structure.count);
    const auto found = std::find_if(rows.begin(), rows.end(),
                                    [wanted = hash(name)](const MemberRow &row) { return row.name == wanted; });
    return found == rows.end() ? nullptr : &*found;
}

const char *text(std::uint16_t place) { return texts + place; }

std::string_view fingerprint() { return contract_fingerprint; }

std::size_t size() {
    return sizeof method_rows + sizeof length_rows + sizeof struct_arguments + sizeof struct_rows + sizeof member_rows +
           sizeof texts;
}

}  // namespace lmq::host::contract
