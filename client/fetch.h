// Asks a host for its dictionary, whole or of one method.
#pragma once

#include <string>

#include "dictionary.h"
#include "session.h"

namespace lmqctl {

// The text of the whole dictionary, in some fifteen packets.
std::string fetch_dictionary(Session &session);

// Whether the host still says of a method, and of the UDTs that it takes, what the dictionary says. One packet.
bool is_current(Session &session, const Dictionary &dictionary, const std::string &method);

// Whether the host still has the methods of the dictionary. One call.
bool is_current(Session &session, const Dictionary &dictionary);

}  // namespace lmqctl
