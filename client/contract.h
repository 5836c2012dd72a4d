// The contract of an interface as hosts describe it: what C does not say of methods, arguments and members. It is kept
// in the lines of the dictionary, an entry a line, and checked as a whole before the first of them is used.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "json.h"

namespace lmqctl {

/// What the values of an integer mean.
struct Meaning {
    std::string enumeration;  ///< the enum whose enumerators they are, or empty
    bool is_bits = false;     ///< the enumerators are or'ed together
    bool is_ipv4 = false;     ///< an IPv4 address in one word
    bool is_text = false;     ///< characters
    bool is_counter = false;  ///< counts up
    std::optional<std::pair<int64_t, int64_t>> range;
    std::vector<int64_t> also;  ///< values beyond the range that stand for none or for all
    std::string unit, id;       ///< "ms"; the kind of thing whose id it is

    bool allows(int64_t value) const;
    /// "0 to 7, or 255"; of a meaning with a range.
    std::string range_text() const;
    /// "0 to 7 ms, id of a queue" for people, without the enum; empty if there is nothing to say.
    std::string text() const;
};

/// Out of an argument's or a member's entry.
Meaning meaning_of(const Json &entry);

/// How many elements a pointer stands for.
struct Length {
    std::size_t count = 1;     ///< if no argument says it
    std::string argument;      ///< the one that says it, or empty
    bool is_behind = false;    ///< the argument points to it
    std::size_t times = 1;     ///< so many elements for each
    std::size_t if_zero = 0;   ///< what 0 stands for
    std::string filled;        ///< the argument that points to how many the driver wrote, or empty
    std::string said() const;  ///< "data_len", "*num", "8"
};

enum class Direction { unknown, in, out, inout };

/// What is said of an argument.
struct ArgumentContract {
    Direction direction = Direction::unknown;
    Length length;
    Meaning meaning;
    std::string name, type, brief;  ///< the type in C, without the * of a pointer
};

/// How what a method has made is read. Sources are numbers, places in the answer such as "p_cfg[].key", or objects of
/// sources by member; "#p_map[]" is the number of an element, "p_map{}" goes through the bits of a number.
struct ReadBack {
    std::string by;
    std::map<std::string, int64_t> with;      ///< arguments of it that are always these
    std::map<std::string, std::string> walk;  ///< arguments that take an output of the call before; 0 at first
    Json arguments;                           ///< a source for each argument of what makes
    Json condition;                           ///< ["p_cfg[].port", "=" or "!=", NUMBER]; null for none
};

/// A method that undoes or changes what another has made: each argument is a number or a place in those of the maker.
struct Way {
    std::string by;
    std::vector<std::string> keys;  ///< arguments of the maker that stay the same when it changes
    Json arguments;
};

/// What is said of a method.
struct MethodContract {
    std::string family, brief, documentation, effect, clears_if, result;
    std::vector<ArgumentContract> arguments;
    std::optional<ReadBack> read_back = {};
    std::optional<Way> undone_by = {}, changed_by = {};
};

MethodContract method_contract(const Json &entry);

/// A host's description of its interface, as JSON that is neither too large nor too deep. Throws std::runtime_error if
/// it is not.
Json parsed_description(const std::string &description);

/// The lines for a dictionary that a host's description of its interface amounts to. `tag` is what the host calls this
/// version. Texts lose what a terminal would obey. Throws std::runtime_error that says what is wrong with it.
std::string contract_lines(const std::string &description, const std::string &tag);

}  // namespace lmqctl
