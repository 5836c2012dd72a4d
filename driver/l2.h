// What a device keeps of layer 2 forwarding: the forwarding database, and settings of the device and of ports.
#pragma once

#include <array>
#include <utility>
#include <vector>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// An entry of the forwarding database.
struct FdbEntry {
    vx_l2_fdb_entry_t entry;
    bool is_static;
    Clock::Time added;
};

/// State of the family. Structures are kept as the get of each answers them, mask included.
struct Layer2 {
    using Mac = std::array<vx_uint8, sizeof(vx_mac_addr_t)>;
    static constexpr std::size_t fdb_size = 1024;
    static constexpr vx_uint32 last_handle = 0x7FFFFFFF;

    Layer2();

    vx_l2_learn_cfg_t learn{};
    Setting<vx_port_id_t, vx_l2_learn_port_cfg_t> learn_port;
    vx_uint32 aging_timer;
    Table<vx_l2_fdb_entry_handle_t, FdbEntry> fdb{fdb_size};
    Ids handles{1, last_handle};
    Setting<vx_port_id_t, vx_l2_stp_state_t> stp;
    Setting<vx_port_id_t, vx_l2_mtu_cfg_t> mtu;
    Setting<vx_port_id_t, vx_l2_filter_type_t> filter;
    Setting<vx_port_id_t, std::vector<Mac>> filtered;
    Setting<std::pair<vx_port_id_t, vx_uint16>, vx_l2_tpid_cfg_t> tpid;
    Setting<vx_port_id_t, vx_l2_fe_tpid_cfg_t> port_tpid;
    Setting<vx_port_id_t, vx_l2_port_cfg_t> port;
    vx_boolean isolated = FALSE;
    Setting<vx_port_id_t, vx_l2_flood_ctrl_t> flood;
    Setting<vx_port_id_t, vx_l2_port_oam_lpbk_t> oam_loopback;
    Setting<vx_port_id_t, vx_l2_static_pkt_fwd_cfg_t> static_forwarding;
};

struct Device;

/// Takes the entries out of the forwarding database whose time is over.
void pass_time(Device &device, Layer2 &l2);

/// Resets the forwarding engine's part: dynamic entries of the forwarding database go.
void reset(Device &device, Layer2 &l2);

}  // namespace lmq::sim
