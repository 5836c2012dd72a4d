// Layer 2 forwarding.
//
// Choices, each for want of a rule:
// - All ports of vx_port_num_t forward. VX_INVALID_PORT_ID in place of a port means all of them in a walk of the FDB.
// - The FDB has 1024 entries. A handle is from 1 up, and 0 starts a walk; the entries come in the order of their
//   handles, and VX_ERR_FE_FDB_ENTRY_NOT_FOUND ends it. An entry that is deleted meanwhile does not stop it.
// - An entry is known by those of address, VLAN and priority that its *_valid name, at least one of them. A second
//   one that is the same in them is VX_ERR_GLBL_ENTRY_EXIST. It is added as dynamic or static, not as both.
// - A delete goes by the handle; with the handle 0 it goes by the entry, which may be NULL otherwise. The type has to
//   cover the entry.
// - Ageing is in seconds, 300 at first; 0 means never. aging_time of an entry is what is left, 0 for a static one. It
//   ages as long as dsbl_hw_aging is not set. Nothing is learnt, since no packets flow.
// - Each entry that ages raises VX_EVENT_FE_L2_ENTRY_AGEOUT, and the dynamic entry that fills the FDB
//   VX_EVENT_FE_DYNAMIC_L2_ENTRY_FULL.
// - Ports learn at first, up to the whole FDB.
// - The largest packet is 64 to 9600 bytes, 1518 at first.
// - A host MAC filter has 16 addresses, none of them zero or a group address. One that is there already makes the
//   whole add fail, one that is not there the whole delete. A filter does not turn from positive to negative, or
//   back, while it has addresses: VX_ERR_FE_MAC_FILTER_MODE_CONFILCT.
// - A TPID that was never set is disabled, and its tags are admitted.
// - Ports begin with LMQ_FE_DFT_PVID and LMQ_DEFAULT_TPID, in the spanning tree state STP_OFF.
#include "driver/l2.h"

#include <algorithm>
#include <cstring>
#include <iterator>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

constexpr std::size_t filter_size = 16;
constexpr vx_uint32 first_aging_time = 300;
constexpr vx_uint16 least_packet = 64, largest_packet = 9600, usual_packet = 1518;
constexpr vx_uint16 last_vid = LMQ_MAX_VID;

/// Runs an operation on a port, as on_device() on a device. The body gets the family's state.
template <typename Body>
vx_status_e on_port(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id,
                    std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        return run(body, device.l2);
    });
}

/// The get of a setting that exists for each port.
template <typename T>
vx_status_e get(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, T *to,
                Setting<vx_port_id_t, T> Layer2::*setting) noexcept {
    return on_port(function, dev_id, port_id, {to}, [&](Layer2 &l2) { *to = (l2.*setting).get(port_id); });
}

/// The set of a setting of each port: `change(kept)` checks what is given, and takes it over into a copy.
template <typename T, typename Change>
vx_status_e set(const char *function, vx_dev_id_t dev_id, vx_port_id_t port_id, const void *from,
                Setting<vx_port_id_t, T> Layer2::*setting, Change change) noexcept {
    return on_port(function, dev_id, port_id, {from}, [&](Layer2 &l2) {
        T changed = (l2.*setting).get(port_id);
        if (const vx_status_e refused = run(change, changed)) return refused;
        (l2.*setting).set(port_id, changed);
        return VX_SUCCESS;
    });
}

vx_l2_learn_port_cfg_t first_learn_port() {
    vx_l2_learn_port_cfg_t cfg{};
    cfg.enbl_mac_lrn = TRUE;
    cfg.lrn_lmt = Layer2::fdb_size;
    cfg.valid.mask = 0x1FF;
    return cfg;
}

vx_l2_mtu_cfg_t first_mtu() {
    vx_l2_mtu_cfg_t cfg{};
    cfg.max_pkt_size = usual_packet;
    cfg.valid.mask = 0x3;
    return cfg;
}

vx_l2_fe_tpid_cfg_t first_port_tpid() {
    vx_l2_fe_tpid_cfg_t cfg{};
    cfg.ingr_outer_tpid1 = LMQ_DEFAULT_TPID;
    cfg.ingr_inner_tpid1 = LMQ_DEFAULT_TPID;
    cfg.valid.mask_s = {1, 1, 1, 1, 1, 1, 1, 1, 1};
    clear_beside_flags(cfg.valid, 9);
    return cfg;
}

vx_l2_port_cfg_t first_port() {
    vx_l2_port_cfg_t cfg{};
    cfg.dft_pvid = LMQ_FE_DFT_PVID;
    cfg.dft_tpid = LMQ_DEFAULT_TPID;
    cfg.valid.mask = 0x7FF;
    return cfg;
}

vx_l2_static_pkt_fwd_cfg_t first_static_forwarding() {
    vx_l2_static_pkt_fwd_cfg_t cfg{};
    cfg.valid.mask = 0x7;
    return cfg;
}

[[nodiscard]] vx_status_e check_type(vx_l2_fdb_entry_op_type_t type, int last = VX_FDB_ENTRY_OP_TYPE_BOTH) {
    if (!is_in_range(type, VX_FDB_ENTRY_OP_TYPE_DYNAMIC, last)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    return VX_SUCCESS;
}

bool covers(vx_l2_fdb_entry_op_type_t type, const FdbEntry &known) {
    return (type & (known.is_static ? VX_FDB_ENTRY_OP_TYPE_STATIC : VX_FDB_ENTRY_OP_TYPE_DYNAMIC)) != 0;
}

/// Whether two entries are the same in what they are known by.
bool same(const vx_l2_fdb_entry_t &a, const vx_l2_fdb_entry_t &b) {
    if (as_boolean(a.mac_addr_valid) != as_boolean(b.mac_addr_valid) ||
        as_boolean(a.vid_valid) != as_boolean(b.vid_valid) || as_boolean(a.p_bit_valid) != as_boolean(b.p_bit_valid)) {
        return false;
    }
    return (!a.mac_addr_valid || std::equal(std::begin(a.mac_addr), std::end(a.mac_addr), std::begin(b.mac_addr))) &&
           (!a.vid_valid || a.vlan_id == b.vlan_id) && (!a.p_bit_valid || a.p_bit == b.p_bit);
}

/// Seconds that an entry has left: 0 for one that does not age.
vx_uint32 time_left(const Device &device, const FdbEntry &known) {
    const Layer2 &l2 = device.l2;
    if (known.is_static || l2.learn.dsbl_hw_aging || l2.aging_timer == 0) return 0;
    const auto age = std::chrono::duration_cast<std::chrono::seconds>(device.system.clock.now() - known.added).count();
    return age < l2.aging_timer ? l2.aging_timer - static_cast<vx_uint32>(age) : 0;
}

/// Deletes the entries for which `condition(entry)` holds, and takes their handles back. @return How many.
template <typename Condition>
std::size_t erase_if(Device &device, Condition condition) {
    Layer2 &l2 = device.l2;
    const std::size_t erased = l2.fdb.erase_if([&](vx_l2_fdb_entry_handle_t handle, const FdbEntry &known) {
        return condition(known) && l2.handles.take_back(handle);
    });
    if (erased != 0) end_event(device, {VX_EVENT_FE_DYNAMIC_L2_ENTRY_FULL, 0, 0});
    return erased;
}

/// Reads a list of filter addresses. Refuses an address that is none of a host.
///
/// An address of zeros is refused before what stands behind it is read: a count beyond a list that is closed by zeros
/// reads no further.
Result<std::vector<Layer2::Mac>> addresses(vx_uint8 count, const vx_l2_user_mac_addr_cfg_t *list) {
    if (!is_in_range(count, 1, filter_size)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
    std::vector<Layer2::Mac> given;
    for (vx_uint8 i = 0; i < count; ++i) {
        Layer2::Mac mac;
        std::copy(std::begin(list[i].mac_addr), std::end(list[i].mac_addr), mac.begin());
        const bool group = (mac[0] & 1) != 0;
        if (group || mac == Layer2::Mac{}) return VX_ERR_GLBL_INVALID_PARAMS;
        given.push_back(mac);
    }
    return given;
}

}  // namespace

void pass_time(Device &device, Layer2 &l2) {
    if (l2.learn.dsbl_hw_aging || l2.aging_timer == 0) return;
    std::size_t aged =
        erase_if(device, [&](const FdbEntry &known) { return !known.is_static && time_left(device, known) == 0; });
    for (; aged != 0; --aged) raise_event(device, {VX_EVENT_FE_L2_ENTRY_AGEOUT, 0, 0}, {});
}

void reset(Device &device, Layer2 &) {
    erase_if(device, [](const FdbEntry &known) { return !known.is_static; });
}

Layer2::Layer2()
    : learn_port(first_learn_port()),
      aging_timer(first_aging_time),
      mtu(first_mtu()),
      tpid(vx_l2_tpid_cfg_t{VX_L2_TPID_MODE_DISABLE, TRUE, TRUE}),
      port_tpid(first_port_tpid()),
      port(first_port()),
      static_forwarding(first_static_forwarding()) {
    learn.valid.mask_s = {.dsbl_hw_lrn = 1,
                          .dsbl_hw_aging = 1,
                          .dsbl_stn_mv = 0,
                          .stn_mv_act = 1,
                          .loop_det_act = 1,
                          .loop_det_timer = 1,
                          .rsvd = 0};
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_l2_learn_set(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.stn_mv_act && !is_in_range(p_cfg->stn_mv_act, VX_STN_MV_ACT_DRP_PKT, VX_STN_MV_ACT_FWD_LRN))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.loop_det_act && !is_in_range(p_cfg->loop_det_act, VX_LP_DET_ACT_DISABLE, VX_LP_DET_ACT_DRP_PKT))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;

        vx_l2_learn_cfg_t &kept = device.l2.learn;
        merge(flags.dsbl_hw_lrn, kept.dsbl_hw_lrn, as_boolean(p_cfg->dsbl_hw_lrn));
        merge(flags.dsbl_hw_aging, kept.dsbl_hw_aging, as_boolean(p_cfg->dsbl_hw_aging));
        merge(flags.stn_mv_act, kept.stn_mv_act, p_cfg->stn_mv_act);
        merge(flags.loop_det_act, kept.loop_det_act, p_cfg->loop_det_act);
        merge(flags.loop_det_timer, kept.loop_det_timer, p_cfg->loop_det_timer);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_learn_get(vx_dev_id_t dev_id, vx_l2_learn_cfg_t *p_cfg) {
    return on_device(__func__, dev_id, {p_cfg}, [&](Device &device) { *p_cfg = device.l2.learn; });
}

vx_status_e vx_l2_learn_port_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg) {
    return set(__func__, dev_id, port_id, p_cfg, &Layer2::learn_port, [&](vx_l2_learn_port_cfg_t &kept) {
        const auto &flags = p_cfg->valid.mask_s;
        const auto beyond = [](int value, int last) { return value < 0 || value > last; };
        if (flags.lrn_vid_sel && beyond(p_cfg->lrn_vid_sel, VX_LRN_EGR_INNER_VID))
            return VX_ERR_FE_FDB_INVALID_VLAN_LRN_OP;
        if (flags.lrn_lmt_pkt_act && beyond(p_cfg->lrn_lmt_pkt_act, VX_LRN_LMT_PKT_ACT_DRP))
            return VX_ERR_FE_FDB_INVALID_LRN_LMT_PKT_ACT;
        if (flags.lrn_lmt_lrn_act && beyond(p_cfg->lrn_lmt_lrn_act, VX_LRN_LMT_LRN_ACT_REP_OLD_ENT))
            return VX_ERR_FE_FDB_INVALID_LRN_LMT_LRN_ACT;
        if (flags.lrn_lmt && p_cfg->lrn_lmt > Layer2::fdb_size) return VX_ERR_FE_FDB_INVALID_TBL_SZ;

        merge(flags.enbl_pbit_lrn, kept.enbl_pbit_lrn, as_boolean(p_cfg->enbl_pbit_lrn));
        merge(flags.enbl_vid_lrn, kept.enbl_vid_lrn, as_boolean(p_cfg->enbl_vid_lrn));
        merge(flags.lrn_vid_sel, kept.lrn_vid_sel, p_cfg->lrn_vid_sel);
        merge(flags.enbl_mac_lrn, kept.enbl_mac_lrn, as_boolean(p_cfg->enbl_mac_lrn));
        merge(flags.dsbl_drp_pkt_lrn, kept.dsbl_drp_pkt_lrn, as_boolean(p_cfg->dsbl_drp_pkt_lrn));
        merge(flags.dsbl_cpu_pkt_lrn, kept.dsbl_cpu_pkt_lrn, as_boolean(p_cfg->dsbl_cpu_pkt_lrn));
        merge(flags.lrn_lmt_pkt_act, kept.lrn_lmt_pkt_act, p_cfg->lrn_lmt_pkt_act);
        merge(flags.lrn_lmt_lrn_act, kept.lrn_lmt_lrn_act, p_cfg->lrn_lmt_lrn_act);
        merge(flags.lrn_lmt, kept.lrn_lmt, p_cfg->lrn_lmt);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_learn_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_learn_port_cfg_t *p_cfg) {
    return get(__func__, dev_id, port_id, p_cfg, &Layer2::learn_port);
}

vx_status_e vx_l2_learn_port_enable_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean enbl) {
    return set(__func__, dev_id, port_id, &enbl, &Layer2::learn_port,
               [&](vx_l2_learn_port_cfg_t &kept) { kept.enbl_mac_lrn = as_boolean(enbl); });
}

vx_status_e vx_l2_learn_port_enable_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_enbl) {
    return on_port(__func__, dev_id, port_id, {p_enbl},
                   [&](Layer2 &l2) { *p_enbl = l2.learn_port.get(port_id).enbl_mac_lrn; });
}

vx_status_e vx_l2_aging_timer_set(vx_dev_id_t dev_id, vx_uint32 aging_time) {
    return on_device(__func__, dev_id, {}, [&](Device &device) { device.l2.aging_timer = aging_time; });
}

vx_status_e vx_l2_aging_timer_get(vx_dev_id_t dev_id, vx_uint32 *p_aging_time) {
    return on_device(__func__, dev_id, {p_aging_time}, [&](Device &device) { *p_aging_time = device.l2.aging_timer; });
}

vx_status_e vx_l2_fdb_entry_add(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_t *p_mac_entry,
                                vx_l2_fdb_entry_handle_t *p_handle) {
    return on_device(__func__, dev_id, {p_mac_entry, p_handle}, [&](Device &device) {
        const vx_l2_fdb_entry_t &given = *p_mac_entry;
        if (const vx_status_e refused = check_type(type, VX_FDB_ENTRY_OP_TYPE_STATIC)) return refused;
        if (is_no_port(given.port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (!given.mac_addr_valid && !given.vid_valid && !given.p_bit_valid) return VX_ERR_GLBL_INVALID_PARAMS;
        if (given.vid_valid && given.vlan_id > last_vid) return VX_ERR_FE_INVALID_VLAN_ID;
        if (given.p_bit_valid && !is_in_range(given.p_bit, 0, LMQ_MAX_DOT1P - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;

        auto &fdb = device.l2.fdb;
        if (std::any_of(fdb.begin(), fdb.end(), [&](auto &known) { return same(known.second.entry, given); }))
            return VX_ERR_GLBL_ENTRY_EXIST;
        if (fdb.size() >= Layer2::fdb_size) return VX_ERR_FE_FDB_ENTRY_UNAVAIL;
        // There are more handles than entries.
        const vx_l2_fdb_entry_handle_t handle = device.l2.handles.give().value();
        fdb.insert(handle, {given, type == VX_FDB_ENTRY_OP_TYPE_STATIC, device.system.clock.now()});
        *p_handle = handle;
        const bool full = fdb.size() >= Layer2::fdb_size;
        if (full && type == VX_FDB_ENTRY_OP_TYPE_DYNAMIC) {
            raise_event(device, {VX_EVENT_FE_DYNAMIC_L2_ENTRY_FULL, 0, 0}, {});
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_fdb_entry_delete(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type, vx_l2_fdb_entry_handle_t handle,
                                   vx_l2_fdb_entry_t *p_mac_entry) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_type(type)) return refused;
        auto &fdb = device.l2.fdb;
        vx_l2_fdb_entry_handle_t found = handle;
        if (handle == 0) {
            if (!p_mac_entry) return VX_ERR_DEV_NULL_PTR;
            for (const auto &[known, entry] : fdb) {
                if (same(entry.entry, *p_mac_entry)) found = known;
            }
        }
        const FdbEntry *entry = fdb.find(found);
        if (entry == nullptr || !covers(type, *entry)) return VX_ERR_FE_FDB_ENTRY_NOT_FOUND;
        erase_if(device, [&](const FdbEntry &known) { return &known == entry; });
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_fdb_entry_get_next(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_handle_t handle,
                                     vx_l2_fdb_entry_op_type_t mode, vx_l2_mac_tbl_entry_t *p_mac_entry,
                                     vx_l2_fdb_entry_handle_t *p_handle) {
    return on_device(__func__, dev_id, {p_mac_entry, p_handle}, [&](Device &device) {
        const bool all_ports = port_id == VX_INVALID_PORT_ID;
        if (!all_ports && is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check_type(mode)) return refused;
        auto &fdb = device.l2.fdb;
        const auto next = std::find_if(fdb.after(handle), fdb.end(), [&](const auto &known) {
            return covers(mode, known.second) && (all_ports || known.second.entry.port_id == port_id);
        });
        if (next == fdb.end()) return VX_ERR_FE_FDB_ENTRY_NOT_FOUND;
        const FdbEntry &found = next->second;
        vx_l2_mac_tbl_entry_t &to = *p_mac_entry;
        std::copy(std::begin(found.entry.mac_addr), std::end(found.entry.mac_addr), to.mac_addr);
        to.p_bit = found.entry.p_bit;
        to.vlan_id = found.entry.vlan_id;
        to.mac_addr_valid = as_boolean(found.entry.mac_addr_valid);
        to.p_bit_valid = as_boolean(found.entry.p_bit_valid);
        to.vid_valid = as_boolean(found.entry.vid_valid);
        to.port_id = found.entry.port_id;
        to.is_static = found.is_static ? TRUE : FALSE;
        to.aging_time = time_left(device, found);
        *p_handle = next->first;
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_fdb_entry_clear(vx_dev_id_t dev_id, vx_l2_fdb_entry_op_type_t type) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (const vx_status_e refused = check_type(type)) return refused;
        erase_if(device, [&](const FdbEntry &known) { return covers(type, known); });
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_fdb_entry_port_clear(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_fdb_entry_op_type_t type) {
    return on_device(__func__, dev_id, {}, [&](Device &device) {
        if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
        if (const vx_status_e refused = check_type(type)) return refused;
        erase_if(device, [&](const FdbEntry &known) { return covers(type, known) && known.entry.port_id == port_id; });
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_port_stp_state_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t stp_state) {
    return set(__func__, dev_id, port_id, &stp_state, &Layer2::stp, [&](vx_l2_stp_state_t &kept) {
        if (!is_in_range(stp_state, VX_L2_STP_STATE_STP_OFF, VX_L2_STP_STATE_LINK_DOWN))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        kept = stp_state;
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_port_stp_state_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_stp_state_t *stp_state) {
    return get(__func__, dev_id, port_id, stp_state, &Layer2::stp);
}

vx_status_e vx_l2_mtu_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg) {
    return set(__func__, dev_id, port_id, p_cfg, &Layer2::mtu, [&](vx_l2_mtu_cfg_t &kept) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.max_pkt_size && !is_in_range(p_cfg->max_pkt_size, least_packet, largest_packet))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        merge(flags.max_pkt_size, kept.max_pkt_size, p_cfg->max_pkt_size);
        merge(flags.exclude_tag, kept.exclude_tag, as_boolean(p_cfg->exclude_tag));
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_mtu_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_mtu_cfg_t *p_cfg) {
    return get(__func__, dev_id, port_id, p_cfg, &Layer2::mtu);
}

vx_status_e vx_l2_mac_addr_filter_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_l2_mac_addr_filter_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Layer2 &l2) {
        const vx_l2_filter_type_t given = p_cfg->filter_type, kept = l2.filter.get(port_id);
        if (!is_in_range(given, LMQ_FILTER_DISABLE, LMQ_FILTER_NEGATIVE)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const bool turns = given != kept && given != LMQ_FILTER_DISABLE && kept != LMQ_FILTER_DISABLE;
        if (turns && !l2.filtered.get(port_id).empty()) return VX_ERR_FE_MAC_FILTER_MODE_CONFILCT;
        l2.filter.set(port_id, given);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_mac_addr_filter_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id,
                                             vx_l2_mac_addr_filter_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg},
                   [&](Layer2 &l2) { p_cfg->filter_type = l2.filter.get(port_id); });
}

vx_status_e vx_l2_mac_addr_filter_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 num_mac_addr,
                                      vx_l2_user_mac_addr_cfg_t *p_mac_addr_list) {
    return set(__func__, dev_id, port_id, p_mac_addr_list, &Layer2::filtered, [&](std::vector<Layer2::Mac> &kept) {
        const Result<std::vector<Layer2::Mac>> given = addresses(num_mac_addr, p_mac_addr_list);
        if (!given) return given.status();
        for (const Layer2::Mac &mac : *given) {
            if (std::find(kept.begin(), kept.end(), mac) != kept.end()) return VX_ERR_GLBL_ENTRY_EXIST;
            if (kept.size() >= filter_size) return VX_ERR_GLBL_SW_RESOURCE_UNAVAIL;
            kept.push_back(mac);
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_mac_addr_filter_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean delete_all,
                                         vx_uint8 num_mac_addr, vx_l2_user_mac_addr_cfg_t *p_mac_addr_list) {
    return set(__func__, dev_id, port_id, &delete_all, &Layer2::filtered, [&](std::vector<Layer2::Mac> &kept) {
        if (delete_all) {
            kept.clear();
            return VX_SUCCESS;
        }
        if (!p_mac_addr_list) return VX_ERR_DEV_NULL_PTR;
        const Result<std::vector<Layer2::Mac>> given = addresses(num_mac_addr, p_mac_addr_list);
        if (!given) return given.status();
        for (const Layer2::Mac &mac : *given) {
            const auto found = std::find(kept.begin(), kept.end(), mac);
            if (found == kept.end()) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
            kept.erase(found);
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_mac_addr_filter_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint8 get_cnt,
                                      vx_l2_user_mac_addr_cfg_t *p_mac_addr_list, vx_uint8 *p_valid_cnt) {
    return on_port(__func__, dev_id, port_id, {p_mac_addr_list, p_valid_cnt}, [&](Layer2 &l2) {
        const std::vector<Layer2::Mac> &kept = l2.filtered.get(port_id);
        const std::size_t count = std::min<std::size_t>(get_cnt, kept.size());
        for (std::size_t i = 0; i < count; ++i) {
            std::copy(kept[i].begin(), kept[i].end(), p_mac_addr_list[i].mac_addr);
        }
        *p_valid_cnt = static_cast<vx_uint8>(count);
    });
}

vx_status_e vx_l2_tpid_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Layer2 &l2) {
        if (!is_in_range(p_cfg->mode, VX_L2_TPID_MODE_DISABLE, VX_L2_TPID_MODE_BOTH))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        l2.tpid.set({port_id, tpid},
                    {p_cfg->mode, as_boolean(p_cfg->admit_outer_tag), as_boolean(p_cfg->admit_inner_tag)});
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_tpid_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tpid, vx_l2_tpid_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Layer2 &l2) { *p_cfg = l2.tpid.get({port_id, tpid}); });
}

vx_status_e vx_l2_port_tpid_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg) {
    return set(__func__, dev_id, port_num, p_cfg, &Layer2::port_tpid, [&](vx_l2_fe_tpid_cfg_t &kept) {
        const auto &flags = p_cfg->valid.mask_s;
        merge(flags.ingr_outer_tpid1, kept.ingr_outer_tpid1, p_cfg->ingr_outer_tpid1);
        merge(flags.ingr_outer_tpid2, kept.ingr_outer_tpid2, p_cfg->ingr_outer_tpid2);
        merge(flags.ingr_outer_tpid3, kept.ingr_outer_tpid3, p_cfg->ingr_outer_tpid3);
        merge(flags.ingr_outer_tpid4, kept.ingr_outer_tpid4, p_cfg->ingr_outer_tpid4);
        merge(flags.ingr_inner_tpid1, kept.ingr_inner_tpid1, p_cfg->ingr_inner_tpid1);
        merge(flags.ingr_inner_tpid2, kept.ingr_inner_tpid2, p_cfg->ingr_inner_tpid2);
        merge(flags.ingr_inner_tpid3, kept.ingr_inner_tpid3, p_cfg->ingr_inner_tpid3);
        merge(flags.tpid_detection_enbl_bitmap, kept.tpid_detection_enbl_bitmap, p_cfg->tpid_detection_enbl_bitmap);
        merge(flags.tpid_deny_filter_bitmap, kept.tpid_deny_filter_bitmap, p_cfg->tpid_deny_filter_bitmap);
    });
}

vx_status_e vx_l2_port_tpid_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_fe_tpid_cfg_t *p_cfg) {
    return get(__func__, dev_id, port_num, p_cfg, &Layer2::port_tpid);
}

vx_status_e vx_l2_port_config_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg) {
    return set(__func__, dev_id, port_num, p_cfg, &Layer2::port, [&](vx_l2_port_cfg_t &kept) {
        const auto &flags = p_cfg->valid.mask_s;
        if (flags.dft_pvid && p_cfg->dft_pvid > last_vid) return VX_ERR_FE_INVALID_VLAN_ID;
        if (flags.dft_pbit && !is_in_range(p_cfg->dft_pbit, 0, LMQ_MAX_DOT1P - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.dft_dscp && !is_in_range(p_cfg->dft_dscp, 0, LMQ_MAX_DSCP - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.dft_cos && !is_in_range(p_cfg->dft_cos, 0, LMQ_MAX_COS - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.bc_cos && !is_in_range(p_cfg->bc_cos, 0, LMQ_MAX_COS - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.umc_cos && !is_in_range(p_cfg->umc_cos, 0, LMQ_MAX_COS - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.uuc_cos && !is_in_range(p_cfg->uuc_cos, 0, LMQ_MAX_COS - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (flags.egrs_pvid_vlan_op) {
            if (!is_in_range(p_cfg->egrs_pvid_vlan_op, VX_EGRS_PVID_VLAN_OP_NOP, VX_EGRS_PVID_VLAN_OP_POP))
                return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        }

        merge(flags.dft_pvid, kept.dft_pvid, p_cfg->dft_pvid);
        merge(flags.dft_pbit, kept.dft_pbit, p_cfg->dft_pbit);
        merge(flags.dft_tpid, kept.dft_tpid, p_cfg->dft_tpid);
        merge(flags.dft_dscp, kept.dft_dscp, p_cfg->dft_dscp);
        merge(flags.dft_cos, kept.dft_cos, p_cfg->dft_cos);
        merge(flags.bc_cos, kept.bc_cos, p_cfg->bc_cos);
        merge(flags.umc_cos, kept.umc_cos, p_cfg->umc_cos);
        merge(flags.uuc_cos, kept.uuc_cos, p_cfg->uuc_cos);
        merge(flags.ipv4_dscp_mask, kept.ipv4_dscp_mask, p_cfg->ipv4_dscp_mask);
        merge(flags.ipv6_tc_mask, kept.ipv6_tc_mask, p_cfg->ipv6_tc_mask);
        merge(flags.egrs_pvid_vlan_op, kept.egrs_pvid_vlan_op, p_cfg->egrs_pvid_vlan_op);
        return VX_SUCCESS;
    });
}

vx_status_e vx_l2_port_config_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_cfg_t *p_cfg) {
    return get(__func__, dev_id, port_num, p_cfg, &Layer2::port);
}

vx_status_e vx_l2_port_isolation_set(vx_dev_id_t dev_id, vx_boolean isolate) {
    return on_device(__func__, dev_id, {}, [&](Device &device) { device.l2.isolated = as_boolean(isolate); });
}

vx_status_e vx_l2_port_isolation_get(vx_dev_id_t dev_id, vx_boolean *isolate) {
    return on_device(__func__, dev_id, {isolate}, [&](Device &device) { *isolate = device.l2.isolated; });
}

vx_status_e vx_l2_port_flood_ctrl_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl) {
    return set(__func__, dev_id, port_id, ctrl, &Layer2::flood, [&](vx_l2_flood_ctrl_t &kept) {
        kept = {as_boolean(ctrl->bcast_drop), as_boolean(ctrl->unknown_unicast_drop),
                as_boolean(ctrl->unknown_mcast_drop), ctrl->rsvd};
    });
}

vx_status_e vx_l2_port_flood_ctrl_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_l2_flood_ctrl_t *ctrl) {
    return get(__func__, dev_id, port_id, ctrl, &Layer2::flood);
}

vx_status_e vx_l2_port_oam_lpbk_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg) {
    return set(__func__, dev_id, port_num, p_cfg, &Layer2::oam_loopback, [&](vx_l2_port_oam_lpbk_t &kept) {
        kept = {as_boolean(p_cfg->enbl_lpbk), as_boolean(p_cfg->enbl_da_sa_swap)};
    });
}

vx_status_e vx_l2_port_oam_lpbk_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_l2_port_oam_lpbk_t *p_cfg) {
    return get(__func__, dev_id, port_num, p_cfg, &Layer2::oam_loopback);
}

vx_status_e vx_l2_port_static_pkt_fwd_config_set(vx_dev_id_t dev_id, vx_uint16 src_port_num,
                                                 vx_l2_static_pkt_fwd_cfg_t *p_cfg) {
    return set(__func__, dev_id, src_port_num, p_cfg, &Layer2::static_forwarding,
               [&](vx_l2_static_pkt_fwd_cfg_t &kept) {
                   const auto &flags = p_cfg->valid.mask_s;
                   if (flags.bc_pkt_dpid && is_no_port(p_cfg->bc_pkt_dpid)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
                   if (flags.mc_pkt_dpid && is_no_port(p_cfg->mc_pkt_dpid)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
                   if (flags.uuc_pkt_dpid && is_no_port(p_cfg->uuc_pkt_dpid)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
                   kept.enbl_bc_pkt_dpid = as_boolean(p_cfg->enbl_bc_pkt_dpid);
                   kept.enbl_mc_pkt_dpid = as_boolean(p_cfg->enbl_mc_pkt_dpid);
                   kept.enbl_uuc_pkt_dpid = p_cfg->enbl_uuc_pkt_dpid ? TRUE : FALSE;
                   merge(flags.bc_pkt_dpid, kept.bc_pkt_dpid, p_cfg->bc_pkt_dpid);
                   merge(flags.mc_pkt_dpid, kept.mc_pkt_dpid, p_cfg->mc_pkt_dpid);
                   merge(flags.uuc_pkt_dpid, kept.uuc_pkt_dpid, p_cfg->uuc_pkt_dpid);
                   return VX_SUCCESS;
               });
}

vx_status_e vx_l2_port_static_pkt_fwd_config_get(vx_dev_id_t dev_id, vx_uint16 src_port_num,
                                                 vx_l2_static_pkt_fwd_cfg_t *p_cfg) {
    return get(__func__, dev_id, src_port_num, p_cfg, &Layer2::static_forwarding);
}

}  // extern "C"
