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
    VX_DUPLEX_HALF = 0,      /**< Half duplex: one direction at a time. */
    VX_DUPLEX_FULL = 1,      /**< Full duplex: both directions at once. */
    VX_DUPLEX_INVALID = 255, /**< No link, so no duplex. */
} vx_duplex_t;

/**
 * @brief An event. Each kind begins at a base of its own and counts on from there, as a C enum does.
 *
 * The type dictionary answers other numbers for the events behind a base; see introspect/.
 */
typedef enum vx_event_type_e LMQ_ENUM_INT {
    VX_EVENT_MIN = 0, /**< The least number of an event. */

    /* Device */
    VX_EVENT_DEV_BASE = 0x0,                 /**< Where the events of the device begin: the number of the first. */
    VX_EVENT_DYING_GASP = VX_EVENT_DEV_BASE, /**< Power is lost (dying gasp). */
    VX_EVENT_WD_EXPIRED,                     /**< The watchdog has expired. */
    VX_EVENT_TMR_EXPIRED,                    /**< A timer has run down; tmr_data. */
    VX_EVENT_MDIO_INTR_AUTO_POLL_TO,         /**< A PHY did not answer the automatic polling on MDIO. */
    VX_EVENT_MDIO_INTR_OP_DONE,              /**< An MDIO operation is done. */
    VX_EVENT_GPIO_INTR,                      /**< Pins have raised interrupts; gpio_data. */
    VX_EVENT_I2C_INTR,                       /**< The I2C interface asks for attention. */
    VX_EVENT_SPI_INTR_WR_DONE,               /**< An SPI write is done. */
    VX_EVENT_SPI_INTR_BURST_OP_DONE,         /**< A burst on SPI is done. */
    VX_EVENT_SPI_INTR_OP_DONE,               /**< An SPI operation is done. */
    VX_EVENT_SPI_INTR_BURST_ADDR_ERR,        /**< A burst on SPI had a wrong address. */
    VX_EVENT_DMA_ERR,                        /**< A DMA channel has failed; dma_data. */
    VX_EVENT_MIB_MSB_CHNG,             /**< The top bit of a counter of the device has changed: it is half full. */
    VX_EVENT_THROTTLED,                /**< A throttle holds further occurrences of an event back; thrtl_data. */
    VX_EVENT_DDR_DMA_READ_FIFO_OVFLOW, /**< A FIFO for DMA reads of external memory has overflown. */
    VX_EVENT_DDR_CPU_READ_FIFO_OVFLOW, /**< A FIFO for CPU reads of external memory has overflown. */
    VX_EVENT_DDR_ERR_DMA_READ,         /**< A DMA read of external memory has failed. */
    VX_EVENT_DDR_ERR_DMA_WRITE,        /**< A DMA write to external memory has failed. */
    VX_EVENT_DDR_ERR_CPU_READ,         /**< A CPU read of external memory has failed. */
    VX_EVENT_DDR_ERR_CPU_WRITE,        /**< A CPU write to external memory has failed. */
    VX_EVENT_DDR_ERR_PCTL,             /**< The protocol controller of external memory reports an error. */
    VX_EVENT_DEV_MAX,                  /**< One past the last event of the device; none itself. */

    /* Ethernet port */
    VX_EVENT_ETH_BASE = 0x200, /**< Where the events of Ethernet ports begin: the number of the first. */
    VX_EVENT_ETH_EXT_PHY_INTR = VX_EVENT_ETH_BASE, /**< An external PHY has raised its interrupt; phy_intr_data. */
    VX_EVENT_ETH_PHY_MODE_CHNG,                    /**< Speed or duplex of a PHY has changed; phy_mode_data. */
    VX_EVENT_ETH_MIB_MSB_CHNG,        /**< The top bit of a counter of the port has changed: it is half full. */
    VX_EVENT_ETH_LINK_STATUS_CHNG,    /**< The link has gone up or down; link_chng_data. */
    VX_EVENT_ETH_RX_MAC_FIFO_OVRUN,   /**< The MAC's receive FIFO has overrun. */
    VX_EVENT_ETH_RX_ASYNC_FIFO_OVRUN, /**< The receive FIFO between two clocks has overrun. */
    VX_EVENT_ETH_TX_MAC_FIFO_UNRUN,   /**< The MAC's transmit FIFO has run empty within a packet. */
    VX_EVENT_ETH_TX_MAC_FIFO_OVRUN,   /**< The MAC's transmit FIFO has overrun. */
    VX_EVENT_ETH_TX_PKT_ERR,          /**< A packet was transmitted with an error. */
    VX_EVENT_ETH_RX_BIG_PKT_DROP,     /**< A received packet was dropped because it was too long. */
    VX_EVENT_ETH_RX_SMALL_PKT_DROP,   /**< A received packet was dropped because it was too short. */
    VX_EVENT_ETH_RX_PKT_DROP,         /**< A received packet was dropped for another reason. */
    VX_EVENT_ETH_MAX,                 /**< One past the last event of Ethernet ports; none itself. */

    /* Precision time (IEEE 1588) */
    VX_EVENT_PTP_BASE = 0x300,               /**< Where the events of precision time begin: the number of the first. */
    VX_EVENT_PTP_SET_TS = VX_EVENT_PTP_BASE, /**< The PTP time was set. */
    VX_EVENT_PTP_GET_TS,                     /**< The PTP time was read; get_ts_data. */
    VX_EVENT_PTP_EGR_TIME_LATCHED,           /**< The time at which a message left was latched; ptp_latch_data. */
    VX_EVENT_PTP_INGR_TIME_LATCHED,          /**< The time at which a message came was latched; ptp_latch_data. */
    VX_EVENT_PTP_1PPS_OUTPUT_DONE,           /**< A 1PPS pulse was sent. */
    VX_EVENT_PTP_TIMER_ROLLOVER,             /**< The PTP counter has begun at 0 again. */
    VX_EVENT_PTP_MAX,                        /**< One past the last event of precision time; none itself. */

    /* GPON port (ITU-T G.984) */
    VX_EVENT_GPON_BASE = 0x400, /**< Where the events of the GPON port begin: the number of the first. */
    VX_EVENT_GPON_ONU_STATE_CHNG = VX_EVENT_GPON_BASE, /**< The ONU has another state; onu_state_data. */
    VX_EVENT_GPON_ONU_ID,                              /**< The OLT has assigned an ONU-ID; onu_id_data. */
    VX_EVENT_GPON_OMCC_GEM_PORT_ID,    /**< The OLT has assigned the GEM port of the OMCC; omcc_gem_data. */
    VX_EVENT_GPON_OMCC_STATE,          /**< The OMCC has come up or gone down; omcc_state. */
    VX_EVENT_GPON_PLOAMU_TX_DONE,      /**< An upstream PLOAM message was sent. */
    VX_EVENT_GPON_PLOAM_KSW,           /**< The OLT switches to another encryption key (Key_Switching_Time). */
    VX_EVENT_GPON_ALM_LOS,             /**< Alarm: loss of signal (clause 11, as the other alarms). */
    VX_EVENT_GPON_ALM_LOF,             /**< Alarm: loss of frame. */
    VX_EVENT_GPON_ALM_SF,              /**< Alarm: signal fail, by the bit error rate. */
    VX_EVENT_GPON_ALM_SD,              /**< Alarm: signal degraded, by the bit error rate. */
    VX_EVENT_GPON_ALM_LCDG,            /**< Alarm: loss of GEM channel delineation. */
    VX_EVENT_GPON_ALM_TF,              /**< Alarm: transmitter failure. */
    VX_EVENT_GPON_ALM_SUF,             /**< Alarm: start-up failure, ranging did not succeed. */
    VX_EVENT_GPON_ALM_MEM,             /**< Alarm: a PLOAM message that is not known (message error). */
    VX_EVENT_GPON_ALM_DACT,            /**< Alarm: the OLT has deactivated the ONU. */
    VX_EVENT_GPON_ALM_DIS,             /**< Alarm: the OLT has disabled the ONU. */
    VX_EVENT_GPON_ALM_MIS,             /**< Alarm: link mismatch, the two ends disagree. */
    VX_EVENT_GPON_ALM_PEE,             /**< Alarm: physical equipment error, reported by the OLT. */
    VX_EVENT_GPON_ALM_RDI,             /**< Alarm: remote defect indication, the OLT receives badly. */
    VX_EVENT_GPON_ERR_PLOAMU_OFLOW,    /**< The FIFO of upstream PLOAM messages has overflown. */
    VX_EVENT_GPON_ERR_MAC_UNSYNC,      /**< The GPON MAC has lost the downstream frame. */
    VX_EVENT_GPON_ERR_FIFO_UNRUN,      /**< The upstream FIFO has run empty within a burst. */
    VX_EVENT_GPON_BAD_ONU_ID,          /**< The OLT has assigned an ONU-ID that is none. */
    VX_EVENT_GPON_DS_OMCI_FIFO_OVFLOW, /**< The FIFO of downstream OMCI messages has overflown. */
    VX_EVENT_GPON_MAX,                 /**< One past the last event of the GPON port; none itself. */

    /* Forwarding engine: events of a port, then of the device */
    VX_EVENT_FE_BASE = 0x600, /**< Where the events of the forwarding engine begin: the number of the first. */

    VX_EVENT_FE_PORT_BASE = VX_EVENT_FE_BASE,        /**< Where those of a port begin: the number of the first. */
    VX_EVENT_FE_PKT_LEN_ERR = VX_EVENT_FE_PORT_BASE, /**< A packet is longer than the engine takes. */
    VX_EVENT_FE_PKT_RUNT,                            /**< A packet is shorter than the 64 bytes of Ethernet (runt). */
    VX_EVENT_FE_PKT_LEN_MISMATCH,                    /**< The length of a packet is not what its header says. */
    VX_EVENT_FE_FIFO_OVFLOW,                         /**< A FIFO of the engine has overflown. */
    VX_EVENT_FE_MAC_FILTER_AGEOUT,                   /**< An address of a MAC filter has aged out. */
    VX_EVENT_FE_L2_LEARN_LIMIT,                      /**< The port has learnt as many addresses as it may. */
    VX_EVENT_FE_NEW_L2_LEARN,                        /**< The port has learnt a new address. */
    VX_EVENT_FE_STN_MOVE,                            /**< A station has moved here from another port; stn_move_data. */
    VX_EVENT_FE_PORT_MAX,                            /**< One past the last of those of a port; none itself. */

    VX_EVENT_FE_DEV_BASE, /**< Where those of the device begin: the number of the first. */
    /** A packet was dropped: a station moves back and forth, which looks like a loop. */
    VX_EVENT_FE_PKT_DROP_STN_MOVE_LOOP_DET = VX_EVENT_FE_DEV_BASE,
    VX_EVENT_FE_L2_ENTRY_AGEOUT,           /**< An entry of the forwarding database has aged out. */
    VX_EVENT_FE_DYNAMIC_L2_ENTRY_FULL,     /**< The forwarding database has no room for another learnt address. */
    VX_EVENT_FE_DEV_MAX,                   /**< One past the last of those of the device; none itself. */
    VX_EVENT_FE_MAX = VX_EVENT_FE_DEV_MAX, /**< One past the last event of the forwarding engine; none itself. */

    /* Buffer manager: events of a port, then of the device */
    VX_EVENT_BM_BASE = 0x700, /**< Where the events of the buffer manager begin: the number of the first. */

    VX_EVENT_BM_PORT_BASE = VX_EVENT_BM_BASE,           /**< Where those of a port begin: the number of the first. */
    VX_EVENT_BM_TX_PKT_CRC_ERR = VX_EVENT_BM_PORT_BASE, /**< A packet to be transmitted has a wrong checksum. */
    VX_EVENT_BM_RX_DROP_NO_BUF,                         /**< A received packet was dropped for want of a buffer. */
    VX_EVENT_BM_RX_DROP_QLEN_LIMIT,  /**< A received packet was dropped: its queue is as long as it may be. */
    VX_EVENT_BM_RX_DROP_EGR_LIMIT,   /**< A received packet was dropped: its egress port holds as much as it may. */
    VX_EVENT_BM_RX_DROP_NON_CPU_PKT, /**< A received packet was dropped so that those for the CPU have room. */
    VX_EVENT_BM_RX_DROP_BY_FE,       /**< A received packet was dropped because the forwarding engine says so. */
    VX_EVENT_BM_PORT_MAX,            /**< One past the last of those of a port; none itself. */

    VX_EVENT_BM_DEV_BASE, /**< Where those of the device begin: the number of the first. */
    VX_EVENT_BM_HDR_CORR_ECC_ERR = VX_EVENT_BM_DEV_BASE, /**< A bit error in the memory of headers, corrected by ECC. */
    VX_EVENT_BM_HDR_UNCORR_ECC_ERR,        /**< A bit error in the memory of headers that ECC cannot correct. */
    VX_EVENT_BM_EXCEED_RPT_LIMIT,          /**< A packet is replicated more often than the limit. */
    VX_EVENT_BM_HDR_MEM_ACCESS_COL,        /**< Two accesses to the memory of headers have collided. */
    VX_EVENT_BM_REP_MEM_ACCESS_COL,        /**< Two accesses to the memory of replication have collided. */
    VX_EVENT_BM_DEV_MAX,                   /**< One past the last of those of the device; none itself. */
    VX_EVENT_BM_MAX = VX_EVENT_BM_DEV_MAX, /**< One past the last event of the buffer manager; none itself. */

    /* PCM interface of voice */
    VX_EVENT_PCM_BASE = 0x800, /**< Where the events of the PCM interface begin: the number of the first. */
    VX_EVENT_PCM_RX_FIFO_UNRUN = VX_EVENT_PCM_BASE, /**< The receive FIFO was read while it was empty. */
    VX_EVENT_PCM_RX_FIFO_OVRUN,                     /**< The receive FIFO has overrun. */
    VX_EVENT_PCM_RX_FIFO_FULL,                      /**< The receive FIFO is full. */
    VX_EVENT_PCM_RX_FIFO_EMPTY,                     /**< The receive FIFO is empty. */
    VX_EVENT_PCM_RX_FIFO_WATER_MARK,                /**< The receive FIFO has reached its water mark. */
    VX_EVENT_PCM_TX_FIFO_UNRUN,                     /**< The transmit FIFO has run empty while samples were due. */
    VX_EVENT_PCM_TX_FIFO_OVRUN,                     /**< The transmit FIFO has overrun. */
    VX_EVENT_PCM_TX_FIFO_FULL,                      /**< The transmit FIFO is full. */
    VX_EVENT_PCM_TX_FIFO_EMPTY,                     /**< The transmit FIFO is empty. */
    VX_EVENT_PCM_TX_FIFO_WATER_MARK,                /**< The transmit FIFO has reached its water mark. */
    VX_EVENT_PCM_MAX,                               /**< One past the last event of the PCM interface; none itself. */

    /* Energy-efficient Ethernet (IEEE 802.3az) */
    VX_EVENT_EEE_BASE = 0x900, /**< Where the events of energy-efficient Ethernet begin: the number of the first. */
    VX_EVENT_EEE_SLEEP_STATE_CHNG = VX_EVENT_EEE_BASE, /**< A direction of the link sleeps or wakes; eee_data. */
    VX_EVENT_EEE_QUEUE_STATUS_CHNG,                    /**< A queue has crossed a threshold; eee_queue_status. */
    VX_EVENT_EEE_MAX, /**< One past the last event of energy-efficient Ethernet; none itself. */

    VX_EVENT_MAX, /**< Above all events; none itself. */
} vx_event_type_e;

/** @brief State of the ONU: O1 to O7 of ITU-T G.984.3, clause 10. */
typedef enum vx_gpon_onu_state_t LMQ_ENUM_INT {
    VX_GPON_STATE_INITIAL = 0,   /**< O1, initial: no downstream signal yet. */
    VX_GPON_STATE_STANDBY = 1,   /**< O2, standby: waits for the parameters of the network. */
    VX_GPON_STATE_SERIALNO = 2,  /**< O3, serial number: waits for an ONU-ID. */
    VX_GPON_STATE_RANGING = 3,   /**< O4, ranging: the OLT measures the distance. */
    VX_GPON_STATE_OPERATION = 4, /**< O5, operation: data flows. */
    VX_GPON_STATE_POPUP = 5,     /**< O6, popup: the signal was lost a moment ago. */
    VX_GPON_STATE_ESTOP = 6,     /**< O7, emergency stop: the OLT has disabled the ONU. */
    VX_GPON_STATE_INVALID = 255, /**< No state. */
} vx_gpon_onu_state_t;

/** @brief In which context the handler of an event runs. */
typedef enum lmq_event_context_e LMQ_ENUM_INT {
    LMQ_EVENT_CONTEXT_USER = 0,          /**< A thread in user space. */
    LMQ_EVENT_CONTEXT_URGENT_INTR = 1,   /**< The interrupt itself, for what cannot wait. */
    LMQ_EVENT_CONTEXT_HIGH_PRI_INTR = 2, /**< Behind the interrupt, at high priority; must not sleep. */
    LMQ_EVENT_CONTEXT_NORMAL_INTR = 3,   /**< Behind the interrupt, at normal priority; must not sleep. */
    LMQ_EVENT_CONTEXT_SLEEPABLE = 4,     /**< A thread of the kernel, which may sleep. */
    LMQ_EVENT_CONTEXT_MAX = 5,           /**< How many there are; none itself. */
} lmq_event_context_e;

/** @brief Which throttle an event ran into: the one over all events, or its own. */
typedef enum lmq_event_thrtl_type_e LMQ_ENUM_INT {
    LMQ_EVENT_THRTL_GLOBAL = 0, /**< The throttle over all events. */
    LMQ_EVENT_THRTL_PER = 1,    /**< The throttle of this type of event. */
} lmq_event_thrtl_type_e;

/** @brief Speed of an Ethernet link. */
typedef enum vx_speed_t LMQ_ENUM_INT {
    VX_SPEED_10MBPS = 0,    /**< 10 Mbit/s. */
    VX_SPEED_100MBPS = 1,   /**< 100 Mbit/s. */
    VX_SPEED_1000MBPS = 2,  /**< 1000 Mbit/s. */
    VX_SPEED_INVALID = 255, /**< No link, so no speed. */
} vx_speed_t;

/** @brief State of energy-efficient Ethernet in one direction. */
typedef enum vx_eee_state_t LMQ_ENUM_INT {
    VX_EEE_STATE_NORMAL = 0, /**< Awake: data can be sent. */
    VX_EEE_STATE_SLEEP = 1,  /**< Asleep, in low power idle. */
    VX_EEE_STATE_WAKE = 2,   /**< On the way from sleep to normal. */
} vx_eee_state_t;

/** @brief Direction of energy-efficient Ethernet. */
typedef enum vx_eee_dir_t LMQ_ENUM_INT {
    VX_EEE_TX_DIR = 0, /**< Transmission. */
    VX_EEE_RX_DIR = 1, /**< Reception. */
} vx_eee_dir_t;

/** @brief Data of VX_EVENT_TMR_EXPIRED. */
typedef struct {
    vx_uint16 timer_id; /**< {lmq_timer_id_e} The timer that has run down. */
} lmq_tmr_event_data_s;

/** @brief Data of VX_EVENT_GPIO_INTR. */
typedef struct {
    vx_uint32 gpio_pin_mask; /**< {bits} Pins whose interrupt is new; bit n is pin n. */
} lmq_gpio_event_data_s;

/** @brief Data of VX_EVENT_DMA_ERR. */
typedef struct {
    vx_uint8 dma_id; /**< Number of the DMA channel that has failed. */
} lmq_dma_event_data_s;

/** @brief Data of VX_EVENT_THROTTLED. */
typedef struct {
    vx_event_type_e thrtld_event;      /**< The event whose occurrence was one too many. */
    lmq_event_thrtl_type_e thrtl_type; /**< Which throttle it ran into. */
    vx_uint32 thrtl_cnt;               /**< Occurrences in the interval. */
} lmq_thrtl_event_data_s;

/** @brief Data of VX_EVENT_ETH_EXT_PHY_INTR. */
typedef struct {
    vx_uint16 intr_status; /**< {bits} Content of the PHY's interrupt status register. */
} lmq_eth_phy_event_info_s;

/** @brief Data of VX_EVENT_ETH_PHY_MODE_CHNG. */
typedef struct {
    vx_speed_t speed;   /**< Speed that the PHY has now. */
    vx_duplex_t duplex; /**< Duplex that the PHY has now. */
} lmq_eth_phy_mode_chng_data_s;

/** @brief Data of VX_EVENT_ETH_LINK_STATUS_CHNG. */
typedef struct {
    vx_speed_t speed;   /**< Speed of the link; VX_SPEED_INVALID when it is down. */
    vx_duplex_t duplex; /**< Duplex of the link; VX_DUPLEX_INVALID when it is down. */
    vx_boolean link_up; /**< Whether the link is up now. */
} lmq_eth_link_status_chng_event_data_s;

/** @brief Data of VX_EVENT_PTP_GET_TS. */
typedef struct {
    vx_uint32 ptp_nano_second; /**< {ns} Nanoseconds part of the PTP time. */
    vx_uint32 local_ref_time;  /**< Local reference counter at that time. */
    vx_uint16 local_ref_lsb;   /**< Lower bits of the local reference counter, below local_ref_time. */
    vx_uint32 ptp_freq_offset; /**< {ppb} Correction of the counter's frequency. */
} lmq_ptp_get_ts_event_data_s;

/** @brief Data of VX_EVENT_PTP_EGR_TIME_LATCHED and VX_EVENT_PTP_INGR_TIME_LATCHED. */
typedef struct {
    vx_uint16 port_num;  /**< {id port} Port that the message passed. */
    vx_uint32 timestamp; /**< PTP counter when it passed. */
} lmq_ptp_tmr_latch_data_s;

/** @brief Data of VX_EVENT_GPON_ONU_STATE_CHNG. */
typedef struct {
    vx_gpon_onu_state_t onu_state; /**< State that the ONU has now. */
} lmq_onu_state_event_data_s;

/** @brief Data of the alarms, VX_EVENT_GPON_ALM_LOS to VX_EVENT_GPON_ALM_RDI. */
typedef struct {
    vx_boolean status; /**< TRUE when the alarm is raised, FALSE when it is over. */
} lmq_gpon_alm_event_data_s;

/** @brief Data of VX_EVENT_GPON_ONU_ID. */
typedef struct {
    vx_uint16 onu_id; /**< {0..254} ONU-ID that the OLT has assigned. */
} lmq_gpon_onu_id_event_data_s;

/** @brief Data of VX_EVENT_GPON_OMCC_STATE. */
typedef struct {
    vx_boolean status;     /**< TRUE when the OMCC is up. */
    vx_uint16 gem_port_id; /**< {id gem-port} GEM port of the OMCC. */
} lmq_gpon_omcc_state_data_s;

/** @brief Data of VX_EVENT_GPON_OMCC_GEM_PORT_ID. */
typedef struct {
    vx_uint16 gem_port_id; /**< {id gem-port} GEM port of the OMCC. */
} lmq_gpon_omcc_gem_port_data_s;

/** @brief Data of VX_EVENT_FE_STN_MOVE. */
typedef struct {
    vx_uint8 stn_move_indx; /**< Entry of the station move table. */
} lmq_fe_stn_move_event_data_s;

/** @brief Data of VX_EVENT_EEE_SLEEP_STATE_CHNG. */
typedef struct {
    vx_eee_dir_t eee_dir;     /**< Direction whose state has changed. */
    vx_eee_state_t eee_state; /**< State that this direction has now. */
} lmq_eee_event_data_s;

/** @brief Data of VX_EVENT_EEE_QUEUE_STATUS_CHNG. */
typedef struct {
    vx_uint16 low_thresh;  /**< {bits} Bit n: queue n is below its low threshold. */
    vx_uint16 high_thresh; /**< {bits} Bit n: queue n is above its high threshold. */
} lmq_eee_queue_status_event_data_s;

/**
 * @brief Data of an event. It has no selector: which alternative counts follows from the type of the event, as the
 * alternatives' own comments say.
 */
typedef union {
    vx_uint32 data;                                       /**< Of the events that have no alternative of their own. */
    lmq_tmr_event_data_s tmr_data;                        /**< {if VX_EVENT_TMR_EXPIRED} Which timer. */
    lmq_gpio_event_data_s gpio_data;                      /**< {if VX_EVENT_GPIO_INTR} Which pins. */
    lmq_dma_event_data_s dma_data;                        /**< {if VX_EVENT_DMA_ERR} Which DMA channel. */
    lmq_thrtl_event_data_s thrtl_data;                    /**< {if VX_EVENT_THROTTLED} Which event, and why. */
    lmq_eth_phy_event_info_s phy_intr_data;               /**< {if VX_EVENT_ETH_EXT_PHY_INTR} What the PHY reports. */
    lmq_eth_phy_mode_chng_data_s phy_mode_data;           /**< {if VX_EVENT_ETH_PHY_MODE_CHNG} The new mode. */
    lmq_eth_link_status_chng_event_data_s link_chng_data; /**< {if VX_EVENT_ETH_LINK_STATUS_CHNG} The new link. */
    lmq_ptp_get_ts_event_data_s get_ts_data;              /**< {if VX_EVENT_PTP_GET_TS} The time that was read. */
    /** {if VX_EVENT_PTP_EGR_TIME_LATCHED or VX_EVENT_PTP_INGR_TIME_LATCHED} The time that was latched. */
    lmq_ptp_tmr_latch_data_s ptp_latch_data;
    lmq_onu_state_event_data_s onu_state_data; /**< {if VX_EVENT_GPON_ONU_STATE_CHNG} The new state. */
    /** {if VX_EVENT_GPON_ALM_LOS or VX_EVENT_GPON_ALM_LOF or VX_EVENT_GPON_ALM_SF or VX_EVENT_GPON_ALM_SD or
     *  VX_EVENT_GPON_ALM_LCDG or VX_EVENT_GPON_ALM_TF or VX_EVENT_GPON_ALM_SUF or VX_EVENT_GPON_ALM_MEM or
     *  VX_EVENT_GPON_ALM_DACT or VX_EVENT_GPON_ALM_DIS or VX_EVENT_GPON_ALM_MIS or VX_EVENT_GPON_ALM_PEE or
     *  VX_EVENT_GPON_ALM_RDI} Whether the alarm is on. */
    lmq_gpon_alm_event_data_s gpon_alm_data;
    lmq_gpon_onu_id_event_data_s onu_id_data; /**< {if VX_EVENT_GPON_ONU_ID} The ONU-ID. */
    lmq_gpon_omcc_state_data_s omcc_state;    /**< {if VX_EVENT_GPON_OMCC_STATE} Whether the OMCC is up, and where. */
    lmq_gpon_omcc_gem_port_data_s omcc_gem_data; /**< {if VX_EVENT_GPON_OMCC_GEM_PORT_ID} The GEM port. */
    lmq_fe_stn_move_event_data_s stn_move_data;  /**< {if VX_EVENT_FE_STN_MOVE} Where to look the move up. */
    lmq_eee_event_data_s eee_data; /**< {if VX_EVENT_EEE_SLEEP_STATE_CHNG} The new state of a direction. */
    lmq_eee_queue_status_event_data_s eee_queue_status; /**< {if VX_EVENT_EEE_QUEUE_STATUS_CHNG} The queues. */
} lmq_event_data_u;

/** @brief Whether an event is active, with its data. */
typedef struct {
    vx_boolean status;           /**< TRUE if the event is active, or pending. */
    lmq_event_data_u event_data; /**< What belongs to the event; its type selects the alternative. */
} vx_event_status_s;

/** @brief Holdover of an event: how long it must persist before it is notified. */
typedef struct {
    vx_boolean enable;       /**< TRUE to hold the event back for that long, FALSE to notify it at once. */
    vx_uint16 port_num;      /**< {id port} The port, for an event of a port. */
    vx_uint16 sub_port;      /**< Logical port within it; VX_INVALID_PORT_ID on the SNI means all of them. */
    vx_uint16 holdover_time; /**< How long it must persist, in units of LMQ_EVENT_HOLDOVER_TIME_UNIT ms. */
} vx_event_holdover_cfg_s;

/** @brief Throttle over all events together. */
typedef struct {
    vx_boolean enable;  /**< TRUE to count and hold back; then count and interval are not 0. */
    vx_uint32 count;    /**< Occurrences in an interval at which interrupts are disabled for its rest. */
    vx_uint32 interval; /**< Length of an interval, in units of LMQ_EVENT_THROTTLE_TIME_UNIT ms. */
} vx_event_throttle_cfg_s;

/** @brief Throttle of one type of event. */
typedef struct {
    vx_boolean enable;   /**< TRUE to count and hold back; then count and interval are not 0. */
    vx_boolean per_port; /**< TRUE to count each port by itself, FALSE to count all together. */
    vx_uint32 count;     /**< Occurrences in an interval at which interrupts are disabled for its rest. */
    vx_uint32 interval;  /**< Length of an interval, in units of LMQ_EVENT_THROTTLE_TIME_UNIT ms. */
} vx_intr_throttle_cfg_s;

/** @brief A handler of debug events. */
typedef struct {
    vx_uint32 user_data;         /**< Handed to the handler. */
    lmq_event_context_e context; /**< In which context the handler runs. */
    vx_uint8 context_id;         /**< Which of several contexts of that kind. */
    vx_uint8 priority;           /**< Priority among the handlers of the event. */
    vx_uint32 port_type_bitmap;  /**< {bits of vx_port_type_t} Types of port that the handler is for. */
    vx_boolean all_ports;        /**< TRUE for all ports of those types; then port_num and gem_port_id are not read. */
    vx_uint16 port_num;          /**< {id port} The port, if the handler is for one. */
    vx_uint16 gem_port_id;       /**< {id gem-port} The GEM port, if the event is one of a GEM port. */
} lmq_dbg_event_cfg_s;

/**
 * @brief Reads whether the hardware shows an event, registered or not.
 *
 * Only latched events can be polled, such as the status of a link. An event stays latched until vx_event_status_clear.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  event_type The event.
 * @param[in]  port_num   {id port} The port, for an event of a port; not read for others.
 * @param[in]  sub_port   Logical port within it, for an event of one; a GEM port on the SNI.
 * @param[out] p_status   Whether the event is latched, and its data.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_status_poll(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num, vx_uint16 sub_port,
                                 vx_event_status_s *p_status);

/**
 * @brief Reads the last event that throttling or holdover has kept from being delivered.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  event_type The event.
 * @param[in]  port_num   {id port} The port, for an event of a port; not read for others.
 * @param[in]  sub_port   Logical port within it, for an event of one; a GEM port on the SNI.
 * @param[out] p_status   Whether the event is pending, and the data of its last occurrence.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_pending_events_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_status_s *p_status);

/**
 * @brief Removes a pending event, and clears the hardware status where that can be cleared.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] event_type The event.
 * @param[in] port_num   {id port} The port, for an event of a port; not read for others.
 * @param[in] sub_port   Logical port within it, for an event of one; a GEM port on the SNI.
 * @param[in] p_status   Reserved; it is not read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_status_clear(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_status_s *p_status);

/**
 * @brief Sets the holdover of an event.
 * @par Effect: changes
 * @par Read back: vx_event_holdover_get(sub_port=0) if p_cfg.enable!=FALSE
 * @par Undone by: vx_event_holdover_set(p_cfg.enable=FALSE)
 * @param[in] dev_id     The device.
 * @param[in] event_type The event.
 * @param[in] p_cfg      The holdover, with the port that it is for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_holdover_set(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_event_holdover_cfg_s *p_cfg);

/**
 * @brief Reads the holdover of an event.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  event_type The event.
 * @param[in]  port_num   {id port} The port, for an event of a port; not read for others.
 * @param[in]  sub_port   Logical port within it, for an event of one; a GEM port on the SNI.
 * @param[out] p_cfg      The holdover, with the port that it is for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_holdover_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                  vx_uint16 sub_port, vx_event_holdover_cfg_s *p_cfg);

/**
 * @brief Sets the throttle over all events, timers excepted.
 *
 * While it is enabled, the throttles of single events have no effect.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The throttle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_global_throttle_set(vx_dev_id_t dev_id, vx_event_throttle_cfg_s *p_cfg);

/**
 * @brief Reads the throttle over all events.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The throttle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_global_throttle_get(vx_dev_id_t dev_id, vx_event_throttle_cfg_s *p_cfg);

/**
 * @brief Sets the throttle of an event.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] event_type The event; timers have no throttle.
 * @param[in] p_cfg      The throttle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_throttle_set(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_intr_throttle_cfg_s *p_cfg);

/**
 * @brief Reads the throttle of an event.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  event_type The event; timers have no throttle.
 * @param[out] p_cfg      The throttle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_throttle_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_intr_throttle_cfg_s *p_cfg);

/**
 * @brief Reads how often the hardware has detected an event.
 * @par Effect: reads and clears if clear_after_get
 * @param[in]  dev_id          The device.
 * @param[in]  event_type      The event.
 * @param[in]  port_num        {id port} The port, for an event of a port; not read for others.
 * @param[in]  sub_port        Logical port within it, for an event of one; a GEM port on the SNI.
 * @param[out] p_count         {counter} Occurrences since the count was cleared.
 * @param[in]  clear_after_get TRUE to begin again at 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_count_get(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num, vx_uint16 sub_port,
                               vx_uint32 *p_count, vx_boolean clear_after_get);

/**
 * @brief Clears the count of an event.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] event_type The event.
 * @param[in] port_num   {id port} The port, for an event of a port; not read for others.
 * @param[in] sub_port   Logical port within it, for an event of one; a GEM port on the SNI.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_count_clear(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_uint16 port_num,
                                 vx_uint16 sub_port);

/**
 * @brief Clears the counts of all events.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_event_count_clear_all(vx_dev_id_t dev_id);

/**
 * @brief Enables or disables all interrupts of the chip.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] enable TRUE to enable, FALSE to disable: then events stay pending.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_ctrl_interrupts(vx_dev_id_t dev_id, vx_boolean enable);

/**
 * @brief Registers the handler of an event that prints it.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] event_type The event.
 * @param[in] in_kernel  TRUE to register in kernel space, FALSE in user space.
 * @param[in] p_cfg      The handler.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_register_debug_event(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_boolean in_kernel,
                                     lmq_dbg_event_cfg_s *p_cfg);

/**
 * @brief Undoes lmq_register_debug_event.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] event_type The event.
 * @param[in] in_kernel  Where it was registered.
 * @param[in] p_cfg      The handler; event, space and port tell which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_deregister_debug_event(vx_dev_id_t dev_id, vx_event_type_e event_type, vx_boolean in_kernel,
                                       lmq_dbg_event_cfg_s *p_cfg);

/**
 * @brief Makes an event occur, for debugging.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] evt_type {vx_event_type_e} The event.
 * @param[in] port_num {id port} The port, for an event of a port; not read for others.
 * @param[in] sub_port Logical port within it, for an event of one; a GEM port on the SNI.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_generate_event(vx_dev_id_t dev_id, vx_uint32 evt_type, vx_uint16 port_num, vx_uint16 sub_port);

/**
 * @brief Prints what the driver keeps of an event.
 * @par Effect: reads
 * @param[in] dev_id     The device.
 * @param[in] event_type The event.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_event_db(vx_dev_id_t dev_id, vx_event_type_e event_type);

#ifdef __cplusplus
}
#endif

#endif
