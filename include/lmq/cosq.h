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

/** @brief Arrays of vx_qos_dot1p_map_t: bits. */
typedef enum vx_qos_dot1p_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_DOT1P_TO_DOT1P_MAP = 1,
    VX_QOS_MASK_DOT1P_TO_DSCP_MAP = 2,
    VX_QOS_MASK_DOT1P_TO_TC_MAP = 4,
    VX_QOS_MASK_DOT1P_TO_COS_MAP = 8,
    VX_QOS_MASK_DOT1P_TO_POLICER_MAP = 16,
} vx_qos_dot1p_map_type_t;

/** @brief Arrays of vx_qos_dscp_map_t: bits. */
typedef enum vx_qos_dscp_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_DSCP_TO_DOT1P_MAP = 1,
    VX_QOS_MASK_DSCP_TO_DSCP_MAP = 2,
    VX_QOS_MASK_DSCP_TO_COS_MAP = 4,
    VX_QOS_MASK_DSCP_TO_POLICER_MAP = 8,
    VX_QOS_MASK_DSCP_TO_GEMID_MAP = 16,
} vx_qos_dscp_map_type_t;

/** @brief Arrays of vx_qos_tc_map_t: bits. */
typedef enum vx_qos_tc_map_type_t LMQ_ENUM_INT {
    VX_QOS_MASK_TC_TO_DOT1P_MAP = 1,
    VX_QOS_MASK_TC_TO_TC_MAP = 2,
    VX_QOS_MASK_TC_TO_COS_MAP = 4,
    VX_QOS_MASK_TC_TO_POLICER_MAP = 8,
    VX_QOS_MASK_TC_TO_GEMID_MAP = 16,
} vx_qos_tc_map_type_t;

/** @brief How the queues of a port are served. */
typedef enum vx_uni_sched_mode_t LMQ_ENUM_INT {
    VX_UNI_SCHED_SP = 0,      /**< Strict priority. */
    VX_UNI_SCHED_DWRR = 1,    /**< Deficit weighted round robin. */
    VX_UNI_SCHED_SP_DWRR = 2, /**< Strict priority for some, DWRR for the rest. */
} vx_uni_sched_mode_t;

/** @brief What becomes of a class of service. The index is the class. */
typedef struct {
    vx_uint8 cos_to_policer[((vx_uint8)8)];
} vx_qos_cos_map_t;

/** @brief What becomes of priority bits (IEEE 802.1Q PCP). The index is the priority that comes in. */
typedef struct {
    vx_qos_dot1p_map_type_t mask; /**< Which arrays count: bits of vx_qos_dot1p_map_type_t. */
    vx_uint8 dot1p_to_dot1p[((vx_uint8)8)];
    vx_uint8 dot1p_to_dscp[((vx_uint8)8)];
    vx_uint8 dot1p_to_tc[((vx_uint8)8)];
    vx_uint8 dot1p_to_cos[((vx_uint8)8)];
    vx_uint8 dot1p_to_policer[((vx_uint8)8)];
} vx_qos_dot1p_map_t;

/** @brief The GEM port of a DSCP. */
typedef struct {
    vx_uint8 dscp_to_gemid;
    vx_uint8 dscp_to_gemid_valid; /**< Whether dscp_to_gemid counts. */
} vx_qos_dscp_gemid_t;

/** @brief What becomes of a DSCP (RFC 2474). The index is the DSCP that comes in. */
typedef struct {
    vx_qos_dscp_map_type_t mask; /**< Which arrays count: bits of vx_qos_dscp_map_type_t. */
    vx_uint8 dscp_to_dot1p[((vx_uint8)64)];
    vx_uint8 dscp_to_dscp[((vx_uint8)64)];
    vx_uint8 dscp_to_cos[((vx_uint8)64)];
    vx_uint8 dscp_to_policer[((vx_uint8)64)];
    vx_qos_dscp_gemid_t dscp_to_gemid[((vx_uint8)64)];
} vx_qos_dscp_map_t;

/** @brief The GEM port of a traffic class. */
typedef struct {
    vx_uint8 tc_to_gemid;
    vx_uint8 tc_to_gemid_valid; /**< Whether tc_to_gemid counts. */
} vx_qos_tc_gemid_t;

/** @brief What becomes of a traffic class (RFC 2460). The index is the class that comes in. */
typedef struct {
    vx_qos_tc_map_type_t mask; /**< Which arrays count: bits of vx_qos_tc_map_type_t. */
    vx_uint8 tc_to_dot1p[((vx_uint8)64)];
    vx_uint8 tc_to_tc[((vx_uint8)64)];
    vx_uint8 tc_to_cos[((vx_uint8)64)];
    vx_uint8 tc_to_policer[((vx_uint8)64)];
    vx_qos_tc_gemid_t tc_to_gemid[((vx_uint8)64)];
} vx_qos_tc_map_t;

/** @brief A queue of a port. The units are those of the chip. */
typedef struct {
    vx_uint32 weight; /**< In DWRR. */
    vx_uint32 max_buff_size;
    vx_uint32 enbl_back_press;       /**< 0 or 1. */
    vx_uint32 back_press_set_thresh; /**< Filling at which back pressure begins. */
    vx_uint32 back_press_clr_thresh; /**< Filling at which it ends. */
    vx_uint32 back_press_time;
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
    vx_uni_sched_mode_t sched_mode;
    vx_uint16 num_sp_queues; /**< Queues with strict priority; read in mode VX_UNI_SCHED_SP_DWRR alone. */
} vx_sched_cfg_t;

/** @brief A shaper. The units are those of the chip. */
typedef struct {
    vx_uint32 shaping_rate;
    vx_uint32 cbs; /**< Committed burst size. */
} vx_shaping_rate_cfg_t;

/** @brief What all egress shapers share. */
typedef struct {
    vx_uint8 ipg_ovrhd_bytes; /**< Bytes counted for each packet on top of its own: inter-packet gap and preamble. */
} lmq_global_egrs_shaper_cfg_s;

/**
 * @brief Sets the class of service map of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The map.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_cos_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg);

/**
 * @brief Reads the class of service map of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_cos_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg);

/**
 * @brief Sets the 802.1p map of a port: the arrays that the mask names.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The map.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dot1p_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg);

/**
 * @brief Reads the 802.1p map of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write it; the mask reports the arrays filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dot1p_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg);

/**
 * @brief Sets the DSCP map of a port: the arrays that the mask names.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The map.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dscp_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg);

/**
 * @brief Reads the DSCP map of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write it; the mask reports the arrays filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_dscp_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg);

/**
 * @brief Sets the traffic class map of a port: the arrays that the mask names.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     The map.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_tc_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg);

/**
 * @brief Reads the traffic class map of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param cfg     Where to write it; the mask reports the arrays filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_tc_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg);

/**
 * @brief Sets the members of a queue that the mask flags.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param queue_id The queue.
 * @param p_cfg    Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_queue_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg);

/**
 * @brief Reads the configuration of a queue.
 * @param dev_id   The device.
 * @param port_id  The port.
 * @param queue_id The queue.
 * @param p_cfg    Where to write it; the mask reports the members filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_queue_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg);

/**
 * @brief Sets the scheduler of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_sched_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg);

/**
 * @brief Reads the scheduler of a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param p_cfg   Where to write its configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_sched_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg);

/**
 * @brief Sets what all egress shapers share.
 * @param dev_id The device.
 * @param p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_set_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg);

/**
 * @brief Reads what all egress shapers share.
 * @param dev_id The device.
 * @param p_cfg  Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_get_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg);

/**
 * @brief Sets the shaper of downstream traffic to a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enable  TRUE to shape.
 * @param cfg     Rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_ds_shaping_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable,
                                   vx_shaping_rate_cfg_t *cfg);

/**
 * @brief Reads the shaper of downstream traffic to a port.
 * @param dev_id  The device.
 * @param port_id The port.
 * @param enable  Where to write whether it shapes.
 * @param cfg     Where to write rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_ds_shaping_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enable,
                                   vx_shaping_rate_cfg_t *cfg);

/**
 * @brief Sets the shaper of mirrored packets, of which a device has one.
 * @param dev_id The device.
 * @param enable TRUE to shape.
 * @param cfg    Rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_mirror_pkt_shaping_set(vx_dev_id_t dev_id, vx_boolean enable, vx_shaping_rate_cfg_t *cfg);

/**
 * @brief Reads the shaper of mirrored packets.
 * @param dev_id The device.
 * @param enable Where to write whether it shapes.
 * @param cfg    Where to write rate and burst.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_cosq_mirror_pkt_shaping_get(vx_dev_id_t dev_id, vx_boolean *enable, vx_shaping_rate_cfg_t *cfg);

#ifdef __cplusplus
}
#endif

#endif
