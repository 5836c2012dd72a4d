// Access control lists: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/acl.h"

namespace lmq {

UDT(vx_acl_custom_field_parser_cfg_t,
    SCALAR(vx_acl_custom_field_ext_mode_t,        ext_mode),
    SCALAR(vx_uint8,                              static_mode_offset),
    SCALAR(vx_acl_custom_field_pkt_type_bitmap_t, pkt_type_bitmap))

UDT(vx_acl_custom_pkt_field_tbl_entry_t,
    SCALAR(vx_boolean,                          valid),
    SCALAR(vx_acl_custom_field_ext_ref_point_t, ref_point),
    SCALAR(vx_uint16,                           key),
    SCALAR(vx_uint16,                           valid_bitmap),
    SCALAR(vx_boolean,                          lsb_or_msb),
    FLAGS(mask, ref_point, key, valid_bitmap, lsb_or_msb))

UDT(vx_flow_key_t,
    NESTED(vx_flow_us_key_t, us),
    NESTED(vx_flow_ds_key_t, ds))

UDT(vx_acl_custom_pkt_filter_t,
    SCALAR(vx_l2_filter_type_t, filter_type),
    NESTED(vx_flow_key_t,       flow_key))

METHOD(vx_acl_custom_pkt_field_table_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_pkt_field_tbl_entry_t, p_entry))
METHOD(vx_acl_custom_pkt_field_table_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx), VALUE(vx_acl_op_mode_t, op_mode), UDT_PTR(vx_acl_custom_pkt_field_tbl_entry_t, p_entry))
METHOD(vx_acl_custom_pkt_filter_delete, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_pkt_filter_t, p_entry))
METHOD(vx_acl_custom_field_parser_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_field_parser_cfg_t, p_cfg))
METHOD(vx_acl_unknown_flow_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, p_allow))
METHOD(vx_acl_custom_pkt_filter_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_pkt_filter_t, p_entry))
METHOD(vx_acl_custom_field_parser_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_field_parser_cfg_t, p_cfg))
METHOD(vx_acl_unknown_flow_allow, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_acl_custom_pkt_filter_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, req_cnt), UDT_PTR(vx_acl_custom_pkt_filter_t, p_entry), ELEMENT_PTR(vx_uint16, p_valid_cnt))
METHOD(vx_acl_unknown_flow_block, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))

} // namespace lmq
