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
    LMQ_BRG_TYPE_NONE = 0,
    LMQ_BRG_TYPE_N_1 = 1,
    LMQ_BRG_TYPE_1_1 = 2,
    LMQ_BRG_TYPE_MC = 4,
    LMQ_BRG_TYPE_BC = 8,
    LMQ_BRG_TYPE_ALL = 15,
} lmq_brg_type_e;

/** @brief Kinds of packets by their tag: bits of vx_acl_vlan_tag_type_t. A priority tag is a tag with the VID 0. */
typedef enum lmq_vlan_tag_type_e LMQ_ENUM_INT {
    LMQ_VLAN_TAG_TYPE_UNTAG = 1,
    LMQ_VLAN_TAG_TYPE_PRIO_TAG = 2,
    LMQ_VLAN_TAG_TYPE_TAG = 4,
} lmq_vlan_tag_type_e;

/** @brief The directions in which a check applies. Bits. */
typedef enum vx_acl_vlan_filter_dir_t LMQ_ENUM_INT {
    VX_ACL_VLAN_FILTER_DIR_DISABLE = 0,
    VX_ACL_VLAN_FILTER_DIR_INGRESS = 1,
    VX_ACL_VLAN_FILTER_DIR_EGRESS = 2,
    VX_ACL_VLAN_FILTER_DIR_BOTH = 3,
} vx_acl_vlan_filter_dir_t;

/** @brief What is done with an entry of a table. */
typedef enum vx_acl_op_mode_t LMQ_ENUM_INT {
    VX_ACL_OP_ADD = 0,
    VX_ACL_OP_DELETE = 1,
    VX_ACL_OP_MODIFY = 2,
} vx_acl_op_mode_t;

/** @brief The ports that belong to a range of VLANs. Bit n of a port bitmap is the n-th port of its kind. */
typedef struct {
    vx_uint8 member_sni_port_bitmap;
    vx_uint8 member_uni_port_bitmap;
    vx_uint16 vid_lo; /**< The first VLAN of the range. */
    vx_uint16 vid_high; /**< The last one. */
    vx_boolean ingr_valid; /**< The entry counts for packets received. */
    vx_boolean egrs_valid; /**< The entry counts for packets sent. */
    union {
        struct {
            vx_uint32 member_port_bitmap : 1; /**< Both bitmaps. */
            vx_uint32 vid : 1; /**< vid_lo and vid_high. */
            vx_uint32 ingr_valid : 1;
            vx_uint32 egrs_valid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_acl_vlan_member_tbl_entry_t;

/** @brief A VLAN that becomes another on some ports. */
typedef struct {
    vx_uint8 sni_port_bitmap;
    vx_uint8 uni_port_bitmap;
    vx_uint16 vid_from;
    vx_uint16 vid_to;
    vx_boolean ingr_valid; /**< The entry counts for packets received: vid_to is what they are classified by. */
    vx_boolean egrs_valid; /**< The entry counts for packets sent: vid_to replaces vid_from in their outer tag. */
    union {
        struct {
            vx_uint32 port_bitmap : 1; /**< Both bitmaps. */
            vx_uint32 vid : 1; /**< vid_from and vid_to. */
            vx_uint32 ingr_valid : 1;
            vx_uint32 egrs_valid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_acl_vlan_mapping_tbl_entry_t;

/** @brief A bridge. */
typedef struct {
    lmq_brg_type_t brg_type; /**< Bits of lmq_brg_type_e. */
    vx_uint16 vlan_id; /**< The bridge's VLAN, which no other bridge has. */
    vx_boolean enbl_local_fwd; /**< UNI ports forward to each other. */
    vx_boolean discard_unknown_mac; /**< Packets to an unknown address are dropped instead of flooded. */
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
    vx_uint16 brg_port_num; /**< Its lmq_brg_port_id_t. */
    vx_uint16 uni_port_num; /**< The UNI port behind it. */
} lmq_brg_port_info_s;

/** @brief A GEM port of a bridge. */
typedef struct {
    vx_uint16 sub_port; /**< The GEM port. */
    vx_uint16 pon_id;
} lmq_brg_sni_sub_port_info_s;

/** @brief A bridge with everything that belongs to it. */
typedef struct {
    vx_uint32 brg_id;
    lmq_brg_cfg_s brg_cfg;
    vx_uint16 num_brg_ports; /**< Entries of brg_port_info that count. */
    lmq_brg_port_info_s brg_port_info[LMQ_MAX_UNI_PORT_NUM];
    vx_uint16 num_sub_ports; /**< Entries of gem_info that count. */
    lmq_brg_sni_sub_port_info_s gem_info[VX_MAX_GEM_PORTS];
} lmq_brg_cfg_info_s;

/** @brief Which packets an extended VLAN rule is for; the numbers are those of ITU-T G.988, 9.3.13. */
typedef struct {
    vx_uint8 eth_type;
    vx_uint8 outer_pri; /**< 0 to 7, 8 for any; 14 for the default rule, 15 for packets without an outer tag. */
    vx_uint16 outer_vid; /**< 0 to 4094, 4096 for any. */
    vx_uint16 outer_tpid_dei;
    vx_uint8 inner_pri; /**< As outer_pri. */
    vx_uint16 inner_vid; /**< As outer_vid. */
    vx_uint16 inner_tpid_dei;
} vx_lmq_ext_vlan_filter_t;

/** @brief What an extended VLAN rule does to the tags; the numbers are those of ITU-T G.988, 9.3.13. */
typedef struct {
    vx_uint8 tag_to_remove; /**< 0 to 2 tags; 3 drops the packet. */
    vx_uint8 outer_pri; /**< Of the tag to add: 0 to 7, 8 to copy the inner, 9 the outer; 15 adds no tag. */
    vx_uint16 outer_vid; /**< 0 to 4094, 4096 to copy the inner, 4097 the outer. */
    vx_uint16 outer_tpid_dei;
    vx_uint8 inner_pri; /**< As outer_pri. */
    vx_uint16 inner_vid; /**< As outer_vid. */
    vx_uint16 inner_tpid_dei;
} vx_lmq_ext_vlan_treatment_t;

/** @brief The way of an Ethernet port's packets to a GEM port. The numbers of actions and modes are the driver's. */
typedef struct {
    vx_uint8 pri; /**< Priority code point, 0 to 7. */
    vx_uint8 tagged_action;
    vx_uint8 untagged_action;
    vx_uint8 dei; /**< Drop eligible indicator. */
    vx_uint16 vid;
    vx_uint16 eth_port;
    vx_uint16 gem_port;
    vx_uint8 mode; /**< What of the tag is compared. */
} vx_lmq_tci_routing_t;

/** @brief A simple tag operation, upstream (us) and downstream (ds); modes as in ITU-T G.988, 9.3.12. */
typedef struct {
    vx_uint8 us_mode; /**< 0: none, 1: tag or overwrite the tag, 2: tag in front. */
    vx_uint16 us_tci; /**< Tag control information to set. */
    vx_uint8 ds_mode; /**< 0: none, 1: strip the outer tag. */
} vx_lmq_vlan_opr_t;

/** @brief A packet of the software VLAN layer: what is known of it, and the first byte of its data. */
typedef struct _vx_pkt_t {
    vx_uint8 msg_type;
    vx_uint8 version;
    vx_uint16 len; /**< Of the data. */
    vx_uint16 port;
    vx_uint16 sub_port; /**< The GEM port. */
    vx_uint16 offset;
    vx_uint16 svlan; /**< Tag control information of the outer tag. */
    vx_uint16 cvlan; /**< Tag control information of the inner tag. */
    vx_uint16 stpid;
    vx_uint16 ctpid;
    vx_uint8 frame_type;
    vx_uint8 pkt_type;
    vx_uint16 eth_type;
    vx_uint16 tag_num; /**< Tags of the packet: 0 to 2. A single tag is the outer one. */
    vx_uint16 u2Reserved;
    vx_uint8 data[1]; /**< More may follow, where there is room behind. */
} vx_pkt_t;

/** @brief A packet with room for the longest data. */
typedef struct {
    vx_pkt_t pkt;
    vx_uint8 padding[1500-1];
} vx_lmq_ioctl_pkt_t;

/**
 * @brief Sets which kinds of packets a port admits by their tag.
 * @param dev_id               The device.
 * @param port_id              The port.
 * @param vlan_tag_type_bitmap Bits of lmq_vlan_tag_type_e.
 * @param admit                TRUE to admit the kinds of the bitmap and drop the others, FALSE for the opposite.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_tag_policy_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                   vx_acl_vlan_tag_type_t vlan_tag_type_bitmap, vx_boolean admit);

/**
 * @brief Reads which kinds of packets a port admits by their tag.
 * @param dev_id                 The device.
 * @param port_id                The port.
 * @param p_vlan_tag_type_bitmap Where to write the bitmap.
 * @param p_admit                Where to write what it means.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_tag_policy_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                   vx_acl_vlan_tag_type_t *p_vlan_tag_type_bitmap, vx_boolean *p_admit);

/**
 * @brief Switches the membership check of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param fil_dir The directions to switch.
 * @param enable  TRUE to check.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir,
                                     vx_boolean enable);

/**
 * @brief Reads in which directions a port checks membership.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_ena   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t *p_ena);

/**
 * @brief Sets what the membership check does with packets that no entry matches.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param fil_dir The directions to set.
 * @param permit  TRUE to pass them, FALSE to drop them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_default_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir,
                                             vx_boolean permit);

/**
 * @brief Reads in which directions packets that no entry matches pass.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param fil_dir Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_check_default_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_acl_vlan_filter_dir_t *fil_dir);

/**
 * @brief Adds, deletes or modifies an entry of the member table, which shares its indices with the mapping table.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param tbl_indx Index, 0 to 31; the highest that matches counts.
 * @param op_mode  What to do.
 * @param p_entry  The entry; a modification takes the flagged members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                     vx_acl_op_mode_t op_mode, vx_acl_vlan_member_tbl_entry_t *p_entry);

/**
 * @brief Reads an entry of the member table.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param tbl_indx Index, 0 to 31.
 * @param p_entry  Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_member_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                     vx_acl_vlan_member_tbl_entry_t *p_entry);

/**
 * @brief Adds, deletes or modifies an entry of the mapping table, which shares its indices with the member table.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param tbl_indx Index, 0 to 31; the highest that matches counts.
 * @param op_mode  What to do.
 * @param p_entry  The entry; a modification takes the flagged members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_mapping_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                      vx_acl_op_mode_t op_mode, vx_acl_vlan_mapping_tbl_entry_t *p_entry);

/**
 * @brief Reads an entry of the mapping table.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param tbl_indx Index, 0 to 31.
 * @param p_entry  Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_vlan_mapping_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                      vx_acl_vlan_mapping_tbl_entry_t *p_entry);

/**
 * @brief Creates a bridge.
 * @param dev_id The device.
 * @param brg_id Its id.
 * @param p_cfg  Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_create_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg);

/**
 * @brief Sets the members of a bridge's configuration that the mask flags.
 * @param dev_id The device.
 * @param brg_id The bridge.
 * @param p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg);

/**
 * @brief Reads a bridge with its ports.
 * @param dev_id The device.
 * @param brg_id The bridge.
 * @param p_cfg  Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_info_s *p_cfg);

/**
 * @brief Reads all bridges with their ports.
 * @param dev_id      The device.
 * @param get_cnt     How many p_cfg has room for.
 * @param p_cfg       Where to write them.
 * @param p_valid_cnt Where to write how many were written.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_bridge_config_all(vx_dev_id_t dev_id, vx_uint16 get_cnt, lmq_brg_cfg_info_s *p_cfg,
                                      vx_uint16 *p_valid_cnt);

/**
 * @brief Deletes a bridge.
 * @param dev_id The device.
 * @param brg_id The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id);

/**
 * @brief Adds a UNI port to a bridge.
 * @param dev_id        The device.
 * @param uni_port_num  The UNI port.
 * @param brg_id        The bridge.
 * @param p_brg_port_id Where to write the id of the bridge port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_add_bridge_port(vx_dev_id_t dev_id, vx_uint16 uni_port_num, lmq_brg_id_t brg_id,
                                lmq_brg_port_id_t *p_brg_port_id);

/**
 * @brief Takes a UNI port from its bridge.
 * @param dev_id      The device.
 * @param brg_port_id The bridge port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_delete_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id);

/**
 * @brief Adds a GEM port to a bridge.
 * @param dev_id      The device.
 * @param pon_id      The PON.
 * @param gem_port_id The GEM port.
 * @param brg_id      The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_port_add_to_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                               lmq_brg_id_t brg_id);

/**
 * @brief Takes a GEM port from a bridge.
 * @param dev_id      The device.
 * @param pon_id      The PON.
 * @param gem_port_id The GEM port.
 * @param brg_id      The bridge.
 * @return VX_SUCCESS, also for a GEM port that is none of the bridge's, or a status.
 */
vx_status_e vx_gpon_onu_gem_port_delete_from_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                                    lmq_brg_id_t brg_id);

/**
 * @brief Prints a bridge.
 * @param dev_id The device.
 * @param brg_id The bridge.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id);

/**
 * @brief Prints a bridge port.
 * @param dev_id      The device.
 * @param brg_port_id The bridge port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id);

/**
 * @brief Prints the inner and outer VLANs of the bridges.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dump_bridge_cvlan_svlan_list(vx_dev_id_t dev_id);

/**
 * @brief Adds an extended VLAN rule for untagged packets.
 * @param dev_id      The device.
 * @param ethport_id  The Ethernet port.
 * @param filter      Which packets.
 * @param treatment   What is done to them.
 * @param iphost      TRUE for an IP host instead of the port.
 * @param ext_vlan_id Id of the list that the rule belongs to.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_untag_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                              vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Adds an extended VLAN rule for packets with one tag.
 * @param dev_id      The device.
 * @param ethport_id  The Ethernet port.
 * @param filter      Which packets.
 * @param treatment   What is done to them.
 * @param iphost      TRUE for an IP host instead of the port.
 * @param ext_vlan_id Id of the list that the rule belongs to.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_single_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                               vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Adds an extended VLAN rule for packets with two tags.
 * @param dev_id      The device.
 * @param ethport_id  The Ethernet port.
 * @param filter      Which packets.
 * @param treatment   What is done to them.
 * @param iphost      TRUE for an IP host instead of the port.
 * @param ext_vlan_id Id of the list that the rule belongs to.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_double_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                               vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Deletes a list of extended VLAN rules.
 * @param dev_id      The device.
 * @param ethport_id  The Ethernet port.
 * @param iphost      TRUE for an IP host instead of the port.
 * @param ext_vlan_id Id of the list.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_del(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 ext_vlan_id);

/**
 * @brief Sets the TPIDs of an Ethernet port's extended VLAN rules, and what is done downstream.
 * @param dev_id          The device.
 * @param ethport_id      The Ethernet port.
 * @param input_tpid      TPID of received tags.
 * @param output_tpid     TPID of added tags.
 * @param downstream_mode 0: the inverse of upstream, 1: nothing (ITU-T G.988, 9.3.13).
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_param_set(vx_uint32 dev_id, vx_uint16 ethport_id, vx_uint16 input_tpid, vx_uint16 output_tpid,
                              vx_uint8 downstream_mode);

/**
 * @brief Sets the simple tag operation of an Ethernet port.
 * @param dev_id     The device.
 * @param ethport_id The Ethernet port.
 * @param vlan_opr   The operation.
 * @param iphost     TRUE for an IP host instead of the port.
 * @param vlan_id    Id of the operation.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_opr_create(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_vlan_opr_t *vlan_opr, vx_boolean iphost,
                               vx_uint16 vlan_id);

/**
 * @brief Deletes the simple tag operation of an Ethernet port.
 * @param dev_id     The device.
 * @param ethport_id The Ethernet port.
 * @param iphost     TRUE for an IP host instead of the port.
 * @param vlan_id    Id of the operation.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_opr_delete(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 vlan_id);

/**
 * @brief Adds a way to a GEM port.
 * @param dev_id     The device.
 * @param tci2gem    The way.
 * @param routing_id Its id.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_tci_gem_add(vx_uint32 dev_id, vx_lmq_tci_routing_t *tci2gem, vx_uint16 routing_id);

/**
 * @brief Deletes a way to a GEM port.
 * @param dev_id     The device.
 * @param routing_id Its id.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_tci_gem_del(vx_uint32 dev_id, vx_uint16 routing_id);

/**
 * @brief Deletes all rules, operations and ways of the software VLAN layer, of all devices.
 * @return VX_OK or a status.
 */
vx_int32 vx_sw_vlan_mib_reset(void);

/**
 * @brief Reads the GEM port that a packet goes to.
 * @param sport The Ethernet port.
 * @param tci   Tag control information of the packet.
 * @param gem   Where to write the GEM port.
 * @return VX_OK or a status.
 */
vx_int32 vx_vid_pbit_2gem_get(vx_port_id_t sport, vx_uint16 tci, vx_uint16 *gem);

/**
 * @brief Prints the ways to GEM ports.
 * @return VX_OK or a status.
 */
vx_int32 vx_vid_pbit_2gem_dump(void);

/**
 * @brief Applies the rules to a packet from an Ethernet port.
 * @param pkt The packet, which is changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_ingress_filter(vx_pkt_t *pkt);

/**
 * @brief Does what vlan_ingress_filter does, for a packet with room behind it.
 * @param pkt The packet, which is changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_ingress_filter_ioctl(vx_lmq_ioctl_pkt_t *pkt);

/**
 * @brief Applies the rules to a packet for an Ethernet port.
 * @param dport The Ethernet port.
 * @param pkt   The packet, which is changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_egress_filter(vx_uint16 dport, vx_pkt_t *pkt);

/**
 * @brief Does what vlan_egress_filter does, for a packet with room behind it.
 * @param dport The Ethernet port.
 * @param pkt   The packet, which is changed.
 * @return VX_OK when the packet goes on; else it is dropped.
 */
vx_int32 vlan_egress_filter_ioctl(vx_uint16 dport, vx_lmq_ioctl_pkt_t *pkt);

#ifdef __cplusplus
}
#endif

#endif
