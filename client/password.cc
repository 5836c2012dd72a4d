// The environment, or a prompt that shows nothing of what is typed.
#include "password.h"

#include <bsd/readpassphrase.h>

#include <cerrno>
#include <cstdlib>

#include "error.h"

namespace lmqctl {

std::string password_of(const std::string &user) {
    if (const char *password = std::getenv("LMQ_PASSWORD")) return password;
    char typed[1024];
    const std::string prompt = "Password of " + user + ": ";
    if (readpassphrase(prompt.c_str(), typed, sizeof typed, RPP_REQUIRE_TTY)) return typed;
    if (errno == EINTR) throw UsageError("no password was given");
    throw UsageError("--user needs a password: set LMQ_PASSWORD, or run lmqctl on a terminal");
}

}  // namespace lmqctl
