// The calls whose price is measured.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/plugin.h"

namespace lmq::bench {

struct Case {
    std::string name;  ///< what tables call it
    std::string method;
    xmlrpc_value *parameters;
    std::string document;  ///< the call as a client sends it
    Handler *plugin, *straight;
    std::function<void()> driver;  ///< what the handler has the driver do; empty if nothing
};

/// Starts the simulated chip, in whose state all calls answer the same again and again, and makes the cases.
std::vector<Case> make_cases(const Plugin &plugin);

/// The registries of the measurement: all rows of the plug-in, with its own handlers, with the straight-line ones for
/// the cases, and with handlers that answer the same from a value that exists already.
struct Registries {
    std::unique_ptr<Registry> plugin, straight, floor;
    Registries(const Plugin &plugin, const std::vector<Case> &cases);
};

/// Throws std::runtime_error unless the three answer each case by the same bytes.
void check_answers(const Registries &registries, const std::vector<Case> &cases);

}  // namespace lmq::bench
