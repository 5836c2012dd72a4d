/**
 * @file
 * @brief Time distribution.
 */
#ifndef LMQ_TIME_H
#define LMQ_TIME_H

#include "lmq/status.h"
#include "lmq/types.h"

#ifdef __cplusplus
extern "C" {
#endif

#define VX_PTP_MAX_TOD_LEN 48

typedef enum vx_ptp_msg_type_t LMQ_ENUM_INT {
    VX_PTP_SYNC_MSG = 0,
    VX_PTP_DELAY_REQ_MSG = 1,
    VX_PTP_PDELAY_REQ_MSG = 2,
    VX_PTP_PDELAY_RESP_MSG = 3,
    VX_PTP_FOLLOW_UP_MSG = 8,
    VX_PTP_DELAY_RESP_MSG = 9,
    VX_PTP_PDELAY_RESP_FOLLOW_UP_MSG = 10,
    VX_PTP_ANNOUNCE_MSG = 11,
    VX_PTP_SIGNALING_MSG = 12,
    VX_PTP_MGMT_MSG = 13,
} vx_ptp_msg_type_t;

typedef enum vx_ptp_msg_bmp_t LMQ_ENUM_INT {
    VX_PTP_SYNC_MSG_BMP = 1,
    VX_PTP_DELAY_REQ_MSG_BMP = 2,
    VX_PTP_PDELAY_REQ_MSG_BMP = 4,
    VX_PTP_PDELAY_RESP_MSG_BMP = 8,
    VX_PTP_MSG_RSVD1_BMP = 240,
    VX_PTP_FOLLOW_UP_MSG_BMP = 256,
    VX_PTP_DELAY_RESP_MSG_BMP = 512,
    VX_PTP_PDELAY_RESP_FUP_MSG_BMP = 1024,
    VX_PTP_ANNOUNCE_MSG_BMP = 2048,
    VX_PTP_SIGNALING_MSG_BMP = 4096,
    VX_PTP_MGMT_MSG_BMP = 8192,
    VX_PTP_MSG_RSVD2_BMP = 49152,
} vx_ptp_msg_bmp_t;

typedef enum vx_ptp_local_time_sel_t LMQ_ENUM_INT {
    VX_PTP_LOCAL_PON_TIME = 0,
    VX_PTP_LOCAL_PTP_TIME = 1,
} vx_ptp_local_time_sel_t;

typedef enum vx_ptp_clk_type_t LMQ_ENUM_INT {
    VX_PTP_CLK_TYPE_DISABLE = 0,
    VX_PTP_CLK_TYPE_TC = 1,
    VX_PTP_CLK_TYPE_BC = 2,
} vx_ptp_clk_type_t;

typedef enum vx_ptp_baud_rate_t LMQ_ENUM_INT {
    VX_PTP_BAUD_RATE_4800 = 0,
    VX_PTP_BAUD_RATE_9600 = 1,
    VX_PTP_BAUD_RATE_19200 = 2,
    VX_PTP_BAUD_RATE_38400 = 3,
} vx_ptp_baud_rate_t;

typedef enum vx_ptp_val_sign_t LMQ_ENUM_INT {
    VX_PTP_VAL_POSITIVE = 0,
    VX_PTP_VAL_NEGATIVE = 1,
} vx_ptp_val_sign_t;

typedef enum vx_ptp_ts_clk_t LMQ_ENUM_INT {
    VX_PTP_TS_CLK_CORE = 0,
    VX_PTP_TS_CLK_PON = 1,
} vx_ptp_ts_clk_t;

typedef struct {
    vx_ptp_clk_type_t clk_type;
    vx_ptp_ts_clk_t ts_clk_sel;
    vx_uint32 freq_offset;
    union {
        struct {
            vx_uint32 clk_type : 1;
            vx_uint32 ts_clk_sel : 1;
            vx_uint32 freq_offset : 1;
        } mask_s;
        vx_uint32 mask;
    } valid;
} vx_ptp_cfg_t;

typedef struct {
    vx_boolean enbl_rx_ptp;
    vx_boolean enbl_tx_ptp;
    vx_uint16 msg_type_bitmap;
    vx_boolean enbl_two_step_msg;
    vx_ptp_val_sign_t ptp_adjust_sign;
    vx_uint32 ptp_time_adjust;
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

typedef struct {
    vx_uint32 loc_ref_time;
    vx_uint32 master_time_nanosec;
} vx_ptp_master_time_t;

typedef struct {
    vx_boolean enbl_1pps_output;
    vx_boolean enbl_tod;
    vx_ptp_ts_clk_t local_time_sel;
    vx_uint16 pps_width;
    vx_ptp_baud_rate_t baud_rate;
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

typedef struct {
    vx_uint32 send_time;
    vx_boolean send_once;
} vx_1pps_send_cfg_t;

typedef struct {
    vx_uint16 tod_len;
    vx_uint8 tod_string[48];
} vx_tod_string_t;

typedef struct {
    vx_uint32 send_time;
    vx_boolean send_once;
    vx_tod_string_t tod;
} vx_tod_send_cfg_t;

vx_status_e vx_tod_send(vx_dev_id_t dev_id, vx_tod_send_cfg_t *p_cfg);

vx_status_e vx_ptp_config_set(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg);

vx_status_e vx_tod_string_update(vx_dev_id_t dev_id, vx_tod_string_t *p_tod);

vx_status_e vx_1pps_send(vx_dev_id_t dev_id, vx_1pps_send_cfg_t *p_cfg);

vx_status_e vx_ptp_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg);

vx_status_e vx_ptp_config_get(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg);

vx_status_e vx_ptp_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg);

vx_status_e vx_1pps_tod_set(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg);

vx_status_e vx_ptp_master_time_set(vx_dev_id_t dev_id, vx_ptp_master_time_t *p_time);

vx_status_e vx_1pps_tod_get(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg);

#ifdef __cplusplus
}
#endif

#endif
