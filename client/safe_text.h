// Texts that others made, on their way to a terminal.
#pragma once

#include <string>

namespace lmqctl {

/// The text without what a terminal obeys or turns round: control characters, those of C1 too, and marks of direction
/// stand there as \u001b, which is what they are in JSON and in code. Line breaks and tabs stay.
std::string harmless(const std::string &text);

/// The same, but for the sequences with which this program paints and moves the cursor. What comes from a host over a
/// way on which an escape character can travel goes through harmless() first.
std::string harmless_but_painted(const std::string &text);

}  // namespace lmqctl
