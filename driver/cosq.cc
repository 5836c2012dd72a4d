// The class of service: maps of priority markings, queues, schedulers and shapers.
//
// Choices of this family:
// - The SNI has 32 queues, one for each upstream priority queue; every other port has 8.
// - A map keeps each marking at first: a class is the upper three bits of a DSCP or traffic class. No marking has a
//   policer (255) or a GEM port.
// - A set takes the arrays whose bit is in the mask, and looks at no other. A get fills all and sets all bits.
// - Values are checked against what the array maps to: 0 to 7 for 802.1p and class, 0 to 63 for DSCP and traffic
//   class. Policers and GEM ports are not looked up.
// - A queue starts with weight 1, 256 buffers and no back pressure. Its units are not looked at.
// - A scheduler starts with strict priority and has at most as many queues with strict priority as the port has
//   queues.
// - The overhead of a packet starts at 20 bytes: preamble and inter-packet gap of IEEE 802.3.
#include "driver/cosq.h"

#include <algorithm>
#include <iterator>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr vx_uint8 frame_overhead = 20;

template <std::size_t n, typename Fill>
void fill(vx_uint8 (&array)[n], Fill value) {
    for (std::size_t i = 0; i < n; ++i) array[i] = static_cast<vx_uint8>(value(i));
}

constexpr auto same_index = [](std::size_t i) { return i; };
constexpr auto upper_bits = [](std::size_t i) { return i >> 3; };
constexpr auto no_scheduler = [](std::size_t) { return LMQ_INVALID_ID8; };

vx_qos_cos_map_t initial_cos_map() {
    vx_qos_cos_map_t map{};
    fill(map.cos_to_policer, no_scheduler);
    return map;
}

vx_qos_dot1p_map_t initial_dot1p_map() {
    vx_qos_dot1p_map_t map{};
    map.mask = vx_qos_dot1p_map_type_t{0x1f};
    fill(map.dot1p_to_dot1p, same_index);
    fill(map.dot1p_to_dscp, [](std::size_t i) { return i << 3; });
    fill(map.dot1p_to_tc, same_index);
    fill(map.dot1p_to_cos, same_index);
    fill(map.dot1p_to_policer, no_scheduler);
    return map;
}

vx_qos_dscp_map_t initial_dscp_map() {
    vx_qos_dscp_map_t map{};
    map.mask = vx_qos_dscp_map_type_t{0x1f};
    fill(map.dscp_to_dot1p, upper_bits);
    fill(map.dscp_to_dscp, same_index);
    fill(map.dscp_to_cos, upper_bits);
    fill(map.dscp_to_policer, no_scheduler);
    return map;
}

vx_qos_tc_map_t initial_tc_map() {
    vx_qos_tc_map_t map{};
    map.mask = vx_qos_tc_map_type_t{0x1f};
    fill(map.tc_to_dot1p, upper_bits);
    fill(map.tc_to_tc, same_index);
    fill(map.tc_to_cos, upper_bits);
    fill(map.tc_to_policer, no_scheduler);
    return map;
}

vx_queue_cfg_t initial_queue() {
    vx_queue_cfg_t queue{};
    queue.weight = 1;
    queue.max_buff_size = 256;
    queue.valid.mask_s = {1, 1, 1, 1, 1, 1};
    clear_beside_flags(queue.valid, 6);
    return queue;
}

}  // namespace

CosQueues::CosQueues()
    : cos_map(initial_cos_map()),
      dot1p_map(initial_dot1p_map()),
      dscp_map(initial_dscp_map()),
      tc_map(initial_tc_map()),
      queue(initial_queue()),
      egress_shapers{frame_overhead} {}

}  // namespace lmq::sim

using namespace lmq::sim;

namespace {

vx_uint16 queues_of(vx_port_id_t port) {
    return port == VX_PORT_SNI0 ? GponTm::us_queue_count : CosQueues::port_queue_count;
}

/* The bits of a mask that has one for each of its arrays. */
constexpr int all_maps = 0x1f;

/* Takes an array over when its bit is in the mask. @return Whether its values are below `end`. */
template <std::size_t n>
bool take(bool flagged, vx_uint8 (&kept)[n], const vx_uint8 (&given)[n], int end) {
    const auto fits = [&](vx_uint8 value) { return value < end; };
    if (flagged && !std::all_of(std::begin(given), std::end(given), fits)) return false;
    merge(flagged, kept, given);
    return true;
}

/* The get of what each port has. */
template <class Cfg>
vx_status_e get(const char *function, vx_dev_id_t dev_id, vx_port_id_t port, Cfg *to,
                Setting<vx_port_id_t, Cfg> CosQueues::*setting) noexcept {
    return on_device(function, dev_id, {to}, [&](Device &device) {
        if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        *to = (device.cosq.*setting).get(port);
        return VX_SUCCESS;
    });
}

/* The set of what each port has: `change(kept)` changes a copy, which is kept if nothing was refused. */
template <class Cfg, class Change>
vx_status_e set(const char *function, vx_dev_id_t dev_id, vx_port_id_t port, const Cfg *from,
                Setting<vx_port_id_t, Cfg> CosQueues::*setting, Change change) noexcept {
    return on_device(function, dev_id, {from}, [&](Device &device) {
        if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        Cfg cfg = (device.cosq.*setting).get(port);
        if (const vx_status_e refused = run(change, cfg)) return refused;
        (device.cosq.*setting).set(port, cfg);
        return VX_SUCCESS;
    });
}

}  // namespace

extern "C" {

vx_status_e vx_cosq_cos_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg) {
    return set(__func__, dev_id, port_id, cfg, &CosQueues::cos_map, [&](vx_qos_cos_map_t &map) { map = *cfg; });
}

vx_status_e vx_cosq_cos_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg) {
    return get(__func__, dev_id, port_id, cfg, &CosQueues::cos_map);
}

vx_status_e vx_cosq_dscp_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg) {
    return set(__func__, dev_id, port_id, cfg, &CosQueues::dscp_map, [&](vx_qos_dscp_map_t &map) {
        const int mask = cfg->mask;
        const bool taken =
            is_in_range(mask, 0, all_maps) &&
            take(mask & VX_QOS_MASK_DSCP_TO_DOT1P_MAP, map.dscp_to_dot1p, cfg->dscp_to_dot1p, LMQ_MAX_DOT1P) &&
            take(mask & VX_QOS_MASK_DSCP_TO_DSCP_MAP, map.dscp_to_dscp, cfg->dscp_to_dscp, LMQ_MAX_DSCP) &&
            take(mask & VX_QOS_MASK_DSCP_TO_COS_MAP, map.dscp_to_cos, cfg->dscp_to_cos, LMQ_MAX_COS);
        if (!taken) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        merge(mask & VX_QOS_MASK_DSCP_TO_POLICER_MAP, map.dscp_to_policer, cfg->dscp_to_policer);
        merge(mask & VX_QOS_MASK_DSCP_TO_GEMID_MAP, map.dscp_to_gemid, cfg->dscp_to_gemid);
        for (auto &gem : map.dscp_to_gemid) gem.dscp_to_gemid_valid = as_boolean(gem.dscp_to_gemid_valid);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_dscp_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg) {
    return get(__func__, dev_id, port_id, cfg, &CosQueues::dscp_map);
}

vx_status_e vx_cosq_tc_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg) {
    return set(__func__, dev_id, port_id, cfg, &CosQueues::tc_map, [&](vx_qos_tc_map_t &map) {
        const int mask = cfg->mask;
        const bool taken = is_in_range(mask, 0, all_maps) &&
                           take(mask & VX_QOS_MASK_TC_TO_DOT1P_MAP, map.tc_to_dot1p, cfg->tc_to_dot1p, LMQ_MAX_DOT1P) &&
                           take(mask & VX_QOS_MASK_TC_TO_TC_MAP, map.tc_to_tc, cfg->tc_to_tc, LMQ_MAX_TC) &&
                           take(mask & VX_QOS_MASK_TC_TO_COS_MAP, map.tc_to_cos, cfg->tc_to_cos, LMQ_MAX_COS);
        if (!taken) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        merge(mask & VX_QOS_MASK_TC_TO_POLICER_MAP, map.tc_to_policer, cfg->tc_to_policer);
        merge(mask & VX_QOS_MASK_TC_TO_GEMID_MAP, map.tc_to_gemid, cfg->tc_to_gemid);
        for (auto &gem : map.tc_to_gemid) gem.tc_to_gemid_valid = as_boolean(gem.tc_to_gemid_valid);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_tc_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg) {
    return get(__func__, dev_id, port_id, cfg, &CosQueues::tc_map);
}

vx_status_e vx_cosq_dot1p_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg) {
    return set(__func__, dev_id, port_id, cfg, &CosQueues::dot1p_map, [&](vx_qos_dot1p_map_t &map) {
        const int mask = cfg->mask;
        const bool taken =
            is_in_range(mask, 0, all_maps) &&
            take(mask & VX_QOS_MASK_DOT1P_TO_DOT1P_MAP, map.dot1p_to_dot1p, cfg->dot1p_to_dot1p, LMQ_MAX_DOT1P) &&
            take(mask & VX_QOS_MASK_DOT1P_TO_DSCP_MAP, map.dot1p_to_dscp, cfg->dot1p_to_dscp, LMQ_MAX_DSCP) &&
            take(mask & VX_QOS_MASK_DOT1P_TO_TC_MAP, map.dot1p_to_tc, cfg->dot1p_to_tc, LMQ_MAX_TC) &&
            take(mask & VX_QOS_MASK_DOT1P_TO_COS_MAP, map.dot1p_to_cos, cfg->dot1p_to_cos, LMQ_MAX_COS);
        if (!taken) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        merge(mask & VX_QOS_MASK_DOT1P_TO_POLICER_MAP, map.dot1p_to_policer, cfg->dot1p_to_policer);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_dot1p_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg) {
    return get(__func__, dev_id, port_id, cfg, &CosQueues::dot1p_map);
}

vx_status_e vx_cosq_queue_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (queue_id >= queues_of(port_id)) return VX_ERR_TM_INVALID_QUEUE_ID;
        vx_queue_cfg_t queue = device.cosq.queue.get({port_id, queue_id});
        const auto &flags = p_cfg->valid.mask_s;
        const vx_uint32 enable = as_boolean(p_cfg->enbl_back_press);
        merge(flags.weight, queue.weight, p_cfg->weight);
        merge(flags.max_buff_size, queue.max_buff_size, p_cfg->max_buff_size);
        merge(flags.enbl_back_press, queue.enbl_back_press, enable);
        merge(flags.back_press_set_thresh, queue.back_press_set_thresh, p_cfg->back_press_set_thresh);
        merge(flags.back_press_clr_thresh, queue.back_press_clr_thresh, p_cfg->back_press_clr_thresh);
        merge(flags.back_press_time, queue.back_press_time, p_cfg->back_press_time);
        device.cosq.queue.set({port_id, queue_id}, queue);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_queue_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (queue_id >= queues_of(port_id)) return VX_ERR_TM_INVALID_QUEUE_ID;
        *p_cfg = device.cosq.queue.get({port_id, queue_id});
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_sched_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg) {
    return set(__func__, dev_id, port_id, p_cfg, &CosQueues::scheduler, [&](vx_sched_cfg_t &scheduler) {
        if (!is_in_range(p_cfg->sched_mode, VX_UNI_SCHED_SP, VX_UNI_SCHED_SP_DWRR) ||
            !is_in_range(p_cfg->num_sp_queues, 0, queues_of(port_id)))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        scheduler = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_sched_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg) {
    return get(__func__, dev_id, port_id, p_cfg, &CosQueues::scheduler);
}

vx_status_e lmq_set_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { device.cosq.egress_shapers = *p_cfg; });
}

vx_status_e lmq_get_global_egress_shaper_config(vx_dev_id_t dev_id, lmq_global_egrs_shaper_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.cosq.egress_shapers; });
}

vx_status_e vx_cosq_ds_shaping_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable,
                                   vx_shaping_rate_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        device.cosq.ds_shaper.set(port_id, {as_boolean(enable), *cfg});
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_ds_shaping_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enable,
                                   vx_shaping_rate_cfg_t *cfg) {
    return on_device(__func__, dev_id, {enable, cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const CosQueues::Shaper &shaper = device.cosq.ds_shaper.get(port_id);
        *enable = shaper.enable;
        *cfg = shaper.rate;
        return VX_SUCCESS;
    });
}

vx_status_e vx_cosq_mirror_pkt_shaping_set(vx_dev_id_t dev_id, vx_boolean enable, vx_shaping_rate_cfg_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        device.cosq.mirror_shaper = {as_boolean(enable), *cfg};
    });
}

vx_status_e vx_cosq_mirror_pkt_shaping_get(vx_dev_id_t dev_id, vx_boolean *enable, vx_shaping_rate_cfg_t *cfg) {
    return on_device(__func__, dev_id, {enable, cfg}, [&](Device &device) {
        *enable = device.cosq.mirror_shaper.enable;
        *cfg = device.cosq.mirror_shaper.rate;
    });
}

}  // extern "C"
