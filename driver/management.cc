// The local management interface, IP hosts and NAT.
#include "driver/management.h"

#include "driver/not_modelled.h"
#include "lmq/lmq.h"

using namespace lmq::sim;

vx_status_e lmq_enable_local_mgmt_if(vx_dev_id_t) { return kNotModelled; }
vx_status_e lmq_disable_local_mgmt_if(vx_dev_id_t) { return kNotModelled; }
vx_status_e lmq_get_local_mgmt_if_stat(vx_dev_id_t, lmq_local_mgmt_if_stat_s *) { return kNotModelled; }
vx_status_e lmq_clear_local_mgmt_if_stat(vx_dev_id_t) { return kNotModelled; }
vx_status_e lmq_add_dev_ip_addr(vx_dev_id_t, lmq_dev_ip_addr_cfg_s *) { return kNotModelled; }
vx_status_e lmq_delete_dev_ip_addr(vx_dev_id_t, vx_ip_addr_t *) { return kNotModelled; }
vx_status_e lmq_add_dev_ip_gateway(vx_dev_id_t, lmq_dev_gateway_cfg_s *) { return kNotModelled; }
vx_status_e lmq_delete_dev_ip_gateway(vx_dev_id_t, lmq_dev_gateway_cfg_s *) { return kNotModelled; }
vx_status_e lmq_get_dev_ip_config(vx_dev_id_t, lmq_dev_ip_cfg_s *) { return kNotModelled; }
vx_status_e lmq_print_dev_ip_config(vx_dev_id_t) { return kNotModelled; }
vx_status_e lmq_set_dev_ip_config_apish(vx_dev_id_t, vx_uint8, vx_uint8, vx_uint8, vx_uint32, vx_uint32, vx_uint32,
                                        vx_uint32) {
    return kNotModelled;
}
vx_status_e lmq_create_ip_host_interface(vx_dev_id_t, vx_uint16, vx_ip_host_if_cfg_t *, vx_uint32 *) {
    return kNotModelled;
}
vx_status_e lmq_delete_ip_host_interface(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e lmq_set_ip_host_interface_config(vx_dev_id_t, vx_uint32, vx_ip_host_if_cfg_t *) { return kNotModelled; }
vx_status_e lmq_get_ip_host_interface_config(vx_dev_id_t, vx_uint32, vx_ip_host_if_cfg_t *) { return kNotModelled; }
vx_status_e lmq_print_ip_host_interface_config(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e lmq_enable_ip_host_interface(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e lmq_disable_ip_host_interface(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e lmq_get_ip_host_interface_status(vx_dev_id_t, vx_uint32, lmq_ip_host_if_status_s *) { return kNotModelled; }
vx_status_e lmq_clear_ip_host_interface_stats(vx_dev_id_t, vx_uint32) { return kNotModelled; }
vx_status_e vx_l3_intf_create(vx_dev_id_t, vx_ip_host_if_cfg_t *, vx_uint32 *) { return kNotModelled; }
vx_status_e vx_l3_intf_port_add(vx_dev_id_t, vx_uint32, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_l3_ipintf_port_del(vx_dev_id_t, vx_uint32, vx_port_id_t, vx_uint16) { return kNotModelled; }
vx_status_e vx_l3_intf_set(vx_dev_id_t, vx_uint32, vx_ip_host_if_cfg_t *) { return kNotModelled; }
vx_status_e vx_l3_intf_get(vx_dev_id_t, vx_uint32, vx_ip_host_if_cfg_t *) { return kNotModelled; }
vx_status_e vx_inband_mgnt_set(vx_dev_id_t, vx_uint32, vx_uint16, vx_uint16) { return kNotModelled; }
vx_status_e lmq_add_nat_entry(vx_dev_id_t, vx_nat_entry_t *) { return kNotModelled; }
vx_status_e lmq_del_nat_entry(vx_dev_id_t, vx_nat_entry_t *) { return kNotModelled; }
