// The classifier: control, domains, rules and records of each port, mirroring and counters.
//
// Choices:
// - Each port has 48 entries, which its domains divide without overlap (VX_ERR_FE_CLS_ENTRY_UNAVAIL). An entry holds
//   one rule and eight records. A domain that has rules keeps its entries until they are cleared.
// - A rule or record behind the end of its domain is VX_ERR_FE_CLS_ENTRY_UNAVAIL. An entry that is not in use reads
//   as zeros. A rule is kept whole, whichever key counts; writing it with `entryvalid` FALSE deletes it.
// - MAC_VLAN_C, MAC_ETYPE_D and VLAN_E are read as MAC_VLAN, MAC_ETYPE and VLAN.
// - A record takes its first four members always, the others in the groups that the mask flags; a read flags all.
// - A filter with entry_dynamic ages max_limit seconds after it was set, while aging is enabled in the port's
//   control, and raises VX_EVENT_FE_MAC_FILTER_AGEOUT then.
// - Mirroring needs a port that exists and is not mirrored itself; with two empty maps it is off.
// - The state of an engine's entries lists the entries in use of its ports, in order: downstream of the SNI, CPU_MA
//   of the CPU and the management port, upstream of the others.
// - No packet is classified: hits stay at what they were set to. The engines count what the traffic model and the CPU
//   send.
#include "driver/classifier.h"

#include <algorithm>
#include <bit>
#include <chrono>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using Port = Classifier::Port;
using Fib = vx_cls_fib_data_t;
using Rule = vx_cls_rule_cfg_t;

template <typename Body>
vx_status_e on_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id,
                    std::initializer_list<const void *> pointers, Body body) {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        return run(body, device.classifier.ports[port_id]);
    });
}

/* An element of a table by an index of the interface. */
template <typename T, std::size_t N>
Result<T &> at(std::array<T, N> &table, std::int64_t index) {
    if (!is_in_range(index, 0, N - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return table[static_cast<std::size_t>(index)];
}

/* Calls `visit` with each key that a rule's key type names. Returns false for a type that has none. */
template <typename Visit>
bool visit_keys(const Rule &rule, Visit visit) {
    const auto all = [&](const auto &keys) {
        for (const auto &key : keys) visit(key);
    };
    const auto &key = rule.cls_key;
    switch (rule.key_type) {
        case LMQ_FE_CLS_KEY_IPV4_LONG: visit(key.ipv4_long_key); return true;
        case LMQ_FE_CLS_KEY_IPV4_SHORT: all(key.ipv4_short_key); return true;
        case LMQ_FE_CLS_KEY_IPV6_LONG: visit(key.ipv6_long_key); return true;
        case LMQ_FE_CLS_KEY_IPV6_SHORT: visit(key.ipv6_short_key); return true;
        case LMQ_FE_CLS_KEY_MIRROR: all(key.mirror_key); return true;
        case LMQ_FE_CLS_KEY_MAC_VLAN:
        case LMQ_FE_CLS_KEY_MAC_VLAN_C: all(key.mac_vlan_key); return true;
        case LMQ_FE_CLS_KEY_MAC_ETYPE:
        case LMQ_FE_CLS_KEY_MAC_ETYPE_D: all(key.mac_etype_key); return true;
        case LMQ_FE_CLS_KEY_CTRL_PKT: all(key.ctrl_pkt_key); return true;
        case LMQ_FE_CLS_KEY_VLAN:
        case LMQ_FE_CLS_KEY_VLAN_E: all(key.vlan_key); return true;
        case LMQ_FE_CLS_KEY_VLAN_RANGE: all(key.vlan_range_key); return true;
        case LMQ_FE_CLS_KEY_PROTO: all(key.proto_key); return true;
        case LMQ_FE_CLS_KEY_MCAST: all(key.mcast_key); return true;
        case LMQ_FE_CLS_KEY_EXT_VLAN: all(key.ext_vlan_key); return true;
        case LMQ_FE_CLS_KEY_GEM_MCAST: all(key.gem_mcast_key); return true;
        case LMQ_FE_CLS_KEY_GEM_CTRL_PKT: all(key.gem_ctrl_pkt_key); return true;
        case LMQ_FE_CLS_KEY_IPV4_MCAST: all(key.ipv4_mcast_key); return true;
    }
    return false;
}

/* All key types that exist, as bits. */
constexpr vx_uint32 known_key_types = 0xF7FFF;

/* The keys of a rule that compare anything, as bits. */
vx_uint8 keys_in_use(const Rule &rule) {
    vx_uint32 keys = 0;
    vx_uint32 bit = 1;
    visit_keys(rule, [&](const auto &key) {
        if (key.valid.mask != 0) keys |= bit;
        bit <<= 1;
    });
    return static_cast<vx_uint8>(keys);
}

/* The flow key that comes nearest to a rule key. */
vx_cl_key_type_t flow_key_type(lmq_fe_cls_key_type_e type) {
    switch (type) {
        case LMQ_FE_CLS_KEY_IPV4_LONG: return VX_CL_KEY_IPV4_LONG;
        case LMQ_FE_CLS_KEY_IPV4_SHORT: return VX_CL_KEY_IPV4_SHORT;
        case LMQ_FE_CLS_KEY_IPV6_LONG: return VX_CL_KEY_IPV6_LONG;
        case LMQ_FE_CLS_KEY_IPV6_SHORT: return VX_CL_KEY_IPV6_SHORT;
        case LMQ_FE_CLS_KEY_MAC_VLAN:
        case LMQ_FE_CLS_KEY_MAC_VLAN_C: return VX_CL_KEY_MAC_VLAN;
        case LMQ_FE_CLS_KEY_MAC_ETYPE:
        case LMQ_FE_CLS_KEY_MAC_ETYPE_D: return VX_CL_KEY_MAC_DA_ETYPE;
        case LMQ_FE_CLS_KEY_CTRL_PKT: return VX_CL_KEY_CTRL_PKT;
        case LMQ_FE_CLS_KEY_VLAN:
        case LMQ_FE_CLS_KEY_VLAN_E: return VX_CL_KEY_SPCL_MAC_VLAN;
        case LMQ_FE_CLS_KEY_VLAN_RANGE: return VX_CL_KEY_VLAN_RANGE;
        case LMQ_FE_CLS_KEY_PROTO: return VX_CL_KEY_MAC_IP_PROTO;
        case LMQ_FE_CLS_KEY_EXT_VLAN: return VX_CL_KEY_EXT_VLAN;
        case LMQ_FE_CLS_KEY_GEM_CTRL_PKT: return VX_CL_KEY_GEM_CTRL_PKT;
        default: return VX_CL_KEY_INVALID;
    }
}

[[nodiscard]] vx_status_e check_engine(lmq_fe_id_e engine) {
    if (engine < LMQ_FE_UPSTREAM || engine > LMQ_FE_CPU_MA) return VX_ERR_FE_INVALID_FE_ID;
    return VX_SUCCESS;
}

bool has_rules(const Port &port, const vx_cls_domain_res_t &domain) {
    const auto first = port.rules.begin() + domain.cl_entry_start;
    return std::any_of(first, first + domain.cl_entry_length,
                       [](const Rule &rule) { return rule.entryvalid != FALSE; });
}

[[nodiscard]] vx_status_e set_domain(Port &port, vx_uint8 domain_id, const vx_cls_domain_res_t &given) {
    const Result<vx_cls_domain_res_t &> kept = at(port.domains, domain_id);
    if (!kept) return kept.status();
    const auto begin = [](const auto &domain) { return unsigned{domain.cl_entry_start}; };
    const auto end = [](const auto &domain) { return unsigned{domain.cl_entry_start} + domain.cl_entry_length; };
    if (!is_in_range(end(given), 0, Classifier::max_entries)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    for (const vx_cls_domain_res_t &other : port.domains) {
        const bool share = given.cl_entry_length != 0 && other.cl_entry_length != 0 && begin(given) < end(other) &&
                           begin(other) < end(given);
        if (&other != &*kept && share) return VX_ERR_FE_CLS_ENTRY_UNAVAIL;
    }
    const bool moved = begin(given) != begin(*kept) || end(given) != end(*kept);
    if (moved && has_rules(port, *kept)) return VX_ERR_GLBL_INVALID_OP;
    *kept = given;
    return VX_SUCCESS;
}

/* A rule or record among those of the port; `each` of them belong to an entry. */
template <typename T, std::size_t N>
Result<T &> of_domain(Port &port, std::array<T, N> &all, vx_uint8 domain_id, vx_uint8 offset, std::size_t each) {
    const Result<vx_cls_domain_res_t &> domain = at(port.domains, domain_id);
    if (!domain) return domain.status();
    if (offset >= domain->cl_entry_length * each) return VX_ERR_FE_CLS_ENTRY_UNAVAIL;
    return all[domain->cl_entry_start * each + offset];
}

Result<Rule &> rule_at(Port &port, vx_uint8 domain_id, vx_uint8 offset) {
    return of_domain(port, port.rules, domain_id, offset, 1);
}

Result<Fib &> fib_at(Port &port, vx_uint8 domain_id, vx_uint8 offset) {
    return of_domain(port, port.fibs, domain_id, offset, Classifier::records_per_entry);
}

void clear_entry(Port &port, std::size_t entry) {
    port.rules[entry] = {};
    std::fill_n(port.fibs.begin() + static_cast<std::ptrdiff_t>(entry * Classifier::records_per_entry),
                Classifier::records_per_entry, Fib{});
}

[[nodiscard]] vx_status_e check(const Fib &fib) {
    const auto &flags = fib.valid.mask_s;
    if (flags.dst_port_fields) {
        if (is_no_port(fib.dst_port_num)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(fib.gem_id_sel, LMQ_FE_CLS_GEM_SEL_CLS, LMQ_FE_CLS_GEM_SEL_INVALID_GEM))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    if (flags.vlan_fields) {
        if (!is_in_range(fib.inner_vlan_cmd, LMQ_FE_CLS_VLAN_CMD_NOP, LMQ_FE_CLS_VLAN_CMD_SWAP) ||
            !is_in_range(fib.inner_tpid_sel, LMQ_FE_CLS_INNER_TPID_SEL_NOP,
                         LMQ_FE_CLS_INNER_TPID_SEL_RX_PKT_OUTER_TPID) ||
            !is_in_range(fib.top_vlan_cmd, LMQ_FE_CLS_VLAN_CMD_NOP, LMQ_FE_CLS_VLAN_CMD_SWAP) ||
            !is_in_range(fib.top_tpid_sel, LMQ_FE_CLS_OUTER_TPID_SEL_NOP,
                         LMQ_FE_CLS_OUTER_TPID_SEL_RX_PKT_OUTER_TPID) ||
            !is_in_range(fib.egr_chk_vlan_sel, LMQ_FE_CLS_EGR_CHK_VLAN_OUTER, LMQ_FE_CLS_EGR_CHK_VLAN_DONT_CARE))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (fib.inner_vid > 4095 || fib.top_vid > 4095) return VX_ERR_FE_INVALID_VLAN_ID;
        if (!is_in_range(fib.outer_de_value, 0, 1) || !is_in_range(fib.inner_de_value, 0, 1))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    if (flags.dscp_fields) {
        if (!is_in_range(fib.dscp_sel, LMQ_FE_CLS_DSCP_SEL_RX_PKT, LMQ_FE_CLS_DSCP_SEL_MAP_RX_DOT1P))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (fib.dscp > 63) return VX_ERR_FE_CLS_KEY_INVALID_DSCP_VALUE;
    }
    if (flags.dot1p_fields) {
        if (!is_in_range(fib.inner_dot1p_sel, LMQ_FE_CLS_DOT1P_SEL_RX_PKT, LMQ_FE_CLS_DOT1P_SEL_PORT_DEF) ||
            !is_in_range(fib.top_dot1p_sel, LMQ_FE_CLS_DOT1P_SEL_RX_PKT, LMQ_FE_CLS_DOT1P_SEL_PORT_DEF) ||
            !is_in_range(fib.inner_dot1p, 0, 7) || !is_in_range(fib.top_dot1p, 0, 7))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    if (flags.cos_fields) {
        if (!is_in_range(fib.cos_sel, LMQ_FE_CLS_COS_SEL_PORT_DEF, LMQ_FE_CLS_COS_SEL_MAP_RX_DSCP) ||
            !is_in_range(fib.cos, 0, 7))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    if (flags.rate_limit_fields) {
        if (!is_in_range(fib.flow_id_sel, LMQ_FE_CLS_FLOW_ID_SEL_NO_RATE_LIMIT, LMQ_FE_CLS_FLOW_ID_SEL_MAP_TX_COS))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    }
    return VX_SUCCESS;
}

/* Takes the members of a record over that are not in a group, and the groups that are flagged. */
[[nodiscard]] vx_status_e take(Fib &kept, const Fib &given) {
    if (const vx_status_e refused = check(given)) return refused;
    const auto &flags = given.valid.mask_s;
    kept.valid_flag = as_boolean(given.valid_flag);
    kept.permit = as_boolean(given.permit);
    kept.permit_filter_dis = as_boolean(given.permit_filter_dis);
    kept.permit_priority = as_boolean(given.permit_priority);
    if (flags.dst_port_fields) {
        kept.dst_port_num = given.dst_port_num;
        kept.mirror_enbl = as_boolean(given.mirror_enbl);
        kept.mirror_pkt_src = as_boolean(given.mirror_pkt_src);
        kept.gem_id_sel = given.gem_id_sel;
        kept.gem_subpid = given.gem_subpid;
    }
    if (flags.vlan_fields) {
        kept.inner_vlan_cmd = given.inner_vlan_cmd;
        kept.inner_tpid_sel = given.inner_tpid_sel;
        kept.inner_vid = given.inner_vid;
        kept.top_vid_sel = as_boolean(given.top_vid_sel);
        kept.top_vlan_cmd = given.top_vlan_cmd;
        kept.top_tpid_sel = given.top_tpid_sel;
        kept.top_vid = given.top_vid;
        kept.egr_chk_vlan_sel = given.egr_chk_vlan_sel;
        kept.outer_de_override_enbl = as_boolean(given.outer_de_override_enbl);
        kept.outer_de_value = given.outer_de_value;
        kept.inner_de_override_enbl = as_boolean(given.inner_de_override_enbl);
        kept.inner_de_value = given.inner_de_value;
    }
    if (flags.dscp_fields) {
        kept.dscp_sel = given.dscp_sel;
        kept.dscp = given.dscp;
    }
    if (flags.dot1p_fields) {
        kept.inner_dot1p_sel = given.inner_dot1p_sel;
        kept.inner_dot1p = given.inner_dot1p;
        kept.top_dot1p_sel = given.top_dot1p_sel;
        kept.top_dot1p = given.top_dot1p;
    }
    if (flags.cos_fields) {
        kept.cos_sel = given.cos_sel;
        kept.cos = given.cos;
    }
    if (flags.learn_fields) {
        kept.learn_dsbl = as_boolean(given.learn_dsbl);
        kept.learn_limit_permit = as_boolean(given.learn_limit_permit);
    }
    if (flags.rate_limit_fields) {
        kept.flow_id_sel = given.flow_id_sel;
        kept.flow_id = given.flow_id;
        kept.bypass_rate_limiter = as_boolean(given.bypass_rate_limiter);
    }
    if (flags.sw_id_fields) {
        kept.sw_id_sel = as_boolean(given.sw_id_sel);
        kept.sw_id = given.sw_id;
    }
    return VX_SUCCESS;
}

Fib flagged(const Fib &kept) {
    Fib fib = kept;
    fib.valid.mask_s = {.dst_port_fields = 1,
                        .vlan_fields = 1,
                        .dscp_fields = 1,
                        .dot1p_fields = 1,
                        .cos_fields = 1,
                        .learn_fields = 1,
                        .rate_limit_fields = 1,
                        .sw_id_fields = 1};
    clear_beside_flags(fib.valid, 8);
    return fib;
}

/* When a filter has aged or will have; nothing if it does not age. */
std::optional<Clock::Time> aged_at(const Port &port, const Classifier::Aging &aging) {
    if (!port.control.mac_filter_aging_en || !aging.cfg.entry_dynamic) return std::nullopt;
    return aging.since + std::chrono::seconds(aging.cfg.max_limit);
}

/* The place of a range among those of its kind. */
Result<vx_cls_l4_port_range_t &> range_at(Port &port, vx_cls_l4_port_type_t type, vx_uint8 index) {
    const auto ranges = at(port.ranges, type);
    if (!ranges) return ranges.status();
    return at(*ranges, index);
}

void print_rule(const Device &device, vx_port_id_t port_id, const Port &port, std::size_t entry) {
    const Rule &rule = port.rules[entry];
    const auto first = entry * Classifier::records_per_entry;
    device.system.print("cls", "port %u entry %zu: %s, key type %d, keys 0x%02x", unsigned{port_id}, entry,
                        rule.entryvalid ? "in use" : "free", static_cast<int>(rule.key_type),
                        unsigned{keys_in_use(rule)});
    for (std::size_t i = 0; i < Classifier::records_per_entry; ++i) {
        const Fib &fib = port.fibs[first + i];
        if (!fib.valid_flag) continue;
        device.system.print("cls", "  key %zu: %s, destination port %u, class of service %u", i,
                            fib.permit ? "permit" : "deny", unsigned{fib.dst_port_num}, unsigned{fib.cos});
    }
}

}  // namespace

lmq_fe_id_e engine_of(vx_port_id_t port) {
    if (port == VX_PORT_SNI0) return LMQ_FE_DOWNSTREAM;
    return port == VX_PORT_CPU || port == VX_PORT_MGMT ? LMQ_FE_CPU_MA : LMQ_FE_UPSTREAM;
}

void pass_time(Device &device, Classifier &classifier) {
    for (auto &[port_id, port] : classifier.ports) {
        for (Classifier::Aging &aging : port.aging) {
            const auto time = aged_at(port, aging);
            if (aging.reported || !time || *time > device.system.clock.now()) continue;
            aging.reported = true;
            raise_event(device, {VX_EVENT_FE_MAC_FILTER_AGEOUT, port_id, 0}, {});
        }
    }
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_cls_init(vx_dev_id_t dev_id) {
    return on_device(__func__, dev_id, {}, [](Device &device) { device.classifier.ports.clear(); });
}

vx_status_e vx_cls_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg) {
    return on_port(__func__, dev_id, port_id, {cfg}, [&](Port &port) {
        const auto &flags = cfg->valid;
        const bool reversed = std::lexicographical_compare(std::begin(cfg->mac_da_high), std::end(cfg->mac_da_high),
                                                           std::begin(cfg->mac_da_low), std::end(cfg->mac_da_low));
        if (flags.mac_da_range && reversed) return VX_ERR_GLBL_INVALID_PARAMS;
        vx_cls_cl_ctrl_t &kept = port.control;
        merge(flags.mac_da_range, kept.mac_da_high, cfg->mac_da_high);
        merge(flags.mac_da_range, kept.mac_da_low, cfg->mac_da_low);
        merge(flags.mac_filter_aging_en, kept.mac_filter_aging_en, as_boolean(cfg->mac_filter_aging_en));
        merge(flags.tos_ecn_msk_en, kept.tos_ecn_msk_en, as_boolean(cfg->tos_ecn_msk_en));
        merge(flags.ce_msk_cfi_flg, kept.ce_msk_cfi_flg, as_boolean(cfg->ce_msk_cfi_flg));
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_cl_ctrl_t *cfg) {
    return on_port(__func__, dev_id, port_id, {cfg}, [&](Port &port) {
        *cfg = port.control;
        cfg->valid = {.mac_da_range = 1, .mac_filter_aging_en = 1, .tos_ecn_msk_en = 1, .ce_msk_cfi_flg = 1, .rsvd = 0};
    });
}

vx_status_e vx_cls_domain_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id,
                              vx_cls_domain_res_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) { return set_domain(port, domain_id, *p_cfg); });
}

vx_status_e vx_cls_domain_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id,
                              vx_cls_domain_res_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg},
                   [&](Port &port) { return copy(at(port.domains, domain_id), p_cfg); });
}

vx_status_e vx_cls_domain_rule_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id) {
    return on_port(__func__, dev_id, port_id, {}, [&](Port &port) {
        const Result<vx_cls_domain_res_t &> domain = at(port.domains, domain_id);
        if (!domain) return domain.status();
        for (std::size_t i = 0; i < domain->cl_entry_length; ++i) clear_entry(port, domain->cl_entry_start + i);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_rule_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset,
                            vx_cls_rule_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        const Result<Rule &> kept = rule_at(port, domain_id, rule_offset);
        if (!kept) return kept.status();
        if (!visit_keys(*p_cfg, [](const auto &) {})) return VX_ERR_FE_CLS_INVALID_KEY_TYPE;
        *kept = p_cfg->entryvalid ? *p_cfg : Rule{};
        kept->entryvalid = as_boolean(p_cfg->entryvalid);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_rule_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 rule_offset,
                            vx_cls_rule_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg},
                   [&](Port &port) { return copy(rule_at(port, domain_id, rule_offset), p_cfg); });
}

vx_status_e vx_cls_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset,
                           vx_cls_fib_data_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        const Result<Fib &> kept = fib_at(port, domain_id, key_offset);
        return kept ? take(*kept, *p_cfg) : kept.status();
    });
}

vx_status_e vx_cls_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 domain_id, vx_uint8 key_offset,
                           vx_cls_fib_data_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        const Result<Fib &> kept = fib_at(port, domain_id, key_offset);
        if (!kept) return kept.status();
        *p_cfg = flagged(*kept);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_no_match_fib_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) { return take(port.no_match, *p_cfg); });
}

vx_status_e vx_cls_no_match_fib_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_fib_data_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) { *p_cfg = flagged(port.no_match); });
}

vx_status_e vx_cls_type_no_match_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap,
                                     vx_uint32 deny_bitmap) {
    return on_port(__func__, dev_id, port_id, {}, [&](Port &port) {
        if ((key_type_bitmap & ~known_key_types) != 0) return VX_ERR_FE_CLS_INVALID_KEY_TYPE;
        port.denied_types = (port.denied_types & ~key_type_bitmap) | (deny_bitmap & key_type_bitmap);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_type_no_match_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 key_type_bitmap,
                                     vx_uint32 *deny_bitmap) {
    return on_port(__func__, dev_id, port_id, {deny_bitmap}, [&](Port &port) {
        if ((key_type_bitmap & ~known_key_types) != 0) return VX_ERR_FE_CLS_INVALID_KEY_TYPE;
        *deny_bitmap = port.denied_types & key_type_bitmap;
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_l4_port_range_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type,
                                     vx_uint8 index, vx_cls_l4_port_range_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        const Result<vx_cls_l4_port_range_t &> kept = range_at(port, port_type, index);
        if (!kept) return kept.status();
        if (p_cfg->low_port > p_cfg->high_port) return VX_ERR_FE_CLS_INVALID_PORT_RANGE_FOR_L4_PORT;
        *kept = *p_cfg;
        kept->cmp_en = as_boolean(p_cfg->cmp_en);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_l4_port_range_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_l4_port_type_t port_type,
                                     vx_uint8 index, vx_cls_l4_port_range_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg},
                   [&](Port &port) { return copy(range_at(port, port_type, index), p_cfg); });
}

vx_status_e vx_cls_spcl_ptn_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        if (!is_in_range(p_cfg->spcl_hdr_mode_sel, CLS_SPCL_MODE_STA, CLS_SPCL_MODE_DYN))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        port.pattern_control = {.spcl_hdr_mode_sel = p_cfg->spcl_hdr_mode_sel,
                                .spcl_hdr_after_l2hdr_en = as_boolean(p_cfg->spcl_hdr_after_l2hdr_en),
                                .spcl_hdr_after_iphdr_en = as_boolean(p_cfg->spcl_hdr_after_iphdr_en),
                                .spcl_hdr_after_l4hdr_en = as_boolean(p_cfg->spcl_hdr_after_l4hdr_en),
                                .spcl_hdr_parsing_en = as_boolean(p_cfg->spcl_hdr_parsing_en),
                                .spcl_glb_hdr_strt_idx = p_cfg->spcl_glb_hdr_strt_idx};
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_spcl_ptn_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_spcl_ptn_control_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) { *p_cfg = port.pattern_control; });
}

vx_status_e vx_cls_spcl_ptn_entry_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                      vx_cls_spcl_ptn_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        const Result<vx_cls_spcl_ptn_t &> kept = at(port.patterns, index);
        if (!kept) return kept.status();
        if (!is_in_range(p_cfg->spcl_ptn_type, LMQ_CL_SPCL_PTN_TYPE_L2, LMQ_CL_SPCL_PTN_TYPE_STA) ||
            !is_in_range(p_cfg->spcl_ptn_cmp, LMQ_CL_SPCL_PTN_CMP_LO, LMQ_CL_SPCL_PTN_CMP_HI))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        *kept = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_spcl_ptn_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                      vx_cls_spcl_ptn_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg},
                   [&](Port &port) { return copy(at(port.patterns, index), p_cfg); });
}

vx_status_e vx_cls_aging_timer_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                   vx_cls_mac_aging_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const Result<Classifier::Aging &> kept = at(device.classifier.ports[port_id].aging, index);
        if (!kept) return kept.status();
        *kept = {.cfg = *p_cfg, .since = device.system.clock.now(), .reported = false};
        kept->cfg.entry_dynamic = as_boolean(p_cfg->entry_dynamic);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_aging_timer_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 index,
                                   vx_cls_mac_aging_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        const Result<Classifier::Aging &> kept = at(port.aging, index);
        if (!kept) return kept.status();
        *p_cfg = kept->cfg;
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_mac_filter_aging_vld_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint32 *bitmap_high,
                                                   vx_uint32 *bitmap_low) {
    return on_device(__func__, dev_id, {bitmap_high, bitmap_low}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const Port &port = device.classifier.ports[port_id];
        std::uint64_t bits = 0;
        for (std::size_t i = 0; i < port.aging.size(); ++i) {
            const auto time = aged_at(port, port.aging[i]);
            const bool aged = time && *time <= device.system.clock.now();
            if (port.aging[i].cfg.entry_dynamic && !aged) bits |= std::uint64_t{1} << i;
        }
        *bitmap_high = static_cast<vx_uint32>(bits >> 32);
        *bitmap_low = static_cast<vx_uint32>(bits);
        return VX_SUCCESS;
    });
}

vx_status_e vx_cls_mac_filter_aged_latest_entry_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 *entry_index) {
    return on_device(__func__, dev_id, {entry_index}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const Port &port = device.classifier.ports[port_id];
        std::optional<Clock::Time> latest;
        *entry_index = LMQ_INVALID_ID8;
        for (std::size_t i = 0; i < port.aging.size(); ++i) {
            const auto time = aged_at(port, port.aging[i]);
            if (!time || *time > device.system.clock.now() || (latest && *time <= *latest)) continue;
            latest = time;
            *entry_index = static_cast<vx_uint8>(i);
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_port_mirror_set(vx_int32 device_id, vx_port_id_t dst_port, vx_uint32 rx_port_bitmap,
                               vx_uint32 tx_port_bitmap) {
    return on_device(__func__, device_id, {}, [&](Device &device) {
        const vx_uint32 mirrored = rx_port_bitmap | tx_port_bitmap;
        if (mirrored >> (VX_PORT_VOIP0 + 1) != 0) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (mirrored == 0) {
            device.classifier.mirror = {};
            return VX_SUCCESS;
        }
        if (is_no_port(dst_port)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (mirrored >> dst_port & 1U) return VX_ERR_PORT_INVALID_CFG;
        device.classifier.mirror = {.to = dst_port, .rx = rx_port_bitmap, .tx = tx_port_bitmap};
        return VX_SUCCESS;
    });
}

vx_status_e vx_port_mirror_get(vx_int32 device_id, vx_port_id_t *dst_port, vx_uint32 *rx_port_bitmap,
                               vx_uint32 *tx_port_bitmap) {
    return on_device(__func__, device_id, {dst_port, rx_port_bitmap, tx_port_bitmap}, [&](Device &device) {
        *dst_port = device.classifier.mirror.to;
        *rx_port_bitmap = device.classifier.mirror.rx;
        *tx_port_bitmap = device.classifier.mirror.tx;
    });
}

vx_status_e vx_cls_debug_status_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_status_t *p_dbg_stat) {
    return on_port(__func__, dev_id, port_id, {p_dbg_stat}, [&](Port &port) {
        *p_dbg_stat = {};
        p_dbg_stat->user_entry = port.counted.entry_addr;
        p_dbg_stat->user_entry_hit_cnt = port.counted.hit_count;
    });
}

vx_status_e vx_cls_debug_prog_count_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_cls_debug_prog_ent_cnt_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Port &port) {
        if (!is_in_range(p_cfg->entry_addr, 0, Classifier::max_entries - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        port.counted = *p_cfg;
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_fe_cl_entry_status(vx_dev_id_t dev_id, lmq_fe_id_e fe_inst, lmq_fe_cl_entry_status *p_status) {
    return on_device(__func__, dev_id, {p_status}, [&](Device &device) {
        if (const vx_status_e refused = check_engine(fe_inst)) return refused;
        *p_status = {};
        for (const auto &[port_id, port] : device.classifier.ports) {
            if (engine_of(port_id) != fe_inst) continue;
            for (std::size_t entry = 0; entry < port.rules.size(); ++entry) {
                if (!port.rules[entry].entryvalid || p_status->valid_cnt == LMQ_FE_CL_MAX_ENTRY) continue;
                const vx_uint8 keys = keys_in_use(port.rules[entry]);
                p_status->entry_status[p_status->valid_cnt++] = {
                    .entry_id = static_cast<vx_uint8>(entry),
                    .valid = TRUE,
                    .key_type = flow_key_type(port.rules[entry].key_type),
                    .key_cnt = static_cast<vx_uint8>(std::popcount(keys)),
                    .valid_key_bitmap = keys,
                    .entry_hit_cnt = port.counted.entry_addr == entry ? port.counted.hit_count : 0};
            }
        }
        return VX_SUCCESS;
    });
}

vx_status_e lmq_get_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id, lmq_fe_pkt_stats_s *p_stats, vx_boolean clear) {
    return on_device(__func__, dev_id, {p_stats}, [&](Device &device) {
        if (const vx_status_e refused = check_engine(fe_id)) return refused;
        read_counters(device.classifier.stats[static_cast<std::size_t>(fe_id)], p_stats, clear != FALSE);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_clear_fe_pkt_stats(vx_dev_id_t dev_id, lmq_fe_id_e fe_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_engine(fe_id)) return refused;
        device.classifier.stats[static_cast<std::size_t>(fe_id)] = {};
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dump_cls_key(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 entry_idx) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!is_in_range(entry_idx, 0, Classifier::max_entries - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        print_rule(device, port_id, device.classifier.ports[port_id], entry_idx);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dump_cls_key_list(vx_dev_id_t dev_id, vx_port_id_t port_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        const Port &port = device.classifier.ports[port_id];
        for (std::size_t entry = 0; entry < port.rules.size(); ++entry) {
            if (port.rules[entry].entryvalid) print_rule(device, port_id, port, entry);
        }
        return VX_SUCCESS;
    });
}

namespace {

void print_upstream(Device &device, const vx_flow_us_cfg_t &flow) {
    device.system.print("flow", "%u: upstream from port %u to port %u, sub-port %u, key type %d, priority %u",
                        flow.flow_id, unsigned{flow.port_num}, unsigned{flow.map_port}, unsigned{flow.map_sub_port},
                        static_cast<int>(flow.key.key_type), unsigned{flow.pri});
}

void print_downstream(Device &device, const Flows::Downstream &flow) {
    device.system.print("flow", "%u: downstream from port %u to port %u, key type %d, priority %u", flow.cfg.flow_id,
                        unsigned{flow.port}, unsigned{flow.cfg.map_port}, static_cast<int>(flow.cfg.key.key_type),
                        unsigned{flow.cfg.pri});
}

}  // namespace

vx_status_e lmq_dump_pkt_flow(vx_dev_id_t dev_id, vx_flow_id_t flow_id) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (!device.flow.exists(flow_id)) return VX_ERR_FE_INVALID_FLOW_ID;
        if (const auto *upstream = device.flow.upstream.find(flow_id)) print_upstream(device, *upstream);
        if (const auto *downstream = device.flow.downstream.find(flow_id)) print_downstream(device, *downstream);
        return VX_SUCCESS;
    });
}

vx_status_e lmq_dump_pkt_flow_all(vx_dev_id_t dev_id, vx_uint16 cnt) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        unsigned left = cnt;
        for (const auto &entry : device.flow.upstream)
            if (left != 0) print_upstream(device, entry.second), --left;
        for (const auto &entry : device.flow.downstream)
            if (left != 0) print_downstream(device, entry.second), --left;
    });
}

}  // extern "C"
