// The statuses, taken when the program is built from the driver's header.
#include "status_name.h"

#include <lmq/lmq.h>

#include <algorithm>
#include <iterator>

namespace lmq::host {
namespace {

struct Status {
    std::string_view name;
    int value;
};

constexpr Status statuses[] = {
#define xx(name) {#name, static_cast<int>(name)},
#include "status_names.inc"
#undef xx
};

}  // namespace

// A family's base and its first status are one number; the status says more.
std::string_view status_name(int status) {
    const auto is = [status](const Status &candidate) { return candidate.value == status; };
    const auto *found = std::find_if(std::begin(statuses), std::end(statuses), is);
    if (found == std::end(statuses)) return {};
    const auto *next = found + 1;
    return next != std::end(statuses) && is(*next) ? next->name : found->name;
}

}  // namespace lmq::host
