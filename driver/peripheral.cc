// The low-speed peripherals: pins, I2C, SPI, MDIO, timers and LEDs.
//
// Choices, a line each:
// - Pins 2k and 2k+1 are wired together: an input sees what the other drives, and 0 when that is no output either.
// - All pins are inputs at first, but for those that gpio_valid_pins of the start configuration describes.
// - intr_level 1 makes an interrupt active while the pin is high, 0 while it is low. By level it is latched whenever
//   it is active, by edge when it becomes active. The pins are looked at in calls alone, so a shorter pulse is not
//   seen. What is newly latched raises VX_EVENT_GPIO_INTR, once for all such pins.
// - Group 0 has all 32 pins. No other group exists.
// - Writing and rolling over need an output, vx_gpio_intr_enable needs an interrupt pin:
// VX_ERR_GLBL_INVALID_DIRECTION.
// - I2C is enabled at start if i2c_speed is not 0, SPI if enbl_ssp is set; MDIO is not. A bus that is disabled
//   answers VX_ERR_DEV_STATE_INVALID.
// - All 128 I2C slaves are there, with 256 bytes each; all 32 MDIO slaves, with 32 registers each. All are 0 at
//   first.
// - An operation of a bus raises an event: VX_EVENT_I2C_INTR, VX_EVENT_MDIO_INTR_OP_DONE, and where vx_spi_enable_set
//   has enabled the interrupt VX_EVENT_SPI_INTR_WR_DONE or, when something was read, VX_EVENT_SPI_INTR_OP_DONE.
// - An SPI line echoes: a read gets the data that was written last, cut to data_length bits; byte and data apart.
//   Transfers of data need vx_spi_set before, transfers of a byte do not.
// - Timers run on the simulator's clock. Time 0 is refused but in mode DISABLE. A timer that is not set or is
//   disabled answers start and stop with VX_ERR_GLBL_INVALID_OP. Setting a timer stops it. Expiry raises an event,
//   one for all expiries of a timer between two calls.
// - A LED shows a colour only as LMQ_LED_TYPE_BI_COLOR. Before the first trigger it is off.
#include "driver/peripheral.h"

#include <algorithm>
#include <cstdio>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using Pins = Peripherals::Pins;
using Pin = Peripherals::Pin;
using Timer = Peripherals::Timer;

constexpr vx_uint16 greatest_i2c_speed = 1000;
constexpr unsigned spi_command_bits = 96;
constexpr unsigned spi_data_bits = 64;

/* The level that a pin drives as an output. */
bool driven_level(const Pin &pin, Clock::Time now) {
    if (!pin.rollover) return pin.driven;
    const auto changes = (now - pin.rollover->since) / pin.rollover->interval;
    return pin.driven != (changes % 2 != 0);
}

bool level(const Pins &pins, std::size_t id, Clock::Time now) {
    for (const Pin *pin : {&pins.pin[id], &pins.pin[id ^ 1]}) {
        if (pin->cfg.direction == VX_GPIO_DIR_OUTPUT) return driven_level(*pin, now);
    }
    return false;
}

/* The pins, with their interrupts as they are now. */
Pins &look_at_pins(Device &device) {
    Pins &pins = device.peripheral.pins;
    const Clock::Time now = device.system.clock.now();
    const vx_uint32 latched = pins.latched;
    vx_uint32 active = 0;
    for (std::size_t id = 0; id < pins.pin.size(); ++id) {
        const vx_gpio_cfg_t &cfg = pins.pin[id].cfg;
        const vx_uint32 bit = vx_uint32{1} << id;
        if (cfg.direction != VX_GPIO_DIR_INTR || !cfg.intr_en) continue;
        if (level(pins, id, now) != (cfg.intr_level != 0)) continue;
        active |= bit;
        if (!cfg.intr_edge || !(pins.active & bit)) pins.latched |= bit;
    }
    pins.active = active;
    if (pins.latched != latched) {
        lmq_event_data_u data{};
        data.gpio_data.gpio_pin_mask = pins.latched & ~latched;
        raise_event(device, {VX_EVENT_GPIO_INTR, 0, 0}, data);
    }
    return pins;
}

/*
 * Runs an operation on a pin, and looks at the pins before and after it: what the operation ends is latched, and what
 * it begins.
 */
template <typename Body>
vx_status_e on_pin(const char *function, vx_dev_id_t dev_id, vx_uint8 gpio_id,
                   std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (!is_in_range(gpio_id, 0, LMQ_GPIO_ID_MAX - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (const vx_status_e refused = run(body, device, look_at_pins(device).pin[gpio_id])) return refused;
        look_at_pins(device);
        return VX_SUCCESS;
    });
}

template <typename Body>
vx_status_e on_pin_group(const char *function, vx_dev_id_t dev_id, vx_uint8 gpio_id,
                         std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (!is_in_range(gpio_id, 0, 0)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        return run(body, device, look_at_pins(device));
    });
}

[[nodiscard]] vx_status_e need_direction(const Pin &pin, vx_gpio_dir_e direction) {
    if (pin.cfg.direction != direction) return VX_ERR_GLBL_INVALID_DIRECTION;
    return VX_SUCCESS;
}

template <typename Body>
vx_status_e on_i2c(const char *function, vx_dev_id_t dev_id, vx_uint8 slave, vx_uint8 offset, vx_uint16 length,
                   const void *data, Body body) noexcept {
    return on_device(function, dev_id, {data}, [&](Device &device) {
        if (!device.peripheral.i2c_enabled.value_or(device.config.i2c_speed != 0)) return VX_ERR_DEV_STATE_INVALID;
        if (!is_in_range(slave, 0, 127) || !is_in_range(length, 1, 256 - offset)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        for (unsigned i = 0; i < length; ++i) body(device.peripheral, i, Peripherals::Place{slave, offset + i});
        raise_event(device, {VX_EVENT_I2C_INTR, 0, 0}, {});
        return VX_SUCCESS;
    });
}

template <typename Body>
vx_status_e on_mdio(const char *function, vx_dev_id_t dev_id, vx_uint8 slave, vx_uint8 first, vx_uint8 count,
                    const void *data, Body body) noexcept {
    return on_device(function, dev_id, {data}, [&](Device &device) {
        if (!device.peripheral.mdio_enabled) return VX_ERR_DEV_STATE_INVALID;
        if (const vx_status_e refused = check_mdio(slave, first, count)) return refused;
        for (unsigned i = 0; i < count; ++i) body(device.peripheral, i, Peripherals::Place{slave, first + i});
        report_mdio(device);
        return VX_SUCCESS;
    });
}

vx_status_e switch_mdio(const char *function, vx_dev_id_t dev_id, bool enable) noexcept {
    return on_device(function, dev_id, {}, [&](Device &device) { device.peripheral.mdio_enabled = enable; });
}

template <typename Body>
vx_status_e on_spi_line(const char *function, vx_dev_id_t dev_id, vx_uint8 line_id,
                        std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        auto &lines = device.peripheral.spi_lines;
        if (!is_in_range(line_id, 0, static_cast<int>(lines.size()) - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        return run(body, device, lines[line_id]);
    });
}

/* What an SPI transfer does: its direction, and whether it is one of data or of a byte. */
enum class Spi { write, read, write_byte, read_byte };

template <typename Body>
vx_status_e on_spi_transfer(const char *function, vx_dev_id_t dev_id, vx_uint8 line_id, const void *data, Spi transfer,
                            Body body) noexcept {
    return on_spi_line(function, dev_id, line_id, {data}, [&](Device &device, Peripherals::SpiLine &line) {
        const bool reads = transfer == Spi::read || transfer == Spi::read_byte;
        const bool needs_cfg = transfer == Spi::write || transfer == Spi::read;
        if (!device.peripheral.spi_enabled.value_or(device.config.enbl_ssp != FALSE)) return VX_ERR_DEV_STATE_INVALID;
        if (needs_cfg && !line.cfg) return VX_ERR_DEV_STATE_INVALID;
        if (const vx_status_e refused = run(body, line)) return refused;
        if (!device.peripheral.spi_interrupt) return VX_SUCCESS;
        raise_event(device, {reads ? VX_EVENT_SPI_INTR_OP_DONE : VX_EVENT_SPI_INTR_WR_DONE, 0, 0}, {});
        return VX_SUCCESS;
    });
}

/* The part of a word of a transfer that lies within its first `bits` bits. */
vx_uint32 cut(vx_uint32 word, unsigned index, unsigned bits) {
    const unsigned before = 32 * index;
    if (bits <= before) return 0;
    return bits - before >= 32 ? word : word & ((vx_uint32{1} << (bits - before)) - 1);
}

vx_uint32 time_left(const Timer &timer, Clock::Time now) {
    if (timer.status != LMQ_TIMER_STATUS_ENABLED) return timer.left;
    const auto elapsed = static_cast<std::uint64_t>((now - timer.since).count());
    if (elapsed < timer.left) return static_cast<vx_uint32>(timer.left - elapsed);
    if (timer.cfg.mode == LMQ_TIMER_MODE_ROLLOVER) return static_cast<vx_uint32>(timer.left - elapsed);
    return static_cast<vx_uint32>(timer.cfg.timer_val - (elapsed - timer.left) % timer.cfg.timer_val);
}

/* How often a timer has expired since it was started. */
std::uint64_t expiries(const Timer &timer, Clock::Time now) {
    if (timer.status != LMQ_TIMER_STATUS_ENABLED) return 0;
    const auto elapsed = static_cast<std::uint64_t>((now - timer.since).count());
    if (elapsed < timer.left) return 0;
    const std::uint64_t period =
        timer.cfg.mode == LMQ_TIMER_MODE_ROLLOVER ? std::uint64_t{UINT32_MAX} + 1 : timer.cfg.timer_val;
    return 1 + (elapsed - timer.left) / period;
}

template <typename Body>
vx_status_e on_timer(const char *function, vx_dev_id_t dev_id, vx_uint16 timer_id,
                     std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (!is_in_range(timer_id, 0, VX_TIMER_ID_MAX - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        return run(body, device.peripheral.timers[timer_id], device.system.clock.now());
    });
}

[[nodiscard]] vx_status_e need_set(const Timer &timer) {
    if (timer.status == LMQ_TIMER_STATUS_INACTIVE || timer.status == LMQ_TIMER_STATUS_DISABLED)
        return VX_ERR_GLBL_INVALID_OP;
    return VX_SUCCESS;
}

template <typename Body>
vx_status_e on_led(const char *function, vx_dev_id_t dev_id, vx_uint8 led_id,
                   std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (!is_in_range(led_id, 0, LMQ_LED_ID_MAX - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        return run(body, device.peripheral.leds[led_id]);
    });
}

}  // namespace

void pass_time(Device &device, Peripherals &peripherals) {
    look_at_pins(device);
    for (std::size_t id = 0; id < peripherals.timers.size(); ++id) {
        Timer &timer = peripherals.timers[id];
        const std::uint64_t expired = expiries(timer, device.system.clock.now());
        if (expired > timer.expired) {
            lmq_event_data_u data{};
            data.tmr_data.timer_id = static_cast<vx_uint16>(id);
            raise_event(device, {VX_EVENT_TMR_EXPIRED, 0, 0}, data);
        }
        timer.expired = expired;
    }
}

void reset(Device &device, Peripherals &peripherals) {
    peripherals.pins.active = peripherals.pins.latched = 0;
    end_event(device, {VX_EVENT_GPIO_INTR, 0, 0});
    for (Timer &timer : peripherals.timers) {
        timer.left = time_left(timer, device.system.clock.now());
        if (timer.status == LMQ_TIMER_STATUS_ENABLED) timer.status = LMQ_TIMER_STATUS_STOPPED;
    }
    for (Peripherals::SpiLine &line : peripherals.spi_lines) {
        line.data = {};
        line.byte = 0;
    }
}

vx_status_e check_mdio(vx_uint8 slave, vx_uint8 first, vx_uint8 count) {
    if (!is_in_range(slave, 0, 31) || !is_in_range(first, 0, 31) || !is_in_range(count, 1, 32 - first))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

void report_mdio(Device &device) { raise_event(device, {VX_EVENT_MDIO_INTR_OP_DONE, 0, 0}, {}); }

Peripherals::Pins::Pins(const lmq_gpio_startup_cfg_s &start) {
    for (std::size_t id = 0; id < pin.size(); ++id) {
        const auto has = [&](vx_uint32 map) { return ((map >> id) & 1) != 0; };
        if (!has(start.gpio_valid_pins)) continue;
        vx_gpio_cfg_t &cfg = pin[id].cfg;
        if (has(start.gpio_dir)) {
            cfg.direction = VX_GPIO_DIR_OUTPUT;
            pin[id].driven = has(start.gpio_output_val);
        } else if (has(start.gpio_intr_pins)) {
            cfg = {.direction = VX_GPIO_DIR_INTR,
                   .intr_level = as_boolean(has(start.gpio_intr_lvl)),
                   .intr_edge = 0,
                   .intr_en = 1};
        }
    }
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_gpio_set(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_gpio_cfg_t *p_cfg) {
    return on_pin(__func__, dev_id, gpio_id, {p_cfg}, [&](Device &, Pin &pin) {
        if (!is_in_range(p_cfg->direction, VX_GPIO_DIR_OUTPUT, VX_GPIO_DIR_INTR)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        for (vx_uint8 flag : {p_cfg->intr_level, p_cfg->intr_edge, p_cfg->intr_en}) {
            if (!is_in_range(flag, 0, 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        }
        if (p_cfg->direction != VX_GPIO_DIR_OUTPUT) pin.rollover.reset();
        pin.cfg = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpio_get(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_gpio_cfg_t *p_cfg) {
    return on_pin(__func__, dev_id, gpio_id, {p_cfg}, [&](Device &, Pin &pin) { *p_cfg = pin.cfg; });
}

vx_status_e vx_gpio_write(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint8 data) {
    return on_pin(__func__, dev_id, gpio_id, {}, [&](Device &, Pin &pin) {
        if (const vx_status_e refused = need_direction(pin, VX_GPIO_DIR_OUTPUT)) return refused;
        if (!is_in_range(data, 0, 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        pin.rollover.reset();
        pin.driven = data != 0;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpio_read(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint8 *p_data) {
    return on_pin(__func__, dev_id, gpio_id, {p_data}, [&](Device &device, Pin &) {
        *p_data = as_boolean(level(device.peripheral.pins, gpio_id, device.system.clock.now()));
    });
}

vx_status_e vx_gpio_rollover_set(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_boolean enable, vx_uint32 interval) {
    return on_pin(__func__, dev_id, gpio_id, {}, [&](Device &device, Pin &pin) {
        if (const vx_status_e refused = need_direction(pin, VX_GPIO_DIR_OUTPUT)) return refused;
        const Clock::Time now = device.system.clock.now();
        if (enable && !is_in_range(interval, 1, UINT32_MAX)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        pin.driven = driven_level(pin, now);
        pin.rollover.reset();
        if (enable) pin.rollover = {.since = now, .interval = Clock::Time{VX_GPIO_ROLLOVER_UNIT} * interval};
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpio_intr_enable(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_boolean enable) {
    return on_pin(__func__, dev_id, gpio_id, {}, [&](Device &, Pin &pin) {
        if (const vx_status_e refused = need_direction(pin, VX_GPIO_DIR_INTR)) return refused;
        pin.cfg.intr_en = as_boolean(enable);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_gpio_intr_active_status(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 *p_intr_status) {
    return on_pin_group(__func__, dev_id, gpio_id, {p_intr_status},
                        [&](Device &, Pins &pins) { *p_intr_status = pins.active; });
}

vx_status_e lmq_get_gpio_intr_latched_status(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 *p_intr_status) {
    return on_pin_group(__func__, dev_id, gpio_id, {p_intr_status},
                        [&](Device &, Pins &pins) { *p_intr_status = pins.latched; });
}

vx_status_e lmq_clear_gpio_intr(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 intr_bits) {
    return on_pin_group(__func__, dev_id, gpio_id, {}, [&](Device &device, Pins &pins) {
        pins.latched &= ~intr_bits;
        pins.active &= ~intr_bits;
        for (std::size_t id = 0; id < pins.pin.size(); ++id) {
            if ((intr_bits >> id) & 1) pins.pin[id].cfg.intr_en = 0;
        }
        if (pins.latched == 0) end_event(device, {VX_EVENT_GPIO_INTR, 0, 0});
    });
}

vx_status_e lmq_dump_gpio_db(vx_dev_id_t dev_id, vx_uint8 gpio_id) {
    return on_pin(__func__, dev_id, gpio_id, {}, [&](Device &device, Pin &pin) {
        static constexpr const char *direction_names[] = {"output", "input", "interrupt"};
        std::fprintf(stderr, "gpio %u: %s, level %u, intr_level %u, intr_edge %u, intr_en %u\n", unsigned{gpio_id},
                     direction_names[pin.cfg.direction],
                     unsigned{level(device.peripheral.pins, gpio_id, device.system.clock.now())},
                     unsigned{pin.cfg.intr_level}, unsigned{pin.cfg.intr_edge}, unsigned{pin.cfg.intr_en});
    });
}

vx_status_e vx_i2c_enable_set(vx_dev_id_t dev_id, vx_boolean enable, vx_uint16 speed) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (enable && !is_in_range(speed, 1, greatest_i2c_speed)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.peripheral.i2c_enabled = enable != FALSE;
        return VX_SUCCESS;
    });
}

vx_status_e vx_i2c_write(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 slave_offset, vx_uint16 data_len,
                         vx_uint8 *p_tx_data) {
    return on_i2c(__func__, dev_id, slave_addr, slave_offset, data_len, p_tx_data,
                  [&](Peripherals &state, unsigned i, auto place) { state.i2c_bytes.set(place, p_tx_data[i]); });
}

vx_status_e vx_i2c_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 slave_offset, vx_uint16 data_len,
                        vx_uint8 *p_rx_data) {
    return on_i2c(__func__, dev_id, slave_addr, slave_offset, data_len, p_rx_data,
                  [&](Peripherals &state, unsigned i, auto place) { p_rx_data[i] = state.i2c_bytes.get(place); });
}

vx_status_e vx_spi_enable_set(vx_dev_id_t dev_id, vx_boolean enable, vx_boolean int_en) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        device.peripheral.spi_enabled = enable != FALSE;
        device.peripheral.spi_interrupt = int_en != FALSE;
    });
}

vx_status_e vx_spi_set(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_cfg_t *p_cfg) {
    return on_spi_line(__func__, dev_id, line_id, {p_cfg}, [&](Device &, Peripherals::SpiLine &line) {
        if (!is_in_range(p_cfg->mode, LMQ_SPI_MODE_SPI, LMQ_SPI_MODE_MICROWIRE) ||
            !is_in_range(p_cfg->cmd_length, 0, spi_command_bits) ||
            !is_in_range(p_cfg->data_length, 0, spi_data_bits) || !is_in_range(p_cfg->ssp_mode, 0, 3))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        line.cfg = *p_cfg;
        line.cfg->enbl_command_cyc = as_boolean(p_cfg->enbl_command_cyc);
        return VX_SUCCESS;
    });
}

vx_status_e vx_spi_get(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_cfg_t *p_cfg) {
    return on_spi_line(__func__, dev_id, line_id, {p_cfg}, [&](Device &device, Peripherals::SpiLine &line) {
        vx_spi_cfg_t initial{};
        initial.speed = device.config.spi_speed;
        *p_cfg = line.cfg.value_or(initial);
    });
}

vx_status_e vx_spi_write(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_data_t *p_write_data) {
    return on_spi_transfer(__func__, dev_id, line_id, p_write_data, Spi::write, [&](Peripherals::SpiLine &line) {
        std::copy_n(p_write_data->data, line.data.size(), line.data.begin());
    });
}

vx_status_e vx_spi_read(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_data_t *p_read_data) {
    return on_spi_transfer(__func__, dev_id, line_id, p_read_data, Spi::read, [&](Peripherals::SpiLine &line) {
        for (unsigned i = 0; i < line.data.size(); ++i) {
            p_read_data->data[i] = cut(line.data[i], i, line.cfg->data_length);
        }
    });
}

vx_status_e vx_spi_byte_write(vx_dev_id_t dev_id, vx_uint8 line_id, vx_uint8 byte) {
    return on_spi_transfer(__func__, dev_id, line_id, &byte, Spi::write_byte,
                           [&](Peripherals::SpiLine &line) { line.byte = byte; });
}

vx_status_e vx_spi_byte_read(vx_dev_id_t dev_id, vx_uint8 line_id, vx_uint8 *p_byte) {
    return on_spi_transfer(__func__, dev_id, line_id, p_byte, Spi::read_byte,
                           [&](Peripherals::SpiLine &line) { *p_byte = line.byte; });
}

vx_status_e lmq_enable_mdio(vx_dev_id_t dev_id) { return switch_mdio(__func__, dev_id, true); }

vx_status_e lmq_disable_mdio(vx_dev_id_t dev_id) { return switch_mdio(__func__, dev_id, false); }

vx_status_e vx_mdio_speed_set(vx_dev_id_t dev_id, vx_uint16 speed) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (!is_in_range(speed, 1, UINT16_MAX)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.peripheral.mdio_speed = speed;
        return VX_SUCCESS;
    });
}

vx_status_e vx_mdio_speed_get(vx_dev_id_t dev_id, vx_uint16 *p_speed) {
    return on_device(__func__, dev_id, {p_speed}, [&](Device &device) { *p_speed = device.peripheral.mdio_speed; });
}

vx_status_e vx_mdio_write(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 write_cnt,
                          vx_uint16 *p_write_data) {
    return on_mdio(
        __func__, dev_id, slave_addr, register_addr, write_cnt, p_write_data,
        [&](Peripherals &state, unsigned i, auto place) { state.mdio_registers.set(place, p_write_data[i]); });
}

vx_status_e vx_mdio_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 read_cnt,
                         vx_uint16 *p_read_data) {
    return on_mdio(
        __func__, dev_id, slave_addr, register_addr, read_cnt, p_read_data,
        [&](Peripherals &state, unsigned i, auto place) { p_read_data[i] = state.mdio_registers.get(place); });
}

vx_status_e vx_timer_set(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_timer_cfg_t *p_cfg) {
    return on_timer(__func__, dev_id, timer_id, {p_cfg}, [&](Timer &timer, Clock::Time) {
        if (!is_in_range(p_cfg->mode, LMQ_TIMER_MODE_DISABLE, LMQ_TIMER_MODE_ROLLOVER))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const bool disable = p_cfg->mode == LMQ_TIMER_MODE_DISABLE;
        if (!disable && !is_in_range(p_cfg->timer_val, 1, UINT32_MAX)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        timer = {.cfg = *p_cfg,
                 .status = disable ? LMQ_TIMER_STATUS_DISABLED : LMQ_TIMER_STATUS_STOPPED,
                 .left = p_cfg->timer_val,
                 .since = {},
                 .expired = 0};
        return VX_SUCCESS;
    });
}

vx_status_e vx_timer_get(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_timer_status_t *p_stat) {
    return on_timer(__func__, dev_id, timer_id, {p_stat}, [&](Timer &timer, Clock::Time now) {
        *p_stat = {.status = timer.status,
                   .mode = timer.cfg.mode,
                   .timer_val = timer.cfg.timer_val,
                   .cur_time = time_left(timer, now)};
    });
}

vx_status_e vx_timer_start(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_boolean reload) {
    return on_timer(__func__, dev_id, timer_id, {}, [&](Timer &timer, Clock::Time now) {
        if (const vx_status_e refused = need_set(timer)) return refused;
        timer.left = reload ? timer.cfg.timer_val : time_left(timer, now);
        timer.since = now;
        timer.expired = 0;
        timer.status = LMQ_TIMER_STATUS_ENABLED;
        return VX_SUCCESS;
    });
}

vx_status_e vx_timer_stop(vx_dev_id_t dev_id, vx_uint16 timer_id) {
    return on_timer(__func__, dev_id, timer_id, {}, [&](Timer &timer, Clock::Time now) {
        if (const vx_status_e refused = need_set(timer)) return refused;
        timer.left = time_left(timer, now);
        timer.status = LMQ_TIMER_STATUS_STOPPED;
        return VX_SUCCESS;
    });
}

vx_status_e vx_led_set(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_cfg_t *p_cfg) {
    return on_led(__func__, dev_id, led_id, {p_cfg}, [&](Peripherals::Led &led) {
        if (!is_in_range(p_cfg->led_type, LMQ_LED_TYPE_DISABLE, LMQ_LED_TYPE_BI_COLOR))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        led = {.cfg = *p_cfg, .mode = LMQ_LED_MODE_OFF};
        return VX_SUCCESS;
    });
}

vx_status_e vx_led_get(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_cfg_t *p_cfg) {
    return on_led(__func__, dev_id, led_id, {p_cfg}, [&](Peripherals::Led &led) { *p_cfg = led.cfg; });
}

vx_status_e vx_led_trigger(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_mode_e mode) {
    return on_led(__func__, dev_id, led_id, {}, [&](Peripherals::Led &led) {
        if (!is_in_range(mode, LMQ_LED_MODE_OFF, LMQ_LED_MODE_BLINK)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const bool colour = mode == LMQ_LED_MODE_COLOR1 || mode == LMQ_LED_MODE_COLOR2;
        if (colour && led.cfg.led_type != LMQ_LED_TYPE_BI_COLOR) return VX_ERR_GLBL_INVALID_OP;
        led.mode = mode;
        return VX_SUCCESS;
    });
}

vx_status_e vx_led_status_get(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_mode_e *p_mode) {
    return on_led(__func__, dev_id, led_id, {p_mode}, [&](Peripherals::Led &led) { *p_mode = led.mode; });
}

}  // extern "C"
