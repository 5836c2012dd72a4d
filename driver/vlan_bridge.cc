// VLANs, bridges and the software VLAN layer.
#include "driver/vlan_bridge.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_int32 vx_sw_single_vlan_add(vx_uint32, vx_uint16, vx_lmq_ext_vlan_filter_t *, vx_lmq_ext_vlan_treatment_t *,
                               vx_boolean, vx_uint16) {
    return kNotModelled;
}
vx_int32 vx_vid_pbit_2gem_get(vx_port_id_t, vx_uint16, vx_uint16 *) { return kNotModelled; }
vx_int32 vx_sw_vlan_mib_reset() { return kNotModelled; }
vx_status_e vx_vlan_tag_policy_get(vx_dev_id_t, vx_port_id_t, vx_acl_vlan_tag_type_t *, vx_boolean *) {
    return kNotModelled;
}
vx_status_e lmq_delete_bridge(vx_dev_id_t, lmq_brg_id_t) { return kNotModelled; }
vx_status_e vx_vlan_member_check_default_get(vx_dev_id_t, vx_port_id_t, vx_acl_vlan_filter_dir_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_port_delete_from_bridge(vx_dev_id_t, vx_uint16, vx_uint16, lmq_brg_id_t) {
    return kNotModelled;
}
vx_int32 vx_vid_pbit_2gem_dump() { return kNotModelled; }
vx_int32 vlan_egress_filter_ioctl(vx_uint16, vx_lmq_ioctl_pkt_t *) { return kNotModelled; }
vx_int32 vx_sw_vlan_del(vx_uint32, vx_uint16, vx_boolean, vx_uint16) { return kNotModelled; }
vx_status_e lmq_get_bridge_config(vx_dev_id_t, lmq_brg_id_t, lmq_brg_cfg_info_s *) { return kNotModelled; }
vx_int32 vx_sw_tci_gem_add(vx_uint32, vx_lmq_tci_routing_t *, vx_uint16) { return kNotModelled; }
vx_status_e vx_vlan_mapping_table_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_acl_vlan_mapping_tbl_entry_t *) {
    return kNotModelled;
}
vx_status_e vx_vlan_member_table_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_acl_op_mode_t,
                                     vx_acl_vlan_member_tbl_entry_t *) {
    return kNotModelled;
}
vx_int32 vlan_ingress_filter_ioctl(vx_lmq_ioctl_pkt_t *) { return kNotModelled; }
vx_int32 vlan_egress_filter(vx_uint16, vx_pkt_t *) { return kNotModelled; }
vx_status_e lmq_set_bridge_config(vx_dev_id_t, lmq_brg_id_t, lmq_brg_cfg_s *) { return kNotModelled; }
vx_int32 vx_sw_vlan_param_set(vx_uint32, vx_uint16, vx_uint16, vx_uint16, vx_uint8) { return kNotModelled; }
vx_status_e vx_vlan_member_check_set(vx_dev_id_t, vx_port_id_t, vx_acl_vlan_filter_dir_t, vx_boolean) {
    return kNotModelled;
}
vx_status_e lmq_add_bridge_port(vx_dev_id_t, vx_uint16, lmq_brg_id_t, lmq_brg_port_id_t *) { return kNotModelled; }
vx_status_e lmq_delete_bridge_port(vx_dev_id_t, lmq_brg_port_id_t) { return kNotModelled; }
vx_status_e vx_vlan_tag_policy_set(vx_dev_id_t, vx_port_id_t, vx_acl_vlan_tag_type_t, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_vlan_member_table_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_acl_vlan_member_tbl_entry_t *) {
    return kNotModelled;
}
vx_status_e lmq_dump_bridge_port(vx_dev_id_t, lmq_brg_port_id_t) { return kNotModelled; }
vx_int32 vx_sw_tci_gem_del(vx_uint32, vx_uint16) { return kNotModelled; }
vx_int32 vx_sw_double_vlan_add(vx_uint32, vx_uint16, vx_lmq_ext_vlan_filter_t *, vx_lmq_ext_vlan_treatment_t *,
                               vx_boolean, vx_uint16) {
    return kNotModelled;
}
vx_int32 vx_sw_untag_vlan_add(vx_uint32, vx_uint16, vx_lmq_ext_vlan_filter_t *, vx_lmq_ext_vlan_treatment_t *,
                              vx_boolean, vx_uint16) {
    return kNotModelled;
}
vx_status_e vx_vlan_mapping_table_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_acl_op_mode_t,
                                      vx_acl_vlan_mapping_tbl_entry_t *) {
    return kNotModelled;
}
vx_int32 vlan_ingress_filter(vx_pkt_t *) { return kNotModelled; }
vx_status_e vx_vlan_member_check_get(vx_dev_id_t, vx_port_id_t, vx_acl_vlan_filter_dir_t *) { return kNotModelled; }
vx_int32 vx_sw_vlan_opr_delete(vx_uint32, vx_uint16, vx_boolean, vx_uint16) { return kNotModelled; }
vx_status_e lmq_create_bridge(vx_dev_id_t, lmq_brg_id_t, lmq_brg_cfg_s *) { return kNotModelled; }
vx_status_e vx_vlan_member_check_default_set(vx_dev_id_t, vx_port_id_t, vx_acl_vlan_filter_dir_t, vx_boolean) {
    return kNotModelled;
}
vx_status_e lmq_dump_bridge(vx_dev_id_t, lmq_brg_id_t) { return kNotModelled; }
vx_int32 vx_sw_vlan_opr_create(vx_uint32, vx_uint16, vx_lmq_vlan_opr_t *, vx_boolean, vx_uint16) {
    return kNotModelled;
}
vx_status_e lmq_get_bridge_config_all(vx_dev_id_t, vx_uint16, lmq_brg_cfg_info_s *, vx_uint16 *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_port_add_to_bridge(vx_dev_id_t, vx_uint16, vx_uint16, lmq_brg_id_t) { return kNotModelled; }
vx_status_e lmq_dump_bridge_cvlan_svlan_list(vx_dev_id_t) { return kNotModelled; }
