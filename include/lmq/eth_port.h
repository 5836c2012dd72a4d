/**
 * @file
 * @brief Ethernet ports.
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

#define VX_INVALID_QUEUE_THRESH_INDX (0xFF)
#define VX_EEE_THRES_MAX_NUM (0x3)

typedef enum vx_advertising_eee_t LMQ_ENUM_INT {
    VX_1000BT_EEE_CAP = 1,
    VX_100BTX_EEE_CAP = 2,
    VX_EEE_CAP_ALL = 3,
} vx_advertising_eee_t;

typedef enum vx_advertising_pause_t LMQ_ENUM_INT {
    VX_SYM_PAUSE = 1,
    VX_ASYM_PAUSE = 2,
} vx_advertising_pause_t;

typedef enum vx_eth_if_type_t LMQ_ENUM_INT {
    VX_ETH_IF_TYPE_GE = 0,
    VX_ETH_IF_TYPE_8FE = 1,
    VX_ETH_IF_TYPE_1FE = 2,
    VX_ETH_IF_TYPE_INVALID = 3,
} vx_eth_if_type_t;

typedef enum vx_ephy_an_cfg_t LMQ_ENUM_INT {
    VX_EPHY_AN_DISABLE = 0,
    VX_EPHY_AN_ENABLE = 1,
    VX_EPHY_AN_SPEED_ONLY = 2,
    VX_EPHY_AN_DUPLEX_ONLY = 3,
    VX_EPHY_AN_INVALID = 255,
} vx_ephy_an_cfg_t;

typedef enum vx_advertising_cap_t LMQ_ENUM_INT {
    VX_ADV_CAP_10BT_HD = 1,
    VX_ADV_CAP_10BT_FD = 2,
    VX_ADV_CAP_100BT_HD = 4,
    VX_ADV_CAP_100BT_FD = 8,
    VX_ADV_CAP_1000BT_HD = 16,
    VX_ADV_CAP_1000BT_FD = 32,
    VX_ADV_CAP_ALL = 63,
} vx_advertising_cap_t;

typedef enum lmq_flw_ctrl_port_map_t LMQ_ENUM_INT {
    VX_LMQ_MA_PORT_MAP = 0,
    VX_LMQ_MA_VOQ_MAP = 1,
    VX_LMQ_UNI_VOQ_MAP = 2,
    VX_LMQ_UNI1_VOQ_MAP = 3,
    VX_LMQ_PON_VOQ_MAP = 4,
} lmq_flw_ctrl_port_map_t;

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

typedef enum vx_eth_port_loopback_t LMQ_ENUM_INT {
    VX_ETH_PORT_LPBK_DISABLED = 0,
    VX_ETH_PORT_LPBK_LOCAL = 1,
    VX_ETH_PORT_LPBK_REMOTE = 2,
    VX_ETH_PORT_LPBK_PHY_LOCAL = 3,
    VX_ETH_PORT_LPBK_PHY_REMOTE = 4,
} vx_eth_port_loopback_t;

typedef enum vx_link_status_t LMQ_ENUM_INT {
    VX_LINK_DOWN = 0,
    VX_LINK_UP = 1,
} vx_link_status_t;

typedef enum vx_eth_cap_t LMQ_ENUM_INT {
    VX_ETH_TYPE_GE = 0,
    VX_ETH_TYPE_FE = 1,
} vx_eth_cap_t;

typedef enum vx_mdi_mode_t LMQ_ENUM_INT {
    VX_EPHY_MDI_MODE_AUTO = 0,
    VX_EPHY_MDI_MODE_MDI = 1,
    VX_EPHY_MDI_MODE_MDIX = 2,
    VX_EPHY_MDI_MODE_INVALID = 3,
} vx_mdi_mode_t;

typedef enum vx_flow_ctl_mode_t LMQ_ENUM_INT {
    VX_FLOW_CTL_MODE_BUFFER_LEVEL = 0,
    VX_FLOW_CTL_MODE_RATE = 1,
} vx_flow_ctl_mode_t;

typedef enum vx_eth_eee_cmd_t LMQ_ENUM_INT {
    VX_EEE_CMD_SLEEP = 0,
    VX_EEE_CMD_WAKE_UP = 1,
} vx_eth_eee_cmd_t;

typedef enum vx_eee_hw_sm_state_t LMQ_ENUM_INT {
    VX_EEE_SM_STATE_NORMAL = 0,
    VX_EEE_SM_STATE_PRE_SLEEP_TIMEOUT = 1,
    VX_EEE_SM_STATE_LOW_POWER = 2,
    VX_EEE_SM_STATE_DEEP_SLEEP = 3,
    VX_EEE_SM_STATE_PRE_WAKE_UP = 4,
    VX_EEE_SM_STATE_WAKE_UP = 5,
} vx_eee_hw_sm_state_t;

typedef struct {
    vx_admin_status_t admin_status;
    vx_eth_cap_t port_type;
    vx_eth_phy_mode_t phy_mode;
    vx_eth_phy_type_t phy_type;
    vx_uint8 tx_ipg;
    vx_uint8 rx_ipg;
    vx_boolean tx_enable;
    vx_boolean rx_enable;
    vx_boolean crc_bypass;
    vx_boolean drop_under_sized_pkt;
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

typedef struct {
    vx_boolean enbl_eee;
    vx_uint8 min_tx_sleep_time;
    vx_uint16 pre_tx_sleep_timeout_delay;
    vx_uint8 min_tx_wake_time;
    vx_uint16 pre_tx_wake_timeout_delay;
    struct {
        vx_uint32 enbl_eee : 1;
        vx_uint32 min_tx_sleep_time : 1;
        vx_uint32 pre_tx_sleep_timeout_delay : 1;
        vx_uint32 min_tx_wake_time : 1;
        vx_uint32 pre_tx_wake_timeout_delay : 1;
    } valid;
} vx_eth_port_eee_cfg_t;

typedef struct {
    vx_eth_eee_cmd_t sleep_cmd;
} vx_eth_port_eee_sleep_ctrl_t;

typedef struct {
    vx_uint16 low_thresh[(0x3)];
    vx_uint16 high_thresh[(0x3)];
    vx_uint8 queue_low_thresh_sel[((vx_uint8)8)];
    vx_uint8 queue_high_thresh_sel[((vx_uint8)8)];
    struct {
        vx_uint32 low_thresh : 1;
        vx_uint32 high_thresh : 1;
        vx_uint32 queue_low_thresh_sel : 1;
        vx_uint32 queue_high_thresh_sel : 1;
    } valid;
} vx_eth_port_eee_tx_q_thresh_cfg_t;

typedef struct {
    vx_boolean tx_fifo_empty;
    vx_uint8 queue_below_low_thresh_bitmap;
    vx_uint8 queue_above_high_thresh_bitmap;
} vx_eth_port_eee_tx_q_status_t;

typedef struct {
    vx_eee_state_t eee_state;
    vx_eee_hw_sm_state_t hw_sm_state;
    vx_boolean rx_in_pause;
    vx_boolean tx_pause_state;
} vx_eth_port_state_t;

typedef struct {
    vx_link_status_t link_status;
    vx_speed_t speed;
    vx_duplex_t duplex;
} vx_eth_port_status_t;

typedef struct {
    vx_flow_ctl_mode_t flow_control_mode;
    vx_uint8 high_water_mark;
    vx_uint8 low_water_mark;
    vx_uint8 pause_time;
    vx_uint32 traffic_rate;
    vx_mac_addr_t mac_sa;
    struct {
        vx_uint32 high_water_mark : 1;
        vx_uint32 low_water_mark : 1;
        vx_uint32 pause_time : 1;
        vx_uint32 traffic_rate : 1;
        vx_uint32 mac_sa : 1;
    } valid;
} vx_flow_control_cfg_t;

typedef struct {
    vx_uint64 rx_uc_pkt;
    vx_uint64 rx_mc_pkt;
    vx_uint64 rx_bc_pkt;
    vx_uint64 rx_oam_frm;
    vx_uint64 rx_pause_frm;
    vx_uint64 rx_unknown_ctrl_op;
    vx_uint64 rx_crc_frm;
    vx_uint64 rx_short_frm;
    vx_uint64 rx_runt_frm;
    vx_uint64 rx_long_frm;
    vx_uint64 rx_jabber_frm;
    vx_uint64 rx_64_byte_pkt;
    vx_uint64 rx_65_127_byte_pkt;
    vx_uint64 rx_128_255_byte_pkt;
    vx_uint64 rx_256_511_byte_pkt;
    vx_uint64 rx_512_1023_byte_pkt;
    vx_uint64 rx_1024_1518_byte_pkt;
    vx_uint64 rx_1519_max_byte_pkt;
    vx_uint64 rx_bytes;
    vx_uint64 rx_pkts;
    vx_uint64 rx_fifo_overflow_drop;
    vx_uint64 rx_user_drop;
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

vx_status_e vx_eth_port_eee_tx_q_threshold_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg);

vx_status_e eth_port_phy_mdio_write(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 phy_reg_val);

vx_status_e vx_eth_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg);

vx_status_e vx_eth_port_eee_cfg_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg);

vx_status_e eth_port_phy_mdio_read(vx_dev_id_t dev_id, vx_uint8 phy_addr, vx_uint8 reg_addr, vx_uint16 *p_phy_reg_val);

vx_status_e vx_eth_port_loopback_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t *p_lpbk_mode);

vx_status_e vx_eth_port_eee_tx_q_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_tx_q_status_t *p_status);

vx_status_e vx_eth_port_eee_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_state_t *p_state);

vx_status_e vx_eth_port_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_eth_port_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_status_t *p_cfg);

vx_status_e vx_eth_port_eee_sleep_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_sleep_ctrl_t *p_cfg);

vx_status_e vx_eth_port_eee_tx_q_threshold_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_tx_q_thresh_cfg_t *p_cfg);

vx_status_e vx_eth_port_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_stats_t *p_stats, vx_boolean clear);

vx_status_e vx_eth_port_flowctrl_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg);

vx_status_e vx_eth_port_auto_nego_restart(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_eth_port_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg);

vx_status_e vx_eth_port_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_mode_t *p_cfg);

vx_status_e vx_eth_port_eee_sleep_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_sleep_ctrl_t *p_cfg);

vx_status_e vx_eth_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_loopback_t lpbk_mode);

vx_status_e vx_eth_port_flowctrl_enable_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_rx_pause, vx_boolean *p_tx_pause);

vx_status_e vx_eth_port_flowctrl_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_control_cfg_t *p_cfg);

vx_status_e vx_eth_port_eee_cfg_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_eee_cfg_t *p_cfg);

vx_status_e vx_eth_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_eth_port_cfg_t *p_cfg);

vx_status_e vx_eth_port_flowctrl_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean rx_pause, vx_boolean tx_pause);

#ifdef __cplusplus
}
#endif

#endif
