// The life cycle family: start, shutdown, reset, watchdog, MAC address, registers and debug switches.
#include "driver/device.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

/* IEEE 1149.1: version 1, part number 0x0984, no manufacturer, and the 1 that every identification ends in. */
constexpr vx_uint32 jtag_id_code = 0x10984001;

/* Bytes of register space. A register is a word of four. */
constexpr vx_uint32 register_space = 0x100000;
constexpr vx_uint32 register_bytes = 4;

/* Every bit that lmq_asic_mod_id_e names. */
constexpr vx_uint32 resettable_modules = static_cast<vx_uint32>(LMQ_ASIC_MOD_ID_ALL);

[[nodiscard]] vx_status_e check(const vx_eth_port_init_cfg_t &port) {
    if (!port.add_port) return VX_SUCCESS;
    if (!is_in_range(port.admin_status, VX_ADMIN_STATUS_DOWN, VX_ADMIN_STATUS_UP) ||
        !is_in_range(port.phy_mode, VX_ETH_PHY_MODE_MAC, VX_ETH_PHY_MODE_PHY) ||
        !is_in_range(port.phy_type, VX_ETH_PHY_TYPE_MII, VX_ETH_PHY_TYPE_GIGE) || !is_in_range(port.phy_addr, 0, 31) ||
        !is_in_range(port.ge_txclk_sel, VX_ETH_GE_TXCLK_INLINE, VX_ETH_GE_TXCLK_DELAY))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(const lmq_dev_startup_cfg_s &cfg) {
    if (!is_in_range(cfg.dev_mode, LMQ_DEV_MODE_GPON, LMQ_DEV_MODE_AE) ||
        !is_in_range(cfg.sni_mode, LMQ_SNI_MODE_NORMAL, LMQ_SNI_MODE_AE_LAG) ||
        !is_in_range(cfg.pkt_mem_mode, LMQ_PKT_MEM_MODE_IBM, LMQ_PKT_MEM_MODE_IBM_N_EBM) ||
        !is_in_range(cfg.dev_op_mode, LMQ_DEV_OP_MODE_DATA_ONLY, LMQ_DEV_OP_MODE_HGU_DATA_N_VOIP))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    if (const vx_status_e refused = check(cfg.lcl_mgmt_port_cfg)) return refused;
    for (const vx_eth_port_init_cfg_t &port : cfg.eth_port_cfg) {
        if (const vx_status_e refused = check(port)) return refused;
    }
    if (cfg.dev_mode == LMQ_DEV_MODE_GPON) {
        if (!is_in_range(cfg.gpon_cfg.tm_init_cfg.option, VX_TM_OPTION_DEFAULT, VX_TM_OPTION_ALL))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(const vx_startup_cfg_t &cfg) {
    if (!is_in_range(cfg.cpu_mode, LMQ_CPU_MODE_INTERNAL, LMQ_CPU_MODE_EXTERNAL) ||
        !is_in_range(cfg.num_dev, 0, LMQ_NUM_DEVICES) ||
        !is_in_range(cfg.wd_action, VX_WD_ACTION_WARNING, VX_WD_ACTION_REBOOT))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    for (vx_dev_id_t id = 0; id < cfg.num_dev; ++id) {
        if (!cfg.dev_cfg[id].enbl) continue;
        if (const vx_status_e refused = check(cfg.dev_cfg[id])) return refused;
    }
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e start(Chip &chip, const vx_startup_cfg_t *cfg) {
    if (!cfg) return VX_ERR_GLBL_NULL_PTR;
    if (const vx_status_e refused = check(*cfg)) return refused;
    chip.power.emplace(*cfg, Environment::read());
    return VX_SUCCESS;
}

void shut_down(Chip &chip) {
    chip.power->log(VX_MOD_DRVR_DEV, VX_LOG_LVL_INFO, "the system is down");
    chip.power.reset();
}

void put_in_reset(Device &device) {
    System &system = device.system;
    const vx_dev_id_t id = device.id;
    system.slot(id)->reset();
    system.log(VX_MOD_DRVR_DEV, VX_LOG_LVL_INFO, "device %u is in reset", static_cast<unsigned>(id));
}

/* Modules come back as they were configured. They lose what they had come to: counters, and what runs. */
void reset_modules(Device &device, vx_uint32 modules) {
    const auto has = [&](lmq_asic_mod_id_e module) { return (modules & static_cast<vx_uint32>(module)) != 0; };
    if (has(LMQ_ASIC_MOD_ID_PON0)) device.gpon_tm.clear_counters();
    if (has(LMQ_ASIC_MOD_ID_PON0) || has(LMQ_ASIC_MOD_ID_PON_SDS0)) reset(device, device.gpon);
    if (has(LMQ_ASIC_MOD_ID_UNI)) reset(device, device.eth_port);
    if (has(LMQ_ASIC_MOD_ID_MA)) device.cpu_packet.trapped.clear();
    if (has(LMQ_ASIC_MOD_ID_FE)) {
        device.classifier.stats = {};
        reset(device, device.l2);
    }
    if (has(LMQ_ASIC_MOD_ID_TM)) device.policer.clear_counters();
    if (has(LMQ_ASIC_MOD_ID_BM)) device.policer.buffer_manager = {};
    if (has(LMQ_ASIC_MOD_ID_PER)) reset(device, device.peripheral);
}

[[nodiscard]] vx_status_e check_register(vx_uint32 addr) {
    if (addr % register_bytes != 0) return VX_ERR_GLBL_INVALID_PARAMS;
    if (!is_in_range(addr, 0, register_space - register_bytes)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

void report_access(const Device &device, const char *access, vx_uint32 addr, vx_uint32 data) {
    if (!device.system.print_register_access) return;
    device.system.print("reg", "device %u %s 0x%06x: 0x%08x", static_cast<unsigned>(device.id), access, addr, data);
}

}  // namespace

Lifecycle::Lifecycle(vx_dev_id_t id, const vx_startup_cfg_t &system, const lmq_dev_startup_cfg_s &device,
                     Clock::Time now) {
    watchdog.wd_enable = system.enbl_wd ? TRUE : FALSE;
    watchdog.wd_timer = system.wd_time;
    watchdog.wd_action = system.wd_action;
    watchdog.mask_s = {.wd_enable = 1, .wd_timer = 1, .wd_action = 1, .reserved = 0};
    restart_watchdog(now);

    std::copy(std::begin(device.dev_mac_addr), std::end(device.dev_mac_addr), mac.begin());
    const bool given = std::any_of(mac.begin(), mac.end(), [](vx_uint8 byte) { return byte != 0; });
    if (!given) mac = {0x02, 0x00, 0x00, 0x00, 0x00, static_cast<vx_uint8>(id + 1)};
}

void Lifecycle::restart_watchdog(Clock::Time now) {
    watchdog_expiry.reset();
    // The driver strobes a watchdog in time unless its period is shorter than that of the strobes.
    if (!watchdog.wd_enable || watchdog.wd_timer == 0 || watchdog.wd_timer >= LMQ_WD_STROBE_PERIOD) return;
    watchdog_expiry = now + std::chrono::seconds(watchdog.wd_timer);
}

void pass_time(Device &device, Lifecycle &lifecycle) {
    if (!lifecycle.watchdog_expiry || *lifecycle.watchdog_expiry > device.system.clock.now()) return;
    lifecycle.watchdog_expiry.reset();
    const bool reboot = lifecycle.watchdog.wd_action == VX_WD_ACTION_REBOOT;
    device.system.print("dev", "device %u: the watchdog has expired%s", static_cast<unsigned>(device.id),
                        reboot ? ", which would reboot the system" : "");
    raise_event(device, {VX_EVENT_WD_EXPIRED, 0, 0}, {});
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e lmq_init_system(vx_startup_cfg_t *p_cfg) {
    return guarded(__func__, [&](Chip &chip) {
        if (chip.power) return VX_ERR_GLBL_SYS_ALRDY_INTIALIZED;
        return start(chip, p_cfg);
    });
}

vx_status_e vx_init(vx_dev_id_t dev_id, vx_startup_cfg_t *p_cfg) {
    return guarded(__func__, [&](Chip &chip) {
        if (chip.power) return VX_ERR_GLBL_SYS_ALRDY_INTIALIZED;
        if (dev_id >= LMQ_NUM_DEVICES) return VX_ERR_DEV_ID_INVALID;
        return start(chip, p_cfg);
    });
}

vx_status_e lmq_init_device(vx_dev_id_t dev_id, lmq_dev_startup_cfg_s *p_cfg) {
    return on_system(__func__, [&](System &system) {
        const auto slot = system.slot(dev_id);
        if (!slot) return slot.status();
        if (slot->has_value()) return VX_ERR_DEV_ALRDY_INITIALIZED;
        if (!p_cfg) return VX_ERR_DEV_NULL_PTR;
        if (const vx_status_e refused = check(*p_cfg)) return refused;
        system.start_device(dev_id, *p_cfg);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_shutdown_system(void) {
    return guarded(__func__, [](Chip &chip) {
        if (!chip.power) return VX_ERR_GLBL_SYS_UNINTIALIZED;
        shut_down(chip);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_reset_device(vx_dev_id_t dev_id, lmq_sys_reset_cfg_s *p_cfg) {
    return guarded(__func__, [&](Chip &chip) {
        const Result<Device &> device = chip.device(dev_id);
        if (!device) return device.status();
        if (!p_cfg) return VX_ERR_DEV_NULL_PTR;
        switch (p_cfg->rst_mode) {
            case LMQ_RESET_MODE_CPU_N_ASIC: shut_down(chip); return VX_SUCCESS;
            case LMQ_RESET_MODE_ONLY_ASIC: put_in_reset(*device); return VX_SUCCESS;
            case LMQ_RESET_MODE_ASIC_MODULE:
                if (!is_in_range(p_cfg->rst_type, LMQ_RESET_TYPE_HARD, LMQ_RESET_TYPE_SOFT))
                    return VX_ERR_GLBL_RANGE_CHECK_FAIL;
                if (p_cfg->mod_id_bit_map == 0) return VX_ERR_GLBL_INVALID_PARAMS;
                if ((p_cfg->mod_id_bit_map & ~resettable_modules) != 0) return VX_ERR_GLBL_INVALID_ENTITY_ID;
                reset_modules(*device, p_cfg->mod_id_bit_map);
                device->system.log(VX_MOD_DRVR_DEV, VX_LOG_LVL_INFO, "device %u has reset modules 0x%08x",
                                   static_cast<unsigned>(dev_id), p_cfg->mod_id_bit_map);
                return VX_SUCCESS;
        }
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    });
}

vx_status_e vx_reset(vx_dev_id_t dev_id, vx_reset_mode_t rst_mode) {
    return guarded(__func__, [&](Chip &chip) {
        const Result<Device &> device = chip.device(dev_id);
        if (!device) return device.status();
        switch (rst_mode) {
            case VX_RESET_DRIVER: shut_down(chip); return VX_SUCCESS;
            case VX_RESET_CHIP: put_in_reset(*device); return VX_SUCCESS;
        }
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    });
}

vx_status_e vx_watchdog_set(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->mask_s;
        if (flags.wd_action && !is_in_range(p_cfg->wd_action, VX_WD_ACTION_WARNING, VX_WD_ACTION_REBOOT))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;

        vx_watchdog_cfg_t &kept = device.lifecycle.watchdog;
        const vx_boolean enable = p_cfg->wd_enable ? TRUE : FALSE;
        merge(flags.wd_enable, kept.wd_enable, enable);
        merge(flags.wd_timer, kept.wd_timer, p_cfg->wd_timer);
        merge(flags.wd_action, kept.wd_action, p_cfg->wd_action);
        kept.mask_s.reserved = flags.reserved;
        device.lifecycle.restart_watchdog(device.system.clock.now());
        return VX_SUCCESS;
    });
}

vx_status_e vx_watchdog_get(vx_dev_id_t dev_id, vx_watchdog_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.lifecycle.watchdog; });
}

vx_status_e vx_mac_addr_set(vx_dev_id_t dev_id, vx_mac_addr_t p_mac_addr) {
    return on_device(__func__, dev_id, {p_mac_addr}, [&](Device &device) {
        std::copy_n(p_mac_addr, sizeof(vx_mac_addr_t), device.lifecycle.mac.begin());
    });
}

vx_status_e vx_mac_addr_get(vx_dev_id_t dev_id, vx_mac_addr_t p_mac_addr) {
    return on_device(__func__, dev_id, {p_mac_addr}, [&](Device &device) {
        std::copy(device.lifecycle.mac.begin(), device.lifecycle.mac.end(), p_mac_addr);
    });
}

vx_status_e vx_jtag_id_get(vx_dev_id_t dev_id, vx_uint32 *jtag_id) {
    return on_device(__func__, dev_id, {jtag_id}, [&](Device &) { *jtag_id = jtag_id_code; });
}

vx_status_e lmq_read_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint32 *p_reg_data) {
    return on_device(__func__, dev_id, {p_reg_data}, [&](Device &device) {
        if (const vx_status_e refused = check_register(addr)) return refused;
        *p_reg_data = device.lifecycle.registers.get(addr);
        report_access(device, "read", addr, *p_reg_data);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_write_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint32 reg_data) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_register(addr)) return refused;
        device.lifecycle.registers.set(addr, reg_data);
        report_access(device, "write", addr, reg_data);
        return VX_SUCCESS;
    });
}

vx_uint32 lmq_dump_register(vx_dev_id_t dev_id, vx_uint32 addr, vx_uint8 addr_skip, vx_uint8 cnt) {
    vx_uint32 printed = 0;
    // A refusal shows in the count alone: the function has no status.
    (void)on_device(__func__, dev_id, {}, [&](Device &device) {
        const vx_uint32 step = addr_skip != 0 ? addr_skip : register_bytes;
        for (vx_uint32 at = addr; printed < cnt; at += step, ++printed) {
            if (const vx_status_e refused = check_register(at)) return refused;
            std::fprintf(stderr, "0x%06x: 0x%08x\n", at, device.lifecycle.registers.get(at));
        }
        return VX_SUCCESS;
    });
    return printed;
}

vx_status_e lmq_dbg_set_reg_dump(vx_boolean enable) {
    return on_system(__func__, [&](System &system) { system.print_register_access = enable != FALSE; });
}

vx_status_e lmq_dbg_set_log_level(vx_mod_id_e mod_id, vx_log_lvl_e log_lvl) {
    return on_system(__func__, [&](System &system) {
        if (mod_id < VX_MOD_ID_MIN || static_cast<std::size_t>(mod_id) >= module_count)
            return VX_ERR_GLBL_INVALID_ENTITY_ID;
        if (!is_in_range(log_lvl, VX_LOG_LVL_MIN, VX_LOG_LVL_MAX)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        system.log_level[static_cast<std::size_t>(mod_id)] = log_lvl;
        return VX_SUCCESS;
    });
}

}  // extern "C"
