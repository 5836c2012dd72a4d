/**
 * @file
 * @brief Time distribution: PTP (IEEE 1588), and the outputs of 1PPS and time of day (ToD).
 */
#ifndef LMQ_TIME_H
#define LMQ_TIME_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define VX_PTP_MAX_TOD_LEN 48 /**< Bytes of vx_tod_string_t.tod_string. */

/** @brief A PTP message (IEEE 1588): the value of its messageType field. */
typedef enum vx_ptp_msg_type_t LMQ_ENUM_INT {
    VX_PTP_SYNC_MSG = 0,                   /**< Sync: the master sends its time. */
    VX_PTP_DELAY_REQ_MSG = 1,              /**< Delay_Req: a slave measures the way to the master. */
    VX_PTP_PDELAY_REQ_MSG = 2,             /**< Pdelay_Req: a port measures the way to its peer. */
    VX_PTP_PDELAY_RESP_MSG = 3,            /**< Pdelay_Resp: the answer of the peer. */
    VX_PTP_FOLLOW_UP_MSG = 8,              /**< Follow_Up: the exact time of the last Sync, with two-step clocks. */
    VX_PTP_DELAY_RESP_MSG = 9,             /**< Delay_Resp: the answer of the master to Delay_Req. */
    VX_PTP_PDELAY_RESP_FOLLOW_UP_MSG = 10, /**< Pdelay_Resp_Follow_Up: the exact time of the last Pdelay_Resp. */
    VX_PTP_ANNOUNCE_MSG = 11,              /**< Announce: a clock presents itself as a master. */
    VX_PTP_SIGNALING_MSG = 12,             /**< Signaling: clocks agree on rates and the like. */
    VX_PTP_MGMT_MSG = 13,                  /**< Management: reads and sets the data of a clock. */
} vx_ptp_msg_type_t;

/** @brief PTP messages in vx_ptp_port_cfg_t.msg_type_bitmap: bit n is the message of type n. */
typedef enum vx_ptp_msg_bmp_t LMQ_ENUM_INT {
    VX_PTP_SYNC_MSG_BMP = 1,               /**< The bit of VX_PTP_SYNC_MSG. */
    VX_PTP_DELAY_REQ_MSG_BMP = 2,          /**< The bit of VX_PTP_DELAY_REQ_MSG. */
    VX_PTP_PDELAY_REQ_MSG_BMP = 4,         /**< The bit of VX_PTP_PDELAY_REQ_MSG. */
    VX_PTP_PDELAY_RESP_MSG_BMP = 8,        /**< The bit of VX_PTP_PDELAY_RESP_MSG. */
    VX_PTP_MSG_RSVD1_BMP = 240,            /**< Types 4 to 7, which are reserved. */
    VX_PTP_FOLLOW_UP_MSG_BMP = 256,        /**< The bit of VX_PTP_FOLLOW_UP_MSG. */
    VX_PTP_DELAY_RESP_MSG_BMP = 512,       /**< The bit of VX_PTP_DELAY_RESP_MSG. */
    VX_PTP_PDELAY_RESP_FUP_MSG_BMP = 1024, /**< The bit of VX_PTP_PDELAY_RESP_FOLLOW_UP_MSG. */
    VX_PTP_ANNOUNCE_MSG_BMP = 2048,        /**< The bit of VX_PTP_ANNOUNCE_MSG. */
    VX_PTP_SIGNALING_MSG_BMP = 4096,       /**< The bit of VX_PTP_SIGNALING_MSG. */
    VX_PTP_MGMT_MSG_BMP = 8192,            /**< The bit of VX_PTP_MGMT_MSG. */
    VX_PTP_MSG_RSVD2_BMP = 49152,          /**< Types 14 and 15, which are reserved. */
} vx_ptp_msg_bmp_t;

/** @brief A local time. No function takes it: vx_1pps_tod_cfg_t.local_time_sel is a vx_ptp_ts_clk_t. */
typedef enum vx_ptp_local_time_sel_t LMQ_ENUM_INT {
    VX_PTP_LOCAL_PON_TIME = 0, /**< The time of the PON. */
    VX_PTP_LOCAL_PTP_TIME = 1, /**< The time of the PTP counter. */
} vx_ptp_local_time_sel_t;

/** @brief What the device is in a PTP network (IEEE 1588): nothing, a transparent clock or a boundary clock. */
typedef enum vx_ptp_clk_type_t LMQ_ENUM_INT {
    VX_PTP_CLK_TYPE_DISABLE = 0, /**< Nothing: PTP is off. */
    VX_PTP_CLK_TYPE_TC = 1,      /**< Transparent clock: it corrects the messages that pass. */
    VX_PTP_CLK_TYPE_BC = 2,      /**< Boundary clock: slave on one port, master on the others. */
} vx_ptp_clk_type_t;

/** @brief Speed of the ToD serial output, in baud. */
typedef enum vx_ptp_baud_rate_t LMQ_ENUM_INT {
    VX_PTP_BAUD_RATE_4800 = 0,  /**< 4800 baud. */
    VX_PTP_BAUD_RATE_9600 = 1,  /**< 9600 baud. */
    VX_PTP_BAUD_RATE_19200 = 2, /**< 19200 baud. */
    VX_PTP_BAUD_RATE_38400 = 3, /**< 38400 baud. */
} vx_ptp_baud_rate_t;

/** @brief Whether a correction is added or taken away. */
typedef enum vx_ptp_val_sign_t LMQ_ENUM_INT {
    VX_PTP_VAL_POSITIVE = 0, /**< The correction is added. */
    VX_PTP_VAL_NEGATIVE = 1, /**< The correction is taken away. */
} vx_ptp_val_sign_t;

/** @brief Clock that time stamps are taken from: the chip's own, or the one recovered from the PON. */
typedef enum vx_ptp_ts_clk_t LMQ_ENUM_INT {
    VX_PTP_TS_CLK_CORE = 0, /**< The chip's own clock. */
    VX_PTP_TS_CLK_PON = 1,  /**< The clock recovered from the PON. */
} vx_ptp_ts_clk_t;

/** @brief PTP of the device. A set takes the members that `valid` flags. */
typedef struct {
    vx_ptp_clk_type_t clk_type; /**< What the device is in the PTP network. */
    vx_ptp_ts_clk_t ts_clk_sel; /**< Clock that time stamps are taken from. */
    vx_uint32 freq_offset;      /**< {ppb} Correction of the counter's frequency. */
    union {
        struct {
            vx_uint32 clk_type : 1;
            vx_uint32 ts_clk_sel : 1;
            vx_uint32 freq_offset : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_ptp_cfg_t;

/** @brief PTP of a port. A set takes the members that `valid` flags, and the two that have no flag always. */
typedef struct {
    vx_boolean enbl_rx_ptp;            /**< TRUE: messages that are received get a time stamp. */
    vx_boolean enbl_tx_ptp;            /**< TRUE: messages that are transmitted get a time stamp. */
    vx_uint16 msg_type_bitmap;         /**< {bits of vx_ptp_msg_bmp_t} Messages that get a time stamp. */
    vx_boolean enbl_two_step_msg;      /**< TRUE: the exact time follows in a message of its own (two-step clock). */
    vx_ptp_val_sign_t ptp_adjust_sign; /**< Whether ptp_time_adjust is added or taken away. No flag in `valid`. */
    vx_uint32 ptp_time_adjust;         /**< {ns} Correction of time stamps. No flag in `valid`. */
    union {
        struct {
            vx_uint32 enbl_rx_ptp : 1;
            vx_uint32 enbl_tx_ptp : 1;
            vx_uint32 msg_type_bitmap : 1;
            vx_uint32 enbl_two_step_msg : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_ptp_port_cfg_t;

/** @brief A time of the PTP master, and when it was that. */
typedef struct {
    vx_uint32 loc_ref_time;        /**< {ns} The local counter at that time. */
    vx_uint32 master_time_nanosec; /**< {ns} Nanoseconds of the master's time. */
} vx_ptp_master_time_t;

/** @brief Outputs of time: one pulse a second (1PPS), and time of day (ToD) as text. A set takes what `valid` flags. */
typedef struct {
    vx_boolean enbl_1pps_output;    /**< TRUE: pulses can be sent. */
    vx_boolean enbl_tod;            /**< TRUE: the time of day can be sent. */
    vx_ptp_ts_clk_t local_time_sel; /**< Clock that both outputs go by. */
    vx_uint16 pps_width;            /**< {us} Width of a pulse. */
    vx_ptp_baud_rate_t baud_rate;   /**< Speed of the serial output. */
    union {
        struct {
            vx_uint32 enbl_1pps_output : 1;
            vx_uint32 enbl_tod : 1;
            vx_uint32 local_time_sel : 1;
            vx_uint32 pps_width : 1;
            vx_uint32 baud_rate : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_1pps_tod_cfg_t;

/** @brief When the 1PPS output sends. */
typedef struct {
    vx_uint32 send_time;  /**< {ns} Local counter at the (first) pulse. */
    vx_boolean send_once; /**< TRUE: one pulse alone, instead of one each second. */
} vx_1pps_send_cfg_t;

/** @brief A time of day, as the serial output sends it. */
typedef struct {
    vx_uint16 tod_len;       /**< {1..VX_PTP_MAX_TOD_LEN bytes} How much of tod_string counts. */
    vx_uint8 tod_string[48]; /**< {text} The time of day; no terminator is needed. */
} vx_tod_string_t;

/** @brief When the ToD output sends, and what. */
typedef struct {
    vx_uint32 send_time;  /**< {ns} Local counter when it (first) sends. */
    vx_boolean send_once; /**< TRUE: once alone, instead of each second. */
    vx_tod_string_t tod;  /**< What it sends. */
} vx_tod_send_cfg_t;

/** @name PTP */
/** @{ */

/**
 * @brief Sets the PTP members of the device that `valid` flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_ptp_config_set(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg);

/**
 * @brief Reads PTP of the device.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The configuration; `valid` flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_ptp_config_get(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg);

/**
 * @brief Sets the PTP members of a port that `valid` flags.
 * @par Effect: changes
 * @param[in] dev_id  The device.
 * @param[in] port_id The port.
 * @param[in] p_cfg   The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_ptp_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg);

/**
 * @brief Reads PTP of a port.
 * @par Effect: reads
 * @param[in]  dev_id  The device.
 * @param[in]  port_id The port.
 * @param[out] p_cfg   The configuration; `valid` flags all members that have a flag.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_ptp_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg);

/**
 * @brief Updates the local PTP counter with the master time.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_time The master's time, with the local time that it belongs to.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_ptp_master_time_set(vx_dev_id_t dev_id, vx_ptp_master_time_t *p_time);

/** @} */

/** @name 1PPS and ToD outputs */
/** @{ */

/**
 * @brief Sets the members of the 1PPS and ToD outputs that `valid` flags.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  The configuration.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1pps_tod_set(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg);

/**
 * @brief Reads the 1PPS and ToD outputs.
 * @par Effect: reads
 * @param[in]  dev_id The device.
 * @param[out] p_cfg  The configuration; `valid` flags all of its members.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1pps_tod_get(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg);

/**
 * @brief Sends 1PPS output, which has to be enabled.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  When, and whether again each second.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_1pps_send(vx_dev_id_t dev_id, vx_1pps_send_cfg_t *p_cfg);

/**
 * @brief Sends ToD output, which has to be enabled.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_cfg  When, and what.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_tod_send(vx_dev_id_t dev_id, vx_tod_send_cfg_t *p_cfg);

/**
 * @brief Replaces the text that the ToD output sends.
 * @par Effect: changes
 * @param[in] dev_id The device.
 * @param[in] p_tod  The text.
 * @return VX_SUCCESS or a status.
 */
vx_status_e vx_tod_string_update(vx_dev_id_t dev_id, vx_tod_string_t *p_tod);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
