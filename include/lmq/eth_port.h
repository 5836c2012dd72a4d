/**
 * @file
 * @brief The Ethernet ports: configuration, mode, link, loopback, PHY registers, Energy Efficient Ethernet (EEE), flow
 *        control and counters.
 *
 * Ports are those of vx_port_num_t. The PHY registers alone are addressed by the PHY's MDIO address.
 */
#ifndef LMQ_ETH_PORT_H
#define LMQ_ETH_PORT_H

#include "lmq/device.h"
#include "lmq/event.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Queue thresholds of EEE */
/** @{ */
#define VX_INVALID_QUEUE_THRESH_INDX (0xFF) /**< A queue that selects no threshold. */
#define VX_EEE_THRES_MAX_NUM (0x3)          /**< Thresholds of each kind, low and high. */
/** @} */

/** @brief The mode of a port: it negotiates the rates and duplexes that it names (AUTO), or keeps to one (FORCE). */
typedef enum vx_eth_port_mode_t LMQ_ENUM_INT {
    VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_AUTO = 0,    /**< Negotiates any rate, either duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_FULL = 1,      /**< Negotiates 10 Mbit/s, full duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_FULL = 2,     /**< Negotiates 100 Mbit/s, full duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_FULL = 3,    /**< Negotiates 1000 Mbit/s, full duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_FULL = 4,    /**< Negotiates any rate, full duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_AUTO = 16,     /**< Negotiates 10 Mbit/s, either duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_HALF = 17,     /**< Negotiates 10 Mbit/s, half duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_HALF = 18,    /**< Negotiates 100 Mbit/s, half duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_HALF = 19,   /**< Negotiates 1000 Mbit/s, half duplex. No port can do it. */
    VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_HALF = 20,   /**< Negotiates any rate, half duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_AUTO = 32,   /**< Negotiates 1000 Mbit/s, either duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_AUTO = 48,    /**< Negotiates 100 Mbit/s, either duplex. */
    VX_ETH_PORT_MODE_AUTO_RATE_10_100_DUPLEX_AUTO = 64, /**< Negotiates 10 or 100 Mbit/s, either duplex. */
    VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_FULL = 80,    /**< Keeps to 10 Mbit/s, full duplex. */
    VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_HALF = 81,    /**< Keeps to 10 Mbit/s, half duplex. */
    VX_ETH_PORT_MODE_FORCE_RATE_100_DUPLEX_FULL = 82,   /**< Keeps to 100 Mbit/s, full duplex. */
    VX_ETH_PORT_MODE_FORCE_RATE_100_DUPLEX_HALF = 83,   /**< Keeps to 100 Mbit/s, half duplex. */
    VX_ETH_PORT_MODE_FORCE_RATE_1000_DUPLEX_FULL = 84,  /**< Keeps to 1000 Mbit/s, full duplex. */
    VX_ETH_PORT_MODE_RSVED = 96,                        /**< Reserved; no port takes it. */
} vx_eth_port_mode_t;

/** @brief Where frames turn back: towards the chip (local) or towards the line (remote). */
typedef enum vx_eth_port_loopback_t LMQ_ENUM_INT {
    VX_ETH_PORT_LPBK_DISABLED = 0,   /**< Nowhere: there is no loopback. */
    VX_ETH_PORT_LPBK_LOCAL = 1,      /**< In the port, towards the chip. */
    VX_ETH_PORT_LPBK_REMOTE = 2,     /**< In the port, towards the line. */
    VX_ETH_PORT_LPBK_PHY_LOCAL = 3,  /**< In the PHY, towards the chip. */
    VX_ETH_PORT_LPBK_PHY_REMOTE = 4, /**< In the PHY, towards the line. */
} vx_eth_port_loopback_t;

/** @brief Whether a port has a link. */
typedef enum vx_link_status_t LMQ_ENUM_INT {
    VX_LINK_DOWN = 0, /**< No link: nothing passes. */
    VX_LINK_UP = 1,   /**< A link at the speed and duplex that are reported with it. */
} vx_link_status_t;

/** @brief What a port can do at best. */
typedef enum vx_eth_cap_t LMQ_ENUM_INT {
    VX_ETH_TYPE_GE = 0, /**< Gigabit Ethernet: up to 1000 Mbit/s. */
    VX_ETH_TYPE_FE = 1, /**< Fast Ethernet: up to 100 Mbit/s. */
} vx_eth_cap_t;

/** @brief Which pairs of the cable a port sends on (IEEE 802.3). */
typedef enum vx_mdi_mode_t LMQ_ENUM_INT {
    VX_EPHY_MDI_MODE_AUTO = 0,    /**< The port finds out. */
    VX_EPHY_MDI_MODE_MDI = 1,     /**< Straight. */
    VX_EPHY_MDI_MODE_MDIX = 2,    /**< Crossed. */
    VX_EPHY_MDI_MODE_INVALID = 3, /**< How many there are; none itself. */
} vx_mdi_mode_t;

/** @brief What makes a port send pause frames. */
typedef enum vx_flow_ctl_mode_t LMQ_ENUM_INT {
    VX_FLOW_CTL_MODE_BUFFER_LEVEL = 0, /**< The level of its buffer, against the water marks. */
    VX_FLOW_CTL_MODE_RATE = 1,         /**< The rate of its traffic, against traffic_rate. */
} vx_flow_ctl_mode_t;

/** @brief What the transmitter of a port is told to do, whatever its queues hold. */
typedef enum vx_eth_eee_cmd_t LMQ_ENUM_INT {
    VX_EEE_CMD_SLEEP = 0,   /**< Sleep, as long as EEE is enabled. */
    VX_EEE_CMD_WAKE_UP = 1, /**< Wake up, and sleep no more by command. */
} vx_eth_eee_cmd_t;

/** @brief State of the hardware that puts a transmitter to sleep and wakes it. */
typedef enum vx_eee_hw_sm_state_t LMQ_ENUM_INT {
    VX_EEE_SM_STATE_NORMAL = 0,            /**< The transmitter sends. */
    VX_EEE_SM_STATE_PRE_SLEEP_TIMEOUT = 1, /**< The queues are low, and pre_tx_sleep_timeout_delay runs. */
    VX_EEE_SM_STATE_LOW_POWER = 2,         /**< The transmitter sleeps (low power idle). */
    VX_EEE_SM_STATE_DEEP_SLEEP = 3,        /**< The transmitter has slept for a while, and saves more. */
    VX_EEE_SM_STATE_PRE_WAKE_UP = 4,       /**< A queue is high, and pre_tx_wake_timeout_delay runs. */
    VX_EEE_SM_STATE_WAKE_UP = 5,           /**< The transmitter wakes up, and may not send yet. */
} vx_eee_hw_sm_state_t;

/** @name For applications: no function of this interface takes or gives these types */
/** @{ */

/** @brief EEE capabilities that a port advertises: bits. */
typedef enum vx_advertising_eee_t LMQ_ENUM_INT {
    VX_1000BT_EEE_CAP = 1, /**< EEE at 1000 Mbit/s. */
    VX_100BTX_EEE_CAP = 2, /**< EEE at 100 Mbit/s. */
    VX_EEE_CAP_ALL = 3,    /**< EEE at either rate. */
} vx_advertising_eee_t;

/** @brief Pause capabilities that a port advertises (IEEE 802.3, Annex 28B): bits. */
typedef enum vx_advertising_pause_t LMQ_ENUM_INT {
    VX_SYM_PAUSE = 1,  /**< Pause frames in both directions. */
    VX_ASYM_PAUSE = 2, /**< Pause frames in one direction alone. */
} vx_advertising_pause_t;

/** @brief Interface of a group of ports: Gigabit, or one or eight Fast Ethernet ports. */
typedef enum vx_eth_if_type_t LMQ_ENUM_INT {
    VX_ETH_IF_TYPE_GE = 0,      /**< One Gigabit Ethernet port. */
    VX_ETH_IF_TYPE_8FE = 1,     /**< Eight Fast Ethernet ports. */
    VX_ETH_IF_TYPE_1FE = 2,     /**< One Fast Ethernet port. */
    VX_ETH_IF_TYPE_INVALID = 3, /**< How many there are; none itself. */
} vx_eth_if_type_t;

/** @brief What a PHY negotiates. */
typedef enum vx_ephy_an_cfg_t LMQ_ENUM_INT {
    VX_EPHY_AN_DISABLE = 0,     /**< Nothing. */
    VX_EPHY_AN_ENABLE = 1,      /**< Speed and duplex. */
    VX_EPHY_AN_SPEED_ONLY = 2,  /**< The speed alone. */
    VX_EPHY_AN_DUPLEX_ONLY = 3, /**< The duplex alone. */
    VX_EPHY_AN_INVALID = 255,   /**< None of these. */
} vx_ephy_an_cfg_t;

/** @brief Rates and duplexes that a port advertises: bits. */
typedef enum vx_advertising_cap_t LMQ_ENUM_INT {
    VX_ADV_CAP_10BT_HD = 1,    /**< 10 Mbit/s, half duplex. */
    VX_ADV_CAP_10BT_FD = 2,    /**< 10 Mbit/s, full duplex. */
    VX_ADV_CAP_100BT_HD = 4,   /**< 100 Mbit/s, half duplex. */
    VX_ADV_CAP_100BT_FD = 8,   /**< 100 Mbit/s, full duplex. */
    VX_ADV_CAP_1000BT_HD = 16, /**< 1000 Mbit/s, half duplex. */
    VX_ADV_CAP_1000BT_FD = 32, /**< 1000 Mbit/s, full duplex. */
    VX_ADV_CAP_ALL = 63,       /**< All of them. */
} vx_advertising_cap_t;

/** @brief What the flow control of a port is mapped to. */
typedef enum lmq_flw_ctrl_port_map_t LMQ_ENUM_INT {
    VX_LMQ_MA_PORT_MAP = 0,  /**< The port of the CPU. */
    VX_LMQ_MA_VOQ_MAP = 1,   /**< The output queues of the port of the CPU. */
    VX_LMQ_UNI_VOQ_MAP = 2,  /**< The output queues of the first UNI. */
    VX_LMQ_UNI1_VOQ_MAP = 3, /**< The output queues of the second UNI. */
    VX_LMQ_PON_VOQ_MAP = 4,  /**< The output queues of the PON port. */
} lmq_flw_ctrl_port_map_t;

/** @} */

/** @brief A port. port_type, phy_mode and phy_type are reported, and no flag selects them. */
typedef struct {
    vx_admin_status_t admin_status;  /**< Whether the port may have a link. */
    vx_eth_cap_t port_type;          /**< {report} Whether it is a Gigabit or a Fast Ethernet port. */
    vx_eth_phy_mode_t phy_mode;      /**< {report} Which side of the interface to the PHY the port is. */
    vx_eth_phy_type_t phy_type;      /**< {report} Interface to the PHY. */
    vx_uint8 tx_ipg;                 /**< Gap between frames sent, in units of the chip; 12 at first. */
    vx_uint8 rx_ipg;                 /**< Least gap between frames received, in units of the chip; 12 at first. */
    vx_boolean tx_enable;            /**< TRUE: the port sends. */
    vx_boolean rx_enable;            /**< TRUE: the port receives. */
    vx_boolean crc_bypass;           /**< TRUE: frames with a wrong check sequence are taken, too. */
    vx_boolean drop_under_sized_pkt; /**< TRUE: frames of less than 64 bytes are dropped. */
    vx_mdi_mode_t mdix_mode;         /**< {0..2} Which pairs of the cable it sends on. */
    struct {
        vx_uint32 admin_status : 1;
        vx_uint32 tx_ipg : 1;
        vx_uint32 rx_ipg : 1;
        vx_uint32 tx_enable : 1;
        vx_uint32 rx_enable : 1;
        vx_uint32 crc_bypass : 1;
        vx_uint32 drop_under_sized_pkt : 1;
        vx_uint32 mdix_mode : 1;
    } valid;
} vx_eth_port_cfg_t;

/** @brief The link of a port. */
typedef struct {
    vx_link_status_t link_status; /**< Whether there is a link. */
    vx_speed_t speed;             /**< Rate of the link; VX_SPEED_INVALID without one. */
    vx_duplex_t duplex;           /**< Duplex of the link; VX_DUPLEX_INVALID without one. */
} vx_eth_port_status_t;

/** @brief EEE of a port's transmitter (IEEE 802.3, clause 78). The times are in units of the chip. */
typedef struct {
    vx_boolean enbl_eee;                  /**< TRUE: the transmitter sleeps when its queues are low. */
    vx_uint8 min_tx_sleep_time;           /**< How long the transmitter sleeps at least. */
    vx_uint16 pre_tx_sleep_timeout_delay; /**< How long the queues have to be low before the transmitter sleeps. */
    vx_uint8 min_tx_wake_time;            /**< Least time from its wake-up to the first frame. */
    vx_uint16 pre_tx_wake_timeout_delay;  /**< How long a queue has to be high before the transmitter wakes. */
    struct {
        vx_uint32 enbl_eee : 1;
        vx_uint32 min_tx_sleep_time : 1;
        vx_uint32 pre_tx_sleep_timeout_delay : 1;
        vx_uint32 min_tx_wake_time : 1;
        vx_uint32 pre_tx_wake_timeout_delay : 1;
    } valid;
} vx_eth_port_eee_cfg_t;

/** @brief Sleep or wake-up of a port's transmitter by command. */
typedef struct {
    vx_eth_eee_cmd_t sleep_cmd; /**< Sleep or wake up, at once. */
} vx_eth_port_eee_sleep_ctrl_t;

/**
 * @brief Levels of the transmit queues at which EEE acts.
 *
 * There are VX_EEE_THRES_MAX_NUM levels of each kind, and each of the LMQ_MAX_COS queues selects one by its index.
 */
typedef struct {
    vx_uint16 low_thresh[(0x3)];                   /**< At or below its level a queue lets the transmitter sleep. */
    vx_uint16 high_thresh[(0x3)];                  /**< Above its level a queue wakes the transmitter. */
    vx_uint8 queue_low_thresh_sel[((vx_uint8)8)];  /**< Index in low_thresh, or VX_INVALID_QUEUE_THRESH_INDX. */
    vx_uint8 queue_high_thresh_sel[((vx_uint8)8)]; /**< Index in high_thresh, or VX_INVALID_QUEUE_THRESH_INDX. */
    struct {
        vx_uint32 low_thresh : 1;
        vx_uint32 high_thresh : 1;
        vx_uint32 queue_low_thresh_sel : 1;
        vx_uint32 queue_high_thresh_sel : 1;
    } valid;
} vx_eth_port_eee_tx_q_thresh_cfg_t;

/** @brief The transmit queues of a port against their levels. Bit n of a bitmap is queue n. */
typedef struct {
    vx_boolean tx_fifo_empty;                /**< TRUE: the FIFO of the transmitter holds nothing. */
    vx_uint8 queue_below_low_thresh_bitmap;  /**< {bitmap} Queues at or below their low level. */
    vx_uint8 queue_above_high_thresh_bitmap; /**< {bitmap} Queues above their high level. */
} vx_eth_port_eee_tx_q_status_t;

/** @brief State of EEE and of the pause frames of a port. */
typedef struct {
    vx_eee_state_t eee_state;         /**< What EEE has made of the port. */
    vx_eee_hw_sm_state_t hw_sm_state; /**< Where the hardware that does it stands. */
    vx_boolean rx_in_pause;           /**< TRUE: the port has asked its partner to pause. */
    vx_boolean tx_pause_state;        /**< TRUE: the partner has asked the port to pause. */
} vx_eth_port_state_t;

/** @brief When a port sends pause frames (IEEE 802.3, Annex 31B), and what stands in them. */
typedef struct {
    vx_flow_ctl_mode_t flow_control_mode; /**< What makes the port send them; taken without a flag. */
    vx_uint8 high_water_mark;             /**< Buffer level at which pausing begins. */
    vx_uint8 low_water_mark;              /**< Buffer level at which it ends, at most high_water_mark. */
    vx_uint8 pause_time;                  /**< How long the partner is asked to pause, in units of the chip. */
    vx_uint32 traffic_rate;               /**< Rate at which pausing begins, in units of the chip. */
    vx_mac_addr_t mac_sa;                 /**< Source address of the pause frames; at first the device's own. */
    struct {
        vx_uint32 high_water_mark : 1;
        vx_uint32 low_water_mark : 1;
        vx_uint32 pause_time : 1;
        vx_uint32 traffic_rate : 1;
        vx_uint32 mac_sa : 1;
    } valid;
} vx_flow_control_cfg_t;

/** @brief The counters of a port: frames unless the name says bytes. uc, mc, bc: unicast, multicast, broadcast. */
typedef struct {
    vx_uint64 rx_uc_pkt;             /**< {counter, frames} Unicast frames received. */
    vx_uint64 rx_mc_pkt;             /**< {counter, frames} Multicast frames received. */
    vx_uint64 rx_bc_pkt;             /**< {counter, frames} Broadcast frames received. */
    vx_uint64 rx_oam_frm;            /**< {counter, frames} OAM frames received (IEEE 802.3, clause 57). */
    vx_uint64 rx_pause_frm;          /**< {counter, frames} Pause frames received (IEEE 802.3, Annex 31B). */
    vx_uint64 rx_unknown_ctrl_op;    /**< {counter, frames} MAC control frames with an unknown opcode. */
    vx_uint64 rx_crc_frm;            /**< {counter, frames} Of a legal length, with a wrong check sequence. */
    vx_uint64 rx_short_frm;          /**< {counter, frames} Of less than 64 bytes, with a right check sequence. */
    vx_uint64 rx_runt_frm;           /**< {counter, frames} Of less than 64 bytes, with a wrong check sequence. */
    vx_uint64 rx_long_frm;           /**< {counter, frames} Beyond the longest length, with a right check sequence. */
    vx_uint64 rx_jabber_frm;         /**< {counter, frames} Beyond the longest length, with a wrong check sequence. */
    vx_uint64 rx_64_byte_pkt;        /**< {counter, frames} Received, of 64 bytes. */
    vx_uint64 rx_65_127_byte_pkt;    /**< {counter, frames} Received, of 65 to 127 bytes. */
    vx_uint64 rx_128_255_byte_pkt;   /**< {counter, frames} Received, of 128 to 255 bytes. */
    vx_uint64 rx_256_511_byte_pkt;   /**< {counter, frames} Received, of 256 to 511 bytes. */
    vx_uint64 rx_512_1023_byte_pkt;  /**< {counter, frames} Received, of 512 to 1023 bytes. */
    vx_uint64 rx_1024_1518_byte_pkt; /**< {counter, frames} Received, of 1024 to 1518 bytes. */
    vx_uint64 rx_1519_max_byte_pkt;  /**< {counter, frames} Received, of 1519 bytes to the longest length. */
    vx_uint64 rx_bytes;              /**< {counter, bytes} Received, in all frames. */
    vx_uint64 rx_pkts;               /**< {counter, frames} Received, of any kind. */
    vx_uint64 rx_fifo_overflow_drop; /**< {counter, frames} Lost because the receive FIFO was full. */
    vx_uint64 rx_user_drop;          /**< {counter, frames} Dropped because the configuration asks for it. */
    vx_uint64 rx_fifo_bytes;         /**< {counter, bytes} Put into the receive FIFO. */
    vx_uint64 rx_fifo_pkt;           /**< {counter, frames} Put into the receive FIFO. */
    vx_uint64 tx_uc_pkt;             /**< {counter, frames} Unicast frames sent. */
    vx_uint64 tx_mc_pkt;             /**< {counter, frames} Multicast frames sent. */
    vx_uint64 tx_bc_pkt;             /**< {counter, frames} Broadcast frames sent. */
    vx_uint64 tx_oam_frm;            /**< {counter, frames} OAM frames sent (IEEE 802.3, clause 57). */
    vx_uint64 tx_pause_frm;          /**< {counter, frames} Pause frames sent (IEEE 802.3, Annex 31B). */
    vx_uint64 tx_crc_frm;            /**< {counter, frames} Sent with a wrong check sequence. */
    vx_uint64 tx_long_frm;           /**< {counter, frames} Sent beyond the longest length. */
    vx_uint64 tx_64_byte_pkt;        /**< {counter, frames} Sent, of 64 bytes. */
    vx_uint64 tx_65_127_byte_pkt;    /**< {counter, frames} Sent, of 65 to 127 bytes. */
    vx_uint64 tx_128_255_byte_pkt;   /**< {counter, frames} Sent, of 128 to 255 bytes. */
    vx_uint64 tx_256_511_byte_pkt;   /**< {counter, frames} Sent, of 256 to 511 bytes. */
    vx_uint64 tx_512_1023_byte_pkt;  /**< {counter, frames} Sent, of 512 to 1023 bytes. */
    vx_uint64 tx_1024_1518_byte_pkt; /**< {counter, frames} Sent, of 1024 to 1518 bytes. */
    vx_uint64 tx_1519_max_byte_pkt;  /**< {counter, frames} Sent, of 1519 bytes to the longest length. */
    vx_uint64 tx_bytes;              /**< {counter, bytes} Sent, in all frames. */
    vx_uint64 tx_pkts;               /**< {counter, frames} Sent, of any kind. */
} vx_eth_port_stats_t;

/**
 * @brief Sets the members of a port's configuration that valid flags.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[in] p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg);

/**
 * @brief Reads a port's configuration.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_cfg   The configuration; valid flags every member that a set can take.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg);

/**
 * @brief Sets the mode of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[in] p_cfg   The mode.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg);

/**
 * @brief Reads the mode of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_cfg   The mode.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg);

/**
 * @brief Lets a port negotiate its rate and duplex again (IEEE 802.3, clause 28).
 *
 * Its mode has to be one that negotiates.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_auto_nego_restart(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the link of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_cfg   Link, speed and duplex.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_status_t *p_cfg);

/**
 * @brief Makes a port loop frames back, or ends that.
 *
 * One loopback has to end before another begins.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_id   An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[in] lpbk_mode Where frames turn back.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t lpbk_mode);

/**
 * @brief Reads where a port loops frames back.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_lpbk_mode Where frames turn back.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_loopback_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t *p_lpbk_mode);

/**
 * @brief Writes a register of a PHY over MDIO (IEEE 802.3, clause 22).
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] phy_addr    {0..31} MDIO address of the PHY.
 * @param[in] reg_addr    {0..31} The register.
 * @param[in] phy_reg_val {bitmap} What to write.
 * @return VX_SUCCESS or a status.
 */
vx_status_e eth_port_phy_mdio_write(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 phy_reg_val);

/**
 * @brief Reads a register of a PHY over MDIO (IEEE 802.3, clause 22).
 * @par Effect: reads registers
 * @param[in]  dev_id        The device.
 * @param[in]  phy_addr      {0..31} MDIO address of the PHY.
 * @param[in]  reg_addr      {0..31} The register.
 * @param[out] p_phy_reg_val {bitmap} Its content.
 * @return VX_SUCCESS or a status.
 */
vx_status_e eth_port_phy_mdio_read(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 *p_phy_reg_val);

/**
 * @brief Sets the members of a port's EEE configuration that valid flags.
 *
 * Disabling EEE wakes the transmitter.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id eth-port} The port.
 * @param[in] p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_cfg_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg);

/**
 * @brief Reads a port's EEE configuration.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id eth-port} The port.
 * @param[out] p_cfg   The configuration; valid flags every member.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_cfg_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg);

/**
 * @brief Puts a port's transmitter to sleep, or wakes it.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id eth-port} The port.
 * @param[in] p_cfg   The command.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_sleep_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                           vx_eth_port_eee_sleep_ctrl_t *p_cfg);

/**
 * @brief Reads the command that a port's transmitter follows.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id eth-port} The port.
 * @param[out] p_cfg   The command.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_sleep_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                           vx_eth_port_eee_sleep_ctrl_t *p_cfg);

/**
 * @brief Sets the queue levels at which EEE acts, those that valid flags.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id eth-port} The port.
 * @param[in] p_cfg   Levels, and each queue's choice of them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_tx_q_threshold_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                               vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg);

/**
 * @brief Reads the queue levels at which EEE acts.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id eth-port} The port.
 * @param[out] p_cfg   Levels, and each queue's choice of them; valid flags every member.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_tx_q_threshold_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                               vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg);

/**
 * @brief Reads where the transmit queues of a port stand against their levels.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  {id eth-port} The port.
 * @param[out] p_status Which queues are low, and which are high.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_tx_q_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                            vx_eth_port_eee_tx_q_status_t *p_status);

/**
 * @brief Reads the state of EEE and of the pause frames of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id eth-port} The port.
 * @param[out] p_state The state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_state_t *p_state);

/**
 * @brief Sets flow_control_mode of a port's flow control, and the members that valid flags.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[in] p_cfg   The flow control.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg);

/**
 * @brief Reads a port's flow control.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_cfg   The flow control; valid flags every member that has a flag.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg);

/**
 * @brief Enables flow control on a port, for each direction by itself.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_id  An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[in] rx_pause TRUE to obey pause frames.
 * @param[in] tx_pause TRUE to send them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean rx_pause,
                                            vx_boolean tx_pause);

/**
 * @brief Reads whether flow control is enabled on a port.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  port_id    An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_rx_pause Whether pause frames are obeyed.
 * @param[out] p_tx_pause Whether they are sent.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_enable_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_rx_pause,
                                            vx_boolean *p_tx_pause);

/**
 * @brief Reads the counters of a port.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[in]  port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @param[out] p_stats The counters.
 * @param[in]  clear   TRUE to set them to 0 after they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_stats_t *p_stats,
                                  vx_boolean clear);

/**
 * @brief Sets the counters of a port to 0.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id An Ethernet port; VX_PORT_MGMT is one, and VX_PORT_SNI0 in active Ethernet mode.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

#ifdef __cplusplus
}
#endif

#endif
