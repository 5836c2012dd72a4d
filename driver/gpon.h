// What a device keeps of the GPON port, T-CONTs and GEM ports.
#pragma once

#include <array>
#include <deque>

#include "driver/clock.h"
#include "driver/result.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family.
struct Gpon {
    static constexpr vx_uint16 greatest_gem_port = 4095;  ///< ITU-T G.984.3: a Port-ID has 12 bits.

    /// As a device starts, and begins to activate itself if the configuration says so.
    Gpon(const lmq_dev_startup_cfg_s &start, Clock::Time now);

    using Ploam = std::array<vx_uint8, 13>;  ///< ITU-T G.984.3: ONU-ID, type, ten bytes of data, CRC.

    /// The PON port.
    struct Port {
        vx_gpon_port_cfg_t cfg{};  ///< Without the reports, which are made for each get.
        bool enabled = false;
        bool walking = false;  ///< On the way to operation, or there; a forced state does not walk.
        vx_gpon_onu_state_t state = VX_GPON_STATE_INITIAL;
        Clock::Time since{};  ///< When the state was entered.
        vx_pon_laser_ctrl_mode_t laser = VX_PON_LASER_BURST_OPERATION;
        bool masked = false;           ///< Downstream messages are dropped ...
        bool overhead_passes = false;  ///< ... but for Upstream_Overhead.
        std::deque<Ploam> received;
    };
    Port port;

    Table<vx_uint16, vx_uint16> tconts{VX_GPON_MAX_TCONTS};  ///< Alloc-Id of each enabled T-CONT, by tcont_id.

    struct GemPort {
        vx_gem_port_cfg_t cfg;
        vx_uint16 index;        ///< In the GPON block.
        bool loopback = false;  ///< Flows that are mapped to the port are blocked.
    };
    Table<vx_uint16, GemPort> gem_ports{VX_MAX_GEM_PORTS};  ///< By the OLT's number.
};

struct Device;

/// Takes the ONU to the state that it has come to by now.
void pass_time(Device &device, Gpon &gpon);

/// Resets the PON port: the ONU activates itself again if it did, and messages that nobody took are gone.
void reset(Device &device, Gpon &gpon);

/// @name Checks that all of GPON has in common. Each refuses what it does not find in order.
/// @{
[[nodiscard]] vx_status_e check_gpon(const Device &device);                    ///< The device is one for GPON.
[[nodiscard]] vx_status_e check_pon(const Device &device, vx_uint16 port_id);  ///< The port is the PON of such a one.
[[nodiscard]] vx_status_e check_tcont(vx_uint16 tcont_id);                     ///< There can be such a T-CONT.
[[nodiscard]] vx_status_e check_gem(vx_uint16 gem_port_id);                    ///< There can be such a GEM port.
Result<Gpon::GemPort &> gem_port(Gpon &gpon, vx_uint16 gem_port_id);           ///< There is such a GEM port.
/// @}

/// Whether a GEM port is in loopback, which blocks the flows that are mapped to it.
bool is_looped(Gpon &gpon, vx_uint16 gem_port_id);

}  // namespace lmq::sim
