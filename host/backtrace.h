// Where a driver was when it crashed.
#pragma once

namespace lmq::host {

/// From now on a crash of this process (SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT) writes the names of the functions
/// that it was in to standard error, and then ends it as before. Names are those of the libraries' dynamic symbols, so
/// that no debugging information is needed; a function that is none of them has its library and the offset in it.
void print_backtraces();

}  // namespace lmq::host
