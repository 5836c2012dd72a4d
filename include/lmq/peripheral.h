/**
 * @file
 * @brief Low-speed peripherals: general purpose pins (GPIO), I2C, SPI, MDIO, hardware timers and LEDs.
 *
 * Speeds of buses are in kHz, times in milliseconds.
 */
#ifndef LMQ_PERIPHERAL_H
#define LMQ_PERIPHERAL_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Sizes */
/** @{ */
#define LMQ_GPIO_ID_MAX 32       /**< Pins: gpio_id of a pin is below. */
#define VX_GPIO_ROLLOVER_UNIT 10 /**< Milliseconds in one unit of the interval of vx_gpio_rollover_set. */
#define LMQ_LED_ID_MAX 6         /**< LEDs: led_id is below. */
#define VX_TIMER_ID_MAX 5        /**< Timers: timer_id is below. */
/** @} */

/** @brief What a pin is. */
typedef enum vx_gpio_dir_e LMQ_ENUM_INT {
    VX_GPIO_DIR_OUTPUT = 0, /**< Its level is driven, by vx_gpio_write or by itself. */
    VX_GPIO_DIR_INPUT = 1,  /**< Its level is read, and no more. */
    VX_GPIO_DIR_INTR = 2,   /**< Input that raises an interrupt. */
    VX_GPIO_DIR_MAX = 3,    /**< How many there are; none itself. */
} vx_gpio_dir_e;

/** @brief Protocol of an SPI line. */
typedef enum lmq_spi_mode_e LMQ_ENUM_INT {
    LMQ_SPI_MODE_SPI = 0,       /**< Data goes both ways at the same time. */
    LMQ_SPI_MODE_MICROWIRE = 1, /**< Microwire: the command goes out before the data comes in. */
} lmq_spi_mode_e;

/** @brief The timers. */
typedef enum lmq_timer_id_e LMQ_ENUM_INT {
    LMQ_TMR_ID1 = 0, /**< The first timer. */
    LMQ_TMR_ID2 = 1, /**< The second timer. */
    LMQ_TMR_ID3 = 2, /**< The third timer. */
    LMQ_TMR_ID4 = 3, /**< The fourth timer. */
    LMQ_TMR_ID5 = 4, /**< The fifth and last timer. */
} lmq_timer_id_e;

/** @brief What a timer does when it has run down. */
typedef enum lmq_timer_mode_e LMQ_ENUM_INT {
    LMQ_TIMER_MODE_DISABLE = 0,  /**< The timer does not run at all. */
    LMQ_TIMER_MODE_RELOAD = 1,   /**< It begins again at timer_val. */
    LMQ_TIMER_MODE_ROLLOVER = 2, /**< It goes on from the greatest value of its 32 bits. */
} lmq_timer_mode_e;

/** @brief State of a timer. */
typedef enum lmq_timer_status_e LMQ_ENUM_INT {
    LMQ_TIMER_STATUS_INACTIVE = 0, /**< Never set. */
    LMQ_TIMER_STATUS_DISABLED = 1, /**< Set with LMQ_TIMER_MODE_DISABLE. */
    LMQ_TIMER_STATUS_ENABLED = 2,  /**< It runs. */
    LMQ_TIMER_STATUS_STOPPED = 3,  /**< It keeps the time left. */
} lmq_timer_status_e;

/** @brief What a LED shows. Off and on are one number: they can be told apart by name alone. */
typedef enum vx_led_mode_e LMQ_ENUM_INT {
    LMQ_LED_MODE_OFF = 1,    /**< Off: off_val is driven. */
    LMQ_LED_MODE_ON = 1,     /**< On: on_val is driven. The same number as LMQ_LED_MODE_OFF. */
    LMQ_LED_MODE_COLOR1 = 2, /**< The first colour, of a LED that has two. */
    LMQ_LED_MODE_COLOR2 = 3, /**< The second colour, of a LED that has two. */
    LMQ_LED_MODE_BLINK = 4,  /**< It blinks. */
} vx_led_mode_e;

/** @brief What a LED is used for. Disabled and Ethernet activity are one number. */
typedef enum vx_led_type_e LMQ_ENUM_INT {
    LMQ_LED_TYPE_DISABLE = 1,      /**< Not used. */
    LMQ_LED_TYPE_ETH_ACTIVITY = 1, /**< It shows traffic of Ethernet ports. The same number as LMQ_LED_TYPE_DISABLE. */
    LMQ_LED_TYPE_SINGLE_COLOR = 2, /**< A LED with one colour. */
    LMQ_LED_TYPE_BI_COLOR = 3,     /**< A LED with two colours. */
} vx_led_type_e;

/** @brief A pin. The last three members are read in direction VX_GPIO_DIR_INTR alone. */
typedef struct {
    vx_gpio_dir_e direction; /**< Input or output. */
    vx_uint8 intr_level;     /**< {0..1} Level (or edge) that is active: 0 low (falling), 1 high (rising). */
    vx_uint8 intr_edge;      /**< {0..1} 1: an edge raises the interrupt, 0: a level does. */
    vx_uint8 intr_en;        /**< {0..1} 1: the interrupt is enabled. */
} vx_gpio_cfg_t;

/** @brief An SPI line. */
typedef struct {
    lmq_spi_mode_e mode;         /**< Protocol of the line. */
    vx_uint16 speed;             /**< {kHz} Speed of the line. */
    vx_uint8 cmd_length;         /**< {0..96 bits} Length of a command. */
    vx_uint8 data_length;        /**< {0..64 bits} Length of the data. */
    vx_boolean enbl_command_cyc; /**< TRUE: a transfer has a command before its data. */
    vx_uint8 ssp_mode;           /**< {0..3} Clock polarity and phase. */
} vx_spi_cfg_t;

/** @brief One SPI transfer; how many bits of it count is said by vx_spi_cfg_t. */
typedef struct {
    vx_uint32 cmd[3];  /**< {bits} The command; its first 32 bits in the first word. */
    vx_uint32 data[2]; /**< {bits} The data; its first 32 bits in the first word. */
} vx_spi_data_t;

/** @brief What a timer is set to. */
typedef struct {
    vx_uint32 timer_val;   /**< {ms} Time to run down from; not 0 but in LMQ_TIMER_MODE_DISABLE. */
    lmq_timer_mode_e mode; /**< What it does when it has run down. */
} vx_timer_cfg_t;

/** @brief What a timer reads: more than it is set to. */
typedef struct {
    lmq_timer_status_e status; /**< Whether it runs. */
    lmq_timer_mode_e mode;     /**< What it does when it has run down. */
    vx_uint32 timer_val;       /**< {ms} What it was set to. */
    vx_uint32 cur_time;        /**< {ms} Time left. */
} vx_timer_status_t;

/** @brief A LED: what is driven in each mode, and how it blinks. */
typedef struct {
    vx_led_type_e led_type;   /**< What the LED is used for. */
    vx_uint32 on_val;         /**< What is driven in LMQ_LED_MODE_ON. */
    vx_uint32 off_val;        /**< What is driven in LMQ_LED_MODE_OFF. */
    vx_uint32 color1_val;     /**< What is driven in LMQ_LED_MODE_COLOR1. */
    vx_uint32 color2_val;     /**< What is driven in LMQ_LED_MODE_COLOR2. */
    vx_uint32 blink_on_val;   /**< What is driven in the bright phase of blinking. */
    vx_uint32 blink_off_val;  /**< What is driven in the dark phase of blinking. */
    vx_uint32 blink_on_time;  /**< {ms} Length of the bright phase. */
    vx_uint32 blink_off_time; /**< {ms} Length of the dark phase. */
} vx_led_cfg_t;

/** @name GPIO
 *  gpio_id is a pin; but where interrupts are read or cleared it is a group of 32 pins, from 0. */
/** @{ */

/**
 * @brief Sets what a pin is.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] gpio_id {id pin} The pin.
 * @param[in] p_cfg   Direction and interrupt.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpio_set(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_gpio_cfg_t *p_cfg);

/**
 * @brief Reads what a pin is.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  gpio_id {id pin} The pin.
 * @param[out] p_cfg   Direction and interrupt.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpio_get(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_gpio_cfg_t *p_cfg);

/**
 * @brief Drives an output.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] gpio_id {id pin} The pin, which is an output.
 * @param[in] data    {0..1} The level.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpio_write(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint8 data);

/**
 * @brief Reads the level of a pin.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  gpio_id {id pin} The pin.
 * @param[out] p_data  {0..1} The level.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpio_read(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint8 *p_data);

/**
 * @brief Lets an output change its level by itself, again and again.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] gpio_id  {id pin} The pin, which is an output.
 * @param[in] enable   TRUE to begin, FALSE to end.
 * @param[in] interval From one change to the next, in units of VX_GPIO_ROLLOVER_UNIT milliseconds; not 0 to begin.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpio_rollover_set(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_boolean enable, vx_uint32 interval);

/**
 * @brief Switches the interrupt of a pin.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] gpio_id {id pin} The pin, which has the direction VX_GPIO_DIR_INTR.
 * @param[in] enable  TRUE to enable.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpio_intr_enable(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_boolean enable);

/**
 * @brief Reads which interrupts are active now.
 * @par Effect: reads
 * @param[in]  dev_id        The device.
 * @param[in]  gpio_id       {0..0} The group of pins; there is one.
 * @param[out] p_intr_status {bits} Bit n is pin n of the group, 1 active.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_gpio_intr_active_status(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 *p_intr_status);

/**
 * @brief Reads which interrupts were active since they were cleared.
 * @par Effect: reads
 * @param[in]  dev_id        The device.
 * @param[in]  gpio_id       {0..0} The group of pins; there is one.
 * @param[out] p_intr_status {bits} Bit n is pin n of the group, 1 active.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_gpio_intr_latched_status(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 *p_intr_status);

/**
 * @brief Clears latched interrupts, and disables the interrupt of the same pins.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] gpio_id   {0..0} The group of pins; there is one.
 * @param[in] intr_bits {bits} Which: a bit 1 clears, a bit 0 does nothing.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_gpio_intr(vx_dev_id_t dev_id, vx_uint8 gpio_id, vx_uint32 intr_bits);

/**
 * @brief Prints what the driver knows of a pin.
 * @par Effect: reads
 * @param[in] dev_id  The device.
 * @param[in] gpio_id {id pin} The pin.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_gpio_db(vx_dev_id_t dev_id, vx_uint8 gpio_id);

/** @} */

/** @name I2C */
/** @{ */

/**
 * @brief Switches the I2C interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] enable TRUE to enable.
 * @param[in] speed  {kHz} Speed of the bus; read with enable.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_i2c_enable_set(vx_dev_id_t dev_id, vx_boolean enable, vx_uint16 speed);

/**
 * @brief Writes bytes to an I2C slave.
 * @par Effect: changes
 * @param[in] dev_id       The device.
 * @param[in] slave_addr   {0..127} Its 7-bit address.
 * @param[in] slave_offset Where in the slave to begin.
 * @param[in] data_len     {1..256 bytes} How much to write.
 * @param[in] p_tx_data    [data_len] The bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_i2c_write(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 slave_offset, vx_uint16 data_len,
                         vx_uint8 *p_tx_data);

/**
 * @brief Reads bytes from an I2C slave.
 * @par Effect: reads registers
 * @param[in]  dev_id       The device.
 * @param[in]  slave_addr   {0..127} Its 7-bit address.
 * @param[in]  slave_offset Where in the slave to begin.
 * @param[in]  data_len     {1..256 bytes} How much to read.
 * @param[out] p_rx_data    [data_len] The bytes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_i2c_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 slave_offset, vx_uint16 data_len,
                        vx_uint8 *p_rx_data);

/** @} */

/** @name SPI
 *  line_id is an SPI line, which determines the chip select: 0 to 2. */
/** @{ */

/**
 * @brief Switches the SPI interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] enable TRUE to enable.
 * @param[in] int_en TRUE to enable its interrupt.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_enable_set(vx_dev_id_t dev_id, vx_boolean enable, vx_boolean int_en);

/**
 * @brief Configures an SPI line.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] line_id {0..2} The line.
 * @param[in] p_cfg   Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_set(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_cfg_t *p_cfg);

/**
 * @brief Reads the configuration of an SPI line.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  line_id {0..2} The line.
 * @param[out] p_cfg   Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_get(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_cfg_t *p_cfg);

/**
 * @brief Transmits a command followed by data; vx_spi_set says how many bits of each.
 * @par Effect: changes
 * @param[in] dev_id       The device.
 * @param[in] line_id      {0..2} The line.
 * @param[in] p_write_data Command and data.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_write(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_data_t *p_write_data);

/**
 * @brief Transmits a command and receives data; vx_spi_set says how many bits of each.
 * @par Effect: reads registers
 * @param[in]     dev_id      The device.
 * @param[in]     line_id     {0..2} The line.
 * @param[in,out] p_read_data The command; the data comes back in it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_read(vx_dev_id_t dev_id, vx_uint8 line_id, vx_spi_data_t *p_read_data);

/**
 * @brief Transmits one byte.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] line_id {0..2} The line.
 * @param[in] byte    The byte.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_byte_write(vx_dev_id_t dev_id, vx_uint8 line_id, vx_uint8 byte);

/**
 * @brief Receives one byte.
 * @par Effect: reads registers
 * @param[in]  dev_id  The device.
 * @param[in]  line_id {0..2} The line.
 * @param[out] p_byte  The byte.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_spi_byte_read(vx_dev_id_t dev_id, vx_uint8 line_id, vx_uint8 *p_byte);

/** @} */

/** @name MDIO
 *  IEEE 802.3, clause 22: slaves 0 to 31 with registers 0 to 31 of 16 bits. */
/** @{ */

/**
 * @brief Enables the MDIO interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_mdio(vx_dev_id_t dev_id);

/**
 * @brief Disables the MDIO interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_mdio(vx_dev_id_t dev_id);

/**
 * @brief Sets the speed of the MDIO interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] speed  {1..65535 kHz} The speed.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mdio_speed_set(vx_dev_id_t dev_id, vx_uint16 speed);

/**
 * @brief Reads the speed of the MDIO interface.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[out] p_speed {kHz} The speed.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mdio_speed_get(vx_dev_id_t dev_id, vx_uint16 *p_speed);

/**
 * @brief Writes registers of an MDIO slave.
 * @par Effect: changes
 * @param[in] dev_id        The device.
 * @param[in] slave_addr    {0..31} The slave.
 * @param[in] register_addr {0..31} The first register.
 * @param[in] write_cnt     {1..32} How many; the last is register 31 at most.
 * @param[in] p_write_data  [write_cnt] What to write, a word for each.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mdio_write(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 write_cnt,
                          vx_uint16 *p_write_data);

/**
 * @brief Reads registers of an MDIO slave.
 * @par Effect: reads registers
 * @param[in]  dev_id        The device.
 * @param[in]  slave_addr    {0..31} The slave.
 * @param[in]  register_addr {0..31} The first register.
 * @param[in]  read_cnt      {1..32} How many; the last is register 31 at most.
 * @param[out] p_read_data   [read_cnt] Their contents, a word for each.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mdio_read(vx_dev_id_t dev_id, vx_uint8 slave_addr, vx_uint8 register_addr, vx_uint8 read_cnt,
                         vx_uint16 *p_read_data);

/** @} */

/** @name Timers
 *  timer_id is one of lmq_timer_id_e. */
/** @{ */

/**
 * @brief Sets a timer and stops it. It runs from vx_timer_start on.
 * @par Effect: changes
 * @par Read back: vx_timer_get: p_cfg=p_stat
 * @par Changed by: vx_timer_set(timer_id)
 * @param[in] dev_id   The device.
 * @param[in] timer_id {lmq_timer_id_e} The timer.
 * @param[in] p_cfg    Time and mode.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_timer_set(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_timer_cfg_t *p_cfg);

/**
 * @brief Reads a timer.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  timer_id {lmq_timer_id_e} The timer.
 * @param[out] p_stat   What it is set to, and its state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_timer_get(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_timer_status_t *p_stat);

/**
 * @brief Starts a timer with the time that was left when it was stopped.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] timer_id {lmq_timer_id_e} The timer.
 * @param[in] reload   TRUE to start with the full time instead.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_timer_start(vx_dev_id_t dev_id, vx_uint16 timer_id, vx_boolean reload);

/**
 * @brief Stops a timer, so that its event is no longer generated.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] timer_id {lmq_timer_id_e} The timer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_timer_stop(vx_dev_id_t dev_id, vx_uint16 timer_id);

/** @} */

/** @name LEDs */
/** @{ */

/**
 * @brief Configures a LED.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] led_id {id led} The LED.
 * @param[in] p_cfg  Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_led_set(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_cfg_t *p_cfg);

/**
 * @brief Reads the configuration of a LED.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  led_id {id led} The LED.
 * @param[out] p_cfg  Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_led_get(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_cfg_t *p_cfg);

/**
 * @brief Lets a LED show something.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] led_id {id led} The LED.
 * @param[in] mode   What it shows from now on; a colour needs LMQ_LED_TYPE_BI_COLOR.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_led_trigger(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_mode_e mode);

/**
 * @brief Reads what a LED shows.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  led_id {id led} The LED.
 * @param[out] p_mode What it shows.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_led_status_get(vx_dev_id_t dev_id, vx_uint8 led_id, vx_led_mode_e *p_mode);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
