// What a device keeps of its low-speed peripherals: pins, serial buses, timers and LEDs.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <utility>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Peripherals {
    explicit Peripherals(const lmq_gpio_startup_cfg_s &start) : pins(start) {}

    /// A pin that changes its level by itself.
    struct Rollover {
        Clock::Time since;
        Clock::Time interval;
    };

    struct Pin {
        vx_gpio_cfg_t cfg{.direction = VX_GPIO_DIR_INPUT, .intr_level = 0, .intr_edge = 0, .intr_en = 0};
        bool driven = false;  ///< Level that an output is driven to, at the beginning of a rollover.
        std::optional<Rollover> rollover;
    };

    struct Pins {
        explicit Pins(const lmq_gpio_startup_cfg_s &start);

        std::array<Pin, LMQ_GPIO_ID_MAX> pin;
        vx_uint32 active = 0;  ///< Interrupts when the pins were looked at last; bit n is pin n.
        vx_uint32 latched = 0;
    };
    Pins pins;

    using Place = std::pair<vx_uint8, vx_uint8>;  ///< Slave, and register or offset in it.

    std::optional<bool> i2c_enabled;  ///< Without a value as the start configuration says; SPI alike.
    Setting<Place, vx_uint8> i2c_bytes;

    bool mdio_enabled = false;
    vx_uint16 mdio_speed = 2500;               ///< In kHz, as IEEE 802.3 knows it.
    Setting<Place, vx_uint16> mdio_registers;  ///< Those of the Ethernet PHYs among them.

    struct SpiLine {
        std::optional<vx_spi_cfg_t> cfg;
        std::array<vx_uint32, 2> data{};  ///< What was written last.
        vx_uint8 byte = 0;
    };
    std::optional<bool> spi_enabled;
    bool spi_interrupt = false;
    std::array<SpiLine, 3> spi_lines;

    struct Timer {
        vx_timer_cfg_t cfg{};
        lmq_timer_status_e status = LMQ_TIMER_STATUS_INACTIVE;
        vx_uint32 left = 0;         ///< Milliseconds when it was started, or stopped.
        Clock::Time since{};        ///< When it was started.
        std::uint64_t expired = 0;  ///< How often it has expired since, as far as it was noticed.
    };
    std::array<Timer, VX_TIMER_ID_MAX> timers;

    struct Led {
        vx_led_cfg_t cfg{LMQ_LED_TYPE_DISABLE, 0, 0, 0, 0, 0, 0, 0, 0};
        vx_led_mode_e mode = LMQ_LED_MODE_OFF;
    };
    std::array<Led, LMQ_LED_ID_MAX> leds;
};

struct Device;

/// Raises the events of pins and timers that have come since the last call.
void pass_time(Device &device, Peripherals &peripherals);

/// Resets the blocks: interrupts of pins are cleared, timers stop, SPI lines forget what was written.
void reset(Device &device, Peripherals &peripherals);

/// Refuses registers that an MDIO slave does not have: `count` of them, from `first`.
[[nodiscard]] vx_status_e check_mdio(vx_uint8 slave, vx_uint8 first, vx_uint8 count);

/// Tells that an operation of the MDIO bus is done.
void report_mdio(Device &device);

}  // namespace lmq::sim
