// The traffic model, off unless LMQ_SIM_TRAFFIC is set.
//
// Choices:
// - The sources are each Ethernet port with a link in each direction that is enabled, and, while the ONU operates,
//   each GEM port in each of its directions. A GEM port in loopback has no traffic.
// - The counters move at a call that is 100 ms or more behind the last such call. Each source then has its average of
//   packets, give or take a quarter.
// - A packet in 25 is a broadcast, one in 16 a multicast. Sizes are spread over the counters of sizes, a third of
//   them 64 bytes. Errors are few: a wrong check sequence in 100000 packets.
// - What a policer or shaper limits, it drops one packet in a hundred of, whatever its rate; a shaper in mode DRP_ALL
//   drops all. Flows that are policed see as much traffic as a source each, unless they are blocked.
// - One packet in a hundred is for the CPU, and one for each IP host that operates; one in 50 is of each type that a
//   trap of the port is for. All of the management port is for the management interface, while that is enabled.
// - In operation a frame comes every 125 us, with 152 code words unless FEC is bypassed. The OMCC has two messages in
//   a second, in each direction, on T-CONT 0.
// - A counter of an Ethernet port or of the buffer manager that reaches its most significant bit raises
//   VX_EVENT_ETH_MIB_MSB_CHNG or VX_EVENT_MIB_MSB_CHNG.
#include "driver/traffic.h"

#include <algorithm>
#include <array>
#include <bit>
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

constexpr Clock::Time step_time = 100ms;
constexpr std::uint64_t greatest_rate = 1000000;
constexpr std::uint64_t usual_rate = 1000;
constexpr std::uint64_t frames_per_ms = 8;
constexpr std::uint64_t code_words_per_frame = 152;

/* Counts on, up to the greatest number of the counter, so that an overflow shows. */
template <typename T>
void add(T &counter, std::uint64_t n) {
    counter = n > std::numeric_limits<T>::max() - counter ? std::numeric_limits<T>::max() : static_cast<T>(counter + n);
}

vx_uint32 clamped(std::uint64_t n) { return static_cast<vx_uint32>(std::min<std::uint64_t>(n, UINT32_MAX)); }

/* What packets of a size are counted as, in order; the last one takes the rest. */
struct Size {
    vx_uint64 vx_eth_port_stats_t::*rx;
    vx_uint64 vx_eth_port_stats_t::*tx;
    std::uint64_t greatest;
    std::uint64_t usual;
    unsigned percent;
};

using Stats = vx_eth_port_stats_t;
constexpr Size size_classes[] = {
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
    for (const Size &size : size_classes) {
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

/* Packets that a policer drops: one in a hundred, however few come at a time. */
std::uint64_t drops(Traffic &traffic, const vx_rate_limit_cfg_t &limit, std::uint64_t packets) {
    if (limit.pol_type == VX_RATE_LIMIT_DISABLE) return 0;
    return packets / 100 + (traffic.random() % 100 < packets % 100 ? 1 : 0);
}

/* A side of the buffer manager: what came in is queued, and what was queued is sent. */
void count_side(vx_uint32 &rx, vx_uint32 &tx, vx_uint32 &queued, vx_uint32 &taken, std::uint64_t in,
                std::uint64_t out) {
    add(rx, in);
    add(queued, in);
    add(taken, out);
    add(tx, out);
}

/* How many counters of a structure that has no others have reached their most significant bit. */
template <typename T, typename Counters>
unsigned great_counters(const Counters &counters) {
    const auto all = std::bit_cast<std::array<T, sizeof(Counters) / sizeof(T)>>(counters);
    return static_cast<unsigned>(
        std::count_if(all.begin(), all.end(), [](T n) { return n > std::numeric_limits<T>::max() / 2; }));
}

/* Changes the counters of an Ethernet port, and tells when one has become great. */
template <typename Body>
void count_on_port(Device &device, vx_port_id_t port_id, Body body) {
    Stats &stats = eth_port(device, port_id)->stats;
    const unsigned before = great_counters<vx_uint64>(stats);
    body(stats);
    if (port_id < VX_PORT_ETH0 || great_counters<vx_uint64>(stats) == before) return;
    raise_event(device, {VX_EVENT_ETH_MIB_MSB_CHNG, port_id, 0}, {});
}

/* The same for the buffer manager. */
template <typename Body>
void count_buffers(Device &device, Body body) {
    lmq_bm_pkt_stats_s &stats = device.policer.buffer_manager;
    const unsigned before = great_counters<vx_uint32>(stats);
    body(stats);
    if (great_counters<vx_uint32>(stats) != before) raise_event(device, {VX_EVENT_MIB_MSB_CHNG, 0, 0}, {});
}

/* Packets of each port in the time that has passed. */
struct Load {
    struct Port {
        std::uint64_t sent = 0, received = 0;
        std::uint64_t dropped = 0;                       ///< Of those received, by the policer of the port.
        std::map<vx_uint16, std::uint64_t> received_by;  ///< Those received, by GEM port.
    };
    std::array<Port, VX_PORT_VOIP0 + 1> port;
    Port users;  ///< All Ethernet ports together.
};

bool is_ethernet(const Device &device, vx_port_id_t port) {
    return port == VX_PORT_MGMT || (port >= VX_PORT_ETH0 && port < VX_PORT_ETH0 + LMQ_PORT_ETH_NUM) ||
           (port == VX_PORT_SNI0 && device.config.dev_mode == LMQ_DEV_MODE_AE);
}

void pass_ethernet_port(Device &device, Traffic &traffic, Clock::Time elapsed, vx_port_id_t port_id, Load::Port &load) {
    EthPort &port = *eth_port(device, port_id);
    if (link_of(port).link_status != VX_LINK_UP) return;
    if (port.config.tx_enable) load.sent = draw(traffic, elapsed);
    if (port.config.rx_enable) load.received = draw(traffic, elapsed);
    const bool error = port.config.rx_enable && traffic.random() % 100000 < load.received;
    count_on_port(device, port_id, [&](Stats &stats) {
        count_ethernet(stats, false, load.sent);
        count_ethernet(stats, true, load.received);
        if (error) add(stats.rx_crc_frm, 1);
    });

    load.dropped = drops(traffic, device.policer.source_port.get(port_id), load.received);
    vx_pol_src_port_stat_t &policer = device.policer.source_port_counters[port_id];
    add(policer.fwd_pkt, load.received - load.dropped);
    add(policer.pir_drop_pkt, load.dropped);
    add(policer.mc_fwd, load.received / 16);
    add(policer.bc_fwd, load.received / 25);
}

void pass_ethernet(Device &device, Traffic &traffic, Clock::Time elapsed, Load &load) {
    for (vx_port_id_t port_id = 0; port_id < load.port.size(); ++port_id) {
        if (!is_ethernet(device, port_id)) continue;
        Load::Port &port = load.port[port_id];
        pass_ethernet_port(device, traffic, elapsed, port_id, port);
        load.users.sent += port.sent;
        load.users.received += port.received;
    }
}

/* Frames and code words of the PON. */
void pass_frames(Device &device, Traffic &traffic, Clock::Time elapsed) {
    GponTm &tm = device.gpon_tm;
    const std::uint64_t frames = frames_per_ms * static_cast<std::uint64_t>(elapsed.count());
    add(tm.mac.ds_gpon_frm_cnt, frames);
    if (!device.gpon.port.cfg.fec_bypass_enbl) {
        const std::uint64_t words = frames * code_words_per_frame, corrected = traffic.random() % (1 + words / 10000);
        add(tm.fec.rx_blk_cnt, words);
        add(tm.fec.corr_blk_cnt, corrected);
        add(tm.fec.no_err_blk_cnt, words - corrected);
        add(tm.fec.tot_corr_byte_cnt, 2 * corrected);
    }
}

void pass_pon(Device &device, Traffic &traffic, Clock::Time elapsed, Load::Port &load) {
    GponTm &tm = device.gpon_tm;
    if (device.gpon.port.state != VX_GPON_STATE_OPERATION) return;
    pass_frames(device, traffic, elapsed);
    for (const auto &[id, gem] : device.gpon.gem_ports) {
        if (gem.loopback) continue;
        vx_gpon_gem_port_stats_t &stats = tm.gem[id];
        if (gem.cfg.direction & LMQ_DIR_US) {
            const std::uint64_t n = draw(traffic, elapsed);
            add(stats.us_pkt_cnt, n);
            add(tm.tcont[gem.cfg.tcont_id].us_pkt_cnt, n);
            load.sent += n;
        }
        if (gem.cfg.direction & LMQ_DIR_DS) {
            const std::uint64_t n = draw(traffic, elapsed);
            add(stats.ds_pkt_cnt, n);
            add(stats.ds_blk_cnt, n + n / 4);
            load.received += load.received_by[id] = n;
        }
    }

    // Whole messages, of all the time that the clock has run.
    const auto messages =
        static_cast<std::uint64_t>(traffic.counted_to / 500ms - (traffic.counted_to - elapsed) / 500ms);
    add(tm.omcc.us_pkt_cnt, messages);
    add(tm.omcc.ds_pkt_cnt, messages);
    add(tm.omcc.ds_blk_cnt, messages);
    add(tm.tcont[0].us_pkt_cnt, messages);
}

/* Whether no packet of a flow passes. */
bool is_blocked(Device &device, vx_flow_id_t id) {
    const vx_flow_us_cfg_t *flow = device.flow.upstream.find(id);
    return flow != nullptr && flow->map_port == VX_PORT_SNI0 && is_looped(device.gpon, flow->map_sub_port);
}

void pass_policers(Device &device, Traffic &traffic, Clock::Time elapsed) {
    Policers &policers = device.policer;
    for (const auto &[flow, policing] : policers.policing) {
        if (policing.flow_pol_sel != VX_FLOW_POL_SEL_FLOW_POL || is_blocked(device, flow)) continue;
        const auto found = policers.flow_policers.find(policing.flw_pol_id);
        if (found == policers.flow_policers.end()) continue;
        Policers::FlowPolicer &policer = found->second;
        const std::uint64_t n = draw(traffic, elapsed), dropped = drops(traffic, policer.limit, n);
        add(policer.counters.fwd_pkt, n - dropped);
        add(policer.counters.pir_drop_pkt, dropped);
        if (!policer.group) continue;
        const auto group = policers.group_policers.find(*policer.group);
        if (group == policers.group_policers.end()) continue;
        const std::uint64_t lost = drops(traffic, group->second.limit, n - dropped);
        add(group->second.counters.fwd_pkt, n - dropped - lost);
        add(group->second.counters.drop_pkt, lost);
    }
}

void pass_shapers(Policers &policers, const Load &load) {
    for (vx_port_id_t port = 0; port < load.port.size(); ++port) {
        const vx_lmq_pol_port_shape_t &shaper = policers.shaper.get(port);
        const std::uint64_t sent = load.port[port].sent;
        if (shaper.shp_mode == VX_LMQ_POL_SHP_DRP_ALL) add(policers.shaped[port], sent);
        if (shaper.shp_mode == VX_LMQ_POL_SHP_NORMAL && shaper.rate != 0) add(policers.shaped[port], sent / 100);
    }
}

/* What a trap's port receives. A port of the SNI is the whole of it, or a GEM port. */
std::uint64_t arrivals(const Load &load, const CpuPort &at) {
    const Load::Port &port = load.port[at.port];
    if (at.type != VX_PORT_TYPE_GEM) return port.received;
    const auto gem = port.received_by.find(at.sub_port);
    return gem == port.received_by.end() ? 0 : gem->second;
}

void pass_traps(CpuPackets &packets, const Load &load) {
    for (const auto &[handle, trap] : packets.traps) {
        if (!trap.enabled) continue;
        const auto type = static_cast<vx_l2_spcl_pkt_type_t>(handle);
        for (const CpuPort &at : trap.ports) {
            if ((packets.filter.get(at.port) >> handle & 1U) != 0) continue;
            packets.trapped[{type, at.type, at.port}].add(clamped(arrivals(load, at) / 50));
        }
    }
}

/* Adds packets of 64 bytes. */
void count_small(Counter<vx_uint32> &packets, Counter<vx_uint32> &bytes, std::uint64_t n) {
    packets.add(clamped(n));
    bytes.add(clamped(64 * n));
}

void pass_management(Management &management, const Load &load) {
    if (management.enabled) {
        count_small(management.rx_packets, management.rx_bytes, load.port[VX_PORT_MGMT].received);
        count_small(management.tx_packets, management.tx_bytes, load.port[VX_PORT_MGMT].sent);
    }
    for (auto &[handle, host] : management.hosts) {
        if (!host.enabled) continue;
        for (const auto &[port, sub_port] : host.ports) {
            count_small(host.rx_packets, host.rx_bytes, load.port[port].received / 100);
            count_small(host.tx_packets, host.tx_bytes, load.port[port].sent / 100);
        }
    }
}

/* The CPU's share, and the engines and buffers that all goes through. */
void pass_core(Device &device, Traffic &traffic, const Load &load) {
    const Load::Port &pon = load.port[VX_PORT_SNI0];
    const bool has_pon = device.config.dev_mode == LMQ_DEV_MODE_GPON;
    const std::uint64_t pon_sent = has_pon ? pon.sent : 0, pon_received = has_pon ? pon.received : 0;
    const std::uint64_t to_cpu = (load.users.received + pon_received) / 100;
    const std::uint64_t dropped = drops(traffic, device.policer.cpu, to_cpu);
    add(device.policer.cpu_counters.fwd_pkt, to_cpu - dropped);
    add(device.policer.cpu_counters.pir_drop_pkt, dropped);

    auto &engines = device.classifier.stats;
    for (vx_port_id_t port = 0; port < load.port.size(); ++port) {
        lmq_fe_pkt_stats_s &engine = engines[static_cast<std::size_t>(engine_of(port))];
        add(engine.ingr_pkt_cnt, load.port[port].received);
        add(engine.egrs_pkt_cnt, load.port[port].received - load.port[port].dropped);
        add(engine.pkt_drop_cnt, load.port[port].dropped);
    }

    count_buffers(device, [&](lmq_bm_pkt_stats_s &bm) {
        count_side(bm.ge_rx_pkt, bm.ge_tx_pkt, bm.ge_enq_pkt_cnt, bm.ge_deque_pkt_cnt, load.users.received,
                   load.users.sent);
        count_side(bm.pon_rx_pkt, bm.pon_tx_pkt, bm.pon_enq_pkt_cnt, bm.pon_deque_pkt_cnt, pon_received, pon_sent);
        add(bm.ma_tx_pkt, to_cpu - dropped);
        add(bm.ma_deque_pkt_cnt, to_cpu - dropped);
    });
}

}  // namespace

std::optional<TrafficPlan> TrafficPlan::from_environment() {
    const char *value = std::getenv("LMQ_SIM_TRAFFIC");
    if (value == nullptr) return std::nullopt;

    const std::string_view text = value;
    const char *const end = text.data() + text.size();
    TrafficPlan plan{0, usual_rate};
    auto [stop, error] = std::from_chars(text.data(), end, plan.seed);
    if (error == std::errc{} && stop != end && *stop == ':') {
        std::tie(stop, error) = [&, from = stop + 1] {
            const auto result = std::from_chars(from, end, plan.packets_per_second);
            return std::pair(result.ptr, result.ec);
        }();
    }
    if (error != std::errc{} || stop != end || plan.packets_per_second < 1 || plan.packets_per_second > greatest_rate) {
        throw std::invalid_argument("LMQ_SIM_TRAFFIC is \"" + std::string(text) +
                                    "\": expected a seed, or a seed, a colon and packets per second, 1 to 1000000");
    }
    return plan;
}

void pass_time(Device &device, Traffic &traffic) {
    if (!traffic.plan) return;
    const Clock::Time elapsed = device.system.clock.now() - traffic.counted_to;
    if (elapsed < step_time) return;
    traffic.counted_to += elapsed;

    Load load;
    pass_ethernet(device, traffic, elapsed, load);
    if (device.config.dev_mode == LMQ_DEV_MODE_GPON) pass_pon(device, traffic, elapsed, load.port[VX_PORT_SNI0]);
    if (load.users.received + load.port[VX_PORT_SNI0].received == 0) return;
    pass_policers(device, traffic, elapsed);
    pass_shapers(device.policer, load);
    pass_traps(device.cpu_packet, load);
    pass_management(device.management, load);
    pass_core(device, traffic, load);
}

namespace {

/* A packet from the CPU on an Ethernet port. */
void count_sent_frame(Stats &stats, const vx_uint8 *packet, vx_uint32 length) {
    const bool group = (packet[0] & 1) != 0;
    const bool broadcast = std::all_of(packet, packet + sizeof(vx_mac_addr_t), [](vx_uint8 b) { return b == 0xFF; });
    add(broadcast ? stats.tx_bc_pkt : group ? stats.tx_mc_pkt : stats.tx_uc_pkt, 1);
    const auto size = std::find_if(std::begin(size_classes), std::end(size_classes),
                                   [&](const Size &known) { return length <= known.greatest; });
    add(stats.*size->tx, 1);
    add(stats.tx_bytes, length);
    add(stats.tx_pkts, 1);
}

/* A packet from the CPU on the PON: a message on the OMCC, or a packet on a GEM port that goes upstream. */
void count_sent_on_pon(Device &device, const vx_cpu_send_frame_cfg_t &cfg) {
    if (cfg.is_gpon_omci) {
        add(device.gpon_tm.omcc.us_pkt_cnt, 1);
        add(device.gpon_tm.tcont[0].us_pkt_cnt, 1);
    } else if (const Gpon::GemPort *gem = device.gpon.gem_ports.find(cfg.sub_pid);
               gem != nullptr && (gem->cfg.direction & LMQ_DIR_US) != 0) {
        add(device.gpon_tm.gem[cfg.sub_pid].us_pkt_cnt, 1);
        add(device.gpon_tm.tcont[gem->cfg.tcont_id].us_pkt_cnt, 1);
    }
}

}  // namespace

void count_sent(Device &device, const vx_cpu_send_frame_cfg_t &cfg, const vx_uint8 *packet, vx_uint32 length) {
    // A message may be shorter than an Ethernet header.
    const bool message = cfg.is_gpon_omci || cfg.is_epon_oam;
    const bool frame = !message && is_ethernet(device, cfg.port_num);
    lmq_fe_pkt_stats_s &engine = device.classifier.stats[LMQ_FE_CPU_MA];
    add(engine.ingr_pkt_cnt, 1);
    add(engine.egrs_pkt_cnt, 1);
    if (frame) count_on_port(device, cfg.port_num, [&](Stats &stats) { count_sent_frame(stats, packet, length); });
    if (!frame) count_sent_on_pon(device, cfg);
    count_buffers(device, [&](lmq_bm_pkt_stats_s &bm) {
        add(bm.ma_rx_pkt, 1);
        add(frame ? bm.ge_tx_pkt : bm.pon_tx_pkt, 1);
    });
}

}  // namespace lmq::sim
