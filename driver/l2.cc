// Layer 2 forwarding.
#include "driver/l2.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_l2_fdb_entry_get_next(vx_dev_id_t, vx_port_id_t, vx_l2_fdb_entry_handle_t, vx_l2_fdb_entry_op_type_t,
                                     vx_l2_mac_tbl_entry_t *, vx_l2_fdb_entry_handle_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_learn_port_enable_set(vx_dev_id_t, vx_uint16, vx_boolean) { return kNotModelled; }
vx_status_e vx_l2_tpid_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_l2_tpid_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_port_stp_state_get(vx_dev_id_t, vx_port_id_t, vx_l2_stp_state_t *) { return kNotModelled; }
vx_status_e vx_l2_mtu_set(vx_dev_id_t, vx_port_id_t, vx_l2_mtu_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_learn_get(vx_dev_id_t, vx_l2_learn_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_port_oam_lpbk_set(vx_dev_id_t, vx_uint16, vx_l2_port_oam_lpbk_t *) { return kNotModelled; }
vx_status_e vx_l2_port_isolation_set(vx_dev_id_t, vx_boolean) { return kNotModelled; }
vx_status_e vx_l2_port_flood_ctrl_get(vx_dev_id_t, vx_port_id_t, vx_l2_flood_ctrl_t *) { return kNotModelled; }
vx_status_e vx_l2_port_config_get(vx_dev_id_t, vx_uint16, vx_l2_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_mac_addr_filter_get(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_l2_user_mac_addr_cfg_t *, vx_uint8 *) {
    return kNotModelled;
}
vx_status_e vx_l2_aging_timer_set(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e vx_l2_mac_addr_filter_add(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_l2_user_mac_addr_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_port_stp_state_set(vx_dev_id_t, vx_port_id_t, vx_l2_stp_state_t) { return kNotModelled; }
vx_status_e vx_l2_port_oam_lpbk_get(vx_dev_id_t, vx_uint16, vx_l2_port_oam_lpbk_t *) { return kNotModelled; }
vx_status_e vx_l2_learn_port_enable_get(vx_dev_id_t, vx_uint16, vx_boolean *) { return kNotModelled; }
vx_status_e vx_l2_mac_addr_filter_delete(vx_dev_id_t, vx_port_id_t, vx_boolean, vx_uint8, vx_l2_user_mac_addr_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_port_static_pkt_fwd_config_set(vx_dev_id_t, vx_uint16, vx_l2_static_pkt_fwd_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_fdb_entry_port_clear(vx_dev_id_t, vx_port_id_t, vx_l2_fdb_entry_op_type_t) { return kNotModelled; }
vx_status_e vx_l2_learn_port_set(vx_dev_id_t, vx_port_id_t, vx_l2_learn_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_port_isolation_get(vx_dev_id_t, vx_boolean *) { return kNotModelled; }
vx_status_e vx_l2_port_tpid_set(vx_dev_id_t, vx_uint16, vx_l2_fe_tpid_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_learn_port_get(vx_dev_id_t, vx_port_id_t, vx_l2_learn_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_fdb_entry_add(vx_dev_id_t, vx_l2_fdb_entry_op_type_t, vx_l2_fdb_entry_t *,
                                vx_l2_fdb_entry_handle_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_mtu_get(vx_dev_id_t, vx_port_id_t, vx_l2_mtu_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_fdb_entry_clear(vx_dev_id_t, vx_l2_fdb_entry_op_type_t) { return kNotModelled; }
vx_status_e vx_l2_port_static_pkt_fwd_config_get(vx_dev_id_t, vx_uint16, vx_l2_static_pkt_fwd_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_port_config_set(vx_dev_id_t, vx_uint16, vx_l2_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_mac_addr_filter_config_get(vx_dev_id_t, vx_port_id_t, vx_l2_mac_addr_filter_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_tpid_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_l2_tpid_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_mac_addr_filter_config_set(vx_dev_id_t, vx_port_id_t, vx_l2_mac_addr_filter_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_aging_timer_get(vx_dev_id_t, vx_uint32 *) { return kNotModelled; }
vx_status_e vx_l2_learn_set(vx_dev_id_t, vx_l2_learn_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_port_flood_ctrl_set(vx_dev_id_t, vx_port_id_t, vx_l2_flood_ctrl_t *) { return kNotModelled; }
vx_status_e vx_l2_port_tpid_get(vx_dev_id_t, vx_uint16, vx_l2_fe_tpid_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_fdb_entry_delete(vx_dev_id_t, vx_l2_fdb_entry_op_type_t, vx_l2_fdb_entry_handle_t,
                                   vx_l2_fdb_entry_t *) {
    return kNotModelled;
}
