// Multicast: VLANs, groups, access lists and snooping of each port.
//
// Choices:
// - A multicast VLAN is 1 to 4094. Deleting it deletes its groups and joins.
// - vx_mcast_vlan_config_set takes a member mcast_vlan of 0 for the VLAN of the argument, and refuses another VLAN.
// - Groups must be multicast addresses. They are told apart by VLAN, sub-port and address; a group that is there with
//   other sources is refused as VX_ERR_FE_MCAST_SRC_FILTER_PRESENT, with the same as a duplicate.
// - A list is filled up to the `num` that comes in; `num` goes out as the number filled.
// - An access list holds 64 entries, told apart by all of their members. Its groups are those that a host may join;
//   an empty list allows all. It does not apply to groups that the application adds.
// - A join (lmq_dbg_set_mcast_filter_config) needs snooping and the VLAN, and answers VX_ERR_IGMP_VALIDATION_FAILED
//   for a group that the access list does not allow. A host that joins again replaces its join. 64 joins fit on a
//   port.
// - Disabling snooping twice is no error; the joins end with it.
#include "driver/mcast.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using Port = Multicast::Port;
using Group = Multicast::Group;
using Address = std::array<vx_uint8, 17>;

template <typename Body>
vx_status_e on_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id,
                    std::initializer_list<const void *> pointers, Body body) {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        return run(body, device.mcast.ports[port_id]);
    });
}

/* The same, for an operation that prints what a port has. */
template <typename Body>
vx_status_e print_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, Body body) {
    return on_device(function, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        body(device, port_id, device.mcast.ports[port_id]);
        return VX_SUCCESS;
    });
}

[[nodiscard]] vx_status_e check_vid(vx_uint16 vid) {
    if (vid < 1 || vid > 4094) return VX_ERR_FE_INVALID_VLAN_ID;
    return VX_SUCCESS;
}

/* An address as bytes in the order of transmission, its kind in front; so it can be compared and ordered. */
Result<Address> bytes_of(const vx_ip_addr_t &ip) {
    if (!is_in_range(ip.ip_ver, VX_IPV4, VX_IPV6)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    Address bytes{};
    bytes[0] = ip.ip_ver == VX_IPV4 ? VX_ACL_MC_ADDR_TYPE_IPV4 : VX_ACL_MC_ADDR_TYPE_IPV6;
    if (ip.ip_ver == VX_IPV4) {
        for (std::size_t i = 0; i < 4; ++i) bytes[1 + i] = static_cast<vx_uint8>(ip.addr.v4.s_addr >> (24 - 8 * i));
    } else {
        std::copy_n(ip.addr.v6.in6_u.u6_addr8, 16, bytes.begin() + 1);
    }
    return bytes;
}

Result<Address> bytes_of(const vx_mac_addr_t mac) {
    Address bytes{};
    bytes[0] = VX_ACL_MC_ADDR_TYPE_MAC;
    std::copy_n(mac, sizeof(vx_mac_addr_t), bytes.begin() + 1);
    return bytes;
}

Result<Address> bytes_of(const vx_acl_mcast_grp_addr_t &group) {
    if (!is_in_range(group.addr_type, VX_ACL_MC_ADDR_TYPE_MAC, VX_ACL_MC_ADDR_TYPE_IPV6))
        return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    if (group.addr_type == VX_ACL_MC_ADDR_TYPE_MAC) return bytes_of(group.mc_mac_addr);
    vx_ip_addr_t ip = group.mc_ip_addr;
    ip.ip_ver = group.addr_type == VX_ACL_MC_ADDR_TYPE_IPV4 ? VX_IPV4 : VX_IPV6;
    return bytes_of(ip);
}

/* IEEE 802: the first bit on the wire; RFC 5771: 224.0.0.0/4; RFC 4291: ff00::/8. */
[[nodiscard]] vx_status_e check_multicast(const Result<Address> &bytes) {
    if (!bytes) return bytes.status();
    const Address &address = *bytes;
    const bool multicast = address[0] == VX_ACL_MC_ADDR_TYPE_MAC    ? (address[1] & 1) != 0
                           : address[0] == VX_ACL_MC_ADDR_TYPE_IPV4 ? address[1] >> 4 == 0xE
                                                                    : address[1] == 0xFF;
    if (!multicast) return VX_ERR_GLBL_INVALID_PARAMS;
    return VX_SUCCESS;
}

std::string text_of(const Address &address) {
    std::string text;
    const auto put = [&](const char *format, unsigned value) {
        char part[8];
        std::snprintf(part, sizeof part, format, value);
        text += part;
    };
    switch (address[0]) {
        case VX_ACL_MC_ADDR_TYPE_MAC:
            for (std::size_t i = 1; i <= 6; ++i) put(i == 1 ? "%02x" : ":%02x", address[i]);
            break;
        case VX_ACL_MC_ADDR_TYPE_IPV4:
            for (std::size_t i = 1; i <= 4; ++i) put(i == 1 ? "%u" : ".%u", address[i]);
            break;
        default:
            for (std::size_t i = 1; i <= 16; i += 2) put(i == 1 ? "%x" : ":%x", address[i] * 256U + address[i + 1]);
    }
    return text;
}

/* Two configurations of the wire, padding included: the blocks that they come in begin as zeros. */
template <typename T>
bool same(const T &a, const T &b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

[[nodiscard]] vx_status_e check_vlan(Port &port, vx_uint16 vid) {
    if (const vx_status_e refused = check_vid(vid)) return refused;
    if (port.vlans.find(vid) == nullptr) return VX_ERR_FE_MCAST_VLAN_NOT_CONFIGURED;
    return VX_SUCCESS;
}

Result<Group> key_of(Port &port, vx_uint16 vid, vx_uint16 sub_port, const Result<Address> &address) {
    if (const vx_status_e refused = check_vlan(port, vid)) return refused;
    if (const vx_status_e refused = check_multicast(address)) return refused;
    return Group{vid, sub_port, *address};
}

Result<Group> key_of(Port &port, const vx_mcast_l2_entry_t &entry) {
    return key_of(port, entry.mcast_vlan, entry.sub_port, bytes_of(entry.mac_addr));
}

Result<Group> key_of(Port &port, const vx_mcast_ip_entry_t &entry) {
    return key_of(port, entry.mcast_vlan, entry.sub_port, bytes_of(entry.grp_addr));
}

/* Fills a list up to the number that comes in, and says how many are in it. */
template <typename Entries, typename T, typename Value>
void fill(Entries &entries, vx_uint16 *num, T *list, Value value_of) {
    vx_uint16 count = 0;
    for (auto &entry : entries) {
        if (count == *num) break;
        list[count++] = value_of(entry);
    }
    *num = count;
}

constexpr auto second_of = [](const auto &entry) { return entry.second; };

void forget_vlan(Port &port, vx_uint16 vid) {
    const auto in_vlan = [&](const Group &group, const auto &) { return std::get<0>(group) == vid; };
    port.vlans.erase(vid);
    port.l2.erase_if(in_vlan);
    port.ip.erase_if(in_vlan);
    port.joins.erase_if(in_vlan);
}

bool covers(const vx_mcast_acl_t &acl, vx_uint16 sub_port, vx_uint16 vid, const Address &group) {
    if (acl.sub_port_id != sub_port || acl.mcast_vlan != vid) return false;
    for (std::size_t i = 0; i < acl.mcast_grp_cnt; ++i) {
        if (*bytes_of(acl.mcast_grp[i]) == group) return true;
    }
    // The kind comes first in the bytes, so that a range holds addresses of its own kind alone.
    return *bytes_of(acl.grp_start) <= group && group <= *bytes_of(acl.grp_end);
}

void print_acl(const Device &device, vx_port_id_t port_id, Port &port) {
    device.system.print("mcast", "port %u: access list of %zu entries", unsigned{port_id}, port.acl.size());
    for (const vx_mcast_acl_t &acl : port.acl) {
        device.system.print("mcast", "  vlan %u sub-port %u: %s to %s", unsigned{acl.mcast_vlan},
                            unsigned{acl.sub_port_id}, text_of(*bytes_of(acl.grp_start)).c_str(),
                            text_of(*bytes_of(acl.grp_end)).c_str());
        for (std::size_t i = 0; i < acl.mcast_grp_cnt; ++i) {
            device.system.print("mcast", "    group %s", text_of(*bytes_of(acl.mcast_grp[i])).c_str());
        }
    }
}

void print_vlans(const Device &device, vx_port_id_t port_id, Port &port) {
    device.system.print("mcast", "port %u: %zu multicast VLANs", unsigned{port_id}, port.vlans.size());
    for (const auto &[vid, cfg] : port.vlans) {
        device.system.print("mcast", "  vlan %u: downstream command %d, VID to the UNI %u", unsigned{vid},
                            static_cast<int>(cfg.ds_vlan_cmd), unsigned{cfg.uni_vlan_id});
    }
}

template <typename Entries>
void print_groups(const Device &device, const char *kind, Entries &entries) {
    for (const auto &[group, entry] : entries) {
        device.system.print("mcast", "  %s %s vlan %u sub-port %u", kind, text_of(std::get<2>(group)).c_str(),
                            unsigned{std::get<0>(group)}, unsigned{std::get<1>(group)});
    }
}

}  // namespace

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_mcast_vlan_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan) {
    return on_port(__func__, dev_id, port_id, {}, [&](Port &port) {
        if (const vx_status_e refused = check_vid(mcast_vlan)) return refused;
        return as_status(port.vlans.insert(
            mcast_vlan, {.mcast_vlan = mcast_vlan, .ds_vlan_cmd = VX_MC_VLAN_TAG_ACTION_NOP, .uni_vlan_id = 0}));
    });
}

vx_status_e vx_mcast_vlan_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan) {
    return on_port(__func__, dev_id, port_id, {}, [&](Port &port) {
        if (const vx_status_e refused = check_vlan(port, mcast_vlan)) return refused;
        forget_vlan(port, mcast_vlan);
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_vlan_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_port(__func__, dev_id, port_id, {}, [](Port &port) {
        while (port.vlans.size() != 0) forget_vlan(port, port.vlans.begin()->first);
    });
}

vx_status_e vx_mcast_vlan_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_vlan_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {num, p_cfg},
                   [&](Port &port) { fill(port.vlans, num, p_cfg, second_of); });
}

vx_status_e vx_mcast_vlan_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan,
                                     vx_mcast_vlan_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        if (const vx_status_e refused = check_vlan(port, mcast_vlan)) return refused;
        if (p_cfg->mcast_vlan != 0 && p_cfg->mcast_vlan != mcast_vlan) return VX_ERR_GLBL_INVALID_PARAMS;
        if (p_cfg->ds_vlan_cmd < VX_MC_VLAN_TAG_ACTION_NOP || p_cfg->ds_vlan_cmd >= VX_MC_VLAN_TAG_ACTION_MAX)
            return VX_ERR_FE_INVALID_VLAN_ACTION;
        if (p_cfg->uni_vlan_id > 4094) return VX_ERR_FE_INVALID_VLAN_ID;
        vx_mcast_vlan_cfg_t &kept = *port.vlans.find(mcast_vlan);
        kept = *p_cfg;
        kept.mcast_vlan = mcast_vlan;
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_vlan_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 mcast_vlan,
                                     vx_mcast_vlan_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        if (const vx_status_e refused = check_vlan(port, mcast_vlan)) return refused;
        *p_cfg = *port.vlans.find(mcast_vlan);
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_l2_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry) {
    return on_port(__func__, dev_id, port_id, {entry}, [&](Port &port) {
        const Result<Group> group = key_of(port, *entry);
        return group ? as_status(port.l2.insert(*group, *entry)) : group.status();
    });
}

vx_status_e vx_mcast_l2_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_l2_entry_t *entry) {
    return on_port(__func__, dev_id, port_id, {entry}, [&](Port &port) {
        const Result<Group> group = key_of(port, *entry);
        if (!group) return group.status();
        if (!port.l2.erase(*group)) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_l2_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_port(__func__, dev_id, port_id, {}, [](Port &port) { port.l2.clear(); });
}

vx_status_e vx_mcast_l2_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num,
                                  vx_mcast_l2_entry_t *entry) {
    return on_port(__func__, dev_id, port_id, {num, entry}, [&](Port &port) { fill(port.l2, num, entry, second_of); });
}

vx_status_e vx_mcast_ip_entry_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry) {
    return on_port(__func__, dev_id, port_id, {entry}, [&](Port &port) {
        if (!is_in_range(entry->filter_mode, LMQ_MC_SRC_FILTER_MODE_EXCLUDE, LMQ_MC_SRC_FILTER_MODE_IGNORE) ||
            !is_in_range(entry->src_num, 0, MAX_MCAST_SRC_NUM))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        for (std::size_t i = 0; i < entry->src_num; ++i) {
            if (entry->src_list[i].ip_ver != entry->grp_addr.ip_ver) return VX_ERR_GLBL_INVALID_PARAMS;
        }
        const Result<Group> group = key_of(port, *entry);
        if (!group) return group.status();
        const vx_mcast_ip_entry_t *kept = port.ip.find(*group);
        if (kept != nullptr && !same(*kept, *entry)) return VX_ERR_FE_MCAST_SRC_FILTER_PRESENT;
        return as_status(port.ip.insert(*group, *entry));
    });
}

vx_status_e vx_mcast_ip_entry_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_ip_entry_t *entry) {
    return on_port(__func__, dev_id, port_id, {entry}, [&](Port &port) {
        const Result<Group> group = key_of(port, *entry);
        if (!group) return group.status();
        if (!port.ip.erase(*group)) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_ip_entry_clear(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_port(__func__, dev_id, port_id, {}, [](Port &port) { port.ip.clear(); });
}

vx_status_e vx_mcast_ip_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num,
                                  vx_mcast_ip_entry_t *entry) {
    return on_port(__func__, dev_id, port_id, {num, entry}, [&](Port &port) { fill(port.ip, num, entry, second_of); });
}

vx_status_e vx_mcast_acl_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl) {
    return on_port(__func__, dev_id, port_id, {p_mcast_acl}, [&](Port &port) {
        const vx_mcast_acl_t &acl = *p_mcast_acl;
        if (!is_in_range(acl.mcast_grp_cnt, 0, std::ssize(acl.mcast_grp))) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        for (std::size_t i = 0; i < acl.mcast_grp_cnt; ++i) {
            if (const vx_status_e refused = check_multicast(bytes_of(acl.mcast_grp[i]))) return refused;
        }
        const Result<Address> first = bytes_of(acl.grp_start);
        if (!first) return first.status();
        const Result<Address> last = bytes_of(acl.grp_end);
        if (!last) return last.status();
        // An entry may hold single groups alone; its range is then left at zeros.
        const bool no_range = same(acl.grp_start, vx_ip_addr_t{}) && same(acl.grp_end, vx_ip_addr_t{});
        if (no_range) {
            if (acl.mcast_grp_cnt == 0) return VX_ERR_GLBL_INVALID_PARAMS;
        } else {
            if (first->front() != last->front() || *first > *last) return VX_ERR_GLBL_INVALID_PARAMS;
            if (const vx_status_e refused = check_multicast(first)) return refused;
            if (const vx_status_e refused = check_multicast(last)) return refused;
        }
        if (!is_in_range(acl.src_ip.ip_ver, VX_IPV4, VX_IP_DONTCARE)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (std::any_of(port.acl.begin(), port.acl.end(), [&](const auto &kept) { return same(kept, acl); }))
            return VX_ERR_GLBL_ENTRY_EXIST;
        if (port.acl.size() >= Multicast::max_acl_entries) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
        port.acl.push_back(acl);
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_acl_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_mcast_acl_t *p_mcast_acl) {
    return on_port(__func__, dev_id, port_id, {p_mcast_acl}, [&](Port &port) {
        const auto erased = std::erase_if(port.acl, [&](const auto &kept) { return same(kept, *p_mcast_acl); });
        if (erased == 0) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        return VX_SUCCESS;
    });
}

vx_status_e vx_mcast_acl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 *num, vx_mcast_acl_t *p_mcast_acl) {
    return on_port(__func__, dev_id, port_id, {num, p_mcast_acl}, [&](Port &port) {
        fill(port.acl, num, p_mcast_acl, [](const vx_mcast_acl_t &acl) { return acl; });
    });
}

vx_status_e lmq_enable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_proto_type_e proto_type) {
    return on_port(__func__, dev_id, port_num, {}, [&](Port &port) {
        if (!is_in_range(proto_type, LMQ_IGMP_MLD, LMQ_MLD_ONLY)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        port.snooping = proto_type;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_disable_port_igmp_snooping(vx_dev_id_t dev_id, vx_uint16 port_num) {
    return on_port(__func__, dev_id, port_num, {}, [](Port &port) {
        port.snooping.reset();
        port.joins.clear();
    });
}

vx_status_e lmq_set_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg) {
    return on_port(__func__, dev_id, port_num, {p_cfg}, [&](Port &port) {
        if (!is_in_range(p_cfg->us_vlan_cmd, LMQ_IGMP_VLAN_ACTION_ASIS, LMQ_IGMP_VLAN_ACTION_SWAP_VID) ||
            !is_in_range(p_cfg->ds_vlan_cmd, LMQ_IGMP_VLAN_ACTION_ASIS, LMQ_IGMP_VLAN_ACTION_SWAP_VID) ||
            !is_in_range(p_cfg->us_vid_src, LMQ_IGMP_VID_SRC_FIXED, LMQ_IGMP_VID_SRC_MC_VLAN))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        port.igmp_vlan = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num, lmq_igmp_vlan_cfg_s *p_cfg) {
    return on_port(__func__, dev_id, port_num, {p_cfg}, [&](Port &port) { *p_cfg = port.igmp_vlan; });
}

vx_status_e lmq_print_port_igmp_vlan_config(vx_dev_id_t dev_id, vx_uint16 port_num) {
    return print_port(__func__, dev_id, port_num, [](const Device &device, vx_port_id_t port_id, const Port &port) {
        const lmq_igmp_vlan_cfg_s &cfg = port.igmp_vlan;
        device.system.print("mcast", "port %u: snooping %s", unsigned{port_id}, port.snooping ? "on" : "off");
        device.system.print("mcast", "  upstream: command %d, VID source %d, TCI 0x%04x",
                            static_cast<int>(cfg.us_vlan_cmd), static_cast<int>(cfg.us_vid_src),
                            unsigned{cfg.us_igmp_tci});
        device.system.print("mcast", "  downstream: command %d, TCI 0x%04x", static_cast<int>(cfg.ds_vlan_cmd),
                            unsigned{cfg.ds_igmp_tci});
    });
}

vx_status_e lmq_dbg_set_mcast_filter_config(vx_dev_id_t dev_id, vx_uint16 port_num,
                                            vx_mcast_host_info_dbg_t *p_host_info,
                                            lmq_mcast_filter_cfg_dbg_s *p_mcast_filter) {
    return on_port(__func__, dev_id, port_num, {p_host_info, p_mcast_filter}, [&](Port &port) {
        const auto &sources = p_mcast_filter->src_filter_list;
        if (!is_in_range(p_host_info->host_vid_cnt, 0, std::ssize(p_host_info->host_vid_list)) ||
            !is_in_range(sources.src_ip_cnt, 0, std::ssize(sources.src_ip_list)) ||
            !is_in_range(sources.filter_mode, LMQ_MC_SRC_FILTER_MODE_EXCLUDE, LMQ_MC_SRC_FILTER_MODE_IGNORE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (!port.snooping) return VX_ERR_GLBL_INVALID_OP;
        const vx_uint16 vid = p_mcast_filter->mcast_vlan;
        const vx_uint16 sub_port = p_mcast_filter->sub_port_id;
        const Result<Group> group = key_of(port, vid, sub_port, bytes_of(p_mcast_filter->mcast_grp_addr));
        if (!group) return group.status();
        const Address &address = std::get<2>(*group);
        const bool allowed = port.acl.empty() || std::any_of(port.acl.begin(), port.acl.end(), [&](const auto &acl) {
                                 return covers(acl, sub_port, vid, address);
                             });
        if (!allowed) return VX_ERR_IGMP_VALIDATION_FAILED;
        const Multicast::Join join{*p_host_info, *p_mcast_filter};
        Multicast::Join *kept = port.joins.find(*group);
        if (!kept) return as_status(port.joins.insert(*group, join));
        *kept = join;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dbg_print_mc_grp_acl(vx_dev_id_t dev_id, vx_uint16 uni_port_num) {
    return print_port(__func__, dev_id, uni_port_num, print_acl);
}

vx_status_e lmq_dbg_print_mc_vlan_cfg(vx_dev_id_t dev_id, vx_uint16 uni_port_num) {
    return print_port(__func__, dev_id, uni_port_num, print_vlans);
}

vx_status_e lmq_dbg_print_all_mc_vlan_cfg(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) {
        for (auto &[port_id, port] : device.mcast.ports) print_vlans(device, port_id, port);
    });
}

vx_status_e lmq_dbg_print_mc_db(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) {
        for (auto &[port_id, port] : device.mcast.ports) {
            device.system.print("mcast", "port %u:", unsigned{port_id});
            print_groups(device, "group", port.l2);
            print_groups(device, "group", port.ip);
            print_groups(device, "join", port.joins);
        }
    });
}

}  // extern "C"
