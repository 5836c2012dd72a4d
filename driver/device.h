// What the life cycle family keeps of a device: watchdog, MAC address and registers.
#pragma once

#include <array>
#include <optional>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Lifecycle {
    /// As a device starts: the watchdog from the system's configuration, the MAC address from the device's.
    Lifecycle(vx_dev_id_t id, const vx_startup_cfg_t &system, const lmq_dev_startup_cfg_s &device, Clock::Time now);

    /// The watchdog begins again, as it is configured.
    void restart_watchdog(Clock::Time now);

    vx_watchdog_cfg_t watchdog{};                ///< As vx_watchdog_get answers it, mask included.
    std::optional<Clock::Time> watchdog_expiry;  ///< Nothing while it does not run, or was in time.
    std::array<vx_uint8, sizeof(vx_mac_addr_t)> mac{};
    Setting<vx_addr, vx_reg> registers;
};

struct Device;

/// Lets the watchdog expire when its time is over.
void pass_time(Device &device, Lifecycle &lifecycle);

}  // namespace lmq::sim
