// What goes to standard output.
#include "standard_output.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "error.h"
#include "safe_text.h"

namespace lmqctl {

namespace {

[[noreturn]] void throw_unwritten() {
    throw Error(exit_output, std::string("cannot write to standard output: ") + std::strerror(errno));
}

}  // namespace

void print_as_is(const std::string &text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) throw_unwritten();
}

void print(const std::string &text) { print_as_is(harmless_but_painted(text)); }

void complain(const std::string &text) { std::fprintf(stderr, "lmqctl: %s\n", harmless(text).c_str()); }

void flush() {
    if (std::fflush(stdout) != 0) throw_unwritten();
}

void hold_standard_descriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor)
        if (fcntl(descriptor, F_GETFD) == -1)
            static_cast<void>(open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
}

}  // namespace lmqctl
