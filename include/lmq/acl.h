/**
 * @file
 * @brief Access control lists.
 */
#ifndef LMQ_ACL_H
#define LMQ_ACL_H

#include "lmq/flow.h"
#include "lmq/l2.h"
#include "lmq/status.h"
#include "lmq/types.h"
#include "lmq/vlan_bridge.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_MIN_ACL_PRI 0
#define LMQ_INVALID_ACL_RULE_ID ((lmq_acl_rule_id_t)0xffff)
#define LMQ_MAX_ACL_PRI 14

typedef enum vx_acl_custom_field_pkt_type_bitmap_enum_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_NON_IP = 1,
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_TCP_UDP_IP = 2,
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_NON_TCP_UDP_IP = 4,
    VX_ACL_CUSTOM_FIELD_PKT_TYPE_BITMAP_ALL = 7,
} vx_acl_custom_field_pkt_type_bitmap_enum_t;

typedef enum vx_acl_custom_field_ext_mode_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_EXT_MODE_STATIC = 0,
    VX_CUSTOM_FIELD_EXT_MODE_DYNAMIC = 1,
} vx_acl_custom_field_ext_mode_t;

typedef enum vx_acl_custom_field_ext_ref_point_t LMQ_ENUM_INT {
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L2_HDR = 0,
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L3_HDR = 1,
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_L4_HDR = 2,
    VX_ACL_CUSTOM_FIELD_EXT_REF_POINT_START_OF_PKT = 3,
} vx_acl_custom_field_ext_ref_point_t;

typedef struct {
    vx_acl_custom_field_ext_mode_t ext_mode;
    vx_uint8 static_mode_offset;
    vx_acl_custom_field_pkt_type_bitmap_t pkt_type_bitmap;
} vx_acl_custom_field_parser_cfg_t;

typedef struct {
    vx_boolean valid;
    vx_acl_custom_field_ext_ref_point_t ref_point;
    vx_uint16 key;
    vx_uint16 valid_bitmap;
    vx_boolean lsb_or_msb;
    struct {
        vx_uint32 ref_point : 1;
        vx_uint32 key : 1;
        vx_uint32 valid_bitmap : 1;
        vx_uint32 lsb_or_msb : 1;
    } mask;
} vx_acl_custom_pkt_field_tbl_entry_t;

typedef union {
    vx_flow_us_key_t us;
    vx_flow_ds_key_t ds;
} vx_flow_key_t;

typedef struct {
    vx_l2_filter_type_t filter_type;
    vx_flow_key_t flow_key;
} vx_acl_custom_pkt_filter_t;

vx_status_e vx_acl_custom_pkt_field_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_pkt_field_tbl_entry_t *p_entry);

vx_status_e vx_acl_custom_pkt_field_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx, vx_acl_op_mode_t op_mode, vx_acl_custom_pkt_field_tbl_entry_t *p_entry);

vx_status_e vx_acl_custom_pkt_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_pkt_filter_t *p_entry);

vx_status_e vx_acl_custom_field_parser_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_field_parser_cfg_t *p_cfg);

vx_status_e vx_acl_unknown_flow_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *p_allow);

vx_status_e vx_acl_custom_pkt_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_pkt_filter_t *p_entry);

vx_status_e vx_acl_custom_field_parser_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_custom_field_parser_cfg_t *p_cfg);

vx_status_e vx_acl_unknown_flow_allow(vx_dev_id_t dev_id, vx_port_id_t port_id);

vx_status_e vx_acl_custom_pkt_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 req_cnt, vx_acl_custom_pkt_filter_t *p_entry, vx_uint16 *p_valid_cnt);

vx_status_e vx_acl_unknown_flow_block(vx_dev_id_t dev_id, vx_port_id_t port_id);

#ifdef __cplusplus
}
#endif

#endif
