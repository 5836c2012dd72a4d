// The GPON port, T-CONTs and GEM ports.
#include "driver/gpon.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_gpon_onu_port_enable_set(vx_dev_id_t, vx_port_id_t, vx_boolean) { return kNotModelled; }
vx_status_e vx_gpon_onu_port_config_set(vx_dev_id_t, vx_port_id_t, vx_gpon_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_gpon_onu_port_config_get(vx_dev_id_t, vx_port_id_t, vx_gpon_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_gpon_onu_tcont_enable_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_boolean, vx_tcont_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_tcont_info_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_tcont_info_t *) { return kNotModelled; }
vx_status_e vx_gpon_onu_active_tcont_get(vx_dev_id_t, vx_port_id_t, vx_tcont_alloc_id_t *, vx_uint16 *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_port_add(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_gem_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_gpon_onu_gem_port_delete(vx_dev_id_t, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_gpon_onu_gem_port_id_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_uint16 *) { return kNotModelled; }
vx_status_e vx_gpon_onu_gem_port_info_get(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_gem_port_info_t *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_active_gem_port_get(vx_dev_id_t, vx_port_id_t, vx_gem_port_info_t *, vx_uint16 *) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_gem_port_loopback_set(vx_dev_id_t, vx_port_id_t, vx_uint16, vx_boolean) { return kNotModelled; }
vx_status_e vx_gpon_onu_ploam_ds_get(vx_dev_id_t, vx_uint16, vx_uint8 *, vx_uint8 *) { return kNotModelled; }
vx_status_e vx_gpon_onu_ploam_us_set(vx_dev_id_t, vx_uint16, vx_uint8 *, vx_uint8) { return kNotModelled; }
vx_status_e vx_gpon_onu_laser_mode_set(vx_dev_id_t, vx_uint16, vx_pon_laser_ctrl_mode_t, vx_uint8) {
    return kNotModelled;
}
vx_status_e vx_gpon_onu_state_set(vx_dev_id_t, vx_uint16, vx_gpon_onu_state_t) { return kNotModelled; }
vx_status_e vx_gpon_ploamd_mask_set(vx_dev_id_t, vx_uint16, vx_boolean, vx_boolean) { return kNotModelled; }
vx_status_e vx_gpon_signal_status_get(vx_dev_id_t, vx_uint16, vx_boolean *) { return kNotModelled; }
