// Time distribution: PTP, and the 1PPS and time of day outputs.
//
// Choices, a line each:
// - ptp_adjust_sign and ptp_time_adjust have no flag: every set takes them.
// - Everything is off and 0 at first. Any port of the device can have PTP.
// - The local counter is the simulator's clock in nanoseconds, of which 32 bits are told. The PTP counter begins as
//   it, and runs on from what vx_ptp_master_time_set makes of it, faster by freq_offset parts in a billion, or slower
//   when that is negative as a 32-bit number.
// - vx_ptp_master_time_set raises VX_EVENT_PTP_SET_TS, and VX_EVENT_PTP_GET_TS with the time that it has led to. A
//   later PTP time can be had by lmq_dbg_generate_event for VX_EVENT_PTP_GET_TS: its status holds the time until it
//   is cleared.
// - While clk_type is not DISABLE, the counter's going beyond 32 bits raises VX_EVENT_PTP_TIMER_ROLLOVER.
// - A PTP message over Ethernet (IEEE 1588, annex F) that the CPU sends raises VX_EVENT_PTP_EGR_TIME_LATCHED if the
//   port has enbl_tx_ptp and a time stamp for its type, with the port's correction.
// - A pulse raises VX_EVENT_PTP_1PPS_OUTPUT_DONE, one for all pulses between two calls. The output sends only while
//   it is enabled (VX_ERR_GLBL_INVALID_OP), and a new vx_1pps_send takes the place of the last.
// - Nobody is at the other end of the time of day output, so it does not send: VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW.
#include "driver/time.h"

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using namespace std::chrono_literals;

constexpr std::int64_t ns_per_ms = 1000000;
constexpr std::size_t type_at = 12;          // of an Ethernet header
constexpr vx_uint16 ptp_ethertype = 0x88F7;  // IEEE 1588, annex F

vx_uint32 local_counter(const Device &device) {
    return static_cast<vx_uint32>(device.system.clock.now().count() * ns_per_ms);
}

std::int64_t ptp_counter(const Device &device) {
    const TimeDistribution &time = device.time;
    const std::int64_t ms = (device.system.clock.now() - time.counter.since).count();
    const auto parts_per_billion = static_cast<vx_int32>(time.ptp.freq_offset);
    return time.counter.nanoseconds + ms * ns_per_ms + ms / 1000 * parts_per_billion +
           ms % 1000 * parts_per_billion / 1000;
}

/* The PTP counter goes on from a number of 32 bits. */
void set_counter(Device &device, std::int64_t nanoseconds) {
    device.time.counter = {device.system.clock.now(), nanoseconds & UINT32_MAX, 0};
}

/* The port's correction of a time stamp. */
vx_uint32 corrected(vx_uint32 time, const vx_ptp_port_cfg_t &port) {
    return port.ptp_adjust_sign == VX_PTP_VAL_NEGATIVE ? time - port.ptp_time_adjust : time + port.ptp_time_adjust;
}

vx_ptp_port_cfg_t initial_port() {
    vx_ptp_port_cfg_t port{};
    port.valid.mask_s = {.enbl_rx_ptp = 1, .enbl_tx_ptp = 1, .msg_type_bitmap = 1, .enbl_two_step_msg = 1};
    clear_beside_flags(port.valid, 4);
    return port;
}

}  // namespace

TimeDistribution::TimeDistribution() : ptp_port(initial_port()) {
    ptp.valid.mask_s = {.clk_type = 1, .ts_clk_sel = 1, .freq_offset = 1};
    clear_beside_flags(ptp.valid, 3);
    outputs.valid.mask_s = {.enbl_1pps_output = 1, .enbl_tod = 1, .local_time_sel = 1, .pps_width = 1, .baud_rate = 1};
    clear_beside_flags(outputs.valid, 5);
}

lmq_ptp_get_ts_event_data_s time_stamp(const Device &device) {
    return {.ptp_nano_second = static_cast<vx_uint32>(ptp_counter(device)),
            .local_ref_time = local_counter(device),
            .local_ref_lsb = 0,
            .ptp_freq_offset = device.time.ptp.freq_offset};
}

void pass_time(Device &device, TimeDistribution &time) {
    const Clock::Time now = device.system.clock.now();
    if (!time.outputs.enbl_1pps_output) time.pulses.reset();
    if (time.pulses && time.pulses->next <= now) {
        raise_event(device, {VX_EVENT_PTP_1PPS_OUTPUT_DONE, 0, 0}, {});
        if (time.pulses->once) {
            time.pulses.reset();
        } else {
            time.pulses->next += ((now - time.pulses->next) / 1s + 1) * 1s;
        }
    }

    const std::int64_t rollovers = ptp_counter(device) >> 32;
    if (rollovers > time.counter.rollovers && time.ptp.clk_type != VX_PTP_CLK_TYPE_DISABLE) {
        raise_event(device, {VX_EVENT_PTP_TIMER_ROLLOVER, 0, 0}, {});
    }
    time.counter.rollovers = rollovers;
}

void latch_egress_time(Device &device, vx_port_id_t port_id, const vx_uint8 *packet, vx_uint32 length) {
    const vx_ptp_port_cfg_t &port = device.time.ptp_port.get(port_id);
    if (!port.enbl_tx_ptp || length <= type_at + 2) return;
    if ((packet[type_at] << 8 | packet[type_at + 1]) != ptp_ethertype) return;
    const unsigned message_type = packet[type_at + 2] & 0xFU;
    if ((port.msg_type_bitmap >> message_type & 1U) == 0) return;
    lmq_event_data_u data{};
    data.ptp_latch_data = {port_id, corrected(static_cast<vx_uint32>(ptp_counter(device)), port)};
    raise_event(device, {VX_EVENT_PTP_EGR_TIME_LATCHED, 0, 0}, data);
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_ptp_config_set(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.clk_type && !is_in_range(p_cfg->clk_type, VX_PTP_CLK_TYPE_DISABLE, VX_PTP_CLK_TYPE_BC))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.ts_clk_sel && !is_in_range(p_cfg->ts_clk_sel, VX_PTP_TS_CLK_CORE, VX_PTP_TS_CLK_PON))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        // What was counted until now was counted at the frequency until now.
        const std::int64_t counted = ptp_counter(device);
        vx_ptp_cfg_t &kept = device.time.ptp;
        merge(flags.clk_type, kept.clk_type, p_cfg->clk_type);
        merge(flags.ts_clk_sel, kept.ts_clk_sel, p_cfg->ts_clk_sel);
        merge(flags.freq_offset, kept.freq_offset, p_cfg->freq_offset);
        set_counter(device, counted);
        return VX_SUCCESS;
    });
}

vx_status_e vx_ptp_config_get(vx_dev_id_t dev_id, vx_ptp_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.time.ptp; });
}

vx_status_e vx_ptp_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(p_cfg->ptp_adjust_sign, VX_PTP_VAL_POSITIVE, VX_PTP_VAL_NEGATIVE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const auto &flags = p_cfg->valid.mask_s;
        vx_ptp_port_cfg_t kept = device.time.ptp_port.get(port_id);
        merge(flags.enbl_rx_ptp, kept.enbl_rx_ptp, as_boolean(p_cfg->enbl_rx_ptp));
        merge(flags.enbl_tx_ptp, kept.enbl_tx_ptp, as_boolean(p_cfg->enbl_tx_ptp));
        merge(flags.msg_type_bitmap, kept.msg_type_bitmap, p_cfg->msg_type_bitmap);
        merge(flags.enbl_two_step_msg, kept.enbl_two_step_msg, as_boolean(p_cfg->enbl_two_step_msg));
        kept.ptp_adjust_sign = p_cfg->ptp_adjust_sign;
        kept.ptp_time_adjust = p_cfg->ptp_time_adjust;
        device.time.ptp_port.set(port_id, kept);
        return VX_SUCCESS;
    });
}

vx_status_e vx_ptp_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_ptp_port_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *p_cfg = device.time.ptp_port.get(port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_ptp_master_time_set(vx_dev_id_t dev_id, vx_ptp_master_time_t *p_time) {
    return on_device(__func__, dev_id, {p_time}, [&](Device &device) {
        const vx_uint32 since_then = local_counter(device) - p_time->loc_ref_time;
        set_counter(device, std::int64_t{p_time->master_time_nanosec} + since_then);
        raise_event(device, {VX_EVENT_PTP_SET_TS, 0, 0}, {});
        lmq_event_data_u data{};
        data.get_ts_data = time_stamp(device);
        raise_event(device, {VX_EVENT_PTP_GET_TS, 0, 0}, data);
    });
}

vx_status_e vx_1pps_tod_set(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.local_time_sel && !is_in_range(p_cfg->local_time_sel, VX_PTP_TS_CLK_CORE, VX_PTP_TS_CLK_PON))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.baud_rate && !is_in_range(p_cfg->baud_rate, VX_PTP_BAUD_RATE_4800, VX_PTP_BAUD_RATE_38400))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        vx_1pps_tod_cfg_t &kept = device.time.outputs;
        merge(flags.enbl_1pps_output, kept.enbl_1pps_output, as_boolean(p_cfg->enbl_1pps_output));
        merge(flags.enbl_tod, kept.enbl_tod, as_boolean(p_cfg->enbl_tod));
        merge(flags.local_time_sel, kept.local_time_sel, p_cfg->local_time_sel);
        merge(flags.pps_width, kept.pps_width, p_cfg->pps_width);
        merge(flags.baud_rate, kept.baud_rate, p_cfg->baud_rate);
        return VX_SUCCESS;
    });
}

vx_status_e vx_1pps_tod_get(vx_dev_id_t dev_id, vx_1pps_tod_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.time.outputs; });
}

vx_status_e vx_1pps_send(vx_dev_id_t dev_id, vx_1pps_send_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (!device.time.outputs.enbl_1pps_output) return VX_ERR_GLBL_INVALID_OP;
        // The pulse comes with the first call at or behind its time.
        const vx_uint32 from_now = p_cfg->send_time - local_counter(device);
        const Clock::Time wait{(from_now + ns_per_ms - 1) / ns_per_ms};
        device.time.pulses = {.next = device.system.clock.now() + wait, .once = p_cfg->send_once != FALSE};
        return VX_SUCCESS;
    });
}

vx_status_e vx_tod_send(vx_dev_id_t dev_id, vx_tod_send_cfg_t *p_cfg) { return not_supported(__func__, dev_id, p_cfg); }

vx_status_e vx_tod_string_update(vx_dev_id_t dev_id, vx_tod_string_t *p_tod) {
    return not_supported(__func__, dev_id, p_tod);
}

}  // extern "C"
