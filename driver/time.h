// What a device keeps of time distribution: PTP, and the 1PPS and time of day outputs.
#pragma once

#include <cstdint>
#include <optional>

#include "driver/clock.h"
#include "driver/store.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// State of the family. The configurations are kept as they are read, with all members flagged.
struct TimeDistribution {
    TimeDistribution();

    vx_ptp_cfg_t ptp{};
    Setting<vx_port_id_t, vx_ptp_port_cfg_t> ptp_port;
    vx_1pps_tod_cfg_t outputs{};

    /// The PTP counter, which runs on from a time that was set.
    struct PtpCounter {
        Clock::Time since{};           ///< When it was set.
        std::int64_t nanoseconds = 0;  ///< To what.
        std::int64_t rollovers = 0;    ///< How often it has gone beyond 32 bits since, as far as that was noticed.
    };
    PtpCounter counter;

    /// Pulses of the 1PPS output that are to come.
    struct Pulses {
        Clock::Time next;
        bool once;
    };
    std::optional<Pulses> pulses;
};

struct Device;

/// Sends the pulses that have fallen due, and lets the PTP counter roll over.
void pass_time(Device &device, TimeDistribution &time);

/// The PTP time now, with the local time that it belongs to.
lmq_ptp_get_ts_event_data_s time_stamp(const Device &device);

/// A packet from the CPU leaves by a port: latches its time if it is a PTP message that gets a time stamp there.
void latch_egress_time(Device &device, vx_port_id_t port_id, const vx_uint8 *packet, vx_uint32 length);

}  // namespace lmq::sim
