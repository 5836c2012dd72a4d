/**
 * @file
 * @brief Multicast on a port: VLANs, groups, access lists, IGMP (RFC 3376) and MLD (RFC 3810) snooping.
 */
#ifndef LMQ_MCAST_H
#define LMQ_MCAST_H

#include "lmq/address.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Sizes */
/** @{ */

#define MAX_MCAST_VLAN_NUM 64       /**< Multicast VLANs of a port. */
#define MAX_MCAST_L2_NUM 64         /**< Groups of a port that are MAC addresses. */
#define MAX_MCAST_IP_NUM 64         /**< Groups of a port that are IP addresses. */
#define MAX_MCAST_SRC_NUM 2         /**< Sources of a group. */
#define LMQ_MC_GID_PER_SUB_PORT 64  /**< Group ids of a sub-port. */
#define LMQ_INVALID_MC_GID (0xffff) /**< No group id. */

/** @} */

/** @name Multicast VLANs */
/** @{ */

/** @brief What happens to the tag of multicast packets on their way to a UNI. */
typedef enum vx_mcast_vlan_tag_action_t LMQ_ENUM_INT {
    VX_MC_VLAN_TAG_ACTION_NOP = 0,
    VX_MC_VLAN_TAG_ACTION_POP = 1,
    VX_MC_VLAN_TAG_ACTION_SWAP = 2,
    VX_MC_VLAN_TAG_ACTION_SWAP_IGMP_VID = 3, /**< The VID of the IGMP report. */
    VX_MC_VLAN_TAG_ACTION_INVALID = 4,
    VX_MC_VLAN_TAG_ACTION_MAX = 4,
} vx_mcast_vlan_tag_action_t;

/** @brief A multicast VLAN. */
typedef struct vx_mcast_vlan_cfg_s {
    vx_uint16 mcast_vlan; /**< Its VID. */
    vx_mcast_vlan_tag_action_t ds_vlan_cmd;
    vx_uint16 uni_vlan_id; /**< The VID that VX_MC_VLAN_TAG_ACTION_SWAP writes. */
} vx_mcast_vlan_cfg_t;

/**
 * @brief Adds a multicast VLAN.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param mcast_vlan Its VID.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan);

/**
 * @brief Deletes a multicast VLAN.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param mcast_vlan Its VID.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan);

/**
 * @brief Deletes all multicast VLANs of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the multicast VLANs of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param num     In: how many the list has room for. Out: how many are in it.
 * @param p_cfg   The list.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_vlan_cfg_t *p_cfg);

/**
 * @brief Configures a multicast VLAN that was added.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param mcast_vlan Its VID.
 * @param p_cfg      What to set; p_cfg->mcast_vlan is the same VID.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan,
                                     vx_mcast_vlan_cfg_t *p_cfg);

/**
 * @brief Reads a multicast VLAN.
 * @param dev_id     The device.
 * @param port_id    The port.
 * @param mcast_vlan Its VID.
 * @param p_cfg      Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan,
                                     vx_mcast_vlan_cfg_t *p_cfg);

/** @} */

/** @name Groups */
/** @{ */

/** @brief Which sources of a group are received. */
typedef enum vx_mcast_src_filter_mode_t LMQ_ENUM_INT {
    LMQ_MC_SRC_FILTER_MODE_EXCLUDE = 0, /**< All but the listed ones. */
    LMQ_MC_SRC_FILTER_MODE_INCLUDE = 1, /**< The listed ones. */
    LMQ_MC_SRC_FILTER_MODE_IGNORE = 2, /**< All. */
    LMQ_MC_SRC_FILTER_MODE_MAX = 3,
} vx_mcast_src_filter_mode_t;

/** @brief A group that is a MAC address. */
typedef struct vx_mcast_l2_entry_s {
    vx_uint16 sub_port;   /**< Part of the port. */
    vx_uint16 mcast_vlan; /**< A VLAN that was added. */
    vx_mac_addr_t mac_addr;
} vx_mcast_l2_entry_t;

/** @brief A group that is an IP address. */
typedef struct vx_mcast_ip_entry_s {
    vx_uint16 mcast_vlan; /**< A VLAN that was added. */
    vx_uint16 sub_port;   /**< Part of the port. */
    vx_ip_addr_t grp_addr;
    vx_mcast_src_filter_mode_t filter_mode;
    vx_uint8 src_num; /**< Sources in src_list that count. */
    vx_ip_addr_t src_list[2];
} vx_mcast_ip_entry_t;

/**
 * @brief Adds a group.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param entry   The group.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry);

/**
 * @brief Deletes a group.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param entry   The group.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry);

/**
 * @brief Deletes all groups of a port that are MAC addresses.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the groups of a port that are MAC addresses.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param num     In: how many the list has room for. Out: how many are in it.
 * @param entry   The list.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_l2_entry_t *entry);

/**
 * @brief Adds a group.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param entry   The group, with its sources.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry);

/**
 * @brief Deletes a group.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param entry   The group, by VLAN, sub-port and address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry);

/**
 * @brief Deletes all groups of a port that are IP addresses.
 * @param dev_id  The device.
 * @param port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the groups of a port that are IP addresses.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param num     In: how many the list has room for. Out: how many are in it.
 * @param entry   The list.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_ip_entry_t *entry);

/** @} */

/** @name Access lists */
/** @{ */

/** @brief Whether an access list is off, allows its groups, or denies them. */
typedef enum vx_mcast_acl_mode_t LMQ_ENUM_INT {
    LMQ_MCAST_ACL_DISABLE = 0,
    LMQ_MCAST_ACL_POSITIVE_FILTER = 1,
    LMQ_MCAST_ACL_NEGATIVE_FILTER = 2,
} vx_mcast_acl_mode_t;

/** @brief Which of its addresses a group goes by. */
typedef enum vx_mcast_addr_type_t LMQ_ENUM_INT {
    VX_ACL_MC_ADDR_TYPE_MAC = 0,
    VX_ACL_MC_ADDR_TYPE_IPV4 = 1,
    VX_ACL_MC_ADDR_TYPE_IPV6 = 2,
} vx_mcast_addr_type_t;

/** @brief The address of a group. The interface also spells it struct vx_acl_mcast_grp_addr_s. */
typedef struct vx_acl_mcast_grp_addr_s {
    vx_mcast_addr_type_t addr_type;
    vx_ip_addr_t mc_ip_addr;   /**< For an IPv4 or IPv6 group. */
    vx_mac_addr_t mc_mac_addr; /**< For a MAC group. */
} vx_acl_mcast_grp_addr_t;

/** @brief An entry of an access list: a range of groups, and groups by themselves. */
typedef struct vx_mcast_acl_s {
    vx_uint16 sub_port_id; /**< Part of the port. */
    vx_uint16 mcast_vlan;
    vx_ip_addr_t grp_start; /**< Groups grp_start to grp_end. */
    vx_ip_addr_t grp_end;
    vx_ip_addr_t src_ip;     /**< Source of the packets. */
    vx_uint16 mcast_grp_cnt; /**< Groups in mcast_grp that count. */
    vx_acl_mcast_grp_addr_t mcast_grp[2];
} vx_mcast_acl_t;

/**
 * @brief Adds an entry to the access list of a port.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param p_mcast_acl The entry.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_acl_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl);

/**
 * @brief Deletes an entry.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param p_mcast_acl The entry.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_acl_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl);

/**
 * @brief Reads the access list of a port.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param num         In: how many the list has room for. Out: how many are in it.
 * @param p_mcast_acl The list.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_acl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_acl_t *p_mcast_acl);

/** @} */

/** @name IGMP and MLD snooping */
/** @{ */

/** @brief What is snooped: both protocols, or one of them. */
typedef enum lmq_igmp_proto_type_e LMQ_ENUM_INT {
    LMQ_IGMP_MLD = 0,
    LMQ_IGMP_ONLY = 1,
    LMQ_MLD_ONLY = 2,
} lmq_igmp_proto_type_e;

/** @brief Whether messages go to the CPU alone, or are copied to it. */
typedef enum lmq_igmp_rx_mode_e LMQ_ENUM_INT {
    LMQ_IGMP_TRAP_TO_CPU = 0,
    LMQ_IGMP_COPY_TO_CPU = 1,
} lmq_igmp_rx_mode_e;

/** @brief Where the VID of messages to the network comes from. */
typedef enum lmq_igmp_vid_src_e LMQ_ENUM_INT {
    LMQ_IGMP_VID_SRC_FIXED = 0,
    LMQ_IGMP_VID_SRC_UC_VLAN = 1,
    LMQ_IGMP_VID_SRC_MC_VLAN = 2,
    LMQ_IGMP_VID_SRC_MAX = 3,
} lmq_igmp_vid_src_e;

/** @brief What happens to the tag of messages. */
typedef enum lmq_igmp_vlan_tag_action_e LMQ_ENUM_INT {
    LMQ_IGMP_VLAN_ACTION_ASIS = 0,
    LMQ_IGMP_VLAN_ACTION_UNCOND_PUSH = 1,
    LMQ_IGMP_VLAN_ACTION_PUSH = 2, /**< If they have none. */
    LMQ_IGMP_VLAN_ACTION_POP = 3,
    LMQ_IGMP_VLAN_ACTION_SWAP_TCI = 4,
    LMQ_IGMP_VLAN_ACTION_SWAP_VID = 5,
    LMQ_IGMP_VLAN_ACTION_INVALID = 6,
    LMQ_IGMP_VLAN_ACTION_MAX = 6,
} lmq_igmp_vlan_tag_action_e;

/** @brief Tags of messages on a port, in both directions (us, ds). */
typedef struct {
    lmq_igmp_vlan_tag_action_e us_vlan_cmd;
    lmq_igmp_vid_src_e us_vid_src;
    vx_uint16 us_igmp_tci; /**< TCI (IEEE 802.1Q): priority, drop eligible bit and VID. */
    lmq_igmp_vlan_tag_action_e ds_vlan_cmd;
    vx_uint16 ds_igmp_tci; /**< The same. */
} lmq_igmp_vlan_cfg_s;

/**
 * @brief Starts snooping on a port.
 * @param dev_id     The device.
 * @param port_num   The port.
 * @param proto_type What to snoop.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_proto_type_e proto_type);

/**
 * @brief Ends snooping on a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num);

/**
 * @brief Sets the tags of messages on a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    The tags.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg);

/**
 * @brief Reads the tags of messages on a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg);

/**
 * @brief Prints the tags of messages on a port on the console.
 * @param dev_id   The device.
 * @param port_num The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_print_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num);

/** @} */

/** @name For debugging */
/** @{ */

/** @brief The host behind a port. */
typedef struct vx_mcast_host_info_dbg_s {
    vx_uint8 host_vid_cnt; /**< VIDs in host_vid_list that count. */
    vx_uint16 host_vid_list[10];
} vx_mcast_host_info_dbg_t;

/** @brief The sources that a host asks for. */
typedef struct {
    vx_mcast_src_filter_mode_t filter_mode;
    vx_uint8 src_ip_cnt; /**< Addresses in src_ip_list that count. */
    vx_ip_addr_t src_ip_list[10];
} lmq_mcast_src_filter_list_dbg_s;

/** @brief What a host has joined. */
typedef struct {
    vx_uint16 sub_port_id; /**< Part of the port. */
    vx_vid_t mcast_vlan;   /**< A VLAN that was added. */
    vx_acl_mcast_grp_addr_t mcast_grp_addr;
    lmq_mcast_src_filter_list_dbg_s src_filter_list;
} lmq_mcast_filter_cfg_dbg_s;

/**
 * @brief Does what a join by a host would do.
 * @param dev_id         The device.
 * @param port_num       The port.
 * @param p_host_info    The host.
 * @param p_mcast_filter What it joins.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_set_mcast_filter_config(vx_dev_id_t dev_id, vx_uint16 port_num,
                                            vx_mcast_host_info_dbg_t *p_host_info,
                                            lmq_mcast_filter_cfg_dbg_s *p_mcast_filter);

/**
 * @brief Prints the access list of a port on the console.
 * @param dev_id       The device.
 * @param uni_port_num The port, a UNI.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_mc_grp_acl(vx_dev_id_t dev_id, vx_uint16 uni_port_num);

/**
 * @brief Prints the multicast VLANs of a port on the console.
 * @param dev_id       The device.
 * @param uni_port_num The port, a UNI.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_mc_vlan_cfg(vx_dev_id_t dev_id, vx_uint16 uni_port_num);

/**
 * @brief Prints the multicast VLANs of all ports on the console.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_all_mc_vlan_cfg(vx_dev_id_t dev_id);

/**
 * @brief Prints all multicast groups on the console.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_mc_db(vx_dev_id_t dev_id);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
