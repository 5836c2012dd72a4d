// What a device keeps of VLANs, bridges and the software VLAN layer.
#pragma once

#include <compare>
#include <map>
#include <variant>
#include <vector>

#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// The VLAN policy of a port: tag types, and the directions of the membership check and of its default.
struct VlanPolicy {
    vx_acl_vlan_tag_type_t tag_types = LMQ_VLAN_TAG_TYPE_UNTAG | LMQ_VLAN_TAG_TYPE_PRIO_TAG | LMQ_VLAN_TAG_TYPE_TAG;
    vx_boolean admit = TRUE;
    vx_acl_vlan_filter_dir_t checked = VX_ACL_VLAN_FILTER_DIR_DISABLE;
    vx_acl_vlan_filter_dir_t permitted = VX_ACL_VLAN_FILTER_DIR_BOTH;
};

/// A bridge, as lmq_get_bridge_config answers it, but for its id.
struct Bridge {
    lmq_brg_cfg_s config{};
    std::map<lmq_brg_port_id_t, vx_uint16> ports;  ///< The UNI port of each bridge port.
    std::vector<vx_uint16> gem_ports;
};

/// An extended VLAN rule for packets with `tags` tags.
struct ExtVlanRule {
    unsigned tags;
    vx_lmq_ext_vlan_filter_t filter;
    vx_lmq_ext_vlan_treatment_t treatment;
};

/// The TPIDs of a port's extended VLAN rules.
struct ExtVlanParameters {
    vx_uint16 input_tpid = LMQ_DEFAULT_TPID;
    vx_uint16 output_tpid = LMQ_DEFAULT_TPID;
    vx_uint8 downstream_mode = 0;
};

/// Whose a list of rules or an operation is: Ethernet port, whether an IP host's, and the client's id.
struct SwVlanKey {
    vx_uint16 port;
    bool iphost;
    vx_uint16 id;
    auto operator<=>(const SwVlanKey &) const = default;
};

/// State of the family.
struct VlanBridge {
    using VlanEntry = std::variant<vx_acl_vlan_member_tbl_entry_t, vx_acl_vlan_mapping_tbl_entry_t>;
    static constexpr std::size_t max_vlan_entries = 32;
    static constexpr std::size_t max_bridges = 64;
    static constexpr std::size_t max_sw_vlans = 64;
    static constexpr std::size_t max_rules = 64;

    std::map<vx_port_id_t, VlanPolicy> policy;
    Table<vx_uint16, VlanEntry> vlan{max_vlan_entries};  ///< By index, which member and mapping table share.
    Table<lmq_brg_id_t, Bridge> bridges{max_bridges};
    Ids bridge_ports{LMQ_BRG_PORT_ID_BASE, LMQ_INVALID_BRG_PORT_ID - 1};
    Table<SwVlanKey, std::vector<ExtVlanRule>> ext_vlans{max_sw_vlans};
    Setting<vx_uint16, ExtVlanParameters> ext_vlan_parameters;  ///< By Ethernet port.
    Table<SwVlanKey, vx_lmq_vlan_opr_t> operations{max_sw_vlans};
    Table<vx_uint16, vx_lmq_tci_routing_t> routes{max_sw_vlans};
};

}  // namespace lmq::sim
