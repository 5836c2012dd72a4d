// The flows.
#include "driver/flow.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_flow_us_add(vx_dev_id_t, vx_port_id_t, vx_flow_us_key_t *, vx_flow_us_action_t *, vx_uint8,
                           vx_flow_id_t *) {
    return kNotModelled;
}
vx_status_e vx_flow_us_delete(vx_dev_id_t, vx_flow_id_t) { return kNotModelled; }
vx_status_e vx_flow_us_modify(vx_dev_id_t, vx_flow_id_t, vx_flow_us_key_t *, vx_flow_us_action_t *) {
    return kNotModelled;
}
vx_status_e vx_flow_us_get(vx_dev_id_t, vx_flow_id_t, vx_flow_us_key_t *, vx_flow_us_action_t *) {
    return kNotModelled;
}
vx_status_e vx_flow_us_map(vx_dev_id_t, vx_flow_id_t, vx_uint16, vx_uint16) { return kNotModelled; }
vx_status_e vx_flow_us_all_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_flow_us_cfg_t *, vx_uint16 *) {
    return kNotModelled;
}
vx_status_e vx_flow_ds_add(vx_dev_id_t, vx_port_id_t, vx_flow_ds_key_t *, vx_flow_ds_action_t *, vx_uint8,
                           vx_flow_id_t *) {
    return kNotModelled;
}
vx_status_e vx_flow_ds_delete(vx_dev_id_t, vx_flow_id_t) { return kNotModelled; }
vx_status_e vx_flow_ds_modify(vx_dev_id_t, vx_flow_id_t, vx_flow_ds_key_t *, vx_flow_ds_action_t *) {
    return kNotModelled;
}
vx_status_e vx_flow_ds_get(vx_dev_id_t, vx_flow_id_t, vx_flow_ds_key_t *, vx_flow_ds_action_t *) {
    return kNotModelled;
}
vx_status_e vx_flow_ds_map(vx_dev_id_t, vx_flow_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_flow_ds_all_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_flow_ds_cfg_t *, vx_uint16 *) {
    return kNotModelled;
}
