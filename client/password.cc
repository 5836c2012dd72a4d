// The environment, the command of a board, or a prompt that shows nothing of what is typed.
#include "password.h"

#include <bsd/readpassphrase.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "error.h"

namespace lmqctl {

namespace {

// What the user's command prints, without the end of its last line.
std::string printed_by(const std::string &command) {
    // It must not take what standard input holds for the call.
    std::FILE *const pipe = popen(("exec </dev/null; " + command).c_str(), "re");
    if (!pipe) throw UsageError("password-command: " + std::string(std::strerror(errno)));
    std::string text;
    for (int letter; (letter = std::fgetc(pipe)) != EOF && text.size() < 4096;) text += static_cast<char>(letter);
    if (pclose(pipe) != 0) throw UsageError("password-command failed: " + command);
    return text.substr(0, text.find_last_not_of("\r\n") + 1);
}

}  // namespace

bool is_asked_for(const Connection &connection) {
    return !connection.user.empty() && connection.password.empty() && connection.password_command.empty() &&
           !std::getenv("LMQ_PASSWORD");
}

std::string password_of(const Connection &connection) {
    const std::string &user = connection.user;
    if (const char *password = std::getenv("LMQ_PASSWORD")) return password;
    if (!connection.password_command.empty()) return printed_by(connection.password_command);
    char typed[1024];
    const std::string prompt = "Password of " + user + ": ";
    if (readpassphrase(prompt.c_str(), typed, sizeof typed, RPP_REQUIRE_TTY)) return typed;
    if (errno == EINTR) throw UsageError("no password was given");
    throw UsageError("--user needs a password: set LMQ_PASSWORD, or run lmqctl on a terminal");
}

}  // namespace lmqctl
