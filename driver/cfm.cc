// Connectivity fault management (IEEE 802.1ag).
#include "driver/cfm.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e vx_1ag_dm_config_set(vx_dev_id_t, vx_port_id_t, vx_1ag_dm_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_ccm_pkt_buf_get(vx_dev_id_t, vx_1ag_ccm_pkt_buf_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_lbm_config_get(vx_dev_id_t, vx_1ag_lbm_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_lbm_config_set(vx_dev_id_t, vx_1ag_lbm_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_ccm_config_set(vx_dev_id_t, vx_1ag_ccm_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_ccm_pkt_buf_set(vx_dev_id_t, vx_1ag_ccm_pkt_buf_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_dm_config_get(vx_dev_id_t, vx_port_id_t, vx_1ag_dm_cfg_t *) { return kNotModelled; }
vx_status_e vx_1ag_stats_get(vx_dev_id_t, vx_1ag_stats_t *, vx_boolean) { return kNotModelled; }
vx_status_e vx_1ag_ccm_config_get(vx_dev_id_t, vx_1ag_ccm_cfg_t *) { return kNotModelled; }
