// The Ethernet ports.
#include "driver/eth_port.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_eth_port_eee_tx_q_threshold_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_tx_q_thresh_cfg_t *) {
    return kNotModelled;
}
vx_status_e eth_port_phy_mdio_write(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint16) { return kNotModelled; }
vx_status_e vx_eth_port_config_set(vx_dev_id_t, vx_port_id_t, vx_eth_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_eth_port_eee_cfg_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_cfg_t *) { return kNotModelled; }
vx_status_e eth_port_phy_mdio_read(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint16 *) { return kNotModelled; }
vx_status_e vx_eth_port_loopback_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_loopback_t *) { return kNotModelled; }
vx_status_e vx_eth_port_eee_tx_q_status_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_tx_q_status_t *) {
    return kNotModelled;
}
vx_status_e vx_eth_port_eee_state_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_state_t *) { return kNotModelled; }
vx_status_e vx_eth_port_stats_clear(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_eth_port_status_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_status_t *) { return kNotModelled; }
vx_status_e vx_eth_port_eee_sleep_ctrl_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_sleep_ctrl_t *) {
    return kNotModelled;
}
vx_status_e vx_eth_port_eee_tx_q_threshold_set(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_tx_q_thresh_cfg_t *) {
    return kNotModelled;
}
vx_status_e vx_eth_port_stats_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_stats_t *, vx_boolean) { return kNotModelled; }
vx_status_e vx_eth_port_flowctrl_config_set(vx_dev_id_t, vx_port_id_t, vx_flow_control_cfg_t *) { return kNotModelled; }
vx_status_e vx_eth_port_auto_nego_restart(vx_dev_id_t, vx_port_id_t) { return kNotModelled; }
vx_status_e vx_eth_port_mode_set(vx_dev_id_t, vx_port_id_t, vx_eth_port_mode_t *) { return kNotModelled; }
vx_status_e vx_eth_port_mode_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_mode_t *) { return kNotModelled; }
vx_status_e vx_eth_port_eee_sleep_ctrl_set(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_sleep_ctrl_t *) {
    return kNotModelled;
}
vx_status_e vx_eth_port_loopback_set(vx_dev_id_t, vx_port_id_t, vx_eth_port_loopback_t) { return kNotModelled; }
vx_status_e vx_eth_port_flowctrl_enable_get(vx_dev_id_t, vx_port_id_t, vx_boolean *, vx_boolean *) {
    return kNotModelled;
}
vx_status_e vx_eth_port_flowctrl_config_get(vx_dev_id_t, vx_port_id_t, vx_flow_control_cfg_t *) { return kNotModelled; }
vx_status_e vx_eth_port_eee_cfg_set(vx_dev_id_t, vx_port_id_t, vx_eth_port_eee_cfg_t *) { return kNotModelled; }
vx_status_e vx_eth_port_config_get(vx_dev_id_t, vx_port_id_t, vx_eth_port_cfg_t *) { return kNotModelled; }
vx_status_e vx_eth_port_flowctrl_enable_set(vx_dev_id_t, vx_port_id_t, vx_boolean, vx_boolean) { return kNotModelled; }
