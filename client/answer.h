// What an answer means for a program: success or failure, and its JSON.
#pragma once

#include "dictionary.h"
#include "type.h"

namespace lmqctl {

/// Whether a result says that the driver did what it was asked: 0 of an enum or a signed number. Another type is a
/// value, and so is no failure.
bool is_success(const Dictionary &dictionary, const Method &method, const Json &result);

/// The status that the program ends with after an answer.
int exit_status_of(const Dictionary &dictionary, const Method &method, const Json &answer);

/// What the function returned: the first element of an answer, or all of one that has another form.
const Json &result_of(const Json &answer);

/// An answer as --json shows it: `names` has the enumerators among `arguments`, at the same places. A fault is an
/// object under "fault".
Json json_answer(const Dictionary &dictionary, Types &types, const Method &method, const Json &answer);

/// The alternative of an overlay that its selector, a member of the same struct, means; nullptr if none is.
const Member *selected(const Type &overlay, const Json &structure);

/// The same with what the driver printed meanwhile, as it is shown, under "printed"; without it if it printed nothing.
Json with_printed(Json answer, const std::string &printed);

/// What the driver printed, as people see it under an answer; empty if it printed nothing.
std::string printed_text(const std::string &printed);

/// What an answer has for a parameter: of a list, the elements that the driver filled.
Json filled(const Method &method, std::size_t parameter, const Json &answer);

/// Values with unsigned numbers as such; with a dictionary, enumerators by name.
Json plain(const Type &type, const Json &value, const Dictionary *names = nullptr);

}  // namespace lmqctl
