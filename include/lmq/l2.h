/**
 * @file
 * @brief Layer 2 forwarding: learning, ageing, the forwarding database (FDB), spanning tree, port defaults, sizes,
 *        tags, host MAC filters, flooding, isolation, loopback and static forwarding.
 *
 * Ports are those of vx_port_num_t; some functions call them FE ports, ports of the forwarding engine.
 */
#ifndef LMQ_L2_H
#define LMQ_L2_H

#include "lmq/flow.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @brief What happens to a packet whose source address moves to another port (station move). */
typedef enum vx_stn_mv_act_t LMQ_ENUM_INT {
    VX_STN_MV_ACT_DRP_PKT = 0, /**< It is dropped. */
    VX_STN_MV_ACT_FWD_LRN = 1, /**< It is forwarded, and its address learnt on the new port. */
} vx_stn_mv_act_t;

/** @brief What happens to a packet that came round a loop. */
typedef enum vx_lp_det_act_t LMQ_ENUM_INT {
    VX_LP_DET_ACT_DISABLE = 0, /**< Nothing: loops are not looked for. */
    VX_LP_DET_ACT_DRP_PKT = 1, /**< It is dropped. */
} vx_lp_det_act_t;

/** @brief Which VLAN identifier is learnt with an address: of the packet as it arrives (INGR) or leaves (EGR). */
typedef enum vx_lrn_vid_sel_t LMQ_ENUM_INT {
    VX_LRN_INGR_TOP_VID_OR_PVID = 0, /**< Outer VID on arrival; without a tag, the PVID of the port. */
    VX_LRN_INGR_INNER_VID = 1,       /**< Inner VID on arrival. */
    VX_LRN_EGR_TOP_VID = 2,          /**< Outer VID on leaving. */
    VX_LRN_EGR_INNER_VID = 3,        /**< Inner VID on leaving. */
} vx_lrn_vid_sel_t;

/** @brief What is learnt from a packet beyond the port's limit: nothing, or its address in place of the oldest. */
typedef enum vx_lrn_lmt_lrn_act_t LMQ_ENUM_INT {
    VX_LRN_LMT_LRN_ACT_NO_LRN = 0,      /**< Nothing is learnt. */
    VX_LRN_LMT_LRN_ACT_REP_OLD_ENT = 1, /**< Its address replaces the oldest. */
} vx_lrn_lmt_lrn_act_t;

/** @brief Which entries of the FDB an operation is about: learnt ones, configured ones, or all. Bits. */
typedef enum vx_l2_fdb_entry_op_type_t LMQ_ENUM_INT {
    VX_FDB_ENTRY_OP_TYPE_DYNAMIC = 1, /**< Learnt entries, which age. */
    VX_FDB_ENTRY_OP_TYPE_STATIC = 2,  /**< Configured entries, which stay. */
    VX_FDB_ENTRY_OP_TYPE_BOTH = 3,    /**< All entries. */
} vx_l2_fdb_entry_op_type_t;

/** @brief State of a port in the spanning tree (IEEE 802.1D). */
typedef enum vx_l2_stp_state_t LMQ_ENUM_INT {
    VX_L2_STP_STATE_STP_OFF = 0,    /**< The port takes no part in the spanning tree. */
    VX_L2_STP_STATE_DISABLED = 1,   /**< Switched off by management. */
    VX_L2_STP_STATE_BLOCKING = 2,   /**< Neither learns nor forwards. */
    VX_L2_STP_STATE_LEARNING = 3,   /**< Learns, but does not forward yet. */
    VX_L2_STP_STATE_FORWARDING = 4, /**< Learns and forwards. */
    VX_L2_STP_STATE_LINK_DOWN = 5,  /**< There is no link. */
} vx_l2_stp_state_t;

/** @brief In which tag of a packet a TPID is recognised. Bits. */
typedef enum vx_l2_tpid_mode_t LMQ_ENUM_INT {
    VX_L2_TPID_MODE_DISABLE = 0, /**< In none. */
    VX_L2_TPID_MODE_INNER = 1,   /**< In the inner tag. */
    VX_L2_TPID_MODE_OUTER = 2,   /**< In the outer tag. */
    VX_L2_TPID_MODE_BOTH = 3,    /**< In both. */
} vx_l2_tpid_mode_t;

/** @brief What happens on the way out to a tag with the port's own VLAN identifier (PVID). */
typedef enum vx_egrs_pvid_vlan_op_t LMQ_ENUM_INT {
    VX_EGRS_PVID_VLAN_OP_NOP = 0, /**< It stays. */
    VX_EGRS_PVID_VLAN_OP_POP = 1, /**< It is removed. */
} vx_egrs_pvid_vlan_op_t;

/** @brief What a filter does: nothing, pass what is listed, or drop what is listed. */
typedef enum vx_l2_filter_type_t LMQ_ENUM_INT {
    LMQ_FILTER_DISABLE = 0,  /**< Nothing is filtered. */
    LMQ_FILTER_POSITIVE = 1, /**< What is listed passes. */
    LMQ_FILTER_NEGATIVE = 2, /**< What is listed is dropped. */
} vx_l2_filter_type_t;

/** @brief Learning on all ports. */
typedef struct {
    vx_boolean dsbl_hw_lrn;       /**< TRUE: the chip learns no addresses. */
    vx_boolean dsbl_hw_aging;     /**< TRUE: learnt entries do not age. */
    vx_stn_mv_act_t stn_mv_act;   /**< What happens when an address moves to another port. */
    vx_lp_det_act_t loop_det_act; /**< What happens to a packet that came round a loop. */
    vx_uint16 loop_det_timer;     /**< Time of loop detection, in units of the chip. */
    union {
        struct {
            vx_uint32 dsbl_hw_lrn : 1;
            vx_uint32 dsbl_hw_aging : 1;
            vx_uint32 dsbl_stn_mv : 1; /**< Selects no member. */
            vx_uint32 stn_mv_act : 1;
            vx_uint32 loop_det_act : 1;
            vx_uint32 loop_det_timer : 1;
            vx_uint32 rsvd : 26; /**< Reserved. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_learn_cfg_t;

/** @brief Learning on a port. */
typedef struct {
    vx_boolean enbl_pbit_lrn;             /**< The priority bits are part of what is learnt. */
    vx_boolean enbl_vid_lrn;              /**< The VLAN identifier is part of what is learnt. */
    vx_lrn_vid_sel_t lrn_vid_sel;         /**< Which VLAN identifier is learnt. */
    vx_boolean enbl_mac_lrn;              /**< The port learns addresses. */
    vx_boolean dsbl_drp_pkt_lrn;          /**< Nothing is learnt from packets that are dropped. */
    vx_boolean dsbl_cpu_pkt_lrn;          /**< Nothing is learnt from packets for the CPU. */
    vx_lrn_lmt_pkt_act_t lrn_lmt_pkt_act; /**< What happens to a packet beyond the limit. */
    vx_lrn_lmt_lrn_act_t lrn_lmt_lrn_act; /**< What is learnt from a packet beyond the limit. */
    vx_uint16 lrn_lmt;                    /**< {0..1024} Most addresses that the port learns. */
    union {
        struct {
            vx_uint32 enbl_pbit_lrn : 1;
            vx_uint32 enbl_vid_lrn : 1;
            vx_uint32 lrn_vid_sel : 1;
            vx_uint32 enbl_mac_lrn : 1;
            vx_uint32 dsbl_drp_pkt_lrn : 1;
            vx_uint32 dsbl_cpu_pkt_lrn : 1;
            vx_uint32 lrn_lmt_pkt_act : 1;
            vx_uint32 lrn_lmt_lrn_act : 1;
            vx_uint32 lrn_lmt : 1;
            vx_uint32 rsvd : 23; /**< Reserved. */
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_learn_port_cfg_t;

/** @brief An entry of the FDB, as it is added and deleted. The *_valid, at least one, say what it is looked up by. */
typedef struct {
    vx_mac_addr_t mac_addr;    /**< Address that packets are sent to. */
    vx_uint8 p_bit;            /**< {0..7} Priority bits of these packets. */
    vx_uint16 vlan_id;         /**< {id vlan} VLAN of these packets. */
    vx_boolean mac_addr_valid; /**< mac_addr is part of the key. */
    vx_boolean p_bit_valid;    /**< p_bit is part of the key. */
    vx_boolean vid_valid;      /**< vlan_id is part of the key. */
    vx_uint16 port_id;         /**< {id port} Where the packets go. */
} vx_l2_fdb_entry_t;

/** @brief An entry of the FDB, as the table reports it. */
typedef struct {
    vx_mac_addr_t mac_addr;    /**< Address that packets are sent to. */
    vx_uint8 p_bit;            /**< {0..7} Priority bits of these packets. */
    vx_uint16 vlan_id;         /**< {id vlan} VLAN of these packets. */
    vx_boolean mac_addr_valid; /**< mac_addr is part of the key. */
    vx_boolean p_bit_valid;    /**< p_bit is part of the key. */
    vx_boolean vid_valid;      /**< vlan_id is part of the key. */
    vx_uint16 port_id;         /**< {id port} Where the packets go. */
    vx_boolean is_static;      /**< TRUE: configured; FALSE: learnt, or added as such. */
    vx_uint32 aging_time;      /**< {s} What it has left; 0 if it does not age. */
} vx_l2_mac_tbl_entry_t;

/** @brief The size of the largest packet of a port. */
typedef struct {
    vx_uint16 max_pkt_size; /**< {64..9600 bytes} Size of the largest packet that passes. */
    vx_boolean exclude_tag; /**< TRUE: VLAN tags do not count. */
    union {
        struct {
            vx_uint32 max_pkt_size : 1;
            vx_uint32 exclude_tag : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_mtu_cfg_t;

/** @brief The host MAC filter of a port. */
typedef struct {
    vx_l2_filter_type_t filter_type; /**< Whether listed addresses pass or are dropped. */
} vx_l2_mac_addr_filter_cfg_t;

/** @brief An address of a host MAC filter. */
typedef struct {
    vx_mac_addr_t mac_addr; /**< Address of a host, no group address. */
} vx_l2_user_mac_addr_cfg_t;

/** @brief Admission of packets with one TPID on a port. */
typedef struct {
    vx_l2_tpid_mode_t mode;     /**< In which tags it is recognised. */
    vx_boolean admit_outer_tag; /**< Packets with it in the outer tag are admitted. */
    vx_boolean admit_inner_tag; /**< Packets with it in the inner tag are admitted. */
} vx_l2_tpid_cfg_t;

/** @brief The TPIDs that the forwarding engine knows on a port. Bit n of a bitmap is the n-th of the seven, from 0. */
typedef struct {
    vx_uint16 ingr_outer_tpid1;          /**< The first one that is known in the outer tag. */
    vx_uint16 ingr_outer_tpid2;          /**< The second one that is known in the outer tag. */
    vx_uint16 ingr_outer_tpid3;          /**< The third one that is known in the outer tag. */
    vx_uint16 ingr_outer_tpid4;          /**< The fourth one that is known in the outer tag. */
    vx_uint16 ingr_inner_tpid1;          /**< The first one that is known in the inner tag. */
    vx_uint16 ingr_inner_tpid2;          /**< The second one that is known in the inner tag. */
    vx_uint16 ingr_inner_tpid3;          /**< The third one that is known in the inner tag. */
    vx_uint8 tpid_detection_enbl_bitmap; /**< {bits} Which TPIDs are recognised. */
    vx_uint8 tpid_deny_filter_bitmap;    /**< {bits} With which TPIDs packets are dropped. */
    union {
        struct {
            vx_uint32 ingr_outer_tpid1 : 1;
            vx_uint32 ingr_outer_tpid2 : 1;
            vx_uint32 ingr_outer_tpid3 : 1;
            vx_uint32 ingr_outer_tpid4 : 1;
            vx_uint32 ingr_inner_tpid1 : 1;
            vx_uint32 ingr_inner_tpid2 : 1;
            vx_uint32 ingr_inner_tpid3 : 1;
            vx_uint32 tpid_detection_enbl_bitmap : 1;
            vx_uint32 tpid_deny_filter_bitmap : 1;
        } mask_s;
        vx_uint8 mask; /**< Ends before tpid_deny_filter_bitmap, which mask_s alone reaches. */
    } valid;
} vx_l2_fe_tpid_cfg_t;

/** @brief What the forwarding engine assumes of packets on a port that don't say it themselves. */
typedef struct {
    vx_vid_t dft_pvid;                        /**< VLAN of packets without a tag (PVID). */
    vx_uint8 dft_pbit;                        /**< {0..7} Priority of packets without a tag. */
    vx_uint16 dft_tpid;                       /**< TPID of tags that are added. */
    vx_uint8 dft_dscp;                        /**< {0..63} DSCP of packets that have none. */
    vx_uint8 dft_cos;                         /**< {0..7} Class of service of packets that nothing else gives one. */
    vx_uint8 bc_cos;                          /**< {0..7} Class of service of broadcast packets. */
    vx_uint8 umc_cos;                         /**< {0..7} Class of service of unknown multicast packets. */
    vx_uint8 uuc_cos;                         /**< {0..7} Class of service of unknown unicast packets. */
    vx_uint8 ipv4_dscp_mask;                  /**< {bits} Mask over the DSCP of IPv4 packets. */
    vx_uint8 ipv6_tc_mask;                    /**< {bits} Mask over the traffic class of IPv6 packets. */
    vx_egrs_pvid_vlan_op_t egrs_pvid_vlan_op; /**< What happens on the way out to a tag with the PVID. */
    union {
        struct {
            vx_uint32 dft_pvid : 1;
            vx_uint32 dft_pbit : 1;
            vx_uint32 dft_tpid : 1;
            vx_uint32 dft_dscp : 1;
            vx_uint32 dft_cos : 1;
            vx_uint32 bc_cos : 1;
            vx_uint32 umc_cos : 1;
            vx_uint32 uuc_cos : 1;
            vx_uint32 ipv4_dscp_mask : 1;
            vx_uint32 ipv6_tc_mask : 1;
            vx_uint32 egrs_pvid_vlan_op : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_port_cfg_t;

/** @brief OAM loopback of a port (IEEE 802.3, clause 57). */
typedef struct {
    vx_boolean enbl_lpbk;       /**< The port sends back what it receives. */
    vx_boolean enbl_da_sa_swap; /**< Destination and source address of a looped packet change places. */
} vx_l2_port_oam_lpbk_t;

/** @brief Where broadcast, multicast and unknown unicast packets of a port are sent. No flag selects an enbl_*. */
typedef struct {
    vx_boolean enbl_bc_pkt_dpid; /**< Broadcast packets go to bc_pkt_dpid. */
    vx_uint16 bc_pkt_dpid;       /**< {id port} Destination of broadcast packets. */
    vx_boolean enbl_mc_pkt_dpid; /**< Multicast packets go to mc_pkt_dpid. */
    vx_uint16 mc_pkt_dpid;       /**< {id port} Destination of multicast packets. */
    vx_uint16 enbl_uuc_pkt_dpid; /**< {0..1} 1: unknown unicast packets go to uuc_pkt_dpid. */
    vx_uint16 uuc_pkt_dpid;      /**< {id port} Destination of unknown unicast packets. */
    union {
        struct {
            vx_uint32 bc_pkt_dpid : 1;
            vx_uint32 mc_pkt_dpid : 1;
            vx_uint32 uuc_pkt_dpid : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_static_pkt_fwd_cfg_t;

/** @brief What a port does not flood. */
typedef struct vx_l2_flood_ctrl_s {
    vx_boolean bcast_drop;           /**< Broadcast packets are dropped. */
    vx_boolean unknown_unicast_drop; /**< Unicast packets to an unknown address are dropped. */
    vx_boolean unknown_mcast_drop;   /**< Multicast packets to an unknown group are dropped. */
    vx_uint8 rsvd;                   /**< Reserved. */
} vx_l2_flood_ctrl_t;

/**
 * @brief Sets the flagged members of learning on all ports.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  What to set; its `valid` says which members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_set(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg);

/**
 * @brief Reads learning on all ports.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  How they learn; `valid` flags all members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_get(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg);

/**
 * @brief Sets the flagged members of learning on a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   What to set; its `valid` says which members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg);

/**
 * @brief Reads learning on a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   How it learns; `valid` flags all members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg);

/**
 * @brief Switches learning on a port, which is enbl_mac_lrn of its configuration.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id port} The port.
 * @param[in] enbl    TRUE to learn.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_enable_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean enbl);

/**
 * @brief Reads whether a port learns, which is enbl_mac_lrn of its configuration.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id port} The port.
 * @param[out] p_enbl  TRUE if it learns.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_enable_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_enbl);

/**
 * @brief Sets how long a learnt entry of the forwarding database stays without traffic.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] aging_time {s} The time; 0: for ever.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_aging_timer_set(vx_dev_id_t dev_id, vx_uint32 aging_time);

/**
 * @brief Reads how long a learnt entry of the forwarding database stays without traffic.
 * @par Effect: reads
 * @param[in]  dev_id       The device.
 * @param[out] p_aging_time {s} The time; 0: for ever.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_aging_timer_get(vx_dev_id_t dev_id, vx_uint32 *p_aging_time);

/**
 * @brief Adds an entry to the forwarding database.
 * @par Effect: changes
 * @par Read back: vx_l2_fdb_entry_get_next(port_id=VX_INVALID_PORT_ID, mode=VX_FDB_ENTRY_OP_TYPE_STATIC,
 *     handle=p_handle): type=VX_FDB_ENTRY_OP_TYPE_STATIC, p_mac_entry=p_mac_entry, p_handle=p_handle
 * @par Undone by: vx_l2_fdb_entry_delete
 * @param[in]  dev_id      The device.
 * @param[in]  type        {VX_FDB_ENTRY_OP_TYPE_DYNAMIC..VX_FDB_ENTRY_OP_TYPE_STATIC} Whether it ages or stays.
 * @param[in]  p_mac_entry The entry.
 * @param[out] p_handle    {id fdb-entry} Its handle, not 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_add(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_t *p_mac_entry,
                                vx_l2_fdb_entry_handle_t *p_handle);

/**
 * @brief Deletes an entry from the forwarding database.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] type        What the entry must be.
 * @param[in] handle      {id fdb-entry} Its handle; 0: p_mac_entry says which.
 * @param[in] p_mac_entry The entry by its key; read if handle is 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_delete(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_handle_t handle,
                                   vx_l2_fdb_entry_t *p_mac_entry);

/**
 * @brief Reads the entry behind another: the forwarding database is walked by sending back each handle.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  port_id     {id port or VX_INVALID_PORT_ID} The port that packets go to; VX_INVALID_PORT_ID: any.
 * @param[in]  handle      {id fdb-entry} Where the walk stands: the handle of the entry before; 0: at the start.
 * @param[in]  mode        Entries to visit.
 * @param[out] p_mac_entry The entry.
 * @param[out] p_handle    {id fdb-entry} Its handle, to go on with.
 * @return VX_SUCCESS; VX_ERR_FE_FDB_ENTRY_NOT_FOUND behind the last entry; or a status.
 */
vx_status_e vx_l2_fdb_entry_get_next(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_handle_t handle,
                                     vx_l2_fdb_entry_op_type_t mode, vx_l2_mac_tbl_entry_t *p_mac_entry,
                                     vx_l2_fdb_entry_handle_t *p_handle);

/**
 * @brief Deletes entries of all ports from the forwarding database.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] type   Entries to delete.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_clear(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type);

/**
 * @brief Deletes entries of a port from the forwarding database.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port that packets go to.
 * @param[in] type    Entries to delete.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_port_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_op_type_t type);

/**
 * @brief Sets the spanning tree state of a port.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] port_id   The port.
 * @param[in] stp_state The state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_stp_state_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t stp_state);

/**
 * @brief Reads the spanning tree state of a port.
 * @par Effect: reads
 * @param[in]  dev_id    The device.
 * @param[in]  port_id   The port.
 * @param[out] stp_state The state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_stp_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t *stp_state);

/**
 * @brief Sets the size of the largest packet of a port, as far as it is flagged.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   The size; its `valid` says which members are set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mtu_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg);

/**
 * @brief Reads the size of the largest packet of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   The size; `valid` flags all members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mtu_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg);

/**
 * @brief Sets what the host MAC filter of a port does.
 *
 * It does not turn from positive to negative, or back, while it has addresses.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   What it does.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_l2_mac_addr_filter_cfg_t *p_cfg);

/**
 * @brief Reads what the host MAC filter of a port does.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   What it does.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_l2_mac_addr_filter_cfg_t *p_cfg);

/**
 * @brief Adds addresses to the host MAC filter of a port: all of them, or none if one is there already.
 * @par Effect: changes
 * @par Read back: vx_l2_mac_addr_filter_get: num_mac_addr=1, p_mac_addr_list=p_mac_addr_list[]
 * @par Undone by: vx_l2_mac_addr_filter_delete(delete_all=FALSE)
 * @param[in] dev_id          The device.
 * @param[in] port_id         The port.
 * @param[in] num_mac_addr    {1..16} How many.
 * @param[in] p_mac_addr_list [num_mac_addr] The addresses, none of them zero or a group address.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 num_mac_addr,
                                      vx_l2_user_mac_addr_cfg_t *p_mac_addr_list);

/**
 * @brief Deletes addresses from the host MAC filter of a port: all of them, or none if one is not there.
 * @par Effect: changes
 * @param[in] dev_id          The device.
 * @param[in] port_id         The port.
 * @param[in] delete_all      TRUE to delete all; the two arguments behind it are then ignored.
 * @param[in] num_mac_addr    How many, 1 to 16.
 * @param[in] p_mac_addr_list [num_mac_addr] The addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean delete_all,
                                         vx_uint8 num_mac_addr, vx_l2_user_mac_addr_cfg_t *p_mac_addr_list);

/**
 * @brief Reads the addresses of the host MAC filter of a port.
 * @par Effect: reads
 * @param[in]  dev_id          The device.
 * @param[in]  port_id         The port.
 * @param[in]  get_cnt         How many there is room for.
 * @param[out] p_mac_addr_list [get_cnt; *p_valid_cnt filled] The addresses.
 * @param[out] p_valid_cnt     How many were filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 get_cnt,
                                      vx_l2_user_mac_addr_cfg_t *p_mac_addr_list, vx_uint8 *p_valid_cnt);

/**
 * @brief Sets the admission of packets with a TPID on a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] tpid    The TPID.
 * @param[in] p_cfg   In which tags it is recognised, and which tags are admitted.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_tpid_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg);

/**
 * @brief Reads the admission of packets with a TPID on a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[in]  tpid    The TPID.
 * @param[out] p_cfg   In which tags it is recognised, and which tags are admitted.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_tpid_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg);

/**
 * @brief Sets the flagged ones of the TPIDs that the forwarding engine knows on a port.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @param[in] p_cfg    The TPIDs; its `valid` says which are set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_tpid_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg);

/**
 * @brief Reads the TPIDs that the forwarding engine knows on a port.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port.
 * @param[out] p_cfg    The TPIDs; `valid` flags all.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_tpid_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg);

/**
 * @brief Sets the flagged ones of the forwarding engine's defaults of a port.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @param[in] p_cfg    The defaults; its `valid` says which are set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_config_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg);

/**
 * @brief Reads the forwarding engine's defaults of a port.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port.
 * @param[out] p_cfg    The defaults; `valid` flags all.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_config_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg);

/**
 * @brief Switches isolation, with which Ethernet ports don't forward to each other.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] isolate TRUE to isolate.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_isolation_set(vx_dev_id_t dev_id, vx_boolean isolate);

/**
 * @brief Reads whether the Ethernet ports are isolated.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[out] isolate TRUE if they are.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_isolation_get(vx_dev_id_t dev_id, vx_boolean *isolate);

/**
 * @brief Sets what a port does not flood.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] ctrl    What is dropped.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_flood_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl);

/**
 * @brief Reads what a port does not flood.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] ctrl    What is dropped.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_flood_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl);

/**
 * @brief Sets OAM loopback of a port.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @param[in] p_cfg    Whether and how it loops packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_oam_lpbk_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg);

/**
 * @brief Reads OAM loopback of a port.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port.
 * @param[out] p_cfg    Whether and how it loops packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_oam_lpbk_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg);

/**
 * @brief Sets the three enbl_* and the flagged ones of the static destinations of a port.
 * @par Effect: changes
 * @param[in] dev_id       The device.
 * @param[in] src_port_num {id port} The port that the packets come in by.
 * @param[in] p_cfg        The destinations; its `valid` says which are set.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_static_pkt_fwd_config_set(vx_dev_id_t dev_id, vx_uint16 src_port_num,
                                                 vx_l2_static_pkt_fwd_cfg_t *p_cfg);

/**
 * @brief Reads the static destinations of a port.
 * @par Effect: reads
 * @param[in]  dev_id       The device.
 * @param[in]  src_port_num {id port} The port that the packets come in by.
 * @param[out] p_cfg        The destinations; `valid` flags all.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_static_pkt_fwd_config_get(vx_dev_id_t dev_id, vx_uint16 src_port_num,
                                                 vx_l2_static_pkt_fwd_cfg_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
