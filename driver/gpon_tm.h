// What a device keeps of GPON traffic management: schedulers, queue maps, traffic descriptors and counters.
//
// T-CONTs and GEM ports are known here by number alone, whether they were enabled or added or not.
#pragma once

#include <array>
#include <bitset>
#include <map>
#include <utility>

#include "driver/gpon.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct GponTm {
    static constexpr vx_uint16 us_queue_count = 32;                    ///< A bit each in a word of que_bitmap.
    static constexpr vx_uint16 ds_queue_count = 8 * LMQ_PORT_ETH_NUM;  ///< Eight for each Ethernet port.
    static constexpr std::size_t gem_port_ids = Gpon::greatest_gem_port + 1;
    static constexpr std::size_t max_descriptors = VX_MAX_GEM_PORTS;

    /// As the hardware comes out of reset: the same number of queues for each T-CONT.
    GponTm();

    Setting<vx_uint16, vx_gpon_tm_tcont_cfg_t> scheduler;                ///< By T-CONT.
    std::array<vx_gpon_tm_pri_q_mapping_t, us_queue_count> queue_map{};  ///< By upstream queue.
    Table<vx_uint16, vx_uint16> us_queue{gem_port_ids};                  ///< By GEM port.
    Table<vx_uint16, vx_uint16> ds_queue{gem_port_ids};                  ///< By GEM port.
    Table<vx_gpon_gem_td_id_t, vx_gpon_gem_traffic_desc_cfg_t> descriptors{max_descriptors};
    std::map<vx_uint16, vx_gpon_gem_rate_limit_cfg_t> rate_limit;  ///< By GEM port.

    /// @name Counters, for whatever moves them
    /// @{

    /// Counts a PLOAM message, if its type is counted. @param down Whether it came from the OLT.
    void count_ploam(bool down, vx_uint8 type) {
        if (!counted.test(type)) return;
        vx_uint32 &count = down ? ploam.rx_ploamd_cnt[type] : ploam.tx_ploamu_cnt[type];
        if (count != ~vx_uint32{0}) ++count;
    }

    /// All begin again at 0. What is counted stays.
    void clear_counters();

    vx_gpon_mac_stats_t mac{};
    vx_gpon_fec_stats_t fec{};
    vx_gpon_ploam_stats_t ploam{};
    std::bitset<256> counted;  ///< PLOAM message types that are counted.
    std::map<vx_uint16, vx_gpon_tcont_stats_t> tcont;
    vx_gpon_gem_port_stats_t omcc{};
    std::map<vx_uint16, vx_gpon_gem_port_stats_t> gem;
    /// @}
};

}  // namespace lmq::sim
