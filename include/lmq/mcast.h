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
    VX_MC_VLAN_TAG_ACTION_NOP = 0,           /**< It stays as it is. */
    VX_MC_VLAN_TAG_ACTION_POP = 1,           /**< It is removed. */
    VX_MC_VLAN_TAG_ACTION_SWAP = 2,          /**< Its VID becomes uni_vlan_id. */
    VX_MC_VLAN_TAG_ACTION_SWAP_IGMP_VID = 3, /**< Its VID becomes that of the IGMP report. */
    VX_MC_VLAN_TAG_ACTION_INVALID = 4,       /**< No action; refused. */
    VX_MC_VLAN_TAG_ACTION_MAX = 4,           /**< How many there are; none itself. */
} vx_mcast_vlan_tag_action_t;

/** @brief A multicast VLAN. */
typedef struct vx_mcast_vlan_cfg_s {
    vx_uint16 mcast_vlan; /**< {id vlan, 0..4094} Its VID; 0, when it is set: the VLAN that the call names. */
    vx_mcast_vlan_tag_action_t ds_vlan_cmd; /**< What happens to its tag on the way to a UNI. */
    vx_uint16 uni_vlan_id;                  /**< {id vlan, 0..4094} VID for VX_MC_VLAN_TAG_ACTION_SWAP. */
} vx_mcast_vlan_cfg_t;

/**
 * @brief Adds a multicast VLAN to a port.
 * @par Effect: changes
 * @par Read back: vx_mcast_vlan_get: mcast_vlan=p_cfg[].mcast_vlan
 * @par Undone by: vx_mcast_vlan_delete
 * @param[in] dev_id     The device.
 * @param[in] port_id    The port.
 * @param[in] mcast_vlan {id vlan, 1..4094} The VLAN.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan);

/**
 * @brief Deletes a multicast VLAN of a port, with its groups and joins.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] port_id    The port.
 * @param[in] mcast_vlan {id vlan, 1..4094} The VLAN.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan);

/**
 * @brief Deletes all multicast VLANs of a port, with their groups and joins.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Lists the multicast VLANs of a port.
 * @par Effect: reads
 * @param[in]     dev_id  The device.
 * @param[in]     port_id The port.
 * @param[in,out] num     How many there is room for; after the call, how many were filled.
 * @param[out]    p_cfg   [*num] The VLANs.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_vlan_cfg_t *p_cfg);

/**
 * @brief Configures a multicast VLAN that was added to a port.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] port_id    The port.
 * @param[in] mcast_vlan {id vlan, 1..4094} The VLAN.
 * @param[in] p_cfg      What to set; its mcast_vlan is the same VLAN, or 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_vlan_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan,
                                     vx_mcast_vlan_cfg_t *p_cfg);

/**
 * @brief Reads how a multicast VLAN of a port is configured.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  port_id    The port.
 * @param[in]  mcast_vlan {id vlan, 1..4094} The VLAN.
 * @param[out] p_cfg      How it is configured.
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
    LMQ_MC_SRC_FILTER_MODE_IGNORE = 2,  /**< All. */
    LMQ_MC_SRC_FILTER_MODE_MAX = 3,     /**< How many there are; none itself. */
} vx_mcast_src_filter_mode_t;

/** @brief A group that is a MAC address. */
typedef struct vx_mcast_l2_entry_s {
    vx_uint16 sub_port;     /**< Part of the port; the same group in another part is another one. */
    vx_uint16 mcast_vlan;   /**< {id vlan, 1..4094} A multicast VLAN that was added to the port. */
    vx_mac_addr_t mac_addr; /**< The group: a multicast address (IEEE 802). */
} vx_mcast_l2_entry_t;

/** @brief A group that is an IP address. */
typedef struct vx_mcast_ip_entry_s {
    vx_uint16 mcast_vlan;                   /**< {id vlan, 1..4094} A multicast VLAN that was added to the port. */
    vx_uint16 sub_port;                     /**< Part of the port; the same group in another part is another one. */
    vx_ip_addr_t grp_addr;                  /**< The group: a multicast address (RFC 5771, RFC 4291). */
    vx_mcast_src_filter_mode_t filter_mode; /**< Which sources are received. */
    vx_uint8 src_num;                       /**< {0..MAX_MCAST_SRC_NUM} Sources in src_list that count. */
    vx_ip_addr_t src_list[2];               /**< Sources, of the same IP version as the group. */
} vx_mcast_ip_entry_t;

/**
 * @brief Adds a group that is a MAC address to a multicast VLAN of a port.
 * @par Effect: changes
 * @par Read back: vx_mcast_l2_entry_get: entry=entry[]
 * @par Undone by: vx_mcast_l2_entry_delete
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] entry   The group.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry);

/**
 * @brief Deletes a group that is a MAC address from a multicast VLAN of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] entry   The group, by VLAN, sub-port and address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry);

/**
 * @brief Deletes all groups of a port that are MAC addresses.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Lists the groups of a port that are MAC addresses.
 * @par Effect: reads
 * @param[in]     dev_id  The device.
 * @param[in]     port_id The port.
 * @param[in,out] num     How many there is room for; after the call, how many were filled.
 * @param[out]    entry   [*num] The groups.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_l2_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_l2_entry_t *entry);

/**
 * @brief Adds a group that is an IP address to a multicast VLAN of a port.
 * @par Effect: changes
 * @par Read back: vx_mcast_ip_entry_get: entry=entry[]
 * @par Undone by: vx_mcast_ip_entry_delete
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] entry   The group, with its sources.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry);

/**
 * @brief Deletes a group that is an IP address from a multicast VLAN of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] entry   The group, by VLAN, sub-port and address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry);

/**
 * @brief Deletes all groups of a port that are IP addresses.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Lists the groups of a port that are IP addresses.
 * @par Effect: reads
 * @param[in]     dev_id  The device.
 * @param[in]     port_id The port.
 * @param[in,out] num     How many there is room for; after the call, how many were filled.
 * @param[out]    entry   [*num] The groups, with their sources.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_ip_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_ip_entry_t *entry);

/** @} */

/** @name Access lists */
/** @{ */

/** @brief What an access list does with its groups. */
typedef enum vx_mcast_acl_mode_t LMQ_ENUM_INT {
    LMQ_MCAST_ACL_DISABLE = 0,         /**< It is off. */
    LMQ_MCAST_ACL_POSITIVE_FILTER = 1, /**< It allows its groups. */
    LMQ_MCAST_ACL_NEGATIVE_FILTER = 2, /**< It denies its groups. */
} vx_mcast_acl_mode_t;

/** @brief Which of its addresses a group goes by. */
typedef enum vx_mcast_addr_type_t LMQ_ENUM_INT {
    VX_ACL_MC_ADDR_TYPE_MAC = 0,  /**< Its MAC address. */
    VX_ACL_MC_ADDR_TYPE_IPV4 = 1, /**< Its IPv4 address. */
    VX_ACL_MC_ADDR_TYPE_IPV6 = 2, /**< Its IPv6 address. */
} vx_mcast_addr_type_t;

/** @brief The address of a group. The interface also spells it struct vx_acl_mcast_grp_addr_s. */
typedef struct vx_acl_mcast_grp_addr_s {
    vx_mcast_addr_type_t addr_type; /**< Which of the two addresses counts, and its IP version. */
    vx_ip_addr_t mc_ip_addr;        /**< The IP address, of the version that addr_type says. */
    vx_mac_addr_t mc_mac_addr;      /**< The MAC address. */
} vx_acl_mcast_grp_addr_t;

/** @brief An entry of an access list: a range of groups, and groups by themselves. */
typedef struct vx_mcast_acl_s {
    vx_uint16 sub_port_id;                /**< Part of the port that the entry is for. */
    vx_uint16 mcast_vlan;                 /**< {id vlan} Multicast VLAN that the entry is for. */
    vx_ip_addr_t grp_start;               /**< First group of the range; zeros in both ends: no range. */
    vx_ip_addr_t grp_end;                 /**< Last group of the range. */
    vx_ip_addr_t src_ip;                  /**< Source of the packets; VX_IP_DONTCARE: any. */
    vx_uint16 mcast_grp_cnt;              /**< {0..2} Groups in mcast_grp that count. */
    vx_acl_mcast_grp_addr_t mcast_grp[2]; /**< Groups by themselves, beside the range. */
} vx_mcast_acl_t;

/**
 * @brief Adds an entry to the multicast access list of a port.
 *
 * The list holds the groups that hosts may join; an empty one allows all.
 * @par Effect: changes
 * @par Read back: vx_mcast_acl_get: p_mcast_acl=p_mcast_acl[]
 * @par Undone by: vx_mcast_acl_delete
 * @param[in] dev_id      The device.
 * @param[in] port_id     The port.
 * @param[in] p_mcast_acl The entry.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_acl_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl);

/**
 * @brief Deletes an entry from the multicast access list of a port.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] port_id     The port.
 * @param[in] p_mcast_acl The entry, the same in all members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_acl_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl);

/**
 * @brief Reads the multicast access list of a port.
 * @par Effect: reads
 * @param[in]     dev_id      The device.
 * @param[in]     port_id     The port.
 * @param[in,out] num         How many there is room for; after the call, how many were filled.
 * @param[out]    p_mcast_acl [*num] The entries, in the order of their addition.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_mcast_acl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_acl_t *p_mcast_acl);

/** @} */

/** @name IGMP and MLD snooping */
/** @{ */

/** @brief What is snooped: both protocols, or one of them. */
typedef enum lmq_igmp_proto_type_e LMQ_ENUM_INT {
    LMQ_IGMP_MLD = 0,  /**< IGMP (IPv4) and MLD (IPv6). */
    LMQ_IGMP_ONLY = 1, /**< IGMP alone. */
    LMQ_MLD_ONLY = 2,  /**< MLD alone. */
} lmq_igmp_proto_type_e;

/** @brief What happens to snooped messages. */
typedef enum lmq_igmp_rx_mode_e LMQ_ENUM_INT {
    LMQ_IGMP_TRAP_TO_CPU = 0, /**< They go to the CPU alone. */
    LMQ_IGMP_COPY_TO_CPU = 1, /**< They go on, and a copy to the CPU. */
} lmq_igmp_rx_mode_e;

/** @brief Where the VID of IGMP and MLD messages to the network comes from. */
typedef enum lmq_igmp_vid_src_e LMQ_ENUM_INT {
    LMQ_IGMP_VID_SRC_FIXED = 0,   /**< The VID of us_igmp_tci. */
    LMQ_IGMP_VID_SRC_UC_VLAN = 1, /**< The VLAN of the host's unicast packets. */
    LMQ_IGMP_VID_SRC_MC_VLAN = 2, /**< The multicast VLAN. */
    LMQ_IGMP_VID_SRC_MAX = 3,     /**< How many there are; none itself. */
} lmq_igmp_vid_src_e;

/** @brief What happens to the tag of IGMP and MLD messages. */
typedef enum lmq_igmp_vlan_tag_action_e LMQ_ENUM_INT {
    LMQ_IGMP_VLAN_ACTION_ASIS = 0,        /**< It stays as it is. */
    LMQ_IGMP_VLAN_ACTION_UNCOND_PUSH = 1, /**< It is added, whatever tags there are. */
    LMQ_IGMP_VLAN_ACTION_PUSH = 2,        /**< It is added if there is none. */
    LMQ_IGMP_VLAN_ACTION_POP = 3,         /**< It is removed. */
    LMQ_IGMP_VLAN_ACTION_SWAP_TCI = 4,    /**< Its whole TCI is replaced. */
    LMQ_IGMP_VLAN_ACTION_SWAP_VID = 5,    /**< Its VID is replaced. */
    LMQ_IGMP_VLAN_ACTION_INVALID = 6,     /**< No action; refused. */
    LMQ_IGMP_VLAN_ACTION_MAX = 6,         /**< How many there are; none itself. */
} lmq_igmp_vlan_tag_action_e;

/** @brief What happens to the tags of IGMP and MLD messages on a port: upstream (us) and downstream (ds). */
typedef struct {
    lmq_igmp_vlan_tag_action_e us_vlan_cmd; /**< What happens to the tag upstream. */
    lmq_igmp_vid_src_e us_vid_src;          /**< Where its VID comes from upstream. */
    vx_uint16 us_igmp_tci;                  /**< TCI upstream (IEEE 802.1Q): priority, drop eligible bit and VID. */
    lmq_igmp_vlan_tag_action_e ds_vlan_cmd; /**< What happens to the tag downstream. */
    vx_uint16 ds_igmp_tci;                  /**< TCI downstream. */
} lmq_igmp_vlan_cfg_s;

/**
 * @brief Starts snooping of IGMP and MLD on a port.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] port_num   {id port} The port.
 * @param[in] proto_type What to snoop.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_proto_type_e proto_type);

/**
 * @brief Ends snooping of IGMP and MLD on a port, and with it all joins.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num);

/**
 * @brief Sets what happens to the tags of IGMP and MLD messages on a port.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @param[in] p_cfg    What happens to the tags.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg);

/**
 * @brief Reads what happens to the tags of IGMP and MLD messages on a port.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port.
 * @param[out] p_cfg    What happens to the tags.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg);

/**
 * @brief Prints on the console what happens to the tags of IGMP and MLD messages on a port.
 * @par Effect: reads
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_print_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num);

/** @} */

/** @name For debugging */
/** @{ */

/** @brief The host behind a port. */
typedef struct vx_mcast_host_info_dbg_s {
    vx_uint8 host_vid_cnt;       /**< {0..10} VIDs in host_vid_list that count. */
    vx_uint16 host_vid_list[10]; /**< {id vlan} VLANs that the host sends in. */
} vx_mcast_host_info_dbg_t;

/** @brief The sources that a host asks for. */
typedef struct {
    vx_mcast_src_filter_mode_t filter_mode; /**< Which sources it asks for. */
    vx_uint8 src_ip_cnt;                    /**< {0..10} Addresses in src_ip_list that count. */
    vx_ip_addr_t src_ip_list[10];           /**< Sources that it lists. */
} lmq_mcast_src_filter_list_dbg_s;

/** @brief What a host has joined. */
typedef struct {
    vx_uint16 sub_port_id;                           /**< Part of the port that it joins by. */
    vx_vid_t mcast_vlan;                             /**< {1..4094} A multicast VLAN that was added to the port. */
    vx_acl_mcast_grp_addr_t mcast_grp_addr;          /**< The group. */
    lmq_mcast_src_filter_list_dbg_s src_filter_list; /**< The sources that it asks for. */
} lmq_mcast_filter_cfg_dbg_s;

/**
 * @brief Does what a join by a host would do.
 *
 * The port needs snooping, and its access list must allow the group. A second join of the same group replaces the
 * first.
 * @par Effect: changes
 * @param[in] dev_id         The device.
 * @param[in] port_num       {id port} The port.
 * @param[in] p_host_info    The host.
 * @param[in] p_mcast_filter What it joins.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_set_mcast_filter_config(vx_dev_id_t dev_id, vx_uint16 port_num,
                                            vx_mcast_host_info_dbg_t *p_host_info,
                                            lmq_mcast_filter_cfg_dbg_s *p_mcast_filter);

/**
 * @brief Prints the multicast access list of a port on the console.
 * @par Effect: reads
 * @param[in] dev_id       The device.
 * @param[in] uni_port_num {id port} The port, a UNI.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_mc_grp_acl(vx_dev_id_t dev_id, vx_uint16 uni_port_num);

/**
 * @brief Prints the multicast VLANs of a port on the console.
 * @par Effect: reads
 * @param[in] dev_id       The device.
 * @param[in] uni_port_num {id port} The port, a UNI.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_mc_vlan_cfg(vx_dev_id_t dev_id, vx_uint16 uni_port_num);

/**
 * @brief Prints the multicast VLANs of all ports on the console.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_all_mc_vlan_cfg(vx_dev_id_t dev_id);

/**
 * @brief Prints all multicast groups and joins on the console.
 * @par Effect: reads
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_dbg_print_mc_db(vx_dev_id_t dev_id);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
