// The table of unions, which the build makes of the headers' comments.
#include "remote/unions.h"

#include <cstring>

#include "families/udts.h"
#include "lmq/lmq.h"

namespace lmq::remote {
namespace {

struct Alternative {
    std::uint8_t index;
    std::int32_t value;
};

#include "remote_unions.inc"

}  // namespace

int Union::selected(std::int64_t value) const {
    for (const Alternative *each = alternatives + first; each != alternatives + first + count; ++each)
        if (each->value == value) return each->index;
    return -1;
}

const Union *find_union(const Udt &udt, const Row &group) {
    for (const Union &each : unions)
        if (each.udt == &udt && std::strcmp(each.key, udt.text(group.key)) == 0) return &each;
    return nullptr;
}

}  // namespace lmq::remote
