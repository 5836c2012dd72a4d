/**
 * @file
 * @brief Rate limits and policers, their counters, and the buffer manager.
 *
 * There are two interfaces to the same meters: vx_rate_ knows policers by what they police, vx_lmq_rate_ knows the
 * chip's buckets by number.
 */
#ifndef LMQ_POLICER_H
#define LMQ_POLICER_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Policers of flows and of groups */
/** @{ */
#define LMQ_INVALID_POL_ID 0xFFFFFFFF
#define LMQ_MAX_NUM_GRP_POL 4   /**< Group policers of a device. */
#define LMQ_MAX_NUM_FLOW_POL 64 /**< Flow policers of a device. */
/** @} */

/** @name Buckets and counter bank of the second interface */
/** @{ */
#define VX_LMQ_MAX_FLOW_CNT 63 /**< The last flow, from 0, that has a bucket. */
#define VX_LMQ_POL_CNTRS_BASE 0x0
#define VX_LMQ_POL_CNTRS_MAX_NUM 0x8F
#define VX_LMQ_POL_CNTRS_BYTE_CNT_MODE 0x00000000
#define VX_LMQ_POL_CNTRS_PKT_CNT_MODE 0x00000100
#define VX_LMQ_POL_ACC_FLW_CNT_BASE 0xe4
#define VX_LMQ_POL_CPU_FLW_CNT_BASE 0xec
/** @} */

/** @brief Algorithm of a meter, by the RFC that describes it. Bits, so that a capability may combine them. */
typedef enum vx_wred_mode_t LMQ_ENUM_INT {
    VX_WRED_UNDEFINED = 0,
    VX_WRED_RFC_4115 = 1,
    VX_WRED_RFC_2697 = 2,
    VX_WRED_RFC_2698 = 4,
} vx_wred_mode_t;

/** @brief What a rate limit counts: bits or packets a second. */
typedef enum vx_rate_mode_t LMQ_ENUM_INT {
    VX_RATE_LIMIT_DISABLE = 0,
    VX_RATE_LIMIT_BPS_MODE = 1,
    VX_RATE_LIMIT_PPS_MODE = 2,
} vx_rate_mode_t;

/** @brief Packets that storm control limits: broadcast, multicast, unknown unicast. */
typedef enum vx_storm_control_type_t LMQ_ENUM_INT {
    VX_STORM_CONTROL_BC = 0,
    VX_STORM_CONTROL_MC = 1,
    VX_STORM_CONTROL_UNKOWN_UC = 2,
} vx_storm_control_type_t;

/** @brief Kinds of policers: bits. */
typedef enum vx_pol_type_t LMQ_ENUM_INT {
    VX_CPU_POL = 1,
    VX_FLOW_POL = 2,
    VX_PORT_POL = 4,
    VX_PKT_TYPE_POL = 8, /**< Storm control. */
} vx_pol_type_t;

/** @brief Whether a meter looks at the colour that a packet comes with. */
typedef enum vx_pol_col_mode_t LMQ_ENUM_INT {
    VX_POL_COLOR_UNDEFINED = 0,
    VX_POL_COLOR_BLIND = 1,
    VX_POL_COLOR_AWARE = 2,
} vx_pol_col_mode_t;

/** @brief Token buckets of a meter: bits. */
typedef enum vx_pol_tkn_bkt_type_t LMQ_ENUM_INT {
    VX_POL_SINGLE_RATE = 1,
    VX_POL_DUAL_RATE = 2,
} vx_pol_tkn_bkt_type_t;

/** @brief Whether a tail drop counts the buffers of the port or of the device. */
typedef enum vx_pol_td_sel_t LMQ_ENUM_INT {
    VX_POL_PER_PORT = 0,
    VX_POL_GLOBAL = 1,
} vx_pol_td_sel_t;

/** @brief Where the policer of a flow comes from. */
typedef enum vx_flow_pol_sel_t LMQ_ENUM_INT {
    VX_FLOW_POL_SEL_DISABLE = 0,
    VX_FLOW_POL_SEL_FLOW_POL = 1,    /**< Member flw_pol_id. */
    VX_FLOW_POL_SEL_PBIT_MAP = 2,    /**< The port's 802.1p map. */
    VX_FLOW_POL_SEL_DSCP_TC_MAP = 3, /**< The port's map of DSCP or traffic class. */
    VX_FLOW_POL_SEL_COS_MAP = 4,     /**< The port's map of classes of service. */
} vx_flow_pol_sel_t;

/** @brief What a bucket counts: bits or packets a second. */
typedef enum lmq_policer_rl_mode_t LMQ_ENUM_INT {
    VX_LMQ_POL_TYPE_DISABLED = 0,
    VX_LMQ_POL_TYPE_BPS = 1,
    VX_LMQ_POL_TYPE_PPS = 2,
} lmq_policer_rl_mode_t;

/** @brief What a shaper does: shape, drop everything or let everything through. */
typedef enum lmq_policer_shp_mode_t LMQ_ENUM_INT {
    VX_LMQ_POL_SHP_NORMAL = 0,
    VX_LMQ_POL_SHP_DRP_ALL = 1,
    VX_LMQ_POL_SHP_FWD_ALL = 2,
    VX_LMQ_POL_SHP_RSVD = 3,
} lmq_policer_shp_mode_t;

/** @brief Accumulating buckets, which several flows share. */
typedef enum lmq_pol_acc_flow_type_t LMQ_ENUM_INT {
    LMQ_POL_ACC_FLOWA = 0,
    LMQ_POL_ACC_FLOWB = 1,
    LMQ_POL_ACC_FLOWC = 2,
    LMQ_POL_ACC_FLOWD = 3,
} lmq_pol_acc_flow_type_t;

/** @brief Buckets: four for each kind of source port, one for each flow, the accumulating ones and the CPU's. */
typedef enum vx_lmq_pol_flow_type_t LMQ_ENUM_INT {
    VX_LMQ_GE_SRC_PORT_BKT = 0,
    VX_LMQ_GE_MC_PKT_BKT = 1,
    VX_LMQ_GE_BC_PKT_BKT = 2,
    VX_LMQ_GE_UNKN_UC_PKT_BKT = 3,
    VX_LMQ_PON_SRC_PORT_BKT = 4,
    VX_LMQ_PON_MC_PKT_BKT = 5,
    VX_LMQ_PON_BC_PKT_BKT = 6,
    VX_LMQ_PON_UNKN_UC_PKT_BKT = 7,
    VX_LMQ_VOIP_SRC_PORT_BKT = 8,
    VX_LMQ_VOIP_MC_PKT_BKT = 9,
    VX_LMQ_VOIP_BC_PKT_BKT = 10,
    VX_LMQ_VOIP_UNKN_UC_PKT_BKT = 11,
    VX_LMQ_FLOW0_BKT = 12,
    VX_LMQ_FLOW1_BKT = 13,
    VX_LMQ_FLOW2_BKT = 14,
    VX_LMQ_FLOW3_BKT = 15,
    VX_LMQ_FLOW4_BKT = 16,
    VX_LMQ_FLOW5_BKT = 17,
    VX_LMQ_FLOW6_BKT = 18,
    VX_LMQ_FLOW7_BKT = 19,
    VX_LMQ_FLOW8_BKT = 20,
    VX_LMQ_FLOW9_BKT = 21,
    VX_LMQ_FLOW10_BKT = 22,
    VX_LMQ_FLOW11_BKT = 23,
    VX_LMQ_FLOW12_BKT = 24,
    VX_LMQ_FLOW13_BKT = 25,
    VX_LMQ_FLOW14_BKT = 26,
    VX_LMQ_FLOW15_BKT = 27,
    VX_LMQ_FLOW16_BKT = 28,
    VX_LMQ_FLOW17_BKT = 29,
    VX_LMQ_FLOW18_BKT = 30,
    VX_LMQ_FLOW19_BKT = 31,
    VX_LMQ_FLOW20_BKT = 32,
    VX_LMQ_FLOW21_BKT = 33,
    VX_LMQ_FLOW22_BKT = 34,
    VX_LMQ_FLOW23_BKT = 35,
    VX_LMQ_FLOW24_BKT = 36,
    VX_LMQ_FLOW25_BKT = 37,
    VX_LMQ_FLOW26_BKT = 38,
    VX_LMQ_FLOW27_BKT = 39,
    VX_LMQ_FLOW28_BKT = 40,
    VX_LMQ_FLOW29_BKT = 41,
    VX_LMQ_FLOW30_BKT = 42,
    VX_LMQ_FLOW31_BKT = 43,
    VX_LMQ_FLOW32_BKT = 44,
    VX_LMQ_FLOW33_BKT = 45,
    VX_LMQ_FLOW34_BKT = 46,
    VX_LMQ_FLOW35_BKT = 47,
    VX_LMQ_FLOW36_BKT = 48,
    VX_LMQ_FLOW37_BKT = 49,
    VX_LMQ_FLOW38_BKT = 50,
    VX_LMQ_FLOW39_BKT = 51,
    VX_LMQ_FLOW40_BKT = 52,
    VX_LMQ_FLOW41_BKT = 53,
    VX_LMQ_FLOW42_BKT = 54,
    VX_LMQ_FLOW43_BKT = 55,
    VX_LMQ_FLOW44_BKT = 56,
    VX_LMQ_FLOW45_BKT = 57,
    VX_LMQ_FLOW46_BKT = 58,
    VX_LMQ_FLOW47_BKT = 59,
    VX_LMQ_FLOW48_BKT = 60,
    VX_LMQ_FLOW49_BKT = 61,
    VX_LMQ_FLOW50_BKT = 62,
    VX_LMQ_FLOW51_BKT = 63,
    VX_LMQ_FLOW52_BKT = 64,
    VX_LMQ_FLOW53_BKT = 65,
    VX_LMQ_FLOW54_BKT = 66,
    VX_LMQ_FLOW55_BKT = 67,
    VX_LMQ_FLOW56_BKT = 68,
    VX_LMQ_FLOW57_BKT = 69,
    VX_LMQ_FLOW58_BKT = 70,
    VX_LMQ_FLOW59_BKT = 71,
    VX_LMQ_FLOW60_BKT = 72,
    VX_LMQ_FLOW61_BKT = 73,
    VX_LMQ_FLOW62_BKT = 74,
    VX_LMQ_FLOW63_BKT = 75,
    VX_LMQ_ACC_FLOWA_BKT = 76,
    VX_LMQ_ACC_FLOWB_BKT = 77,
    VX_LMQ_ACC_FLOWC_BKT = 78,
    VX_LMQ_ACC_FLOWD_BKT = 79,
    VX_LMQ_CPU_PORT_BKT = 80,
    VX_LMQ_INVALID_BKT = 81,
} vx_lmq_pol_flow_type_t;

/** @name Types of the chip that no operation takes */
/** @{ */

/** @brief Accumulating buckets, by older names. */
typedef enum lmq_policer_acc_flow_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_ACC_FLOWA = 0,
    VX_LMQ_POL_ACC_FLOWB = 1,
    VX_LMQ_POL_ACC_FLOWC = 2,
    VX_LMQ_POL_ACC_FLOWD = 3,
} lmq_policer_acc_flow_type_t;

/** @brief Packets with a bucket of their own. */
typedef enum lmq_pol_spl_pkt_type_t LMQ_ENUM_INT {
    LMQ_POL_MC_PKT = 0,
    LMQ_POL_BC_PKT = 1,
    LMQ_POL_UNK_UC_PKT = 2,
    LMQ_POL_UNK_MC_PKT = 3,
    LMQ_POL_UNK_BC_PKT = 4,
    LMQ_POL_INVALID_PKT = 5,
} lmq_pol_spl_pkt_type_t;

/** @brief Tail drop classes of a port. */
typedef enum lmq_policer_port_td_class_t LMQ_ENUM_INT {
    VX_LMQ_POL_TD_CLASS0 = 0,
    VX_LMQ_POL_TD_CLASS1 = 1,
    VX_LMQ_POL_TD_CLASS2 = 2,
    VX_LMQ_POL_TD_CLASS3 = 3,
    VX_LMQ_POL_TD_CLASS4 = 4,
    VX_LMQ_POL_TD_CLASS5 = 5,
    VX_LMQ_POL_TD_CLASS6 = 6,
    VX_LMQ_POL_TD_CLASS7 = 7,
} lmq_policer_port_td_class_t;

/** @brief Stages of rate limiting. */
typedef enum lmq_pol_rl_type_t LMQ_ENUM_INT {
    LMQ_POL_RL1 = 0,
    LMQ_POL_RL2 = 1,
    LMQ_POL_RL3 = 2,
} lmq_pol_rl_type_t;

/** @brief Ports with rate limiters. */
typedef enum lmq_pol_rl_port_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_RL_PORT_GE = 0,
    VX_LMQ_POL_RL_PORT_PON = 1,
    VX_LMQ_POL_RL_PORT_VOIP = 2,
    VX_LMQ_POL_RL_PORT_INVALID = 3,
} lmq_pol_rl_port_type_t;

/** @brief Ports with a shaper. MIR is the mirror. */
typedef enum lmq_policer_shp_port_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_SHP_PORT_GE = 0,
    VX_LMQ_POL_SHP_PORT_VOIP = 1,
    VX_LMQ_POL_SHP_PORT_MIR = 2,
} lmq_policer_shp_port_type_t;

/** @brief Counters of a bucket: forwarded, dropped at the peak rate, tail-dropped. */
typedef enum lmq_policer_cnt_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_RL_FWD = 0,
    VX_LMQ_POL_RL_DROP_PIR = 1,
    VX_LMQ_POL_RL_TD = 2,
} lmq_policer_cnt_type_t;

/** @} */

/** @brief A rate limit. The units of rate and burst follow pol_type. */
typedef struct {
    vx_rate_mode_t pol_type;
    vx_uint32 peak_rate;
    vx_uint32 commited_burst;
} vx_rate_limit_cfg_t;

/** @brief What all policers share. */
typedef struct {
    vx_uint8 ipg_ovrhd_bytes; /**< Bytes counted for each packet on top of its own: inter-packet gap and preamble. */
    vx_pol_td_sel_t tail_drp_sel;
} vx_global_policer_cfg_t;

/** @brief What the policers of the chip can do. */
typedef struct {
    vx_pol_type_t pol_type;   /**< Bits of vx_pol_type_t. */
    vx_wred_mode_t wred_mode; /**< Bits of vx_wred_mode_t. */
    vx_pol_col_mode_t color_mode;
    vx_pol_tkn_bkt_type_t tkn_bkt_type; /**< Bits of vx_pol_tkn_bkt_type_t. */
    vx_uint8 num_flow_pol;              /**< Flow policers. */
} vx_global_policer_cap_t;

/** @brief How a flow is policed. */
typedef struct {
    vx_flow_pol_sel_t flow_pol_sel;
    vx_pol_id_t flw_pol_id; /**< The flow policer; read with VX_FLOW_POL_SEL_FLOW_POL alone. */
} vx_flow_policing_cfg_t;

/** @brief The policers that a flow goes through. */
typedef struct {
    vx_boolean flow_pol_enb; /**< Whether the flow is policed. */
    vx_pol_id_t flow_pol_id; /**< Its policer, or LMQ_INVALID_POL_ID. */
    vx_pol_id_t grp_pol_id;  /**< Its policer's group, or LMQ_INVALID_POL_ID. */
} vx_flow_policer_status_t;

/** @brief Which policers there are, and what they serve. Bit n of a map is number n. */
typedef struct {
    vx_uint32 grp_pol_bitmap;          /**< Group policers in use. */
    vx_uint32 flow_pol_bitmap;         /**< Flow policers in use, of the first 32. */
    vx_uint32 grp_pol_mem_bitmap[4];   /**< For each group policer its flow policers, of the first 32. */
    vx_uint32 flow_pol_mem_bitmap[64]; /**< For each flow policer the groups it is in. */
} lmq_flow_policer_info_s;

/** @brief The rate limit of a bucket. */
typedef struct {
    lmq_policer_rl_mode_t rl_mode;
    vx_uint32 cbs; /**< Committed burst size. */
    vx_uint32 rate;
} vx_lmq_rate_limit_t;

/** @brief The shaper of a port. */
typedef struct {
    lmq_policer_shp_mode_t shp_mode;
    vx_uint32 cbs; /**< Committed burst size. */
    vx_uint32 rate;
} vx_lmq_pol_port_shape_t;

/** @brief Packets that storm control looks at: unknown and known, broadcast, multicast and unicast. */
typedef struct {
    union {
        struct {
            vx_uint32 un_bc : 1;
            vx_uint32 un_mc : 1;
            vx_uint32 un_unicast : 1;
            vx_uint32 bc : 1;
            vx_uint32 mc : 1;
        } mask_s;
        vx_uint32 mask;
    };
} vx_lmq_storm_ctrl_mod_t;

/** @brief Counters of the CPU policer. */
typedef struct {
    vx_uint64 fwd_pkt;
    vx_uint64 pir_drop_pkt; /**< Dropped at the peak rate. */
    vx_uint64 tail_drop_pkt;
} vx_pol_cpu_stats_t;

/** @brief Counters of a flow policer. */
typedef struct {
    vx_uint64 fwd_pkt;
    vx_uint64 pir_drop_pkt; /**< Dropped at the peak rate. */
    vx_uint64 tail_drop_pkt;
} vx_pol_flow_stat_t;

/** @brief Counters of a group policer. */
typedef struct {
    vx_uint64 fwd_pkt;
    vx_uint64 drop_pkt;
} vx_pol_group_stats_t;

/** @brief Counters of the policers of a source port: all packets, then multicast, broadcast and unknown unicast. */
typedef struct {
    vx_uint64 fwd_pkt;
    vx_uint64 pir_drop_pkt;
    vx_uint64 tail_drop_pkt;
    vx_uint64 mc_fwd;
    vx_uint64 mc_pir_drop;
    vx_uint64 mc_tail_drop;
    vx_uint64 bc_fwd;
    vx_uint64 bc_pir_drop;
    vx_uint64 bc_tail_drop;
    vx_uint64 uuc_fwd;
    vx_uint64 uuc_pir_drop;
    vx_uint64 uuc_tail_drop;
} vx_pol_src_port_stat_t;

/** @brief Packet counters of the buffer manager, by side: PON, Ethernet (ge) and CPU (ma). */
typedef struct {
    vx_uint32 pon_rx_pkt;
    vx_uint32 pon_tx_pkt;
    vx_uint32 pon_fe_pkt_drop; /**< Dropped by the forwarding engine. */
    vx_uint32 pon_bm_pkt_drop; /**< Dropped by the buffer manager. */
    vx_uint32 pon_bm_abr_drop;
    vx_uint32 pon_enq_pkt_cnt;
    vx_uint32 pon_deque_pkt_cnt;
    vx_uint32 pon_ingr_pkt_drop; /**< Dropped at ingress. */
    vx_uint32 ge_rx_pkt;
    vx_uint32 ge_tx_pkt;
    vx_uint32 ge_fe_pkt_drop;
    vx_uint32 ge_bm_pkt_drop;
    vx_uint32 ge_bm_abr_drop;
    vx_uint32 ge_enq_pkt_cnt;
    vx_uint32 ge_deque_pkt_cnt;
    vx_uint32 ge_ingr_pkt_drop;
    vx_uint32 ma_rx_pkt;
    vx_uint32 ma_tx_pkt;
    vx_uint32 ma_fe_pkt_drop;
    vx_uint32 ma_bm_pkt_drop;
    vx_uint32 ma_enq_pkt_cnt;
    vx_uint32 ma_deque_pkt_cnt;
    vx_uint32 ma_ingr_pkt_drop;
} lmq_bm_pkt_stats_s;

/** @brief A queue in internal memory. */
typedef struct {
    vx_uint32 buf_limit;    /**< Maximum of buffers. */
    vx_boolean rx_stat;     /**< TRUE: enqueuing is enabled. */
    vx_boolean tx_stat;     /**< TRUE: dequeuing is enabled. */
    vx_uint16 dwrr_ratio;   /**< DWRR weight ratio. */
    vx_uint16 used_buf_cnt; /**< Buffers of 48 bytes in use. */
} lmq_bm_queue_sts;

/** @brief A queue in external memory. */
typedef struct {
    vx_uint32 que_size;    /**< In bytes. */
    vx_boolean rx_stat;    /**< TRUE: enqueuing is enabled. */
    vx_boolean tx_stat;    /**< TRUE: dequeuing is enabled. */
    vx_uint16 dwrr_ratio;  /**< DWRR weight ratio. */
    vx_uint32 high_thresh; /**< Back pressure begins, in bytes. */
    vx_uint32 low_thresh;  /**< Back pressure ends, in bytes. */
    vx_uint32 rx_pkt_cnt;
    vx_uint32 tx_pkt_cnt;
    vx_uint16 used_byte_cnt; /**< Bytes in use. */
    vx_uint32 used_buf_cnt;  /**< Buffers of 8 bytes in use. */
} lmq_ebm_queue_sts;

/** @brief The queues of a port. */
typedef struct {
    vx_uint32 tot_port_limit;   /**< Buffers that all queues may take together; 0: no limit. */
    vx_uint16 tot_used_buf_cnt; /**< Buffers in use. */
    vx_uint32 valid_que_bitmap; /**< Which queues there are. */
    lmq_bm_queue_sts bm_que_status[((vx_uint8)8)];
    lmq_ebm_queue_sts ebm_que_status[((vx_uint8)8)];
} lmq_bm_queue_status_s;

/**
 * @brief Reads what the policers of the chip can do.
 * @param dev_id The device.
 * @param cfg    Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_global_policer_capability_get(vx_dev_id_t dev_id, vx_global_policer_cap_t *cfg);

/**
 * @brief Sets what all policers share.
 * @param dev_id The device.
 * @param cfg    The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_global_policer_set(vx_dev_id_t dev_id, vx_global_policer_cfg_t *cfg);

/**
 * @brief Reads what all policers share.
 * @param dev_id The device.
 * @param cfg    Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_global_policer_get(vx_dev_id_t dev_id, vx_global_policer_cfg_t *cfg);

/**
 * @brief Sets the rate limit towards the CPU.
 * @param dev_id The device.
 * @param cfg    The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_set(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the rate limit towards the CPU.
 * @param dev_id The device.
 * @param cfg    Where to write the limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_get(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Sets storm control of a port.
 * @param dev_id       The device.
 * @param port_id      The port.
 * @param pol_pkt_type Which packets.
 * @param cfg          The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_storm_control_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_storm_control_type_t pol_pkt_type,
                                      vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads storm control of a port.
 * @param dev_id       The device.
 * @param port_id      The port.
 * @param pol_pkt_type Which packets.
 * @param cfg          Where to write the limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_storm_control_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_storm_control_type_t pol_pkt_type,
                                      vx_rate_limit_cfg_t *cfg);

/**
 * @brief Sets the rate limit of a source port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the rate limit of a source port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write the limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Creates a group policer; there are LMQ_MAX_NUM_GRP_POL.
 * @param dev_id       The device.
 * @param cfg          Its limit.
 * @param p_grp_pol_id Where to write its id.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_create(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg, vx_pol_id_t *p_grp_pol_id);

/**
 * @brief Deletes a group policer.
 * @param dev_id     The device.
 * @param grp_pol_id The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_delete(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id);

/**
 * @brief Sets the limit of a group policer.
 * @param dev_id     The device.
 * @param grp_pol_id The group policer.
 * @param cfg        The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_set(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the limit of a group policer.
 * @param dev_id     The device.
 * @param grp_pol_id The group policer.
 * @param cfg        Where to write the limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_get(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Puts a flow policer into a group.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @param grp_pol_id  The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_group_member_add(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_id_t grp_pol_id);

/**
 * @brief Takes a flow policer out of its group.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @param grp_pol_id  The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_group_member_delete(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_id_t grp_pol_id);

/**
 * @brief Creates a flow policer; there are LMQ_MAX_NUM_FLOW_POL.
 * @param dev_id      The device.
 * @param cfg         Its limit.
 * @param flow_pol_id Where to write its id.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_create(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg, vx_pol_id_t *flow_pol_id);

/**
 * @brief Deletes a flow policer.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_delete(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id);

/**
 * @brief Sets the limit of a flow policer.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @param cfg         The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_set(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the limit of a flow policer.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @param cfg         Where to write the limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_get(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Binds a flow to a policer.
 * @param dev_id  The device.
 * @param flow_id The flow.
 * @param cfg     Where the policer comes from, and which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_flow_id_set(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_policing_cfg_t *cfg);

/**
 * @brief Ends policing by a flow policer.
 * @param dev_id     The device.
 * @param flw_pol_id The flow policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_flow_policing(vx_dev_id_t dev_id, vx_pol_id_t flw_pol_id);

/**
 * @brief Reads which policers a flow goes through.
 * @param dev_id         The device.
 * @param flow_id        The flow.
 * @param policer_status Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_status_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id,
                                       vx_flow_policer_status_t *policer_status);

/**
 * @brief Reads which policers there are, and what they serve.
 * @param dev_id The device.
 * @param p_info Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_flow_policer_info(vx_dev_id_t dev_id, lmq_flow_policer_info_s *p_info);

/* The second interface: buckets */

/**
 * @brief Sets the rate limit of a bucket.
 * @param dev_id The device.
 * @param type   The bucket.
 * @param cfg    The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_limit_set(vx_dev_id_t dev_id, vx_lmq_pol_flow_type_t type, vx_lmq_rate_limit_t *cfg);

/**
 * @brief Reads the rate limit of a bucket.
 * @param dev_id The device.
 * @param type   The bucket.
 * @param cfg    Where to write the limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_limit_get(vx_dev_id_t dev_id, vx_lmq_pol_flow_type_t type, vx_lmq_rate_limit_t *cfg);

/**
 * @brief Sets which packets storm control of a port looks at.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param mode    The packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_storm_ctrl_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_storm_ctrl_mod_t *mode);

/**
 * @brief Reads which packets storm control of a port looks at.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param mode    Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_storm_ctrl_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_storm_ctrl_mod_t *mode);

/**
 * @brief Sets the shaper of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The shaper.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_shaper_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_pol_port_shape_t *cfg);

/**
 * @brief Reads the shaper of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_shaper_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_pol_port_shape_t *cfg);

/**
 * @brief Lets a flow share an accumulating bucket.
 * @param dev_id    The device.
 * @param flow_id   The flow, 0 to VX_LMQ_MAX_FLOW_CNT.
 * @param flow_type The bucket.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_group_member_add(vx_dev_id_t dev_id, vx_uint32 flow_id, lmq_pol_acc_flow_type_t flow_type);

/**
 * @brief Takes a flow out of an accumulating bucket.
 * @param dev_id    The device.
 * @param flow_id   The flow, 0 to VX_LMQ_MAX_FLOW_CNT.
 * @param flow_type The bucket.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_group_member_delete(vx_dev_id_t dev_id, vx_uint32 flow_id, lmq_pol_acc_flow_type_t flow_type);

/**
 * @brief Reads the counter of the shaper of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param count   Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_shape_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *count);

/* Counters and buffers */

/**
 * @brief Reads the packet counters of the buffer manager.
 * @param dev_id  The device.
 * @param p_stats Where to write them.
 * @param clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_bm_pkt_stats_get(vx_dev_id_t dev_id, lmq_bm_pkt_stats_s *p_stats, vx_boolean clear);

/**
 * @brief Clears the packet counters of the buffer manager.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_bm_pkt_stats_clear(vx_dev_id_t dev_id);

/**
 * @brief Reads the queues of a port.
 * @param device_id The device.
 * @param port_num  The port.
 * @param p_status  Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_bm_queue_status_get(vx_dev_id_t device_id, vx_uint16 port_num, lmq_bm_queue_status_s *p_status);

/**
 * @brief Reads the counters of the CPU policer.
 * @param dev_id The device.
 * @param stats  Where to write them.
 * @param clear  TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_stat_get(vx_dev_id_t dev_id, vx_pol_cpu_stats_t *stats, vx_boolean clear);

/**
 * @brief Clears the counters of the CPU policer.
 * @param dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_stat_clear(vx_dev_id_t dev_id);

/**
 * @brief Reads the counters of the policers of a source port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @param stats    Where to write them.
 * @param clear    TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_stat_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_pol_src_port_stat_t *stats,
                                      vx_boolean clear);

/**
 * @brief Clears the counters of the policers of a source port.
 * @param dev_id   The device.
 * @param port_num The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_stat_clear(vx_dev_id_t dev_id, vx_uint16 port_num);

/**
 * @brief Reads the counters of a flow policer.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @param stats       Where to write them.
 * @param clear       TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_stat_get(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_flow_stat_t *stats,
                                     vx_boolean clear);

/**
 * @brief Clears the counters of a flow policer.
 * @param dev_id      The device.
 * @param flow_pol_id The flow policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_stat_clear(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id);

/**
 * @brief Reads the counters of a group policer.
 * @param dev_id     The device.
 * @param grp_pol_id The group policer.
 * @param stats      Where to write them.
 * @param clear      TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_stat_get(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_pol_group_stats_t *stats,
                                           vx_boolean clear);

/**
 * @brief Clears the counters of a group policer.
 * @param dev_id     The device.
 * @param grp_pol_id The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_stat_clear(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id);

#ifdef __cplusplus
}
#endif

#endif
