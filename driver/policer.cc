// Rate limits and policers, their counters, and the buffer manager.
//
// Choices of this family:
// - The ids of flow policers are 0 to 63, those of group policers 0 to 3: bit n of a map is the policer with id n. In
//   a map of 32 bits the flow policers from 32 on cannot be seen.
// - A flow policer is in one group at most. Deleting it takes it from its group.
// - A flow policer that polices flows, and a group with members, are not deleted: the answer is "busy".
// - lmq_disable_flow_policing ends the policing of every flow by that policer. The policer stays.
// - A flow whose policer comes from a map has no policer id in its status.
// - The chip has flow, CPU, port and packet type policers: single rate, colour-blind.
// - Units of rates and bursts are not looked at. The two interfaces do not see each other's settings.
// - Buckets, shapers and storm control modes are off, or 0, at first. The reserved shaper mode and bits of a storm
//   control mode that have no name are refused.
// - The queue status of a port shows eight queues as they were configured, and no buffer in use. The queues in
//   external memory are those of a device that was started with such a memory; otherwise all their members are 0.
//   Bytes are counted in buffers of 48.
// - The flows of accumulating buckets A to D show as those of group policers 0 to 3, beside the members of these.
// - The shaper's counter can be read and not cleared.
#include "driver/policer.h"

#include <algorithm>
#include <iterator>

#include "driver/chip.h"

namespace lmq::sim {

void Policers::clear_counters() {
    shaped.clear();
    cpu_counters = {};
    source_port_counters.clear();
    for (auto &[id, policer] : flow_policers) policer.counters = {};
    for (auto &[id, policer] : group_policers) policer.counters = {};
}

}  // namespace lmq::sim

using namespace lmq::sim;

namespace {

constexpr vx_uint32 storm_control_bits = 0x1f;
constexpr vx_uint32 buffer_size = 48;  // of a queue's max_buff_size

[[nodiscard]] vx_status_e check(const vx_rate_limit_cfg_t &limit) {
    if (!is_in_range(limit.pol_type, VX_RATE_LIMIT_DISABLE, VX_RATE_LIMIT_PPS_MODE))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(vx_storm_control_type_t type) {
    if (!is_in_range(type, VX_STORM_CONTROL_BC, VX_STORM_CONTROL_UNKOWN_UC)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

template <class Entry>
Result<Entry &> find(std::map<vx_pol_id_t, Entry> &policers, vx_pol_id_t id) {
    const auto entry = policers.find(id);
    if (entry == policers.end()) return VX_ERR_TM_INVALID_POLICER_ID;
    return entry->second;
}

template <class Entry>
[[nodiscard]] vx_status_e create(Ids &ids, std::map<vx_pol_id_t, Entry> &policers, const vx_rate_limit_cfg_t &limit,
                                 vx_pol_id_t *id) {
    if (const vx_status_e refused = check(limit)) return refused;
    const auto given = ids.give();
    if (!given) return VX_ERR_TM_POLICER_UNAVAIL;
    policers.emplace(*given, Entry{.limit = limit});
    *id = *given;
    return VX_SUCCESS;
}

template <class Entry>
[[nodiscard]] vx_status_e set(std::map<vx_pol_id_t, Entry> &policers, vx_pol_id_t id,
                              const vx_rate_limit_cfg_t &limit) {
    const Result<Entry &> policer = find(policers, id);
    if (!policer) return policer.status();
    if (const vx_status_e refused = check(limit)) return refused;
    policer->limit = limit;
    return VX_SUCCESS;
}

template <class Entry>
[[nodiscard]] vx_status_e get(std::map<vx_pol_id_t, Entry> &policers, vx_pol_id_t id, vx_rate_limit_cfg_t *limit) {
    const Result<Entry &> policer = find(policers, id);
    if (policer) *limit = policer->limit;
    return policer.status();
}

template <class Entry, class Counters>
[[nodiscard]] vx_status_e get_counters(std::map<vx_pol_id_t, Entry> &policers, vx_pol_id_t id, Counters *counters,
                                       bool clear) {
    const Result<Entry &> policer = find(policers, id);
    if (policer) read_counters(policer->counters, counters, clear);
    return policer.status();
}

template <class Entry>
[[nodiscard]] vx_status_e clear_counters(std::map<vx_pol_id_t, Entry> &policers, vx_pol_id_t id) {
    const Result<Entry &> policer = find(policers, id);
    if (policer) policer->counters = {};
    return policer.status();
}

[[nodiscard]] vx_status_e check_bucket(vx_lmq_pol_flow_type_t bucket) {
    if (!is_in_range(bucket, VX_LMQ_GE_SRC_PORT_BKT, VX_LMQ_CPU_PORT_BKT)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check_member(vx_uint32 flow, lmq_pol_acc_flow_type_t bucket) {
    if (flow > VX_LMQ_MAX_FLOW_CNT) return VX_ERR_FE_INVALID_FLOW_ID;
    if (!is_in_range(bucket, LMQ_POL_ACC_FLOWA, LMQ_POL_ACC_FLOWD)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

/* Whether a policer polices a flow. */
bool polices(const vx_flow_policing_cfg_t &policing, vx_pol_id_t id) {
    return policing.flow_pol_sel == VX_FLOW_POL_SEL_FLOW_POL && policing.flw_pol_id == id;
}

/* The size of so many buffers, or the greatest number that there is. */
vx_uint32 in_bytes(vx_uint32 buffers) {
    return static_cast<vx_uint32>(std::min<std::uint64_t>(std::uint64_t{buffers} * buffer_size, UINT32_MAX));
}

/* Bit n of a word, or nothing where the word ends. */
vx_uint32 bit(vx_pol_id_t n) { return n < 32 ? vx_uint32{1} << n : 0; }

}  // namespace

extern "C" {

vx_status_e vx_rate_global_policer_capability_get(vx_dev_id_t dev_id, vx_global_policer_cap_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &) {
        *cfg = {};
        cfg->pol_type = vx_pol_type_t{VX_CPU_POL | VX_FLOW_POL | VX_PORT_POL | VX_PKT_TYPE_POL};
        cfg->wred_mode = VX_WRED_UNDEFINED;
        cfg->color_mode = VX_POL_COLOR_BLIND;
        cfg->tkn_bkt_type = VX_POL_SINGLE_RATE;
        cfg->num_flow_pol = LMQ_MAX_NUM_FLOW_POL;
    });
}

vx_status_e vx_rate_global_policer_set(vx_dev_id_t dev_id, vx_global_policer_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (!is_in_range(cfg->tail_drp_sel, VX_POL_PER_PORT, VX_POL_GLOBAL)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.policer.global = *cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_global_policer_get(vx_dev_id_t dev_id, vx_global_policer_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) { *cfg = device.policer.global; });
}

vx_status_e vx_rate_cpu_set(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (const vx_status_e refused = check(*cfg)) return refused;
        device.policer.cpu = *cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_cpu_get(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) { *cfg = device.policer.cpu; });
}

vx_status_e vx_rate_storm_control_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_storm_control_type_t pol_pkt_type,
                                      vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check(pol_pkt_type)) return refused;
        if (const vx_status_e refused = check(*cfg)) return refused;
        device.policer.storm_control.set({port_id, pol_pkt_type}, *cfg);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_storm_control_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_storm_control_type_t pol_pkt_type,
                                      vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check(pol_pkt_type)) return refused;
        *cfg = device.policer.storm_control.get({port_id, pol_pkt_type});
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_src_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check(*cfg)) return refused;
        device.policer.source_port.set(port_id, *cfg);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_src_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *cfg = device.policer.source_port.get(port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_group_policer_create(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg, vx_pol_id_t *p_grp_pol_id) {
    return on_device(__func__, dev_id, {cfg, p_grp_pol_id}, [&](Device &device) {
        return create(device.policer.group_ids, device.policer.group_policers, *cfg, p_grp_pol_id);
    });
}

vx_status_e vx_rate_group_policer_delete(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        Policers &policers = device.policer;
        if (const vx_status_e refused = find(policers.group_policers, grp_pol_id).status()) return refused;
        for (const auto &[id, policer] : policers.flow_policers) {
            if (policer.group == grp_pol_id) return VX_ERR_DEV_BUSY;
        }
        policers.group_policers.erase(grp_pol_id);
        policers.group_ids.take_back(grp_pol_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_group_policer_set(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg},
                     [&](Device &device) { return set(device.policer.group_policers, grp_pol_id, *cfg); });
}

vx_status_e vx_rate_group_policer_get(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg},
                     [&](Device &device) { return get(device.policer.group_policers, grp_pol_id, cfg); });
}

vx_status_e vx_rate_policer_group_member_add(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_id_t grp_pol_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const auto policer = find(device.policer.flow_policers, flow_pol_id);
        if (!policer) return policer.status();
        if (const vx_status_e refused = find(device.policer.group_policers, grp_pol_id).status()) return refused;
        if (policer->group == grp_pol_id) return VX_ERR_GLBL_ENTRY_EXIST;
        if (policer->group.has_value()) return VX_ERR_GLBL_INVALID_OP;
        policer->group = grp_pol_id;
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_policer_group_member_delete(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_id_t grp_pol_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const auto policer = find(device.policer.flow_policers, flow_pol_id);
        if (!policer) return policer.status();
        if (const vx_status_e refused = find(device.policer.group_policers, grp_pol_id).status()) return refused;
        if (policer->group != grp_pol_id) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        policer->group.reset();
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_policer_create(vx_dev_id_t dev_id, vx_rate_limit_cfg_t *cfg, vx_pol_id_t *flow_pol_id) {
    return on_device(__func__, dev_id, {cfg, flow_pol_id}, [&](Device &device) {
        return create(device.policer.flow_ids, device.policer.flow_policers, *cfg, flow_pol_id);
    });
}

vx_status_e vx_rate_policer_delete(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        Policers &policers = device.policer;
        if (const vx_status_e refused = find(policers.flow_policers, flow_pol_id).status()) return refused;
        for (const auto &[flow, policing] : policers.policing) {
            if (polices(policing, flow_pol_id)) return VX_ERR_DEV_BUSY;
        }
        policers.flow_policers.erase(flow_pol_id);
        policers.flow_ids.take_back(flow_pol_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_policer_set(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg},
                     [&](Device &device) { return set(device.policer.flow_policers, flow_pol_id, *cfg); });
}

vx_status_e vx_rate_policer_get(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_rate_limit_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg},
                     [&](Device &device) { return get(device.policer.flow_policers, flow_pol_id, cfg); });
}

vx_status_e vx_rate_flow_id_set(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_policing_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (!device.flow.exists(flow_id)) return VX_ERR_FE_INVALID_FLOW_ID;
        if (!is_in_range(cfg->flow_pol_sel, VX_FLOW_POL_SEL_DISABLE, VX_FLOW_POL_SEL_COS_MAP))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (cfg->flow_pol_sel == VX_FLOW_POL_SEL_FLOW_POL && !device.policer.flow_policers.contains(cfg->flw_pol_id))
            return VX_ERR_TM_INVALID_POLICER_ID;
        if (cfg->flow_pol_sel == VX_FLOW_POL_SEL_DISABLE) {
            device.policer.policing.erase(flow_id);
        } else {
            device.policer.policing.insert_or_assign(flow_id, *cfg);
        }
        return VX_SUCCESS;
    });
}

vx_status_e lmq_disable_flow_policing(vx_dev_id_t dev_id, vx_pol_id_t flw_pol_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = find(device.policer.flow_policers, flw_pol_id).status()) return refused;
        std::erase_if(device.policer.policing, [&](const auto &flow) { return polices(flow.second, flw_pol_id); });
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_policer_status_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id,
                                       vx_flow_policer_status_t *policer_status) {
    return on_device(__func__, dev_id, {policer_status}, [&](Device &device) {
        if (!device.flow.exists(flow_id)) return VX_ERR_FE_INVALID_FLOW_ID;
        *policer_status = {FALSE, LMQ_INVALID_POL_ID, LMQ_INVALID_POL_ID};
        const auto policing = device.policer.policing.find(flow_id);
        if (policing == device.policer.policing.end()) return VX_SUCCESS;
        policer_status->flow_pol_enb = TRUE;
        if (policing->second.flow_pol_sel != VX_FLOW_POL_SEL_FLOW_POL) return VX_SUCCESS;
        policer_status->flow_pol_id = policing->second.flw_pol_id;
        const auto policer = find(device.policer.flow_policers, policing->second.flw_pol_id);
        if (!policer) return policer.status();
        policer_status->grp_pol_id = policer->group.value_or(LMQ_INVALID_POL_ID);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_flow_policer_info(vx_dev_id_t dev_id, lmq_flow_policer_info_s *p_info) {
    return on_device(__func__, dev_id, {p_info}, [&](Device &device) {
        *p_info = {};
        for (const auto &[id, policer] : device.policer.group_policers) p_info->grp_pol_bitmap |= bit(id);
        for (const auto &[id, policer] : device.policer.flow_policers) {
            p_info->flow_pol_bitmap |= bit(id);
            if (!policer.group) continue;
            p_info->grp_pol_mem_bitmap[*policer.group] |= bit(id);
            p_info->flow_pol_mem_bitmap[id] |= bit(*policer.group);
        }
        for (const auto &[flow, bucket] : device.policer.accumulating) {
            const auto group = static_cast<vx_pol_id_t>(bucket);
            p_info->grp_pol_mem_bitmap[group] |= bit(flow);
            p_info->flow_pol_mem_bitmap[flow] |= bit(group);
        }
    });
}

vx_status_e vx_lmq_rate_limit_set(vx_dev_id_t dev_id, vx_lmq_pol_flow_type_t type, vx_lmq_rate_limit_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_bucket(type)) return refused;
        if (!is_in_range(cfg->rl_mode, VX_LMQ_POL_TYPE_DISABLED, VX_LMQ_POL_TYPE_PPS))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.policer.bucket.set(type, *cfg);
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_limit_get(vx_dev_id_t dev_id, vx_lmq_pol_flow_type_t type, vx_lmq_rate_limit_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_bucket(type)) return refused;
        *cfg = device.policer.bucket.get(type);
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_storm_ctrl_mode_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_storm_ctrl_mod_t *mode) {
    return on_device(__func__, dev_id, {mode}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(mode->mask, 0, storm_control_bits)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.policer.storm_control_mode.set(port_id, mode->mask);
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_storm_ctrl_mode_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_storm_ctrl_mod_t *mode) {
    return on_device(__func__, dev_id, {mode}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        mode->mask = device.policer.storm_control_mode.get(port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_shaper_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_pol_port_shape_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(cfg->shp_mode, VX_LMQ_POL_SHP_NORMAL, VX_LMQ_POL_SHP_FWD_ALL))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.policer.shaper.set(port_id, *cfg);
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_shaper_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_lmq_pol_port_shape_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *cfg = device.policer.shaper.get(port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_group_member_add(vx_dev_id_t dev_id, vx_uint32 flow_id, lmq_pol_acc_flow_type_t flow_type) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_member(flow_id, flow_type)) return refused;
        const bool is_new = device.policer.accumulating.insert({flow_id, flow_type}).second;
        if (!is_new) return VX_ERR_GLBL_ENTRY_EXIST;
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_group_member_delete(vx_dev_id_t dev_id, vx_uint32 flow_id, lmq_pol_acc_flow_type_t flow_type) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_member(flow_id, flow_type)) return refused;
        const bool was_there = device.policer.accumulating.erase({flow_id, flow_type}) != 0;
        if (!was_there) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e vx_lmq_rate_shape_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *count) {
    return on_device(__func__, dev_id, {count}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *count = device.policer.shaped[port_id];
        return VX_SUCCESS;
    });
}

vx_status_e vx_bm_pkt_stats_get(vx_dev_id_t dev_id, lmq_bm_pkt_stats_s *p_stats, vx_boolean clear) {
    return on_device(__func__, dev_id, {p_stats},
                     [&](Device &device) { read_counters(device.policer.buffer_manager, p_stats, clear != FALSE); });
}

vx_status_e vx_bm_pkt_stats_clear(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) { device.policer.buffer_manager = {}; });
}

vx_status_e vx_bm_queue_status_get(vx_dev_id_t device_id, vx_uint16 port_num, lmq_bm_queue_status_s *p_status) {
    return on_device(__func__, device_id, {p_status}, [&](Device &device) {
        if (is_no_port(port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *p_status = {};
        const bool external = device.config.pkt_mem_mode == LMQ_PKT_MEM_MODE_IBM_N_EBM;
        for (vx_uint16 id = 0; id < std::size(p_status->bm_que_status); ++id) {
            const vx_queue_cfg_t &queue = device.cosq.queue.get({port_num, id});
            p_status->valid_que_bitmap |= bit(id);
            lmq_bm_queue_sts &internal_queue = p_status->bm_que_status[id];
            internal_queue.buf_limit = queue.max_buff_size;
            internal_queue.rx_stat = internal_queue.tx_stat = TRUE;
            internal_queue.dwrr_ratio = static_cast<vx_uint16>(queue.weight);
            if (!external) continue;
            lmq_ebm_queue_sts &external_queue = p_status->ebm_que_status[id];
            external_queue.que_size = in_bytes(queue.max_buff_size);
            external_queue.rx_stat = external_queue.tx_stat = TRUE;
            external_queue.dwrr_ratio = static_cast<vx_uint16>(queue.weight);
            external_queue.high_thresh = in_bytes(queue.back_press_set_thresh);
            external_queue.low_thresh = in_bytes(queue.back_press_clr_thresh);
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_cpu_stat_get(vx_dev_id_t dev_id, vx_pol_cpu_stats_t *stats, vx_boolean clear) {
    return on_device(__func__, dev_id, {stats},
                     [&](Device &device) { read_counters(device.policer.cpu_counters, stats, clear != FALSE); });
}

vx_status_e vx_rate_cpu_stat_clear(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) { device.policer.cpu_counters = {}; });
}

vx_status_e vx_rate_src_port_stat_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_pol_src_port_stat_t *stats,
                                      vx_boolean clear) {
    return on_device(__func__, dev_id, {stats}, [&](Device &device) {
        if (is_no_port(port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        read_counters(device.policer.source_port_counters[port_num], stats, clear != FALSE);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_src_port_stat_clear(vx_dev_id_t dev_id, vx_uint16 port_num) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        device.policer.source_port_counters.erase(port_num);
        return VX_SUCCESS;
    });
}

vx_status_e vx_rate_policer_stat_get(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id, vx_pol_flow_stat_t *stats,
                                     vx_boolean clear) {
    return on_device(__func__, dev_id, {stats}, [&](Device &device) {
        return get_counters(device.policer.flow_policers, flow_pol_id, stats, clear != FALSE);
    });
}

vx_status_e vx_rate_policer_stat_clear(vx_dev_id_t dev_id, vx_pol_id_t flow_pol_id) {
    return on_device(__func__, dev_id, {},
                     [&](Device &device) { return clear_counters(device.policer.flow_policers, flow_pol_id); });
}

vx_status_e vx_rate_group_policer_stat_get(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id, vx_pol_group_stats_t *stats,
                                           vx_boolean clear) {
    return on_device(__func__, dev_id, {stats}, [&](Device &device) {
        return get_counters(device.policer.group_policers, grp_pol_id, stats, clear != FALSE);
    });
}

vx_status_e vx_rate_group_policer_stat_clear(vx_dev_id_t dev_id, vx_pol_id_t grp_pol_id) {
    return on_device(__func__, dev_id, {},
                     [&](Device &device) { return clear_counters(device.policer.group_policers, grp_pol_id); });
}

}  // extern "C"
