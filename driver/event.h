/**
 * @file
 * @brief What a device keeps of the events, and how the other families make one occur.
 */
#ifndef LMQ_DRIVER_EVENT_H
#define LMQ_DRIVER_EVENT_H

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

/** @brief An event with the place where it occurs. What does not count for its type is 0. */
struct EventKey {
    vx_event_type_e type;
    vx_uint16 port;
    vx_uint16 sub_port;

    auto operator<=>(const EventKey &) const = default;
};

/** @brief Why an event is not notified at once. */
enum class Held { by_holdover, by_throttle, by_interrupts_off };

/** @brief An event that is pending. */
struct Pending {
    Held held;
    Clock::Time until; /**< When it is notified; does not count while interrupts are off. */
};

/** @brief What is known of an event that has occurred. */
struct Occurrence {
    Counter<vx_uint32> count;
    bool active = false; /**< Latched by the hardware, until the status is cleared. */
    lmq_event_data_u data{};
    std::optional<Pending> pending;
};

/** @brief Occurrences in the current interval of a throttle. */
struct ThrottleWindow {
    Clock::Time end{0};
    vx_uint32 count = 0;
};

/** @brief What tells one debug handler from another: event, kernel or user space, port. */
using DebugHandlerKey = std::tuple<vx_event_type_e, bool, vx_uint16>;

/** @brief State of the family. */
struct Events {
    static constexpr std::size_t kMaxDebugHandlers = 64;

    bool interrupts = true;
    std::map<EventKey, Occurrence> occurred;
    std::map<EventKey, vx_event_holdover_cfg_s> holdover; /**< With VX_INVALID_PORT_ID: the SNI's other sub-ports. */
    vx_event_throttle_cfg_s global_throttle{};
    Setting<vx_event_type_e, vx_intr_throttle_cfg_s> throttle;
    ThrottleWindow global_window;
    std::map<std::pair<vx_event_type_e, vx_uint16>, ThrottleWindow> windows; /**< By port, or with 0 for all. */
    Table<DebugHandlerKey, lmq_dbg_event_cfg_s> debug_handlers{kMaxDebugHandlers};
};

/**
 * @brief Makes an event occur: counts it, latches its status, and notifies it or keeps it pending.
 * @param key  The event. Port and sub-port are looked at where its type has them.
 * @param data Its data.
 */
void raise_event(Device &device, EventKey key, const lmq_event_data_u &data);

/** @brief Whether there is such an event, of such a port and sub-port. */
bool occurs(EventKey key);

/** @brief Notifies what has fallen due. */
void pass_time(Device &device, Events &events);

/** @brief The data that lmq_dbg_generate_event raises an event with. */
lmq_event_data_u debug_event_data(vx_event_type_e type);

}  // namespace lmq::sim

#endif
