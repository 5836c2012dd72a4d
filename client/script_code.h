// The steps of a batch as a program.
#pragma once

#include <string>
#include <vector>

#include "connection.h"
#include "dictionary.h"
#include "script.h"
#include "type.h"

namespace lmqctl {

/// `language` is "c", a program for the driver's headers, or "python", one that calls the host as `connection` does.
/// Either says how each call went, and ends with 1 if one did not go as it should. Throws a UsageError for a step that
/// the language has no words for.
std::string script_as_code(const std::string &language, const std::string &file, const Connection &connection,
                           const Dictionary &dictionary, Types &types, const std::vector<Step> &steps);

}  // namespace lmqctl
