// GPON traffic management and statistics.
#include "driver/gpon_tm.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_gpon_onu_tm_info_get(vx_dev_id_t, vx_gpon_tm_info_t *) { return kNotModelled; }
vx_status_e vx_gpon_onu_tcont_tm_info_get(vx_dev_id_t, vx_uint16, vx_gpon_tm_tcont_info_t *, vx_uint16 *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_tcont_sched_set(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_tm_tcont_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_tcont_sched_get(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_tm_tcont_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_tcont_queue_map_set(vx_dev_id_t, vx_uint16, vx_gpon_tm_pri_q_mapping_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_tcont_queue_map_get(vx_dev_id_t, vx_uint16, vx_gpon_tm_pri_q_mapping_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_us_queue_map_set(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_tm_gem_mapping_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_us_queue_map_get(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_tm_gem_mapping_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_ds_queue_map_set(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_tm_gem_mapping_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_ds_queue_map_get(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_tm_gem_mapping_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_traffic_desc_create(vx_dev_id_t, vx_gpon_gem_td_id_t, vx_gpon_gem_traffic_desc_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_traffic_desc_delete(vx_dev_id_t, vx_gpon_gem_td_id_t) { return kNotModelled; }
vx_status_e vx_gpon_onu_gem_traffic_desc_set(vx_dev_id_t, vx_gpon_gem_td_id_t, vx_gpon_gem_traffic_desc_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_traffic_desc_get(vx_dev_id_t, vx_gpon_gem_td_id_t, vx_gpon_gem_traffic_desc_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_rate_limit_set(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_gem_rate_limit_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_rate_limit_get(vx_dev_id_t, vx_uint16, vx_uint16, vx_gpon_gem_rate_limit_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_us_queue_status_get(vx_dev_id_t, vx_uint16, vx_uint16, vx_boolean *) { return kNotModelled; }
vx_status_e vx_gpon_onu_mac_stats_get(vx_dev_id_t, vx_port_id_t, vx_gpon_mac_stats_t *) { return kNotModelled; }
vx_status_e vx_gpon_onu_mac_stats_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_gpon_onu_fec_stats_get(vx_dev_id_t, vx_port_id_t, vx_gpon_fec_stats_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_fec_stats_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e lmq_enable_gpon_ploam_stats(vx_dev_id_t, vx_uint16, vx_boolean, vx_uint8, vx_uint8 *) {
    return kNotModelled;
}
vx_status_e lmq_disable_gpon_ploam_stats(vx_dev_id_t, vx_uint16, vx_boolean, vx_uint8, vx_uint8 *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_ploam_stats_get(vx_dev_id_t, vx_port_id_t, vx_gpon_ploam_stats_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_ploam_stats_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_gpon_onu_tcont_stats_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_gpon_tcont_stats_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_tcont_stats_clear(vx_dev_id_t, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_gpon_onu_omcc_stats_get(vx_dev_id_t, vx_port_id_t, vx_gpon_gem_port_stats_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_omcc_stats_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_gpon_onu_gem_stats_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_gpon_gem_port_stats_t *, vx_boolean) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_stats_clear(vx_dev_id_t, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_gpon_onu_tcont_queue_status_get(vx_dev_id_t, vx_port_id_t, lmq_tcont_queue_status_s *) {
    return kNotModelled;
}
