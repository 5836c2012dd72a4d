/**
 * @file
 * @brief Class of service: maps of priority markings, queues, schedulers and shapers of the ports.
 */
#ifndef LMQ_COSQ_H
#define LMQ_COSQ_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Identifiers that name nothing */
/** @{ */
#define LMQ_INVALID_QUEUE_ID 0xFFFF
/** @} */

/** @brief Arrays of vx_qos_dot1p_map_t that a set takes or a get has filled: bits. */
typedef enum vx_qos_dot1p_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_DOT1P_TO_DOT1P_MAP = 1,    /**< Array dot1p_to_dot1p counts. */
    VX_QOS_MASK_DOT1P_TO_DSCP_MAP = 2,     /**< Array dot1p_to_dscp counts. */
    VX_QOS_MASK_DOT1P_TO_TC_MAP = 4,       /**< Array dot1p_to_tc counts. */
    VX_QOS_MASK_DOT1P_TO_COS_MAP = 8,      /**< Array dot1p_to_cos counts. */
    VX_QOS_MASK_DOT1P_TO_POLICER_MAP = 16, /**< Array dot1p_to_policer counts. */
} vx_qos_dot1p_map_type_t;

/** @brief Arrays of vx_qos_dscp_map_t that a set takes or a get has filled: bits. */
typedef enum vx_qos_dscp_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_DSCP_TO_DOT1P_MAP = 1,   /**< Array dscp_to_dot1p counts. */
    VX_QOS_MASK_DSCP_TO_DSCP_MAP = 2,    /**< Array dscp_to_dscp counts. */
    VX_QOS_MASK_DSCP_TO_COS_MAP = 4,     /**< Array dscp_to_cos counts. */
    VX_QOS_MASK_DSCP_TO_POLICER_MAP = 8, /**< Array dscp_to_policer counts. */
    VX_QOS_MASK_DSCP_TO_GEMID_MAP = 16,  /**< Array dscp_to_gemid counts. */
} vx_qos_dscp_map_type_t;

/** @brief Arrays of vx_qos_tc_map_t that a set takes or a get has filled: bits. */
typedef enum vx_qos_tc_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_TC_TO_DOT1P_MAP = 1,   /**< Array tc_to_dot1p counts. */
    VX_QOS_MASK_TC_TO_TC_MAP = 2,      /**< Array tc_to_tc counts. */
    VX_QOS_MASK_TC_TO_COS_MAP = 4,     /**< Array tc_to_cos counts. */
    VX_QOS_MASK_TC_TO_POLICER_MAP = 8, /**< Array tc_to_policer counts. */
    VX_QOS_MASK_TC_TO_GEMID_MAP = 16,  /**< Array tc_to_gemid counts. */
} vx_qos_tc_map_type_t;

/** @brief How the queues of a port are served. */
typedef enum vx_uni_sched_mode_t LMQ_ENUM_INT {
    VX_UNI_SCHED_SP = 0,      /**< Strict priority: the highest queue that is not empty is served first. */
    VX_UNI_SCHED_DWRR = 1,    /**< Deficit weighted round robin, by the weights of the queues. */
    VX_UNI_SCHED_SP_DWRR = 2, /**< Strict priority for the upper queues, DWRR for the rest. */
} vx_uni_sched_mode_t;

/** @brief What polices a class of service. The index is the class. */
typedef struct {
    vx_uint8 cos_to_policer[((vx_uint8)8)]; /**< {id policer} Policer of each class; 255 for none. */
} vx_qos_cos_map_t;

/** @brief What becomes of priority bits (IEEE 802.1Q PCP). The index is the priority that comes in. */
typedef struct {
    vx_qos_dot1p_map_type_t mask;             /**< {bits of vx_qos_dot1p_map_type_t} Which arrays count. */
    vx_uint8 dot1p_to_dot1p[((vx_uint8)8)];   /**< {0..7} Priority that each priority leaves with. */
    vx_uint8 dot1p_to_dscp[((vx_uint8)8)];    /**< {0..63} DSCP that each priority leaves with (RFC 2474). */
    vx_uint8 dot1p_to_tc[((vx_uint8)8)];      /**< {0..63} IPv6 traffic class that each priority leaves with. */
    vx_uint8 dot1p_to_cos[((vx_uint8)8)];     /**< {0..7} Class of service of each priority. */
    vx_uint8 dot1p_to_policer[((vx_uint8)8)]; /**< {id policer} Policer of each priority; 255 for none. */
} vx_qos_dot1p_map_t;

/** @brief The GEM port of a DSCP. */
typedef struct {
    vx_uint8 dscp_to_gemid;       /**< GEM port that carries the DSCP upstream, by its index in the chip. */
    vx_uint8 dscp_to_gemid_valid; /**< TRUE: dscp_to_gemid counts. FALSE: no GEM port. */
} vx_qos_dscp_gemid_t;

/** @brief What becomes of a DSCP (RFC 2474). The index is the DSCP that comes in. */
typedef struct {
    vx_qos_dscp_map_type_t mask;                       /**< {bits of vx_qos_dscp_map_type_t} Which arrays count. */
    vx_uint8 dscp_to_dot1p[((vx_uint8)64)];            /**< {0..7} Priority that each DSCP leaves with. */
    vx_uint8 dscp_to_dscp[((vx_uint8)64)];             /**< {0..63} DSCP that each DSCP leaves with. */
    vx_uint8 dscp_to_cos[((vx_uint8)64)];              /**< {0..7} Class of service of each DSCP. */
    vx_uint8 dscp_to_policer[((vx_uint8)64)];          /**< {id policer} Policer of each DSCP; 255 for none. */
    vx_qos_dscp_gemid_t dscp_to_gemid[((vx_uint8)64)]; /**< GEM port of each DSCP. */
} vx_qos_dscp_map_t;

/** @brief The GEM port of a traffic class. */
typedef struct {
    vx_uint8 tc_to_gemid;       /**< GEM port that carries the traffic class upstream, by its index in the chip. */
    vx_uint8 tc_to_gemid_valid; /**< TRUE: tc_to_gemid counts. FALSE: no GEM port. */
} vx_qos_tc_gemid_t;

/** @brief What becomes of an IPv6 traffic class (RFC 2474). The index is the upper six bits of what comes in. */
typedef struct {
    vx_qos_tc_map_type_t mask;                     /**< {bits of vx_qos_tc_map_type_t} Which arrays count. */
    vx_uint8 tc_to_dot1p[((vx_uint8)64)];          /**< {0..7} Priority that each traffic class leaves with. */
    vx_uint8 tc_to_tc[((vx_uint8)64)];             /**< {0..63} Traffic class that each traffic class leaves with. */
    vx_uint8 tc_to_cos[((vx_uint8)64)];            /**< {0..7} Class of service of each traffic class. */
    vx_uint8 tc_to_policer[((vx_uint8)64)];        /**< {id policer} Policer of each traffic class; 255 for none. */
    vx_qos_tc_gemid_t tc_to_gemid[((vx_uint8)64)]; /**< GEM port of each traffic class. */
} vx_qos_tc_map_t;

/** @brief A queue of a port. The units are those of the chip. */
typedef struct {
    vx_uint32 weight;                /**< Share of the queue in DWRR, against the weights of the others. */
    vx_uint32 max_buff_size;         /**< What the queue may hold before packets are dropped. */
    vx_uint32 enbl_back_press;       /**< TRUE: the queue holds back its sources when it fills up. */
    vx_uint32 back_press_set_thresh; /**< Filling at which back pressure begins. */
    vx_uint32 back_press_clr_thresh; /**< Filling at which back pressure ends. */
    vx_uint32 back_press_time;       /**< How long back pressure lasts once it has begun. */
    union {
        struct {
            vx_uint32 weight : 1;
            vx_uint32 max_buff_size : 1;
            vx_uint32 enbl_back_press : 1;
            vx_uint32 back_press_set_thresh : 1;
            vx_uint32 back_press_clr_thresh : 1;
            vx_uint32 back_press_time : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_queue_cfg_t;

/** @brief The scheduler of a port. */
typedef struct {
    vx_uni_sched_mode_t sched_mode; /**< How the queues of the port are served. */
    vx_uint16 num_sp_queues;        /**< {0..32} Upper queues with strict priority, in VX_UNI_SCHED_SP_DWRR. */
} vx_sched_cfg_t;

/** @brief A shaper. The units are those of the chip. */
typedef struct {
    vx_uint32 shaping_rate; /**< Rate at which packets leave at most. */
    vx_uint32 cbs;          /**< Committed burst size: what may leave at once above the rate. */
} vx_shaping_rate_cfg_t;

/** @brief What all egress shapers share. */
typedef struct {
    vx_uint8 ipg_ovrhd_bytes; /**< {bytes} Gap and preamble, counted for each packet: 20 in IEEE 802.3. */
} lmq_global_egrs_shaper_cfg_s;

/**
 * @brief Sets the class of service map of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     Policer of each class.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_cos_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg);

/**
 * @brief Reads the class of service map of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     Policer of each class.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_cos_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg);

/**
 * @brief Sets the 802.1p map of a port: the arrays that the mask names.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     The arrays, and in the mask which of them to take.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dot1p_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg);

/**
 * @brief Reads the 802.1p map of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     All arrays; the mask flags each.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dot1p_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg);

/**
 * @brief Sets the DSCP map of a port: the arrays that the mask names.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     The arrays, and in the mask which of them to take.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dscp_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg);

/**
 * @brief Reads the DSCP map of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     All arrays; the mask flags each.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dscp_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg);

/**
 * @brief Sets the traffic class map of a port: the arrays that the mask names.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] cfg     The arrays, and in the mask which of them to take.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_tc_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg);

/**
 * @brief Reads the traffic class map of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] cfg     All arrays; the mask flags each.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_tc_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg);

/**
 * @brief Sets the members of a queue that valid flags.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_id  The port.
 * @param[in] queue_id {id queue, 0..31} The queue: 0 to 31 on the SNI, 0 to 7 on the other ports.
 * @param[in] p_cfg    The queue's configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_queue_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg);

/**
 * @brief Reads the configuration of a queue.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  The port.
 * @param[in]  queue_id {id queue, 0..31} The queue: 0 to 31 on the SNI, 0 to 7 on the other ports.
 * @param[out] p_cfg    The queue's configuration; valid flags every member.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_queue_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg);

/**
 * @brief Sets the scheduler of a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   Mode, and queues with strict priority.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_sched_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg);

/**
 * @brief Reads the scheduler of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   Mode, and queues with strict priority.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_sched_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg);

/**
 * @brief Sets what all egress shapers share.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  What the shapers count for each packet.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg);

/**
 * @brief Reads what all egress shapers share.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  What the shapers count for each packet.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg);

/**
 * @brief Sets the shaper of downstream traffic to a port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] enable  TRUE to shape. FALSE keeps rate and burst without using them.
 * @param[in] cfg     Rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_ds_shaping_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable,
                                   vx_shaping_rate_cfg_t *cfg);

/**
 * @brief Reads the shaper of downstream traffic to a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] enable  Whether the traffic is shaped.
 * @param[out] cfg     Rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_ds_shaping_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enable,
                                   vx_shaping_rate_cfg_t *cfg);

/**
 * @brief Sets the shaper of mirrored packets, of which a device has one.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] enable TRUE to shape. FALSE keeps rate and burst without using them.
 * @param[in] cfg    Rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_mirror_pkt_shaping_set(vx_dev_id_t dev_id, vx_boolean enable, vx_shaping_rate_cfg_t *cfg);

/**
 * @brief Reads the shaper of mirrored packets.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] enable Whether mirrored packets are shaped.
 * @param[out] cfg    Rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_mirror_pkt_shaping_get(vx_dev_id_t dev_id, vx_boolean *enable, vx_shaping_rate_cfg_t *cfg);

#ifdef __cplusplus
}
#endif

#endif
