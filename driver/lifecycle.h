/**
 * @file
 * @brief What the life cycle family keeps of a device: watchdog, MAC address and registers.
 */
#ifndef LMQ_DRIVER_LIFECYCLE_H
#define LMQ_DRIVER_LIFECYCLE_H

#include <array>
#include <optional>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/** @brief State of the family. */
struct Lifecycle {
    /** @brief As a device starts: the watchdog from the system's configuration, the MAC address from the device's. */
    Lifecycle(vx_dev_id_t id, const vx_startup_cfg_t &system, const lmq_dev_startup_cfg_s &device, Clock::Time now);

    /** @brief The watchdog begins again, as it is configured. */
    void restart_watchdog(Clock::Time now);

    vx_watchdog_cfg_t watchdog{};               /**< As vx_watchdog_get answers it, mask included. */
    std::optional<Clock::Time> watchdog_expiry; /**< Nothing while it does not run, or was in time. */
    std::array<vx_uint8, sizeof(vx_mac_addr_t)> mac{};
    Setting<vx_addr, vx_reg> registers;
};

struct Device;

/** @brief Lets the watchdog expire when its time is over. */
void pass_time(Device &device, Lifecycle &lifecycle);

}  // namespace lmq::sim

#endif
