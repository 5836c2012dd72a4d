// The same in C++: brings up an ONU as a bridge between its Ethernet ports and the PON, and reports what there is.
// Small classes over the C interface: a failed call is an exception, a list is a vector, and the system is shut down in
// any case.
//
//     c++ -std=c++20 bring_up.cc $(pkg-config --cflags --libs lmq) -o bring-up
#include <lmq/lmq.h>

#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr vx_dev_id_t device = 0;
constexpr vx_uint16 tcont = 2, first_gem = 200, first_vlan = 10;
constexpr int lines = 2;

struct Failed : std::runtime_error {
    Failed(const std::string &what, vx_status_e why) : std::runtime_error(what), status(why) {}
    vx_status_e status;
};

void check(const char *what, vx_status_e status) {
    if (status != VX_SUCCESS) throw Failed(what, status);
}

/// The system, from start to shutdown.
class System {
  public:
    System() {
        vx_startup_cfg_t config{};
        config.num_dev = 1;
        config.dev_cfg[0].enbl = TRUE;
        std::strcpy(config.dev_cfg[0].dev_if_name, "mgmt <0> & co");
        config.dev_cfg[0].gpon_cfg.serial_num = 7;
        check("start", lmq_init_system(&config));
    }
    ~System() { lmq_shutdown_system(); }
    System(const System &) = delete;
    System &operator=(const System &) = delete;
};

/// Reads the elements of a list that the driver fills up to a room that the caller chooses.
template <class Element, class Get>
std::vector<Element> list(vx_uint16 room, Get get) {
    std::vector<Element> elements(room);
    vx_uint16 count = 0;
    check("list", get(room, elements.data(), &count));
    elements.resize(count);
    return elements;
}

/// The GPON port. It ranges by itself once it is enabled.
class Pon {
  public:
    void enable() {
        vx_gpon_port_cfg_t config{};
        std::memcpy(config.vendor_id, "ACME", 4);
        config.serial_num = 0xFFFFFFF0;
        config.laser_on_time = -3;
        config.valid.vendor_id = config.valid.serial_num = config.valid.laser_on_time = 1;
        check("configure the GPON port", vx_gpon_onu_port_config_set(device, VX_PORT_SNI0, &config));
        check("enable the GPON port", vx_gpon_onu_port_enable_set(device, VX_PORT_SNI0, TRUE));
    }

    vx_gpon_port_cfg_t wait() const {
        for (int tried = 0; tried < 1000; ++tried) {
            vx_gpon_port_cfg_t port;
            check("read the GPON port", vx_gpon_onu_port_config_get(device, VX_PORT_SNI0, &port));
            if (port.onu_state == VX_GPON_STATE_OPERATION) return port;
        }
        throw std::runtime_error("the ONU does not come into operation");
    }

    void add_tcont(vx_uint16 number, vx_uint16 alloc_id) {
        vx_tcont_cfg_t config{alloc_id};
        check("enable a T-CONT", vx_gpon_onu_tcont_enable_set(device, VX_PORT_SNI0, number, TRUE, &config));
    }

    void add_gem_port(vx_uint16 number, vx_uint16 carrier) {
        vx_gem_port_cfg_t config{};
        config.direction = LMQ_DIR_BOTH;
        config.tcont_id = carrier;
        config.aes_enable = number % 2 != 0;
        check("add a GEM port", vx_gpon_onu_gem_port_add(device, VX_PORT_SNI0, number, &config));
    }

    std::vector<vx_tcont_alloc_id_t> tconts() const {
        std::vector<vx_tcont_alloc_id_t> found(VX_GPON_MAX_TCONTS);
        auto count = static_cast<vx_uint16>(found.size());
        check("list T-CONTs", vx_gpon_onu_active_tcont_get(device, VX_PORT_SNI0, found.data(), &count));
        found.resize(count);
        return found;
    }
};

/// A bridge with a VLAN of its own.
class Bridge {
  public:
    Bridge(lmq_brg_id_t number, vx_uint16 vlan) : number_(number) {
        lmq_brg_cfg_s config{};
        config.brg_type = LMQ_BRG_TYPE_ALL;
        config.vlan_id = vlan;
        config.enbl_local_fwd = TRUE;
        config.valid.mask_s.brg_type = config.valid.mask_s.vlan_id = config.valid.mask_s.enbl_local_fwd = 1;
        check("create a bridge", lmq_create_bridge(device, number_, &config));
    }

    lmq_brg_port_id_t add_port(vx_uint16 port) {
        lmq_brg_port_id_t id = 0;
        check("add a port to a bridge", lmq_add_bridge_port(device, port, number_, &id));
        return id;
    }

    void add_gem_port(vx_uint16 gem_port) {
        check("add a GEM port to a bridge",
              vx_gpon_onu_gem_port_add_to_bridge(device, VX_PORT_SNI0, gem_port, number_));
    }

  private:
    lmq_brg_id_t number_;
};

void report() {
    const auto bridges =
        list<lmq_brg_cfg_info_s>(8, [](auto... arguments) { return lmq_get_bridge_config_all(device, arguments...); });
    for (const auto &bridge : bridges)
        std::printf("bridge %d: VLAN %d, type %d\n", static_cast<int>(bridge.brg_id), bridge.brg_cfg.vlan_id,
                    bridge.brg_cfg.brg_type);

    for (int line = 0; line < lines; ++line) {
        vx_eth_port_stats_t port;
        check("read counters",
              vx_eth_port_stats_get(device, static_cast<vx_port_id_t>(VX_PORT_ETH0 + line), &port, TRUE));
        vx_gpon_gem_port_stats_t gem;
        check("read counters",
              vx_gpon_onu_gem_stats_get(device, VX_PORT_SNI0, static_cast<vx_uint16>(first_gem + line), &gem, TRUE));
        std::printf("line %d: %llu frames in, %u packets up, %u down\n", line,
                    static_cast<unsigned long long>(port.rx_uc_pkt), gem.us_pkt_cnt, gem.ds_pkt_cnt);
    }

    // The driver holds one message of the line terminal after the other.
    for (vx_uint8 size = 13; size != 0;) {
        vx_uint8 message[13] = {};
        check("read a message", vx_gpon_onu_ploam_ds_get(device, VX_PORT_SNI0, message, &size));
        if (size != 0) std::printf("message of type %d for ONU %d\n", message[1], message[0]);
    }
}

void run() {
    System system;
    Pon pon;
    pon.enable();
    const auto port = pon.wait();
    std::printf("%.4s %u, ONU %d, laser %d, %s\n", reinterpret_cast<const char *>(port.vendor_id), port.serial_num,
                port.onu_id, port.laser_on_time, port.aes_enbl ? "encrypted" : "not encrypted");

    pon.add_tcont(tcont, 1024);
    for (int line = 0; line < lines; ++line) pon.add_gem_port(static_cast<vx_uint16>(first_gem + line), tcont);
    for (const auto &each : pon.tconts()) std::printf("T-CONT %d: Alloc-Id %d\n", each.tcont_id, each.alloc_id);

    for (int line = 0; line < lines; ++line) {
        Bridge bridge(static_cast<lmq_brg_id_t>(1 + line), static_cast<vx_uint16>(first_vlan + line));
        const auto id = bridge.add_port(static_cast<vx_uint16>(VX_PORT_ETH0 + line));
        bridge.add_gem_port(static_cast<vx_uint16>(first_gem + line));
        std::printf("line %d is port %d of its bridge\n", line, id);
    }
    report();

    try {
        pon.add_gem_port(first_gem, tcont);
    } catch (const Failed &failed) {
        std::printf("%s once more: status 0x%04x\n", failed.what(), static_cast<unsigned>(failed.status));
    }
}

}  // namespace

int main() {
    try {
        run();
    } catch (const Failed &failed) {
        std::fprintf(stderr, "%s: status 0x%04x\n", failed.what(), static_cast<unsigned>(failed.status));
        return 1;
    } catch (const std::exception &failed) {
        std::fprintf(stderr, "%s\n", failed.what());
        return 1;
    }
}
