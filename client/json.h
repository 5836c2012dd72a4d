// The form in which values travel through the client: JSON that keeps the order of its keys, as the wire does.
#pragma once

#include <nlohmann/json.hpp>

namespace lmqctl {

using Json = nlohmann::ordered_json;

}  // namespace lmqctl
