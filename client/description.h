// A dictionary made of an interface's description alone, as `interface.json` holds it, for who has no host to ask.
#pragma once

#include <string>

namespace lmqctl {

/// The text that a Dictionary is made of. It has no defines, no help texts, and none of the methods that are not the
/// driver's, for a description does not speak of them. Throws std::runtime_error or a Json::exception that says what is
/// wrong with it.
std::string dictionary_of_description(const std::string &description);

}  // namespace lmqctl
