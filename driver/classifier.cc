// The classifier.
#include "driver/classifier.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_cls_spcl_ptn_entry_set(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_cls_spcl_ptn_t *) { return kNotModelled; }
vx_status_e lmq_dump_pkt_flow_all(vx_dev_id_t, vx_uint16) { return kNotModelled; }
vx_status_e lmq_clear_fe_pkt_stats(vx_dev_id_t, lmq_fe_id_e) { return kNotModelled; }
vx_status_e vx_cls_type_no_match_get(vx_dev_id_t, vx_port_id_t, vx_uint32, vx_uint32 *) { return kNotModelled; }
vx_status_e vx_cls_spcl_ptn_ctrl_set(vx_dev_id_t, vx_port_id_t, vx_cls_spcl_ptn_control_t *) { return kNotModelled; }
vx_status_e vx_cls_mac_filter_aging_vld_status_get(vx_dev_id_t, vx_port_id_t, vx_uint32 *, vx_uint32 *) {
    return kNotModelled;
}
vx_status_e vx_cls_spcl_ptn_ctrl_get(vx_dev_id_t, vx_port_id_t, vx_cls_spcl_ptn_control_t *) { return kNotModelled; }
vx_status_e vx_cls_fib_set(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_uint8, vx_cls_fib_data_t *) { return kNotModelled; }
vx_status_e vx_cls_ctrl_get(vx_dev_id_t, vx_port_id_t, vx_cls_cl_ctrl_t *) { return kNotModelled; }
vx_status_e vx_cls_aging_timer_set(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_cls_mac_aging_t *) { return kNotModelled; }
vx_status_e vx_port_mirror_set(vx_int32, vx_port_id_t, vx_uint32, vx_uint32) { return kNotModelled; }
vx_status_e vx_cls_domain_get(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_cls_domain_res_t *) { return kNotModelled; }
vx_status_e vx_cls_debug_status_get(vx_dev_id_t, vx_port_id_t, vx_cls_debug_status_t *) { return kNotModelled; }
vx_status_e vx_cls_aging_timer_get(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_cls_mac_aging_t *) { return kNotModelled; }
vx_status_e vx_cls_no_match_fib_set(vx_dev_id_t, vx_port_id_t, vx_cls_fib_data_t *) { return kNotModelled; }
vx_status_e vx_cls_l4_port_range_get(vx_dev_id_t, vx_port_id_t, vx_cls_l4_port_type_t, vx_uint8,
                                     vx_cls_l4_port_range_t *) {
    return kNotModelled;
}
vx_status_e vx_cls_domain_set(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_cls_domain_res_t *) { return kNotModelled; }
vx_status_e vx_cls_ctrl_set(vx_dev_id_t, vx_port_id_t, vx_cls_cl_ctrl_t *) { return kNotModelled; }
vx_status_e vx_cls_rule_get(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_uint8, vx_cls_rule_cfg_t *) { return kNotModelled; }
vx_status_e vx_cls_l4_port_range_set(vx_dev_id_t, vx_port_id_t, vx_cls_l4_port_type_t, vx_uint8,
                                     vx_cls_l4_port_range_t *) {
    return kNotModelled;
}
vx_status_e lmq_get_fe_pkt_stats(vx_dev_id_t, lmq_fe_id_e, lmq_fe_pkt_stats_s *, vx_boolean) { return kNotModelled; }
vx_status_e vx_cls_mac_filter_aged_latest_entry_get(vx_dev_id_t, vx_port_id_t, vx_uint8 *) { return kNotModelled; }
vx_status_e vx_cls_no_match_fib_get(vx_dev_id_t, vx_port_id_t, vx_cls_fib_data_t *) { return kNotModelled; }
vx_status_e vx_cls_fib_get(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_uint8, vx_cls_fib_data_t *) { return kNotModelled; }
vx_status_e vx_cls_rule_set(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_uint8, vx_cls_rule_cfg_t *) { return kNotModelled; }
vx_status_e lmq_dump_pkt_flow(vx_dev_id_t, vx_flow_id_t) { return kNotModelled; }
vx_status_e vx_cls_type_no_match_set(vx_dev_id_t, vx_port_id_t, vx_uint32, vx_uint32) { return kNotModelled; }
vx_status_e lmq_dump_cls_key(vx_dev_id_t, vx_port_id_t, vx_uint8) { return kNotModelled; }
vx_status_e vx_cls_spcl_ptn_entry_get(vx_dev_id_t, vx_port_id_t, vx_uint8, vx_cls_spcl_ptn_t *) { return kNotModelled; }
vx_status_e vx_port_mirror_get(vx_int32, vx_port_id_t *, vx_uint32 *, vx_uint32 *) { return kNotModelled; }
vx_status_e lmq_dump_cls_key_list(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e lmq_get_fe_cl_entry_status(vx_dev_id_t, lmq_fe_id_e, lmq_fe_cl_entry_status *) { return kNotModelled; }
vx_status_e vx_cls_domain_rule_clear(vx_dev_id_t, vx_port_id_t, vx_uint8) { return kNotModelled; }
vx_status_e vx_cls_init(vx_dev_id_t) { return kNotModelled; }
vx_status_e vx_cls_debug_prog_count_set(vx_dev_id_t, vx_port_id_t, vx_cls_debug_prog_ent_cnt_t *) {
    return kNotModelled;
}
