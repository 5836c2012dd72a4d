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
    VX_WRED_UNDEFINED = 0, /**< None of these: a plain rate limit. */
    VX_WRED_RFC_4115 = 1,  /**< Two rates, three colours, good to traffic in profile (RFC 4115). */
    VX_WRED_RFC_2697 = 2,  /**< One rate, three colours (RFC 2697). */
    VX_WRED_RFC_2698 = 4,  /**< Two rates, three colours (RFC 2698). */
} vx_wred_mode_t;

/** @brief What a rate limit counts: bits or packets a second. */
typedef enum vx_rate_mode_t LMQ_ENUM_INT {
    VX_RATE_LIMIT_DISABLE = 0,  /**< No limit: everything passes. */
    VX_RATE_LIMIT_BPS_MODE = 1, /**< Bits per second. */
    VX_RATE_LIMIT_PPS_MODE = 2, /**< Packets per second. */
} vx_rate_mode_t;

/** @brief Packets that storm control limits. */
typedef enum vx_storm_control_type_t LMQ_ENUM_INT {
    VX_STORM_CONTROL_BC = 0,        /**< Broadcast packets. */
    VX_STORM_CONTROL_MC = 1,        /**< Multicast packets. */
    VX_STORM_CONTROL_UNKOWN_UC = 2, /**< Unicast packets whose destination the forwarding database does not know. */
} vx_storm_control_type_t;

/** @brief Kinds of policers: bits, so that a capability can combine them. */
typedef enum vx_pol_type_t LMQ_ENUM_INT {
    VX_CPU_POL = 1,      /**< The policer of packets to the CPU. */
    VX_FLOW_POL = 2,     /**< Policers of flows. */
    VX_PORT_POL = 4,     /**< Policers of source ports. */
    VX_PKT_TYPE_POL = 8, /**< Policers by type of packet: storm control. */
} vx_pol_type_t;

/** @brief Whether a meter looks at the colour that a packet comes with. */
typedef enum vx_pol_col_mode_t LMQ_ENUM_INT {
    VX_POL_COLOR_UNDEFINED = 0, /**< Not known. */
    VX_POL_COLOR_BLIND = 1,     /**< It takes every packet for green. */
    VX_POL_COLOR_AWARE = 2,     /**< It never makes the colour of a packet better. */
} vx_pol_col_mode_t;

/** @brief Token buckets of a meter: bits, so that a capability can combine them. */
typedef enum vx_pol_tkn_bkt_type_t LMQ_ENUM_INT {
    VX_POL_SINGLE_RATE = 1, /**< One bucket, which fills at one rate. */
    VX_POL_DUAL_RATE = 2,   /**< Two buckets, each of which fills at its own rate. */
} vx_pol_tkn_bkt_type_t;

/** @brief Whether a tail drop counts the buffers of the port or of the device. */
typedef enum vx_pol_td_sel_t LMQ_ENUM_INT {
    VX_POL_PER_PORT = 0, /**< A packet is dropped when its port has used up its buffers. */
    VX_POL_GLOBAL = 1,   /**< A packet is dropped when the device has used up its buffers. */
} vx_pol_td_sel_t;

/** @brief Where the policer of a flow comes from. */
typedef enum vx_flow_pol_sel_t LMQ_ENUM_INT {
    VX_FLOW_POL_SEL_DISABLE = 0,     /**< From nowhere: the flow is not policed. */
    VX_FLOW_POL_SEL_FLOW_POL = 1,    /**< From member flw_pol_id. */
    VX_FLOW_POL_SEL_PBIT_MAP = 2,    /**< From the port's 802.1p map. */
    VX_FLOW_POL_SEL_DSCP_TC_MAP = 3, /**< From the port's map of DSCP or traffic class. */
    VX_FLOW_POL_SEL_COS_MAP = 4,     /**< From the port's map of classes of service. */
} vx_flow_pol_sel_t;

/** @brief What a bucket counts: bits or packets a second. */
typedef enum lmq_policer_rl_mode_t LMQ_ENUM_INT {
    VX_LMQ_POL_TYPE_DISABLED = 0, /**< Nothing: there is no limit. */
    VX_LMQ_POL_TYPE_BPS = 1,      /**< Bits per second. */
    VX_LMQ_POL_TYPE_PPS = 2,      /**< Packets per second. */
} lmq_policer_rl_mode_t;

/** @brief What a shaper does: shape, drop everything or let everything through. */
typedef enum lmq_policer_shp_mode_t LMQ_ENUM_INT {
    VX_LMQ_POL_SHP_NORMAL = 0,  /**< It shapes to its rate and burst. */
    VX_LMQ_POL_SHP_DRP_ALL = 1, /**< It drops every packet. */
    VX_LMQ_POL_SHP_FWD_ALL = 2, /**< It lets every packet through at once. */
    VX_LMQ_POL_SHP_RSVD = 3,    /**< Reserved; no shaper takes it. */
} lmq_policer_shp_mode_t;

/** @brief Accumulating buckets, which several flows share. */
typedef enum lmq_pol_acc_flow_type_t LMQ_ENUM_INT {
    LMQ_POL_ACC_FLOWA = 0, /**< Bucket A. */
    LMQ_POL_ACC_FLOWB = 1, /**< Bucket B. */
    LMQ_POL_ACC_FLOWC = 2, /**< Bucket C. */
    LMQ_POL_ACC_FLOWD = 3, /**< Bucket D. */
} lmq_pol_acc_flow_type_t;

/** @brief Buckets: four for each kind of source port, one for each flow, the accumulating ones and the CPU's. */
typedef enum vx_lmq_pol_flow_type_t LMQ_ENUM_INT {
    VX_LMQ_GE_SRC_PORT_BKT = 0,       /**< All packets from Ethernet ports. */
    VX_LMQ_GE_MC_PKT_BKT = 1,         /**< Multicast packets from Ethernet ports. */
    VX_LMQ_GE_BC_PKT_BKT = 2,         /**< Broadcast packets from Ethernet ports. */
    VX_LMQ_GE_UNKN_UC_PKT_BKT = 3,    /**< Unknown unicast packets from Ethernet ports. */
    VX_LMQ_PON_SRC_PORT_BKT = 4,      /**< All packets from the PON. */
    VX_LMQ_PON_MC_PKT_BKT = 5,        /**< Multicast packets from the PON. */
    VX_LMQ_PON_BC_PKT_BKT = 6,        /**< Broadcast packets from the PON. */
    VX_LMQ_PON_UNKN_UC_PKT_BKT = 7,   /**< Unknown unicast packets from the PON. */
    VX_LMQ_VOIP_SRC_PORT_BKT = 8,     /**< All packets from the voice port. */
    VX_LMQ_VOIP_MC_PKT_BKT = 9,       /**< Multicast packets from the voice port. */
    VX_LMQ_VOIP_BC_PKT_BKT = 10,      /**< Broadcast packets from the voice port. */
    VX_LMQ_VOIP_UNKN_UC_PKT_BKT = 11, /**< Unknown unicast packets from the voice port. */
    VX_LMQ_FLOW0_BKT = 12,            /**< Packets of flow 0. */
    VX_LMQ_FLOW1_BKT = 13,            /**< Packets of flow 1. */
    VX_LMQ_FLOW2_BKT = 14,            /**< Packets of flow 2. */
    VX_LMQ_FLOW3_BKT = 15,            /**< Packets of flow 3. */
    VX_LMQ_FLOW4_BKT = 16,            /**< Packets of flow 4. */
    VX_LMQ_FLOW5_BKT = 17,            /**< Packets of flow 5. */
    VX_LMQ_FLOW6_BKT = 18,            /**< Packets of flow 6. */
    VX_LMQ_FLOW7_BKT = 19,            /**< Packets of flow 7. */
    VX_LMQ_FLOW8_BKT = 20,            /**< Packets of flow 8. */
    VX_LMQ_FLOW9_BKT = 21,            /**< Packets of flow 9. */
    VX_LMQ_FLOW10_BKT = 22,           /**< Packets of flow 10. */
    VX_LMQ_FLOW11_BKT = 23,           /**< Packets of flow 11. */
    VX_LMQ_FLOW12_BKT = 24,           /**< Packets of flow 12. */
    VX_LMQ_FLOW13_BKT = 25,           /**< Packets of flow 13. */
    VX_LMQ_FLOW14_BKT = 26,           /**< Packets of flow 14. */
    VX_LMQ_FLOW15_BKT = 27,           /**< Packets of flow 15. */
    VX_LMQ_FLOW16_BKT = 28,           /**< Packets of flow 16. */
    VX_LMQ_FLOW17_BKT = 29,           /**< Packets of flow 17. */
    VX_LMQ_FLOW18_BKT = 30,           /**< Packets of flow 18. */
    VX_LMQ_FLOW19_BKT = 31,           /**< Packets of flow 19. */
    VX_LMQ_FLOW20_BKT = 32,           /**< Packets of flow 20. */
    VX_LMQ_FLOW21_BKT = 33,           /**< Packets of flow 21. */
    VX_LMQ_FLOW22_BKT = 34,           /**< Packets of flow 22. */
    VX_LMQ_FLOW23_BKT = 35,           /**< Packets of flow 23. */
    VX_LMQ_FLOW24_BKT = 36,           /**< Packets of flow 24. */
    VX_LMQ_FLOW25_BKT = 37,           /**< Packets of flow 25. */
    VX_LMQ_FLOW26_BKT = 38,           /**< Packets of flow 26. */
    VX_LMQ_FLOW27_BKT = 39,           /**< Packets of flow 27. */
    VX_LMQ_FLOW28_BKT = 40,           /**< Packets of flow 28. */
    VX_LMQ_FLOW29_BKT = 41,           /**< Packets of flow 29. */
    VX_LMQ_FLOW30_BKT = 42,           /**< Packets of flow 30. */
    VX_LMQ_FLOW31_BKT = 43,           /**< Packets of flow 31. */
    VX_LMQ_FLOW32_BKT = 44,           /**< Packets of flow 32. */
    VX_LMQ_FLOW33_BKT = 45,           /**< Packets of flow 33. */
    VX_LMQ_FLOW34_BKT = 46,           /**< Packets of flow 34. */
    VX_LMQ_FLOW35_BKT = 47,           /**< Packets of flow 35. */
    VX_LMQ_FLOW36_BKT = 48,           /**< Packets of flow 36. */
    VX_LMQ_FLOW37_BKT = 49,           /**< Packets of flow 37. */
    VX_LMQ_FLOW38_BKT = 50,           /**< Packets of flow 38. */
    VX_LMQ_FLOW39_BKT = 51,           /**< Packets of flow 39. */
    VX_LMQ_FLOW40_BKT = 52,           /**< Packets of flow 40. */
    VX_LMQ_FLOW41_BKT = 53,           /**< Packets of flow 41. */
    VX_LMQ_FLOW42_BKT = 54,           /**< Packets of flow 42. */
    VX_LMQ_FLOW43_BKT = 55,           /**< Packets of flow 43. */
    VX_LMQ_FLOW44_BKT = 56,           /**< Packets of flow 44. */
    VX_LMQ_FLOW45_BKT = 57,           /**< Packets of flow 45. */
    VX_LMQ_FLOW46_BKT = 58,           /**< Packets of flow 46. */
    VX_LMQ_FLOW47_BKT = 59,           /**< Packets of flow 47. */
    VX_LMQ_FLOW48_BKT = 60,           /**< Packets of flow 48. */
    VX_LMQ_FLOW49_BKT = 61,           /**< Packets of flow 49. */
    VX_LMQ_FLOW50_BKT = 62,           /**< Packets of flow 50. */
    VX_LMQ_FLOW51_BKT = 63,           /**< Packets of flow 51. */
    VX_LMQ_FLOW52_BKT = 64,           /**< Packets of flow 52. */
    VX_LMQ_FLOW53_BKT = 65,           /**< Packets of flow 53. */
    VX_LMQ_FLOW54_BKT = 66,           /**< Packets of flow 54. */
    VX_LMQ_FLOW55_BKT = 67,           /**< Packets of flow 55. */
    VX_LMQ_FLOW56_BKT = 68,           /**< Packets of flow 56. */
    VX_LMQ_FLOW57_BKT = 69,           /**< Packets of flow 57. */
    VX_LMQ_FLOW58_BKT = 70,           /**< Packets of flow 58. */
    VX_LMQ_FLOW59_BKT = 71,           /**< Packets of flow 59. */
    VX_LMQ_FLOW60_BKT = 72,           /**< Packets of flow 60. */
    VX_LMQ_FLOW61_BKT = 73,           /**< Packets of flow 61. */
    VX_LMQ_FLOW62_BKT = 74,           /**< Packets of flow 62. */
    VX_LMQ_FLOW63_BKT = 75,           /**< Packets of flow 63. */
    VX_LMQ_ACC_FLOWA_BKT = 76,        /**< Packets of the flows that share bucket A. */
    VX_LMQ_ACC_FLOWB_BKT = 77,        /**< Packets of the flows that share bucket B. */
    VX_LMQ_ACC_FLOWC_BKT = 78,        /**< Packets of the flows that share bucket C. */
    VX_LMQ_ACC_FLOWD_BKT = 79,        /**< Packets of the flows that share bucket D. */
    VX_LMQ_CPU_PORT_BKT = 80,         /**< Packets to the CPU. */
    VX_LMQ_INVALID_BKT = 81,          /**< How many there are; none itself. */
} vx_lmq_pol_flow_type_t;

/** @name Types of the chip that no operation takes */
/** @{ */

/** @brief Accumulating buckets, by older names. */
typedef enum lmq_policer_acc_flow_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_ACC_FLOWA = 0, /**< Bucket A. */
    VX_LMQ_POL_ACC_FLOWB = 1, /**< Bucket B. */
    VX_LMQ_POL_ACC_FLOWC = 2, /**< Bucket C. */
    VX_LMQ_POL_ACC_FLOWD = 3, /**< Bucket D. */
} lmq_policer_acc_flow_type_t;

/** @brief Packets with a bucket of their own. */
typedef enum lmq_pol_spl_pkt_type_t LMQ_ENUM_INT {
    LMQ_POL_MC_PKT = 0,      /**< Multicast packets. */
    LMQ_POL_BC_PKT = 1,      /**< Broadcast packets. */
    LMQ_POL_UNK_UC_PKT = 2,  /**< Unicast packets to an unknown destination. */
    LMQ_POL_UNK_MC_PKT = 3,  /**< Multicast packets of an unknown group. */
    LMQ_POL_UNK_BC_PKT = 4,  /**< Broadcast packets with no entry of their own. */
    LMQ_POL_INVALID_PKT = 5, /**< How many there are; none itself. */
} lmq_pol_spl_pkt_type_t;

/** @brief Tail drop classes of a port. */
typedef enum lmq_policer_port_td_class_t LMQ_ENUM_INT {
    VX_LMQ_POL_TD_CLASS0 = 0, /**< Class 0. */
    VX_LMQ_POL_TD_CLASS1 = 1, /**< Class 1. */
    VX_LMQ_POL_TD_CLASS2 = 2, /**< Class 2. */
    VX_LMQ_POL_TD_CLASS3 = 3, /**< Class 3. */
    VX_LMQ_POL_TD_CLASS4 = 4, /**< Class 4. */
    VX_LMQ_POL_TD_CLASS5 = 5, /**< Class 5. */
    VX_LMQ_POL_TD_CLASS6 = 6, /**< Class 6. */
    VX_LMQ_POL_TD_CLASS7 = 7, /**< Class 7. */
} lmq_policer_port_td_class_t;

/** @brief Stages of rate limiting. */
typedef enum lmq_pol_rl_type_t LMQ_ENUM_INT {
    LMQ_POL_RL1 = 0, /**< First stage. */
    LMQ_POL_RL2 = 1, /**< Second stage. */
    LMQ_POL_RL3 = 2, /**< Third stage. */
} lmq_pol_rl_type_t;

/** @brief Ports with rate limiters. */
typedef enum lmq_pol_rl_port_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_RL_PORT_GE = 0,      /**< Ethernet ports. */
    VX_LMQ_POL_RL_PORT_PON = 1,     /**< The PON port. */
    VX_LMQ_POL_RL_PORT_VOIP = 2,    /**< The voice port. */
    VX_LMQ_POL_RL_PORT_INVALID = 3, /**< How many there are; none itself. */
} lmq_pol_rl_port_type_t;

/** @brief Ports with a shaper. */
typedef enum lmq_policer_shp_port_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_SHP_PORT_GE = 0,   /**< Ethernet ports. */
    VX_LMQ_POL_SHP_PORT_VOIP = 1, /**< The voice port. */
    VX_LMQ_POL_SHP_PORT_MIR = 2,  /**< The port of mirrored packets. */
} lmq_policer_shp_port_type_t;

/** @brief Counters of a bucket. */
typedef enum lmq_policer_cnt_type_t LMQ_ENUM_INT {
    VX_LMQ_POL_RL_FWD = 0,      /**< Packets let through. */
    VX_LMQ_POL_RL_DROP_PIR = 1, /**< Packets dropped above the peak rate. */
    VX_LMQ_POL_RL_TD = 2,       /**< Packets dropped for want of buffers. */
} lmq_policer_cnt_type_t;

/** @} */

/** @brief A rate limit. */
typedef struct {
    vx_rate_mode_t pol_type;  /**< Whether there is a limit, and what it counts. */
    vx_uint32 peak_rate;      /**< Bits or packets per second that pass at most, by pol_type. */
    vx_uint32 commited_burst; /**< Bits or packets that pass at once above the rate, by pol_type. */
} vx_rate_limit_cfg_t;

/** @brief What all policers share. */
typedef struct {
    vx_uint8 ipg_ovrhd_bytes;     /**< {bytes} Gap and preamble, counted for each packet: 20 in IEEE 802.3. */
    vx_pol_td_sel_t tail_drp_sel; /**< Whose buffers count when a packet is dropped for want of them. */
} vx_global_policer_cfg_t;

/** @brief What the policers of the chip can do. */
typedef struct {
    vx_pol_type_t pol_type;             /**< {bits of vx_pol_type_t} Kinds of policers that there are. */
    vx_wred_mode_t wred_mode;           /**< {bits of vx_wred_mode_t} Algorithms of the meters. */
    vx_pol_col_mode_t color_mode;       /**< Whether the meters look at the colour of a packet. */
    vx_pol_tkn_bkt_type_t tkn_bkt_type; /**< {bits of vx_pol_tkn_bkt_type_t} Buckets that a meter can have. */
    vx_uint8 num_flow_pol;              /**< How many flow policers can be created. */
} vx_global_policer_cap_t;

/** @brief How a flow is policed. */
typedef struct {
    vx_flow_pol_sel_t flow_pol_sel; /**< Where the policer comes from. */
    vx_pol_id_t flw_pol_id;         /**< {id policer} The policer; looked at with VX_FLOW_POL_SEL_FLOW_POL alone. */
} vx_flow_policing_cfg_t;

/** @brief The policers that a flow goes through. */
typedef struct {
    vx_boolean flow_pol_enb; /**< Whether the flow is policed. */
    vx_pol_id_t flow_pol_id; /**< {id policer} Its policer; LMQ_INVALID_POL_ID for none, or one from a map. */
    vx_pol_id_t grp_pol_id;  /**< {id group-policer} The group of its policer; LMQ_INVALID_POL_ID for none. */
} vx_flow_policer_status_t;

/** @brief Which policers there are, and what they serve. Bit n of a map is number n. */
typedef struct {
    vx_uint32 grp_pol_bitmap;          /**< {bitmap} Group policers that there are. */
    vx_uint32 flow_pol_bitmap;         /**< {bitmap} Flow policers that there are, of the first 32. */
    vx_uint32 grp_pol_mem_bitmap[4];   /**< {bitmap} For each group policer its flow policers, of the first 32. */
    vx_uint32 flow_pol_mem_bitmap[64]; /**< {bitmap} For each flow policer the group that it is in. */
} lmq_flow_policer_info_s;

/** @brief The rate limit of a bucket. */
typedef struct {
    lmq_policer_rl_mode_t rl_mode; /**< Whether there is a limit, and what it counts. */
    vx_uint32 cbs;                 /**< Committed burst size: bits or packets at once above the rate, by rl_mode. */
    vx_uint32 rate;                /**< Bits or packets per second that pass at most, by rl_mode. */
} vx_lmq_rate_limit_t;

/** @brief The shaper of a port. */
typedef struct {
    lmq_policer_shp_mode_t shp_mode; /**< Whether it shapes; rate and burst count with VX_LMQ_POL_SHP_NORMAL alone. */
    vx_uint32 cbs;                   /**< Committed burst size, in units of the chip. */
    vx_uint32 rate;                  /**< Rate at which packets leave at most, in units of the chip. */
} vx_lmq_pol_port_shape_t;

/** @brief Packets that storm control looks at. */
typedef struct {
    union {
        struct {
            vx_uint32 un_bc : 1;      /**< Broadcast packets with no entry of their own. */
            vx_uint32 un_mc : 1;      /**< Multicast packets of an unknown group. */
            vx_uint32 un_unicast : 1; /**< Unicast packets to an unknown destination. */
            vx_uint32 bc : 1;         /**< Broadcast packets. */
            vx_uint32 mc : 1;         /**< Multicast packets. */
        } mask_s;                     /**< The packets as flags. */
        vx_uint32 mask;               /**< {0..0x1f} All flags as one number. */
    };                                /**< The packets as flags, and the same as a number. */
} vx_lmq_storm_ctrl_mod_t;

/** @brief Counters of the CPU policer. */
typedef struct {
    vx_uint64 fwd_pkt;       /**< {counter, packets} Let through. */
    vx_uint64 pir_drop_pkt;  /**< {counter, packets} Dropped above the peak rate. */
    vx_uint64 tail_drop_pkt; /**< {counter, packets} Dropped for want of buffers. */
} vx_pol_cpu_stats_t;

/** @brief Counters of a flow policer. */
typedef struct {
    vx_uint64 fwd_pkt;       /**< {counter, packets} Let through. */
    vx_uint64 pir_drop_pkt;  /**< {counter, packets} Dropped above the peak rate. */
    vx_uint64 tail_drop_pkt; /**< {counter, packets} Dropped for want of buffers. */
} vx_pol_flow_stat_t;

/** @brief Counters of a group policer. */
typedef struct {
    vx_uint64 fwd_pkt;  /**< {counter, packets} Let through. */
    vx_uint64 drop_pkt; /**< {counter, packets} Dropped, whatever the reason. */
} vx_pol_group_stats_t;

/** @brief Counters of the policers of a source port: all packets, then multicast, broadcast and unknown unicast. */
typedef struct {
    vx_uint64 fwd_pkt;       /**< {counter, packets} Let through, of all. */
    vx_uint64 pir_drop_pkt;  /**< {counter, packets} Dropped above the peak rate, of all. */
    vx_uint64 tail_drop_pkt; /**< {counter, packets} Dropped for want of buffers, of all. */
    vx_uint64 mc_fwd;        /**< {counter, packets} Let through, of multicast. */
    vx_uint64 mc_pir_drop;   /**< {counter, packets} Dropped above the peak rate, of multicast. */
    vx_uint64 mc_tail_drop;  /**< {counter, packets} Dropped for want of buffers, of multicast. */
    vx_uint64 bc_fwd;        /**< {counter, packets} Let through, of broadcast. */
    vx_uint64 bc_pir_drop;   /**< {counter, packets} Dropped above the peak rate, of broadcast. */
    vx_uint64 bc_tail_drop;  /**< {counter, packets} Dropped for want of buffers, of broadcast. */
    vx_uint64 uuc_fwd;       /**< {counter, packets} Let through, of unknown unicast. */
    vx_uint64 uuc_pir_drop;  /**< {counter, packets} Dropped above the peak rate, of unknown unicast. */
    vx_uint64 uuc_tail_drop; /**< {counter, packets} Dropped for want of buffers, of unknown unicast. */
} vx_pol_src_port_stat_t;

/** @brief Packet counters of the buffer manager, by side: PON, Ethernet (ge) and CPU (ma). */
typedef struct {
    vx_uint32 pon_rx_pkt;        /**< {counter, packets} Received from the PON. */
    vx_uint32 pon_tx_pkt;        /**< {counter, packets} Sent to the PON. */
    vx_uint32 pon_fe_pkt_drop;   /**< {counter, packets} From the PON, dropped by the forwarding engine. */
    vx_uint32 pon_bm_pkt_drop;   /**< {counter, packets} From the PON, dropped by the buffer manager. */
    vx_uint32 pon_bm_abr_drop;   /**< {counter, packets} From the PON, aborted in the buffer manager. */
    vx_uint32 pon_enq_pkt_cnt;   /**< {counter, packets} From the PON, put into queues. */
    vx_uint32 pon_deque_pkt_cnt; /**< {counter, packets} To the PON, taken out of queues. */
    vx_uint32 pon_ingr_pkt_drop; /**< {counter, packets} From the PON, dropped at ingress. */
    vx_uint32 ge_rx_pkt;         /**< {counter, packets} Received from the Ethernet ports. */
    vx_uint32 ge_tx_pkt;         /**< {counter, packets} Sent to the Ethernet ports. */
    vx_uint32 ge_fe_pkt_drop;    /**< {counter, packets} From the Ethernet ports, dropped by the forwarding engine. */
    vx_uint32 ge_bm_pkt_drop;    /**< {counter, packets} From the Ethernet ports, dropped by the buffer manager. */
    vx_uint32 ge_bm_abr_drop;    /**< {counter, packets} From the Ethernet ports, aborted in the buffer manager. */
    vx_uint32 ge_enq_pkt_cnt;    /**< {counter, packets} From the Ethernet ports, put into queues. */
    vx_uint32 ge_deque_pkt_cnt;  /**< {counter, packets} To the Ethernet ports, taken out of queues. */
    vx_uint32 ge_ingr_pkt_drop;  /**< {counter, packets} From the Ethernet ports, dropped at ingress. */
    vx_uint32 ma_rx_pkt;         /**< {counter, packets} Received from the CPU. */
    vx_uint32 ma_tx_pkt;         /**< {counter, packets} Sent to the CPU. */
    vx_uint32 ma_fe_pkt_drop;    /**< {counter, packets} From the CPU, dropped by the forwarding engine. */
    vx_uint32 ma_bm_pkt_drop;    /**< {counter, packets} From the CPU, dropped by the buffer manager. */
    vx_uint32 ma_enq_pkt_cnt;    /**< {counter, packets} From the CPU, put into queues. */
    vx_uint32 ma_deque_pkt_cnt;  /**< {counter, packets} To the CPU, taken out of queues. */
    vx_uint32 ma_ingr_pkt_drop;  /**< {counter, packets} From the CPU, dropped at ingress. */
} lmq_bm_pkt_stats_s;

/** @brief A queue in internal memory. */
typedef struct {
    vx_uint32 buf_limit;    /**< Buffers of 48 bytes that the queue may hold. */
    vx_boolean rx_stat;     /**< TRUE: enqueuing is enabled. */
    vx_boolean tx_stat;     /**< TRUE: dequeuing is enabled. */
    vx_uint16 dwrr_ratio;   /**< Weight of the queue in DWRR. */
    vx_uint16 used_buf_cnt; /**< Buffers of 48 bytes that it holds now. */
} lmq_bm_queue_sts;

/** @brief A queue in external memory. */
typedef struct {
    vx_uint32 que_size;      /**< {bytes} Size of the queue. */
    vx_boolean rx_stat;      /**< TRUE: enqueuing is enabled. */
    vx_boolean tx_stat;      /**< TRUE: dequeuing is enabled. */
    vx_uint16 dwrr_ratio;    /**< Weight of the queue in DWRR. */
    vx_uint32 high_thresh;   /**< {bytes} Filling at which back pressure begins. */
    vx_uint32 low_thresh;    /**< {bytes} Filling at which back pressure ends. */
    vx_uint32 rx_pkt_cnt;    /**< {counter, packets} Put into the queue. */
    vx_uint32 tx_pkt_cnt;    /**< {counter, packets} Taken out of it. */
    vx_uint16 used_byte_cnt; /**< {bytes} What it holds now. */
    vx_uint32 used_buf_cnt;  /**< Buffers of 8 bytes that it holds now. */
} lmq_ebm_queue_sts;

/** @brief The queues of a port. */
typedef struct {
    vx_uint32 tot_port_limit;                        /**< Buffers that all queues may hold together; 0 for no limit. */
    vx_uint16 tot_used_buf_cnt;                      /**< Buffers that all queues hold now. */
    vx_uint32 valid_que_bitmap;                      /**< {bitmap} Bit n: queue n is there. */
    lmq_bm_queue_sts bm_que_status[((vx_uint8)8)];   /**< Queues 0 to 7 in internal memory. */
    lmq_ebm_queue_sts ebm_que_status[((vx_uint8)8)]; /**< The same in external memory; 0 if the device has none. */
} lmq_bm_queue_status_s;

/**
 * @brief Reads what the policers of the chip can do.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] cfg    What the policers can do.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_global_policer_capability_get(vx_dev_id_t dev_id, vx_global_policer_cap_t *cfg);

/**
 * @brief Sets what all policers share.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] cfg    Overhead of a packet, and whose buffers count.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_global_policer_set(vx_dev_id_t dev_id, vx_global_policer_cfg_t *cfg);

/**
 * @brief Reads what all policers share.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] cfg    Overhead of a packet, and whose buffers count.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_global_policer_get(vx_dev_id_t dev_id, vx_global_policer_cfg_t *cfg);

/**
 * @brief Sets the rate limit towards the CPU.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] cfg    The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_set(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the rate limit towards the CPU.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] cfg    The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_get(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Sets the limit of one type of packet in the storm control of a port.
 * @par Effect: changes
 * @param[in] dev_id       The device.
 * @param[in] port_id      The port.
 * @param[in] pol_pkt_type The type of packet.
 * @param[in] cfg          The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_storm_control_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_storm_control_type_t pol_pkt_type,
                                      vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the limit of one type of packet in the storm control of a port.
 * @par Effect: reads
 * @param[in]  dev_id       The device.
 * @param[in]  port_id      The port.
 * @param[in]  pol_pkt_type The type of packet.
 * @param[out] cfg          The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_storm_control_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_storm_control_type_t pol_pkt_type,
                                      vx_rate_limit_cfg_t *cfg);

/**
 * @brief Sets the rate limit of a source port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the rate limit of a source port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Creates a group policer; there are LMQ_MAX_NUM_GRP_POL.
 * @par Effect: changes
 * @par Read back: vx_rate_group_policer_get
 * @par Undone by: vx_rate_group_policer_delete
 * @par Changed by: vx_rate_group_policer_set(p_grp_pol_id)
 * @param[in]  dev_id       The device.
 * @param[in]  cfg          Its limit.
 * @param[out] p_grp_pol_id {id group-policer} Its id.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_create(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg, vx_pol_id_t *p_grp_pol_id);

/**
 * @brief Deletes a group policer that has no members.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] grp_pol_id {id group-policer} The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_delete(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id);

/**
 * @brief Sets the limit of a group policer.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] grp_pol_id {id group-policer} The group policer.
 * @param[in] cfg        The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_set(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the limit of a group policer.
 * @par Effect: reads
 * @param[in]  dev_id     The device.
 * @param[in]  grp_pol_id {id group-policer} The group policer.
 * @param[out] cfg        The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_get(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Puts a flow policer into a group; it can be in one.
 * @par Effect: changes
 * @par Read back: lmq_get_flow_policer_info: flow_pol_id=#p_info.flow_pol_mem_bitmap[],
 *     grp_pol_id=#p_info.flow_pol_mem_bitmap[]{}
 * @par Undone by: vx_rate_policer_group_member_delete
 * @param[in] dev_id      The device.
 * @param[in] flow_pol_id {id policer} The flow policer.
 * @param[in] grp_pol_id  {id group-policer} The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_group_member_add(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_id_t grp_pol_id);

/**
 * @brief Takes a flow policer out of its group.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] flow_pol_id {id policer} The flow policer.
 * @param[in] grp_pol_id  {id group-policer} The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_group_member_delete(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_id_t grp_pol_id);

/**
 * @brief Creates a flow policer; there are LMQ_MAX_NUM_FLOW_POL.
 * @par Effect: changes
 * @par Read back: vx_rate_policer_get
 * @par Undone by: vx_rate_policer_delete
 * @par Changed by: vx_rate_policer_set(flow_pol_id)
 * @param[in]  dev_id      The device.
 * @param[in]  cfg         Its limit.
 * @param[out] flow_pol_id {id policer} Its id.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_create(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg, vx_pol_id_t *flow_pol_id);

/**
 * @brief Deletes a flow policer that polices no flow.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] flow_pol_id {id policer} The flow policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_delete(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id);

/**
 * @brief Sets the limit of a flow policer.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] flow_pol_id {id policer} The flow policer.
 * @param[in] cfg         The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_set(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Reads the limit of a flow policer.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  flow_pol_id {id policer} The flow policer.
 * @param[out] cfg         The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_get(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_rate_limit_cfg_t *cfg);

/**
 * @brief Binds a flow to a policer, or ends its policing.
 * @par Effect: changes
 * @par Read back: vx_rate_policer_status_get: cfg.flow_pol_sel=VX_FLOW_POL_SEL_FLOW_POL,
 *     cfg.flw_pol_id=policer_status.flow_pol_id if policer_status.flow_pol_id!=LMQ_INVALID_POL_ID
 * @par Undone by: vx_rate_flow_id_set(cfg.flow_pol_sel=VX_FLOW_POL_SEL_DISABLE)
 * @par Changed by: vx_rate_flow_id_set(flow_id)
 * @param[in] dev_id  The device.
 * @param[in] flow_id The flow.
 * @param[in] cfg     Where the policer comes from, and which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_flow_id_set(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_policing_cfg_t *cfg);

/**
 * @brief Ends policing by a flow policer.
 *
 * None of its flows is policed any more. The policer stays.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] flw_pol_id {id policer} The flow policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_flow_policing(vx_dev_id_t dev_id, vx_pol_id_t flw_pol_id);

/**
 * @brief Reads which policers a flow goes through.
 * @par Effect: reads
 * @param[in]  dev_id         The device.
 * @param[in]  flow_id        The flow.
 * @param[out] policer_status Whether the flow is policed, and by which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_status_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id,
                                       vx_flow_policer_status_t *policer_status);

/**
 * @brief Reads which policers there are, and what they serve.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_info What there is, as bitmaps.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_flow_policer_info(vx_dev_id_t dev_id, lmq_flow_policer_info_s *p_info);

/* The second interface: buckets */

/**
 * @brief Sets the rate limit of a bucket.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] type   {VX_LMQ_GE_SRC_PORT_BKT..VX_LMQ_CPU_PORT_BKT} The bucket.
 * @param[in] cfg    The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_limit_set(vx_dev_id_t dev_id, vx_lmq_pol_flow_type_t type, vx_lmq_rate_limit_t *cfg);

/**
 * @brief Reads the rate limit of a bucket.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[in]  type   {VX_LMQ_GE_SRC_PORT_BKT..VX_LMQ_CPU_PORT_BKT} The bucket.
 * @param[out] cfg    The limit.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_limit_get(vx_dev_id_t dev_id, vx_lmq_pol_flow_type_t type, vx_lmq_rate_limit_t *cfg);

/**
 * @brief Sets which packets storm control of a port looks at.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] mode    The packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_storm_ctrl_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_storm_ctrl_mod_t *mode);

/**
 * @brief Reads which packets storm control of a port looks at.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] mode    The packets.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_storm_ctrl_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_storm_ctrl_mod_t *mode);

/**
 * @brief Sets the shaper of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     The shaper.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_shaper_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_pol_port_shape_t *cfg);

/**
 * @brief Reads the shaper of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     The shaper.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_shaper_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_pol_port_shape_t *cfg);

/**
 * @brief Lets a flow share an accumulating bucket.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] flow_id   {0..VX_LMQ_MAX_FLOW_CNT} The flow, by the number of its bucket.
 * @param[in] flow_type The bucket.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_group_member_add(vx_dev_id_t dev_id, vx_uint32 flow_id, lmq_pol_acc_flow_type_t flow_type);

/**
 * @brief Takes a flow out of an accumulating bucket.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] flow_id   {0..VX_LMQ_MAX_FLOW_CNT} The flow, by the number of its bucket.
 * @param[in] flow_type The bucket.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_group_member_delete(vx_dev_id_t dev_id, vx_uint32 flow_id, lmq_pol_acc_flow_type_t flow_type);

/**
 * @brief Reads the counter of the shaper of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] count   {counter, packets} Packets that the shaper held back.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_lmq_rate_shape_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *count);

/* Counters and buffers */

/**
 * @brief Reads the packet counters of the buffer manager.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[out] p_stats The counters.
 * @param[in]  clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_bm_pkt_stats_get(vx_dev_id_t dev_id, lmq_bm_pkt_stats_s *p_stats, vx_boolean clear);

/**
 * @brief Clears the packet counters of the buffer manager.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_bm_pkt_stats_clear(vx_dev_id_t dev_id);

/**
 * @brief Reads how full the queues of a port are, and how they are served.
 * @par Effect: reads
 * @param[in]  device_id The device.
 * @param[in]  port_num  {id port} The port.
 * @param[out] p_status  The queues.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_bm_queue_status_get(vx_dev_id_t device_id, vx_uint16 port_num, lmq_bm_queue_status_s *p_status);

/**
 * @brief Reads the counters of the CPU policer.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id The device.
 * @param[out] stats  The counters.
 * @param[in]  clear  TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_stat_get(vx_dev_id_t dev_id, vx_pol_cpu_stats_t *stats, vx_boolean clear);

/**
 * @brief Clears the counters of the CPU policer.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_cpu_stat_clear(vx_dev_id_t dev_id);

/**
 * @brief Reads the counters of the policers of a source port.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id   The device.
 * @param[in]  port_num {id port} The port.
 * @param[out] stats    The counters.
 * @param[in]  clear    TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_stat_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_pol_src_port_stat_t *stats,
                                      vx_boolean clear);

/**
 * @brief Clears the counters of the policers of a source port.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_num {id port} The port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_src_port_stat_clear(vx_dev_id_t dev_id, vx_uint16 port_num);

/**
 * @brief Reads the counters of a flow policer.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id      The device.
 * @param[in]  flow_pol_id {id policer} The flow policer.
 * @param[out] stats       The counters.
 * @param[in]  clear       TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_stat_get(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_flow_stat_t *stats,
                                     vx_boolean clear);

/**
 * @brief Clears the counters of a flow policer.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] flow_pol_id {id policer} The flow policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_policer_stat_clear(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id);

/**
 * @brief Reads the counters of a group policer.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id     The device.
 * @param[in]  grp_pol_id {id group-policer} The group policer.
 * @param[out] stats      The counters.
 * @param[in]  clear      TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_stat_get(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_pol_group_stats_t *stats,
                                           vx_boolean clear);

/**
 * @brief Clears the counters of a group policer.
 * @par Effect: changes
 * @param[in] dev_id     The device.
 * @param[in] grp_pol_id {id group-policer} The group policer.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_rate_group_policer_stat_clear(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id);

#ifdef __cplusplus
}
#endif

#endif
