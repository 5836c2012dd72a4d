// The statuses, taken at compile time from the list of enumerators that the dictionary tells and from their values in
// the driver's header. (The dictionary tells the distance from a base; a driver returns the header's value.)
#include "status_name.h"

#include <lmq/lmq.h>

#include <algorithm>
#include <iterator>

namespace lmq::host {
namespace {

struct Enumerator {
    /** The enum's name in the row that begins it; else empty. */
    std::string_view begins;
    std::string_view name;
    int value;
};

constexpr Enumerator enumerators[] = {
#define ENUM(type) {#type, {}, 0},
#define ENUMERATOR(name) {{}, #name, static_cast<int>(name)},
#define BASED(base, name) ENUMERATOR(name)
#include "introspect/enums.def"
#undef BASED
#undef ENUMERATOR
#undef ENUM
};

constexpr auto first =
    std::find_if(std::begin(enumerators), std::end(enumerators),
                 [](const Enumerator &row) { return row.begins == "vx_status_e"; }) +
    1;
constexpr auto last =
    std::find_if(first, std::end(enumerators), [](const Enumerator &row) { return !row.begins.empty(); });
static_assert(first->name == "VX_SUCCESS");

}  // namespace

// A family's base and its first status are one number; the status says more.
std::string_view status_name(int status) {
    const auto is = [status](const Enumerator &row) { return row.value == status; };
    auto found = std::find_if(first, last, is);
    if (found == last) return {};
    const auto next = found + 1;
    return next != last && is(*next) ? next->name : found->name;
}

}  // namespace lmq::host
