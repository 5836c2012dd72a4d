// Policers, storm control and the buffer manager.
#include "driver/policer.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_rate_global_policer_capability_get(vx_dev_id_t, vx_global_policer_cap_t *) { return kNotModelled; }
vx_status_e vx_rate_global_policer_set(vx_dev_id_t, vx_global_policer_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_global_policer_get(vx_dev_id_t, vx_global_policer_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_cpu_set(vx_dev_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_cpu_get(vx_dev_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_storm_control_set(vx_dev_id_t, vx_port_id_t, vx_storm_control_type_t, vx_rate_limit_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_rate_storm_control_get(vx_dev_id_t, vx_port_id_t, vx_storm_control_type_t, vx_rate_limit_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_rate_src_port_set(vx_dev_id_t, vx_port_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_src_port_get(vx_dev_id_t, vx_port_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_group_policer_create(vx_dev_id_t, vx_rate_limit_cfg_t *, vx_pol_id_t *) { return kNotModelled; }
vx_status_e vx_rate_group_policer_set(vx_dev_id_t, vx_pol_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_group_policer_get(vx_dev_id_t, vx_pol_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_group_policer_delete(vx_dev_id_t, vx_pol_id_t) { return kNotModelled; }
vx_status_e vx_rate_policer_group_member_add(vx_dev_id_t, vx_pol_id_t, vx_pol_id_t) { return kNotModelled; }
vx_status_e vx_rate_policer_group_member_delete(vx_dev_id_t, vx_pol_id_t, vx_pol_id_t) { return kNotModelled; }
vx_status_e vx_rate_policer_create(vx_dev_id_t, vx_rate_limit_cfg_t *, vx_pol_id_t *) { return kNotModelled; }
vx_status_e vx_rate_policer_delete(vx_dev_id_t, vx_pol_id_t) { return kNotModelled; }
vx_status_e vx_rate_policer_set(vx_dev_id_t, vx_pol_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_policer_get(vx_dev_id_t, vx_pol_id_t, vx_rate_limit_cfg_t *) { return kNotModelled; }
vx_status_e vx_rate_flow_id_set(vx_dev_id_t, vx_flow_id_t, vx_flow_policing_cfg_t *) { return kNotModelled; }
vx_status_e lmq_disable_flow_policing(vx_dev_id_t, vx_pol_id_t) { return kNotModelled; }
vx_status_e vx_rate_policer_status_get(vx_dev_id_t, vx_flow_id_t, vx_flow_policer_status_t *) { return kNotModelled; }
vx_status_e lmq_get_flow_policer_info(vx_dev_id_t, lmq_flow_policer_info_s *) { return kNotModelled; }
vx_status_e vx_lmq_rate_limit_get(vx_dev_id_t, vx_lmq_pol_flow_type_t, vx_lmq_rate_limit_t *) { return kNotModelled; }
vx_status_e vx_lmq_rate_storm_ctrl_mode_get(vx_dev_id_t, vx_port_id_t, vx_lmq_storm_ctrl_mod_t *) {
    return kNotModelled;
}
vx_status_e vx_lmq_rate_limit_set(vx_dev_id_t, vx_lmq_pol_flow_type_t, vx_lmq_rate_limit_t *) { return kNotModelled; }
vx_status_e vx_lmq_rate_shaper_set(vx_dev_id_t, vx_port_id_t, vx_lmq_pol_port_shape_t *) { return kNotModelled; }
vx_status_e vx_lmq_rate_storm_ctrl_mode_set(vx_dev_id_t, vx_port_id_t, vx_lmq_storm_ctrl_mod_t *) {
    return kNotModelled;
}
vx_status_e vx_lmq_rate_shape_stats_get(vx_dev_id_t, vx_port_id_t, vx_uint32 *) { return kNotModelled; }
vx_status_e vx_lmq_rate_group_member_delete(vx_dev_id_t, vx_uint32, lmq_pol_acc_flow_type_t) { return kNotModelled; }
vx_status_e vx_lmq_rate_group_member_add(vx_dev_id_t, vx_uint32, lmq_pol_acc_flow_type_t) { return kNotModelled; }
vx_status_e vx_lmq_rate_shaper_get(vx_dev_id_t, vx_port_id_t, vx_lmq_pol_port_shape_t *) { return kNotModelled; }
vx_status_e vx_bm_pkt_stats_get(vx_dev_id_t, lmq_bm_pkt_stats_s *, vx_boolean) { return kNotModelled; }
vx_status_e vx_bm_pkt_stats_clear(vx_dev_id_t) { return kNotModelled; }
vx_status_e vx_bm_queue_status_get(vx_dev_id_t, vx_uint16, lmq_bm_queue_status_s *) { return kNotModelled; }
vx_status_e vx_rate_cpu_stat_get(vx_dev_id_t, vx_pol_cpu_stats_t *, vx_boolean) { return kNotModelled; }
vx_status_e vx_rate_cpu_stat_clear(vx_dev_id_t) { return kNotModelled; }
vx_status_e vx_rate_src_port_stat_get(vx_dev_id_t, vx_uint16, vx_pol_src_port_stat_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_rate_src_port_stat_clear(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_rate_policer_stat_get(vx_dev_id_t, vx_pol_id_t, vx_pol_flow_stat_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_rate_policer_stat_clear(vx_dev_id_t, vx_pol_id_t) { return kNotModelled; }
vx_status_e vx_rate_group_policer_stat_get(vx_dev_id_t, vx_pol_id_t, vx_pol_group_stats_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_rate_group_policer_stat_clear(vx_dev_id_t, vx_pol_id_t) { return kNotModelled; }
