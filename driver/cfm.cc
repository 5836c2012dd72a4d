// Connectivity fault management (IEEE 802.1ag).
//
// Choices, a line each:
// - gem_port_id of the CCM packet buffer has no flag: every set takes it.
// - Everything is off and 0 at first. lbr_tx_port and port_num must be ports of the device, and GEM ports have 12
//   bits.
// - A port with enbl_tx sends a delay measurement message each second of the simulator's clock. With enbl_rx a peer
//   answers each of them at once; enbl_rx needs at least one bit of rx_op_code.
// - Loopback messages never arrive, so tx_lbr_pkts stays 0.
// - With CCM_REPEAT_TX a message goes out each repeat_timer, with CCM_ONE_TIME_TX one when it is set; none as long as
//   pkt_len is 0. With enbl_seq_num each adds 1 to seq_num_val, which is how they can be seen.
#include "driver/cfm.h"

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using namespace std::chrono_literals;

constexpr vx_uint8 greatest_cos = 7;
constexpr vx_uint16 greatest_gem_port = 4095;
constexpr int all_op_codes = VX_CFM_1DM | VX_CFM_DMR | VX_CFM_DMM;
constexpr unsigned sequence_number_bytes = 4;
constexpr Clock::Time delay_period = 1s;

/* How many periods have passed since the last message; that is then the last of them. */
vx_uint32 periods(Clock::Time &last, Clock::Time period, Clock::Time now) {
    const auto count = (now - last) / period;
    last += count * period;
    return static_cast<vx_uint32>(count);
}

/* Sends what was due up to now. */
Cfm &up_to_date(Device &device) {
    Cfm &cfm = device.cfm;
    const Clock::Time now = device.system.clock.now();
    vx_1ag_ccm_cfg_t &ccm = cfm.ccm;
    if (ccm.ccm_tx_mode == VX_CFM_CCM_REPEAT_TX) {
        const vx_uint32 sent = periods(cfm.ccm_sent, Clock::Time{ccm.repeat_timer}, now);
        if (ccm.enbl_seq_num && cfm.packet.pkt_len != 0) ccm.seq_num_val += sent;
    }
    for (auto &[id, port] : cfm.delay_ports) {
        if (!port.cfg.enbl_tx) continue;
        const vx_uint32 sent = periods(port.sent, delay_period, now);
        cfm.tx_dm.add(sent);
        if (port.cfg.enbl_rx) cfm.rx_dm.add(sent);
    }
    return cfm;
}

}  // namespace

Cfm::Cfm() {
    lbm.valid.mask_s = {
        .enbl_lbm_proc = 1, .accept_mcast_da = 1, .md_level = 1, .lbr_tx_port = 1, .lbr_tx_gem_port = 1, .lbr_cos = 1};
    ccm.valid.mask_s = {.ccm_tx_mode = 1, .repeat_timer = 1, .enbl_seq_num = 1, .seq_num_offset = 1, .seq_num_val = 1};
    packet.valid.mask_s = {.port_num = 1, .enbl_byte_swap = 1, .pkt_len = 1, .p_pkt_buff = 1};
    clear_beside_flags(lbm.valid, 6);
    clear_beside_flags(ccm.valid, 5);
    clear_beside_flags(packet.valid, 4);
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_1ag_lbm_config_set(vx_dev_id_t dev_id, vx_1ag_lbm_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.md_level && !is_in_range(p_cfg->md_level, 0, VX_CFM_MD_LEVEL_MAX))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.lbr_tx_port && is_no_port(p_cfg->lbr_tx_port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (flags.lbr_tx_gem_port && !is_in_range(p_cfg->lbr_tx_gem_port, 0, greatest_gem_port))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.lbr_cos && !is_in_range(p_cfg->lbr_cos, 0, greatest_cos)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        vx_1ag_lbm_cfg_t &kept = device.cfm.lbm;
        merge(flags.enbl_lbm_proc, kept.enbl_lbm_proc, as_boolean(p_cfg->enbl_lbm_proc));
        merge(flags.accept_mcast_da, kept.accept_mcast_da, as_boolean(p_cfg->accept_mcast_da));
        merge(flags.md_level, kept.md_level, p_cfg->md_level);
        merge(flags.lbr_tx_port, kept.lbr_tx_port, p_cfg->lbr_tx_port);
        merge(flags.lbr_tx_gem_port, kept.lbr_tx_gem_port, p_cfg->lbr_tx_gem_port);
        merge(flags.lbr_cos, kept.lbr_cos, p_cfg->lbr_cos);
        return VX_SUCCESS;
    });
}

vx_status_e vx_1ag_lbm_config_get(vx_dev_id_t dev_id, vx_1ag_lbm_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.cfm.lbm; });
}

vx_status_e vx_1ag_ccm_config_set(vx_dev_id_t dev_id, vx_1ag_ccm_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        Cfm &cfm = up_to_date(device);
        const auto &flags = p_cfg->valid.mask_s;
        vx_1ag_ccm_cfg_t next = cfm.ccm;
        merge(flags.ccm_tx_mode, next.ccm_tx_mode, p_cfg->ccm_tx_mode);
        merge(flags.repeat_timer, next.repeat_timer, p_cfg->repeat_timer);
        merge(flags.enbl_seq_num, next.enbl_seq_num, as_boolean(p_cfg->enbl_seq_num));
        merge(flags.seq_num_offset, next.seq_num_offset, p_cfg->seq_num_offset);
        merge(flags.seq_num_val, next.seq_num_val, p_cfg->seq_num_val);
        if (!is_in_range(next.ccm_tx_mode, VX_CFM_CCM_TX_DISABLE, VX_CFM_CCM_REPEAT_TX))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (!is_in_range(next.seq_num_offset, 0, VX_CFM_CCM_PKT_BUFF_SIZE - sequence_number_bytes))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (next.ccm_tx_mode == VX_CFM_CCM_REPEAT_TX && next.repeat_timer == 0) return VX_ERR_GLBL_INVALID_PARAMS;
        const bool once = flags.ccm_tx_mode && next.ccm_tx_mode == VX_CFM_CCM_ONE_TIME_TX;
        if (once && next.enbl_seq_num && cfm.packet.pkt_len != 0) ++next.seq_num_val;
        cfm.ccm = next;
        cfm.ccm_sent = device.system.clock.now();
        return VX_SUCCESS;
    });
}

vx_status_e vx_1ag_ccm_config_get(vx_dev_id_t dev_id, vx_1ag_ccm_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = up_to_date(device).ccm; });
}

vx_status_e vx_1ag_ccm_pkt_buf_set(vx_dev_id_t dev_id, vx_1ag_ccm_pkt_buf_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.port_num && is_no_port(p_cfg->port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(p_cfg->gem_port_id, 0, greatest_gem_port)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.pkt_len && !is_in_range(p_cfg->pkt_len, 0, VX_CFM_CCM_PKT_BUFF_SIZE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        vx_1ag_ccm_pkt_buf_cfg_t &kept = up_to_date(device).packet;
        merge(flags.port_num, kept.port_num, p_cfg->port_num);
        kept.gem_port_id = p_cfg->gem_port_id;
        merge(flags.enbl_byte_swap, kept.enbl_byte_swap, as_boolean(p_cfg->enbl_byte_swap));
        merge(flags.pkt_len, kept.pkt_len, p_cfg->pkt_len);
        merge(flags.p_pkt_buff, kept.p_pkt_buff, p_cfg->p_pkt_buff);
        return VX_SUCCESS;
    });
}

vx_status_e vx_1ag_ccm_pkt_buf_get(vx_dev_id_t dev_id, vx_1ag_ccm_pkt_buf_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.cfm.packet; });
}

vx_status_e vx_1ag_dm_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_1ag_dm_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(p_cfg->rx_op_code, 0, all_op_codes)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (p_cfg->enbl_rx && p_cfg->rx_op_code == 0) return VX_ERR_GLBL_INVALID_PARAMS;
        Cfm::DelayPort &port = up_to_date(device).delay_ports[port_id];
        if (!port.cfg.enbl_tx) port.sent = device.system.clock.now();
        port.cfg = {.enbl_rx = as_boolean(p_cfg->enbl_rx),
                    .enbl_tx = as_boolean(p_cfg->enbl_tx),
                    .rx_op_code = p_cfg->rx_op_code};
        return VX_SUCCESS;
    });
}

vx_status_e vx_1ag_dm_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_1ag_dm_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *p_cfg = device.cfm.delay_ports[port_id].cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_1ag_stats_get(vx_dev_id_t dev_id, vx_1ag_stats_t *p_stats, vx_boolean clear) {
    return on_device(__func__, dev_id, {p_stats}, [&](Device &device) {
        Cfm &cfm = up_to_date(device);
        *p_stats = {.tx_lbr_pkts = 0, .rx_dm_pkts = cfm.rx_dm.read(clear), .tx_dm_pkts = cfm.tx_dm.read(clear)};
    });
}

}  // extern "C"
