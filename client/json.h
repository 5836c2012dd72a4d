// The form in which values travel through the client: JSON that keeps the order of its keys, as the wire does.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

namespace lmqctl {

using Json = nlohmann::ordered_json;

/// What a user wrote; comments are passed over, and numbers may be 0x... and 0b.... Throws a UsageError for a text that
/// is no JSON, or has a key twice. `place` is for the error.
Json json_of_user(const std::string &text, const std::string &place);

/// Whether a text is JSON as users write it.
bool is_json_of_user(const std::string &text);

/// For a reader: what is not UTF-8 is replaced. `indent` as in Json::dump.
std::string json_text(const Json &json, int indent = -1);

/// Whether a value is 0 in all its parts, or empty.
bool is_zero(const Json &json);

}  // namespace lmqctl
