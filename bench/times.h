// Times of calls, by Google Benchmark.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "bench/cases.h"
#include "bench/growth.h"

namespace lmq::bench {

/// Nanoseconds of the processor, by the name of what was measured.
using Times = std::map<std::string, double>;

struct Effort {
    int repetitions;  ///< of each measurement; the fastest counts
    double seconds;   ///< at least, for a repetition
};

/// Of each case: "CASE/whole/plugin", "CASE/whole/straight" and "CASE/whole/floor" from document to document,
/// "CASE/handler/plugin" and "CASE/handler/straight" for the handler alone with the freeing of its answer, and
/// "CASE/driver" for the driver's part.
Times measure_cases(const Registries &registries, const std::vector<Case> &cases, const Effort &effort);

/// Of each subject, by name_of().
Times measure_growth(const std::vector<Growth> &tables, const Effort &effort);

}  // namespace lmq::bench
