/**
 * @file
 * @brief Management interface, IP host and NAT.
 */
#ifndef LMQ_MANAGEMENT_H
#define LMQ_MANAGEMENT_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define LMQ_MAX_IP_ADDR 8
#define LMQ_MAX_IP_GATEWAY 1
#define LMQ_MAX_NUM_NET_IFS 8
#define LMQ_INVALID_IF_ID 0xFF
#define APP_CFG_MAX_IPHOST 4
#define LMQ_DEV_IF_NAME_LEN 16
#define LMQ_IP_PROTO_ICMP 1
#define LMQ_IP_PROTO_IGMP 2
#define LMQ_IP_PROTO_TCP 6
#define LMQ_IP_PROTO_UDP 17

typedef enum lmq_ip_host_tag_type_e LMQ_ENUM_INT {
    LMQ_IP_HOST_TAG_NONE = 0,
    LMQ_IP_HOST_TAG_SINGLE = 1,
    LMQ_IP_HOST_TAG_DOUBLE = 2,
} lmq_ip_host_tag_type_e;

typedef struct {
    vx_ip_addr_t ip_addr;
    vx_ip_addr_t net_mask;
    vx_uint8 prefix;
} lmq_dev_ip_addr_cfg_s;

typedef struct {
    vx_ip_addr_t ip_addr;
} lmq_dev_gateway_cfg_s;

typedef struct {
    vx_uint8 num_ip_addr;
    vx_uint8 num_ip_gw;
    lmq_dev_ip_addr_cfg_s ip_cfg[8];
    lmq_dev_gateway_cfg_s gw_cfg[1];
} lmq_dev_ip_cfg_s;

typedef struct {
    vx_ip_addr_t ip_addr;
    vx_ip_addr_t ip_mask;
    vx_ip_addr_t gw_ip;
    vx_boolean enable_gw;
} vx_ip_host_if_cfg_t;

typedef struct {
    vx_boolean admin_status;
    vx_boolean oper_status;
    vx_uint32 rx_pkt;
    vx_uint32 tx_pkt;
    vx_uint32 rx_bytes;
    vx_uint32 tx_bytes;
} lmq_ip_host_if_status_s;

typedef struct {
    vx_uint32 rx_pkt_cnt;
    vx_uint32 rx_byte_cnt;
    vx_uint32 tx_pkt_cnt;
    vx_uint32 tx_byte_cnt;
} lmq_local_mgmt_if_stat_s;

typedef struct {
    vx_uint32 src_ip;
    vx_uint32 dst_ip;
    vx_uint16 src_port;
    vx_uint16 dst_port;
    vx_uint8 protocol;
    vx_uint8 direction;
    vx_uint8 in_port;
    vx_uint8 out_port;
    vx_uint16 dst_gem_port;
    vx_uint16 src_alias_port;
    vx_uint32 src_alias_ip;
    vx_mac_addr_t alias_src_mac;
    vx_mac_addr_t alias_dst_mac;
    vx_uint16 out_vlan;
    vx_int8 tag_num_in;
    vx_int8 tag_num_out;
    vx_uint32 type;
} vx_nat_entry_t;

vx_status_e lmq_enable_local_mgmt_if(vx_dev_id_t dev_id);

vx_status_e lmq_disable_local_mgmt_if(vx_dev_id_t dev_id);

vx_status_e lmq_get_local_mgmt_if_stat(vx_dev_id_t dev_id, lmq_local_mgmt_if_stat_s *stat);

vx_status_e lmq_clear_local_mgmt_if_stat(vx_dev_id_t dev_id);

vx_status_e lmq_add_dev_ip_addr(vx_dev_id_t dev_id, lmq_dev_ip_addr_cfg_s *p_cfg);

vx_status_e lmq_delete_dev_ip_addr(vx_dev_id_t dev_id, vx_ip_addr_t *p_ip_addr);

vx_status_e lmq_add_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg);

vx_status_e lmq_delete_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg);

vx_status_e lmq_get_dev_ip_config(vx_dev_id_t dev_id, lmq_dev_ip_cfg_s *p_cfg);

vx_status_e lmq_print_dev_ip_config(vx_dev_id_t dev_id);

vx_status_e lmq_set_dev_ip_config_apish(vx_dev_id_t dev_id, vx_uint8 is_ipv4, vx_uint8 type, vx_uint8 op, vx_uint32 addr1, vx_uint32 addr2, vx_uint32 addr3, vx_uint32 addr4);

vx_status_e lmq_create_ip_host_interface(vx_dev_id_t dev_id, vx_uint16 port_num, vx_ip_host_if_cfg_t *p_cfg, vx_uint32 *p_handle);

vx_status_e lmq_delete_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e lmq_set_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

vx_status_e lmq_get_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

vx_status_e lmq_print_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e lmq_enable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e lmq_disable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e lmq_get_ip_host_interface_status(vx_dev_id_t dev_id, vx_uint32 handle, lmq_ip_host_if_status_s *p_stat);

vx_status_e lmq_clear_ip_host_interface_stats(vx_dev_id_t dev_id, vx_uint32 handle);

vx_status_e vx_l3_intf_create(vx_dev_id_t dev_id, vx_ip_host_if_cfg_t *p_cfg, vx_uint32 *p_handle);

vx_status_e vx_l3_intf_port_add(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port);

vx_status_e vx_l3_ipintf_port_del(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port);

vx_status_e vx_l3_intf_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

vx_status_e vx_l3_intf_get(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

vx_status_e vx_inband_mgnt_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_uint16 tci, vx_uint16 enable);

vx_status_e lmq_add_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg);

vx_status_e lmq_del_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
