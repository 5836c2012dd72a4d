// Low-speed peripherals (GPIO, I2C, SPI, MDIO, timers, LEDs): UDTs, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/peripheral.h"

namespace lmq {

UDT(vx_gpio_cfg_t,
    SCALAR(vx_gpio_dir_e, direction),
    SCALAR(vx_uint8,      intr_level),
    SCALAR(vx_uint8,      intr_edge),
    SCALAR(vx_uint8,      intr_en))

UDT(vx_spi_cfg_t,
    SCALAR(lmq_spi_mode_e, mode),
    SCALAR(vx_uint16,      speed),
    SCALAR(vx_uint8,       cmd_length),
    SCALAR(vx_uint8,       data_length),
    SCALAR(vx_boolean,     enbl_command_cyc),
    SCALAR(vx_uint8,       ssp_mode))

UDT(vx_spi_data_t,
    ELEMENTS(vx_uint32, cmd, 3),
    ELEMENTS(vx_uint32, data, 2))

UDT(vx_timer_cfg_t,
    SCALAR(vx_uint32,        timer_val),
    SCALAR(lmq_timer_mode_e, mode))

UDT(vx_timer_status_t,
    SCALAR(lmq_timer_status_e, status),
    SCALAR(lmq_timer_mode_e,   mode),
    SCALAR(vx_uint32,          timer_val),
    SCALAR(vx_uint32,          cur_time))

UDT(vx_led_cfg_t,
    SCALAR(vx_led_type_e, led_type),
    SCALAR(vx_uint32,     on_val),
    SCALAR(vx_uint32,     off_val),
    SCALAR(vx_uint32,     color1_val),
    SCALAR(vx_uint32,     color2_val),
    SCALAR(vx_uint32,     blink_on_val),
    SCALAR(vx_uint32,     blink_off_val),
    SCALAR(vx_uint32,     blink_on_time),
    SCALAR(vx_uint32,     blink_off_time))

METHOD(vx_gpio_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), UDT_PTR(vx_gpio_cfg_t, p_cfg))
METHOD(vx_gpio_get, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), UDT_PTR(vx_gpio_cfg_t, p_cfg))

METHOD(vx_gpio_write, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_uint8, data))
METHOD(vx_gpio_read, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), ELEMENT_PTR(vx_uint8, p_data))

METHOD(vx_gpio_rollover_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_boolean, enable), VALUE(vx_uint32, interval))

METHOD(vx_gpio_intr_enable, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_boolean, enable))

constexpr Help help_lmq_get_gpio_intr_active_status{
    .title = "Gets Active state of GPIO Interrupts",
    .text = "This API gets the state of the GPIO interrupts that are active now.\n",
    .inputs = "gpio_id       : id of the GPIO group, starting with 0\n"
              "p_intr_status : pointer to the interrupt status\n",
    .outputs = "p_intr_status : status bits: 0 - inactive, 1 - active\n",
};
METHOD(lmq_get_gpio_intr_active_status, help_lmq_get_gpio_intr_active_status,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), ELEMENT_PTR(vx_uint32, p_intr_status))

constexpr Help help_lmq_get_gpio_intr_latched_status{
    .title = "Gets latched state of GPIO Interrupts",
    .text = "This API gets the state of the GPIO interrupts as it was latched.\n",
    .inputs = "gpio_id       : id of the GPIO group, starting with 0\n"
              "p_intr_status : pointer to the interrupt status\n",
    .outputs = "p_intr_status : status bits: 0 - inactive, 1 - active\n",
};
METHOD(lmq_get_gpio_intr_latched_status, help_lmq_get_gpio_intr_latched_status,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), ELEMENT_PTR(vx_uint32, p_intr_status))

constexpr Help help_lmq_clear_gpio_intr{
    .title = "Clear GPIO Interrupt",
    .text = "This API clears latched GPIO interrupts.\n"
            "This API disables interrupt on the specified pins.\n",
    .inputs = "gpio_id   : id of the GPIO group, starting with 0\n"
              "intr_bits : pins, a bit each: 0 - no operation, 1 - clear\n",
};
METHOD(lmq_clear_gpio_intr, help_lmq_clear_gpio_intr,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_uint32, intr_bits))

METHOD(lmq_dump_gpio_db, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id))

constexpr Help help_vx_i2c_enable_set{
    .title = "Enable I2C",
    .text = "This API enables or disables the I2C interface and sets its speed.\n",
    .inputs = "enable : TRUE to enable, FALSE to disable\n"
              "speed  : speed of the bus, in kHz\n",
};
METHOD(vx_i2c_enable_set, help_vx_i2c_enable_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable), VALUE(vx_uint16, speed))

METHOD(vx_i2c_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, slave_offset),
       VALUE(vx_uint16, data_len), ELEMENT_PTR(vx_uint8, p_tx_data))
METHOD(vx_i2c_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, slave_offset),
       VALUE(vx_uint16, data_len), ELEMENT_PTR(vx_uint8, p_rx_data))

constexpr Help help_vx_spi_enable_set{
    .title = "Enable SPI Interface",
    .text = "This API enables or disables the SPI interface.\n",
    .inputs = "enable : TRUE to enable, FALSE to disable\n"
              "int_en : TRUE to enable the interrupt of the interface\n",
};
METHOD(vx_spi_enable_set, help_vx_spi_enable_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable), VALUE(vx_boolean, int_en))

constexpr Help help_vx_spi_set{
    .title = "Configure SPI",
    .text = "This API configures an SPI line.\n",
    .inputs = "line_id : id of the SPI line, which determines the chip select (0-2)\n"
              "p_cfg   : pointer to the SPI configuration\n",
};
METHOD(vx_spi_set, help_vx_spi_set, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_cfg_t, p_cfg))

constexpr Help help_vx_spi_get{
    .title = "Get SPI Configure",
    .text = "This API gets the configuration of an SPI line.\n",
    .inputs = "line_id : id of the SPI line, which determines the chip select (0-2)\n"
              "p_cfg   : pointer to the SPI configuration\n",
    .outputs = "p_cfg : SPI configuration\n",
};
METHOD(vx_spi_get, help_vx_spi_get, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_cfg_t, p_cfg))

constexpr Help help_vx_spi_write{
    .title = "Transmit SPI data",
    .text = "This API transmits the command followed by data. The number of command\n"
            "and data bits comes from vx_spi_set.\n",
    .inputs = "line_id      : id of the SPI line, which determines the chip select (0-2)\n"
              "p_write_data : pointer to the command and the data\n",
};
METHOD(vx_spi_write, help_vx_spi_write,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_data_t, p_write_data))

constexpr Help help_vx_spi_read{
    .title = "Receive SPI data",
    .text = "This API fetches command and data. The number of command and data bits\n"
            "comes from vx_spi_set. The command to be written goes in p_read_data.\n",
    .inputs = "line_id     : id of the SPI line, which determines the chip select (0-2)\n"
              "p_read_data : pointer to the command\n",
    .outputs = "p_read_data : data read\n",
};
METHOD(vx_spi_read, help_vx_spi_read,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_data_t, p_read_data))

// The text documents a read.
constexpr Help help_vx_spi_byte_write{
    .title = "Receive SPI data",
    .text = "This API receives one byte of data.\n",
    .inputs = "line_id : id of the SPI line, which determines the chip select (0-2)\n"
              "byte    : where to put the byte read\n",
};
METHOD(vx_spi_byte_write, help_vx_spi_byte_write,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), VALUE(vx_uint8, byte))

constexpr Help help_vx_spi_byte_read{
    .title = "Receive SPI data",
    .text = "This API receives one byte of data.\n",
    .inputs = "line_id : id of the SPI line, which determines the chip select (0-2)\n"
              "p_byte  : where to put the byte read\n",
    .outputs = "p_byte : byte read\n",
};
METHOD(vx_spi_byte_read, help_vx_spi_byte_read,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), ELEMENT_PTR(vx_uint8, p_byte))

METHOD(lmq_enable_mdio, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_disable_mdio, no_help, VALUE(vx_dev_id_t, dev_id))

METHOD(vx_mdio_speed_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, speed))
METHOD(vx_mdio_speed_get, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_uint16, p_speed))

METHOD(vx_mdio_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, register_addr),
       VALUE(vx_uint8, write_cnt), ELEMENT_PTR(vx_uint16, p_write_data))
METHOD(vx_mdio_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, register_addr),
       VALUE(vx_uint8, read_cnt), ELEMENT_PTR(vx_uint16, p_read_data))

// Title and text are those of a read of an MDIO slave.
constexpr Help help_vx_timer_set{
    .title = "Read MDIO",
    .text = "This API reads registers of an MDIO slave.\n"
            "Application needs to allocate memory for read_data.\n",
    .inputs = "timer_id : timer id, starting with 0\n"
              "p_cfg    : pointer to the timer configuration\n",
};
METHOD(vx_timer_set, help_vx_timer_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id), UDT_PTR(vx_timer_cfg_t, p_cfg))

// What a timer is set to and what it reads are two types.
constexpr Help help_vx_timer_get{
    .title = "timer stat",
    .text = "This API gets the status of a timer.\n",
    .inputs = "timer_id : timer id, starting with 0\n"
              "p_stat   : pointer to the timer status\n",
    .outputs = "p_stat : timer status\n",
};
METHOD(vx_timer_get, help_vx_timer_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id), UDT_PTR(vx_timer_status_t, p_stat))

constexpr Help help_vx_timer_start{
    .title = "Start timer",
    .text = "This API starts a timer with the time left when the timer was stopped.\n",
    .inputs = "timer_id : timer id, starting with 0\n"
              "reload   : TRUE to start with the full time instead\n",
};
METHOD(vx_timer_start, help_vx_timer_start,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id), VALUE(vx_boolean, reload))

constexpr Help help_vx_timer_stop{
    .title = "Stop timer",
    .text = "This API stops the timer so that the event is no longer generated.\n",
    .inputs = "timer_id : timer id, starting with 0\n",
};
METHOD(vx_timer_stop, help_vx_timer_stop, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id))

METHOD(vx_led_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), UDT_PTR(vx_led_cfg_t, p_cfg))
METHOD(vx_led_get, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), UDT_PTR(vx_led_cfg_t, p_cfg))

METHOD(vx_led_trigger, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), VALUE(vx_led_mode_e, mode))
METHOD(vx_led_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), ELEMENT_PTR(vx_led_mode_e, p_mode))

} // namespace lmq
