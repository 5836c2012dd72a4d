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
    LMQ_FE_UPSTREAM = 0,
    LMQ_FE_DOWNSTREAM = 1,
    LMQ_FE_CPU_MA = 2, /**< Between the CPU and the packet memory. */
} lmq_fe_id_e;

/** @brief A forwarding engine, by the ports behind it: Ethernet, PON or CPU. */
typedef enum vx_lmq_fe_instance_t LMQ_ENUM_INT {
    LMQ_FE_GE_ID = 0,
    LMQ_FE_PON_ID = 1,
    LMQ_FE_MA_ID = 2,
} vx_lmq_fe_instance_t;

/** @} */

/** @name Control of a port's classifier */
/** @{ */

/** @brief What holds for all rules of a port. */
typedef struct {
    vx_mac_addr_t mac_da_high; /**< Addresses mac_da_low to mac_da_high make up the range that a key can name. */
    vx_mac_addr_t mac_da_low;
    vx_boolean mac_filter_aging_en;
    vx_boolean tos_ecn_msk_en; /**< Leave the ECN bits (RFC 3168) out of the comparison. */
    vx_boolean ce_msk_cfi_flg; /**< Leave the CFI bit of the tag out of the comparison. */
    struct {
        vx_uint32 mac_da_range : 1; /**< mac_da_high and mac_da_low. */
        vx_uint32 mac_filter_aging_en : 1;
        vx_uint32 tos_ecn_msk_en : 1;
        vx_uint32 ce_msk_cfi_flg : 1;
        vx_uint32 rsvd : 28;
    } valid; /**< Which members count. */
} vx_cls_cl_ctrl_t;

/**
 * @brief Puts the classifier of each port into the state after a reset: no domain, rule or record.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_init(vx_dev_id_t dev_id);

/**
 * @brief Sets the flagged members of the control of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The control.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg);

/**
 * @brief Reads the control of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write it; `valid` reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg);

/** @} */

/** @name Domains */
/** @{ */

/** @brief A domain: a part of the classifier's entries. */
typedef struct {
    vx_uint8 domain_name[20]; /**< Bytes, without a terminator; those behind the name are 0. */
    vx_uint8 cl_entry_start;  /**< First entry, from 0. */
    vx_uint8 cl_entry_length; /**< How many entries. */
} vx_cls_domain_res_t;

/**
 * @brief Gives a domain its entries. Domains of a port share none.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param domain_id The domain, 0 to 15.
 * @param p_cfg     The domain; no entries takes them away.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_domain_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_cls_domain_res_t *p_cfg);

/**
 * @brief Reads a domain.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param domain_id The domain, 0 to 15.
 * @param p_cfg     Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_domain_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_cls_domain_res_t *p_cfg);

/**
 * @brief Deletes all rules of a domain with their records.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param domain_id The domain, 0 to 15.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_domain_rule_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id);

/** @} */

/** @name Rules */
/** @{ */

/** @brief Which alternative of vx_cls_rule_cfg_t.cls_key counts. */
typedef enum lmq_fe_cls_key_type_e LMQ_ENUM_INT {
    LMQ_FE_CLS_KEY_IPV4_LONG = 0,
    LMQ_FE_CLS_KEY_IPV4_SHORT = 1,
    LMQ_FE_CLS_KEY_IPV6_LONG = 2,
    LMQ_FE_CLS_KEY_IPV6_SHORT = 3,
    LMQ_FE_CLS_KEY_MIRROR = 4,
    LMQ_FE_CLS_KEY_MAC_VLAN = 5,
    LMQ_FE_CLS_KEY_MAC_ETYPE = 6,
    LMQ_FE_CLS_KEY_CTRL_PKT = 7,
    LMQ_FE_CLS_KEY_VLAN = 8,
    LMQ_FE_CLS_KEY_VLAN_RANGE = 9,
    LMQ_FE_CLS_KEY_PROTO = 10,
    LMQ_FE_CLS_KEY_MCAST = 11,
    LMQ_FE_CLS_KEY_MAC_VLAN_C = 12, /**< Read as LMQ_FE_CLS_KEY_MAC_VLAN. */
    LMQ_FE_CLS_KEY_MAC_ETYPE_D = 13, /**< Read as LMQ_FE_CLS_KEY_MAC_ETYPE. */
    LMQ_FE_CLS_KEY_VLAN_E = 14, /**< Read as LMQ_FE_CLS_KEY_VLAN. */
    LMQ_FE_CLS_KEY_EXT_VLAN = 16,
    LMQ_FE_CLS_KEY_GEM_MCAST = 17,
    LMQ_FE_CLS_KEY_GEM_CTRL_PKT = 18,
    LMQ_FE_CLS_KEY_IPV4_MCAST = 19,
    LMQ_FE_CLS_KEY_TYPE_END = 1, /**< No end of the list: a value in use. */
} lmq_fe_cls_key_type_e;

/** @brief A rule: one entry of the classifier, with as many keys as fit into it. */
typedef struct {
    lmq_fe_cls_key_type_e key_type;
    vx_boolean entryvalid; /**< The entry is in use. */
    union {
        lmq_fe_cls_ipv4_long_key_s ipv4_long_key;
        lmq_fe_cls_ipv4_short_key_s ipv4_short_key[4];
        lmq_fe_cls_ipv6_long_key_s ipv6_long_key;
        lmq_fe_cls_ipv6_short_key_s ipv6_short_key;
        lmq_fe_cls_mirror_key_s mirror_key[8];
        lmq_fe_cls_mac_vlan_key_s mac_vlan_key[4];
        lmq_fe_cls_mac_etype_key_s mac_etype_key[4];
        lmq_fe_cls_ctrl_pkt_key_s ctrl_pkt_key[4];
        lmq_fe_cls_vlan_key_s vlan_key[8];
        lmq_fe_cls_vlan_range_key_s vlan_range_key[8];
        lmq_fe_cls_proto_key_s proto_key[4];
        lmq_fe_cls_mcast_key_s mcast_key[2];
        lmq_fe_cls_ext_vlan_key_s ext_vlan_key[4];
        lmq_fe_cls_gem_mcast_key_s gem_mcast_key[2];
        lmq_fe_cls_gem_ctrl_pkt_key_s gem_ctrl_pkt_key[4];
        lmq_fe_cls_ipv4_mcast_pkt_key_s ipv4_mcast_key[3];
        vx_uint32 key; /**< First word of the others. */
    } cls_key;         /**< The keys, as key_type says. */
} vx_cls_rule_cfg_t;

/**
 * @brief Writes a rule.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param domain_id   The domain, 0 to 15.
 * @param rule_offset Entry of the domain, from 0.
 * @param p_cfg       The rule; key_type says which keys are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_rule_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset,
                            vx_cls_rule_cfg_t *p_cfg);

/**
 * @brief Reads a rule.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param domain_id   The domain, 0 to 15.
 * @param rule_offset Entry of the domain, from 0.
 * @param p_cfg       Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_rule_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset,
                            vx_cls_rule_cfg_t *p_cfg);

/** @} */

/** @name What becomes of a packet */
/** @{ */

/** @brief Where the GEM port of a packet comes from. */
typedef enum lmq_fe_cls_gem_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_GEM_SEL_CLS = 0,
    LMQ_FE_CLS_GEM_SEL_DSCP_MAP_TBL = 1,
    LMQ_FE_CLS_GEM_SEL_INVALID_GEM = 2,
} lmq_fe_cls_gem_sel_e;

/** @brief What happens to a tag. */
typedef enum lmq_fe_cls_vlan_cmd_e LMQ_ENUM_INT {
    LMQ_FE_CLS_VLAN_CMD_NOP = 0,
    LMQ_FE_CLS_VLAN_CMD_PUSH = 1,
    LMQ_FE_CLS_VLAN_CMD_POP = 2,
    LMQ_FE_CLS_VLAN_CMD_SWAP = 3,
} lmq_fe_cls_vlan_cmd_e;

/** @brief TPID of the inner tag. */
typedef enum lmq_fe_cls_inner_tpid_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_INNER_TPID_SEL_NOP = 0,
    LMQ_FE_CLS_INNER_TPID_SEL_8100 = 1,
    LMQ_FE_CLS_INNER_TPID_SEL_USR_1 = 2,
    LMQ_FE_CLS_INNER_TPID_SEL_USR_2 = 3,
    LMQ_FE_CLS_INNER_TPID_SEL_USR_3 = 4,
    LMQ_FE_CLS_INNER_TPID_SEL_DST_PORT_DEF = 5,
    LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_INNER_TPID = 6,
    LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_OUTER_TPID = 7,
} lmq_fe_cls_inner_tpid_sel_e;

/** @brief TPID of the outer tag. */
typedef enum lmq_fe_cls_outer_tpid_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_OUTER_TPID_SEL_NOP = 0,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_1 = 1,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_2 = 2,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_3 = 3,
    LMQ_FE_CLS_OUTER_TPID_SEL_USR_4 = 4,
    LMQ_FE_CLS_OUTER_TPID_SEL_DST_PORT_DEF = 5,
    LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_INNER_TPID = 6,
    LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_OUTER_TPID = 7,
} lmq_fe_cls_outer_tpid_sel_e;

/** @brief Which VID the membership check at egress takes. */
typedef enum lmq_fe_cls_egr_chk_vlan_e LMQ_ENUM_INT {
    LMQ_FE_CLS_EGR_CHK_VLAN_OUTER = 0,
    LMQ_FE_CLS_EGR_CHK_VLAN_INNER = 1,
    LMQ_FE_CLS_EGR_CHK_VLAN_CL_TOP_VID = 2,
    LMQ_FE_CLS_EGR_CHK_VLAN_DONT_CARE = 3,
} lmq_fe_cls_egr_chk_vlan_e;

/** @brief DSCP of the packet: as received, as the record says, or mapped. */
typedef enum lmq_fe_cls_dscp_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_DSCP_SEL_RX_PKT = 0,
    LMQ_FE_CLS_DSCP_SEL_CL_VAL = 1,
    LMQ_FE_CLS_DSCP_SEL_MAP_RX_DSCP = 2,
    LMQ_FE_CLS_DSCP_SEL_MAP_RX_DOT1P = 3,
} lmq_fe_cls_dscp_sel_e;

/** @brief Priority of a tag: as received, as the record says, mapped, or the port's. */
typedef enum lmq_fe_cls_dot1p_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_DOT1P_SEL_RX_PKT = 0,
    LMQ_FE_CLS_DOT1P_SEL_CL_VAL = 1,
    LMQ_FE_CLS_DOT1P_SEL_MAP_RX_DOT1P = 2,
    LMQ_FE_CLS_DOT1P_SEL_MAP_RX_DSCP = 3,
    LMQ_FE_CLS_DOT1P_SEL_PORT_DEF = 4,
} lmq_fe_cls_dot1p_sel_e;

/** @brief Class of service of the packet: the port's, as the record says, or mapped. */
typedef enum lmq_fe_cls_cos_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_COS_SEL_PORT_DEF = 0,
    LMQ_FE_CLS_COS_SEL_CL_VAL = 1,
    LMQ_FE_CLS_COS_SEL_MAP_RX_DOT1P = 2,
    LMQ_FE_CLS_COS_SEL_MAP_RX_DSCP = 3,
} lmq_fe_cls_cos_sel_e;

/** @brief Flow that the rate limiter counts the packet for. */
typedef enum lmq_fe_cls_flow_id_sel_e LMQ_ENUM_INT {
    LMQ_FE_CLS_FLOW_ID_SEL_NO_RATE_LIMIT = 0,
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_RX_DOT1P = 1,
    LMQ_FE_CLS_FLOW_ID_SEL_CL_VAL = 2,
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_RX_DSCP = 3,
    LMQ_FE_CLS_FLOW_ID_SEL_MAP_TX_COS = 4,
} lmq_fe_cls_flow_id_sel_e;

/**
 * @brief Forwarding information (FIB): what becomes of packets that match a key, or none.
 *
 * A flag of `valid` stands for a group of members. The members before the first group are always taken.
 */
typedef struct {
    vx_boolean valid_flag; /**< The record is in use. */
    vx_boolean permit;     /**< FALSE: drop the packet. */
    vx_boolean permit_filter_dis;
    vx_boolean permit_priority;
    vx_uint16 dst_port_num; /**< Here and to gem_subpid: dst_port_fields. */
    vx_boolean mirror_enbl;
    vx_boolean mirror_pkt_src;
    lmq_fe_cls_gem_sel_e gem_id_sel;
    vx_uint8 gem_subpid;
    lmq_fe_cls_vlan_cmd_e inner_vlan_cmd; /**< Here and to inner_de_value: vlan_fields. */
    lmq_fe_cls_inner_tpid_sel_e inner_tpid_sel;
    vx_uint16 inner_vid;
    vx_boolean top_vid_sel;
    lmq_fe_cls_vlan_cmd_e top_vlan_cmd; /**< Top is the outer tag. */
    lmq_fe_cls_outer_tpid_sel_e top_tpid_sel;
    vx_uint16 top_vid;
    lmq_fe_cls_egr_chk_vlan_e egr_chk_vlan_sel;
    vx_boolean outer_de_override_enbl;
    vx_uint8 outer_de_value;
    vx_boolean inner_de_override_enbl;
    vx_uint8 inner_de_value;
    lmq_fe_cls_dscp_sel_e dscp_sel;         /**< dscp_fields. */
    vx_uint8 dscp;                          /**< 0 to 63; read for LMQ_FE_CLS_DSCP_SEL_CL_VAL. */
    lmq_fe_cls_dot1p_sel_e inner_dot1p_sel; /**< Here and to top_dot1p: dot1p_fields. */
    vx_uint8 inner_dot1p;
    lmq_fe_cls_dot1p_sel_e top_dot1p_sel;
    vx_uint8 top_dot1p;
    lmq_fe_cls_cos_sel_e cos_sel; /**< cos_fields. */
    vx_uint8 cos;
    vx_boolean learn_dsbl; /**< learn_fields. */
    vx_boolean learn_limit_permit;
    lmq_fe_cls_flow_id_sel_e flow_id_sel; /**< Here and to bypass_rate_limiter: rate_limit_fields. */
    vx_uint8 flow_id;
    vx_boolean bypass_rate_limiter;
    vx_boolean sw_id_sel; /**< sw_id_fields. */
    vx_uint8 sw_id;       /**< Number handed to software with the packet. */
    union {
        struct {
            vx_uint32 dst_port_fields : 1;
            vx_uint32 vlan_fields : 1;
            vx_uint32 dscp_fields : 1;
            vx_uint32 dot1p_fields : 1;
            vx_uint32 cos_fields : 1;
            vx_uint32 learn_fields : 1;
            vx_uint32 rate_limit_fields : 1;
            vx_uint32 sw_id_fields : 1;
        } mask_s;
        vx_uint32 mask;
    } valid; /**< Which groups count. */
} vx_cls_fib_data_t;

/**
 * @brief Writes the flagged groups of a record.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param domain_id  The domain, 0 to 15.
 * @param key_offset Record of the domain, from 0: MAX_KEY_PER_ENTRY for each of its entries.
 * @param p_cfg      The record.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset,
                           vx_cls_fib_data_t *p_cfg);

/**
 * @brief Reads a record.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param domain_id  The domain, 0 to 15.
 * @param key_offset Record of the domain, from 0.
 * @param p_cfg      Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset,
                           vx_cls_fib_data_t *p_cfg);

/** @} */

/** @name Packets that match nothing */
/** @{ */

/**
 * @brief Writes the flagged groups of the record for packets that match no rule.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The record.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_no_match_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg);

/**
 * @brief Reads the record for packets that match no rule.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_no_match_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg);

/**
 * @brief Says for types of keys whether packets that match no key of the type are denied.
 * @param dev_id          The device.
 * @param port_id         The port.
 * @param key_type_bitmap The types to set: bit n is value n of lmq_fe_cls_key_type_e.
 * @param deny_bitmap     1: deny. Bits of other types are ignored.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_type_no_match_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap,
                                     vx_uint32 deny_bitmap);

/**
 * @brief Reads for types of keys whether packets that match no key of the type are denied.
 * @param dev_id          The device.
 * @param port_id         The port.
 * @param key_type_bitmap The types to read.
 * @param deny_bitmap     Where to write them; bits of other types are 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_type_no_match_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap,
                                     vx_uint32 *deny_bitmap);

/** @} */

/** @name Ranges of TCP and UDP ports */
/** @{ */

/** @brief Which ports a range is for. */
typedef enum vx_cls_l4_port_type_t LMQ_ENUM_INT {
    CL_L4_SRC_TCP = 0,
    CL_L4_SRC_UDP = 1,
    CL_L4_DST_TCP = 2,
    CL_L4_DST_UDP = 3,
} vx_cls_l4_port_type_t;

/** @brief A range of ports. */
typedef struct {
    vx_boolean cmp_en;   /**< The range is in use. */
    vx_uint16 low_port;  /**< First port. */
    vx_uint16 high_port; /**< Last port. */
} vx_cls_l4_port_range_t;

/**
 * @brief Sets a range.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param port_type Which ports.
 * @param index     The range, 0 to 7.
 * @param p_cfg     The range.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_l4_port_range_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type,
                                     vx_uint8 index, vx_cls_l4_port_range_t *p_cfg);

/**
 * @brief Reads a range.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param port_type Which ports.
 * @param index     The range, 0 to 7.
 * @param p_cfg     Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_l4_port_range_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type,
                                     vx_uint8 index, vx_cls_l4_port_range_t *p_cfg);

/** @} */

/** @name Special patterns */
/** @{ */

/** @brief Where patterns are looked for: at a fixed offset, or behind a header. */
typedef enum vx_cls_spcl_mode_t LMQ_ENUM_INT {
    CLS_SPCL_MODE_STA = 0,
    CLS_SPCL_MODE_DYN = 1,
} vx_cls_spcl_mode_t;

/** @brief Behind which header a pattern is looked for, or at a fixed offset (STA). */
typedef enum vx_cls_spcl_ptn_type_t LMQ_ENUM_INT {
    LMQ_CL_SPCL_PTN_TYPE_L2 = 0,
    LMQ_CL_SPCL_PTN_TYPE_IP = 1,
    LMQ_CL_SPCL_PTN_TYPE_L4 = 2,
    LMQ_CL_SPCL_PTN_TYPE_STA = 3,
} vx_cls_spcl_ptn_type_t;

/** @brief Which half of a word a pattern is compared with. */
typedef enum vx_cls_spcl_ptn_cmp_t LMQ_ENUM_INT {
    LMQ_CL_SPCL_PTN_CMP_LO = 0,
    LMQ_CL_SPCL_PTN_CMP_HI = 1,
} vx_cls_spcl_ptn_cmp_t;

/** @brief A special pattern: 16 bits of a packet. */
typedef struct {
    vx_cls_spcl_ptn_type_t spcl_ptn_type;
    vx_cls_spcl_ptn_cmp_t spcl_ptn_cmp;
    vx_uint16 spcl_ptn_key;
    vx_uint16 spcl_ptn_mask; /**< 1: the bit is compared. */
} vx_cls_spcl_ptn_t;

/** @brief How patterns are looked for. */
typedef struct {
    vx_cls_spcl_mode_t spcl_hdr_mode_sel;
    vx_boolean spcl_hdr_after_l2hdr_en;
    vx_boolean spcl_hdr_after_iphdr_en;
    vx_boolean spcl_hdr_after_l4hdr_en;
    vx_boolean spcl_hdr_parsing_en;
    vx_uint8 spcl_glb_hdr_strt_idx; /**< Offset in static mode. */
} vx_cls_spcl_ptn_control_t;

/**
 * @brief Sets how patterns are looked for on a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The control.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg);

/**
 * @brief Reads how patterns are looked for on a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg);

/**
 * @brief Sets a pattern.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param index   The pattern, 0 to 7.
 * @param p_cfg   The pattern.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_spcl_ptn_entry_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                      vx_cls_spcl_ptn_t *p_cfg);

/**
 * @brief Reads a pattern.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param index   The pattern, 0 to 7.
 * @param p_cfg   Where to write it.
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
    vx_uint32 max_limit;      /**< When it has aged, in ticks of the aging timer. */
} vx_cls_mac_aging_t;

/**
 * @brief Sets the aging of a filter.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param index   The filter, 0 to 63.
 * @param p_cfg   Its aging.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_aging_timer_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_mac_aging_t *p_cfg);

/**
 * @brief Reads the aging of a filter.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param index   The filter, 0 to 63.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_aging_timer_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index, vx_cls_mac_aging_t *p_cfg);

/**
 * @brief Reads which filters have aging that is valid, as 64 bits.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param bitmap_high Where to write filters 63 to 32.
 * @param bitmap_low  Where to write filters 31 to 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_mac_filter_aging_vld_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *bitmap_high,
                                                   vx_uint32 *bitmap_low);

/**
 * @brief Reads which filter aged last.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param entry_index Where to write it; LMQ_INVALID_ID8 when none has.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_mac_filter_aged_latest_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 *entry_index);

/** @} */

/** @name Mirroring */
/** @{ */

/**
 * @brief Copies the packets of ports to another port.
 *
 * The device id is a full int, unlike everywhere else.
 *
 * @param device_id      The device.
 * @param dst_port       Where the copies go; VX_INVALID_PORT_ID with two empty maps ends mirroring.
 * @param rx_port_bitmap Ports whose received packets are copied: bit n is port n.
 * @param tx_port_bitmap Ports whose sent packets are copied.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_port_mirror_set(vx_int32 device_id, vx_port_id_t dst_port, vx_uint32 rx_port_bitmap,
                               vx_uint32 tx_port_bitmap);

/**
 * @brief Reads which packets are copied.
 * @param device_id      The device.
 * @param dst_port       Where to write the port that the copies go to.
 * @param rx_port_bitmap Where to write the ports whose received packets are copied.
 * @param tx_port_bitmap Where to write the ports whose sent packets are copied.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_port_mirror_get(vx_int32 device_id, vx_port_id_t *dst_port, vx_uint32 *rx_port_bitmap,
                               vx_uint32 *tx_port_bitmap);

/** @} */

/** @name Counters and state */
/** @{ */

/** @brief What a port's classifier decided last, and hits of its first 16 entries. */
typedef struct {
    vx_uint16 hit_fibindex_recent; /**< Record of the last packet that matched. */
    vx_uint16 hit_fibindex_previous;
    vx_uint16 hit_fibindex_earlier;
    vx_uint16 fibindex_vlan_rslt; /**< Records that gave the last packet its fields. */
    vx_uint16 fibindex_dscp_rslt;
    vx_uint16 fibindex_dpid_rslt;
    vx_uint16 fibindex_cos_rslt;
    vx_uint16 fibindex_l2_lrn_rslt;
    vx_uint16 fibindex_dot1p_rslt;
    vx_uint16 fibindex_permit_pri_rslt;
    vx_uint16 fibindex_rate_lmt_rslt;
    vx_uint8 entry0_hit_count;
    vx_uint8 entry1_hit_count;
    vx_uint8 entry2_hit_count;
    vx_uint8 entry3_hit_count;
    vx_uint8 entry4_hit_count;
    vx_uint8 entry5_hit_count;
    vx_uint8 entry6_hit_count;
    vx_uint8 entry7_hit_count;
    vx_uint8 entry8_hit_count;
    vx_uint8 entry9_hit_count;
    vx_uint8 entry10_hit_count;
    vx_uint8 entry11_hit_count;
    vx_uint8 entry12_hit_count;
    vx_uint8 entry13_hit_count;
    vx_uint8 entry14_hit_count;
    vx_uint8 entry15_hit_count;
    vx_uint8 user_entry;          /**< Entry that vx_cls_debug_prog_count_set chose. */
    vx_uint32 user_entry_hit_cnt; /**< Its hits. */
} vx_cls_debug_status_t;

/** @brief The entry whose hits are counted at full width. */
typedef struct {
    vx_uint8 entry_addr; /**< The entry, 0 to 47. */
    vx_uint32 hit_count; /**< What to count on from. */
} vx_cls_debug_prog_ent_cnt_t;

/** @brief Counters of a forwarding engine. */
typedef struct {
    vx_uint32 ingr_pkt_cnt;
    vx_uint32 egrs_pkt_cnt;
    vx_uint32 pkt_drop_cnt;
    vx_uint8 outer_pop_err; /**< Here and on: tag commands that did not fit the packet. */
    vx_uint8 outer_swap_err;
    vx_uint8 inner_pop_err;
    vx_uint8 inner_swap_err;
    vx_uint8 inner_push_err;
    vx_uint8 vlan_op_runt_pkt; /**< Packets that a tag command made too short. */
} lmq_fe_pkt_stats_s;

/** @brief State of an entry, in terms of flow keys. */
typedef struct {
    vx_uint8 entry_id; /**< From 0. */
    vx_boolean valid;  /**< The entry is in use. */
    vx_cl_key_type_t key_type;
    vx_uint8 key_cnt;          /**< Keys in use. */
    vx_uint8 valid_key_bitmap; /**< Bit n: key n is in use. */
    vx_uint32 entry_hit_cnt;
} lmq_entry_status;

/** @brief State of all entries of a forwarding engine. */
typedef struct {
    vx_uint8 valid_cnt; /**< Entries in use. */
    lmq_entry_status entry_status[48];
} lmq_fe_cl_entry_status;

/**
 * @brief Reads what a port's classifier decided last.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param p_dbg_stat Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_debug_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_status_t *p_dbg_stat);

/**
 * @brief Chooses an entry of a port whose hits are counted at full width.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The entry, and what to count on from.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cls_debug_prog_count_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_prog_ent_cnt_t *p_cfg);

/**
 * @brief Reads the state of all entries of a forwarding engine.
 * @param dev_id   The device.
 * @param fe_inst  The forwarding engine.
 * @param p_status Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_fe_cl_entry_status(vx_dev_id_t dev_id, lmq_fe_id_e fe_inst, lmq_fe_cl_entry_status *p_status);

/**
 * @brief Reads the counters of a forwarding engine.
 * @param dev_id  The device.
 * @param fe_id   The forwarding engine.
 * @param p_stats Where to write them.
 * @param clear   TRUE to clear them after reading.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id, lmq_fe_pkt_stats_s *p_stats, vx_boolean clear);

/**
 * @brief Clears the counters of a forwarding engine.
 * @param dev_id The device.
 * @param fe_id  The forwarding engine.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_clear_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id);

/** @} */

/** @name Printing */
/** @{ */

/**
 * @brief Prints a rule of a port on the console.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param entry_idx Entry of the classifier, 0 to 47.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_cls_key(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 entry_idx);

/**
 * @brief Prints all rules of a port on the console.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_cls_key_list(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Prints a flow on the console.
 * @param dev_id  The device.
 * @param flow_id The flow.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_pkt_flow(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

/**
 * @brief Prints flows on the console.
 * @param dev_id The device.
 * @param cnt    How many at most.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_pkt_flow_all(vx_dev_id_t dev_id, vx_uint16 cnt);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
