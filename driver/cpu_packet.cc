// The CPU packet family: traps, special packets, traffic block, filters, and sending.
//
// Choices:
// - No function registers a trap, so a device comes up with a trap of each special packet type, as an application on
//   the ONU would register them: enabled, without ports, its handle the number of the type. A handle that was
//   deregistered is gone until the device starts again.
// - What the traffic model lets arrive at a port of an enabled trap is counted: one packet in 50 is of its type,
//   unless the port filters that type at ingress.
// - Port types go with ports: GPON, AE, AE_CASCADE and GEM with the SNI, ETH with the Ethernet ports and the
//   management port. A trap has up to 64 ports.
// - A special packet is permitted and learned from at first; the members that one flag selects together are flow_enbl
//   with flow_id and mirror_enbl with mirror_before_pe.
// - Ingress filters are for the SNI and Ethernet ports. Removing types of which none is in the filter is refused.
// - vx_cpu_packet_tx sends 14 to 2000 bytes, reads their destination and whether they are PTP, and counts them on the
//   port; OMCI and OAM messages may be shorter, and go to the SNI alone. The management port sends while its
//   interface is enabled.
#include "driver/cpu_packet.h"

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr std::size_t max_trap_ports = VX_MAX_GEM_PORTS;
constexpr vx_uint16 min_frame = 14;    // The Ethernet header.
constexpr vx_uint16 max_frame = 2000;  // IEEE 802.3: an envelope frame.

bool is_eth_port(vx_uint16 port) { return port >= VX_PORT_ETH0 && port < VX_PORT_ETH0 + LMQ_PORT_ETH_NUM; }

/* A port of the network or of a user. */
[[nodiscard]] vx_status_e check_sni_or_uni(vx_uint16 port) {
    if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    if (port != VX_PORT_SNI0 && !is_eth_port(port)) return VX_ERR_PORT_TYPE_MISMATCH;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check_typed_port(vx_port_type_t type, vx_uint16 port) {
    if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    switch (type) {
        case VX_PORT_TYPE_GPON:
        case VX_PORT_TYPE_AE:
        case VX_PORT_TYPE_AE_CASCADE:
        case VX_PORT_TYPE_GEM: return port == VX_PORT_SNI0 ? VX_SUCCESS : VX_ERR_PORT_TYPE_MISMATCH;
        case VX_PORT_TYPE_ETH:
            return is_eth_port(port) || port == VX_PORT_MGMT ? VX_SUCCESS : VX_ERR_PORT_TYPE_MISMATCH;
        case VX_PORT_TYPE_INVALID: break;
    }
    return VX_ERR_GLBL_RANGE_CHECK_FAIL;
}

/* The numbers between START and END that no type has. */
bool is_gap(int type) { return type == 10 || type == 11 || type == 17 || type == 18; }

bool is_special(int type) {
    return type >= VX_L2_SPCL_PKT_TYPE_START && type <= VX_L2_SPCL_PKT_TYPE_END && !is_gap(type);
}

[[nodiscard]] vx_status_e check_type(vx_l2_spcl_pkt_type_t type) {
    if (type < VX_L2_SPCL_PKT_TYPE_BASE || type >= VX_L2_SPCL_PKT_TYPE_MAX || is_gap(type))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

Result<CpuTrap &> trap(Device &device, vx_uint32 handle) {
    const auto found = device.cpu_packet.traps.find(handle);
    if (found == device.cpu_packet.traps.end()) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
    return found->second;
}

lmq_fe_spcl_pkt_ctrl_t initial_control() {
    lmq_fe_spcl_pkt_ctrl_t control{};
    control.permit = TRUE;
    control.lrn_enbl = TRUE;
    control.valid.mask_s = {.pri = 1,
                            .permit = 1,
                            .fwd_op = 1,
                            .lrn_enbl = 1,
                            .lmt_fwd = 1,
                            .cos = 1,
                            .bypass_plcy = 1,
                            .flow_enbl = 1,
                            .mirror_enbl = 1,
                            .rsvd = 0};
    return control;
}

Result<lmq_fe_spcl_pkt_ctrl_t &> control(Device &device, vx_uint16 port, vx_l2_spcl_pkt_type_t type) {
    if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    if (!is_special(type)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return device.cpu_packet.control.try_emplace({port, type}, initial_control()).first->second;
}

vx_status_e set_trap(const char *function, vx_dev_id_t dev_id, vx_uint32 handle, bool enabled) {
    return on_device(function, dev_id, {}, [&](Device &device) {
        const Result<CpuTrap &> kept = trap(device, handle);
        if (!kept) return kept.status();
        kept->enabled = enabled;
        return VX_SUCCESS;
    });
}

/* A switch of a port, by the setting that keeps it. */
using PortSwitch = Setting<vx_port_id_t, vx_boolean> CpuPackets::*;

vx_status_e set_switch(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl,
                       PortSwitch which) {
    return on_device(function, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        (device.cpu_packet.*which).set(port_id, enbl ? TRUE : FALSE);
        return VX_SUCCESS;
    });
}

vx_status_e get_switch(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl,
                       PortSwitch which) {
    return on_device(function, dev_id, {enbl}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *enbl = (device.cpu_packet.*which).get(port_id);
        return VX_SUCCESS;
    });
}

[[nodiscard]] vx_status_e check_filter(vx_port_id_t port_id, vx_l2_spcl_pkt_type_bitmap_t types) {
    if (const vx_status_e refused = check_sni_or_uni(port_id)) return refused;
    if (types == LMQ_PKT_TYPE_BITMAP_NONE) return VX_ERR_GLBL_INVALID_PARAMS;
    if ((types & ~vx_uint32{LMQ_PKT_TYPE_BITMAP_ALL}) != 0) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

}  // namespace

CpuPackets::CpuPackets() {
    for (int type = VX_L2_SPCL_PKT_TYPE_START + 1; type <= VX_L2_SPCL_PKT_TYPE_END; ++type) {
        if (is_special(type)) traps.emplace(static_cast<vx_uint32>(type), CpuTrap{});
    }
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e lmq_enable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle) {
    return set_trap(__func__, dev_id, handle, true);
}

vx_status_e lmq_disable_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle) {
    return set_trap(__func__, dev_id, handle, false);
}

vx_status_e lmq_deregister_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (device.cpu_packet.traps.erase(handle) == 0) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_add_port_to_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type,
                                         vx_uint16 port_num, vx_uint16 sub_port_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const Result<CpuTrap &> kept = trap(device, handle);
        if (!kept) return kept.status();
        if (const vx_status_e refused = check_typed_port(port_type, port_num)) return refused;
        const CpuPort port{port_type, port_num, sub_port_id};
        if (kept->ports.contains(port)) return VX_ERR_PORT_EXIST;
        if (kept->ports.size() >= max_trap_ports) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
        kept->ports.insert(port);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_delete_port_from_cpu_pkt_trap(vx_dev_id_t dev_id, vx_uint32 handle, vx_port_type_t port_type,
                                              vx_uint16 port_num, vx_uint16 sub_port_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const Result<CpuTrap &> kept = trap(device, handle);
        if (!kept) return kept.status();
        if (const vx_status_e refused = check_typed_port(port_type, port_num)) return refused;
        if (kept->ports.erase({port_type, port_num, sub_port_id}) == 0) return VX_ERR_PORT_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_cpu_pkt_trap_stats(vx_dev_id_t dev_id, vx_l2_spcl_pkt_type_t pkt_type, vx_port_type_t port_type,
                                       vx_uint16 port_num, vx_uint32 *p_stats, vx_boolean clear) {
    return on_device(__func__, dev_id, {p_stats}, [&](Device &device) {
        if (const vx_status_e refused = check_type(pkt_type)) return refused;
        if (const vx_status_e refused = check_typed_port(port_type, port_num)) return refused;
        CpuPackets &state = device.cpu_packet;
        if (!state.traps.contains(static_cast<vx_uint32>(pkt_type))) return VX_ERR_FE_CPU_PKT_TRAP_NOT_ACTIVE;
        *p_stats = state.trapped[{pkt_type, port_type, port_num}].read(clear != FALSE);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_spcl_pkt_cfg_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type,
                                   lmq_fe_spcl_pkt_ctrl_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        const Result<lmq_fe_spcl_pkt_ctrl_t &> found = control(device, port_num, pkt_type);
        if (!found) return found.status();
        const auto flags = cfg->valid.mask_s;
        if (flags.cos && !is_in_range(cfg->cos, 0, LMQ_MAX_COS - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.fwd_op && cfg->fwd_op.fwd_enbl && is_no_port(cfg->fwd_op.dpid)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;

        lmq_fe_spcl_pkt_ctrl_t &kept = *found;
        merge(flags.pri, kept.pri, cfg->pri);
        merge(flags.permit, kept.permit, cfg->permit);
        merge(flags.fwd_op, kept.fwd_op, cfg->fwd_op);
        merge(flags.lrn_enbl, kept.lrn_enbl, cfg->lrn_enbl);
        merge(flags.lmt_fwd, kept.lmt_fwd, cfg->lmt_fwd);
        merge(flags.cos, kept.cos, cfg->cos);
        merge(flags.bypass_plcy, kept.bypass_plcy, cfg->bypass_plcy);
        merge(flags.flow_enbl, kept.flow_enbl, cfg->flow_enbl);
        merge(flags.flow_enbl, kept.flow_id, cfg->flow_id);
        merge(flags.mirror_enbl, kept.mirror_enbl, cfg->mirror_enbl);
        merge(flags.mirror_enbl, kept.mirror_before_pe, cfg->mirror_before_pe);
        for (vx_boolean *flag : {&kept.permit, &kept.fwd_op.fwd_enbl, &kept.lrn_enbl, &kept.lmt_fwd, &kept.bypass_plcy,
                                 &kept.flow_enbl, &kept.mirror_enbl, &kept.mirror_before_pe}) {
            *flag = *flag ? TRUE : FALSE;
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_spcl_pkt_cfg_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_spcl_pkt_type_t pkt_type,
                                   lmq_fe_spcl_pkt_ctrl_t *cfg) {
    return on_device(__func__, dev_id, {cfg},
                     [&](Device &device) { return copy(control(device, port_num, pkt_type), cfg); });
}

vx_status_e vx_l2_spcl_pkt_behavior_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid,
                                        vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t spcl_pkt_act) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check_type(pkt_type)) return refused;
        if (!is_in_range(spcl_pkt_act, VX_L2_SPCL_PKT_ACT_FORWARDING, VX_L2_SPCL_PKT_ACT_MAX))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.cpu_packet.behavior.set({port_id, sub_pid, pkt_type}, spcl_pkt_act);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_spcl_pkt_behavior_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 sub_pid,
                                        vx_l2_spcl_pkt_type_t pkt_type, vx_l2_spcl_pkt_action_t *spcl_pkt_act) {
    return on_device(__func__, dev_id, {spcl_pkt_act}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check_type(pkt_type)) return refused;
        *spcl_pkt_act = device.cpu_packet.behavior.get({port_id, sub_pid, pkt_type});
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_traffic_block_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl) {
    return set_switch(__func__, dev_id, port_id, enbl, &CpuPackets::traffic_block);
}

vx_status_e vx_l2_traffic_block_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl) {
    return get_switch(__func__, dev_id, port_id, enbl, &CpuPackets::traffic_block);
}

vx_status_e vx_l2_pppoe_filter_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enbl) {
    return set_switch(__func__, dev_id, port_id, enbl, &CpuPackets::pppoe_filter);
}

vx_status_e vx_l2_pppoe_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enbl) {
    return get_switch(__func__, dev_id, port_id, enbl, &CpuPackets::pppoe_filter);
}

vx_status_e lmq_add_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                    vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_filter(port_id, pkt_type_bitmap)) return refused;
        auto &filter = device.cpu_packet.filter;
        filter.set(port_id, filter.get(port_id) | pkt_type_bitmap);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_delete_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                       vx_l2_spcl_pkt_type_bitmap_t pkt_type_bitmap) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_filter(port_id, pkt_type_bitmap)) return refused;
        auto &filter = device.cpu_packet.filter;
        if ((filter.get(port_id) & pkt_type_bitmap) == 0) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        filter.set(port_id, filter.get(port_id) & ~pkt_type_bitmap);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_pkt_type_filter(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                    vx_l2_spcl_pkt_type_bitmap_t *p_pkt_type_bitmap) {
    return on_device(__func__, dev_id, {p_pkt_type_bitmap}, [&](Device &device) {
        if (const vx_status_e refused = check_sni_or_uni(port_id)) return refused;
        *p_pkt_type_bitmap = device.cpu_packet.filter.get(port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cpu_packet_tx(vx_dev_id_t dev_id, vx_uint16 pkt_len, vx_uint8 *p_pkt_buff,
                             vx_cpu_send_frame_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_pkt_buff, p_cfg}, [&](Device &device) {
        const bool message = p_cfg->is_gpon_omci || p_cfg->is_epon_oam;
        if (!is_in_range(pkt_len, message ? 1 : min_frame, max_frame) ||
            !is_in_range(p_cfg->pkt_priority, 0, LMQ_MAX_COS - 1))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (const vx_status_e refused = check_typed_port(p_cfg->port_type, p_cfg->port_num)) return refused;
        if (message && p_cfg->port_num != VX_PORT_SNI0) return VX_ERR_PORT_TYPE_MISMATCH;
        if (p_cfg->port_num == VX_PORT_MGMT) {
            Management &interface = device.management;
            if (!interface.enabled) return VX_ERR_PORT_INVALID_OP;
            interface.tx_packets.add(1);
            interface.tx_bytes.add(pkt_len);
        }
        count_sent(device, *p_cfg, p_pkt_buff, pkt_len);
        if (!message) latch_egress_time(device, p_cfg->port_num, p_pkt_buff, pkt_len);
        return VX_SUCCESS;
    });
}

// The simulator hands out no packets, so there is none to free.
void lmq_pkt_free_fnc(void *) {}

}  // extern "C"
