// What a device keeps of the access control lists.
#pragma once

#include <array>
#include <map>
#include <vector>

#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Acl {
    static constexpr std::size_t field_count = 8;
    static constexpr std::size_t max_filters = LMQ_FE_CL_MAX_ENTRY;

    struct Port {
        bool allow_unknown_flows = true;
        vx_acl_custom_field_parser_cfg_t parser{};
        std::array<vx_acl_custom_pkt_field_tbl_entry_t, field_count> fields{};  ///< `valid` says which are in use.
        std::vector<vx_acl_custom_pkt_filter_t> filters;                        ///< In the order of their addition.
    };
    std::map<vx_port_id_t, Port> ports;
};

}  // namespace lmq::sim
