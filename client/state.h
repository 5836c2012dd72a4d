// The settings of a chip: what one method sets and another reads, for each thing that the two take. As text, a setting
// is a line of `lmqctl batch`.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "context.h"
#include "survey.h"

namespace lmqctl {

/// A method that sets, and the one that reads the same: vx_watchdog_set and vx_watchdog_get. Both take the same ids.
struct Setting {
    Method setter, getter;
    std::size_t ids = 0;  ///< so many arguments come first; the others are what is set
};

/// Of all pairs that the contract has, by the setters' names. Throws a UsageError for a host without one.
std::map<std::string, Setting> settings_of(const Dictionary &dictionary);

/// The setter and its ids to what is set, by the names of the setter's arguments: enumerators by name, addresses as
/// such, without flags.
using State = std::map<std::pair<std::string, std::vector<int64_t>>, Json>;

State state_of_chip(Context &context, const SurveyOptions &options);

/// Out of a file of lines. A line may leave out members that do not matter. Throws a UsageError with the line.
State state_of_file(Context &context, const std::string &file);

/// A state as a file, with what the contract says of each method.
std::string state_text(Context &context, const State &state);

/// One setting as the words of a call.
std::string setting_line(Context &context, const State::value_type &setting);

/// In the form of a survey's answers, to be compared.
Json state_answers(const State &state);

/// Of a value, the members that another has.
Json members_in(const Json &value, const Json &wanted);

/// Of `state`, the settings and members that `wanted` has.
State restricted(const State &state, const State &wanted);

}  // namespace lmqctl
