// Reads the start file of the simulator, and brings a device to the state that it describes.
#include "driver/preset.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "driver/chip.h"
#include "driver/names.h"

namespace lmq::sim {

namespace {

using Json = nlohmann::json;
using Stats = vx_eth_port_stats_t;

struct Port {
    std::string_view name;
    vx_port_id_t id;
};

constexpr Port named_ports[] = {{"mgmt", VX_PORT_MGMT}, {"eth0", VX_PORT_ETH0}, {"eth1", VX_PORT_ETH0 + 1}};

struct Counted {
    std::string_view name;
    vx_uint64 Stats::*member;
};

constexpr Counted named_counters[] = {
#define xx(member) \
    { #member, &Stats::member }
    xx(rx_uc_pkt),
    xx(rx_mc_pkt),
    xx(rx_bc_pkt),
    xx(rx_oam_frm),
    xx(rx_pause_frm),
    xx(rx_unknown_ctrl_op),
    xx(rx_crc_frm),
    xx(rx_short_frm),
    xx(rx_runt_frm),
    xx(rx_long_frm),
    xx(rx_jabber_frm),
    xx(rx_64_byte_pkt),
    xx(rx_65_127_byte_pkt),
    xx(rx_128_255_byte_pkt),
    xx(rx_256_511_byte_pkt),
    xx(rx_512_1023_byte_pkt),
    xx(rx_1024_1518_byte_pkt),
    xx(rx_1519_max_byte_pkt),
    xx(rx_bytes),
    xx(rx_pkts),
    xx(rx_fifo_overflow_drop),
    xx(rx_user_drop),
    xx(rx_fifo_bytes),
    xx(rx_fifo_pkt),
    xx(tx_uc_pkt),
    xx(tx_mc_pkt),
    xx(tx_bc_pkt),
    xx(tx_oam_frm),
    xx(tx_pause_frm),
    xx(tx_crc_frm),
    xx(tx_long_frm),
    xx(tx_64_byte_pkt),
    xx(tx_65_127_byte_pkt),
    xx(tx_128_255_byte_pkt),
    xx(tx_256_511_byte_pkt),
    xx(tx_512_1023_byte_pkt),
    xx(tx_1024_1518_byte_pkt),
    xx(tx_1519_max_byte_pkt),
    xx(tx_bytes),
    xx(tx_pkts),
#undef xx
};
static_assert(sizeof(named_counters) / sizeof(Counted) * sizeof(vx_uint64) == sizeof(Stats), "each counter has a name");

/* A value of the file, with the place where it stands, for messages. */
class Place {
  public:
    Place(const std::string &file, const Json &root) : file_(file), value_(root) {}

    const Json &value() const { return value_; }

    [[noreturn]] void reject(const std::string &expected) const {
        const std::string where = key_.empty() ? "the file" : "\"" + key_ + "\"";
        throw std::invalid_argument("LMQ_SIM_PRESET: " + file_ + ": " + where + " is " + value_.dump() + ": expected " +
                                    expected);
    }

    std::string text(const std::string &expected) const {
        if (!value_.is_string()) reject(expected);
        return value_.get<std::string>();
    }

    std::uint64_t number(std::uint64_t greatest) const {
        const std::string expected = "a number, 0 to " + std::to_string(greatest);
        if (!value_.is_number_unsigned() || value_.get<std::uint64_t>() > greatest) reject(expected);
        return value_.get<std::uint64_t>();
    }

    /* Runs `body(key, place)` for each member of an object. */
    template <typename Body>
    void each_member(Body body) const {
        if (!value_.is_object()) reject("an object");
        for (const auto &[key, value] : value_.items()) {
            body(key, Place(file_, value, key_.empty() ? key : key_ + "." + key));
        }
    }

    /* Runs `body(place)` for each element of an array. */
    template <typename Body>
    void each_element(Body body) const {
        if (!value_.is_array()) reject("an array");
        for (std::size_t i = 0; i < value_.size(); ++i) {
            body(Place(file_, value_[i], key_ + "[" + std::to_string(i) + "]"));
        }
    }

    [[noreturn]] void reject_key(const std::string &expected) const {
        throw std::invalid_argument("LMQ_SIM_PRESET: " + file_ + ": there is no key \"" + key_ + "\": expected " +
                                    expected);
    }

  private:
    Place(const std::string &file, const Json &value, std::string key)
        : file_(file), value_(value), key_(std::move(key)) {}

    const std::string &file_;
    const Json &value_;
    std::string key_;
};

template <typename Entry, std::size_t n>
const Entry &find(const Entry (&entries)[n], std::string_view name, const Place &place, const std::string &expected) {
    for (const Entry &entry : entries) {
        if (entry.name == name) return entry;
    }
    place.reject_key(expected);
}

vx_port_id_t port_named(const std::string &name, const Place &place) {
    return find(named_ports, name, place, "mgmt, eth0 or eth1").id;
}

vx_admin_status_t admin_status(const Place &place) {
    const std::string text = place.text("\"up\" or \"down\"");
    if (text != "up" && text != "down") place.reject("\"up\" or \"down\"");
    return text == "up" ? VX_ADMIN_STATUS_UP : VX_ADMIN_STATUS_DOWN;
}

EventKey event(const Place &place) {
    std::optional<vx_event_type_e> type;
    EventKey key{};
    place.each_member([&](const std::string &name, const Place &member) {
        if (name == "type") {
            const std::string expected = "the name of an event, such as \"VX_EVENT_DYING_GASP\"";
            type = event_of(member.text(expected));
            if (!type) member.reject(expected);
        } else if (name == "port") {
            key.port = static_cast<vx_uint16>(member.number(UINT16_MAX));
        } else if (name == "sub_port") {
            key.sub_port = static_cast<vx_uint16>(member.number(UINT16_MAX));
        } else {
            member.reject_key("type, port or sub_port");
        }
    });
    if (!type) place.reject("a type");
    key.type = *type;
    if (!occurs(key)) place.reject("an event of that port and sub-port");
    return key;
}

Stats counters(const Place &place) {
    Stats stats{};
    place.each_member([&](const std::string &name, const Place &member) {
        stats.*find(named_counters, name, member, "a member of vx_eth_port_stats_t").member = member.number(UINT64_MAX);
    });
    return stats;
}

/* The text of a file. A folder can be opened too, but not read. */
std::string contents(const std::string &path) {
    errno = 0;
    try {
        std::ifstream file;
        file.exceptions(std::ios::badbit | std::ios::failbit);
        file.open(path);
        return std::string(std::istreambuf_iterator<char>(file), {});
    } catch (const std::ios::failure &) {
        throw std::invalid_argument("LMQ_SIM_PRESET: " + path +
                                    ": the file cannot be read: " + std::generic_category().message(errno));
    }
}

Json parse(const std::string &path) {
    try {
        return Json::parse(contents(path));
    } catch (const Json::exception &error) {
        throw std::invalid_argument("LMQ_SIM_PRESET: " + path + ": expected JSON: " + error.what());
    }
}

}  // namespace

Preset::Preset(const std::string &path) {
    const Json root = parse(path);
    Place(path, root).each_member([&](const std::string &key, const Place &place) {
        if (key == "ports") {
            place.each_member([&](const std::string &name, const Place &port) {
                ports_[port_named(name, port)] = admin_status(port);
            });
        } else if (key == "events") {
            place.each_element([&](const Place &element) { events_.push_back(event(element)); });
        } else if (key == "counters") {
            place.each_member([&](const std::string &name, const Place &port) {
                counters_[port_named(name, port)] = counters(port);
            });
        } else if (key == "faults") {
            place.each_element([&](const Place &element) {
                try {
                    faults_.add(element.text("function:status or function:status:nth"));
                } catch (const BadFault &fault) {
                    element.reject(fault.expected);
                }
            });
        } else {
            place.reject_key("ports, events, counters or faults");
        }
    });
}

std::optional<Preset> Preset::from_environment() {
    const char *path = std::getenv("LMQ_SIM_PRESET");
    if (path == nullptr) return std::nullopt;
    return Preset(path);
}

void Preset::apply(Device &device) const {
    for (const auto &[port, stats] : counters_) eth_port(device, port)->stats = stats;
    for (const auto &[port, status] : ports_) set_admin_status(device, port, status);
    for (const EventKey &key : events_) raise_event(device, key, debug_event_data(device, key.type));
}

}  // namespace lmq::sim
