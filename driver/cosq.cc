// The class of service queues.
#include "driver/cosq.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_cosq_cos_map_set(vx_dev_id_t, vx_port_id_t, vx_qos_cos_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_cos_map_get(vx_dev_id_t, vx_port_id_t, vx_qos_cos_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_dscp_map_set(vx_dev_id_t, vx_port_id_t, vx_qos_dscp_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_dscp_map_get(vx_dev_id_t, vx_port_id_t, vx_qos_dscp_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_tc_map_set(vx_dev_id_t, vx_port_id_t, vx_qos_tc_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_tc_map_get(vx_dev_id_t, vx_port_id_t, vx_qos_tc_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_dot1p_map_set(vx_dev_id_t, vx_port_id_t, vx_qos_dot1p_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_dot1p_map_get(vx_dev_id_t, vx_port_id_t, vx_qos_dot1p_map_t *) { return kNotModelled; }
vx_status_e vx_cosq_queue_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_queue_cfg_t *) { return kNotModelled; }
vx_status_e vx_cosq_queue_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_queue_cfg_t *) { return kNotModelled; }
vx_status_e vx_cosq_sched_set(vx_dev_id_t, vx_port_id_t, vx_sched_cfg_t *) { return kNotModelled; }
vx_status_e vx_cosq_sched_get(vx_dev_id_t, vx_port_id_t, vx_sched_cfg_t *) { return kNotModelled; }
vx_status_e lmq_set_global_egress_shaper_config(vx_dev_id_t, lmq_global_egrs_shaper_cfg_s *) { return kNotModelled; }
vx_status_e lmq_get_global_egress_shaper_config(vx_dev_id_t, lmq_global_egrs_shaper_cfg_s *) { return kNotModelled; }
vx_status_e vx_cosq_ds_shaping_set(vx_dev_id_t, vx_port_id_t, vx_boolean, vx_shaping_rate_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_cosq_ds_shaping_get(vx_dev_id_t, vx_port_id_t, vx_boolean *, vx_shaping_rate_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_cosq_mirror_pkt_shaping_set(vx_dev_id_t, vx_boolean, vx_shaping_rate_cfg_t *) { return kNotModelled; }
vx_status_e vx_cosq_mirror_pkt_shaping_get(vx_dev_id_t, vx_boolean *, vx_shaping_rate_cfg_t *) { return kNotModelled; }
