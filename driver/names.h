// Statuses and events by the names that their enums give them, for what is set from outside.
#pragma once

#include <optional>
#include <string_view>

#include "lmq/lmq.h"

namespace lmq::sim {

/// A number as C writes it, decimal or with 0x in front, to 0x7FFFFFFF. Nothing for all else.
std::optional<int> number_of(std::string_view text);

/// The status of a name such as VX_ERR_DEV_BUSY. Nothing for all else.
std::optional<vx_status_e> status_of(std::string_view name);

/// The event of a name such as VX_EVENT_DYING_GASP. Nothing for all else.
std::optional<vx_event_type_e> event_of(std::string_view name);

}  // namespace lmq::sim
