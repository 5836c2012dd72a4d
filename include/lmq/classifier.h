/**
 * @file
 * @brief Classifier.
 */
#ifndef LMQ_CLASSIFIER_H
#define LMQ_CLASSIFIER_H

#include "lmq/classifier_key.h"
#include "lmq/flow.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_CLS_DOMAIN_NAME_LENGTH 20
#define LMQ_FE_CL_MAX_ENTRY 48
#define LMQ_FE_MAX_CL_ENTRY 48
#define VX_CLS_DOMAIN_ID_NUM 16
#define LMQ_FE_CLS_NUM_L4_PORT_ENTRY 8
#define LMQ_FE_CLS_NUM_SPCL_KEY_ENTRY 8
#define LMQ_MAX_SPL_KEY_ENTRY 8
#define LMQ_FE_CLS_NUM_MAC_FILTER_AGING_ENTRY 64
#define LMQ_FE_CLS_MAX_PRIORITY 30
#define LMQ_FE_CLS_INVALID_RULE (0xFFFF)
#define MAX_KEY_PER_ENTRY 8

typedef enum vx_lmq_fe_instance_t LMQ_ENUM_INT {
    LMQ_FE_GE_ID = 0,
    LMQ_FE_PON_ID = 1,
    LMQ_FE_MA_ID = 2,
} vx_lmq_fe_instance_t;

typedef enum lmq_fe_cls_key_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_KEY_IPV4_LONG = 0,
    LMQ_FE_CLS_KEY_IPV4_SHORT = 1,
    LMQ_FE_CLS_KEY_IPV6_LONG = 2,
    LMQ_FE_CLS_KEY_IPV6_SHORT = 3,
    LMQ_FE_CLS_KEY_MIRROR = 4,
    LMQ_FE_CLS_KEY_MAC_VLAN = 5,
    LMQ_FE_CLS_KEY_MAC_ETYPE = 6,
    LMQ_FE_CLS_KEY_CTRL_PKT = 7,
    LMQ_FE_CLS_KEY_VLAN = 8,
    LMQ_FE_CLS_KEY_VLAN_RANGE = 9,
    LMQ_FE_CLS_KEY_PROTO = 10,
    LMQ_FE_CLS_KEY_MCAST = 11,
    LMQ_FE_CLS_KEY_MAC_VLAN_C = 12,
    LMQ_FE_CLS_KEY_MAC_ETYPE_D = 13,
    LMQ_FE_CLS_KEY_VLAN_E = 14,
    LMQ_FE_CLS_KEY_EXT_VLAN = 16,
    LMQ_FE_CLS_KEY_GEM_MCAST = 17,
    LMQ_FE_CLS_KEY_GEM_CTRL_PKT = 18,
    LMQ_FE_CLS_KEY_IPV4_MCAST = 19,
    LMQ_FE_CLS_KEY_TYPE_END = 1,
} lmq_fe_cls_key_type_e;

typedef enum lmq_fe_id_e LMQ_ENUM_INT {
    LMQ_FE_UPSTREAM = 0,
    LMQ_FE_DOWNSTREAM = 1,
    LMQ_FE_CPU_MA = 2,
} lmq_fe_id_e;

typedef enum lmq_fe_cls_gem_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_GEM_SEL_CLS = 0,
    LMQ_FE_CLS_GEM_SEL_DSCP_MAP_TBL = 1,
    LMQ_FE_CLS_GEM_SEL_INVALID_GEM = 2,
} lmq_fe_cls_gem_sel_e;

typedef enum lmq_fe_cls_vlan_cmd_e LMQ_ENUM_INT {
    LMQ_FE_CLS_VLAN_CMD_NOP = 0,
    LMQ_FE_CLS_VLAN_CMD_PUSH = 1,
    LMQ_FE_CLS_VLAN_CMD_POP = 2,
    LMQ_FE_CLS_VLAN_CMD_SWAP = 3,
} lmq_fe_cls_vlan_cmd_e;

typedef enum lmq_fe_cls_inner_tpid_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_INNER_TPID_SEL_NOP = 0,
    LMQ_FE_CLS_INNER_TPID_SEL_8100 = 1,
    LMQ_FE_CLS_INNER_TPID_SEL_USR_1 = 2,
    LMQ_FE_CLS_INNER_TPID_SEL_USR_2 = 3,
    LMQ_FE_CLS_INNER_TPID_SEL_USR_3 = 4,
    LMQ_FE_CLS_INNER_TPID_SEL_DST_PORT_DEF = 5,
    LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_INNER_TPID = 6,
    LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_OUTER_TPID = 7,
} lmq_fe_cls_inner_tpid_sel_e;

typedef enum lmq_fe_cls_outer_tpid_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_OUTER_TPID_SEL_NOP = 0,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_1 = 1,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_2 = 2,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_3 = 3,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_4 = 4,
    LMQ_FE_CLS_OUTER_TPID_SEL_DST_PORT_DEF = 5,
    LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_INNER_TPID = 6,
    LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_OUTER_TPID = 7,
} lmq_fe_cls_outer_tpid_sel_e;

typedef enum lmq_fe_cls_egr_chk_vlan_e LMQ_ENUM_INT {
    LMQ_FE_CLS_EGR_CHK_VLAN_OUTER = 0,
    LMQ_FE_CLS_EGR_CHK_VLAN_INNER = 1,
    LMQ_FE_CLS_EGR_CHK_VLAN_CL_TOP_VID = 2,
    LMQ_FE_CLS_EGR_CHK_VLAN_DONT_CARE = 3,
} lmq_fe_cls_egr_chk_vlan_e;

typedef enum lmq_fe_cls_dscp_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_DSCP_SEL_RX_PKT = 0,
    LMQ_FE_CLS_DSCP_SEL_CL_VAL = 1,
    LMQ_FE_CLS_DSCP_SEL_MAP_RX_DSCP = 2,
    LMQ_FE_CLS_DSCP_SEL_MAP_RX_DOT1P = 3,
} lmq_fe_cls_dscp_sel_e;

typedef enum lmq_fe_cls_dot1p_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_DOT1P_SEL_RX_PKT = 0,
    LMQ_FE_CLS_DOT1P_SEL_CL_VAL = 1,
    LMQ_FE_CLS_DOT1P_SEL_MAP_RX_DOT1P = 2,
    LMQ_FE_CLS_DOT1P_SEL_MAP_RX_DSCP = 3,
    LMQ_FE_CLS_DOT1P_SEL_PORT_DEF = 4,
} lmq_fe_cls_dot1p_sel_e;

typedef enum lmq_fe_cls_cos_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_COS_SEL_PORT_DEF = 0,
    LMQ_FE_CLS_COS_SEL_CL_VAL = 1,
    LMQ_FE_CLS_COS_SEL_MAP_RX_DOT1P = 2,
    LMQ_FE_CLS_COS_SEL_MAP_RX_DSCP = 3,
} lmq_fe_cls_cos_sel_e;

typedef enum lmq_fe_cls_flow_id_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_FLOW_ID_SEL_NO_RATE_LIMIT = 0,
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_RX_DOT1P = 1,
    LMQ_FE_CLS_FLOW_ID_SEL_CL_VAL = 2,
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_RX_DSCP = 3,
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_TX_COS = 4,
} lmq_fe_cls_flow_id_sel_e;

typedef enum vx_cls_l4_port_type_t LMQ_ENUM_INT {
    CL_L4_SRC_TCP = 0,
    CL_L4_SRC_UDP = 1,
    CL_L4_DST_TCP = 2,
    CL_L4_DST_UDP = 3,
} vx_cls_l4_port_type_t;

typedef enum vx_cls_spcl_mode_t LMQ_ENUM_INT {
    CLS_SPCL_MODE_STA = 0,
    CLS_SPCL_MODE_DYN = 1,
} vx_cls_spcl_mode_t;

typedef enum vx_cls_spcl_ptn_type_t LMQ_ENUM_INT {
    LMQ_CL_SPCL_PTN_TYPE_L2 = 0,
    LMQ_CL_SPCL_PTN_TYPE_IP = 1,
    LMQ_CL_SPCL_PTN_TYPE_L4 = 2,
    LMQ_CL_SPCL_PTN_TYPE_STA = 3,
} vx_cls_spcl_ptn_type_t;

typedef enum vx_cls_spcl_ptn_cmp_t LMQ_ENUM_INT {
    LMQ_CL_SPCL_PTN_CMP_LO = 0,
    LMQ_CL_SPCL_PTN_CMP_HI = 1,
} vx_cls_spcl_ptn_cmp_t;

typedef struct {
    lmq_fe_cls_key_type_e key_type;
    vx_boolean entryvalid;
    union {
        lmq_fe_cls_ipv4_long_key_s ipv4_long_key;
        lmq_fe_cls_ipv4_short_key_s ipv4_short_key[4];
        lmq_fe_cls_ipv6_long_key_s ipv6_long_key;
        lmq_fe_cls_ipv6_short_key_s ipv6_short_key;
        lmq_fe_cls_mirror_key_s mirror_key[8];
        lmq_fe_cls_mac_vlan_key_s mac_vlan_key[4];
        lmq_fe_cls_mac_etype_key_s mac_etype_key[4];
        lmq_fe_cls_ctrl_pkt_key_s ctrl_pkt_key[4];
        lmq_fe_cls_vlan_key_s vlan_key[8];
        lmq_fe_cls_vlan_range_key_s vlan_range_key[8];
        lmq_fe_cls_proto_key_s proto_key[4];
        lmq_fe_cls_mcast_key_s mcast_key[2];
        lmq_fe_cls_ext_vlan_key_s ext_vlan_key[4];
        lmq_fe_cls_gem_mcast_key_s gem_mcast_key[2];
        lmq_fe_cls_gem_ctrl_pkt_key_s gem_ctrl_pkt_key[4];
        lmq_fe_cls_ipv4_mcast_pkt_key_s ipv4_mcast_key[3];
        vx_uint32 key;
    } cls_key;
} vx_cls_rule_cfg_t;

typedef struct {
    vx_boolean valid_flag;
    vx_boolean permit;
    vx_boolean permit_filter_dis;
    vx_boolean permit_priority;
    vx_uint16 dst_port_num;
    vx_boolean mirror_enbl;
    vx_boolean mirror_pkt_src;
    lmq_fe_cls_gem_sel_e gem_id_sel;
    vx_uint8 gem_subpid;
    lmq_fe_cls_vlan_cmd_e inner_vlan_cmd;
    lmq_fe_cls_inner_tpid_sel_e inner_tpid_sel;
    vx_uint16 inner_vid;
    vx_boolean top_vid_sel;
    lmq_fe_cls_vlan_cmd_e top_vlan_cmd;
    lmq_fe_cls_outer_tpid_sel_e top_tpid_sel;
    vx_uint16 top_vid;
    lmq_fe_cls_egr_chk_vlan_e egr_chk_vlan_sel;
    vx_boolean outer_de_override_enbl;
    vx_uint8 outer_de_value;
    vx_boolean inner_de_override_enbl;
    vx_uint8 inner_de_value;
    lmq_fe_cls_dscp_sel_e dscp_sel;
    vx_uint8 dscp;
    lmq_fe_cls_dot1p_sel_e inner_dot1p_sel;
    vx_uint8 inner_dot1p;
    lmq_fe_cls_dot1p_sel_e top_dot1p_sel;
    vx_uint8 top_dot1p;
    lmq_fe_cls_cos_sel_e cos_sel;
    vx_uint8 cos;
    vx_boolean learn_dsbl;
    vx_boolean learn_limit_permit;
    lmq_fe_cls_flow_id_sel_e flow_id_sel;
    vx_uint8 flow_id;
    vx_boolean bypass_rate_limiter;
    vx_boolean sw_id_sel;
    vx_uint8 sw_id;
    union {
        struct {
            vx_uint32 dst_port_fields : 1;
            vx_uint32 vlan_fields : 1;
            vx_uint32 dscp_fields : 1;
            vx_uint32 dot1p_fields : 1;
            vx_uint32 cos_fields : 1;
            vx_uint32 learn_fields : 1;
            vx_uint32 rate_limit_fields : 1;
            vx_uint32 sw_id_fields : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cls_fib_data_t;

typedef struct {
    vx_mac_addr_t mac_da_high;
    vx_mac_addr_t mac_da_low;
    vx_boolean mac_filter_aging_en;
    vx_boolean tos_ecn_msk_en;
    vx_boolean ce_msk_cfi_flg;
    struct {
        vx_uint32 mac_da_range : 1;
        vx_uint32 mac_filter_aging_en : 1;
        vx_uint32 tos_ecn_msk_en : 1;
        vx_uint32 ce_msk_cfi_flg : 1;
        vx_uint32 rsvd : 28;
    } valid;
} vx_cls_cl_ctrl_t;

typedef struct {
    vx_uint8 domain_name[20];
    vx_uint8 cl_entry_start;
    vx_uint8 cl_entry_length;
} vx_cls_domain_res_t;

typedef struct {
    vx_boolean cmp_en;
    vx_uint16 low_port;
    vx_uint16 high_port;
} vx_cls_l4_port_range_t;

typedef struct {
    vx_cls_spcl_ptn_type_t spcl_ptn_type;
    vx_cls_spcl_ptn_cmp_t spcl_ptn_cmp;
    vx_uint16 spcl_ptn_key;
    vx_uint16 spcl_ptn_mask;
} vx_cls_spcl_ptn_t;

typedef struct {
    vx_cls_spcl_mode_t spcl_hdr_mode_sel;
    vx_boolean spcl_hdr_after_l2hdr_en;
    vx_boolean spcl_hdr_after_iphdr_en;
    vx_boolean spcl_hdr_after_l4hdr_en;
    vx_boolean spcl_hdr_parsing_en;
    vx_uint8 spcl_glb_hdr_strt_idx;
} vx_cls_spcl_ptn_control_t;

typedef struct {
    vx_boolean entry_dynamic;
    vx_uint32 max_limit;
} vx_cls_mac_aging_t;

typedef struct {
    vx_uint16 hit_fibindex_recent;
    vx_uint16 hit_fibindex_previous;
    vx_uint16 hit_fibindex_earlier;
    vx_uint16 fibindex_vlan_rslt;
    vx_uint16 fibindex_dscp_rslt;
    vx_uint16 fibindex_dpid_rslt;
    vx_uint16 fibindex_cos_rslt;
    vx_uint16 fibindex_l2_lrn_rslt;
    vx_uint16 fibindex_dot1p_rslt;
    vx_uint16 fibindex_permit_pri_rslt;
    vx_uint16 fibindex_rate_lmt_rslt;
    vx_uint8 entry0_hit_count;
    vx_uint8 entry1_hit_count;
    vx_uint8 entry2_hit_count;
    vx_uint8 entry3_hit_count;
    vx_uint8 entry4_hit_count;
    vx_uint8 entry5_hit_count;
    vx_uint8 entry6_hit_count;
    vx_uint8 entry7_hit_count;
    vx_uint8 entry8_hit_count;
    vx_uint8 entry9_hit_count;
    vx_uint8 entry10_hit_count;
    vx_uint8 entry11_hit_count;
    vx_uint8 entry12_hit_count;
    vx_uint8 entry13_hit_count;
    vx_uint8 entry14_hit_count;
    vx_uint8 entry15_hit_count;
    vx_uint8 user_entry;
    vx_uint32 user_entry_hit_cnt;
} vx_cls_debug_status_t;

typedef struct {
    vx_uint8 entry_addr;
    vx_uint32 hit_count;
} vx_cls_debug_prog_ent_cnt_t;

typedef struct {
    vx_uint32 ingr_pkt_cnt;
    vx_uint32 egrs_pkt_cnt;
    vx_uint32 pkt_drop_cnt;
    vx_uint8 outer_pop_err;
    vx_uint8 outer_swap_err;
    vx_uint8 inner_pop_err;
    vx_uint8 inner_swap_err;
    vx_uint8 inner_push_err;
    vx_uint8 vlan_op_runt_pkt;
} lmq_fe_pkt_stats_s;

typedef struct {
    vx_uint8 entry_id;
    vx_boolean valid;
    vx_cl_key_type_t key_type;
    vx_uint8 key_cnt;
    vx_uint8 valid_key_bitmap;
    vx_uint32 entry_hit_cnt;
} lmq_entry_status;

typedef struct {
    vx_uint8 valid_cnt;
    lmq_entry_status entry_status[48];
} lmq_fe_cl_entry_status;

vx_status_e vx_cls_spcl_ptn_entry_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_spcl_ptn_t *p_cfg);

vx_status_e lmq_dump_pkt_flow_all(vx_dev_id_t dev_id, vx_uint16 cnt);

vx_status_e lmq_clear_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id);

vx_status_e vx_cls_type_no_match_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap, vx_uint32 *deny_bitmap);

vx_status_e vx_cls_spcl_ptn_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg);

vx_status_e vx_cls_mac_filter_aging_vld_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *bitmap_high, vx_uint32 *bitmap_low);

vx_status_e vx_cls_spcl_ptn_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg);

vx_status_e vx_cls_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset, vx_cls_fib_data_t *p_cfg);

vx_status_e vx_cls_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg);

vx_status_e vx_cls_aging_timer_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_mac_aging_t *p_cfg);

vx_status_e vx_port_mirror_set(vx_int32 device_id, vx_port_id_t dst_port, vx_uint32 rx_port_bitmap, vx_uint32 tx_port_bitmap);

vx_status_e vx_cls_domain_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_cls_domain_res_t *p_cfg);

vx_status_e vx_cls_debug_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_status_t *p_dbg_stat);

vx_status_e vx_cls_aging_timer_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_mac_aging_t *p_cfg);

vx_status_e vx_cls_no_match_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg);

vx_status_e vx_cls_l4_port_range_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type, vx_uint8 index, vx_cls_l4_port_range_t *p_cfg);

vx_status_e vx_cls_domain_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_cls_domain_res_t *p_cfg);

vx_status_e vx_cls_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg);

vx_status_e vx_cls_rule_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset, vx_cls_rule_cfg_t *p_cfg);

vx_status_e vx_cls_l4_port_range_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type, vx_uint8 index, vx_cls_l4_port_range_t *p_cfg);

vx_status_e lmq_get_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id, lmq_fe_pkt_stats_s *p_stats, vx_boolean clear);

vx_status_e vx_cls_mac_filter_aged_latest_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 *entry_index);

vx_status_e vx_cls_no_match_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg);

vx_status_e vx_cls_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset, vx_cls_fib_data_t *p_cfg);

vx_status_e vx_cls_rule_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset, vx_cls_rule_cfg_t *p_cfg);

vx_status_e lmq_dump_pkt_flow(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

vx_status_e vx_cls_type_no_match_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap, vx_uint32 deny_bitmap);

vx_status_e lmq_dump_cls_key(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 entry_idx);

vx_status_e vx_cls_spcl_ptn_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_spcl_ptn_t *p_cfg);

vx_status_e vx_port_mirror_get(vx_int32 device_id, vx_port_id_t *dst_port, vx_uint32 *rx_port_bitmap, vx_uint32 *tx_port_bitmap);

vx_status_e lmq_dump_cls_key_list(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e lmq_get_fe_cl_entry_status(vx_dev_id_t dev_id, lmq_fe_id_e fe_inst, lmq_fe_cl_entry_status *p_status);

vx_status_e vx_cls_domain_rule_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id);

vx_status_e vx_cls_init(vx_dev_id_t dev_id);

vx_status_e vx_cls_debug_prog_count_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_prog_ent_cnt_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
