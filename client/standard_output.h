// Standard output and error. What cannot be written is an error; a pipe that nobody reads any more ends the program
// quietly.
#pragma once

#include <string>

namespace lmqctl {

/// For people, and for programs that read JSON: nothing in the text but this program's own painting moves a terminal.
/// Throws an Error if it cannot be written.
void print(const std::string &text);

/// For programs that want every byte. Throws as print does.
void print_as_is(const std::string &text);

/// A line on standard error that says what is wrong, with the program's name in front. Nothing in it moves a terminal.
void complain(const std::string &text);

/// Makes sure that all that was printed is written. Throws an Error if it cannot be.
void flush();

/// Occupies the standard descriptors that the program was started without, so that no socket gets their numbers and
/// what is printed there fails.
void hold_standard_descriptors();

}  // namespace lmqctl
