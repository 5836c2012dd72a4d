/**
 * @file
 * @brief The keys that the classifier matches packets by, in two schemes.
 *
 * Flow keys (vx_cl_key_*) are the keys of a flow as an application sees them; vx_cl_key_type_t selects among them. Rule
 * keys (lmq_fe_cls_*) are the keys as the forwarding engine holds them; lmq_fe_cls_key_type_e selects among them.
 *
 * In both, `valid` says which members take part in the match. A flag stands for the member of its name, unless the flag
 * says otherwise here; a member without a flag is said to have none. `valid.mask` is the flags as one word, the first
 * flag in bit 0. A vx_boolean that takes part matches packets that are so if TRUE, and the others if FALSE.
 *
 * Names: da and sa are destination and source address; o_ and i_ stand for the outer and the inner VLAN tag of IEEE
 * 802.1Q, with its TPID, priority (pbit, dot1p), drop eligible bit (de) and VID.
 */
#ifndef LMQ_CLASSIFIER_KEY_H
#define LMQ_CLASSIFIER_KEY_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Keys of a flow */
/** @{ */

/** @brief Which address of a packet a flow key holds. */
typedef enum vx_fe_addr_type_t LMQ_ENUM_INT {
    VX_FE_LMQ_DST_ADDR = 0,
    VX_FE_LMQ_SRC_ADDR = 1,
} vx_fe_addr_type_t;

/** @brief Which TCP or UDP port of a packet a flow key holds. */
typedef enum vx_fe_port_type_t LMQ_ENUM_INT {
    VX_FE_DST_PORT = 0,
    VX_FE_SRC_PORT = 1,
} vx_fe_port_type_t;

/** @brief Which fragments of an IP packet a flow key matches. */
typedef enum ip_frag_state_e LMQ_ENUM_INT {
    LMQ_IP_FRAG_STATE_IGNORE = 0,
    LMQ_IP_FRAG_STATE_FIRST = 1,
    LMQ_IP_FRAG_STATE_NOT_FIRST = 2, /**< Any but the first. */
} ip_frag_state_e;

/** @brief Destination MAC address and EtherType. */
typedef struct {
    vx_mac_addr_t mac_da;
    vx_uint16 eth_type;
    vx_uint16 tpid; /**< Of the outer tag. */
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_da_etype_t;

/** @brief Range of destination MAC addresses, source MAC address and EtherType. */
typedef struct {
    vx_mac_addr_t mac_sa;
    vx_mac_addr_t mac_da_low;
    vx_mac_addr_t mac_da_high;
    vx_uint16 eth_type;
    vx_uint16 tpid; /**< Of the outer tag. */
    union {
        struct {
            vx_uint32 mac_sa : 1;
            vx_uint32 mac_da_range : 1; /**< mac_da_low and mac_da_high. */
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_range_etype_t;

/** @brief One MAC address and the outer tag. */
typedef struct {
    vx_fe_addr_type_t mac_addr_type; /**< Which address mac_addr is; without a flag. */
    vx_mac_addr_t mac_addr;
    vx_uint8 vlan_tag_cnt;  /**< Tags of the packet, 0 to 2. */
    vx_boolean pri_tag_pkt; /**< The packet is tagged with VID 0. */
    vx_vid_t o_pbit;        /**< Priority, 0 to 7, though declared as a VID. */
    vx_vid_t o_vid;
    union {
        struct {
            vx_uint32 mac_addr : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 pri_tag_pkt : 1;
            vx_uint32 o_pbit : 1;
            vx_uint32 o_vid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_vlan_t;

/** @brief Kind of destination MAC address, EtherType and outer tag. */
typedef struct {
    vx_boolean rsvd_mac; /**< Reserved by IEEE 802.1D. */
    vx_boolean bc_mac;   /**< Broadcast. */
    vx_boolean mc_mac;   /**< Multicast. */
    vx_uint16 eth_type;
    vx_uint16 tpid;         /**< Of the outer tag. */
    vx_uint8 vlan_tag_cnt;  /**< Tags of the packet, 0 to 2. */
    vx_boolean pri_tag_pkt; /**< The packet is tagged with VID 0. */
    vx_vid_t o_vid;
    union {
        struct {
            vx_uint32 rsvd_mac : 1;
            vx_uint32 bc_mac : 1;
            vx_uint32 mc_mac : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 pri_tag_pkt : 1;
            vx_uint32 o_vid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_spcl_mac_vlan_t;

/** @brief Range of outer VIDs. */
typedef struct {
    vx_boolean bc_mac; /**< Broadcast. */
    vx_boolean mc_mac; /**< Multicast. */
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt; /**< Tags of the packet, 0 to 2. */
    vx_vid_t o_vid_hi;     /**< VIDs o_vid_lo to o_vid_hi. */
    vx_vid_t o_vid_lo;
    union {
        struct {
            vx_uint32 bc_mac : 1;
            vx_uint32 mc_mac : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 o_vid_range : 1; /**< o_vid_hi and o_vid_lo. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_vlan_range_t;

/** @brief Outer and inner VID. */
typedef struct {
    vx_boolean bc_mac; /**< Broadcast. */
    vx_boolean mc_mac; /**< Multicast. */
    vx_uint16 eth_type;
    vx_vid_t o_vid;
    vx_vid_t i_vid;
    union {
        struct {
            vx_uint32 bc_mac : 1;
            vx_uint32 mc_mac : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vid : 1; /**< o_vid and i_vid. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_double_vlan_t;

/** @brief All of both tags; from the network side also the GEM port. */
typedef struct {
    vx_uint16 gem_port_id; /**< GEM port that the packet came by; without a flag. */
    vx_boolean bc_mac;     /**< Broadcast. */
    vx_boolean mc_mac;     /**< Multicast. */
    vx_boolean non_ipv4;   /**< Anything but IPv4. */
    vx_boolean non_ipv6;   /**< Anything but IPv6. */
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt; /**< Tags of the packet, 0 to 2. */
    vx_uint16 o_tpid;      /**< Outer tag. */
    vx_uint8 o_pbit;
    vx_uint8 o_de;
    vx_vid_t o_vid;
    vx_uint16 i_tpid; /**< Inner tag. */
    vx_uint8 i_pbit;
    vx_uint8 i_de;
    vx_vid_t i_vid;
    union {
        struct {
            vx_uint32 bc_mac : 1;
            vx_uint32 mc_mac : 1;
            vx_uint32 non_ipv4 : 1;
            vx_uint32 non_ipv6 : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 o_tpid : 1;
            vx_uint32 o_pbit : 1;
            vx_uint32 o_de : 1;
            vx_uint32 o_vid : 1;
            vx_uint32 i_tpid : 1;
            vx_uint32 i_pbit : 1;
            vx_uint32 i_de : 1;
            vx_uint32 i_vid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ext_vlan_t;

/** @brief All of both tags, and the DSCP (RFC 2474). */
typedef struct {
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt; /**< Tags of the packet, 0 to 2. */
    vx_uint16 o_tpid;      /**< Outer tag. */
    vx_uint8 o_pbit;
    vx_uint8 o_de;
    vx_vid_t o_vid;
    vx_uint16 i_tpid; /**< Inner tag. */
    vx_uint8 i_pbit;
    vx_uint8 i_de;
    vx_vid_t i_vid;
    vx_uint8 dscp; /**< 0 to 63; without a flag. */
    union {
        struct {
            vx_uint32 eth_type : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 o_tpid : 1;
            vx_uint32 o_pbit : 1;
            vx_uint32 o_de : 1;
            vx_uint32 o_vid : 1;
            vx_uint32 i_tpid : 1;
            vx_uint32 i_pbit : 1;
            vx_uint32 i_de : 1;
            vx_uint32 i_vid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ext_vlan_dscp_t;

/** @brief Control packets: destination MAC address and packet types. */
typedef struct {
    vx_mac_addr_t mac_da;
    vx_uint8 mac_da_mask;                                 /**< Mask over mac_da, in one byte. */
    vx_l2_spcl_pkt_type_bitmap_for_cls_t pkt_type_bitmap; /**< Any of these types. */
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 mac_da_mask : 1;
            vx_uint32 pkt_type_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ctrl_pkt_t;

/** @brief The same for packets of a GEM port. */
typedef struct {
    vx_uint16 gem_port_id; /**< GEM port that the packet came by; without a flag. */
    vx_mac_addr_t mac_da;
    vx_l2_spcl_pkt_type_bitmap_for_cls_t pkt_type_bitmap; /**< Any of these types. */
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 pkt_type_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_subpid_ctrl_pkt_t;

/** @brief Kind of destination MAC address, EtherType, IP protocol and ports. */
typedef struct {
    vx_boolean rsvd_mac;    /**< Reserved by IEEE 802.1D. */
    vx_boolean ipv4_mc_mac; /**< 01:00:5E:00:00:00 and on (RFC 1112). */
    vx_boolean my_mac;      /**< The MAC address of the device. */
    vx_uint8 mac_da_low;    /**< Last byte of the destination MAC address. */
    vx_uint16 eth_type;
    vx_uint16 o_tpid;
    vx_uint8 ip_proto; /**< IANA protocol number. */
    vx_uint8 icmp_type;
    vx_uint16 l4p_src_hi; /**< Source ports l4p_src_lo to l4p_src_hi. */
    vx_uint16 l4p_src_lo;
    vx_uint16 l4p_dst_hi; /**< Destination ports l4p_dst_lo to l4p_dst_hi. */
    vx_uint16 l4p_dst_lo;
    vx_uint32 custom_pkt_fld_bitmap; /**< Bit n: entry n of the custom field table. */
    union {
        struct {
            vx_uint32 spcl_mac_da : 1; /**< rsvd_mac, ipv4_mc_mac and my_mac. */
            vx_uint32 mac_da_low : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1; /**< o_tpid. */
            vx_uint32 ip_proto : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 l4p_src_range : 1; /**< l4p_src_hi and l4p_src_lo. */
            vx_uint32 l4p_dst_range : 1; /**< l4p_dst_hi and l4p_dst_lo. */
            vx_uint32 custom_pkt_fld_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_ip_proto_t;

/** @brief All of an IPv4 packet. */
typedef struct {
    vx_uint16 gem_port_id; /**< GEM port that the packet came by; without a flag. */
    vx_uint16 spid;        /**< Source port. */
    vx_mac_addr_t mac_da;
    vx_mac_addr_t mac_sa;
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_boolean pri_tag_pkt;
    vx_uint16 o_tpid;
    vx_vid_t o_vid;
    vx_uint8 o_pbit;
    vx_in_addr_t ip_sa;
    vx_uint8 ip_sa_unmask_len; /**< Leading bits of ip_sa that are compared. */
    vx_in_addr_t ip_da;
    vx_uint8 ip_da_unmask_len; /**< Leading bits of ip_da that are compared. */
    vx_uint8 ip_proto;         /**< IANA protocol number. */
    vx_uint8 dscp_tos;         /**< DSCP (RFC 2474), or the older type of service. */
    vx_uint8 ip_frag_stat;     /**< A value of ip_frag_state_e. */
    vx_uint8 ip_opt_flag;      /**< 1: the packet has IP options. */
    vx_uint8 icmp_type;
    vx_uint8 igmp_type;
    vx_uint16 l4p_src_hi; /**< Source ports l4p_src_lo to l4p_src_hi. */
    vx_uint16 l4p_src_lo;
    vx_uint16 l4p_dst_hi; /**< Destination ports l4p_dst_lo to l4p_dst_hi. */
    vx_uint16 l4p_dst_lo;
    vx_uint8 tcp_flags;              /**< Flags of the TCP header (RFC 9293). */
    vx_uint32 custom_pkt_fld_bitmap; /**< Bit n: entry n of the custom field table. */
    union {
        struct {
            vx_uint32 spid : 1;
            vx_uint32 mac_da : 1;
            vx_uint32 mac_sa : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 pri_tag_pkt : 1;
            vx_uint32 o_tpid : 1;
            vx_uint32 o_vid : 1;
            vx_uint32 o_pbit : 1;
            vx_uint32 ip_sa : 1;
            vx_uint32 ip_sa_unmask_len : 1;
            vx_uint32 ip_da : 1;
            vx_uint32 ip_da_unmask_len : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 dscp_tos : 1;
            vx_uint32 ip_frag_stat : 1;
            vx_uint32 ip_opt_flag : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 igmp_type : 1;
            vx_uint32 l4p_src_range : 1; /**< l4p_src_hi and l4p_src_lo. */
            vx_uint32 l4p_dst_range : 1; /**< l4p_dst_hi and l4p_dst_lo. */
            vx_uint32 tcp_flags : 1;
            vx_uint32 custom_pkt_fld_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ipv4_long_t;

/** @brief One IPv4 address and one port. */
typedef struct {
    vx_fe_addr_type_t ip_addr_type; /**< Which address ip_addr is; without a flag. */
    vx_in_addr_t ip_addr;
    vx_uint8 ip_addr_unmask_len; /**< Leading bits of ip_addr that are compared. */
    vx_uint8 ip_proto;           /**< IANA protocol number. */
    vx_uint8 dscp_tos;
    vx_fe_port_type_t l4p_type; /**< Which port l4p_val is; without a flag. */
    vx_uint16 l4p_val;
    union {
        struct {
            vx_uint32 ip_addr : 1;
            vx_uint32 ip_addr_unmask_len : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 dscp_tos : 1;
            vx_uint32 l4p_val : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ipv4_short_t;

/** @brief All of an IPv6 packet (RFC 8200). */
typedef struct {
    vx_uint16 gem_port_id; /**< GEM port that the packet came by; without a flag. */
    vx_uint16 spid;        /**< Source port. */
    vx_mac_addr_t mac_da;
    vx_mac_addr_t mac_sa;
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_boolean pri_tag_pkt;
    vx_uint16 o_tpid;
    vx_vid_t o_vid;
    vx_uint8 o_pbit;
    vx_in6_addr_t ip_sa;
    vx_uint8 ip_sa_unmask_len; /**< Leading bits of ip_sa that are compared. */
    vx_in6_addr_t ip_da;
    vx_uint8 ip_da_unmask_len; /**< Leading bits of ip_da that are compared. */
    vx_uint8 ip_proto;         /**< Next header. */
    vx_uint8 tc;               /**< Traffic class. */
    vx_uint32 flow_label;      /**< 20 bits. */
    vx_uint8 ip_frag_stat;     /**< A value of ip_frag_state_e. */
    vx_uint8 ip_opt_flag;      /**< 1: the packet has IP options. */
    vx_uint8 icmp_type;
    vx_uint16 l4p_src_hi; /**< Source ports l4p_src_lo to l4p_src_hi. */
    vx_uint16 l4p_src_lo;
    vx_uint16 l4p_dst_hi; /**< Destination ports l4p_dst_lo to l4p_dst_hi. */
    vx_uint16 l4p_dst_lo;
    vx_uint8 tcp_flags;              /**< Flags of the TCP header (RFC 9293). */
    vx_uint32 custom_pkt_fld_bitmap; /**< Bit n: entry n of the custom field table. */
    union {
        struct {
            vx_uint32 spid : 1;
            vx_uint32 mac_da : 1;
            vx_uint32 mac_sa : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 pri_tag_pkt : 1;
            vx_uint32 o_tpid : 1;
            vx_uint32 o_vid : 1;
            vx_uint32 o_pbit : 1;
            vx_uint32 ip_sa : 1;
            vx_uint32 ip_sa_unmask_len : 1;
            vx_uint32 ip_da : 1;
            vx_uint32 ip_da_unmask_len : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 tc : 1;
            vx_uint32 flow_label : 1;
            vx_uint32 ip_frag_stat : 1;
            vx_uint32 ip_opt_flag : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 l4p_src_range : 1; /**< l4p_src_hi and l4p_src_lo. */
            vx_uint32 l4p_dst_range : 1; /**< l4p_dst_hi and l4p_dst_lo. */
            vx_uint32 tcp_flags : 1;
            vx_uint32 custom_pkt_fld_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ipv6_long_t;

/** @brief One IPv6 address and one port. */
typedef struct {
    vx_fe_addr_type_t ip_addr_type; /**< Which address ip_addr is; without a flag. */
    vx_in6_addr_t ip_addr;
    vx_uint8 ip_addr_unmask_len; /**< Leading bits of ip_addr that are compared. */
    vx_uint8 ip_proto;           /**< Next header. */
    vx_uint8 tc;                 /**< Traffic class. */
    vx_uint32 flow_label;        /**< 20 bits. */
    vx_fe_port_type_t l4p_type;  /**< Which port l4p_val is; without a flag. */
    vx_uint16 l4p_val;
    union {
        struct {
            vx_uint32 ip_addr : 1;
            vx_uint32 ip_addr_unmask_len : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 tc : 1;
            vx_uint32 flow_label : 1;
            vx_uint32 l4p_val : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ipv6_short_t;

/** @} */

/** @name Keys of a rule */
/** @{ */

/** @brief Kind of a multicast address: which alternative of `addr` counts. */
typedef enum lmq_fe_cls_addr_e LMQ_ENUM_INT {
    LMQ_FE_CLS_ADDR_MAC = 0,
    LMQ_FE_CLS_ADDR_IPV4 = 1,
    LMQ_FE_CLS_ADDR_IPV6 = 2,
} lmq_fe_cls_addr_e;

/** @brief Which address of a packet a rule key holds. */
typedef enum lmq_fe_cls_addr_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_ADDR_DST = 0,
    LMQ_FE_CLS_ADDR_SRC = 1,
} lmq_fe_cls_addr_type_e;

/** @brief Which TCP or UDP port of a packet a rule key holds. */
typedef enum lmq_fe_cls_l4_port_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_L4_PORT_DST = 0,
    LMQ_FE_CLS_L4_PORT_SRC = 1,
} lmq_fe_cls_l4_port_type_e;

/** @brief A TPID (IEEE 802.1Q) by its place among those that the port is configured with. */
typedef enum lmq_fe_cls_tpid_enc_e LMQ_ENUM_INT {
    LMQ_FE_CLS_TPID_NO_MATCH = 0, /**< None of the configured ones. */
    LMQ_FE_CLS_TPID_USR_1 = 1,
    LMQ_FE_CLS_TPID_USR_2 = 2,
    LMQ_FE_CLS_TPID_USR_3 = 3,
    LMQ_FE_CLS_TPID_USR_4 = 4,
} lmq_fe_cls_tpid_enc_e;

/** @brief An EtherType that the parser knows by a number, or one of the configured ones (USR). */
typedef enum lmq_fe_cls_spl_ev2pt_enc_e LMQ_ENUM_INT {
    LMQ_FE_CLS_SPL_EV2PT_IPV4 = 0,
    LMQ_FE_CLS_SPL_EV2PT_IPV6 = 1,
    LMQ_FE_CLS_SPL_EV2PT_PPPOE_DISCOVERY = 2,
    LMQ_FE_CLS_SPL_EV2PT_PPPOE_SESSION = 3,
    LMQ_FE_CLS_SPL_EV2PT_NOVELL_IPX = 4,
    LMQ_FE_CLS_SPL_EV2PT_SNMP = 5,
    LMQ_FE_CLS_SPL_EV2PT_MPCPDU = 6,
    LMQ_FE_CLS_SPL_EV2PT_SLOW_PROTO = 7,
    LMQ_FE_CLS_SPL_EV2PT_RARP = 8,
    LMQ_FE_CLS_SPL_EV2PT_ARP = 9,
    LMQ_FE_CLS_SPL_EV2PT_USR_0 = 10,
    LMQ_FE_CLS_SPL_EV2PT_USR_1 = 11,
    LMQ_FE_CLS_SPL_EV2PT_USR_2 = 12,
    LMQ_FE_CLS_SPL_EV2PT_USR_3 = 13,
    LMQ_FE_CLS_SPL_EV2PT_USR_4 = 14,
    LMQ_FE_CLS_SPL_EV2PT_NONE = 15, /**< None of these. */
} lmq_fe_cls_spl_ev2pt_enc_e;

/** @brief VLAN tags of a packet. */
typedef enum lmq_fe_cls_vtag_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_TAG_DONT_CARE = 0,
    LMQ_FE_CLS_TAG_UNTAGGED = 1,
    LMQ_FE_CLS_TAG_SINGLE = 2,
    LMQ_FE_CLS_TAG_DOUBLE = 3,
    LMQ_FE_CLS_TAG_PRIORITY = 4, /**< A tag with VID 0. */
} lmq_fe_cls_vtag_type_e;

/** @brief Which fragment of an IP packet a packet is. */
typedef enum lmq_fe_cls_ip_fragment_state_e LMQ_ENUM_INT {
    LMQ_FE_CLS_IP_NO_FRAGMENT = 0,
    LMQ_FE_CLS_IP_FIRST_FRAGMENT = 1,
    LMQ_FE_CLS_IP_NON_FIRST_FRAG = 2,
} lmq_fe_cls_ip_fragment_state_e;

/** @brief Where a special pattern is looked for: behind the header of a layer, or at a fixed offset. */
typedef enum lmq_fe_cls_spcl_hdr_e LMQ_ENUM_INT {
    LMQ_FE_CLS_SPCL_HDR_L2_PKT_DYNA = 0,
    LMQ_FE_CLS_SPCL_HDR_IP_PKT_DYNA = 1,
    LMQ_FE_CLS_SPCL_HDR_TCP_UDP_PKT_DYNA = 2,
    LMQ_FE_CLS_SPCL_HDR_STATIC = 3,
} lmq_fe_cls_spcl_hdr_e;

/** @brief All of an IPv4 packet. */
typedef struct {
    vx_uint8 gem_subpid; /**< GEM port that the packet came by, as the engine numbers it. */
    vx_uint16 spid;      /**< Source port. */
    vx_mac_addr_t src_mac_addr;
    vx_mac_addr_t dst_mac_addr;
    vx_uint16 vid;
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_uint8 dot1p;  /**< Priority, 0 to 7. */
    vx_uint16 ev2pt; /**< EtherType. */
    vx_in_addr_t src_ip_addr;
    vx_uint8 src_ip_mask; /**< Length of the mask, in bits. */
    vx_in_addr_t dst_ip_addr;
    vx_uint8 dst_ip_mask; /**< Length of the mask, in bits. */
    vx_uint8 ip_proto;    /**< IANA protocol number. */
    vx_uint8 ip_dscp;     /**< DSCP (RFC 2474). */
    vx_boolean ip_option; /**< The packet has IP options. */
    lmq_fe_cls_ip_fragment_state_e ip_frag_state;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_uint8 l4_src_hit_bitmap;   /**< Bit n: source port in entry n of the port ranges. */
    vx_uint8 l4_dst_hit_bitmap;   /**< Bit n: destination port in entry n. */
    vx_uint8 spcl_key_hit_bitmap; /**< Bit n: special pattern n is there. */
    vx_uint8 tcp_flags;
    vx_uint8 icmp_type;
    vx_uint8 igmp_type;
    vx_boolean pri_tag_flag;  /**< The packet is tagged with VID 0. */
    vx_uint8 vtag_cnt;        /**< Tags of the packet, 0 to 2. */
    vx_boolean prsr_len_excd; /**< Headers are longer than the parser reads. */
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 spid : 1;
            vx_uint32 src_mac_addr : 1;
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 vid : 1;
            vx_uint32 tpid_enc : 1;
            vx_uint32 dot1p : 1;
            vx_uint32 ev2pt : 1;
            vx_uint32 src_ip_addr : 1;
            vx_uint32 src_ip_mask : 1;
            vx_uint32 dst_ip_addr : 1;
            vx_uint32 dst_ip_mask : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 ip_dscp : 1;
            vx_uint32 ip_option : 1;
            vx_uint32 ip_frag_state : 1;
            vx_uint32 l4_port : 1;
            vx_uint32 l4_port_type : 1;
            vx_uint32 l4_src_hit_bitmap : 1;
            vx_uint32 l4_dst_hit_bitmap : 1;
            vx_uint32 spcl_key_hit_bitmap : 1;
            vx_uint32 tcp_flags : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 igmp_type : 1;
            vx_uint32 pri_tag_flag : 1;
            vx_uint32 vtag_cnt : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ipv4_long_key_s;

/** @brief One IPv4 address and one port. */
typedef struct {
    vx_in_addr_t ip_addr;
    lmq_fe_cls_addr_type_e ip_addr_type;
    vx_uint8 ip_mask; /**< Length of the mask, in bits. */
    vx_uint8 ip_proto;
    vx_uint8 ip_dscp;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_boolean prsr_len_excd; /**< Headers are longer than the parser reads. */
    union {
        struct {
            vx_uint32 ip_addr : 1;
            vx_uint32 ip_addr_type : 1;
            vx_uint32 ip_mask : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 ip_dscp : 1;
            vx_uint32 l4_port : 1;
            vx_uint32 l4_port_type : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ipv4_short_key_s;

/** @brief All of an IPv6 packet (RFC 8200). */
typedef struct {
    vx_uint8 gem_subpid; /**< GEM port that the packet came by, as the engine numbers it. */
    vx_uint16 spid;      /**< Source port. */
    vx_mac_addr_t src_mac_addr;
    vx_mac_addr_t dst_mac_addr;
    vx_uint16 vid;
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_uint8 dot1p;  /**< Priority, 0 to 7. */
    vx_uint16 ev2pt; /**< EtherType. */
    vx_in6_addr_t src_ip_addr;
    vx_uint8 src_ip_mask; /**< Length of the mask, in bits. */
    vx_in6_addr_t dst_ip_addr;
    vx_uint8 dst_ip_mask;      /**< Length of the mask, in bits. */
    vx_uint8 ip_proto;         /**< Next header. */
    vx_uint8 ip_tc;            /**< Traffic class. */
    vx_uint32 ipv6_flow_label; /**< 20 bits. */
    vx_boolean ip_option;      /**< The packet has IP options. */
    lmq_fe_cls_ip_fragment_state_e ip_frag_state;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_uint8 l4_src_hit_bitmap;   /**< Bit n: source port in entry n of the port ranges. */
    vx_uint8 l4_dst_hit_bitmap;   /**< Bit n: destination port in entry n. */
    vx_uint8 spcl_key_hit_bitmap; /**< Bit n: special pattern n is there. */
    vx_uint8 tcp_flags;
    vx_uint8 icmp_type;
    vx_boolean pri_tag_flag;  /**< The packet is tagged with VID 0. */
    vx_uint8 vtag_cnt;        /**< Tags of the packet, 0 to 2. */
    vx_boolean prsr_len_excd; /**< Headers are longer than the parser reads. */
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 spid : 1;
            vx_uint32 src_mac_addr : 1;
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 vid : 1;
            vx_uint32 tpid_enc : 1;
            vx_uint32 dot1p : 1;
            vx_uint32 ev2pt : 1;
            vx_uint32 src_ip_addr : 1;
            vx_uint32 src_ip_mask : 1;
            vx_uint32 dst_ip_addr : 1;
            vx_uint32 dst_ip_mask : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 ip_tc : 1;
            vx_uint32 ipv6_flow_label : 1;
            vx_uint32 ip_option : 1;
            vx_uint32 ip_frag_state : 1;
            vx_uint32 l4_port : 1;
            vx_uint32 l4_port_type : 1;
            vx_uint32 l4_src_hit_bitmap : 1;
            vx_uint32 l4_dst_hit_bitmap : 1;
            vx_uint32 spcl_key_hit_bitmap : 1;
            vx_uint32 tcp_flags : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 pri_tag_flag : 1;
            vx_uint32 vtag_cnt : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ipv6_long_key_s;

/** @brief One IPv6 address and one port. */
typedef struct {
    vx_in6_addr_t ip_addr;
    lmq_fe_cls_addr_type_e ip_addr_type;
    vx_uint8 ip_mask; /**< Length of the mask, in bits. */
    vx_uint8 ip_proto;
    vx_uint8 ip_tc;            /**< Traffic class. */
    vx_uint32 ipv6_flow_label; /**< 20 bits. */
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_boolean prsr_len_excd; /**< Headers are longer than the parser reads. */
    union {
        struct {
            vx_uint32 ip_addr : 1;
            vx_uint32 ip_addr_type : 1;
            vx_uint32 ip_mask : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 ip_tc : 1;
            vx_uint32 ipv6_flow_label : 1;
            vx_uint32 l4_port : 1;
            vx_uint32 l4_port_type : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ipv6_short_key_s;

/** @brief Packets to mirror. */
typedef struct {
    vx_uint16 spid; /**< Source port. */
    vx_uint16 vid;
    vx_uint8 mirror_grp_id;
    vx_boolean mirror_pkt_flag; /**< The packet is a mirrored one; without a flag. */
    union {
        struct {
            vx_uint32 spid : 1;
            vx_uint32 vid : 1;
            vx_uint32 mirror_grp_id : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mirror_key_s;

/** @brief One MAC address and the outer tag. */
typedef struct {
    vx_mac_addr_t mac_addr;
    lmq_fe_cls_addr_type_e mac_addr_type;
    vx_uint16 vid;
    vx_uint8 dot1p;
    vx_boolean pri_tag_flag; /**< The packet is tagged with VID 0. */
    vx_uint8 vtag_cnt;
    vx_uint8 age_timer_offset; /**< Entry of the aging of MAC filters; without a flag. */
    union {
        struct {
            vx_uint32 mac_addr : 1;
            vx_uint32 mac_addr_type : 1;
            vx_uint32 vid : 1;
            vx_uint32 dot1p : 1;
            vx_uint32 pri_tag_flag : 1;
            vx_uint32 vtag_cnt : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mac_vlan_key_s;

/** @brief One MAC address, or the range of the port, and EtherType. */
typedef struct {
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_boolean dst_mac_range_flag; /**< Destination address in the range of vx_cls_cl_ctrl_t. */
    vx_mac_addr_t mac_addr;
    lmq_fe_cls_addr_type_e mac_addr_type;
    vx_uint16 ev2pt;           /**< EtherType. */
    vx_uint8 age_timer_offset; /**< Entry of the aging of MAC filters; without a flag. */
    union {
        struct {
            vx_uint32 tpid_enc : 1;
            vx_uint32 dst_mac_range_flag : 1;
            vx_uint32 mac_addr : 1;
            vx_uint32 mac_addr_type : 1;
            vx_uint32 ev2pt : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mac_etype_key_s;

/** @brief Control packets: destination MAC address, and packet types or EtherType. */
typedef struct {
    vx_mac_addr_t dst_mac_addr;
    vx_uint8 mac_mask;     /**< Mask over dst_mac_addr, in one byte. */
    vx_boolean spl_pkt_en; /**< splpktvect_ev2pt is a bitmap of packet types. */
    vx_boolean ev2pt_en;   /**< splpktvect_ev2pt is an EtherType. */
    vx_uint32 splpktvect_ev2pt;
    union {
        struct {
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 mac_mask : 1;
            vx_uint32 spl_ev2pt : 1; /**< splpktvect_ev2pt, with the switch of its meaning. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ctrl_pkt_key_s;

/** @brief The same for packets of a GEM port. */
typedef struct {
    vx_uint8 gem_subpid; /**< GEM port, as the engine numbers it. */
    vx_mac_addr_t dst_mac_addr;
    vx_boolean spl_pkt_en; /**< 1: splpktvect_ev2pt is a bitmap of packet types, 0: an EtherType. */
    vx_uint32 splpktvect_ev2pt;
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 ev2pt : 1; /**< splpktvect_ev2pt with spl_pkt_en. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_gem_ctrl_pkt_key_s;

/** @brief One VID. */
typedef struct {
    lmq_fe_cls_tpid_enc_e tpid_enc;
    lmq_fe_cls_spl_ev2pt_enc_e ev2pt_enc;
    vx_boolean rsvd_dst_mac_flag; /**< Destination address reserved by IEEE 802.1D. */
    vx_boolean bc_dst_mac_flag;   /**< Broadcast. */
    vx_boolean mc_dst_mac_flag;   /**< Multicast. */
    vx_boolean pri_tag_flag;      /**< The packet is tagged with VID 0. */
    vx_uint8 vtag_cnt;
    vx_uint16 vid;
    vx_boolean bc_llid_flag; /**< Broadcast LLID (EPON). */
    union {
        struct {
            vx_uint32 tpid_enc : 1;
            vx_uint32 ev2pt_enc : 1;
            vx_uint32 rsvd_dst_mac_flag : 1;
            vx_uint32 bc_dst_mac_flag : 1;
            vx_uint32 mc_dst_mac_flag : 1;
            vx_uint32 pri_tag_flag : 1;
            vx_uint32 vtag_cnt : 1;
            vx_uint32 vid : 1;
            vx_uint32 bc_llid_flag : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_vlan_key_s;

/** @brief A range of outer VIDs, or both VIDs. */
typedef struct {
    lmq_fe_cls_spl_ev2pt_enc_e ev2pt_enc;
    vx_boolean vid_range_flag; /**< TRUE: vid.range_s counts, FALSE: vid.val_s. */
    union {
        struct {
            vx_uint16 vid_high;
            vx_uint16 vid_low;
        } range_s;
        struct {
            vx_uint16 vid_outer;
            vx_uint16 vid_inner;
        } val_s;
    } vid;
    vx_boolean bc_dst_mac_flag; /**< Broadcast. */
    vx_boolean mc_dst_mac_flag; /**< Multicast. */
    vx_uint8 vtag_cnt;
    union {
        struct {
            vx_uint32 ev2pt_enc : 1;
            vx_uint32 vid_range_flag : 1;
            vx_uint32 vid : 1;
            vx_uint32 bc_dst_mac_flag : 1;
            vx_uint32 mc_dst_mac_flag : 1;
            vx_uint32 vtag_cnt : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_vlan_range_key_s;

/** @brief Kind of destination MAC address, EtherType, IP protocol and ports. */
typedef struct {
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_uint8 dst_mac_addr_low; /**< Last byte of the destination MAC address. */
    vx_uint16 ev2pt;           /**< EtherType. */
    vx_uint8 ip_proto;
    vx_uint8 spcl_key_hit_bitmap; /**< Bit n: special pattern n is there. */
    vx_uint8 l4_src_hit_bitmap;   /**< Bit n: source port in entry n of the port ranges. */
    vx_uint8 l4_dst_hit_bitmap;   /**< Bit n: destination port in entry n. */
    vx_uint8 icmp_type;
    vx_boolean prsr_len_excd;     /**< Headers are longer than the parser reads. */
    vx_boolean cfi_flag;          /**< CFI bit of the tag; without a flag. */
    vx_boolean rsvd_dst_mac_flag; /**< Reserved by IEEE 802.1D. */
    vx_boolean my_mac_flag;       /**< The MAC address of the device. */
    vx_boolean mc_ip_flag;        /**< Multicast of IP. */
    union {
        struct {
            vx_uint32 tpid_enc : 1;
            vx_uint32 dst_mac_addr_low : 1;
            vx_uint32 ev2pt : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 spcl_key_hit_bitmap : 1;
            vx_uint32 l4_src_hit_bitmap : 1;
            vx_uint32 l4_dst_hit_bitmap : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 prsr_len_excd : 1;
            vx_uint32 da_flag : 1; /**< rsvd_dst_mac_flag, my_mac_flag and mc_ip_flag. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_proto_key_s;

/** @brief A multicast group. */
typedef struct {
    lmq_fe_cls_addr_e addr_type; /**< Which alternative of addr counts. */
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
        vx_in6_addr_t ipv6;
    } addr; /**< The group, in one of three forms over the same bytes. */
    vx_uint16 vid;
    vx_boolean prsr_len_excd; /**< Headers are longer than the parser reads. */
    vx_boolean mcast_addr_type;
    vx_boolean grp_id_vld;
    vx_uint8 grp_id; /**< Read if grp_id_vld. */
    union {
        struct {
            vx_uint32 addr : 1; /**< addr with its addr_type. */
            vx_uint32 vid : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mcast_key_s;

/** @brief The same for packets of a GEM port. */
typedef struct {
    vx_uint8 gem_subpid;         /**< GEM port, as the engine numbers it. */
    lmq_fe_cls_addr_e addr_type; /**< Which alternative of addr counts. */
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
        vx_in6_addr_t ipv6;
    } addr; /**< The group, in one of three forms over the same bytes. */
    vx_uint16 vid;
    vx_boolean prsr_len_excd; /**< Headers are longer than the parser reads. */
    vx_boolean mcast_addr_type;
    vx_boolean grp_id_vld;
    vx_uint8 grp_id; /**< Read if grp_id_vld. */
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 addr : 1; /**< addr with its addr_type. */
            vx_uint32 vid : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_gem_mcast_key_s;

/** @brief A multicast group and a source. */
typedef struct {
    vx_uint8 sub_pid;                 /**< GEM port, as the engine numbers it. */
    lmq_fe_cls_addr_e dest_addr_type; /**< Which alternative of dest_addr counts; never IPv6. */
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
    } dest_addr; /**< The group, in one of two forms over the same bytes. */
    vx_in_addr_t src_addr_ipv4;
    vx_uint16 vid;
    union {
        struct {
            vx_uint32 sub_pid : 1;
            vx_uint32 dest_addr : 1; /**< dest_addr with its dest_addr_type. */
            vx_uint32 vid : 1;
            vx_uint32 src_addr : 1; /**< src_addr_ipv4. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ipv4_mcast_pkt_key_s;

/** @brief All of both tags. */
typedef struct {
    vx_uint8 gem_subpid;     /**< GEM port, as the engine numbers it. */
    vx_uint8 vtag_cnt;       /**< Tags of the packet, 0 to 2. */
    vx_uint8 outer_tpid_enc; /**< A value of lmq_fe_cls_tpid_enc_e. */
    vx_uint8 outer_dot1p;    /**< Priority, 0 to 7. */
    vx_uint8 outer_de;       /**< Drop eligible, 0 or 1. */
    vx_uint16 outer_vid;
    vx_uint8 inner_tpid_enc; /**< A value of lmq_fe_cls_tpid_enc_e. */
    vx_uint8 inner_dot1p;    /**< Priority, 0 to 7. */
    vx_uint8 inner_de;       /**< Drop eligible, 0 or 1. */
    vx_uint16 inner_vid;
    vx_uint16 ev2pt;              /**< EtherType. */
    vx_boolean bc_dst_mac_flag;   /**< Broadcast. */
    vx_boolean mc_dst_mac_flag;   /**< Multicast. */
    vx_boolean not_ipv4_pkt_flag; /**< Anything but IPv4. */
    vx_boolean not_ipv6_pkt_flag; /**< Anything but IPv6. */
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 vtag_cnt : 1;
            vx_uint32 outer_tpid_enc : 1;
            vx_uint32 outer_dot1p : 1;
            vx_uint32 outer_de : 1;
            vx_uint32 outer_vid : 1;
            vx_uint32 inner_tpid_enc : 1;
            vx_uint32 inner_dot1p : 1;
            vx_uint32 inner_de : 1;
            vx_uint32 inner_vid : 1;
            vx_uint32 ev2pt : 1;
            vx_uint32 bc_dst_mac_flag : 1;
            vx_uint32 mc_dst_mac_flag : 1;
            vx_uint32 not_ipv4_pkt_flag : 1;
            vx_uint32 not_ipv6_pkt_flag : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ext_vlan_key_s;

/** @} */

#ifdef __cplusplus
}
#endif

#endif
