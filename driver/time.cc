/**
 * @file
 * @brief Time distribution: PTP, and the 1PPS and time of day outputs.
 *
 * Choices, a line each:
 * - ptp_adjust_sign and ptp_time_adjust have no flag: every set takes them.
 * - Everything is off and 0 at first. Any port of the device can have PTP.
 * - Nobody hears the outputs: a pulse, a time of day and a new master time show as messages of module `tsync` at
 *   VX_LOG_LVL_INFO, and in nothing that can be read.
 * - An output sends only while it is enabled: VX_ERR_GLBL_INVALID_OP.
 * - A time of day has 1 to VX_PTP_MAX_TOD_LEN bytes.
 */
#include "driver/time.h"

#include "driver/chip.h"

namespace lmq::sim {

namespace {

void check(const vx_tod_string_t &tod) { check_range(tod.tod_len, 1, VX_PTP_MAX_TOD_LEN); }

void report(const Device &device, const char *what, vx_uint32 time) {
    device.system.log(VX_MOD_DRVR_TSYNC, VX_LOG_LVL_INFO, "device %u: %s, %u ns", unsigned{device.id}, what, time);
}

vx_ptp_port_cfg_t initial_port() {
    vx_ptp_port_cfg_t port{};
    port.valid.mask_s = {.enbl_rx_ptp = 1, .enbl_tx_ptp = 1, .msg_type_bitmap = 1, .enbl_two_step_msg = 1};
    return port;
}

}  // namespace

TimeDistribution::TimeDistribution() : ptp_port(initial_port()) {
    ptp.valid.mask_s = {.clk_type = 1, .ts_clk_sel = 1, .freq_offset = 1};
    outputs.valid.mask_s = {.enbl_1pps_output = 1, .enbl_tod = 1, .local_time_sel = 1, .pps_width = 1, .baud_rate = 1};
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_ptp_config_set(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.clk_type) check_range(p_cfg->clk_type, VX_PTP_CLK_TYPE_DISABLE, VX_PTP_CLK_TYPE_BC);
        if (flags.ts_clk_sel) check_range(p_cfg->ts_clk_sel, VX_PTP_TS_CLK_CORE, VX_PTP_TS_CLK_PON);
        vx_ptp_cfg_t &kept = device.time.ptp;
        merge(flags.clk_type, kept.clk_type, p_cfg->clk_type);
        merge(flags.ts_clk_sel, kept.ts_clk_sel, p_cfg->ts_clk_sel);
        merge(flags.freq_offset, kept.freq_offset, p_cfg->freq_offset);
    });
}

vx_status_e vx_ptp_config_get(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.time.ptp; });
}

vx_status_e vx_ptp_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        check_port(port_id);
        check_range(p_cfg->ptp_adjust_sign, VX_PTP_VAL_POSITIVE, VX_PTP_VAL_NEGATIVE);
        const auto &flags = p_cfg->valid.mask_s;
        vx_ptp_port_cfg_t kept = device.time.ptp_port.get(port_id);
        merge(flags.enbl_rx_ptp, kept.enbl_rx_ptp, as_boolean(p_cfg->enbl_rx_ptp));
        merge(flags.enbl_tx_ptp, kept.enbl_tx_ptp, as_boolean(p_cfg->enbl_tx_ptp));
        merge(flags.msg_type_bitmap, kept.msg_type_bitmap, p_cfg->msg_type_bitmap);
        merge(flags.enbl_two_step_msg, kept.enbl_two_step_msg, as_boolean(p_cfg->enbl_two_step_msg));
        kept.ptp_adjust_sign = p_cfg->ptp_adjust_sign;
        kept.ptp_time_adjust = p_cfg->ptp_time_adjust;
        device.time.ptp_port.set(port_id, kept);
    });
}

vx_status_e vx_ptp_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        check_port(port_id);
        *p_cfg = device.time.ptp_port.get(port_id);
    });
}

vx_status_e vx_ptp_master_time_set(vx_dev_id_t dev_id, vx_ptp_master_time_t *p_time) {
    return on_device(__func__, dev_id, {p_time},
                     [&](Device &device) { report(device, "master time", p_time->master_time_nanosec); });
}

vx_status_e vx_1pps_tod_set(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.local_time_sel) check_range(p_cfg->local_time_sel, VX_PTP_TS_CLK_CORE, VX_PTP_TS_CLK_PON);
        if (flags.baud_rate) check_range(p_cfg->baud_rate, VX_PTP_BAUD_RATE_4800, VX_PTP_BAUD_RATE_38400);
        vx_1pps_tod_cfg_t &kept = device.time.outputs;
        merge(flags.enbl_1pps_output, kept.enbl_1pps_output, as_boolean(p_cfg->enbl_1pps_output));
        merge(flags.enbl_tod, kept.enbl_tod, as_boolean(p_cfg->enbl_tod));
        merge(flags.local_time_sel, kept.local_time_sel, p_cfg->local_time_sel);
        merge(flags.pps_width, kept.pps_width, p_cfg->pps_width);
        merge(flags.baud_rate, kept.baud_rate, p_cfg->baud_rate);
    });
}

vx_status_e vx_1pps_tod_get(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.time.outputs; });
}

vx_status_e vx_1pps_send(vx_dev_id_t dev_id, vx_1pps_send_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        refuse_if(!device.time.outputs.enbl_1pps_output, VX_ERR_GLBL_INVALID_OP);
        report(device, p_cfg->send_once ? "one pulse" : "a pulse each second", p_cfg->send_time);
    });
}

vx_status_e vx_tod_send(vx_dev_id_t dev_id, vx_tod_send_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        check(p_cfg->tod);
        refuse_if(!device.time.outputs.enbl_tod, VX_ERR_GLBL_INVALID_OP);
        report(device, p_cfg->send_once ? "one time of day" : "a time of day each second", p_cfg->send_time);
    });
}

vx_status_e vx_tod_string_update(vx_dev_id_t dev_id, vx_tod_string_t *p_tod) {
    return on_device(__func__, dev_id, {p_tod}, [&](Device &device) {
        check(*p_tod);
        refuse_if(!device.time.outputs.enbl_tod, VX_ERR_GLBL_INVALID_OP);
        device.system.log(VX_MOD_DRVR_TSYNC, VX_LOG_LVL_INFO, "device %u: new time of day, %u bytes",
                          unsigned{device.id}, unsigned{p_tod->tod_len});
    });
}

}  // extern "C"
