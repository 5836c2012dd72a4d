/**
 * @file
 * @brief Classifier key structures.
 */
#ifndef LMQ_CLASSIFIER_KEY_H
#define LMQ_CLASSIFIER_KEY_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef enum vx_fe_port_type_t LMQ_ENUM_INT {
    VX_FE_DST_PORT = 0,
    VX_FE_SRC_PORT = 1,
} vx_fe_port_type_t;

typedef enum ip_frag_state_e LMQ_ENUM_INT {
    LMQ_IP_FRAG_STATE_IGNORE = 0,
    LMQ_IP_FRAG_STATE_FIRST = 1,
    LMQ_IP_FRAG_STATE_NOT_FIRST = 2,
} ip_frag_state_e;

typedef enum lmq_fe_cls_addr_e LMQ_ENUM_INT {
    LMQ_FE_CLS_ADDR_MAC = 0,
    LMQ_FE_CLS_ADDR_IPV4 = 1,
    LMQ_FE_CLS_ADDR_IPV6 = 2,
} lmq_fe_cls_addr_e;

typedef enum lmq_fe_cls_addr_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_ADDR_DST = 0,
    LMQ_FE_CLS_ADDR_SRC = 1,
} lmq_fe_cls_addr_type_e;

typedef enum lmq_fe_cls_tpid_enc_e LMQ_ENUM_INT {
    LMQ_FE_CLS_TPID_NO_MATCH = 0,
    LMQ_FE_CLS_TPID_USR_1 = 1,
    LMQ_FE_CLS_TPID_USR_2 = 2,
    LMQ_FE_CLS_TPID_USR_3 = 3,
    LMQ_FE_CLS_TPID_USR_4 = 4,
} lmq_fe_cls_tpid_enc_e;

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
    LMQ_FE_CLS_SPL_EV2PT_NONE = 15,
} lmq_fe_cls_spl_ev2pt_enc_e;

typedef enum lmq_fe_cls_vtag_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_TAG_DONT_CARE = 0,
    LMQ_FE_CLS_TAG_UNTAGGED = 1,
    LMQ_FE_CLS_TAG_SINGLE = 2,
    LMQ_FE_CLS_TAG_DOUBLE = 3,
    LMQ_FE_CLS_TAG_PRIORITY = 4,
} lmq_fe_cls_vtag_type_e;

typedef enum lmq_fe_cls_l4_port_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_L4_PORT_DST = 0,
    LMQ_FE_CLS_L4_PORT_SRC = 1,
} lmq_fe_cls_l4_port_type_e;

typedef enum lmq_fe_cls_ip_fragment_state_e LMQ_ENUM_INT {
    LMQ_FE_CLS_IP_NO_FRAGMENT = 0,
    LMQ_FE_CLS_IP_FIRST_FRAGMENT = 1,
    LMQ_FE_CLS_IP_NON_FIRST_FRAG = 2,
} lmq_fe_cls_ip_fragment_state_e;

typedef enum lmq_fe_cls_spcl_hdr_e LMQ_ENUM_INT {
    LMQ_FE_CLS_SPCL_HDR_L2_PKT_DYNA = 0,
    LMQ_FE_CLS_SPCL_HDR_IP_PKT_DYNA = 1,
    LMQ_FE_CLS_SPCL_HDR_TCP_UDP_PKT_DYNA = 2,
    LMQ_FE_CLS_SPCL_HDR_STATIC = 3,
} lmq_fe_cls_spcl_hdr_e;

typedef enum vx_fe_addr_type_t LMQ_ENUM_INT {
    VX_FE_LMQ_DST_ADDR = 0,
    VX_FE_LMQ_SRC_ADDR = 1,
} vx_fe_addr_type_t;

typedef struct {
    vx_mac_addr_t mac_da;
    vx_uint16 eth_type;
    vx_uint16 tpid;
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_da_etype_t;

typedef struct {
    vx_mac_addr_t mac_sa;
    vx_mac_addr_t mac_da_low;
    vx_mac_addr_t mac_da_high;
    vx_uint16 eth_type;
    vx_uint16 tpid;
    union {
        struct {
            vx_uint32 mac_sa : 1;
            vx_uint32 mac_da_range : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_range_etype_t;

typedef struct {
    vx_fe_addr_type_t mac_addr_type;
    vx_mac_addr_t mac_addr;
    vx_uint8 vlan_tag_cnt;
    vx_boolean pri_tag_pkt;
    vx_vid_t o_pbit;
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

typedef struct {
    vx_boolean rsvd_mac;
    vx_boolean bc_mac;
    vx_boolean mc_mac;
    vx_uint16 eth_type;
    vx_uint16 tpid;
    vx_uint8 vlan_tag_cnt;
    vx_boolean pri_tag_pkt;
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

typedef struct {
    vx_boolean bc_mac;
    vx_boolean mc_mac;
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_vid_t o_vid_hi;
    vx_vid_t o_vid_lo;
    union {
        struct {
            vx_uint32 bc_mac : 1;
            vx_uint32 mc_mac : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vlan_tag_cnt : 1;
            vx_uint32 o_vid_range : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_vlan_range_t;

typedef struct {
    vx_boolean bc_mac;
    vx_boolean mc_mac;
    vx_uint16 eth_type;
    vx_vid_t o_vid;
    vx_vid_t i_vid;
    union {
        struct {
            vx_uint32 bc_mac : 1;
            vx_uint32 mc_mac : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 vid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_double_vlan_t;

typedef struct {
    vx_uint16 gem_port_id;
    vx_boolean bc_mac;
    vx_boolean mc_mac;
    vx_boolean non_ipv4;
    vx_boolean non_ipv6;
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_uint16 o_tpid;
    vx_uint8 o_pbit;
    vx_uint8 o_de;
    vx_vid_t o_vid;
    vx_uint16 i_tpid;
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

typedef struct {
    vx_mac_addr_t mac_da;
    vx_uint8 mac_da_mask;
    vx_l2_spcl_pkt_type_bitmap_for_cls_t pkt_type_bitmap;
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 mac_da_mask : 1;
            vx_uint32 pkt_type_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ctrl_pkt_t;

typedef struct {
    vx_uint16 gem_port_id;
    vx_mac_addr_t mac_da;
    vx_l2_spcl_pkt_type_bitmap_for_cls_t pkt_type_bitmap;
    union {
        struct {
            vx_uint32 mac_da : 1;
            vx_uint32 pkt_type_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_subpid_ctrl_pkt_t;

typedef struct {
    vx_boolean rsvd_mac;
    vx_boolean ipv4_mc_mac;
    vx_boolean my_mac;
    vx_uint8 mac_da_low;
    vx_uint16 eth_type;
    vx_uint16 o_tpid;
    vx_uint8 ip_proto;
    vx_uint8 icmp_type;
    vx_uint16 l4p_src_hi;
    vx_uint16 l4p_src_lo;
    vx_uint16 l4p_dst_hi;
    vx_uint16 l4p_dst_lo;
    vx_uint32 custom_pkt_fld_bitmap;
    union {
        struct {
            vx_uint32 spcl_mac_da : 1;
            vx_uint32 mac_da_low : 1;
            vx_uint32 eth_type : 1;
            vx_uint32 tpid : 1;
            vx_uint32 ip_proto : 1;
            vx_uint32 icmp_type : 1;
            vx_uint32 l4p_src_range : 1;
            vx_uint32 l4p_dst_range : 1;
            vx_uint32 custom_pkt_fld_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_mac_ip_proto_t;

typedef struct {
    vx_uint16 gem_port_id;
    vx_uint16 spid;
    vx_mac_addr_t mac_da;
    vx_mac_addr_t mac_sa;
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_boolean pri_tag_pkt;
    vx_uint16 o_tpid;
    vx_vid_t o_vid;
    vx_uint8 o_pbit;
    vx_in_addr_t ip_sa;
    vx_uint8 ip_sa_unmask_len;
    vx_in_addr_t ip_da;
    vx_uint8 ip_da_unmask_len;
    vx_uint8 ip_proto;
    vx_uint8 dscp_tos;
    vx_uint8 ip_frag_stat;
    vx_uint8 ip_opt_flag;
    vx_uint8 icmp_type;
    vx_uint8 igmp_type;
    vx_uint16 l4p_src_hi;
    vx_uint16 l4p_src_lo;
    vx_uint16 l4p_dst_hi;
    vx_uint16 l4p_dst_lo;
    vx_uint8 tcp_flags;
    vx_uint32 custom_pkt_fld_bitmap;
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
            vx_uint32 l4p_src_range : 1;
            vx_uint32 l4p_dst_range : 1;
            vx_uint32 tcp_flags : 1;
            vx_uint32 custom_pkt_fld_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ipv4_long_t;

typedef struct {
    vx_fe_addr_type_t ip_addr_type;
    vx_in_addr_t ip_addr;
    vx_uint8 ip_addr_unmask_len;
    vx_uint8 ip_proto;
    vx_uint8 dscp_tos;
    vx_fe_port_type_t l4p_type;
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

typedef struct {
    vx_uint16 gem_port_id;
    vx_uint16 spid;
    vx_mac_addr_t mac_da;
    vx_mac_addr_t mac_sa;
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_boolean pri_tag_pkt;
    vx_uint16 o_tpid;
    vx_vid_t o_vid;
    vx_uint8 o_pbit;
    vx_in6_addr_t ip_sa;
    vx_uint8 ip_sa_unmask_len;
    vx_in6_addr_t ip_da;
    vx_uint8 ip_da_unmask_len;
    vx_uint8 ip_proto;
    vx_uint8 tc;
    vx_uint32 flow_label;
    vx_uint8 ip_frag_stat;
    vx_uint8 ip_opt_flag;
    vx_uint8 icmp_type;
    vx_uint16 l4p_src_hi;
    vx_uint16 l4p_src_lo;
    vx_uint16 l4p_dst_hi;
    vx_uint16 l4p_dst_lo;
    vx_uint8 tcp_flags;
    vx_uint32 custom_pkt_fld_bitmap;
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
            vx_uint32 l4p_src_range : 1;
            vx_uint32 l4p_dst_range : 1;
            vx_uint32 tcp_flags : 1;
            vx_uint32 custom_pkt_fld_bitmap : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_cl_key_ipv6_long_t;

typedef struct {
    vx_fe_addr_type_t ip_addr_type;
    vx_in6_addr_t ip_addr;
    vx_uint8 ip_addr_unmask_len;
    vx_uint8 ip_proto;
    vx_uint8 tc;
    vx_uint32 flow_label;
    vx_fe_port_type_t l4p_type;
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

typedef struct {
    vx_uint16 eth_type;
    vx_uint8 vlan_tag_cnt;
    vx_uint16 o_tpid;
    vx_uint8 o_pbit;
    vx_uint8 o_de;
    vx_vid_t o_vid;
    vx_uint16 i_tpid;
    vx_uint8 i_pbit;
    vx_uint8 i_de;
    vx_vid_t i_vid;
    vx_uint8 dscp;
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

typedef struct {
    vx_uint8 gem_subpid;
    vx_uint16 spid;
    vx_mac_addr_t src_mac_addr;
    vx_mac_addr_t dst_mac_addr;
    vx_uint16 vid;
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_uint8 dot1p;
    vx_uint16 ev2pt;
    vx_in_addr_t src_ip_addr;
    vx_uint8 src_ip_mask;
    vx_in_addr_t dst_ip_addr;
    vx_uint8 dst_ip_mask;
    vx_uint8 ip_proto;
    vx_uint8 ip_dscp;
    vx_boolean ip_option;
    lmq_fe_cls_ip_fragment_state_e ip_frag_state;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_uint8 l4_src_hit_bitmap;
    vx_uint8 l4_dst_hit_bitmap;
    vx_uint8 spcl_key_hit_bitmap;
    vx_uint8 tcp_flags;
    vx_uint8 icmp_type;
    vx_uint8 igmp_type;
    vx_boolean pri_tag_flag;
    vx_uint8 vtag_cnt;
    vx_boolean prsr_len_excd;
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

typedef struct {
    vx_in_addr_t ip_addr;
    lmq_fe_cls_addr_type_e ip_addr_type;
    vx_uint8 ip_mask;
    vx_uint8 ip_proto;
    vx_uint8 ip_dscp;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_boolean prsr_len_excd;
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

typedef struct {
    vx_uint8 gem_subpid;
    vx_uint16 spid;
    vx_mac_addr_t src_mac_addr;
    vx_mac_addr_t dst_mac_addr;
    vx_uint16 vid;
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_uint8 dot1p;
    vx_uint16 ev2pt;
    vx_in6_addr_t src_ip_addr;
    vx_uint8 src_ip_mask;
    vx_in6_addr_t dst_ip_addr;
    vx_uint8 dst_ip_mask;
    vx_uint8 ip_proto;
    vx_uint8 ip_tc;
    vx_uint32 ipv6_flow_label;
    vx_boolean ip_option;
    lmq_fe_cls_ip_fragment_state_e ip_frag_state;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_uint8 l4_src_hit_bitmap;
    vx_uint8 l4_dst_hit_bitmap;
    vx_uint8 spcl_key_hit_bitmap;
    vx_uint8 tcp_flags;
    vx_uint8 icmp_type;
    vx_boolean pri_tag_flag;
    vx_uint8 vtag_cnt;
    vx_boolean prsr_len_excd;
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

typedef struct {
    vx_in6_addr_t ip_addr;
    lmq_fe_cls_addr_type_e ip_addr_type;
    vx_uint8 ip_mask;
    vx_uint8 ip_proto;
    vx_uint8 ip_tc;
    vx_uint32 ipv6_flow_label;
    vx_uint16 l4_port;
    lmq_fe_cls_l4_port_type_e l4_port_type;
    vx_boolean prsr_len_excd;
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

typedef struct {
    vx_uint16 spid;
    vx_uint16 vid;
    vx_uint8 mirror_grp_id;
    vx_boolean mirror_pkt_flag;
    union {
        struct {
            vx_uint32 spid : 1;
            vx_uint32 vid : 1;
            vx_uint32 mirror_grp_id : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mirror_key_s;

typedef struct {
    vx_mac_addr_t mac_addr;
    lmq_fe_cls_addr_type_e mac_addr_type;
    vx_uint16 vid;
    vx_uint8 dot1p;
    vx_boolean pri_tag_flag;
    vx_uint8 vtag_cnt;
    vx_uint8 age_timer_offset;
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

typedef struct {
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_boolean dst_mac_range_flag;
    vx_mac_addr_t mac_addr;
    lmq_fe_cls_addr_type_e mac_addr_type;
    vx_uint16 ev2pt;
    vx_uint8 age_timer_offset;
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

typedef struct {
    vx_mac_addr_t dst_mac_addr;
    vx_uint8 mac_mask;
    vx_boolean spl_pkt_en;
    vx_boolean ev2pt_en;
    vx_uint32 splpktvect_ev2pt;
    union {
        struct {
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 mac_mask : 1;
            vx_uint32 spl_ev2pt : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ctrl_pkt_key_s;

typedef struct {
    lmq_fe_cls_tpid_enc_e tpid_enc;
    lmq_fe_cls_spl_ev2pt_enc_e ev2pt_enc;
    vx_boolean rsvd_dst_mac_flag;
    vx_boolean bc_dst_mac_flag;
    vx_boolean mc_dst_mac_flag;
    vx_boolean pri_tag_flag;
    vx_uint8 vtag_cnt;
    vx_uint16 vid;
    vx_boolean bc_llid_flag;
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

typedef struct {
    lmq_fe_cls_spl_ev2pt_enc_e ev2pt_enc;
    vx_boolean vid_range_flag;
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
    vx_boolean bc_dst_mac_flag;
    vx_boolean mc_dst_mac_flag;
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

typedef struct {
    lmq_fe_cls_tpid_enc_e tpid_enc;
    vx_uint8 dst_mac_addr_low;
    vx_uint16 ev2pt;
    vx_uint8 ip_proto;
    vx_uint8 spcl_key_hit_bitmap;
    vx_uint8 l4_src_hit_bitmap;
    vx_uint8 l4_dst_hit_bitmap;
    vx_uint8 icmp_type;
    vx_boolean prsr_len_excd;
    vx_boolean cfi_flag;
    vx_boolean rsvd_dst_mac_flag;
    vx_boolean my_mac_flag;
    vx_boolean mc_ip_flag;
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
            vx_uint32 da_flag : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_proto_key_s;

typedef struct {
    lmq_fe_cls_addr_e addr_type;
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
        vx_in6_addr_t ipv6;
    } addr;
    vx_uint16 vid;
    vx_boolean prsr_len_excd;
    vx_boolean mcast_addr_type;
    vx_boolean grp_id_vld;
    vx_uint8 grp_id;
    union {
        struct {
            vx_uint32 addr : 1;
            vx_uint32 vid : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_mcast_key_s;

typedef struct {
    vx_uint8 gem_subpid;
    vx_uint8 vtag_cnt;
    vx_uint8 outer_tpid_enc;
    vx_uint8 outer_dot1p;
    vx_uint8 outer_de;
    vx_uint16 outer_vid;
    vx_uint8 inner_tpid_enc;
    vx_uint8 inner_dot1p;
    vx_uint8 inner_de;
    vx_uint16 inner_vid;
    vx_uint16 ev2pt;
    vx_boolean bc_dst_mac_flag;
    vx_boolean mc_dst_mac_flag;
    vx_boolean not_ipv4_pkt_flag;
    vx_boolean not_ipv6_pkt_flag;
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

typedef struct {
    vx_uint8 gem_subpid;
    lmq_fe_cls_addr_e addr_type;
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
        vx_in6_addr_t ipv6;
    } addr;
    vx_uint16 vid;
    vx_boolean prsr_len_excd;
    vx_boolean mcast_addr_type;
    vx_boolean grp_id_vld;
    vx_uint8 grp_id;
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 addr : 1;
            vx_uint32 vid : 1;
            vx_uint32 prsr_len_excd : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_gem_mcast_key_s;

typedef struct {
    vx_uint8 gem_subpid;
    vx_mac_addr_t dst_mac_addr;
    vx_boolean spl_pkt_en;
    vx_uint32 splpktvect_ev2pt;
    union {
        struct {
            vx_uint32 gem_subpid : 1;
            vx_uint32 dst_mac_addr : 1;
            vx_uint32 ev2pt : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_gem_ctrl_pkt_key_s;

typedef struct {
    vx_uint8 sub_pid;
    lmq_fe_cls_addr_e dest_addr_type;
    union {
        vx_mac_addr_t mac;
        vx_in_addr_t ipv4;
    } dest_addr;
    vx_in_addr_t src_addr_ipv4;
    vx_uint16 vid;
    union {
        struct {
            vx_uint32 sub_pid : 1;
            vx_uint32 dest_addr : 1;
            vx_uint32 vid : 1;
            vx_uint32 src_addr : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_fe_cls_ipv4_mcast_pkt_key_s;

#ifdef __cplusplus
}
#endif

#endif
