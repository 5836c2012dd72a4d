// What a device keeps of the classifier.
#pragma once

#include <array>
#include <map>
#include <optional>

#include "driver/clock.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Classifier {
    static constexpr std::size_t max_entries = LMQ_FE_CL_MAX_ENTRY;
    static constexpr std::size_t records_per_entry = MAX_KEY_PER_ENTRY;
    static constexpr std::size_t port_type_count = 4;  ///< Values of vx_cls_l4_port_type_t.
    static constexpr std::size_t engine_count = 3;     ///< Values of lmq_fe_id_e.

    struct Aging {
        vx_cls_mac_aging_t cfg{};
        Clock::Time since{0};   ///< When cfg was set.
        bool reported = false;  ///< That it has aged.
    };
    struct Port {
        vx_cls_cl_ctrl_t control{};
        std::array<vx_cls_domain_res_t, VX_CLS_DOMAIN_ID_NUM> domains{};
        std::array<vx_cls_rule_cfg_t, max_entries> rules{};                     ///< `entryvalid` says which are in use.
        std::array<vx_cls_fib_data_t, max_entries * records_per_entry> fibs{};  ///< Those of a rule stand together.
        vx_cls_fib_data_t no_match{};
        vx_uint32 denied_types = 0;  ///< Bit n: value n of lmq_fe_cls_key_type_e.
        std::array<std::array<vx_cls_l4_port_range_t, LMQ_FE_CLS_NUM_L4_PORT_ENTRY>, port_type_count> ranges{};
        vx_cls_spcl_ptn_control_t pattern_control{};
        std::array<vx_cls_spcl_ptn_t, LMQ_FE_CLS_NUM_SPCL_KEY_ENTRY> patterns{};
        std::array<Aging, LMQ_FE_CLS_NUM_MAC_FILTER_AGING_ENTRY> aging{};
        vx_cls_debug_prog_ent_cnt_t counted{};
    };
    struct Mirror {
        vx_port_id_t to = VX_INVALID_PORT_ID;
        vx_uint32 rx = 0;
        vx_uint32 tx = 0;
    };
    std::map<vx_port_id_t, Port> ports;
    Mirror mirror;
    std::array<lmq_fe_pkt_stats_s, engine_count> stats{};  ///< By lmq_fe_id_e.
};

struct Device;

/// Lets filters age.
void pass_time(Device &device, Classifier &classifier);

/// The engine that the packets of a port come by.
lmq_fe_id_e engine_of(vx_port_id_t port);

}  // namespace lmq::sim
