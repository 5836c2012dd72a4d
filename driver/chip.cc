// The chip's life cycle and messages. Operations stand in the file of their family.
#include "driver/chip.h"

#include <cstdarg>
#include <cstdio>
#include <exception>
#include <new>
#include <stdexcept>

namespace lmq::sim {

namespace {

constexpr const char *module_names[] = {
#define xx(id, name) name,
    VX_MODULES_DEFINES
#undef xx
};

[[gnu::format(printf, 3, 0)]] void print_line(Clock::Time time, const char *topic, const char *format, va_list args) {
    // One write a line, so that lines of other programs on the same terminal do not mix in.
    char text[256];
    std::vsnprintf(text, sizeof text, format, args);
    const auto ms = static_cast<long long>(time.count());
    std::fprintf(stderr, "lmq: [%lld.%03lld] %s: %s\n", ms / 1000, ms % 1000, topic, text);
}

}  // namespace

Device::Device(System &owner, vx_dev_id_t dev_id, const lmq_dev_startup_cfg_s &cfg)
    : system(owner),
      id(dev_id),
      config(cfg),
      lifecycle(dev_id, owner.config, cfg, owner.clock.now()),
      peripheral(cfg.gpio_cfg),
      gpon(cfg, owner.clock.now()),
      traffic(owner.plan, owner.clock.now()) {}

Environment Environment::read() {
    return {Clock(Clock::step_from_environment()), TrafficPlan::from_environment(), Preset::from_environment()};
}

System::System(const vx_startup_cfg_t &cfg, const Environment &environment)
    : config(cfg), clock(environment.clock), plan(environment.plan) {
    log_level.fill(VX_LOG_LVL_MINOR);
    for (vx_dev_id_t id = 0; id < config.num_dev; ++id) {
        if (config.dev_cfg[id].enbl) start_device(id, config.dev_cfg[id]);
    }
    if (!environment.preset) return;
    faults = environment.preset->faults();
    for (std::optional<Device> &device : devices_) {
        if (device) environment.preset->apply(*device);
    }
}

void System::begin_call() {
    clock.begin_call();
    for (std::optional<Device> &device : devices_) {
        if (!device) continue;
        // First what raises events, and last what notifies those that are due.
        pass_time(*device, device->lifecycle);
        pass_time(*device, device->peripheral);
        pass_time(*device, device->time);
        pass_time(*device, device->eth_port);
        pass_time(*device, device->l2);
        pass_time(*device, device->classifier);
        pass_time(*device, device->gpon);
        pass_time(*device, device->traffic);
        pass_time(*device, device->event);
    }
}

Result<std::optional<Device> &> System::slot(std::int64_t dev_id) {
    if (!is_in_range(dev_id, 0, LMQ_NUM_DEVICES - 1)) return VX_ERR_DEV_ID_INVALID;
    return devices_[static_cast<std::size_t>(dev_id)];
}

Result<Device &> System::device(std::int64_t dev_id) {
    const auto at = slot(dev_id);
    if (!at) return at.status();
    if (!*at) return VX_ERR_DEV_UNINTIALIZED;
    return **at;
}

void System::start_device(vx_dev_id_t dev_id, const lmq_dev_startup_cfg_s &cfg) {
    devices_[dev_id].emplace(*this, dev_id, cfg);
    log(VX_MOD_DRVR_DEV, VX_LOG_LVL_INFO, "device %u is up", static_cast<unsigned>(dev_id));
}

void System::log(vx_mod_id_e module, vx_log_lvl_e level, const char *format, ...) const {
    if (level > log_level[static_cast<std::size_t>(module)]) return;
    va_list args;
    va_start(args, format);
    print_line(clock.now(), module_names[module], format, args);
    va_end(args);
}

void System::print(const char *topic, const char *format, ...) const {
    va_list args;
    va_start(args, format);
    print_line(clock.now(), topic, format, args);
    va_end(args);
}

Chip &Chip::instance() {
    static Chip chip;
    return chip;
}

Result<Device &> Chip::device(std::int64_t dev_id) {
    if (!power) return VX_ERR_GLBL_SYS_UNINTIALIZED;
    return power->device(dev_id);
}

std::optional<vx_status_e> Chip::demanded_failure(const char *function) {
    std::optional<vx_status_e> status = faults.call(function);
    if (power) {
        // Both lists count the call.
        const std::optional<vx_status_e> preset = power->faults.call(function);
        if (!status) status = preset;
    }
    return status;
}

vx_status_e status_of_exception(const char *function) noexcept {
    try {
        throw;
    } catch (const std::bad_alloc &) {
        std::fprintf(stderr, "lmq: %s: out of memory\n", function);
        return VX_ERR_GLBL_MALLOC_FAIL;
    } catch (const std::invalid_argument &setting) {
        std::fprintf(stderr, "lmq: %s: %s\n", function, setting.what());
        return VX_ERR_GLBL_INVALID_PARAMS;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "lmq: %s: internal error: %s\n", function, error.what());
        return VX_ERR_GLBL_SW_INTERNAL_ERR;
    } catch (...) {
        std::fprintf(stderr, "lmq: %s: internal error\n", function);
        return VX_ERR_GLBL_SW_INTERNAL_ERR;
    }
}

}  // namespace lmq::sim
