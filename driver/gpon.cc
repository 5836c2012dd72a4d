// The GPON port: activation, T-CONTs, GEM ports and the PLOAM channel, with an OLT at the other end.
//
// Choices, a line each:
// - The PON port is port 0, and only of a device in mode GPON: VX_ERR_PORT_TYPE_MISMATCH for the other ports and
//   modes.
// - Configuration, T-CONTs and GEM ports are taken in every state of the ONU, and kept when the port is left.
// - vendor_id, serial_num, passwd and the laser times begin as the start configuration says, thresholds at 10 to the
//   -5 and -6 for signal fail, -9 and -10 for signal degrade. With auto_register activation begins with the device.
//   Activating an active port changes nothing; leaving ends in O1.
// - An active port takes 100 ms of the simulator's clock for each state from O1 to O5. The OLT gives ONU-ID 1 on the
//   way into O4, and GEM port 1 for management in O5; before that they are 255 and -1.
// - Each change of the state raises VX_EVENT_GPON_ONU_STATE_CHNG. On the way to operation the ONU-ID and the OMCC
//   raise theirs, and the OMCC once more when operation ends.
// - O7 is a disabled ONU: VX_EVENT_GPON_ALM_DIS tells its begin and its end. No other alarm comes by itself.
// - The fibre is always plugged in: there is a signal as long as the port is active.
// - A laser that is always off takes the ONU back to O2, and it does not get beyond O3. Only `dir` 0 is known;
//   another is VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW.
// - A forced state (O1 to O7) stays until another is forced, or the port is left or activated.
// - T-CONT 0, the default one, carries management with the ONU-ID as its Alloc-Id whatever is set here. For GEM ports
//   it is enabled as the others are. Enabling a T-CONT again gives it another Alloc-Id. An Alloc-Id has 12 bits and
//   belongs to one T-CONT. A T-CONT that GEM ports go through is not disabled: VX_ERR_DEV_BUSY.
// - GEM ports have 12 bits. An upstream one needs its T-CONT enabled. The index is the lowest that is free.
// - Deleting a GEM port detaches it: its queue maps and its rate limit are forgotten, it leaves all bridges, and its
//   counters begin again. Flows keep its number. Disabling a T-CONT clears its counters; its scheduler and the queues
//   that go to it are settings of the number, and stay.
// - Lists are filled as far as the count given allows, and whole when it is 0: the caller has room for the most that
//   there can be. The count answers how many there are.
// - The OLT sends Upstream_Overhead, Assign_ONU-ID and Ranging_Time once each, as the ONU leaves O2, O3 and O4. The
//   last 16 messages that nobody took are kept. Of what is sent upstream, which takes O3 or later, it answers
//   nothing:
// VX_EVENT_GPON_PLOAMU_TX_DONE tells that it was sent.
#include "driver/gpon.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

#include "driver/chip.h"

namespace lmq::sim {

namespace {

using namespace std::chrono_literals;

constexpr Clock::Time state_time = 100ms;
constexpr vx_uint16 greatest_alloc_id = 4095;
constexpr vx_uint8 assigned_onu_id = 1;
constexpr vx_uint8 no_onu_id = 255;
constexpr vx_int16 omci_port_id = 1;
constexpr std::size_t messages_kept = 16;

/* Types of downstream messages (ITU-T G.984.3). */
constexpr vx_uint8 upstream_overhead = 1;
constexpr vx_uint8 assign_onu_id = 3;
constexpr vx_uint8 ranging_time = 4;

Gpon::Port initial_port(const lmq_gpon_startup_cfg_s &start, bool activate, Clock::Time now) {
    Gpon::Port port;
    vx_gpon_port_cfg_t &cfg = port.cfg;
    std::copy(std::begin(start.vendor_id), std::end(start.vendor_id), cfg.vendor_id);
    cfg.serial_num = start.serial_num;
    std::copy(std::begin(start.passwd), std::end(start.passwd), cfg.passwd);
    cfg.dbru_blk_len = VX_GPON_DBA_BLK_LEN_48;
    cfg.laser_on_time = start.laser_on_time;
    cfg.laser_prebias_time = start.laser_prebias_time;
    cfg.sf_threshold = VX_GPON_SIG_THRES_10_EXP_5;
    cfg.sf_clear_threshold = VX_GPON_SIG_THRES_10_EXP_6;
    cfg.sd_threshold = VX_GPON_SIG_THRES_10_EXP_9;
    cfg.sd_clear_threshold = VX_GPON_SIG_THRES_10_EXP_10;
    cfg.valid = {.vendor_id = 1,
                 .serial_num = 1,
                 .passwd = 1,
                 .dbru_blk_len = 1,
                 .laser_on_time = 1,
                 .laser_prebias_time = 1,
                 .fec_bypass_enbl = 1,
                 .aes_enbl = 1,
                 .sf_threshold = 1,
                 .sf_clear_threshold = 1,
                 .sd_threshold = 1,
                 .sd_clear_threshold = 1};
    port.enabled = port.walking = activate;
    port.since = now;
    return port;
}

/* CRC-8 of ITU-T G.984.3: x^8 + x^2 + x + 1. */
vx_uint8 crc(const Gpon::Ploam &message) {
    unsigned sum = 0;
    for (std::size_t i = 0; i + 1 < message.size(); ++i) {
        sum ^= message[i];
        for (int bit = 0; bit < 8; ++bit) sum = (sum & 0x80) ? (sum << 1) ^ 0x107 : sum << 1;
    }
    return static_cast<vx_uint8>(sum);
}

void receive(Device &device, Gpon::Ploam message) {
    Gpon::Port &port = device.gpon.port;
    const bool passes = port.overhead_passes && message[1] == upstream_overhead;
    if (port.masked && !passes) return;
    message.back() = crc(message);
    device.gpon_tm.count_ploam(true, message[1]);
    port.received.push_back(message);
    if (port.received.size() > messages_kept) port.received.pop_front();
}

/* What makes the ONU leave a state. */
void receive_in(Device &device) {
    const Gpon::Port &port = device.gpon.port;
    switch (port.state) {
        case VX_GPON_STATE_STANDBY: return receive(device, {no_onu_id, upstream_overhead});
        case VX_GPON_STATE_SERIALNO: {
            const auto &[v0, v1, v2, v3] = port.cfg.vendor_id;
            const auto byte = [&](int shift) { return static_cast<vx_uint8>(port.cfg.serial_num >> shift); };
            return receive(device, {no_onu_id, assign_onu_id, assigned_onu_id, v0, v1, v2, v3, byte(24), byte(16),
                                    byte(8), byte(0)});
        }
        case VX_GPON_STATE_RANGING: return receive(device, {assigned_onu_id, ranging_time});
        default: return;
    }
}

void report_omcc(Device &device, bool up) {
    lmq_event_data_u before{}, now{};
    before.omcc_state = {as_boolean(!up), vx_uint16{omci_port_id}};
    now.omcc_state = {as_boolean(up), vx_uint16{omci_port_id}};
    raise_change(device, {VX_EVENT_GPON_OMCC_STATE, VX_PORT_SNI0, 0}, before, now);
}

void report_disabled(Device &device, bool disabled) {
    lmq_event_data_u before{}, now{};
    before.gpon_alm_data.status = as_boolean(!disabled);
    now.gpon_alm_data.status = as_boolean(disabled);
    raise_change(device, {VX_EVENT_GPON_ALM_DIS, VX_PORT_SNI0, 0}, before, now);
}

void report_state(Device &device, vx_gpon_onu_state_t old, vx_gpon_onu_state_t state) {
    lmq_event_data_u before{}, now{};
    before.onu_state_data.onu_state = old;
    now.onu_state_data.onu_state = state;
    raise_change(device, {VX_EVENT_GPON_ONU_STATE_CHNG, VX_PORT_SNI0, 0}, before, now);
}

void enter(Device &device, vx_gpon_onu_state_t state, Clock::Time since) {
    Gpon::Port &port = device.gpon.port;
    const vx_gpon_onu_state_t old = std::exchange(port.state, state);
    port.since = since;
    if (old == state) return;

    report_state(device, old, state);
    if (state == VX_GPON_STATE_RANGING) {
        lmq_event_data_u data{};
        data.onu_id_data.onu_id = assigned_onu_id;
        raise_event(device, {VX_EVENT_GPON_ONU_ID, VX_PORT_SNI0, 0}, data);
    }
    if (state == VX_GPON_STATE_OPERATION) {
        if (device.gpon_tm.mac.o5_state_transition != UINT32_MAX) ++device.gpon_tm.mac.o5_state_transition;
        lmq_event_data_u data{};
        data.omcc_gem_data.gem_port_id = omci_port_id;
        raise_event(device, {VX_EVENT_GPON_OMCC_GEM_PORT_ID, VX_PORT_SNI0, 0}, data);
        report_omcc(device, true);
    }
    if (old == VX_GPON_STATE_OPERATION) report_omcc(device, false);
    if (state == VX_GPON_STATE_ESTOP) report_disabled(device, true);
    if (old == VX_GPON_STATE_ESTOP) report_disabled(device, false);
}

/* Runs an operation on the PON port. */
template <typename Body>
vx_status_e on_port(const char *function, vx_dev_id_t dev_id, vx_uint16 port_id,
                    std::initializer_list<const void *> pointers, Body body) noexcept {
    return on_device(function, dev_id, pointers, [&](Device &device) {
        if (const vx_status_e refused = check_pon(device, port_id)) return refused;
        return run(body, device, device.gpon.port);
    });
}

bool upstream(const vx_gem_port_cfg_t &cfg) { return (cfg.direction & LMQ_DIR_US) != 0; }

/* Whether a GEM port goes through a T-CONT. */
bool goes_through(const Gpon::GemPort &gem, vx_uint16 tcont_id) {
    return upstream(gem.cfg) && gem.cfg.tcont_id == tcont_id;
}

vx_uint16 subport(vx_uint16 tcont_id) { return static_cast<vx_uint16>(LMQ_PORT_TCONT_BASE + tcont_id); }

vx_gem_port_info_t info(Gpon &gpon, vx_uint16 id, const Gpon::GemPort &gem) {
    const vx_uint16 *alloc_id = upstream(gem.cfg) ? gpon.tconts.find(gem.cfg.tcont_id) : nullptr;
    return {.gem_port_id = id,
            .gem_status = TRUE,
            .direction = gem.cfg.direction,
            .tcont_id = gem.cfg.tcont_id,
            .alloc_id = alloc_id ? *alloc_id : LMQ_INVALID_ID16,
            .gem_subport_id = static_cast<vx_uint16>(LMQ_PORT_GEM_BASE + gem.index),
            .aes = gem.cfg.aes_enable,
            .multicast = gem.cfg.multicast};
}

/* The lowest index in the GPON block that no GEM port has. There is one as long as the table is not full. */
vx_uint16 free_index(Gpon &gpon) {
    std::array<bool, VX_MAX_GEM_PORTS> used{};
    for (const auto &[id, gem] : gpon.gem_ports) used[gem.index] = true;
    return static_cast<vx_uint16>(std::find(used.begin(), used.end(), false) - used.begin());
}

/* Fills a list as far as the count allows, or whole when it is 0, and answers how many entries there are. */
template <typename Key, typename Value, typename Entry, typename Describe>
void fill(Table<Key, Value> &table, Entry *list, vx_uint16 *count, Describe describe) {
    const std::size_t room = *count == 0 ? table.size() : std::min<std::size_t>(*count, table.size());
    std::transform(table.begin(), std::next(table.begin(), static_cast<std::ptrdiff_t>(room)), list, describe);
    *count = static_cast<vx_uint16>(table.size());
}

}  // namespace

vx_status_e check_gpon(const Device &device) {
    if (device.config.dev_mode != LMQ_DEV_MODE_GPON) return VX_ERR_PORT_TYPE_MISMATCH;
    return VX_SUCCESS;
}

vx_status_e check_pon(const Device &device, vx_uint16 port_id) {
    if (is_no_port(port_id)) return VX_ERR_PORT_NUM_OUT_OF_RANGE;
    if (port_id != VX_PORT_SNI0) return VX_ERR_PORT_TYPE_MISMATCH;
    return check_gpon(device);
}

vx_status_e check_tcont(vx_uint16 tcont_id) {
    if (tcont_id >= VX_GPON_MAX_TCONTS) return VX_ERR_GPON_INVALID_TCONT;
    return VX_SUCCESS;
}

vx_status_e check_gem(vx_uint16 gem_port_id) {
    if (gem_port_id > Gpon::greatest_gem_port) return VX_ERR_GPON_INVALID_GEM_PORT;
    return VX_SUCCESS;
}

Result<Gpon::GemPort &> gem_port(Gpon &gpon, vx_uint16 gem_port_id) {
    if (const vx_status_e refused = check_gem(gem_port_id)) return refused;
    Gpon::GemPort *gem = gpon.gem_ports.find(gem_port_id);
    if (gem == nullptr) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
    return *gem;
}

Gpon::Gpon(const lmq_dev_startup_cfg_s &start, Clock::Time now)
    : port(initial_port(start.gpon_cfg, start.gpon_cfg.auto_register && start.dev_mode == LMQ_DEV_MODE_GPON, now)) {}

void pass_time(Device &device, Gpon &gpon) {
    const Clock::Time now = device.system.clock.now();
    const Gpon::Port &port = gpon.port;
    const auto last = port.laser == VX_PON_LASER_ALWAYS_OFF ? VX_GPON_STATE_SERIALNO : VX_GPON_STATE_OPERATION;
    while (port.walking && port.state < last && now - port.since >= state_time) {
        receive_in(device);
        enter(device, static_cast<vx_gpon_onu_state_t>(port.state + 1), port.since + state_time);
    }
}

void reset(Device &device, Gpon &gpon) {
    gpon.port.received.clear();
    if (gpon.port.walking) enter(device, VX_GPON_STATE_INITIAL, device.system.clock.now());
}

bool is_looped(Gpon &gpon, vx_uint16 gem_port_id) {
    const Gpon::GemPort *gem = gpon.gem_ports.find(gem_port_id);
    return gem != nullptr && gem->loopback;
}

}  // namespace lmq::sim

using namespace lmq::sim;

extern "C" {

vx_status_e vx_gpon_onu_port_config_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Device &, Gpon::Port &port) {
        const auto &flags = p_cfg->valid;
        vx_gpon_port_cfg_t next = port.cfg;
        merge(flags.vendor_id, next.vendor_id, p_cfg->vendor_id);
        merge(flags.serial_num, next.serial_num, p_cfg->serial_num);
        merge(flags.passwd, next.passwd, p_cfg->passwd);
        merge(flags.dbru_blk_len, next.dbru_blk_len, p_cfg->dbru_blk_len);
        merge(flags.laser_on_time, next.laser_on_time, p_cfg->laser_on_time);
        merge(flags.laser_prebias_time, next.laser_prebias_time, p_cfg->laser_prebias_time);
        merge(flags.fec_bypass_enbl, next.fec_bypass_enbl, as_boolean(p_cfg->fec_bypass_enbl));
        merge(flags.aes_enbl, next.aes_enbl, as_boolean(p_cfg->aes_enbl));
        merge(flags.sf_threshold, next.sf_threshold, p_cfg->sf_threshold);
        merge(flags.sf_clear_threshold, next.sf_clear_threshold, p_cfg->sf_clear_threshold);
        merge(flags.sd_threshold, next.sd_threshold, p_cfg->sd_threshold);
        merge(flags.sd_clear_threshold, next.sd_clear_threshold, p_cfg->sd_clear_threshold);
        if (!is_in_range(next.dbru_blk_len, VX_GPON_DBA_BLK_LEN_32, VX_GPON_DBA_BLK_LEN_128))
            return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        for (vx_gpon_signal_thres_val_t threshold :
             {next.sf_threshold, next.sf_clear_threshold, next.sd_threshold, next.sd_clear_threshold}) {
            if (!is_in_range(threshold, VX_GPON_SIG_THRES_10_EXP_3, VX_GPON_SIG_THRES_10_EXP_11))
                return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        }
        port.cfg = next;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_port_config_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gpon_port_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Device &device, Gpon::Port &port) {
        const vx_gpon_onu_state_t state = port.state;
        const bool operates = state == VX_GPON_STATE_OPERATION;
        *p_cfg = port.cfg;
        p_cfg->onu_id =
            operates || state == VX_GPON_STATE_RANGING || state == VX_GPON_STATE_POPUP ? assigned_onu_id : no_onu_id;
        p_cfg->onu_state = state;
        p_cfg->omci_port = operates ? omci_port_id : vx_int16{-1};
        p_cfg->num_tcont = static_cast<vx_uint16>(device.gpon.tconts.size());
        p_cfg->num_gem = static_cast<vx_uint16>(device.gpon.gem_ports.size());
    });
}

vx_status_e vx_gpon_onu_port_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_boolean enable) {
    return on_port(__func__, dev_id, port_id, {}, [&](Device &device, Gpon::Port &port) {
        if (enable && port.walking) return;
        port.enabled = port.walking = enable != FALSE;
        port.received.clear();
        enter(device, VX_GPON_STATE_INITIAL, device.system.clock.now());
    });
}

vx_status_e vx_gpon_onu_state_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_gpon_onu_state_t onu_state) {
    return on_port(__func__, dev_id, port_id, {}, [&](Device &device, Gpon::Port &port) {
        if (!is_in_range(onu_state, VX_GPON_STATE_INITIAL, VX_GPON_STATE_ESTOP)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        port.walking = false;
        enter(device, onu_state, device.system.clock.now());
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_laser_mode_set(vx_dev_id_t dev_id, vx_uint16 port_id, vx_pon_laser_ctrl_mode_t mode,
                                       vx_uint8 dir) {
    return on_port(__func__, dev_id, port_id, {}, [&](Device &device, Gpon::Port &port) {
        if (dir != 0) return VX_ERR_GLBL_OP_NO_SUPPORTED_BY_SW;
        if (!is_in_range(mode, VX_PON_LASER_ALWAYS_OFF, VX_PON_LASER_ALWAYS_ON)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        const bool was_off = port.laser == VX_PON_LASER_ALWAYS_OFF;
        port.laser = mode;
        if (was_off == (mode == VX_PON_LASER_ALWAYS_OFF) || !port.walking) return VX_SUCCESS;
        enter(device, std::min(port.state, VX_GPON_STATE_STANDBY), device.system.clock.now());
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_signal_status_get(vx_dev_id_t dev_id, vx_uint16 port_id, vx_boolean *p_active) {
    return on_port(__func__, dev_id, port_id, {p_active},
                   [&](Device &, Gpon::Port &port) { *p_active = port.enabled ? TRUE : FALSE; });
}

vx_status_e vx_gpon_onu_tcont_enable_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                         vx_boolean enable, vx_tcont_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {}, [&](Device &device, Gpon::Port &) {
        Gpon &gpon = device.gpon;
        if (const vx_status_e refused = check_tcont(tcont_id)) return refused;
        if (!enable) {
            if (gpon.tconts.find(tcont_id) == nullptr) return VX_ERR_GPON_TCONT_NOT_ENABLED;
            for (const auto &[id, gem] : gpon.gem_ports) {
                if (goes_through(gem, tcont_id)) return VX_ERR_DEV_BUSY;
            }
            gpon.tconts.erase(tcont_id);
            device.gpon_tm.tcont.erase(tcont_id);
            return VX_SUCCESS;
        }
        if (!p_cfg) return VX_ERR_DEV_NULL_PTR;
        if (!is_in_range(p_cfg->alloc_id, 0, greatest_alloc_id)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        for (const auto &[id, alloc_id] : gpon.tconts) {
            if (id != tcont_id && alloc_id == p_cfg->alloc_id) return VX_ERR_GLBL_ENTRY_EXIST;
        }
        if (gpon.tconts.insert(tcont_id, p_cfg->alloc_id) == Insert::exists) {
            *gpon.tconts.find(tcont_id) = p_cfg->alloc_id;
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_tcont_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 tcont_id,
                                       vx_tcont_info_t *p_info) {
    return on_port(__func__, dev_id, port_id, {p_info}, [&](Device &device, Gpon::Port &) {
        if (const vx_status_e refused = check_tcont(tcont_id)) return refused;
        const vx_uint16 *alloc_id = device.gpon.tconts.find(tcont_id);
        if (alloc_id == nullptr) return VX_ERR_GPON_TCONT_NOT_ENABLED;
        *p_info = {.enbl_status = TRUE,
                   .alloc_id = *alloc_id,
                   .tcont_subport_id = subport(tcont_id),
                   .num_gem_ports = 0,
                   .gem_ports = {}};
        for (const auto &[id, gem] : device.gpon.gem_ports) {
            if (goes_through(gem, tcont_id)) p_info->gem_ports[p_info->num_gem_ports++] = id;
        }
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_active_tcont_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_tcont_alloc_id_t *p_tcont_id,
                                         vx_uint16 *p_num_tconts) {
    return on_port(__func__, dev_id, port_id, {p_tcont_id, p_num_tconts}, [&](Device &device, Gpon::Port &) {
        fill(device.gpon.tconts, p_tcont_id, p_num_tconts, [](const auto &entry) {
            return vx_tcont_alloc_id_t{
                .tcont_id = entry.first, .alloc_id = entry.second, .tcont_subport_id = subport(entry.first)};
        });
    });
}

vx_status_e vx_gpon_onu_gem_port_add(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                     vx_gem_port_cfg_t *p_cfg) {
    return on_port(__func__, dev_id, port_id, {p_cfg}, [&](Device &device, Gpon::Port &) {
        Gpon &gpon = device.gpon;
        if (const vx_status_e refused = check_gem(gem_port_id)) return refused;
        if (p_cfg->direction < LMQ_DIR_US || p_cfg->direction > LMQ_DIR_BOTH) return VX_ERR_GLBL_INVALID_DIRECTION;
        if (gpon.gem_ports.find(gem_port_id) != nullptr) return VX_ERR_GLBL_ENTRY_EXIST;
        if (gpon.gem_ports.size() == VX_MAX_GEM_PORTS) return VX_ERR_DEV_HW_RESOURCE_UNAVAIL;
        if (upstream(*p_cfg)) {
            if (const vx_status_e refused = check_tcont(p_cfg->tcont_id)) return refused;
            if (gpon.tconts.find(p_cfg->tcont_id) == nullptr) return VX_ERR_GPON_TCONT_NOT_ENABLED;
        }
        const vx_gem_port_cfg_t cfg{.direction = p_cfg->direction,
                                    .tcont_id = p_cfg->tcont_id,
                                    .aes_enable = as_boolean(p_cfg->aes_enable),
                                    .multicast = as_boolean(p_cfg->multicast)};
        gpon.gem_ports.insert(gem_port_id, {.cfg = cfg, .index = free_index(gpon)});
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_port_delete(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id) {
    return on_port(__func__, dev_id, port_id, {}, [&](Device &device, Gpon::Port &) {
        if (const vx_status_e refused = gem_port(device.gpon, gem_port_id).status()) return refused;
        device.gpon.gem_ports.erase(gem_port_id);
        GponTm &tm = device.gpon_tm;
        tm.us_queue.erase(gem_port_id);
        tm.ds_queue.erase(gem_port_id);
        tm.rate_limit.erase(gem_port_id);
        tm.gem.erase(gem_port_id);
        for (auto &[id, bridge] : device.vlan_bridge.bridges) std::erase(bridge.gem_ports, gem_port_id);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_port_id_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 index,
                                        vx_uint16 *p_gem_port_id) {
    return on_port(__func__, dev_id, port_id, {p_gem_port_id}, [&](Device &device, Gpon::Port &) {
        if (!is_in_range(index, 0, VX_MAX_GEM_PORTS - 1)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        Gpon &gpon = device.gpon;
        const auto found = std::find_if(gpon.gem_ports.begin(), gpon.gem_ports.end(),
                                        [&](const auto &entry) { return entry.second.index == index; });
        if (found == gpon.gem_ports.end()) return VX_ERR_GLBL_ENTRY_NOT_FOUND;
        *p_gem_port_id = found->first;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_gem_port_info_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                          vx_gem_port_info_t *p_info) {
    return on_port(__func__, dev_id, port_id, {p_info}, [&](Device &device, Gpon::Port &) {
        const Result<Gpon::GemPort &> gem = gem_port(device.gpon, gem_port_id);
        if (!gem) return gem.status();
        *p_info = info(device.gpon, gem_port_id, *gem);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_active_gem_port_get(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_gem_port_info_t *p_info,
                                            vx_uint16 *p_num_gem_ports) {
    return on_port(__func__, dev_id, port_id, {p_info, p_num_gem_ports}, [&](Device &device, Gpon::Port &) {
        fill(device.gpon.gem_ports, p_info, p_num_gem_ports,
             [&](const auto &entry) { return info(device.gpon, entry.first, entry.second); });
    });
}

vx_status_e vx_gpon_onu_gem_port_loopback_set(vx_dev_id_t dev_id, vx_port_id_t port_id, vx_uint16 gem_port_id,
                                              vx_boolean loopback_enbl) {
    return on_port(__func__, dev_id, port_id, {}, [&](Device &device, Gpon::Port &) {
        const Result<Gpon::GemPort &> gem = gem_port(device.gpon, gem_port_id);
        if (!gem) return gem.status();
        gem->loopback = loopback_enbl != FALSE;
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_ploam_ds_get(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 *p_num) {
    return on_port(__func__, dev_id, port_num, {p_message, p_num}, [&](Device &, Gpon::Port &port) {
        if (!is_in_range(*p_num, sizeof(Gpon::Ploam), UINT8_MAX)) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        *p_num = 0;
        if (port.received.empty()) return VX_SUCCESS;
        std::copy(port.received.front().begin(), port.received.front().end(), p_message);
        port.received.pop_front();
        *p_num = sizeof(Gpon::Ploam);
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_onu_ploam_us_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_uint8 *p_message, vx_uint8 num) {
    return on_port(__func__, dev_id, port_num, {p_message}, [&](Device &device, Gpon::Port &port) {
        if (!is_in_range(num, sizeof(Gpon::Ploam), sizeof(Gpon::Ploam))) return VX_ERR_GLBL_RANGE_CHECK_FAIL;
        if (port.state < VX_GPON_STATE_SERIALNO || port.state == VX_GPON_STATE_ESTOP ||
            port.laser == VX_PON_LASER_ALWAYS_OFF)
            return VX_ERR_GPON_ONU_NOT_RANGED;
        device.gpon_tm.count_ploam(false, p_message[1]);
        raise_event(device, {VX_EVENT_GPON_PLOAMU_TX_DONE, VX_PORT_SNI0, 0}, {});
        return VX_SUCCESS;
    });
}

vx_status_e vx_gpon_ploamd_mask_set(vx_dev_id_t dev_id, vx_uint16 port_num, vx_boolean overhead_enable,
                                    vx_boolean mask_enable) {
    return on_port(__func__, dev_id, port_num, {}, [&](Device &, Gpon::Port &port) {
        port.masked = mask_enable != FALSE;
        port.overhead_passes = overhead_enable != FALSE;
    });
}

}  // extern "C"
