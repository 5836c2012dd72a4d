// Names as people type them: patterns, and the nearest of the names that exist. Numbers as they type them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lmqctl {

/// The text in small letters.
std::string lower(std::string_view text);

/// Whether a name matches a pattern with * and ?, capitals and small letters alike.
bool glob(std::string_view pattern, std::string_view name);

/// Up to three of `names` that `typed` may have meant, the nearest first.
std::vector<std::string> nearest(std::string_view typed, const std::vector<std::string> &names);

/// "; did you mean A, B or C?", or an empty text.
std::string did_you_mean(std::string_view typed, const std::vector<std::string> &names);

/// A whole number: decimal, 0x, 0b, with a sign; up to 64 bits, of which the upper half becomes negative. Nothing if
/// the text is no number.
std::optional<int64_t> number(std::string_view text);

/// The parts between the separators; one, empty or not, more than there are separators.
std::vector<std::string> split(std::string_view text, char separator);

}  // namespace lmqctl
