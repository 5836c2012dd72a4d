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
    VX_FE_LMQ_DST_ADDR = 0, /**< The destination address. */
    VX_FE_LMQ_SRC_ADDR = 1, /**< The source address. */
} vx_fe_addr_type_t;

/** @brief Which TCP or UDP port of a packet a flow key holds. */
typedef enum vx_fe_port_type_t LMQ_ENUM_INT {
    VX_FE_DST_PORT = 0, /**< The destination port. */
    VX_FE_SRC_PORT = 1, /**< The source port. */
} vx_fe_port_type_t;

/** @brief Which fragments of an IP packet a flow key matches. */
typedef enum ip_frag_state_e LMQ_ENUM_INT {
    LMQ_IP_FRAG_STATE_IGNORE = 0,    /**< All packets, fragments or not. */
    LMQ_IP_FRAG_STATE_FIRST = 1,     /**< First fragments. */
    LMQ_IP_FRAG_STATE_NOT_FIRST = 2, /**< Fragments other than the first. */
} ip_frag_state_e;

/** @brief Destination MAC address and EtherType. */
typedef struct {
    vx_mac_addr_t mac_da; /**< Destination MAC address of the packet. */
    vx_uint16 eth_type;   /**< EtherType of the packet's payload. */
    vx_uint16 tpid;       /**< TPID of the outer tag. */
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
    vx_mac_addr_t mac_sa;      /**< Source MAC address of the packet. */
    vx_mac_addr_t mac_da_low;  /**< First destination MAC address of the range. */
    vx_mac_addr_t mac_da_high; /**< Last destination MAC address of the range. */
    vx_uint16 eth_type;        /**< EtherType of the packet's payload. */
    vx_uint16 tpid;            /**< TPID of the outer tag. */
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
    vx_fe_addr_type_t mac_addr_type; /**< Which address of the packet mac_addr is; without a flag. */
    vx_mac_addr_t mac_addr;          /**< Destination or source, as mac_addr_type says. */
    vx_uint8 vlan_tag_cnt;           /**< {0..2} VLAN tags of the packet. */
    vx_boolean pri_tag_pkt;          /**< The packet has a priority tag: VID 0. */
    vx_vid_t o_pbit;                 /**< {0..7, no id} Priority in the outer tag, though declared as a VID. */
    vx_vid_t o_vid;                  /**< VID of the outer tag. */
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
    vx_boolean rsvd_mac;    /**< The packet goes to an address that IEEE 802.1D reserves. */
    vx_boolean bc_mac;      /**< The packet goes to the broadcast address. */
    vx_boolean mc_mac;      /**< The packet goes to a multicast address. */
    vx_uint16 eth_type;     /**< EtherType of the packet's payload. */
    vx_uint16 tpid;         /**< TPID of the outer tag. */
    vx_uint8 vlan_tag_cnt;  /**< {0..2} VLAN tags of the packet. */
    vx_boolean pri_tag_pkt; /**< The packet has a priority tag: VID 0. */
    vx_vid_t o_vid;         /**< VID of the outer tag. */
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
    vx_boolean bc_mac;     /**< The packet goes to the broadcast address. */
    vx_boolean mc_mac;     /**< The packet goes to a multicast address. */
    vx_uint16 eth_type;    /**< EtherType of the packet's payload. */
    vx_uint8 vlan_tag_cnt; /**< {0..2} VLAN tags of the packet. */
    vx_vid_t o_vid_hi;     /**< Last outer VID of the range. */
    vx_vid_t o_vid_lo;     /**< First outer VID of the range. */
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
    vx_boolean bc_mac;  /**< The packet goes to the broadcast address. */
    vx_boolean mc_mac;  /**< The packet goes to a multicast address. */
    vx_uint16 eth_type; /**< EtherType of the packet's payload. */
    vx_vid_t o_vid;     /**< VID of the outer tag. */
    vx_vid_t i_vid;     /**< VID of the inner tag. */
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
    vx_uint16 gem_port_id; /**< {id gem-port} GEM port that the packet came by; without a flag. */
    vx_boolean bc_mac;     /**< The packet goes to the broadcast address. */
    vx_boolean mc_mac;     /**< The packet goes to a multicast address. */
    vx_boolean non_ipv4;   /**< The packet is anything but IPv4. */
    vx_boolean non_ipv6;   /**< The packet is anything but IPv6. */
    vx_uint16 eth_type;    /**< EtherType of the packet's payload. */
    vx_uint8 vlan_tag_cnt; /**< {0..2} VLAN tags of the packet. */
    vx_uint16 o_tpid;      /**< TPID of the outer tag. */
    vx_uint8 o_pbit;       /**< {0..7} Priority in the outer tag. */
    vx_uint8 o_de;         /**< {0..1} Drop eligible bit of the outer tag. */
    vx_vid_t o_vid;        /**< VID of the outer tag. */
    vx_uint16 i_tpid;      /**< TPID of the inner tag. */
    vx_uint8 i_pbit;       /**< {0..7} Priority in the inner tag. */
    vx_uint8 i_de;         /**< {0..1} Drop eligible bit of the inner tag. */
    vx_vid_t i_vid;        /**< VID of the inner tag. */
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
    vx_uint16 eth_type;    /**< EtherType of the packet's payload. */
    vx_uint8 vlan_tag_cnt; /**< {0..2} VLAN tags of the packet. */
    vx_uint16 o_tpid;      /**< TPID of the outer tag. */
    vx_uint8 o_pbit;       /**< {0..7} Priority in the outer tag. */
    vx_uint8 o_de;         /**< {0..1} Drop eligible bit of the outer tag. */
    vx_vid_t o_vid;        /**< VID of the outer tag. */
    vx_uint16 i_tpid;      /**< TPID of the inner tag. */
    vx_uint8 i_pbit;       /**< {0..7} Priority in the inner tag. */
    vx_uint8 i_de;         /**< {0..1} Drop eligible bit of the inner tag. */
    vx_vid_t i_vid;        /**< VID of the inner tag. */
    vx_uint8 dscp;         /**< {0..63} DSCP of the IP header; without a flag. */
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
    vx_mac_addr_t mac_da;                                 /**< Destination MAC address of the packet. */
    vx_uint8 mac_da_mask;                                 /**< {bits} Mask over mac_da, in one byte. */
    vx_l2_spcl_pkt_type_bitmap_for_cls_t pkt_type_bitmap; /**< Packets of any of these types match. */
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 mac_da_mask : 1;
            vx_uint32 pkt_type_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ctrl_pkt_t;

/** @brief Control packets of a GEM port: destination MAC address and packet types. */
typedef struct {
    vx_uint16 gem_port_id; /**< {id gem-port} GEM port that the packet came by; without a flag. */
    vx_mac_addr_t mac_da;  /**< Destination MAC address of the packet. */
    vx_l2_spcl_pkt_type_bitmap_for_cls_t pkt_type_bitmap; /**< Packets of any of these types match. */
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
    vx_boolean rsvd_mac;             /**< The packet goes to an address that IEEE 802.1D reserves. */
    vx_boolean ipv4_mc_mac;          /**< The packet goes to an address of IPv4 multicast, 01:00:5E (RFC 1112). */
    vx_boolean my_mac;               /**< The packet goes to the MAC address of the device. */
    vx_uint8 mac_da_low;             /**< Last byte of the destination MAC address. */
    vx_uint16 eth_type;              /**< EtherType of the packet's payload. */
    vx_uint16 o_tpid;                /**< TPID of the outer tag. */
    vx_uint8 ip_proto;               /**< IANA protocol number of the IP header. */
    vx_uint8 icmp_type;              /**< Type of the ICMP message (RFC 792, RFC 4443). */
    vx_uint16 l4p_src_hi;            /**< Last TCP or UDP source port of the range. */
    vx_uint16 l4p_src_lo;            /**< First TCP or UDP source port of the range. */
    vx_uint16 l4p_dst_hi;            /**< Last TCP or UDP destination port of the range. */
    vx_uint16 l4p_dst_lo;            /**< First TCP or UDP destination port of the range. */
    vx_uint32 custom_pkt_fld_bitmap; /**< {bits} Bit n: entry n of the table of custom fields has to match. */
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
    vx_uint16 gem_port_id;           /**< {id gem-port} GEM port that the packet came by; without a flag. */
    vx_uint16 spid;                  /**< {id port} Port that the packet came by. */
    vx_mac_addr_t mac_da;            /**< Destination MAC address of the packet. */
    vx_mac_addr_t mac_sa;            /**< Source MAC address of the packet. */
    vx_uint16 eth_type;              /**< EtherType of the packet's payload. */
    vx_uint8 vlan_tag_cnt;           /**< {0..2} VLAN tags of the packet. */
    vx_boolean pri_tag_pkt;          /**< The packet has a priority tag: VID 0. */
    vx_uint16 o_tpid;                /**< TPID of the outer tag. */
    vx_vid_t o_vid;                  /**< VID of the outer tag. */
    vx_uint8 o_pbit;                 /**< {0..7} Priority in the outer tag. */
    vx_in_addr_t ip_sa;              /**< Source address of the IP header. */
    vx_uint8 ip_sa_unmask_len;       /**< {0..32 bits} How much of ip_sa is compared, from the top. */
    vx_in_addr_t ip_da;              /**< Destination address of the IP header. */
    vx_uint8 ip_da_unmask_len;       /**< {0..32 bits} How much of ip_da is compared, from the top. */
    vx_uint8 ip_proto;               /**< IANA protocol number of the IP header. */
    vx_uint8 dscp_tos;               /**< DSCP (RFC 2474), or the older type of service (RFC 791). */
    vx_uint8 ip_frag_stat;           /**< {ip_frag_state_e} Which fragments match. */
    vx_uint8 ip_opt_flag;            /**< {0..1} 1: the packet has IP options. */
    vx_uint8 icmp_type;              /**< Type of the ICMP message (RFC 792). */
    vx_uint8 igmp_type;              /**< Type of the IGMP message (RFC 3376). */
    vx_uint16 l4p_src_hi;            /**< Last TCP or UDP source port of the range. */
    vx_uint16 l4p_src_lo;            /**< First TCP or UDP source port of the range. */
    vx_uint16 l4p_dst_hi;            /**< Last TCP or UDP destination port of the range. */
    vx_uint16 l4p_dst_lo;            /**< First TCP or UDP destination port of the range. */
    vx_uint8 tcp_flags;              /**< {bits} Flags of the TCP header (RFC 9293). */
    vx_uint32 custom_pkt_fld_bitmap; /**< {bits} Bit n: entry n of the table of custom fields has to match. */
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
    vx_fe_addr_type_t ip_addr_type; /**< Which address of the packet ip_addr is; without a flag. */
    vx_in_addr_t ip_addr;           /**< Destination or source, as ip_addr_type says. */
    vx_uint8 ip_addr_unmask_len;    /**< {0..32 bits} How much of ip_addr is compared, from the top. */
    vx_uint8 ip_proto;              /**< IANA protocol number of the IP header. */
    vx_uint8 dscp_tos;              /**< DSCP (RFC 2474), or the older type of service (RFC 791). */
    vx_fe_port_type_t l4p_type;     /**< Which port of the packet l4p_val is; without a flag. */
    vx_uint16 l4p_val;              /**< TCP or UDP port, as l4p_type says. */
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
    vx_uint16 gem_port_id;           /**< {id gem-port} GEM port that the packet came by; without a flag. */
    vx_uint16 spid;                  /**< {id port} Port that the packet came by. */
    vx_mac_addr_t mac_da;            /**< Destination MAC address of the packet. */
    vx_mac_addr_t mac_sa;            /**< Source MAC address of the packet. */
    vx_uint16 eth_type;              /**< EtherType of the packet's payload. */
    vx_uint8 vlan_tag_cnt;           /**< {0..2} VLAN tags of the packet. */
    vx_boolean pri_tag_pkt;          /**< The packet has a priority tag: VID 0. */
    vx_uint16 o_tpid;                /**< TPID of the outer tag. */
    vx_vid_t o_vid;                  /**< VID of the outer tag. */
    vx_uint8 o_pbit;                 /**< {0..7} Priority in the outer tag. */
    vx_in6_addr_t ip_sa;             /**< Source address of the IP header. */
    vx_uint8 ip_sa_unmask_len;       /**< {0..128 bits} How much of ip_sa is compared, from the top. */
    vx_in6_addr_t ip_da;             /**< Destination address of the IP header. */
    vx_uint8 ip_da_unmask_len;       /**< {0..128 bits} How much of ip_da is compared, from the top. */
    vx_uint8 ip_proto;               /**< Next header (RFC 8200): an IANA protocol number. */
    vx_uint8 tc;                     /**< Traffic class (RFC 8200). */
    vx_uint32 flow_label;            /**< {0..0xfffff} Flow label (RFC 6437). */
    vx_uint8 ip_frag_stat;           /**< {ip_frag_state_e} Which fragments match. */
    vx_uint8 ip_opt_flag;            /**< {0..1} 1: the packet has IP options. */
    vx_uint8 icmp_type;              /**< Type of the ICMPv6 message (RFC 4443). */
    vx_uint16 l4p_src_hi;            /**< Last TCP or UDP source port of the range. */
    vx_uint16 l4p_src_lo;            /**< First TCP or UDP source port of the range. */
    vx_uint16 l4p_dst_hi;            /**< Last TCP or UDP destination port of the range. */
    vx_uint16 l4p_dst_lo;            /**< First TCP or UDP destination port of the range. */
    vx_uint8 tcp_flags;              /**< {bits} Flags of the TCP header (RFC 9293). */
    vx_uint32 custom_pkt_fld_bitmap; /**< {bits} Bit n: entry n of the table of custom fields has to match. */
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
    vx_fe_addr_type_t ip_addr_type; /**< Which address of the packet ip_addr is; without a flag. */
    vx_in6_addr_t ip_addr;          /**< Destination or source, as ip_addr_type says. */
    vx_uint8 ip_addr_unmask_len;    /**< {0..128 bits} How much of ip_addr is compared, from the top. */
    vx_uint8 ip_proto;              /**< Next header (RFC 8200): an IANA protocol number. */
    vx_uint8 tc;                    /**< Traffic class (RFC 8200). */
    vx_uint32 flow_label;           /**< {0..0xfffff} Flow label (RFC 6437). */
    vx_fe_port_type_t l4p_type;     /**< Which port of the packet l4p_val is; without a flag. */
    vx_uint16 l4p_val;              /**< TCP or UDP port, as l4p_type says. */
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
    LMQ_FE_CLS_ADDR_MAC = 0,  /**< A MAC address. */
    LMQ_FE_CLS_ADDR_IPV4 = 1, /**< An IPv4 address. */
    LMQ_FE_CLS_ADDR_IPV6 = 2, /**< An IPv6 address. */
} lmq_fe_cls_addr_e;

/** @brief Which address of a packet a rule key holds. */
typedef enum lmq_fe_cls_addr_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_ADDR_DST = 0, /**< The destination address. */
    LMQ_FE_CLS_ADDR_SRC = 1, /**< The source address. */
} lmq_fe_cls_addr_type_e;

/** @brief Which TCP or UDP port of a packet a rule key holds. */
typedef enum lmq_fe_cls_l4_port_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_L4_PORT_DST = 0, /**< The destination port. */
    LMQ_FE_CLS_L4_PORT_SRC = 1, /**< The source port. */
} lmq_fe_cls_l4_port_type_e;

/** @brief A TPID (IEEE 802.1Q) by its place among those that the port is configured with. */
typedef enum lmq_fe_cls_tpid_enc_e LMQ_ENUM_INT {
    LMQ_FE_CLS_TPID_NO_MATCH = 0, /**< None of the configured ones. */
    LMQ_FE_CLS_TPID_USR_1 = 1,    /**< The first configured TPID. */
    LMQ_FE_CLS_TPID_USR_2 = 2,    /**< The second configured TPID. */
    LMQ_FE_CLS_TPID_USR_3 = 3,    /**< The third configured TPID. */
    LMQ_FE_CLS_TPID_USR_4 = 4,    /**< The fourth configured TPID. */
} lmq_fe_cls_tpid_enc_e;

/** @brief An EtherType that the parser knows by a number, or one of the configured ones (USR). */
typedef enum lmq_fe_cls_spl_ev2pt_enc_e LMQ_ENUM_INT {
    LMQ_FE_CLS_SPL_EV2PT_IPV4 = 0,            /**< IPv4, 0x0800. */
    LMQ_FE_CLS_SPL_EV2PT_IPV6 = 1,            /**< IPv6, 0x86DD. */
    LMQ_FE_CLS_SPL_EV2PT_PPPOE_DISCOVERY = 2, /**< PPPoE discovery, 0x8863 (RFC 2516). */
    LMQ_FE_CLS_SPL_EV2PT_PPPOE_SESSION = 3,   /**< PPPoE sessions, 0x8864 (RFC 2516). */
    LMQ_FE_CLS_SPL_EV2PT_NOVELL_IPX = 4,      /**< IPX, 0x8137. */
    LMQ_FE_CLS_SPL_EV2PT_SNMP = 5,            /**< SNMP over Ethernet, 0x814C (RFC 1089). */
    LMQ_FE_CLS_SPL_EV2PT_MPCPDU = 6,          /**< MAC control, with the MPCP of EPON, 0x8808 (IEEE 802.3). */
    LMQ_FE_CLS_SPL_EV2PT_SLOW_PROTO = 7,      /**< Slow protocols, 0x8809 (IEEE 802.3). */
    LMQ_FE_CLS_SPL_EV2PT_RARP = 8,            /**< RARP, 0x8035 (RFC 903). */
    LMQ_FE_CLS_SPL_EV2PT_ARP = 9,             /**< ARP, 0x0806 (RFC 826). */
    LMQ_FE_CLS_SPL_EV2PT_USR_0 = 10,          /**< The first configured EtherType. */
    LMQ_FE_CLS_SPL_EV2PT_USR_1 = 11,          /**< The second configured EtherType. */
    LMQ_FE_CLS_SPL_EV2PT_USR_2 = 12,          /**< The third configured EtherType. */
    LMQ_FE_CLS_SPL_EV2PT_USR_3 = 13,          /**< The fourth configured EtherType. */
    LMQ_FE_CLS_SPL_EV2PT_USR_4 = 14,          /**< The fifth configured EtherType. */
    LMQ_FE_CLS_SPL_EV2PT_NONE = 15,           /**< None of these. */
} lmq_fe_cls_spl_ev2pt_enc_e;

/** @brief VLAN tags of a packet. */
typedef enum lmq_fe_cls_vtag_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_TAG_DONT_CARE = 0, /**< Any number of tags. */
    LMQ_FE_CLS_TAG_UNTAGGED = 1,  /**< No tag. */
    LMQ_FE_CLS_TAG_SINGLE = 2,    /**< One tag. */
    LMQ_FE_CLS_TAG_DOUBLE = 3,    /**< Two tags. */
    LMQ_FE_CLS_TAG_PRIORITY = 4,  /**< A priority tag: VID 0. */
} lmq_fe_cls_vtag_type_e;

/** @brief Which fragment of an IP packet a packet is. */
typedef enum lmq_fe_cls_ip_fragment_state_e LMQ_ENUM_INT {
    LMQ_FE_CLS_IP_NO_FRAGMENT = 0,    /**< No fragment: the whole packet. */
    LMQ_FE_CLS_IP_FIRST_FRAGMENT = 1, /**< The first fragment. */
    LMQ_FE_CLS_IP_NON_FIRST_FRAG = 2, /**< A fragment other than the first. */
} lmq_fe_cls_ip_fragment_state_e;

/** @brief Where a special pattern is looked for: behind the header of a layer, or at a fixed offset. */
typedef enum lmq_fe_cls_spcl_hdr_e LMQ_ENUM_INT {
    LMQ_FE_CLS_SPCL_HDR_L2_PKT_DYNA = 0,      /**< Behind the header of layer 2. */
    LMQ_FE_CLS_SPCL_HDR_IP_PKT_DYNA = 1,      /**< Behind the IP header. */
    LMQ_FE_CLS_SPCL_HDR_TCP_UDP_PKT_DYNA = 2, /**< Behind the TCP or UDP header. */
    LMQ_FE_CLS_SPCL_HDR_STATIC = 3,           /**< At a fixed offset of the packet. */
} lmq_fe_cls_spcl_hdr_e;

/** @brief All of an IPv4 packet. */
typedef struct {
    vx_uint8 gem_subpid;            /**< GEM port that the packet came by, as the engine numbers it. */
    vx_uint16 spid;                 /**< {id port} Port that the packet came by. */
    vx_mac_addr_t src_mac_addr;     /**< Source MAC address of the packet. */
    vx_mac_addr_t dst_mac_addr;     /**< Destination MAC address of the packet. */
    vx_uint16 vid;                  /**< {id vlan} VID of the outer tag. */
    lmq_fe_cls_tpid_enc_e tpid_enc; /**< TPID of the outer tag. */
    vx_uint8 dot1p;                 /**< {0..7} Priority in the outer tag. */
    vx_uint16 ev2pt;                /**< EtherType of the packet's payload. */
    vx_in_addr_t src_ip_addr;       /**< Source address of the IP header. */
    vx_uint8 src_ip_mask;           /**< {0..32 bits} How much of src_ip_addr is compared, from the top. */
    vx_in_addr_t dst_ip_addr;       /**< Destination address of the IP header. */
    vx_uint8 dst_ip_mask;           /**< {0..32 bits} How much of dst_ip_addr is compared, from the top. */
    vx_uint8 ip_proto;              /**< IANA protocol number of the IP header. */
    vx_uint8 ip_dscp;               /**< {0..63} DSCP of the IP header (RFC 2474). */
    vx_boolean ip_option;           /**< The packet has IP options. */
    lmq_fe_cls_ip_fragment_state_e ip_frag_state; /**< Whether the packet is a fragment, and which. */
    vx_uint16 l4_port;                            /**< TCP or UDP port, as l4_port_type says. */
    lmq_fe_cls_l4_port_type_e l4_port_type;       /**< Which port of the packet l4_port is. */
    vx_uint8 l4_src_hit_bitmap;   /**< {bits} Bit n: the source port is in range n (vx_cls_l4_port_range_t). */
    vx_uint8 l4_dst_hit_bitmap;   /**< {bits} Bit n: the destination port is in range n (vx_cls_l4_port_range_t). */
    vx_uint8 spcl_key_hit_bitmap; /**< {bits} Bit n: special pattern n is in the packet. */
    vx_uint8 tcp_flags;           /**< {bits} Flags of the TCP header (RFC 9293). */
    vx_uint8 icmp_type;           /**< Type of the ICMP message (RFC 792). */
    vx_uint8 igmp_type;           /**< Type of the IGMP message (RFC 3376). */
    vx_boolean pri_tag_flag;      /**< The packet has a priority tag: VID 0. */
    vx_uint8 vtag_cnt;            /**< {0..2} VLAN tags of the packet. */
    vx_boolean prsr_len_excd;     /**< Its headers are longer than the parser reads. */
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
    vx_in_addr_t ip_addr;                   /**< Destination or source, as ip_addr_type says. */
    lmq_fe_cls_addr_type_e ip_addr_type;    /**< Which address of the packet ip_addr is. */
    vx_uint8 ip_mask;                       /**< {0..32 bits} How much of ip_addr is compared, from the top. */
    vx_uint8 ip_proto;                      /**< IANA protocol number of the IP header. */
    vx_uint8 ip_dscp;                       /**< {0..63} DSCP of the IP header (RFC 2474). */
    vx_uint16 l4_port;                      /**< TCP or UDP port, as l4_port_type says. */
    lmq_fe_cls_l4_port_type_e l4_port_type; /**< Which port of the packet l4_port is. */
    vx_boolean prsr_len_excd;               /**< Its headers are longer than the parser reads. */
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
    vx_uint8 gem_subpid;            /**< GEM port that the packet came by, as the engine numbers it. */
    vx_uint16 spid;                 /**< {id port} Port that the packet came by. */
    vx_mac_addr_t src_mac_addr;     /**< Source MAC address of the packet. */
    vx_mac_addr_t dst_mac_addr;     /**< Destination MAC address of the packet. */
    vx_uint16 vid;                  /**< {id vlan} VID of the outer tag. */
    lmq_fe_cls_tpid_enc_e tpid_enc; /**< TPID of the outer tag. */
    vx_uint8 dot1p;                 /**< {0..7} Priority in the outer tag. */
    vx_uint16 ev2pt;                /**< EtherType of the packet's payload. */
    vx_in6_addr_t src_ip_addr;      /**< Source address of the IP header. */
    vx_uint8 src_ip_mask;           /**< {0..128 bits} How much of src_ip_addr is compared, from the top. */
    vx_in6_addr_t dst_ip_addr;      /**< Destination address of the IP header. */
    vx_uint8 dst_ip_mask;           /**< {0..128 bits} How much of dst_ip_addr is compared, from the top. */
    vx_uint8 ip_proto;              /**< Next header (RFC 8200): an IANA protocol number. */
    vx_uint8 ip_tc;                 /**< Traffic class (RFC 8200). */
    vx_uint32 ipv6_flow_label;      /**< {0..0xfffff} Flow label (RFC 6437). */
    vx_boolean ip_option;           /**< The packet has IP options. */
    lmq_fe_cls_ip_fragment_state_e ip_frag_state; /**< Whether the packet is a fragment, and which. */
    vx_uint16 l4_port;                            /**< TCP or UDP port, as l4_port_type says. */
    lmq_fe_cls_l4_port_type_e l4_port_type;       /**< Which port of the packet l4_port is. */
    vx_uint8 l4_src_hit_bitmap;   /**< {bits} Bit n: the source port is in range n (vx_cls_l4_port_range_t). */
    vx_uint8 l4_dst_hit_bitmap;   /**< {bits} Bit n: the destination port is in range n (vx_cls_l4_port_range_t). */
    vx_uint8 spcl_key_hit_bitmap; /**< {bits} Bit n: special pattern n is in the packet. */
    vx_uint8 tcp_flags;           /**< {bits} Flags of the TCP header (RFC 9293). */
    vx_uint8 icmp_type;           /**< Type of the ICMPv6 message (RFC 4443). */
    vx_boolean pri_tag_flag;      /**< The packet has a priority tag: VID 0. */
    vx_uint8 vtag_cnt;            /**< {0..2} VLAN tags of the packet. */
    vx_boolean prsr_len_excd;     /**< Its headers are longer than the parser reads. */
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
    vx_in6_addr_t ip_addr;                  /**< Destination or source, as ip_addr_type says. */
    lmq_fe_cls_addr_type_e ip_addr_type;    /**< Which address of the packet ip_addr is. */
    vx_uint8 ip_mask;                       /**< {0..128 bits} How much of ip_addr is compared, from the top. */
    vx_uint8 ip_proto;                      /**< Next header (RFC 8200): an IANA protocol number. */
    vx_uint8 ip_tc;                         /**< Traffic class (RFC 8200). */
    vx_uint32 ipv6_flow_label;              /**< {0..0xfffff} Flow label (RFC 6437). */
    vx_uint16 l4_port;                      /**< TCP or UDP port, as l4_port_type says. */
    lmq_fe_cls_l4_port_type_e l4_port_type; /**< Which port of the packet l4_port is. */
    vx_boolean prsr_len_excd;               /**< Its headers are longer than the parser reads. */
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
    vx_uint16 spid;             /**< {id port} Port that the packet came by. */
    vx_uint16 vid;              /**< {id vlan} VID of the outer tag. */
    vx_uint8 mirror_grp_id;     /**< Group of mirrored packets that it belongs to. */
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
    vx_mac_addr_t mac_addr;               /**< Destination or source, as mac_addr_type says. */
    lmq_fe_cls_addr_type_e mac_addr_type; /**< Which address of the packet mac_addr is. */
    vx_uint16 vid;                        /**< {id vlan} VID of the outer tag. */
    vx_uint8 dot1p;                       /**< {0..7} Priority in the outer tag. */
    vx_boolean pri_tag_flag;              /**< The packet has a priority tag: VID 0. */
    vx_uint8 vtag_cnt;                    /**< {0..2} VLAN tags of the packet. */
    vx_uint8 age_timer_offset;            /**< {0..63} Entry of the aging of MAC filters; without a flag. */
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
    lmq_fe_cls_tpid_enc_e tpid_enc;       /**< TPID of the outer tag. */
    vx_boolean dst_mac_range_flag;        /**< The destination address is in the range of vx_cls_cl_ctrl_t. */
    vx_mac_addr_t mac_addr;               /**< Destination or source, as mac_addr_type says. */
    lmq_fe_cls_addr_type_e mac_addr_type; /**< Which address of the packet mac_addr is. */
    vx_uint16 ev2pt;                      /**< EtherType of the packet's payload. */
    vx_uint8 age_timer_offset;            /**< {0..63} Entry of the aging of MAC filters; without a flag. */
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
    vx_mac_addr_t dst_mac_addr; /**< Destination MAC address of the packet. */
    vx_uint8 mac_mask;          /**< {bits} Mask over dst_mac_addr, in one byte. */
    vx_boolean spl_pkt_en;      /**< TRUE: splpktvect_ev2pt is a bitmap of packet types. */
    vx_boolean ev2pt_en;        /**< TRUE: splpktvect_ev2pt is an EtherType. */
    vx_uint32 splpktvect_ev2pt; /**< Bits of lmq_pkt_type_bitmap_e, or an EtherType. */
    union {
        struct {
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 mac_mask : 1;
            vx_uint32 spl_ev2pt : 1; /**< splpktvect_ev2pt, with the switch of its meaning. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ctrl_pkt_key_s;

/** @brief Control packets of a GEM port: destination MAC address, and packet types or EtherType. */
typedef struct {
    vx_uint8 gem_subpid;        /**< GEM port that the packet came by, as the engine numbers it. */
    vx_mac_addr_t dst_mac_addr; /**< Destination MAC address of the packet. */
    vx_boolean spl_pkt_en;      /**< TRUE: splpktvect_ev2pt is a bitmap of packet types; FALSE: an EtherType. */
    vx_uint32 splpktvect_ev2pt; /**< Bits of lmq_pkt_type_bitmap_e, or an EtherType. */
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
    lmq_fe_cls_tpid_enc_e tpid_enc;       /**< TPID of the outer tag. */
    lmq_fe_cls_spl_ev2pt_enc_e ev2pt_enc; /**< EtherType of the packet's payload, as the parser numbers it. */
    vx_boolean rsvd_dst_mac_flag;         /**< The packet goes to an address that IEEE 802.1D reserves. */
    vx_boolean bc_dst_mac_flag;           /**< The packet goes to the broadcast address. */
    vx_boolean mc_dst_mac_flag;           /**< The packet goes to a multicast address. */
    vx_boolean pri_tag_flag;              /**< The packet has a priority tag: VID 0. */
    vx_uint8 vtag_cnt;                    /**< {0..2} VLAN tags of the packet. */
    vx_uint16 vid;                        /**< {id vlan} VID of the outer tag. */
    vx_boolean bc_llid_flag;              /**< The packet came by the broadcast LLID (EPON). */
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
    lmq_fe_cls_spl_ev2pt_enc_e ev2pt_enc; /**< EtherType of the packet's payload, as the parser numbers it. */
    vx_boolean vid_range_flag;            /**< TRUE: vid.range_s counts; FALSE: vid.val_s. */
    union {
        struct {
            vx_uint16 vid_high; /**< {id vlan} Last outer VID of the range. */
            vx_uint16 vid_low;  /**< {id vlan} First outer VID of the range. */
        } range_s;              /**< {if 1} A range of outer VIDs. */
        struct {
            vx_uint16 vid_outer; /**< {id vlan} VID of the outer tag. */
            vx_uint16 vid_inner; /**< {id vlan} VID of the inner tag. */
        } val_s;                 /**< {if 0} The VIDs of both tags. */
    } vid;                       /**< {by vid_range_flag} The VIDs, in one of two forms. */
    vx_boolean bc_dst_mac_flag;  /**< The packet goes to the broadcast address. */
    vx_boolean mc_dst_mac_flag;  /**< The packet goes to a multicast address. */
    vx_uint8 vtag_cnt;           /**< {0..2} VLAN tags of the packet. */
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
    lmq_fe_cls_tpid_enc_e tpid_enc; /**< TPID of the outer tag. */
    vx_uint8 dst_mac_addr_low;      /**< Last byte of the destination MAC address. */
    vx_uint16 ev2pt;                /**< EtherType of the packet's payload. */
    vx_uint8 ip_proto;              /**< IANA protocol number of the IP header. */
    vx_uint8 spcl_key_hit_bitmap;   /**< {bits} Bit n: special pattern n is in the packet. */
    vx_uint8 l4_src_hit_bitmap;     /**< {bits} Bit n: the source port is in range n (vx_cls_l4_port_range_t). */
    vx_uint8 l4_dst_hit_bitmap;     /**< {bits} Bit n: the destination port is in range n (vx_cls_l4_port_range_t). */
    vx_uint8 icmp_type;             /**< Type of the ICMP message (RFC 792, RFC 4443). */
    vx_boolean prsr_len_excd;       /**< Its headers are longer than the parser reads. */
    vx_boolean cfi_flag;            /**< CFI bit of the outer tag, today the drop eligible bit; without a flag. */
    vx_boolean rsvd_dst_mac_flag;   /**< The packet goes to an address that IEEE 802.1D reserves. */
    vx_boolean my_mac_flag;         /**< The packet goes to the MAC address of the device. */
    vx_boolean mc_ip_flag;          /**< The packet goes to an address of IP multicast. */
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
        vx_mac_addr_t mac;      /**< {if LMQ_FE_CLS_ADDR_MAC} As a MAC address. */
        vx_in_addr_t ipv4;      /**< {if LMQ_FE_CLS_ADDR_IPV4} As an IPv4 address. */
        vx_in6_addr_t ipv6;     /**< {if LMQ_FE_CLS_ADDR_IPV6} As an IPv6 address. */
    } addr;                     /**< {by addr_type} Address of the group. */
    vx_uint16 vid;              /**< {id vlan} VID of the outer tag. */
    vx_boolean prsr_len_excd;   /**< Its headers are longer than the parser reads. */
    vx_boolean mcast_addr_type; /**< Kind of the address in the engine's own numbers; without a flag. */
    vx_boolean grp_id_vld;      /**< TRUE: grp_id counts. */
    vx_uint8 grp_id;            /**< Number of the group in the engine; read if grp_id_vld. */
    union {
        struct {
            vx_uint32 addr : 1; /**< addr with its addr_type. */
            vx_uint32 vid : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mcast_key_s;

/** @brief A multicast group, for packets of a GEM port. */
typedef struct {
    vx_uint8 gem_subpid;         /**< GEM port that the packet came by, as the engine numbers it. */
    lmq_fe_cls_addr_e addr_type; /**< Which alternative of addr counts. */
    union {
        vx_mac_addr_t mac;      /**< {if LMQ_FE_CLS_ADDR_MAC} As a MAC address. */
        vx_in_addr_t ipv4;      /**< {if LMQ_FE_CLS_ADDR_IPV4} As an IPv4 address. */
        vx_in6_addr_t ipv6;     /**< {if LMQ_FE_CLS_ADDR_IPV6} As an IPv6 address. */
    } addr;                     /**< {by addr_type} Address of the group. */
    vx_uint16 vid;              /**< {id vlan} VID of the outer tag. */
    vx_boolean prsr_len_excd;   /**< Its headers are longer than the parser reads. */
    vx_boolean mcast_addr_type; /**< Kind of the address in the engine's own numbers; without a flag. */
    vx_boolean grp_id_vld;      /**< TRUE: grp_id counts. */
    vx_uint8 grp_id;            /**< Number of the group in the engine; read if grp_id_vld. */
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
    vx_uint8 sub_pid;                 /**< GEM port that the packet came by, as the engine numbers it. */
    lmq_fe_cls_addr_e dest_addr_type; /**< Which alternative of dest_addr counts; never IPv6. */
    union {
        vx_mac_addr_t mac;      /**< {if LMQ_FE_CLS_ADDR_MAC} As a MAC address. */
        vx_in_addr_t ipv4;      /**< {if LMQ_FE_CLS_ADDR_IPV4} As an IPv4 address. */
    } dest_addr;                /**< {by dest_addr_type} Address of the group. */
    vx_in_addr_t src_addr_ipv4; /**< Source address of the IP header. */
    vx_uint16 vid;              /**< {id vlan} VID of the outer tag. */
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
    vx_uint8 gem_subpid;          /**< GEM port that the packet came by, as the engine numbers it. */
    vx_uint8 vtag_cnt;            /**< {0..2} VLAN tags of the packet. */
    vx_uint8 outer_tpid_enc;      /**< {lmq_fe_cls_tpid_enc_e} TPID of the outer tag. */
    vx_uint8 outer_dot1p;         /**< {0..7} Priority in the outer tag. */
    vx_uint8 outer_de;            /**< {0..1} Drop eligible bit of the outer tag. */
    vx_uint16 outer_vid;          /**< {id vlan} VID of the outer tag. */
    vx_uint8 inner_tpid_enc;      /**< {lmq_fe_cls_tpid_enc_e} TPID of the inner tag. */
    vx_uint8 inner_dot1p;         /**< {0..7} Priority in the inner tag. */
    vx_uint8 inner_de;            /**< {0..1} Drop eligible bit of the inner tag. */
    vx_uint16 inner_vid;          /**< {id vlan} VID of the inner tag. */
    vx_uint16 ev2pt;              /**< EtherType of the packet's payload. */
    vx_boolean bc_dst_mac_flag;   /**< The packet goes to the broadcast address. */
    vx_boolean mc_dst_mac_flag;   /**< The packet goes to a multicast address. */
    vx_boolean not_ipv4_pkt_flag; /**< The packet is anything but IPv4. */
    vx_boolean not_ipv6_pkt_flag; /**< The packet is anything but IPv6. */
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
