// What a chip is told to be: settings, which one method sets and another reads, and things, which are made and deleted.
// As text, each is a line of `lmqctl batch`.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "context.h"
#include "survey.h"
#include "things.h"

namespace lmqctl {

/// A method that sets, and the one that reads the same: vx_watchdog_set and vx_watchdog_get. Both take the same ids.
struct Setting {
    Method setter, getter;
    std::size_t ids = 0;  ///< so many arguments come first; the others are what is set
};

/// Of all pairs that the contract has, by the setters' names. Throws a UsageError for a host without one.
std::map<std::string, Setting> settings_of(Context &context, const Makers &makers);

/// The setter and its ids to what is set, by the names of the setter's arguments: enumerators by name, addresses as
/// such, without flags. Ids that are given out are symbols.
using Settings = std::map<std::pair<std::string, std::vector<Json>>, Json>;

struct State {
    Settings settings;
    std::vector<Thing> things;       ///< by their makers, in the order of `Makers`
    std::set<std::string> complete;  ///< makers of which nothing else is to be there; what they make can be undone

    bool empty() const { return settings.empty() && things.empty(); }
};

/// What to read of a chip, by the methods that set and make it.
using Chosen = std::function<bool(const std::string &method)>;

/// What was chosen, and what that refers to.
State state_of_chip(Context &context, const Chosen &chosen);

/// What a state speaks of.
Chosen spoken_of(const State &state);

/// Out of a file of lines. A line may leave out members that do not matter. Throws a UsageError with the line.
State state_of_file(Context &context, const std::string &file);

/// Gives the things of `other` the names that the same ones have in `state`, and what they hold in common with them the
/// numbers. Answers which of the one is which of the other; those that could be changed into each other are the same.
std::map<std::size_t, std::size_t> align(const Makers &makers, State &state, State &other);

/// A state as a file, with what the contract says of each method; of a whole one also what cannot be in it.
std::string state_text(Context &context, const State &state, bool is_whole);

/// As the words of a call.
std::string setting_line(Context &context, const Settings::value_type &setting);
/// The same, with what is kept of the answer.
std::string thing_line(const Makers &makers, const Thing &thing);
/// What it is called in a difference: its maker with what does not change.
std::string thing_call(const Makers &makers, const Thing &thing);
/// Of any call: arguments by name, with symbols.
std::string call_line(const std::string &method, const Json &arguments);

/// In the form of a survey's answers, to be compared.
Json state_answers(const Makers &makers, const State &state);

/// Of a value, the members that another has.
Json members_in(const Json &value, const Json &wanted);

/// Of `state`, what `wanted` speaks of: its settings with their members, its things, and all of makers that are
/// complete. `same` is what `align` has answered.
State restricted(const State &state, const State &wanted, const std::map<std::size_t, std::size_t> &same);

}  // namespace lmqctl
