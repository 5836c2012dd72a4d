// Asks a host for its dictionary, whole or of one method.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "dictionary.h"
#include "session.h"

namespace lmqctl {

/// The text of the whole dictionary, in some fifteen requests. `names` is what system.listMethods answers.
std::string fetch_dictionary(Session &session, const Json &names);
std::string fetch_dictionary(Session &session);

/// What the host says of its contract, if it is not what the dictionary has: the dictionary's text with it, or without
/// if the host has none or none that can be used, which `complain` is told. One request.
std::optional<std::string> changed_contract(Session &session, const Dictionary &dictionary,
                                            const std::function<void(const std::string &)> &complain);

/// Whether the host still says of a method, and of the UDTs that it takes, what the dictionary says. One request.
bool is_current(Session &session, const Dictionary &dictionary, const std::string &method);

/// Whether the host still has the methods of the dictionary. One call.
bool is_current(Session &session, const Dictionary &dictionary);

}  // namespace lmqctl
