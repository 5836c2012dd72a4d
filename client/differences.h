// What two surveys have otherwise, member by member.
#pragma once

#include <string>
#include <vector>

#include "json.h"

namespace lmqctl {

/// A member that differs; without a member, a call that only one side has, for which that side has all that it
/// answered. What a side does not have is null.
struct Difference {
    std::string call, member;
    Json before, after;
};

/// Of two objects of answers, as `survey` has them.
std::vector<Difference> differences(const Json &before, const Json &after);

/// A line for each. `old` and `now` are the names of the sides.
std::string differences_text(const std::vector<Difference> &found, const std::string &old, const std::string &now);

/// A list with an object for each.
Json differences_json(const std::vector<Difference> &found);

}  // namespace lmqctl
