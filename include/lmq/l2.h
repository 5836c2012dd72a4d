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
    VX_STN_MV_ACT_DRP_PKT = 0,
    VX_STN_MV_ACT_FWD_LRN = 1,
} vx_stn_mv_act_t;

/** @brief What happens to a packet that came round a loop. */
typedef enum vx_lp_det_act_t LMQ_ENUM_INT {
    VX_LP_DET_ACT_DISABLE = 0,
    VX_LP_DET_ACT_DRP_PKT = 1,
} vx_lp_det_act_t;

/** @brief Which VLAN identifier is learnt with an address: of the packet as it arrives (INGR) or leaves (EGR). */
typedef enum vx_lrn_vid_sel_t LMQ_ENUM_INT {
    VX_LRN_INGR_TOP_VID_OR_PVID = 0,
    VX_LRN_INGR_INNER_VID = 1,
    VX_LRN_EGR_TOP_VID = 2,
    VX_LRN_EGR_INNER_VID = 3,
} vx_lrn_vid_sel_t;

/** @brief What is learnt from a packet beyond the port's limit: nothing, or its address in place of the oldest. */
typedef enum vx_lrn_lmt_lrn_act_t LMQ_ENUM_INT {
    VX_LRN_LMT_LRN_ACT_NO_LRN = 0,
    VX_LRN_LMT_LRN_ACT_REP_OLD_ENT = 1,
} vx_lrn_lmt_lrn_act_t;

/** @brief Which entries of the FDB an operation is about: learnt ones, configured ones, or all. Bits. */
typedef enum vx_l2_fdb_entry_op_type_t LMQ_ENUM_INT {
    VX_FDB_ENTRY_OP_TYPE_DYNAMIC = 1,
    VX_FDB_ENTRY_OP_TYPE_STATIC = 2,
    VX_FDB_ENTRY_OP_TYPE_BOTH = 3,
} vx_l2_fdb_entry_op_type_t;

/** @brief State of a port in the spanning tree (IEEE 802.1D). */
typedef enum vx_l2_stp_state_t LMQ_ENUM_INT {
    VX_L2_STP_STATE_STP_OFF = 0,
    VX_L2_STP_STATE_DISABLED = 1,
    VX_L2_STP_STATE_BLOCKING = 2,
    VX_L2_STP_STATE_LEARNING = 3,
    VX_L2_STP_STATE_FORWARDING = 4,
    VX_L2_STP_STATE_LINK_DOWN = 5,
} vx_l2_stp_state_t;

/** @brief In which tag of a packet a TPID is recognised. Bits. */
typedef enum vx_l2_tpid_mode_t LMQ_ENUM_INT {
    VX_L2_TPID_MODE_DISABLE = 0,
    VX_L2_TPID_MODE_INNER = 1,
    VX_L2_TPID_MODE_OUTER = 2,
    VX_L2_TPID_MODE_BOTH = 3,
} vx_l2_tpid_mode_t;

/** @brief What happens on the way out to a tag with the port's own VLAN identifier (PVID). */
typedef enum vx_egrs_pvid_vlan_op_t LMQ_ENUM_INT {
    VX_EGRS_PVID_VLAN_OP_NOP = 0,
    VX_EGRS_PVID_VLAN_OP_POP = 1,
} vx_egrs_pvid_vlan_op_t;

/** @brief What a port's host MAC filter does: nothing, pass the listed addresses alone, or drop the listed ones. */
typedef enum vx_l2_filter_type_t LMQ_ENUM_INT {
    LMQ_FILTER_DISABLE = 0,
    LMQ_FILTER_POSITIVE = 1,
    LMQ_FILTER_NEGATIVE = 2,
} vx_l2_filter_type_t;

/** @brief Learning on all ports. */
typedef struct {
    vx_boolean dsbl_hw_lrn;
    vx_boolean dsbl_hw_aging;
    vx_stn_mv_act_t stn_mv_act;
    vx_lp_det_act_t loop_det_act;
    vx_uint16 loop_det_timer; /**< In units of the chip. */
    union {
        struct {
            vx_uint32 dsbl_hw_lrn : 1;
            vx_uint32 dsbl_hw_aging : 1;
            vx_uint32 dsbl_stn_mv : 1; /**< Selects no member. */
            vx_uint32 stn_mv_act : 1;
            vx_uint32 loop_det_act : 1;
            vx_uint32 loop_det_timer : 1;
            vx_uint32 rsvd : 26;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_learn_cfg_t;

/** @brief Learning on a port. */
typedef struct {
    vx_boolean enbl_pbit_lrn; /**< The priority bits are part of what is learnt. */
    vx_boolean enbl_vid_lrn; /**< The VLAN identifier is part of what is learnt. */
    vx_lrn_vid_sel_t lrn_vid_sel;
    vx_boolean enbl_mac_lrn;
    vx_boolean dsbl_drp_pkt_lrn; /**< Nothing is learnt from packets that are dropped. */
    vx_boolean dsbl_cpu_pkt_lrn; /**< Nothing is learnt from packets for the CPU. */
    vx_lrn_lmt_pkt_act_t lrn_lmt_pkt_act; /**< What happens to a packet beyond the limit. */
    vx_lrn_lmt_lrn_act_t lrn_lmt_lrn_act;
    vx_uint16 lrn_lmt; /**< Most addresses that are learnt on the port. */
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
            vx_uint32 rsvd : 23;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_l2_learn_port_cfg_t;

/** @brief An entry of the FDB, as it is added and deleted. The three *_valid say what the entry is looked up by. */
typedef struct {
    vx_mac_addr_t mac_addr;
    vx_uint8 p_bit; /**< 0 to 7. */
    vx_uint16 vlan_id;
    vx_boolean mac_addr_valid;
    vx_boolean p_bit_valid;
    vx_boolean vid_valid;
    vx_uint16 port_id; /**< Where packets to the address go. */
} vx_l2_fdb_entry_t;

/** @brief An entry of the FDB, as the table reports it. */
typedef struct {
    vx_mac_addr_t mac_addr;
    vx_uint8 p_bit; /**< 0 to 7. */
    vx_uint16 vlan_id;
    vx_boolean mac_addr_valid;
    vx_boolean p_bit_valid;
    vx_boolean vid_valid;
    vx_uint16 port_id; /**< Where packets to the address go. */
    vx_boolean is_static;
    vx_uint32 aging_time; /**< In the unit of vx_l2_aging_timer_set. */
} vx_l2_mac_tbl_entry_t;

/** @brief The largest packet of a port. */
typedef struct {
    vx_uint16 max_pkt_size; /**< In bytes. */
    vx_boolean exclude_tag; /**< VLAN tags don't count. */
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
    vx_l2_filter_type_t filter_type;
} vx_l2_mac_addr_filter_cfg_t;

/** @brief An address of a host MAC filter. */
typedef struct {
    vx_mac_addr_t mac_addr;
} vx_l2_user_mac_addr_cfg_t;

/** @brief Admission of packets with one TPID on a port. */
typedef struct {
    vx_l2_tpid_mode_t mode;
    vx_boolean admit_outer_tag;
    vx_boolean admit_inner_tag;
} vx_l2_tpid_cfg_t;

/** @brief The TPIDs that the forwarding engine knows on a port. Bit n of a bitmap is the n-th of the seven, from 0. */
typedef struct {
    vx_uint16 ingr_outer_tpid1;
    vx_uint16 ingr_outer_tpid2;
    vx_uint16 ingr_outer_tpid3;
    vx_uint16 ingr_outer_tpid4;
    vx_uint16 ingr_inner_tpid1;
    vx_uint16 ingr_inner_tpid2;
    vx_uint16 ingr_inner_tpid3;
    vx_uint8 tpid_detection_enbl_bitmap;
    vx_uint8 tpid_deny_filter_bitmap;
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
    vx_vid_t dft_pvid;
    vx_uint8 dft_pbit;
    vx_uint16 dft_tpid;
    vx_uint8 dft_dscp;
    vx_uint8 dft_cos;
    vx_uint8 bc_cos; /**< Class of service of broadcast packets. */
    vx_uint8 umc_cos; /**< Class of service of unknown multicast packets. */
    vx_uint8 uuc_cos; /**< Class of service of unknown unicast packets. */
    vx_uint8 ipv4_dscp_mask;
    vx_uint8 ipv6_tc_mask;
    vx_egrs_pvid_vlan_op_t egrs_pvid_vlan_op;
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
    vx_boolean enbl_lpbk;
    vx_boolean enbl_da_sa_swap; /**< Destination and source address of a looped packet change places. */
} vx_l2_port_oam_lpbk_t;

/** @brief Where broadcast, multicast and unknown unicast packets of a port are sent. No flag selects an enbl_*. */
typedef struct {
    vx_boolean enbl_bc_pkt_dpid;
    vx_uint16 bc_pkt_dpid; /**< Destination port. */
    vx_boolean enbl_mc_pkt_dpid;
    vx_uint16 mc_pkt_dpid;
    vx_uint16 enbl_uuc_pkt_dpid; /**< FALSE or TRUE, though wider than the other two. */
    vx_uint16 uuc_pkt_dpid;
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
    vx_boolean bcast_drop;
    vx_boolean unknown_unicast_drop;
    vx_boolean unknown_mcast_drop;
    vx_uint8 rsvd;
} vx_l2_flood_ctrl_t;

/**
 * @brief Sets the members of learning on all ports that the mask flags.
 * @param dev_id The device.
 * @param p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_set(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg);

/**
 * @brief Reads learning on all ports.
 * @param dev_id The device.
 * @param p_cfg  Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_get(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg);

/**
 * @brief Sets the members of learning on a port that the mask flags.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg);

/**
 * @brief Reads learning on a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg);

/**
 * @brief Switches learning on a port, which is enbl_mac_lrn of its configuration.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enbl    TRUE to learn.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_enable_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean enbl);

/**
 * @brief Reads whether a port learns.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_enbl  Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_learn_port_enable_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_enbl);

/**
 * @brief Sets how long a learnt entry stays without traffic.
 * @param dev_id     The device.
 * @param aging_time In units of the chip.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_aging_timer_set(vx_dev_id_t dev_id, vx_uint32 aging_time);

/**
 * @brief Reads how long a learnt entry stays without traffic.
 * @param dev_id       The device.
 * @param p_aging_time Where to write it, in units of the chip.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_aging_timer_get(vx_dev_id_t dev_id, vx_uint32 *p_aging_time);

/**
 * @brief Adds an entry to the FDB.
 * @param dev_id      The device.
 * @param type        Dynamic or static.
 * @param p_mac_entry The entry.
 * @param p_handle    Where to write its handle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_add(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_t *p_mac_entry,
                                vx_l2_fdb_entry_handle_t *p_handle);

/**
 * @brief Deletes an entry from the FDB.
 * @param dev_id      The device.
 * @param type        What the entry must be.
 * @param handle      Its handle.
 * @param p_mac_entry The entry.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_delete(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_handle_t handle,
                                   vx_l2_fdb_entry_t *p_mac_entry);

/**
 * @brief Reads the entry behind another: the FDB is walked by sending back each handle.
 * @param dev_id      The device.
 * @param port_id     The port.
 * @param handle      Where the walk stands.
 * @param mode        Entries to visit.
 * @param p_mac_entry Where to write the entry.
 * @param p_handle    Where to write its handle.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_get_next(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_handle_t handle,
                                     vx_l2_fdb_entry_op_type_t mode, vx_l2_mac_tbl_entry_t *p_mac_entry,
                                     vx_l2_fdb_entry_handle_t *p_handle);

/**
 * @brief Deletes entries of all ports from the FDB.
 * @param dev_id The device.
 * @param type   Entries to delete.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_clear(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type);

/**
 * @brief Deletes entries of a port from the FDB.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param type    Entries to delete.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_fdb_entry_port_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_op_type_t type);

/**
 * @brief Sets the spanning tree state of a port.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param stp_state The state.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_stp_state_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t stp_state);

/**
 * @brief Reads the spanning tree state of a port.
 * @param dev_id    The device.
 * @param port_id   The port.
 * @param stp_state Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_stp_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t *stp_state);

/**
 * @brief Sets the members of a port's largest packet that the mask flags.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The size.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mtu_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg);

/**
 * @brief Reads the largest packet of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mtu_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg);

/**
 * @brief Sets what the host MAC filter of a port does.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_l2_mac_addr_filter_cfg_t *p_cfg);

/**
 * @brief Reads what the host MAC filter of a port does.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_l2_mac_addr_filter_cfg_t *p_cfg);

/**
 * @brief Adds addresses to the host MAC filter of a port.
 * @param dev_id          The device.
 * @param port_id         The port.
 * @param num_mac_addr    How many.
 * @param p_mac_addr_list The addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 num_mac_addr,
                                      vx_l2_user_mac_addr_cfg_t *p_mac_addr_list);

/**
 * @brief Deletes addresses from the host MAC filter of a port.
 * @param dev_id          The device.
 * @param port_id         The port.
 * @param delete_all      TRUE to delete all; the two arguments behind it are then ignored.
 * @param num_mac_addr    How many.
 * @param p_mac_addr_list The addresses.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean delete_all,
                                         vx_uint8 num_mac_addr, vx_l2_user_mac_addr_cfg_t *p_mac_addr_list);

/**
 * @brief Reads the addresses of the host MAC filter of a port.
 * @param dev_id          The device.
 * @param port_id         The port.
 * @param get_cnt         How many p_mac_addr_list has room for.
 * @param p_mac_addr_list Where to write them.
 * @param p_valid_cnt     Where to write how many were written.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_mac_addr_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 get_cnt,
                                      vx_l2_user_mac_addr_cfg_t *p_mac_addr_list, vx_uint8 *p_valid_cnt);

/**
 * @brief Sets the admission of packets with a TPID on a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param tpid    The TPID.
 * @param p_cfg   The admission.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_tpid_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg);

/**
 * @brief Reads the admission of packets with a TPID on a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param tpid    The TPID.
 * @param p_cfg   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_tpid_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg);

/**
 * @brief Sets the flagged ones of the TPIDs that the forwarding engine knows on a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    The TPIDs.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_tpid_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg);

/**
 * @brief Reads the TPIDs that the forwarding engine knows on a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    Where to write them; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_tpid_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg);

/**
 * @brief Sets the flagged ones of the forwarding engine's defaults of a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    The defaults.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_config_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg);

/**
 * @brief Reads the forwarding engine's defaults of a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    Where to write them; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_config_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg);

/**
 * @brief Switches isolation, with which Ethernet ports don't forward to each other.
 * @param dev_id  The device.
 * @param isolate TRUE to isolate.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_isolation_set(vx_dev_id_t dev_id, vx_boolean isolate);

/**
 * @brief Reads whether the Ethernet ports are isolated.
 * @param dev_id  The device.
 * @param isolate Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_isolation_get(vx_dev_id_t dev_id, vx_boolean *isolate);

/**
 * @brief Sets what a port does not flood.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param ctrl    What is dropped.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_flood_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl);

/**
 * @brief Reads what a port does not flood.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param ctrl    Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_flood_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl);

/**
 * @brief Sets OAM loopback of a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    The loopback.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_oam_lpbk_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg);

/**
 * @brief Reads OAM loopback of a port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param p_cfg    Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_oam_lpbk_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg);

/**
 * @brief Sets the three enbl_* and the flagged ones of the static destinations of a port.
 * @param dev_id       The device.
 * @param src_port_num The port.
 * @param p_cfg        The destinations.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_static_pkt_fwd_config_set(vx_dev_id_t dev_id, vx_uint16 src_port_num,
                                                 vx_l2_static_pkt_fwd_cfg_t *p_cfg);

/**
 * @brief Reads the static destinations of a port.
 * @param dev_id       The device.
 * @param src_port_num The port.
 * @param p_cfg        Where to write them; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_l2_port_static_pkt_fwd_config_get(vx_dev_id_t dev_id, vx_uint16 src_port_num,
                                                 vx_l2_static_pkt_fwd_cfg_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
