// The packet path to the CPU.
#include "driver/cpu_packet.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e lmq_enable_cpu_pkt_trap(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e vx_l2_spcl_pkt_cfg_set(vx_dev_id_t, vx_uint16, vx_l2_spcl_pkt_type_t, lmq_fe_spcl_pkt_ctrl_t *) {
    return kNotModelled;
}
vx_status_e lmq_delete_pkt_type_filter(vx_dev_id_t, vx_port_id_t, vx_l2_spcl_pkt_type_bitmap_t) { return kNotModelled; }
vx_status_e lmq_add_port_to_cpu_pkt_trap(vx_dev_id_t, vx_uint32, vx_port_type_t, vx_uint16, vx_uint16) {
    return kNotModelled;
}
vx_status_e lmq_get_cpu_pkt_trap_stats(vx_dev_id_t, vx_l2_spcl_pkt_type_t, vx_port_type_t, vx_uint16, vx_uint32 *,
                                       vx_boolean) {
    return kNotModelled;
}
vx_status_e lmq_disable_cpu_pkt_trap(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e vx_l2_spcl_pkt_cfg_get(vx_dev_id_t, vx_uint16, vx_l2_spcl_pkt_type_t, lmq_fe_spcl_pkt_ctrl_t *) {
    return kNotModelled;
}
vx_status_e vx_cpu_packet_tx(vx_dev_id_t, vx_uint16, vx_uint8 *, vx_cpu_send_frame_cfg_t *) { return kNotModelled; }
vx_status_e vx_l2_pppoe_filter_set(vx_dev_id_t, vx_port_id_t, vx_boolean) { return kNotModelled; }
vx_status_e vx_l2_pppoe_filter_get(vx_dev_id_t, vx_port_id_t, vx_boolean *) { return kNotModelled; }
vx_status_e lmq_deregister_cpu_pkt_trap(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e lmq_add_pkt_type_filter(vx_dev_id_t, vx_port_id_t, vx_l2_spcl_pkt_type_bitmap_t) { return kNotModelled; }
void lmq_pkt_free_fnc(void *) {}
vx_status_e vx_l2_traffic_block_get(vx_dev_id_t, vx_port_id_t, vx_boolean *) { return kNotModelled; }
vx_status_e lmq_get_pkt_type_filter(vx_dev_id_t, vx_port_id_t, vx_l2_spcl_pkt_type_bitmap_t *) { return kNotModelled; }
vx_status_e vx_l2_spcl_pkt_behavior_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_l2_spcl_pkt_type_t,
                                        vx_l2_spcl_pkt_action_t *) {
    return kNotModelled;
}
vx_status_e vx_l2_spcl_pkt_behavior_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_l2_spcl_pkt_type_t,
                                        vx_l2_spcl_pkt_action_t) {
    return kNotModelled;
}
vx_status_e vx_l2_traffic_block_set(vx_dev_id_t, vx_port_id_t, vx_boolean) { return kNotModelled; }
vx_status_e lmq_delete_port_from_cpu_pkt_trap(vx_dev_id_t, vx_uint32, vx_port_type_t, vx_uint16, vx_uint16) {
    return kNotModelled;
}
