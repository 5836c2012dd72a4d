/**
 * @file
 * @brief Connectivity fault management (IEEE 802.1ag): loopback, continuity check and delay measurement in hardware.
 */
#ifndef LMQ_CFM_H
#define LMQ_CFM_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define VX_CFM_CCM_PKT_BUFF_SIZE 2048 /**< Bytes of vx_1ag_ccm_pkt_buf_cfg_t.p_pkt_buff. */

/** @name OpCodes of delay measurement in a packet (ITU-T Y.1731): 1DM 45, DMR 46, DMM 47 */
/** @{ */
#define VX_CFM_OPCODE_MIN 45
#define VX_CFM_OPCODE_MAX 47
/** @} */

#define VX_CFM_MD_LEVEL_MAX 7 /**< Greatest maintenance domain level. */

/** @brief Delay measurement messages: bits, not the OpCodes of the packets. */
typedef enum vx_cfm_opcode_t LMQ_ENUM_INT {
    VX_CFM_1DM = 1, /**< One-way measurement. */
    VX_CFM_DMR = 2, /**< Reply of a two-way measurement. */
    VX_CFM_DMM = 4, /**< Request of a two-way measurement. */
} vx_cfm_opcode_t;

/** @brief Whether the hardware transmits continuity check messages (CCM). */
typedef enum vx_cfm_ccm_tx_mode_t LMQ_ENUM_INT {
    VX_CFM_CCM_TX_DISABLE = 0,  /**< It transmits none. */
    VX_CFM_CCM_ONE_TIME_TX = 1, /**< It transmits one when this is set. */
    VX_CFM_CCM_REPEAT_TX = 2,   /**< It transmits one after each repeat_timer. */
} vx_cfm_ccm_tx_mode_t;

/** @brief Loopback messages (LBM), and the replies to them (LBR). A set takes the members that `valid` flags. */
typedef struct {
    vx_boolean enbl_lbm_proc;   /**< TRUE: the hardware answers loopback messages. */
    vx_boolean accept_mcast_da; /**< TRUE: it also answers those to a multicast address. */
    vx_uint8 md_level;          /**< {0..VX_CFM_MD_LEVEL_MAX} Maintenance domain level of the messages. */
    vx_uint16 lbr_tx_port;      /**< {id port} Port that sends the replies. */
    vx_uint16 lbr_tx_gem_port;  /**< {id gem-port} GEM port that sends them, when the port is the PON. */
    vx_uint8 lbr_cos;           /**< {0..7} Class of service of the replies. */
    union {
        struct {
            vx_uint32 enbl_lbm_proc : 1;
            vx_uint32 accept_mcast_da : 1;
            vx_uint32 md_level : 1;
            vx_uint32 lbr_tx_port : 1;
            vx_uint32 lbr_tx_gem_port : 1;
            vx_uint32 lbr_cos : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1ag_lbm_cfg_t;

/** @brief Generation of continuity check messages. A set takes the members that `valid` flags. */
typedef struct {
    vx_cfm_ccm_tx_mode_t ccm_tx_mode; /**< Whether messages are transmitted, and how often. */
    vx_uint32 repeat_timer;           /**< {ms} From one message to the next; not 0 in VX_CFM_CCM_REPEAT_TX. */
    vx_boolean enbl_seq_num;          /**< TRUE: a sequence number is written, which grows by 1 with each message. */
    vx_uint16 seq_num_offset; /**< {0..(VX_CFM_CCM_PKT_BUFF_SIZE - 4) bytes} Where in the packet its four bytes are
                                 written. */
    vx_uint32 seq_num_val;    /**< The next sequence number. */
    union {
        struct {
            vx_uint32 ccm_tx_mode : 1;
            vx_uint32 repeat_timer : 1;
            vx_uint32 enbl_seq_num : 1;
            vx_uint32 seq_num_offset : 1;
            vx_uint32 seq_num_val : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1ag_ccm_cfg_t;

/** @brief The packet that the hardware transmits as a continuity check message. A set takes what `valid` flags. */
typedef struct {
    vx_uint16 port_num;    /**< {id port} Port that sends it. */
    vx_uint16 gem_port_id; /**< {id gem-port} GEM port that sends it, when the port is the PON. No flag in `valid`. */
    vx_boolean enbl_byte_swap; /**< TRUE: the hardware swaps the bytes of each word when it transmits. */
    vx_uint16 pkt_len; /**< {0..VX_CFM_CCM_PKT_BUFF_SIZE bytes} How much of p_pkt_buff counts; 0: no message is sent. */
    vx_uint8 p_pkt_buff[2048]; /**< The packet itself, in spite of the name. */
    union {
        struct {
            vx_uint32 port_num : 1;
            vx_uint32 enbl_byte_swap : 1;
            vx_uint32 pkt_len : 1;
            vx_uint32 p_pkt_buff : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1ag_ccm_pkt_buf_cfg_t;

/** @brief Delay measurement (ITU-T Y.1731) by the hardware. */
typedef struct {
    vx_boolean enbl_rx;         /**< TRUE: the hardware processes messages that are received. */
    vx_boolean enbl_tx;         /**< TRUE: the hardware transmits messages. */
    vx_cfm_opcode_t rx_op_code; /**< {bits of vx_cfm_opcode_t} Messages to process when they are received; one at least
                                   with enbl_rx. */
} vx_1ag_dm_cfg_t;

/** @brief Packet counters. */
typedef struct {
    vx_uint32 tx_lbr_pkts; /**< {counter} Loopback replies transmitted. */
    vx_uint32 rx_dm_pkts;  /**< {counter} Delay measurement messages received. */
    vx_uint32 tx_dm_pkts;  /**< {counter} Delay measurement messages transmitted. */
} vx_1ag_stats_t;

/** @name Loopback messages */
/** @{ */

/**
 * @brief Sets the members of loopback message processing that `valid` flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_lbm_config_set(vx_dev_id_t dev_id, vx_1ag_lbm_cfg_t *p_cfg);

/**
 * @brief Reads loopback message processing.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The configuration; `valid` flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_lbm_config_get(vx_dev_id_t dev_id, vx_1ag_lbm_cfg_t *p_cfg);

/** @} */

/** @name Continuity check messages */
/** @{ */

/**
 * @brief Sets the members of CCM generation that `valid` flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_ccm_config_set(vx_dev_id_t dev_id, vx_1ag_ccm_cfg_t *p_cfg);

/**
 * @brief Reads CCM generation.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The configuration, with the next sequence number; `valid` flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_ccm_config_get(vx_dev_id_t dev_id, vx_1ag_ccm_cfg_t *p_cfg);

/**
 * @brief Sets the members of the CCM packet buffer that `valid` flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The packet.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_ccm_pkt_buf_set(vx_dev_id_t dev_id, vx_1ag_ccm_pkt_buf_cfg_t *p_cfg);

/**
 * @brief Reads the CCM packet buffer.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The packet; `valid` flags all members that have a flag.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_ccm_pkt_buf_get(vx_dev_id_t dev_id, vx_1ag_ccm_pkt_buf_cfg_t *p_cfg);

/** @} */

/** @name Delay measurement */
/** @{ */

/**
 * @brief Switches hardware processing of delay measurement messages on a port.
 *
 * With reception enabled and no callback registered, messages that are trapped to the CPU are discarded.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_dm_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_1ag_dm_cfg_t *p_cfg);

/**
 * @brief Reads delay measurement of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_dm_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_1ag_dm_cfg_t *p_cfg);

/** @} */

/** @name Counters */
/** @{ */

/**
 * @brief Reads the packet counters of the device.
 * @par Effect: reads and clears if clear
 * @param[in]  dev_id  The device.
 * @param[out] p_stats The counters.
 * @param[in]  clear   TRUE to begin again at 0.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1ag_stats_get(vx_dev_id_t dev_id, vx_1ag_stats_t *p_stats, vx_boolean clear);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
