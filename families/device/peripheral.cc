// Low-speed peripherals: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
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

METHOD(vx_led_get, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), UDT_PTR(vx_led_cfg_t, p_cfg))
METHOD(lmq_disable_mdio, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(vx_timer_start, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id), VALUE(vx_boolean, reload))
METHOD(vx_mdio_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, register_addr), VALUE(vx_uint8, write_cnt), ELEMENT_PTR(vx_uint16, p_write_data))
METHOD(vx_timer_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id), UDT_PTR(vx_timer_status_t, p_stat))
METHOD(vx_i2c_enable_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable), VALUE(vx_uint16, speed))
METHOD(lmq_get_gpio_intr_latched_status, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), ELEMENT_PTR(vx_uint32, p_intr_status))
METHOD(vx_spi_enable_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_boolean, enable), VALUE(vx_boolean, int_en))
METHOD(vx_spi_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_data_t, p_write_data))
METHOD(vx_mdio_speed_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, speed))
METHOD(vx_mdio_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, register_addr), VALUE(vx_uint8, read_cnt), ELEMENT_PTR(vx_uint16, p_read_data))
METHOD(vx_spi_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_data_t, p_read_data))
METHOD(vx_timer_stop, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id))
METHOD(lmq_get_gpio_intr_active_status, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), ELEMENT_PTR(vx_uint32, p_intr_status))
METHOD(vx_gpio_write, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_uint8, data))
METHOD(lmq_enable_mdio, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(vx_i2c_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, slave_offset), VALUE(vx_uint16, data_len), ELEMENT_PTR(vx_uint8, p_rx_data))
METHOD(vx_led_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), UDT_PTR(vx_led_cfg_t, p_cfg))
METHOD(vx_gpio_read, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), ELEMENT_PTR(vx_uint8, p_data))
METHOD(vx_led_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), ELEMENT_PTR(vx_led_mode_e, p_mode))
METHOD(vx_spi_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_cfg_t, p_cfg))
METHOD(vx_gpio_intr_enable, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_boolean, enable))
METHOD(vx_i2c_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, slave_addr), VALUE(vx_uint8, slave_offset), VALUE(vx_uint16, data_len), ELEMENT_PTR(vx_uint8, p_tx_data))
METHOD(vx_led_trigger, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, led_id), VALUE(vx_led_mode_e, mode))
METHOD(vx_gpio_rollover_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_boolean, enable), VALUE(vx_uint32, interval))
METHOD(vx_spi_byte_write, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), VALUE(vx_uint8, byte))
METHOD(lmq_dump_gpio_db, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id))
METHOD(vx_gpio_get, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), UDT_PTR(vx_gpio_cfg_t, p_cfg))
METHOD(vx_spi_byte_read, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), ELEMENT_PTR(vx_uint8, p_byte))
METHOD(vx_spi_get, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, line_id), UDT_PTR(vx_spi_cfg_t, p_cfg))
METHOD(vx_gpio_set, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), UDT_PTR(vx_gpio_cfg_t, p_cfg))
METHOD(vx_timer_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, timer_id), UDT_PTR(vx_timer_cfg_t, p_cfg))
METHOD(lmq_clear_gpio_intr, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, gpio_id), VALUE(vx_uint32, intr_bits))
METHOD(vx_mdio_speed_get, no_help, VALUE(vx_dev_id_t, dev_id), ELEMENT_PTR(vx_uint16, p_speed))

} // namespace lmq
