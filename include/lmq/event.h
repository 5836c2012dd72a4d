/**
 * @file
 * @brief Events: their types and data, status, counts, holdover, throttling, and events made for debugging.
 */
#ifndef LMQ_EVENT_H
#define LMQ_EVENT_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_EVENT_HOLDOVER_TIME_UNIT 10 /**< Milliseconds in a unit of vx_event_holdover_cfg_s.holdover_time. */
#define LMQ_EVENT_THROTTLE_TIME_UNIT 10 /**< Milliseconds in a unit of the interval of a throttle. */

/** @brief Duplex of an Ethernet link. */
typedef enum vx_duplex_t LMQ_ENUM_INT {
    VX_DUPLEX_HALF = 0,
    VX_DUPLEX_FULL = 1,
    VX_DUPLEX_INVALID = 255,
} vx_duplex_t;

/**
 * @brief An event. Each kind begins at a base of its own and counts on from there, as a C enum does. (The type
 * dictionary answers other numbers for the events behind a base: see introspect/.)
 */
typedef enum vx_event_type_e LMQ_ENUM_INT {
    VX_EVENT_MIN = 0,

    /* Device */
    VX_EVENT_DEV_BASE = 0x0,
    VX_EVENT_DYING_GASP = VX_EVENT_DEV_BASE,
    VX_EVENT_WD_EXPIRED,
    VX_EVENT_TMR_EXPIRED,
    VX_EVENT_MDIO_INTR_AUTO_POLL_TO,
    VX_EVENT_MDIO_INTR_OP_DONE,
    VX_EVENT_GPIO_INTR,
    VX_EVENT_I2C_INTR,
    VX_EVENT_SPI_INTR_WR_DONE,
    VX_EVENT_SPI_INTR_BURST_OP_DONE,
    VX_EVENT_SPI_INTR_OP_DONE,
    VX_EVENT_SPI_INTR_BURST_ADDR_ERR,
    VX_EVENT_DMA_ERR,
    VX_EVENT_MIB_MSB_CHNG,
    VX_EVENT_THROTTLED,
    VX_EVENT_DDR_DMA_READ_FIFO_OVFLOW,
    VX_EVENT_DDR_CPU_READ_FIFO_OVFLOW,
    VX_EVENT_DDR_ERR_DMA_READ,
    VX_EVENT_DDR_ERR_DMA_WRITE,
    VX_EVENT_DDR_ERR_CPU_READ,
    VX_EVENT_DDR_ERR_CPU_WRITE,
    VX_EVENT_DDR_ERR_PCTL,
    VX_EVENT_DEV_MAX,

    /* Ethernet port */
    VX_EVENT_ETH_BASE = 0x200,
    VX_EVENT_ETH_EXT_PHY_INTR = VX_EVENT_ETH_BASE,
    VX_EVENT_ETH_PHY_MODE_CHNG,
    VX_EVENT_ETH_MIB_MSB_CHNG,
    VX_EVENT_ETH_LINK_STATUS_CHNG,
    VX_EVENT_ETH_RX_MAC_FIFO_OVRUN,
    VX_EVENT_ETH_RX_ASYNC_FIFO_OVRUN,
    VX_EVENT_ETH_TX_MAC_FIFO_UNRUN,
    VX_EVENT_ETH_TX_MAC_FIFO_OVRUN,
    VX_EVENT_ETH_TX_PKT_ERR,
    VX_EVENT_ETH_RX_BIG_PKT_DROP,
    VX_EVENT_ETH_RX_SMALL_PKT_DROP,
    VX_EVENT_ETH_RX_PKT_DROP,
    VX_EVENT_ETH_MAX,

    /* Precision time (IEEE 1588) */
    VX_EVENT_PTP_BASE = 0x300,
    VX_EVENT_PTP_SET_TS = VX_EVENT_PTP_BASE,
    VX_EVENT_PTP_GET_TS,
    VX_EVENT_PTP_EGR_TIME_LATCHED,
    VX_EVENT_PTP_INGR_TIME_LATCHED,
    VX_EVENT_PTP_1PPS_OUTPUT_DONE,
    VX_EVENT_PTP_TIMER_ROLLOVER,
    VX_EVENT_PTP_MAX,

    /* GPON port (ITU-T G.984) */
    VX_EVENT_GPON_BASE = 0x400,
    VX_EVENT_GPON_ONU_STATE_CHNG = VX_EVENT_GPON_BASE,
    VX_EVENT_GPON_ONU_ID,
    VX_EVENT_GPON_OMCC_GEM_PORT_ID,
    VX_EVENT_GPON_OMCC_STATE,
    VX_EVENT_GPON_PLOAMU_TX_DONE,
    VX_EVENT_GPON_PLOAM_KSW,
    VX_EVENT_GPON_ALM_LOS,
    VX_EVENT_GPON_ALM_LOF,
    VX_EVENT_GPON_ALM_SF,
    VX_EVENT_GPON_ALM_SD,
    VX_EVENT_GPON_ALM_LCDG,
    VX_EVENT_GPON_ALM_TF,
    VX_EVENT_GPON_ALM_SUF,
    VX_EVENT_GPON_ALM_MEM,
    VX_EVENT_GPON_ALM_DACT,
    VX_EVENT_GPON_ALM_DIS,
    VX_EVENT_GPON_ALM_MIS,
    VX_EVENT_GPON_ALM_PEE,
    VX_EVENT_GPON_ALM_RDI,
    VX_EVENT_GPON_ERR_PLOAMU_OFLOW,
    VX_EVENT_GPON_ERR_MAC_UNSYNC,
    VX_EVENT_GPON_ERR_FIFO_UNRUN,
    VX_EVENT_GPON_BAD_ONU_ID,
    VX_EVENT_GPON_DS_OMCI_FIFO_OVFLOW,
    VX_EVENT_GPON_MAX,

    /* Forwarding engine: events of a port, then of the device */
    VX_EVENT_FE_BASE = 0x600,

    VX_EVENT_FE_PORT_BASE = VX_EVENT_FE_BASE,
    VX_EVENT_FE_PKT_LEN_ERR = VX_EVENT_FE_PORT_BASE,
    VX_EVENT_FE_PKT_RUNT,
    VX_EVENT_FE_PKT_LEN_MISMATCH,
    VX_EVENT_FE_FIFO_OVFLOW,
    VX_EVENT_FE_MAC_FILTER_AGEOUT,
    VX_EVENT_FE_L2_LEARN_LIMIT,
    VX_EVENT_FE_NEW_L2_LEARN,
    VX_EVENT_FE_STN_MOVE,
    VX_EVENT_FE_PORT_MAX,

    VX_EVENT_FE_DEV_BASE,
    VX_EVENT_FE_PKT_DROP_STN_MOVE_LOOP_DET = VX_EVENT_FE_DEV_BASE,
    VX_EVENT_FE_L2_ENTRY_AGEOUT,
    VX_EVENT_FE_DYNAMIC_L2_ENTRY_FULL,
    VX_EVENT_FE_DEV_MAX,
    VX_EVENT_FE_MAX = VX_EVENT_FE_DEV_MAX,

    /* Buffer manager: events of a port, then of the device */
    VX_EVENT_BM_BASE = 0x700,

    VX_EVENT_BM_PORT_BASE = VX_EVENT_BM_BASE,
    VX_EVENT_BM_TX_PKT_CRC_ERR = VX_EVENT_BM_PORT_BASE,
    VX_EVENT_BM_RX_DROP_NO_BUF,
    VX_EVENT_BM_RX_DROP_QLEN_LIMIT,
    VX_EVENT_BM_RX_DROP_EGR_LIMIT,
    VX_EVENT_BM_RX_DROP_NON_CPU_PKT,
    VX_EVENT_BM_RX_DROP_BY_FE,
    VX_EVENT_BM_PORT_MAX,

    VX_EVENT_BM_DEV_BASE,
    VX_EVENT_BM_HDR_CORR_ECC_ERR = VX_EVENT_BM_DEV_BASE,
    VX_EVENT_BM_HDR_UNCORR_ECC_ERR,
    VX_EVENT_BM_EXCEED_RPT_LIMIT,
    VX_EVENT_BM_HDR_MEM_ACCESS_COL,
    VX_EVENT_BM_REP_MEM_ACCESS_COL,
    VX_EVENT_BM_DEV_MAX,
    VX_EVENT_BM_MAX = VX_EVENT_BM_DEV_MAX,

    /* PCM interface of voice */
    VX_EVENT_PCM_BASE = 0x800,
    VX_EVENT_PCM_RX_FIFO_UNRUN = VX_EVENT_PCM_BASE,
    VX_EVENT_PCM_RX_FIFO_OVRUN,
    VX_EVENT_PCM_RX_FIFO_FULL,
    VX_EVENT_PCM_RX_FIFO_EMPTY,
    VX_EVENT_PCM_RX_FIFO_WATER_MARK,
    VX_EVENT_PCM_TX_FIFO_UNRUN,
    VX_EVENT_PCM_TX_FIFO_OVRUN,
    VX_EVENT_PCM_TX_FIFO_FULL,
    VX_EVENT_PCM_TX_FIFO_EMPTY,
    VX_EVENT_PCM_TX_FIFO_WATER_MARK,
    VX_EVENT_PCM_MAX,

    /* Energy-efficient Ethernet (IEEE 802.3az) */
    VX_EVENT_EEE_BASE = 0x900,
    VX_EVENT_EEE_SLEEP_STATE_CHNG = VX_EVENT_EEE_BASE,
    VX_EVENT_EEE_QUEUE_STATUS_CHNG,
    VX_EVENT_EEE_MAX,

    VX_EVENT_MAX,
} vx_event_type_e;

/** @brief State of the ONU: O1 to O7 of ITU-T G.984.3, clause 10. */
typedef enum vx_gpon_onu_state_t LMQ_ENUM_INT {
    VX_GPON_STATE_INITIAL = 0,
    VX_GPON_STATE_STANDBY = 1,
    VX_GPON_STATE_SERIALNO = 2,
    VX_GPON_STATE_RANGING = 3,
    VX_GPON_STATE_OPERATION = 4,
    VX_GPON_STATE_POPUP = 5,
    VX_GPON_STATE_ESTOP = 6,
    VX_GPON_STATE_INVALID = 255,
} vx_gpon_onu_state_t;

/** @brief In which context the handler of an event runs. */
typedef enum lmq_event_context_e LMQ_ENUM_INT {
    LMQ_EVENT_CONTEXT_USER = 0,
    LMQ_EVENT_CONTEXT_URGENT_INTR = 1,
    LMQ_EVENT_CONTEXT_HIGH_PRI_INTR = 2,
    LMQ_EVENT_CONTEXT_NORMAL_INTR = 3,
    LMQ_EVENT_CONTEXT_SLEEPABLE = 4,
    LMQ_EVENT_CONTEXT_MAX = 5,
} lmq_event_context_e;

/** @brief Which throttle an event ran into: the one over all events, or its own. */
typedef enum lmq_event_thrtl_type_e LMQ_ENUM_INT {
    LMQ_EVENT_THRTL_GLOBAL = 0,
    LMQ_EVENT_THRTL_PER = 1,
} lmq_event_thrtl_type_e;

/** @brief Speed of an Ethernet link. */
typedef enum vx_speed_t LMQ_ENUM_INT {
    VX_SPEED_10MBPS = 0,
    VX_SPEED_100MBPS = 1,
    VX_SPEED_1000MBPS = 2,
    VX_SPEED_INVALID = 255,
} vx_speed_t;

/** @brief State of energy-efficient Ethernet in one direction. */
typedef enum vx_eee_state_t LMQ_ENUM_INT {
    VX_EEE_STATE_NORMAL = 0,
    VX_EEE_STATE_SLEEP = 1,
    VX_EEE_STATE_WAKE = 2,
} vx_eee_state_t;

/** @brief Direction of energy-efficient Ethernet. */
typedef enum vx_eee_dir_t LMQ_ENUM_INT {
    VX_EEE_TX_DIR = 0,
    VX_EEE_RX_DIR = 1,
} vx_eee_dir_t;

/** @brief Data of VX_EVENT_TMR_EXPIRED. */
typedef struct {
    vx_uint16 timer_id;
} lmq_tmr_event_data_s;

/** @brief Data of VX_EVENT_GPIO_INTR. */
typedef struct {
    vx_uint32 gpio_pin_mask; /**< Bit n is pin n. */
} lmq_gpio_event_data_s;

/** @brief Data of VX_EVENT_DMA_ERR. */
typedef struct {
    vx_uint8 dma_id;
} lmq_dma_event_data_s;

/** @brief Data of VX_EVENT_THROTTLED. */
typedef struct {
    vx_event_type_e thrtld_event; /**< The event whose occurrence was one too many. */
    lmq_event_thrtl_type_e thrtl_type;
    vx_uint32 thrtl_cnt; /**< Occurrences in the interval. */
} lmq_thrtl_event_data_s;

/** @brief Data of VX_EVENT_ETH_EXT_PHY_INTR. */
typedef struct {
    vx_uint16 intr_status; /**< Content of the PHY's interrupt status register. */
} lmq_eth_phy_event_info_s;

/** @brief Data of VX_EVENT_ETH_PHY_MODE_CHNG. */
typedef struct {
    vx_speed_t speed;
    vx_duplex_t duplex;
} lmq_eth_phy_mode_chng_data_s;

/** @brief Data of VX_EVENT_ETH_LINK_STATUS_CHNG. */
typedef struct {
    vx_speed_t speed;
    vx_duplex_t duplex;
    vx_boolean link_up;
} lmq_eth_link_status_chng_event_data_s;

/** @brief Data of VX_EVENT_PTP_GET_TS. */
typedef struct {
    vx_uint32 ptp_nano_second; /**< Nanoseconds part of the PTP time. */
    vx_uint32 local_ref_time;
    vx_uint16 local_ref_lsb;
    vx_uint32 ptp_freq_offset;
} lmq_ptp_get_ts_event_data_s;

/** @brief Data of VX_EVENT_PTP_EGR_TIME_LATCHED and VX_EVENT_PTP_INGR_TIME_LATCHED. */
typedef struct {
    vx_uint16 port_num;
    vx_uint32 timestamp;
} lmq_ptp_tmr_latch_data_s;

/** @brief Data of VX_EVENT_GPON_ONU_STATE_CHNG. */
typedef struct {
    vx_gpon_onu_state_t onu_state;
} lmq_onu_state_event_data_s;

/** @brief Data of the alarms, VX_EVENT_GPON_ALM_LOS to VX_EVENT_GPON_ALM_RDI. */
typedef struct {
    vx_boolean status; /**< TRUE when the alarm is raised, FALSE when it is over. */
} lmq_gpon_alm_event_data_s;

/** @brief Data of VX_EVENT_GPON_ONU_ID. */
typedef struct {
    vx_uint16 onu_id; /**< As the OLT has assigned it, 0 to 254. */
} lmq_gpon_onu_id_event_data_s;

/** @brief Data of VX_EVENT_GPON_OMCC_STATE. */
typedef struct {
    vx_boolean status; /**< TRUE when the OMCC is up. */
    vx_uint16 gem_port_id;
} lmq_gpon_omcc_state_data_s;

/** @brief Data of VX_EVENT_GPON_OMCC_GEM_PORT_ID. */
typedef struct {
    vx_uint16 gem_port_id;
} lmq_gpon_omcc_gem_port_data_s;

/** @brief Data of VX_EVENT_FE_STN_MOVE. */
typedef struct {
    vx_uint8 stn_move_indx; /**< Entry of the station move table. */
} lmq_fe_stn_move_event_data_s;

/** @brief Data of VX_EVENT_EEE_SLEEP_STATE_CHNG. */
typedef struct {
    vx_eee_dir_t eee_dir;
    vx_eee_state_t eee_state;
} lmq_eee_event_data_s;

/** @brief Data of VX_EVENT_EEE_QUEUE_STATUS_CHNG. */
typedef struct {
    vx_uint16 low_thresh;  /**< Bit n: queue n is below its low threshold. */
    vx_uint16 high_thresh; /**< Bit n: queue n is above its high threshold. */
} lmq_eee_queue_status_event_data_s;

/**
 * @brief Data of an event. It has no selector: which alternative counts follows from the type of the event, as the
 * alternatives' own comments say.
 */
typedef union {
    vx_uint32 data; /**< Of the events that have no alternative of their own. */
    lmq_tmr_event_data_s tmr_data;
    lmq_gpio_event_data_s gpio_data;
    lmq_dma_event_data_s dma_data;
    lmq_thrtl_event_data_s thrtl_data;
    lmq_eth_phy_event_info_s phy_intr_data;
    lmq_eth_phy_mode_chng_data_s phy_mode_data;
    lmq_eth_link_status_chng_event_data_s link_chng_data;
    lmq_ptp_get_ts_event_data_s get_ts_data;
    lmq_ptp_tmr_latch_data_s ptp_latch_data;
    lmq_onu_state_event_data_s onu_state_data;
    lmq_gpon_alm_event_data_s gpon_alm_data;
    lmq_gpon_onu_id_event_data_s onu_id_data;
    lmq_gpon_omcc_state_data_s omcc_state;
    lmq_gpon_omcc_gem_port_data_s omcc_gem_data;
    lmq_fe_stn_move_event_data_s stn_move_data;
    lmq_eee_event_data_s eee_data;
    lmq_eee_queue_status_event_data_s eee_queue_status;
} lmq_event_data_u;

/** @brief Whether an event is active, with its data. */
typedef struct {
    vx_boolean status; /**< TRUE if the event is active, or pending. */
    lmq_event_data_u event_data;
} vx_event_status_s;

/** @brief Holdover of an event: how long it must persist before it is notified. */
typedef struct {
    vx_boolean enable;
    vx_uint16 port_num;      /**< The port, for an event of a port. */
    vx_uint16 sub_port;      /**< Logical port within it; VX_INVALID_PORT_ID on the SNI means all of them. */
    vx_uint16 holdover_time; /**< In LMQ_EVENT_HOLDOVER_TIME_UNIT. */
} vx_event_holdover_cfg_s;

/** @brief Throttle over all events together. */
typedef struct {
    vx_boolean enable;
    vx_uint32 count;    /**< Occurrences in an interval at which interrupts are disabled for its rest. */
    vx_uint32 interval; /**< In LMQ_EVENT_THROTTLE_TIME_UNIT. */
} vx_event_throttle_cfg_s;

/** @brief Throttle of one type of event. */
typedef struct {
    vx_boolean enable;
    vx_boolean per_port; /**< Count each port by itself. */
    vx_uint32 count;     /**< Occurrences in an interval at which interrupts are disabled for its rest. */
    vx_uint32 interval;  /**< In LMQ_EVENT_THROTTLE_TIME_UNIT. */
} vx_intr_throttle_cfg_s;

/** @brief A handler of debug events. */
typedef struct {
    vx_uint32 user_data; /**< Handed to the handler. */
    lmq_event_context_e context;
    vx_uint8 context_id; /**< Which of several contexts of that kind. */
    vx_uint8 priority;
    vx_uint32 port_type_bitmap; /**< Types of port: bits of vx_port_type_t. */
    vx_boolean all_ports;       /**< All ports of those types; port_num and gem_port_id are not read. */
    vx_uint16 port_num;
    vx_uint16 gem_port_id;
} lmq_dbg_event_cfg_s;

/**
 * @brief Reads whether the hardware shows an event, registered or not. Only latched events, such as a link's status.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param port_num   The port, for an event of a port.
 * @param sub_port   Logical port within it, for an event of one.
 * @param p_status   Where to write status and data.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_status_poll(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num, vx_uint16 sub_port,
                                 vx_event_status_s *p_status);

/**
 * @brief Reads the last event that throttling or holdover has kept from being delivered.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param port_num   The port, for an event of a port.
 * @param sub_port   Logical port within it, for an event of one.
 * @param p_status   Where to write status and data.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_pending_events_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_status_s *p_status);

/**
 * @brief Removes a pending event, and clears the hardware status where that can be cleared.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param port_num   The port, for an event of a port.
 * @param sub_port   Logical port within it, for an event of one.
 * @param p_status   Reserved.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_status_clear(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_status_s *p_status);

/**
 * @brief Sets the holdover of an event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param p_cfg      The holdover, with the port that it is for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_holdover_set(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_event_holdover_cfg_s *p_cfg);

/**
 * @brief Reads the holdover of an event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param port_num   The port, for an event of a port.
 * @param sub_port   Logical port within it, for an event of one.
 * @param p_cfg      Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_holdover_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_holdover_cfg_s *p_cfg);

/**
 * @brief Sets the throttle over all events, timers excepted. It takes precedence over those of single events.
 * @param dev_id The device.
 * @param p_cfg  The throttle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_global_throttle_set(vx_dev_id_t dev_id, vx_event_throttle_cfg_s *p_cfg);

/**
 * @brief Reads the throttle over all events.
 * @param dev_id The device.
 * @param p_cfg  Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_global_throttle_get(vx_dev_id_t dev_id, vx_event_throttle_cfg_s *p_cfg);

/**
 * @brief Sets the throttle of an event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param p_cfg      The throttle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_throttle_set(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_intr_throttle_cfg_s *p_cfg);

/**
 * @brief Reads the throttle of an event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param p_cfg      Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_throttle_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_intr_throttle_cfg_s *p_cfg);

/**
 * @brief Reads how often the hardware has detected an event.
 * @param dev_id          The device.
 * @param event_type      The event.
 * @param port_num        The port, for an event of a port.
 * @param sub_port        Logical port within it, for an event of one.
 * @param p_count         Where to write the count.
 * @param clear_after_get TRUE to begin again at 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_count_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num, vx_uint16 sub_port,
                               vx_uint32 *p_count, vx_boolean clear_after_get);

/**
 * @brief Clears the count of an event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param port_num   The port, for an event of a port.
 * @param sub_port   Logical port within it, for an event of one.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_count_clear(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                 vx_uint16 sub_port);

/**
 * @brief Clears the counts of all events.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_count_clear_all(vx_dev_id_t dev_id);

/**
 * @brief Enables or disables all interrupts of the chip.
 * @param dev_id The device.
 * @param enable TRUE to enable.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_ctrl_interrupts(vx_dev_id_t dev_id, vx_boolean enable);

/**
 * @brief Registers the handler of an event that prints it.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param in_kernel  TRUE to register in kernel space, FALSE in user space.
 * @param p_cfg      The handler.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_register_debug_event(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_boolean in_kernel,
                                     lmq_dbg_event_cfg_s *p_cfg);

/**
 * @brief Undoes lmq_register_debug_event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @param in_kernel  Where it was registered.
 * @param p_cfg      The handler.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_deregister_debug_event(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_boolean in_kernel,
                                       lmq_dbg_event_cfg_s *p_cfg);

/**
 * @brief Makes an event occur, for debugging.
 * @param dev_id   The device.
 * @param evt_type The event: a vx_event_type_e.
 * @param port_num The port, for an event of a port.
 * @param sub_port Logical port within it, for an event of one.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_generate_event(vx_dev_id_t dev_id, vx_uint32 evt_type, vx_uint16 port_num, vx_uint16 sub_port);

/**
 * @brief Prints what the driver keeps of an event.
 * @param dev_id     The device.
 * @param event_type The event.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_event_db(vx_dev_id_t dev_id, vx_event_type_e event_type);

#ifdef __cplusplus
}
#endif

#endif
