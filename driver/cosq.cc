/**
 * @file
 * @brief The class of service: maps of priority markings, queues, schedulers and shapers.
 *
 * Choices of this family:
 * - The SNI has 32 queues, one for each upstream priority queue; every other port has 8.
 * - A map keeps each marking at first: a class is the upper three bits of a DSCP or traffic class. No marking has a
 *   policer (255) or a GEM port.
 * - A set takes the arrays whose bit is in the mask, and looks at no other. A get fills all and sets all bits.
 * - Values are checked against what the array maps to: 0 to 7 for 802.1p and class, 0 to 63 for DSCP and traffic class.
 *   Policers and GEM ports are not looked up.
 * - A queue starts with weight 1, 256 buffers and no back pressure. Its units are not looked at.
 * - A scheduler starts with strict priority and has at most as many queues with strict priority as the port has queues.
 * - The overhead of a packet starts at 20 bytes: preamble and inter-packet gap of IEEE 802.3.
 */
#include "driver/cosq.h"

#include <iterator>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr vx_uint8 kOverhead = 20;

template <std::size_t n, typename Fill>
void fill(vx_uint8 (&array)[n], Fill value) {
    for (std::size_t i = 0; i < n; ++i) array[i] = static_cast<vx_uint8>(value(i));
}

constexpr auto kSame = [](std::size_t i) { return i; };
constexpr auto kUpperBits = [](std::size_t i) { return i >> 3; };
constexpr auto kNobody = [](std::size_t) { return LMQ_INVALID_ID8; };

vx_qos_cos_map_t initial_cos_map() {
    vx_qos_cos_map_t map{};
    fill(map.cos_to_policer, kNobody);
    return map;
}

vx_qos_dot1p_map_t initial_dot1p_map() {
    vx_qos_dot1p_map_t map{};
    map.mask = vx_qos_dot1p_map_type_t{0x1f};
    fill(map.dot1p_to_dot1p, kSame);
    fill(map.dot1p_to_dscp, [](std::size_t i) { return i << 3; });
    fill(map.dot1p_to_tc, kSame);
    fill(map.dot1p_to_cos, kSame);
    fill(map.dot1p_to_policer, kNobody);
    return map;
}

vx_qos_dscp_map_t initial_dscp_map() {
    vx_qos_dscp_map_t map{};
    map.mask = vx_qos_dscp_map_type_t{0x1f};
    fill(map.dscp_to_dot1p, kUpperBits);
    fill(map.dscp_to_dscp, kSame);
    fill(map.dscp_to_cos, kUpperBits);
    fill(map.dscp_to_policer, kNobody);
    return map;
}

vx_qos_tc_map_t initial_tc_map() {
    vx_qos_tc_map_t map{};
    map.mask = vx_qos_tc_map_type_t{0x1f};
    fill(map.tc_to_dot1p, kUpperBits);
    fill(map.tc_to_tc, kSame);
    fill(map.tc_to_cos, kUpperBits);
    fill(map.tc_to_policer, kNobody);
    return map;
}

vx_queue_cfg_t initial_queue() {
    vx_queue_cfg_t queue{};
    queue.weight = 1;
    queue.max_buff_size = 256;
    queue.valid.mask_s = {1, 1, 1, 1, 1, 1};
    return queue;
}

}  // namespace

CosQueues::CosQueues()
    : cos_map(initial_cos_map()),
      dot1p_map(initial_dot1p_map()),
      dscp_map(initial_dscp_map()),
      tc_map(initial_tc_map()),
      queue(initial_queue()),
      egress_shapers{kOverhead} {}

}  // namespace lmq::sim

using namespace lmq::sim;

namespace {

vx_uint16 queues_of(vx_port_id_t port) { return port == VX_PORT_SNI0 ? GponTm::kUsQueues : CosQueues::kPortQueues; }

/* Takes an array over when its bit is in the mask; a value that is not below `end` refuses all. */
template <std::size_t n>
void take(bool flagged, vx_uint8 (&kept)[n], const vx_uint8 (&given)[n], int end) {
    if (!flagged) return;
    for (vx_uint8 value : given) check_range(value, 0, end - 1);
    merge(flagged, kept, given);
}

constexpr int kAny = 256;  // of an array whose values nothing bounds

void check_mask(int mask) { check_range(mask, 0, 0x1f); }

/* Runs `change` on a copy of what a port has, and keeps it if nothing was refused. */
template <class Cfg, class Change>
void change_port(Setting<vx_port_id_t, Cfg> &setting, vx_port_id_t port, Change change) {
    check_port(port);
    Cfg cfg = setting.get(port);
    change(cfg);
    setting.set(port, cfg);
}

template <class Cfg>
void get_port(const Setting<vx_port_id_t, Cfg> &setting, vx_port_id_t port, Cfg *to) {
    check_port(port);
    *to = setting.get(port);
}

}  // namespace

extern "C" {

vx_status_e vx_cosq_cos_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        change_port(device.cosq.cos_map, port_id, [&](vx_qos_cos_map_t &map) { map = *cfg; });
    });
}

vx_status_e vx_cosq_cos_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_cos_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) { get_port(device.cosq.cos_map, port_id, cfg); });
}

vx_status_e vx_cosq_dscp_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        change_port(device.cosq.dscp_map, port_id, [&](vx_qos_dscp_map_t &map) {
            const int mask = cfg->mask;
            check_mask(mask);
            take(mask & VX_QOS_MASK_DSCP_TO_DOT1P_MAP, map.dscp_to_dot1p, cfg->dscp_to_dot1p, LMQ_MAX_DOT1P);
            take(mask & VX_QOS_MASK_DSCP_TO_DSCP_MAP, map.dscp_to_dscp, cfg->dscp_to_dscp, LMQ_MAX_DSCP);
            take(mask & VX_QOS_MASK_DSCP_TO_COS_MAP, map.dscp_to_cos, cfg->dscp_to_cos, LMQ_MAX_COS);
            take(mask & VX_QOS_MASK_DSCP_TO_POLICER_MAP, map.dscp_to_policer, cfg->dscp_to_policer, kAny);
            merge(mask & VX_QOS_MASK_DSCP_TO_GEMID_MAP, map.dscp_to_gemid, cfg->dscp_to_gemid);
            for (auto &gem : map.dscp_to_gemid) gem.dscp_to_gemid_valid = as_boolean(gem.dscp_to_gemid_valid);
        });
    });
}

vx_status_e vx_cosq_dscp_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dscp_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) { get_port(device.cosq.dscp_map, port_id, cfg); });
}

vx_status_e vx_cosq_tc_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        change_port(device.cosq.tc_map, port_id, [&](vx_qos_tc_map_t &map) {
            const int mask = cfg->mask;
            check_mask(mask);
            take(mask & VX_QOS_MASK_TC_TO_DOT1P_MAP, map.tc_to_dot1p, cfg->tc_to_dot1p, LMQ_MAX_DOT1P);
            take(mask & VX_QOS_MASK_TC_TO_TC_MAP, map.tc_to_tc, cfg->tc_to_tc, LMQ_MAX_TC);
            take(mask & VX_QOS_MASK_TC_TO_COS_MAP, map.tc_to_cos, cfg->tc_to_cos, LMQ_MAX_COS);
            take(mask & VX_QOS_MASK_TC_TO_POLICER_MAP, map.tc_to_policer, cfg->tc_to_policer, kAny);
            merge(mask & VX_QOS_MASK_TC_TO_GEMID_MAP, map.tc_to_gemid, cfg->tc_to_gemid);
            for (auto &gem : map.tc_to_gemid) gem.tc_to_gemid_valid = as_boolean(gem.tc_to_gemid_valid);
        });
    });
}

vx_status_e vx_cosq_tc_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_tc_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) { get_port(device.cosq.tc_map, port_id, cfg); });
}

vx_status_e vx_cosq_dot1p_map_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) {
        change_port(device.cosq.dot1p_map, port_id, [&](vx_qos_dot1p_map_t &map) {
            const int mask = cfg->mask;
            check_mask(mask);
            take(mask & VX_QOS_MASK_DOT1P_TO_DOT1P_MAP, map.dot1p_to_dot1p, cfg->dot1p_to_dot1p, LMQ_MAX_DOT1P);
            take(mask & VX_QOS_MASK_DOT1P_TO_DSCP_MAP, map.dot1p_to_dscp, cfg->dot1p_to_dscp, LMQ_MAX_DSCP);
            take(mask & VX_QOS_MASK_DOT1P_TO_TC_MAP, map.dot1p_to_tc, cfg->dot1p_to_tc, LMQ_MAX_TC);
            take(mask & VX_QOS_MASK_DOT1P_TO_COS_MAP, map.dot1p_to_cos, cfg->dot1p_to_cos, LMQ_MAX_COS);
            take(mask & VX_QOS_MASK_DOT1P_TO_POLICER_MAP, map.dot1p_to_policer, cfg->dot1p_to_policer, kAny);
        });
    });
}

vx_status_e vx_cosq_dot1p_map_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_qos_dot1p_map_t *cfg) {
    return on_device(__func__, dev_id, {cfg}, [&](Device &device) { get_port(device.cosq.dot1p_map, port_id, cfg); });
}

vx_status_e vx_cosq_queue_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        check_port(port_id);
        refuse_if(queue_id >= queues_of(port_id), VX_ERR_TM_INVALID_QUEUE_ID);
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
    });
}

vx_status_e vx_cosq_queue_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 queue_id, vx_queue_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        check_port(port_id);
        refuse_if(queue_id >= queues_of(port_id), VX_ERR_TM_INVALID_QUEUE_ID);
        *p_cfg = device.cosq.queue.get({port_id, queue_id});
    });
}

vx_status_e vx_cosq_sched_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        change_port(device.cosq.scheduler, port_id, [&](vx_sched_cfg_t &scheduler) {
            check_range(p_cfg->sched_mode, VX_UNI_SCHED_SP, VX_UNI_SCHED_SP_DWRR);
            check_range(p_cfg->num_sp_queues, 0, queues_of(port_id));
            scheduler = *p_cfg;
        });
    });
}

vx_status_e vx_cosq_sched_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_sched_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg},
                     [&](Device &device) { get_port(device.cosq.scheduler, port_id, p_cfg); });
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
        check_port(port_id);
        device.cosq.ds_shaper.set(port_id, {as_boolean(enable), *cfg});
    });
}

vx_status_e vx_cosq_ds_shaping_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean *enable,
                                   vx_shaping_rate_cfg_t *cfg) {
    return on_device(__func__, dev_id, {enable, cfg}, [&](Device &device) {
        check_port(port_id);
        const CosQueues::Shaper &shaper = device.cosq.ds_shaper.get(port_id);
        *enable = shaper.enable;
        *cfg = shaper.rate;
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
