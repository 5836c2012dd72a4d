// The price of a call in lmq-host: all the instructions that its process takes for it in user space, from the socket to
// the socket.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "bench/cases.h"

namespace lmq::bench {

/// A call to the host.
struct HostCall {
    std::string name;  ///< what tables call it
    std::string document;
    int count;          ///< how often it is made
    double most;        ///< instructions that one may take
    std::string floor;  ///< the case whose floor is beneath it; empty if it has none
};

/// The calls that are counted.
/// @param cases Some of the calls come from there.
std::vector<HostCall> make_host_calls(const std::vector<Case> &cases);

/// Counts the instructions of each call in a host of one process, over a connection that is kept. The host runs under
/// valgrind, once without and once with the calls.
/// @param program lmq-host; the plug-in and the simulated chip are those beside it.
/// @return Instructions of one call, in the order of the calls.
/// @throws std::runtime_error if the host does not start, or answers otherwise than a status of HTTP 200.
std::vector<double> count_in_host(const std::filesystem::path &program, const std::vector<HostCall> &calls);

}  // namespace lmq::bench
