// What batch carries out: calls one a line, with what they keep, expect and wait for.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "context.h"
#include "place.h"
#include "prepare.h"

namespace lmqctl {

/// `-> PLACE as NAME`: a value of the answer, for the lines behind.
struct Kept {
    Place place;
    std::string name;
};

/// `expect STATUS:`, a number; or `expect fault:`, of any code or of this one.
struct Expected {
    bool is_fault = false;
    std::optional<int64_t> number;
    std::string text;
};

/// `wait ... until PLACE=VALUE within TIME`.
struct Awaited {
    Place place;
    std::string value;  ///< as it was written
    double seconds = 0;
};

struct Step {
    std::size_t line = 0;            ///< in the file; or the number in a JSON array
    std::string text;                ///< as it was written
    std::vector<std::string> words;  ///< the method and its arguments
    std::vector<std::string> uses;   ///< the names of kept values among them
    /// Checked; with symbols for kept values.
    PreparedCall prepared;
    std::vector<Kept> kept;
    std::optional<Expected> expected;
    std::optional<Awaited> awaited;
};

/// The steps of a file, checked: lines, or a JSON array of calls. Throws a UsageError that names the line.
std::vector<Step> read_script(Context &context, const std::string &file, const ArgumentOptions &options);

/// A kept value by its name.
using ValueOf = std::function<Json(const std::string &name)>;

/// Words with values in the places of $NAME and ${NAME}; $$ is a dollar sign.
std::vector<std::string> expanded_words(const std::vector<std::string> &words, const ValueOf &value_of);

/// A step's call with kept values in the places of their names. Throws a UsageError for one that does not fit.
PreparedCall prepared_with(Context &context, const Step &step, const ArgumentOptions &options, const ValueOf &value_of);

/// What is waited for, as it stands in answers.
Json awaited_value(Context &context, const Awaited &awaited, const ValueOf &value_of);

}  // namespace lmqctl
