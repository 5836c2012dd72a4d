// The event family: status, pending events, counts, holdover, throttling and debug events.
//
// Choices:
// - To notify an event is to print it if a debug handler is registered for it, and else to log it (module evt, level
//   info): there is no callback behind this interface. What falls due is notified at the next call of any function.
// - The units of holdover_time and interval are 10 ms.
// - Ethernet and EEE events belong to an Ethernet port, GPON events to the SNI, PCM events to the VoIP port; those of
//   forwarding engine and buffer manager that are not the device's belong to any port. All others are the device's,
//   and port and sub-port are not looked at.
// - Sub-ports count for the forwarding engine's events on the SNI alone, where they are GEM ports.
// - Every event is latched until its status is cleared, but for operations that are done, and timers: these cannot be
//   polled and have no holdover. Timers have no throttle either.
// - An event that occurs again while it is pending stays due at the first time, with the data of the last.
// - A holdover forgets its event when the condition has gone before its time: when a link, the ONU, the OMCC, an
//   alarm or energy-efficient Ethernet is again as it was, when interrupts of pins are cleared, when the FDB has room
//   again.
// - While interrupts are off, holdovers and throttles go on; what falls due then is notified when interrupts are on.
// - The interval of a throttle begins with the first occurrence. The occurrence that reaches the count is the last
//   that is notified, and raises VX_EVENT_THROTTLED; those behind it are pending to the end of the interval.
// - A new throttle begins a new interval, and releases what the old one held.
// - lmq_dbg_generate_event raises any event that there is, with data of 0; alarms and OMCC state come as raised, and
//   VX_EVENT_PTP_GET_TS with the PTP time.
// - There are 64 debug handlers. One is told by event, kernel or user space, and port (all_ports: every port).
#include "driver/event.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr vx_uint16 max_gem_port_id = 4095;  // ITU-T G.984.3: 12 bits.

enum class Place { device, eth_port, sni, voip_port, any_port };

/* Types from first to one before end. */
struct Range {
    vx_event_type_e first, end;
    Place place;
};

constexpr std::array event_ranges = {
    Range{VX_EVENT_DEV_BASE, VX_EVENT_DEV_MAX, Place::device},
    Range{VX_EVENT_ETH_BASE, VX_EVENT_ETH_MAX, Place::eth_port},
    Range{VX_EVENT_PTP_BASE, VX_EVENT_PTP_MAX, Place::device},
    Range{VX_EVENT_GPON_BASE, VX_EVENT_GPON_MAX, Place::sni},
    Range{VX_EVENT_FE_PORT_BASE, VX_EVENT_FE_PORT_MAX, Place::any_port},
    Range{VX_EVENT_FE_DEV_BASE, VX_EVENT_FE_DEV_MAX, Place::device},
    Range{VX_EVENT_BM_PORT_BASE, VX_EVENT_BM_PORT_MAX, Place::any_port},
    Range{VX_EVENT_BM_DEV_BASE, VX_EVENT_BM_DEV_MAX, Place::device},
    Range{VX_EVENT_PCM_BASE, VX_EVENT_PCM_MAX, Place::voip_port},
    Range{VX_EVENT_EEE_BASE, VX_EVENT_EEE_MAX, Place::eth_port},
};

bool is_timer(vx_event_type_e type) { return type == VX_EVENT_TMR_EXPIRED; }

/* Whether the event is a moment and not a condition, so that there is nothing to latch. */
bool is_moment(vx_event_type_e type) {
    switch (type) {
        case VX_EVENT_TMR_EXPIRED:
        case VX_EVENT_MDIO_INTR_OP_DONE:
        case VX_EVENT_SPI_INTR_WR_DONE:
        case VX_EVENT_SPI_INTR_BURST_OP_DONE:
        case VX_EVENT_SPI_INTR_OP_DONE:
        case VX_EVENT_PTP_SET_TS:
        case VX_EVENT_PTP_1PPS_OUTPUT_DONE:
        case VX_EVENT_GPON_PLOAMU_TX_DONE: return true;
        default: return false;
    }
}

bool is_alarm(vx_event_type_e type) { return type >= VX_EVENT_GPON_ALM_LOS && type <= VX_EVENT_GPON_ALM_RDI; }

Result<Place> place_of(vx_event_type_e type) {
    for (const Range &range : event_ranges) {
        if (type >= range.first && type < range.end) return range.place;
    }
    return VX_ERR_EVT_INVALID_EVT_TYPE;
}

bool belongs(Place place, vx_uint16 port) {
    switch (place) {
        case Place::eth_port: return port >= VX_PORT_ETH0 && port < VX_PORT_ETH0 + LMQ_PORT_ETH_NUM;
        case Place::sni: return port == VX_PORT_SNI0;
        case Place::voip_port: return port == VX_PORT_VOIP0;
        case Place::device:
        case Place::any_port: return true;
    }
    return false;
}

/* The key of an event as it is stored. */
Result<EventKey> checked(EventKey key) {
    const Result<Place> place = place_of(key.type);
    if (!place) return place.status();
    if (*place == Place::device) return EventKey{key.type, 0, 0};
    if (is_no_port(key.port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    if (!belongs(*place, key.port)) return VX_ERR_EVT_INVALID_PORT;
    const bool has_sub_ports =
        key.port == VX_PORT_SNI0 && key.type >= VX_EVENT_FE_PORT_BASE && key.type < VX_EVENT_FE_PORT_MAX;
    if (has_sub_ports && key.sub_port > max_gem_port_id && key.sub_port != VX_INVALID_PORT_ID)
        return VX_ERR_EVT_INVALID_PORT;
    return EventKey{key.type, key.port, has_sub_ports ? key.sub_port : vx_uint16{0}};
}

Clock::Time in_units(vx_uint32 units, vx_uint32 unit) { return Clock::Time(std::int64_t{units} * unit); }

vx_event_holdover_cfg_s holdover_of(Device &device, EventKey key) {
    const auto &kept = device.event.holdover;
    auto found = kept.find(key);
    if (found == kept.end()) found = kept.find({key.type, key.port, VX_INVALID_PORT_ID});
    vx_event_holdover_cfg_s cfg = found == kept.end() ? vx_event_holdover_cfg_s{} : found->second;
    cfg.port_num = key.port;
    cfg.sub_port = key.sub_port;
    return cfg;
}

void notify(Device &device, EventKey key) {
    const auto handles = [&](const auto &handler) {
        const auto &[type, in_kernel, port] = handler.first;
        return type == key.type && (port == key.port || port == VX_INVALID_PORT_ID);
    };
    auto &handlers = device.event.debug_handlers;
    const bool printed = std::any_of(handlers.begin(), handlers.end(), handles);
    const unsigned id = device.id, type = static_cast<unsigned>(key.type), port = key.port, sub_port = key.sub_port;
    constexpr const char *format = "device %u event 0x%03x port %u sub-port %u";
    if (printed) {
        device.system.print("event", format, id, type, port, sub_port);
    } else {
        device.system.log(VX_MOD_DRVR_EVT, VX_LOG_LVL_INFO, format, id, type, port, sub_port);
    }
}

/* Notifies what has fallen due. */
void settle(Device &device) {
    Events &events = device.event;
    if (!events.interrupts) return;
    const Clock::Time now = device.system.clock.now();
    for (auto &[key, occurrence] : events.occurred) {
        if (!occurrence.pending || occurrence.pending->until > now) continue;
        occurrence.pending.reset();
        notify(device, key);
    }
}

/* Makes pending events due that are held for a reason which is gone. */
template <typename Condition>
void release(Device &device, Held held, Condition condition) {
    for (auto &[key, occurrence] : device.event.occurred) {
        if (occurrence.pending && occurrence.pending->held == held && condition(key)) occurrence.pending->until = {};
    }
    settle(device);
}

/* Counts an occurrence in an interval, and tells when the interval ends if the count was reached before. */
std::optional<Clock::Time> throttle(Device &device, ThrottleWindow &window, vx_uint32 limit, vx_uint32 interval,
                                    EventKey key, lmq_event_thrtl_type_e type) {
    const Clock::Time now = device.system.clock.now();
    if (now >= window.end) window = {now + in_units(interval, LMQ_EVENT_THROTTLE_TIME_UNIT), 0};
    if (window.count == limit) return window.end;
    if (++window.count == limit) {
        lmq_event_data_u data{};
        data.thrtl_data = {key.type, type, limit};
        Occurrence &throttled = device.event.occurred[{VX_EVENT_THROTTLED, 0, 0}];
        throttled.count.add(1);
        throttled.active = true;
        throttled.data = data;
        if (device.event.interrupts) {
            notify(device, {VX_EVENT_THROTTLED, 0, 0});
        } else if (!throttled.pending) {
            throttled.pending = Pending{Held::by_interrupts_off, now};
        }
    }
    return std::nullopt;
}

/* Why an event that occurs now is not notified, if it is not. */
std::optional<Pending> held_back(Device &device, EventKey key) {
    Events &events = device.event;
    const Clock::Time now = device.system.clock.now();

    std::optional<Clock::Time> throttled;
    const vx_intr_throttle_cfg_s &own = events.throttle.get(key.type);
    if (is_timer(key.type)) {
        // Excluded from throttling.
    } else if (events.global_throttle.enable) {
        throttled = throttle(device, events.global_window, events.global_throttle.count,
                             events.global_throttle.interval, key, LMQ_EVENT_THRTL_GLOBAL);
    } else if (own.enable) {
        ThrottleWindow &window = events.windows[{key.type, own.per_port ? key.port : vx_uint16{0}}];
        throttled = throttle(device, window, own.count, own.interval, key, LMQ_EVENT_THRTL_PER);
    }

    const vx_event_holdover_cfg_s holdover = holdover_of(device, key);
    if (throttled) return Pending{Held::by_throttle, *throttled};
    if (holdover.enable) {
        return Pending{Held::by_holdover, now + in_units(holdover.holdover_time, LMQ_EVENT_HOLDOVER_TIME_UNIT)};
    }
    if (!events.interrupts) return Pending{Held::by_interrupts_off, now};
    return std::nullopt;
}

bool held_over(const Occurrence &occurrence) {
    return occurrence.pending && occurrence.pending->held == Held::by_holdover;
}

/* Whether the data of an event tells the same state. */
bool same_state(vx_event_type_e type, const lmq_event_data_u &a, const lmq_event_data_u &b) {
    switch (type) {
        case VX_EVENT_ETH_LINK_STATUS_CHNG: {
            const auto &x = a.link_chng_data, &y = b.link_chng_data;
            return x.link_up == y.link_up && x.speed == y.speed && x.duplex == y.duplex;
        }
        case VX_EVENT_ETH_PHY_MODE_CHNG:
            return a.phy_mode_data.speed == b.phy_mode_data.speed && a.phy_mode_data.duplex == b.phy_mode_data.duplex;
        case VX_EVENT_GPON_ONU_STATE_CHNG: return a.onu_state_data.onu_state == b.onu_state_data.onu_state;
        case VX_EVENT_GPON_OMCC_STATE: return a.omcc_state.status == b.omcc_state.status;
        case VX_EVENT_EEE_SLEEP_STATE_CHNG: return a.eee_data.eee_state == b.eee_data.eee_state;
        case VX_EVENT_EEE_QUEUE_STATUS_CHNG:
            return a.eee_queue_status.low_thresh == b.eee_queue_status.low_thresh &&
                   a.eee_queue_status.high_thresh == b.eee_queue_status.high_thresh;
        default: return is_alarm(type) && a.gpon_alm_data.status == b.gpon_alm_data.status;
    }
}

/* An event occurs, if there is such a one; `before` is the state that it changes, or nullptr. */
void occur(Device &device, EventKey given, const lmq_event_data_u &data, const lmq_event_data_u *before) {
    const Result<EventKey> known = checked(given);
    if (!known) return;
    const EventKey key = *known;
    settle(device);
    const std::optional<Pending> held = held_back(device, key);
    Occurrence &occurrence = device.event.occurred[key];
    occurrence.count.add(1);
    occurrence.active = !is_moment(key.type);
    occurrence.data = data;
    if (!held) {
        occurrence.pending.reset();
        notify(device, key);
    } else if (!occurrence.pending) {
        occurrence.pending = held;
        if (before) occurrence.before = *before;
    } else if (before && held_over(occurrence) && same_state(key.type, data, occurrence.before)) {
        occurrence.pending.reset();
    }
}

/* Runs an operation on an event of a place, after what has fallen due was notified. */
template <typename Body>
vx_status_e on_event(const char *function, vx_dev_id_t dev_id, EventKey key,
                     std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        settle(device);
        const Result<EventKey> known = checked(key);
        return known ? run(body, device, *known) : known.status();
    });
}

/* What has occurred, or an event that never has. */
Occurrence occurrence_of(Device &device, EventKey key) {
    const auto found = device.event.occurred.find(key);
    return found == device.event.occurred.end() ? Occurrence{} : found->second;
}

[[nodiscard]] vx_status_e check_throttle(bool enable, vx_uint32 count, vx_uint32 interval) {
    if (enable && (count == 0 || interval == 0)) return VX_ERR_EVT_INVALID_CFG;
    return VX_SUCCESS;
}

constexpr vx_uint32 port_type_count =
    VX_PORT_TYPE_GPON | VX_PORT_TYPE_ETH | VX_PORT_TYPE_AE | VX_PORT_TYPE_AE_CASCADE | VX_PORT_TYPE_GEM;

Result<DebugHandlerKey> key_of(vx_event_type_e type, vx_boolean in_kernel, const lmq_dbg_event_cfg_s &cfg) {
    if (const vx_status_e refused = place_of(type).status()) return refused;
    if (cfg.context < LMQ_EVENT_CONTEXT_USER || cfg.context >= LMQ_EVENT_CONTEXT_MAX)
        return VX_ERR_EVT_INVALID_CONTEXT_TYPE;
    if ((cfg.port_type_bitmap & ~port_type_count) != 0) return VX_ERR_EVT_INVALID_PORT_BITMAP;
    if (cfg.all_ports) return DebugHandlerKey{type, in_kernel != FALSE, VX_INVALID_PORT_ID};
    const Result<EventKey> event = checked({type, cfg.port_num, cfg.gem_port_id});
    if (!event) return event.status();
    return DebugHandlerKey{type, in_kernel != FALSE, event->port};
}

}  // namespace

bool occurs(EventKey key) { return checked(key).status() == VX_SUCCESS; }

void pass_time(Device &device, Events &) { settle(device); }

lmq_event_data_u debug_event_data(const Device &device, vx_event_type_e type) {
    lmq_event_data_u data{};
    if (is_alarm(type)) data.gpon_alm_data.status = TRUE;
    if (type == VX_EVENT_GPON_OMCC_STATE) data.omcc_state.status = TRUE;
    if (type == VX_EVENT_PTP_GET_TS) data.get_ts_data = time_stamp(device);
    return data;
}

void raise_event(Device &device, EventKey key, const lmq_event_data_u &data) { occur(device, key, data, nullptr); }

void raise_change(Device &device, EventKey key, const lmq_event_data_u &before, const lmq_event_data_u &now) {
    occur(device, key, now, &before);
}

void end_event(Device &device, EventKey given) {
    const Result<EventKey> key = checked(given);
    if (!key) return;
    const auto found = device.event.occurred.find(*key);
    if (found != device.event.occurred.end() && held_over(found->second)) found->second.pending.reset();
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_event_status_poll(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num, vx_uint16 sub_port,
                                 vx_event_status_s *p_status) {
    return on_event(__func__, dev_id, {event_type, port_num, sub_port}, {p_status}, [&](Device &device, EventKey key) {
        if (is_moment(key.type)) return VX_ERR_EVT_POLLING_NOT_SUPPORTED;
        const Occurrence found = occurrence_of(device, key);
        *p_status = {};
        if (found.active) *p_status = {TRUE, found.data};
        return VX_SUCCESS;
    });
}

vx_status_e vx_pending_events_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_status_s *p_status) {
    return on_event(__func__, dev_id, {event_type, port_num, sub_port}, {p_status}, [&](Device &device, EventKey key) {
        const Occurrence found = occurrence_of(device, key);
        *p_status = {};
        if (found.pending) *p_status = {TRUE, found.data};
    });
}

// p_status is reserved, so it may be NULL.
vx_status_e vx_event_status_clear(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_status_s *) {
    return on_event(__func__, dev_id, {event_type, port_num, sub_port}, {}, [&](Device &device, EventKey key) {
        const auto found = device.event.occurred.find(key);
        if (found == device.event.occurred.end()) return;
        found->second.active = false;
        found->second.pending.reset();
    });
}

vx_status_e vx_event_holdover_set(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_event_holdover_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        settle(device);
        const Result<EventKey> known = checked({event_type, p_cfg->port_num, p_cfg->sub_port});
        if (!known) return known.status();
        const EventKey key = *known;
        if (is_moment(event_type)) return VX_ERR_EVT_HOLDOVER_NOT_SUPPORTED;
        vx_event_holdover_cfg_s cfg = *p_cfg;
        cfg.enable = p_cfg->enable ? TRUE : FALSE;

        const bool all = key.sub_port == VX_INVALID_PORT_ID;
        const auto meant = [&](const EventKey &at) {
            return at == key || (all && at.type == key.type && at.port == key.port);
        };
        std::erase_if(device.event.holdover, [&](const auto &kept) { return meant(kept.first); });
        device.event.holdover.emplace(key, cfg);
        if (!cfg.enable) release(device, Held::by_holdover, meant);
        return VX_SUCCESS;
    });
}

vx_status_e vx_event_holdover_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_holdover_cfg_s *p_cfg) {
    return on_event(__func__, dev_id, {event_type, port_num, sub_port}, {p_cfg}, [&](Device &device, EventKey key) {
        if (is_moment(key.type)) return VX_ERR_EVT_HOLDOVER_NOT_SUPPORTED;
        *p_cfg = holdover_of(device, key);
        return VX_SUCCESS;
    });
}

vx_status_e vx_event_global_throttle_set(vx_dev_id_t dev_id, vx_event_throttle_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_throttle(p_cfg->enable != FALSE, p_cfg->count, p_cfg->interval))
            return refused;
        Events &events = device.event;
        const bool was_on = events.global_throttle.enable != FALSE;
        events.global_throttle = *p_cfg;
        events.global_throttle.enable = p_cfg->enable ? TRUE : FALSE;
        events.global_window = {};
        // What the throttles of single events hold is theirs to release.
        if (was_on) release(device, Held::by_throttle, [](const EventKey &) { return true; });
        return VX_SUCCESS;
    });
}

vx_status_e vx_event_global_throttle_get(vx_dev_id_t dev_id, vx_event_throttle_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.event.global_throttle; });
}

vx_status_e vx_event_throttle_set(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_intr_throttle_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = place_of(event_type).status()) return refused;
        if (is_timer(event_type)) return VX_ERR_EVT_THROTTLE_NOT_SUPPORTED;
        if (const vx_status_e refused = check_throttle(p_cfg->enable != FALSE, p_cfg->count, p_cfg->interval))
            return refused;
        vx_intr_throttle_cfg_s cfg = *p_cfg;
        cfg.enable = p_cfg->enable ? TRUE : FALSE;
        cfg.per_port = p_cfg->per_port ? TRUE : FALSE;
        Events &events = device.event;
        events.throttle.set(event_type, cfg);
        std::erase_if(events.windows, [&](const auto &window) { return window.first.first == event_type; });
        if (events.global_throttle.enable) return VX_SUCCESS;
        release(device, Held::by_throttle, [&](const EventKey &at) { return at.type == event_type; });
        return VX_SUCCESS;
    });
}

vx_status_e vx_event_throttle_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_intr_throttle_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = place_of(event_type).status()) return refused;
        if (is_timer(event_type)) return VX_ERR_EVT_THROTTLE_NOT_SUPPORTED;
        *p_cfg = device.event.throttle.get(event_type);
        return VX_SUCCESS;
    });
}

vx_status_e vx_event_count_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num, vx_uint16 sub_port,
                               vx_uint32 *p_count, vx_boolean clear_after_get) {
    return on_event(__func__, dev_id, {event_type, port_num, sub_port}, {p_count}, [&](Device &device, EventKey key) {
        const auto found = device.event.occurred.find(key);
        *p_count = found == device.event.occurred.end() ? 0 : found->second.count.read(clear_after_get != FALSE);
    });
}

vx_status_e vx_event_count_clear(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                 vx_uint16 sub_port) {
    return on_event(__func__, dev_id, {event_type, port_num, sub_port}, {}, [](Device &device, EventKey key) {
        const auto found = device.event.occurred.find(key);
        if (found != device.event.occurred.end()) found->second.count = {};
    });
}

vx_status_e vx_event_count_clear_all(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) {
        for (auto &[key, occurrence] : device.event.occurred) occurrence.count = {};
    });
}

vx_status_e lmq_ctrl_interrupts(vx_dev_id_t dev_id, vx_boolean enable) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        settle(device);
        device.event.interrupts = enable != FALSE;
        settle(device);
    });
}

vx_status_e lmq_register_debug_event(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_boolean in_kernel,
                                     lmq_dbg_event_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        settle(device);
        const Result<DebugHandlerKey> key = key_of(event_type, in_kernel, *p_cfg);
        if (!key) return key.status();
        const Insert result = device.event.debug_handlers.insert(*key, *p_cfg);
        if (result == Insert::exists) return VX_ERR_GLBL_ENTRY_EXIST;
        if (result == Insert::full) return VX_ERR_EVT_REG_FAILED;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_deregister_debug_event(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_boolean in_kernel,
                                       lmq_dbg_event_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        settle(device);
        const Result<DebugHandlerKey> key = key_of(event_type, in_kernel, *p_cfg);
        if (!key) return key.status();
        if (!device.event.debug_handlers.erase(*key)) return VX_ERR_EVT_NOT_REGISTERED;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dbg_generate_event(vx_dev_id_t dev_id, vx_uint32 evt_type, vx_uint16 port_num, vx_uint16 sub_port) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const auto type = static_cast<vx_event_type_e>(evt_type);
        const Result<EventKey> key = checked({type, port_num, sub_port});
        if (!key) return key.status();
        raise_event(device, *key, debug_event_data(device, type));
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dump_event_db(vx_dev_id_t dev_id, vx_event_type_e event_type) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = place_of(event_type).status()) return refused;
        settle(device);
        Events &events = device.event;
        const vx_intr_throttle_cfg_s &own = events.throttle.get(event_type);
        std::fprintf(stderr, "event 0x%03x: throttle %s, count %u, interval %u; interrupts %s\n",
                     static_cast<unsigned>(event_type), own.enable ? "on" : "off", own.count, own.interval,
                     events.interrupts ? "on" : "off");
        for (const auto &[key, cfg] : events.holdover) {
            if (key.type != event_type) continue;
            std::fprintf(stderr, "  port %u sub-port %u: holdover %s, time %u\n", unsigned{key.port},
                         unsigned{key.sub_port}, cfg.enable ? "on" : "off", unsigned{cfg.holdover_time});
        }
        for (auto &[key, occurrence] : events.occurred) {
            if (key.type != event_type) continue;
            std::fprintf(stderr, "  port %u sub-port %u: count %u%s%s\n", unsigned{key.port}, unsigned{key.sub_port},
                         occurrence.count.read(), occurrence.active ? ", active" : "",
                         occurrence.pending ? ", pending" : "");
        }
        for (const auto &[key, cfg] : events.debug_handlers) {
            const auto &[type, in_kernel, port] = key;
            if (type != event_type) continue;
            std::fprintf(stderr, "  handler in %s space, port 0x%04x, user data %u\n", in_kernel ? "kernel" : "user",
                         unsigned{port}, cfg.user_data);
        }
        return VX_SUCCESS;
    });
}

}  // extern "C"
