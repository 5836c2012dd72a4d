// What there is to read on a chip: every method that only reads, for every thing that exists.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "context.h"

namespace lmqctl {

struct SurveyOptions {
    std::string pattern = "*";  ///< of methods
    std::vector<int64_t> devices{0};
    std::string ports;                                                 ///< "0-3,5"; all if empty
    std::string registers;                                             ///< addresses "0x1000-0x103c"; none if empty
    std::vector<std::string> only = {};                                ///< these methods, whatever the pattern says
    std::map<std::string, std::map<std::string, int64_t>> fixed = {};  ///< arguments by method that are always these
    std::size_t most_calls = 1024;                                     ///< of one method
};

/// A value as people compare it: enumerators by name, addresses as such, of alternatives the one that is meant.
Json comparable(Context &context, const Type &type, const Json &value);

/// A call that was made, and its answer.
struct Reading {
    Method method;
    Call call;
    Json answer;
};

/// Asks. The contract says which methods read and which things their arguments number: all of a range, all that an enum
/// has, or those that answers name. Things that no answer lists are tried by their first numbers. Without a contract
/// only the numbers of devices and ports are known. The answers are as take_answers has them. Throws a UsageError if no
/// method can be asked.
Json survey(Context &context, const SurveyOptions &options);

/// Makes calls. The answers, with enumerators by name, in an object: "METHOD(ARGUMENTS)" to
/// {"method", "parameters", "success", "status", "arguments"} or {"method", "parameters", "fault"}.
Json take_answers(Context &context, const std::vector<Call> &calls);

/// The same with the answers as they came, in their order.
std::vector<Reading> read_all(Context &context, const SurveyOptions &options);

}  // namespace lmqctl
