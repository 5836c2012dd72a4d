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
    VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_AUTO = 0,
    VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_FULL = 1,
    VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_FULL = 2,
    VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_FULL = 3,
    VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_FULL = 4,
    VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_AUTO = 16,
    VX_ETH_PORT_MODE_AUTO_RATE_10_DUPLEX_HALF = 17,
    VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_HALF = 18,
    VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_HALF = 19,
    VX_ETH_PORT_MODE_AUTO_RATE_AUTO_DUPLEX_HALF = 20,
    VX_ETH_PORT_MODE_AUTO_RATE_1000_DUPLEX_AUTO = 32,
    VX_ETH_PORT_MODE_AUTO_RATE_100_DUPLEX_AUTO = 48,
    VX_ETH_PORT_MODE_AUTO_RATE_10_100_DUPLEX_AUTO = 64,
    VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_FULL = 80,
    VX_ETH_PORT_MODE_FORCE_RATE_10_DUPLEX_HALF = 81,
    VX_ETH_PORT_MODE_FORCE_RATE_100_DUPLEX_FULL = 82,
    VX_ETH_PORT_MODE_FORCE_RATE_100_DUPLEX_HALF = 83,
    VX_ETH_PORT_MODE_FORCE_RATE_1000_DUPLEX_FULL = 84,
    VX_ETH_PORT_MODE_RSVED = 96,
} vx_eth_port_mode_t;

/** @brief Where frames turn back: in the port or in its PHY, towards the chip (local) or towards the line (remote). */
typedef enum vx_eth_port_loopback_t LMQ_ENUM_INT {
    VX_ETH_PORT_LPBK_DISABLED = 0,
    VX_ETH_PORT_LPBK_LOCAL = 1,
    VX_ETH_PORT_LPBK_REMOTE = 2,
    VX_ETH_PORT_LPBK_PHY_LOCAL = 3,
    VX_ETH_PORT_LPBK_PHY_REMOTE = 4,
} vx_eth_port_loopback_t;

/** @brief Whether a port has a link. */
typedef enum vx_link_status_t LMQ_ENUM_INT {
    VX_LINK_DOWN = 0,
    VX_LINK_UP = 1,
} vx_link_status_t;

/** @brief What a port can do: Gigabit Ethernet (GE) or Fast Ethernet (FE). */
typedef enum vx_eth_cap_t LMQ_ENUM_INT {
    VX_ETH_TYPE_GE = 0,
    VX_ETH_TYPE_FE = 1,
} vx_eth_cap_t;

/** @brief Pairs of the medium-dependent interface (IEEE 802.3): straight (MDI), crossed (MDIX), or found out. */
typedef enum vx_mdi_mode_t LMQ_ENUM_INT {
    VX_EPHY_MDI_MODE_AUTO = 0,
    VX_EPHY_MDI_MODE_MDI = 1,
    VX_EPHY_MDI_MODE_MDIX = 2,
    VX_EPHY_MDI_MODE_INVALID = 3,
} vx_mdi_mode_t;

/** @brief What makes a port send pause frames: the level of its buffer, or the rate of its traffic. */
typedef enum vx_flow_ctl_mode_t LMQ_ENUM_INT {
    VX_FLOW_CTL_MODE_BUFFER_LEVEL = 0,
    VX_FLOW_CTL_MODE_RATE = 1,
} vx_flow_ctl_mode_t;

/** @brief What the transmitter of a port is told to do, whatever its queues hold. */
typedef enum vx_eth_eee_cmd_t LMQ_ENUM_INT {
    VX_EEE_CMD_SLEEP = 0,
    VX_EEE_CMD_WAKE_UP = 1,
} vx_eth_eee_cmd_t;

/** @brief State of the hardware that puts a transmitter to sleep and wakes it. */
typedef enum vx_eee_hw_sm_state_t LMQ_ENUM_INT {
    VX_EEE_SM_STATE_NORMAL = 0,
    VX_EEE_SM_STATE_PRE_SLEEP_TIMEOUT = 1,
    VX_EEE_SM_STATE_LOW_POWER = 2,
    VX_EEE_SM_STATE_DEEP_SLEEP = 3,
    VX_EEE_SM_STATE_PRE_WAKE_UP = 4,
    VX_EEE_SM_STATE_WAKE_UP = 5,
} vx_eee_hw_sm_state_t;

/** @name For applications: no function of this interface takes or gives these types */
/** @{ */

/** @brief EEE capabilities that a port advertises: bits. */
typedef enum vx_advertising_eee_t LMQ_ENUM_INT {
    VX_1000BT_EEE_CAP = 1,
    VX_100BTX_EEE_CAP = 2,
    VX_EEE_CAP_ALL = 3,
} vx_advertising_eee_t;

/** @brief Pause capabilities that a port advertises (IEEE 802.3, Annex 28B): bits. */
typedef enum vx_advertising_pause_t LMQ_ENUM_INT {
    VX_SYM_PAUSE = 1,
    VX_ASYM_PAUSE = 2,
} vx_advertising_pause_t;

/** @brief Interface of a group of ports: Gigabit, or one or eight Fast Ethernet ports. */
typedef enum vx_eth_if_type_t LMQ_ENUM_INT {
    VX_ETH_IF_TYPE_GE = 0,
    VX_ETH_IF_TYPE_8FE = 1,
    VX_ETH_IF_TYPE_1FE = 2,
    VX_ETH_IF_TYPE_INVALID = 3,
} vx_eth_if_type_t;

/** @brief What a PHY negotiates. */
typedef enum vx_ephy_an_cfg_t LMQ_ENUM_INT {
    VX_EPHY_AN_DISABLE = 0,
    VX_EPHY_AN_ENABLE = 1,
    VX_EPHY_AN_SPEED_ONLY = 2,
    VX_EPHY_AN_DUPLEX_ONLY = 3,
    VX_EPHY_AN_INVALID = 255,
} vx_ephy_an_cfg_t;

/** @brief Rates and duplexes that a port advertises, half (HD) and full (FD): bits. */
typedef enum vx_advertising_cap_t LMQ_ENUM_INT {
    VX_ADV_CAP_10BT_HD = 1,
    VX_ADV_CAP_10BT_FD = 2,
    VX_ADV_CAP_100BT_HD = 4,
    VX_ADV_CAP_100BT_FD = 8,
    VX_ADV_CAP_1000BT_HD = 16,
    VX_ADV_CAP_1000BT_FD = 32,
    VX_ADV_CAP_ALL = 63,
} vx_advertising_cap_t;

/** @brief What the flow control of a port is mapped to. */
typedef enum lmq_flw_ctrl_port_map_t LMQ_ENUM_INT {
    VX_LMQ_MA_PORT_MAP = 0,
    VX_LMQ_MA_VOQ_MAP = 1,
    VX_LMQ_UNI_VOQ_MAP = 2,
    VX_LMQ_UNI1_VOQ_MAP = 3,
    VX_LMQ_PON_VOQ_MAP = 4,
} lmq_flw_ctrl_port_map_t;

/** @} */

/** @brief A port. port_type, phy_mode and phy_type are reported, and no flag selects them. */
typedef struct {
    vx_admin_status_t admin_status;
    vx_eth_cap_t port_type;
    vx_eth_phy_mode_t phy_mode;
    vx_eth_phy_type_t phy_type;
    vx_uint8 tx_ipg; /**< Gap between frames sent, in units of the chip. */
    vx_uint8 rx_ipg; /**< Least gap between frames received, in units of the chip. */
    vx_boolean tx_enable;
    vx_boolean rx_enable;
    vx_boolean crc_bypass; /**< Frames with a wrong check sequence are taken, too. */
    vx_boolean drop_under_sized_pkt; /**< Frames of less than 64 bytes are dropped. */
    vx_mdi_mode_t mdix_mode;
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
    vx_link_status_t link_status;
    vx_speed_t speed;
    vx_duplex_t duplex;
} vx_eth_port_status_t;

/** @brief EEE of a port's transmitter (IEEE 802.3, clause 78). The times are in units of the chip. */
typedef struct {
    vx_boolean enbl_eee;
    vx_uint8 min_tx_sleep_time;
    vx_uint16 pre_tx_sleep_timeout_delay; /**< How long the queues have to be low before the transmitter sleeps. */
    vx_uint8 min_tx_wake_time;
    vx_uint16 pre_tx_wake_timeout_delay; /**< How long a queue has to be high before the transmitter wakes. */
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
    vx_eth_eee_cmd_t sleep_cmd;
} vx_eth_port_eee_sleep_ctrl_t;

/**
 * @brief Levels of the transmit queues at which EEE acts.
 *
 * There are VX_EEE_THRES_MAX_NUM levels of each kind, and each of the LMQ_MAX_COS queues selects one by its index.
 */
typedef struct {
    vx_uint16 low_thresh[(0x3)]; /**< At or below its level a queue lets the transmitter sleep. */
    vx_uint16 high_thresh[(0x3)]; /**< Above its level a queue wakes the transmitter. */
    vx_uint8 queue_low_thresh_sel[((vx_uint8)8)]; /**< Index into low_thresh, or VX_INVALID_QUEUE_THRESH_INDX. */
    vx_uint8 queue_high_thresh_sel[((vx_uint8)8)]; /**< Index into high_thresh, or VX_INVALID_QUEUE_THRESH_INDX. */
    struct {
        vx_uint32 low_thresh : 1;
        vx_uint32 high_thresh : 1;
        vx_uint32 queue_low_thresh_sel : 1;
        vx_uint32 queue_high_thresh_sel : 1;
    } valid;
} vx_eth_port_eee_tx_q_thresh_cfg_t;

/** @brief The transmit queues of a port against their levels. Bit n of a bitmap is queue n. */
typedef struct {
    vx_boolean tx_fifo_empty;
    vx_uint8 queue_below_low_thresh_bitmap;
    vx_uint8 queue_above_high_thresh_bitmap;
} vx_eth_port_eee_tx_q_status_t;

/** @brief State of EEE and of the pause frames of a port. */
typedef struct {
    vx_eee_state_t eee_state;
    vx_eee_hw_sm_state_t hw_sm_state;
    vx_boolean rx_in_pause; /**< The port has told its partner to pause. */
    vx_boolean tx_pause_state; /**< The partner has told the port to pause. */
} vx_eth_port_state_t;

/** @brief When a port sends pause frames (IEEE 802.3, Annex 31B), and what stands in them. */
typedef struct {
    vx_flow_ctl_mode_t flow_control_mode; /**< Has no flag in valid. */
    vx_uint8 high_water_mark; /**< Buffer level at which pausing begins. */
    vx_uint8 low_water_mark; /**< Buffer level at which it ends. */
    vx_uint8 pause_time;
    vx_uint32 traffic_rate; /**< Rate at which pausing begins, in units of the chip. */
    vx_mac_addr_t mac_sa; /**< Source address of the pause frames. */
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
    vx_uint64 rx_uc_pkt;
    vx_uint64 rx_mc_pkt;
    vx_uint64 rx_bc_pkt;
    vx_uint64 rx_oam_frm; /**< OAM frames (IEEE 802.3, clause 57). */
    vx_uint64 rx_pause_frm;
    vx_uint64 rx_unknown_ctrl_op; /**< MAC control frames with an unknown opcode. */
    vx_uint64 rx_crc_frm; /**< Frames of a legal length with a wrong check sequence. */
    vx_uint64 rx_short_frm; /**< Frames of less than 64 bytes with a right check sequence. */
    vx_uint64 rx_runt_frm; /**< Frames of less than 64 bytes with a wrong one. */
    vx_uint64 rx_long_frm; /**< Frames beyond the longest length with a right check sequence. */
    vx_uint64 rx_jabber_frm; /**< Frames beyond the longest length with a wrong one. */
    vx_uint64 rx_64_byte_pkt;
    vx_uint64 rx_65_127_byte_pkt;
    vx_uint64 rx_128_255_byte_pkt;
    vx_uint64 rx_256_511_byte_pkt;
    vx_uint64 rx_512_1023_byte_pkt;
    vx_uint64 rx_1024_1518_byte_pkt;
    vx_uint64 rx_1519_max_byte_pkt;
    vx_uint64 rx_bytes;
    vx_uint64 rx_pkts;
    vx_uint64 rx_fifo_overflow_drop; /**< Frames lost because the receive FIFO was full. */
    vx_uint64 rx_user_drop; /**< Frames that the configuration asks to drop. */
    vx_uint64 rx_fifo_bytes;
    vx_uint64 rx_fifo_pkt;
    vx_uint64 tx_uc_pkt;
    vx_uint64 tx_mc_pkt;
    vx_uint64 tx_bc_pkt;
    vx_uint64 tx_oam_frm;
    vx_uint64 tx_pause_frm;
    vx_uint64 tx_crc_frm;
    vx_uint64 tx_long_frm;
    vx_uint64 tx_64_byte_pkt;
    vx_uint64 tx_65_127_byte_pkt;
    vx_uint64 tx_128_255_byte_pkt;
    vx_uint64 tx_256_511_byte_pkt;
    vx_uint64 tx_512_1023_byte_pkt;
    vx_uint64 tx_1024_1518_byte_pkt;
    vx_uint64 tx_1519_max_byte_pkt;
    vx_uint64 tx_bytes;
    vx_uint64 tx_pkts;
} vx_eth_port_stats_t;

/**
 * @brief Sets the members of a port's configuration that the mask flags.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg);

/**
 * @brief Reads a port's configuration.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg);

/**
 * @brief Sets the mode of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The mode; it is only read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg);

/**
 * @brief Reads the mode of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg);

/**
 * @brief Lets a port negotiate its rate and duplex again (IEEE 802.3, clause 28).
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_auto_nego_restart(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the link of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_status_t *p_cfg);

/**
 * @brief Makes a port loop frames back, or ends that.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param lpbk_mode Where frames turn back.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t lpbk_mode);

/**
 * @brief Reads where a port loops frames back.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param p_lpbk_mode Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_loopback_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t *p_lpbk_mode);

/**
 * @brief Writes a register of a PHY over MDIO (IEEE 802.3, clause 22).
 * @param dev_id      The device.
 * @param phy_addr    MDIO address of the PHY, 0 to 31.
 * @param reg_addr    The register, 0 to 31.
 * @param phy_reg_val What to write.
 * @return VX_SUCCESS or a status.
 */
vx_status_e eth_port_phy_mdio_write(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 phy_reg_val);

/**
 * @brief Reads a register of a PHY over MDIO (IEEE 802.3, clause 22).
 * @param dev_id        The device.
 * @param phy_addr      MDIO address of the PHY, 0 to 31.
 * @param reg_addr      The register, 0 to 31.
 * @param p_phy_reg_val Where to write its content.
 * @return VX_SUCCESS or a status.
 */
vx_status_e eth_port_phy_mdio_read(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 *p_phy_reg_val);

/**
 * @brief Sets the members of a port's EEE configuration that the mask flags.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_cfg_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg);

/**
 * @brief Reads a port's EEE configuration.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_cfg_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg);

/**
 * @brief Puts a port's transmitter to sleep, or wakes it.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The command.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_sleep_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                           vx_eth_port_eee_sleep_ctrl_t *p_cfg);

/**
 * @brief Reads the command that a port's transmitter follows.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_sleep_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                           vx_eth_port_eee_sleep_ctrl_t *p_cfg);

/**
 * @brief Sets the flagged ones of the queue levels at which EEE acts.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Levels, and each queue's choice of them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_tx_q_threshold_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                               vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg);

/**
 * @brief Reads the queue levels at which EEE acts.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write them; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_tx_q_threshold_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                               vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg);

/**
 * @brief Reads where the transmit queues of a port stand against their levels.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param p_status Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_tx_q_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                            vx_eth_port_eee_tx_q_status_t *p_status);

/**
 * @brief Reads the state of EEE and of the pause frames of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_state Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_eee_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_state_t *p_state);

/**
 * @brief Sets flow_control_mode and the flagged members of a port's flow control.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The flow control.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg);

/**
 * @brief Reads a port's flow control.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg);

/**
 * @brief Enables flow control on a port, for each direction by itself.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param rx_pause TRUE to obey pause frames.
 * @param tx_pause TRUE to send them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean rx_pause,
                                            vx_boolean tx_pause);

/**
 * @brief Reads whether flow control is enabled on a port.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param p_rx_pause Where to write whether pause frames are obeyed.
 * @param p_tx_pause Where to write whether they are sent.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_flowctrl_enable_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_rx_pause,
                                            vx_boolean *p_tx_pause);

/**
 * @brief Reads the counters of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_stats Where to write them.
 * @param clear   TRUE to set them to 0 after they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_stats_t *p_stats,
                                  vx_boolean clear);

/**
 * @brief Sets the counters of a port to 0.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_eth_port_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

#ifdef __cplusplus
}
#endif

#endif
