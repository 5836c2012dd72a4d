// Timers, pins, LEDs and the serial buses.
#include "driver/peripheral.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_led_get(vx_dev_id_t, vx_uint8, vx_led_cfg_t *) { return kNotModelled; }
vx_status_e lmq_disable_mdio(vx_dev_id_t) { return kNotModelled; }
vx_status_e vx_timer_start(vx_dev_id_t, vx_uint16, vx_boolean) { return kNotModelled; }
vx_status_e vx_mdio_write(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint8, vx_uint16 *) { return kNotModelled; }
vx_status_e vx_timer_get(vx_dev_id_t, vx_uint16, vx_timer_status_t *) { return kNotModelled; }
vx_status_e vx_i2c_enable_set(vx_dev_id_t, vx_boolean, vx_uint16) { return kNotModelled; }
vx_status_e lmq_get_gpio_intr_latched_status(vx_dev_id_t, vx_uint8, vx_uint32 *) { return kNotModelled; }
vx_status_e vx_spi_enable_set(vx_dev_id_t, vx_boolean, vx_boolean) { return kNotModelled; }
vx_status_e vx_spi_write(vx_dev_id_t, vx_uint8, vx_spi_data_t *) { return kNotModelled; }
vx_status_e vx_mdio_speed_set(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_mdio_read(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint8, vx_uint16 *) { return kNotModelled; }
vx_status_e vx_spi_read(vx_dev_id_t, vx_uint8, vx_spi_data_t *) { return kNotModelled; }
vx_status_e vx_timer_stop(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e lmq_get_gpio_intr_active_status(vx_dev_id_t, vx_uint8, vx_uint32 *) { return kNotModelled; }
vx_status_e vx_gpio_write(vx_dev_id_t, vx_uint8, vx_uint8) { return kNotModelled; }
vx_status_e lmq_enable_mdio(vx_dev_id_t) { return kNotModelled; }
vx_status_e vx_i2c_read(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint16, vx_uint8 *) { return kNotModelled; }
vx_status_e vx_led_set(vx_dev_id_t, vx_uint8, vx_led_cfg_t *) { return kNotModelled; }
vx_status_e vx_gpio_read(vx_dev_id_t, vx_uint8, vx_uint8 *) { return kNotModelled; }
vx_status_e vx_led_status_get(vx_dev_id_t, vx_uint8, vx_led_mode_e *) { return kNotModelled; }
vx_status_e vx_spi_set(vx_dev_id_t, vx_uint8, vx_spi_cfg_t *) { return kNotModelled; }
vx_status_e vx_gpio_intr_enable(vx_dev_id_t, vx_uint8, vx_boolean) { return kNotModelled; }
vx_status_e vx_i2c_write(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint16, vx_uint8 *) { return kNotModelled; }
vx_status_e vx_led_trigger(vx_dev_id_t, vx_uint8, vx_led_mode_e) { return kNotModelled; }
vx_status_e vx_gpio_rollover_set(vx_dev_id_t, vx_uint8, vx_boolean, vx_uint32) { return kNotModelled; }
vx_status_e vx_spi_byte_write(vx_dev_id_t, vx_uint8, vx_uint8) { return kNotModelled; }
vx_status_e lmq_dump_gpio_db(vx_dev_id_t, vx_uint8) { return kNotModelled; }
vx_status_e vx_gpio_get(vx_dev_id_t, vx_uint8, vx_gpio_cfg_t *) { return kNotModelled; }
vx_status_e vx_spi_byte_read(vx_dev_id_t, vx_uint8, vx_uint8 *) { return kNotModelled; }
vx_status_e vx_spi_get(vx_dev_id_t, vx_uint8, vx_spi_cfg_t *) { return kNotModelled; }
vx_status_e vx_gpio_set(vx_dev_id_t, vx_uint8, vx_gpio_cfg_t *) { return kNotModelled; }
vx_status_e vx_timer_set(vx_dev_id_t, vx_uint16, vx_timer_cfg_t *) { return kNotModelled; }
vx_status_e lmq_clear_gpio_intr(vx_dev_id_t, vx_uint8, vx_uint32) { return kNotModelled; }
vx_status_e vx_mdio_speed_get(vx_dev_id_t, vx_uint16 *) { return kNotModelled; }
