// Times of calls, by Google Benchmark.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "bench/cases.h"

namespace lmq::bench {

// Nanoseconds of the processor, by the name of what was measured.
using Times = std::map<std::string, double>;

struct Effort {
    int repetitions;  // of each measurement; the fastest counts
    double seconds;   // at least, for a repetition
};

// Of each case: "CASE/whole/plugin", "CASE/whole/straight" and "CASE/whole/floor" from document to document,
// "CASE/handler/plugin" and "CASE/handler/straight" for the handler alone with the freeing of its answer, and
// "CASE/driver" for the driver's part.
Times measure_cases(const Registries &registries, const std::vector<Case> &cases, const Effort &effort);

// How the time grows. One line of a table for each size.
struct Growth {
    struct Line {
        int size;
        Times times;  // by the headings of the columns
    };
    std::string title, size;
    std::vector<std::string> columns;
    std::vector<Line> lines;
};
std::vector<Growth> measure_growth(const Plugin &plugin, const Effort &effort);

}  // namespace lmq::bench
