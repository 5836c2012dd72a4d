// PTP, 1PPS and time of day.
#include "driver/time.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_tod_send(vx_dev_id_t, vx_tod_send_cfg_t *) { return kNotModelled; }
vx_status_e vx_ptp_config_set(vx_dev_id_t, vx_ptp_cfg_t *) { return kNotModelled; }
vx_status_e vx_tod_string_update(vx_dev_id_t, vx_tod_string_t *) { return kNotModelled; }
vx_status_e vx_1pps_send(vx_dev_id_t, vx_1pps_send_cfg_t *) { return kNotModelled; }
vx_status_e vx_ptp_port_config_set(vx_dev_id_t, vx_port_id_t, vx_ptp_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_ptp_config_get(vx_dev_id_t, vx_ptp_cfg_t *) { return kNotModelled; }
vx_status_e vx_ptp_port_config_get(vx_dev_id_t, vx_port_id_t, vx_ptp_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_1pps_tod_set(vx_dev_id_t, vx_1pps_tod_cfg_t *) { return kNotModelled; }
vx_status_e vx_ptp_master_time_set(vx_dev_id_t, vx_ptp_master_time_t *) { return kNotModelled; }
vx_status_e vx_1pps_tod_get(vx_dev_id_t, vx_1pps_tod_cfg_t *) { return kNotModelled; }
