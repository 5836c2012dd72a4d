/**
 * @file
 * @brief The device on the network: local management interface, device addresses, IP hosts, layer 3 interfaces, NAT.
 */
#ifndef LMQ_MANAGEMENT_H
#define LMQ_MANAGEMENT_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Device addresses */
/** @{ */
#define LMQ_MAX_IP_ADDR 8      /**< Addresses of a device. */
#define LMQ_MAX_IP_GATEWAY 1   /**< Gateways of a device. */
#define LMQ_MAX_NUM_NET_IFS 8  /**< Network interfaces of a device. */
#define LMQ_INVALID_IF_ID 0xFF /**< No network interface. */
#define LMQ_DEV_IF_NAME_LEN 16 /**< Bytes of an interface's name. */
#define APP_CFG_MAX_IPHOST 4   /**< IP hosts that the applications' start configuration holds. */
/** @} */

/** @name IP protocol numbers (IANA), as vx_nat_entry_t.protocol takes them */
/** @{ */
#define LMQ_IP_PROTO_ICMP 1
#define LMQ_IP_PROTO_IGMP 2
#define LMQ_IP_PROTO_TCP 6
#define LMQ_IP_PROTO_UDP 17
/** @} */

/** @brief VLAN tags (IEEE 802.1Q) on the packets of an IP host. */
typedef enum lmq_ip_host_tag_type_e LMQ_ENUM_INT {
    LMQ_IP_HOST_TAG_NONE = 0,   /**< No tag. */
    LMQ_IP_HOST_TAG_SINGLE = 1, /**< One tag. */
    LMQ_IP_HOST_TAG_DOUBLE = 2, /**< Two tags (IEEE 802.1ad). */
} lmq_ip_host_tag_type_e;

/** @brief An address of the device. */
typedef struct {
    vx_ip_addr_t ip_addr;  /**< The address, of either version and not 0. */
    vx_ip_addr_t net_mask; /**< Its network mask, of the same version. */
    vx_uint8 prefix;       /**< {0..128} Bits of the network part: at most 32 for IPv4. */
} lmq_dev_ip_addr_cfg_s;

/** @brief A gateway of the device. */
typedef struct {
    vx_ip_addr_t ip_addr; /**< Address of the gateway, of either version and not 0. */
} lmq_dev_gateway_cfg_s;

/** @brief All addresses and gateways of the device. */
typedef struct {
    vx_uint8 num_ip_addr;            /**< {0..LMQ_MAX_IP_ADDR} Entries of ip_cfg that count. */
    vx_uint8 num_ip_gw;              /**< {0..LMQ_MAX_IP_GATEWAY} Entries of gw_cfg that count. */
    lmq_dev_ip_addr_cfg_s ip_cfg[8]; /**< The addresses, the IPv4 address first; LMQ_MAX_IP_ADDR at most. */
    lmq_dev_gateway_cfg_s gw_cfg[1]; /**< The gateways; LMQ_MAX_IP_GATEWAY at most. */
} lmq_dev_ip_cfg_s;

/** @brief An IP host channel, or a layer 3 interface. */
typedef struct {
    vx_ip_addr_t ip_addr; /**< Its address; VX_IP_DONTCARE leaves it open. */
    vx_ip_addr_t ip_mask; /**< Its network mask; VX_IP_DONTCARE leaves it open. */
    vx_ip_addr_t gw_ip;   /**< Its gateway; VX_IP_DONTCARE leaves it open. */
    vx_boolean enable_gw; /**< TRUE: packets to other networks go to gw_ip. */
} vx_ip_host_if_cfg_t;

/** @brief State and counters of an IP host channel. */
typedef struct {
    vx_boolean admin_status; /**< TRUE: the channel is enabled. */
    vx_boolean oper_status;  /**< TRUE: it is enabled and has a port, so that it can carry traffic. */
    vx_uint32 rx_pkt;        /**< {counter, packets} Received. */
    vx_uint32 tx_pkt;        /**< {counter, packets} Sent. */
    vx_uint32 rx_bytes;      /**< {counter, bytes} Received. */
    vx_uint32 tx_bytes;      /**< {counter, bytes} Sent. */
} lmq_ip_host_if_status_s;

/** @brief Counters of the local management interface. */
typedef struct {
    vx_uint32 rx_pkt_cnt;  /**< {counter, packets} Received. */
    vx_uint32 rx_byte_cnt; /**< {counter, bytes} Received. */
    vx_uint32 tx_pkt_cnt;  /**< {counter, packets} Sent. */
    vx_uint32 tx_byte_cnt; /**< {counter, bytes} Sent. */
} lmq_local_mgmt_if_stat_s;

/** @brief A network address translation, by IPv4 addresses as numbers: 1.2.3.4 is 0x01020304. */
typedef struct {
    vx_uint32 src_ip;            /**< {ipv4} Source address of the packets; part of the key. */
    vx_uint32 dst_ip;            /**< {ipv4} Destination address of the packets; part of the key. */
    vx_uint16 src_port;          /**< TCP or UDP source port; part of the key. */
    vx_uint16 dst_port;          /**< TCP or UDP destination port; part of the key. */
    vx_uint8 protocol;           /**< IP protocol, as LMQ_IP_PROTO_TCP; part of the key. */
    vx_uint8 direction;          /**< Direction of the packets, as the chip numbers it; part of the key. */
    vx_uint8 in_port;            /**< {id port} Port of the device that the packets come in by. */
    vx_uint8 out_port;           /**< {id port} Port of the device that they leave by. */
    vx_uint16 dst_gem_port;      /**< {id gem-port} GEM port that they leave by, on the PON port. */
    vx_uint16 src_alias_port;    /**< What src_port is translated to. */
    vx_uint32 src_alias_ip;      /**< {ipv4} What src_ip is translated to. */
    vx_mac_addr_t alias_src_mac; /**< Source MAC address that the packets leave with. */
    vx_mac_addr_t alias_dst_mac; /**< Destination MAC address that the packets leave with. */
    vx_uint16 out_vlan;          /**< {id vlan} VLAN that the packets leave in. */
    vx_int8 tag_num_in;          /**< VLAN tags of the packets that come in; negative if it does not matter. */
    vx_int8 tag_num_out;         /**< VLAN tags of the packets that leave; negative if it does not matter. */
    vx_uint32 type;              /**< Kind of translation, as the chip numbers it. */
} vx_nat_entry_t;

/**
 * @brief Enables the local management interface, which is enabled at first.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_local_mgmt_if(vx_dev_id_t dev_id);

/**
 * @brief Disables the local management interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_local_mgmt_if(vx_dev_id_t dev_id);

/**
 * @brief Reads the counters of the local management interface.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] stat   The counters.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_local_mgmt_if_stat(vx_dev_id_t dev_id, lmq_local_mgmt_if_stat_s *stat);

/**
 * @brief Clears the counters of the local management interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_local_mgmt_if_stat(vx_dev_id_t dev_id);

/**
 * @brief Adds an address to the device.
 *
 * A second IPv4 address takes the place of the first. There may be several IPv6 addresses, LMQ_MAX_IP_ADDR in all.
 * @par Effect: changes
 * @par Read back: lmq_get_dev_ip_config: p_cfg=p_cfg.ip_cfg[num_ip_addr]
 * @par Undone by: lmq_delete_dev_ip_addr(p_ip_addr=p_cfg.ip_addr)
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The address, with its mask and prefix.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_dev_ip_addr(vx_dev_id_t dev_id, lmq_dev_ip_addr_cfg_s *p_cfg);

/**
 * @brief Deletes an address of the device.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] p_ip_addr The address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_dev_ip_addr(vx_dev_id_t dev_id, vx_ip_addr_t *p_ip_addr);

/**
 * @brief Adds a gateway, of which there are up to LMQ_MAX_IP_GATEWAY.
 * @par Effect: changes
 * @par Read back: lmq_get_dev_ip_config: p_cfg=p_cfg.gw_cfg[num_ip_gw]
 * @par Undone by: lmq_delete_dev_ip_gateway
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The gateway.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg);

/**
 * @brief Deletes a gateway.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The gateway.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg);

/**
 * @brief Reads all addresses and gateways of the device.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The addresses and gateways. Entries that do not count are 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_dev_ip_config(vx_dev_id_t dev_id, lmq_dev_ip_cfg_s *p_cfg);

/**
 * @brief Prints all addresses and gateways of the device.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_print_dev_ip_config(vx_dev_id_t dev_id);

/**
 * @brief Adds or deletes an address or a gateway, for debugging, from numbers that a shell can take.
 *
 * An IPv4 address that is added gets 24 bits of prefix, an IPv6 address 64.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] is_ipv4 0 for an IPv6 address, anything else for an IPv4 address.
 * @param[in] type    {1..2} 1: an address of the interface. 2: a gateway.
 * @param[in] op      {1..2} 1: add. 2: delete.
 * @param[in] addr1   The IPv4 address (1.2.3.4 is 0x01020304), or the first 32 bits of the IPv6 address.
 * @param[in] addr2   The next 32 bits of the IPv6 address.
 * @param[in] addr3   The next 32 bits of the IPv6 address.
 * @param[in] addr4   The last 32 bits of the IPv6 address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_dev_ip_config_apish(vx_dev_id_t dev_id, vx_uint8 is_ipv4, vx_uint8 type, vx_uint8 op,
                                        vx_uint32 addr1, vx_uint32 addr2, vx_uint32 addr3, vx_uint32 addr4);

/**
 * @brief Creates an IP host channel on a port, and enables it.
 * @par Effect: changes
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port: the SNI, or an Ethernet port.
 * @param[in]  p_cfg    Addresses of the channel.
 * @param[out] p_handle {id ip-host} The channel's handle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_create_ip_host_interface(vx_dev_id_t dev_id, vx_uint16 port_num, vx_ip_host_if_cfg_t *p_cfg,
                                         vx_uint32 *p_handle);

/**
 * @brief Deletes an IP host channel or a layer 3 interface, and frees what it holds.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Sets the addresses of an IP host channel.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The channel.
 * @param[in] p_cfg  Its addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Reads the addresses of an IP host channel.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  handle {id ip-host} The channel.
 * @param[out] p_cfg  Its addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Prints the addresses and ports of an IP host channel.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_print_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Enables an IP host channel.
 * @par Effect: changes
 * @par Read back: lmq_get_ip_host_interface_status if p_stat.admin_status!=0
 * @par Undone by: lmq_disable_ip_host_interface
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Disables an IP host channel, which keeps its configuration.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Reads state and counters of an IP host channel.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  handle {id ip-host} The channel.
 * @param[out] p_stat State and counters.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_ip_host_interface_status(vx_dev_id_t dev_id, vx_uint32 handle, lmq_ip_host_if_status_s *p_stat);

/**
 * @brief Clears the counters of an IP host channel.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_ip_host_interface_stats(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Creates a layer 3 interface: an IP host channel that has no port yet.
 * @par Effect: changes
 * @par Read back: vx_l3_intf_get
 * @par Undone by: lmq_delete_ip_host_interface
 * @par Changed by: vx_l3_intf_set(p_handle)
 * @param[in]  dev_id   The device.
 * @param[in]  p_cfg    Addresses of the interface.
 * @param[out] p_handle {id ip-host} The interface's handle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_create(vx_dev_id_t dev_id, vx_ip_host_if_cfg_t *p_cfg, vx_uint32 *p_handle);

/**
 * @brief Binds a layer 3 interface to a port.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] handle   {id ip-host} The interface.
 * @param[in] port_id  The port.
 * @param[in] sub_port Logical port within it, such as a GEM port; VX_INVALID_PORT_ID for the whole port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_port_add(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port);

/**
 * @brief Undoes vx_l3_intf_port_add.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] handle   {id ip-host} The interface.
 * @param[in] port_id  The port.
 * @param[in] sub_port The logical port within it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_ipintf_port_del(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port);

/**
 * @brief Sets the addresses of a layer 3 interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The interface.
 * @param[in] p_cfg  Its addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Reads the addresses of a layer 3 interface.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  handle {id ip-host} The interface.
 * @param[out] p_cfg  Its addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_get(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Switches in-band management over an interface.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] handle {id ip-host} The interface.
 * @param[in] tci    {bitmap} VLAN tag of the management packets: priority, DEI and VLAN identifier (IEEE 802.1Q).
 * @param[in] enable 0 to switch it off, anything else to switch it on.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_inband_mgnt_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_uint16 tci, vx_uint16 enable);

/**
 * @brief Adds a translation.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The translation.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg);

/**
 * @brief Deletes a translation.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The translation; its key alone is looked at.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_del_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
