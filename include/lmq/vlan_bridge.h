/**
 * @file
 * @brief VLANs and bridges.
 */
#ifndef LMQ_VLAN_BRIDGE_H
#define LMQ_VLAN_BRIDGE_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_BRG_PORT_ID_BASE ((lmq_brg_port_id_t)1000)
#define LMQ_INVALID_BRG_ID ((lmq_brg_id_t)0xffffffff)
#define LMQ_INVALID_BRG_PORT_ID ((lmq_brg_port_id_t)0xffff)
#define LMQ_FE_DFT_PVID 1
#define LMQ_MAX_VID ((vx_vid_t)4095)
#define LMQ_INVALID_VID ((vx_vid_t)0xffff)
#define LMQ_ANY_VID ((vx_vid_t)0xfff)

typedef enum lmq_brg_type_e LMQ_ENUM_INT {
    LMQ_BRG_TYPE_NONE = 0,
    LMQ_BRG_TYPE_N_1 = 1,
    LMQ_BRG_TYPE_1_1 = 2,
    LMQ_BRG_TYPE_MC = 4,
    LMQ_BRG_TYPE_BC = 8,
    LMQ_BRG_TYPE_ALL = 15,
} lmq_brg_type_e;

typedef enum lmq_vlan_tag_type_e LMQ_ENUM_INT {
    LMQ_VLAN_TAG_TYPE_UNTAG = 1,
    LMQ_VLAN_TAG_TYPE_PRIO_TAG = 2,
    LMQ_VLAN_TAG_TYPE_TAG = 4,
} lmq_vlan_tag_type_e;

typedef enum vx_acl_vlan_filter_dir_t LMQ_ENUM_INT {
    VX_ACL_VLAN_FILTER_DIR_DISABLE = 0,
    VX_ACL_VLAN_FILTER_DIR_INGRESS = 1,
    VX_ACL_VLAN_FILTER_DIR_EGRESS = 2,
    VX_ACL_VLAN_FILTER_DIR_BOTH = 3,
} vx_acl_vlan_filter_dir_t;

typedef enum vx_acl_op_mode_t LMQ_ENUM_INT {
    VX_ACL_OP_ADD = 0,
    VX_ACL_OP_DELETE = 1,
    VX_ACL_OP_MODIFY = 2,
} vx_acl_op_mode_t;

typedef struct {
    vx_uint8 member_sni_port_bitmap;
    vx_uint8 member_uni_port_bitmap;
    vx_uint16 vid_lo;
    vx_uint16 vid_high;
    vx_boolean ingr_valid;
    vx_boolean egrs_valid;
    union {
        struct {
            vx_uint32 member_port_bitmap : 1;
            vx_uint32 vid : 1;
            vx_uint32 ingr_valid : 1;
            vx_uint32 egrs_valid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_acl_vlan_member_tbl_entry_t;

typedef struct {
    vx_uint8 sni_port_bitmap;
    vx_uint8 uni_port_bitmap;
    vx_uint16 vid_from;
    vx_uint16 vid_to;
    vx_boolean ingr_valid;
    vx_boolean egrs_valid;
    union {
        struct {
            vx_uint32 port_bitmap : 1;
            vx_uint32 vid : 1;
            vx_uint32 ingr_valid : 1;
            vx_uint32 egrs_valid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_acl_vlan_mapping_tbl_entry_t;

typedef struct {
    lmq_brg_type_t brg_type;
    vx_uint16 vlan_id;
    vx_boolean enbl_local_fwd;
    vx_boolean discard_unknown_mac;
    union {
        struct {
            vx_uint32 brg_type : 1;
            vx_uint32 vlan_id : 1;
            vx_uint32 enbl_local_fwd : 1;
            vx_uint32 discard_unknown_mac : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_brg_cfg_s;

typedef struct {
    vx_uint16 brg_port_num;
    vx_uint16 uni_port_num;
} lmq_brg_port_info_s;

typedef struct {
    vx_uint16 sub_port;
    vx_uint16 pon_id;
} lmq_brg_sni_sub_port_info_s;

typedef struct {
    vx_uint32 brg_id;
    lmq_brg_cfg_s brg_cfg;
    vx_uint16 num_brg_ports;
    lmq_brg_port_info_s brg_port_info[LMQ_MAX_UNI_PORT_NUM];
    vx_uint16 num_sub_ports;
    lmq_brg_sni_sub_port_info_s gem_info[VX_MAX_GEM_PORTS];
} lmq_brg_cfg_info_s;

typedef struct {
    vx_uint8 eth_type;
    vx_uint8 outer_pri;
    vx_uint16 outer_vid;
    vx_uint16 outer_tpid_dei;
    vx_uint8 inner_pri;
    vx_uint16 inner_vid;
    vx_uint16 inner_tpid_dei;
} vx_lmq_ext_vlan_filter_t;

typedef struct {
    vx_uint8 tag_to_remove;
    vx_uint8 outer_pri;
    vx_uint16 outer_vid;
    vx_uint16 outer_tpid_dei;
    vx_uint8 inner_pri;
    vx_uint16 inner_vid;
    vx_uint16 inner_tpid_dei;
} vx_lmq_ext_vlan_treatment_t;

typedef struct {
    vx_uint8 pri;
    vx_uint8 tagged_action;
    vx_uint8 untagged_action;
    vx_uint8 dei;
    vx_uint16 vid;
    vx_uint16 eth_port;
    vx_uint16 gem_port;
    vx_uint8 mode;
} vx_lmq_tci_routing_t;

typedef struct {
    vx_uint8 us_mode;
    vx_uint16 us_tci;
    vx_uint8 ds_mode;
} vx_lmq_vlan_opr_t;

typedef struct _vx_pkt_t {
    vx_uint8 msg_type;
    vx_uint8 version;
    vx_uint16 len;
    vx_uint16 port;
    vx_uint16 sub_port;
    vx_uint16 offset;
    vx_uint16 svlan;
    vx_uint16 cvlan;
    vx_uint16 stpid;
    vx_uint16 ctpid;
    vx_uint8 frame_type;
    vx_uint8 pkt_type;
    vx_uint16 eth_type;
    vx_uint16 tag_num;
    vx_uint16 u2Reserved;
    vx_uint8 data[1];
} vx_pkt_t;

typedef struct {
    vx_pkt_t pkt;
    vx_uint8 padding[1500-1];
} vx_lmq_ioctl_pkt_t;

vx_int32 vx_sw_single_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter, vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

vx_int32 vx_vid_pbit_2gem_get(vx_port_id_t sport, vx_uint16 tci, vx_uint16 *gem);

vx_int32 vx_sw_vlan_mib_reset(void);

vx_status_e vx_vlan_tag_policy_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_tag_type_t *p_vlan_tag_type_bitmap, vx_boolean *p_admit);

vx_status_e lmq_delete_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id);

vx_status_e vx_vlan_member_check_default_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t *fil_dir);

vx_status_e vx_gpon_onu_gem_port_delete_from_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, lmq_brg_id_t brg_id);

vx_int32 vx_vid_pbit_2gem_dump(void);

vx_int32 vlan_egress_filter_ioctl(vx_uint16 dport, vx_lmq_ioctl_pkt_t *pkt);

vx_int32 vx_sw_vlan_del(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 ext_vlan_id);

vx_status_e lmq_get_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_info_s *p_cfg);

vx_int32 vx_sw_tci_gem_add(vx_uint32 dev_id, vx_lmq_tci_routing_t *tci2gem, vx_uint16 routing_id);

vx_status_e vx_vlan_mapping_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx, vx_acl_vlan_mapping_tbl_entry_t *p_entry);

vx_status_e vx_vlan_member_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx, vx_acl_op_mode_t op_mode, vx_acl_vlan_member_tbl_entry_t *p_entry);

vx_int32 vlan_ingress_filter_ioctl(vx_lmq_ioctl_pkt_t *pkt);

vx_int32 vlan_egress_filter(vx_uint16 dport, vx_pkt_t *pkt);

vx_status_e lmq_set_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg);

vx_int32 vx_sw_vlan_param_set(vx_uint32 dev_id, vx_uint16 ethport_id, vx_uint16 input_tpid, vx_uint16 output_tpid, vx_uint8 downstream_mode);

vx_status_e vx_vlan_member_check_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir, vx_boolean enable);

vx_status_e lmq_add_bridge_port(vx_dev_id_t dev_id, vx_uint16 uni_port_num, lmq_brg_id_t brg_id, lmq_brg_port_id_t *p_brg_port_id);

vx_status_e lmq_delete_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id);

vx_status_e vx_vlan_tag_policy_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_tag_type_t vlan_tag_type_bitmap, vx_boolean admit);

vx_status_e vx_vlan_member_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx, vx_acl_vlan_member_tbl_entry_t *p_entry);

vx_status_e lmq_dump_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id);

vx_int32 vx_sw_tci_gem_del(vx_uint32 dev_id, vx_uint16 routing_id);

vx_int32 vx_sw_double_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter, vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

vx_int32 vx_sw_untag_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter, vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

vx_status_e vx_vlan_mapping_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx, vx_acl_op_mode_t op_mode, vx_acl_vlan_mapping_tbl_entry_t *p_entry);

vx_int32 vlan_ingress_filter(vx_pkt_t *pkt);

vx_status_e vx_vlan_member_check_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t *p_ena);

vx_int32 vx_sw_vlan_opr_delete(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 vlan_id);

vx_status_e lmq_create_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg);

vx_status_e vx_vlan_member_check_default_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir, vx_boolean permit);

vx_status_e lmq_dump_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id);

vx_int32 vx_sw_vlan_opr_create(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_vlan_opr_t *vlan_opr, vx_boolean iphost, vx_uint16 vlan_id);

vx_status_e lmq_get_bridge_config_all(vx_dev_id_t dev_id, vx_uint16 get_cnt, lmq_brg_cfg_info_s *p_cfg, vx_uint16 *p_valid_cnt);

vx_status_e vx_gpon_onu_gem_port_add_to_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id, lmq_brg_id_t brg_id);

vx_status_e lmq_dump_bridge_cvlan_svlan_list(vx_dev_id_t dev_id);

#ifdef __cplusplus
}
#endif

#endif
