// The flows: add, delete, modify, map and list, in both directions.
//
// Choices of this family:
// - Each direction has 64 flows. Ids are given out from 1, and none is used in both directions.
// - An upstream key takes the key types up to EXT_VLAN_DSCP; a downstream key takes all types but that one.
// - A second flow with the key, the port and the priority of another is refused.
// - An action that is not flagged leaves the packet alone. A get flags the actions that were set.
// - A modify sets the flagged actions and the key; a key of type INVALID leaves the key as it is.
// - An upstream flow leaves by the SNI or the CPU port. On the SNI its sub-port is a GEM port of 12 bits in a GPON
//   device, and an LLID, 0 to 7, in an EPON device; an LLID has four of the priority queues, in order.
// - A mapping to a sub-port that has other priority queues replaces a fixed queue, by the first of its own. If a GEM
//   port has no queue, the flow has no fixed queue any more.
// - As long as the GEM port that an upstream flow is mapped to is in loopback, no packet of the flow passes.
// - Deleting a flow takes it from its policer.
#include "driver/flow.h"

#include <cstring>

#include "driver/chip.h"

using namespace lmq::sim;

namespace {

using Action = vx_flow_us_action_t;  // of both directions

constexpr vx_uint16 llid_count = 8;
constexpr vx_uint16 queues_of_llid = GponTm::us_queue_count / llid_count;
constexpr vx_vid_t last_vid = 0xfff;  // IEEE 802.1Q: 12 bits

[[nodiscard]] vx_status_e check(const vx_flow_us_key_t &key) {
    if (key.key_type <= VX_CL_KEY_INVALID || key.key_type > VX_CL_KEY_EXT_VLAN_DSCP)
        return VX_ERR_FE_CLS_INVALID_KEY_TYPE;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(const vx_flow_ds_key_t &key) {
    if (key.key_type <= VX_CL_KEY_INVALID || key.key_type >= VX_CL_KEY_MAX || key.key_type == VX_CL_KEY_EXT_VLAN_DSCP)
        return VX_ERR_FE_CLS_INVALID_KEY_TYPE;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(const vx_flow_vlan_action_t &act) {
    const auto none = [](int value, int end) { return value < 0 || value >= end; };
    if (none(act.vlan_tag_act, VX_FLOW_VLAN_TAG_ACTION_MAX)) return VX_ERR_FE_INVALID_VLAN_ACTION;
    if (none(act.tpid_act, VX_FLOW_TPID_ACTION_MAX)) return VX_ERR_FE_INVALID_TPID_ACTION;
    if (none(act.pbit_act, VX_FLOW_PBIT_ACTION_MAX)) return VX_ERR_FE_INVALID_PBIT_ACTION;
    if (!is_in_range(act.de_act, 0, VX_FLOW_DE_ACTION_MAX - 1) || !is_in_range(act.pbit, 0, LMQ_MAX_DOT1P - 1) ||
        !is_in_range(act.de, 0, 1))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    if (act.vid > last_vid) return VX_ERR_FE_INVALID_VLAN_ID;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check(const vx_flow_dot1p_action_t &act) {
    if (act.pbit_act < 0 || act.pbit_act >= VX_FLOW_PBIT_ACTION_MAX) return VX_ERR_FE_INVALID_PBIT_ACTION;
    if (!is_in_range(act.de_act, 0, VX_FLOW_DE_ACTION_MAX - 1) || !is_in_range(act.pbit, 0, LMQ_MAX_DOT1P - 1) ||
        !is_in_range(act.de, 0, 1))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

/* Looks at the flagged members alone. */
[[nodiscard]] vx_status_e check(const Action &action, unsigned queues) {
    const auto &flags = action.valid.mask_s;
    if (const vx_status_e refused = flags.o_vlan_act ? check(action.o_vlan_act) : VX_SUCCESS) return refused;
    if (const vx_status_e refused = flags.i_vlan_act ? check(action.i_vlan_act) : VX_SUCCESS) return refused;
    if (const vx_status_e refused = flags.o_dot1p_act ? check(action.o_dot1p_act) : VX_SUCCESS) return refused;
    if (const vx_status_e refused = flags.i_dot1p_act ? check(action.i_dot1p_act) : VX_SUCCESS) return refused;
    if (flags.cos_act) {
        if (!is_in_range(action.cos_act.cos_act, 0, VX_FLOW_COS_ACTION_MAX - 1) ||
            !is_in_range(action.cos_act.cos_val, 0, LMQ_MAX_COS - 1))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    if (flags.dscp_act) {
        if (!is_in_range(action.dscp_act.dscp_act, 0, VX_FLOW_DSCP_ACTION_MAX - 1) ||
            !is_in_range(action.dscp_act.dscp_val, 0, LMQ_MAX_DSCP - 1))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    if (flags.queue_id && action.queue_id >= queues) return VX_ERR_TM_INVALID_QUEUE_ID;
    if (flags.egrs_vlan_chk_sel && !is_in_range(action.egrs_vlan_chk_sel, 0, VX_FLOW_EGRS_VLAN_CHK_MAX - 1))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    if (flags.dsbl_mac_learn && !is_in_range(action.lrn_limit_act, VX_LRN_LMT_PKT_ACT_FWD, VX_LRN_LMT_PKT_ACT_DRP))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    if (flags.enbl_pkt_mirror) {
        if (is_no_port(action.mirror_port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(action.mirror_mode, 0, VX_FLOW_MIRROR_MODE_MAX - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    return VX_SUCCESS;
}

void take(Action &kept, const Action &given) {
    const auto &flags = given.valid.mask_s;
    merge(flags.o_vlan_act, kept.o_vlan_act, given.o_vlan_act);
    merge(flags.i_vlan_act, kept.i_vlan_act, given.i_vlan_act);
    merge(flags.o_dot1p_act, kept.o_dot1p_act, given.o_dot1p_act);
    merge(flags.i_dot1p_act, kept.i_dot1p_act, given.i_dot1p_act);
    merge(flags.cos_act, kept.cos_act, given.cos_act);
    merge(flags.dscp_act, kept.dscp_act, given.dscp_act);
    merge(flags.queue_id, kept.queue_id, given.queue_id);
    merge(flags.dsbl_mac_learn, kept.dsbl_mac_learn, as_boolean(given.dsbl_mac_learn));
    merge(flags.dsbl_mac_learn, kept.lrn_limit_act, given.lrn_limit_act);
    merge(flags.egrs_vlan_chk_sel, kept.egrs_vlan_chk_sel, given.egrs_vlan_chk_sel);
    merge(flags.enbl_pkt_mirror, kept.enbl_pkt_mirror, as_boolean(given.enbl_pkt_mirror));
    merge(flags.enbl_pkt_mirror, kept.mirror_port, given.mirror_port);
    merge(flags.enbl_pkt_mirror, kept.mirror_mode, given.mirror_mode);
    kept.valid.mask |= given.valid.mask;
}

/* The two directions, for what they do alike. */
struct Upstream {
    using Key = vx_flow_us_key_t;
    using Flow = vx_flow_us_cfg_t;
    static constexpr unsigned queue_count = GponTm::us_queue_count;
    static auto &table(Device &device) { return device.flow.upstream; }
    static vx_flow_us_cfg_t &cfg(vx_flow_us_cfg_t &flow) { return flow; }
    static vx_port_id_t port(const vx_flow_us_cfg_t &flow) { return flow.port_num; }
    static vx_flow_us_cfg_t make(vx_port_id_t port) {
        vx_flow_us_cfg_t flow{};
        flow.port_num = port;
        flow.map_port = VX_INVALID_PORT_ID;
        flow.map_sub_port = LMQ_INVALID_ID16;
        return flow;
    }
};

struct Downstream {
    using Key = vx_flow_ds_key_t;
    using Flow = Flows::Downstream;
    static constexpr unsigned queue_count = CosQueues::port_queue_count;
    static auto &table(Device &device) { return device.flow.downstream; }
    static vx_flow_ds_cfg_t &cfg(Flows::Downstream &flow) { return flow.cfg; }
    static vx_port_id_t port(const Flows::Downstream &flow) { return flow.port; }
    static Flows::Downstream make(vx_port_id_t port) {
        Flows::Downstream flow{port, {}};
        flow.cfg.map_port = VX_INVALID_PORT_ID;
        return flow;
    }
};

template <class Direction>
Result<typename Direction::Flow &> find(Device &device, vx_flow_id_t id) {
    auto *flow = Direction::table(device).find(id);
    if (flow == nullptr) return VX_ERR_FE_INVALID_FLOW_ID;
    return *flow;
}

/* Refuses a key that another flow of the port has at the same priority. */
template <class Direction>
[[nodiscard]] vx_status_e check_unique(Device &device, vx_port_id_t port, vx_uint8 priority, vx_flow_id_t self,
                                       const typename Direction::Key &key) {
    for (auto &[id, flow] : Direction::table(device)) {
        if (id != self && Direction::port(flow) == port && Direction::cfg(flow).pri == priority &&
            std::memcmp(&Direction::cfg(flow).key, &key, sizeof key) == 0)
            return VX_ERR_FE_ACTION_ON_DUP_FLOW_NOT_SUPPORTED;
    }
    return VX_SUCCESS;
}

template <class Direction>
[[nodiscard]] vx_status_e add(Device &device, vx_port_id_t port, const typename Direction::Key &key,
                              const Action &action, vx_uint8 priority, vx_flow_id_t *id) {
    if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    if (const vx_status_e refused = check(key)) return refused;
    if (const vx_status_e refused = check(action, Direction::queue_count)) return refused;
    if (const vx_status_e refused = check_unique<Direction>(device, port, priority, LMQ_INVALID_FLOW_ID, key))
        return refused;
    auto &table = Direction::table(device);
    if (table.size() >= Flows::max_flows) return VX_ERR_FE_CLS_ENTRY_UNAVAIL;
    const auto given = device.flow.ids.give();
    if (!given) return VX_ERR_FE_CLS_ENTRY_UNAVAIL;

    auto flow = Direction::make(port);
    auto &cfg = Direction::cfg(flow);
    cfg.flow_id = *given;
    cfg.pri = priority;
    cfg.key = key;
    take(cfg.action, action);
    table.insert(*given, flow);
    *id = *given;
    return VX_SUCCESS;
}

template <class Direction>
[[nodiscard]] vx_status_e remove(Device &device, vx_flow_id_t id) {
    if (!Direction::table(device).erase(id)) return VX_ERR_FE_INVALID_FLOW_ID;
    device.flow.ids.take_back(id);
    device.policer.policing.erase(id);
    return VX_SUCCESS;
}

template <class Direction>
[[nodiscard]] vx_status_e modify(Device &device, vx_flow_id_t id, const typename Direction::Key &key,
                                 const Action &action) {
    const auto flow = find<Direction>(device, id);
    if (!flow) return flow.status();
    auto &cfg = Direction::cfg(*flow);
    const bool has_key = key.key_type != VX_CL_KEY_INVALID;
    if (has_key) {
        if (const vx_status_e refused = check(key)) return refused;
        if (const vx_status_e refused = check_unique<Direction>(device, Direction::port(*flow), cfg.pri, id, key))
            return refused;
    }
    if (const vx_status_e refused = check(action, Direction::queue_count)) return refused;
    merge(has_key, cfg.key, key);
    take(cfg.action, action);
    return VX_SUCCESS;
}

template <class Direction, class Cfg>
[[nodiscard]] vx_status_e list(Device &device, vx_port_id_t port, vx_uint16 room, Cfg *cfg, vx_uint16 *count) {
    if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    *count = 0;
    for (auto &[id, flow] : Direction::table(device)) {
        if (*count == room) return VX_SUCCESS;
        if (Direction::port(flow) == port) cfg[(*count)++] = Direction::cfg(flow);
    }
    return VX_SUCCESS;
}

template <class Direction>
[[nodiscard]] vx_status_e get(Device &device, vx_flow_id_t id, typename Direction::Key *key, Action *action) {
    const auto flow = find<Direction>(device, id);
    if (!flow) return flow.status();
    const auto &cfg = Direction::cfg(*flow);
    *key = cfg.key;
    *action = cfg.action;
    return VX_SUCCESS;
}

/* What a mapping does to a fixed queue. */

void map_to_gem(Device &device, Action &action, vx_uint16 gem) {
    const vx_uint16 *queue = device.gpon_tm.us_queue.find(gem);
    if (queue == nullptr) {
        action.queue_id = 0;
        action.valid.mask_s.queue_id = 0;
    } else if (action.valid.mask_s.queue_id) {
        action.queue_id = static_cast<vx_uint8>(*queue);
    }
}

void map_to_llid(Action &action, vx_uint16 llid) {
    if (!action.valid.mask_s.queue_id || action.queue_id / queues_of_llid == llid) return;
    action.queue_id = static_cast<vx_uint8>(llid * queues_of_llid);
}

}  // namespace

extern "C" {

vx_status_e vx_flow_us_add(vx_dev_id_t device_id, vx_port_id_t port_id, vx_flow_us_key_t *p_key,
                           vx_flow_us_action_t *p_action, vx_uint8 priority, vx_flow_id_t *p_flow_id) {
    return on_device(__func__, device_id, {p_key, p_action, p_flow_id}, [&](Device &device) {
        if (priority > LMQ_MAX_US_CL_PRI && priority != LMQ_DEF_US_CL_PRI) return VX_ERR_FE_CLS_INVALID_PRIORITY;
        return add<Upstream>(device, port_id, *p_key, *p_action, priority, p_flow_id);
    });
}

vx_status_e vx_flow_us_delete(vx_dev_id_t dev_id, vx_flow_id_t flow_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) { return remove<Upstream>(device, flow_id); });
}

vx_status_e vx_flow_us_modify(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_us_key_t *p_key,
                              vx_flow_us_action_t *p_action) {
    return on_device(__func__, dev_id, {p_key, p_action},
                     [&](Device &device) { return modify<Upstream>(device, flow_id, *p_key, *p_action); });
}

vx_status_e vx_flow_us_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_us_key_t *p_key,
                           vx_flow_us_action_t *p_action) {
    return on_device(__func__, dev_id, {p_key, p_action},
                     [&](Device &device) { return get<Upstream>(device, flow_id, p_key, p_action); });
}

vx_status_e vx_flow_us_map(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_uint16 sni_port_num, vx_uint16 sni_sub_port) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const Result<vx_flow_us_cfg_t &> flow = find<Upstream>(device, flow_id);
        if (!flow) return flow.status();
        if (is_no_port(sni_port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (sni_port_num != VX_PORT_SNI0 && sni_port_num != VX_PORT_CPU) return VX_ERR_PORT_TYPE_MISMATCH;
        const bool on_sni = sni_port_num == VX_PORT_SNI0;
        if (on_sni && device.config.dev_mode == LMQ_DEV_MODE_GPON) {
            if (const vx_status_e refused = check_gem(sni_sub_port)) return refused;
            map_to_gem(device, flow->action, sni_sub_port);
        } else if (on_sni && device.config.dev_mode == LMQ_DEV_MODE_EPON) {
            if (!is_in_range(sni_sub_port, 0, llid_count - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
            map_to_llid(flow->action, sni_sub_port);
        }
        flow->map_port = sni_port_num;
        flow->map_sub_port = sni_sub_port;
        return VX_SUCCESS;
    });
}

vx_status_e vx_flow_us_all_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 get_cnt, vx_flow_us_cfg_t *p_cfg,
                               vx_uint16 *p_valid_cnt) {
    return on_device(__func__, dev_id, {p_cfg, p_valid_cnt},
                     [&](Device &device) { return list<Upstream>(device, port_id, get_cnt, p_cfg, p_valid_cnt); });
}

vx_status_e vx_flow_ds_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_flow_ds_key_t *p_key,
                           vx_flow_ds_action_t *p_action, vx_uint8 priority, vx_flow_id_t *p_flow_id) {
    return on_device(__func__, dev_id, {p_key, p_action, p_flow_id}, [&](Device &device) {
        return add<Downstream>(device, port_id, *p_key, *p_action, priority, p_flow_id);
    });
}

vx_status_e vx_flow_ds_delete(vx_dev_id_t dev_id, vx_flow_id_t flow_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) { return remove<Downstream>(device, flow_id); });
}

vx_status_e vx_flow_ds_modify(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_ds_key_t *p_key,
                              vx_flow_ds_action_t *p_action) {
    return on_device(__func__, dev_id, {p_key, p_action},
                     [&](Device &device) { return modify<Downstream>(device, flow_id, *p_key, *p_action); });
}

vx_status_e vx_flow_ds_get(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_flow_ds_key_t *p_key,
                           vx_flow_ds_action_t *p_action) {
    return on_device(__func__, dev_id, {p_key, p_action},
                     [&](Device &device) { return get<Downstream>(device, flow_id, p_key, p_action); });
}

vx_status_e vx_flow_ds_map(vx_dev_id_t dev_id, vx_flow_id_t flow_id, vx_port_id_t port_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        const Result<Flows::Downstream &> flow = find<Downstream>(device, flow_id);
        if (!flow) return flow.status();
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        flow->cfg.map_port = port_id;
        return VX_SUCCESS;
    });
}

vx_status_e vx_flow_ds_all_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 get_cnt, vx_flow_ds_cfg_t *p_cfg,
                               vx_uint16 *p_valid_cnt) {
    return on_device(__func__, dev_id, {p_cfg, p_valid_cnt},
                     [&](Device &device) { return list<Downstream>(device, port_id, get_cnt, p_cfg, p_valid_cnt); });
}

}  // extern "C"
