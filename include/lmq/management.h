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
    LMQ_IP_HOST_TAG_NONE = 0,
    LMQ_IP_HOST_TAG_SINGLE = 1,
    LMQ_IP_HOST_TAG_DOUBLE = 2,
} lmq_ip_host_tag_type_e;

/** @brief An address of the device. */
typedef struct {
    vx_ip_addr_t ip_addr;
    vx_ip_addr_t net_mask;
    vx_uint8 prefix; /**< Bits of the network part: 0 to 32 for IPv4, 0 to 128 for IPv6. */
} lmq_dev_ip_addr_cfg_s;

/** @brief A gateway of the device. */
typedef struct {
    vx_ip_addr_t ip_addr;
} lmq_dev_gateway_cfg_s;

/** @brief All addresses and gateways of the device. */
typedef struct {
    vx_uint8 num_ip_addr;            /**< Entries of ip_cfg that count. */
    vx_uint8 num_ip_gw;              /**< Entries of gw_cfg that count. */
    lmq_dev_ip_addr_cfg_s ip_cfg[8]; /**< LMQ_MAX_IP_ADDR of them. */
    lmq_dev_gateway_cfg_s gw_cfg[1]; /**< LMQ_MAX_IP_GATEWAY of them. */
} lmq_dev_ip_cfg_s;

/** @brief An IP host channel, or a layer 3 interface. */
typedef struct {
    vx_ip_addr_t ip_addr;
    vx_ip_addr_t ip_mask;
    vx_ip_addr_t gw_ip; /**< Used if enable_gw says so. */
    vx_boolean enable_gw;
} vx_ip_host_if_cfg_t;

/** @brief State and counters of an IP host channel. */
typedef struct {
    vx_boolean admin_status; /**< Whether it is enabled. */
    vx_boolean oper_status;  /**< Whether it can carry traffic. */
    vx_uint32 rx_pkt;
    vx_uint32 tx_pkt;
    vx_uint32 rx_bytes;
    vx_uint32 tx_bytes;
} lmq_ip_host_if_status_s;

/** @brief Counters of the local management interface. */
typedef struct {
    vx_uint32 rx_pkt_cnt;
    vx_uint32 rx_byte_cnt;
    vx_uint32 tx_pkt_cnt;
    vx_uint32 tx_byte_cnt;
} lmq_local_mgmt_if_stat_s;

/** @brief A network address translation, by IPv4 addresses as numbers: 1.2.3.4 is 0x01020304. */
typedef struct {
    vx_uint32 src_ip;
    vx_uint32 dst_ip;
    vx_uint16 src_port;
    vx_uint16 dst_port;
    vx_uint8 protocol; /**< LMQ_IP_PROTO_TCP and the like. */
    vx_uint8 direction;
    vx_uint8 in_port;  /**< Port of the device that the packet comes in by. */
    vx_uint8 out_port; /**< Port of the device that it leaves by. */
    vx_uint16 dst_gem_port;
    vx_uint16 src_alias_port; /**< What src_port is translated to. */
    vx_uint32 src_alias_ip;   /**< What src_ip is translated to. */
    vx_mac_addr_t alias_src_mac;
    vx_mac_addr_t alias_dst_mac;
    vx_uint16 out_vlan;
    vx_int8 tag_num_in;  /**< VLAN tags of the packet that comes in; negative if it does not matter. */
    vx_int8 tag_num_out; /**< VLAN tags of the packet that leaves; negative if it does not matter. */
    vx_uint32 type;
} vx_nat_entry_t;

/**
 * @brief Enables the local management interface, which is enabled at first.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_local_mgmt_if(vx_dev_id_t dev_id);

/**
 * @brief Disables the local management interface.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_local_mgmt_if(vx_dev_id_t dev_id);

/**
 * @brief Reads the counters of the local management interface.
 * @param dev_id The device.
 * @param stat   Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_local_mgmt_if_stat(vx_dev_id_t dev_id, lmq_local_mgmt_if_stat_s *stat);

/**
 * @brief Clears the counters of the local management interface.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_local_mgmt_if_stat(vx_dev_id_t dev_id);

/**
 * @brief Adds an address. A second IPv4 address takes the place of the first; there may be several IPv6 addresses.
 * @param dev_id The device.
 * @param p_cfg  The address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_dev_ip_addr(vx_dev_id_t dev_id, lmq_dev_ip_addr_cfg_s *p_cfg);

/**
 * @brief Deletes an address that lmq_add_dev_ip_addr has added.
 * @param dev_id    The device.
 * @param p_ip_addr The address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_dev_ip_addr(vx_dev_id_t dev_id, vx_ip_addr_t *p_ip_addr);

/**
 * @brief Adds a gateway, up to LMQ_MAX_IP_GATEWAY.
 * @param dev_id The device.
 * @param p_cfg  The gateway.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg);

/**
 * @brief Deletes a gateway.
 * @param dev_id The device.
 * @param p_cfg  The gateway.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_dev_ip_gateway(vx_dev_id_t dev_id, lmq_dev_gateway_cfg_s *p_cfg);

/**
 * @brief Reads all addresses and gateways.
 * @param dev_id The device.
 * @param p_cfg  Where to write them. Entries that do not count are 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_dev_ip_config(vx_dev_id_t dev_id, lmq_dev_ip_cfg_s *p_cfg);

/**
 * @brief Prints what lmq_get_dev_ip_config reads.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_print_dev_ip_config(vx_dev_id_t dev_id);

/**
 * @brief Adds or deletes an address or a gateway, for debugging: from numbers that a shell can take.
 * @param dev_id  The device.
 * @param is_ipv4 1 for an IPv4 address, 0 for an IPv6 address.
 * @param type    1: an address of the interface. 2: a gateway.
 * @param op      1: add. 2: delete.
 * @param addr1   The IPv4 address, or the first 32 bits of the IPv6 address.
 * @param addr2   The next 32 bits of the IPv6 address.
 * @param addr3   The next 32 bits of the IPv6 address.
 * @param addr4   The last 32 bits of the IPv6 address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_dev_ip_config_apish(vx_dev_id_t dev_id, vx_uint8 is_ipv4, vx_uint8 type, vx_uint8 op,
                                        vx_uint32 addr1, vx_uint32 addr2, vx_uint32 addr3, vx_uint32 addr4);

/**
 * @brief Creates an IP host channel, which is enabled then.
 * @param dev_id   The device.
 * @param port_num The port: the SNI, or an Ethernet port.
 * @param p_cfg    Addresses of the channel.
 * @param p_handle Where to write the channel's handle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_create_ip_host_interface(vx_dev_id_t dev_id, vx_uint16 port_num, vx_ip_host_if_cfg_t *p_cfg,
                                         vx_uint32 *p_handle);

/**
 * @brief Deletes an IP host channel and frees what it holds.
 * @param dev_id The device.
 * @param handle The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Sets the addresses of an IP host channel.
 * @param dev_id The device.
 * @param handle The channel.
 * @param p_cfg  Its addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Reads the addresses of an IP host channel.
 * @param dev_id The device.
 * @param handle The channel.
 * @param p_cfg  Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Prints the addresses of an IP host channel.
 * @param dev_id The device.
 * @param handle The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_print_ip_host_interface_config(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Enables an IP host channel.
 * @param dev_id The device.
 * @param handle The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Disables an IP host channel. It keeps its configuration.
 * @param dev_id The device.
 * @param handle The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_ip_host_interface(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Reads state and counters of an IP host channel.
 * @param dev_id The device.
 * @param handle The channel.
 * @param p_stat Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_ip_host_interface_status(vx_dev_id_t dev_id, vx_uint32 handle, lmq_ip_host_if_status_s *p_stat);

/**
 * @brief Clears the counters of an IP host channel.
 * @param dev_id The device.
 * @param handle The channel.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_ip_host_interface_stats(vx_dev_id_t dev_id, vx_uint32 handle);

/**
 * @brief Creates a layer 3 interface: an IP host channel that has no port yet.
 * @param dev_id   The device.
 * @param p_cfg    Addresses of the interface.
 * @param p_handle Where to write its handle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_create(vx_dev_id_t dev_id, vx_ip_host_if_cfg_t *p_cfg, vx_uint32 *p_handle);

/**
 * @brief Binds a layer 3 interface to a port.
 * @param dev_id   The device.
 * @param handle   The interface.
 * @param port_id  The port.
 * @param sub_port Logical port within it, such as a GEM port; VX_INVALID_PORT_ID for the whole port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_port_add(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port);

/**
 * @brief Undoes vx_l3_intf_port_add. (The names of the two differ.)
 * @param dev_id   The device.
 * @param handle   The interface.
 * @param port_id  The port.
 * @param sub_port The logical port within it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_ipintf_port_del(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_id_t port_id, vx_uint16 sub_port);

/**
 * @brief Sets the addresses of a layer 3 interface.
 * @param dev_id The device.
 * @param handle The interface.
 * @param p_cfg  Its addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Reads the addresses of a layer 3 interface.
 * @param dev_id The device.
 * @param handle The interface.
 * @param p_cfg  Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l3_intf_get(vx_dev_id_t dev_id, vx_uint32 handle, vx_ip_host_if_cfg_t *p_cfg);

/**
 * @brief Sets in-band management over an interface.
 * @param dev_id The device.
 * @param handle The interface.
 * @param tci    VLAN tag of the management packets: priority, DEI and VLAN identifier (IEEE 802.1Q).
 * @param enable 0 to switch it off.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_inband_mgnt_set(vx_dev_id_t dev_id, vx_uint32 handle, vx_uint16 tci, vx_uint16 enable);

/**
 * @brief Adds a translation.
 * @param dev_id The device.
 * @param p_cfg  The translation.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg);

/**
 * @brief Deletes a translation.
 * @param dev_id The device.
 * @param p_cfg  The translation.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_del_nat_entry(vx_dev_id_t dev_id, vx_nat_entry_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
