/**
 * @file
 * @brief VLANs and bridges: the VLAN policy of ports in hardware, bridges with their ports, and the software VLAN layer
 *        with its packet filters.
 *
 * The functions of the software VLAN layer return a plain vx_int32, VX_OK or a status of vx_status_e, and take their
 * dev_id as a vx_uint32.
 */
#ifndef LMQ_VLAN_BRIDGE_H
#define LMQ_VLAN_BRIDGE_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Identifiers of bridges */
/** @{ */
#define LMQ_BRG_PORT_ID_BASE ((lmq_brg_port_id_t)1000) /**< The first bridge port. */
#define LMQ_INVALID_BRG_ID ((lmq_brg_id_t)0xffffffff)
#define LMQ_INVALID_BRG_PORT_ID ((lmq_brg_port_id_t)0xffff)
/** @} */

/** @name VLAN identifiers (IEEE 802.1Q) */
/** @{ */
#define LMQ_FE_DFT_PVID 1 /**< VLAN of untagged packets on a port that has no other. */
#define LMQ_MAX_VID ((vx_vid_t)4095)
#define LMQ_INVALID_VID ((vx_vid_t)0xffff)
#define LMQ_ANY_VID ((vx_vid_t)0xfff)
/** @} */

/** @brief Types of a bridge: bits of lmq_brg_type_t. N VLANs to one, one to one, multicast (MC), broadcast (BC). */
typedef enum lmq_brg_type_e LMQ_ENUM_INT {
    LMQ_BRG_TYPE_NONE = 0, /**< No type: a bridge has to have one. */
    LMQ_BRG_TYPE_N_1 = 1,  /**< Many VLANs of users become one of the network. */
    LMQ_BRG_TYPE_1_1 = 2,  /**< Each VLAN of a user is one of the network. */
    LMQ_BRG_TYPE_MC = 4,   /**< Multicast. */
    LMQ_BRG_TYPE_BC = 8,   /**< Broadcast. */
    LMQ_BRG_TYPE_ALL = 15, /**< All of these. */
} lmq_brg_type_e;

/** @brief Kinds of packets by their tag: bits of vx_acl_vlan_tag_type_t. A priority tag is a tag with the VID 0. */
typedef enum lmq_vlan_tag_type_e LMQ_ENUM_INT {
    LMQ_VLAN_TAG_TYPE_UNTAG = 1,    /**< Packets without a tag. */
    LMQ_VLAN_TAG_TYPE_PRIO_TAG = 2, /**< Packets with a priority tag. */
    LMQ_VLAN_TAG_TYPE_TAG = 4,      /**< Packets with a tag that names a VLAN. */
} lmq_vlan_tag_type_e;

/** @brief The directions in which a check applies. Bits. */
typedef enum vx_acl_vlan_filter_dir_t LMQ_ENUM_INT {
    VX_ACL_VLAN_FILTER_DIR_DISABLE = 0, /**< Neither direction. */
    VX_ACL_VLAN_FILTER_DIR_INGRESS = 1, /**< Packets that are received. */
    VX_ACL_VLAN_FILTER_DIR_EGRESS = 2,  /**< Packets that are sent. */
    VX_ACL_VLAN_FILTER_DIR_BOTH = 3,    /**< Both directions. */
} vx_acl_vlan_filter_dir_t;

/** @brief What is done with an entry of a table. */
typedef enum vx_acl_op_mode_t LMQ_ENUM_INT {
    VX_ACL_OP_ADD = 0,    /**< Add it; its index has to be free. */
    VX_ACL_OP_DELETE = 1, /**< Delete it; nothing but its index is read. */
    VX_ACL_OP_MODIFY = 2, /**< Change the members that are flagged. */
} vx_acl_op_mode_t;

/** @brief The ports that belong to a range of VLANs. Bit n of a port bitmap is the n-th port of its kind. */
typedef struct {
    vx_uint8 member_sni_port_bitmap; /**< {bits} SNI ports that are members. */
    vx_uint8 member_uni_port_bitmap; /**< {bits} UNI ports that are members. */
    vx_uint16 vid_lo;                /**< {id vlan} The first VLAN of the range. */
    vx_uint16 vid_high;              /**< {id vlan} The last VLAN of the range. */
    vx_boolean ingr_valid;           /**< TRUE: the entry counts for packets received. */
    vx_boolean egrs_valid;           /**< TRUE: the entry counts for packets sent. */
    union {
        struct {
            vx_uint32 member_port_bitmap : 1; /**< Both bitmaps. */
            vx_uint32 vid : 1;                /**< vid_lo and vid_high. */
            vx_uint32 ingr_valid : 1;
            vx_uint32 egrs_valid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_acl_vlan_member_tbl_entry_t;

/** @brief A VLAN that becomes another on some ports. */
typedef struct {
    vx_uint8 sni_port_bitmap; /**< {bits} SNI ports that the mapping is for. */
    vx_uint8 uni_port_bitmap; /**< {bits} UNI ports that the mapping is for. */
    vx_uint16 vid_from;       /**< {id vlan} The VLAN that is replaced. */
    vx_uint16 vid_to;         /**< {id vlan} The VLAN that replaces it. */
    vx_boolean ingr_valid;    /**< TRUE: for packets received: they are classified by vid_to. */
    vx_boolean egrs_valid;    /**< TRUE: for packets sent: vid_to replaces vid_from in their outer tag. */
    union {
        struct {
            vx_uint32 port_bitmap : 1; /**< Both bitmaps. */
            vx_uint32 vid : 1;         /**< vid_from and vid_to. */
            vx_uint32 ingr_valid : 1;
            vx_uint32 egrs_valid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_acl_vlan_mapping_tbl_entry_t;

/** @brief A bridge. */
typedef struct {
    lmq_brg_type_t brg_type;   /**< What the bridge carries; one type at least. */
    vx_uint16 vlan_id;         /**< {id vlan} Its VLAN, which no other bridge has; LMQ_ANY_VID for none of its own. */
    vx_boolean enbl_local_fwd; /**< TRUE: UNI ports forward to each other. */
    vx_boolean discard_unknown_mac; /**< TRUE: packets to an unknown address are dropped, FALSE: flooded. */
    union {
        struct {
            vx_uint32 brg_type : 1;
            vx_uint32 vlan_id : 1;
            vx_uint32 enbl_local_fwd : 1;
            vx_uint32 discard_unknown_mac : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} lmq_brg_cfg_s;

/** @brief A port of a bridge. */
typedef struct {
    vx_uint16 brg_port_num; /**< {id bridge-port} The bridge port. */
    vx_uint16 uni_port_num; /**< {id eth-port} The UNI port behind it. */
} lmq_brg_port_info_s;

/** @brief A GEM port of a bridge. */
typedef struct {
    vx_uint16 sub_port; /**< {id gem-port} The GEM port. */
    vx_uint16 pon_id;   /**< {id pon-port} The PON that it is on. */
} lmq_brg_sni_sub_port_info_s;

/** @brief A bridge with everything that belongs to it. */
typedef struct {
    vx_uint32 brg_id;        /**< {id bridge} The bridge. */
    lmq_brg_cfg_s brg_cfg;   /**< What it is set to. */
    vx_uint16 num_brg_ports; /**< {0..LMQ_MAX_UNI_PORT_NUM} Entries of brg_port_info that count. */
    lmq_brg_port_info_s brg_port_info[LMQ_MAX_UNI_PORT_NUM]; /**< Its ports. */
    vx_uint16 num_sub_ports; /**< {0..VX_MAX_GEM_PORTS} Entries of gem_info that count. */
    lmq_brg_sni_sub_port_info_s gem_info[VX_MAX_GEM_PORTS]; /**< Its GEM ports. */
} lmq_brg_cfg_info_s;

/** @brief Which packets an extended VLAN rule is for; the numbers are those of ITU-T G.988, 9.3.13. */
typedef struct {
    vx_uint8 eth_type;        /**< EtherType: 0 any, 1 IPv4, 2 PPPoE, 3 ARP, 4 IPv6. */
    vx_uint8 outer_pri;       /**< {0..15} Priority of the outer tag; 8: any, 14: default rule, 15: no outer tag. */
    vx_uint16 outer_vid;      /**< {0..4096} VLAN of the outer tag; 4096: any. */
    vx_uint16 outer_tpid_dei; /**< TPID and DEI of the outer tag, 0 for any. */
    vx_uint8 inner_pri;       /**< {0..15} Priority of the inner tag, or the only one, as outer_pri. */
    vx_uint16 inner_vid;      /**< {0..4096} VLAN of the inner tag, or the only one, as outer_vid. */
    vx_uint16 inner_tpid_dei; /**< TPID and DEI of the inner tag, or the only one, 0 for any. */
} vx_lmq_ext_vlan_filter_t;

/** @brief What an extended VLAN rule does to the tags; the numbers are those of ITU-T G.988, 9.3.13. */
typedef struct {
    vx_uint8 tag_to_remove; /**< {0..3} Tags to remove, no more than the packets have; 3 drops the packet. */
    vx_uint8 outer_pri;     /**< {0..15} Priority of the outer tag to add; 8 copies the inner, 9 the outer, 15: none. */
    vx_uint16 outer_vid;    /**< {0..4097} VLAN of the outer tag to add; 4096 copies the inner, 4097 the outer. */
    vx_uint16 outer_tpid_dei; /**< TPID and DEI of the outer tag to add: 4 is TPID 0x8100. */
    vx_uint8 inner_pri;       /**< {0..15} Priority of the inner tag to add, as outer_pri. */
    vx_uint16 inner_vid;      /**< {0..4097} VLAN of the inner tag to add, as outer_vid. */
    vx_uint16 inner_tpid_dei; /**< TPID and DEI of the inner tag to add, as outer_tpid_dei. */
} vx_lmq_ext_vlan_treatment_t;

/** @brief The way of an Ethernet port's packets to a GEM port. The numbers of actions and modes are the driver's. */
typedef struct {
    vx_uint8 pri;             /**< {0..7} Priority code point that is compared. */
    vx_uint8 tagged_action;   /**< {0..1} What is done with packets that have a tag: 0 forward, 1 drop. */
    vx_uint8 untagged_action; /**< {0..1} What is done with packets that have none: 0 forward, 1 drop. */
    vx_uint8 dei;             /**< Drop eligible indicator of the tag. */
    vx_uint16 vid;            /**< {id vlan} VLAN that is compared. */
    vx_uint16 eth_port;       /**< {id port} The port that the packets come from. */
    vx_uint16 gem_port;       /**< {id gem-port} The GEM port that they go to. */
    vx_uint8 mode;            /**< {0..2} What of the tag is compared: 0 VLAN and priority, 1 VLAN, 2 priority. */
} vx_lmq_tci_routing_t;

/** @brief A simple tag operation, upstream (us) and downstream (ds); modes as in ITU-T G.988, 9.3.12. */
typedef struct {
    vx_uint8 us_mode; /**< {0..2} 0: none, 1: add a tag or overwrite the one there is, 2: add a tag in front. */
    vx_uint16 us_tci; /**< Tag control information to set upstream. */
    vx_uint8 ds_mode; /**< {0..1} 0: none, 1: strip the outer tag. */
} vx_lmq_vlan_opr_t;

/** @brief A packet of the software VLAN layer: what is known of it, and the first byte of its data. */
typedef struct _vx_pkt_t {
    vx_uint8 msg_type;    /**< Kind of message that the packet comes in. */
    vx_uint8 version;     /**< Version of this layout. */
    vx_uint16 len;        /**< {bytes} Length of the data. */
    vx_uint16 port;       /**< {id port} Port that the packet comes from. */
    vx_uint16 sub_port;   /**< {id gem-port} GEM port; the ingress filter writes the one that the packet goes to. */
    vx_uint16 offset;     /**< {bytes} Where in the data the packet begins. */
    vx_uint16 svlan;      /**< Tag control information of the outer tag. */
    vx_uint16 cvlan;      /**< Tag control information of the inner tag. */
    vx_uint16 stpid;      /**< TPID of the outer tag. */
    vx_uint16 ctpid;      /**< TPID of the inner tag. */
    vx_uint8 frame_type;  /**< Kind of frame, for the applications. */
    vx_uint8 pkt_type;    /**< Kind of packet, for the applications. */
    vx_uint16 eth_type;   /**< EtherType behind the tags. */
    vx_uint16 tag_num;    /**< {0..2} Tags of the packet. A single tag is the outer one. */
    vx_uint16 u2Reserved; /**< Reserved. */
    vx_uint8 data[1];     /**< First byte of the data. More may follow, where there is room behind. */
} vx_pkt_t;

/** @brief A packet with room for the longest data. */
typedef struct {
    vx_pkt_t pkt; /**< The packet, with the first byte of its data. */
    /* Clients are told the bound as it stands here. */
    /* clang-format off */
    vx_uint8 padding[1500-1]; /**< The rest of the data. */
    /* clang-format on */
} vx_lmq_ioctl_pkt_t;

/**
 * @brief Sets which kinds of packets a port admits by their tag.
 * @par Effect: changes
 * @param[in] dev_id               The device.
 * @param[in] port_id              The port.
 * @param[in] vlan_tag_type_bitmap The kinds.
 * @param[in] admit                TRUE to admit the kinds of the bitmap and drop the others, FALSE for the opposite.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_tag_policy_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                   vx_acl_vlan_tag_type_t vlan_tag_type_bitmap, vx_boolean admit);

/**
 * @brief Reads which kinds of packets a port admits by their tag.
 * @par Effect: reads
 * @param[in]  dev_id                 The device.
 * @param[in]  port_id                The port.
 * @param[out] p_vlan_tag_type_bitmap The kinds.
 * @param[out] p_admit                TRUE if the kinds are admitted and the others dropped, FALSE for the opposite.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_tag_policy_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                   vx_acl_vlan_tag_type_t *p_vlan_tag_type_bitmap, vx_boolean *p_admit);

/**
 * @brief Switches the membership check of a port.
 * @par Effect: changes
 * @par Read back: vx_vlan_member_check_get: fil_dir=p_ena, enable=TRUE if p_ena!=VX_ACL_VLAN_FILTER_DIR_DISABLE
 * @par Undone by: vx_vlan_member_check_set(enable=FALSE)
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] fil_dir The directions to switch.
 * @param[in] enable  TRUE to check, FALSE not to.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir,
                                     vx_boolean enable);

/**
 * @brief Reads in which directions a port checks membership.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_ena   The directions that are checked.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t *p_ena);

/**
 * @brief Sets what the membership check does with packets that no entry matches.
 * @par Effect: changes
 * @par Read back: vx_vlan_member_check_default_get: permit=TRUE if fil_dir!=VX_ACL_VLAN_FILTER_DIR_DISABLE
 * @par Undone by: vx_vlan_member_check_default_set(permit=FALSE)
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] fil_dir The directions to set.
 * @param[in] permit  TRUE to pass them, FALSE to drop them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_default_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir,
                                             vx_boolean permit);

/**
 * @brief Reads in which directions packets that no entry matches pass.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] fil_dir The directions in which they pass; in the others they are dropped.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_default_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_acl_vlan_filter_dir_t *fil_dir);

/**
 * @brief Adds, deletes or modifies an entry of the member table, which shares its indices with the mapping table.
 *
 * Of the entries that count for a direction, the one with the highest index that matches decides: the packet passes if
 * its port is a member.
 * @par Effect: changes
 * @par Read back: vx_vlan_member_table_get: op_mode=VX_ACL_OP_ADD
 * @par Undone by: vx_vlan_member_table_set(op_mode=VX_ACL_OP_DELETE)
 * @param[in] dev_id   The device.
 * @param[in] port_id  The port.
 * @param[in] tbl_indx {0..31} Index, which the mapping table does not use.
 * @param[in] op_mode  What to do.
 * @param[in] p_entry  The entry; a deletion does not read it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                     vx_acl_op_mode_t op_mode, vx_acl_vlan_member_tbl_entry_t *p_entry);

/**
 * @brief Reads an entry of the member table.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  The port.
 * @param[in]  tbl_indx {0..31} Index.
 * @param[out] p_entry  The entry; the mask flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                     vx_acl_vlan_member_tbl_entry_t *p_entry);

/**
 * @brief Adds, deletes or modifies an entry of the mapping table, which shares its indices with the member table.
 *
 * Of the entries that count for a direction, the one with the highest index that matches decides.
 * @par Effect: changes
 * @par Read back: vx_vlan_mapping_table_get: op_mode=VX_ACL_OP_ADD
 * @par Undone by: vx_vlan_mapping_table_set(op_mode=VX_ACL_OP_DELETE)
 * @param[in] dev_id   The device.
 * @param[in] port_id  The port.
 * @param[in] tbl_indx {0..31} Index, which the member table does not use.
 * @param[in] op_mode  What to do.
 * @param[in] p_entry  The entry; a deletion does not read it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_mapping_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                      vx_acl_op_mode_t op_mode, vx_acl_vlan_mapping_tbl_entry_t *p_entry);

/**
 * @brief Reads an entry of the mapping table.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  The port.
 * @param[in]  tbl_indx {0..31} Index.
 * @param[out] p_entry  The entry; the mask flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_mapping_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                      vx_acl_vlan_mapping_tbl_entry_t *p_entry);

/**
 * @brief Creates a bridge.
 * @par Effect: changes
 * @par Read back: lmq_get_bridge_config_all: brg_id=p_cfg[].brg_id, p_cfg=p_cfg[].brg_cfg
 * @par Undone by: lmq_delete_bridge
 * @par Changed by: lmq_set_bridge_config(brg_id)
 * @param[in] dev_id The device.
 * @param[in] brg_id An id of the caller's choice, which no other bridge has.
 * @param[in] p_cfg  Its configuration, of which brg_type has to be flagged.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_create_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg);

/**
 * @brief Sets the members of a bridge's configuration that the mask flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] brg_id The bridge.
 * @param[in] p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg);

/**
 * @brief Reads a bridge with its ports.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  brg_id The bridge.
 * @param[out] p_cfg  The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_info_s *p_cfg);

/**
 * @brief Reads all bridges with their ports.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  get_cnt     How many p_cfg has room for.
 * @param[out] p_cfg       [get_cnt; *p_valid_cnt filled] The bridges.
 * @param[out] p_valid_cnt How many were written.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_bridge_config_all(vx_dev_id_t dev_id, vx_uint16 get_cnt, lmq_brg_cfg_info_s *p_cfg,
                                      vx_uint16 *p_valid_cnt);

/**
 * @brief Deletes a bridge with its ports.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] brg_id The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id);

/**
 * @brief Adds a UNI port to a bridge.
 * @par Effect: changes
 * @par Read back: lmq_get_bridge_config_all: uni_port_num=p_cfg[].brg_port_info[num_brg_ports].uni_port_num,
 *     brg_id=p_cfg[].brg_id, p_brg_port_id=p_cfg[].brg_port_info[num_brg_ports].brg_port_num
 * @par Undone by: lmq_delete_bridge_port
 * @param[in]  dev_id        The device.
 * @param[in]  uni_port_num  {id eth-port} The UNI port.
 * @param[in]  brg_id        The bridge.
 * @param[out] p_brg_port_id The bridge port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_bridge_port(vx_dev_id_t dev_id, vx_uint16 uni_port_num, lmq_brg_id_t brg_id,
                                lmq_brg_port_id_t *p_brg_port_id);

/**
 * @brief Takes a UNI port from its bridge.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] brg_port_id The bridge port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id);

/**
 * @brief Adds a GEM port to a bridge.
 * @par Effect: changes
 * @par Read back: lmq_get_bridge_config_all: pon_id=p_cfg[].gem_info[num_sub_ports].pon_id,
 *     gem_port_id=p_cfg[].gem_info[num_sub_ports].sub_port, brg_id=p_cfg[].brg_id
 * @par Undone by: vx_gpon_onu_gem_port_delete_from_bridge
 * @param[in] dev_id      The device.
 * @param[in] pon_id      {id pon-port} The PON.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @param[in] brg_id      The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_add_to_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                               lmq_brg_id_t brg_id);

/**
 * @brief Takes a GEM port from a bridge.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] pon_id      {id pon-port} The PON.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @param[in] brg_id      The bridge.
 * @return VX_SUCCESS, also for a GEM port that is none of the bridge's, or a status.
 */
vx_status_e vx_gpon_onu_gem_port_delete_from_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                                    lmq_brg_id_t brg_id);

/**
 * @brief Prints a bridge.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @param[in] brg_id The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id);

/**
 * @brief Prints a bridge port.
 * @par Effect: reads
 * @param[in] dev_id      The device.
 * @param[in] brg_port_id The bridge port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id);

/**
 * @brief Prints the inner and outer VLANs of the bridges.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_bridge_cvlan_svlan_list(vx_dev_id_t dev_id);

/**
 * @brief Adds an extended VLAN rule for untagged packets.
 * @par Effect: changes
 * @param[in] dev_id      {id device} The device.
 * @param[in] ethport_id  {id port} The Ethernet port.
 * @param[in] filter      Which packets; each filter stands once in a list.
 * @param[in] treatment   What is done to them.
 * @param[in] iphost      TRUE for an IP host instead of the port.
 * @param[in] ext_vlan_id Id of the list that the rule belongs to.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_untag_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                              vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Adds an extended VLAN rule for packets with one tag.
 * @par Effect: changes
 * @param[in] dev_id      {id device} The device.
 * @param[in] ethport_id  {id port} The Ethernet port.
 * @param[in] filter      Which packets; each filter stands once in a list.
 * @param[in] treatment   What is done to them.
 * @param[in] iphost      TRUE for an IP host instead of the port.
 * @param[in] ext_vlan_id Id of the list that the rule belongs to.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_single_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                               vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Adds an extended VLAN rule for packets with two tags.
 * @par Effect: changes
 * @param[in] dev_id      {id device} The device.
 * @param[in] ethport_id  {id port} The Ethernet port.
 * @param[in] filter      Which packets; each filter stands once in a list.
 * @param[in] treatment   What is done to them.
 * @param[in] iphost      TRUE for an IP host instead of the port.
 * @param[in] ext_vlan_id Id of the list that the rule belongs to.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_double_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                               vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Deletes a list of extended VLAN rules.
 * @par Effect: changes
 * @param[in] dev_id      {id device} The device.
 * @param[in] ethport_id  {id port} The Ethernet port.
 * @param[in] iphost      TRUE for an IP host instead of the port.
 * @param[in] ext_vlan_id Id of the list.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_del(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Sets the TPIDs of an Ethernet port's extended VLAN rules, and what is done downstream.
 * @par Effect: changes
 * @param[in] dev_id          {id device} The device.
 * @param[in] ethport_id      {id port} The Ethernet port.
 * @param[in] input_tpid      TPID of received tags.
 * @param[in] output_tpid     TPID of added tags.
 * @param[in] downstream_mode 0: the inverse of upstream, 1: nothing (ITU-T G.988, 9.3.13).
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_param_set(vx_uint32 dev_id, vx_uint16 ethport_id, vx_uint16 input_tpid, vx_uint16 output_tpid,
                              vx_uint8 downstream_mode);

/**
 * @brief Sets a simple tag operation of an Ethernet port.
 *
 * A port with extended VLAN rules does no simple operation.
 * @par Effect: changes
 * @param[in] dev_id     {id device} The device.
 * @param[in] ethport_id {id port} The Ethernet port.
 * @param[in] vlan_opr   The operation.
 * @param[in] iphost     TRUE for an IP host instead of the port.
 * @param[in] vlan_id    Id of the operation, of the caller's choice.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_opr_create(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_vlan_opr_t *vlan_opr, vx_boolean iphost,
                               vx_uint16 vlan_id);

/**
 * @brief Deletes a simple tag operation of an Ethernet port.
 * @par Effect: changes
 * @param[in] dev_id     {id device} The device.
 * @param[in] ethport_id {id port} The Ethernet port.
 * @param[in] iphost     TRUE for an IP host instead of the port.
 * @param[in] vlan_id    Id of the operation.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_opr_delete(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 vlan_id);

/**
 * @brief Adds a way to a GEM port.
 * @par Effect: changes
 * @param[in] dev_id     {id device} The device.
 * @param[in] tci2gem    The way.
 * @param[in] routing_id Its id, of the caller's choice.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_tci_gem_add(vx_uint32 dev_id, vx_lmq_tci_routing_t *tci2gem, vx_uint16 routing_id);

/**
 * @brief Deletes a way to a GEM port.
 * @par Effect: changes
 * @param[in] dev_id     {id device} The device.
 * @param[in] routing_id Its id.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_tci_gem_del(vx_uint32 dev_id, vx_uint16 routing_id);

/**
 * @brief Deletes all rules, parameters, operations and ways of the software VLAN layer.
 * @par Effect: changes
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_mib_reset(void);

/**
 * @brief Reads the GEM port that a packet goes to.
 * @par Effect: reads
 * @param[in]  sport The Ethernet port.
 * @param[in]  tci   Tag control information of the packet: VLAN and priority.
 * @param[out] gem   {id gem-port} The GEM port.
 * @return VX_OK or a status.
 */
vx_int32 vx_vid_pbit_2gem_get(vx_port_id_t sport, vx_uint16 tci, vx_uint16 *gem);

/**
 * @brief Prints the ways to GEM ports.
 * @par Effect: reads
 * @return VX_OK or a status.
 */
vx_int32 vx_vid_pbit_2gem_dump(void);

/**
 * @brief Applies the rules to a packet from an Ethernet port.
 * @par Effect: reads
 * @param[in,out] pkt The packet; its tags and its GEM port are changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_ingress_filter(vx_pkt_t *pkt);

/**
 * @brief Does what vlan_ingress_filter does, for a packet with room behind it.
 * @par Effect: reads
 * @param[in,out] pkt The packet; its tags and its GEM port are changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_ingress_filter_ioctl(vx_lmq_ioctl_pkt_t *pkt);

/**
 * @brief Applies the rules to a packet for an Ethernet port.
 * @par Effect: reads
 * @param[in]     dport {id port} The Ethernet port.
 * @param[in,out] pkt   The packet; its tags are changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_egress_filter(vx_uint16 dport, vx_pkt_t *pkt);

/**
 * @brief Does what vlan_egress_filter does, for a packet with room behind it.
 * @par Effect: reads
 * @param[in]     dport {id port} The Ethernet port.
 * @param[in,out] pkt   The packet; its tags are changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_egress_filter_ioctl(vx_uint16 dport, vx_lmq_ioctl_pkt_t *pkt);

#ifdef __cplusplus
}
#endif

#endif
