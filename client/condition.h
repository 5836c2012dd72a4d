// What a run of calls is searched for: "died", "METHOD:STATUS", "METHOD:MEMBER=VALUE" and the like.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fresh_hosts.h"

namespace lmqctl {

struct Condition {
    enum Kind {
        died,     ///< the driver's process ended over a call, or over one of the method
        hung,     ///< a call had no answer in time
        status,   ///< the method answered this status
        fault,    ///< the method was refused with a fault
        member,   ///< the method answered this value
        changed,  ///< an input of the method came back as something else
        lost,     ///< what the method set is not what its getter answered right behind it
        grows,    ///< the process grows with each call of the method
    };
    Kind kind = died;
    std::string method = {};  ///< without the namespace; empty for any
    int64_t number = 0;       ///< of a status
    std::string path = {}, value = {};

    /// As --until takes it.
    std::string text() const;

    /// Whether the last of these calls fulfils it. What grows has to be measured, and never is fulfilled here.
    bool holds(FreshHosts &hosts, const std::vector<PlayedCall> &calls) const;
};

/// Throws a UsageError that names what is wrong: a method, a status or a value that there is not.
Condition condition_of(const std::string &text, const Dictionary &dictionary);

}  // namespace lmqctl
