// What differs between two descriptions of an interface, and whether a client of the first one goes on working with the
// second: the rules of compatibility on the wire.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "json.h"

namespace lmqctl {

struct InterfaceChange {
    std::string kind, name;  ///< "method", "vx_watchdog_set"
    std::string place;       ///< inside of it: "argument p_cfg", "member mask_s.wd_timer"; empty for the whole
    std::string what;        ///< "range", "type"; "added" and "removed"
    Json before, after;      ///< null for what is not there
    bool breaks;             ///< clients of the first interface
};

struct InterfaceDiff {
    std::vector<InterfaceChange> changes;
    std::size_t texts = 0;  ///< sentences for people that are worded differently
};

/// Compares descriptions as hosts serve them. What is not understood counts as a change that breaks nothing. Throws a
/// Json::exception if one of them is no such description.
InterfaceDiff compare_interfaces(const Json &before, const Json &after);

}  // namespace lmqctl
