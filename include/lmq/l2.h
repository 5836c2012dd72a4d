/**
 * @file
 * @brief Layer 2 forwarding.
 */
#ifndef LMQ_L2_H
#define LMQ_L2_H

#include "lmq/flow.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef enum vx_l2_filter_type_t LMQ_ENUM_INT {
    LMQ_FILTER_DISABLE = 0,
    LMQ_FILTER_POSITIVE = 1,
    LMQ_FILTER_NEGATIVE = 2,
} vx_l2_filter_type_t;

typedef enum vx_l2_fdb_entry_op_type_t LMQ_ENUM_INT {
    VX_FDB_ENTRY_OP_TYPE_DYNAMIC = 1,
    VX_FDB_ENTRY_OP_TYPE_STATIC = 2,
    VX_FDB_ENTRY_OP_TYPE_BOTH = 3,
} vx_l2_fdb_entry_op_type_t;

typedef enum vx_l2_stp_state_t LMQ_ENUM_INT {
    VX_L2_STP_STATE_STP_OFF = 0,
    VX_L2_STP_STATE_DISABLED = 1,
    VX_L2_STP_STATE_BLOCKING = 2,
    VX_L2_STP_STATE_LEARNING = 3,
    VX_L2_STP_STATE_FORWARDING = 4,
    VX_L2_STP_STATE_LINK_DOWN = 5,
} vx_l2_stp_state_t;

typedef enum vx_l2_tpid_mode_t LMQ_ENUM_INT {
    VX_L2_TPID_MODE_DISABLE = 0,
    VX_L2_TPID_MODE_INNER = 1,
    VX_L2_TPID_MODE_OUTER = 2,
    VX_L2_TPID_MODE_BOTH = 3,
} vx_l2_tpid_mode_t;

typedef enum vx_stn_mv_act_t LMQ_ENUM_INT {
    VX_STN_MV_ACT_DRP_PKT = 0,
    VX_STN_MV_ACT_FWD_LRN = 1,
} vx_stn_mv_act_t;

typedef enum vx_lp_det_act_t LMQ_ENUM_INT {
    VX_LP_DET_ACT_DISABLE = 0,
    VX_LP_DET_ACT_DRP_PKT = 1,
} vx_lp_det_act_t;

typedef enum vx_lrn_vid_sel_t LMQ_ENUM_INT {
    VX_LRN_INGR_TOP_VID_OR_PVID = 0,
    VX_LRN_INGR_INNER_VID = 1,
    VX_LRN_EGR_TOP_VID = 2,
    VX_LRN_EGR_INNER_VID = 3,
} vx_lrn_vid_sel_t;

typedef enum vx_lrn_lmt_lrn_act_t LMQ_ENUM_INT {
    VX_LRN_LMT_LRN_ACT_NO_LRN = 0,
    VX_LRN_LMT_LRN_ACT_REP_OLD_ENT = 1,
} vx_lrn_lmt_lrn_act_t;

typedef enum vx_egrs_pvid_vlan_op_t LMQ_ENUM_INT {
    VX_EGRS_PVID_VLAN_OP_NOP = 0,
    VX_EGRS_PVID_VLAN_OP_POP = 1,
} vx_egrs_pvid_vlan_op_t;

typedef struct {
    vx_boolean dsbl_hw_lrn;
    vx_boolean dsbl_hw_aging;
    vx_stn_mv_act_t stn_mv_act;
    vx_lp_det_act_t loop_det_act;
    vx_uint16 loop_det_timer;
    union {
        struct {
            vx_uint32 dsbl_hw_lrn : 1;
            vx_uint32 dsbl_hw_aging : 1;
            vx_uint32 dsbl_stn_mv : 1;
            vx_uint32 stn_mv_act : 1;
            vx_uint32 loop_det_act : 1;
            vx_uint32 loop_det_timer : 1;
            vx_uint32 rsvd : 26;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_learn_cfg_t;

typedef struct {
    vx_boolean enbl_pbit_lrn;
    vx_boolean enbl_vid_lrn;
    vx_lrn_vid_sel_t lrn_vid_sel;
    vx_boolean enbl_mac_lrn;
    vx_boolean dsbl_drp_pkt_lrn;
    vx_boolean dsbl_cpu_pkt_lrn;
    vx_lrn_lmt_pkt_act_t lrn_lmt_pkt_act;
    vx_lrn_lmt_lrn_act_t lrn_lmt_lrn_act;
    vx_uint16 lrn_lmt;
    union {
        struct {
            vx_uint32 enbl_pbit_lrn : 1;
            vx_uint32 enbl_vid_lrn : 1;
            vx_uint32 lrn_vid_sel : 1;
            vx_uint32 enbl_mac_lrn : 1;
            vx_uint32 dsbl_drp_pkt_lrn : 1;
            vx_uint32 dsbl_cpu_pkt_lrn : 1;
            vx_uint32 lrn_lmt_pkt_act : 1;
            vx_uint32 lrn_lmt_lrn_act : 1;
            vx_uint32 lrn_lmt : 1;
            vx_uint32 rsvd : 23;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_learn_port_cfg_t;

typedef struct {
    vx_mac_addr_t mac_addr;
    vx_uint8 p_bit;
    vx_uint16 vlan_id;
    vx_boolean mac_addr_valid;
    vx_boolean p_bit_valid;
    vx_boolean vid_valid;
    vx_uint16 port_id;
} vx_l2_fdb_entry_t;

typedef struct {
    vx_mac_addr_t mac_addr;
    vx_uint8 p_bit;
    vx_uint16 vlan_id;
    vx_boolean mac_addr_valid;
    vx_boolean p_bit_valid;
    vx_boolean vid_valid;
    vx_uint16 port_id;
    vx_boolean is_static;
    vx_uint32 aging_time;
} vx_l2_mac_tbl_entry_t;

typedef struct {
    vx_uint16 max_pkt_size;
    vx_boolean exclude_tag;
    union {
        struct {
            vx_uint32 max_pkt_size : 1;
            vx_uint32 exclude_tag : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_mtu_cfg_t;

typedef struct {
    vx_l2_filter_type_t filter_type;
} vx_l2_mac_addr_filter_cfg_t;

typedef struct {
    vx_mac_addr_t mac_addr;
} vx_l2_user_mac_addr_cfg_t;

typedef struct {
    vx_l2_tpid_mode_t mode;
    vx_boolean admit_outer_tag;
    vx_boolean admit_inner_tag;
} vx_l2_tpid_cfg_t;

typedef struct {
    vx_uint16 ingr_outer_tpid1;
    vx_uint16 ingr_outer_tpid2;
    vx_uint16 ingr_outer_tpid3;
    vx_uint16 ingr_outer_tpid4;
    vx_uint16 ingr_inner_tpid1;
    vx_uint16 ingr_inner_tpid2;
    vx_uint16 ingr_inner_tpid3;
    vx_uint8 tpid_detection_enbl_bitmap;
    vx_uint8 tpid_deny_filter_bitmap;
    union {
        struct {
            vx_uint32 ingr_outer_tpid1 : 1;
            vx_uint32 ingr_outer_tpid2 : 1;
            vx_uint32 ingr_outer_tpid3 : 1;
            vx_uint32 ingr_outer_tpid4 : 1;
            vx_uint32 ingr_inner_tpid1 : 1;
            vx_uint32 ingr_inner_tpid2 : 1;
            vx_uint32 ingr_inner_tpid3 : 1;
            vx_uint32 tpid_detection_enbl_bitmap : 1;
            vx_uint32 tpid_deny_filter_bitmap : 1;
        } mask_s;
        vx_uint8 mask;
    } valid;
} vx_l2_fe_tpid_cfg_t;

typedef struct {
    vx_vid_t dft_pvid;
    vx_uint8 dft_pbit;
    vx_uint16 dft_tpid;
    vx_uint8 dft_dscp;
    vx_uint8 dft_cos;
    vx_uint8 bc_cos;
    vx_uint8 umc_cos;
    vx_uint8 uuc_cos;
    vx_uint8 ipv4_dscp_mask;
    vx_uint8 ipv6_tc_mask;
    vx_egrs_pvid_vlan_op_t egrs_pvid_vlan_op;
    union {
        struct {
            vx_uint32 dft_pvid : 1;
            vx_uint32 dft_pbit : 1;
            vx_uint32 dft_tpid : 1;
            vx_uint32 dft_dscp : 1;
            vx_uint32 dft_cos : 1;
            vx_uint32 bc_cos : 1;
            vx_uint32 umc_cos : 1;
            vx_uint32 uuc_cos : 1;
            vx_uint32 ipv4_dscp_mask : 1;
            vx_uint32 ipv6_tc_mask : 1;
            vx_uint32 egrs_pvid_vlan_op : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_port_cfg_t;

typedef struct {
    vx_boolean enbl_lpbk;
    vx_boolean enbl_da_sa_swap;
} vx_l2_port_oam_lpbk_t;

typedef struct {
    vx_boolean enbl_bc_pkt_dpid;
    vx_uint16 bc_pkt_dpid;
    vx_boolean enbl_mc_pkt_dpid;
    vx_uint16 mc_pkt_dpid;
    vx_uint16 enbl_uuc_pkt_dpid;
    vx_uint16 uuc_pkt_dpid;
    union {
        struct {
            vx_uint32 bc_pkt_dpid : 1;
            vx_uint32 mc_pkt_dpid : 1;
            vx_uint32 uuc_pkt_dpid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_static_pkt_fwd_cfg_t;

typedef struct vx_l2_flood_ctrl_s {
    vx_boolean bcast_drop;
    vx_boolean unknown_unicast_drop;
    vx_boolean unknown_mcast_drop;
    vx_uint8 rsvd;
} vx_l2_flood_ctrl_t;

vx_status_e vx_l2_fdb_entry_get_next(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_handle_t handle, vx_l2_fdb_entry_op_type_t mode, vx_l2_mac_tbl_entry_t *p_mac_entry, vx_l2_fdb_entry_handle_t *p_handle);

vx_status_e vx_l2_learn_port_enable_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean enbl);

vx_status_e vx_l2_tpid_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg);

vx_status_e vx_l2_port_stp_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t *stp_state);

vx_status_e vx_l2_mtu_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg);

vx_status_e vx_l2_learn_get(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg);

vx_status_e vx_l2_port_oam_lpbk_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg);

vx_status_e vx_l2_port_isolation_set(vx_dev_id_t dev_id, vx_boolean isolate);

vx_status_e vx_l2_port_flood_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl);

vx_status_e vx_l2_port_config_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg);

vx_status_e vx_l2_mac_addr_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 get_cnt, vx_l2_user_mac_addr_cfg_t *p_mac_addr_list, vx_uint8 *p_valid_cnt);

vx_status_e vx_l2_aging_timer_set(vx_dev_id_t dev_id, vx_uint32 aging_time);

vx_status_e vx_l2_mac_addr_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 num_mac_addr, vx_l2_user_mac_addr_cfg_t *p_mac_addr_list);

vx_status_e vx_l2_port_stp_state_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t stp_state);

vx_status_e vx_l2_port_oam_lpbk_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg);

vx_status_e vx_l2_learn_port_enable_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_enbl);

vx_status_e vx_l2_mac_addr_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean delete_all, vx_uint8 num_mac_addr, vx_l2_user_mac_addr_cfg_t *p_mac_addr_list);

vx_status_e vx_l2_port_static_pkt_fwd_config_set(vx_dev_id_t dev_id, vx_uint16 src_port_num, vx_l2_static_pkt_fwd_cfg_t *p_cfg);

vx_status_e vx_l2_fdb_entry_port_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_op_type_t type);

vx_status_e vx_l2_learn_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg);

vx_status_e vx_l2_port_isolation_get(vx_dev_id_t dev_id, vx_boolean *isolate);

vx_status_e vx_l2_port_tpid_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg);

vx_status_e vx_l2_learn_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg);

vx_status_e vx_l2_fdb_entry_add(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_t *p_mac_entry, vx_l2_fdb_entry_handle_t *p_handle);

vx_status_e vx_l2_mtu_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg);

vx_status_e vx_l2_fdb_entry_clear(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type);

vx_status_e vx_l2_port_static_pkt_fwd_config_get(vx_dev_id_t dev_id, vx_uint16 src_port_num, vx_l2_static_pkt_fwd_cfg_t *p_cfg);

vx_status_e vx_l2_port_config_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg);

vx_status_e vx_l2_mac_addr_filter_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mac_addr_filter_cfg_t *p_cfg);

vx_status_e vx_l2_tpid_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg);

vx_status_e vx_l2_mac_addr_filter_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mac_addr_filter_cfg_t *p_cfg);

vx_status_e vx_l2_aging_timer_get(vx_dev_id_t dev_id, vx_uint32 *p_aging_time);

vx_status_e vx_l2_learn_set(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg);

vx_status_e vx_l2_port_flood_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl);

vx_status_e vx_l2_port_tpid_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg);

vx_status_e vx_l2_fdb_entry_delete(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_handle_t handle, vx_l2_fdb_entry_t *p_mac_entry);

#ifdef __cplusplus
}
#endif

#endif
