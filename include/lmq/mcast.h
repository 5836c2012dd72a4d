/**
 * @file
 * @brief Multicast.
 */
#ifndef LMQ_MCAST_H
#define LMQ_MCAST_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define MAX_MCAST_SRC_NUM 2
#define MAX_MCAST_VLAN_NUM 64
#define MAX_MCAST_L2_NUM 64
#define MAX_MCAST_IP_NUM 64
#define LMQ_MC_GID_PER_SUB_PORT 64
#define LMQ_INVALID_MC_GID (0xffff)

typedef enum vx_mcast_acl_mode_t LMQ_ENUM_INT {
    LMQ_MCAST_ACL_DISABLE = 0,
    LMQ_MCAST_ACL_POSITIVE_FILTER = 1,
    LMQ_MCAST_ACL_NEGATIVE_FILTER = 2,
} vx_mcast_acl_mode_t;

typedef enum lmq_igmp_rx_mode_e LMQ_ENUM_INT {
    LMQ_IGMP_TRAP_TO_CPU = 0,
    LMQ_IGMP_COPY_TO_CPU = 1,
} lmq_igmp_rx_mode_e;

typedef enum vx_mcast_addr_type_t LMQ_ENUM_INT {
    VX_ACL_MC_ADDR_TYPE_MAC = 0,
    VX_ACL_MC_ADDR_TYPE_IPV4 = 1,
    VX_ACL_MC_ADDR_TYPE_IPV6 = 2,
} vx_mcast_addr_type_t;

typedef enum vx_mcast_src_filter_mode_t LMQ_ENUM_INT {
    LMQ_MC_SRC_FILTER_MODE_EXCLUDE = 0,
    LMQ_MC_SRC_FILTER_MODE_INCLUDE = 1,
    LMQ_MC_SRC_FILTER_MODE_IGNORE = 2,
    LMQ_MC_SRC_FILTER_MODE_MAX = 3,
} vx_mcast_src_filter_mode_t;

typedef enum vx_mcast_vlan_tag_action_t LMQ_ENUM_INT {
    VX_MC_VLAN_TAG_ACTION_NOP = 0,
    VX_MC_VLAN_TAG_ACTION_POP = 1,
    VX_MC_VLAN_TAG_ACTION_SWAP = 2,
    VX_MC_VLAN_TAG_ACTION_SWAP_IGMP_VID = 3,
    VX_MC_VLAN_TAG_ACTION_INVALID = 4,
    VX_MC_VLAN_TAG_ACTION_MAX = 4,
} vx_mcast_vlan_tag_action_t;

typedef enum lmq_igmp_proto_type_e LMQ_ENUM_INT {
    LMQ_IGMP_MLD = 0,
    LMQ_IGMP_ONLY = 1,
    LMQ_MLD_ONLY = 2,
} lmq_igmp_proto_type_e;

typedef enum lmq_igmp_vid_src_e LMQ_ENUM_INT {
    LMQ_IGMP_VID_SRC_FIXED = 0,
    LMQ_IGMP_VID_SRC_UC_VLAN = 1,
    LMQ_IGMP_VID_SRC_MC_VLAN = 2,
    LMQ_IGMP_VID_SRC_MAX = 3,
} lmq_igmp_vid_src_e;

typedef enum lmq_igmp_vlan_tag_action_e LMQ_ENUM_INT {
    LMQ_IGMP_VLAN_ACTION_ASIS = 0,
    LMQ_IGMP_VLAN_ACTION_UNCOND_PUSH = 1,
    LMQ_IGMP_VLAN_ACTION_PUSH = 2,
    LMQ_IGMP_VLAN_ACTION_POP = 3,
    LMQ_IGMP_VLAN_ACTION_SWAP_TCI = 4,
    LMQ_IGMP_VLAN_ACTION_SWAP_VID = 5,
    LMQ_IGMP_VLAN_ACTION_INVALID = 6,
    LMQ_IGMP_VLAN_ACTION_MAX = 6,
} lmq_igmp_vlan_tag_action_e;

typedef struct vx_acl_mcast_grp_addr_s {
    vx_mcast_addr_type_t addr_type;
    vx_ip_addr_t mc_ip_addr;
    vx_mac_addr_t mc_mac_addr;
} vx_acl_mcast_grp_addr_t;

typedef struct vx_mcast_acl_s {
    vx_uint16 sub_port_id;
    vx_uint16 mcast_vlan;
    vx_ip_addr_t grp_start;
    vx_ip_addr_t grp_end;
    vx_ip_addr_t src_ip;
    vx_uint16 mcast_grp_cnt;
    vx_acl_mcast_grp_addr_t mcast_grp[2];
} vx_mcast_acl_t;

typedef struct vx_mcast_vlan_cfg_s {
    vx_uint16 mcast_vlan;
    vx_mcast_vlan_tag_action_t ds_vlan_cmd;
    vx_uint16 uni_vlan_id;
} vx_mcast_vlan_cfg_t;

typedef struct vx_mcast_l2_entry_s {
    vx_uint16 sub_port;
    vx_uint16 mcast_vlan;
    vx_mac_addr_t mac_addr;
} vx_mcast_l2_entry_t;

typedef struct vx_mcast_ip_entry_s {
    vx_uint16 mcast_vlan;
    vx_uint16 sub_port;
    vx_ip_addr_t grp_addr;
    vx_mcast_src_filter_mode_t filter_mode;
    vx_uint8 src_num;
    vx_ip_addr_t src_list[2];
} vx_mcast_ip_entry_t;

typedef struct {
    lmq_igmp_vlan_tag_action_e us_vlan_cmd;
    lmq_igmp_vid_src_e us_vid_src;
    vx_uint16 us_igmp_tci;
    lmq_igmp_vlan_tag_action_e ds_vlan_cmd;
    vx_uint16 ds_igmp_tci;
} lmq_igmp_vlan_cfg_s;

typedef struct vx_mcast_host_info_dbg_s {
    vx_uint8 host_vid_cnt;
    vx_uint16 host_vid_list[10];
} vx_mcast_host_info_dbg_t;

typedef struct {
    vx_mcast_src_filter_mode_t filter_mode;
    vx_uint8 src_ip_cnt;
    vx_ip_addr_t src_ip_list[10];
} lmq_mcast_src_filter_list_dbg_s;

typedef struct {
    vx_uint16 sub_port_id;
    vx_vid_t mcast_vlan;
    vx_acl_mcast_grp_addr_t mcast_grp_addr;
    lmq_mcast_src_filter_list_dbg_s src_filter_list;
} lmq_mcast_filter_cfg_dbg_s;

vx_status_e vx_mcast_vlan_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan, vx_mcast_vlan_cfg_t *p_cfg);

vx_status_e lmq_set_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg);

vx_status_e lmq_print_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num);

vx_status_e vx_mcast_vlan_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_vlan_cfg_t *p_cfg);

vx_status_e vx_mcast_ip_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry);

vx_status_e vx_mcast_ip_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_ip_entry_t *entry);

vx_status_e lmq_dbg_print_mc_grp_acl(vx_dev_id_t dev_id, vx_uint16 uni_port_num);

vx_status_e vx_mcast_ip_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry);

vx_status_e vx_mcast_l2_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry);

vx_status_e lmq_disable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num);

vx_status_e lmq_get_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg);

vx_status_e lmq_dbg_print_all_mc_vlan_cfg(vx_dev_id_t dev_id);

vx_status_e lmq_dbg_print_mc_vlan_cfg(vx_dev_id_t dev_id, vx_uint16 uni_port_num);

vx_status_e vx_mcast_l2_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_l2_entry_t *entry);

vx_status_e vx_mcast_acl_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl);

vx_status_e vx_mcast_vlan_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_mcast_ip_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_mcast_l2_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry);

vx_status_e vx_mcast_vlan_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan, vx_mcast_vlan_cfg_t *p_cfg);

vx_status_e lmq_dbg_print_mc_db(vx_dev_id_t dev_id);

vx_status_e vx_mcast_l2_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_mcast_vlan_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan);

vx_status_e lmq_dbg_set_mcast_filter_config(vx_dev_id_t dev_id, vx_uint16 port_num, vx_mcast_host_info_dbg_t *p_host_info, lmq_mcast_filter_cfg_dbg_s *p_mcast_filter);

vx_status_e vx_mcast_vlan_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan);

vx_status_e lmq_enable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_proto_type_e proto_type);

vx_status_e vx_mcast_acl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_acl_t *p_mcast_acl);

vx_status_e vx_mcast_acl_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl);

#ifdef __cplusplus
}
#endif

#endif
