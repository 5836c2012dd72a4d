/**
 * @file
 * @brief Flows: which packets they are, what is done to them, and where they go.
 *
 * Upstream flows run from a UNI towards the SNI, downstream flows the other way. Each direction has its own operations
 * and its own key. The driver owns the table of flows and gives out their ids.
 */
#ifndef LMQ_FLOW_H
#define LMQ_FLOW_H

#include "lmq/classifier_key.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Identifiers that name nothing */
/** @{ */
#define LMQ_INVALID_FLOW_ID ((vx_flow_id_t)0xffffffff)
#define LMQ_INVALID_SUB_PID (0xff) /**< No sub-port: no GEM port or LLID. */
/** @} */

/** @name Priority of an upstream flow in the classifier */
/** @{ */
#define LMQ_MIN_US_CL_PRI 0
#define LMQ_MAX_US_CL_PRI 11
#define LMQ_DEF_US_CL_PRI 0xff /**< The driver chooses. */
/** @} */

/**
 * @brief Which alternative of a key counts.
 *
 * The numbers are not in the order of the alternatives, and the first key on a GEM port has the number of their base.
 */
typedef enum vx_cl_key_type_t LMQ_ENUM_INT {
    VX_CL_KEY_INVALID = 0,         /**< No key; in a modification, the key stays as it is. */
    VX_CL_KEY_MAC_DA_ETYPE = 1,    /**< Destination MAC address and EtherType. */
    VX_CL_KEY_MAC_RANGE_ETYPE = 2, /**< Range of destination MAC addresses, source MAC address and EtherType. */
    VX_CL_KEY_MAC_VLAN = 3,        /**< One MAC address and the outer tag. */
    VX_CL_KEY_SPCL_MAC_VLAN = 4,   /**< Kind of destination MAC address, EtherType and outer tag. */
    VX_CL_KEY_VLAN_RANGE = 5,      /**< Range of outer VIDs. */
    VX_CL_KEY_DOUBLE_VLAN = 6,     /**< Outer and inner VID. */
    VX_CL_KEY_EXT_VLAN = 7,        /**< All of both tags. */
    VX_CL_KEY_CTRL_PKT = 8,        /**< Control packets. */
    VX_CL_KEY_MAC_IP_PROTO = 9,    /**< Kind of destination MAC address, EtherType, IP protocol and ports. */
    VX_CL_KEY_IPV4_LONG = 10,      /**< All of an IPv4 packet. */
    VX_CL_KEY_IPV4_SHORT = 11,     /**< One IPv4 address and one port. */
    VX_CL_KEY_IPV6_LONG = 12,      /**< All of an IPv6 packet. */
    VX_CL_KEY_IPV6_SHORT = 13,     /**< One IPv6 address and one port. */
    VX_CL_KEY_EXT_VLAN_DSCP = 14,  /**< All of both tags, and the DSCP. */
    VX_CL_KEY_GEM_PORT_BASE = 15,  /**< The first of the keys on a GEM port; none itself. */
    VX_CL_KEY_GEM_EXT_VLAN = 15,   /**< All of both tags, on a GEM port. */
    VX_CL_KEY_GEM_CTRL_PKT = 16,   /**< Control packets of a GEM port. */
    VX_CL_KEY_GEM_IPV4_LONG = 17,  /**< All of an IPv4 packet, on a GEM port. */
    VX_CL_KEY_GEM_IPV6_LONG = 18,  /**< All of an IPv6 packet, on a GEM port. */
    VX_CL_KEY_MAX = 19,            /**< One more than the last; none itself. */
} vx_cl_key_type_t;

/** @brief What happens to a VLAN tag. */
typedef enum vx_flow_vlan_tag_action_type_t LMQ_ENUM_INT {
    VX_FLOW_VLAN_TAG_ACTION_ASIS = 0,            /**< It stays as it is. */
    VX_FLOW_VLAN_TAG_ACTION_PUSH = 1,            /**< It is added where the key has matched a tag. */
    VX_FLOW_VLAN_TAG_ACTION_POP = 2,             /**< It is removed. */
    VX_FLOW_VLAN_TAG_ACTION_SWAP = 3,            /**< Its content is replaced. */
    VX_FLOW_VLAN_TAG_ACTION_UNCOND_PUSH = 4,     /**< It is added, whatever tags there are. */
    VX_FLOW_VLAN_TAG_ACTION_SWAP_L2_TBL_VID = 5, /**< Its VID is replaced by the VLAN of the forwarding entry. */
    VX_FLOW_VLAN_TAG_ACTION_INVALID = 6,         /**< No action; refused. */
    VX_FLOW_VLAN_TAG_ACTION_MAX = 6,             /**< How many there are; none itself. */
} vx_flow_vlan_tag_action_type_t;

/** @brief Where the tag protocol identifier (IEEE 802.1Q) of a tag comes from. */
typedef enum vx_flow_tpid_action_type_t LMQ_ENUM_INT {
    VX_FLOW_TPID_ACTION_ASIS = 0,         /**< It stays as it is. */
    VX_FLOW_TPID_ACTION_EGR_PORT_DFT = 1, /**< The default of the egress port. */
    VX_FLOW_TPID_ACTION_FIXED_VAL = 2,    /**< Member tpid of the action. */
    VX_FLOW_TPID_ACTION_COPY_O_TPID = 3,  /**< That of the outer tag. */
    VX_FLOW_TPID_ACTION_COPY_I_TPID = 4,  /**< That of the inner tag. */
    VX_FLOW_TPID_ACTION_INVALID = 5,      /**< No action; refused. */
    VX_FLOW_TPID_ACTION_MAX = 5,          /**< How many there are; none itself. */
} vx_flow_tpid_action_type_t;

/** @brief Where the priority bits (IEEE 802.1Q PCP) of a tag come from. */
typedef enum vx_flow_pbit_action_type_t LMQ_ENUM_INT {
    VX_FLOW_PBIT_ACTION_ASIS = 0,         /**< They stay as they are. */
    VX_FLOW_PBIT_ACTION_FIXED_VAL = 1,    /**< Member pbit of the action. */
    VX_FLOW_PBIT_ACTION_COPY_O_PBIT = 2,  /**< Those of the outer tag. */
    VX_FLOW_PBIT_ACTION_COPY_I_PBIT = 3,  /**< Those of the inner tag. */
    VX_FLOW_PBIT_ACTION_PORT_DFT = 4,     /**< The default of the port. */
    VX_FLOW_PBIT_ACTION_DSCP_MAP_TBL = 5, /**< The port's DSCP map. */
    VX_FLOW_PBIT_ACTION_PBIT_MAP = 6,     /**< The port's 802.1p map. */
    VX_FLOW_PBIT_ACTION_INVALID = 7,      /**< No action; refused. */
    VX_FLOW_PBIT_ACTION_MAX = 7,          /**< How many there are; none itself. */
} vx_flow_pbit_action_type_t;

/** @brief Where the drop eligible indicator (IEEE 802.1Q DEI) of a tag comes from. */
typedef enum vx_flow_de_action_type_t LMQ_ENUM_INT {
    VX_FLOW_DE_ACTION_ASIS = 0,      /**< It stays as it is. */
    VX_FLOW_DE_ACTION_FIXED_VAL = 1, /**< Member de of the action. */
    VX_FLOW_DE_ACTION_INVALID = 2,   /**< No action; refused. */
    VX_FLOW_DE_ACTION_MAX = 2,       /**< How many there are; none itself. */
} vx_flow_de_action_type_t;

/** @brief Where the class of service of a packet comes from. */
typedef enum vx_flow_cos_action_type_t LMQ_ENUM_INT {
    VX_FLOW_COS_ACTION_UNUSED = 0,       /**< The flow does not set it. */
    VX_FLOW_COS_ACTION_PORT_DFT = 1,     /**< The default of the port. */
    VX_FLOW_COS_ACTION_FIXED_VAL = 2,    /**< Member cos_val of the action. */
    VX_FLOW_COS_ACTION_PBIT_MAP_TBL = 3, /**< The port's 802.1p map. */
    VX_FLOW_COS_ACTION_DSCP_TC_MAP = 4,  /**< The port's map of DSCP or traffic class. */
    VX_FLOW_COS_ACTION_MAX = 5,          /**< How many there are; none itself. */
} vx_flow_cos_action_type_t;

/** @brief Where the DSCP (RFC 2474) of a packet comes from. */
typedef enum vx_flow_dscp_action_type_t LMQ_ENUM_INT {
    VX_FLOW_DSCP_ACTION_ASIS = 0,        /**< It stays as it is. */
    VX_FLOW_DSCP_ACTION_FIXED_VAL = 1,   /**< Member dscp_val of the action. */
    VX_FLOW_DSCP_ACTION_PBIT_MAP = 2,    /**< The port's 802.1p map. */
    VX_FLOW_DSCP_ACTION_DSCP_TC_MAP = 3, /**< The port's map of DSCP or traffic class. */
    VX_FLOW_DSCP_ACTION_MAX = 4,         /**< How many there are; none itself. */
} vx_flow_dscp_action_type_t;

/** @brief Which VLAN the membership check at egress takes. */
typedef enum vx_flow_egrs_vlan_chk_type_t LMQ_ENUM_INT {
    VX_FLOW_EGRS_VLAN_CHK_USE_EGR_O_VID = 0, /**< That of the outer tag as it leaves. */
    VX_FLOW_EGRS_VLAN_CHK_USE_POP_I_VID = 1, /**< That of the inner tag that was popped. */
    VX_FLOW_EGRS_VLAN_CHK_BYPASS = 2,        /**< There is no check. */
    VX_FLOW_EGRS_VLAN_CHK_MAX = 3,           /**< How many there are; none itself. */
} vx_flow_egrs_vlan_chk_type_t;

/** @brief Whether a packet is mirrored as it came or as it leaves. */
typedef enum vx_flow_mirror_pkt_mode_t LMQ_ENUM_INT {
    VX_FLOW_MIRROR_BEFORE_PKT_MOD = 0, /**< As it came. */
    VX_FLOW_MIRROR_AFTER_PKT_MOD = 1,  /**< As it leaves. */
    VX_FLOW_MIRROR_MODE_MAX = 2,       /**< How many there are; none itself. */
} vx_flow_mirror_pkt_mode_t;

/** @brief What happens to a packet whose source cannot be learned, the limit being reached. */
typedef enum vx_lrn_lmt_pkt_act_t LMQ_ENUM_INT {
    VX_LRN_LMT_PKT_ACT_FWD = 0, /**< Forward it. */
    VX_LRN_LMT_PKT_ACT_DRP = 1, /**< Drop it. */
} vx_lrn_lmt_pkt_act_t;

/** @brief What an upstream packet must look like to belong to a flow. */
typedef struct {
    vx_cl_key_type_t key_type; /**< Which alternative of key_s counts. */
    union {
        /** {if VX_CL_KEY_MAC_DA_ETYPE} Destination MAC address and EtherType. */
        vx_cl_key_mac_da_etype_t mac_da_etype;
        /** {if VX_CL_KEY_MAC_RANGE_ETYPE} Range of destination MAC addresses, source MAC address and EtherType. */
        vx_cl_key_mac_range_etype_t mac_range_etype;
        /** {if VX_CL_KEY_MAC_VLAN} One MAC address and the outer tag. */
        vx_cl_key_mac_vlan_t mac_vlan;
        /** {if VX_CL_KEY_SPCL_MAC_VLAN} Kind of destination MAC address, EtherType and outer tag. */
        vx_cl_key_spcl_mac_vlan_t spcl_mac_vlan;
        /** {if VX_CL_KEY_VLAN_RANGE} Range of outer VIDs. */
        vx_cl_key_vlan_range_t vlan_range;
        /** {if VX_CL_KEY_DOUBLE_VLAN} Outer and inner VID. */
        vx_cl_key_double_vlan_t double_vlan;
        /** {if VX_CL_KEY_EXT_VLAN} All of both tags. */
        vx_cl_key_ext_vlan_t ext_vlan;
        /** {if VX_CL_KEY_MAC_IP_PROTO} Kind of destination MAC address, EtherType, IP protocol and ports. */
        vx_cl_key_mac_ip_proto_t mac_ip_proto;
        /** {if VX_CL_KEY_CTRL_PKT} Control packets. */
        vx_cl_key_ctrl_pkt_t ctrl_pkt;
        /** {if VX_CL_KEY_IPV4_LONG} All of an IPv4 packet. */
        vx_cl_key_ipv4_long_t ipv4_long;
        /** {if VX_CL_KEY_IPV4_SHORT} One IPv4 address and one port. */
        vx_cl_key_ipv4_short_t ipv4_short;
        /** {if VX_CL_KEY_IPV6_LONG} All of an IPv6 packet. */
        vx_cl_key_ipv6_long_t ipv6_long;
        /** {if VX_CL_KEY_IPV6_SHORT} One IPv6 address and one port. */
        vx_cl_key_ipv6_short_t ipv6_short;
        /** {if VX_CL_KEY_EXT_VLAN_DSCP} All of both tags, and the DSCP. */
        vx_cl_key_ext_vlan_dscp_t ext_vlan_dscp;
    } key_s; /**< {by key_type} The key. */
} vx_flow_us_key_t;

/** @brief What a downstream packet must look like to belong to a flow. */
typedef struct {
    vx_cl_key_type_t key_type; /**< Which alternative of key_s counts. */
    union {
        /** {if VX_CL_KEY_MAC_DA_ETYPE} Destination MAC address and EtherType. */
        vx_cl_key_mac_da_etype_t mac_da_etype;
        /** {if VX_CL_KEY_MAC_RANGE_ETYPE} Range of destination MAC addresses, source MAC address and EtherType. */
        vx_cl_key_mac_range_etype_t mac_range_etype;
        /** {if VX_CL_KEY_MAC_VLAN} One MAC address and the outer tag. */
        vx_cl_key_mac_vlan_t mac_vlan;
        /** {if VX_CL_KEY_SPCL_MAC_VLAN} Kind of destination MAC address, EtherType and outer tag. */
        vx_cl_key_spcl_mac_vlan_t spcl_mac_vlan;
        /** {if VX_CL_KEY_VLAN_RANGE} Range of outer VIDs. */
        vx_cl_key_vlan_range_t vlan_range;
        /** {if VX_CL_KEY_DOUBLE_VLAN} Outer and inner VID. */
        vx_cl_key_double_vlan_t double_vlan;
        /** {if VX_CL_KEY_EXT_VLAN or VX_CL_KEY_GEM_EXT_VLAN} All of both tags. */
        vx_cl_key_ext_vlan_t ext_vlan;
        /** {if VX_CL_KEY_MAC_IP_PROTO} Kind of destination MAC address, EtherType, IP protocol and ports. */
        vx_cl_key_mac_ip_proto_t mac_ip_proto;
        /** {if VX_CL_KEY_CTRL_PKT} Control packets. */
        vx_cl_key_ctrl_pkt_t ctrl_pkt;
        /** {if VX_CL_KEY_GEM_CTRL_PKT} Control packets of a GEM port. */
        vx_cl_key_subpid_ctrl_pkt_t subpid_ctrl_pkt;
        /** {if VX_CL_KEY_IPV4_LONG or VX_CL_KEY_GEM_IPV4_LONG} All of an IPv4 packet. */
        vx_cl_key_ipv4_long_t ipv4_long;
        /** {if VX_CL_KEY_IPV4_SHORT} One IPv4 address and one port. */
        vx_cl_key_ipv4_short_t ipv4_short;
        /** {if VX_CL_KEY_IPV6_LONG or VX_CL_KEY_GEM_IPV6_LONG} All of an IPv6 packet. */
        vx_cl_key_ipv6_long_t ipv6_long;
        /** {if VX_CL_KEY_IPV6_SHORT} One IPv6 address and one port. */
        vx_cl_key_ipv6_short_t ipv6_short;
    } key_s; /**< {by key_type} The key. */
} vx_flow_ds_key_t;

/** @brief What happens to one tag: for tag, TPID, priority and DEI an action, and the value of those that are fixed. */
typedef struct {
    vx_flow_vlan_tag_action_type_t vlan_tag_act; /**< What happens to the tag as a whole. */
    vx_flow_tpid_action_type_t tpid_act;         /**< Where its TPID comes from. */
    vx_flow_pbit_action_type_t pbit_act;         /**< Where its priority comes from. */
    vx_flow_de_action_type_t de_act;             /**< Where its drop eligible bit comes from. */
    vx_uint16 tpid;                              /**< TPID; read for VX_FLOW_TPID_ACTION_FIXED_VAL. */
    vx_uint8 pbit;                               /**< {0..7} Priority; read for VX_FLOW_PBIT_ACTION_FIXED_VAL. */
    vx_uint8 de;                                 /**< {0..1} Drop eligible bit; read for VX_FLOW_DE_ACTION_FIXED_VAL. */
    vx_vid_t vid;                                /**< VID of a tag that is pushed or swapped. */
} vx_flow_vlan_action_t;

/** @brief What happens to the priority bits and the DEI of one tag. */
typedef struct {
    vx_flow_pbit_action_type_t pbit_act; /**< Where the priority comes from. */
    vx_flow_de_action_type_t de_act;     /**< Where the drop eligible bit comes from. */
    vx_uint8 pbit;                       /**< {0..7} Priority; read for VX_FLOW_PBIT_ACTION_FIXED_VAL. */
    vx_uint8 de;                         /**< {0..1} Drop eligible bit; read for VX_FLOW_DE_ACTION_FIXED_VAL. */
} vx_flow_dot1p_action_t;

/** @brief The class of service of a packet. */
typedef struct {
    vx_flow_cos_action_type_t cos_act; /**< Where the class of service comes from. */
    vx_uint8 cos_val;                  /**< {0..7} Class of service; read for VX_FLOW_COS_ACTION_FIXED_VAL. */
} cl_flow_cos_action_t;

/** @brief What happens to the DSCP of a packet. */
typedef struct {
    vx_flow_dscp_action_type_t dscp_act; /**< Where the DSCP comes from. */
    vx_uint8 dscp_val;                   /**< {0..63} DSCP; read for VX_FLOW_DSCP_ACTION_FIXED_VAL. */
} vx_flow_dscp_action_t;

/**
 * @brief What happens to the packets of a flow.
 *
 * The flags do not follow the members: dsbl_mac_learn stands before egrs_vlan_chk_sel. Three members have none.
 */
typedef struct {
    vx_flow_vlan_action_t o_vlan_act;   /**< What happens to the outer tag. */
    vx_flow_vlan_action_t i_vlan_act;   /**< What happens to the inner tag. */
    vx_flow_dot1p_action_t o_dot1p_act; /**< Priority and drop eligible bit of the outer tag. */
    vx_flow_dot1p_action_t i_dot1p_act; /**< Priority and drop eligible bit of the inner tag. */
    cl_flow_cos_action_t cos_act;       /**< Class of service that the packets get. */
    vx_flow_dscp_action_t dscp_act;     /**< DSCP that the packets get. */
    vx_uint8 queue_id;                  /**< {0..31} Fixed queue, up to 7 downstream. Mapping the flow overrides it. */
    vx_flow_egrs_vlan_chk_type_t egrs_vlan_chk_sel; /**< VLAN that the membership check at egress takes. */
    vx_boolean dsbl_mac_learn;                      /**< TRUE: source addresses are not learnt. */
    vx_lrn_lmt_pkt_act_t lrn_limit_act;    /**< What happens beyond the learning limit; goes with dsbl_mac_learn. */
    vx_boolean enbl_pkt_mirror;            /**< TRUE: packets are copied to mirror_port. */
    vx_uint16 mirror_port;                 /**< {id port} Where the copies go; goes with enbl_pkt_mirror. */
    vx_flow_mirror_pkt_mode_t mirror_mode; /**< What the copies look like; goes with enbl_pkt_mirror. */
    union {
        struct {
            vx_uint32 o_vlan_act : 1;
            vx_uint32 i_vlan_act : 1;
            vx_uint32 o_dot1p_act : 1;
            vx_uint32 i_dot1p_act : 1;
            vx_uint32 cos_act : 1;
            vx_uint32 dscp_act : 1;
            vx_uint32 queue_id : 1;
            vx_uint32 dsbl_mac_learn : 1;
            vx_uint32 egrs_vlan_chk_sel : 1;
            vx_uint32 enbl_pkt_mirror : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_flow_us_action_t;

/** @brief What happens to the packets of a downstream flow: the same members. */
typedef vx_flow_us_action_t vx_flow_ds_action_t;

/** @brief An upstream flow, as vx_flow_us_all_get lists it. */
typedef struct {
    vx_flow_id_t flow_id;       /**< Its id. */
    vx_uint16 port_num;         /**< {id port} The port that its packets come from. */
    vx_uint8 pri;               /**< Priority in the classifier; LMQ_DEF_US_CL_PRI: the driver chooses. */
    vx_flow_us_key_t key;       /**< Which packets belong to it. */
    vx_flow_us_action_t action; /**< What is done to them. */
    vx_uint16
        map_port; /**< {id port or VX_INVALID_PORT_ID} Where it is mapped to, the SNI or the CPU port, if at all. */
    vx_uint16 map_sub_port; /**< The GEM port or LLID it is mapped to, or LMQ_INVALID_ID16. */
} vx_flow_us_cfg_t;

/** @brief A downstream flow, as vx_flow_ds_all_get lists it. */
typedef struct {
    vx_flow_id_t flow_id;       /**< Its id. */
    vx_uint8 pri;               /**< Priority in the classifier. */
    vx_flow_ds_key_t key;       /**< Which packets belong to it. */
    vx_flow_ds_action_t action; /**< What is done to them. */
    vx_uint16 map_port;         /**< {id port or VX_INVALID_PORT_ID} Where it is mapped to, if at all. */
} vx_flow_ds_cfg_t;

/**
 * @brief Adds an upstream flow.
 *
 * A flow with the key, the port and the priority of another is refused.
 * @par Effect: changes
 * @par Read back: vx_flow_us_all_get: p_key=p_cfg[].key, p_action=p_cfg[].action, priority=p_cfg[].pri,
 *     p_flow_id=p_cfg[].flow_id
 * @par Undone by: vx_flow_us_delete
 * @par Changed by: vx_flow_us_modify(p_flow_id)
 * @param[in]  device_id The device.
 * @param[in]  port_id   The port that its packets come from.
 * @param[in]  p_key     Which packets belong to it.
 * @param[in]  p_action  What is done to them; what `valid` does not flag is left alone.
 * @param[in]  priority  LMQ_MIN_US_CL_PRI to LMQ_MAX_US_CL_PRI, or LMQ_DEF_US_CL_PRI.
 * @param[out] p_flow_id The new flow.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_us_add(vx_dev_id_t device_id, vx_port_id_t port_id, vx_flow_us_key_t *p_key,
                           vx_flow_us_action_t *p_action, vx_uint8 priority, vx_flow_id_t *p_flow_id);

/**
 * @brief Deletes an upstream flow and frees all that was allocated to it.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] flow_id The flow.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_us_delete(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

/**
 * @brief Sets the flagged actions of an upstream flow, and its key.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] flow_id  The flow.
 * @param[in] p_key    Its new key; one of type VX_CL_KEY_INVALID leaves the key as it is.
 * @param[in] p_action What is done to its packets; its `valid` says what is set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_us_modify(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_us_key_t *p_key,
                              vx_flow_us_action_t *p_action);

/**
 * @brief Reads key and action of an upstream flow.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  flow_id  The flow.
 * @param[out] p_key    Which packets belong to it.
 * @param[out] p_action What is done to them; its `valid` flags what was set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_us_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_us_key_t *p_key,
                           vx_flow_us_action_t *p_action);

/**
 * @brief Maps an upstream flow to a port and sub-port.
 *
 * Not needed when the action has a fixed queue. When it is called later, it overrides the queue of the action in a
 * conflict; a sub-port to which that queue is mapped already changes nothing.
 * @par Effect: changes
 * @par Read back: vx_flow_us_all_get: flow_id=p_cfg[].flow_id, sni_port_num=p_cfg[].map_port,
 *     sni_sub_port=p_cfg[].map_sub_port if p_cfg[].map_port!=VX_INVALID_PORT_ID
 * @par Changed by: vx_flow_us_map(flow_id)
 * @param[in] dev_id       The device.
 * @param[in] flow_id      The flow.
 * @param[in] sni_port_num {id port, VX_PORT_SNI0..VX_PORT_CPU} The SNI or the CPU port.
 * @param[in] sni_sub_port GEM port for GPON, LLID for EPON.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_us_map(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_uint16 sni_port_num, vx_uint16 sni_sub_port);

/**
 * @brief Lists the upstream flows of a port.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     The port that their packets come from.
 * @param[in]  get_cnt     How many there is room for.
 * @param[out] p_cfg       [get_cnt; *p_valid_cnt filled] The flows.
 * @param[out] p_valid_cnt How many were filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_us_all_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 get_cnt, vx_flow_us_cfg_t *p_cfg,
                               vx_uint16 *p_valid_cnt);

/**
 * @brief Adds a downstream flow.
 *
 * A flow with the key, the port and the priority of another is refused.
 * @par Effect: changes
 * @par Read back: vx_flow_ds_all_get: p_key=p_cfg[].key, p_action=p_cfg[].action, priority=p_cfg[].pri,
 *     p_flow_id=p_cfg[].flow_id
 * @par Undone by: vx_flow_ds_delete
 * @par Changed by: vx_flow_ds_modify(p_flow_id)
 * @param[in]  dev_id    The device.
 * @param[in]  port_id   The port it is added to.
 * @param[in]  p_key     Which packets belong to it.
 * @param[in]  p_action  What is done to them; what `valid` does not flag is left alone.
 * @param[in]  priority  Priority in the classifier.
 * @param[out] p_flow_id The new flow.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_ds_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_ds_key_t *p_key,
                           vx_flow_ds_action_t *p_action, vx_uint8 priority, vx_flow_id_t *p_flow_id);

/**
 * @brief Deletes a downstream flow and frees all that was allocated to it.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] flow_id The flow.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_ds_delete(vx_dev_id_t dev_id, vx_flow_id_t flow_id);

/**
 * @brief Sets the flagged actions of a downstream flow, and its key.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] flow_id  The flow.
 * @param[in] p_key    Its new key; one of type VX_CL_KEY_INVALID leaves the key as it is.
 * @param[in] p_action What is done to its packets; its `valid` says what is set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_ds_modify(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_ds_key_t *p_key,
                              vx_flow_ds_action_t *p_action);

/**
 * @brief Reads key and action of a downstream flow.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  flow_id  The flow.
 * @param[out] p_key    Which packets belong to it.
 * @param[out] p_action What is done to them; its `valid` flags what was set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_ds_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_ds_key_t *p_key,
                           vx_flow_ds_action_t *p_action);

/**
 * @brief Maps a downstream flow to a port.
 * @par Effect: changes
 * @par Read back: vx_flow_ds_all_get: flow_id=p_cfg[].flow_id, port_id=p_cfg[].map_port if
 *     p_cfg[].map_port!=VX_INVALID_PORT_ID
 * @par Changed by: vx_flow_ds_map(flow_id)
 * @param[in] dev_id  The device.
 * @param[in] flow_id The flow.
 * @param[in] port_id The port it leaves by.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_ds_map(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_port_id_t port_id);

/**
 * @brief Lists the downstream flows of a port.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     The port that they were added to.
 * @param[in]  get_cnt     How many there is room for.
 * @param[out] p_cfg       [get_cnt; *p_valid_cnt filled] The flows.
 * @param[out] p_valid_cnt How many were filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_flow_ds_all_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 get_cnt, vx_flow_ds_cfg_t *p_cfg,
                               vx_uint16 *p_valid_cnt);

#ifdef __cplusplus
}
#endif

#endif
