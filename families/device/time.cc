// Time distribution (PTP, 1PPS and time of day): UDTs, inner ones first, then the methods with their help texts.
#include "families/udts.h"
#include "frame/describe.h"
#include "lmq/time.h"

namespace lmq {

UDT(vx_ptp_cfg_t,
    SCALAR(vx_ptp_clk_type_t, clk_type),
    SCALAR(vx_ptp_ts_clk_t,   ts_clk_sel),
    SCALAR(vx_uint32,         freq_offset),
    MASK(valid, vx_uint32, clk_type, ts_clk_sel, freq_offset))

// ptp_adjust_sign and ptp_time_adjust have no flag: the mask covers four of the six members.
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

// The string travels as an array of bytes, not as a string.
UDT(vx_tod_string_t,
    SCALAR(  vx_uint16, tod_len),
    ELEMENTS(vx_uint8,  tod_string, 48))

UDT(vx_tod_send_cfg_t,
    SCALAR(vx_uint32,       send_time),
    SCALAR(vx_boolean,      send_once),
    NESTED(vx_tod_string_t, tod))

constexpr Help help_vx_ptp_config_set{
    .title = "Set device level PTP configuration",
    .text = "This API sets the device level PTP configuration. Only the members that are\n"
            "flagged in the valid mask are set.\n",
    .inputs = "p_cfg  : pointer to the PTP configuration\n",
};
METHOD(vx_ptp_config_set, help_vx_ptp_config_set, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ptp_cfg_t, p_cfg))

constexpr Help help_vx_ptp_config_get{
    .title = "Get device level PTP configuration",
    .text = "This API gets the device level PTP configuration.\n",
    .inputs = "p_cfg  : pointer to the PTP configuration\n",
    .outputs = "p_cfg : PTP configuration\n",
};
METHOD(vx_ptp_config_get, help_vx_ptp_config_get, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ptp_cfg_t, p_cfg))

constexpr Help help_vx_ptp_port_config_set{
    .title = "Set port level PTP configuration",
    .text = "This API sets the port level PTP configuration. Only the members that are\n"
            "flagged in the valid mask are set.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : pointer to the PTP configuration of the port\n",
};
METHOD(vx_ptp_port_config_set, help_vx_ptp_port_config_set,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_ptp_port_cfg_t, p_cfg))

constexpr Help help_vx_ptp_port_config_get{
    .title = "Get port level PTP configuration",
    .text = "This API gets the port level PTP configuration.\n",
    .inputs = "port_id : port id\n"
              "p_cfg   : pointer to the PTP configuration of the port\n",
    .outputs = "p_cfg : PTP configuration of the port\n",
};
METHOD(vx_ptp_port_config_get, help_vx_ptp_port_config_get,
       VALUE(vx_dev_id_t, dev_id), VALUE(vx_port_id_t, port_id), UDT_PTR(vx_ptp_port_cfg_t, p_cfg))

constexpr Help help_vx_ptp_master_time_set{
    .title = "Set PTP master time",
    .text = "This API updates the local PTP counter with the master time.\n",
    .inputs = "p_time : pointer to the master time\n",
};
METHOD(vx_ptp_master_time_set, help_vx_ptp_master_time_set,
       VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_ptp_master_time_t, p_time))

// The title is that of vx_ptp_config_set.
constexpr Help help_vx_1pps_tod_set{
    .title = "Set device level PTP configuration",
    .text = "This API sets the device level configuration of the 1PPS and ToD outputs. Only\n"
            "the members that are flagged in the valid mask are set.\n",
    .inputs = "p_cfg  : pointer to the 1PPS and ToD configuration\n",
};
METHOD(vx_1pps_tod_set, help_vx_1pps_tod_set, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1pps_tod_cfg_t, p_cfg))

constexpr Help help_vx_1pps_tod_get{
    .title = "Get device level 1PPS configuration",
    .text = "This API gets the device level configuration of the 1PPS and ToD outputs.\n",
    .inputs = "p_cfg  : pointer to the 1PPS and ToD configuration\n",
    .outputs = "p_cfg : 1PPS and ToD configuration\n",
};
METHOD(vx_1pps_tod_get, help_vx_1pps_tod_get, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1pps_tod_cfg_t, p_cfg))

constexpr Help help_vx_1pps_send{
    .title = "Send 1PPS",
    .text = "This API sends 1PPS output.\n",
    .inputs = "p_cfg  : pointer to the 1PPS send configuration\n",
};
METHOD(vx_1pps_send, help_vx_1pps_send, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_1pps_send_cfg_t, p_cfg))

constexpr Help help_vx_tod_send{
    .title = "Send ToD",
    .text = "This API sends ToD output.\n",
    .inputs = "p_cfg  : pointer to the ToD send configuration\n",
};
METHOD(vx_tod_send, help_vx_tod_send, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_tod_send_cfg_t, p_cfg))

// Title and text are those of vx_tod_send, though nothing but the string changes.
constexpr Help help_vx_tod_string_update{
    .title = "Send ToD",
    .text = "This API sends ToD output.\n",
    .inputs = "p_tod  : pointer to a structure with the ToD string and its length\n",
};
METHOD(vx_tod_string_update, help_vx_tod_string_update, VALUE(vx_dev_id_t, dev_id), UDT_PTR(vx_tod_string_t, p_tod))

} // namespace lmq
