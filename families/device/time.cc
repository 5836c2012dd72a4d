// Time distribution: UDTs, inner ones first, then the methods.
#include "families/udts.h"
#include "frame/method.h"
#include "lmq/time.h"

namespace lmq {

UDT(vx_ptp_cfg_t,
    SCALAR(vx_ptp_clk_type_t, clk_type),
    SCALAR(vx_ptp_ts_clk_t,   ts_clk_sel),
    SCALAR(vx_uint32,         freq_offset),
    MASK(valid, vx_uint32, clk_type, ts_clk_sel, freq_offset))

UDT(vx_ptp_port_cfg_t,
    SCALAR(vx_boolean,        enbl_rx_ptp),
    SCALAR(vx_boolean,        enbl_tx_ptp),
    SCALAR(vx_uint16,         msg_type_bitmap),
    SCALAR(vx_boolean,        enbl_two_step_msg),
    SCALAR(vx_ptp_val_sign_t, ptp_adjust_sign),
    SCALAR(vx_uint32,         ptp_time_adjust),
    MASK(valid, vx_uint32, enbl_rx_ptp, enbl_tx_ptp, msg_type_bitmap, enbl_two_step_msg))

UDT(vx_ptp_master_time_t,
    SCALAR(vx_uint32, loc_ref_time),
    SCALAR(vx_uint32, master_time_nanosec))

UDT(vx_1pps_tod_cfg_t,
    SCALAR(vx_boolean,         enbl_1pps_output),
    SCALAR(vx_boolean,         enbl_tod),
    SCALAR(vx_ptp_ts_clk_t,    local_time_sel),
    SCALAR(vx_uint16,          pps_width),
    SCALAR(vx_ptp_baud_rate_t, baud_rate),
    MASK(valid, vx_uint32, enbl_1pps_output, enbl_tod, local_time_sel, pps_width, baud_rate))

UDT(vx_1pps_send_cfg_t,
    SCALAR(vx_uint32,  send_time),
    SCALAR(vx_boolean, send_once))

UDT(vx_tod_string_t,
    SCALAR(  vx_uint16, tod_len),
    ELEMENTS(vx_uint8,  tod_string, 48))

UDT(vx_tod_send_cfg_t,
    SCALAR(vx_uint32,       send_time),
    SCALAR(vx_boolean,      send_once),
    NESTED(vx_tod_string_t, tod))

METHOD(vx_tod_send, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_tod_send_cfg_t, p_cfg))
METHOD(vx_ptp_config_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ptp_cfg_t, p_cfg))
METHOD(vx_tod_string_update, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_tod_string_t, p_tod))
METHOD(vx_1pps_send, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1pps_send_cfg_t, p_cfg))
METHOD(vx_ptp_port_config_set, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_ptp_port_cfg_t, p_cfg))
METHOD(vx_ptp_config_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ptp_cfg_t, p_cfg))
METHOD(vx_ptp_port_config_get, no_help,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_ptp_port_cfg_t, p_cfg))
METHOD(vx_1pps_tod_set, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1pps_tod_cfg_t, p_cfg))
METHOD(vx_ptp_master_time_set, no_help,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ptp_master_time_t, p_time))
METHOD(vx_1pps_tod_get, no_help, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1pps_tod_cfg_t, p_cfg))

} // namespace lmq
