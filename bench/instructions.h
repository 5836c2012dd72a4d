// Instructions and heap calls, counted by callgrind: the same in every run.
#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "bench/cases.h"
#include "bench/growth.h"

namespace lmq::bench {

struct Count {
    double instructions = 0, heap_calls = 0;  ///< of one call; malloc, calloc and realloc are heap calls
};

/// By the names of measure_cases() and measure_growth(). The answer of a handler is not freed here within what is
/// counted.
using Counts = std::map<std::string, Count>;

/// Runs this program once more under valgrind, with the given arguments, of which one must make it call
/// run_for_counting(), for all that is to be counted. Throws std::runtime_error if that fails.
Counts count(const std::vector<std::string> &arguments);

/// What is run under valgrind.
void run_for_counting(const Registries &registries, const std::vector<Case> &cases);
void run_for_counting(const std::vector<Growth> &tables);

}  // namespace lmq::bench
