// Multicast.
#include "driver/mcast.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_mcast_vlan_config_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_mcast_vlan_cfg_t *) {
    return kNotModelled;
}
vx_status_e lmq_set_port_igmp_vlan_config(vx_dev_id_t, vx_uint16, lmq_igmp_vlan_cfg_s *) { return kNotModelled; }
vx_status_e lmq_print_port_igmp_vlan_config(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_mcast_vlan_get(vx_dev_id_t, vx_port_id_t, vx_uint16 *, vx_mcast_vlan_cfg_t *) { return kNotModelled; }
vx_status_e vx_mcast_ip_entry_delete(vx_dev_id_t, vx_port_id_t, vx_mcast_ip_entry_t *) { return kNotModelled; }
vx_status_e vx_mcast_ip_entry_get(vx_dev_id_t, vx_port_id_t, vx_uint16 *, vx_mcast_ip_entry_t *) {
    return kNotModelled;
}
vx_status_e lmq_dbg_print_mc_grp_acl(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_mcast_ip_entry_add(vx_dev_id_t, vx_port_id_t, vx_mcast_ip_entry_t *) { return kNotModelled; }
vx_status_e vx_mcast_l2_entry_add(vx_dev_id_t, vx_port_id_t, vx_mcast_l2_entry_t *) { return kNotModelled; }
vx_status_e lmq_disable_port_igmp_snooping(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e lmq_get_port_igmp_vlan_config(vx_dev_id_t, vx_uint16, lmq_igmp_vlan_cfg_s *) { return kNotModelled; }
vx_status_e lmq_dbg_print_all_mc_vlan_cfg(vx_dev_id_t) { return kNotModelled; }
vx_status_e lmq_dbg_print_mc_vlan_cfg(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_mcast_l2_entry_get(vx_dev_id_t, vx_port_id_t, vx_uint16 *, vx_mcast_l2_entry_t *) {
    return kNotModelled;
}
vx_status_e vx_mcast_acl_add(vx_dev_id_t, vx_port_id_t, vx_mcast_acl_t *) { return kNotModelled; }
vx_status_e vx_mcast_vlan_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_mcast_ip_entry_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_mcast_l2_entry_delete(vx_dev_id_t, vx_port_id_t, vx_mcast_l2_entry_t *) { return kNotModelled; }
vx_status_e vx_mcast_vlan_config_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_mcast_vlan_cfg_t *) {
    return kNotModelled;
}
vx_status_e lmq_dbg_print_mc_db(vx_dev_id_t) { return kNotModelled; }
vx_status_e vx_mcast_l2_entry_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_mcast_vlan_add(vx_dev_id_t, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e lmq_dbg_set_mcast_filter_config(vx_dev_id_t, vx_uint16, vx_mcast_host_info_dbg_t *,
                                            lmq_mcast_filter_cfg_dbg_s *) {
    return kNotModelled;
}
vx_status_e vx_mcast_vlan_delete(vx_dev_id_t, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e lmq_enable_port_igmp_snooping(vx_dev_id_t, vx_uint16, lmq_igmp_proto_type_e) { return kNotModelled; }
vx_status_e vx_mcast_acl_get(vx_dev_id_t, vx_port_id_t, vx_uint16 *, vx_mcast_acl_t *) { return kNotModelled; }
vx_status_e vx_mcast_acl_delete(vx_dev_id_t, vx_port_id_t, vx_mcast_acl_t *) { return kNotModelled; }
