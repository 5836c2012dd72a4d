/**
 * @file
 * @brief The traffic model, off unless LMQ_SIM_TRAFFIC is set.
 *
 * Choices:
 * - The sources are each Ethernet port with a link in each direction that is enabled, and, while the ONU operates, each
 *   GEM port in each of its directions. A GEM port in loopback has no traffic.
 * - The counters move at a call that is 100 ms or more behind the last such call. Each source then has its average of
 *   packets, give or take a quarter.
 * - A packet in 25 is a broadcast, one in 16 a multicast. Sizes are spread over the counters of sizes, a third of them
 *   64 bytes. Errors are few: a wrong check sequence in 100000 packets.
 * - What a policer limits, it drops one packet in a hundred of, whatever its rate. Flows that are policed see as much
 *   traffic as a source each.
 * - In operation a frame comes every 125 us, with 152 code words unless FEC is bypassed. The OMCC has two messages in a
 *   second, in each direction, on T-CONT 0.
 */
#include "driver/traffic.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using namespace std::chrono_literals;

constexpr Clock::Time kStep = 100ms;
constexpr std::uint64_t kGreatestRate = 1000000;
constexpr std::uint64_t kUsualRate = 1000;
constexpr std::uint64_t kFramesPerMs = 8;
constexpr std::uint64_t kCodeWordsPerFrame = 152;

/* Counts on, up to the greatest number of the counter, so that an overflow shows. */
template <typename T>
void add(T &counter, std::uint64_t n) {
    counter = n > std::numeric_limits<T>::max() - counter ? std::numeric_limits<T>::max() : static_cast<T>(counter + n);
}

/* What packets of a size are counted as, in order; the last one takes the rest. */
struct Size {
    vx_uint64 vx_eth_port_stats_t::*rx;
    vx_uint64 vx_eth_port_stats_t::*tx;
    std::uint64_t greatest;
    std::uint64_t usual;
    unsigned percent;
};

using Stats = vx_eth_port_stats_t;
constexpr Size kSizes[] = {
    {&Stats::rx_64_byte_pkt, &Stats::tx_64_byte_pkt, 64, 64, 33},
    {&Stats::rx_65_127_byte_pkt, &Stats::tx_65_127_byte_pkt, 127, 96, 15},
    {&Stats::rx_128_255_byte_pkt, &Stats::tx_128_255_byte_pkt, 255, 192, 8},
    {&Stats::rx_256_511_byte_pkt, &Stats::tx_256_511_byte_pkt, 511, 384, 7},
    {&Stats::rx_512_1023_byte_pkt, &Stats::tx_512_1023_byte_pkt, 1023, 768, 9},
    {&Stats::rx_1024_1518_byte_pkt, &Stats::tx_1024_1518_byte_pkt, 1518, 1400, 28},
    {&Stats::rx_1519_max_byte_pkt, &Stats::tx_1519_max_byte_pkt, UINT64_MAX, 1600, 0},
};

/* One draw of the packets that a source has in a time. */
std::uint64_t draw(Traffic &traffic, Clock::Time elapsed) {
    constexpr std::uint64_t parts = 1000 * 1000;
    const auto ms = static_cast<std::uint64_t>(std::min<Clock::Time>(elapsed, 24h).count());
    const std::uint64_t sum = ms * traffic.plan->packets_per_second * (750 + traffic.random() % 501) + traffic.rest;
    traffic.rest = sum % parts;
    return sum / parts;
}

void count_ethernet(Stats &stats, bool rx, std::uint64_t packets) {
    const std::uint64_t broadcasts = packets / 25, multicasts = packets / 16;
    std::uint64_t rest = packets, bytes = 0;
    for (const Size &size : kSizes) {
        const std::uint64_t n = size.rx == &Stats::rx_1024_1518_byte_pkt ? rest : packets * size.percent / 100;
        add(stats.*(rx ? size.rx : size.tx), std::min(n, rest));
        rest -= std::min(n, rest);
        bytes += n * size.usual;
    }
    add(rx ? stats.rx_bc_pkt : stats.tx_bc_pkt, broadcasts);
    add(rx ? stats.rx_mc_pkt : stats.tx_mc_pkt, multicasts);
    add(rx ? stats.rx_uc_pkt : stats.tx_uc_pkt, packets - broadcasts - multicasts);
    add(rx ? stats.rx_bytes : stats.tx_bytes, bytes);
    add(rx ? stats.rx_pkts : stats.tx_pkts, packets);
}

/* Packets that a policer drops. */
std::uint64_t drops(const vx_rate_limit_cfg_t &limit, std::uint64_t packets) {
    return limit.pol_type == VX_RATE_LIMIT_DISABLE ? 0 : packets / 100;
}

/* A side of the buffer manager: what came in is queued, and what was queued is sent. */
void count_buffers(vx_uint32 &rx, vx_uint32 &tx, vx_uint32 &queued, vx_uint32 &taken, std::uint64_t in,
                   std::uint64_t out) {
    add(rx, in);
    add(queued, in);
    add(taken, out);
    add(tx, out);
}

/* @return Packets that the Ethernet ports have sent and received. */
std::pair<std::uint64_t, std::uint64_t> pass_ethernet(Device &device, Traffic &traffic, Clock::Time elapsed) {
    std::uint64_t sent = 0, received = 0;
    for (vx_port_id_t port_id = VX_PORT_ETH0; port_id < VX_PORT_ETH0 + LMQ_PORT_ETH_NUM; ++port_id) {
        EthPort &port = eth_port(device, port_id);
        if (link_of(port).link_status != VX_LINK_UP) continue;
        if (port.config.tx_enable) {
            const std::uint64_t n = draw(traffic, elapsed);
            count_ethernet(port.stats, false, n);
            sent += n;
        }
        if (!port.config.rx_enable) continue;
        const std::uint64_t n = draw(traffic, elapsed);
        count_ethernet(port.stats, true, n);
        if (traffic.random() % 100000 < n) add(port.stats.rx_crc_frm, 1);
        received += n;

        const std::uint64_t dropped = drops(device.policer.source_port.get(port_id), n);
        vx_pol_src_port_stat_t &policer = device.policer.source_port_counters[port_id];
        add(policer.fwd_pkt, n - dropped);
        add(policer.pir_drop_pkt, dropped);
        add(policer.mc_fwd, n / 16);
        add(policer.bc_fwd, n / 25);
    }
    return {sent, received};
}

/* @return Packets that the GEM ports have sent and received. */
std::pair<std::uint64_t, std::uint64_t> pass_pon(Device &device, Traffic &traffic, Clock::Time elapsed) {
    GponTm &tm = device.gpon_tm;
    std::uint64_t sent = 0, received = 0;
    if (device.gpon.port.state != VX_GPON_STATE_OPERATION) return {0, 0};

    const std::uint64_t frames = kFramesPerMs * static_cast<std::uint64_t>(elapsed.count());
    add(tm.mac.ds_gpon_frm_cnt, frames);
    if (!device.gpon.port.cfg.fec_bypass_enbl) {
        const std::uint64_t words = frames * kCodeWordsPerFrame, corrected = traffic.random() % (1 + words / 10000);
        add(tm.fec.rx_blk_cnt, words);
        add(tm.fec.corr_blk_cnt, corrected);
        add(tm.fec.no_err_blk_cnt, words - corrected);
        add(tm.fec.tot_corr_byte_cnt, 2 * corrected);
    }

    for (const auto &[id, gem] : device.gpon.gem_ports) {
        if (gem.loopback) continue;
        vx_gpon_gem_port_stats_t &stats = tm.gem[id];
        if (gem.cfg.direction & LMQ_DIR_US) {
            const std::uint64_t n = draw(traffic, elapsed);
            add(stats.us_pkt_cnt, n);
            add(tm.tcont[gem.cfg.tcont_id].us_pkt_cnt, n);
            sent += n;
        }
        if (gem.cfg.direction & LMQ_DIR_DS) {
            const std::uint64_t n = draw(traffic, elapsed);
            add(stats.ds_pkt_cnt, n);
            add(stats.ds_blk_cnt, n + n / 4);
            received += n;
        }
    }

    // Whole messages, of all the time that the clock has run.
    const auto messages =
        static_cast<std::uint64_t>(traffic.counted_to / 500ms - (traffic.counted_to - elapsed) / 500ms);
    add(tm.omcc.us_pkt_cnt, messages);
    add(tm.omcc.ds_pkt_cnt, messages);
    add(tm.omcc.ds_blk_cnt, messages);
    add(tm.tcont[0].us_pkt_cnt, messages);
    return {sent, received};
}

void pass_policers(Device &device, Traffic &traffic, Clock::Time elapsed) {
    Policers &policers = device.policer;
    for (const auto &[flow, policing] : policers.policing) {
        if (policing.flow_pol_sel != VX_FLOW_POL_SEL_FLOW_POL) continue;
        const auto found = policers.flow_policers.find(policing.flw_pol_id);
        if (found == policers.flow_policers.end()) continue;
        Policers::FlowPolicer &policer = found->second;
        const std::uint64_t n = draw(traffic, elapsed), dropped = drops(policer.limit, n);
        add(policer.counters.fwd_pkt, n - dropped);
        add(policer.counters.pir_drop_pkt, dropped);
        if (!policer.group) continue;
        const auto group = policers.group_policers.find(*policer.group);
        if (group == policers.group_policers.end()) continue;
        const std::uint64_t lost = drops(group->second.limit, n - dropped);
        add(group->second.counters.fwd_pkt, n - dropped - lost);
        add(group->second.counters.drop_pkt, lost);
    }
}

}  // namespace

std::optional<TrafficPlan> TrafficPlan::from_environment() {
    const char *value = std::getenv("LMQ_SIM_TRAFFIC");
    if (value == nullptr) return std::nullopt;

    const std::string_view text = value;
    const char *const end = text.data() + text.size();
    TrafficPlan plan{0, kUsualRate};
    auto [stop, error] = std::from_chars(text.data(), end, plan.seed);
    if (error == std::errc{} && stop != end && *stop == ':') {
        std::tie(stop, error) = [&, from = stop + 1] {
            const auto result = std::from_chars(from, end, plan.packets_per_second);
            return std::pair(result.ptr, result.ec);
        }();
    }
    if (error != std::errc{} || stop != end || plan.packets_per_second < 1 || plan.packets_per_second > kGreatestRate) {
        throw std::invalid_argument("LMQ_SIM_TRAFFIC is \"" + std::string(text) +
                                    "\": expected a seed, or a seed, a colon and packets per second, 1 to 1000000");
    }
    return plan;
}

void pass_time(Device &device, Traffic &traffic) {
    if (!traffic.plan) return;
    const Clock::Time elapsed = device.system.clock.now() - traffic.counted_to;
    if (elapsed < kStep) return;
    traffic.counted_to += elapsed;

    const auto [user_sent, user_received] = pass_ethernet(device, traffic, elapsed);
    const auto [pon_sent, pon_received] = pass_pon(device, traffic, elapsed);
    if (user_received + pon_received == 0) return;
    pass_policers(device, traffic, elapsed);

    const std::uint64_t to_cpu = (user_received + pon_received) / 100;
    const std::uint64_t dropped = drops(device.policer.cpu, to_cpu);
    add(device.policer.cpu_counters.fwd_pkt, to_cpu - dropped);
    add(device.policer.cpu_counters.pir_drop_pkt, dropped);

    lmq_bm_pkt_stats_s &bm = device.policer.buffer_manager;
    count_buffers(bm.ge_rx_pkt, bm.ge_tx_pkt, bm.ge_enq_pkt_cnt, bm.ge_deque_pkt_cnt, user_received, user_sent);
    count_buffers(bm.pon_rx_pkt, bm.pon_tx_pkt, bm.pon_enq_pkt_cnt, bm.pon_deque_pkt_cnt, pon_received, pon_sent);
    add(bm.ma_tx_pkt, to_cpu - dropped);
    add(bm.ma_deque_pkt_cnt, to_cpu - dropped);
}

void count_sent(Device &device, const vx_cpu_send_frame_cfg_t &cfg, const vx_uint8 *packet, vx_uint32 length) {
    lmq_bm_pkt_stats_s &bm = device.policer.buffer_manager;
    add(bm.ma_rx_pkt, 1);
    if (cfg.port_num == VX_PORT_CPU || cfg.port_num == VX_PORT_VOIP0) return;
    // A message may be shorter than an Ethernet header.
    const bool message = cfg.is_gpon_omci || cfg.is_epon_oam;
    if (!message && (cfg.port_num != VX_PORT_SNI0 || device.config.dev_mode == LMQ_DEV_MODE_AE)) {
        Stats &stats = eth_port(device, cfg.port_num).stats;
        const bool group = (packet[0] & 1) != 0;
        const bool broadcast =
            std::all_of(packet, packet + sizeof(vx_mac_addr_t), [](vx_uint8 b) { return b == 0xFF; });
        add(broadcast ? stats.tx_bc_pkt : group ? stats.tx_mc_pkt : stats.tx_uc_pkt, 1);
        const auto size = std::find_if(std::begin(kSizes), std::end(kSizes),
                                       [&](const Size &known) { return length <= known.greatest; });
        add(stats.*size->tx, 1);
        add(stats.tx_bytes, length);
        add(stats.tx_pkts, 1);
        add(bm.ge_tx_pkt, 1);
        return;
    }
    add(bm.pon_tx_pkt, 1);
    if (cfg.is_gpon_omci) {
        add(device.gpon_tm.omcc.us_pkt_cnt, 1);
        add(device.gpon_tm.tcont[0].us_pkt_cnt, 1);
    } else if (const Gpon::GemPort *gem = device.gpon.gem_ports.find(cfg.sub_pid);
               gem != nullptr && (gem->cfg.direction & LMQ_DIR_US) != 0) {
        add(device.gpon_tm.gem[cfg.sub_pid].us_pkt_cnt, 1);
        add(device.gpon_tm.tcont[gem->cfg.tcont_id].us_pkt_cnt, 1);
    }
}

}  // namespace lmq::sim
