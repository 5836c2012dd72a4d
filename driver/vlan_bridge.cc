// VLANs, bridges and the software VLAN layer.
//
// Choices, each for want of a rule:
// - Ports at first admit all tag types, check no membership, and pass what no entry matches.
// - The 32 entries of member and mapping table are the device's: port_id of their operations has only to exist. An
//   index that the same table uses is VX_ERR_GLBL_ENTRY_EXIST, one that the other uses VX_ERR_GLBL_DUPLICATE_REQ. A
//   delete looks at no entry, so it may be NULL.
// - An added entry has zeros where no flag is set. Its ports have to exist: SNI bit 0, UNI bits 0 and 1.
// - There can be 64 bridges. The client chooses the id. No two have the same VLAN, but for LMQ_ANY_VID, which any may
//   have, and which a bridge has that is created without one. Type NONE is no type, and each has to be given a type.
// - UNI ports are numbered as ports, from VX_PORT_ETH0; a UNI port is once in a bridge, but may be in several. The id
//   of a bridge port is the device's. GEM ports are 0 to 4095, the PON is 0. Deleting a bridge deletes its ports.
// - The software VLAN layer returns the statuses of vx_status_e. It has 64 lists of up to 64 extended VLAN rules, 64
//   tag operations and 64 ways to GEM ports. It serves the ports of vx_port_num_t. What takes no dev_id is for device
//   0.
// - A rule or operation of an IP host applies to packets of the port VX_PORT_CPU.
// - Extended VLAN rules follow ITU-T G.988, 9.3.13: of the lists of a port, in the order of their ids, the first rule
//   that matches counts, then the first default rule; a port with any list does no simple operation. TPID and DEI of
//   a filter are not compared, but input_tpid is: a tag with another TPID is no tag to the rules. A tag is added with
//   output_tpid, or with LMQ_DEFAULT_TPID where its tpid_dei is 4. Priority 10 (by DSCP) counts as 0.
// - Downstream, with downstream_mode 0, the first rule whose added tags the packet bears is undone: its added tags
//   go, and as many as it removed come back, with the numbers of the filter, or of the packet where the filter says
//   "any". Any other downstream_mode changes nothing.
// - Of a way, mode 0 compares VLAN and priority, 1 the VLAN alone, 2 the priority alone; an action is 0 to forward
//   and 1 to drop. The ingress filter writes the GEM port to sub_port, and leaves it when no way matches.
// - A filter returns VX_OK to forward and VX_ERR_FE_INVALID_VLAN_MEMBER to drop. It changes the tags of the packet,
//   its sub_port, and nothing else. A packet with more than two tags is refused; one that would get a third is, too.
#include "driver/vlan_bridge.h"

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <optional>
#include <tuple>
#include <utility>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr vx_uint16 last_vid = LMQ_MAX_VID;
constexpr vx_uint16 last_gem_port = 4095;
constexpr vx_uint8 all_tag_types = LMQ_VLAN_TAG_TYPE_UNTAG | LMQ_VLAN_TAG_TYPE_PRIO_TAG | LMQ_VLAN_TAG_TYPE_TAG;

bool is_no_vid(vx_uint16 vid) { return vid > last_vid; }

/// Runs an operation on the VLAN policy of a port, as on_device() on a device.
template <typename Body>
vx_status_e on_policy(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id,
                      std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        return run(body, device.vlan_bridge.policy[port_id]);
    });
}

/// Adds directions to a set of them, or takes them away.
[[nodiscard]] vx_status_e change(vx_acl_vlan_filter_dir_t &kept, vx_acl_vlan_filter_dir_t given, bool add) {
    if (!is_in_range(given, VX_ACL_VLAN_FILTER_DIR_DISABLE, VX_ACL_VLAN_FILTER_DIR_BOTH))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    kept = static_cast<vx_acl_vlan_filter_dir_t>(add ? kept | given : kept & ~given);
    return VX_SUCCESS;
}

/* What member and mapping table do not have in common: what is checked, what is taken over. */

bool are_no_ports(vx_uint8 sni, vx_uint8 uni) { return sni > 1 || uni >= 1U << LMQ_MAX_UNI_PORT_NUM; }

[[nodiscard]] vx_status_e take(vx_acl_vlan_member_tbl_entry_t &kept, const vx_acl_vlan_member_tbl_entry_t &given) {
    const auto &flags = given.valid.mask_s;
    if (flags.member_port_bitmap && are_no_ports(given.member_sni_port_bitmap, given.member_uni_port_bitmap))
        return VX_ERR_FE_INVALID_VLAN_MEMBER;
    if (flags.vid && (is_no_vid(given.vid_high) || given.vid_lo > given.vid_high)) return VX_ERR_FE_INVALID_VLAN_ID;
    merge(flags.member_port_bitmap, kept.member_sni_port_bitmap, given.member_sni_port_bitmap);
    merge(flags.member_port_bitmap, kept.member_uni_port_bitmap, given.member_uni_port_bitmap);
    merge(flags.vid, kept.vid_lo, given.vid_lo);
    merge(flags.vid, kept.vid_high, given.vid_high);
    merge(flags.ingr_valid, kept.ingr_valid, as_boolean(given.ingr_valid));
    merge(flags.egrs_valid, kept.egrs_valid, as_boolean(given.egrs_valid));
    return VX_SUCCESS;
}

[[nodiscard]] vx_status_e take(vx_acl_vlan_mapping_tbl_entry_t &kept, const vx_acl_vlan_mapping_tbl_entry_t &given) {
    const auto &flags = given.valid.mask_s;
    if (flags.port_bitmap && are_no_ports(given.sni_port_bitmap, given.uni_port_bitmap))
        return VX_ERR_FE_INVALID_VLAN_MEMBER;
    if (flags.vid && (is_no_vid(given.vid_from) || is_no_vid(given.vid_to))) return VX_ERR_FE_INVALID_VLAN_ID;
    merge(flags.port_bitmap, kept.sni_port_bitmap, given.sni_port_bitmap);
    merge(flags.port_bitmap, kept.uni_port_bitmap, given.uni_port_bitmap);
    merge(flags.vid, kept.vid_from, given.vid_from);
    merge(flags.vid, kept.vid_to, given.vid_to);
    merge(flags.ingr_valid, kept.ingr_valid, as_boolean(given.ingr_valid));
    merge(flags.egrs_valid, kept.egrs_valid, as_boolean(given.egrs_valid));
    return VX_SUCCESS;
}

template <typename Entry>
vx_status_e vlan_table_set(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 index,
                           vx_acl_op_mode_t mode, const Entry *given) noexcept {
    return on_device(function, dev_id, {}, [&](Device &device) {
        if (!is_in_range(mode, VX_ACL_OP_ADD, VX_ACL_OP_MODIFY)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (mode != VX_ACL_OP_DELETE && !given) return VX_ERR_DEV_NULL_PTR;
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(index, 0, VlanBridge::max_vlan_entries - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        auto &table = device.vlan_bridge.vlan;
        VlanBridge::VlanEntry *at = table.find(index);
        Entry *known = at ? std::get_if<Entry>(at) : nullptr;
        if (at && !known) return VX_ERR_GLBL_DUPLICATE_REQ;
        if (mode == VX_ACL_OP_ADD) {
            if (known != nullptr) return VX_ERR_GLBL_ENTRY_EXIST;
            Entry added{};
            if (const vx_status_e refused = take(added, *given)) return refused;
            added.valid.mask = 0xF;
            table.insert(index, added);
            return VX_SUCCESS;
        }
        if (!known) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        if (mode == VX_ACL_OP_MODIFY) return take(*known, *given);
        table.erase(index);
        return VX_SUCCESS;
    });
}

template <typename Entry>
vx_status_e vlan_table_get(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 index,
                           Entry *to) noexcept {
    return on_device(function, dev_id, {to}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(index, 0, VlanBridge::max_vlan_entries - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const VlanBridge::VlanEntry *at = device.vlan_bridge.vlan.find(index);
        const Entry *known = at ? std::get_if<Entry>(at) : nullptr;
        if (!known) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        *to = *known;
        return VX_SUCCESS;
    });
}

/* Bridges. */

/// Runs an operation on a bridge, as on_device() on a device.
template <typename Body>
vx_status_e on_bridge(const char *function, vx_dev_id_t dev_id, lmq_brg_id_t id,
                      std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        Bridge *bridge = device.vlan_bridge.bridges.find(id);
        return bridge ? run(body, device, *bridge) : VX_ERR_FE_INVALID_BRG_ID;
    });
}

/// Runs an operation on the bridge that a bridge port belongs to. The body also gets the bridge's id.
template <typename Body>
vx_status_e on_owner(const char *function, vx_dev_id_t dev_id, lmq_brg_port_id_t port, Body body) noexcept {
    return on_device(function, dev_id, {}, [&](Device &device) {
        for (auto &[id, bridge] : device.vlan_bridge.bridges) {
            if (bridge.ports.contains(port)) return run(body, device, id, bridge);
        }
        return VX_ERR_FE_INVALID_BRG_PORT_ID;
    });
}

/// Takes over the flagged members. Refuses what is out of range, and the VLAN of another bridge.
[[nodiscard]] vx_status_e take(Device &device, lmq_brg_id_t id, lmq_brg_cfg_s &kept, const lmq_brg_cfg_s &given) {
    const auto &flags = given.valid.mask_s;
    if (flags.brg_type && (given.brg_type == LMQ_BRG_TYPE_NONE || given.brg_type > LMQ_BRG_TYPE_ALL))
        return VX_ERR_FE_INVALID_BRG_PARAMS;
    if (flags.vlan_id && is_no_vid(given.vlan_id)) return VX_ERR_FE_INVALID_VLAN_ID;
    for (const auto &[other, bridge] : device.vlan_bridge.bridges) {
        const bool same = bridge.config.vlan_id == given.vlan_id && given.vlan_id != LMQ_ANY_VID;
        if (flags.vlan_id && other != id && same) return VX_ERR_FE_DUPLICATE_BRG_VLAN_ID;
    }
    merge(flags.brg_type, kept.brg_type, given.brg_type);
    merge(flags.vlan_id, kept.vlan_id, given.vlan_id);
    merge(flags.enbl_local_fwd, kept.enbl_local_fwd, as_boolean(given.enbl_local_fwd));
    merge(flags.discard_unknown_mac, kept.discard_unknown_mac, as_boolean(given.discard_unknown_mac));
    return VX_SUCCESS;
}

void report(lmq_brg_id_t id, const Bridge &bridge, lmq_brg_cfg_info_s &to) {
    to = {};
    to.brg_id = id;
    to.brg_cfg = bridge.config;
    for (const auto &[port, uni] : bridge.ports) to.brg_port_info[to.num_brg_ports++] = {port, uni};
    for (const vx_uint16 gem : bridge.gem_ports) to.gem_info[to.num_sub_ports++] = {gem, 0};
}

void print(lmq_brg_id_t id, const Bridge &bridge) {
    std::fprintf(stderr, "bridge %" PRIu32 ": type %" PRIu32 ", vlan %u, local forwarding %u, discard unknown %u\n", id,
                 bridge.config.brg_type, bridge.config.vlan_id, bridge.config.enbl_local_fwd,
                 bridge.config.discard_unknown_mac);
    for (const auto &[port, uni] : bridge.ports) std::fprintf(stderr, "  bridge port %u: UNI port %u\n", port, uni);
    for (const vx_uint16 gem : bridge.gem_ports) std::fprintf(stderr, "  GEM port %u\n", gem);
}

/* The software VLAN layer. */

bool same(const vx_lmq_ext_vlan_filter_t &a, const vx_lmq_ext_vlan_filter_t &b) {
    const auto key = [](const vx_lmq_ext_vlan_filter_t &f) {
        return std::tuple(f.eth_type, f.outer_pri, f.outer_vid, f.outer_tpid_dei, f.inner_pri, f.inner_vid,
                          f.inner_tpid_dei);
    };
    return key(a) == key(b);
}

/* Numbers of ITU-T G.988, 9.3.13. */
constexpr vx_uint8 any_priority = 8, copy_inner_priority = 8, copy_outer_priority = 9, default_rule = 14, no_tag = 15;
constexpr vx_uint16 any_vid = 4096, copy_inner_vid = 4096, copy_outer_vid = 4097;
constexpr vx_uint8 drop_packet = 3;
constexpr vx_uint16 default_tpid = 4;

vx_status_e add_rule(const char *function, vx_uint32 dev_id, SwVlanKey key, unsigned tags,
                     const vx_lmq_ext_vlan_filter_t *filter, const vx_lmq_ext_vlan_treatment_t *treatment) noexcept {
    return on_device(function, dev_id, {filter, treatment}, [&](Device &device) {
        if (is_no_port(key.port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(filter->outer_pri, 0, no_tag) || !is_in_range(filter->inner_pri, 0, no_tag) ||
            !is_in_range(filter->outer_vid, 0, any_vid) || !is_in_range(filter->inner_vid, 0, any_vid) ||
            !is_in_range(treatment->tag_to_remove, 0, drop_packet) || !is_in_range(treatment->outer_pri, 0, no_tag) ||
            !is_in_range(treatment->inner_pri, 0, no_tag) || !is_in_range(treatment->outer_vid, 0, copy_outer_vid) ||
            !is_in_range(treatment->inner_vid, 0, copy_outer_vid))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        // What is not there cannot be removed.
        if (treatment->tag_to_remove != drop_packet && treatment->tag_to_remove > tags)
            return VX_ERR_FE_INVALID_VLAN_ACTION;

        const ExtVlanRule rule{tags, *filter, *treatment};
        auto &lists = device.vlan_bridge.ext_vlans;
        std::vector<ExtVlanRule> *list = lists.find(key);
        if (!list) return as_status(lists.insert(key, {rule}));
        const auto known = [&](const ExtVlanRule &r) { return r.tags == tags && same(r.filter, *filter); };
        if (std::any_of(list->begin(), list->end(), known)) return VX_ERR_GLBL_ENTRY_EXIST;
        if (list->size() >= VlanBridge::max_rules) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
        list->push_back(rule);
        return VX_SUCCESS;
    });
}

/// A VLAN tag (IEEE 802.1Q, 9.3).
struct Tag {
    vx_uint16 tpid = LMQ_DEFAULT_TPID;
    vx_uint16 tci = 0;

    vx_uint8 priority() const { return static_cast<vx_uint8>(tci >> 13); }
    vx_uint16 vid() const { return tci & 0xFFF; }
};

vx_uint16 tci_of(vx_uint8 priority, vx_uint16 vid) {
    return static_cast<vx_uint16>((priority & 7) << 13 | (vid & 0xFFF));
}

/// The tags of a packet, the outer one first.
using Tags = std::vector<Tag>;

Result<Tags> tags_of(const vx_pkt_t &packet) {
    if (packet.tag_num > 2) return VX_ERR_GLBL_INVALID_PARAMS;
    Tags tags;
    if (packet.tag_num > 0) tags.push_back({packet.stpid, packet.svlan});
    if (packet.tag_num > 1) tags.push_back({packet.ctpid, packet.cvlan});
    return tags;
}

[[nodiscard]] vx_status_e write(vx_pkt_t &packet, const Tags &tags) {
    if (tags.size() > 2) return VX_ERR_FE_INVALID_VLAN_ACTION;
    const Tag none{0, 0};
    const Tag &outer = tags.empty() ? none : tags[0];
    const Tag &inner = tags.size() < 2 ? none : tags[1];
    packet.tag_num = static_cast<vx_uint16>(tags.size());
    packet.stpid = outer.tpid;
    packet.svlan = outer.tci;
    packet.ctpid = inner.tpid;
    packet.cvlan = inner.tci;
    return VX_SUCCESS;
}

bool matches(vx_uint8 priority, vx_uint16 vid, const Tag &tag) {
    return (priority >= any_priority || priority == tag.priority()) && (vid >= any_vid || vid == tag.vid());
}

/// Whether a packet is of the type that a filter names; 0 is any.
bool matches(vx_uint8 type, vx_uint16 eth_type) {
    switch (type) {
        case 1: return eth_type == VX_ETH_TYPE_IPV4;
        case 2: return eth_type == VX_ETH_TYPE_PPPOE_DISC || eth_type == VX_ETH_TYPE_PPPOE_SESSION;
        case 3: return eth_type == VX_ETH_TYPE_ARP;
        case 4: return eth_type == VX_ETH_TYPE_IPV6;
        default: return true;
    }
}

bool is_default(const ExtVlanRule &rule) {
    return rule.filter.inner_pri == default_rule || rule.filter.outer_pri == default_rule;
}

/// Whether a rule is for a packet. The filter's inner part is for the inner tag, or the only one.
bool matches(const ExtVlanRule &rule, const Tags &tags, vx_uint16 eth_type, vx_uint16 tpid) {
    const auto &filter = rule.filter;
    if (rule.tags != tags.size() || !matches(filter.eth_type, eth_type)) return false;
    if (rule.tags > 0 && tags[0].tpid != tpid) return false;
    if (rule.tags > 0 && !matches(filter.inner_pri, filter.inner_vid, tags.back())) return false;
    return rule.tags < 2 || matches(filter.outer_pri, filter.outer_vid, tags.front());
}

/// The tag that a treatment adds, or nothing. `received` are the tags of the packet as it came.
std::optional<Tag> added(vx_uint8 priority, vx_uint16 vid, vx_uint16 tpid_dei, vx_uint16 tpid, const Tags &received) {
    if (priority == no_tag) return std::nullopt;
    const Tag inner = received.empty() ? Tag{} : received.back(), outer = received.empty() ? Tag{} : received.front();
    if (priority == copy_inner_priority)
        priority = inner.priority();
    else if (priority == copy_outer_priority)
        priority = outer.priority();
    else if (priority > copy_outer_priority)
        priority = 0;
    if (vid == copy_inner_vid)
        vid = inner.vid();
    else if (vid == copy_outer_vid)
        vid = outer.vid();
    return Tag{tpid_dei == default_tpid ? LMQ_DEFAULT_TPID : tpid, tci_of(priority, vid)};
}

[[nodiscard]] vx_status_e treat(Tags &tags, const vx_lmq_ext_vlan_treatment_t &treatment,
                                const ExtVlanParameters &parameters) {
    if (treatment.tag_to_remove == drop_packet) return VX_ERR_FE_INVALID_VLAN_MEMBER;
    const Tags received = tags;
    tags.erase(tags.begin(), tags.begin() + treatment.tag_to_remove);
    const vx_uint16 tpid = parameters.output_tpid;
    const auto inner = added(treatment.inner_pri, treatment.inner_vid, treatment.inner_tpid_dei, tpid, received);
    const auto outer = added(treatment.outer_pri, treatment.outer_vid, treatment.outer_tpid_dei, tpid, received);
    if (inner) tags.insert(tags.begin(), *inner);
    if (outer) tags.insert(tags.begin(), *outer);
    return VX_SUCCESS;
}

/// Undoes a rule, if the packet bears the tags that it adds. @return Whether it does.
bool undo(Tags &tags, const ExtVlanRule &rule, const ExtVlanParameters &parameters) {
    const auto &treatment = rule.treatment;
    if (treatment.tag_to_remove == drop_packet) return false;
    std::vector<std::pair<vx_uint8, vx_uint16>> bears;  // outer first
    if (treatment.outer_pri != no_tag) bears.emplace_back(treatment.outer_pri, treatment.outer_vid);
    if (treatment.inner_pri != no_tag) bears.emplace_back(treatment.inner_pri, treatment.inner_vid);
    if (bears.size() > tags.size() || bears.size() + rule.tags != treatment.tag_to_remove + tags.size()) return false;
    for (std::size_t i = 0; i < bears.size(); ++i) {
        if (!matches(bears[i].first, bears[i].second, tags[i])) return false;
    }

    const Tags sent = tags;
    tags.erase(tags.begin(), tags.begin() + static_cast<std::ptrdiff_t>(bears.size()));
    const auto restore = [&](vx_uint8 priority, vx_uint16 vid, const Tag &like) {
        const vx_uint8 p = priority >= any_priority ? like.priority() : priority;
        tags.insert(tags.begin(), {parameters.input_tpid, tci_of(p, vid >= any_vid ? like.vid() : vid)});
    };
    const Tag none{};
    const auto &filter = rule.filter;
    if (treatment.tag_to_remove == 2) restore(filter.inner_pri, filter.inner_vid, sent.empty() ? none : sent.back());
    if (treatment.tag_to_remove == 1 && rule.tags == 1) {
        restore(filter.inner_pri, filter.inner_vid, sent.empty() ? none : sent.back());
    } else if (treatment.tag_to_remove > 0) {
        restore(filter.outer_pri, filter.outer_vid, sent.empty() ? none : sent.front());
    }
    return true;
}

bool is_of(const SwVlanKey &key, vx_uint16 port) { return key.iphost ? port == VX_PORT_CPU : key.port == port; }

/// The rules of a port, in the order in which they count: default rules last.
std::vector<std::pair<vx_uint16, const ExtVlanRule *>> rules_of(VlanBridge &state, vx_uint16 port) {
    std::vector<std::pair<vx_uint16, const ExtVlanRule *>> rules;
    for (const auto &[key, list] : state.ext_vlans) {
        if (!is_of(key, port)) continue;
        for (const ExtVlanRule &rule : list) rules.emplace_back(key.port, &rule);
    }
    std::stable_partition(rules.begin(), rules.end(), [](const auto &rule) { return !is_default(*rule.second); });
    return rules;
}

/// The way of a packet with this tag, or without one; nullptr when there is none.
const vx_lmq_tci_routing_t *way_of(VlanBridge &state, vx_uint16 port, const Tag &tag) {
    const auto is_way = [&](const auto &known) {
        const vx_lmq_tci_routing_t &way = known.second;
        const bool vid = way.mode == 2 || way.vid == tag.vid(), priority = way.mode == 1 || way.pri == tag.priority();
        return way.eth_port == port && vid && priority;
    };
    const auto found = std::find_if(state.routes.begin(), state.routes.end(), is_way);
    return found == state.routes.end() ? nullptr : &found->second;
}

vx_int32 filter_ingress(const char *function, vx_pkt_t *packet) noexcept {
    return on_device(function, DEFAULT_DEVICE_ID, {packet}, [&](Device &device) {
        VlanBridge &state = device.vlan_bridge;
        const Result<Tags> given = tags_of(*packet);
        if (!given) return given.status();
        Tags tags = *given;
        const auto rules = rules_of(state, packet->port);
        const auto rule = std::find_if(rules.begin(), rules.end(), [&](const auto &candidate) {
            const vx_uint16 tpid = state.ext_vlan_parameters.get(candidate.first).input_tpid;
            return matches(*candidate.second, tags, packet->eth_type, tpid);
        });
        if (rule != rules.end()) {
            const auto &[rule_port, found] = *rule;
            const ExtVlanParameters &parameters = state.ext_vlan_parameters.get(rule_port);
            if (const vx_status_e refused = treat(tags, found->treatment, parameters)) return refused;
        }
        for (const auto &[key, operation] : state.operations) {
            if (!rules.empty() || !is_of(key, packet->port)) continue;
            if (operation.us_mode == 1 && !tags.empty())
                tags[0].tci = operation.us_tci;
            else if (operation.us_mode != 0)
                tags.insert(tags.begin(), {LMQ_DEFAULT_TPID, operation.us_tci});
        }

        const vx_lmq_tci_routing_t *way = way_of(state, packet->port, tags.empty() ? Tag{} : tags[0]);
        const bool drop = way && (tags.empty() ? way->untagged_action : way->tagged_action) != 0;
        if (drop) return VX_ERR_FE_INVALID_VLAN_MEMBER;
        if (const vx_status_e refused = write(*packet, tags)) return refused;
        if (way) packet->sub_port = way->gem_port;
        return VX_SUCCESS;
    });
}

vx_int32 filter_egress(const char *function, vx_uint16 port, vx_pkt_t *packet) noexcept {
    return on_device(function, DEFAULT_DEVICE_ID, {packet}, [&](Device &device) {
        if (is_no_port(port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        VlanBridge &state = device.vlan_bridge;
        const Result<Tags> given = tags_of(*packet);
        if (!given) return given.status();
        Tags tags = *given;
        const auto rules = rules_of(state, port);
        for (const auto &[rule_port, rule] : rules) {
            const ExtVlanParameters &parameters = state.ext_vlan_parameters.get(rule_port);
            if (parameters.downstream_mode == 0 && undo(tags, *rule, parameters)) break;
        }
        for (const auto &[key, operation] : state.operations) {
            if (!rules.empty() || !is_of(key, port)) continue;
            if (operation.ds_mode == 1 && !tags.empty()) tags.erase(tags.begin());
        }
        return write(*packet, tags);
    });
}

}  // namespace

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_vlan_tag_policy_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                   vx_acl_vlan_tag_type_t vlan_tag_type_bitmap, vx_boolean admit) {
    return on_policy(__func__, dev_id, port_id, {}, [&](VlanPolicy &policy) {
        if (!is_in_range(vlan_tag_type_bitmap, 0, all_tag_types)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        policy.tag_types = vlan_tag_type_bitmap;
        policy.admit = as_boolean(admit);
        return VX_SUCCESS;
    });
}

vx_status_e vx_vlan_tag_policy_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                   vx_acl_vlan_tag_type_t *p_vlan_tag_type_bitmap, vx_boolean *p_admit) {
    return on_policy(__func__, dev_id, port_id, {p_vlan_tag_type_bitmap, p_admit}, [&](VlanPolicy &policy) {
        *p_vlan_tag_type_bitmap = policy.tag_types;
        *p_admit = policy.admit;
    });
}

vx_status_e vx_vlan_member_check_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir,
                                     vx_boolean enable) {
    return on_policy(__func__, dev_id, port_id, {},
                     [&](VlanPolicy &policy) { return change(policy.checked, fil_dir, enable != FALSE); });
}

vx_status_e vx_vlan_member_check_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t *p_ena) {
    return on_policy(__func__, dev_id, port_id, {p_ena}, [&](VlanPolicy &policy) { *p_ena = policy.checked; });
}

vx_status_e vx_vlan_member_check_default_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_acl_vlan_filter_dir_t fil_dir,
                                             vx_boolean permit) {
    return on_policy(__func__, dev_id, port_id, {},
                     [&](VlanPolicy &policy) { return change(policy.permitted, fil_dir, permit != FALSE); });
}

vx_status_e vx_vlan_member_check_default_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_acl_vlan_filter_dir_t *fil_dir) {
    return on_policy(__func__, dev_id, port_id, {fil_dir}, [&](VlanPolicy &policy) { *fil_dir = policy.permitted; });
}

vx_status_e vx_vlan_member_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                     vx_acl_op_mode_t op_mode, vx_acl_vlan_member_tbl_entry_t *p_entry) {
    return vlan_table_set(__func__, dev_id, port_id, tbl_indx, op_mode, p_entry);
}

vx_status_e vx_vlan_member_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                     vx_acl_vlan_member_tbl_entry_t *p_entry) {
    return vlan_table_get(__func__, dev_id, port_id, tbl_indx, p_entry);
}

vx_status_e vx_vlan_mapping_table_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                      vx_acl_op_mode_t op_mode, vx_acl_vlan_mapping_tbl_entry_t *p_entry) {
    return vlan_table_set(__func__, dev_id, port_id, tbl_indx, op_mode, p_entry);
}

vx_status_e vx_vlan_mapping_table_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tbl_indx,
                                      vx_acl_vlan_mapping_tbl_entry_t *p_entry) {
    return vlan_table_get(__func__, dev_id, port_id, tbl_indx, p_entry);
}

vx_status_e lmq_create_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        auto &bridges = device.vlan_bridge.bridges;
        if (brg_id == LMQ_INVALID_BRG_ID) return VX_ERR_FE_INVALID_BRG_ID;
        if (bridges.find(brg_id) != nullptr) return VX_ERR_GLBL_ENTRY_EXIST;
        if (!p_cfg->valid.mask_s.brg_type) return VX_ERR_FE_INVALID_BRG_PARAMS;
        Bridge bridge;
        bridge.config.vlan_id = LMQ_ANY_VID;
        bridge.config.valid.mask = 0xF;
        if (const vx_status_e refused = take(device, brg_id, bridge.config, *p_cfg)) return refused;
        return as_status(bridges.insert(brg_id, bridge));
    });
}

vx_status_e lmq_set_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_s *p_cfg) {
    return on_bridge(__func__, dev_id, brg_id, {p_cfg},
                     [&](Device &device, Bridge &bridge) { return take(device, brg_id, bridge.config, *p_cfg); });
}

vx_status_e lmq_get_bridge_config(vx_dev_id_t dev_id, lmq_brg_id_t brg_id, lmq_brg_cfg_info_s *p_cfg) {
    return on_bridge(__func__, dev_id, brg_id, {p_cfg},
                     [&](Device &, const Bridge &bridge) { report(brg_id, bridge, *p_cfg); });
}

vx_status_e lmq_get_bridge_config_all(vx_dev_id_t dev_id, vx_uint16 get_cnt, lmq_brg_cfg_info_s *p_cfg,
                                      vx_uint16 *p_valid_cnt) {
    return on_device(__func__, dev_id, {p_cfg, p_valid_cnt}, [&](Device &device) {
        vx_uint16 count = 0;
        for (const auto &[id, bridge] : device.vlan_bridge.bridges) {
            if (count == get_cnt) break;
            report(id, bridge, p_cfg[count++]);
        }
        *p_valid_cnt = count;
    });
}

vx_status_e lmq_delete_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id) {
    return on_bridge(__func__, dev_id, brg_id, {}, [&](Device &device, const Bridge &bridge) {
        for (const auto &port : bridge.ports) device.vlan_bridge.bridge_ports.take_back(port.first);
        device.vlan_bridge.bridges.erase(brg_id);
    });
}

vx_status_e lmq_add_bridge_port(vx_dev_id_t dev_id, vx_uint16 uni_port_num, lmq_brg_id_t brg_id,
                                lmq_brg_port_id_t *p_brg_port_id) {
    return on_bridge(__func__, dev_id, brg_id, {p_brg_port_id}, [&](Device &device, Bridge &bridge) {
        if (uni_port_num < VX_PORT_ETH0 || uni_port_num >= VX_PORT_ETH0 + LMQ_MAX_UNI_PORT_NUM)
            return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        for (const auto &port : bridge.ports) {
            if (port.second == uni_port_num) return VX_ERR_GLBL_ENTRY_EXIST;
        }
        // There are more ids than ports of all bridges.
        const auto id = static_cast<lmq_brg_port_id_t>(device.vlan_bridge.bridge_ports.give().value());
        bridge.ports.emplace(id, uni_port_num);
        *p_brg_port_id = id;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_delete_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id) {
    return on_owner(__func__, dev_id, brg_port_id, [&](Device &device, lmq_brg_id_t, Bridge &bridge) {
        bridge.ports.erase(brg_port_id);
        device.vlan_bridge.bridge_ports.take_back(brg_port_id);
    });
}

vx_status_e vx_gpon_onu_gem_port_add_to_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                               lmq_brg_id_t brg_id) {
    return on_bridge(__func__, dev_id, brg_id, {}, [&](Device &, Bridge &bridge) {
        std::vector<vx_uint16> &gems = bridge.gem_ports;
        if (!is_in_range(pon_id, 0, 0)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (gem_port_id > last_gem_port) return VX_ERR_GPON_INVALID_GEM_PORT;
        if (std::find(gems.begin(), gems.end(), gem_port_id) != gems.end()) return VX_ERR_GLBL_ENTRY_EXIST;
        if (gems.size() >= VX_MAX_GEM_PORTS) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
        gems.push_back(gem_port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_port_delete_from_bridge(vx_dev_id_t dev_id, vx_uint16 pon_id, vx_uint16 gem_port_id,
                                                    lmq_brg_id_t brg_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (!is_in_range(pon_id, 0, 0)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        Bridge *bridge = device.vlan_bridge.bridges.find(brg_id);
        if (!bridge) return VX_ERR_FE_INVALID_BRG_ID;
        std::erase(bridge->gem_ports, gem_port_id);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dump_bridge(vx_dev_id_t dev_id, lmq_brg_id_t brg_id) {
    return on_bridge(__func__, dev_id, brg_id, {}, [&](Device &, const Bridge &bridge) { print(brg_id, bridge); });
}

vx_status_e lmq_dump_bridge_port(vx_dev_id_t dev_id, lmq_brg_port_id_t brg_port_id) {
    return on_owner(__func__, dev_id, brg_port_id, [&](Device &, lmq_brg_id_t id, const Bridge &bridge) {
        std::fprintf(stderr, "bridge port %u: bridge %" PRIu32 ", UNI port %u\n", brg_port_id, id,
                     bridge.ports.at(brg_port_id));
    });
}

vx_status_e lmq_dump_bridge_cvlan_svlan_list(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        for (const auto &[id, bridge] : device.vlan_bridge.bridges) {
            std::fprintf(stderr, "bridge %" PRIu32 ": cvlan any, svlan %u\n", id, bridge.config.vlan_id);
        }
    });
}

vx_int32 vx_sw_untag_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                              vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id) {
    return add_rule(__func__, dev_id, {ethport_id, iphost != FALSE, ext_vlan_id}, 0, filter, treatment);
}

vx_int32 vx_sw_single_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                               vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id) {
    return add_rule(__func__, dev_id, {ethport_id, iphost != FALSE, ext_vlan_id}, 1, filter, treatment);
}

vx_int32 vx_sw_double_vlan_add(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_ext_vlan_filter_t *filter,
                               vx_lmq_ext_vlan_treatment_t *treatment, vx_boolean iphost, vx_uint16 ext_vlan_id) {
    return add_rule(__func__, dev_id, {ethport_id, iphost != FALSE, ext_vlan_id}, 2, filter, treatment);
}

vx_int32 vx_sw_vlan_del(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 ext_vlan_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(ethport_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!device.vlan_bridge.ext_vlans.erase({ethport_id, iphost != FALSE, ext_vlan_id}))
            return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_int32 vx_sw_vlan_param_set(vx_uint32 dev_id, vx_uint16 ethport_id, vx_uint16 input_tpid, vx_uint16 output_tpid,
                              vx_uint8 downstream_mode) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(ethport_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        device.vlan_bridge.ext_vlan_parameters.set(ethport_id, {input_tpid, output_tpid, downstream_mode});
        return VX_SUCCESS;
    });
}

vx_int32 vx_sw_vlan_opr_create(vx_uint32 dev_id, vx_uint16 ethport_id, vx_lmq_vlan_opr_t *vlan_opr, vx_boolean iphost,
                               vx_uint16 vlan_id) {
    return on_device(__func__, dev_id, {vlan_opr}, [&](Device &device) {
        if (is_no_port(ethport_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(vlan_opr->us_mode, 0, 2) || !is_in_range(vlan_opr->ds_mode, 0, 1))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        return as_status(device.vlan_bridge.operations.insert({ethport_id, iphost != FALSE, vlan_id}, *vlan_opr));
    });
}

vx_int32 vx_sw_vlan_opr_delete(vx_uint32 dev_id, vx_uint16 ethport_id, vx_boolean iphost, vx_uint16 vlan_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(ethport_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!device.vlan_bridge.operations.erase({ethport_id, iphost != FALSE, vlan_id}))
            return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_int32 vx_sw_tci_gem_add(vx_uint32 dev_id, vx_lmq_tci_routing_t *tci2gem, vx_uint16 routing_id) {
    return on_device(__func__, dev_id, {tci2gem}, [&](Device &device) {
        if (is_no_port(tci2gem->eth_port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (is_no_vid(tci2gem->vid)) return VX_ERR_FE_INVALID_VLAN_ID;
        if (!is_in_range(tci2gem->pri, 0, LMQ_MAX_DOT1P - 1) || !is_in_range(tci2gem->mode, 0, 2) ||
            !is_in_range(tci2gem->tagged_action, 0, 1) || !is_in_range(tci2gem->untagged_action, 0, 1))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (tci2gem->gem_port > last_gem_port) return VX_ERR_GPON_INVALID_GEM_PORT;
        return as_status(device.vlan_bridge.routes.insert(routing_id, *tci2gem));
    });
}

vx_int32 vx_sw_tci_gem_del(vx_uint32 dev_id, vx_uint16 routing_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (!device.vlan_bridge.routes.erase(routing_id)) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_int32 vx_sw_vlan_mib_reset(void) {
    return on_device(__func__, DEFAULT_DEVICE_ID, {}, [](Device &device) {
        device.vlan_bridge.ext_vlans.clear();
        device.vlan_bridge.ext_vlan_parameters.clear();
        device.vlan_bridge.operations.clear();
        device.vlan_bridge.routes.clear();
    });
}

vx_int32 vx_vid_pbit_2gem_get(vx_port_id_t sport, vx_uint16 tci, vx_uint16 *gem) {
    return on_device(__func__, DEFAULT_DEVICE_ID, {gem}, [&](Device &device) {
        if (is_no_port(sport)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const vx_lmq_tci_routing_t *way = way_of(device.vlan_bridge, sport, {LMQ_DEFAULT_TPID, tci});
        if (!way) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        *gem = way->gem_port;
        return VX_SUCCESS;
    });
}

vx_int32 vx_vid_pbit_2gem_dump(void) {
    return on_device(__func__, DEFAULT_DEVICE_ID, {}, [](Device &device) {
        for (const auto &[id, way] : device.vlan_bridge.routes) {
            std::fprintf(stderr, "way %u: port %u, mode %u, vlan %u, priority %u: GEM port %u\n", id, way.eth_port,
                         way.mode, way.vid, way.pri, way.gem_port);
        }
    });
}

vx_int32 vlan_ingress_filter(vx_pkt_t *pkt) { return filter_ingress(__func__, pkt); }

vx_int32 vlan_ingress_filter_ioctl(vx_lmq_ioctl_pkt_t *pkt) {
    return filter_ingress(__func__, pkt ? &pkt->pkt : nullptr);
}

vx_int32 vlan_egress_filter(vx_uint16 dport, vx_pkt_t *pkt) { return filter_egress(__func__, dport, pkt); }

vx_int32 vlan_egress_filter_ioctl(vx_uint16 dport, vx_lmq_ioctl_pkt_t *pkt) {
    return filter_egress(__func__, dport, pkt ? &pkt->pkt : nullptr);
}

}  // extern "C"
