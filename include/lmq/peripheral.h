/**
 * @file
 * @brief Low-speed peripherals.
 */
#ifndef LMQ_PERIPHERAL_H
#define LMQ_PERIPHERAL_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_GPIO_ID_MAX 32
#define VX_GPIO_ROLLOVER_UNIT 10
#define LMQ_LED_ID_MAX 6
#define VX_TIMER_ID_MAX 5

typedef enum lmq_timer_id_e LMQ_ENUM_INT {
    LMQ_TMR_ID1 = 0,
    LMQ_TMR_ID2 = 1,
    LMQ_TMR_ID3 = 2,
    LMQ_TMR_ID4 = 3,
    LMQ_TMR_ID5 = 4,
} lmq_timer_id_e;

typedef enum vx_led_mode_e LMQ_ENUM_INT {
    LMQ_LED_MODE_OFF = 1,
    LMQ_LED_MODE_ON = 1,
    LMQ_LED_MODE_COLOR1 = 2,
    LMQ_LED_MODE_COLOR2 = 3,
    LMQ_LED_MODE_BLINK = 4,
} vx_led_mode_e;

typedef enum lmq_timer_mode_e LMQ_ENUM_INT {
    LMQ_TIMER_MODE_DISABLE = 0,
    LMQ_TIMER_MODE_RELOAD = 1,
    LMQ_TIMER_MODE_ROLLOVER = 2,
} lmq_timer_mode_e;

typedef enum lmq_spi_mode_e LMQ_ENUM_INT {
    LMQ_SPI_MODE_SPI = 0,
    LMQ_SPI_MODE_MICROWIRE = 1,
} lmq_spi_mode_e;

typedef enum vx_gpio_dir_e LMQ_ENUM_INT {
    VX_GPIO_DIR_OUTPUT = 0,
    VX_GPIO_DIR_INPUT = 1,
    VX_GPIO_DIR_INTR = 2,
    VX_GPIO_DIR_MAX = 3,
} vx_gpio_dir_e;

typedef enum vx_led_type_e LMQ_ENUM_INT {
    LMQ_LED_TYPE_DISABLE = 1,
    LMQ_LED_TYPE_ETH_ACTIVITY = 1,
    LMQ_LED_TYPE_SINGLE_COLOR = 2,
    LMQ_LED_TYPE_BI_COLOR = 3,
} vx_led_type_e;

typedef enum lmq_timer_status_e LMQ_ENUM_INT {
    LMQ_TIMER_STATUS_INACTIVE = 0,
    LMQ_TIMER_STATUS_DISABLED = 1,
    LMQ_TIMER_STATUS_ENABLED = 2,
    LMQ_TIMER_STATUS_STOPPED = 3,
} lmq_timer_status_e;

typedef struct {
    vx_gpio_dir_e direction;
    vx_uint8 intr_level;
    vx_uint8 intr_edge;
    vx_uint8 intr_en;
} vx_gpio_cfg_t;

typedef struct {
    lmq_spi_mode_e mode;
    vx_uint16 speed;
    vx_uint8 cmd_length;
    vx_uint8 data_length;
    vx_boolean enbl_command_cyc;
    vx_uint8 ssp_mode;
} vx_spi_cfg_t;

typedef struct {
    vx_uint32 cmd[3];
    vx_uint32 data[2];
} vx_spi_data_t;

typedef struct {
    vx_uint32 timer_val;
    lmq_timer_mode_e mode;
} vx_timer_cfg_t;

typedef struct {
    lmq_timer_status_e status;
    lmq_timer_mode_e mode;
    vx_uint32 timer_val;
    vx_uint32 cur_time;
} vx_timer_status_t;

typedef struct {
    vx_led_type_e led_type;
    vx_uint32 on_val;
    vx_uint32 off_val;
    vx_uint32 color1_val;
    vx_uint32 color2_val;
    vx_uint32 blink_on_val;
    vx_uint32 blink_off_val;
    vx_uint32 blink_on_time;
    vx_uint32 blink_off_time;
} vx_led_cfg_t;

vx_status_e vx_led_get(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_cfg_t *p_cfg);

vx_status_e lmq_disable_mdio(vx_dev_id_t dev_id);

vx_status_e vx_timer_start(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_boolean reload);

vx_status_e vx_mdio_write(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 write_cnt, vx_uint16 *p_write_data);

vx_status_e vx_timer_get(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_timer_status_t *p_stat);

vx_status_e vx_i2c_enable_set(vx_dev_id_t dev_id, vx_boolean enable, vx_uint16 speed);

vx_status_e lmq_get_gpio_intr_latched_status(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 *p_intr_status);

vx_status_e vx_spi_enable_set(vx_dev_id_t dev_id, vx_boolean enable, vx_boolean int_en);

vx_status_e vx_spi_write(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_data_t *p_write_data);

vx_status_e vx_mdio_speed_set(vx_dev_id_t dev_id, vx_uint16 speed);

vx_status_e vx_mdio_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 read_cnt, vx_uint16 *p_read_data);

vx_status_e vx_spi_read(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_data_t *p_read_data);

vx_status_e vx_timer_stop(vx_dev_id_t dev_id, vx_uint16 timer_id);

vx_status_e lmq_get_gpio_intr_active_status(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 *p_intr_status);

vx_status_e vx_gpio_write(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint8 data);

vx_status_e lmq_enable_mdio(vx_dev_id_t dev_id);

vx_status_e vx_i2c_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 slave_offset, vx_uint16 data_len, vx_uint8 *p_rx_data);

vx_status_e vx_led_set(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_cfg_t *p_cfg);

vx_status_e vx_gpio_read(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint8 *p_data);

vx_status_e vx_led_status_get(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_mode_e *p_mode);

vx_status_e vx_spi_set(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_cfg_t *p_cfg);

vx_status_e vx_gpio_intr_enable(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_boolean enable);

vx_status_e vx_i2c_write(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 slave_offset, vx_uint16 data_len, vx_uint8 *p_tx_data);

vx_status_e vx_led_trigger(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_mode_e mode);

vx_status_e vx_gpio_rollover_set(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_boolean enable, vx_uint32 interval);

vx_status_e vx_spi_byte_write(vx_dev_id_t dev_id, vx_uint8 line_id, vx_uint8 byte);

vx_status_e lmq_dump_gpio_db(vx_dev_id_t dev_id, vx_uint8 gpio_id);

vx_status_e vx_gpio_get(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_gpio_cfg_t *p_cfg);

vx_status_e vx_spi_byte_read(vx_dev_id_t dev_id, vx_uint8 line_id, vx_uint8 *p_byte);

vx_status_e vx_spi_get(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_cfg_t *p_cfg);

vx_status_e vx_gpio_set(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_gpio_cfg_t *p_cfg);

vx_status_e vx_timer_set(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_timer_cfg_t *p_cfg);

vx_status_e lmq_clear_gpio_intr(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 intr_bits);

vx_status_e vx_mdio_speed_get(vx_dev_id_t dev_id, vx_uint16 *p_speed);

#ifdef __cplusplus
}
#endif

#endif
