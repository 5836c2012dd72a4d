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
    VX_GPON_TM_SCHED_MODE_SP = 0,     /**< Strict priority: the highest queue that is not empty is served first. */
    VX_GPON_TM_SCHED_MODE_WRR = 1,    /**< Weighted round robin. */
    VX_GPON_TM_SCHED_MODE_SP_WRR = 2, /**< Strict priority for the upper queues, WRR for the rest. */
} vx_gpon_tm_sched_mode_t;

/** @name Types of the chip that no operation takes */
/** @{ */

/** @brief What a priority queue is mapped to. */
typedef enum vx_gpon_tm_pri_q_map_type_t LMQ_ENUM_INT {
    VX_GPON_TM_PRI_Q_MAP_TCONT = 0, /**< A T-CONT. */
    VX_GPON_TM_PRI_Q_MAP_SCHED = 1, /**< A scheduler. */
    VX_GPON_TM_PRI_Q_MAP_UNI = 2,   /**< A UNI. */
} vx_gpon_tm_pri_q_map_type_t;

/** @brief Whether priority queues share their buffers. */
typedef enum vx_gpon_tm_pri_q_option_t LMQ_ENUM_INT {
    VX_GPON_TM_PRI_Q_BUFF_SHARED = 0,   /**< All queues take buffers from one pool. */
    VX_GPON_TM_PRI_Q_BUFF_SEPARATE = 1, /**< Each queue has buffers of its own. */
} vx_gpon_tm_pri_q_option_t;

/** @} */

/** @brief What the traffic manager of the GPON port can do. */
typedef struct {
    vx_gpon_tm_option_t tm_options; /**< {bits of vx_gpon_tm_option_t} Upstream traffic management. */
    vx_uint16 num_tcont;            /**< T-CONTs that there are. */
    vx_uint16 num_sched;            /**< Schedulers that there are. */
    vx_uint16 num_us_pri_q;         /**< Upstream priority queues that there are. */
    vx_uint16 num_ds_pri_q;         /**< Downstream priority queues that there are. */
} vx_gpon_tm_info_t;

/** @brief A T-CONT, as the traffic manager lists it. */
typedef struct {
    vx_uint16 tcont_id; /**< {id tcont} The T-CONT. */
    vx_boolean is_omci; /**< TRUE: it carries the OMCC (ITU-T G.984.4). */
} vx_gpon_tm_tcont_info_t;

/** @brief The scheduler of a T-CONT. */
typedef struct {
    vx_gpon_tm_sched_mode_t sched_mode; /**< How the queues of the T-CONT are served. */
    vx_uint8 num_sp_queues; /**< {0..VX_MAX_NUM_TCONT_QUEUE} Upper queues with strict priority, in SP_WRR. */
} vx_gpon_tm_tcont_cfg_t;

/** @brief Where an upstream priority queue goes: to a T-CONT of a PON, or to a UNI. */
typedef struct {
    union {
        struct {
            vx_uint16 pon_id;   /**< The PON, 0. */
            vx_uint16 tcont_id; /**< {id tcont} The T-CONT; not looked at for a UNI. */
        } tcont_id;             /**< The T-CONT that the queue goes to. */
        vx_uint16 uni_port;     /**< {id port} The UNI that the queue goes to; lies over pon_id. */
    } map_id;                   /**< {overlaid} A number below VX_PORT_ETH0 is a PON, any other a UNI. */
} vx_gpon_tm_pri_q_mapping_t;

/** @brief The priority queue of a GEM port. */
typedef struct {
    vx_uint16 pri_q_id; /**< Queue, 0 to 31 upstream or 0 to 15 downstream; LMQ_INVALID_QUEUE_ID for none. */
} vx_gpon_tm_gem_mapping_t;

/** @brief A traffic descriptor: a meter that GEM ports refer to. The units are those of the chip. */
typedef struct {
    vx_wred_mode_t pol_mode; /**< Algorithm of the meter; not several at once. */
    vx_uint32 cir_rate;      /**< Committed information rate. */
    vx_uint32 pir_rate;      /**< Peak information rate; at least cir_rate in the modes with two rates. */
    vx_uint32 commit_burst;  /**< Committed burst size. */
    vx_uint32 peak_burst;    /**< Peak burst size; RFC 2697 and RFC 4115 call it excess burst size. */
} vx_gpon_gem_traffic_desc_cfg_t;

/** @brief The traffic descriptors of a GEM port, upstream and downstream. */
typedef struct {
    vx_boolean enbl_us_rate_limit; /**< TRUE: upstream packets are limited. */
    vx_uint32 us_gem_td_id;        /**< {id traffic-descriptor} Upstream limit; looked at if there is to be one. */
    vx_boolean enbl_ds_rate_limit; /**< TRUE: downstream packets are limited. */
    vx_uint32 ds_gem_td_id;        /**< {id traffic-descriptor} Downstream limit; looked at if there is to be one. */
} vx_gpon_gem_rate_limit_cfg_t;

/** @brief Counters of the GPON MAC (ITU-T G.984.3). */
typedef struct {
    vx_uint32 o5_state_transition; /**< {counter} Entries into the operation state, O5. */
    vx_uint32 bip_err_cnt;         /**< {counter} Bit errors that the interleaved parity (BIP) shows. */
    vx_uint32 ds_gpon_frm_cnt;     /**< {counter, frames} Downstream frames. */
    vx_uint32 rx_gem_frag_drop;    /**< {counter} GEM fragments dropped. */
    vx_uint32 rx_gem_1bit_err;     /**< {counter} GEM headers with one bit corrected. */
    vx_uint32 rx_gem_2bit_err;     /**< {counter} GEM headers with two bits corrected. */
    vx_uint32 rx_gem_uncorr_err;   /**< {counter} GEM headers that could not be corrected. */
    vx_uint32 bwmap_drop;          /**< {counter} Bandwidth maps dropped. */
    vx_uint32 plend_err;           /**< {counter} Errors in the payload length field (Plend). */
    vx_uint32 plend_corr_bit_err;  /**< {counter} Bits corrected in the payload length field (Plend). */
    vx_uint32 ds_crc_pkt;          /**< {counter, packets} Downstream packets with a wrong CRC. */
    vx_uint32 ds_undersz_pkt;      /**< {counter, packets} Downstream packets below the shortest length. */
    vx_uint32 ds_oversz_pkt;       /**< {counter, packets} Downstream packets beyond the longest length. */
} vx_gpon_mac_stats_t;

/** @brief Counters of forward error correction, in blocks and bytes. */
typedef struct {
    vx_uint32 rx_blk_cnt;        /**< {counter} Blocks received. */
    vx_uint32 no_err_blk_cnt;    /**< {counter} Blocks without an error. */
    vx_uint32 corr_blk_cnt;      /**< {counter} Blocks with errors that were corrected. */
    vx_uint32 uncorr_blk_cnt;    /**< {counter} Blocks with errors that could not be corrected. */
    vx_uint32 tot_corr_byte_cnt; /**< {counter, bytes} Corrected, in all blocks. */
} vx_gpon_fec_stats_t;

/** @brief Counters of PLOAM messages (ITU-T G.984.3, clause 9). The index is the message type. */
typedef struct {
    vx_uint32 rx_ploamd_crc;      /**< {counter} Downstream messages with a wrong CRC. */
    vx_uint32 rx_ploamd_cnt[256]; /**< {counter} Downstream messages of each type. */
    vx_uint32 tx_ploamu_cnt[256]; /**< {counter} Upstream messages of each type. */
} vx_gpon_ploam_stats_t;

/** @brief Counters of a T-CONT. */
typedef struct {
    vx_uint32 us_pkt_cnt; /**< {counter, packets} Sent upstream. */
} vx_gpon_tcont_stats_t;

/** @brief Counters of a GEM port, or of that of the OMCC. */
typedef struct {
    vx_uint32 ds_pkt_cnt; /**< {counter, packets} Received downstream. */
    vx_uint32 ds_blk_cnt; /**< {counter} GEM fragments received downstream. */
    vx_uint32 us_pkt_cnt; /**< {counter, packets} Sent upstream. */
} vx_gpon_gem_port_stats_t;

/** @brief A queue of a T-CONT. */
typedef struct {
    vx_uint8 dwrr_ratio; /**< Weight of the queue in DWRR. */
    vx_uint8 pkt_cnt;    /**< {packets} Waiting in the queue. */
    vx_uint16 byte_cnt;  /**< {bytes} Waiting in the queue. */
} lmq_tcont_queue_info;

/** @brief Scheduler and queues of the T-CONTs of a GPON port. Bit n of a map is number n. */
typedef struct {
    vx_boolean dual_frag_status;              /**< TRUE: two packets may be sent in fragments at a time. */
    vx_boolean tcont_sched_status;            /**< TRUE: the T-CONT scheduler runs. */
    vx_uint16 tcont_bitmap;                   /**< {bitmap} T-CONTs in use. */
    vx_uint32 que_bitmap[VX_GPON_MAX_TCONTS]; /**< {bitmap} For each T-CONT the upstream queues that go to it. */
    lmq_tcont_queue_info que_status[VX_MAX_NUM_TCONT_QUEUE]; /**< The queues of a T-CONT, by priority. */
} lmq_tcont_queue_status_s;

/**
 * @brief Reads what the traffic manager can do.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_info What it can do.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tm_info_get(vx_dev_id_t dev_id, vx_gpon_tm_info_t *p_info);

/**
 * @brief Lists the T-CONTs that the traffic manager has in use.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  get_cnt     Room for T-CONTs.
 * @param[out] p_info      [get_cnt; *p_valid_cnt filled] The T-CONTs.
 * @param[out] p_valid_cnt How many were filled.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_tm_info_get(vx_dev_id_t dev_id, vx_uint16 get_cnt, vx_gpon_tm_tcont_info_t *p_info,
                                          vx_uint16 *p_valid_cnt);

/**
 * @brief Sets the scheduler of a T-CONT.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] pon_id   {id pon-port} The PON, 0.
 * @param[in] tcont_id {id tcont} The T-CONT.
 * @param[in] p_cfg    The scheduler.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_sched_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id,
                                        vx_gpon_tm_tcont_cfg_t *p_cfg);

/**
 * @brief Reads the scheduler of a T-CONT.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  pon_id   {id pon-port} The PON, 0.
 * @param[in]  tcont_id {id tcont} The T-CONT.
 * @param[out] p_cfg    The scheduler.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_sched_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id,
                                        vx_gpon_tm_tcont_cfg_t *p_cfg);

/**
 * @brief Maps an upstream priority queue to a T-CONT, which takes VX_MAX_NUM_TCONT_QUEUE, or to a UNI.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] queue_id {id us-queue} The priority queue.
 * @param[in] p_cfg    Where the queue goes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_queue_map_set(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg);

/**
 * @brief Reads where an upstream priority queue goes.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  queue_id {id us-queue} The priority queue.
 * @param[out] p_cfg    Where the queue goes.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_queue_map_get(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg);

/**
 * @brief Maps a GEM port to an upstream priority queue.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] pon_id      {id pon-port} The PON, 0.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @param[in] p_cfg       The queue.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_us_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Reads the upstream priority queue of a GEM port that has one.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  pon_id      {id pon-port} The PON, 0.
 * @param[in]  gem_port_id {id gem-port} The GEM port.
 * @param[out] p_cfg       The queue.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_us_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Maps a GEM port to a downstream priority queue.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] pon_id      {id pon-port} The PON, 0.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @param[in] p_cfg       The queue.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_ds_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Reads the downstream priority queue of a GEM port that has one.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  pon_id      {id pon-port} The PON, 0.
 * @param[in]  gem_port_id {id gem-port} The GEM port.
 * @param[out] p_cfg       The queue.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_ds_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg);

/**
 * @brief Creates a traffic descriptor under an id that the caller chooses.
 * @par Effect: changes
 * @par Read back: vx_gpon_onu_gem_traffic_desc_get
 * @par Undone by: vx_gpon_onu_gem_traffic_desc_delete
 * @par Changed by: vx_gpon_onu_gem_traffic_desc_set(gem_td_id)
 * @param[in] dev_id    The device.
 * @param[in] gem_td_id {id traffic-descriptor} An id that is not in use; LMQ_INVALID_ID32 is none.
 * @param[in] p_cfg     The descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_create(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                                vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

/**
 * @brief Deletes a traffic descriptor that limits no GEM port.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] gem_td_id {id traffic-descriptor} The traffic descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_delete(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id);

/**
 * @brief Sets a traffic descriptor.
 * @par Effect: changes
 * @param[in] dev_id    The device.
 * @param[in] gem_td_id {id traffic-descriptor} The traffic descriptor.
 * @param[in] p_cfg     The descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_set(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                             vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

/**
 * @brief Reads a traffic descriptor.
 * @par Effect: reads
 * @param[in]  dev_id    The device.
 * @param[in]  gem_td_id {id traffic-descriptor} The traffic descriptor.
 * @param[out] p_cfg     The descriptor.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_traffic_desc_get(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                             vx_gpon_gem_traffic_desc_cfg_t *p_cfg);

/**
 * @brief Sets the traffic descriptors of a GEM port.
 * @par Effect: changes
 * @param[in] dev_id      The device.
 * @param[in] pon_id      {id pon-port} The PON, 0.
 * @param[in] gem_port_id {id gem-port} The GEM port.
 * @param[in] p_cfg       Which direction is limited, and by which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_rate_limit_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                           vx_gpon_gem_rate_limit_cfg_t *p_cfg);

/**
 * @brief Reads the traffic descriptors of a GEM port.
 * @par Effect: reads
 * @param[in]  dev_id      The device.
 * @param[in]  pon_id      {id pon-port} The PON, 0.
 * @param[in]  gem_port_id {id gem-port} The GEM port.
 * @param[out] p_cfg       Which direction is limited, and by which.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_rate_limit_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                           vx_gpon_gem_rate_limit_cfg_t *p_cfg);

/**
 * @brief Reads whether an upstream priority queue is active.
 * @par Effect: reads
 * @param[in]  dev_id   The device.
 * @param[in]  pon_id   {id pon-port} The PON, 0.
 * @param[in]  us_pri_q {id us-queue} The priority queue.
 * @param[out] p_active TRUE: the queue is active.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_us_queue_status_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 us_pri_q,
                                            vx_boolean *p_active);

/* Counters */

/**
 * @brief Reads the counters of the MAC.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id pon-port} The GPON port.
 * @param[out] p_stat  The counters.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_mac_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_mac_stats_t *p_stat);

/**
 * @brief Clears the counters of the MAC.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_mac_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the counters of forward error correction.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id pon-port} The GPON port.
 * @param[out] p_stat  The counters.
 * @param[in]  clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_fec_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_fec_stats_t *p_stat,
                                      vx_boolean clear);

/**
 * @brief Clears the counters of forward error correction.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_fec_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Begins counting PLOAM messages of some types; none is counted at first.
 * @par Effect: changes
 * @param[in] dev_id        The device.
 * @param[in] port_id       {id pon-port} The GPON port.
 * @param[in] all_msg_types TRUE: all types, whatever the list says.
 * @param[in] msg_type_cnt  Types in the list.
 * @param[in] p_msg_list    [msg_type_cnt] The types; not read, and may be NULL, when all_msg_types is TRUE.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_enable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types,
                                        vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list);

/**
 * @brief Ends counting PLOAM messages of some types, and clears their counters.
 * @par Effect: changes
 * @param[in] dev_id        The device.
 * @param[in] port_id       {id pon-port} The GPON port.
 * @param[in] all_msg_types TRUE: all types, whatever the list says.
 * @param[in] msg_type_cnt  Types in the list.
 * @param[in] p_msg_list    [msg_type_cnt] The types; not read, and may be NULL, when all_msg_types is TRUE.
 * @return VX_SUCCESS or a status.
 */
vx_status_e lmq_disable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types,
                                         vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list);

/**
 * @brief Reads the counters of PLOAM messages, of the types that are counted.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id pon-port} The GPON port.
 * @param[out] p_stats The counters.
 * @param[in]  clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_ploam_stats_t *p_stats,
                                        vx_boolean clear);

/**
 * @brief Clears the counters of PLOAM messages.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_ploam_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the counters of a T-CONT.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id   The device.
 * @param[in]  port_id  {id pon-port} The GPON port.
 * @param[in]  tcont_id {id tcont} The T-CONT.
 * @param[out] p_stats  The counters.
 * @param[in]  clear    TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                        vx_gpon_tcont_stats_t *p_stats, vx_boolean clear);

/**
 * @brief Clears the counters of a T-CONT.
 * @par Effect: changes
 * @param[in] dev_id   The device.
 * @param[in] port_id  {id pon-port} The GPON port.
 * @param[in] tcont_id {id tcont} The T-CONT.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id);

/**
 * @brief Reads the counters of the GEM port of the OMCC, in both directions.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id pon-port} The GPON port.
 * @param[out] p_stats The counters.
 * @param[in]  clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_omcc_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_gem_port_stats_t *p_stats,
                                       vx_boolean clear);

/**
 * @brief Clears the counters of the GEM port of the OMCC.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The GPON port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_omcc_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id);

/**
 * @brief Reads the counters of a GEM port.
 *
 * For a GEM port of one direction those of the other are 0.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[in]  port_id {id pon-port} The GPON port.
 * @param[in]  gem_id  {id gem-port} The GEM port.
 * @param[out] p_stats The counters.
 * @param[in]  clear   TRUE to clear the counters once they are read.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id,
                                      vx_gpon_gem_port_stats_t *p_stats, vx_boolean clear);

/**
 * @brief Clears the counters of a GEM port.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id {id pon-port} The GPON port.
 * @param[in] gem_id  {id gem-port} The GEM port.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_gem_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id);

/**
 * @brief Reads the status of the T-CONT scheduler and of the T-CONT queues of a GPON port.
 * @par Effect: reads
 * @param[in]  device_id The device.
 * @param[in]  port_id   {id pon-port} The GPON port.
 * @param[out] p_status  Scheduler and queues.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_gpon_onu_tcont_queue_status_get(vx_dev_id_t device_id, vx_port_id_t port_id,
                                               lmq_tcont_queue_status_s *p_status);

#ifdef __cplusplus
}
#endif

#endif
