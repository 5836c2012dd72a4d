// The simulated chip: its life cycle, the state that hangs on it, and the guards that every operation uses.
//
// The life cycle is what exists. Before lmq_init_system the chip has no System; a device in reset has no Device. To
// forget is to destroy, so a new family gets its life cycle right by one line: a struct of its state, constructed as
// the hardware comes out of reset, as a member of Device (or of System, when a device reset must not touch it).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <mutex>
#include <optional>
#include <type_traits>

#include "driver/acl.h"
#include "driver/cfm.h"
#include "driver/classifier.h"
#include "driver/clock.h"
#include "driver/cosq.h"
#include "driver/cpu_packet.h"
#include "driver/device.h"
#include "driver/eth_port.h"
#include "driver/event.h"
#include "driver/fault.h"
#include "driver/flow.h"
#include "driver/gpon.h"
#include "driver/gpon_tm.h"
#include "driver/l2.h"
#include "driver/management.h"
#include "driver/mcast.h"
#include "driver/peripheral.h"
#include "driver/policer.h"
#include "driver/preset.h"
#include "driver/result.h"
#include "driver/store.h"
#include "driver/time.h"
#include "driver/traffic.h"
#include "driver/vlan_bridge.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// Whether first <= value <= last.
constexpr bool is_in_range(std::int64_t value, std::int64_t first, std::int64_t last) {
    return value >= first && value <= last;
}

/// Whether a number is no port of a device.
constexpr bool is_no_port(std::int64_t port) { return port > VX_PORT_VOIP0; }

/// Clears what is no flag in the word of a mask: an assignment of its flags leaves that to chance.
/// @param flags How many flags there are, from the lowest bit on.
template <class Valid>
void clear_beside_flags(Valid &valid, unsigned flags) {
    valid.mask &= static_cast<decltype(valid.mask)>((1ULL << flags) - 1);
}

/// The status of an insertion into a Table.
constexpr vx_status_e as_status(Insert result) {
    switch (result) {
        case Insert::ok: break;
        case Insert::exists: return VX_ERR_GLBL_ENTRY_EXIST;
        case Insert::full: return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
    }
    return VX_SUCCESS;
}

/// A boolean as it is kept: anything but 0 comes back as 1.
constexpr vx_boolean as_boolean(bool given) { return given ? TRUE : FALSE; }

/// Modules that log: vx_mod_id_e counts from 0 to one less.
inline constexpr std::size_t module_count = 0
#define xx(id, name) +1
    VX_MODULES_DEFINES
#undef xx
    ;

class System;

/// A device that is up, with the state of each family.
struct Device {
    Device(System &owner, vx_dev_id_t dev_id, const lmq_dev_startup_cfg_s &cfg);

    System &system;
    const vx_dev_id_t id;
    const lmq_dev_startup_cfg_s config;  ///< What the device was started with.

    Lifecycle lifecycle;
    Management management;
    Events event;
    CpuPackets cpu_packet;
    Peripherals peripheral;
    TimeDistribution time;
    EthPorts eth_port;
    Layer2 l2;
    VlanBridge vlan_bridge;
    Classifier classifier;
    Acl acl;
    Multicast mcast;
    Flows flow;
    CosQueues cosq;
    Policers policer;
    Gpon gpon;
    GponTm gpon_tm;
    Cfm cfm;
    Traffic traffic;
};

/// What the environment says of a system, as it was when the system was initialised.
struct Environment {
    Clock clock;                      ///< At 0.
    std::optional<TrafficPlan> plan;  ///< Nothing for no traffic.
    std::optional<Preset> preset;

    /// @throws std::invalid_argument with a text that names the variable and what was expected.
    static Environment read();
};

/// The driver between lmq_init_system and lmq_shutdown_system.
class System {
  public:
    /// Starts the devices that are enabled; the others are in reset.
    /// @param cfg         A configuration that was checked.
    /// @param environment What else the system starts with. The preset is applied once the devices are up.
    System(const vx_startup_cfg_t &cfg, const Environment &environment);
    System(const System &) = delete;
    System &operator=(const System &) = delete;

    /// A driver function is called: the clock goes on, and what has fallen due since the last call happens.
    void begin_call();

    /// A device by its id, of whichever integer type. Refuses an id that is none, and a device in reset.
    Result<Device &> device(std::int64_t dev_id);

    /// Where a device is, or would be. Refuses an id that is none.
    Result<std::optional<Device> &> slot(std::int64_t dev_id);

    /// Takes a device out of reset. @param cfg A configuration that was checked.
    void start_device(vx_dev_id_t dev_id, const lmq_dev_startup_cfg_s &cfg);

    /// Writes a line to standard error, stamped with the clock, if the module's log level asks for it.
    [[gnu::format(printf, 4, 5)]] void log(vx_mod_id_e module, vx_log_lvl_e level, const char *format, ...) const;

    /// Writes a line to standard error, stamped with the clock, in any case.
    [[gnu::format(printf, 3, 4)]] void print(const char *topic, const char *format, ...) const;

    const vx_startup_cfg_t config;
    Clock clock;
    const std::optional<TrafficPlan> plan;
    Faults faults;                                     ///< Those of the preset.
    std::array<vx_log_lvl_e, module_count> log_level;  ///< By vx_mod_id_e.
    bool print_register_access = false;

  private:
    std::array<std::optional<Device>, LMQ_NUM_DEVICES> devices_;
};

/// The chip: there is one in the process.
class Chip {
  public:
    static Chip &instance();

    /// A device by its id. Refuses while there is no system, and as System::device() does.
    Result<Device &> device(std::int64_t dev_id);

    /// Counts a call. @return The status that it has to fail with, by LMQ_SIM_FAIL or by the preset, if it has to.
    std::optional<vx_status_e> demanded_failure(const char *function);

    std::optional<System> power;  ///< Empty before lmq_init_system.
    Faults faults = Faults::from_environment();
    std::mutex mutex;  ///< Held by guarded() for the whole of an operation.
};

/// The status of the exception being handled, which no operation throws on purpose, and which is reported.
vx_status_e status_of_exception(const char *function) noexcept;

inline bool is_any_null(std::initializer_list<const void *> pointers) {
    for (const void *pointer : pointers)
        if (pointer == nullptr) return true;
    return false;
}

/// Runs the body of an operation, which returns a status, or nothing for VX_SUCCESS.
template <typename Body, typename... On>
vx_status_e run(const Body &body, On &&...on) {
    if constexpr (std::is_void_v<decltype(body(on...))>) {
        body(on...);
        return VX_SUCCESS;
    } else {
        return body(on...);
    }
}

/// Runs an operation, one at a time, and lets no exception out. All driver functions go through here.
///
/// An operation must not call a driver function: the lock is held. It refuses by returning a status: an exception costs
/// ten times a small refused call. It checks everything before the first change, for nothing is rolled back.
///
/// @param function The driver function's name, for messages: __func__.
/// @param body     Gets the Chip, whatever its state.
/// @return What the body returns; VX_SUCCESS if it returns nothing.
template <typename Body>
vx_status_e guarded(const char *function, Body body) noexcept {
    try {
        Chip &chip = Chip::instance();
        const std::lock_guard lock(chip.mutex);
        if (chip.power) chip.power->begin_call();
        if (const auto failure = chip.demanded_failure(function)) return *failure;
        return run(body, chip);
    } catch (...) {
        return status_of_exception(function);
    }
}

/// Runs an operation on the system, which must be initialised.
template <typename Body>
vx_status_e on_system(const char *function, Body body) noexcept {
    return guarded(function,
                   [&](Chip &chip) { return chip.power ? run(body, *chip.power) : VX_ERR_GLBL_SYS_UNINTIALIZED; });
}

/// Runs an operation on a device. Checks, in this order: the system, the id, the device, the pointers.
/// @param pointers Those of the operation's pointers that may not be NULL.
/// @param body     Gets the Device.
template <typename Body>
vx_status_e on_device(const char *function, std::int64_t dev_id, std::initializer_list<const void *> pointers,
                      Body body) noexcept {
    return on_system(function, [&](System &system) {
        const Result<Device &> device = system.device(dev_id);
        if (!device) return device.status();
        if (is_any_null(pointers)) return VX_ERR_DEV_NULL_PTR;
        return run(body, *device);
    });
}

/// Answers for a function of a device whose effect could be seen nowhere in the simulator.
inline vx_status_e not_supported(const char *function, std::int64_t dev_id, const void *pointer) noexcept {
    return on_device(function, dev_id, {pointer}, [](Device &) { return VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW; });
}

}  // namespace lmq::sim
