// The password of a user.
#pragma once

#include <string>

#include "connection.h"

namespace lmqctl {

/// Of the connection's user: from LMQ_PASSWORD, what the board's command prints, or asked for on the terminal. Throws a
/// UsageError if there is none of them, or no answer.
std::string password_of(const Connection &connection);

/// Whether `password_of` would ask on the terminal.
bool is_asked_for(const Connection &connection);

}  // namespace lmqctl
