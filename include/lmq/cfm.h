/**
 * @file
 * @brief 802.1ag.
 */
#ifndef LMQ_CFM_H
#define LMQ_CFM_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define VX_CFM_CCM_PKT_BUFF_SIZE 2048
#define VX_CFM_OPCODE_MIN 45
#define VX_CFM_OPCODE_MAX 47
#define VX_CFM_MD_LEVEL_MAX 7

typedef enum vx_cfm_opcode_t LMQ_ENUM_INT {
    VX_CFM_1DM = 1,
    VX_CFM_DMR = 2,
    VX_CFM_DMM = 4,
} vx_cfm_opcode_t;

typedef enum vx_cfm_ccm_tx_mode_t LMQ_ENUM_INT {
    VX_CFM_CCM_TX_DISABLE = 0,
    VX_CFM_CCM_ONE_TIME_TX = 1,
    VX_CFM_CCM_REPEAT_TX = 2,
} vx_cfm_ccm_tx_mode_t;

typedef struct {
    vx_boolean enbl_lbm_proc;
    vx_boolean accept_mcast_da;
    vx_uint8 md_level;
    vx_uint16 lbr_tx_port;
    vx_uint16 lbr_tx_gem_port;
    vx_uint8 lbr_cos;
    union {
        struct {
            vx_uint32 enbl_lbm_proc : 1;
            vx_uint32 accept_mcast_da : 1;
            vx_uint32 md_level : 1;
            vx_uint32 lbr_tx_port : 1;
            vx_uint32 lbr_tx_gem_port : 1;
            vx_uint32 lbr_cos : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1ag_lbm_cfg_t;

typedef struct {
    vx_cfm_ccm_tx_mode_t ccm_tx_mode;
    vx_uint32 repeat_timer;
    vx_boolean enbl_seq_num;
    vx_uint16 seq_num_offset;
    vx_uint32 seq_num_val;
    union {
        struct {
            vx_uint32 ccm_tx_mode : 1;
            vx_uint32 repeat_timer : 1;
            vx_uint32 enbl_seq_num : 1;
            vx_uint32 seq_num_offset : 1;
            vx_uint32 seq_num_val : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1ag_ccm_cfg_t;

typedef struct {
    vx_uint16 port_num;
    vx_uint16 gem_port_id;
    vx_boolean enbl_byte_swap;
    vx_uint16 pkt_len;
    vx_uint8 p_pkt_buff[2048];
    union {
        struct {
            vx_uint32 port_num : 1;
            vx_uint32 enbl_byte_swap : 1;
            vx_uint32 pkt_len : 1;
            vx_uint32 p_pkt_buff : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1ag_ccm_pkt_buf_cfg_t;

typedef struct {
    vx_boolean enbl_rx;
    vx_boolean enbl_tx;
    vx_cfm_opcode_t rx_op_code;
} vx_1ag_dm_cfg_t;

typedef struct {
    vx_uint32 tx_lbr_pkts;
    vx_uint32 rx_dm_pkts;
    vx_uint32 tx_dm_pkts;
} vx_1ag_stats_t;

vx_status_e vx_1ag_dm_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_1ag_dm_cfg_t *p_cfg);

vx_status_e vx_1ag_ccm_pkt_buf_get(vx_dev_id_t dev_id, vx_1ag_ccm_pkt_buf_cfg_t *p_cfg);

vx_status_e vx_1ag_lbm_config_get(vx_dev_id_t dev_id, vx_1ag_lbm_cfg_t *p_cfg);

vx_status_e vx_1ag_lbm_config_set(vx_dev_id_t dev_id, vx_1ag_lbm_cfg_t *p_cfg);

vx_status_e vx_1ag_ccm_config_set(vx_dev_id_t dev_id, vx_1ag_ccm_cfg_t *p_cfg);

vx_status_e vx_1ag_ccm_pkt_buf_set(vx_dev_id_t dev_id, vx_1ag_ccm_pkt_buf_cfg_t *p_cfg);

vx_status_e vx_1ag_dm_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_1ag_dm_cfg_t *p_cfg);

vx_status_e vx_1ag_stats_get(vx_dev_id_t dev_id, vx_1ag_stats_t *p_stats, vx_boolean clear);

vx_status_e vx_1ag_ccm_config_get(vx_dev_id_t dev_id, vx_1ag_ccm_cfg_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
