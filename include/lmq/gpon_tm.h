/**
 * @file
 * @brief Traffic management of the GPON port, and its counters.
 */
#ifndef LMQ_GPON_TM_H
#define LMQ_GPON_TM_H

#include "lmq/device.h"
#include "lmq/policer.h"
#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @name Counters of vx_gpon_mac_stats_t as bits of vx_gpon_mac_stats_id_t */
/** @{ */
#define O5_STATE_TRANSITION 0x0001
#define BIP_ERR_CNT 0x0002
#define DS_GPON_FRM_CNT 0x0004
#define RX_GEM_FRAG_DROP 0x0008
#define RX_GEM_1BIT_ERR 0x0010
#define RX_GEM_2BIT_ERR 0x0020
#define RX_GEM_UNCORR_ERR 0x0040
#define BWMAP_DROP 0x0080
#define PLEND_ERR 0x0100
#define PLEND_CORR_BIT_ERR 0x0200
#define DS_CRC_PKT 0x0400
#define DS_UNDERSZ_PKT 0x0800
#define DS_OVERSZ_PKT 0x1000
#define GPON_MAC_STATS_ALL 0xffff
/** @} */

/** @brief How the priority queues of a T-CONT are served. */
typedef enum vx_gpon_tm_sched_mode_t LMQ_ENUM_INT {
    VX_GPON_TM_SCHED_MODE_SP = 0,     /**< Strict priority. */
    VX_GPON_TM_SCHED_MODE_WRR = 1,    /**< Weighted round robin. */
    VX_GPON_TM_SCHED_MODE_SP_WRR = 2, /**< Strict priority for some, WRR for the rest. */
} vx_gpon_tm_sched_mode_t;

/** @name Types of the chip that no operation takes */
/** @{ */

/** @brief What a priority queue is mapped to. */
typedef enum vx_gpon_tm_pri_q_map_type_t LMQ_ENUM_INT {
    VX_GPON_TM_PRI_Q_MAP_TCONT = 0,
    VX_GPON_TM_PRI_Q_MAP_SCHED = 1,
    VX_GPON_TM_PRI_Q_MAP_UNI = 2,
} vx_gpon_tm_pri_q_map_type_t;

/** @brief Whether priority queues share their buffers. */
typedef enum vx_gpon_tm_pri_q_option_t LMQ_ENUM_INT {
    VX_GPON_TM_PRI_Q_BUFF_SHARED = 0,
    VX_GPON_TM_PRI_Q_BUFF_SEPARATE = 1,
} vx_gpon_tm_pri_q_option_t;

/** @} */

/** @brief What the traffic manager of the GPON port can do. */
typedef struct {
    vx_gpon_tm_option_t tm_options; /**< Bits of vx_gpon_tm_option_t. */
    vx_uint16 num_tcont;            /**< T-CONTs. */
    vx_uint16 num_sched;            /**< Schedulers. */
    vx_uint16 num_us_pri_q;         /**< Upstream priority queues. */
    vx_uint16 num_ds_pri_q;         /**< Downstream priority queues. */
} vx_gpon_tm_info_t;

/** @brief A T-CONT, as the traffic manager lists it. */
typedef struct {
    vx_uint16 tcont_id;
    vx_boolean is_omci; /**< TRUE: it carries the OMCC (ITU-T G.984.4). */
} vx_gpon_tm_tcont_info_t;

/** @brief The scheduler of a T-CONT. */
typedef struct {
    vx_gpon_tm_sched_mode_t sched_mode;
    vx_uint8 num_sp_queues; /**< Queues with strict priority; read in mode VX_GPON_TM_SCHED_MODE_SP_WRR alone. */
} vx_gpon_tm_tcont_cfg_t;

/** @brief Where a priority queue goes: to a T-CONT of a PON, or to a UNI. uni_port lies over pon_id. */
typedef struct {
    union {
        struct {
            vx_uint16 pon_id;
            vx_uint16 tcont_id;
        } tcont_id;
        vx_uint16 uni_port;
    } map_id;
} vx_gpon_tm_pri_q_mapping_t;

/** @brief The priority queue of a GEM port. */
typedef struct {
    vx_uint16 pri_q_id;
} vx_gpon_tm_gem_mapping_t;

/** @brief A traffic descriptor: a meter that GEM ports refer to. The units are those of the chip. */
typedef struct {
    vx_wred_mode_t pol_mode;
    vx_uint32 cir_rate;     /**< Committed information rate. */
    vx_uint32 pir_rate;     /**< Peak information rate. */
    vx_uint32 commit_burst; /**< Committed burst size. */
    vx_uint32 peak_burst;   /**< Peak burst size. */
} vx_gpon_gem_traffic_desc_cfg_t;

/** @brief The traffic descriptors of a GEM port, upstream and downstream. */
typedef struct {
    vx_boolean enbl_us_rate_limit;
    vx_uint32 us_gem_td_id;
    vx_boolean enbl_ds_rate_limit;
    vx_uint32 ds_gem_td_id;
} vx_gpon_gem_rate_limit_cfg_t;

/** @brief Counters of the GPON MAC (ITU-T G.984.3). */
typedef struct {
    vx_uint32 o5_state_transition; /**< Entries into the operation state. */
    vx_uint32 bip_err_cnt;         /**< Bit errors that the BIP shows. */
    vx_uint32 ds_gpon_frm_cnt;     /**< Downstream frames. */
    vx_uint32 rx_gem_frag_drop;    /**< GEM fragments dropped. */
    vx_uint32 rx_gem_1bit_err;     /**< GEM headers with one bit corrected. */
    vx_uint32 rx_gem_2bit_err;     /**< GEM headers with two bits corrected. */
    vx_uint32 rx_gem_uncorr_err;   /**< GEM headers that could not be corrected. */
    vx_uint32 bwmap_drop;          /**< Bandwidth maps dropped. */
    vx_uint32 plend_err;           /**< Errors in the payload length field. */
    vx_uint32 plend_corr_bit_err;  /**< Bits corrected there. */
    vx_uint32 ds_crc_pkt;          /**< Packets with a bad CRC. */
    vx_uint32 ds_undersz_pkt;
    vx_uint32 ds_oversz_pkt;
} vx_gpon_mac_stats_t;

/** @brief Counters of forward error correction, in blocks and bytes. */
typedef struct {
    vx_uint32 rx_blk_cnt;
    vx_uint32 no_err_blk_cnt;
    vx_uint32 corr_blk_cnt;
    vx_uint32 uncorr_blk_cnt;
    vx_uint32 tot_corr_byte_cnt;
} vx_gpon_fec_stats_t;

/** @brief Counters of PLOAM messages (ITU-T G.984.3, clause 9). The index is the message type. */
typedef struct {
    vx_uint32 rx_ploamd_crc;      /**< Downstream messages with a bad CRC. */
    vx_uint32 rx_ploamd_cnt[256]; /**< Downstream messages. */
    vx_uint32 tx_ploamu_cnt[256]; /**< Upstream messages. */
} vx_gpon_ploam_stats_t;

/** @brief Counters of a T-CONT. */
typedef struct {
    vx_uint32 us_pkt_cnt;
} vx_gpon_tcont_stats_t;

/** @brief Counters of a GEM port, or of that of the OMCC. */
typedef struct {
    vx_uint32 ds_pkt_cnt;
    vx_uint32 ds_blk_cnt;
    vx_uint32 us_pkt_cnt;
} vx_gpon_gem_port_stats_t;

/** @brief A queue of T-CONTs. */
typedef struct {
    vx_uint8 dwrr_ratio; /**< DWRR weight ratio. */
    vx_uint8 pkt_cnt;    /**< Packets waiting. */
    vx_uint16 byte_cnt;  /**< Bytes waiting. */
} lmq_tcont_queue_info;

/** @brief Scheduler and queues of the T-CONTs of a GPON port. Bit n of a map is number n. */
typedef struct {
    vx_boolean dual_frag_status;
    vx_boolean tcont_sched_status;
    vx_uint16 tcont_bitmap;                   /**< T-CONTs in use. */
    vx_uint32 que_bitmap[VX_GPON_MAX_TCONTS]; /**< The queues of each T-CONT. */
    lmq_tcont_queue_info que_status[VX_MAX_NUM_TCONT_QUEUE];
} lmq_tcont_queue_status_s;

/**
 * @brief Reads what the traffic manager can do.
 * @param dev_id The device.
 * @param p_info Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tm_info_get(vx_dev_id_t dev_id, vx_gpon_tm_info_t *p_info);

/**
 * @brief Lists the T-CONTs as the traffic manager sees them.
 * @param dev_id      The device.
 * @param get_cnt     Records there is room for.
 * @param p_info      Where to write get_cnt records at most.
 * @param p_valid_cnt Where to write how many records were filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_tm_info_get(vx_dev_id_t dev_id, vx_uint16 get_cnt, vx_gpon_tm_tcont_info_t *p_info,
                                          vx_uint16 *p_valid_cnt);

/**
 * @brief Sets the scheduler of a T-CONT.
 * @param dev_id   The device.
 * @param pon_id   The PON, 0.
 * @param tcont_id The T-CONT, 0 to VX_GPON_MAX_TCONTS - 1.
 * @param p_cfg    The scheduler.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_sched_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id,
                                        vx_gpon_tm_tcont_cfg_t *p_cfg);

/**
 * @brief Reads the scheduler of a T-CONT.
 * @param dev_id   The device.
 * @param pon_id   The PON, 0.
 * @param tcont_id The T-CONT, 0 to VX_GPON_MAX_TCONTS - 1.
 * @param p_cfg    Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_sched_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id,
                                        vx_gpon_tm_tcont_cfg_t *p_cfg);

/**
 * @brief Maps an upstream priority queue to a T-CONT.
 * @param dev_id   The device.
 * @param queue_id The priority queue.
 * @param p_cfg    Where the queue goes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_queue_map_set(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg);

/**
 * @brief Reads where an upstream priority queue goes.
 * @param dev_id   The device.
 * @param queue_id The priority queue.
 * @param p_cfg    Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_queue_map_get(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg);

/**
 * @brief Maps a GEM port to an upstream priority queue.
 * @param dev_id      The device.
 * @param pon_id      The PON, 0.
 * @param gem_port_id The GEM port.
 * @param p_cfg       The queue.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_us_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Reads the upstream priority queue of a GEM port.
 * @param dev_id      The device.
 * @param pon_id      The PON, 0.
 * @param gem_port_id The GEM port.
 * @param p_cfg       Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_us_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Maps a GEM port to a downstream priority queue.
 * @param dev_id      The device.
 * @param pon_id      The PON, 0.
 * @param gem_port_id The GEM port.
 * @param p_cfg       The queue.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_ds_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Reads the downstream priority queue of a GEM port.
 * @param dev_id      The device.
 * @param pon_id      The PON, 0.
 * @param gem_port_id The GEM port.
 * @param p_cfg       Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_ds_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Creates a traffic descriptor under an id that the caller chooses.
 * @param dev_id    The device.
 * @param gem_td_id The traffic descriptor.
 * @param p_cfg     The descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_create(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                                vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

/**
 * @brief Deletes a traffic descriptor.
 * @param dev_id    The device.
 * @param gem_td_id The traffic descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_delete(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id);

/**
 * @brief Sets a traffic descriptor.
 * @param dev_id    The device.
 * @param gem_td_id The traffic descriptor.
 * @param p_cfg     The descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_set(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                             vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

/**
 * @brief Reads a traffic descriptor.
 * @param dev_id    The device.
 * @param gem_td_id The traffic descriptor.
 * @param p_cfg     Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_get(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                             vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

/**
 * @brief Sets the traffic descriptors of a GEM port.
 * @param dev_id      The device.
 * @param pon_id      The PON, 0.
 * @param gem_port_id The GEM port.
 * @param p_cfg       Which direction is limited, and by which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_rate_limit_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                           vx_gpon_gem_rate_limit_cfg_t *p_cfg);

/**
 * @brief Reads the traffic descriptors of a GEM port.
 * @param dev_id      The device.
 * @param pon_id      The PON, 0.
 * @param gem_port_id The GEM port.
 * @param p_cfg       Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_rate_limit_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                           vx_gpon_gem_rate_limit_cfg_t *p_cfg);

/**
 * @brief Reads whether an upstream priority queue is active.
 * @param dev_id   The device.
 * @param pon_id   The PON, 0.
 * @param us_pri_q The queue.
 * @param p_active Where to write TRUE or FALSE.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_us_queue_status_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 us_pri_q,
                                            vx_boolean *p_active);

/* Counters */

/**
 * @brief Reads the counters of the MAC.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @param p_stat  Where to write them.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_mac_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_mac_stats_t *p_stat);

/**
 * @brief Clears the counters of the MAC.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_mac_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the counters of forward error correction.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @param p_stat  Where to write them.
 * @param clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_fec_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_fec_stats_t *p_stat,
                                      vx_boolean clear);

/**
 * @brief Clears the counters of forward error correction.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_fec_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Begins counting PLOAM messages of some types.
 * @param dev_id        The device.
 * @param port_id       The GPON port.
 * @param all_msg_types TRUE: all, whatever the list says.
 * @param msg_type_cnt  Message types in the list.
 * @param p_msg_list    Message types. May be NULL when all_msg_types is TRUE.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types,
                                        vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list);

/**
 * @brief Ends counting PLOAM messages of some types.
 * @param dev_id        The device.
 * @param port_id       The GPON port.
 * @param all_msg_types TRUE: all, whatever the list says.
 * @param msg_type_cnt  Message types in the list.
 * @param p_msg_list    Message types. May be NULL when all_msg_types is TRUE.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types,
                                         vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list);

/**
 * @brief Reads the counters of PLOAM messages, of the types that are counted.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @param p_stats Where to write them.
 * @param clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_ploam_stats_t *p_stats,
                                        vx_boolean clear);

/**
 * @brief Clears the counters of PLOAM messages.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the counters of a T-CONT.
 * @param dev_id   The device.
 * @param port_id  The GPON port.
 * @param tcont_id The T-CONT, 0 to VX_GPON_MAX_TCONTS - 1.
 * @param p_stats  Where to write them.
 * @param clear    TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                        vx_gpon_tcont_stats_t *p_stats, vx_boolean clear);

/**
 * @brief Clears the counters of a T-CONT.
 * @param dev_id   The device.
 * @param port_id  The GPON port.
 * @param tcont_id The T-CONT, 0 to VX_GPON_MAX_TCONTS - 1.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id);

/**
 * @brief Reads the counters of the GEM port of the OMCC, in both directions.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @param p_stats Where to write them.
 * @param clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_omcc_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_gem_port_stats_t *p_stats,
                                       vx_boolean clear);

/**
 * @brief Clears the counters of the GEM port of the OMCC.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_omcc_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the counters of a GEM port. For a GEM port of one direction those of the other are 0.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @param gem_id  The GEM port.
 * @param p_stats Where to write them.
 * @param clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id,
                                      vx_gpon_gem_port_stats_t *p_stats, vx_boolean clear);

/**
 * @brief Clears the counters of a GEM port.
 * @param dev_id  The device.
 * @param port_id The GPON port.
 * @param gem_id  The GEM port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id);

/**
 * @brief Reads the status of the T-CONT scheduler and of the T-CONT queues of a GPON port.
 * @param device_id The device.
 * @param port_id   The GPON port.
 * @param p_status  Where to write it.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_queue_status_get(vx_dev_id_t device_id, vx_port_id_t port_id,
                                               lmq_tcont_queue_status_s *p_status);

#ifdef __cplusplus
}
#endif

#endif
