/**
 * @file
 * @brief Scalar types of the driver interface, and what every other header of it needs.
 *
 * All headers in this folder are C11 and also compile as C++. They can be swapped for the headers that come with a
 * driver: the plug-in takes its layouts from whichever it is built against.
 */
#ifndef LMQ_TYPES_H
#define LMQ_TYPES_H

/**
 * @page ids Kinds of ids
 *
 * What an id names, for {id KIND} in the comment of an argument, a member or a type. Ids of a kind without a range are
 * answered by the call that makes the thing or one that lists what there is. Listed by: calls that show all of them.
 * - `acl-filter`: A filter of custom packets, by what it looks for. Listed by vx_acl_custom_pkt_filter_get.
 * - `bridge`: A bridge, by the number that its creator gave it. Listed by lmq_get_bridge_config_all.
 * - `bridge-port`: A port of a bridge, as the call that adds it answers.
 * - `classifier-domain`: 0..(VX_CLS_DOMAIN_ID_NUM - 1). A domain of a port's classifier. Listed by vx_cls_domain_get.
 * - `classifier-entry`: 0..(LMQ_FE_CL_MAX_ENTRY - 1). An entry of a port's classifier.
 * - `device`: 0..(LMQ_NUM_DEVICES - 1). A device that the driver drives.
 * - `eth-port`: VX_PORT_ETH0..(VX_PORT_ETH0 + LMQ_PORT_ETH_NUM - 1). An Ethernet port, a UNI.
 * - `event`: An event that the chip can raise, on each of its ports. Listed by vx_event_count_get(sub_port=0),
 *   vx_event_status_poll(sub_port=0), vx_event_holdover_get(sub_port=0) for each vx_event_type_e.
 * - `fdb-entry`: An entry of the forwarding database.
 * - `flow`: A flow, upstream or downstream. Listed by vx_flow_us_all_get, vx_flow_ds_all_get.
 * - `gem-port`: 0..4095. A GEM port, as the OLT numbers it (ITU-T G.984.3). Listed by vx_gpon_onu_active_gem_port_get.
 * - `group-policer`: A policer that others share. Listed by vx_rate_group_policer_get.
 * - `ip-host`: An IP host channel or layer 3 interface, by its handle. Listed by lmq_get_ip_host_interface_config.
 * - `led`: 0..(LMQ_LED_ID_MAX - 1). A LED that the device drives. Listed by vx_led_get.
 * - `pin`: 0..(LMQ_GPIO_ID_MAX - 1). A pin of the GPIO block. Listed by vx_gpio_get.
 * - `policer`: A policer of flows. Listed by vx_rate_policer_get.
 * - `pon-port`: VX_PORT_SNI0..VX_PORT_SNI0. The PON port, which is the SNI.
 * - `port`: VX_PORT_SNI0..VX_PORT_VOIP0. A port of the chip. Listed by vx_eth_port_config_get, vx_eth_port_status_get.
 * - `queue`: 0..7. A queue of a port, 7 the one with the highest priority. Listed by vx_cosq_queue_get.
 * - `tcont`: 0..(VX_GPON_MAX_TCONTS - 1). A T-CONT of the PON port. Listed by vx_gpon_onu_active_tcont_get.
 * - `traffic-descriptor`: A GEM traffic descriptor. Listed by vx_gpon_onu_gem_traffic_desc_get.
 * - `trap`: 0..0xFFFFFFFF. A trap of packets for the CPU, by the handle that its registration gave. No call registers.
 *   Listed by lmq_get_cpu_pkt_trap_stats for each vx_l2_spcl_pkt_type_t.
 * - `us-queue`: 0..31. An upstream priority queue of the PON port. Listed by vx_gpon_onu_tcont_queue_map_get.
 * - `vlan`: 0..4095. A VLAN identifier (IEEE 802.1Q, 12 bits). Listed by vx_mcast_vlan_get.
 */

/**
 * @brief Gives an enum the width and the range of a 32-bit int.
 *
 * Any int may arrive from the wire in an enum type. With a fixed underlying type every int is a value of the enum in
 * C++, so that carrying it is no undefined behaviour; in C an enum is an integer type of that size anyway.
 */
#ifdef __cplusplus
#define LMQ_ENUM_INT : int
#else
#define LMQ_ENUM_INT
#endif

typedef char vx_char;
typedef signed char vx_int8;
typedef unsigned char vx_uint8;
typedef short vx_int16;
typedef unsigned short vx_uint16;
typedef int vx_int32;
typedef unsigned int vx_uint32;
typedef long long vx_int64;
typedef unsigned long long vx_uint64;

typedef vx_uint8 vx_boolean;       /**< FALSE or TRUE; whoever reads one takes anything but 0 for TRUE. */
typedef vx_uint8 vx_mac_addr_t[6]; /**< {mac} An IEEE 802 MAC address, in the order of transmission. */

/** @name Identifiers */
/** @{ */
typedef vx_uint8 vx_dev_id_t;   /**< {id device} A device, from 0. */
typedef vx_uint16 vx_port_id_t; /**< {id port} A port of a device. */
typedef vx_uint16 vx_vid_t;     /**< {id vlan} A VLAN identifier (IEEE 802.1Q, 12 bits). */
typedef vx_uint32 vx_addr;      /**< An address in the register space of the device; registers lie at multiples of 4. */
typedef vx_uint32 vx_reg;       /**< {bits} The content of a register. */
typedef vx_uint32 *handle_t;    /**< A handle, by reference. */
typedef vx_uint8 lmq_led_id_t;  /**< {id led} A LED. */
typedef vx_uint16 lmq_fwd_entry_id_t; /**< A forwarding entry. */
typedef vx_uint16 lmq_acl_rule_id_t;  /**< A rule of an access control list. */
typedef vx_uint16 lmq_brg_port_id_t;  /**< {id bridge-port} A port of a bridge; they count from LMQ_BRG_PORT_ID_BASE. */
typedef vx_uint32 lmq_brg_id_t;       /**< {id bridge} A bridge. */
typedef vx_uint32 lmq_brg_type_t;     /**< {bits of lmq_brg_type_e} What a bridge carries. */
typedef vx_uint32 lmq_asic_mod_id_t;  /**< {bits of lmq_asic_mod_id_e} Modules of the chip. */
typedef vx_uint32 lmq_flow_id_t;      /**< {id flow} A flow, by the older name of its type. */
typedef vx_uint32 vx_flow_id_t;       /**< {id flow} A flow. */
typedef vx_uint32 vx_pol_id_t;        /**< {id policer} A policer; where it is a group's, the place says so. */
typedef vx_uint32 vx_gpon_gem_td_id_t;      /**< {id traffic-descriptor} A GEM traffic descriptor. */
typedef vx_uint32 vx_gpon_mac_stats_id_t;   /**< {bits} Counters of the GPON MAC: O5_STATE_TRANSITION and on. */
typedef vx_uint32 vx_l2_fdb_entry_handle_t; /**< {id fdb-entry} An entry of the forwarding database. */
/** @} */

/** @name Bitmaps */
/** @{ */
typedef vx_uint8 vx_acl_vlan_tag_type_t;        /**< {bits of lmq_vlan_tag_type_e} Kinds of packets by their tag. */
typedef vx_uint32 vx_l2_spcl_pkt_type_bitmap_t; /**< {bits of lmq_pkt_type_bitmap_e} Types of special packets. */
typedef vx_uint32 vx_l2_spcl_pkt_type_bitmap_for_cls_t; /**< {bits of lmq_pkt_type_bitmap_e} The same, in a key. */
/** @brief {bits of vx_acl_custom_field_pkt_type_bitmap_enum_t} Kinds of packets to extract fields from. */
typedef vx_uint32 vx_acl_custom_field_pkt_type_bitmap_t;
/** @} */

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define VX_OK 0x0           /**< What the functions that return a vx_int32 return on success. */
#define DEFAULT_DEVICE_ID 0 /**< The first device. */
#define VX_INLINE __inline__ static

/** @name Identifiers that name nothing */
/** @{ */
#define VX_INVALID_PORT_ID (0xFFFF)              /**< No port; in places all ports. */
#define LMQ_INVALID_ID8 ((vx_uint8)0xff)         /**< No id of 8 bits. */
#define LMQ_INVALID_ID16 ((vx_uint16)0xffff)     /**< No id of 16 bits. */
#define LMQ_INVALID_ID32 ((vx_uint32)0xffffffff) /**< No id of 32 bits. */
/** @} */

/** @name Sizes of the maps of priorities */
/** @{ */
#define LMQ_MAX_COS ((vx_uint8)8)   /**< Classes of service. */
#define LMQ_MAX_DOT1P ((vx_uint8)8) /**< Priority code points (IEEE 802.1Q). */
#define LMQ_MAX_DSCP ((vx_uint8)64) /**< Code points of differentiated services (RFC 2474). */
#define LMQ_MAX_TC ((vx_uint8)64)   /**< Traffic classes. */
/** @} */

/** @name Ethernet types (IEEE 802 registration authority) */
/** @{ */
#define LMQ_DEFAULT_TPID ((vx_uint16)0x8100) /**< The TPID of a VLAN tag (IEEE 802.1Q). */
#define VX_ETH_TYPE_IPV4 0x0800
#define VX_ETH_TYPE_ARP 0x0806
#define VX_ETH_TYPE_RARP 0x8035
#define VX_ETH_TYPE_IPX 0x8137
#define VX_ETH_TYPE_SNMP 0x814c
#define VX_ETH_TYPE_IPV6 0x86dd
#define VX_ETH_TYPE_MPCPDU 0x8808
#define VX_ETH_TYPE_SLOW_PRTL 0x8809
#define VX_ETH_TYPE_PPPOE_DISC 0x8863
#define VX_ETH_TYPE_PPPOE_SESSION 0x8864
#define VX_ETH_TYPE_INVALID 0xffff
/** @} */

/** @name Sizes of the chip */
/** @{ */
#define LMQ_NUM_DEVICES 1        /**< Devices that one driver drives. */
#define LMQ_PORT_ETH_NUM 2       /**< Ethernet ports of a device. */
#define LMQ_MAX_UNI_PORT_NUM 2   /**< UNI ports of a device. */
#define VX_GPON_MAX_TCONTS 8     /**< T-CONTs of a GPON port. */
#define VX_MAX_NUM_TCONT_QUEUE 8 /**< Priority queues of a T-CONT. */
#define VX_MAX_GEM_PORTS 64      /**< GEM ports of a GPON port. */
/** @} */

#endif
