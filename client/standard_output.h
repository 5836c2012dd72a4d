// Standard output. What cannot be written is an error; a pipe that nobody reads any more ends the program quietly.
#pragma once

#include <string>

namespace lmqctl {

/// Throws an Error if it cannot be written.
void print(const std::string &text);

/// Makes sure that all that was printed is written. Throws an Error if it cannot be.
void flush();

/// Occupies the standard descriptors that the program was started without, so that no socket gets their numbers and
/// what is printed there fails.
void hold_standard_descriptors();

}  // namespace lmqctl
