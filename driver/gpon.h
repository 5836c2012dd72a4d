/**
 * @file
 * @brief What a device keeps of the GPON port, T-CONTs and GEM ports.
 */
#ifndef LMQ_DRIVER_GPON_H
#define LMQ_DRIVER_GPON_H

#include <array>
#include <deque>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/** @brief State of the family. */
struct Gpon {
    /** @brief As a device starts, and begins to activate itself if the configuration says so. */
    Gpon(const lmq_dev_startup_cfg_s &start, Clock::Time now);

    using Ploam = std::array<vx_uint8, 13>; /**< ITU-T G.984.3: ONU-ID, type, ten bytes of data, CRC. */

    /** @brief The PON port. */
    struct Port {
        vx_gpon_port_cfg_t cfg{}; /**< Without the reports, which are made for each get. */
        bool enabled = false;
        bool walking = false; /**< On the way to operation, or there; a forced state does not walk. */
        vx_gpon_onu_state_t state = VX_GPON_STATE_INITIAL;
        Clock::Time since{}; /**< When the state was entered. */
        vx_pon_laser_ctrl_mode_t laser = VX_PON_LASER_BURST_OPERATION;
        bool masked = false;          /**< Downstream messages are dropped ... */
        bool overhead_passes = false; /**< ... but for Upstream_Overhead. */
        std::deque<Ploam> received;
    };
    Port port;

    Table<vx_uint16, vx_uint16> tconts{VX_GPON_MAX_TCONTS}; /**< Alloc-Id of each enabled T-CONT, by tcont_id. */

    struct GemPort {
        vx_gem_port_cfg_t cfg;
        vx_uint16 index;       /**< In the GPON block. */
        bool loopback = false; /**< Flows that are mapped to the port are blocked. */
    };
    Table<vx_uint16, GemPort> gem_ports{VX_MAX_GEM_PORTS}; /**< By the OLT's number. */
};

struct Device;

/** @brief Takes the ONU to the state that it has come to by now. */
void pass_time(Device &device, Gpon &gpon);

}  // namespace lmq::sim

#endif
