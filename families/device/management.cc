// Management interface, IP host and NAT: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/management.h"

namespace lmq {

UDT(lmq_dev_ip_addr_cfg_s,
    NESTED(vx_ip_addr_t, ip_addr),
    NESTED(vx_ip_addr_t, net_mask),
    SCALAR(vx_uint8,     prefix))

UDT(lmq_dev_gateway_cfg_s,
    NESTED(vx_ip_addr_t, ip_addr))

UDT(lmq_dev_ip_cfg_s,
    SCALAR(   vx_uint8,              num_ip_addr),
    SCALAR(   vx_uint8,              num_ip_gw),
    UDT_ARRAY(lmq_dev_ip_addr_cfg_s, ip_cfg, 8),
    UDT_ARRAY(lmq_dev_gateway_cfg_s, gw_cfg, 1))

UDT(vx_ip_host_if_cfg_t,
    NESTED(vx_ip_addr_t, ip_addr),
    NESTED(vx_ip_addr_t, ip_mask),
    NESTED(vx_ip_addr_t, gw_ip),
    SCALAR(vx_boolean,   enable_gw))

UDT(lmq_ip_host_if_status_s,
    SCALAR(vx_boolean, admin_status),
    SCALAR(vx_boolean, oper_status),
    SCALAR(vx_uint32,  rx_pkt),
    SCALAR(vx_uint32,  tx_pkt),
    SCALAR(vx_uint32,  rx_bytes),
    SCALAR(vx_uint32,  tx_bytes))

UDT(lmq_local_mgmt_if_stat_s,
    SCALAR(vx_uint32, rx_pkt_cnt),
    SCALAR(vx_uint32, rx_byte_cnt),
    SCALAR(vx_uint32, tx_pkt_cnt),
    SCALAR(vx_uint32, tx_byte_cnt))

UDT(vx_nat_entry_t,
    SCALAR(  vx_uint32,     src_ip),
    SCALAR(  vx_uint32,     dst_ip),
    SCALAR(  vx_uint16,     src_port),
    SCALAR(  vx_uint16,     dst_port),
    SCALAR(  vx_uint8,      protocol),
    SCALAR(  vx_uint8,      direction),
    SCALAR(  vx_uint8,      in_port),
    SCALAR(  vx_uint8,      out_port),
    SCALAR(  vx_uint16,     dst_gem_port),
    SCALAR(  vx_uint16,     src_alias_port),
    SCALAR(  vx_uint32,     src_alias_ip),
    ELEMENTS(vx_mac_addr_t, alias_src_mac, 6),
    ELEMENTS(vx_mac_addr_t, alias_dst_mac, 6),
    SCALAR(  vx_uint16,     out_vlan),
    SCALAR(  vx_int8,       tag_num_in),
    SCALAR(  vx_int8,       tag_num_out),
    SCALAR(  vx_uint32,     type))

METHOD(lmq_enable_local_mgmt_if, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_disable_local_mgmt_if, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_get_local_mgmt_if_stat, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_local_mgmt_if_stat_s, stat))
METHOD(lmq_clear_local_mgmt_if_stat, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_add_dev_ip_addr, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_ip_addr_cfg_s, p_cfg))
METHOD(lmq_delete_dev_ip_addr, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ip_addr_t, p_ip_addr))
METHOD(lmq_add_dev_ip_gateway, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_gateway_cfg_s, p_cfg))
METHOD(lmq_delete_dev_ip_gateway, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_gateway_cfg_s, p_cfg))
METHOD(lmq_get_dev_ip_config, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_ip_cfg_s, p_cfg))
METHOD(lmq_print_dev_ip_config, no_help, VALUE(vx_dev_id_t, dev_id))
METHOD(lmq_set_dev_ip_config_apish, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, is_ipv4), VALUE(vx_uint8, type), VALUE(vx_uint8, op), VALUE(vx_uint32, addr1), VALUE(vx_uint32, addr2), VALUE(vx_uint32, addr3), VALUE(vx_uint32, addr4))
METHOD(lmq_create_ip_host_interface, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg), ELEMENT_PTR(vx_uint32, p_handle))
METHOD(lmq_delete_ip_host_interface, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(lmq_set_ip_host_interface_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))
METHOD(lmq_get_ip_host_interface_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))
METHOD(lmq_print_ip_host_interface_config, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(lmq_enable_ip_host_interface, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(lmq_disable_ip_host_interface, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(lmq_get_ip_host_interface_status, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(lmq_ip_host_if_status_s, p_stat))
METHOD(lmq_clear_ip_host_interface_stats, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))
METHOD(vx_l3_intf_create, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg), ELEMENT_PTR(vx_uint32, p_handle))
METHOD(vx_l3_intf_port_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_port))
METHOD(vx_l3_ipintf_port_del, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_port))
METHOD(vx_l3_intf_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))
METHOD(vx_l3_intf_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))
METHOD(vx_inband_mgnt_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_uint16, tci), VALUE(vx_uint16, enable))
METHOD(lmq_add_nat_entry, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_nat_entry_t, p_cfg))
METHOD(lmq_del_nat_entry, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_nat_entry_t, p_cfg))

} // namespace lmq
