// Access control lists: UDTs, inner ones first, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/acl.h"

namespace lmq {

UDT(vx_acl_custom_field_parser_cfg_t,
    SCALAR(vx_acl_custom_field_ext_mode_t,        ext_mode),
    SCALAR(vx_uint8,                              static_mode_offset),
    SCALAR(vx_acl_custom_field_pkt_type_bitmap_t, pkt_type_bitmap))

// valid is a member; the flags are in mask, without mask_s and without a word beside it.
UDT(vx_acl_custom_pkt_field_tbl_entry_t,
    SCALAR(vx_boolean,                          valid),
    SCALAR(vx_acl_custom_field_ext_ref_point_t, ref_point),
    SCALAR(vx_uint16,                           key),
    SCALAR(vx_uint16,                           valid_bitmap),
    SCALAR(vx_boolean,                          lsb_or_msb),
    FLAGS(mask, ref_point, key, valid_bitmap, lsb_or_msb))

// A union: a client sends the one that counts, and gets both, of the same bytes.
UDT(vx_flow_key_t,
    NESTED(vx_flow_us_key_t, us),
    NESTED(vx_flow_ds_key_t, ds))

UDT(vx_acl_custom_pkt_filter_t,
    SCALAR(vx_l2_filter_type_t, filter_type),
    NESTED(vx_flow_key_t,       flow_key))

METHOD(vx_acl_unknown_flow_allow, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_acl_unknown_flow_block, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id))
METHOD(vx_acl_unknown_flow_status_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_boolean, p_allow))

constexpr Help help_vx_acl_custom_field_parser_config_set{
    .title = "CONFIGURE CUSTOM FIELD PARSER",
    .text = "This API configures the parser that extracts custom fields from the packets of a\n"
            "port.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : custom field parser configuration\n",
};
METHOD(vx_acl_custom_field_parser_config_set, help_vx_acl_custom_field_parser_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_field_parser_cfg_t, p_cfg))

constexpr Help help_vx_acl_custom_field_parser_config_get{
    .title = "RETRIEVE CUSTOM FIELD PARSER CONFIG",
    .text = "This API retrieves the configuration of the custom field parser of a port.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : where to put the configuration\n",
    .outputs = "p_cfg : custom field parser configuration\n",
};
METHOD(vx_acl_custom_field_parser_config_get, help_vx_acl_custom_field_parser_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_field_parser_cfg_t, p_cfg))

constexpr Help help_vx_acl_custom_pkt_field_table_set{
    .title = "CONFIGURE CUSTOM PACKET FIELD ENTRY",
    .text = "This API adds, deletes or modifies an entry of the custom packet field table.\n",
    .inputs = "port_id  : port id\n"
              "tbl_indx : table index, valid range 0-7\n"
              "op_mode  : add, delete or modify\n"
              "p_entry  : custom packet field entry\n",
};
METHOD(vx_acl_custom_pkt_field_table_set, help_vx_acl_custom_pkt_field_table_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx),
       VALUE(vx_acl_op_mode_t, op_mode), UDT_PTR(vx_acl_custom_pkt_field_tbl_entry_t, p_entry))

constexpr Help help_vx_acl_custom_pkt_field_table_get{
    .title = "RETRIEVE CUSTOM PACKET FIELD ENTRY",
    .text = "This API retrieves custom packet field entries.\n",
    .inputs = "port_id : port id\n"
              "p_entry : where to put the entries\n",
    .outputs = "p_entry : custom packet field entries\n",
};
METHOD(vx_acl_custom_pkt_field_table_get, help_vx_acl_custom_pkt_field_table_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_pkt_field_tbl_entry_t, p_entry))

constexpr Help help_vx_acl_custom_pkt_filter_add{
    .title = "Add a Custom Packet Filter",
    .text = "This API adds a custom packet filter to ingress packets of a port.\n"
            "Custom packet filters work as ACL and override other forwarding configuration.\n"
            "LMQ_FILTER_POSITIVE: matching traffic passes. LMQ_FILTER_NEGATIVE: matching\n"
            "traffic is dropped. Other traffic is forwarded or dropped by the other rules.\n"
            "LMQ_FILTER_DISABLE: the filter is deleted with its software record, the same as\n"
            "vx_acl_custom_pkt_filter_delete.\n",
    .inputs = "port_id : port id\n"
              "p_entry : custom packet filter\n",
};
METHOD(vx_acl_custom_pkt_filter_add, help_vx_acl_custom_pkt_filter_add,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_pkt_filter_t, p_entry))

constexpr Help help_vx_acl_custom_pkt_filter_delete{
    .title = "Delete a Custom Packet Filter",
    .text = "This API deletes a custom packet filter from a port.\n",
    .inputs = "port_id : port id\n"
              "p_entry : custom packet filter\n",
};
METHOD(vx_acl_custom_pkt_filter_delete, help_vx_acl_custom_pkt_filter_delete,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_acl_custom_pkt_filter_t, p_entry))

constexpr Help help_vx_acl_custom_pkt_filter_get{
    .title = "Get the Configured Custom Packet Filters",
    .text = "This API gets the custom packet filters of a port.\n",
    .inputs = "port_id     : port id\n"
              "req_cnt     : number of filters requested\n"
              "p_entry     : where to put the filters\n"
              "p_valid_cnt : where to put the number of filters\n",
    .outputs = "p_entry     : custom packet filters\n"
               "p_valid_cnt : number of filters retrieved\n",
};
METHOD(vx_acl_custom_pkt_filter_get, help_vx_acl_custom_pkt_filter_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, req_cnt),
       UDT_PTR(vx_acl_custom_pkt_filter_t, p_entry), ELEMENT_PTR(vx_uint16, p_valid_cnt))

} // namespace lmq
