// GPON traffic management: schedulers, queue maps, traffic descriptors, rate limits and counters.
//
// Choices of this family:
// - There is one PON, number 0, on port SNI0 of a device in mode GPON; all else is VX_ERR_PORT_TYPE_MISMATCH. T-CONTs
//   are 0 to 7, GEM ports have 12 bits.
// - T-CONTs and GEM ports need not exist for what is set here. A GEM port that is deleted loses it, a T-CONT does
//   not. Counters are those of GEM ports that were added and of T-CONTs that are enabled, and of T-CONT 0, which has
//   the OMCC.
// - There are 32 upstream priority queues, at first four for each T-CONT in order, and 16 downstream.
// - An upstream queue goes to a T-CONT, of which each takes eight, or to a port of the UNI side.
// - A GEM port has no queue at first; queue 0xFFFF takes its queue away.
// - The traffic manager lists T-CONT 0, which carries the OMCC, and the T-CONTs whose scheduler or queues were set.
// - An upstream queue is active while a GEM port is mapped to it.
// - There are 64 traffic descriptors, under ids that the caller chooses. One that limits a GEM port is not deleted:
// the answer is "busy".
// - A descriptor's peak rate must not be below its committed rate, in the modes that have both (RFC 4115, RFC 2698).
// - A direction that is not limited does not look at its descriptor.
// - PLOAM messages are not counted at first. To end counting clears the counts of the types.
// - Nothing waits in a queue.
#include "driver/gpon_tm.h"

#include <algorithm>
#include <iterator>

#include "driver/chip.h"

namespace lmq::sim {

GponTm::GponTm() {
    for (vx_uint16 queue = 0; queue < us_queue_count; ++queue) {
        queue_map[queue].map_id.tcont_id = {0, static_cast<vx_uint16>(queue / (us_queue_count / VX_GPON_MAX_TCONTS))};
    }
}

void GponTm::clear_counters() {
    mac = {};
    fec = {};
    ploam = {};
    omcc = {};
    tcont.clear();
    gem.clear();
}

}  // namespace lmq::sim

using namespace lmq::sim;

namespace {

/* Runs an operation on a device for GPON, as on_device() on any. */
template <typename Body>
vx_status_e on_gpon(const char *function, vx_dev_id_t dev_id, std::initializer_list<const void *> pointers,
                    Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (const vx_status_e refused = check_gpon(device)) return refused;
        return run(body, device);
    });
}

/* The same, on its PON. */
template <typename Body>
vx_status_e on_pon(const char *function, vx_dev_id_t dev_id, vx_uint16 port,
                   std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (const vx_status_e refused = check_pon(device, port)) return refused;
        return run(body, device);
    });
}

/* T-CONT 0 counts what the OMCC sends, whether it was enabled or not. */
[[nodiscard]] vx_status_e check_counted_tcont(Device &device, vx_uint16 tcont) {
    if (const vx_status_e refused = check_tcont(tcont)) return refused;
    if (tcont != 0 && device.gpon.tconts.find(tcont) == nullptr) return VX_ERR_GPON_TCONT_NOT_ENABLED;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e check_queue(vx_uint16 queue, vx_uint16 queues) {
    if (queue >= queues) return VX_ERR_GPON_INVALID_Q_NUMBER;
    return VX_SUCCESS;
}

bool goes_to(const vx_gpon_tm_pri_q_mapping_t &map, vx_uint16 tcont) {
    return map.map_id.tcont_id.pon_id == VX_PORT_SNI0 && map.map_id.tcont_id.tcont_id == tcont;
}

/* T-CONT 0 is the default one, whose Alloc-ID is the ONU-ID (ITU-T G.984.3): the OMCC needs no other. */
bool in_use(const GponTm &tm, vx_uint16 tcont) {
    static const GponTm untouched;
    if (tcont == 0 || tm.scheduler.get(tcont).num_sp_queues != 0 ||
        tm.scheduler.get(tcont).sched_mode != VX_GPON_TM_SCHED_MODE_SP) {
        return true;
    }
    for (std::size_t queue = 0; queue < tm.queue_map.size(); ++queue) {
        if (goes_to(tm.queue_map[queue], tcont) && !goes_to(untouched.queue_map[queue], tcont)) return true;
    }
    return false;
}

[[nodiscard]] vx_status_e check(const vx_gpon_gem_traffic_desc_cfg_t &cfg) {
    if (cfg.pol_mode != VX_WRED_UNDEFINED && cfg.pol_mode != VX_WRED_RFC_4115 && cfg.pol_mode != VX_WRED_RFC_2697 &&
        cfg.pol_mode != VX_WRED_RFC_2698)
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    const bool two_rates = cfg.pol_mode == VX_WRED_RFC_4115 || cfg.pol_mode == VX_WRED_RFC_2698;
    if (two_rates && cfg.pir_rate < cfg.cir_rate) return VX_ERR_TM_PIR_CIR_CHECK_FAIL;
    return VX_SUCCESS;
}

Result<vx_gpon_gem_traffic_desc_cfg_t &> descriptor(Device &device, vx_gpon_gem_td_id_t id) {
    auto *cfg = device.gpon_tm.descriptors.find(id);
    if (cfg == nullptr) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
    return *cfg;
}

[[nodiscard]] vx_status_e map_gem(Table<vx_uint16, vx_uint16> &map, vx_uint16 gem, vx_uint16 queue, vx_uint16 queues) {
    if (const vx_status_e refused = check_gem(gem)) return refused;
    if (queue != LMQ_INVALID_QUEUE_ID && queue >= queues) return VX_ERR_GPON_INVALID_Q_NUMBER;
    map.erase(gem);
    if (queue != LMQ_INVALID_QUEUE_ID) map.insert(gem, queue);
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e get_gem_map(Table<vx_uint16, vx_uint16> &map, vx_uint16 gem, vx_gpon_tm_gem_mapping_t *to) {
    if (const vx_status_e refused = check_gem(gem)) return refused;
    const vx_uint16 *queue = map.find(gem);
    if (queue == nullptr) return VX_ERR_GPON_GEM_NOT_MAPPED_TO_PRIQ;
    to->pri_q_id = *queue;
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e count_types(GponTm &tm, bool count, vx_boolean all, vx_uint8 types, const vx_uint8 *list) {
    if (!all && list == nullptr) return VX_ERR_DEV_NULL_PTR;
    for (std::size_t type = 0; type < tm.counted.size(); ++type) {
        if (!all && std::find(list, list + types, type) == list + types) continue;
        tm.counted.set(type, count);
        if (!count) tm.ploam.rx_ploamd_cnt[type] = tm.ploam.tx_ploamu_cnt[type] = 0;
    }
    return VX_SUCCESS;
}

}  // namespace

extern "C" {

vx_status_e vx_gpon_onu_tm_info_get(vx_dev_id_t dev_id, vx_gpon_tm_info_t *p_info) {
    return on_gpon(__func__, dev_id, {p_info}, [&](Device &) {
        p_info->tm_options = VX_TM_OPTION_ALL;
        p_info->num_tcont = VX_GPON_MAX_TCONTS;
        p_info->num_sched = VX_GPON_MAX_TCONTS;
        p_info->num_us_pri_q = GponTm::us_queue_count;
        p_info->num_ds_pri_q = GponTm::ds_queue_count;
    });
}

vx_status_e vx_gpon_onu_tcont_tm_info_get(vx_dev_id_t dev_id, vx_uint16 get_cnt, vx_gpon_tm_tcont_info_t *p_info,
                                          vx_uint16 *p_valid_cnt) {
    return on_gpon(__func__, dev_id, {p_info, p_valid_cnt}, [&](Device &device) {
        *p_valid_cnt = 0;
        for (vx_uint16 tcont = 0; tcont < VX_GPON_MAX_TCONTS && *p_valid_cnt < get_cnt; ++tcont) {
            if (!in_use(device.gpon_tm, tcont)) continue;
            p_info[(*p_valid_cnt)++] = {tcont, static_cast<vx_boolean>(tcont == 0 ? TRUE : FALSE)};
        }
    });
}

vx_status_e vx_gpon_onu_tcont_sched_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id,
                                        vx_gpon_tm_tcont_cfg_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_tcont(tcont_id)) return refused;
        if (!is_in_range(p_cfg->sched_mode, VX_GPON_TM_SCHED_MODE_SP, VX_GPON_TM_SCHED_MODE_SP_WRR) ||
            !is_in_range(p_cfg->num_sp_queues, 0, VX_MAX_NUM_TCONT_QUEUE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        device.gpon_tm.scheduler.set(tcont_id, *p_cfg);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_tcont_sched_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 tcont_id,
                                        vx_gpon_tm_tcont_cfg_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_tcont(tcont_id)) return refused;
        *p_cfg = device.gpon_tm.scheduler.get(tcont_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_tcont_queue_map_set(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg) {
    return on_gpon(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_queue(queue_id, GponTm::us_queue_count)) return refused;
        auto &map = device.gpon_tm.queue_map;
        if (p_cfg->map_id.uni_port < VX_PORT_ETH0) {
            const vx_uint16 tcont = p_cfg->map_id.tcont_id.tcont_id;
            if (const vx_status_e refused = check_pon(device, p_cfg->map_id.tcont_id.pon_id)) return refused;
            if (const vx_status_e refused = check_tcont(tcont)) return refused;
            const auto queues = std::count_if(
                map.begin(), map.end(), [&](auto &other) { return &other != &map[queue_id] && goes_to(other, tcont); });
            if (queues >= VX_MAX_NUM_TCONT_QUEUE) return VX_ERR_TM_QUEUE_UNAVAIL;
        } else {
            if (p_cfg->map_id.uni_port > VX_PORT_VOIP0) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        }
        map[queue_id] = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_tcont_queue_map_get(vx_dev_id_t dev_id, vx_uint16 queue_id, vx_gpon_tm_pri_q_mapping_t *p_cfg) {
    return on_gpon(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_queue(queue_id, GponTm::us_queue_count)) return refused;
        *p_cfg = device.gpon_tm.queue_map[queue_id];
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_us_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg}, [&](Device &device) {
        return map_gem(device.gpon_tm.us_queue, gem_port_id, p_cfg->pri_q_id, GponTm::us_queue_count);
    });
}

vx_status_e vx_gpon_onu_gem_us_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg},
                  [&](Device &device) { return get_gem_map(device.gpon_tm.us_queue, gem_port_id, p_cfg); });
}

vx_status_e vx_gpon_onu_gem_ds_queue_map_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg}, [&](Device &device) {
        return map_gem(device.gpon_tm.ds_queue, gem_port_id, p_cfg->pri_q_id, GponTm::ds_queue_count);
    });
}

vx_status_e vx_gpon_onu_gem_ds_queue_map_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                             vx_gpon_tm_gem_mapping_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg},
                  [&](Device &device) { return get_gem_map(device.gpon_tm.ds_queue, gem_port_id, p_cfg); });
}

vx_status_e vx_gpon_onu_gem_traffic_desc_create(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                                vx_gpon_gem_traffic_desc_cfg_t *p_cfg) {
    return on_gpon(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (gem_td_id == LMQ_INVALID_ID32) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (const vx_status_e refused = check(*p_cfg)) return refused;
        const Insert inserted = device.gpon_tm.descriptors.insert(gem_td_id, *p_cfg);
        if (inserted == Insert::exists) return VX_ERR_GLBL_ENTRY_EXIST;
        if (inserted == Insert::full) return VX_ERR_TM_PROFILE_UNAVAIL;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_traffic_desc_delete(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id) {
    return on_gpon(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = descriptor(device, gem_td_id).status()) return refused;
        for (const auto &[gem, limit] : device.gpon_tm.rate_limit) {
            if ((limit.enbl_us_rate_limit && limit.us_gem_td_id == gem_td_id) ||
                (limit.enbl_ds_rate_limit && limit.ds_gem_td_id == gem_td_id))
                return VX_ERR_DEV_BUSY;
        }
        device.gpon_tm.descriptors.erase(gem_td_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_traffic_desc_set(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                             vx_gpon_gem_traffic_desc_cfg_t *p_cfg) {
    return on_gpon(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto kept = descriptor(device, gem_td_id);
        if (!kept) return kept.status();
        if (const vx_status_e refused = check(*p_cfg)) return refused;
        *kept = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_traffic_desc_get(vx_dev_id_t dev_id, vx_gpon_gem_td_id_t gem_td_id,
                                             vx_gpon_gem_traffic_desc_cfg_t *p_cfg) {
    return on_gpon(__func__, dev_id, {p_cfg},
                   [&](Device &device) { return copy(descriptor(device, gem_td_id), p_cfg); });
}

vx_status_e vx_gpon_onu_gem_rate_limit_set(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                           vx_gpon_gem_rate_limit_cfg_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_gem(gem_port_id)) return refused;
        const auto is_known = [&](vx_gpon_gem_td_id_t id) { return device.gpon_tm.descriptors.find(id) != nullptr; };
        if (p_cfg->enbl_us_rate_limit && !is_known(p_cfg->us_gem_td_id)) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        if (p_cfg->enbl_ds_rate_limit && !is_known(p_cfg->ds_gem_td_id)) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        vx_gpon_gem_rate_limit_cfg_t &kept = device.gpon_tm.rate_limit[gem_port_id];
        kept = *p_cfg;
        kept.enbl_us_rate_limit = as_boolean(p_cfg->enbl_us_rate_limit);
        kept.enbl_ds_rate_limit = as_boolean(p_cfg->enbl_ds_rate_limit);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_rate_limit_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                           vx_gpon_gem_rate_limit_cfg_t *p_cfg) {
    return on_pon(__func__, dev_id, pon_id, {p_cfg}, [&](Device &device) {
        if (const vx_status_e refused = check_gem(gem_port_id)) return refused;
        const auto limit = device.gpon_tm.rate_limit.find(gem_port_id);
        *p_cfg = limit == device.gpon_tm.rate_limit.end() ? vx_gpon_gem_rate_limit_cfg_t{} : limit->second;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_us_queue_status_get(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 us_pri_q,
                                            vx_boolean *p_active) {
    return on_pon(__func__, dev_id, pon_id, {p_active}, [&](Device &device) {
        if (const vx_status_e refused = check_queue(us_pri_q, GponTm::us_queue_count)) return refused;
        *p_active = FALSE;
        for (const auto &[gem, queue] : device.gpon_tm.us_queue) {
            if (queue == us_pri_q) *p_active = TRUE;
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_mac_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_mac_stats_t *p_stat) {
    return on_pon(__func__, dev_id, port_id, {p_stat}, [&](Device &device) { *p_stat = device.gpon_tm.mac; });
}

vx_status_e vx_gpon_onu_mac_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) { device.gpon_tm.mac = {}; });
}

vx_status_e vx_gpon_onu_fec_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_fec_stats_t *p_stat,
                                      vx_boolean clear) {
    return on_pon(__func__, dev_id, port_id, {p_stat},
                  [&](Device &device) { read_counters(device.gpon_tm.fec, p_stat, clear != FALSE); });
}

vx_status_e vx_gpon_onu_fec_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) { device.gpon_tm.fec = {}; });
}

vx_status_e lmq_enable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types,
                                        vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) {
        return count_types(device.gpon_tm, true, all_msg_types, msg_type_cnt, p_msg_list);
    });
}

vx_status_e lmq_disable_gpon_ploam_stats(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean all_msg_types,
                                         vx_uint8 msg_type_cnt, vx_uint8 *p_msg_list) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) {
        return count_types(device.gpon_tm, false, all_msg_types, msg_type_cnt, p_msg_list);
    });
}

vx_status_e vx_gpon_onu_ploam_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_ploam_stats_t *p_stats,
                                        vx_boolean clear) {
    return on_pon(__func__, dev_id, port_id, {p_stats},
                  [&](Device &device) { read_counters(device.gpon_tm.ploam, p_stats, clear != FALSE); });
}

vx_status_e vx_gpon_onu_ploam_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) { device.gpon_tm.ploam = {}; });
}

vx_status_e vx_gpon_onu_tcont_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                        vx_gpon_tcont_stats_t *p_stats, vx_boolean clear) {
    return on_pon(__func__, dev_id, port_id, {p_stats}, [&](Device &device) {
        if (const vx_status_e refused = check_counted_tcont(device, tcont_id)) return refused;
        read_counters(device.gpon_tm.tcont[tcont_id], p_stats, clear != FALSE);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_tcont_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_counted_tcont(device, tcont_id)) return refused;
        device.gpon_tm.tcont.erase(tcont_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_omcc_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_gem_port_stats_t *p_stats,
                                       vx_boolean clear) {
    return on_pon(__func__, dev_id, port_id, {p_stats},
                  [&](Device &device) { read_counters(device.gpon_tm.omcc, p_stats, clear != FALSE); });
}

vx_status_e vx_gpon_onu_omcc_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) { device.gpon_tm.omcc = {}; });
}

vx_status_e vx_gpon_onu_gem_stats_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id,
                                      vx_gpon_gem_port_stats_t *p_stats, vx_boolean clear) {
    return on_pon(__func__, dev_id, port_id, {p_stats}, [&](Device &device) {
        if (const vx_status_e refused = gem_port(device.gpon, gem_id).status()) return refused;
        read_counters(device.gpon_tm.gem[gem_id], p_stats, clear != FALSE);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_stats_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_id) {
    return on_pon(__func__, dev_id, port_id, {}, [&](Device &device) {
        if (const vx_status_e refused = gem_port(device.gpon, gem_id).status()) return refused;
        device.gpon_tm.gem.erase(gem_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_tcont_queue_status_get(vx_dev_id_t device_id, vx_port_id_t port_id,
                                               lmq_tcont_queue_status_s *p_status) {
    return on_pon(__func__, device_id, port_id, {p_status}, [&](Device &device) {
        *p_status = {};
        p_status->tcont_sched_status = TRUE;
        for (vx_uint16 tcont = 0; tcont < VX_GPON_MAX_TCONTS; ++tcont) {
            if (in_use(device.gpon_tm, tcont)) {
                p_status->tcont_bitmap = static_cast<vx_uint16>(p_status->tcont_bitmap | 1U << tcont);
            }
            for (vx_uint16 queue = 0; queue < GponTm::us_queue_count; ++queue) {
                if (goes_to(device.gpon_tm.queue_map[queue], tcont)) {
                    p_status->que_bitmap[tcont] |= vx_uint32{1} << queue;
                }
            }
        }
        for (lmq_tcont_queue_info &queue : p_status->que_status) queue.dwrr_ratio = 1;
    });
}

}  // extern "C"
