// VLANs and bridges: their UDTs, then their methods with the help texts.
#include "families/help.h"
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/vlan_bridge.h"

namespace lmq {

// In both tables one flag selects two members: the two bitmaps, and the two VLANs.
UDT(vx_acl_vlan_member_tbl_entry_t,
    SCALAR(vx_uint8,   member_sni_port_bitmap),
    SCALAR(vx_uint8,   member_uni_port_bitmap),
    SCALAR(vx_uint16,  vid_lo),
    SCALAR(vx_uint16,  vid_high),
    SCALAR(vx_boolean, ingr_valid),
    SCALAR(vx_boolean, egrs_valid),
    MASK(valid, vx_uint32, member_port_bitmap, vid, ingr_valid, egrs_valid))

UDT(vx_acl_vlan_mapping_tbl_entry_t,
    SCALAR(vx_uint8,   sni_port_bitmap),
    SCALAR(vx_uint8,   uni_port_bitmap),
    SCALAR(vx_uint16,  vid_from),
    SCALAR(vx_uint16,  vid_to),
    SCALAR(vx_boolean, ingr_valid),
    SCALAR(vx_boolean, egrs_valid),
    MASK(valid, vx_uint32, port_bitmap, vid, ingr_valid, egrs_valid))

UDT(lmq_brg_cfg_s,
    SCALAR(lmq_brg_type_t, brg_type),
    SCALAR(vx_uint16,      vlan_id),
    SCALAR(vx_boolean,     enbl_local_fwd),
    SCALAR(vx_boolean,     discard_unknown_mac),
    MASK(valid, vx_uint32, brg_type, vlan_id, enbl_local_fwd, discard_unknown_mac))

UDT(lmq_brg_port_info_s,
    SCALAR(vx_uint16, brg_port_num),
    SCALAR(vx_uint16, uni_port_num))

UDT(lmq_brg_sni_sub_port_info_s,
    SCALAR(vx_uint16, sub_port),
    SCALAR(vx_uint16, pon_id))

UDT(lmq_brg_cfg_info_s,
    SCALAR(   vx_uint32,                   brg_id),
    NESTED(   lmq_brg_cfg_s,               brg_cfg),
    SCALAR(   vx_uint16,                   num_brg_ports),
    UDT_ARRAY(lmq_brg_port_info_s,         brg_port_info, LMQ_MAX_UNI_PORT_NUM),
    SCALAR(   vx_uint16,                   num_sub_ports),
    UDT_ARRAY(lmq_brg_sni_sub_port_info_s, gem_info, VX_MAX_GEM_PORTS))

UDT(vx_lmq_ext_vlan_filter_t,
    SCALAR(vx_uint8,  eth_type),
    SCALAR(vx_uint8,  outer_pri),
    SCALAR(vx_uint16, outer_vid),
    SCALAR(vx_uint16, outer_tpid_dei),
    SCALAR(vx_uint8,  inner_pri),
    SCALAR(vx_uint16, inner_vid),
    SCALAR(vx_uint16, inner_tpid_dei))

UDT(vx_lmq_ext_vlan_treatment_t,
    SCALAR(vx_uint8,  tag_to_remove),
    SCALAR(vx_uint8,  outer_pri),
    SCALAR(vx_uint16, outer_vid),
    SCALAR(vx_uint16, outer_tpid_dei),
    SCALAR(vx_uint8,  inner_pri),
    SCALAR(vx_uint16, inner_vid),
    SCALAR(vx_uint16, inner_tpid_dei))

UDT(vx_lmq_tci_routing_t,
    SCALAR(vx_uint8,  pri),
    SCALAR(vx_uint8,  tagged_action),
    SCALAR(vx_uint8,  untagged_action),
    SCALAR(vx_uint8,  dei),
    SCALAR(vx_uint16, vid),
    SCALAR(vx_uint16, eth_port),
    SCALAR(vx_uint16, gem_port),
    SCALAR(vx_uint8,  mode))

UDT(vx_lmq_vlan_opr_t,
    SCALAR(vx_uint8,  us_mode),
    SCALAR(vx_uint16, us_tci),
    SCALAR(vx_uint8,  ds_mode))

// A client may send more than one byte of data: they run on behind the member, as those of every array do.
UDT(vx_pkt_t,
    SCALAR(  vx_uint8,  msg_type),
    SCALAR(  vx_uint8,  version),
    SCALAR(  vx_uint16, len),
    SCALAR(  vx_uint16, port),
    SCALAR(  vx_uint16, sub_port),
    SCALAR(  vx_uint16, offset),
    SCALAR(  vx_uint16, svlan),
    SCALAR(  vx_uint16, cvlan),
    SCALAR(  vx_uint16, stpid),
    SCALAR(  vx_uint16, ctpid),
    SCALAR(  vx_uint8,  frame_type),
    SCALAR(  vx_uint8,  pkt_type),
    SCALAR(  vx_uint16, eth_type),
    SCALAR(  vx_uint16, tag_num),
    SCALAR(  vx_uint16, u2Reserved),
    ELEMENTS(vx_uint8,  data, 1))

// The bound is printed as it is spelled.
UDT(vx_lmq_ioctl_pkt_t,
    NESTED(  vx_pkt_t, pkt),
    ELEMENTS(vx_uint8, padding, 1500-1))

// The texts of the vx_vlan_* methods name the statuses "vx_statue_e". That of the tag policy names the bitmap
// vtag_type_bitmap, as the prototype does not.
constexpr Help help_vx_vlan_tag_policy_set{
    .title = "CONFIGURE ADMISSION POLICY FOR VLAN TAG TYPES ON A PORT",
    .text = "This API configures which VLAN tag types are admitted on a port.\n"
            "When admit is TRUE, the tag types with bit 1 in the bitmap are admitted and the types\n"
            "with bit 0 are filtered out. When admit is FALSE, the types with bit 1 are dropped and\n"
            "those with bit 0 admitted.\n",
    .inputs = "port_id          : port id\n"
              "vtag_type_bitmap : bitmap of VLAN tag types\n"
              "admit            : TRUE to admit, FALSE to drop\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_tag_policy_set, help_vx_vlan_tag_policy_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_acl_vlan_tag_type_t, vlan_tag_type_bitmap),
       VALUE(vx_boolean, admit))

constexpr Help help_vx_vlan_tag_policy_get{
    .title = "RETRIEVE ADMISSION POLICY FOR VLAN TAG TYPES ON A PORT",
    .text = "This API retrieves which VLAN tag types are admitted on a port.\n",
    .inputs = "port_id                : port id\n"
              "p_vlan_tag_type_bitmap : where to put the bitmap of VLAN tag types\n"
              "p_admit                : where to put the admission\n",
    .outputs = "p_vlan_tag_type_bitmap : bitmap of VLAN tag types\n"
               "p_admit                : TRUE to admit, FALSE to drop\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_tag_policy_get, help_vx_vlan_tag_policy_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id),
       ELEMENT_PTR(vx_acl_vlan_tag_type_t, p_vlan_tag_type_bitmap), ELEMENT_PTR(vx_boolean, p_admit))

METHOD(vx_vlan_member_check_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_acl_vlan_filter_dir_t, fil_dir),
       VALUE(vx_boolean, enable))

constexpr Help help_vx_vlan_member_check_get{
    .title = "RETRIEVE CONFIGURED STATUS OF VLAN MEMBERSHIP CHECK",
    .text = "This API retrieves the directions in which the VLAN membership check is enabled on a\n"
            "port.\n",
    .inputs = "port_id : port id\n"
              "p_ena   : where to put the directions\n",
    .outputs = "p_ena : directions in which the check is enabled\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_member_check_get, help_vx_vlan_member_check_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_acl_vlan_filter_dir_t, p_ena))

constexpr Help help_vx_vlan_member_check_default_set{
    .title = "lmq_set_default_vlan_member check",
    .text = "This API sets the default of the VLAN membership check. When permit is TRUE, packets\n"
            "that match no entry pass. When it is FALSE, they are discarded in their direction.\n",
    .inputs = "port_id : port id\n"
              "fil_dir : direction\n"
              "permit  : TRUE to pass, FALSE to discard\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_member_check_default_set, help_vx_vlan_member_check_default_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_acl_vlan_filter_dir_t, fil_dir),
       VALUE(vx_boolean, permit))

constexpr Help help_vx_vlan_member_check_default_get{
    .title = "lmq_get_default_vlan_member check",
    .text = "This API retrieves the directions in which packets that match no entry of the VLAN\n"
            "membership table pass.\n",
    .inputs = "port_id : port id\n"
              "fil_dir : where to put the directions\n",
    .outputs = "fil_dir : directions in which packets pass by default\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_member_check_default_get, help_vx_vlan_member_check_default_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_acl_vlan_filter_dir_t, fil_dir))

constexpr Help help_vx_vlan_member_table_set{
    .title = "CONFIGURE VLAN MEMBERSHIP TABLE",
    .text = "This API configures an entry of the VLAN membership table.\n"
            "On a received packet the hardware scans the table from index 31 down to 0, skips\n"
            "entries whose ingr_valid is 0, and compares the VLAN range with the VID of the packet\n"
            "(PVID when untagged). On a match the packet is discarded if the ingress port is not\n"
            "among the member ports. On the egress side the scan is repeated with egrs_valid, the\n"
            "top VID after packet modification and the egress port. The scan stops at the first\n"
            "matching entry.\n",
    .inputs = "port_id  : port id\n"
              "tbl_indx : table index, valid range 0-31\n"
              "op_mode  : add, delete or modify\n"
              "p_entry  : table entry\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_member_table_set, help_vx_vlan_member_table_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx),
       VALUE(vx_acl_op_mode_t, op_mode), UDT_PTR(vx_acl_vlan_member_tbl_entry_t, p_entry))

constexpr Help help_vx_vlan_member_table_get{
    .title = "RETRIEVE VLAN MEMBERSHIP TABLE CONFIGURATION",
    .text = "This API retrieves an entry of the VLAN membership table.\n",
    .inputs = "port_id  : port id\n"
              "tbl_indx : table index, valid range 0-31\n"
              "p_entry  : where to put the table entry\n",
    .outputs = "p_entry : table entry\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_member_table_get, help_vx_vlan_member_table_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx),
       UDT_PTR(vx_acl_vlan_member_tbl_entry_t, p_entry))

constexpr Help help_vx_vlan_mapping_table_set{
    .title = "CONFIGURE VLAN MAPPING TABLE",
    .text = "This API configures an entry of the VLAN mapping table.\n"
            "The indices 0-31 are shared with the VLAN membership table. If\n"
            "the same tbl_index is passed to both API, the later SET will be rejected.\n"
            "When entries conflict, the higher index takes precedence.\n"
            "On ingress the mapped VID serves for classification. On egress an outer VID equal to\n"
            "vid_from becomes vid_to.\n",
    .inputs = "port_id  : port id\n"
              "tbl_indx : table index, valid range 0-31\n"
              "op_mode  : add, delete or modify\n"
              "p_entry  : table entry\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_mapping_table_set, help_vx_vlan_mapping_table_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx),
       VALUE(vx_acl_op_mode_t, op_mode), UDT_PTR(vx_acl_vlan_mapping_tbl_entry_t, p_entry))

constexpr Help help_vx_vlan_mapping_table_get{
    .title = "RETRIEVE VLAN MAPPING TABLE CONFIGURATION",
    .text = "This API retrieves an entry of the VLAN mapping table.\n",
    .inputs = "port_id  : port id\n"
              "tbl_indx : table index, valid range 0-31\n"
              "p_entry  : where to put the table entry\n",
    .outputs = "p_entry : table entry\n",
    .returns = returns_statue,
};
METHOD(vx_vlan_mapping_table_get, help_vx_vlan_mapping_table_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx),
       UDT_PTR(vx_acl_vlan_mapping_tbl_entry_t, p_entry))

METHOD(lmq_create_bridge, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id), UDT_PTR(lmq_brg_cfg_s, p_cfg))
METHOD(lmq_set_bridge_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id), UDT_PTR(lmq_brg_cfg_s, p_cfg))
METHOD(lmq_get_bridge_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id), UDT_PTR(lmq_brg_cfg_info_s, p_cfg))
METHOD(lmq_get_bridge_config_all, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, get_cnt), UDT_PTR(lmq_brg_cfg_info_s, p_cfg),
       ELEMENT_PTR(vx_uint16, p_valid_cnt))
METHOD(lmq_delete_bridge, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id))

METHOD(lmq_add_bridge_port, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, uni_port_num), VALUE(lmq_brg_id_t, brg_id),
       ELEMENT_PTR(lmq_brg_port_id_t, p_brg_port_id))
METHOD(lmq_delete_bridge_port, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_port_id_t, brg_port_id))

// Title and beginning are another function's, with its description in two copies; the method's own comes last.
constexpr Help help_vx_gpon_onu_gem_port_add_to_bridge{
    .title = "Wraper to register CPU pkt trap",
    .text = "This is wrapper API to register IGMP packet trap. The port type is one of\n"
            "LMQ_PORT_TYPE_SNI\n"
            "LMQ_PORT_TYPE_UNI\n"
            "\n"
            "Wraper to register CPU pkt trap\n"
            "\n"
            "This is wrapper API to register IGMP packet trap. The port type is one of\n"
            "LMQ_PORT_TYPE_SNI\n"
            "LMQ_PORT_TYPE_UNI\n"
            "\n"
            "Create and configure a bridge domain\n"
            "\n"
            "This API adds a GEM port to a bridge. It serves MC, BC and N_1 bridges alike.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "brg_id      : bridge id\n",
};
METHOD(vx_gpon_onu_gem_port_add_to_bridge, help_vx_gpon_onu_gem_port_add_to_bridge,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), VALUE(lmq_brg_id_t, brg_id))

// The title speaks of creating, though the method removes.
constexpr Help help_vx_gpon_onu_gem_port_delete_from_bridge{
    .title = "Create and configure a bridge domain",
    .text = "This API removes a GEM port from a bridge. It returns VX_OK even if the GEM port is\n"
            "not a member of the bridge.\n",
    .inputs = "pon_id      : PON id\n"
              "gem_port_id : GEM port id\n"
              "brg_id      : bridge id\n",
};
METHOD(vx_gpon_onu_gem_port_delete_from_bridge, help_vx_gpon_onu_gem_port_delete_from_bridge,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), VALUE(lmq_brg_id_t, brg_id))

constexpr Help help_lmq_dump_bridge{
    .title = "PRINT BRIDGE INFO (DEBUG API)",
    .text = "This API prints a bridge on the console. It is for debugging only.\n",
    .inputs = "brg_id : bridge id\n",
};
METHOD(lmq_dump_bridge, help_lmq_dump_bridge, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id))

constexpr Help help_lmq_dump_bridge_port{
    .title = "PRINT DETAILS OF A BRIDGE PORT (DEBUG API)",
    .text = "This API prints a bridge port on the console. It is for debugging only.\n",
    .inputs = "brg_port_id : bridge port id\n",
};
METHOD(lmq_dump_bridge_port, help_lmq_dump_bridge_port,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_port_id_t, brg_port_id))

constexpr Help help_lmq_dump_bridge_cvlan_svlan_list{
    .title = "PRINT CVLAN-SVLAN LIST (DEBUG API)",
    .text = "This API prints the CVLAN-SVLAN list of the bridges on the console. It is for debugging\n"
            "only.\n",
};
METHOD(lmq_dump_bridge_cvlan_svlan_list, help_lmq_dump_bridge_cvlan_svlan_list, VALUE(vx_dev_id_t, dev_id))

// From here on the driver returns a vx_int32 instead of a status, and a dev_id is 32 bits wide.
METHOD(vx_sw_untag_vlan_add, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_ext_vlan_filter_t, filter),
       UDT_PTR(vx_lmq_ext_vlan_treatment_t, treatment), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_sw_single_vlan_add, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_ext_vlan_filter_t, filter),
       UDT_PTR(vx_lmq_ext_vlan_treatment_t, treatment), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_sw_double_vlan_add, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_ext_vlan_filter_t, filter),
       UDT_PTR(vx_lmq_ext_vlan_treatment_t, treatment), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_sw_vlan_del, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_sw_vlan_param_set, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), VALUE(vx_uint16, input_tpid),
       VALUE(vx_uint16, output_tpid), VALUE(vx_uint8, downstream_mode))

METHOD(vx_sw_vlan_opr_create, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_vlan_opr_t, vlan_opr),
       VALUE(vx_boolean, iphost), VALUE(vx_uint16, vlan_id))
METHOD(vx_sw_vlan_opr_delete, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), VALUE(vx_boolean, iphost), VALUE(vx_uint16, vlan_id))

METHOD(vx_sw_tci_gem_add, no_help,
       VALUE(vx_uint32, dev_id), UDT_PTR(vx_lmq_tci_routing_t, tci2gem), VALUE(vx_uint16, routing_id))
METHOD(vx_sw_tci_gem_del, no_help, VALUE(vx_uint32, dev_id), VALUE(vx_uint16, routing_id))

// These take no device at all.
METHOD(vx_sw_vlan_mib_reset, no_help)
METHOD(vx_vid_pbit_2gem_get, no_help, VALUE(vx_port_id_t, sport), VALUE(vx_uint16, tci), ELEMENT_PTR(vx_uint16, gem))
METHOD(vx_vid_pbit_2gem_dump, no_help)

// The filters have no prefix vx_.
METHOD(vlan_ingress_filter, no_help, UDT_PTR(vx_pkt_t, pkt))
METHOD(vlan_ingress_filter_ioctl, no_help, UDT_PTR(vx_lmq_ioctl_pkt_t, pkt))
METHOD(vlan_egress_filter, no_help, VALUE(vx_uint16, dport), UDT_PTR(vx_pkt_t, pkt))
METHOD(vlan_egress_filter_ioctl, no_help, VALUE(vx_uint16, dport), UDT_PTR(vx_lmq_ioctl_pkt_t, pkt))

} // namespace lmq
