// The device on the network: local management interface, device addresses, IP hosts, layer 3 interfaces and NAT. UDTs
// stand first, inner ones before outer ones, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/management.h"

namespace lmq {

UDT(lmq_dev_ip_addr_cfg_s,
    NESTED(vx_ip_addr_t, ip_addr),
    NESTED(vx_ip_addr_t, net_mask),
    SCALAR(vx_uint8,     prefix))

UDT(lmq_dev_gateway_cfg_s,
    NESTED(vx_ip_addr_t, ip_addr))

// The bounds are spelled as numbers, though LMQ_MAX_IP_ADDR and LMQ_MAX_IP_GATEWAY have them. All entries are answered,
// whatever the two counts say.
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

// The addresses are plain words here, not vx_ip_addr_t, and the two counts of tags are the family's signed members.
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

// The text carries three blocks of other operations before its own, and its title is that of the first.
constexpr Help help_lmq_enable_local_mgmt_if{
    .title = "Configure Watchdog",
    .text = "This API configures the watchdog of the system.\n"
            "\n"
            "Get Watchdog Config\n"
            "\n"
            "This API retrieves the configuration of the watchdog.\n"
            "\n"
            "Reset chip\n"
            "\n"
            "This API resets the chip.\n"
            "\n"
            "Enable local management interface\n"
            "\n"
            "This API enables the local management interface. The interface is enabled by\n"
            "default.\n",
};
METHOD(lmq_enable_local_mgmt_if, help_lmq_enable_local_mgmt_if, VALUE(vx_dev_id_t, dev_id))

constexpr Help help_lmq_disable_local_mgmt_if{
    .title = "Disable local management interface",
    .text = "This API disables the local management interface. The interface is enabled by\n"
            "default.\n",
};
METHOD(lmq_disable_local_mgmt_if, help_lmq_disable_local_mgmt_if, VALUE(vx_dev_id_t, dev_id))

// The counters are those of lmq_local_mgmt_if_stat_s, though the text sends the reader to another UDT.
constexpr Help help_lmq_get_local_mgmt_if_stat{
    .title = "Local management interface statistics",
    .text = "This API retrieves the statistics of the local management interface.\n"
            "Refer to vx_eth_port_stats_t for the counters.\n",
    .inputs = "stat   : where to put the statistics\n",
    .outputs = "stat : statistics of the interface\n",
};
METHOD(lmq_get_local_mgmt_if_stat, help_lmq_get_local_mgmt_if_stat,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_local_mgmt_if_stat_s, stat))

constexpr Help help_lmq_clear_local_mgmt_if_stat{
    .title = "Clear local management interface statistics",
    .text = "This API clears the statistics of the local management interface.\n",
};
METHOD(lmq_clear_local_mgmt_if_stat, help_lmq_clear_local_mgmt_if_stat, VALUE(vx_dev_id_t, dev_id))

constexpr Help help_lmq_add_dev_ip_addr{
    .title = "Add Device IP configuration",
    .text = "This API adds an ip address to the local management interface.\n"
            "An interface can have at most one IPv4 address and one or more IPv6 addresses.\n"
            "Adding more than one IPv4 address will override the existing IPv4 address.\n",
    .inputs = "p_cfg  : address, mask and prefix\n",
};
METHOD(lmq_add_dev_ip_addr, help_lmq_add_dev_ip_addr,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_ip_addr_cfg_s, p_cfg))

// Takes the bare address, where lmq_add_dev_ip_addr takes one with its mask.
constexpr Help help_lmq_delete_dev_ip_addr{
    .title = "Delete Device IP configuration",
    .text = "This API deletes an ip address added via lmq_add_dev_ip_addr\n",
    .inputs = "p_ip_addr : address to delete\n",
};
METHOD(lmq_delete_dev_ip_addr, help_lmq_delete_dev_ip_addr,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ip_addr_t, p_ip_addr))

constexpr Help help_lmq_add_dev_ip_gateway{
    .title = "Add Device Gateway configuration",
    .text = "This API is used to add the gateway ip address\n",
    .inputs = "p_cfg  : gateway\n",
};
METHOD(lmq_add_dev_ip_gateway, help_lmq_add_dev_ip_gateway,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_gateway_cfg_s, p_cfg))

// The title is that of lmq_add_dev_ip_gateway; the sentence is its own.
constexpr Help help_lmq_delete_dev_ip_gateway{
    .title = "Add Device Gateway configuration",
    .text = "This API is used to delete the gateway ip address\n",
    .inputs = "p_cfg  : gateway\n",
};
METHOD(lmq_delete_dev_ip_gateway, help_lmq_delete_dev_ip_gateway,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_gateway_cfg_s, p_cfg))

constexpr Help help_lmq_get_dev_ip_config{
    .title = "Get Device IP configuration",
    .text = "This API retrieves the IP addresses and the gateway of the local management I/F.\n",
    .inputs = "p_cfg  : where to put the configuration\n",
    .outputs = "p_cfg : addresses and gateways, each with their number\n",
};
METHOD(lmq_get_dev_ip_config, help_lmq_get_dev_ip_config, VALUE(vx_dev_id_t, dev_id), UDT_PTR(lmq_dev_ip_cfg_s, p_cfg))

// The title is that of lmq_get_dev_ip_config. The driver prints; nothing of it is in the answer.
constexpr Help help_lmq_print_dev_ip_config{
    .title = "Get Device IP configuration",
    .text = "This API retrieves and prints the IP address of the local management I/F.\n",
};
METHOD(lmq_print_dev_ip_config, help_lmq_print_dev_ip_config, VALUE(vx_dev_id_t, dev_id))

// The one method with eight arguments.
constexpr Help help_lmq_set_dev_ip_config_apish{
    .title = "Set Device IP configuration (Debug)",
    .text = "This API sets the IP configuration of the local management I/F from plain numbers.\n"
            "The parameters can be changed dynamically.\n",
    .inputs = "is_ipv4 : 1 for IPv4, 0 for IPv6\n"
              "type    : 1-if addr, 2. if gw\n"
              "op      : 1-if add, 2. del\n"
              "addr1   : IPv4 address, or first word of the IPv6 address\n"
              "addr2   : second word of the IPv6 address\n"
              "addr3   : third word of the IPv6 address\n"
              "addr4   : fourth word of the IPv6 address\n",
};
METHOD(lmq_set_dev_ip_config_apish, help_lmq_set_dev_ip_config_apish,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint8, is_ipv4), VALUE(vx_uint8, type), VALUE(vx_uint8, op),
       VALUE(vx_uint32, addr1), VALUE(vx_uint32, addr2), VALUE(vx_uint32, addr3), VALUE(vx_uint32, addr4))

constexpr Help help_lmq_create_ip_host_interface{
    .title = "Create an IP host",
    .text = "This API creates an IP host channel on the indicated port. The port can be an SNI\n"
            "or UNI port. The SNI port can be AE, EPON, or GPON while the uni port must be an\n"
            "Ethernet port.\n",
    .inputs = "port_num : port number\n"
              "p_cfg    : parameters of the IP host channel\n"
              "p_handle : where to put the handle\n",
    .outputs = "p_handle : handle of the IP host channel\n",
};
METHOD(lmq_create_ip_host_interface, help_lmq_create_ip_host_interface,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint16, port_num), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg),
       ELEMENT_PTR(vx_uint32, p_handle))

constexpr Help help_lmq_delete_ip_host_interface{
    .title = "Delete an IP host",
    .text = "This API deletes an IP host channel. All system resources of the channel are\n"
            "freed.\n",
    .inputs = "handle : handle of the IP host channel\n",
};
METHOD(lmq_delete_ip_host_interface, help_lmq_delete_ip_host_interface,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

constexpr Help help_lmq_set_ip_host_interface_config{
    .title = "Set the parameters of an IP host interface",
    .text = "This API sets the parameters of an IP host channel.\n",
    .inputs = "handle : handle of the IP host channel\n"
              "p_cfg  : parameters of the IP host channel\n",
};
METHOD(lmq_set_ip_host_interface_config, help_lmq_set_ip_host_interface_config,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))

constexpr Help help_lmq_get_ip_host_interface_config{
    .title = "Get the parameters of an IP host channel",
    .text = "This API retrieves the parameters of an IP host channel.\n",
    .inputs = "handle : handle of the IP host channel\n"
              "p_cfg  : where to put the parameters\n",
    .outputs = "p_cfg : parameters of the IP host channel\n",
};
METHOD(lmq_get_ip_host_interface_config, help_lmq_get_ip_host_interface_config,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))

constexpr Help help_lmq_print_ip_host_interface_config{
    .title = "Print the parameters of an IP host channel",
    .text = "This API retrieves and prints the parameters of an IP host channel.\n",
    .inputs = "handle : handle of the IP host channel\n",
};
METHOD(lmq_print_ip_host_interface_config, help_lmq_print_ip_host_interface_config,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

constexpr Help help_lmq_enable_ip_host_interface{
    .title = "Enable an IP host channel",
    .text = "This API enables an IP host channel (admin up). The channel is enabled by default\n"
            "upon creation.\n",
    .inputs = "handle : handle of the IP host channel\n",
};
METHOD(lmq_enable_ip_host_interface, help_lmq_enable_ip_host_interface,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

constexpr Help help_lmq_disable_ip_host_interface{
    .title = "Disable an IP host interface",
    .text = "This API disables an IP host channel (admin down) without affecting configuration.\n",
    .inputs = "handle : handle of the IP host channel\n",
};
METHOD(lmq_disable_ip_host_interface, help_lmq_disable_ip_host_interface,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

// The text names the last argument otherwise than the prototype.
constexpr Help help_lmq_get_ip_host_interface_status{
    .title = "Get the statistics of an IP host channel",
    .text = "This API retrieves the status and the statistics of an IP host channel.\n",
    .inputs = "handle   : handle of the IP host channel\n"
              "p_status : where to put the status\n",
    .outputs = "p_status : status and statistics of the IP host channel\n",
};
METHOD(lmq_get_ip_host_interface_status, help_lmq_get_ip_host_interface_status,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(lmq_ip_host_if_status_s, p_stat))

constexpr Help help_lmq_clear_ip_host_interface_stats{
    .title = "Clear the statistics of an IP host channel",
    .text = "This API clears the statistics of an IP host channel.\n",
    .inputs = "handle : handle of the IP host channel\n",
};
METHOD(lmq_clear_ip_host_interface_stats, help_lmq_clear_ip_host_interface_stats,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle))

// The names of the two port methods differ: intf and ipintf.
METHOD(vx_l3_intf_create, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg), ELEMENT_PTR(vx_uint32, p_handle))
METHOD(vx_l3_intf_port_add, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_port))
METHOD(vx_l3_ipintf_port_del, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_port_id_t, port_id), VALUE(vx_uint16, sub_port))

// A layer 3 interface and an IP host are configured alike, and the texts are the same.
METHOD(vx_l3_intf_set, help_lmq_set_ip_host_interface_config,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))
METHOD(vx_l3_intf_get, help_lmq_get_ip_host_interface_config,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), UDT_PTR(vx_ip_host_if_cfg_t, p_cfg))

// The switch is 16 bits wide, and no vx_boolean.
METHOD(vx_inband_mgnt_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_uint32, handle), VALUE(vx_uint16, tci), VALUE(vx_uint16, enable))

METHOD(lmq_add_nat_entry, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_nat_entry_t, p_cfg))
METHOD(lmq_del_nat_entry, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_nat_entry_t, p_cfg))

} // namespace lmq
