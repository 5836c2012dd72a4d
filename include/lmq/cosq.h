/**
 * @file
 * @brief Class of service queues.
 */
#ifndef LMQ_COSQ_H
#define LMQ_COSQ_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_INVALID_QUEUE_ID 0xFFFF

typedef enum vx_qos_dot1p_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_DOT1P_TO_DOT1P_MAP = 1,
    VX_QOS_MASK_DOT1P_TO_DSCP_MAP = 2,
    VX_QOS_MASK_DOT1P_TO_TC_MAP = 4,
    VX_QOS_MASK_DOT1P_TO_COS_MAP = 8,
    VX_QOS_MASK_DOT1P_TO_POLICER_MAP = 16,
} vx_qos_dot1p_map_type_t;

typedef enum vx_qos_dscp_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_DSCP_TO_DOT1P_MAP = 1,
    VX_QOS_MASK_DSCP_TO_DSCP_MAP = 2,
    VX_QOS_MASK_DSCP_TO_COS_MAP = 4,
    VX_QOS_MASK_DSCP_TO_POLICER_MAP = 8,
    VX_QOS_MASK_DSCP_TO_GEMID_MAP = 16,
} vx_qos_dscp_map_type_t;

typedef enum vx_qos_tc_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_TC_TO_DOT1P_MAP = 1,
    VX_QOS_MASK_TC_TO_TC_MAP = 2,
    VX_QOS_MASK_TC_TO_COS_MAP = 4,
    VX_QOS_MASK_TC_TO_POLICER_MAP = 8,
    VX_QOS_MASK_TC_TO_GEMID_MAP = 16,
} vx_qos_tc_map_type_t;

typedef enum vx_uni_sched_mode_t LMQ_ENUM_INT {
    VX_UNI_SCHED_SP = 0,
    VX_UNI_SCHED_DWRR = 1,
    VX_UNI_SCHED_SP_DWRR = 2,
} vx_uni_sched_mode_t;

typedef struct {
    vx_uint8 cos_to_policer[((vx_uint8)8)];
} vx_qos_cos_map_t;

typedef struct {
    vx_qos_dot1p_map_type_t mask;
    vx_uint8 dot1p_to_dot1p[((vx_uint8)8)];
    vx_uint8 dot1p_to_dscp[((vx_uint8)8)];
    vx_uint8 dot1p_to_tc[((vx_uint8)8)];
    vx_uint8 dot1p_to_cos[((vx_uint8)8)];
    vx_uint8 dot1p_to_policer[((vx_uint8)8)];
} vx_qos_dot1p_map_t;

typedef struct {
    vx_uint8 dscp_to_gemid;
    vx_uint8 dscp_to_gemid_valid;
} vx_qos_dscp_gemid_t;

typedef struct {
    vx_qos_dscp_map_type_t mask;
    vx_uint8 dscp_to_dot1p[((vx_uint8)64)];
    vx_uint8 dscp_to_dscp[((vx_uint8)64)];
    vx_uint8 dscp_to_cos[((vx_uint8)64)];
    vx_uint8 dscp_to_policer[((vx_uint8)64)];
    vx_qos_dscp_gemid_t dscp_to_gemid[((vx_uint8)64)];
} vx_qos_dscp_map_t;

typedef struct {
    vx_uint8 tc_to_gemid;
    vx_uint8 tc_to_gemid_valid;
} vx_qos_tc_gemid_t;

typedef struct {
    vx_qos_tc_map_type_t mask;
    vx_uint8 tc_to_dot1p[((vx_uint8)64)];
    vx_uint8 tc_to_tc[((vx_uint8)64)];
    vx_uint8 tc_to_cos[((vx_uint8)64)];
    vx_uint8 tc_to_policer[((vx_uint8)64)];
    vx_qos_tc_gemid_t tc_to_gemid[((vx_uint8)64)];
} vx_qos_tc_map_t;

typedef struct {
    vx_uint32 weight;
    vx_uint32 max_buff_size;
    vx_uint32 enbl_back_press;
    vx_uint32 back_press_set_thresh;
    vx_uint32 back_press_clr_thresh;
    vx_uint32 back_press_time;
    union {
        struct {
            vx_uint32 weight : 1;
            vx_uint32 max_buff_size : 1;
            vx_uint32 enbl_back_press : 1;
            vx_uint32 back_press_set_thresh : 1;
            vx_uint32 back_press_clr_thresh : 1;
            vx_uint32 back_press_time : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_queue_cfg_t;

typedef struct {
    vx_uni_sched_mode_t sched_mode;
    vx_uint16 num_sp_queues;
} vx_sched_cfg_t;

typedef struct {
    vx_uint32 shaping_rate;
    vx_uint32 cbs;
} vx_shaping_rate_cfg_t;

typedef struct {
    vx_uint8 ipg_ovrhd_bytes;
} lmq_global_egrs_shaper_cfg_s;

vx_status_e vx_cosq_cos_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg);

vx_status_e vx_cosq_cos_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg);

vx_status_e vx_cosq_dscp_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg);

vx_status_e vx_cosq_dscp_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg);

vx_status_e vx_cosq_tc_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg);

vx_status_e vx_cosq_tc_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg);

vx_status_e vx_cosq_dot1p_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg);

vx_status_e vx_cosq_dot1p_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg);

vx_status_e vx_cosq_queue_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg);

vx_status_e vx_cosq_queue_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg);

vx_status_e vx_cosq_sched_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg);

vx_status_e vx_cosq_sched_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg);

vx_status_e lmq_set_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg);

vx_status_e lmq_get_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg);

vx_status_e vx_cosq_ds_shaping_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable, vx_shaping_rate_cfg_t *cfg);

vx_status_e vx_cosq_ds_shaping_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enable, vx_shaping_rate_cfg_t *cfg);

vx_status_e vx_cosq_mirror_pkt_shaping_set(vx_dev_id_t dev_id, vx_boolean enable, vx_shaping_rate_cfg_t *cfg);

vx_status_e vx_cosq_mirror_pkt_shaping_get(vx_dev_id_t dev_id, vx_boolean *enable, vx_shaping_rate_cfg_t *cfg);

#ifdef __cplusplus
}
#endif

#endif
