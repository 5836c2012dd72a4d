// Files that the user names.
#pragma once

#include <string>

namespace lmqctl {

/// A whole file, or standard input for "-". Throws a UsageError that names the file and says why it cannot be read.
std::string read_text(const std::string &file);

/// Throws a UsageError if there is no writing to a file of this name.
void check_writable(const std::string &file);

/// Writes a whole file or nothing: an old one is not lost over a full disk. What is no plain file is written to as it
/// is. Throws an Error that names the file and says why.
void write_text(const std::string &file, const std::string &text);

}  // namespace lmqctl
