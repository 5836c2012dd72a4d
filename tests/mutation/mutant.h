// The switch of a build that holds many mutants at once. mutate.py has the compiler include it before every C++ source.
#pragma once

#include <fcntl.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <unistd.h>

// Each program and library has a switch of its own: none of them exports more than it did.
#pragma GCC visibility push(hidden)
namespace mutation {

inline int chosen = -1;         // the environment is not read yet
inline unsigned char *reached;  // MUTANT_LOG, a file that all processes of a test map: a byte for each mutant
constexpr size_t log_size = 1 << 20;

inline void read_environment() {
    if (const char *const path = getenv("MUTANT_LOG")) {
        const int file = open(path, O_RDWR | O_CLOEXEC);
        void *const map = mmap(nullptr, log_size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
        close(file);
        if (map == MAP_FAILED) abort();
        reached = static_cast<unsigned char *>(map);
    }
    const char *const number = getenv("MUTANT");
    chosen = number ? atoi(number) : 0;
}

inline bool is_chosen(int number) {
    if (chosen < 0) read_environment();
    if (reached) reached[number] = 1;
    return number == chosen;
}

}  // namespace mutation
#pragma GCC visibility pop

/// Whether this process is to behave as the mutant with this number (from 1 on) does. What the compiler works out has
/// no mutants.
constexpr bool lmq_mutant(int number) { return !__builtin_is_constant_evaluated() && mutation::is_chosen(number); }
