// Faults on demand: driver functions that fail with a given status, so that a script can be tried against them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lmq/lmq.h"

namespace lmq::sim {

/// A fault that is no such thing.
struct BadFault {
    std::string expected;  ///< What should stand there, and where it is wrong what does not.
};

/// A list of faults, each with the calls that it has counted so far.
class Faults {
  public:
    /// Adds a fault.
    /// @param rule `function:status[:nth]`: the name of a driver function, a status by name or number (not 0), and
    ///             which call of the function fails, from 1; without it every call does.
    /// @throws BadFault
    void add(std::string_view rule);

    /// A driver function is called. @return The status that the call has to fail with, if it has to.
    std::optional<vx_status_e> call(std::string_view function);

    /// Those of LMQ_SIM_FAIL. One that is wrong is told on standard error, and then there are none.
    static Faults from_environment();

  private:
    struct Fault {
        std::string function;
        vx_status_e status;
        unsigned nth;  ///< 0 for every call.
        unsigned calls;
    };
    std::vector<Fault> faults_;
};

}  // namespace lmq::sim
