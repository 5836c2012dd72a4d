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

typedef vx_uint8 vx_boolean;       /**< FALSE or TRUE. */
typedef vx_uint8 vx_mac_addr_t[6]; /**< An IEEE 802 MAC address, in the order of transmission. */

/** @name Identifiers */
/** @{ */
typedef vx_uint8 vx_dev_id_t;                /**< A device, from 0; LMQ_NUM_DEVICES of them. */
typedef vx_uint16 vx_port_id_t;              /**< A port of a device. */
typedef vx_uint16 vx_vid_t;                  /**< A VLAN identifier (IEEE 802.1Q, 12 bits). */
typedef vx_uint32 vx_addr;                   /**< An address in the device's register space. */
typedef vx_uint32 vx_reg;                    /**< The content of a register. */
typedef vx_uint32 *handle_t;                 /**< A handle, by reference. */
typedef vx_uint8 lmq_led_id_t;               /**< A LED. */
typedef vx_uint16 lmq_fwd_entry_id_t;        /**< A forwarding entry. */
typedef vx_uint16 lmq_acl_rule_id_t;         /**< A rule of an access control list. */
typedef vx_uint16 lmq_brg_port_id_t;         /**< A port of a bridge, from LMQ_BRG_PORT_ID_BASE. */
typedef vx_uint32 lmq_brg_id_t;              /**< A bridge. */
typedef vx_uint32 lmq_brg_type_t;            /**< A type of bridge: bits of lmq_brg_type_e. */
typedef vx_uint32 lmq_asic_mod_id_t;         /**< Modules of the chip: bits of lmq_asic_mod_id_e. */
typedef vx_uint32 lmq_flow_id_t;             /**< A flow, by the older name of its type. */
typedef vx_uint32 vx_flow_id_t;              /**< A flow. */
typedef vx_uint32 vx_pol_id_t;               /**< A policer. */
typedef vx_uint32 vx_gpon_gem_td_id_t;       /**< A GEM traffic descriptor. */
typedef vx_uint32 vx_gpon_mac_stats_id_t;    /**< Counters of the GPON MAC: bits, O5_STATE_TRANSITION and on. */
typedef vx_uint32 vx_l2_fdb_entry_handle_t;  /**< An entry of the forwarding database. */
/** @} */

/** @name Bitmaps */
/** @{ */
typedef vx_uint8 vx_acl_vlan_tag_type_t;                /**< VLAN tag types: bits of lmq_vlan_tag_type_e. */
typedef vx_uint32 vx_l2_spcl_pkt_type_bitmap_t;         /**< Special packet types: bits of lmq_pkt_type_bitmap_e. */
typedef vx_uint32 vx_l2_spcl_pkt_type_bitmap_for_cls_t; /**< The same, as a classifier key holds it. */
typedef vx_uint32 vx_acl_custom_field_pkt_type_bitmap_t; /**< Bits of vx_acl_custom_field_pkt_type_bitmap_enum_t. */
/** @} */

#ifndef FALSE
#define FALSE 0
#endif
#ifndef TRUE
#define TRUE 1
#endif
#define VX_OK 0x0
#define DEFAULT_DEVICE_ID 0
#define VX_INLINE __inline__ static

/** @name Identifiers that name nothing */
/** @{ */
#define VX_INVALID_PORT_ID (0xFFFF)
#define LMQ_INVALID_ID8 ((vx_uint8)0xff)
#define LMQ_INVALID_ID16 ((vx_uint16)0xffff)
#define LMQ_INVALID_ID32 ((vx_uint32)0xffffffff)
/** @} */

/** @name Sizes of the maps of priorities */
/** @{ */
#define LMQ_MAX_COS ((vx_uint8)8)
#define LMQ_MAX_DOT1P ((vx_uint8)8)
#define LMQ_MAX_DSCP ((vx_uint8)64)
#define LMQ_MAX_TC ((vx_uint8)64)
/** @} */

/** @name Ethernet types (IEEE 802 registration authority) */
/** @{ */
#define LMQ_DEFAULT_TPID ((vx_uint16)0x8100)
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
