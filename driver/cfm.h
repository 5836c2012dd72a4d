// What a device keeps of connectivity fault management (IEEE 802.1ag).
#pragma once

#include <map>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family. The configurations are kept as they are read, with all members flagged.
struct Cfm {
    Cfm();

    vx_1ag_lbm_cfg_t lbm{};
    vx_1ag_ccm_cfg_t ccm{};
    Clock::Time ccm_sent{};  ///< When the last message went out, or transmission began.
    vx_1ag_ccm_pkt_buf_cfg_t packet{};

    /// Delay measurement on a port.
    struct DelayPort {
        vx_1ag_dm_cfg_t cfg{};
        Clock::Time sent{};  ///< When the last message went out, or transmission began.
    };
    std::map<vx_port_id_t, DelayPort> delay_ports;

    Counter<vx_uint32> rx_dm;
    Counter<vx_uint32> tx_dm;
};

}  // namespace lmq::sim
