/**
 * @file
 * @brief What a device keeps of the classifier.
 */
#ifndef LMQ_DRIVER_CLASSIFIER_H
#define LMQ_DRIVER_CLASSIFIER_H

#include <array>
#include <map>
#include <optional>

#include "driver/clock.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/** @brief State of the family. */
struct Classifier {
    static constexpr std::size_t kEntries = LMQ_FE_CL_MAX_ENTRY;
    static constexpr std::size_t kRecordsPerEntry = MAX_KEY_PER_ENTRY;
    static constexpr std::size_t kPortTypes = 4; /**< Values of vx_cls_l4_port_type_t. */
    static constexpr std::size_t kEngines = 3;   /**< Values of lmq_fe_id_e. */

    struct Aging {
        vx_cls_mac_aging_t cfg{};
        Clock::Time since{0}; /**< When cfg was set. */
    };
    struct Port {
        vx_cls_cl_ctrl_t control{};
        std::array<vx_cls_domain_res_t, VX_CLS_DOMAIN_ID_NUM> domains{};
        std::array<vx_cls_rule_cfg_t, kEntries> rules{};                   /**< `entryvalid` says which are in use. */
        std::array<vx_cls_fib_data_t, kEntries * kRecordsPerEntry> fibs{}; /**< Those of a rule stand together. */
        vx_cls_fib_data_t no_match{};
        vx_uint32 denied_types = 0; /**< Bit n: value n of lmq_fe_cls_key_type_e. */
        std::array<std::array<vx_cls_l4_port_range_t, LMQ_FE_CLS_NUM_L4_PORT_ENTRY>, kPortTypes> ranges{};
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
    std::array<lmq_fe_pkt_stats_s, kEngines> stats{}; /**< By lmq_fe_id_e. */
};

}  // namespace lmq::sim

#endif
