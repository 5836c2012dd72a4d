/**
 * @file
 * @brief GPON traffic management and statistics.
 */
#ifndef LMQ_GPON_TM_H
#define LMQ_GPON_TM_H

#include "lmq/device.h"
#include "lmq/policer.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define O5_STATE_TRANSITION 0x0001
#define BIP_ERR_CNT 0x0002
#define DS_GPON_FRM_CNT 0x0004
#define RX_GEM_FRAG_DROP 0x0008
#define RX_GEM_1BIT_ERR 0x0010
#define RX_GEM_2BIT_ERR 0x0020
#define RX_GEM_UNCORR_ERR 0x0040
#define BWMAP_DROP 0x0080
#define PLEND_ERR 0x0100
#define PLEND_CORR_BIT_ERR 0x0200
#define DS_CRC_PKT 0x0400
#define DS_UNDERSZ_PKT 0x0800
#define DS_OVERSZ_PKT 0x1000
#define GPON_MAC_STATS_ALL 0xffff

typedef enum vx_gpon_tm_pri_q_map_type_t LMQ_ENUM_INT {
    VX_GPON_TM_PRI_Q_MAP_TCONT = 0,
    VX_GPON_TM_PRI_Q_MAP_SCHED = 1,
    VX_GPON_TM_PRI_Q_MAP_UNI = 2,
} vx_gpon_tm_pri_q_map_type_t;

typedef enum vx_gpon_tm_pri_q_option_t LMQ_ENUM_INT {
    VX_GPON_TM_PRI_Q_BUFF_SHARED = 0,
    VX_GPON_TM_PRI_Q_BUFF_SEPARATE = 1,
} vx_gpon_tm_pri_q_option_t;

typedef enum vx_gpon_tm_sched_mode_t LMQ_ENUM_INT {
    VX_GPON_TM_SCHED_MODE_SP = 0,
    VX_GPON_TM_SCHED_MODE_WRR = 1,
    VX_GPON_TM_SCHED_MODE_SP_WRR = 2,
} vx_gpon_tm_sched_mode_t;

typedef struct {
    vx_gpon_tm_option_t tm_options;
    vx_uint16 num_tcont;
    vx_uint16 num_sched;
    vx_uint16 num_us_pri_q;
    vx_uint16 num_ds_pri_q;
} vx_gpon_tm_info_t;

typedef struct {
    vx_uint16 tcont_id;
    vx_boolean is_omci;
} vx_gpon_tm_tcont_info_t;

typedef struct {
    vx_gpon_tm_sched_mode_t sched_mode;
    vx_uint8 num_sp_queues;
} vx_gpon_tm_tcont_cfg_t;

typedef struct {
    union {
        struct {
            vx_uint16 pon_id;
            vx_uint16 tcont_id;
        } tcont_id;
        vx_uint16 uni_port;
    } map_id;
} vx_gpon_tm_pri_q_mapping_t;

typedef struct {
    vx_uint16 pri_q_id;
} vx_gpon_tm_gem_mapping_t;

typedef struct {
    vx_wred_mode_t pol_mode;
    vx_uint32 cir_rate;
    vx_uint32 pir_rate;
    vx_uint32 commit_burst;
    vx_uint32 peak_burst;
} vx_gpon_gem_traffic_desc_cfg_t;

typedef struct {
    vx_boolean enbl_us_rate_limit;
    vx_uint32 us_gem_td_id;
    vx_boolean enbl_ds_rate_limit;
    vx_uint32 ds_gem_td_id;
} vx_gpon_gem_rate_limit_cfg_t;

typedef struct {
    vx_uint32 o5_state_transition;
    vx_uint32 bip_err_cnt;
    vx_uint32 ds_gpon_frm_cnt;
    vx_uint32 rx_gem_frag_drop;
    vx_uint32 rx_gem_1bit_err;
    vx_uint32 rx_gem_2bit_err;
    vx_uint32 rx_gem_uncorr_err;
    vx_uint32 bwmap_drop;
    vx_uint32 plend_err;
    vx_uint32 plend_corr_bit_err;
    vx_uint32 ds_crc_pkt;
    vx_uint32 ds_undersz_pkt;
    vx_uint32 ds_oversz_pkt;
} vx_gpon_mac_stats_t;

typedef struct {
    vx_uint32 rx_blk_cnt;
    vx_uint32 no_err_blk_cnt;
    vx_uint32 corr_blk_cnt;
    vx_uint32 uncorr_blk_cnt;
    vx_uint32 tot_corr_byte_cnt;
} vx_gpon_fec_stats_t;

typedef struct {
    vx_uint32 rx_ploamd_crc;
    vx_uint32 rx_ploamd_cnt[256];
    vx_uint32 tx_ploamu_cnt[256];
} vx_gpon_ploam_stats_t;

typedef struct {
    vx_uint32 us_pkt_cnt;
} vx_gpon_tcont_stats_t;

typedef struct {
    vx_uint32 ds_pkt_cnt;
    vx_uint32 ds_blk_cnt;
    vx_uint32 us_pkt_cnt;
} vx_gpon_gem_port_stats_t;

typedef struct {
    vx_uint8 dwrr_ratio;
    vx_uint8 pkt_cnt;
    vx_uint16 byte_cnt;
} lmq_tcont_queue_info;

typedef struct {
    vx_boolean dual_frag_status;
    vx_boolean tcont_sched_status;
    vx_uint16 tcont_bitmap;
    vx_uint32 que_bitmap[VX_GPON_MAX_TCONTS];
    lmq_tcont_queue_info que_status[VX_MAX_NUM_TCONT_QUEUE];
} lmq_tcont_queue_status_s;

vx_status_e vx_gpon_onu_tm_info_get(vx_dev_id_t dev_id, vx_gpon_tm_info_t *p_info);

vx_status_e vx_gpon_onu_tcont_tm_info_get(vx_dev_id_t dev_id, vx_uint16 get_cnt, vx_gpon_tm_tcont_info_t *p_info, vx_uint16 *p_valid_cnt);

vx_status_e vx_gpon_onu_tcont_sched_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id, vx_gpon_tm_tcont_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_tcont_sched_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id, vx_gpon_tm_tcont_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_tcont_queue_map_set(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg);

vx_status_e vx_gpon_onu_tcont_queue_map_get(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg);

vx_status_e vx_gpon_onu_gem_us_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, vx_gpon_tm_gem_mapping_t *p_cfg);

vx_status_e vx_gpon_onu_gem_us_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, vx_gpon_tm_gem_mapping_t *p_cfg);

vx_status_e vx_gpon_onu_gem_ds_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, vx_gpon_tm_gem_mapping_t *p_cfg);

vx_status_e vx_gpon_onu_gem_ds_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, vx_gpon_tm_gem_mapping_t *p_cfg);

vx_status_e vx_gpon_onu_gem_traffic_desc_create(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id, vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_gem_traffic_desc_delete(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id);

vx_status_e vx_gpon_onu_gem_traffic_desc_set(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id, vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_gem_traffic_desc_get(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id, vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_gem_rate_limit_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, vx_gpon_gem_rate_limit_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_gem_rate_limit_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, vx_gpon_gem_rate_limit_cfg_t *p_cfg);

vx_status_e vx_gpon_onu_us_queue_status_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 us_pri_q, vx_boolean *p_active);

vx_status_e vx_gpon_onu_mac_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_mac_stats_t *p_stat);

vx_status_e vx_gpon_onu_mac_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_gpon_onu_fec_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_fec_stats_t *p_stat, vx_boolean clear);

vx_status_e vx_gpon_onu_fec_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e lmq_enable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types, vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list);

vx_status_e lmq_disable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types, vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list);

vx_status_e vx_gpon_onu_ploam_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_ploam_stats_t *p_stats, vx_boolean clear);

vx_status_e vx_gpon_onu_ploam_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_gpon_onu_tcont_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id, vx_gpon_tcont_stats_t *p_stats, vx_boolean clear);

vx_status_e vx_gpon_onu_tcont_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id);

vx_status_e vx_gpon_onu_omcc_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_gem_port_stats_t *p_stats, vx_boolean clear);

vx_status_e vx_gpon_onu_omcc_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_gpon_onu_gem_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id, vx_gpon_gem_port_stats_t *p_stats, vx_boolean clear);

vx_status_e vx_gpon_onu_gem_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id);

vx_status_e vx_gpon_onu_tcont_queue_status_get(vx_dev_id_t device_id, vx_port_id_t port_id, lmq_tcont_queue_status_s *p_status);

#ifdef __cplusplus
}
#endif

#endif
