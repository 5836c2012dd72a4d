// The traffic that a device sees: what moves the counters.
#pragma once

#include <cstdint>
#include <optional>
#include <random>

#include "driver/clock.h"
#include "lmq/lmq.h"

namespace lmq::sim {

/// How much traffic there is.
struct TrafficPlan {
    std::uint64_t seed;
    std::uint64_t packets_per_second;  ///< Of each source, on average.

    /// Reads LMQ_SIM_TRAFFIC: `seed` or `seed:packets-per-second`, 1 to 1000000; 1000 without it.
    /// @return The plan, or nothing when it is not set.
    /// @throws std::invalid_argument with a text that names it when it is no such thing.
    static std::optional<TrafficPlan> from_environment();
};

/// State of the model.
struct Traffic {
    Traffic(const std::optional<TrafficPlan> &given, Clock::Time now)
        : plan(given), random(given ? given->seed : 0), counted_to(now) {}

    const std::optional<TrafficPlan> plan;  ///< Nothing for no traffic.
    std::mt19937_64 random;                 ///< The same numbers from the same seed on every machine.
    Clock::Time counted_to;
    std::uint64_t rest = 0;  ///< Parts of a packet that were not counted.
};

struct Device;

/// Counts the packets since the last time.
void pass_time(Device &device, Traffic &traffic);

/// Counts a packet from the CPU on the port where it leaves.
void count_sent(Device &device, const vx_cpu_send_frame_cfg_t &cfg, const vx_uint8 *packet, vx_uint32 length);

}  // namespace lmq::sim
