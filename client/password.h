// The password of a user.
#pragma once

#include <string>

namespace lmqctl {

/// From LMQ_PASSWORD, or asked for on the terminal. Throws a UsageError if there is neither, or no answer.
std::string password_of(const std::string &user);

}  // namespace lmqctl
