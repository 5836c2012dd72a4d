/**
 * @file
 * @brief Flows.
 */
#ifndef LMQ_FLOW_H
#define LMQ_FLOW_H

#include "lmq/classifier_key.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_INVALID_SUB_PID (0xff)
#define LMQ_INVALID_FLOW_ID ((vx_flow_id_t)0xffffffff)
#define LMQ_MIN_US_CL_PRI 0
#define LMQ_MAX_US_CL_PRI 11
#define LMQ_DEF_US_CL_PRI 0xff

typedef enum vx_cl_key_type_t LMQ_ENUM_INT {
    VX_CL_KEY_INVALID = 0,
    VX_CL_KEY_MAC_DA_ETYPE = 1,
    VX_CL_KEY_MAC_RANGE_ETYPE = 2,
    VX_CL_KEY_MAC_VLAN = 3,
    VX_CL_KEY_SPCL_MAC_VLAN = 4,
    VX_CL_KEY_VLAN_RANGE = 5,
    VX_CL_KEY_DOUBLE_VLAN = 6,
    VX_CL_KEY_EXT_VLAN = 7,
    VX_CL_KEY_CTRL_PKT = 8,
    VX_CL_KEY_MAC_IP_PROTO = 9,
    VX_CL_KEY_IPV4_LONG = 10,
    VX_CL_KEY_IPV4_SHORT = 11,
    VX_CL_KEY_IPV6_LONG = 12,
    VX_CL_KEY_IPV6_SHORT = 13,
    VX_CL_KEY_EXT_VLAN_DSCP = 14,
    VX_CL_KEY_GEM_PORT_BASE = 15,
    VX_CL_KEY_GEM_EXT_VLAN = 15,
    VX_CL_KEY_GEM_CTRL_PKT = 16,
    VX_CL_KEY_GEM_IPV4_LONG = 17,
    VX_CL_KEY_GEM_IPV6_LONG = 18,
    VX_CL_KEY_MAX = 19,
} vx_cl_key_type_t;

typedef enum vx_flow_vlan_tag_action_type_t LMQ_ENUM_INT {
    VX_FLOW_VLAN_TAG_ACTION_ASIS = 0,
    VX_FLOW_VLAN_TAG_ACTION_PUSH = 1,
    VX_FLOW_VLAN_TAG_ACTION_POP = 2,
    VX_FLOW_VLAN_TAG_ACTION_SWAP = 3,
    VX_FLOW_VLAN_TAG_ACTION_UNCOND_PUSH = 4,
    VX_FLOW_VLAN_TAG_ACTION_SWAP_L2_TBL_VID = 5,
    VX_FLOW_VLAN_TAG_ACTION_INVALID = 6,
    VX_FLOW_VLAN_TAG_ACTION_MAX = 6,
} vx_flow_vlan_tag_action_type_t;

typedef enum vx_flow_tpid_action_type_t LMQ_ENUM_INT {
    VX_FLOW_TPID_ACTION_ASIS = 0,
    VX_FLOW_TPID_ACTION_EGR_PORT_DFT = 1,
    VX_FLOW_TPID_ACTION_FIXED_VAL = 2,
    VX_FLOW_TPID_ACTION_COPY_O_TPID = 3,
    VX_FLOW_TPID_ACTION_COPY_I_TPID = 4,
    VX_FLOW_TPID_ACTION_INVALID = 5,
    VX_FLOW_TPID_ACTION_MAX = 5,
} vx_flow_tpid_action_type_t;

typedef enum vx_flow_pbit_action_type_t LMQ_ENUM_INT {
    VX_FLOW_PBIT_ACTION_ASIS = 0,
    VX_FLOW_PBIT_ACTION_FIXED_VAL = 1,
    VX_FLOW_PBIT_ACTION_COPY_O_PBIT = 2,
    VX_FLOW_PBIT_ACTION_COPY_I_PBIT = 3,
    VX_FLOW_PBIT_ACTION_PORT_DFT = 4,
    VX_FLOW_PBIT_ACTION_DSCP_MAP_TBL = 5,
    VX_FLOW_PBIT_ACTION_PBIT_MAP = 6,
    VX_FLOW_PBIT_ACTION_INVALID = 7,
    VX_FLOW_PBIT_ACTION_MAX = 7,
} vx_flow_pbit_action_type_t;

typedef enum vx_flow_de_action_type_t LMQ_ENUM_INT {
    VX_FLOW_DE_ACTION_ASIS = 0,
    VX_FLOW_DE_ACTION_FIXED_VAL = 1,
    VX_FLOW_DE_ACTION_INVALID = 2,
    VX_FLOW_DE_ACTION_MAX = 2,
} vx_flow_de_action_type_t;

typedef enum vx_flow_cos_action_type_t LMQ_ENUM_INT {
    VX_FLOW_COS_ACTION_UNUSED = 0,
    VX_FLOW_COS_ACTION_PORT_DFT = 1,
    VX_FLOW_COS_ACTION_FIXED_VAL = 2,
    VX_FLOW_COS_ACTION_PBIT_MAP_TBL = 3,
    VX_FLOW_COS_ACTION_DSCP_TC_MAP = 4,
    VX_FLOW_COS_ACTION_MAX = 5,
} vx_flow_cos_action_type_t;

typedef enum vx_flow_dscp_action_type_t LMQ_ENUM_INT {
    VX_FLOW_DSCP_ACTION_ASIS = 0,
    VX_FLOW_DSCP_ACTION_FIXED_VAL = 1,
    VX_FLOW_DSCP_ACTION_PBIT_MAP = 2,
    VX_FLOW_DSCP_ACTION_DSCP_TC_MAP = 3,
    VX_FLOW_DSCP_ACTION_MAX = 4,
} vx_flow_dscp_action_type_t;

typedef enum vx_flow_egrs_vlan_chk_type_t LMQ_ENUM_INT {
    VX_FLOW_EGRS_VLAN_CHK_USE_EGR_O_VID = 0,
    VX_FLOW_EGRS_VLAN_CHK_USE_POP_I_VID = 1,
    VX_FLOW_EGRS_VLAN_CHK_BYPASS = 2,
    VX_FLOW_EGRS_VLAN_CHK_MAX = 3,
} vx_flow_egrs_vlan_chk_type_t;

typedef enum vx_flow_mirror_pkt_mode_t LMQ_ENUM_INT {
    VX_FLOW_MIRROR_BEFORE_PKT_MOD = 0,
    VX_FLOW_MIRROR_AFTER_PKT_MOD = 1,
    VX_FLOW_MIRROR_MODE_MAX = 2,
} vx_flow_mirror_pkt_mode_t;

typedef enum vx_lrn_lmt_pkt_act_t LMQ_ENUM_INT {
    VX_LRN_LMT_PKT_ACT_FWD = 0,
    VX_LRN_LMT_PKT_ACT_DRP = 1,
} vx_lrn_lmt_pkt_act_t;

typedef struct {
    vx_cl_key_type_t key_type;
    union {
        vx_cl_key_mac_da_etype_t mac_da_etype;
        vx_cl_key_mac_range_etype_t mac_range_etype;
        vx_cl_key_mac_vlan_t mac_vlan;
        vx_cl_key_spcl_mac_vlan_t spcl_mac_vlan;
        vx_cl_key_vlan_range_t vlan_range;
        vx_cl_key_double_vlan_t double_vlan;
        vx_cl_key_ext_vlan_t ext_vlan;
        vx_cl_key_mac_ip_proto_t mac_ip_proto;
        vx_cl_key_ctrl_pkt_t ctrl_pkt;
        vx_cl_key_ipv4_long_t ipv4_long;
        vx_cl_key_ipv4_short_t ipv4_short;
        vx_cl_key_ipv6_long_t ipv6_long;
        vx_cl_key_ipv6_short_t ipv6_short;
        vx_cl_key_ext_vlan_dscp_t ext_vlan_dscp;
    } key_s;
} vx_flow_us_key_t;

typedef struct {
    vx_cl_key_type_t key_type;
    union {
        vx_cl_key_mac_da_etype_t mac_da_etype;
        vx_cl_key_mac_range_etype_t mac_range_etype;
        vx_cl_key_mac_vlan_t mac_vlan;
        vx_cl_key_spcl_mac_vlan_t spcl_mac_vlan;
        vx_cl_key_vlan_range_t vlan_range;
        vx_cl_key_double_vlan_t double_vlan;
        vx_cl_key_ext_vlan_t ext_vlan;
        vx_cl_key_mac_ip_proto_t mac_ip_proto;
        vx_cl_key_ctrl_pkt_t ctrl_pkt;
        vx_cl_key_subpid_ctrl_pkt_t subpid_ctrl_pkt;
        vx_cl_key_ipv4_long_t ipv4_long;
        vx_cl_key_ipv4_short_t ipv4_short;
        vx_cl_key_ipv6_long_t ipv6_long;
        vx_cl_key_ipv6_short_t ipv6_short;
    } key_s;
} vx_flow_ds_key_t;

typedef struct {
    vx_flow_vlan_tag_action_type_t vlan_tag_act;
    vx_flow_tpid_action_type_t tpid_act;
    vx_flow_pbit_action_type_t pbit_act;
    vx_flow_de_action_type_t de_act;
    vx_uint16 tpid;
    vx_uint8 pbit;
    vx_uint8 de;
    vx_vid_t vid;
} vx_flow_vlan_action_t;

typedef struct {
    vx_flow_pbit_action_type_t pbit_act;
    vx_flow_de_action_type_t de_act;
    vx_uint8 pbit;
    vx_uint8 de;
} vx_flow_dot1p_action_t;

typedef struct {
    vx_flow_cos_action_type_t cos_act;
    vx_uint8 cos_val;
} cl_flow_cos_action_t;

typedef struct {
    vx_flow_dscp_action_type_t dscp_act;
    vx_uint8 dscp_val;
} vx_flow_dscp_action_t;

typedef struct {
    vx_flow_vlan_action_t o_vlan_act;
    vx_flow_vlan_action_t i_vlan_act;
    vx_flow_dot1p_action_t o_dot1p_act;
    vx_flow_dot1p_action_t i_dot1p_act;
    cl_flow_cos_action_t cos_act;
    vx_flow_dscp_action_t dscp_act;
    vx_uint8 queue_id;
    vx_flow_egrs_vlan_chk_type_t egrs_vlan_chk_sel;
    vx_boolean dsbl_mac_learn;
    vx_lrn_lmt_pkt_act_t lrn_limit_act;
    vx_boolean enbl_pkt_mirror;
    vx_uint16 mirror_port;
    vx_flow_mirror_pkt_mode_t mirror_mode;
    union {
        struct {
            vx_uint32 o_vlan_act : 1;
            vx_uint32 i_vlan_act : 1;
            vx_uint32 o_dot1p_act : 1;
            vx_uint32 i_dot1p_act : 1;
            vx_uint32 cos_act : 1;
            vx_uint32 dscp_act : 1;
            vx_uint32 queue_id : 1;
            vx_uint32 dsbl_mac_learn : 1;
            vx_uint32 egrs_vlan_chk_sel : 1;
            vx_uint32 enbl_pkt_mirror : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_flow_us_action_t;

typedef vx_flow_us_action_t vx_flow_ds_action_t;

typedef struct {
    vx_flow_id_t flow_id;
    vx_uint16 port_num;
    vx_uint8 pri;
    vx_flow_us_key_t key;
    vx_flow_us_action_t action;
    vx_uint16 map_port;
    vx_uint16 map_sub_port;
} vx_flow_us_cfg_t;

typedef struct {
    vx_flow_id_t flow_id;
    vx_uint8 pri;
    vx_flow_ds_key_t key;
    vx_flow_ds_action_t action;
    vx_uint16 map_port;
} vx_flow_ds_cfg_t;

vx_status_e vx_flow_us_add(vx_dev_id_t device_id, vx_port_id_t port_id, vx_flow_us_key_t *p_key, vx_flow_us_action_t *p_action, vx_uint8 priority, vx_flow_id_t *p_flow_id);

vx_status_e vx_flow_us_delete(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

vx_status_e vx_flow_us_modify(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_us_key_t *p_key, vx_flow_us_action_t *p_action);

vx_status_e vx_flow_us_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_us_key_t *p_key, vx_flow_us_action_t *p_action);

vx_status_e vx_flow_us_map(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_uint16 sni_port_num, vx_uint16 sni_sub_port);

vx_status_e vx_flow_us_all_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 get_cnt, vx_flow_us_cfg_t *p_cfg, vx_uint16 *p_valid_cnt);

vx_status_e vx_flow_ds_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_ds_key_t *p_key, vx_flow_ds_action_t *p_action, vx_uint8 priority, vx_flow_id_t *p_flow_id);

vx_status_e vx_flow_ds_delete(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

vx_status_e vx_flow_ds_modify(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_ds_key_t *p_key, vx_flow_ds_action_t *p_action);

vx_status_e vx_flow_ds_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_ds_key_t *p_key, vx_flow_ds_action_t *p_action);

vx_status_e vx_flow_ds_map(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_port_id_t port_id);

vx_status_e vx_flow_ds_all_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 get_cnt, vx_flow_ds_cfg_t *p_cfg, vx_uint16 *p_valid_cnt);

#ifdef __cplusplus
}
#endif

#endif
