// VLANs and bridges: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/vlan_bridge.h"

namespace lmq {

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

UDT(vx_lmq_ioctl_pkt_t,
    NESTED(  vx_pkt_t, pkt),
    ELEMENTS(vx_uint8, padding, 1500-1))

METHOD(vx_sw_single_vlan_add, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_ext_vlan_filter_t, filter), UDT_PTR(vx_lmq_ext_vlan_treatment_t, treatment), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_vid_pbit_2gem_get, no_help, VALUE(vx_port_id_t, sport), VALUE(vx_uint16, tci), ELEMENT_PTR(vx_uint16, gem))
METHOD(vx_sw_vlan_mib_reset, no_help)
METHOD(vx_vlan_tag_policy_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_acl_vlan_tag_type_t, p_vlan_tag_type_bitmap), ELEMENT_PTR(vx_boolean, p_admit))
METHOD(lmq_delete_bridge, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id))
METHOD(vx_vlan_member_check_default_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_acl_vlan_filter_dir_t, fil_dir))
METHOD(vx_gpon_onu_gem_port_delete_from_bridge, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), VALUE(lmq_brg_id_t, brg_id))
METHOD(vx_vid_pbit_2gem_dump, no_help)
METHOD(vlan_egress_filter_ioctl, no_help, VALUE(vx_uint16, dport), UDT_PTR(vx_lmq_ioctl_pkt_t, pkt))
METHOD(vx_sw_vlan_del, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(lmq_get_bridge_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id), UDT_PTR(lmq_brg_cfg_info_s, p_cfg))
METHOD(vx_sw_tci_gem_add, no_help,
       VALUE(vx_uint32, dev_id), UDT_PTR(vx_lmq_tci_routing_t, tci2gem), VALUE(vx_uint16, routing_id))
METHOD(vx_vlan_mapping_table_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx), UDT_PTR(vx_acl_vlan_mapping_tbl_entry_t, p_entry))
METHOD(vx_vlan_member_table_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx), VALUE(vx_acl_op_mode_t, op_mode), UDT_PTR(vx_acl_vlan_member_tbl_entry_t, p_entry))
METHOD(vlan_ingress_filter_ioctl, no_help, UDT_PTR(vx_lmq_ioctl_pkt_t, pkt))
METHOD(vlan_egress_filter, no_help, VALUE(vx_uint16, dport), UDT_PTR(vx_pkt_t, pkt))
METHOD(lmq_set_bridge_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id), UDT_PTR(lmq_brg_cfg_s, p_cfg))
METHOD(vx_sw_vlan_param_set, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), VALUE(vx_uint16, input_tpid), VALUE(vx_uint16, output_tpid), VALUE(vx_uint8, downstream_mode))
METHOD(vx_vlan_member_check_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_acl_vlan_filter_dir_t, fil_dir), VALUE(vx_boolean, enable))
METHOD(lmq_add_bridge_port, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, uni_port_num), VALUE(lmq_brg_id_t, brg_id), ELEMENT_PTR(lmq_brg_port_id_t, p_brg_port_id))
METHOD(lmq_delete_bridge_port, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_port_id_t, brg_port_id))
METHOD(vx_vlan_tag_policy_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_acl_vlan_tag_type_t, vlan_tag_type_bitmap), VALUE(vx_boolean, admit))
METHOD(vx_vlan_member_table_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx), UDT_PTR(vx_acl_vlan_member_tbl_entry_t, p_entry))
METHOD(lmq_dump_bridge_port, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_port_id_t, brg_port_id))
METHOD(vx_sw_tci_gem_del, no_help, VALUE(vx_uint32, dev_id), VALUE(vx_uint16, routing_id))
METHOD(vx_sw_double_vlan_add, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_ext_vlan_filter_t, filter), UDT_PTR(vx_lmq_ext_vlan_treatment_t, treatment), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_sw_untag_vlan_add, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_ext_vlan_filter_t, filter), UDT_PTR(vx_lmq_ext_vlan_treatment_t, treatment), VALUE(vx_boolean, iphost), VALUE(vx_uint16, ext_vlan_id))
METHOD(vx_vlan_mapping_table_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, tbl_indx), VALUE(vx_acl_op_mode_t, op_mode), UDT_PTR(vx_acl_vlan_mapping_tbl_entry_t, p_entry))
METHOD(vlan_ingress_filter, no_help, UDT_PTR(vx_pkt_t, pkt))
METHOD(vx_vlan_member_check_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), ELEMENT_PTR(vx_acl_vlan_filter_dir_t, p_ena))
METHOD(vx_sw_vlan_opr_delete, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), VALUE(vx_boolean, iphost), VALUE(vx_uint16, vlan_id))
METHOD(lmq_create_bridge, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id), UDT_PTR(lmq_brg_cfg_s, p_cfg))
METHOD(vx_vlan_member_check_default_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), VALUE(vx_acl_vlan_filter_dir_t, fil_dir), VALUE(vx_boolean, permit))
METHOD(lmq_dump_bridge, no_help, VALUE(vx_dev_id_t, dev_id), VALUE(lmq_brg_id_t, brg_id))
METHOD(vx_sw_vlan_opr_create, no_help,
       VALUE(vx_uint32, dev_id), VALUE(vx_uint16, ethport_id), UDT_PTR(vx_lmq_vlan_opr_t, vlan_opr), VALUE(vx_boolean, iphost), VALUE(vx_uint16, vlan_id))
METHOD(lmq_get_bridge_config_all, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, get_cnt), UDT_PTR(lmq_brg_cfg_info_s, p_cfg), ELEMENT_PTR(vx_uint16, p_valid_cnt))
METHOD(vx_gpon_onu_gem_port_add_to_bridge, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, pon_id), VALUE(vx_uint16, gem_port_id), VALUE(lmq_brg_id_t, brg_id))
METHOD(lmq_dump_bridge_cvlan_svlan_list, no_help, VALUE(vx_dev_id_t, dev_id))

} // namespace lmq
