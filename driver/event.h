// What a device keeps of the events, and how the other families make one occur.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

struct Device;

/// An event with the place where it occurs. What does not count for its type is 0.
struct EventKey {
    vx_event_type_e type;
    vx_uint16 port;
    vx_uint16 sub_port;

    auto operator<=>(const EventKey &) const = default;
};

/// Why an event is not notified at once.
enum class Held { by_holdover, by_throttle, by_interrupts_off };

/// An event that is pending.
struct Pending {
    Held held;
    Clock::Time until;  ///< When it is notified; does not count while interrupts are off.
};

/// What is known of an event that has occurred.
struct Occurrence {
    Counter<vx_uint32> count;
    bool active = false;  ///< Latched by the hardware, until the status is cleared.
    lmq_event_data_u data{};
    std::optional<Pending> pending;
    lmq_event_data_u before{};  ///< What was so before the event became pending, of an event that tells a state.
};

/// Occurrences in the current interval of a throttle.
struct ThrottleWindow {
    Clock::Time end{0};
    vx_uint32 count = 0;
};

/// What tells one debug handler from another: event, kernel or user space, port.
using DebugHandlerKey = std::tuple<vx_event_type_e, bool, vx_uint16>;

/// State of the family.
struct Events {
    static constexpr std::size_t max_debug_handlers = 64;

    bool interrupts = true;
    std::map<EventKey, Occurrence> occurred;
    std::map<EventKey, vx_event_holdover_cfg_s> holdover;  ///< With VX_INVALID_PORT_ID: the SNI's other sub-ports.
    vx_event_throttle_cfg_s global_throttle{};
    Setting<vx_event_type_e, vx_intr_throttle_cfg_s> throttle;
    ThrottleWindow global_window;
    std::map<std::pair<vx_event_type_e, vx_uint16>, ThrottleWindow> windows;  ///< By port, or with 0 for all.
    Table<DebugHandlerKey, lmq_dbg_event_cfg_s> debug_handlers{max_debug_handlers};
};

/// Makes an event occur: counts it, latches its status, and notifies it or keeps it pending.
/// @param key  The event. Port and sub-port are looked at where its type has them. Nothing happens if there is no such
///             event of them.
/// @param data Its data.
void raise_event(Device &device, EventKey key, const lmq_event_data_u &data);

/// Makes an event occur that tells a new state. Where a holdover keeps an earlier one back and all is again as it was
/// before that, nothing is left to notify.
/// @param before The data that would have told the state until now.
void raise_change(Device &device, EventKey key, const lmq_event_data_u &before, const lmq_event_data_u &now);

/// The condition of an event has gone: what a holdover keeps back is not notified.
void end_event(Device &device, EventKey key);

/// Whether there is such an event, of such a port and sub-port.
bool occurs(EventKey key);

/// Notifies what has fallen due.
void pass_time(Device &device, Events &events);

/// The data that lmq_dbg_generate_event raises an event with.
lmq_event_data_u debug_event_data(const Device &device, vx_event_type_e type);

}  // namespace lmq::sim
