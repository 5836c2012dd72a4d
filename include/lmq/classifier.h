/**
 * @file
 * @brief The packet classifier: control, domains, rules with their keys and forwarding records, mirroring and counters.
 *
 * The entries of a port's classifier are divided into domains. An entry holds a rule, a rule keys of one type, and each
 * key has a forwarding record. Rules and records are named by their domain and an offset in it.
 */
#ifndef LMQ_CLASSIFIER_H
#define LMQ_CLASSIFIER_H

#include "lmq/classifier_key.h"
#include "lmq/flow.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Sizes of the classifier */
/** @{ */

#define VX_CLS_DOMAIN_ID_NUM 16                  /**< Domains of a port. */
#define LMQ_CLS_DOMAIN_NAME_LENGTH 20            /**< Bytes of vx_cls_domain_res_t.domain_name. */
#define LMQ_FE_CL_MAX_ENTRY 48                   /**< Entries of a classifier, shared by its domains. */
#define LMQ_FE_MAX_CL_ENTRY 48                   /**< The same, by another name. */
#define MAX_KEY_PER_ENTRY 8                      /**< Keys that an entry holds at most; see vx_cls_rule_cfg_t. */
#define LMQ_FE_CLS_NUM_L4_PORT_ENTRY 8           /**< Ranges of TCP or UDP ports, for each vx_cls_l4_port_type_t. */
#define LMQ_FE_CLS_NUM_SPCL_KEY_ENTRY 8          /**< Special patterns of a port. */
#define LMQ_MAX_SPL_KEY_ENTRY 8                  /**< The same, by another name. */
#define LMQ_FE_CLS_NUM_MAC_FILTER_AGING_ENTRY 64 /**< Entries of the aging of MAC filters. */
#define LMQ_FE_CLS_MAX_PRIORITY 30               /**< Highest priority of a rule. */
#define LMQ_FE_CLS_INVALID_RULE (0xFFFF)         /**< No rule. */

/** @} */

/** @name Forwarding engines */
/** @{ */

/** @brief A forwarding engine, by the traffic that it sees. */
typedef enum lmq_fe_id_e LMQ_ENUM_INT {
    LMQ_FE_UPSTREAM = 0,   /**< From the UNIs towards the SNI. */
    LMQ_FE_DOWNSTREAM = 1, /**< From the SNI towards the UNIs. */
    LMQ_FE_CPU_MA = 2,     /**< Between the CPU and the packet memory. */
} lmq_fe_id_e;

/** @brief A forwarding engine, by the ports behind it: Ethernet, PON or CPU. */
typedef enum vx_lmq_fe_instance_t LMQ_ENUM_INT {
    LMQ_FE_GE_ID = 0,  /**< The Ethernet ports. */
    LMQ_FE_PON_ID = 1, /**< The PON port. */
    LMQ_FE_MA_ID = 2,  /**< The CPU. */
} vx_lmq_fe_instance_t;

/** @} */

/** @name Control of a port's classifier */
/** @{ */

/** @brief What holds for all rules of a port. */
typedef struct {
    vx_mac_addr_t mac_da_high;      /**< Last address of the range that dst_mac_range_flag of a key means. */
    vx_mac_addr_t mac_da_low;       /**< First address of that range. */
    vx_boolean mac_filter_aging_en; /**< MAC filters age. */
    vx_boolean tos_ecn_msk_en;      /**< Leave the ECN bits (RFC 3168) out of the comparison. */
    vx_boolean ce_msk_cfi_flg;      /**< Leave the CFI bit of the tag out of the comparison. */
    struct {
        vx_uint32 mac_da_range : 1; /**< mac_da_high and mac_da_low. */
        vx_uint32 mac_filter_aging_en : 1;
        vx_uint32 tos_ecn_msk_en : 1;
        vx_uint32 ce_msk_cfi_flg : 1;
        vx_uint32 rsvd : 28; /**< Reserved. */
    } valid;                 /**< Which members count. */
} vx_cls_cl_ctrl_t;

/**
 * @brief Puts the classifier of each port into the state after a reset: no domain, rule or record.
 * @par Effect: resets
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_init(vx_dev_id_t dev_id);

/**
 * @brief Sets the flagged members of the control of a port's classifier.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     The control; its `valid` says what is set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg);

/**
 * @brief Reads the control of a port's classifier.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     The control, with all flags of `valid` set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg);

/** @} */

/** @name Domains */
/** @{ */

/** @brief A domain: a part of the classifier's entries. */
typedef struct {
    vx_uint8 domain_name[20]; /**< {text} Without a terminator; the bytes behind the name are 0. */
    vx_uint8 cl_entry_start;  /**< {0..LMQ_FE_CL_MAX_ENTRY} First entry of the domain. */
    vx_uint8 cl_entry_length; /**< {0..LMQ_FE_CL_MAX_ENTRY} How many entries it has; 0: none. */
} vx_cls_domain_res_t;

/**
 * @brief Gives a domain its entries. Domains of a port share none.
 *
 * A domain that has rules keeps its place until they are cleared.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_id   The port.
 * @param[in] domain_id {id classifier-domain} The domain.
 * @param[in] p_cfg     The domain; a length of 0 takes its entries away.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_domain_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_cls_domain_res_t *p_cfg);

/**
 * @brief Reads which entries a domain of a port's classifier has.
 * @par Effect: reads
 * @param[in]  dev_id    The device.
 * @param[in]  port_id   The port.
 * @param[in]  domain_id {id classifier-domain} The domain.
 * @param[out] p_cfg     The domain; zeros if it was never set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_domain_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_cls_domain_res_t *p_cfg);

/**
 * @brief Deletes all rules of a domain of a port's classifier, with their records.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_id   The port.
 * @param[in] domain_id {id classifier-domain} The domain.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_domain_rule_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id);

/** @} */

/** @name Rules */
/** @{ */

/** @brief Which alternative of vx_cls_rule_cfg_t.cls_key counts. */
typedef enum lmq_fe_cls_key_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_KEY_IPV4_LONG = 0,     /**< One key: all of an IPv4 packet. */
    LMQ_FE_CLS_KEY_IPV4_SHORT = 1,    /**< Four keys: one IPv4 address and one port. */
    LMQ_FE_CLS_KEY_IPV6_LONG = 2,     /**< One key: all of an IPv6 packet. */
    LMQ_FE_CLS_KEY_IPV6_SHORT = 3,    /**< One key: one IPv6 address and one port. */
    LMQ_FE_CLS_KEY_MIRROR = 4,        /**< Eight keys: packets to mirror. */
    LMQ_FE_CLS_KEY_MAC_VLAN = 5,      /**< Four keys: one MAC address and the outer tag. */
    LMQ_FE_CLS_KEY_MAC_ETYPE = 6,     /**< Four keys: one MAC address and the EtherType. */
    LMQ_FE_CLS_KEY_CTRL_PKT = 7,      /**< Four keys: control packets. */
    LMQ_FE_CLS_KEY_VLAN = 8,          /**< Eight keys: one VID. */
    LMQ_FE_CLS_KEY_VLAN_RANGE = 9,    /**< Eight keys: a range of VIDs, or both VIDs. */
    LMQ_FE_CLS_KEY_PROTO = 10,        /**< Four keys: IP protocol and ports. */
    LMQ_FE_CLS_KEY_MCAST = 11,        /**< Two keys: a multicast group. */
    LMQ_FE_CLS_KEY_MAC_VLAN_C = 12,   /**< Read as LMQ_FE_CLS_KEY_MAC_VLAN. */
    LMQ_FE_CLS_KEY_MAC_ETYPE_D = 13,  /**< Read as LMQ_FE_CLS_KEY_MAC_ETYPE. */
    LMQ_FE_CLS_KEY_VLAN_E = 14,       /**< Read as LMQ_FE_CLS_KEY_VLAN. */
    LMQ_FE_CLS_KEY_EXT_VLAN = 16,     /**< Four keys: all of both tags. */
    LMQ_FE_CLS_KEY_GEM_MCAST = 17,    /**< Two keys: a multicast group, on a GEM port. */
    LMQ_FE_CLS_KEY_GEM_CTRL_PKT = 18, /**< Four keys: control packets of a GEM port. */
    LMQ_FE_CLS_KEY_IPV4_MCAST = 19,   /**< Three keys: a multicast group and a source. */
    LMQ_FE_CLS_KEY_TYPE_END = 1,      /**< No end of the list: a value in use. */
} lmq_fe_cls_key_type_e;

/** @brief A rule: one entry of the classifier, with as many keys as fit into it. */
typedef struct {
    lmq_fe_cls_key_type_e key_type; /**< Which alternative of cls_key counts. */
    vx_boolean entryvalid;          /**< The entry is in use. */
    union {
        /** {if LMQ_FE_CLS_KEY_IPV4_LONG} All of an IPv4 packet. */
        lmq_fe_cls_ipv4_long_key_s ipv4_long_key;
        /** {if LMQ_FE_CLS_KEY_IPV4_SHORT} One IPv4 address and one port. */
        lmq_fe_cls_ipv4_short_key_s ipv4_short_key[4];
        /** {if LMQ_FE_CLS_KEY_IPV6_LONG} All of an IPv6 packet. */
        lmq_fe_cls_ipv6_long_key_s ipv6_long_key;
        /** {if LMQ_FE_CLS_KEY_IPV6_SHORT} One IPv6 address and one port. */
        lmq_fe_cls_ipv6_short_key_s ipv6_short_key;
        /** {if LMQ_FE_CLS_KEY_MIRROR} Packets to mirror. */
        lmq_fe_cls_mirror_key_s mirror_key[8];
        /** {if LMQ_FE_CLS_KEY_MAC_VLAN or LMQ_FE_CLS_KEY_MAC_VLAN_C} One MAC address and the outer tag. */
        lmq_fe_cls_mac_vlan_key_s mac_vlan_key[4];
        /** {if LMQ_FE_CLS_KEY_MAC_ETYPE or LMQ_FE_CLS_KEY_MAC_ETYPE_D} One MAC address and the EtherType. */
        lmq_fe_cls_mac_etype_key_s mac_etype_key[4];
        /** {if LMQ_FE_CLS_KEY_CTRL_PKT} Control packets. */
        lmq_fe_cls_ctrl_pkt_key_s ctrl_pkt_key[4];
        /** {if LMQ_FE_CLS_KEY_VLAN or LMQ_FE_CLS_KEY_VLAN_E} One VID. */
        lmq_fe_cls_vlan_key_s vlan_key[8];
        /** {if LMQ_FE_CLS_KEY_VLAN_RANGE} A range of VIDs, or both VIDs. */
        lmq_fe_cls_vlan_range_key_s vlan_range_key[8];
        /** {if LMQ_FE_CLS_KEY_PROTO} IP protocol and ports. */
        lmq_fe_cls_proto_key_s proto_key[4];
        /** {if LMQ_FE_CLS_KEY_MCAST} A multicast group. */
        lmq_fe_cls_mcast_key_s mcast_key[2];
        /** {if LMQ_FE_CLS_KEY_EXT_VLAN} All of both tags. */
        lmq_fe_cls_ext_vlan_key_s ext_vlan_key[4];
        /** {if LMQ_FE_CLS_KEY_GEM_MCAST} A multicast group, on a GEM port. */
        lmq_fe_cls_gem_mcast_key_s gem_mcast_key[2];
        /** {if LMQ_FE_CLS_KEY_GEM_CTRL_PKT} Control packets of a GEM port. */
        lmq_fe_cls_gem_ctrl_pkt_key_s gem_ctrl_pkt_key[4];
        /** {if LMQ_FE_CLS_KEY_IPV4_MCAST} A multicast group and a source. */
        lmq_fe_cls_ipv4_mcast_pkt_key_s ipv4_mcast_key[3];
        /** First word of the others, whichever counts. */
        vx_uint32 key;
    } cls_key; /**< {by key_type} The keys. */
} vx_cls_rule_cfg_t;

/**
 * @brief Writes a rule of a port's classifier.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] port_id     The port.
 * @param[in] domain_id   {id classifier-domain} The domain.
 * @param[in] rule_offset {0..(LMQ_FE_CL_MAX_ENTRY - 1)} Entry of the domain, from 0; less than its cl_entry_length.
 * @param[in] p_cfg       The rule; key_type says which keys are read, entryvalid FALSE deletes it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_rule_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset,
                            vx_cls_rule_cfg_t *p_cfg);

/**
 * @brief Reads a rule of a port's classifier.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     The port.
 * @param[in]  domain_id   {id classifier-domain} The domain.
 * @param[in]  rule_offset {0..(LMQ_FE_CL_MAX_ENTRY - 1)} Entry of the domain, from 0; less than its cl_entry_length.
 * @param[out] p_cfg       The rule; zeros if the entry is not in use.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_rule_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset,
                            vx_cls_rule_cfg_t *p_cfg);

/** @} */

/** @name What becomes of a packet */
/** @{ */

/** @brief Where the GEM port of a packet comes from. */
typedef enum lmq_fe_cls_gem_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_GEM_SEL_CLS = 0,          /**< Member gem_subpid of the record. */
    LMQ_FE_CLS_GEM_SEL_DSCP_MAP_TBL = 1, /**< The port's DSCP map. */
    LMQ_FE_CLS_GEM_SEL_INVALID_GEM = 2,  /**< None: the packet gets no GEM port. */
} lmq_fe_cls_gem_sel_e;

/** @brief What happens to a tag. */
typedef enum lmq_fe_cls_vlan_cmd_e LMQ_ENUM_INT {
    LMQ_FE_CLS_VLAN_CMD_NOP = 0,  /**< It stays as it is. */
    LMQ_FE_CLS_VLAN_CMD_PUSH = 1, /**< It is added. */
    LMQ_FE_CLS_VLAN_CMD_POP = 2,  /**< It is removed. */
    LMQ_FE_CLS_VLAN_CMD_SWAP = 3, /**< Its content is replaced. */
} lmq_fe_cls_vlan_cmd_e;

/** @brief TPID of the inner tag. */
typedef enum lmq_fe_cls_inner_tpid_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_INNER_TPID_SEL_NOP = 0,               /**< It stays as it is. */
    LMQ_FE_CLS_INNER_TPID_SEL_8100 = 1,              /**< 0x8100 (IEEE 802.1Q). */
    LMQ_FE_CLS_INNER_TPID_SEL_USR_1 = 2,             /**< The first configured one. */
    LMQ_FE_CLS_INNER_TPID_SEL_USR_2 = 3,             /**< The second configured one. */
    LMQ_FE_CLS_INNER_TPID_SEL_USR_3 = 4,             /**< The third configured one. */
    LMQ_FE_CLS_INNER_TPID_SEL_DST_PORT_DEF = 5,      /**< The default of the destination port. */
    LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_INNER_TPID = 6, /**< That of the inner tag as received. */
    LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_OUTER_TPID = 7, /**< That of the outer tag as received. */
} lmq_fe_cls_inner_tpid_sel_e;

/** @brief TPID of the outer tag. */
typedef enum lmq_fe_cls_outer_tpid_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_OUTER_TPID_SEL_NOP = 0,               /**< It stays as it is. */
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_1 = 1,             /**< The first configured one. */
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_2 = 2,             /**< The second configured one. */
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_3 = 3,             /**< The third configured one. */
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_4 = 4,             /**< The fourth configured one. */
    LMQ_FE_CLS_OUTER_TPID_SEL_DST_PORT_DEF = 5,      /**< The default of the destination port. */
    LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_INNER_TPID = 6, /**< That of the inner tag as received. */
    LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_OUTER_TPID = 7, /**< That of the outer tag as received. */
} lmq_fe_cls_outer_tpid_sel_e;

/** @brief Which VID the membership check at egress takes. */
typedef enum lmq_fe_cls_egr_chk_vlan_e LMQ_ENUM_INT {
    LMQ_FE_CLS_EGR_CHK_VLAN_OUTER = 0,      /**< That of the outer tag. */
    LMQ_FE_CLS_EGR_CHK_VLAN_INNER = 1,      /**< That of the inner tag. */
    LMQ_FE_CLS_EGR_CHK_VLAN_CL_TOP_VID = 2, /**< Member top_vid of the record. */
    LMQ_FE_CLS_EGR_CHK_VLAN_DONT_CARE = 3,  /**< None: there is no check. */
} lmq_fe_cls_egr_chk_vlan_e;

/** @brief DSCP of the packet: as received, as the record says, or mapped. */
typedef enum lmq_fe_cls_dscp_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_DSCP_SEL_RX_PKT = 0,       /**< As received. */
    LMQ_FE_CLS_DSCP_SEL_CL_VAL = 1,       /**< Member dscp of the record. */
    LMQ_FE_CLS_DSCP_SEL_MAP_RX_DSCP = 2,  /**< Mapped from the DSCP as received. */
    LMQ_FE_CLS_DSCP_SEL_MAP_RX_DOT1P = 3, /**< Mapped from the priority as received. */
} lmq_fe_cls_dscp_sel_e;

/** @brief Priority of a tag: as received, as the record says, mapped, or the port's. */
typedef enum lmq_fe_cls_dot1p_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_DOT1P_SEL_RX_PKT = 0,       /**< As received. */
    LMQ_FE_CLS_DOT1P_SEL_CL_VAL = 1,       /**< Member inner_dot1p or top_dot1p of the record. */
    LMQ_FE_CLS_DOT1P_SEL_MAP_RX_DOT1P = 2, /**< Mapped from the priority as received. */
    LMQ_FE_CLS_DOT1P_SEL_MAP_RX_DSCP = 3,  /**< Mapped from the DSCP as received. */
    LMQ_FE_CLS_DOT1P_SEL_PORT_DEF = 4,     /**< The default of the port. */
} lmq_fe_cls_dot1p_sel_e;

/** @brief Class of service of the packet: the port's, as the record says, or mapped. */
typedef enum lmq_fe_cls_cos_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_COS_SEL_PORT_DEF = 0,     /**< The default of the port. */
    LMQ_FE_CLS_COS_SEL_CL_VAL = 1,       /**< Member cos of the record. */
    LMQ_FE_CLS_COS_SEL_MAP_RX_DOT1P = 2, /**< Mapped from the priority as received. */
    LMQ_FE_CLS_COS_SEL_MAP_RX_DSCP = 3,  /**< Mapped from the DSCP as received. */
} lmq_fe_cls_cos_sel_e;

/** @brief Flow that the rate limiter counts the packet for. */
typedef enum lmq_fe_cls_flow_id_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_FLOW_ID_SEL_NO_RATE_LIMIT = 0, /**< None: no rate limit applies. */
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_RX_DOT1P = 1,  /**< Mapped from the priority as received. */
    LMQ_FE_CLS_FLOW_ID_SEL_CL_VAL = 2,        /**< Member flow_id of the record. */
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_RX_DSCP = 3,   /**< Mapped from the DSCP as received. */
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_TX_COS = 4,    /**< Mapped from the class of service that it leaves with. */
} lmq_fe_cls_flow_id_sel_e;

/**
 * @brief Forwarding information (FIB): what becomes of packets that match a key, or none.
 *
 * A flag of `valid` stands for a group of members. The members before the first group are always taken.
 */
typedef struct {
    vx_boolean valid_flag;                /**< The record is in use. */
    vx_boolean permit;                    /**< FALSE: the packet is dropped. */
    vx_boolean permit_filter_dis;         /**< TRUE: `permit` does not filter. */
    vx_boolean permit_priority;           /**< TRUE: `permit` goes before that of other records that match. */
    vx_uint16 dst_port_num;               /**< {id port} Where the packet goes. */
    vx_boolean mirror_enbl;               /**< TRUE: the packet is mirrored. */
    vx_boolean mirror_pkt_src;            /**< Which packet is mirrored: as it came, or as it leaves. */
    lmq_fe_cls_gem_sel_e gem_id_sel;      /**< Where the GEM port comes from. */
    vx_uint8 gem_subpid;                  /**< GEM port, as the engine numbers it; read for LMQ_FE_CLS_GEM_SEL_CLS. */
    lmq_fe_cls_vlan_cmd_e inner_vlan_cmd; /**< What happens to the inner tag. */
    lmq_fe_cls_inner_tpid_sel_e inner_tpid_sel; /**< TPID that is written into the inner tag. */
    vx_uint16 inner_vid;                        /**< {id vlan} VID of an inner tag that is pushed or swapped. */
    vx_boolean top_vid_sel;                     /**< Selects where the VID of the outer tag comes from. */
    lmq_fe_cls_vlan_cmd_e top_vlan_cmd;         /**< What happens to the outer tag, which is the top one. */
    lmq_fe_cls_outer_tpid_sel_e top_tpid_sel;   /**< TPID that is written into the outer tag. */
    vx_uint16 top_vid;                          /**< {id vlan} VID of an outer tag that is pushed or swapped. */
    lmq_fe_cls_egr_chk_vlan_e egr_chk_vlan_sel; /**< VID that the membership check at egress takes. */
    vx_boolean outer_de_override_enbl;          /**< TRUE: outer_de_value is written into the outer tag. */
    vx_uint8 outer_de_value;                    /**< {0..1} Drop eligible bit of the outer tag. */
    vx_boolean inner_de_override_enbl;          /**< TRUE: inner_de_value is written into the inner tag. */
    vx_uint8 inner_de_value;                    /**< {0..1} Drop eligible bit of the inner tag. */
    lmq_fe_cls_dscp_sel_e dscp_sel;             /**< Where the DSCP comes from. */
    vx_uint8 dscp;                              /**< {0..63} DSCP (RFC 2474); read for LMQ_FE_CLS_DSCP_SEL_CL_VAL. */
    lmq_fe_cls_dot1p_sel_e inner_dot1p_sel;     /**< Where the priority in the inner tag comes from. */
    vx_uint8 inner_dot1p;                       /**< {0..7} Priority; read for LMQ_FE_CLS_DOT1P_SEL_CL_VAL. */
    lmq_fe_cls_dot1p_sel_e top_dot1p_sel;       /**< Where the priority in the outer tag comes from. */
    vx_uint8 top_dot1p;                         /**< {0..7} Priority; read for LMQ_FE_CLS_DOT1P_SEL_CL_VAL. */
    lmq_fe_cls_cos_sel_e cos_sel;               /**< Where the class of service comes from. */
    vx_uint8 cos;                               /**< {0..7} Class of service; read for LMQ_FE_CLS_COS_SEL_CL_VAL. */
    vx_boolean learn_dsbl;                      /**< TRUE: the source address is not learnt. */
    vx_boolean learn_limit_permit;              /**< TRUE: the packet passes even if the learning limit is reached. */
    lmq_fe_cls_flow_id_sel_e flow_id_sel;       /**< Flow that the rate limiter counts the packet for. */
    vx_uint8 flow_id;               /**< Its number in the engine; read for LMQ_FE_CLS_FLOW_ID_SEL_CL_VAL. */
    vx_boolean bypass_rate_limiter; /**< TRUE: no rate limit applies. */
    vx_boolean sw_id_sel;           /**< TRUE: sw_id goes with the packet. */
    vx_uint8 sw_id;                 /**< Number handed to software with the packet. */
    union {
        struct {
            vx_uint32 dst_port_fields : 1;   /**< dst_port_num to gem_subpid. */
            vx_uint32 vlan_fields : 1;       /**< inner_vlan_cmd to inner_de_value. */
            vx_uint32 dscp_fields : 1;       /**< dscp_sel and dscp. */
            vx_uint32 dot1p_fields : 1;      /**< inner_dot1p_sel to top_dot1p. */
            vx_uint32 cos_fields : 1;        /**< cos_sel and cos. */
            vx_uint32 learn_fields : 1;      /**< learn_dsbl and learn_limit_permit. */
            vx_uint32 rate_limit_fields : 1; /**< flow_id_sel to bypass_rate_limiter. */
            vx_uint32 sw_id_fields : 1;      /**< sw_id_sel and sw_id. */
        } mask_s;
        vx_uint32 mask;
    } valid; /**< Which groups count. */
} vx_cls_fib_data_t;

/**
 * @brief Writes the flagged groups of the forwarding record of a key.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] port_id    The port.
 * @param[in] domain_id  {id classifier-domain} The domain.
 * @param[in] key_offset Record of the domain, from 0: MAX_KEY_PER_ENTRY for each of its entries.
 * @param[in] p_cfg      The record; its `valid` says which groups are set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset,
                           vx_cls_fib_data_t *p_cfg);

/**
 * @brief Reads the forwarding record of a key.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  port_id    The port.
 * @param[in]  domain_id  {id classifier-domain} The domain.
 * @param[in]  key_offset Record of the domain, from 0: MAX_KEY_PER_ENTRY for each of its entries.
 * @param[out] p_cfg      The record, with all flags of `valid` set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset,
                           vx_cls_fib_data_t *p_cfg);

/** @} */

/** @name Packets that match nothing */
/** @{ */

/**
 * @brief Writes the flagged groups of the record for packets that match no rule.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   The record; its `valid` says which groups are set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_no_match_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg);

/**
 * @brief Reads the record for packets that match no rule.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   The record, with all flags of `valid` set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_no_match_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg);

/**
 * @brief Says for types of keys whether packets that match no key of the type are denied.
 * @par Effect: changes
 * @par Read back: vx_cls_type_no_match_get(key_type_bitmap=0xF7FFF): key_type_bitmap=0xF7FFF
 * @par Changed by: vx_cls_type_no_match_set(port_id)
 * @param[in] dev_id          The device.
 * @param[in] port_id         The port.
 * @param[in] key_type_bitmap {bits} The types to set: bit n is value n of lmq_fe_cls_key_type_e.
 * @param[in] deny_bitmap     {bits} 1: deny. Bits of other types are ignored.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_type_no_match_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap,
                                     vx_uint32 deny_bitmap);

/**
 * @brief Reads for types of keys whether packets that match no key of the type are denied.
 * @par Effect: reads
 * @param[in]  dev_id          The device.
 * @param[in]  port_id         The port.
 * @param[in]  key_type_bitmap {bits} The types to read: bit n is value n of lmq_fe_cls_key_type_e.
 * @param[out] deny_bitmap     {bits} 1: they are denied. Bits of other types are 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_type_no_match_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap,
                                     vx_uint32 *deny_bitmap);

/** @} */

/** @name Ranges of TCP and UDP ports */
/** @{ */

/** @brief Which ports of a packet a range is for. */
typedef enum vx_cls_l4_port_type_t LMQ_ENUM_INT {
    CL_L4_SRC_TCP = 0, /**< Source ports of TCP. */
    CL_L4_SRC_UDP = 1, /**< Source ports of UDP. */
    CL_L4_DST_TCP = 2, /**< Destination ports of TCP. */
    CL_L4_DST_UDP = 3, /**< Destination ports of UDP. */
} vx_cls_l4_port_type_t;

/** @brief A range of TCP or UDP ports. */
typedef struct {
    vx_boolean cmp_en;   /**< The range is in use. */
    vx_uint16 low_port;  /**< First port; not above high_port. */
    vx_uint16 high_port; /**< Last port. */
} vx_cls_l4_port_range_t;

/**
 * @brief Sets a range of TCP or UDP ports that keys of a port can name.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_id   The port.
 * @param[in] port_type Which ports the range is for.
 * @param[in] index     {0..(LMQ_FE_CLS_NUM_L4_PORT_ENTRY - 1)} The range.
 * @param[in] p_cfg     Its ends, the first not above the last.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_l4_port_range_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type,
                                     vx_uint8 index, vx_cls_l4_port_range_t *p_cfg);

/**
 * @brief Reads a range of TCP or UDP ports that keys of a port can name.
 * @par Effect: reads
 * @param[in]  dev_id    The device.
 * @param[in]  port_id   The port.
 * @param[in]  port_type Which ports the range is for.
 * @param[in]  index     {0..(LMQ_FE_CLS_NUM_L4_PORT_ENTRY - 1)} The range.
 * @param[out] p_cfg     Its ends.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_l4_port_range_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type,
                                     vx_uint8 index, vx_cls_l4_port_range_t *p_cfg);

/** @} */

/** @name Special patterns */
/** @{ */

/** @brief Where patterns are looked for: at a fixed offset, or behind a header. */
typedef enum vx_cls_spcl_mode_t LMQ_ENUM_INT {
    CLS_SPCL_MODE_STA = 0, /**< At the offset spcl_glb_hdr_strt_idx. */
    CLS_SPCL_MODE_DYN = 1, /**< Behind the header that the pattern names. */
} vx_cls_spcl_mode_t;

/** @brief Behind which header a pattern is looked for, or at a fixed offset (STA). */
typedef enum vx_cls_spcl_ptn_type_t LMQ_ENUM_INT {
    LMQ_CL_SPCL_PTN_TYPE_L2 = 0,  /**< Behind the header of layer 2. */
    LMQ_CL_SPCL_PTN_TYPE_IP = 1,  /**< Behind the IP header. */
    LMQ_CL_SPCL_PTN_TYPE_L4 = 2,  /**< Behind the TCP or UDP header. */
    LMQ_CL_SPCL_PTN_TYPE_STA = 3, /**< At the fixed offset. */
} vx_cls_spcl_ptn_type_t;

/** @brief Which half of a word a pattern is compared with. */
typedef enum vx_cls_spcl_ptn_cmp_t LMQ_ENUM_INT {
    LMQ_CL_SPCL_PTN_CMP_LO = 0, /**< The low 16 bits. */
    LMQ_CL_SPCL_PTN_CMP_HI = 1, /**< The high 16 bits. */
} vx_cls_spcl_ptn_cmp_t;

/** @brief A special pattern: 16 bits of a packet. */
typedef struct {
    vx_cls_spcl_ptn_type_t spcl_ptn_type; /**< Where it is looked for. */
    vx_cls_spcl_ptn_cmp_t spcl_ptn_cmp;   /**< Which half of the word it is compared with. */
    vx_uint16 spcl_ptn_key;               /**< The 16 bits to look for. */
    vx_uint16 spcl_ptn_mask;              /**< {bits} 1: the bit of spcl_ptn_key is compared. */
} vx_cls_spcl_ptn_t;

/** @brief How patterns are looked for. */
typedef struct {
    vx_cls_spcl_mode_t spcl_hdr_mode_sel; /**< At a fixed offset, or behind headers. */
    vx_boolean spcl_hdr_after_l2hdr_en;   /**< Look behind the header of layer 2. */
    vx_boolean spcl_hdr_after_iphdr_en;   /**< Look behind the IP header. */
    vx_boolean spcl_hdr_after_l4hdr_en;   /**< Look behind the TCP or UDP header. */
    vx_boolean spcl_hdr_parsing_en;       /**< FALSE: no pattern is looked for. */
    vx_uint8 spcl_glb_hdr_strt_idx;       /**< The offset in static mode. */
} vx_cls_spcl_ptn_control_t;

/**
 * @brief Sets how special patterns are looked for in the packets of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   How they are looked for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg);

/**
 * @brief Reads how special patterns are looked for in the packets of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   How they are looked for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg);

/**
 * @brief Sets a special pattern of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] index   {0..(LMQ_FE_CLS_NUM_SPCL_KEY_ENTRY - 1)} The pattern.
 * @param[in] p_cfg   What to look for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_entry_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                      vx_cls_spcl_ptn_t *p_cfg);

/**
 * @brief Reads a special pattern of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[in]  index   {0..(LMQ_FE_CLS_NUM_SPCL_KEY_ENTRY - 1)} The pattern.
 * @param[out] p_cfg   What is looked for.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                      vx_cls_spcl_ptn_t *p_cfg);

/** @} */

/** @name Aging of MAC filters */
/** @{ */

/** @brief Aging of one MAC filter. */
typedef struct {
    vx_boolean entry_dynamic; /**< The filter ages. */
    vx_uint32 max_limit;      /**< {s} Time until the filter has aged, from when it was set. */
} vx_cls_mac_aging_t;

/**
 * @brief Sets the aging of a MAC filter, and starts its time anew.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] index   {0..(LMQ_FE_CLS_NUM_MAC_FILTER_AGING_ENTRY - 1)} The filter.
 * @param[in] p_cfg   Whether it ages, and after how long.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_aging_timer_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_mac_aging_t *p_cfg);

/**
 * @brief Reads the aging of a MAC filter.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[in]  index   {0..(LMQ_FE_CLS_NUM_MAC_FILTER_AGING_ENTRY - 1)} The filter.
 * @param[out] p_cfg   Whether it ages, and after how long.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_aging_timer_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_mac_aging_t *p_cfg);

/**
 * @brief Reads which MAC filters age and have not aged yet, as 64 bits.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     The port.
 * @param[out] bitmap_high {bits} Filters 63 to 32: bit n is filter 32 + n.
 * @param[out] bitmap_low  {bits} Filters 31 to 0: bit n is filter n.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_mac_filter_aging_vld_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *bitmap_high,
                                                   vx_uint32 *bitmap_low);

/**
 * @brief Reads which MAC filter aged last.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     The port.
 * @param[out] entry_index The filter; LMQ_INVALID_ID8 when none has aged.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_mac_filter_aged_latest_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 *entry_index);

/** @} */

/** @name Mirroring */
/** @{ */

/**
 * @brief Copies the packets of ports to another port.
 *
 * The device id is a full int, unlike everywhere else. Two empty maps end mirroring.
 * @par Effect: changes
 * @param[in] device_id      {id device} The device.
 * @param[in] dst_port       {id port or VX_INVALID_PORT_ID} Where the copies go, a port that is not mirrored itself;
 * VX_INVALID_PORT_ID when both maps are empty.
 * @param[in] rx_port_bitmap {bits, 0..63} Ports whose received packets are copied: bit n is port n.
 * @param[in] tx_port_bitmap {bits, 0..63} Ports whose sent packets are copied: bit n is port n.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_port_mirror_set(vx_int32 device_id, vx_port_id_t dst_port, vx_uint32 rx_port_bitmap,
                               vx_uint32 tx_port_bitmap);

/**
 * @brief Reads which packets are copied to another port.
 * @par Effect: reads
 * @param[in]  device_id      {id device} The device.
 * @param[out] dst_port       {id port or VX_INVALID_PORT_ID} Where the copies go; VX_INVALID_PORT_ID when nothing is
 * mirrored.
 * @param[out] rx_port_bitmap {bits} Ports whose received packets are copied: bit n is port n.
 * @param[out] tx_port_bitmap {bits} Ports whose sent packets are copied: bit n is port n.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_port_mirror_get(vx_int32 device_id, vx_port_id_t *dst_port, vx_uint32 *rx_port_bitmap,
                               vx_uint32 *tx_port_bitmap);

/** @} */

/** @name Counters and state */
/** @{ */

/** @brief What a port's classifier decided last, and hits of its first 16 entries. */
typedef struct {
    vx_uint16 hit_fibindex_recent;      /**< Record of the last packet that matched. */
    vx_uint16 hit_fibindex_previous;    /**< Record of the packet that matched before that. */
    vx_uint16 hit_fibindex_earlier;     /**< Record of the packet that matched before both. */
    vx_uint16 fibindex_vlan_rslt;       /**< Record that gave the last packet its tags. */
    vx_uint16 fibindex_dscp_rslt;       /**< Record that gave the last packet its DSCP. */
    vx_uint16 fibindex_dpid_rslt;       /**< Record that gave the last packet its destination port. */
    vx_uint16 fibindex_cos_rslt;        /**< Record that gave the last packet its class of service. */
    vx_uint16 fibindex_l2_lrn_rslt;     /**< Record that gave the last packet its learning. */
    vx_uint16 fibindex_dot1p_rslt;      /**< Record that gave the last packet its priority. */
    vx_uint16 fibindex_permit_pri_rslt; /**< Record that gave the last packet its permission. */
    vx_uint16 fibindex_rate_lmt_rslt;   /**< Record that gave the last packet its rate limit. */
    vx_uint8 entry0_hit_count;          /**< {counter} Hits of entry 0. */
    vx_uint8 entry1_hit_count;          /**< {counter} Hits of entry 1. */
    vx_uint8 entry2_hit_count;          /**< {counter} Hits of entry 2. */
    vx_uint8 entry3_hit_count;          /**< {counter} Hits of entry 3. */
    vx_uint8 entry4_hit_count;          /**< {counter} Hits of entry 4. */
    vx_uint8 entry5_hit_count;          /**< {counter} Hits of entry 5. */
    vx_uint8 entry6_hit_count;          /**< {counter} Hits of entry 6. */
    vx_uint8 entry7_hit_count;          /**< {counter} Hits of entry 7. */
    vx_uint8 entry8_hit_count;          /**< {counter} Hits of entry 8. */
    vx_uint8 entry9_hit_count;          /**< {counter} Hits of entry 9. */
    vx_uint8 entry10_hit_count;         /**< {counter} Hits of entry 10. */
    vx_uint8 entry11_hit_count;         /**< {counter} Hits of entry 11. */
    vx_uint8 entry12_hit_count;         /**< {counter} Hits of entry 12. */
    vx_uint8 entry13_hit_count;         /**< {counter} Hits of entry 13. */
    vx_uint8 entry14_hit_count;         /**< {counter} Hits of entry 14. */
    vx_uint8 entry15_hit_count;         /**< {counter} Hits of entry 15. */
    vx_uint8 user_entry;                /**< {id classifier-entry} Entry that vx_cls_debug_prog_count_set chose. */
    vx_uint32 user_entry_hit_cnt;       /**< {counter} Its hits at full width. */
} vx_cls_debug_status_t;

/** @brief The entry whose hits are counted at full width. */
typedef struct {
    vx_uint8 entry_addr; /**< {id classifier-entry} The entry. */
    vx_uint32 hit_count; /**< What to count on from. */
} vx_cls_debug_prog_ent_cnt_t;

/** @brief Counters of a forwarding engine. */
typedef struct {
    vx_uint32 ingr_pkt_cnt;    /**< {counter, packets} Packets that came in. */
    vx_uint32 egrs_pkt_cnt;    /**< {counter, packets} Packets that went out. */
    vx_uint32 pkt_drop_cnt;    /**< {counter, packets} Packets that were dropped. */
    vx_uint8 outer_pop_err;    /**< {counter, packets} Packets whose outer tag could not be popped. */
    vx_uint8 outer_swap_err;   /**< {counter, packets} Packets whose outer tag could not be swapped. */
    vx_uint8 inner_pop_err;    /**< {counter, packets} Packets whose inner tag could not be popped. */
    vx_uint8 inner_swap_err;   /**< {counter, packets} Packets whose inner tag could not be swapped. */
    vx_uint8 inner_push_err;   /**< {counter, packets} Packets that an inner tag could not be pushed into. */
    vx_uint8 vlan_op_runt_pkt; /**< {counter, packets} Packets that a tag command made too short. */
} lmq_fe_pkt_stats_s;

/** @brief State of an entry, in terms of flow keys. */
typedef struct {
    vx_uint8 entry_id;         /**< {id classifier-entry} Its number in the classifier of its port. */
    vx_boolean valid;          /**< The entry is in use. */
    vx_cl_key_type_t key_type; /**< Flow key that comes nearest to the rule's; VX_CL_KEY_INVALID: none. */
    vx_uint8 key_cnt;          /**< {0..MAX_KEY_PER_ENTRY} Keys in use. */
    vx_uint8 valid_key_bitmap; /**< {bits} Bit n: key n is in use. */
    vx_uint32 entry_hit_cnt;   /**< {counter} Packets that matched one of its keys. */
} lmq_entry_status;

/** @brief State of the classifier's entries that a forwarding engine uses. */
typedef struct {
    vx_uint8 valid_cnt;                /**< {0..LMQ_FE_CL_MAX_ENTRY} Elements of entry_status that count. */
    lmq_entry_status entry_status[48]; /**< The entries in use, by port and number; zeros behind them. */
} lmq_fe_cl_entry_status;

/**
 * @brief Reads what a port's classifier decided last, and its hits.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  port_id    The port.
 * @param[out] p_dbg_stat Records and hits.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_debug_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_status_t *p_dbg_stat);

/**
 * @brief Chooses an entry of a port's classifier whose hits are counted at full width.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   The entry, and what to count on from.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_debug_prog_count_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_prog_ent_cnt_t *p_cfg);

/**
 * @brief Reads the state of the classifier's entries that a forwarding engine uses.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  fe_inst  The forwarding engine.
 * @param[out] p_status The entries in use.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_fe_cl_entry_status(vx_dev_id_t dev_id, lmq_fe_id_e fe_inst, lmq_fe_cl_entry_status *p_status);

/**
 * @brief Reads the packet counters of a forwarding engine, and clears them on request.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[in]  fe_id   The forwarding engine.
 * @param[out] p_stats The counters, as they were before they were cleared.
 * @param[in]  clear   TRUE to clear them after reading.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id, lmq_fe_pkt_stats_s *p_stats, vx_boolean clear);

/**
 * @brief Clears the packet counters of a forwarding engine.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] fe_id  The forwarding engine.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id);

/** @} */

/** @name Printing */
/** @{ */

/**
 * @brief Prints a rule of a port's classifier on the console.
 * @par Effect: reads
 * @param[in] dev_id    The device.
 * @param[in] port_id   The port.
 * @param[in] entry_idx {id classifier-entry} The entry of the rule.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_cls_key(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 entry_idx);

/**
 * @brief Prints all rules of a port's classifier on the console.
 * @par Effect: reads
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_cls_key_list(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Prints a flow on the console.
 * @par Effect: reads
 * @param[in] dev_id  The device.
 * @param[in] flow_id The flow.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_pkt_flow(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

/**
 * @brief Prints flows on the console, the upstream ones first.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @param[in] cnt    How many at most.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_pkt_flow_all(vx_dev_id_t dev_id, vx_uint16 cnt);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
